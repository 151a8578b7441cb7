// Reading a source text by the positions of its tokens and nodes.
#include "Kempt_SourceText.h"

#include "Kempt_ColumnArithmetic.h"
#include "Varnel_OIndentStream.h"

#include <algorithm>
#include <ostream>

namespace Kempt {

namespace {

// Where the lines of `text` that continue a literal start: the offsets
// behind each backslash-newline inside a string or character literal.
std::vector<std::size_t> literalContinuations(std::string_view text)
{
    enum { CODE, LITERAL, LINE_COMMENT, BLOCK_COMMENT } state = CODE;
    char quote = 0;
    std::vector<std::size_t> starts;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        const char next = i + 1 < text.size() ? text[i + 1] : '\0';
        switch (state) {
        case CODE:
            if (c == '"' || c == '\'') {
                state = LITERAL;
                quote = c;
            } else if (c == '/' && (next == '/' || next == '*')) {
                state = next == '/' ? LINE_COMMENT : BLOCK_COMMENT;
                ++i;
            }
            break;
        case LITERAL:
            if (c == '\\') {
                if (next == '\n')
                    starts.push_back(i + 2);
                ++i;
            } else if (c == quote || c == '\n') {
                state = CODE;
            }
            break;
        case LINE_COMMENT:
            if (c == '\n')
                state = CODE;
            break;
        case BLOCK_COMMENT:
            if (c == '*' && next == '/') {
                state = CODE;
                ++i;
            }
            break;
        }
    }
    return starts;
}

} // namespace

void writeKeepingLiterals(Varnel::OIndentStream& out, std::string_view text)
{
    if (text.find("\\\n") == std::string_view::npos) {
        out << text;
        return;
    }
    std::size_t written = 0;
    for (const std::size_t start : literalContinuations(text)) {
        out << text.substr(written, start - written);
        // The line's blanks and its first character pass exactly; behind them
        // the line is no longer at its start.
        std::size_t end = start;
        while (end < text.size() && (text[end] == ' ' || text[end] == '\t'))
            ++end;
        if (end < text.size() && text[end] != '\n')
            ++end;
        out.writeLiteral(text.substr(start, end - start));
        written = end;
    }
    out << text.substr(written);
}

std::string normaliseLineBreaks(std::string_view text)
{
    if (text.find('\r') == std::string_view::npos)
        return std::string(text);
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c != '\r') {
            out += c;
            continue;
        }
        // "\r\n" and a lone "\r" are both one line break.
        out += '\n';
        if (i + 1 < text.size() && text[i + 1] == '\n')
            ++i;
    }
    return out;
}

SourceText::SourceText(std::string_view text) : m_text(normaliseLineBreaks(text))
{
    m_lineStarts.push_back(0);
    for (std::size_t i = 0; i < m_text.size(); ++i)
        if (m_text[i] == '\n')
            m_lineStarts.push_back(i + 1);
}

std::size_t SourceText::offsetOf(const Trn::Position& p) const
{
    if (p.line < 1)
        return std::string::npos;
    const auto line = static_cast<std::size_t>(p.line);
    if (line > m_lineStarts.size())
        return m_text.size();
    // (L, 0) is the newline that ends line L - 1.
    if (p.col <= 0)
        return line == 1 ? std::string::npos : m_lineStarts[line - 1] - 1;
    const std::size_t offset = m_lineStarts[line - 1] + static_cast<std::size_t>(p.col) - 1;
    return std::min(offset, m_text.size());
}

std::size_t SourceText::lineStartOf(std::size_t offset) const
{
    const auto it = std::upper_bound(m_lineStarts.begin(), m_lineStarts.end(), offset);
    return *(it - 1);
}

Trn::Position SourceText::positionOf(std::size_t offset) const
{
    const auto it = std::upper_bound(m_lineStarts.begin(), m_lineStarts.end(), offset);
    const auto line = static_cast<std::int32_t>(it - m_lineStarts.begin());
    if (offset < m_text.size() && m_text[offset] == '\n')
        return {line + 1, 0};
    return {line, static_cast<std::int32_t>(offset - *(it - 1)) + 1};
}

std::string SourceText::slice(const Trn::Position& from, const Trn::Position& through) const
{
    const std::size_t first = offsetOf(from);
    const std::size_t last = offsetOf(through);
    if (first == std::string::npos || last == std::string::npos || last < first || first >= m_text.size())
        return std::string();
    return m_text.substr(first, std::min(last + 1, m_text.size()) - first);
}

std::string SourceText::between(const Trn::Position& from, const Trn::Position& upTo) const
{
    const std::size_t first = offsetOf(from);
    const std::size_t last = offsetOf(upTo);
    if (first == std::string::npos || last == std::string::npos || last <= first || first >= m_text.size())
        return std::string();
    return m_text.substr(first, std::min(last, m_text.size()) - first);
}

std::string SourceReader::take(std::size_t end)
{
    end = std::min(end, m_text.size());
    if (end <= m_offset)
        return std::string();
    std::string text = m_text.text().substr(m_offset, end - m_offset);
    m_offset = end;
    return text;
}

std::string SourceReader::readThrough(const Trn::Position& p)
{
    const std::size_t at = m_text.offsetOf(p);
    return at == std::string::npos ? std::string() : take(at + 1);
}

std::string SourceReader::readUpTo(const Trn::Position& p)
{
    const std::size_t at = m_text.offsetOf(p);
    return at == std::string::npos ? std::string() : take(at);
}

std::string SourceReader::rest()
{
    return take(m_text.size());
}

void SourceReader::copyThrough(const Trn::Position& p, Varnel::OIndentStream& out)
{
    writeKeepingLiterals(out, readThrough(p));
}

void SourceReader::copyUpTo(const Trn::Position& p, Varnel::OIndentStream& out)
{
    writeKeepingLiterals(out, readUpTo(p));
}

std::string_view SourceReader::lineBeforeCursor() const
{
    const std::size_t at = std::min(m_offset, m_text.size());
    const std::size_t start = m_text.lineStartOf(at);
    return std::string_view(m_text.text()).substr(start, at - start);
}

std::int32_t SourceReader::sourceColumnOf(const Trn::Position& p, std::int32_t tabSize) const
{
    const std::size_t at = m_text.offsetOf(p);
    if (at == std::string::npos || at >= m_text.size())
        return 0;
    const std::size_t start = m_text.lineStartOf(at);
    return stringWidth(std::string_view(m_text.text()).substr(start, at - start), 0, std::max(tabSize, 1));
}

} // namespace Kempt
