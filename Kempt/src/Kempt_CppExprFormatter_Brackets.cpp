// The expression walk's decisions for brackets: calls, parenthesised and
// bracketed groups, casts and brace initializers. A matched group's inside is
// formatted by an inner walk and laid out as a list.
#include "Cpp_TokenType.h"
#include "Kempt_CppExprWalk.h"
#include "Varnel_Contract.h"
#include "Varnel_IndentGuard.h"
#include "Varnel_Text.h"

namespace Kempt::detail {

namespace {

bool isLiteral(std::int32_t type)
{
    return type >= Cpp::CHAR_LITERAL && type <= Cpp::STRING_LITERAL;
}

bool sameToken(const Trn::Token& a, const Trn::Token& b)
{
    return a.type() == b.type() && a.start() == b.start();
}

} // namespace

void ExprWalk::emitCall()
{
    const TokenIterator& it = m_it;
    TW_REQUIRE(it.right().type() == Cpp::LPAREN);
    // "f (x)" with WS_AFTER_FN_CALL_NAME "": "f(x)".
    if (m_gaps.callName.isSet()) {
        copyThrough(left().end());
        write(Varnel::trimRight(readUpTo(right().start())));
        writeRaw(m_gaps.callName.text());
    } else {
        copyUpTo(right().start());
    }
    advance();
    if (!hasRight())
        return;
    // "f(a, -b)": inside a call a comma starts an operand.
    CppExprFormatter::FlagGuard<bool> inCall(m_f.m_inCall, true);
    emitGroup(Cpp::LPAREN, Cpp::RPAREN, m_gaps.afterParen, m_gaps.beforeParen, m_gaps.beforeComma,
              m_gaps.betweenArgs);
}

void ExprWalk::emitGroup(std::int32_t left, std::int32_t right, const WsSetting& afterOpen,
                         const WsSetting& beforeClose, const WsSetting& beforeComma, const WsSetting& between)
{
    const TokenIterator& it = m_it;
    TW_REQUIRE(it.left().type() == left);
    // 1. Nothing to set at the brackets: "( a,b )" keeps its inner blanks,
    //    and the inside is formatted as a list.
    if (!afterOpen.isSet() && !beforeClose.isSet()) {
        if (!hasRight()) {
            copyThrough(this->left().end());
            return write(rest());
        }
        copyUpTo(this->right().start());
        if (!skipToMatching(m_it, left, right))
            return writeRaw(formatInner(rest()));
        std::string inner = formatInner(readThrough(this->left().end()));
        if (beforeComma.isSet() || between.isSet())
            inner = m_f.alignList(inner, Cpp::COMMA, beforeComma, between, state());
        writeRaw(inner);
        writeRaw(readUpTo(this->right().start()));
        return;
    }
    // 2. "( )" with both set: "()"; an empty group gets no inner blanks.
    emitComments();
    if (rightType() == right) {
        write(Varnel::trimRight(readThrough(this->left().end())));
        write(Varnel::trimLeft(readUpTo(this->right().start())));
        return;
    }
    // 4. "(a" at the end of the text.
    if (!hasRight()) {
        const std::string open = readThrough(this->left().end());
        if (afterOpen.isSet()) {
            write(Varnel::trimRight(open));
            writeRaw(afterOpen.text());
        } else {
            write(open);
        }
        write(Varnel::trimLeft(rest()));
        return;
    }
    // 3. "( a )" with WS_AFTER_EXPR_OPEN_PAREN "": "(a )".
    if (afterOpen.isSet()) {
        write(Varnel::trimRight(readUpTo(this->right().start())));
        writeRaw(afterOpen.text());
    } else {
        copyUpTo(this->right().start());
    }
    if (!skipToMatching(m_it, left, right)) {
        const std::string gap = rest();
        if (!beforeClose.isSet())
            return writeRaw(gap);
        write(Varnel::trimLeft(gap));
        return writeRaw(beforeClose.text());
    }
    emitMatchedGroup(beforeClose, beforeComma, between);
}

// The inside of a matched group, the left token being its last token and the
// right token the close, and the gap in front of the close.
void ExprWalk::emitMatchedGroup(const WsSetting& beforeClose, const WsSetting& beforeComma, const WsSetting& between)
{
    std::string inner = formatInner(readThrough(left().end()));
    if (beforeComma.isSet() || between.isSet())
        inner = m_f.alignList(inner, Cpp::COMMA, beforeComma, between, state());
    // "(a // c\n)": the comment keeps its newline.
    if (beforeClose.isSet())
        inner = trimRightKeepingLineEnd(inner);
    writeRaw(inner);
    const std::string gap = readUpTo(right().start());
    if (!beforeClose.isSet())
        return writeRaw(gap);
    write(Varnel::trimLeft(gap));
    writeRaw(beforeClose.text());
}

void ExprWalk::afterCloseParen()
{
    const TokenIterator& it = m_it;
    TW_REQUIRE(it.right().type() == Cpp::RPAREN);
    const bool pointerInside = isPtrType(leftType());
    advance();
    const std::int32_t r = rightType();
    // "(int) x", "(T) (y)": an old style cast and its operand.
    if (isLiteral(r) || r == Cpp::LPAREN || r == Cpp::IDENTIFIER) {
        if (m_gaps.op.isSet()) {
            write(Varnel::trimRight(readUpTo(right().start())));
            writeRaw(m_gaps.op.text());
        }
        return dispatch();
    }
    // "(char*) &x": a cast, then a unary operator.
    if (isPtrType(r) && pointerInside) {
        if (m_gaps.op.isSet()) {
            write(Varnel::trimRight(readUpTo(right().start())));
            writeRaw(m_gaps.op.text());
        } else {
            copyUpTo(right().start());
        }
        advance();
        return emitUnary();
    }
    // "(n) & y": a binary operator.
    dispatch();
}

void ExprWalk::emitNamedCast()
{
    const TokenIterator& it = m_it;
    TW_REQUIRE(it.left().type() == Cpp::CONST_CAST_KEY || it.left().type() == Cpp::DYNAMIC_CAST_KEY ||
               it.left().type() == Cpp::REINTERPRET_CAST_KEY || it.left().type() == Cpp::STATIC_CAST_KEY);
    emitComments();
    advance();
    if (leftType() != Cpp::LESS_THAN)
        return;
    // "static_cast<char *>(p)": the type between the brackets is a type.
    {
        CppExprFormatter::FlagGuard<bool> typeId(m_f.m_typeIdMode, true);
        CppExprFormatter::FlagGuard<WsSetting> far(m_f.m_farGap, noWhiteSpace());
        emitGroup(Cpp::LESS_THAN, Cpp::GREATER_THAN, m_gaps.afterAngle, m_gaps.beforeCloseAngle, m_gaps.beforeComma,
                  m_gaps.betweenArgs);
    }
    advance();
    if (rightType() == Cpp::LPAREN)
        emitCall();
}

void ExprWalk::emitEquals()
{
    const TokenIterator& it = m_it;
    TW_REQUIRE(it.left().type() == Cpp::EQUALS);
    emitComments();
    if (rightType() != Cpp::LBRACE)
        return emitPair();
    // "= {1, 2}": a brace initializer.
    const Trn::Token brace = right();
    if (m_gaps.beforeBrace.isSet()) {
        copyThrough(left().end());
        write(Varnel::trimRight(readUpTo(brace.start())));
        if (leftType() != Cpp::LINE_COMMENT && leftType() != Cpp::PREPROC_DIRECTIVE)
            writeRaw(m_gaps.beforeBrace.text());
    }
    copyThrough(brace.end());
    advance();
    if (!skipToMatching(m_it, Cpp::LBRACE, Cpp::RBRACE))
        return writeRaw(formatInner(rest()));
    // "{ }": no inner blanks.
    if (sameToken(left(), brace)) {
        write(Varnel::trimRight(readThrough(left().end())));
        write(Varnel::trimLeft(readUpTo(right().start())));
        return copyThrough(right().end());
    }
    emitBraceContent();
}

// The elements of a brace initializer, from behind the "{" through the "}".
void ExprWalk::emitBraceContent()
{
    std::string text = readThrough(left().end());
    if (m_gaps.afterBrace.isSet()) {
        text = std::string(Varnel::trimLeft(text));
        writeRaw(m_gaps.afterBrace.text());
    }
    {
        // Continuation lines of the elements take the content indent.
        const WsSetting& indent = m_gaps.braceContentIndent;
        Varnel::IndentGuard guard(out(), out().indent() + indent.text());
        Varnel::KeepLeadingSpaceGuard keep(out(), indent.isSet() ? false : out().keepLeadingSpace());
        text = formatInner(text);
        if (m_gaps.beforeElementComma.isSet() || m_gaps.betweenElements.isSet())
            text = m_f.separateList(text, Cpp::COMMA, m_gaps.beforeElementComma, m_gaps.betweenElements, state());
        writeRaw(text);
    }
    if (m_gaps.beforeCloseBrace.isSet()) {
        const std::string gap = readUpTo(right().start());
        writeRaw(m_gaps.beforeCloseBrace.text());
        write(Varnel::trimLeft(gap));
    }
    copyThrough(right().end());
}

} // namespace Kempt::detail
