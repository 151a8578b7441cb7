// Column keeping, tab policy and literal tracking for text output.
#include "Varnel_OTextDocBuf.h"

#include "Varnel_Contract.h"

#include <algorithm>

namespace Varnel {

std::int32_t OTextDocBuf::checkTabMode(std::int32_t tabMode)
{
    if (tabMode >= KEEP_TABS && tabMode <= COMPRESS_BLANKS)
        return tabMode;
    TW_CHECK(false);
    return KEEP_TABS;
}

OTextDocBuf::OTextDocBuf(std::streambuf* target, std::int32_t tabMode, std::int32_t tabSize,
                         std::int32_t firstLine, std::int32_t firstCol, std::int32_t lineEnding)
    : m_lines(target, lineEnding),
      m_tabMode(checkTabMode(tabMode)),
      m_tabSize(std::max<std::int32_t>(tabSize, 1)),
      m_firstLine(std::max<std::int32_t>(firstLine, 1)),
      m_firstCol(std::max<std::int32_t>(firstCol, 0)),
      m_line(m_firstLine),
      m_col(m_firstCol)
{
    // No put area: every character goes through overflow(), which keeps the column.
    setp(nullptr, nullptr);
}

OTextDocBuf::~OTextDocBuf()
{
    sync();
}

void OTextDocBuf::setTabMode(std::int32_t tabMode)
{
    const std::int32_t checked = checkTabMode(tabMode);
    writeHeldBlanks();
    m_tabMode = checked;
}

void OTextDocBuf::setTabSize(std::int32_t tabSize)
{
    // Held blanks started on a stop of the old size; let them out first.
    writeHeldBlanks();
    m_tabSize = std::max<std::int32_t>(tabSize, 1);
}

void OTextDocBuf::trackLiteral(char c)
{
    if (m_quote != EOF_CHAR) {
        // "abc<newline>: an unterminated literal ends with its line; a
        // backslash in front of the newline continues it on the next one.
        if (c == '\n') {
            if (m_last != '\\')
                m_quote = EOF_CHAR;
        }
        // "a\"b": an escaped quote does not end it.
        else if (c == m_quote && m_last != '\\')
            m_quote = EOF_CHAR;
    } else if ((c == '"' || c == '\'') && m_last != '\\') {
        m_quote = static_cast<unsigned char>(c);
    }
    m_last = static_cast<unsigned char>(c);
}

void OTextDocBuf::advance(char c)
{
    if (c == '\n') {
        ++m_line;
        m_col = 0;
    } else if (c == '\t') {
        m_col = (m_col / m_tabSize + 1) * m_tabSize;
    } else {
        ++m_col;
    }
}

bool OTextDocBuf::putRaw(char c)
{
    return !traits_type::eq_int_type(m_lines.sputc(c), traits_type::eof());
}

bool OTextDocBuf::putAndAdvance(char c)
{
    if (!putRaw(c))
        return false;
    advance(c);
    return true;
}

bool OTextDocBuf::writeHeldBlanks()
{
    // The held blanks are counted in m_col already; a failed one is taken back.
    while (m_pendingSpaces > 0) {
        if (!putRaw(' ')) {
            m_col -= m_pendingSpaces;
            m_pendingSpaces = 0;
            return false;
        }
        --m_pendingSpaces;
    }
    return true;
}

OTextDocBuf::int_type OTextDocBuf::expandTab(int_type c)
{
    // "a<tab>b" with size 4: the tab fills columns 1 to 3.
    const std::int32_t width = m_tabSize - m_col % m_tabSize;
    for (std::int32_t i = 0; i < width; ++i)
        if (!putAndAdvance(' '))
            return traits_type::eof();
    return c;
}

OTextDocBuf::int_type OTextDocBuf::compressBlank(int_type c)
{
    // "a  b": a blank off a tab stop with nothing held goes out at once.
    if (m_pendingSpaces < 1 && m_col % m_tabSize != 0)
        return putAndAdvance(' ') ? c : traits_type::eof();
    // A run that starts on a stop is held until it fills a whole tab.
    ++m_pendingSpaces;
    ++m_col;
    if (m_pendingSpaces < m_tabSize)
        return c;
    m_pendingSpaces = 0;
    if (putRaw('\t'))
        return c;
    m_col -= m_tabSize;
    return traits_type::eof();
}

OTextDocBuf::int_type OTextDocBuf::overflow(int_type c)
{
    if (traits_type::eq_int_type(c, traits_type::eof()))
        return traits_type::not_eof(c);
    const char ch = traits_type::to_char_type(c);
    trackLiteral(ch);
    if (m_tabMode == EXPAND_TABS && ch == '\t' && !inLiteral())
        return expandTab(c);
    if (m_tabMode == COMPRESS_BLANKS && ch == ' ' && !inLiteral())
        return compressBlank(c);
    if (!writeHeldBlanks())
        return traits_type::eof();
    return putAndAdvance(ch) ? c : traits_type::eof();
}

int OTextDocBuf::sync()
{
    const bool held = writeHeldBlanks();
    const bool flushed = m_lines.pubsync() == 0;
    return held && flushed ? 0 : -1;
}

} // namespace Varnel
