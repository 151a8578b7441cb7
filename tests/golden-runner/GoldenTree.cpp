// Finding golden cases, layering their schemes, and checking the tree.
#include "GoldenTree.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <set>
#include <sstream>

namespace Golden {

namespace {

bool endsWith(const std::string& text, const std::string& suffix)
{
    return text.size() >= suffix.size() && text.compare(text.size() - suffix.size(), suffix.size(), suffix) == 0;
}

std::string stripSuffix(const std::string& text, const std::string& suffix)
{
    return text.substr(0, text.size() - suffix.size());
}

std::string trim(const std::string& text)
{
    const std::size_t begin = text.find_first_not_of(" \t\r\n");
    if (begin == std::string::npos)
        return std::string();
    const std::size_t end = text.find_last_not_of(" \t\r\n");
    return text.substr(begin, end - begin + 1);
}

// Letters, digits, ".", "_", "+" and "-": names that every shell, file system
// and test filter takes as they are.
bool isPlainName(const std::string& name)
{
    return !name.empty() && std::all_of(name.begin(), name.end(), [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '.' || c == '_'
            || c == '+' || c == '-';
    });
}

std::string relativeName(const fs::path& path, const fs::path& root)
{
    return path.lexically_relative(root).generic_string();
}

bool readScheme(const fs::path& path, Kempt::PropertySet& scheme, std::string& error)
{
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        error = path.string() + ": cannot be read";
        return false;
    }
    Kempt::PropertySet read;
    if (!read.read(in)) {
        error = path.string() + ": not a valid scheme file";
        return false;
    }
    scheme.swap(read);
    return true;
}

// Every property of `overlay` replaces the one of the same name and type.
void layOver(Kempt::PropertySet& scheme, const Kempt::PropertySet& overlay)
{
    for (const auto& [name, value] : overlay.bools())
        scheme.setBool(name, value);
    for (const auto& [name, value] : overlay.ints())
        scheme.setInt(name, value);
    for (const auto& [name, value] : overlay.strings())
        scheme.setString(name, value);
}

// The scheme named in a _builtin or .builtin file, which replaces `scheme`.
bool readBuiltIn(const Roots& roots, const fs::path& file, Kempt::PropertySet& scheme, std::string& error)
{
    std::string text;
    if (!readFile(file, text)) {
        error = file.string() + ": cannot be read";
        return false;
    }
    const std::string name = trim(text.substr(0, text.find('\n')));
    if (name.empty()) {
        error = file.string() + ": names no scheme";
        return false;
    }
    if (name == EMPTY_SCHEME) {
        scheme = Kempt::PropertySet(name);
        return true;
    }
    const fs::path path = roots.schemes / (name + ".tws");
    std::error_code ec;
    if (name.find('/') != std::string::npos || !fs::is_regular_file(path, ec)) {
        error = file.string() + ": no built-in scheme \"" + name + "\" in " + roots.schemes.string();
        return false;
    }
    return readScheme(path, scheme, error);
}

// Applies a folder's or a case's _builtin/.builtin and _scheme.tws/.tws.
bool applyLayer(const Roots& roots, const fs::path& builtIn, const fs::path& overlay, Kempt::PropertySet& scheme,
                std::string& error)
{
    std::error_code ec;
    if (fs::exists(builtIn, ec) && !readBuiltIn(roots, builtIn, scheme, error))
        return false;
    if (fs::exists(overlay, ec)) {
        Kempt::PropertySet layer;
        if (!readScheme(overlay, layer, error))
            return false;
        layOver(scheme, layer);
    }
    return true;
}

// What a file of the tree is, by its name.
enum class Role { BASE, FOLDER_SCHEME, FOLDER_BUILTIN, INPUT, CASE_FILE, README, UNKNOWN };

struct Classified {
    Role role = Role::UNKNOWN;
    std::string slug; // for INPUT and CASE_FILE
};

Classified classify(const std::string& name, bool atRoot)
{
    if (atRoot && name == BASE_SCHEME)
        return {Role::BASE, {}};
    if (atRoot && name == "README.md")
        return {Role::README, {}};
    if (!atRoot && name == FOLDER_SCHEME)
        return {Role::FOLDER_SCHEME, {}};
    if (!atRoot && name == FOLDER_BUILTIN)
        return {Role::FOLDER_BUILTIN, {}};
    if (endsWith(name, INPUT_SUFFIX))
        return {Role::INPUT, stripSuffix(name, INPUT_SUFFIX)};
    for (const char* suffix : {OUTPUT_SUFFIX, SCHEME_SUFFIX, BUILTIN_SUFFIX, MESSAGES_SUFFIX})
        if (endsWith(name, suffix))
            return {Role::CASE_FILE, stripSuffix(name, suffix)};
    return {};
}

} // namespace

