// MSBuild C++ projects (.vcxproj, XML) and Visual Studio solutions (.sln).
//
// A .vcxproj names its sources and headers as items: <ClCompile Include="a.cpp"/>
// and <ClInclude Include="a.h"/>, anywhere below the Project element. An
// Include may hold several paths separated by ";", and escapes characters as
// %XX. Paths with wildcards or with properties other than the project's own
// directory are not expanded: they are reported as notes.
//
// A solution names its projects on lines
//   Project("{TYPE-GUID}") = "Name", "relative\path.vcxproj", "{PROJECT-GUID}"
// Entries whose path is no .vcxproj (solution folders, other languages) are
// left out.
#include "App_ProjectFiles.h"
#include "Varnel_Text.h"

#include <pugixml.hpp>

#include <cctype>
#include <sstream>

namespace App {

namespace {

constexpr const char* SOLUTION_MARK = "Microsoft Visual Studio Solution File";

bool endsWith(const std::string& text, const std::string& end)
{
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

int hexValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return -1;
}

// %XX escapes as their characters.
std::string unescape(const std::string& text)
{
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%' && i + 2 < text.size() && hexValue(text[i + 1]) >= 0 && hexValue(text[i + 2]) >= 0) {
            out += static_cast<char>(hexValue(text[i + 1]) * 16 + hexValue(text[i + 2]));
            i += 2;
            continue;
        }
        out += text[i];
    }
    return out;
}

// The properties that stand for the project's own directory, with their
// trailing separator, become nothing: the path is then relative to it.
std::string withoutDirectoryProperties(std::string item)
{
    for (const char* property : {"$(MSBuildThisFileDirectory)", "$(MSBuildProjectDirectory)\\",
                                 "$(MSBuildProjectDirectory)/", "$(ProjectDir)"}) {
        const std::string p = property;
        for (std::size_t at = item.find(p); at != std::string::npos; at = item.find(p))
            item.erase(at, p.size());
    }
    return item;
}

void addItem(ProjectEntry& project, const std::string& path, const std::string& include)
{
    std::string piece;
    std::istringstream parts(include);
    while (std::getline(parts, piece, ';')) {
        const std::string item = withoutDirectoryProperties(piece);
        if (item.find("$(") != std::string::npos || item.find("@(") != std::string::npos
            || item.find_first_of("*?") != std::string::npos) {
            project.notes.push_back("The item \"" + piece + "\" of the project \"" + path
                                    + "\" names its files by a wildcard or a property and is not formatted.");
            continue;
        }
        addProjectFile(project, projectMemberPath(path, unescape(item)));
    }
}

void collectItems(const pugi::xml_node& node, ProjectEntry& project, const std::string& path)
{
    for (const pugi::xml_node& child : node.children()) {
        if (child.type() != pugi::node_element)
            continue;
        const std::string name = child.name();
        if (name == "ClCompile" || name == "ClInclude") {
            if (const pugi::xml_attribute include = child.attribute("Include"))
                addItem(project, path, include.value());
            continue;
        }
        collectItems(child, project, path);
    }
}

// The quoted fields of a solution's Project line, in order.
std::vector<std::string> quotedFields(const std::string& line)
{
    std::vector<std::string> fields;
    for (std::size_t at = line.find('"'); at != std::string::npos;) {
        const std::size_t close = line.find('"', at + 1);
        if (close == std::string::npos)
            break;
        fields.push_back(line.substr(at + 1, close - at - 1));
        at = line.find('"', close + 1);
    }
    return fields;
}

} // namespace

bool readVcxproj(const std::string& path, ProjectEntry& project, std::string& error)
{
    std::string text;
    if (!readTextFile(path, text, error))
        return false;
    pugi::xml_document document;
    const pugi::xml_parse_result parsed = document.load_buffer(text.data(), text.size());
    if (!parsed) {
        error = "cannot read project file '" + path + "': not well-formed XML at byte "
            + std::to_string(parsed.offset) + ": " + parsed.description();
        return false;
    }
    const pugi::xml_node root = document.document_element();
    if (std::string(root.name()) != "Project") {
        error = "'" + path + "' is not an MSBuild project (its root element is <" + root.name() + ">, not <Project>)";
        return false;
    }
    project.path = path;
    collectItems(root, project, path);
    return true;
}

bool readSlnWorkspace(const std::string& path, ProjectList& list, std::string& error)
{
    std::string text;
    if (!readTextFile(path, text, error))
        return false;
    if (text.find(SOLUTION_MARK) == std::string::npos) {
        error = "'" + path + "' is not a Visual Studio solution (it has no line \"" + SOLUTION_MARK + "\")";
        return false;
    }
    list.projects.push_back(ProjectEntry{path, {}, {}, {}});
    std::istringstream in(text);
    std::string line;
    while (std::getline(in, line)) {
        const std::size_t first = line.find_first_not_of(" \t");
        if (first == std::string::npos || line.compare(first, 8, "Project(") != 0)
            continue;
        const std::vector<std::string> fields = quotedFields(line.substr(first));
        // The type, the name, the path, the project's own id.
        if (fields.size() < 3 || !endsWith(Varnel::toLower(fields[2]), ".vcxproj"))
            continue;
        ProjectEntry project;
        project.path = projectMemberPath(path, fields[2]);
        if (!readVcxproj(project.path, project, project.error))
            project.files.clear();
        list.projects.push_back(std::move(project));
    }
    return true;
}

} // namespace App
