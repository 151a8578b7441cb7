// The expression formatter: re-spaces the text of one expression, declarator,
// initializer or type without parsing it into nodes. The tree passes hand it a
// stretch of source text and the state of the stream it will be written to;
// it walks the text as pairs of neighbouring tokens and decides, pair by pair,
// what stands in the gap between them. It never moves, adds or removes a
// token, and a gap loses nothing but white space.
//
// Protocol: build once per pass from the scheme (it reads every property it
// needs then), and call format() or formatTypeId() for each stretch:
//   Kempt::CppExprFormatter expr(settings, settings.markers());
//   out.writeLiteral(expr.format(text, Varnel::StreamState::of(out)));
// The result is written literally: it already holds the indent of every line
// it starts, taken from the state.
//
// Invariants:
//  1. The operator sets of Kempt_ExprFormatterBase.h are the only place where
//     the meaning of a token is settled; "a * b" is a product outside a type
//     and a declarator inside one (formatTypeId), "*p" at the start is unary.
//  2. The type-id mode, the far gap and the in-call flag are set for the
//     length of one call by scoped guards, so they nest with the recursion
//     over brackets and are restored when an exception passes.
//  3. A setting that is not set leaves its gap exactly as the source has it.
#ifndef KEMPT_CPPEXPRFORMATTER_H
#define KEMPT_CPPEXPRFORMATTER_H

#include "Kempt_ExprFormatterBase.h"

#include <cstdint>
#include <string>
#include <utility>

namespace Varnel {
struct StreamState;
}

namespace Kempt {

namespace detail {
class ExprWalk;
}

class CppExprFormatter : public ExprFormatterBase {
public:
    explicit CppExprFormatter(const PropertySet& properties, const MarkerList& markers = defaultMarkerList());

    // The text with its gaps set by the scheme, as it comes out on a stream
    // in `state`.
    std::string format(const std::string& text, const Varnel::StreamState& state);

    // The same for a type with its declarator: "*" and "&" behind a type
    // belong to the declarator and follow the anchors, and `farGap` is the
    // gap on the side of the symbols away from their anchor.
    std::string formatTypeId(const std::string& text, const Varnel::StreamState& state, const WsSetting& farGap);

    // The scheme's gaps, as the walk reads them.
    struct Gaps {
        WsSetting op;                 // WS_BETWEEN_EXPR_OP_OPERANDS
        WsSetting unary;              // WS_BETWEEN_UNARY_OP_OPERAND
        WsSetting callName;           // WS_AFTER_FN_CALL_NAME
        WsSetting beforeComma;        // WS_BEFORE_FN_CALL_COMMA
        WsSetting betweenArgs;        // WS_BETWEEN_FN_CALL_ARGS, "\n" with ALIGN_FN_CALL_ARGS_LEFT
        WsSetting afterParen;         // WS_AFTER_EXPR_OPEN_PAREN
        WsSetting beforeParen;        // WS_BEFORE_EXPR_CLOSE_PAREN
        WsSetting beforeBracket;      // WS_BEFORE_LBRACKET
        WsSetting afterBracket;       // WS_AFTER_LBRACKET
        WsSetting beforeCloseBracket; // WS_BEFORE_RBRACKET
        WsSetting ampersandGap;       // WS_BETWEEN_AMPERSAND_ANCHOR
        WsSetting asteriskGap;        // WS_BETWEEN_ASTERISK_ANCHOR
        WsSetting afterAngle;         // WS_AFTER_TP_OPEN_BRACKET
        WsSetting beforeCloseAngle;   // WS_BEFORE_TP_CLOSE_BRACKET
        WsSetting betweenTemplateArgs; // WS_BETWEEN_TP_PARAMS
        WsSetting beforeBrace;        // WS_BEFORE_DD_OPEN_BRACE
        WsSetting afterBrace;         // WS_AFTER_DD_OPEN_BRACE
        WsSetting beforeCloseBrace;   // WS_BEFORE_DD_CLOSE_BRACE
        WsSetting beforeElementComma; // WS_BEFORE_DD_COMMA
        WsSetting betweenElements;    // WS_BETWEEN_DD_ELEMENTS
        WsSetting braceContentIndent; // INDENT_DD_CONTENT
    };
    const Gaps& gaps() const { return m_gaps; }
    bool lineWrap() const { return m_lineWrap; }
    std::int32_t asteriskAnchor() const { return m_asteriskAnchor; }
    std::int32_t ampersandAnchor() const { return m_ampersandAnchor; }
    bool hangingAsterisk() const { return m_hangingAsterisk; }
    bool hangingAmpersand() const { return m_hangingAmpersand; }

    // The walk's flags, each set for the length of one call by a guard.
    bool inCall() const { return m_inCall; }
    bool typeIdMode() const { return m_typeIdMode; }
    const WsSetting& farGap() const { return m_farGap; }

    // Sets a flag of the formatter for the life of the guard.
    template <typename T>
    class FlagGuard {
    public:
        FlagGuard(T& flag, T value) : m_flag(flag), m_saved(flag) { m_flag = std::move(value); }
        ~FlagGuard() { m_flag = std::move(m_saved); }
        FlagGuard(const FlagGuard&) = delete;
        FlagGuard& operator=(const FlagGuard&) = delete;

    private:
        T& m_flag;
        T m_saved;
    };

private:
    friend class detail::ExprWalk;

    static const MarkerList& defaultMarkerList();

    Gaps m_gaps;
    bool m_lineWrap = false;
    std::int32_t m_asteriskAnchor = -1;
    std::int32_t m_ampersandAnchor = -1;
    bool m_hangingAsterisk = false;
    bool m_hangingAmpersand = false;
    bool m_inCall = false;
    bool m_typeIdMode = false;
    WsSetting m_farGap;
    int m_depth = 0; // walks in progress, inner ones included
};

// Whether `after` holds exactly the tokens of `before`: white space may
// differ between tokens, and inside comments and directives, nothing else. A
// quick look at the characters settles most texts; the rest are lexed.
bool keepsTokens(const std::string& before, const std::string& after, const MarkerList& markers);

} // namespace Kempt

#endif
