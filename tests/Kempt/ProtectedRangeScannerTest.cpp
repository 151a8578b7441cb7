// Fenced regions: comment and macro markers, nesting, prefixes.
#include "Kempt_ProtectedRangeScanner.h"

#include <gtest/gtest.h>

namespace {

using Kempt::ProtectedRangeScanner;
using Trn::Position;
using Trn::Range;

Trn::RangeList find(const std::string& text)
{
    return ProtectedRangeScanner(Kempt::defaultRegionMarkers()).findRanges(text);
}

TEST(ProtectedRangeScannerTest, CommentRegion)
{
    const auto ranges = find("int a;\n// TW-FORMAT-OFF\nint   b;\n// TW-FORMAT-ON\nint c;\n");
    ASSERT_EQ(ranges.size(), 1u);
    EXPECT_EQ(ranges[0], Range(Position(2, 1), Position(5, 0)));
}

TEST(ProtectedRangeScannerTest, BlockCommentMarkers)
{
    const auto ranges = find("/* TW-FORMAT-OFF */ x /*TW-FORMAT-ON*/");
    ASSERT_EQ(ranges.size(), 1u);
    EXPECT_EQ(ranges[0], Range(Position(1, 1), Position(1, 38)));
}

TEST(ProtectedRangeScannerTest, UnclosedRegionGivesNoRange)
{
    EXPECT_TRUE(find("// TW-FORMAT-OFF\nint   b;\n").empty());
}

TEST(ProtectedRangeScannerTest, MarkersAreFollowedByMoreWords)
{
    const auto ranges = find("// TW-FORMAT-OFF: a table\nx;\n// TW-FORMAT-ON again\n");
    ASSERT_EQ(ranges.size(), 1u);
    EXPECT_EQ(ranges[0].second, Position(4, 0));
}

TEST(ProtectedRangeScannerTest, EndMarkerOutsideRegionIsIgnored)
{
    EXPECT_TRUE(find("// TW-FORMAT-ON\nx;\n").empty());
}

TEST(ProtectedRangeScannerTest, NestedRegionClosesWithOutermostEnd)
{
    const auto ranges = find("//TW-FORMAT-OFF\n//TW-FORMAT-OFF\n//TW-FORMAT-ON\nx;\n//TW-FORMAT-ON\ny;\n");
    ASSERT_EQ(ranges.size(), 1u);
    EXPECT_EQ(ranges[0], Range(Position(1, 1), Position(6, 0)));
}

TEST(ProtectedRangeScannerTest, MacroRegion)
{
    const auto ranges = find("BEGIN_MESSAGE_MAP(A, B)\n  ON_X()\nEND_MESSAGE_MAP()\n");
    ASSERT_EQ(ranges.size(), 1u);
    EXPECT_EQ(ranges[0], Range(Position(1, 1), Position(3, 15)));
}

TEST(ProtectedRangeScannerTest, CommentRegionInsideMacroRegionMakesOneRange)
{
    const auto ranges = find("BEGIN_MESSAGE_MAP(A, B)\n"
                             "//{{AFX_MSG_MAP(A)\n"
                             "ON_X()\n"
                             "//}}AFX_MSG_MAP\n"
                             "END_MESSAGE_MAP()\n");
    ASSERT_EQ(ranges.size(), 1u);
    EXPECT_EQ(ranges[0], Range(Position(1, 1), Position(5, 15)));
}

TEST(ProtectedRangeScannerTest, MacroRegionClosedInsideCommentRegionEndsWithComment)
{
    const auto ranges = find("// TW-FORMAT-OFF\nBEGIN_MESSAGE_MAP()\nEND_MESSAGE_MAP()\n// TW-FORMAT-ON\n");
    ASSERT_EQ(ranges.size(), 1u);
    EXPECT_EQ(ranges[0], Range(Position(1, 1), Position(5, 0)));
}

TEST(ProtectedRangeScannerTest, TwoRegions)
{
    const auto ranges = find("//{{AFX_DATA\nx;\n//}}AFX_DATA\ny;\n//{{AFX_VIRTUAL\n//}}AFX_VIRTUAL\n");
    ASSERT_EQ(ranges.size(), 2u);
    EXPECT_EQ(ranges[0], Range(Position(1, 1), Position(4, 0)));
    EXPECT_EQ(ranges[1], Range(Position(5, 1), Position(7, 0)));
}

TEST(ProtectedRangeScannerTest, MarkersMatchCaseSensitively)
{
    EXPECT_TRUE(find("// tw-format-off\nx;\n// tw-format-on\n").empty());
}

TEST(ProtectedRangeScannerTest, OwnMarkerListAndEmptyBeginNeverMatches)
{
    const ProtectedRangeScanner scanner({{"", "never"}, {"KEEP", "DONE"}});
    const auto ranges = scanner.findRanges("/* KEEP */ x; /* DONE */ // TW-FORMAT-OFF\n// TW-FORMAT-ON\n");
    ASSERT_EQ(ranges.size(), 1u);
    EXPECT_EQ(ranges[0], Range(Position(1, 1), Position(1, 24)));
}

TEST(ProtectedRangeScannerTest, MarkerInsideStringIsNoRegion)
{
    EXPECT_TRUE(find("s = \"// TW-FORMAT-OFF\"; t = \"// TW-FORMAT-ON\";").empty());
}

} // namespace
