// Scoped guards over an indenting stream: each sets one thing at construction
// and puts the old value back at destruction, also when an exception passes.
//
//   {
//       Varnel::IndentGuard indent(out, "    "); // lines begun here get four blanks
//       ...
//   }                                            // the old indent is back
#ifndef VARNEL_INDENTGUARD_H
#define VARNEL_INDENTGUARD_H

#include "Varnel_OIndentStream.h"

#include <string>
#include <utility>

namespace Varnel {

// Sets a stream's indent string for the life of the guard.
class IndentGuard {
public:
    IndentGuard(OIndentStream& stream, std::string indent) : m_stream(stream), m_saved(stream.indent())
    {
        m_stream.setIndent(std::move(indent));
    }
    ~IndentGuard() { m_stream.setIndent(std::move(m_saved)); }
    IndentGuard(const IndentGuard&) = delete;
    IndentGuard& operator=(const IndentGuard&) = delete;

private:
    OIndentStream& m_stream;
    std::string m_saved;
};

// Sets a stream's keep-leading-space flag for the life of the guard.
class KeepLeadingSpaceGuard {
public:
    KeepLeadingSpaceGuard(OIndentStream& stream, bool keep) : m_stream(stream), m_saved(stream.keepLeadingSpace())
    {
        m_stream.setKeepLeadingSpace(keep);
    }
    ~KeepLeadingSpaceGuard() { m_stream.setKeepLeadingSpace(m_saved); }
    KeepLeadingSpaceGuard(const KeepLeadingSpaceGuard&) = delete;
    KeepLeadingSpaceGuard& operator=(const KeepLeadingSpaceGuard&) = delete;

private:
    OIndentStream& m_stream;
    bool m_saved;
};

} // namespace Varnel

#endif
