// Helpers for tests that work on scheme directories: a temporary directory
// that is removed afterwards, guards that set and restore an environment
// variable or capture std::clog, and byte-exact file access.
#ifndef TW_TESTS_SCHEMETESTSUPPORT_H
#define TW_TESTS_SCHEMETESTSUPPORT_H

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <unistd.h>

namespace tw_test {

namespace fs = std::filesystem;

// A fresh directory under the system's temporary directory, named after the
// running test; removed with everything in it at the end of the scope.
class TempDir {
public:
    TempDir()
    {
        const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
        m_path = fs::temp_directory_path()
            / ("tw-" + std::to_string(::getpid()) + "-" + info->test_suite_name() + "-" + info->name());
        fs::remove_all(m_path);
        fs::create_directories(m_path);
    }
    ~TempDir()
    {
        std::error_code ec;
        fs::remove_all(m_path, ec);
    }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const fs::path& path() const { return m_path; }
    // The path as the store keeps it: with a separator at the end.
    std::string dir() const { return m_path.string() + "/"; }

private:
    fs::path m_path;
};

// Sets (or, with nullopt, unsets) an environment variable for the scope.
class EnvGuard {
public:
    EnvGuard(const char* name, std::optional<std::string> value) : m_name(name)
    {
        if (const char* old = std::getenv(name))
            m_old = old;
        apply(value);
    }
    ~EnvGuard() { apply(m_old); }
    EnvGuard(const EnvGuard&) = delete;
    EnvGuard& operator=(const EnvGuard&) = delete;

private:
    void apply(const std::optional<std::string>& value)
    {
        if (value)
            ::setenv(m_name, value->c_str(), 1);
        else
            ::unsetenv(m_name);
    }

    const char* m_name;
    std::optional<std::string> m_old;
};

// Collects what is written to std::clog during the scope.
class ClogGuard {
public:
    ClogGuard() : m_old(std::clog.rdbuf(m_text.rdbuf())) {}
    ~ClogGuard() { std::clog.rdbuf(m_old); }
    ClogGuard(const ClogGuard&) = delete;
    ClogGuard& operator=(const ClogGuard&) = delete;

    std::string text() const { return m_text.str(); }

private:
    std::ostringstream m_text;
    std::streambuf* m_old;
};

inline std::string readBytes(const fs::path& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

inline void writeBytes(const fs::path& path, const std::string& bytes)
{
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << bytes;
}

inline void setMode(const fs::path& path, fs::perms mode)
{
    fs::permissions(path, mode, fs::perm_options::replace);
}

inline fs::perms modeOf(const fs::path& path)
{
    return fs::status(path).permissions() & fs::perms::mask;
}

inline constexpr fs::perms READ_ONLY = fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read;
inline constexpr fs::perms READ_WRITE = READ_ONLY | fs::perms::owner_write;

// Every file of a directory with its bytes and mode, to show that nothing changed.
inline std::map<std::string, std::pair<std::string, fs::perms>> snapshot(const fs::path& dir)
{
    std::map<std::string, std::pair<std::string, fs::perms>> files;
    for (const auto& entry : fs::directory_iterator(dir))
        files[entry.path().filename().string()] = {readBytes(entry.path()), modeOf(entry.path())};
    return files;
}

// The text of a scheme file with LF line ends; `properties` holds whole lines.
inline std::string schemeText(const std::string& name, const std::string& properties, int version = 1)
{
    return "Kempt::PropertySet\n" + std::to_string(version) + "\n\"" + name + "\"\n" + properties;
}

} // namespace tw_test

#endif
