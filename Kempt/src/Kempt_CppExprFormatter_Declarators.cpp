// The expression walk's decisions for angle brackets and declarators: telling
// a template argument list from a comparison by balance alone, and placing
// "*" and "&" by their anchors.
#include "Cpp_TokenType.h"
#include "Kempt_ColumnArithmetic.h"
#include "Kempt_CppExprWalk.h"
#include "Varnel_Contract.h"
#include "Varnel_Text.h"

#include <optional>

namespace Kempt::detail {

namespace {

bool isBlank(std::string_view text)
{
    return Varnel::trim(text).empty();
}

bool sameToken(const Trn::Token& a, const Trn::Token& b)
{
    return a.type() == b.type() && a.start() == b.start();
}

} // namespace

void ExprWalk::emitAngle()
{
    constexpr std::int32_t LTYPE = Cpp::LESS_THAN;
    const std::int32_t lType = leftType();
    const std::int32_t rType = rightType();
    TW_REQUIRE((lType == Cpp::IDENTIFIER || lType == Cpp::CLASS_KEY || lType == Cpp::STRUCT_KEY ||
                lType == Cpp::TYPENAME_KEY || lType == LTYPE) &&
               (lType == LTYPE || rType == LTYPE));
    // 1. "<" at the very end.
    if (lType == LTYPE && !hasRight())
        return copyThrough(left().end());
    // 2. The name in front, if any, and the "<".
    std::optional<Trn::Token> name;
    if (lType != LTYPE) {
        name = left();
        advance();
    }
    const Trn::Token open = left();
    // 3. Balance: "<" opens, ">" closes; ">>" and ">=" close nothing. The
    //    token behind "&&" or "||" is not looked at.
    std::optional<Trn::Token> first;
    if (hasRight())
        first = right();
    int depth = 1;
    while (hasRight()) {
        const std::int32_t t = rightType();
        if (t == LTYPE)
            ++depth;
        else if (t == Cpp::GREATER_THAN && --depth == 0)
            break;
        advance();
        if ((t == Cpp::LOGICAL_AND || t == Cpp::LOGICAL_OR) && hasRight())
            advance();
    }
    // 4. "a < b" with no ">" to close it: a comparison.
    if (depth != 0) {
        if (name)
            beforeOp(*name, open);
        if (first)
            afterOp(open, *first);
        return writeRaw(formatInner(hasRight() ? readThrough(right().end()) : rest()));
    }
    // 5. "vector<int>": the brackets match.
    emitTemplateArgs(open, left());
    // 6. What follows the ">": a call, a declarator, or anything else.
    advance();
    if (rightType() == Cpp::LPAREN)
        return emitCall();
    if (isPtrType(rightType()))
        return emitPointer();
    dispatch();
}

// The inside of matched angle brackets, `last` being the last token inside
// (or the "<" itself), and the ">" that closes them.
void ExprWalk::emitTemplateArgs(const Trn::Token& open, const Trn::Token& last)
{
    // a. "< >": no inner blanks.
    if (sameToken(last, open)) {
        write(Varnel::trimRight(readThrough(last.end())));
        write(Varnel::trimLeft(readUpTo(right().start())));
        return copyThrough(right().end());
    }
    // b. The arguments, as types when their separation is set.
    copyThrough(open.end());
    std::string text = readThrough(last.end());
    if (m_gaps.betweenTemplateArgs.isSet()) {
        CppExprFormatter::FlagGuard<bool> typeId(m_f.m_typeIdMode, true);
        CppExprFormatter::FlagGuard<WsSetting> far(m_f.m_farGap, noWhiteSpace());
        text = formatInner(text);
        text = m_f.separateList(text, Cpp::COMMA, noWhiteSpace(), m_gaps.betweenTemplateArgs, state());
    } else {
        text = formatInner(text);
    }
    // c. "< int>" with WS_AFTER_TP_OPEN_BRACKET "": "<int>".
    if (m_gaps.afterAngle.isSet()) {
        writeRaw(m_gaps.afterAngle.text());
        writeRaw(Varnel::trimLeft(text));
    } else {
        writeRaw(text);
    }
    // d. "X<Y<int> >": two closing brackets never fuse into ">>".
    if (m_gaps.beforeCloseAngle.isSet()) {
        const std::string gap(Varnel::trimLeft(readUpTo(right().start())));
        write(gap);
        if (last.type() == Cpp::GREATER_THAN && m_gaps.beforeCloseAngle.text().empty() && gap.empty())
            writeRaw(" ");
        else
            writeRaw(m_gaps.beforeCloseAngle.text());
    }
    // e.
    copyThrough(right().end());
}

void ExprWalk::emitPointer()
{
    const TokenIterator& it = m_it;
    TW_REQUIRE(isPtrType(it.right().type()));
    const Trn::Token symbol = right();
    const bool asterisk = symbol.type() == Cpp::ASTERISK;
    TW_CHECK(asterisk || symbol.type() == Cpp::AMPERSAND);
    const std::int32_t anchor = asterisk ? m_f.asteriskAnchor() : m_f.ampersandAnchor();
    const WsSetting& anchorGap = asterisk ? m_gaps.asteriskGap : m_gaps.ampersandGap;
    // 1. The type, the gap, the symbol.
    const std::string head = readThrough(left().end());
    write(head);
    const std::string before = readUpTo(symbol.start());
    std::string symbols = readThrough(symbol.end());
    // 2. "* * &" closes up when an anchor is set; "& &" keeps a blank, or it
    //    would read as "&&".
    advance();
    while (hasRight() && isPtrType(rightType())) {
        std::string more = readThrough(right().end());
        if (anchor != -1) {
            const std::string closed(Varnel::trim(more));
            if (!wouldFuse(symbols, closed))
                more = closed;
        }
        symbols += more;
        advance();
    }
    // 3. The gap behind the symbols.
    const std::string after = hasRight() ? readUpTo(right().start()) : rest();
    // 4. "int *)", or no anchor: as it stands. So is a gap with more than blanks.
    if ((hasRight() && rightType() != Cpp::IDENTIFIER) || anchor == -1 || !isBlank(before) || !isBlank(after)) {
        write(before);
        write(symbols);
        return write(after);
    }
    writePointer(head.empty() ? left().text() : head, before, symbols, after, anchor, anchorGap);
}

// "int * p" by its anchor: 0 hugs the symbols to the type, 1 to the name.
void ExprWalk::writePointer(const std::string& head, const std::string& before, const std::string& symbols, const std::string& after,
                            std::int32_t anchor, const WsSetting& anchorGap)
{
    const WsSetting& far = m_f.farGap();
    const std::int32_t col = out().col();
    const std::int32_t tab = m_f.tabSize();
    const bool beforeIsNarrower = stringWidth(before, col, tab) < stringWidth(after, col, tab);
    const bool beforeIsWider = stringWidth(before, col, tab) > stringWidth(after, col, tab);
    // Without a far gap the far side keeps a gap of the source: the wider of
    // the two in front of a name, the one already there at the end.
    const bool nameFollows = hasRight();
    const std::string_view wider = beforeIsWider ? std::string_view(before) : std::string_view(after);
    const std::string_view farFallback = nameFollows ? wider : std::string_view(anchor == 0 ? after : before);
    std::string_view inFront;
    std::string_view behind;
    if (anchor == 0 && anchorGap.isSet()) {
        // "int*" + far gap + "p".
        inFront = anchorGap.text();
        behind = far.isSet() ? std::string_view(far.text()) : farFallback;
    } else if (anchor == 0) {
        // "int *p" and "int* p" both give "int* p"; "int * p" stays.
        inFront = beforeIsNarrower ? before : after;
        behind = beforeIsNarrower ? after : before;
    } else if (anchorGap.isSet()) {
        inFront = far.isSet() ? std::string_view(far.text()) : farFallback;
        behind = anchorGap.text();
        // "char*\nf()": with a line break in the far gap the gaps change places.
        if (far.isSet() && far.text().find('\n') != std::string::npos)
            std::swap(inFront, behind);
    } else {
        // "int* p" and "int *p" both give "int *p".
        inFront = beforeIsWider || !beforeIsNarrower ? before : after;
        behind = beforeIsWider || !beforeIsNarrower ? after : before;
    }
    // "a& &b" must not read as "a&&b".
    if (inFront.empty() && wouldFuse(head, symbols))
        writeRaw(" ");
    writeRaw(inFront);
    write(symbols);
    writeRaw(behind);
}

} // namespace Kempt::detail
