// The indenting output buffer: an OTextDocBuf that writes an indent string in
// front of the first character of every line. Unless it is told to keep a
// line's leading white space, it drops that white space first, so the indent
// string replaces the line's old indentation. A blank line gets no indent.
//
// Protocol: set the indent with setIndent() (usually through an IndentGuard)
// before the first character of a line is written; it is read when that
// character arrives. putLiteral() bypasses the indent entirely.
#ifndef VARNEL_OINDENTBUF_H
#define VARNEL_OINDENTBUF_H

#include "Varnel_OTextDocBuf.h"

#include <string>
#include <utility>

namespace Varnel {

class OIndentBuf : public OTextDocBuf {
public:
    using OTextDocBuf::OTextDocBuf;

    const std::string& indent() const { return m_indent; }
    void setIndent(std::string indent) { m_indent = std::move(indent); }
    bool keepLeadingSpace() const { return m_keepLeadingSpace; }
    void setKeepLeadingSpace(bool keep) { m_keepLeadingSpace = keep; }

    // Writes one character with the tab policy but without the indent rule:
    // at column 0 nothing is dropped and no indent is added.
    int_type putLiteral(char c) { return OTextDocBuf::overflow(traits_type::to_int_type(c)); }

protected:
    int_type overflow(int_type c) override;

private:
    std::string m_indent;
    bool m_keepLeadingSpace = false;
};

} // namespace Varnel

#endif
