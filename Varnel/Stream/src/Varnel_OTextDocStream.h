// An output stream that writes a text as a document: it knows its line and
// column, applies a tab mode and writes the chosen line ending. It writes into
// the buffer of the stream it is built over and does not own that stream.
#ifndef VARNEL_OTEXTDOCSTREAM_H
#define VARNEL_OTEXTDOCSTREAM_H

#include "Varnel_OTextDocBuf.h"

#include <cstdint>
#include <ostream>

namespace Varnel {

class OTextDocStream : public std::ostream {
public:
    // Tab mode 0..2 (checked); values below the minimum (tab size 1, first
    // line 1, first column 0) are raised to it.
    OTextDocStream(std::ostream& target, std::int32_t tabMode, std::int32_t tabSize, std::int32_t firstLine = 1,
                   std::int32_t firstCol = 0, std::int32_t lineEnding = LineBuf::NATIVE);
    OTextDocStream(const OTextDocStream&) = delete;
    OTextDocStream& operator=(const OTextDocStream&) = delete;

    std::int32_t line() const { return m_buf.line(); }
    std::int32_t col() const { return m_buf.col(); }

    OTextDocBuf& buf() { return m_buf; }
    const OTextDocBuf& buf() const { return m_buf; }

private:
    OTextDocBuf m_buf;
};

} // namespace Varnel

#endif
