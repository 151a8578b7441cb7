// The break-point finders of the line wrapper and the token reading they
// share. See Kempt_WrapFinders.h.
#include "Kempt_WrapFinders.h"

#include "Cpp_Lexer.h"
#include "Cpp_TokenType.h"
#include "Varnel_IMemBuf.h"

#include <string>

namespace Kempt {

std::vector<WrapToken> wrapTokens(std::string_view text)
{
    std::vector<std::size_t> lineStarts{0};
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] == '\n')
            lineStarts.push_back(i + 1);
    const auto offsetOf = [&](const Trn::Position& p, bool exclusive) -> std::size_t {
        if (p.line < 1 || static_cast<std::size_t>(p.line) > lineStarts.size())
            return text.size();
        const std::size_t lineStart = lineStarts[static_cast<std::size_t>(p.line) - 1];
        // A start position names the token's first character; an end
        // position its last one, so the exclusive end is one further.
        const std::size_t at = lineStart + static_cast<std::size_t>(p.col) - (exclusive ? 0 : 1);
        return std::min(at, text.size());
    };
    std::vector<WrapToken> tokens;
    const std::string copy(text);
    Varnel::IMemStream in(copy);
    Cpp::Lexer lexer(in);
    for (Trn::Token t = lexer.next(); t.type() != Cpp::END_OF_FILE; t = lexer.next()) {
        WrapToken w;
        w.type = t.type();
        w.begin = offsetOf(t.start(), false);
        w.end = std::max(w.begin, offsetOf(t.end(), true));
        tokens.push_back(w);
    }
    return tokens;
}

const std::set<std::int32_t>& shiftOperators()
{
    static const std::set<std::int32_t> set{Cpp::LEFT_SHIFT, Cpp::RIGHT_SHIFT};
    return set;
}

const std::set<std::int32_t>& logicalOperators()
{
    static const std::set<std::int32_t> set{Cpp::LOGICAL_AND, Cpp::LOGICAL_OR};
    return set;
}

const std::set<std::int32_t>& binaryOperators()
{
    static const std::set<std::int32_t> set{
        Cpp::COLON,        Cpp::SLASH,          Cpp::PLUS,           Cpp::MINUS,      Cpp::PERCENT,
        Cpp::LEFT_SHIFT,   Cpp::RIGHT_SHIFT,    Cpp::LESS_THAN,      Cpp::GREATER_THAN, Cpp::LESS_EQUALS,
        Cpp::GREATER_EQUALS, Cpp::EQUALS_EQUALS, Cpp::NOT_EQUALS,    Cpp::BAR,        Cpp::QUESTION};
    return set;
}

const std::set<std::int32_t>& assignmentOperators()
{
    // ">=" and "<=" are listed, but the binary set is looked at first, so
    // they never split; "/=" is left out.
    static const std::set<std::int32_t> set{
        Cpp::EQUALS,          Cpp::AMPERSAND_EQUALS, Cpp::ASTERISK_EQUALS,    Cpp::CARET_EQUALS,
        Cpp::GREATER_EQUALS,  Cpp::LEFT_SHIFT_EQUALS, Cpp::LESS_EQUALS,       Cpp::MINUS_EQUALS,
        Cpp::PERCENT_EQUALS,  Cpp::BAR_EQUALS,        Cpp::PLUS_EQUALS,       Cpp::RIGHT_SHIFT_EQUALS};
    return set;
}

const std::set<std::int32_t>& commaTokens()
{
    static const std::set<std::int32_t> set{Cpp::COMMA};
    return set;
}

namespace {

bool isNamedCast(std::int32_t type)
{
    return type >= Cpp::STATIC_CAST_KEY && type <= Cpp::REINTERPRET_CAST_KEY;
}

// Whether the "<" at `i` has its ">" before any ";", "&&" or "||".
bool closesAsTemplate(const std::vector<WrapToken>& tokens, std::size_t i)
{
    std::int32_t depth = 1;
    for (std::size_t j = i + 1; j < tokens.size(); ++j) {
        const std::int32_t t = tokens[j].type;
        if (t == Cpp::SEMICOLON || t == Cpp::LOGICAL_AND || t == Cpp::LOGICAL_OR)
            return false;
        if (t == Cpp::LESS_THAN)
            ++depth;
        else if (t == Cpp::GREATER_THAN)
            --depth;
        else if (t == Cpp::RIGHT_SHIFT)
            depth -= 2;
        if (depth <= 0)
            return true;
    }
    return false;
}

} // namespace

