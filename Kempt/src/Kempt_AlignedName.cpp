// The type in front of an aligned name: its split and its measure.
#include "Kempt_AlignedName.h"

#include "Kempt_ColumnArithmetic.h"
#include "Kempt_CppExprFormatter.h"
#include "Kempt_CppFormatterConfig.h"
#include "Kempt_WhiteSpaceJoins.h"
#include "Varnel_Text.h"

#include <algorithm>

namespace Kempt {

namespace {

// "unsigned\nint" gives "unsigned int"; a line continuation keeps its line.
void newlinesToBlanks(std::string& text)
{
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] == '\n' && (i == 0 || text[i - 1] != '\\'))
            text[i] = ' ';
}

bool isSymbolOrSpace(char c)
{
    return c == '*' || c == '&' || c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\v' || c == '\f';
}

} // namespace

std::string splitPointerSymbols(std::string& text, std::int32_t asteriskAnchor, std::int32_t ampersandAnchor)
{
    const bool split = (endsInAsterisk(text) && asteriskAnchor == 1) || (endsInAmpersand(text) && ampersandAnchor == 1);
    if (!split)
        return std::string();
    std::size_t at = text.size();
    while (at > 0 && isSymbolOrSpace(text[at - 1]))
        --at;
    std::string symbols = text.substr(at);
    text.resize(at);
    return trimLeadingWhiteSpace(symbols);
}

AlignedType alignedType(CppExprFormatter& expr, std::string gap, const Varnel::StreamState& state,
                        AlignedTypeFormat how)
{
    if (how != AlignedTypeFormat::TRIM_FIRST) {
        if (how == AlignedTypeFormat::FORMAT_FIRST)
            gap = expr.formatTypeId(gap, state, noWhiteSpace());
        trimTrailingWhiteSpace(gap);
        newlinesToBlanks(gap);
    } else {
        newlinesToBlanks(gap);
        trimTrailingWhiteSpace(gap);
        gap = expr.formatTypeId(gap, state, noWhiteSpace());
    }
    AlignedType aligned;
    aligned.symbols = splitPointerSymbols(gap, expr.asteriskAnchor(), expr.ampersandAnchor());
    aligned.type = std::move(gap);
    return aligned;
}

bool symbolsHang(const AlignedType& aligned, const CppExprFormatter& expr)
{
    if (aligned.symbols.empty())
        return false;
    const char last = std::string_view(Varnel::trimRight(aligned.symbols)).back();
    return last == '*' ? expr.hangingAsterisk() : expr.hangingAmpersand();
}

std::int32_t alignedNameMeasure(const AlignedType& aligned, const CppExprFormatter& expr, std::int32_t tabSize)
{
    const std::string_view type = Varnel::trim(aligned.type);
    if (type.empty())
        return 0;
    std::int32_t w = stringWidth(aligned.type, 0, tabSize) + 1;
    // "int    *p" with the "*" hanging left of the column: room for it.
    if (symbolsHang(aligned, expr) && nextTabStop(w, tabSize) - w < 2)
        w += 2;
    return w;
}

} // namespace Kempt
