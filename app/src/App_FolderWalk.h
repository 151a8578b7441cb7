// The walk of a folder tree for the batch commands: which files beneath a
// directory are formatted, in a reproducible order. The same walk runs twice
// in a command, once to count and once to format.
//
// An entry is passed over, without a word, when
//   1. its name begins with a point (a hidden file or directory);
//   2. it is a symbolic link (so a walk never loops and never leaves the tree);
//   3. it is neither a regular file nor a directory (a device, FIFO or socket);
//   4. it is a file that this user may not write (read-only; see canWrite);
//   5. it is a file whose extension is not in the list;
//   6. its path relative to the root, or a directory on the way, matches an
//      exclusion pattern.
// Entries are taken in the byte order of their names; a directory is walked
// where it stands among them, depth first. The root itself is walked whatever
// its name.
//
// Protocol of use:
//   App::FolderWalk walk(root, extensions, excludes);
//   class Counter : public App::FolderWalk::Visitor { ... } counter;
//   if (walk.run(counter) == App::FolderWalk::End::CANCELLED) -> stop
// Visitor::cancelled() is asked before each entry and after each directory.
#ifndef APP_FOLDERWALK_H
#define APP_FOLDERWALK_H

#include "App_PathGlob.h"

#include <string>
#include <vector>

namespace App {

class FolderWalk {
public:
    class Visitor {
    public:
        virtual ~Visitor();
        // True to stop the walk.
        virtual bool cancelled() = 0;
        // A file to count or format, as the root joined with its relative path.
        virtual void file(const std::string& path) = 0;
        // A directory that could not be listed: `reason` says why.
        virtual void unreadable(const std::string& directory, const std::string& reason) = 0;
    };

    enum class End { COMPLETE, CANCELLED };

    FolderWalk(std::string root, std::vector<std::string> extensions, std::vector<PathGlob> excludes = {});

    End run(Visitor& visitor) const;

private:
    bool walkDirectory(const std::string& path, const std::string& relative, Visitor& visitor) const;

    std::string m_root;
    std::vector<std::string> m_extensions;
    std::vector<PathGlob> m_excludes;
};

// `directory` and `name` joined by one "/"; "." and "" give `name` alone, so
// that a walk of the current directory names "src/a.c", not "./src/a.c".
std::string joinPath(const std::string& directory, const std::string& name);

} // namespace App

#endif
