// Column arithmetic: widths, tab stops, alignment, indent strings, ColumnPad
// and findLongLines, with the contract texts, and properties over ranges of
// columns and tab sizes.
#include "Kempt_ColumnArithmetic.h"

#include "Varnel_Contract.h"
#include "Varnel_ITextDocStream.h"
#include "Varnel_OIndentStream.h"
#include "Varnel_OTextDocStream.h"

#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <string>

namespace {

using namespace Kempt;

// The condition text of the violation `f` raises, or "" for none.
std::string violation(const std::function<void()>& f)
{
    try {
        f();
    } catch (const Varnel::ContractViolation& v) {
        return v.condition();
    }
    return "";
}

TEST(ColumnArithmeticTest, TabWidthDependsOnTheColumn)
{
    EXPECT_EQ(charWidth('\t', 0, 4), 4);
    EXPECT_EQ(charWidth('\t', 3, 4), 1);
    EXPECT_EQ(charWidth('\t', 4, 4), 4);
}

TEST(ColumnArithmeticTest, NewlineIsZeroWideAndOtherBytesOne)
{
    EXPECT_EQ(charWidth('\n', 5, 4), 0);
    EXPECT_EQ(charWidth('\r', 5, 4), 1);
    EXPECT_EQ(charWidth('\f', 5, 4), 1);
    EXPECT_EQ(charWidth('x', 0, 4), 1);
    EXPECT_EQ(charWidth('\xc3', 0, 4), 1);
}

TEST(ColumnArithmeticTest, CharWidthContracts)
{
    EXPECT_EQ(violation([] { charWidth('x', -1, 4); }), "col >= 0");
    EXPECT_EQ(violation([] { charWidth('x', 0, 0); }), "tabSize > 0");
}

TEST(ColumnArithmeticTest, StringWidthCountsEveryLine)
{
    EXPECT_EQ(stringWidth("ab\ncd", 0, 4), 4);
    EXPECT_EQ(stringWidth("", 7, 4), 0);
    EXPECT_EQ(stringWidth("a\tb", 0, 4), 5);
    EXPECT_EQ(stringWidth("a\tb", 2, 4), 3);
    // After a newline the running column starts at 0 again.
    EXPECT_EQ(stringWidth("abc\n\t", 1, 4), 7);
}

TEST(ColumnArithmeticTest, StringWidthContracts)
{
    EXPECT_EQ(violation([] { stringWidth("x", -1, 4); }), "col >= 0");
    EXPECT_EQ(violation([] { stringWidth("x", 0, -2); }), "tabSize > 0");
}

TEST(ColumnArithmeticTest, ColumnBefore)
{
    EXPECT_EQ(columnBefore("ab", 5, 4), 3);
    EXPECT_EQ(columnBefore("abcdef", 3, 4), 0);
    EXPECT_EQ(columnBefore("x", 0, 4), 0);
    EXPECT_EQ(columnBefore("x", 5, 0), 0);
    EXPECT_EQ(columnBefore("x", -3, 4), 0);
    // A tab before column 6 is measured at the remaining column 6: 2 wide.
    EXPECT_EQ(columnBefore("\t", 6, 4), 4);
    // At column 8, a stop, a tab is a whole tab wide.
    EXPECT_EQ(columnBefore("a\t", 8, 4), 3);
    EXPECT_EQ(columnBefore("", 6, 4), 6);
}

TEST(ColumnArithmeticTest, ColumnDifference)
{
    EXPECT_EQ(columnDifference(Trn::Position(3, 4), Trn::Position(3, 10)), 6);
    EXPECT_EQ(columnDifference(Trn::Position(3, 4), Trn::Position(4, 10)), 0);
    EXPECT_EQ(columnDifference(Trn::Position(3, 4), Trn::Position(3, 4)), 0);
    EXPECT_EQ(violation([] { columnDifference(Trn::Position(3, 5), Trn::Position(3, 4)); }), "l <= r");
}

TEST(ColumnArithmeticTest, NextTabStop)
{
    EXPECT_EQ(nextTabStop(0, 4), 0);
    EXPECT_EQ(nextTabStop(5, 4), 8);
    EXPECT_EQ(nextTabStop(8, 4), 8);
    EXPECT_EQ(nextTabStop(1, 4), 4);
    EXPECT_EQ(violation([] { nextTabStop(-1, 4); }), "col >= 0");
    EXPECT_EQ(violation([] { nextTabStop(1, 0); }), "tabSize > 0");
}

TEST(ColumnArithmeticTest, IsTabStop)
{
    EXPECT_TRUE(isTabStop(0, 4));
    EXPECT_TRUE(isTabStop(8, 4));
    EXPECT_FALSE(isTabStop(5, 4));
    EXPECT_EQ(violation([] { isTabStop(-4, 4); }), "col >= 0");
    EXPECT_EQ(violation([] { isTabStop(4, -4); }), "tabSize > 0");
}

TEST(ColumnArithmeticTest, AlignmentSpace)
{
    EXPECT_EQ(alignmentSpace(4, 10, 8), 6);
    EXPECT_EQ(alignmentSpace(10, 3, 8), 13);
    EXPECT_EQ(alignmentSpace(16, 16, 8), 0);
    // Past the target but short of its stop: the stop is kept.
    EXPECT_EQ(alignmentSpace(9, 12, 8), 4);
    // Target 0: the current column's own stop.
    EXPECT_EQ(alignmentSpace(0, 5, 4), 3);
    EXPECT_EQ(alignmentSpace(0, 8, 4), 0);
}

TEST(ColumnArithmeticTest, AlignmentSpaceContracts)
{
    EXPECT_EQ(violation([] { alignmentSpace(-1, 0, 4); }), "targetCol >= 0");
    EXPECT_EQ(violation([] { alignmentSpace(0, -1, 4); }), "curCol >= 0");
    EXPECT_EQ(violation([] { alignmentSpace(0, 0, 0); }), "tab > 0");
}

TEST(ColumnArithmeticTest, AlignmentSpaceAlwaysLandsOnATabStop)
{
    for (std::int32_t tab = 1; tab <= 12; ++tab) {
        for (std::int32_t target = 0; target <= 60; ++target) {
            for (std::int32_t cur = 0; cur <= 60; ++cur) {
                const std::int32_t space = alignmentSpace(target, cur, tab);
                ASSERT_GE(space, 0);
                ASSERT_TRUE(isTabStop(cur + space, tab)) << target << " " << cur << " " << tab;
                // Not behind the current column, and not behind the target
                // when the target still lies ahead.
                if (cur <= target) {
                    ASSERT_GE(cur + space, target);
                }
                // Never a whole tab beyond target + cur.
                ASSERT_LT(cur + space, target + cur + tab);
            }
        }
    }
}

TEST(ColumnArithmeticTest, NextTabStopProperties)
{
    for (std::int32_t tab = 1; tab <= 12; ++tab) {
        for (std::int32_t col = 0; col <= 100; ++col) {
            const std::int32_t stop = nextTabStop(col, tab);
            ASSERT_TRUE(isTabStop(stop, tab));
            ASSERT_GE(stop, col);
            ASSERT_LT(stop - col, tab);
            ASSERT_EQ(isTabStop(col, tab), stop == col);
            // A tab from any column ends on the stop after it.
            ASSERT_EQ(col + charWidth('\t', col, tab), nextTabStop(col + 1, tab));
        }
    }
}

TEST(ColumnArithmeticTest, StringWidthOfOneLineIsTheDisplayDistance)
{
    const std::string texts[] = {"a\tb", "\t\t", "  \t x\t", "abc"};
    for (std::int32_t tab = 1; tab <= 9; ++tab) {
        for (std::int32_t col = 0; col <= 20; ++col) {
            for (const auto& text : texts) {
                // Writing the text on a stream at `col` moves it by the width.
                std::ostringstream sink;
                Varnel::OTextDocStream out(sink, 0, tab, 1, col);
                out << text;
                ASSERT_EQ(out.col() - col, stringWidth(text, col, tab)) << tab << " " << col << " " << text;
                // Stepping back over the text from where it ends returns to
                // its start, as long as no tab is measured off its column.
                if (text.find('\t') == std::string::npos) {
                    ASSERT_EQ(columnBefore(text, out.col(), tab), col);
                }
            }
        }
    }
}

// An indenting stream with the given mode, tab size and indent, for indentString.
struct IndentedStream {
    IndentedStream(std::int32_t mode, std::int32_t tab, const std::string& indent) : out(sink, mode, tab)
    {
        out.setIndent(indent);
    }
    std::ostringstream sink; // declared first: the stream writes into it
    Varnel::OIndentStream out;
};

TEST(ColumnArithmeticTest, IndentStringTargetNotAboveZeroIsEmpty)
{
    IndentedStream s(0, 4, "    ");
    EXPECT_EQ(indentString(s.out, 0), "");
    EXPECT_EQ(indentString(s.out, -3), "");
}

TEST(ColumnArithmeticTest, IndentStringTargetEqualToIndentIsTheIndent)
{
    IndentedStream s(2, 4, "\t  ");
    EXPECT_EQ(indentString(s.out, 6), "\t  ");
}

TEST(ColumnArithmeticTest, IndentStringTargetBelowIndent)
{
    EXPECT_EQ(indentString(IndentedStream(0, 4, "\t\t").out, 6), "      ");
    EXPECT_EQ(indentString(IndentedStream(1, 4, "\t\t").out, 6), "      ");
    EXPECT_EQ(indentString(IndentedStream(2, 4, "\t\t").out, 6), "\t  ");
}

TEST(ColumnArithmeticTest, IndentStringTargetAboveIndent)
{
    EXPECT_EQ(indentString(IndentedStream(0, 4, "\t").out, 7), "\t   ");
    EXPECT_EQ(indentString(IndentedStream(1, 4, "  ").out, 7), "       ");
    // Mode 2: indent width 2, tab 4, target 11: two blanks to the stop, one
    // tab, three blanks.
    EXPECT_EQ(indentString(IndentedStream(2, 4, "  ").out, 11), "    \t   ");
    // An indent on a stop: tabs, then blanks.
    EXPECT_EQ(indentString(IndentedStream(2, 4, "\t").out, 14), "\t\t\t  ");
}

TEST(ColumnArithmeticTest, IndentStringModeTwoDropsWidthShortOfTheNextStop)
{
    // Indent width 6, tab 8, target 7: the extra 1 is below the fill of 2.
    EXPECT_EQ(indentString(IndentedStream(2, 8, "      ").out, 7), "      ");
}

TEST(ColumnArithmeticTest, IndentStringHasTheAskedWidthInModesZeroAndOne)
{
    const std::string indents[] = {"", "  ", "\t", " \t ", "\t\t", "      "};
    for (std::int32_t mode = 0; mode <= 1; ++mode) {
        for (std::int32_t tab = 1; tab <= 9; ++tab) {
            for (const auto& indent : indents) {
                IndentedStream s(mode, tab, indent);
                const std::int32_t w = stringWidth(indent, 0, tab);
                for (std::int32_t target = 1; target <= 40; ++target) {
                    const std::string result = indentString(s.out, target);
                    ASSERT_EQ(stringWidth(result, 0, tab), target) << mode << " " << tab << " " << target;
                    // At or beyond the indent, the indent is kept in front.
                    if (target >= w) {
                        ASSERT_EQ(result.substr(0, indent.size()), indent);
                    }
                }
            }
        }
    }
}

TEST(ColumnArithmeticTest, IndentStringInModeTwoReachesTheTargetOrKeepsTheIndent)
{
    const std::string indents[] = {"", "  ", "\t", " \t ", "\t\t", "      "};
    for (std::int32_t tab = 1; tab <= 9; ++tab) {
        for (const auto& indent : indents) {
            IndentedStream s(2, tab, indent);
            const std::int32_t w = stringWidth(indent, 0, tab);
            const std::int32_t fill = w % tab == 0 ? 0 : tab - w % tab;
            for (std::int32_t target = 1; target <= 40; ++target) {
                const std::string result = indentString(s.out, target);
                const std::int32_t width = stringWidth(result, 0, tab);
                if (target > w && target - w < fill) {
                    ASSERT_EQ(result, indent) << tab << " " << target;
                } else {
                    ASSERT_EQ(width, target) << tab << " " << target << " [" << indent << "]";
                }
            }
        }
    }
}

// What a ColumnPad writes on a stream in the given state.
std::string pad(std::int32_t mode, std::int32_t tab, const std::string& before, std::int32_t amount,
                const std::string& indent = "", bool keep = true)
{
    std::ostringstream sink;
    {
        Varnel::OIndentStream out(sink, mode, tab);
        out.setIndent(indent);
        out.setKeepLeadingSpace(keep);
        out << before << ColumnPad(amount) << "|";
    }
    return sink.str();
}

TEST(ColumnArithmeticTest, ColumnPadContract)
{
    EXPECT_EQ(violation([] { ColumnPad p(-1); }), "amount >= 0");
    EXPECT_EQ(ColumnPad(0).amount(), 0);
}

TEST(ColumnArithmeticTest, ColumnPadNeedsATextDocumentStream)
{
    std::ostringstream plain;
    EXPECT_EQ(violation([&] { plain << ColumnPad(2); }), "doc != nullptr");
}

TEST(ColumnArithmeticTest, ColumnPadModeOneWritesBlanks)
{
    EXPECT_EQ(pad(1, 4, "ab", 6), "ab" + std::string(6, ' ') + "|");
    EXPECT_EQ(pad(1, 4, "ab", 0), "ab|");
}

TEST(ColumnArithmeticTest, ColumnPadModeZeroUsesTabsWhereTheyFit)
{
    // From column 2 the stop at 4 is 2 away, then 4 more: two tabs, one blank.
    EXPECT_EQ(pad(0, 4, "ab", 7), "ab\t\t |");
    // Short of the next stop: blanks.
    EXPECT_EQ(pad(0, 4, "ab", 1), "ab |");
    EXPECT_EQ(pad(0, 4, "abcd", 4), "abcd\t|");
}

TEST(ColumnArithmeticTest, ColumnPadModeTwoUsesTabsWhereTheyFit)
{
    EXPECT_EQ(pad(2, 4, "ab", 7), "ab\t\t |");
}

TEST(ColumnArithmeticTest, ColumnPadOnAnEmptyLineCountsTheIndent)
{
    // The amount 10 is measured from column 0; the indent of 4 comes first.
    EXPECT_EQ(pad(0, 4, "", 10, "    "), "    \t  |");
    EXPECT_EQ(pad(1, 4, "", 10, "    "), std::string(10, ' ') + "|");
    // An indent wider than the amount: nothing more.
    EXPECT_EQ(pad(1, 4, "", 2, "    "), "    |");
}

TEST(ColumnArithmeticTest, ColumnPadOnAnEmptyLineWithoutKeepIsDropped)
{
    // Leading white space of a line is dropped by the indenting stream when
    // it does not keep it, the padding too: the text starts at the indent.
    EXPECT_EQ(pad(1, 4, "", 10, "    ", false), "    |");
}

TEST(ColumnArithmeticTest, ColumnPadMovesTheColumnByTheAmount)
{
    for (std::int32_t mode = 0; mode <= 2; ++mode) {
        for (std::int32_t tab = 1; tab <= 8; ++tab) {
            for (std::int32_t start = 1; start <= 12; ++start) {
                for (std::int32_t amount = 0; amount <= 20; ++amount) {
                    std::ostringstream sink;
                    Varnel::OIndentStream out(sink, mode, tab);
                    out << std::string(static_cast<std::size_t>(start), 'x') << ColumnPad(amount);
                    ASSERT_EQ(out.col(), start + amount) << mode << " " << tab << " " << start << " " << amount;
                }
            }
        }
    }
}

std::vector<std::int32_t> longLines(const std::string& text, std::int32_t limit, std::int32_t tab = 4,
                                    std::int32_t firstCol = 0)
{
    std::istringstream source(text);
    Varnel::ITextDocStream in(source, 0, tab, 1, firstCol);
    return findLongLines(in, limit);
}

TEST(ColumnArithmeticTest, FindLongLines)
{
    EXPECT_EQ(longLines("abc\nabcdef\nab\nabcde", 4), (std::vector<std::int32_t>{2, 4}));
    EXPECT_EQ(longLines("abcd\n", 4), (std::vector<std::int32_t>{}));
    EXPECT_EQ(longLines("", 0), (std::vector<std::int32_t>{}));
    // Tabs count to their stop.
    EXPECT_EQ(longLines("\tx\nab", 4), (std::vector<std::int32_t>{1}));
    // Line endings of every kind.
    EXPECT_EQ(longLines("abcdef\r\nab\rabcdef", 4), (std::vector<std::int32_t>{1, 3}));
}

TEST(ColumnArithmeticTest, FindLongLinesStartsTheFirstLineAtTheStreamsColumn)
{
    // The first line starts at column 3: 3 + 3 = 6 is past 5. The second at 0.
    EXPECT_EQ(longLines("abc\nabcd", 5, 4, 3), (std::vector<std::int32_t>{1}));
    EXPECT_EQ(longLines("abc\nabcd", 5, 4, 0), (std::vector<std::int32_t>{}));
}

} // namespace
