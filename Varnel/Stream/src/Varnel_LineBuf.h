// A stream buffer over another stream buffer that hides the line-ending
// convention of a text. Reading turns LF, CR and CR LF into one "\n" and keeps a
// put-back area of 4 characters; writing turns "\n" into the chosen line ending.
// The text input and output streams of this layer are built on it.
#ifndef VARNEL_LINEBUF_H
#define VARNEL_LINEBUF_H

#include <array>
#include <cstdint>
#include <streambuf>

namespace Varnel {

class LineBuf : public std::streambuf {
public:
    // How "\n" is written: the character itself, "\r\n", or "\n".
    enum LineEnding : std::int32_t { NATIVE = 0, CRLF = 1, LF = 2 };

    static constexpr int PUTBACK_SIZE = 4;
    static constexpr int BUFFER_SIZE = 16380;

    explicit LineBuf(std::streambuf* target, std::int32_t lineEnding = NATIVE);
    ~LineBuf() override;
    LineBuf(const LineBuf&) = delete;
    LineBuf& operator=(const LineBuf&) = delete;

    std::streambuf* target() const { return m_target; }
    std::int32_t lineEnding() const { return m_lineEnding; }
    void setLineEnding(std::int32_t lineEnding) { m_lineEnding = lineEnding; }

protected:
    int_type underflow() override;
    int_type pbackfail(int_type c) override;
    int_type overflow(int_type c) override;
    std::streamsize xsputn(const char* s, std::streamsize n) override;
    int sync() override;

private:
    bool putLineEnd();

    std::streambuf* m_target;
    std::int32_t m_lineEnding;
    bool m_afterCR = false; // the last character read from the target was "\r"
    // Left uninitialised: it is written before it is read, and a lexer built
    // for a short gap should not pay for clearing 16 KB.
    std::array<char, PUTBACK_SIZE + BUFFER_SIZE> m_get;
};

} // namespace Varnel

#endif
