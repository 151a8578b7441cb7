// Matching region markers against the tokens of a text.
#include "Kempt_ProtectedRangeScanner.h"

#include "Cpp_CommentText.h"
#include "Cpp_Lexer.h"
#include "Cpp_NodeRangeRemover.h"
#include "Cpp_RootNode.h"
#include "Varnel_IMemBuf.h"
#include "Varnel_Text.h"

#include <vector>

namespace Kempt {

namespace {

// The walk over one text: two stacks of expected end markers and the range
// under construction.
class RangeFinder {
public:
    RangeFinder(const MarkerList& commentMarkers, Trn::RangeList& ranges)
        : m_commentMarkers(commentMarkers), m_ranges(ranges)
    {
    }

    void comment(const Trn::Token& token)
    {
        std::string text = token.text();
        Cpp::stripCommentDelimiters(text);
        step(Varnel::trim(text), token, m_commentMarkers, m_commentStack);
    }

    void identifier(const Trn::Token& token)
    {
        step(Varnel::trim(token.text()), token, macroRegionMarkers(), m_macroStack);
    }

private:
    bool bothEmpty() const { return m_commentStack.empty() && m_macroStack.empty(); }

    void step(std::string_view text, const Trn::Token& token, const MarkerList& markers,
              std::vector<std::string>& stack)
    {
        for (const auto& [begin, end] : markers) {
            if (!begin.empty() && text.starts_with(begin)) {
                if (bothEmpty())
                    m_range.first = token.start();
                stack.push_back(end);
                return;
            }
        }
        if (stack.empty() || !text.starts_with(stack.back()))
            return;
        stack.pop_back();
        if (bothEmpty()) {
            m_range.second = token.end();
            m_ranges.push_back(m_range);
            m_range = Trn::Range();
        }
    }

    const MarkerList& m_commentMarkers;
    Trn::RangeList& m_ranges;
    std::vector<std::string> m_commentStack;
    std::vector<std::string> m_macroStack;
    Trn::Range m_range;
};

} // namespace

ProtectedRangeScanner::ProtectedRangeScanner(MarkerList commentMarkers)
    : m_commentMarkers(std::move(commentMarkers))
{
    macroRegionMarkers(); // the macro table is built with the first scanner
}

namespace {

// A region needs a begin marker inside some token, so a text in which no begin
// marker occurs at all has no region, and need not be lexed.
bool mayHoldMarker(std::string_view text, const MarkerList& commentMarkers)
{
    for (const MarkerList* markers : {&commentMarkers, &macroRegionMarkers()})
        for (const auto& pair : *markers)
            if (!pair.first.empty() && text.find(pair.first) != std::string_view::npos)
                return true;
    return false;
}

} // namespace

Trn::RangeList ProtectedRangeScanner::findRanges(std::string_view text) const
{
    Trn::RangeList ranges;
    if (!mayHoldMarker(text, m_commentMarkers))
        return ranges;
    RangeFinder finder(m_commentMarkers, ranges);
    Varnel::IMemStream in(text);
    Cpp::Lexer lexer(in);
    for (Trn::Token t = lexer.next(); t.type() != Cpp::END_OF_FILE; t = lexer.next()) {
        if (t.type() == Cpp::LINE_COMMENT || t.type() == Cpp::BLOCK_COMMENT)
            finder.comment(t);
        else if (t.type() == Cpp::IDENTIFIER)
            finder.identifier(t);
    }
    return ranges;
}

Trn::RangeList ProtectedRangeScanner::scan(std::string_view text, Cpp::RootNode& root) const
{
    Trn::RangeList ranges = findRanges(text);
    if (!ranges.empty()) {
        Cpp::NodeRangeRemover remover(ranges);
        root.accept(remover);
    }
    return ranges;
}

} // namespace Kempt
