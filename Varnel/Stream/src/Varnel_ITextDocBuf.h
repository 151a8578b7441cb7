// The input side of the text document layer: a stream buffer that reads a text
// through a LineBuf (so every line ends in "\n"), counts lines and columns, and
// can step back over up to 4 characters, newlines included, with the right
// column. Columns are character counts: a tab counts 1.
//
// Protocol: the C++ lexer reads with getChar(), looks ahead with peekChar() and
// steps back with ungetChar(); the std::streambuf virtuals route to the same
// three operations, so an std::istream over this buffer behaves alike.
//
// Invariants:
//  1. line >= firstLine and col >= 0; (firstLine, firstCol) is the very start.
//  2. The history holds the columns before the last 4 characters read, newest
//     at the back; an unread takes the column back from it.
//  3. A held look-ahead character has been taken from the LineBuf already.
//  4. At most 4 unreads follow one another; a fifth fails.
#ifndef VARNEL_ITEXTDOCBUF_H
#define VARNEL_ITEXTDOCBUF_H

#include "Varnel_LineBuf.h"

#include <array>
#include <cstdint>
#include <streambuf>

namespace Varnel {

class ITextDocBuf : public std::streambuf {
public:
    static constexpr int HISTORY_DEPTH = LineBuf::PUTBACK_SIZE;

    ITextDocBuf(std::streambuf* source, std::int32_t tabMode, std::int32_t tabSize,
                std::int32_t firstLine, std::int32_t firstCol);
    ITextDocBuf(const ITextDocBuf&) = delete;
    ITextDocBuf& operator=(const ITextDocBuf&) = delete;

    // Reads one character and advances the position; EOF at the end.
    int getChar()
    {
        int c;
        if (m_lookahead != EOF_CHAR) {
            c = m_lookahead;
            m_lookahead = EOF_CHAR;
        } else {
            c = m_lines.sbumpc();
            if (c == EOF_CHAR)
                return EOF_CHAR;
        }
        m_unreads = 0;
        advance(c);
        return c;
    }

    // The next character without advancing; EOF at the end.
    int peekChar()
    {
        if (m_lookahead == EOF_CHAR)
            m_lookahead = m_lines.sbumpc();
        return m_lookahead;
    }

    // Steps back one character. With c other than EOF, c is what the next read
    // gives. False at the start of the document or beyond the put-back depth.
    bool ungetChar(int c = EOF_CHAR);

    std::int32_t line() const { return m_line; }
    std::int32_t col() const { return m_col; }
    std::int32_t tabMode() const { return m_tabMode; }
    std::int32_t tabSize() const { return m_tabSize; }
    std::int32_t firstLine() const { return m_firstLine; }
    std::int32_t firstCol() const { return m_firstCol; }
    // Length of the last line that was read up to its newline.
    std::int32_t lastLineLength() const { return m_lastLineLength; }

protected:
    int_type underflow() override;
    int_type uflow() override;
    int_type pbackfail(int_type c) override;

private:
    static constexpr int EOF_CHAR = std::char_traits<char>::eof();

    void advance(int c)
    {
        pushHistory(m_col);
        if (c == '\n') {
            m_lastLineLength = m_col;
            ++m_line;
            m_col = 0;
        } else {
            ++m_col;
        }
    }

    void pushHistory(std::int32_t col)
    {
        for (int i = 0; i + 1 < HISTORY_DEPTH; ++i)
            m_history[i] = m_history[i + 1];
        m_history[HISTORY_DEPTH - 1] = col;
    }

    void stepBack();

    LineBuf m_lines;
    std::int32_t m_tabMode;
    std::int32_t m_tabSize;
    std::int32_t m_firstLine;
    std::int32_t m_firstCol;
    int m_lookahead = EOF_CHAR;
    std::int32_t m_line;
    std::int32_t m_col;
    std::int32_t m_lastLineLength = 0;
    int m_unreads = 0; // consecutive unreads since the last read; at most HISTORY_DEPTH
    std::array<std::int32_t, HISTORY_DEPTH> m_history; // previous columns, newest last
};

} // namespace Varnel

#endif
