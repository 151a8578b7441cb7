#include "Cli_StandardOutput.h"

#include <cerrno>
#include <iostream>

#include <unistd.h>

namespace Cli {

namespace {
constexpr std::size_t BUFFER_SIZE = 64 * 1024;
}

StandardOutput::StandardOutput() : m_buffer(BUFFER_SIZE)
{
    setp(m_buffer.data(), m_buffer.data() + m_buffer.size());
    m_previous = std::cout.rdbuf(this);
}

StandardOutput::~StandardOutput()
{
    sync();
    std::cout.rdbuf(m_previous);
}

int StandardOutput::currentError()
{
    const auto* output = dynamic_cast<const StandardOutput*>(std::cout.rdbuf());
    return output ? output->error() : 0;
}

StandardOutput::int_type StandardOutput::overflow(int_type c)
{
    if (!writeOut())
        return traits_type::eof();
    if (!traits_type::eq_int_type(c, traits_type::eof())) {
        *pptr() = traits_type::to_char_type(c);
        pbump(1);
    }
    return traits_type::not_eof(c);
}

int StandardOutput::sync()
{
    return writeOut() ? 0 : -1;
}

// Writes what the buffer holds; after a failure nothing more is written, and
// the buffer is emptied so that the stream does not grow without bound.
bool StandardOutput::writeOut()
{
    const char* next = pbase();
    const char* const end = pptr();
    while (m_error == 0 && next < end) {
        const ssize_t written = ::write(STDOUT_FILENO, next, static_cast<std::size_t>(end - next));
        if (written >= 0)
            next += written;
        else if (errno != EINTR)
            m_error = errno;
    }
    setp(m_buffer.data(), m_buffer.data() + m_buffer.size());
    return m_error == 0;
}

} // namespace Cli
