// Line-ending translation between a text and its readers and writers.
#include "Varnel_LineBuf.h"

#include <algorithm>
#include <cstring>

namespace Varnel {

LineBuf::LineBuf(std::streambuf* target, std::int32_t lineEnding)
    : m_target(target), m_lineEnding(lineEnding)
{
    char* start = m_get.data() + PUTBACK_SIZE;
    setg(start, start, start);
}

LineBuf::~LineBuf()
{
    // A destructor must not throw; a failing target is left to its owner.
    if (m_target)
        m_target->pubsync();
}

LineBuf::int_type LineBuf::underflow()
{
    if (gptr() < egptr())
        return traits_type::to_int_type(*gptr());
    if (!m_target)
        return traits_type::eof();

    // 1. Keep up to 4 characters of the old get area for put-back.
    const std::ptrdiff_t keep = std::min<std::ptrdiff_t>(gptr() - eback(), PUTBACK_SIZE);
    char* start = m_get.data() + PUTBACK_SIZE;
    std::memmove(start - keep, gptr() - keep, static_cast<std::size_t>(keep));

    // 2. Read from the target, folding CR and CR LF into "\n".
    char raw[BUFFER_SIZE];
    std::streamsize got = 0;
    char* out = start;
    while (out == start) {
        got = m_target->sgetn(raw, BUFFER_SIZE);
        if (got <= 0)
            break;
        for (std::streamsize i = 0; i < got; ++i) {
            const char c = raw[i];
            if (c == '\n' && m_afterCR) {
                m_afterCR = false;
                continue;
            }
            m_afterCR = (c == '\r');
            *out++ = m_afterCR ? '\n' : c;
        }
    }

    // 3. Nothing read at the end of the target is the end of the text.
    setg(start - keep, start, out);
    if (out == start)
        return traits_type::eof();
    return traits_type::to_int_type(*gptr());
}

LineBuf::int_type LineBuf::pbackfail(int_type c)
{
    // Reached only when the get pointer stands at the start of the put-back area,
    // or when a different character is to be stored in place.
    if (gptr() == eback())
        return traits_type::eof();
    gbump(-1);
    if (!traits_type::eq_int_type(c, traits_type::eof()))
        *gptr() = traits_type::to_char_type(c);
    return traits_type::not_eof(c);
}

bool LineBuf::putLineEnd()
{
    if (m_lineEnding == CRLF)
        return m_target->sputn("\r\n", 2) == 2;
    return !traits_type::eq_int_type(m_target->sputc('\n'), traits_type::eof());
}

LineBuf::int_type LineBuf::overflow(int_type c)
{
    if (traits_type::eq_int_type(c, traits_type::eof()))
        return traits_type::not_eof(c);
    if (!m_target)
        return traits_type::eof();
    const char ch = traits_type::to_char_type(c);
    if (ch == '\n')
        return putLineEnd() ? c : traits_type::eof();
    return traits_type::eq_int_type(m_target->sputc(ch), traits_type::eof()) ? traits_type::eof() : c;
}

std::streamsize LineBuf::xsputn(const char* s, std::streamsize n)
{
    if (!m_target)
        return 0;
    std::streamsize done = 0;
    while (done < n) {
        // Pass the run up to the next newline in one piece.
        const char* nl = static_cast<const char*>(std::memchr(s + done, '\n', static_cast<std::size_t>(n - done)));
        const std::streamsize run = nl ? (nl - (s + done)) : (n - done);
        if (run > 0) {
            const std::streamsize put = m_target->sputn(s + done, run);
            done += put;
            if (put != run)
                return done;
        }
        if (nl) {
            if (!putLineEnd())
                return done;
            ++done;
        }
    }
    return done;
}

int LineBuf::sync()
{
    return m_target ? m_target->pubsync() : 0;
}

} // namespace Varnel
