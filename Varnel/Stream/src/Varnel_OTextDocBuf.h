// The output side of the text document layer: a stream buffer that knows the
// line and column it has reached, applies a tab policy, and writes "\n" as the
// chosen line ending through a LineBuf. Every printing pass writes through it,
// so no pass handles tabs or line ends itself: it writes blanks, newlines and
// text, and asks the buffer for the column.
//
// Tab modes:
//   0  characters pass as they are;
//   1  a tab outside a literal becomes blanks up to the next tab stop;
//   2  a run of blanks outside a literal that reaches a tab stop becomes a tab.
//
// Invariants:
//  1. col counts output columns from 0; a tab moves it to the next multiple of
//     tabSize. In mode 2 held blanks are already counted in col.
//  2. Held blanks (mode 2) only ever start at a tab stop, so a run that grows
//     to tabSize blanks ends exactly on the next stop and becomes one tab.
//  3. quote is the opening quote of the literal being written, or EOF. A
//     newline ends a literal unless a backslash stands in front of it (the
//     literal then goes on on the next line); inside one, tabs and blanks
//     pass as they are.
#ifndef VARNEL_OTEXTDOCBUF_H
#define VARNEL_OTEXTDOCBUF_H

#include "Varnel_LineBuf.h"

#include <cstdint>
#include <streambuf>

namespace Varnel {

class OTextDocBuf : public std::streambuf {
public:
    enum TabMode : std::int32_t { KEEP_TABS = 0, EXPAND_TABS = 1, COMPRESS_BLANKS = 2 };

    // The tab mode when it lies in 0..2; otherwise the contract "false" fails
    // (and, were checks to go on, 0 would be the answer).
    static std::int32_t checkTabMode(std::int32_t tabMode);

    // Values below the minimum (tab size 1, first line 1, first column 0) are
    // raised to it; the tab mode is checked.
    OTextDocBuf(std::streambuf* target, std::int32_t tabMode, std::int32_t tabSize, std::int32_t firstLine,
                std::int32_t firstCol, std::int32_t lineEnding);
    // Writes held blanks and flushes; a failure is ignored.
    ~OTextDocBuf() override;
    OTextDocBuf(const OTextDocBuf&) = delete;
    OTextDocBuf& operator=(const OTextDocBuf&) = delete;

    std::int32_t line() const { return m_line; }
    std::int32_t col() const { return m_col; }
    std::int32_t tabMode() const { return m_tabMode; }
    std::int32_t tabSize() const { return m_tabSize; }
    std::int32_t firstLine() const { return m_firstLine; }
    std::int32_t firstCol() const { return m_firstCol; }
    std::int32_t lineEnding() const { return m_lines.lineEnding(); }
    bool inLiteral() const { return m_quote != EOF_CHAR; }

    // Held blanks are written before the mode changes.
    void setTabMode(std::int32_t tabMode);
    // Raised to 1 when below it.
    void setTabSize(std::int32_t tabSize);
    void setLineEnding(std::int32_t lineEnding) { m_lines.setLineEnding(lineEnding); }

protected:
    int_type overflow(int_type c) override;
    int sync() override;

private:
    static constexpr int EOF_CHAR = std::char_traits<char>::eof();

    void trackLiteral(char c);
    void advance(char c);
    bool putRaw(char c);
    bool putAndAdvance(char c);
    bool writeHeldBlanks();
    int_type expandTab(int_type c);
    int_type compressBlank(int_type c);

    LineBuf m_lines;
    std::int32_t m_tabMode;
    std::int32_t m_tabSize;
    std::int32_t m_firstLine;
    std::int32_t m_firstCol;
    int m_last = EOF_CHAR; // the last character given, for literal tracking
    std::int32_t m_line;
    std::int32_t m_col;
    std::int32_t m_pendingSpaces = 0; // blanks held in mode 2, counted in m_col
    int m_quote = EOF_CHAR;           // the opening quote of the literal being written
};

} // namespace Varnel

#endif