std::vector<std::int32_t> bracketDepths(const std::vector<WrapToken>& tokens, std::vector<bool>* angles)
{
    std::vector<std::int32_t> depths(tokens.size(), 0);
    if (angles)
        angles->assign(tokens.size(), false);
    std::int32_t round = 0;
    std::int32_t square = 0;
    std::int32_t curly = 0;
    std::int32_t angle = 0;
    bool castPending = false;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const std::int32_t t = tokens[i].type;
        const std::int32_t outside = round + square + curly + angle;
        const std::int32_t angleBefore = angle;
        switch (t) {
        case Cpp::LPAREN: ++round; break;
        case Cpp::RPAREN: round = std::max(round - 1, 0); break;
        case Cpp::LBRACKET: ++square; break;
        case Cpp::RBRACKET: square = std::max(square - 1, 0); break;
        case Cpp::LBRACE: ++curly; break;
        case Cpp::RBRACE: curly = std::max(curly - 1, 0); break;
        case Cpp::LESS_THAN:
            // "vector<int>" and "static_cast<T>": an opening angle; "a < b"
            // a comparison. Inside template arguments every "<" opens.
            if (angle > 0 || castPending ||
                (i > 0 && tokens[i - 1].type == Cpp::IDENTIFIER && closesAsTemplate(tokens, i)))
                ++angle;
            break;
        case Cpp::GREATER_THAN:
            if (angle > 0)
                --angle;
            break;
        case Cpp::RIGHT_SHIFT:
            if (angle > 0)
                angle = std::max(angle - 2, 0);
            break;
        default: break;
        }
        castPending = isNamedCast(t);
        const std::int32_t inside = round + square + curly + angle;
        depths[i] = std::min(outside, inside);
        // An angle bracket that is a bracket is never a comparison or a
        // shift: "vector<int>" and "a<b<c>>" have no break point.
        const bool angleBracket = (t == Cpp::LESS_THAN && inside > outside) ||
                                  ((t == Cpp::GREATER_THAN || t == Cpp::RIGHT_SHIFT) && inside < outside &&
                                   angleBefore > angle);
        if (angleBracket) {
            depths[i] = outside + 1;
            if (angles)
                (*angles)[i] = true;
        }
    }
    return depths;
}

FindFirstElem::FindFirstElem(const std::set<std::int32_t>& wrapSet, const std::set<std::int32_t>& excludeSet)
    : m_wrapSet(wrapSet), m_excludeSet(excludeSet)
{
}

std::vector<std::size_t> FindFirstElem::operator()(const std::vector<WrapToken>& tokens)
{
    std::vector<std::size_t> points;
    const std::vector<std::int32_t> depths = bracketDepths(tokens);
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (depths[i] != 0 || !isWrapToken(tokens[i].type))
            continue;
        // "a, , b" and "a << << b": a run of wrap tokens breaks once, before it.
        if (i + 1 < tokens.size() &&
            (m_excludeSet.count(tokens[i + 1].type) != 0 || m_wrapSet.count(tokens[i + 1].type) != 0))
            continue;
        if (i > 0 && m_wrapSet.count(tokens[i - 1].type) != 0)
            continue;
        points.push_back(i);
    }
    return points;
}

bool FindFirstElem::isWrapToken(std::int32_t type) const
{
    return m_wrapSet.count(type) != 0;
}

namespace {

// "+" and "-" behind one of these hold a sign: "x = -y", "f(-a)", "a * -b".
bool makesSign(std::int32_t before)
{
    switch (before) {
    case Cpp::IDENTIFIER:
    case Cpp::NUMBER_LITERAL:
    case Cpp::CHAR_LITERAL:
    case Cpp::STRING_LITERAL:
    case Cpp::UNUSED_LITERAL:
    case Cpp::RPAREN:
    case Cpp::RBRACKET:
    case Cpp::RBRACE:
    case Cpp::PLUS_PLUS:
    case Cpp::MINUS_MINUS:
    case Cpp::THIS_KEY:
    case Cpp::TRUE_KEY:
    case Cpp::FALSE_KEY: return false;
    default: return true;
    }
}

} // namespace

std::vector<std::size_t> FindFirstBinaryOp::operator()(const std::vector<WrapToken>& tokens)
{
    std::vector<std::size_t> points;
    const std::vector<std::int32_t> depths = bracketDepths(tokens);
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const std::int32_t t = tokens[i].type;
        if (depths[i] != 0 || !isWrapToken(t))
            continue;
        if (t == Cpp::PLUS || t == Cpp::MINUS) {
            // "-x" at the start is a sign, "a - b" an operator.
            if (i == 0 || makesSign(tokens[i - 1].type))
                continue;
        }
        points.push_back(i);
    }
    return points;
}

bool FindFirstBinaryOp::isWrapToken(std::int32_t type) const
{
    return binaryOperators().count(type) != 0;
}

namespace {

bool startsOperand(std::int32_t type)
{
    return type == Cpp::NUMBER_LITERAL || type == Cpp::CHAR_LITERAL || type == Cpp::STRING_LITERAL ||
           type == Cpp::UNUSED_LITERAL || type == Cpp::LPAREN || type == Cpp::IDENTIFIER;
}

} // namespace

std::vector<std::size_t> FindFirstOldCast::operator()(const std::vector<WrapToken>& tokens)
{
    std::vector<std::size_t> points;
    std::int32_t depth = 0;
    bool possibleCast = false;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const std::int32_t t = tokens[i].type;
        if (t == Cpp::LPAREN) {
            // "f(x)" and "vector<int>(n)" are calls.
            if (depth == 0)
                possibleCast = i == 0 || (tokens[i - 1].type != Cpp::IDENTIFIER &&
                                          tokens[i - 1].type != Cpp::GREATER_THAN && !isNamedCast(tokens[i - 1].type));
            ++depth;
            continue;
        }
        if (t != Cpp::RPAREN || depth == 0)
            continue;
        --depth;
        if (depth == 0 && possibleCast && i + 1 < tokens.size() && startsOperand(tokens[i + 1].type))
            points.push_back(i);
        if (depth == 0)
            possibleCast = false;
    }
    return points;
}

bool FindFirstOldCast::isWrapToken(std::int32_t type) const
{
    return type == Cpp::RPAREN;
}

} // namespace Kempt
