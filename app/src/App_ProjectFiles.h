// Projects and workspaces as lists of files: what the project and workspace
// commands format. One reader per format, chosen by the file's name:
//
//   .dsp                    Developer Studio project: its "SOURCE=" lines
//   .dsw                    Developer Studio workspace: its "Project:" lines, each a .dsp
//   .vcxproj                MSBuild project: the Include of its ClCompile and ClInclude items
//   .sln                    Visual Studio solution: its Project(...) lines that name a .vcxproj
//   compile_commands.json   (any .json) a compilation database: each entry's "file",
//                           relative to its "directory"
//
// A workspace lists its own entry first (its path is the workspace's, with no
// files), then its projects in the order it names them. A project's files are
// the project file's directory joined with each listed path ("\" read as "/"),
// lexically normalised, each once, in the order listed; empty paths are left
// out. A listed path that does not exist as written but does with other
// letter cases (a project written on a system that ignores case) is taken as
// it exists.
//
// Protocol of use:
//   App::ProjectList list;
//   std::string error;
//   if (!App::readProjectFile(path, list, error)) -> tell `error`; nothing was read
//   for (const App::ProjectEntry& p : list.projects) -> p.error, p.notes, p.files
#ifndef APP_PROJECTFILES_H
#define APP_PROJECTFILES_H

#include <string>
#include <vector>

namespace App {

enum class ProjectKind { NONE, DSP, DSW, VCXPROJ, SLN, COMPILE_COMMANDS };

// The reader for `path`, by its name; NONE when no reader takes it.
ProjectKind projectKind(const std::string& path);

// DSW and SLN: a list of projects.
bool isWorkspaceKind(ProjectKind kind);

struct ProjectEntry {
    std::string path;                // the project file
    std::vector<std::string> files;  // full paths, each once
    std::string error;               // why the project could not be read; then it has no files
    std::vector<std::string> notes;  // items that name no file the reader can find (patterns, properties)
};

struct ProjectList {
    std::string path;
    ProjectKind kind = ProjectKind::NONE;
    std::vector<ProjectEntry> projects;
};

// Reads the project or workspace at `path`. False and `error` when it cannot
// be read or is not of its kind; a project of a workspace that cannot be read
// is an entry with its error.
bool readProjectFile(const std::string& path, ProjectList& list, std::string& error);

// The readers, for a path already known to be of their kind. Each fills the
// entries it finds; false and `error` as above.
bool readDspProject(const std::string& path, ProjectEntry& project, std::string& error);
bool readDswWorkspace(const std::string& path, ProjectList& list, std::string& error);
bool readVcxproj(const std::string& path, ProjectEntry& project, std::string& error);
bool readSlnWorkspace(const std::string& path, ProjectList& list, std::string& error);
bool readCompileCommands(const std::string& path, ProjectEntry& project, std::string& error);

// Shared by the readers: `listed` (as a project writes it, maybe quoted, maybe
// with "\") made a path beside `projectFile`; empty when `listed` is empty.
std::string projectMemberPath(const std::string& projectFile, const std::string& listed);
// Adds `path` to `project.files` unless it is empty or there already.
void addProjectFile(ProjectEntry& project, const std::string& path);
// The whole of a text file; false and `error` ("cannot read project file ...").
bool readTextFile(const std::string& path, std::string& text, std::string& error);

} // namespace App

#endif
