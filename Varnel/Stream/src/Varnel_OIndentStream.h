// The stream every printing pass writes through: an output document stream
// whose lines start with an indent string. A pass writes blanks, newlines and
// text; the stream converts tabs, writes line endings, replaces or keeps each
// line's leading white space, and tells the column it has reached.
//
// Protocol:
//   Varnel::OIndentStream out(result, convertWs, tabSize, 1, 0, lineEnding);
//   {
//       Varnel::KeepLeadingSpaceGuard keep(out, false);
//       Varnel::IndentGuard indent(out, "    ");
//       out << text;              // every line starts with four blanks
//       out.writeLiteral("\n  "); // exactly these characters, no indent rule
//   }                             // indent and flag are back
//   out.flush();                  // held blanks (tab mode 2) are written
// The indent in force when a line's first character arrives is the one that
// line gets. Set indent and flag through the guards, so they are restored on
// every way out of a scope.
#ifndef VARNEL_OINDENTSTREAM_H
#define VARNEL_OINDENTSTREAM_H

#include "Varnel_OIndentBuf.h"

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

namespace Varnel {

struct StreamState;

class OIndentStream : public std::ostream {
public:
    // Tab mode 0..2 (checked); values below the minimum (tab size 1, first
    // line 1, first column 0) are raised to it.
    OIndentStream(std::ostream& target, std::int32_t tabMode, std::int32_t tabSize, std::int32_t firstLine = 1,
                  std::int32_t firstCol = 0, std::int32_t lineEnding = LineBuf::NATIVE);
    // A stream on `target` that continues where the stream of `state` stands:
    // same indent, flag, tab mode, tab size and line ending, starting at the
    // state's column.
    OIndentStream(std::ostream& target, const StreamState& state);
    OIndentStream(const OIndentStream&) = delete;
    OIndentStream& operator=(const OIndentStream&) = delete;

    std::int32_t line() const { return m_buf.line(); }
    std::int32_t col() const { return m_buf.col(); }
    std::int32_t tabMode() const { return m_buf.tabMode(); }
    std::int32_t tabSize() const { return m_buf.tabSize(); }
    std::int32_t lineEnding() const { return m_buf.lineEnding(); }
    void setTabMode(std::int32_t tabMode) { m_buf.setTabMode(tabMode); }
    void setTabSize(std::int32_t tabSize) { m_buf.setTabSize(tabSize); }
    void setLineEnding(std::int32_t lineEnding) { m_buf.setLineEnding(lineEnding); }

    const std::string& indent() const { return m_buf.indent(); }
    void setIndent(std::string indent) { m_buf.setIndent(std::move(indent)); }
    bool keepLeadingSpace() const { return m_buf.keepLeadingSpace(); }
    void setKeepLeadingSpace(bool keep) { m_buf.setKeepLeadingSpace(keep); }

    // Writes the text with the indent rule suspended: its white space comes
    // out exactly (tab mode and line ending still apply). A set white-space
    // setting is written this way.
    OIndentStream& writeLiteral(std::string_view text);

    OIndentBuf& buf() { return m_buf; }
    const OIndentBuf& buf() const { return m_buf; }

private:
    OIndentBuf m_buf;
};

} // namespace Varnel

#endif
