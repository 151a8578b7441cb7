// Lists and aligned assignments: separateList, alignList, alignAssignments.
#include "Kempt_ExprFormatterBase.h"

#include "Cpp_TokenType.h"
#include "Kempt_ColumnArithmetic.h"
#include "Kempt_ScratchStream.h"
#include "Kempt_SourceText.h"
#include "Kempt_TokenIterator.h"
#include "Varnel_IndentGuard.h"
#include "Varnel_Text.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace Kempt {

namespace {

std::vector<Trn::Token> tokensOf(const std::string& text, const MarkerList& markers)
{
    std::vector<Trn::Token> tokens;
    TokenIterator it(text, markers);
    for (it.advance(); it.left().type() != Cpp::END_OF_FILE; it.advance()) {
        tokens.push_back(it.left());
        if (!it.more())
            break;
    }
    return tokens;
}

bool holdsNewline(const std::string& text)
{
    return text.find('\n') != std::string::npos;
}

// The four bracket counts of a list walk. A separator counts only when all
// four are 0; a close without an open takes a count below 0, which hides
// every later separator.
class BracketDepth {
public:
    void count(std::int32_t type)
    {
        switch (type) {
        case Cpp::LPAREN: ++m_paren; break;
        case Cpp::RPAREN: --m_paren; break;
        case Cpp::LBRACE: ++m_brace; break;
        case Cpp::RBRACE: --m_brace; break;
        case Cpp::LBRACKET: ++m_bracket; break;
        case Cpp::RBRACKET: --m_bracket; break;
        case Cpp::LESS_THAN: ++m_angle; break;
        case Cpp::GREATER_THAN: --m_angle; break;
        default: break;
        }
    }
    bool outside() const { return m_paren == 0 && m_brace == 0 && m_bracket == 0 && m_angle == 0; }

private:
    int m_paren = 0;
    int m_brace = 0;
    int m_bracket = 0;
    int m_angle = 0;
};

bool isLineBound(std::int32_t type)
{
    return type == Cpp::LINE_COMMENT || type == Cpp::LINE_CONTINUATION;
}

bool spansLines(const Trn::Token& t)
{
    return t.start().line != t.end().line;
}

} // namespace

std::string ExprFormatterBase::separateList(const std::string& text, std::int32_t separatorType,
                                            const WsSetting& wsBefore, const WsSetting& wsAfter,
                                            const Varnel::StreamState& state) const
{
    if (!wsBefore.isSet() && !wsAfter.isSet())
        return text;
    const bool afterBreaks = holdsNewline(wsAfter.text());
    const std::vector<Trn::Token> tokens = tokensOf(text, m_markers);
    const SourceText source(text);
    SourceReader in(source);
    ScratchStream scratch(state);
    Varnel::OIndentStream& out = scratch.out();
    BracketDepth depth;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const Trn::Token& t = tokens[i];
        // 1. "f(a, b)" inside a list: only what is outside brackets separates.
        if (t.type() != separatorType || !depth.outside()) {
            depth.count(t.type());
            in.copyThrough(t.end(), out);
            continue;
        }
        // 2. "a ," with wsBefore "": the blanks before the separator go.
        if (wsBefore.isSet()) {
            out << trimRightKeepingLineEnd(in.readUpTo(t.start()));
            out.writeLiteral(wsBefore.text());
        }
        in.copyThrough(t.end(), out);
        if (!wsAfter.isSet())
            continue;
        // 3. The token behind the separator decides how wsAfter is written.
        if (i + 1 == tokens.size()) {
            out << Varnel::trimRight(in.rest());
            out.writeLiteral(wsAfter.text());
            continue;
        }
        const Trn::Token& next = tokens[++i];
        depth.count(next.type());
        if (next.type() == Cpp::PREPROC_DIRECTIVE) {
            // "a,\n#if X": a directive always starts its own line.
            out << Varnel::trimRight(in.readUpTo(next.start()));
            out.writeLiteral(afterBreaks ? wsAfter.text() : "\n");
            emitDirective(next.start(), next.end(), in, out);
        } else if (isLineBound(next.type())) {
            // "a, // c": the comment keeps its place.
            in.copyThrough(next.end(), out);
        } else if (next.type() == Cpp::BLOCK_COMMENT) {
            in.copyUpTo(next.start(), out);
            if (spansLines(next))
                reindentToken(next.start(), next.end(), in, out);
            else
                in.copyThrough(next.end(), out);
        } else {
            out << Varnel::trimRight(in.readUpTo(next.start()));
            out.writeLiteral(wsAfter.text());
            in.copyThrough(next.end(), out);
        }
    }
    emitTokens(in.rest(), out);
    return scratch.str();
}

