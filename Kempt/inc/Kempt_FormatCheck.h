// The check that a formatted text holds exactly the tokens of its input, as
// the file job makes it before writing and the tests and tools make it after
// every run. Under a scheme with a brace style set, the braces the brace
// rewriter adds or removes are the one difference allowed, and only those:
// the input is rewritten again and both steps are compared
// (compareTokens with a BraceRewrite).
//
//   Kempt::TokenComparison c = Kempt::compareFormatted(settings, input, output);
#ifndef KEMPT_FORMATCHECK_H
#define KEMPT_FORMATCHECK_H

#include "Kempt_FormatSettings.h"
#include "Kempt_TokenComparison.h"

#include <string_view>

namespace Kempt {

// Compares `before` with `after`, the text that formatting `before` under
// `settings` gave. Should the input not rewrite (it always does when it
// formatted), no brace is excused.
TokenComparison compareFormatted(const FormatSettings& settings, std::string_view before, std::string_view after);

} // namespace Kempt

#endif
