// Helpers for tests that run the command as a program: its result, byte-exact
// file access, shell quoting, and what the stand-in formatter of
// tidewright-fake makes of a text.
#ifndef TW_TESTS_CLITESTSUPPORT_H
#define TW_TESTS_CLITESTSUPPORT_H

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <sstream>
#include <string>

#include <unistd.h>

namespace tw_test {

using Environment = std::map<std::string, std::optional<std::string>>;

// A new, empty folder for the running test, with "home" and "work" in it.
inline std::filesystem::path freshTestFolder(const std::string& prefix)
{
    const std::filesystem::path dir =
        std::filesystem::temp_directory_path()
        / (prefix + std::to_string(::getpid()) + "-" + ::testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::remove_all(dir);
    std::filesystem::create_directories(dir / "home");
    std::filesystem::create_directories(dir / "work");
    return dir;
}

// The environment of a command run in `dir`: its own home, scheme directory
// and settings, nothing of the user's, and the stand-in formatter squeezing.
inline Environment isolatedEnvironment(const std::filesystem::path& dir)
{
    return {{"HOME", (dir / "home").string()},
            {"TIDEWRIGHT_SCHEME_DIR", (dir / "schemes").string()},
            {"XDG_CONFIG_HOME", (dir / "config").string()},
            {"XDG_DATA_HOME", std::nullopt},
            {"TIDEWRIGHT_TRACE", std::nullopt},
            {"NO_COLOR", std::nullopt},
            {"TW_FAKE_DELAY_MS", std::nullopt},
            {"TW_FAKE_FORMAT", "squeeze"}};
}

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
