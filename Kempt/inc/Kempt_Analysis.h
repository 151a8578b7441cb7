// The analysis that precedes every pass, for tools that want to see the tree
// a pass walks: the text is parsed, and the regions fenced by comment or macro
// markers are folded into protected comments. Used by the command line's tree
// dump; the format driver runs the same steps on its own streams.
#ifndef KEMPT_ANALYSIS_H
#define KEMPT_ANALYSIS_H

#include "Kempt_FormatMessage.h"
#include "Kempt_FormatSettings.h"

#include <string_view>

namespace Cpp {
class RootNode;
}

namespace Kempt {

// Parses `text` into `root`. The parser's messages, less those of code 2 (a
// head taken for a function-like macro, never an error), are appended to
// `messages`. Without any, the fenced regions of `markers` and of the macro
// markers are folded, and the result is true.
bool analyseText(std::string_view text, const MarkerList& markers, Cpp::RootNode& root,
                 FormatMessageList& messages);

} // namespace Kempt

#endif
