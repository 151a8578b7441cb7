// A compilation database (compile_commands.json, as CMake and other build
// tools write it): an array of entries, each with the "file" it compiles and
// the "directory" it runs in. A relative file is taken from its entry's
// directory, a relative directory from the database's own. The same file
// compiled in several ways is listed once.
#include "App_ProjectFiles.h"

#include <nlohmann/json.hpp>

#include <filesystem>

namespace App {

bool readCompileCommands(const std::string& path, ProjectEntry& project, std::string& error)
{
    namespace fs = std::filesystem;
    std::string text;
    if (!readTextFile(path, text, error))
        return false;
    const nlohmann::json database = nlohmann::json::parse(text, nullptr, false);
    if (database.is_discarded()) {
        error = "cannot read project file '" + path + "': it is not valid JSON";
        return false;
    }
    if (!database.is_array()) {
        error = "'" + path + "' is not a compilation database (an array of entries with \"directory\" and \"file\")";
        return false;
    }
    project.path = path;
    const fs::path base = fs::path(path).parent_path();
    std::size_t index = 0;
    for (const nlohmann::json& entry : database) {
        ++index;
        if (!entry.is_object() || !entry.contains("file") || !entry["file"].is_string()) {
            project.notes.push_back("Entry " + std::to_string(index) + " of \"" + path
                                    + "\" names no file and is left out.");
            continue;
        }
        fs::path directory = base;
        if (entry.contains("directory") && entry["directory"].is_string()) {
            const fs::path named = entry["directory"].get<std::string>();
            directory = named.is_absolute() ? named : base / named;
        }
        // projectMemberPath takes the directory of its first argument.
        addProjectFile(project, projectMemberPath((directory / "-").string(), entry["file"].get<std::string>()));
    }
    return true;
}

} // namespace App
