// Widths, tab stops, padding and indent strings.
#include "Kempt_ColumnArithmetic.h"

#include "Varnel_Contract.h"
#include "Varnel_ITextDocStream.h"
#include "Varnel_OIndentStream.h"

#include <ostream>

namespace Kempt {

std::int32_t charWidth(char c, std::int32_t col, std::int32_t tabSize)
{
    TW_REQUIRE(col >= 0);
    TW_REQUIRE(tabSize > 0);
    std::int32_t value = 1;
    if (c == '\t') {
        // At column 3 with size 4 a tab is 1 wide; at 4 it is 4 wide again.
        const std::int32_t r = col % tabSize;
        value = r != 0 ? tabSize - r : tabSize;
    } else if (c == '\n') {
        value = 0;
    }
    TW_ENSURE(value >= 0);
    return value;
}

std::int32_t stringWidth(std::string_view s, std::int32_t col, std::int32_t tabSize)
{
    TW_REQUIRE(col >= 0);
    TW_REQUIRE(tabSize > 0);
    std::int32_t total = 0;
    for (const char c : s) {
        // The total is not reset at a newline: every line counts.
        if (c == '\n') {
            col = 0;
            continue;
        }
        const std::int32_t w = charWidth(c, col, tabSize);
        col += w;
        total += w;
    }
    TW_ENSURE(total >= 0);
    return total;
}

std::int32_t columnBefore(std::string_view s, std::int32_t col, std::int32_t tabSize)
{
    if (tabSize < 1 || col <= 0)
        return 0;
    // The running remainder stands in for each character's column, tabs too.
    std::int32_t remaining = col;
    for (std::size_t i = s.size(); i > 0 && remaining > 0; --i)
        remaining -= charWidth(s[i - 1], remaining, tabSize);
    return remaining < 1 ? 0 : remaining;
}

std::int32_t columnDifference(const Trn::Position& l, const Trn::Position& r)
{
    TW_REQUIRE(l <= r);
    const std::int32_t difference = l.line == r.line ? r.col - l.col : 0;
    TW_ENSURE(difference >= 0);
    return difference;
}

std::int32_t nextTabStop(std::int32_t col, std::int32_t tabSize)
{
    TW_REQUIRE(col >= 0);
    TW_REQUIRE(tabSize > 0);
    if (col % tabSize == 0)
        return col;
    return (col / tabSize + 1) * tabSize;
}

bool isTabStop(std::int32_t col, std::int32_t tabSize)
{
    TW_REQUIRE(col >= 0);
    TW_REQUIRE(tabSize > 0);
    return col % tabSize == 0;
}

std::int32_t alignmentSpace(std::int32_t targetCol, std::int32_t curCol, std::int32_t tab)
{
    TW_REQUIRE(targetCol >= 0);
    TW_REQUIRE(curCol >= 0);
    TW_REQUIRE(tab > 0);
    std::int32_t stop = nextTabStop(targetCol, tab);
    // alignmentSpace(4, 10, 8): the stop 8 lies behind 10, so the stop of
    // 4 + 10 = 14 is taken, 16, and the answer is 6.
    if (curCol > targetCol && stop <= curCol) {
        const std::int32_t sum = targetCol + curCol;
        stop = sum > curCol ? nextTabStop(sum, tab) : nextTabStop(curCol, tab);
    }
    const std::int32_t space = stop - curCol;
    TW_ENSURE(space >= 0);
    return space;
}

namespace {

std::string blanks(std::int32_t n)
{
    return std::string(static_cast<std::size_t>(n > 0 ? n : 0), ' ');
}

std::string tabs(std::int32_t n)
{
    return std::string(static_cast<std::size_t>(n > 0 ? n : 0), '\t');
}

// Target below the indent's width: the indent cannot be used.
std::string narrowerThanIndent(std::int32_t target, std::int32_t mode, std::int32_t tab)
{
    if (mode == 0 || mode == 1)
        return blanks(target);
    if (mode == 2)
        return tabs(target / tab) + blanks(target % tab);
    return std::string();
}

// Target beyond the indent's width: the indent, then `extra` columns more.
std::string widerThanIndent(const std::string& indent, std::int32_t w, std::int32_t extra, std::int32_t mode,
                            std::int32_t tab)
{
    if (mode == 0 || mode == 1)
        return indent + blanks(extra);
    if (mode != 2)
        return std::string();
    // Width 6, tab 8, target 7: the extra 1 does not reach the stop at 8 and
    // is dropped, so the answer is the indent alone.
    std::int32_t lead = 0;
    const std::int32_t r = w % tab;
    if (r > 0) {
        const std::int32_t fill = tab - r;
        if (extra >= fill) {
            extra -= fill;
            lead = fill;
        } else {
            extra = 0;
        }
    }
    return indent + blanks(lead) + tabs(extra / tab) + blanks(extra % tab);
}

} // namespace

std::string indentString(const Varnel::OIndentStream& out, std::int32_t target)
{
    const std::int32_t tab = out.tabSize();
    const std::int32_t mode = out.tabMode();
    const std::string& indent = out.indent();
    const std::int32_t w = stringWidth(indent, 0, tab);
    if (target <= 0)
        return std::string();
    if (target == w)
        return indent;
    if (target < w)
        return narrowerThanIndent(target, mode, tab);
    return widerThanIndent(indent, w, target - w, mode, tab);
}

ColumnPad::ColumnPad(std::int32_t amount) : m_amount(amount)
{
    TW_REQUIRE(amount >= 0);
}

namespace {

void putBlanks(std::ostream& out, std::int32_t n)
{
    for (std::int32_t i = 0; i < n; ++i)
        out.put(' ');
}

} // namespace

std::ostream& operator<<(std::ostream& out, const ColumnPad& pad)
{
    auto* doc = dynamic_cast<Varnel::OTextDocBuf*>(out.rdbuf());
    TW_REQUIRE(doc != nullptr);
    const auto* indenting = dynamic_cast<Varnel::OIndentBuf*>(doc);
    const std::int32_t tab = doc->tabSize();
    const std::int32_t mode = doc->tabMode();
    std::int32_t amount = pad.amount();

    // 1. On an empty line the indent comes first and counts in the amount.
    std::int32_t col = doc->col();
    if (col == 0 && indenting) {
        const std::int32_t w = stringWidth(indenting->indent(), 0, tab);
        col = w;
        amount -= w;
    }
    if (mode != Varnel::OTextDocBuf::KEEP_TABS && mode != Varnel::OTextDocBuf::COMPRESS_BLANKS) {
        // 4. Mode 1: blanks only.
        putBlanks(out, amount);
        return out;
    }
    // 2. Whole tabs while the next stop lies within the amount.
    while (amount > 0 && nextTabStop(col + 1, tab) - col <= amount) {
        amount -= nextTabStop(col + 1, tab) - col;
        out.put('\t');
        col = doc->col();
    }
    if (amount <= 0)
        return out;
    // 3. The rest: blanks, or one tab when it ends exactly on a stop.
    const std::int32_t c = doc->col();
    if (isTabStop(c + 1, tab))
        putBlanks(out, amount);
    else if (isTabStop(c + amount, tab))
        out.put('\t');
    else
        putBlanks(out, amount);
    return out;
}

std::vector<std::int32_t> findLongLines(Varnel::ITextDocStream& in, std::int32_t limit)
{
    std::vector<std::int32_t> lines;
    const std::int32_t tab = in.buf().tabSize();
    std::int32_t start = in.buf().firstCol();
    std::string line;
    for (std::int32_t counter = 1; std::getline(in, line); ++counter) {
        if (start + stringWidth(line, start, tab) > limit)
            lines.push_back(counter);
        // Only the first line starts at the stream's column.
        start = 0;
    }
    return lines;
}

} // namespace Kempt
