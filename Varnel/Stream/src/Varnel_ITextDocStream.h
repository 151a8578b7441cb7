// An input stream that reads a text as a document: line endings are hidden and
// the current line and column are known. It takes the buffer of the stream it
// is built over and does not own that stream. The C++ lexer reads through it.
#ifndef VARNEL_ITEXTDOCSTREAM_H
#define VARNEL_ITEXTDOCSTREAM_H

#include "Varnel_ITextDocBuf.h"

#include <cstdint>
#include <istream>

namespace Varnel {

class ITextDocStream : public std::istream {
public:
    // Values below the minimum (tab size 1, first line 1, first column 0) are raised to it.
    ITextDocStream(std::istream& source, std::int32_t tabMode, std::int32_t tabSize,
                   std::int32_t firstLine, std::int32_t firstCol);
    ITextDocStream(const ITextDocStream&) = delete;
    ITextDocStream& operator=(const ITextDocStream&) = delete;

    std::int32_t line() const { return m_buf.line(); }
    std::int32_t col() const { return m_buf.col(); }

    ITextDocBuf& buf() { return m_buf; }
    const ITextDocBuf& buf() const { return m_buf; }

private:
    ITextDocBuf m_buf;
};

} // namespace Varnel

#endif