namespace {

// The walk of alignList: the element in progress, and where elements go.
//
// The first element decides the alignment column: the column at which its
// first token starts. Each later element is written under an indent at that
// column when a setting breaks the line, so that its continuation lines (and
// the element itself, after a break) start in the column.
class AlignedListWriter {
public:
    AlignedListWriter(const ExprFormatterBase& base, Varnel::OIndentStream& out, const WsSetting& wsBefore,
                      const WsSetting& wsAfter)
        : m_base(base), m_out(out), m_wsBefore(wsBefore), m_wsAfter(wsAfter)
    {
        const std::string& before = wsBefore.text();
        const std::size_t nl = before.rfind('\n');
        m_beforeBreaks = nl != std::string::npos;
        m_afterBreaks = holdsNewline(wsAfter.text());
        // "\n  " in front of a separator: the line break is written, and the
        // blanks behind it place the separator when no element has set the
        // column.
        m_beforeHead = m_beforeBreaks ? before.substr(0, nl + 1) : before;
        m_beforeTail = m_beforeBreaks ? before.substr(nl + 1) : std::string();
    }

    // The text in front of a separator (or the last element).
    void writeElement(std::string element, bool first)
    {
        if (m_wsBefore.isSet())
            element = trimRightKeepingLineEnd(element);
        if (first && !element.empty()) {
            // "  a" at the start: a's column is the list's column.
            const std::size_t lead = element.find_first_not_of(" \t");
            m_out << element.substr(0, lead == std::string::npos ? element.size() : lead);
            m_column = m_out.col() == 0 ? stringWidth(m_out.indent(), 0, m_out.tabSize()) : m_out.col();
            if (lead != std::string::npos)
                m_base.emitTokens(element.substr(lead), m_out);
            return;
        }
        if (!m_elementIndent) {
            m_base.emitTokens(element, m_out);
            return;
        }
        Varnel::IndentGuard indent(m_out, *m_elementIndent);
        Varnel::KeepLeadingSpaceGuard keep(m_out, false);
        m_base.emitTokens(element, m_out);
    }

    // The separator, the gap behind it as the settings make it, and where
    // the next element is to go. `next` is the type of the token behind the
    // gap, or -1.
    void writeSeparator(const std::string& separator, std::string gap, std::int32_t next)
    {
        bool keepsLine = false;
        const bool lineBound = next == Cpp::LINE_COMMENT || next == Cpp::LINE_CONTINUATION;
        // "a, // c": the gap in front of the comment stays as it is; so does
        // any gap behind a separator that wsAfter does not set.
        if (m_wsBefore.isSet() && m_wsAfter.isSet() && !lineBound)
            gap = std::string(Varnel::trimLeft(gap));
        if (m_wsAfter.isSet()) {
            if (next == Cpp::PREPROC_DIRECTIVE) {
                gap = std::string(Varnel::trimRight(gap)) + (m_afterBreaks ? m_wsAfter.text() : "\n");
            } else if (lineBound) {
                keepsLine = true;
            } else {
                gap = std::string(Varnel::trimRight(gap)) + m_wsAfter.text();
            }
        }
        const std::int32_t tab = m_out.tabSize();
        if (!m_beforeBreaks && !m_afterBreaks && !keepsLine) {
            // "a , b" with "" and " ": "a, b"; the indent is not touched.
            m_out.writeLiteral(m_wsBefore.text());
            m_out << separator;
            m_out.writeLiteral(gap);
            return;
        }
        const std::int32_t indentWidth = stringWidth(m_out.indent(), 0, tab);
        if (!m_column) {
            m_column = m_beforeBreaks ? indentWidth + stringWidth(m_beforeTail, 0, tab) +
                                            stringWidth(separator + gap, 0, tab)
                                      : indentWidth;
        }
        m_elementIndent = indentString(m_out, *m_column);
        if (!m_beforeBreaks) {
            m_out.writeLiteral(m_wsBefore.text());
            m_out << separator;
            m_out.writeLiteral(gap);
            return;
        }
        // "a\n, b": the separator ends where the column begins.
        m_out.writeLiteral(m_beforeHead);
        const std::int32_t separatorColumn = columnBefore(separator + gap, *m_column, tab);
        Varnel::IndentGuard indent(m_out, indentString(m_out, separatorColumn));
        Varnel::KeepLeadingSpaceGuard keep(m_out, false);
        m_out << separator;
        m_out.writeLiteral(gap);
    }

private:
    const ExprFormatterBase& m_base;
    Varnel::OIndentStream& m_out;
    const WsSetting& m_wsBefore;
    const WsSetting& m_wsAfter;
    bool m_beforeBreaks = false;
    bool m_afterBreaks = false;
    std::string m_beforeHead;
    std::string m_beforeTail;
    std::optional<std::int32_t> m_column;
    std::optional<std::string> m_elementIndent;
};

} // namespace

