// The inputs named on the command line: files, or standard input for "-" or
// when none is named. Opening one either gives a stream or an error text that
// names the file.
#ifndef CLI_INPUTS_H
#define CLI_INPUTS_H

#include <fstream>
#include <istream>
#include <string>
#include <vector>

namespace Cli {

inline constexpr const char* STDIN_LABEL = "<stdin>";

// "-" when no file is named.
std::vector<std::string> inputNames(const std::vector<std::string>& files);

// An open input: standard input or a file read in binary mode.
class Input {
public:
    // Opens `name`; check ok() and error().
    explicit Input(const std::string& name);

    bool ok() const { return m_error.empty(); }
    const std::string& error() const { return m_error; }
    // The name that messages show: the path, or "<stdin>".
    const std::string& label() const { return m_label; }
    std::istream& stream();

private:
    std::string m_label;
    std::string m_error;
    std::ifstream m_file;
    bool m_stdin = false;
};

} // namespace Cli

#endif
