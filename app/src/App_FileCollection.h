// The batch commands: which files one command reaches and in what order, the
// lines it tells the user, its questions, its progress counting and where it
// stops when cancelled. Formatting each file is the target's business
// (App_BatchFeedback.h); so is showing anything.
//
//   formatFile        one file; a file whose extension is not in the list is
//                     formatted only when the user agrees
//   formatFolderTree  every listed file beneath a directory (App_FolderWalk.h):
//                     a counting walk sets the bar's range ("Adding PATH" for
//                     each file), a second walk formats ("Formatting file N of M")
//   formatProject     the files of one project, "Formatting file N of M" over
//                     the project's list, files of other extensions passed over
//   formatWorkspace   each project of a workspace in turn, numbered within it;
//                     the workspace's own entry gives its line and no files
// Each starts by checking that a scheme is selected, and each ends with a
// line that says it finished or was cancelled. Cancelling is seen before each
// file of a project, and before each entry and after each directory of a walk
// (the counting walk too, so that nothing is formatted).
//
// Protocol of use:
//   App::FileCollection commands(target, feedback, setup);
//   App::CollectionResult r = commands.formatFolderTree(dir);
//   r.end: DONE, CANCELLED ...; r.files: files handed to the target
#ifndef APP_FILECOLLECTION_H
#define APP_FILECOLLECTION_H

#include "App_BatchFeedback.h"
#include "App_PathGlob.h"
#include "App_ProjectFiles.h"

#include <cstdint>
#include <string>
#include <vector>

namespace App {

struct CollectionSetup {
    std::vector<std::string> extensions;  // the extension list (App_ExtensionList.h)
    std::vector<PathGlob> excludes;       // a tree: relative to its root; a project: see excludeBase
    // The directory that the files of a project are matched from; empty: the
    // directory of the project file.
    std::string excludeBase;
    std::string schemeName;               // as the information lines name it
    bool schemeSelected = true;           // false: every command stops at once
};

struct CollectionResult {
    enum class End {
        DONE,       // ran to its end
        NO_SCHEME,  // no scheme selected: told, nothing done
        DECLINED,   // the user said No
        NOT_READ,   // the project or workspace could not be read, or holds no project
        CANCELLED,  // cancelled; the files before were done
    };
    End end = End::DONE;
    std::int32_t files = 0;     // handed to the target
    std::int32_t problems = 0;  // directories or projects that could not be read
};

class FileCollection {
public:
    FileCollection(BatchTarget& target, BatchFeedback& feedback, CollectionSetup setup);

    CollectionResult formatFile(const std::string& path);
    CollectionResult formatFolderTree(const std::string& root);
    CollectionResult formatProject(const std::string& path);
    CollectionResult formatWorkspace(const std::string& path);
    // formatWorkspace for a .dsw or .sln, else formatProject.
    CollectionResult formatProjectOrWorkspace(const std::string& path);

private:
    bool checkScheme(CollectionResult& result);
    bool readList(const std::string& path, ProjectList& list, const std::string& missingText, CollectionResult& result);
    bool openList(const std::string& path, const std::string& missingText, const std::string& confirmTemplate,
                  ProjectList& list, CollectionResult& result);
    // The files of one project, numbered within it; false when cancelled.
    bool formatProjectFiles(const ProjectEntry& project, CollectionResult& result);
    void tellProjectProblems(const ProjectEntry& project, CollectionResult& result);
    bool excludedFromProject(const ProjectEntry& project, const std::string& file) const;

    BatchTarget& m_target;
    BatchFeedback& m_feedback;
    CollectionSetup m_setup;
};

// `text` with each "%d" filled by the next number, in order.
std::string fillNumbers(const std::string& text, std::initializer_list<std::int64_t> numbers);

} // namespace App

#endif
