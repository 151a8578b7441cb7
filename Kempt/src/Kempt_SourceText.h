// The text a pass copies from, addressed by the positions of the lexer and the
// tree, and a forward cursor over it. Every printing pass reads its input this
// way: it copies the source up to or through a node's position, or reads a
// gap between two positions into a string to look at it first.
//
// Positions follow the lexer: lines count from 1, a character's column is the
// column reached after reading it (the first character of a line has column
// 1, a tab counts 1), and the newline that ends line L stands at (L + 1, 0).
//
// Invariants:
//  1. The text is kept with every line break as "\n": CR LF and a lone CR
//     become "\n", as the lexer's input sees them, so that positions agree.
//  2. A cursor only moves forward. Reading or copying to a position at or
//     before the cursor gives nothing; reading past the end stops at the end.
//
// Protocol:
//   Kempt::SourceText text(source);
//   Kempt::SourceReader in(text);            // at the start of the text
//   in.copyUpTo(node.begin(), out);           // the gap before the node
//   std::string head = in.readThrough(name.end());
//   ... out << in.rest();
#ifndef KEMPT_SOURCETEXT_H
#define KEMPT_SOURCETEXT_H

#include "Trn_Position.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Varnel {
class OIndentStream;
}

namespace Kempt {

// Writes `text` through the indent rule of `out`, except where a line
// continues a string or character literal ("\"a\\\n   b\""): such a line
// starts exactly as it stands, for its blanks are part of the literal.
// `text` must hold whole literals.
void writeKeepingLiterals(Varnel::OIndentStream& out, std::string_view text);

// A text with its line breaks made "\n" and an index of where lines start.
class SourceText {
public:
    explicit SourceText(std::string_view text);

    const std::string& text() const { return m_text; }
    std::size_t size() const { return m_text.size(); }

    // The offset of the character at `p`; the size of the text for a
    // position behind the end; npos for the null position or one before the
    // start.
    std::size_t offsetOf(const Trn::Position& p) const;

    // The position of the character at `offset` (which must be in the text).
    Trn::Position positionOf(std::size_t offset) const;

    // The offset at which the line holding `offset` starts.
    std::size_t lineStartOf(std::size_t offset) const;

    // The text between two positions: from the character at `from` up to
    // and including the character at `through`.
    std::string slice(const Trn::Position& from, const Trn::Position& through) const;
    // The text from the character at `from` up to, not including, the
    // character at `upTo`.
    std::string between(const Trn::Position& from, const Trn::Position& upTo) const;

private:
    std::string m_text;
    std::vector<std::size_t> m_lineStarts; // m_lineStarts[L - 1]: offset of line L
};

// CR LF and lone CR made "\n".
std::string normaliseLineBreaks(std::string_view text);

// A forward cursor over a SourceText. It does not own the text.
class SourceReader {
public:
    explicit SourceReader(const SourceText& text) : m_text(text) {}

    // The offset of the next character to read.
    std::size_t offset() const { return m_offset; }
    bool atEnd() const { return m_offset >= m_text.size(); }

    // The text from the cursor through the character at `p`; the cursor
    // moves behind it.
    std::string readThrough(const Trn::Position& p);
    // The same, without the character at `p`.
    std::string readUpTo(const Trn::Position& p);
    // Everything from the cursor to the end.
    std::string rest();
    // Reads and writes to `out`, through its indent rule
    // (writeKeepingLiterals).
    void copyThrough(const Trn::Position& p, Varnel::OIndentStream& out);
    void copyUpTo(const Trn::Position& p, Varnel::OIndentStream& out);

    // The characters of the current line before the cursor.
    std::string_view lineBeforeCursor() const;
    // The width of the line in front of the character at `p`, tabs expanded
    // with `tabSize`: the visual column (from 0) at which that character
    // stands in the source.
    std::int32_t sourceColumnOf(const Trn::Position& p, std::int32_t tabSize) const;

    const SourceText& source() const { return m_text; }

private:
    std::string take(std::size_t end);

    const SourceText& m_text;
    std::size_t m_offset = 0;
};

} // namespace Kempt

#endif
