// Scheme files given by path.
#include "App_SchemeFile.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

namespace App {

bool readSchemeFile(const std::string& path, Kempt::PropertySet& set, std::string& error)
{
    std::error_code ec;
    if (std::filesystem::is_directory(path, ec)) {
        error = "cannot read scheme file '" + path + "': it is a directory";
        return false;
    }
    std::ifstream in(path, std::ios_base::binary);
    if (!in) {
        error = "cannot read scheme file '" + path + "': " + std::strerror(errno);
        return false;
    }
    Kempt::PropertySet read;
    if (!read.read(in)) {
        error = "cannot read scheme file '" + path + "': it is not a valid scheme file";
        return false;
    }
    set.swap(read);
    return true;
}

} // namespace App
