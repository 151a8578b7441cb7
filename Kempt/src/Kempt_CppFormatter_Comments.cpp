// Comments and directives that are nodes of the tree. Those in gaps travel
// with their gap. A "//" comment is copied with what stands in front of it, so
// that a trailing comment keeps its distance from the code; a block comment
// over several lines moves as a whole.
#include "Kempt_CppFormatter.h"

#include "Cpp_Nodes.h"

namespace Kempt {

namespace {

// Sets a stream's tab mode for the life of the guard.
class TabModeGuard {
public:
    TabModeGuard(Varnel::OIndentStream& out, std::int32_t mode) : m_out(out), m_saved(out.tabMode())
    {
        m_out.setTabMode(mode);
    }
    ~TabModeGuard() { m_out.setTabMode(m_saved); }
    TabModeGuard(const TabModeGuard&) = delete;
    TabModeGuard& operator=(const TabModeGuard&) = delete;

private:
    Varnel::OIndentStream& m_out;
    std::int32_t m_saved;
};

} // namespace

void CppFormatter::emitComment(Cpp::CommentNode& node)
{
    // "x;  // c": the gap in front is copied, the comment keeps its column.
    if (node.isLineComment())
        return copyThrough(node.end());
    // A block comment: its later lines keep their shape relative to its
    // first character.
    if (!node.isProtected())
        return m_exprFormatter.reindentToken(node.begin(), node.end(), m_in, m_out);
    // A protected region the same way, with its tabs as they are.
    TabModeGuard tabs(m_out, Varnel::OTextDocBuf::KEEP_TABS);
    m_exprFormatter.reindentToken(node.begin(), node.end(), m_in, m_out);
}

void CppFormatter::emitPreprocDirective(Cpp::PreprocDirectiveNode& node)
{
    // ALIGN_PPD_LEFT_MOST and continuation lines: ExprFormatterBase.
    m_exprFormatter.emitDirective(node.begin(), node.end(), m_in, m_out);
}

} // namespace Kempt
