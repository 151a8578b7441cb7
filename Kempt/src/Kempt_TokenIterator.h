// Walks the tokens of one short text as pairs of neighbours, `left` and
// `right`. Every pass looks at the text between two tree positions this way:
// whether a gap holds a comment, how an expression is to be spaced. It lexes
// its own copy of the text and is cheap enough to be built for each gap.
//
// Invariants:
//  1. A fenced region, from a comment that begins with a begin marker to the
//     comment that begins with its end marker, comes out as one token of the
//     closing comment's type with empty text, from the start of the opening
//     comment to the end of the closing one. No caller sees the tokens inside.
//  2. Regions nest: only the end marker of the outermost begin closes one. A
//     region still open at the end of the text swallows the rest of it.
//  3. A `left` of type -1 means the walk has not started; `right` of type -1
//     means the text is used up.
//
// Protocol:
//   Kempt::TokenIterator it(gap);
//   for (it.advance(); it.more(); it.advance())
//       look(it.left(), it.right());
//   look(it.left());            // the last token, if there is one
// A text with one token has `left` at it and `right` at the end after the
// first advance(), so a caller that looks at every token looks at left() in
// the loop and once more behind it. The iterator cannot be copied or moved;
// build it on the stack for one gap. The text is copied; the marker list is
// not.
#ifndef KEMPT_TOKENITERATOR_H
#define KEMPT_TOKENITERATOR_H

#include "Cpp_Lexer.h"
#include "Kempt_FormatSettings.h"
#include "Trn_Token.h"
#include "Varnel_IMemBuf.h"

#include <cstdint>
#include <string>

namespace Kempt {

class TokenIterator {
public:
    // With the default comment markers of defaultRegionMarkers().
    explicit TokenIterator(const std::string& text);
    // With the caller's markers, usually FormatSettings::markers(). The list
    // is borrowed, not copied: it must outlive the iterator, so a temporary
    // list is refused.
    TokenIterator(const std::string& text, const MarkerList& markers);
    TokenIterator(const std::string& text, MarkerList&& markers) = delete;
    TokenIterator(const TokenIterator&) = delete;
    TokenIterator& operator=(const TokenIterator&) = delete;

    // Before the start: left takes the first token and right the second.
    // Afterwards: left takes right and right the next token, until right is
    // the end; from then on nothing changes.
    TokenIterator& advance();
    TokenIterator& operator++() { return advance(); }

    Trn::Token left() const { return m_left; }
    Trn::Token right() const { return m_right; }
    // True while `right` is not the end of the text.
    bool more() const { return m_right.type() != Cpp::END_OF_FILE; }

private:
    Trn::Token nextToken();

    const MarkerList& m_markers;
    Trn::Token m_left{Cpp::END_OF_FILE, {}, {}};
    Trn::Token m_right{Cpp::INVALID_TOKEN, {}, {}};
    std::string m_text;
    Varnel::IMemStream m_in;
    Cpp::Lexer m_lexer;
};

// Walks `it` forward from its right() token to the bracket that closes one
// already open, counting nesting of `left` and `right` bracket types (LPAREN
// and RPAREN, say). True when that bracket was reached; it is then right().
// Contract: "left != right".
bool skipToMatching(TokenIterator& it, std::int32_t left, std::int32_t right);

} // namespace Kempt

#endif
