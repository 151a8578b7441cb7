// The token check of a formatted text, with the brace rewrite where one ran.
#include "Kempt_FormatCheck.h"

#include "Kempt_CppRewriter.h"
#include "Kempt_FormatEngine.h"

namespace Kempt {

TokenComparison compareFormatted(const FormatSettings& settings, std::string_view before, std::string_view after)
{
    if (!CppRewriter::anyStyleSet(settings))
        return compareTokens(before, after);
    BraceRewrite rewrite;
    FormatMessageList messages;
    if (FormatEngine().rewriteBraces(settings, before, rewrite, messages) != 0)
        return compareTokens(before, after);
    return compareTokens(before, rewrite, after);
}

} // namespace Kempt
