// An exclusion pattern of the batch commands (--exclude GLOB), matched
// against a path relative to a base directory, with "/" between its parts.
//
//   *  any run of characters within one part      ?  one character
//   [abc] [a-z] [!a]  one character of a class   ** (a whole part) any number of parts
//
// A pattern without a "/" matches the name of an entry at any depth ("*.gen.cpp",
// "build"); one with a "/" matches from the base ("src/*/test", "third_party/**");
// a leading "/" or "./" only says so. A trailing "/" matches directories only.
// A directory that matches excludes everything beneath it.
//
// Protocol of use:
//   App::PathGlob glob("third_party/**");
//   glob.matches("third_party/zlib/inflate.c", false)  -> true
//   App::isExcluded(globs, "src/a.cpp")                -> the path or a directory above it matches
#ifndef APP_PATHGLOB_H
#define APP_PATHGLOB_H

#include <string>
#include <vector>

namespace App {

class PathGlob {
public:
    explicit PathGlob(const std::string& pattern);

    const std::string& pattern() const { return m_pattern; }

    // `relative`: parts joined by "/", no leading "./".
    bool matches(const std::string& relative, bool isDirectory) const;

private:
    std::string m_pattern;
    std::vector<std::string> m_parts;
    bool m_directoryOnly = false;
};

// True when `relative` (a file) or one of the directories on its way from the
// base matches one of `globs`.
bool isExcluded(const std::vector<PathGlob>& globs, const std::string& relative);

// The parts of a relative path, "." parts dropped: "./a//b/" -> a, b.
std::vector<std::string> pathParts(const std::string& relative);

} // namespace App

#endif
