// Version, help and file tests.
#include "App_ProgramFiles.h"

#include "App_SchemeStore.h"

#include <filesystem>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>

#ifndef TW_DOC_DIR_FROM_BIN
#error "TW_DOC_DIR_FROM_BIN must be defined by the build"
#endif
#ifndef TW_SOURCE_DOC_DIR
#error "TW_SOURCE_DOC_DIR must be defined by the build"
#endif

namespace App {

namespace fs = std::filesystem;

namespace {

bool statOf(const std::string& path, struct stat& st)
{
    return !path.empty() && ::stat(path.c_str(), &st) == 0;
}

} // namespace

std::string versionText(const std::string& productVersion)
{
    std::string blanks = productVersion;
    for (char& c : blanks)
        if (c == '.')
            c = ' ';
    std::istringstream in(blanks);
    long parts[3] = {0, 0, 0};
    if (!(in >> parts[0] >> parts[1] >> parts[2]))
        return "0.0.0";
    std::string text;
    for (long part : parts) {
        if (part > 1000)
            part /= 1000;
        text += (text.empty() ? "" : ".") + std::to_string(part);
    }
    return text;
}

std::string getVersionText()
{
    return versionText(programVersion());
}

std::string helpFilePath()
{
    std::error_code ec;
    const fs::path self = fs::read_symlink("/proc/self/exe", ec);
    if (!ec) {
        const fs::path installed = self.parent_path() / TW_DOC_DIR_FROM_BIN;
        if (fs::is_directory(installed, ec))
            return installed.lexically_normal().string();
    }
    if (fs::is_directory(TW_SOURCE_DOC_DIR, ec))
        return TW_SOURCE_DOC_DIR;
    return "";
}

std::string schemeDirectory()
{
    return schemeDirectory(std::string());
}

bool fileExists(const std::string& path)
{
    struct stat st {};
    return statOf(path, st);
}

bool canRead(const std::string& path)
{
    return !path.empty() && ::access(path.c_str(), R_OK) == 0;
}

bool canWrite(const std::string& path)
{
    struct stat st {};
    return statOf(path, st) && (st.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) != 0
        && ::access(path.c_str(), W_OK) == 0;
}

bool isNotEmpty(const std::string& path)
{
    struct stat st {};
    return statOf(path, st) && st.st_size > 0;
}

bool isDirectory(const std::string& path)
{
    struct stat st {};
    return statOf(path, st) && S_ISDIR(st.st_mode);
}

} // namespace App
