// Line and column keeping for text input, with put-back over newlines.
#include "Varnel_ITextDocBuf.h"

#include <algorithm>

namespace Varnel {

ITextDocBuf::ITextDocBuf(std::streambuf* source, std::int32_t tabMode, std::int32_t tabSize,
                         std::int32_t firstLine, std::int32_t firstCol)
    : m_lines(source),
      m_tabMode(tabMode),
      m_tabSize(std::max<std::int32_t>(tabSize, 1)),
      m_firstLine(std::max<std::int32_t>(firstLine, 1)),
      m_firstCol(std::max<std::int32_t>(firstCol, 0)),
      m_line(m_firstLine),
      m_col(m_firstCol)
{
    m_history.fill(-1);
    // No get area: every read goes through uflow/underflow, which keep the position.
    setg(nullptr, nullptr, nullptr);
}

void ITextDocBuf::stepBack()
{
    if (m_col == 0) {
        --m_line;
        m_col = m_history[HISTORY_DEPTH - 1];
    } else {
        --m_col;
    }
    // Keep the depth: -1 comes in at the front, the entry just used leaves the back.
    for (int i = HISTORY_DEPTH - 1; i > 0; --i)
        m_history[i] = m_history[i - 1];
    m_history[0] = -1;
}

bool ITextDocBuf::ungetChar(int c)
{
    // 1. Nothing lies before the start of the document.
    if (m_line == m_firstLine && m_col == m_firstCol)
        return false;
    if (m_unreads >= HISTORY_DEPTH)
        return false;

    // 2. Step the LineBuf back first, so that a failure leaves the position alone.
    if (m_lookahead == EOF_CHAR) {
        const int r = (c == EOF_CHAR) ? m_lines.sungetc() : m_lines.sputbackc(static_cast<char>(c));
        if (r == EOF_CHAR)
            return false;
    } else if (c == EOF_CHAR) {
        // The held character was taken from the LineBuf already: step back over it
        // and the one before, then read the latter again as the new look-ahead.
        if (m_lines.sungetc() == EOF_CHAR)
            return false;
        if (m_lines.sungetc() == EOF_CHAR) {
            m_lines.sbumpc();
            return false;
        }
        m_lookahead = m_lines.sbumpc();
    } else {
        if (m_lines.sungetc() == EOF_CHAR)
            return false;
        m_lookahead = c;
    }

    // 3. Step the position back.
    stepBack();
    ++m_unreads;
    return true;
}

ITextDocBuf::int_type ITextDocBuf::underflow()
{
    return peekChar();
}

ITextDocBuf::int_type ITextDocBuf::uflow()
{
    return getChar();
}

ITextDocBuf::int_type ITextDocBuf::pbackfail(int_type c)
{
    return ungetChar(c) ? traits_type::not_eof(c) : traits_type::eof();
}

} // namespace Varnel
