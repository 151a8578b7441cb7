// The indent rule at the start of each output line.
#include "Varnel_OIndentBuf.h"

#include <cctype>

namespace Varnel {

OIndentBuf::int_type OIndentBuf::overflow(int_type c)
{
    if (traits_type::eq_int_type(c, traits_type::eof()))
        return traits_type::not_eof(c);
    const char ch = traits_type::to_char_type(c);
    // Mid-line, or an empty line: "\n" gets no trailing indent.
    if (col() != 0 || ch == '\n')
        return OTextDocBuf::overflow(c);
    // "  x" with an indent of four blanks: the old two blanks go.
    if (!m_keepLeadingSpace && std::isspace(static_cast<unsigned char>(ch)))
        return c;
    for (const char i : m_indent)
        if (traits_type::eq_int_type(OTextDocBuf::overflow(traits_type::to_int_type(i)), traits_type::eof()))
            return traits_type::eof();
    return OTextDocBuf::overflow(c);
}

} // namespace Varnel
