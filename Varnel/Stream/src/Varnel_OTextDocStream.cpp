// The document output stream: an std::ostream over an OTextDocBuf.
#include "Varnel_OTextDocStream.h"

namespace Varnel {

OTextDocStream::OTextDocStream(std::ostream& target, std::int32_t tabMode, std::int32_t tabSize,
                               std::int32_t firstLine, std::int32_t firstCol, std::int32_t lineEnding)
    : std::ostream(nullptr), m_buf(target.rdbuf(), tabMode, tabSize, firstLine, firstCol, lineEnding)
{
    rdbuf(&m_buf);
}

} // namespace Varnel
