// Helpers for tests that run the command as a program: its result, byte-exact
// file access, shell quoting, and what the stand-in formatter of
// tidewright-fake makes of a text.
#ifndef TW_TESTS_CLITESTSUPPORT_H
#define TW_TESTS_CLITESTSUPPORT_H

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace tw_test {

struct Result {
    int status;
    std::string out;
    std::string err;
};

inline std::string readFile(const std::filesystem::path& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

inline void writeFile(const std::filesystem::path& path, const std::string& text)
{
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << text;
}

// `arg` as one word for /bin/sh.
inline std::string quote(const std::string& arg)
{
    std::string q = "'";
    for (char c : arg)
        q += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return q + "'";
}

// What the stand-in formatter makes of a text: runs of blanks and tabs become
// one blank, and blanks before a line end go.
inline std::string squeezed(const std::string& text)
{
    std::string out;
    std::string blanks;
    for (const char c : text) {
        if (c == ' ' || c == '\t') {
            blanks = " ";
            continue;
        }
        if (c != '\n' && c != '\r')
            out += blanks;
        blanks.clear();
        out += c;
    }
    return out;
}

} // namespace tw_test

#endif
