// The expression walk's decisions for operators and plain pairs: whether an
// operator is unary or binary, and what stands on either side of it.
#include "Cpp_Lexer.h"
#include "Cpp_TokenType.h"
#include "Kempt_CppExprWalk.h"
#include "Varnel_Contract.h"
#include "Varnel_IMemBuf.h"
#include "Varnel_Text.h"

#include <cctype>

namespace Kempt::detail {

namespace {

bool isWordChar(char c)
{
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
}

bool isPunct(char c)
{
    return std::ispunct(static_cast<unsigned char>(c)) != 0;
}

bool isCommentOrDirective(std::int32_t type)
{
    return type == Cpp::LINE_COMMENT || type == Cpp::BLOCK_COMMENT || type == Cpp::PREPROC_DIRECTIVE;
}

std::string trimmed(std::string_view text)
{
    return std::string(Varnel::trim(text));
}

} // namespace

bool wouldFuse(std::string_view left, std::string_view right)
{
    // " T" and "*": the blanks in front of the left text are no token.
    const std::size_t start = left.find_first_not_of(" \t\r\n\f\v");
    if (start == std::string_view::npos || right.empty())
        return false;
    left.remove_prefix(start);
    const char a = left.back();
    const char b = right.front();
    if (isWordChar(a) && isWordChar(b))
        return true;
    // "~" "X" reads as a destructor's name, ":" ":" "x" as a qualified one.
    if (!isPunct(a) && !isPunct(b))
        return false;
    const std::string joined = std::string(left) + std::string(right);
    Varnel::IMemStream in(joined);
    Cpp::Lexer lexer(in);
    const Trn::Token first = lexer.next();
    return first.text() != left;
}

bool wouldFuseChars(char left, char right)
{
    const char text[2] = {left, right};
    return wouldFuse(std::string_view(text, 1), std::string_view(text + 1, 1));
}

bool ExprWalk::forcesUnaryAfter(std::int32_t type) const
{
    switch (type) {
    case Cpp::SEMICOLON:
    case Cpp::COLON:
    case Cpp::LPAREN:
    case Cpp::THROW_KEY:
    case Cpp::RETURN_KEY: return true;
    // "f(a, -b)": inside a call a comma starts an operand.
    case Cpp::COMMA: return m_f.inCall();
    // Every operator but ">" (a closed template) and "!".
    case Cpp::GREATER_THAN:
    case Cpp::NOT: return false;
    default: return isOpType(type);
    }
}

void ExprWalk::copyUpTo(const Trn::Position& p)
{
    if (!m_f.lineWrap())
        return m_in.copyUpTo(p, out());
    std::string gap = m_in.readUpTo(p);
    const std::string& source = m_in.source().text();
    const std::size_t next = m_in.offset();
    // "a +\n    b": joined; a directive keeps the line it starts.
    const bool blank = gap.find_first_not_of(" \t\n\r\f\v") == std::string::npos;
    const bool beforeDirective = next < source.size() && source[next] == '#';
    const std::size_t gapStart = next - std::min(next, gap.size());
    const bool afterContinuation = gapStart > 0 && source[gapStart - 1] == '\\';
    // Behind a comment on the same line, the line break stays.
    const std::size_t lineStart = source.rfind('\n', gapStart == 0 ? 0 : gapStart - 1);
    const std::string_view before(source.data() + (lineStart == std::string::npos || gapStart == 0 ? 0 : lineStart + 1),
                                  gapStart - (lineStart == std::string::npos || gapStart == 0 ? 0 : lineStart + 1));
    // A gap that starts a line follows a token that ended its own line (a
    // directive, a "//" comment): its line breaks stay.
    const bool afterComment = before.find("//") != std::string_view::npos ||
                              before.find("/*") != std::string_view::npos || before.empty() ||
                              before.find_first_not_of(" \t") == std::string_view::npos ||
                              before[before.find_first_not_of(" \t")] == '#';
    if (blank && gap.find('\n') != std::string::npos && !beforeDirective && !afterContinuation && !afterComment &&
        next < source.size())
        return writeRaw(" ");
    write(gap);
}

// The setting written between two tokens, or one blank where the setting is
// empty and the tokens would run together.
void ExprWalk::writeGap(const std::string& setting, std::string_view leftText, const Trn::Token& right)
{
    if (setting.empty() && wouldFuse(leftText, right.text()))
        writeRaw(" ");
    else
        writeRaw(setting);
}

void ExprWalk::emitPair()
{
    emitComments();
    const std::int32_t l = leftType();
    const std::int32_t r = rightType();
    // 1. "= -b", "( *p", "return &x": the right token is a unary operator.
    if (isUnaryOpType(r) && (isAssignType(l) || forcesUnaryAfter(l))) {
        if (isOpType(l))
            afterOp(left(), right());
        advance();
        return emitUnary();
    }
    // 2. "int *p", "T &r" in a type: the symbol belongs to the declarator.
    if (m_f.typeIdMode() && isPtrType(r) &&
        (isBuiltinType(l) || isOpType(l) || l == Cpp::IDENTIFIER || l == Cpp::COMMA || l == Cpp::GREATER_THAN))
        return emitPointer();
    // 3. "a b", "x ;": no operator on either side.
    if (emitPairWithoutOperator(l, r))
        return;
    // 4. "a + b": the blanks in front of the operator.
    if (isOpType(r)) {
        beforeOp(left(), right());
        emitComments();
        advance();
    }
    // 5. ... and behind it.
    if (hasRight())
        afterOp(left(), right());
    else
        write(rest());
}

bool ExprWalk::emitPairWithoutOperator(std::int32_t l, std::int32_t r)
{
    if (isOpType(r) || (isOpType(l) && l != Cpp::GREATER_THAN))
        return false;
    // "a [i]" with WS_BEFORE_LBRACKET "": "a[i]".
    if (hasRight() && m_gaps.beforeBracket.isSet() && r == Cpp::LBRACKET &&
        (l == Cpp::IDENTIFIER || l == Cpp::DELETE_KEY || l == Cpp::RBRACKET)) {
        write(Varnel::trimRight(readUpTo(right().start())));
        writeRaw(m_gaps.beforeBracket.text());
        return true;
    }
    if (!hasRight())
        write(rest());
    else
        copyUpTo(right().start());
    return true;
}

void ExprWalk::beforeOp(const Trn::Token& left, const Trn::Token& op)
{
    TW_REQUIRE(isOpType(op.type()) || (op.type() == Cpp::COMMA));
    copyThrough(left.end());
    // Not set: "a  +b" keeps its blanks.
    if (!m_gaps.op.isSet()) {
        writeRaw(readUpTo(op.start()));
        return;
    }
    // "i ++ + j": the gaps at "++" and "--" are never touched.
    if (isIncDecType(op.type()) || isIncDecType(left.type())) {
        copyUpTo(op.start());
        return;
    }
    const std::string gap(Varnel::trimRight(readUpTo(op.start())));
    write(gap);
    writeGap(m_gaps.op.text(), gap.empty() ? std::string_view(left.text()) : std::string_view(gap), op);
}

void ExprWalk::afterOp(const Trn::Token& op, const Trn::Token& right)
{
    TW_REQUIRE(isOpType(op.type()) || (op.type() == Cpp::COMMA) || forcesUnaryAfter(op.type()));
    const bool rightExists = right.type() != Cpp::END_OF_FILE;
    // Not set: "a+  b" keeps its blanks.
    if (!m_gaps.op.isSet()) {
        writeRaw(rightExists ? readUpTo(right.start()) : rest());
        return;
    }
    if (isIncDecType(op.type()) || isIncDecType(right.type())) {
        if (rightExists)
            copyUpTo(right.start());
        return;
    }
    write(trimmed(readThrough(op.end())));
    // "+ // c" and "+ /* c */": the gap in front of a comment stays as it is.
    if (isCommentOrDirective(right.type())) {
        copyUpTo(right.start());
        return;
    }
    const std::string gap = rightExists ? std::string(Varnel::trimLeft(readUpTo(right.start()))) : std::string();
    if (gap.empty() && rightExists)
        writeGap(m_gaps.op.text(), op.text(), right);
    else
        writeRaw(m_gaps.op.text());
    // "a=-b" must not read as the old compound "=-".
    if (m_gaps.op.text().empty() && op.type() == Cpp::EQUALS && isOpType(right.type()))
        writeRaw(" ");
    write(gap);
}

void ExprWalk::emitUnary()
{
    const TokenIterator& it = m_it;
    TW_REQUIRE(isUnaryOpType(it.left().type()));
    if (!hasRight())
        return copyThrough(left().end());
    // Not set: "- x" stays, operand included.
    if (!m_gaps.unary.isSet())
        return copyThrough(right().end());
    copyThrough(left().end());
    const std::string gap(Varnel::trimLeft(readUpTo(right().start())));
    write(gap);
    if (gap.empty())
        writeGap(m_gaps.unary.text(), left().text(), right());
    else
        writeRaw(m_gaps.unary.text());
}

void ExprWalk::joinStrings()
{
    const Trn::Token left = m_it.left();
    const Trn::Token right = m_it.right();
    TW_REQUIRE(left.type() == Cpp::STRING_LITERAL && right.type() == Cpp::STRING_LITERAL);
    if (!m_f.lineWrap())
        return copyUpTo(right.start());
    // "\"a\"\n\"b\"" with wrapping on: one line, one blank; the wrapper
    // breaks it again where the margin asks.
    copyThrough(left.end());
    const std::string gap = readUpTo(right.start());
    writeRaw(" ");
    write(Varnel::trimLeft(gap));
}

void ExprWalk::joinStringsAcrossComments()
{
    // "\"a\" /* c */\n\"b\"" with wrapping on: the comment stays behind the
    // blank; a text other than a literal behind the comments stays as it is.
    copyThrough(left().end());
    std::string gap;
    while (rightType() == Cpp::BLOCK_COMMENT && right().start().line == right().end().line) {
        gap += readThrough(right().end());
        advance();
    }
    if (rightType() != Cpp::STRING_LITERAL) {
        write(gap);
        return;
    }
    gap += readUpTo(right().start());
    writeRaw(" ");
    write(Varnel::trimLeft(gap));
}

} // namespace Kempt::detail
