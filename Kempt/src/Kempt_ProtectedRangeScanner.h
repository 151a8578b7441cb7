// Finds the regions of a text that the user has fenced off from formatting,
// after the text has parsed. It lexes the text a second time, independent of
// the parse, and matches comment tokens against the comment markers
// ("TW-FORMAT-OFF" ... "TW-FORMAT-ON") and identifiers against the macro
// markers ("BEGIN_MESSAGE_MAP" ... "END_MESSAGE_MAP").
//
// Invariants:
//  1. A begin marker is a prefix test on the comment's text without its
//     delimiters, trimmed: "TW-FORMAT-OFF for now" opens a region too.
//  2. Comment and macro regions nest on two stacks; a range comes into being
//     only when both stacks are empty again, from the outermost begin to the
//     last end.
//  3. A begin marker that is never closed yields no range: the region is
//     formatted.
#ifndef KEMPT_PROTECTEDRANGESCANNER_H
#define KEMPT_PROTECTEDRANGESCANNER_H

#include "Kempt_FormatSettings.h"
#include "Trn_Position.h"

#include <string_view>

namespace Cpp {
class RootNode;
}

namespace Kempt {

class ProtectedRangeScanner {
public:
    explicit ProtectedRangeScanner(MarkerList commentMarkers);

    // The fenced ranges of a text, in text order.
    Trn::RangeList findRanges(std::string_view text) const;

    // Finds the ranges of `text` and folds the nodes of `root`, the tree
    // parsed from it, that lie in them: each run of them becomes one
    // protected comment, which every pass copies as it stands. Returns the
    // ranges.
    Trn::RangeList scan(std::string_view text, Cpp::RootNode& root) const;

private:
    MarkerList m_commentMarkers;
};

} // namespace Kempt

#endif
