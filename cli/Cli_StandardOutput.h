// The command's standard output: a buffer over file descriptor 1 that keeps
// the reason of the first failed write (a full disk, a closed pipe), so that
// the message about it can name the reason however much was written after.
//
//   Cli::StandardOutput output;   // std::cout writes through it from here
//   ...
//   if (!std::cout.flush()) complain(std::strerror(output.error()));
//
// The destructor flushes and gives std::cout its old buffer back.
#ifndef CLI_STANDARDOUTPUT_H
#define CLI_STANDARDOUTPUT_H

#include <streambuf>
#include <vector>

namespace Cli {

class StandardOutput : public std::streambuf {
public:
    StandardOutput();
    ~StandardOutput() override;
    StandardOutput(const StandardOutput&) = delete;
    StandardOutput& operator=(const StandardOutput&) = delete;

    // The errno of the first write that failed; 0 while none has.
    int error() const { return m_error; }

    // The error of the buffer std::cout writes through now; 0 when that is
    // not a StandardOutput or it has not failed.
    static int currentError();

protected:
    int_type overflow(int_type c) override;
    int sync() override;

private:
    bool writeOut();

    std::vector<char> m_buffer;
    std::streambuf* m_previous = nullptr;
    int m_error = 0;
};

} // namespace Cli

#endif
