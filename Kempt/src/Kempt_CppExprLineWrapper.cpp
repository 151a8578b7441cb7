// The expression line wrapper's entry points: reading the scheme, measuring,
// and the order in which an expression, a list and a for head are broken.
// The rungs of the ladder are in Kempt_CppExprLineWrapper_Ladder.cpp.
#include "Kempt_CppExprLineWrapper.h"

#include "Cpp_TokenType.h"
#include "Kempt_ColumnArithmetic.h"
#include "Kempt_PropertyNames.h"
#include "Varnel_Contract.h"
#include "Varnel_StreamState.h"

#include <algorithm>

namespace Kempt {

namespace {

bool readFlag(const PropertySet& p, const char* name)
{
    bool value = false;
    p.getBool(name, value);
    return value;
}

// A wrap choice in 0..2; a value outside is a contract failure and reads 0.
std::int32_t readStyle(const PropertySet& p, const char* name, std::int32_t fallback)
{
    std::int32_t value = fallback;
    if (!p.getInt(name, value))
        return fallback;
    if (value < 0 || value > 2) {
        TW_CHECK(false);
        return 0;
    }
    return value;
}

} // namespace

CppExprLineWrapper::CppExprLineWrapper(const PropertySet& properties, const MarkerList& markers)
    : ExprFormatterBase(properties, markers)
{
    const PropertySet& p = m_properties;
    p.getInt(Prop::RIGHT_MARGIN, m_RightMargin);
    TW_REQUIRE(m_RightMargin >= 0);
    m_RightMargin = std::max<std::int32_t>(m_RightMargin, 0);
    m_lineWrap = readFlag(p, Prop::LINE_WRAP);
    m_wrapStyle = readStyle(p, Prop::WRAP_STYLE, 0);
    m_shiftStyle = readStyle(p, Prop::SHIFT_WRAP_STYLE, 0);
    m_exprStyle = readStyle(p, Prop::EXPR_WRAP_STYLE, 1);
    m_commaStyle = readStyle(p, Prop::COMMA_WRAP_STYLE, 2);
    m_groupStartStyle = readStyle(p, Prop::INDENT_WRAP_STYLE, 2);
    m_listStrategy = readStyle(p, Prop::LIST_WRAP_STRATEGY, 0);
    p.getString(Prop::WRAP_INDENT, m_wrapIndent);
    p.getInt(Prop::CONVERT_WS, m_convertWs);
    if (m_convertWs < 0 || m_convertWs > 2)
        m_convertWs = 0;
}

namespace {

CppExprLineWrapper::Place placeOf(const Varnel::StreamState& state, std::int32_t tabSize)
{
    return {state.col, stringWidth(state.indent, 0, tabSize)};
}

// Sets a flag for the length of one call.
class WrapFlagGuard {
public:
    WrapFlagGuard(bool& flag, bool value) : m_flag(flag), m_saved(flag) { m_flag = value; }
    ~WrapFlagGuard() { m_flag = m_saved; }
    WrapFlagGuard(const WrapFlagGuard&) = delete;
    WrapFlagGuard& operator=(const WrapFlagGuard&) = delete;

private:
    bool& m_flag;
    bool m_saved;
};

} // namespace

bool CppExprLineWrapper::needsWrapAt(std::string_view text, std::int32_t col) const
{
    std::int32_t start = col;
    std::size_t from = 0;
    while (from <= text.size()) {
        std::size_t to = text.find('\n', from);
        if (to == std::string_view::npos)
            to = text.size();
        if (start + stringWidth(text.substr(from, to - from), start, tabSize()) > m_RightMargin)
            return true;
        start = 0;
        from = to + 1;
    }
    return false;
}

bool CppExprLineWrapper::needsWrap(const std::string& text, const Varnel::StreamState& state) const
{
    return needsWrapAt(text, state.col);
}

std::int32_t CppExprLineWrapper::columnAfter(std::string_view text, std::int32_t col) const
{
    const std::size_t nl = text.rfind('\n');
    if (nl == std::string_view::npos)
        return col + stringWidth(text, col, tabSize());
    return stringWidth(text.substr(nl + 1), 0, tabSize());
}

std::string CppExprLineWrapper::padding(std::int32_t width) const
{
    // Blanks, or with blanks turned into tabs, a tab for each whole stop
    // and blanks for the rest: a continuation line lands exactly on its
    // column.
    if (width <= 0)
        return std::string();
    const auto w = static_cast<std::size_t>(width);
    if (m_convertWs != 2)
        return std::string(w, ' ');
    const auto tab = static_cast<std::size_t>(tabSize());
    return std::string(w / tab, '\t') + std::string(w % tab, ' ');
}

std::int32_t CppExprLineWrapper::continuationColumn(std::int32_t alignColumn, std::int32_t base) const
{
    // 1: under the first operand; 2: the base and WRAP_INDENT; 0: the base.
    if (m_wrapStyle == 1)
        return alignColumn;
    if (m_wrapStyle == 2 && !m_noExtraIndent)
        return base + stringWidth(m_wrapIndent, base, tabSize());
    return base;
}

std::string CppExprLineWrapper::wrapExpression(const std::string& text, const Varnel::StreamState& state,
                                               bool continuation, bool noExtraIndent)
{
    WrapFlagGuard keepContinuation(m_continuation, continuation);
    return expression(text, placeOf(state, tabSize()), noExtraIndent);
}

std::string CppExprLineWrapper::expression(const std::string& text, Place place, bool noExtraIndent)
{
    WrapFlagGuard keepNoExtra(m_noExtraIndent, noExtraIndent);
    if (!m_lineWrap)
        return placeDirectives(text);
    if (!needsWrapAt(text, place.col))
        return placeDirectives(breakStrings(text, place));

    const std::vector<WrapToken> tokens = wrapTokens(text);
    // "return a + b;": the keyword stays on the first line.
    std::size_t split = 0;
    for (const WrapToken& t : tokens) {
        if (t.type == Cpp::RETURN_KEY) {
            split = t.end;
            break;
        }
    }
    // "x = y + z": "x =" stays; the first operator ends the search.
    std::int32_t depth = 0;
    for (const WrapToken& t : tokens) {
        if (t.end <= split)
            continue;
        if (binaryOperators().count(t.type) || logicalOperators().count(t.type) || shiftOperators().count(t.type))
            break;
        if (t.type == Cpp::LPAREN || t.type == Cpp::LBRACE || t.type == Cpp::LBRACKET)
            ++depth;
        else if (t.type == Cpp::RPAREN || t.type == Cpp::RBRACE || t.type == Cpp::RBRACKET)
            --depth;
        else if (depth == 0 && assignmentOperators().count(t.type)) {
            split = t.end;
            break;
        }
    }
    const std::string prefix = text.substr(0, split);
    Place rest{columnAfter(prefix, place.col), place.base};
    std::string body = deepLevels(text.substr(split), rest);
    return placeDirectives(prefix + breakStrings(body, rest));
}

namespace {

// The deepest nesting of `open` groups in the text; square brackets and
// what they hold are passed over for round brackets.
std::int32_t deepestLevel(const std::vector<WrapToken>& tokens, std::int32_t open, std::int32_t close)
{
    std::int32_t depth = 0;
    std::int32_t deepest = 0;
    std::int32_t square = 0;
    for (const WrapToken& t : tokens) {
        if (open == Cpp::LPAREN && t.type == Cpp::LBRACKET)
            ++square;
        else if (open == Cpp::LPAREN && t.type == Cpp::RBRACKET)
            square = std::max(square - 1, 0);
        else if (square > 0)
            continue;
        else if (t.type == open)
            deepest = std::max(deepest, ++depth);
        else if (t.type == close)
            depth = std::max(depth - 1, 0);
    }
    return deepest;
}

} // namespace

// Steps 5 to 8 of an expression: the calls of the outermost level, the text
// itself, the brace groups level by level, then deeper calls and last the
// other parenthesised groups.
std::string CppExprLineWrapper::deepLevels(std::string text, Place place, std::string_view trailing)
{
    const auto tooLong = [&](const std::string& t) { return needsWrapAt(t + std::string(trailing), place.col); };
    const std::vector<WrapToken> tokens = wrapTokens(text);
    const std::int32_t parenDepth = deepestLevel(tokens, Cpp::LPAREN, Cpp::RPAREN);
    if (parenDepth > 0)
        text = wrapGroups(text, place, Cpp::LPAREN, 1, true);
    text = wrapText(text, place, trailing);
    const std::int32_t braceDepth = deepestLevel(wrapTokens(text), Cpp::LBRACE, Cpp::RBRACE);
    for (std::int32_t level = 1; level <= braceDepth && tooLong(text); ++level)
        text = wrapGroups(text, place, Cpp::LBRACE, level, false);
    for (std::int32_t level = 2; level <= parenDepth && tooLong(text); ++level)
        text = wrapGroups(text, place, Cpp::LPAREN, level, true);
    for (std::int32_t level = 1; level <= parenDepth && tooLong(text); ++level)
        text = wrapGroups(text, place, Cpp::LPAREN, level, false);
    return text;
}

std::string CppExprLineWrapper::wrapList(const std::string& text, const Varnel::StreamState& state, bool continuation,
                                         std::string_view trailing)
{
    WrapFlagGuard keepContinuation(m_continuation, continuation);
    const Place place = placeOf(state, tabSize());
    const bool tooLong = m_lineWrap && needsWrapAt(text + std::string(trailing), place.col);
    if (m_listStrategy == 1 && tooLong)
        return placeDirectives(breakStrings(wrapFit(text, place, trailing), place));
    if (m_listStrategy == 2 && tooLong)
        return placeDirectives(breakStrings(deepLevels(text, place, trailing), place));
    return placeDirectives(breakStrings(text, place));
}

std::string CppExprLineWrapper::wrapCommaList(const std::string& text, const Varnel::StreamState& state)
{
    const Place place = placeOf(state, tabSize());
    if (!m_lineWrap || !needsWrapAt(text, place.col))
        return text;
    return wrapFit(text, place);
}

std::string CppExprLineWrapper::wrapForHead(const std::string& text, const Varnel::StreamState& state)
{
    WrapFlagGuard keepContinuation(m_continuation, true);
    const Place place = placeOf(state, tabSize());
    if (!m_lineWrap || m_RightMargin < 1 || !needsWrapAt(text, place.col))
        return text;
    // "int i = 0; i < n; ++i": a line after each ";" of the head.
    FindFirstElem semicolons(std::set<std::int32_t>{Cpp::SEMICOLON});
    const std::string clauses = wrapEach(text, place, semicolons, true);
    // A head that spans lines or holds comments keeps the clauses as cut.
    if (text.find('\n') != std::string::npos || text.find("/*") != std::string::npos ||
        text.find("//") != std::string::npos)
        return clauses;
    // Each clause that is still too long goes down the ladder by itself.
    std::string out;
    std::int32_t col = place.col;
    std::size_t from = 0;
    while (from <= clauses.size()) {
        std::size_t to = clauses.find('\n', from);
        const bool last = to == std::string::npos;
        if (last)
            to = clauses.size();
        std::string line = clauses.substr(from, to - from);
        const std::size_t lead = line.find_first_not_of(" \t");
        const std::string indent = line.substr(0, lead == std::string::npos ? line.size() : lead);
        const std::string clause = line.substr(indent.size());
        const std::int32_t clauseCol = columnAfter(indent, col);
        out += indent;
        if (needsWrapAt(clause, clauseCol))
            out += expression(clause, Place{clauseCol, place.base}, false);
        else
            out += clause;
        if (last)
            break;
        out += '\n';
        col = 0;
        from = to + 1;
    }
    return out;
}

} // namespace Kempt
