// What the brace pass did to a text: the braces it removed and the braces it
// added. The verification before a file is written uses it to accept exactly
// these braces as the difference between input and output, and nothing else.
#ifndef KEMPT_BRACEEDITS_H
#define KEMPT_BRACEEDITS_H

#include "Trn_Position.h"

#include <string>
#include <vector>

namespace Kempt {

struct BraceEdits {
    // Positions (line from 1, column from 1) of the "{" and "}" taken out,
    // in the text the pass read, in text order.
    std::vector<Trn::Position> removed;
    // Positions of the "{" and "}" put in, in the text the pass wrote, in
    // text order.
    std::vector<Trn::Position> added;

    bool empty() const { return removed.empty() && added.empty(); }
};

// The text the brace pass wrote and what it changed to get there.
struct BraceRewrite {
    std::string text;
    BraceEdits edits;
};

} // namespace Kempt

#endif
