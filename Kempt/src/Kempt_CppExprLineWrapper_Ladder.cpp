// The rungs of the expression line wrapper's ladder: breaking at every point
// a finder gives (wrapEach), filling lines with the elements of a comma list
// (wrapFit), the shift chains of stream output (wrapShifts), the arguments of
// calls and the contents of other bracket groups (wrapGroups), and the
// placing of adjacent string literals and directives.
//
// Each operation takes a text and where it starts (Place) and returns the
// text to write there literally. Continuation lines start with the padding of
// their column: under the first operand (WRAP_STYLE 1), at the base column
// plus WRAP_INDENT (2), or at the base column (0).
#include "Kempt_CppExprLineWrapper.h"

#include "Cpp_TokenType.h"
#include "Kempt_ColumnArithmetic.h"

#include <algorithm>

namespace Kempt {

namespace {

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
}

std::size_t leadingBlanks(std::string_view s)
{
    std::size_t i = 0;
    while (i < s.size() && isBlank(s[i]))
        ++i;
    return i;
}

bool endsWithNewline(const std::string& s)
{
    return !s.empty() && s.back() == '\n';
}

// The text cut into pieces at the break points: behind each point's token
// (`afterToken`) or in front of it.
std::vector<std::string> cutAt(const std::string& text, const std::vector<WrapToken>& tokens,
                               const std::vector<std::size_t>& points, bool afterToken)
{
    std::vector<std::string> chunks;
    std::size_t from = 0;
    for (const std::size_t p : points) {
        const std::size_t cut = afterToken ? tokens[p].end : tokens[p].begin;
        if (cut <= from && !chunks.empty())
            continue;
        chunks.push_back(text.substr(from, cut - from));
        from = cut;
    }
    chunks.push_back(text.substr(from));
    return chunks;
}

// A chunk split into its text and the white space behind it, which waits
// until it is known whether a line break replaces it. The newline that ends
// a "//" comment or a directive stays with the text.
struct Piece {
    std::string body;
    std::string held;
};

Piece splitHeld(const std::string& chunk)
{
    Piece piece;
    piece.body = trimRightKeepingLineEnd(chunk);
    piece.held = chunk.substr(piece.body.size());
    return piece;
}

} // namespace

namespace {

// Puts out the "//" comments and directives that open `body` and returns the
// rest. A "//" comment stays on the line it follows: "a, // c\n b"; a
// directive goes on a line of its own.
std::string putLeadingComments(std::string& out, std::string body)
{
    for (;;) {
        body.erase(0, leadingBlanks(body));
        if (body.empty())
            return body;
        const std::vector<WrapToken> tokens = wrapTokens(body);
        if (tokens.empty())
            return body;
        const WrapToken& first = tokens.front();
        if (first.type == Cpp::LINE_COMMENT) {
            if (!out.empty() && !isBlank(out.back()))
                out += ' ';
            out += body.substr(0, first.end);
            if (!endsWithNewline(out))
                out += '\n';
        } else if (first.type == Cpp::PREPROC_DIRECTIVE) {
            if (!out.empty() && !endsWithNewline(out)) {
                out = trimRightKeepingLineEnd(out);
                if (!endsWithNewline(out))
                    out += '\n';
            }
            out += body.substr(0, first.end);
            if (!endsWithNewline(out))
                out += '\n';
        } else {
            return body;
        }
        body.erase(0, first.end);
    }
}

} // namespace

std::string CppExprLineWrapper::wrapText(const std::string& text, Place place, std::string_view trailing)
{
    const auto tooLong = [&](const std::string& t) { return needsWrapAt(t + std::string(trailing), place.col); };
    if (!tooLong(text))
        return text;
    // "f(a, b, c)": the commas first.
    FindFirstElem commas(commaTokens());
    std::string result =
        m_listStrategy == 1 ? wrapFit(text, place, trailing) : wrapEach(text, place, commas, m_commaStyle == 2);
    // "cout << a << b"
    if (tooLong(result))
        result = wrapShifts(result, place);
    // "a && b || c"
    if (tooLong(result)) {
        FindFirstElem logical(logicalOperators());
        result = wrapEach(result, place, logical, m_exprStyle == 2);
    }
    // "a + b", "a < b", "c ? a : b"
    if (tooLong(result)) {
        FindFirstBinaryOp binary;
        result = wrapEach(result, place, binary, m_exprStyle == 2);
    }
    // "(long)x": behind the cast.
    if (tooLong(result)) {
        FindFirstOldCast casts;
        result = wrapEach(result, place, casts, true);
    }
    return result;
}

