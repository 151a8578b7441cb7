// Opening the command line's inputs.
#include "Cli_Inputs.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <iostream>

namespace Cli {

std::vector<std::string> inputNames(const std::vector<std::string>& files)
{
    return files.empty() ? std::vector<std::string>{"-"} : files;
}

Input::Input(const std::string& name)
{
    if (name == "-") {
        m_stdin = true;
        m_label = STDIN_LABEL;
        return;
    }
    m_label = name;
    std::error_code ec;
    if (std::filesystem::is_directory(name, ec)) {
        m_error = "cannot read '" + name + "': it is a directory";
        return;
    }
    m_file.open(name, std::ios_base::in | std::ios_base::binary);
    if (!m_file)
        m_error = "cannot read '" + name + "': " + std::strerror(errno);
}

std::istream& Input::stream()
{
    if (m_stdin)
        return std::cin;
    return m_file;
}

} // namespace Cli
