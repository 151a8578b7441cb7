// The document input stream: an std::istream over an ITextDocBuf.
#include "Varnel_ITextDocStream.h"

namespace Varnel {

ITextDocStream::ITextDocStream(std::istream& source, std::int32_t tabMode, std::int32_t tabSize,
                               std::int32_t firstLine, std::int32_t firstCol)
    : std::istream(nullptr), m_buf(source.rdbuf(), tabMode, tabSize, firstLine, firstCol)
{
    rdbuf(&m_buf);
}

} // namespace Varnel
