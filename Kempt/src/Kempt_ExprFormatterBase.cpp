// The shared base of the expression formatters: scheme, operator sets, and
// the placing of tokens that span lines (comments, directives).
#include "Kempt_ExprFormatterBase.h"

#include "Cpp_TokenType.h"
#include "Kempt_ColumnArithmetic.h"
#include "Kempt_NormaliseProperties.h"
#include "Kempt_PropertyNames.h"
#include "Kempt_SourceText.h"
#include "Kempt_TokenIterator.h"
#include "Kempt_WhiteSpaceJoins.h"
#include "Varnel_IndentGuard.h"
#include "Varnel_Text.h"

#include <array>

namespace Kempt {

namespace {

PropertySet normalised(const PropertySet& properties)
{
    PropertySet copy(properties);
    normaliseProperties(copy);
    return copy;
}

// The operator table, built once for the process.
const std::array<bool, Cpp::IDENTIFIER + 1>& opTable()
{
    static const std::array<bool, Cpp::IDENTIFIER + 1> TABLE = [] {
        std::array<bool, Cpp::IDENTIFIER + 1> table{};
        for (const std::int32_t type :
             {Cpp::COLON, Cpp::EQUALS, Cpp::ASTERISK, Cpp::AMPERSAND, Cpp::SLASH, Cpp::PLUS, Cpp::MINUS, Cpp::NOT,
              Cpp::TILDE, Cpp::PERCENT, Cpp::LEFT_SHIFT, Cpp::RIGHT_SHIFT, Cpp::LESS_THAN, Cpp::GREATER_THAN,
              Cpp::LESS_EQUALS, Cpp::GREATER_EQUALS, Cpp::EQUALS_EQUALS, Cpp::NOT_EQUALS, Cpp::CARET, Cpp::BAR,
              Cpp::ASTERISK_EQUALS, Cpp::SLASH_EQUALS, Cpp::PERCENT_EQUALS, Cpp::PLUS_EQUALS, Cpp::MINUS_EQUALS,
              Cpp::LEFT_SHIFT_EQUALS, Cpp::RIGHT_SHIFT_EQUALS, Cpp::AMPERSAND_EQUALS, Cpp::CARET_EQUALS,
              Cpp::BAR_EQUALS, Cpp::LOGICAL_AND, Cpp::LOGICAL_OR, Cpp::QUESTION})
            table[static_cast<std::size_t>(type)] = true;
        return table;
    }();
    return TABLE;
}

bool isCompoundAssignment(std::int32_t type)
{
    return type >= Cpp::ASTERISK_EQUALS && type <= Cpp::BAR_EQUALS;
}

ExprFormatterBase::DirectivePlacement readDirectivePlacement(const PropertySet& properties)
{
    bool leftMost = false;
    if (!properties.getBool(Prop::ALIGN_PPD_LEFT_MOST, leftMost))
        return ExprFormatterBase::DirectivePlacement::AS_THEY_STAND;
    return leftMost ? ExprFormatterBase::DirectivePlacement::LEFT_MOST
                    : ExprFormatterBase::DirectivePlacement::WITH_CODE;
}

bool isBlankOrTab(char c)
{
    return c == ' ' || c == '\t' || c == '\v' || c == '\f' || c == '\r';
}

bool isWhiteLine(std::string_view line)
{
    return Varnel::trim(line).empty();
}

// The blanks and tabs at the start of `line` that lie before `column`.
std::size_t blanksBefore(std::string_view line, std::int32_t column, std::int32_t tabSize)
{
    std::int32_t width = 0;
    std::size_t i = 0;
    while (i < line.size() && isBlankOrTab(line[i])) {
        const std::int32_t w = charWidth(line[i], width, tabSize);
        if (width + w > column)
            break;
        width += w;
        ++i;
    }
    return i;
}

} // namespace

void writeMovedLines(Varnel::OIndentStream& out, std::string_view text, std::int32_t sourceColumn,
                     std::int32_t column, std::int32_t tabSize, const std::vector<bool>& untouched)
{
    const std::string indent = indentString(out, column);
    std::size_t nl = text.find('\n');
    out.writeLiteral(text.substr(0, nl == std::string_view::npos ? text.size() : nl + 1));
    for (std::size_t line = 1; nl != std::string_view::npos; ++line) {
        const std::size_t start = nl + 1;
        nl = text.find('\n', start);
        std::string_view part = text.substr(start, nl == std::string_view::npos ? nl : nl + 1 - start);
        if (part.empty())
            break;
        // "  b\"" behind a backslash inside a literal: part of the literal.
        if (line < untouched.size() && untouched[line]) {
            out.writeLiteral(part);
            continue;
        }
        part.remove_prefix(blanksBefore(part, sourceColumn, tabSize));
        // A line of blanks keeps no blanks.
        if (isWhiteLine(part)) {
            out.writeLiteral(part.ends_with('\n') ? "\n" : "");
            continue;
        }
        out.writeLiteral(indent);
        out.writeLiteral(part);
    }
}

bool isOpType(std::int32_t type)
{
    return type >= 0 && type <= Cpp::IDENTIFIER && opTable()[static_cast<std::size_t>(type)];
}

bool isUnaryOpType(std::int32_t type)
{
    return type == Cpp::ASTERISK || type == Cpp::AMPERSAND || type == Cpp::PLUS || type == Cpp::MINUS ||
           type == Cpp::NOT || type == Cpp::TILDE;
}

bool isPtrType(std::int32_t type)
{
    return type == Cpp::ASTERISK || type == Cpp::AMPERSAND;
}

bool isAssignType(std::int32_t type)
{
    return type == Cpp::END_OF_FILE || type == Cpp::EQUALS || isCompoundAssignment(type);
}

bool isIncDecType(std::int32_t type)
{
    return type == Cpp::PLUS_PLUS || type == Cpp::MINUS_MINUS;
}

bool isBuiltinType(std::int32_t type)
{
    return type >= Cpp::CHAR_KEY && type <= Cpp::VOID_KEY;
}

std::string trimRightKeepingLineEnd(std::string_view text)
{
    std::string s(text);
    // Only a text with "//", "#" or "\\" in it can end with a comment, a
    // directive or a line continuation.
    if (s.find('/') == std::string::npos && s.find('#') == std::string::npos && s.find('\\') == std::string::npos)
        return std::string(Varnel::trimRight(s));
    return trimTrailingWhiteSpace(s);
}

ExprFormatterBase::ExprFormatterBase(const PropertySet& properties, const MarkerList& markers)
    : m_properties(normalised(properties)), m_markers(markers)
{
    m_properties.getInt(Prop::TAB_SIZE, m_tabSize);
    if (m_tabSize < 1)
        m_tabSize = 1;
    load(m_properties, Prop::LEFT_MARGIN, m_leftMargin);
    m_directivePlacement = readDirectivePlacement(m_properties);
}

void ExprFormatterBase::reindentToken(const Trn::Position& begin, const Trn::Position& end, SourceReader& in,
                                      Varnel::OIndentStream& out) const
{
    const SourceText& source = in.source();
    const std::size_t first = source.offsetOf(begin);
    const std::size_t last = source.offsetOf(end);
    // 1. A token on one line (its own newline included) is copied.
    if (first == std::string::npos || last == std::string::npos || last < first ||
        source.lineStartOf(first) == source.lineStartOf(std::min(last, source.size() - 1))) {
        in.copyThrough(end, out);
        return;
    }
    // 2. The first character: where it stood in the source, where it goes now.
    const std::int32_t sourceColumn = in.sourceColumnOf(begin, m_tabSize);
    in.copyUpTo(begin, out);
    in.copyThrough(begin, out);
    const std::int32_t column = out.col() > 0 ? out.col() - 1 : 0;
    const std::string text = in.readThrough(end);
    // 3. A token whose column did not change passes exactly as it stands.
    if (column == sourceColumn) {
        out.writeLiteral(text);
        return;
    }
    // 4. Otherwise each later line moves by as much as the first character.
    writeMovedLines(out, text, sourceColumn, column, m_tabSize);
}

void ExprFormatterBase::emitDirective(const Trn::Position& begin, const Trn::Position& end, SourceReader& in,
                                      Varnel::OIndentStream& out) const
{
    switch (m_directivePlacement) {
    case DirectivePlacement::LEFT_MOST: {
        Varnel::IndentGuard guard(out, m_leftMargin.isSet() ? m_leftMargin.text() : out.indent());
        reindentToken(begin, end, in, out);
        return;
    }
    case DirectivePlacement::WITH_CODE: reindentToken(begin, end, in, out); return;
    case DirectivePlacement::AS_THEY_STAND: {
        Varnel::IndentGuard guard(out, std::string());
        Varnel::KeepLeadingSpaceGuard keep(out, true);
        in.copyUpTo(begin, out);
        // "  #if X" whose line start was written by someone else: the
        // blanks in front of it come back.
        const std::string_view lead = in.lineBeforeCursor();
        if (out.col() == 0 && Varnel::trim(lead).empty())
            out.writeLiteral(lead);
        in.copyThrough(end, out);
        return;
    }
    }
}

void ExprFormatterBase::emitTokens(const std::string& text, Varnel::OIndentStream& out) const
{
    const SourceText source(text);
    SourceReader in(source);
    TokenIterator it(text, m_markers);
    for (it.advance(); it.left().type() != Cpp::END_OF_FILE; it.advance()) {
        const Trn::Token t = it.left();
        switch (t.type()) {
        case Cpp::PREPROC_DIRECTIVE:
            in.copyUpTo(t.start(), out);
            emitDirective(t.start(), t.end(), in, out);
            break;
        case Cpp::LINE_COMMENT:
        case Cpp::LINE_CONTINUATION: in.copyUpTo(t.end(), out); break;
        case Cpp::BLOCK_COMMENT:
            if (t.text().empty()) {
                in.copyUpTo(t.end(), out);
            } else {
                in.copyUpTo(t.start(), out);
                reindentToken(t.start(), t.end(), in, out);
            }
            break;
        default: break;
        }
        if (!it.more())
            break;
    }
    writeKeepingLiterals(out, in.rest());
}

} // namespace Kempt