std::optional<fs::path> Case::existing(const char* suffix) const
{
    const fs::path path = fileWith(suffix);
    std::error_code ec;
    if (fs::exists(path, ec))
        return path;
    return std::nullopt;
}

fs::path normalRoot(const fs::path& path)
{
    fs::path p = path.lexically_normal();
    if (!p.has_filename() && p.has_relative_path())
        p = p.parent_path(); // "tests/golden/" -> "tests/golden"
    return p;
}

Roots defaultRoots()
{
    Roots roots{TW_GOLDEN_DIR, TW_SCHEMES_DIR};
    if (const char* dir = std::getenv("TW_GOLDEN_DIR"); dir && *dir)
        roots.golden = dir;
    if (const char* dir = std::getenv("TW_SCHEMES_DIR"); dir && *dir)
        roots.schemes = dir;
    return {normalRoot(roots.golden), normalRoot(roots.schemes)};
}

std::vector<Case> findCases(const fs::path& root)
{
    std::vector<Case> cases;
    std::error_code ec;
    if (!fs::is_directory(root, ec))
        return cases;
    for (fs::recursive_directory_iterator it(root, ec), end; !ec && it != end; it.increment(ec)) {
        const std::string name = it->path().filename().string();
        if (!it->is_regular_file(ec) || !endsWith(name, INPUT_SUFFIX))
            continue;
        Case c;
        c.input = it->path();
        c.folder = it->path().parent_path();
        c.slug = stripSuffix(name, INPUT_SUFFIX);
        c.id = stripSuffix(relativeName(it->path(), root), INPUT_SUFFIX);
        cases.push_back(std::move(c));
    }
    std::sort(cases.begin(), cases.end(), [](const Case& a, const Case& b) { return a.id < b.id; });
    return cases;
}

bool schemeOf(const Roots& roots, const Case& c, Kempt::PropertySet& scheme, std::string& error)
{
    Kempt::PropertySet result;
    if (!readScheme(roots.golden / BASE_SCHEME, result, error))
        return false;
    // Folders from the root's first sub-folder down to the case's own.
    fs::path folder = roots.golden;
    for (const fs::path& part : c.folder.lexically_relative(roots.golden)) {
        if (part == ".")
            continue;
        folder /= part;
        if (!applyLayer(roots, folder / FOLDER_BUILTIN, folder / FOLDER_SCHEME, result, error))
            return false;
    }
    if (!applyLayer(roots, c.fileWith(BUILTIN_SUFFIX), c.fileWith(SCHEME_SUFFIX), result, error))
        return false;
    scheme.swap(result);
    return true;
}

