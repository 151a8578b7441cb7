// Developer Studio projects (.dsp) and workspaces (.dsw): line-oriented text.
//
// A project names its files one per "SOURCE=" line, each within a
// "# Begin Source File" ... "# End Source File" block; groups only nest the
// blocks. A workspace names its projects on "Project:" lines:
//   Project: "Name"=.\path\name.dsp - Package Owner=<4>
// where the path may be in double quotes when it holds blanks. Paths are
// relative to the file that names them. Both files begin with a line that
// says what they are; a file without it is refused.
#include "App_ProjectFiles.h"

#include <sstream>

namespace App {

namespace {

constexpr const char* PROJECT_MARK = "Developer Studio Project File";
constexpr const char* WORKSPACE_MARK = "Developer Studio Workspace File";
constexpr const char* OWNER_MARK = " - Package Owner=";

std::string withoutLineEnd(std::string line)
{
    while (!line.empty() && (line.back() == '\r' || line.back() == '\n'))
        line.pop_back();
    return line;
}

std::string trimLeft(const std::string& text)
{
    const std::size_t first = text.find_first_not_of(" \t");
    return first == std::string::npos ? "" : text.substr(first);
}

// True when the first line that is not empty holds `mark` (a byte-order mark
// before it is allowed).
bool startsAs(const std::string& text, const char* mark)
{
    std::istringstream in(text);
    std::string line;
    while (std::getline(in, line)) {
        line = trimLeft(withoutLineEnd(line));
        if (line.empty())
            continue;
        return line.find(mark) != std::string::npos;
    }
    return false;
}

// The project path of a "Project:" line: after the first "=", in double
// quotes or up to the package owner.
std::string workspaceProjectPath(const std::string& line)
{
    // The name is quoted and may hold "=": skip it first.
    std::size_t at = line.find('"');
    if (at != std::string::npos)
        at = line.find('"', at + 1);
    at = line.find('=', at == std::string::npos ? 0 : at);
    if (at == std::string::npos)
        return "";
    std::string rest = trimLeft(line.substr(at + 1));
    if (!rest.empty() && rest.front() == '"') {
        const std::size_t close = rest.find('"', 1);
        return close == std::string::npos ? rest.substr(1) : rest.substr(1, close - 1);
    }
    if (const std::size_t owner = rest.find(OWNER_MARK); owner != std::string::npos)
        rest.erase(owner);
    return rest;
}

} // namespace

bool readDspProject(const std::string& path, ProjectEntry& project, std::string& error)
{
    std::string text;
    if (!readTextFile(path, text, error))
        return false;
    if (!startsAs(text, PROJECT_MARK)) {
        error = "'" + path + "' is not a Developer Studio project file (its first line does not say \""
            + PROJECT_MARK + "\")";
        return false;
    }
    project.path = path;
    std::istringstream in(text);
    std::string line;
    while (std::getline(in, line)) {
        line = trimLeft(withoutLineEnd(line));
        // A custom build step names its input as SOURCE="$(InputPath)": no file of its own.
        if (line.rfind("SOURCE=", 0) == 0 && line.find("$(") == std::string::npos)
            addProjectFile(project, projectMemberPath(path, line.substr(7)));
    }
    return true;
}

bool readDswWorkspace(const std::string& path, ProjectList& list, std::string& error)
{
    std::string text;
    if (!readTextFile(path, text, error))
        return false;
    if (!startsAs(text, WORKSPACE_MARK)) {
        error = "'" + path + "' is not a Developer Studio workspace file (its first line does not say \""
            + WORKSPACE_MARK + "\")";
        return false;
    }
    list.projects.push_back(ProjectEntry{path, {}, {}, {}});
    std::istringstream in(text);
    std::string line;
    while (std::getline(in, line)) {
        line = trimLeft(withoutLineEnd(line));
        if (line.rfind("Project:", 0) != 0)
            continue;
        ProjectEntry project;
        project.path = projectMemberPath(path, workspaceProjectPath(line));
        if (project.path.empty())
            continue;
        if (!readDspProject(project.path, project, project.error))
            project.files.clear();
        list.projects.push_back(std::move(project));
    }
    return true;
}

} // namespace App
