// The break points of the line wrapper's ladder. A finder looks at the tokens
// of one text (an expression, a list, the arguments of a call) and tells
// where, outside every bracket, a line may be broken: at a comma, a shift, a
// logical operator, another binary operator, or behind the ")" of an
// old-style cast. The wrapper cuts the text at those tokens.
//
// Invariants:
//  1. Only tokens at depth 0 of the text are break points: "(" ")",
//     "[" "]", "{" "}" and template angle brackets are counted apart.
//  2. A "<" opens a template argument list only behind an identifier (or a
//     named cast) when its ">" follows before any ";", "&&" or "||"; a
//     comparison stays a break point.
//  3. The sets leave holes on purpose: "*", "&" and "^" are never break
//     points (they are as often declarators and addresses as operators).
#ifndef KEMPT_WRAPFINDERS_H
#define KEMPT_WRAPFINDERS_H

#include <cstddef>
#include <cstdint>
#include <set>
#include <string_view>
#include <vector>

namespace Kempt {

// One token of a wrapped text, by its byte range [begin, end).
struct WrapToken {
    std::int32_t type = -1;
    std::size_t begin = 0;
    std::size_t end = 0;
};

// The tokens of `text`, read by the C++ lexer.
std::vector<WrapToken> wrapTokens(std::string_view text);

// The token sets of the ladder, built once.
const std::set<std::int32_t>& shiftOperators();   // << >>
const std::set<std::int32_t>& logicalOperators(); // && ||
const std::set<std::int32_t>& binaryOperators();  // : / + - % << >> < > <= >= == != | ?
const std::set<std::int32_t>& assignmentOperators();
const std::set<std::int32_t>& commaTokens();

// Finds the break points of one kind. Protocol: construct, then call with the
// tokens of a text; the answer is the indices of every break point, in order.
class FirstWrapToken {
public:
    virtual ~FirstWrapToken() = default;
    // The indices of the tokens of `tokens` at which a wrap may happen.
    virtual std::vector<std::size_t> operator()(const std::vector<WrapToken>& tokens) = 0;
    // Whether a token of `type` is such a point at all.
    virtual bool isWrapToken(std::int32_t type) const = 0;
};

// Tokens of `wrapSet` at depth 0 whose neighbours are not of the set (and
// whose right neighbour is not of `excludeSet`): "a, b" breaks at ",".
class FindFirstElem : public FirstWrapToken {
public:
    FindFirstElem(const std::set<std::int32_t>& wrapSet, const std::set<std::int32_t>& excludeSet = {});
    std::vector<std::size_t> operator()(const std::vector<WrapToken>& tokens) override;
    bool isWrapToken(std::int32_t type) const override;

private:
    std::set<std::int32_t> m_wrapSet;
    std::set<std::int32_t> m_excludeSet;
};

// Binary operators at depth 0: comparisons, "/", "%", "|", "?", ":", the
// shifts, and "+" "-" where they join two operands. "-x" at the start and
// "a * -b" hold a sign, which is no break point.
class FindFirstBinaryOp : public FirstWrapToken {
public:
    std::vector<std::size_t> operator()(const std::vector<WrapToken>& tokens) override;
    bool isWrapToken(std::int32_t type) const override;
};

// The ")" that closes an old-style cast followed by its operand:
// "(long)x", "(char *)(p + 1)". "f(x) y" is a call, not a cast.
class FindFirstOldCast : public FirstWrapToken {
public:
    std::vector<std::size_t> operator()(const std::vector<WrapToken>& tokens) override;
    bool isWrapToken(std::int32_t type) const override;
};

// For each token, its depth in template angle brackets, round, square and
// curly brackets together: 0 for a token outside all of them. An opening
// bracket has the depth outside it, a closing one the depth outside it too.
// `angles`, when given, is set to mark the "<" ">" and ">>" tokens that are
// template angle brackets.
std::vector<std::int32_t> bracketDepths(const std::vector<WrapToken>& tokens, std::vector<bool>* angles = nullptr);

} // namespace Kempt

#endif