std::vector<std::string> checkTree(const Roots& roots)
{
    std::vector<std::string> problems;
    std::error_code ec;
    if (!fs::is_directory(roots.golden, ec))
        return {roots.golden.string() + ": no such directory"};
    Kempt::PropertySet scheme;
    std::string error;
    if (!readScheme(roots.golden / BASE_SCHEME, scheme, error))
        problems.push_back(error);

    // Inputs by folder, and the other files that need one.
    std::set<fs::path> inputs;
    std::vector<std::pair<fs::path, std::string>> caseFiles; // file, slug
    for (fs::recursive_directory_iterator it(roots.golden, ec), end; !ec && it != end; it.increment(ec)) {
        const fs::path& path = it->path();
        const std::string rel = relativeName(path, roots.golden);
        if (it->is_directory(ec)) {
            if (!isPlainName(path.filename().string()))
                problems.push_back(rel + ": folder names take letters, digits, \".\", \"_\", \"+\" and \"-\" only");
            continue;
        }
        const bool atRoot = path.parent_path() == roots.golden;
        const Classified kind = classify(path.filename().string(), atRoot);
        switch (kind.role) {
        case Role::BASE:
        case Role::README:
            break;
        case Role::FOLDER_SCHEME: {
            Kempt::PropertySet layer;
            if (!readScheme(path, layer, error))
                problems.push_back(error);
            break;
        }
        case Role::FOLDER_BUILTIN: {
            Kempt::PropertySet named;
            if (!readBuiltIn(roots, path, named, error))
                problems.push_back(error);
            break;
        }
        case Role::INPUT:
            if (atRoot)
                problems.push_back(rel + ": a case belongs in an area folder, such as comments/ or parse-failures/");
            if (!isPlainName(kind.slug))
                problems.push_back(rel + ": case names take letters, digits, \".\", \"_\", \"+\" and \"-\" only");
            inputs.insert(path.parent_path() / kind.slug);
            break;
        case Role::CASE_FILE:
            caseFiles.emplace_back(path, kind.slug);
            break;
        case Role::UNKNOWN:
            problems.push_back(rel + ": not part of the golden convention (a typo in a suffix?)");
            break;
        }
    }
    if (ec)
        problems.push_back(roots.golden.string() + ": " + ec.message());

    for (const auto& [path, slug] : caseFiles) {
        const std::string rel = relativeName(path, roots.golden);
        if (!inputs.count(path.parent_path() / slug)) {
            problems.push_back(rel + ": no " + slug + INPUT_SUFFIX + " beside it");
            continue;
        }
        if (endsWith(rel, SCHEME_SUFFIX)) {
            Kempt::PropertySet layer;
            if (!readScheme(path, layer, error))
                problems.push_back(error);
        } else if (endsWith(rel, BUILTIN_SUFFIX)) {
            Kempt::PropertySet named;
            if (!readBuiltIn(roots, path, named, error))
                problems.push_back(error);
        } else if (endsWith(rel, MESSAGES_SUFFIX) && fs::exists(path.parent_path() / (slug + OUTPUT_SUFFIX), ec)) {
            problems.push_back(rel + ": a case with messages has no " + OUTPUT_SUFFIX
                               + " (a text that does not parse stays as it was)");
        }
    }
    std::sort(problems.begin(), problems.end());
    return problems;
}

bool readFile(const fs::path& path, std::string& text)
{
    std::ifstream in(path, std::ios::binary);
    if (!in)
        return false;
    std::ostringstream s;
    s << in.rdbuf();
    text = std::move(s).str();
    return !in.bad();
}

bool writeFile(const fs::path& path, const std::string& text)
{
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
    out.close();
    return static_cast<bool>(out);
}

std::vector<std::string> messageLines(const Kempt::FormatMessageList& messages)
{
    std::vector<std::string> lines;
    for (const Kempt::FormatMessage& m : messages)
        lines.push_back(std::to_string(m.position.line) + ":" + std::to_string(m.position.col) + ": " + m.text);
    return lines;
}

std::vector<std::string> parseMessageLines(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        if (!trim(line).empty())
            lines.push_back(line);
    }
    return lines;
}

std::vector<std::string> testNames(const std::vector<Case>& cases)
{
    std::vector<std::string> names;
    std::set<std::string> used;
    for (const Case& c : cases) {
        std::string name;
        for (const char ch : c.id) {
            if ((ch >= 'a' && ch <= 'z') || (ch >= 'A' && ch <= 'Z') || (ch >= '0' && ch <= '9'))
                name += ch;
            else
                name += ch == '/' ? "__" : "_";
        }
        // "a-b" and "a_b" would share a name: the later one gets a number.
        std::string unique = name;
        for (int n = 2; used.count(unique); ++n)
            unique = name + "_" + std::to_string(n);
        used.insert(unique);
        names.push_back(unique);
    }
    return names;
}

} // namespace Golden
