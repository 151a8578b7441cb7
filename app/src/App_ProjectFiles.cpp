// Choosing a project reader by name, and the path rules the readers share.
#include "App_ProjectFiles.h"
#include "Varnel_Text.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace App {

namespace fs = std::filesystem;

namespace {

// `path` as it exists on disk when only the case of its letters differs;
// `path` itself when it exists or no such match is found.
fs::path existingCase(const fs::path& path)
{
    std::error_code ec;
    if (fs::exists(path, ec))
        return path;
    fs::path found;
    for (const fs::path& part : path) {
        const fs::path next = found / part;
        if (part == "/" || part == "." || part == ".." || fs::exists(next, ec)) {
            found = next;
            continue;
        }
        const fs::path dir = found.empty() ? fs::path(".") : found;
        bool matched = false;
        for (fs::directory_iterator it(dir, ec), end; !ec && it != end; it.increment(ec)) {
            const std::string name = it->path().filename().string();
            if (Varnel::toLower(name) == Varnel::toLower(part.string())) {
                found /= name;
                matched = true;
                break;
            }
        }
        if (!matched)
            return path;
    }
    return found;
}

} // namespace

ProjectKind projectKind(const std::string& path)
{
    const std::string name = Varnel::toLower(fs::path(path).filename().string());
    const std::string extension = Varnel::toLower(fs::path(path).extension().string());
    if (extension == ".dsp")
        return ProjectKind::DSP;
    if (extension == ".dsw")
        return ProjectKind::DSW;
    if (extension == ".vcxproj")
        return ProjectKind::VCXPROJ;
    if (extension == ".sln")
        return ProjectKind::SLN;
    if (extension == ".json")
        return ProjectKind::COMPILE_COMMANDS;
    return ProjectKind::NONE;
}

bool isWorkspaceKind(ProjectKind kind)
{
    return kind == ProjectKind::DSW || kind == ProjectKind::SLN;
}

std::string projectMemberPath(const std::string& projectFile, const std::string& listed)
{
    std::string text = std::string(Varnel::trim(listed));
    if (text.size() >= 2 && text.front() == '"' && text.back() == '"')
        text = std::string(Varnel::trim(std::string_view(text).substr(1, text.size() - 2)));
    if (text.empty())
        return "";
    std::replace(text.begin(), text.end(), '\\', '/');
    fs::path member(text);
    if (member.is_relative())
        member = fs::path(projectFile).parent_path() / member;
    return existingCase(member.lexically_normal()).string();
}

void addProjectFile(ProjectEntry& project, const std::string& path)
{
    if (path.empty())
        return;
    if (std::find(project.files.begin(), project.files.end(), path) == project.files.end())
        project.files.push_back(path);
}

bool readTextFile(const std::string& path, std::string& text, std::string& error)
{
    std::error_code ec;
    if (fs::is_directory(path, ec)) {
        error = "cannot read project file '" + path + "': it is a directory";
        return false;
    }
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        error = "cannot read project file '" + path + "': " + std::strerror(errno);
        return false;
    }
    std::ostringstream s;
    s << in.rdbuf();
    if (in.bad()) {
        error = "cannot read project file '" + path + "': read error";
        return false;
    }
    text = s.str();
    return true;
}

bool readProjectFile(const std::string& path, ProjectList& list, std::string& error)
{
    list = ProjectList{};
    list.path = path;
    list.kind = projectKind(path);
    ProjectEntry project;
    project.path = path;
    switch (list.kind) {
    case ProjectKind::DSW: return readDswWorkspace(path, list, error);
    case ProjectKind::SLN: return readSlnWorkspace(path, list, error);
    case ProjectKind::DSP:
        if (!readDspProject(path, project, error))
            return false;
        break;
    case ProjectKind::VCXPROJ:
        if (!readVcxproj(path, project, error))
            return false;
        break;
    case ProjectKind::COMPILE_COMMANDS:
        if (!readCompileCommands(path, project, error))
            return false;
        break;
    case ProjectKind::NONE:
        error = "'" + path + "' is not a project file this program reads: name a .dsp, .dsw, .vcxproj or .sln "
                             "file, or a compile_commands.json";
        return false;
    }
    list.projects.push_back(std::move(project));
    return true;
}

} // namespace App
