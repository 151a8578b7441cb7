// The indenting output stream: an std::ostream over an OIndentBuf.
#include "Varnel_OIndentStream.h"

#include "Varnel_StreamState.h"

namespace Varnel {

OIndentStream::OIndentStream(std::ostream& target, std::int32_t tabMode, std::int32_t tabSize,
                             std::int32_t firstLine, std::int32_t firstCol, std::int32_t lineEnding)
    : std::ostream(nullptr), m_buf(target.rdbuf(), tabMode, tabSize, firstLine, firstCol, lineEnding)
{
    rdbuf(&m_buf);
}

OIndentStream::OIndentStream(std::ostream& target, const StreamState& state)
    : OIndentStream(target, state.tabMode, state.tabSize, 1, state.col, state.lineEnding)
{
    setIndent(state.indent);
    setKeepLeadingSpace(state.keepLeadingSpace);
}

OIndentStream& OIndentStream::writeLiteral(std::string_view text)
{
    for (const char c : text) {
        if (std::ostream::traits_type::eq_int_type(m_buf.putLiteral(c), std::ostream::traits_type::eof())) {
            setstate(std::ios_base::badbit);
            break;
        }
    }
    return *this;
}

} // namespace Varnel
