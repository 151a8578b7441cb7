// One walk of the expression formatter over one text: the token pairs, the
// source cursor, the output stream, and the decisions taken pair by pair.
// CppExprFormatter::format() runs one walk per call, and the walk runs a
// fresh one, recursively, for the text inside brackets that it has matched.
//
// Protocol: construct, run() once, take the string it returns.
//
// Invariants:
//  1. The iterator's left token is the one being decided; a decision leaves
//     the iterator so that the main loop's advance() makes the token it has
//     not yet decided the next left one.
//  2. The cursor trails the iterator: text up to a token is copied or read
//     only when a decision is taken about the gap in front of it, and what is
//     read is written, white space aside.
//  3. Source text goes through the output's indent rule (write); settings and
//     the results of inner walks are written literally (writeRaw).
#ifndef KEMPT_CPPEXPRWALK_H
#define KEMPT_CPPEXPRWALK_H

#include "Kempt_CppExprFormatter.h"
#include "Kempt_ScratchStream.h"
#include "Kempt_SourceText.h"
#include "Kempt_TokenIterator.h"
#include "Trn_Token.h"

#include <string>

namespace Kempt::detail {

// Whether two tokens written with nothing between them would read as other
// tokens: "-" "-x" as "--x", "&" "&" as "&&", "int" "x" as "intx", "~" "x"
// as "~x".
bool wouldFuse(std::string_view left, std::string_view right);
// The same for two single characters: "-" "-", "/" "*", "<" "<".
bool wouldFuseChars(char left, char right);

class ExprWalk {
public:
    ExprWalk(CppExprFormatter& formatter, const std::string& text, const Varnel::StreamState& state);
    ExprWalk(const ExprWalk&) = delete;
    ExprWalk& operator=(const ExprWalk&) = delete;

    std::string run();

    // Runs a walk over `text` for a stream in `state`; inner walks below a
    // fixed depth of brackets copy their text as it stands.
    static std::string walk(CppExprFormatter& formatter, const std::string& text, const Varnel::StreamState& state);

private:
    // The table of decisions, by the left token (Kempt_CppExprFormatter.cpp).
    void dispatch();
    bool dispatchPunctuation(std::int32_t l, std::int32_t r);
    void emitComments();
    void emitDirectiveToken(const Trn::Token& directive);

    // Operators and plain pairs (Kempt_CppExprFormatter_Operators.cpp).
    void emitPair();
    bool emitPairWithoutOperator(std::int32_t l, std::int32_t r);
    void beforeOp(const Trn::Token& left, const Trn::Token& op);
    void afterOp(const Trn::Token& op, const Trn::Token& right);
    void emitUnary();
    void joinStrings();
    void joinStringsAcrossComments();
    bool forcesUnaryAfter(std::int32_t type) const;
    void writeGap(const std::string& setting, std::string_view leftText, const Trn::Token& right);

    // Brackets (Kempt_CppExprFormatter_Brackets.cpp).
    void emitCall();
    void emitGroup(std::int32_t left, std::int32_t right, const WsSetting& afterOpen, const WsSetting& beforeClose,
                   const WsSetting& beforeComma, const WsSetting& between);
    void emitMatchedGroup(const WsSetting& beforeClose, const WsSetting& beforeComma, const WsSetting& between);
    void afterCloseParen();
    void emitNamedCast();
    void emitEquals();
    void emitBraceContent();

    // Angle brackets and declarators (Kempt_CppExprFormatter_Declarators.cpp).
    void emitAngle();
    void emitTemplateArgs(const Trn::Token& open, const Trn::Token& last);
    void emitPointer();
    void writePointer(const std::string& head, const std::string& before, const std::string& symbols, const std::string& after,
                      std::int32_t anchor, const WsSetting& anchorGap);

    // The cursor, the stream and the iterator.
    void copyThrough(const Trn::Position& p) { m_in.copyThrough(p, out()); }
    // Copies up to `p`. With line wrapping on, a gap of blanks that breaks
    // the line becomes one blank: the wrap pass breaks the line again where
    // the margin asks, and a text it has wrapped reads the same a second time.
    void copyUpTo(const Trn::Position& p);
    std::string readThrough(const Trn::Position& p) { return m_in.readThrough(p); }
    std::string readUpTo(const Trn::Position& p) { return m_in.readUpTo(p); }
    std::string rest() { return m_in.rest(); }
    void write(std::string_view text) { writeKeepingLiterals(out(), text); }
    void writeRaw(std::string_view text) { out().writeLiteral(text); }
    Varnel::OIndentStream& out() { return m_scratch.out(); }
    Varnel::StreamState state() const;
    std::string formatInner(const std::string& text);

    Trn::Token left() const { return m_it.left(); }
    Trn::Token right() const { return m_it.right(); }
    std::int32_t leftType() const { return m_it.left().type(); }
    std::int32_t rightType() const { return m_it.right().type(); }
    bool hasRight() const { return m_it.more(); }
    void advance() { m_it.advance(); }

    CppExprFormatter& m_f;
    const CppExprFormatter::Gaps& m_gaps;
    SourceText m_source;
    SourceReader m_in;
    TokenIterator m_it;
    ScratchStream m_scratch;
};

} // namespace Kempt::detail

#endif