std::string ExprFormatterBase::alignList(const std::string& text, std::int32_t separatorType,
                                         const WsSetting& wsBefore, const WsSetting& wsAfter,
                                         const Varnel::StreamState& state) const
{
    if (!wsBefore.isSet() && !wsAfter.isSet())
        return text;
    const std::vector<Trn::Token> tokens = tokensOf(text, m_markers);
    const SourceText source(text);
    SourceReader in(source);
    ScratchStream scratch(state);
    AlignedListWriter writer(*this, scratch.out(), wsBefore, wsAfter);
    BracketDepth depth;
    bool first = true;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const Trn::Token& t = tokens[i];
        if (t.type() != separatorType || !depth.outside()) {
            depth.count(t.type());
            continue;
        }
        writer.writeElement(in.readUpTo(t.start()), first);
        first = false;
        const std::string separator = in.readThrough(t.end());
        const bool last = i + 1 == tokens.size();
        std::string gap = last ? in.rest() : in.readUpTo(tokens[i + 1].start());
        writer.writeSeparator(separator, std::move(gap), last ? Cpp::END_OF_FILE : tokens[i + 1].type());
    }
    writer.writeElement(in.rest(), first);
    return scratch.str();
}

namespace {

// The column behind the left side of a line's first assignment: the end of
// the token in front of it, or of the line's last token when it has none.
std::int32_t leftSideEnd(const std::string& line, const MarkerList& markers)
{
    TokenIterator it(line, markers);
    it.advance();
    while (it.more() && !(isAssignType(it.right().type()) && it.right().type() != Cpp::END_OF_FILE))
        it.advance();
    return it.left().type() == Cpp::END_OF_FILE ? 0 : it.left().end().col;
}

std::vector<std::string> splitLines(const std::string& text)
{
    std::vector<std::string> lines;
    std::size_t start = 0;
    for (std::size_t nl = text.find('\n'); nl != std::string::npos; nl = text.find('\n', start)) {
        lines.push_back(text.substr(start, nl - start));
        start = nl + 1;
    }
    lines.push_back(text.substr(start));
    return lines;
}

} // namespace

void ExprFormatterBase::writeAlignedLine(const std::string& line, std::int32_t column, std::int32_t tabSize,
                                         Varnel::OIndentStream& out) const
{
    const std::vector<Trn::Token> tokens = tokensOf(line, m_markers);
    const auto isAssignment = [](const Trn::Token& t) {
        return t.type() != Cpp::END_OF_FILE && isAssignType(t.type());
    };
    const auto directive = [](const Trn::Token& t) { return t.type() == Cpp::PREPROC_DIRECTIVE; };
    // A line without an assignment or a directive is written as it stands.
    if (std::none_of(tokens.begin(), tokens.end(), isAssignment) &&
        std::none_of(tokens.begin(), tokens.end(), directive)) {
        out.writeLiteral(line);
        return;
    }
    const SourceText source(line);
    SourceReader in(source);
    for (const Trn::Token& t : tokens) {
        if (directive(t)) {
            in.copyUpTo(t.start(), out);
            emitDirective(t.start(), t.end(), in, out);
            continue;
        }
        if (isAssignment(t)) {
            // "red = 1" and "yellow = 2": both "=" in one column.
            out << Varnel::trimRight(in.readUpTo(t.start()));
            out << ColumnPad(alignmentSpace(column, out.col(), tabSize));
            in.copyThrough(t.end(), out);
            break;
        }
        in.copyThrough(t.end(), out);
    }
    out.writeLiteral(in.rest());
}

std::string ExprFormatterBase::alignAssignments(const std::string& text, const Varnel::StreamState& state) const
{
    const std::vector<std::string> lines = splitLines(text);
    // 1-2. The widest left side, two columns more, on a tab stop.
    std::int32_t target = 0;
    for (const std::string& line : lines)
        target = std::max(target, leftSideEnd(line, m_markers));
    if (target > 0) {
        target += 2;
        target = nextTabStop(target, state.tabSize);
    }
    if (target < 1)
        return text;
    const std::int32_t indentWidth = stringWidth(state.indent, 0, state.tabSize);
    ScratchStream scratch(state);
    Varnel::OIndentStream& out = scratch.out();
    for (std::size_t k = 0; k < lines.size(); ++k) {
        writeAlignedLine(lines[k], indentWidth + target, state.tabSize, out);
        if (k + 1 < lines.size())
            out.writeLiteral("\n");
    }
    return scratch.str();
}

} // namespace Kempt