std::string CppExprLineWrapper::wrapEach(const std::string& text, Place place, FirstWrapToken& finder, bool afterToken)
{
    if (!m_lineWrap || m_RightMargin < 1)
        return text;
    const std::vector<WrapToken> tokens = wrapTokens(text);
    const std::vector<std::size_t> points = finder(tokens);
    if (points.empty())
        return text;
    const std::vector<std::string> chunks = cutAt(text, tokens, points, afterToken);
    std::string out;
    std::int32_t align = -1;
    std::string held;
    for (const std::string& chunk : chunks) {
        Piece piece = splitHeld(chunk);
        if (align < 0) {
            // The first chunk is written as it stands; its first token is the
            // column later lines align with.
            const std::size_t lead = leadingBlanks(piece.body);
            out += held + piece.body;
            held = piece.held;
            if (lead < piece.body.size())
                align = columnAfter(out.substr(0, out.size() - piece.body.size() + lead), place.col);
            continue;
        }
        const std::string gap = held + piece.body.substr(0, leadingBlanks(piece.body));
        std::string body = putLeadingComments(out, piece.body);
        if (body.empty()) {
            held += piece.held;
            continue;
        }
        const std::vector<WrapToken> own = wrapTokens(body);
        // "a, , b": a chunk that is only a wrap token stays with its neighbour.
        if (afterToken && own.size() == 1 && finder.isWrapToken(own.front().type) && !endsWithNewline(out)) {
            out += (gap.find('\n') == std::string::npos ? gap : std::string(" ")) + body;
            held = piece.held;
            continue;
        }
        std::int32_t target = continuationColumn(align, place.base);
        if (!afterToken && m_wrapStyle == 1 && !own.empty()) {
            // "&& b" under "a": the operator stands left of the column.
            const std::size_t headEnd = own.front().end + leadingBlanks(std::string_view(body).substr(own.front().end));
            target = columnBefore(std::string_view(body).substr(0, headEnd), align, tabSize());
        }
        if (!endsWithNewline(out))
            out += '\n';
        out += padding(target) + body;
        held = piece.held;
    }
    return out + held;
}

std::string CppExprLineWrapper::wrapFit(const std::string& text, Place place, std::string_view trailing)
{
    if (m_commaStyle == 0 || !m_lineWrap || m_RightMargin < 1)
        return text;
    const bool afterToken = m_commaStyle == 2;
    FindFirstElem commas(commaTokens());
    const std::vector<WrapToken> tokens = wrapTokens(text);
    const std::vector<std::size_t> points = commas(tokens);
    if (points.empty())
        return text;
    std::string out;
    std::int32_t align = -1;
    std::string held;
    const std::vector<std::string> chunks = cutAt(text, tokens, points, afterToken);
    for (std::size_t i = 0; i < chunks.size(); ++i) {
        Piece piece = splitHeld(chunks[i]);
        if (align < 0) {
            const std::size_t lead = leadingBlanks(piece.body);
            out += held + piece.body;
            held = piece.held;
            if (lead < piece.body.size())
                align = columnAfter(out.substr(0, out.size() - piece.body.size() + lead), place.col);
            continue;
        }
        const std::size_t lead = leadingBlanks(piece.body);
        const std::string gap = held + piece.body.substr(0, lead);
        std::string body = putLeadingComments(out, piece.body);
        if (body.empty()) {
            held += piece.held;
            continue;
        }
        const std::int32_t target = continuationColumn(align, place.base);
        if (endsWithNewline(out)) {
            out += padding(target) + body;
        } else {
            // The element stays on the line when it fits there.
            const std::string joined = (gap.find('\n') == std::string::npos ? gap : std::string(" ")) + body;
            // The last element is measured with what follows it: "c);".
            const std::string measured = i + 1 == chunks.size() ? joined + std::string(trailing) : joined;
            if (needsWrapAt(measured, columnAfter(out, place.col)))
                out += '\n' + padding(target) + body;
            else
                out += joined;
        }
        held = piece.held;
    }
    return out + held;
}

std::string CppExprLineWrapper::wrapShifts(const std::string& text, Place place)
{
    if (m_shiftStyle == 0 || !m_lineWrap || m_RightMargin < 1)
        return text;
    const bool afterToken = m_shiftStyle == 2;
    FindFirstElem shifts(shiftOperators());
    const std::vector<WrapToken> tokens = wrapTokens(text);
    const std::vector<std::size_t> points = shifts(tokens);
    if (points.empty())
        return text;
    const std::vector<std::string> chunks = cutAt(text, tokens, points, afterToken);
    // "cout << a": the text up to the first operator stays.
    std::string out = chunks[0];
    std::int32_t anchor = -1;
    std::string held;
    if (!afterToken)
        anchor = columnAfter(out, place.col);
    for (std::size_t i = 1; i < chunks.size(); ++i) {
        Piece piece = splitHeld(chunks[i]);
        const std::size_t lead = leadingBlanks(piece.body);
        const std::string gap = held + piece.body.substr(0, lead);
        std::string body = putLeadingComments(out, piece.body);
        if (anchor < 0) {
            // "cout <<\n     a": with the operators at line ends the
            // operands line up under the first one.
            anchor = columnAfter(out + gap, place.col);
        }
        const std::int32_t target = m_wrapStyle == 1 ? anchor : continuationColumn(anchor, place.base);
        if (body.empty()) {
            held += piece.held;
            continue;
        }
        if (endsWithNewline(out)) {
            out += padding(target) + body;
        } else {
            const std::string joined = (gap.find('\n') == std::string::npos ? gap : std::string(" ")) + body;
            // The first operator and its operand stay with the stream.
            if (i > 1 && needsWrapAt(joined, columnAfter(out, place.col)))
                out += '\n' + padding(target) + body;
            else
                out += joined;
        }
        held = piece.held;
    }
    return out + held;
}

