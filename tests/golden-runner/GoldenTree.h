// The tree of golden cases under tests/golden: which cases there are, which
// scheme each one runs under, and whether every file in the tree belongs to
// the convention. The golden test runner and tools/golden-update read it.
//
//   tests/golden/
//     base.tws                  the scheme every case starts from
//     <area>/_builtin           optional: a built-in scheme name; replaces the scheme so far
//     <area>/_scheme.tws        optional: properties laid over the scheme so far
//     <area>/<slug>.in.cpp      the input; its presence makes the case
//     <area>/<slug>.out.cpp     optional: the expected output; absent = the input
//     <area>/<slug>.builtin     optional: as _builtin, for this case
//     <area>/<slug>.tws         optional: as _scheme.tws, for this case
//     <area>/<slug>.messages    optional: "line:col: text" lines; the run must fail with them
//
// Areas may hold sub-folders; each folder's _builtin and _scheme.tws apply,
// from tests/golden down to the case, then the case's own .builtin and .tws.
// A built-in name is a scheme of the schemes directory ("K&R" reads
// schemes/K&R.tws); "(empty)" is a scheme without any property.
#ifndef GOLDENTREE_H
#define GOLDENTREE_H

#include "Kempt_FormatMessage.h"
#include "Kempt_PropertySet.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace Golden {

namespace fs = std::filesystem;

inline constexpr const char* BASE_SCHEME = "base.tws";
inline constexpr const char* FOLDER_SCHEME = "_scheme.tws";
inline constexpr const char* FOLDER_BUILTIN = "_builtin";
inline constexpr const char* INPUT_SUFFIX = ".in.cpp";
inline constexpr const char* OUTPUT_SUFFIX = ".out.cpp";
inline constexpr const char* SCHEME_SUFFIX = ".tws";
inline constexpr const char* BUILTIN_SUFFIX = ".builtin";
inline constexpr const char* MESSAGES_SUFFIX = ".messages";
// The built-in name that stands for a scheme without any property.
inline constexpr const char* EMPTY_SCHEME = "(empty)";

struct Case {
    std::string id;     // path below the root without ".in.cpp": "parse-failures/unbalanced-brace"
    fs::path input;     // <slug>.in.cpp
    fs::path folder;    // the folder that holds it
    std::string slug;   // the file name without ".in.cpp"

    fs::path fileWith(const char* suffix) const { return folder / (slug + suffix); }
    std::optional<fs::path> expected() const { return existing(OUTPUT_SUFFIX); }
    std::optional<fs::path> messages() const { return existing(MESSAGES_SUFFIX); }

private:
    std::optional<fs::path> existing(const char* suffix) const;
};

// Where the tree and the built-in schemes lie.
struct Roots {
    fs::path golden;
    fs::path schemes;
};

// A root without "." parts or a trailing separator, so that paths found
// below it can be compared with it.
fs::path normalRoot(const fs::path& path);

// The roots compiled into the runner, unless the environment variables
// TW_GOLDEN_DIR and TW_SCHEMES_DIR name others.
Roots defaultRoots();

// Every case under the root, sorted by id. Empty when the root does not exist.
std::vector<Case> findCases(const fs::path& root);

// The scheme a case runs under. False and `error` (naming the file) when a
// scheme file does not read or a built-in name is unknown.
bool schemeOf(const Roots& roots, const Case& c, Kempt::PropertySet& scheme, std::string& error);

// One line per problem with the tree: files that belong to no case or
// convention, cases outside an area, a case with both .out.cpp and .messages,
// scheme files that do not read, built-in names that are unknown.
std::vector<std::string> checkTree(const Roots& roots);

// The whole content of a file, as bytes; false when it cannot be read.
bool readFile(const fs::path& path, std::string& text);
// Writes bytes; false when it cannot.
bool writeFile(const fs::path& path, const std::string& text);

// Messages as the .messages files hold them: one "line:col: text" each.
std::vector<std::string> messageLines(const Kempt::FormatMessageList& messages);
// The lines of a .messages file: a trailing CR and empty lines dropped.
std::vector<std::string> parseMessageLines(const std::string& text);

// A name fit for a GoogleTest parameter: letters, digits and "_" only,
// unique among the cases ("parse-failures/a-b" -> "parse_failures__a_b").
std::vector<std::string> testNames(const std::vector<Case>& cases);

} // namespace Golden

#endif