std::string CppExprLineWrapper::wrapGroups(const std::string& text, Place place, std::int32_t open,
                                           std::int32_t level, bool calls)
{
    const std::int32_t close = open == Cpp::LPAREN ? Cpp::RPAREN : Cpp::RBRACE;
    const std::vector<WrapToken> tokens = wrapTokens(text);
    std::string out;
    std::size_t copied = 0;
    std::size_t runStart = std::string::npos;
    std::int32_t depth = 0;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const WrapToken& t = tokens[i];
        if (t.type == close) {
            depth = std::max(depth - 1, 0);
            if (depth == level - 1)
                runStart = std::string::npos;
            continue;
        }
        if (t.type != open) {
            if (depth == level - 1 && runStart == std::string::npos)
                runStart = t.begin;
            continue;
        }
        if (++depth != level) {
            runStart = std::string::npos;
            continue;
        }
        // The group's closing bracket.
        std::size_t j = i + 1;
        for (std::int32_t inner = 1; j < tokens.size(); ++j) {
            if (tokens[j].type == open)
                ++inner;
            else if (tokens[j].type == close && --inner == 0)
                break;
        }
        const bool isCall = open == Cpp::LPAREN && i > 0 && tokens[i - 1].type == Cpp::IDENTIFIER;
        if (j >= tokens.size() || isCall != calls)
            continue;
        // "x = a.f(b, c)": the name, or with INDENT_WRAP_STYLE 2 the start of
        // the run of text that leads to it, is where the arguments indent from.
        std::size_t anchor = isCall ? tokens[i - 1].begin : t.begin;
        if (isCall && m_groupStartStyle == 2 && runStart != std::string::npos)
            anchor = std::min(anchor, runStart);
        out += text.substr(copied, anchor - copied);
        std::int32_t base = columnAfter(out, place.col);
        if (open == Cpp::LBRACE)
            base = place.base;
        out += text.substr(anchor, t.end - anchor);
        const std::string inside = text.substr(t.end, tokens[j].begin - t.end);
        // What follows the group on its line counts: "f(a, b);" must fit
        // with its ");".
        std::size_t lineEnd = text.find('\n', tokens[j].begin);
        if (lineEnd == std::string::npos)
            lineEnd = text.size();
        const std::string_view trailing = std::string_view(text).substr(tokens[j].begin, lineEnd - tokens[j].begin);
        out += wrapText(inside, Place{columnAfter(out, place.col), base}, trailing);
        copied = tokens[j].begin;
        // Go on behind the group: its closing bracket brings the depth back.
        depth = level;
        i = j - 1;
    }
    return out + text.substr(copied);
}

std::string CppExprLineWrapper::breakStrings(const std::string& text, Place place) const
{
    const std::vector<WrapToken> tokens = wrapTokens(text);
    std::string out;
    std::size_t copied = 0;
    std::int32_t runColumn = -1;
    for (std::size_t i = 0; i + 1 < tokens.size(); ++i) {
        const bool pair = tokens[i].type == Cpp::STRING_LITERAL && tokens[i + 1].type == Cpp::STRING_LITERAL &&
                          leadingBlanks(std::string_view(text).substr(tokens[i].end)) ==
                              tokens[i + 1].begin - tokens[i].end;
        if (!pair) {
            runColumn = -1;
            continue;
        }
        // "\"a\" \"b\"": every literal of the run on a line of its own, under
        // the first one.
        if (runColumn < 0) {
            out += text.substr(copied, tokens[i].begin - copied);
            runColumn = columnAfter(out, place.col);
            copied = tokens[i].begin;
        }
        out += text.substr(copied, tokens[i].end - copied);
        out += '\n' + padding(runColumn);
        copied = tokens[i + 1].begin;
    }
    return out + text.substr(copied);
}

std::string CppExprLineWrapper::placeDirectives(const std::string& text) const
{
    const std::vector<WrapToken> tokens = wrapTokens(text);
    std::string out;
    std::size_t copied = 0;
    for (const WrapToken& t : tokens) {
        if (t.type != Cpp::PREPROC_DIRECTIVE)
            continue;
        const std::size_t lineStart = text.rfind('\n', t.begin == 0 ? 0 : t.begin - 1);
        const std::size_t from = lineStart == std::string::npos ? 0 : lineStart + 1;
        if (t.begin == 0 || leadingBlanks(std::string_view(text).substr(from)) >= t.begin - from)
            continue;
        // "a; #if X": the directive goes to a line of its own.
        out += trimRightKeepingLineEnd(text.substr(copied, t.begin - copied));
        if (!endsWithNewline(out))
            out += '\n';
        copied = t.begin;
    }
    return out + text.substr(copied);
}

} // namespace Kempt
