// Fenced regions: comment and macro markers, nesting, prefixes.
#include "Cpp_RootNode.h"
#include "Cpp_TreeDump.h"
#include "Kempt_Analysis.h"
#include "Kempt_ProtectedRangeScanner.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

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

// The tree a pass walks: each fenced region is one protected comment.
std::string analysedTree(const std::string& text)
{
    Cpp::RootNode root;
    Kempt::FormatMessageList messages;
    EXPECT_TRUE(Kempt::analyseText(text, Kempt::defaultRegionMarkers(), root, messages));
    EXPECT_TRUE(messages.empty());
    return Cpp::dumpTree(root);
}

TEST(ProtectedRangeScannerTest, ScanFoldsTheNodesOfACommentRegion)
{
    EXPECT_EQ(analysedTree("int a;\n// TW-FORMAT-OFF\nint   b;\n// TW-FORMAT-ON\nint c;\n"),
              "RootNode 1:1-5:6\n"
              "  DataDeclNode 1:1-1:6\n"
              "    TypeNode 1:1-1:3\n"
              "    IdNode 1:5-1:5 text=\"a\"\n"
              "  CommentNode 2:1-5:0 protected=1\n"
              "  DataDeclNode 5:1-5:6\n"
              "    TypeNode 5:1-5:3\n"
              "    IdNode 5:5-5:5 text=\"c\"\n");
}

TEST(ProtectedRangeScannerTest, ScanFoldsAMessageMapAndClassWizardBlocks)
{
    EXPECT_EQ(analysedTree("BEGIN_MESSAGE_MAP(A, B)\n  ON_X()\nEND_MESSAGE_MAP()\nint x;\n"),
              "RootNode 1:1-4:6\n"
              "  CommentNode 1:1-3:17 protected=1\n"
              "  DataDeclNode 4:1-4:6\n"
              "    TypeNode 4:1-4:3\n"
              "    IdNode 4:5-4:5 text=\"x\"\n");
    EXPECT_EQ(analysedTree("class A {\n  //{{AFX_DATA(A)\n  int a;\n  //}}AFX_DATA\n  int b;\n};\n"),
              "RootNode 1:1-6:2\n"
              "  ClassDeclNode 1:1-6:2\n"
              "    ClassHeadNode 1:1-1:7\n"
              "      ClassNameNode 1:1-1:7 type=CLASS_KEY text=\"class A\"\n"
              "    ClassBodyNode 1:9-6:1\n"
              "      CommentNode 2:3-5:0 protected=1\n"
              "      DataDeclNode 5:3-5:8\n"
              "        TypeNode 5:3-5:5\n"
              "        IdNode 5:7-5:7 text=\"b\"\n");
}

TEST(ProtectedRangeScannerTest, UnclosedRegionFoldsNothing)
{
    EXPECT_EQ(analysedTree("// TW-FORMAT-OFF\nint b;\n"), "RootNode 1:1-2:6\n"
                                                              "  CommentNode 1:1-2:0 text=\"// TW-FORMAT-OFF\\n\"\n"
                                                              "  DataDeclNode 2:1-2:6\n"
                                                              "    TypeNode 2:1-2:3\n"
                                                              "    IdNode 2:5-2:5 text=\"b\"\n");
}

// No protected comment may begin before the region's opening marker: a node
// that begins in front of it keeps its place and only its parts inside the
// region are folded.
std::string firstProtectedBegin(const std::string& tree)
{
    const std::size_t at = tree.find(" protected=1");
    if (at == std::string::npos)
        return "";
    const std::size_t lineStart = tree.rfind('\n', at) + 1;
    const std::size_t range = tree.find("CommentNode ", lineStart) + 12;
    return tree.substr(range, tree.find('-', range) - range);
}

TEST(ProtectedRangeScannerTest, RegionOpenedInAParameterListFoldsOnlyWhatFollowsTheMarker)
{
    const std::string tree = analysedTree("void f(int a, /* TW-FORMAT-OFF */ int b) { /* TW-FORMAT-ON */ }");
    EXPECT_EQ(tree, "RootNode 1:1-1:63\n"
                    "  FunctionDeclNode 1:1-1:63\n"
                    "    FunctionHeadNode 1:1-1:40\n"
                    "      FunctionReturnNode 1:1-1:4\n"
                    "      IdNode 1:6-1:6 text=\"f\"\n"
                    "      ParameterListNode 1:7-1:40\n"
                    "        ParameterNode 1:8-1:12\n"
                    "        CommentNode 1:15-1:39 protected=1\n");
}

TEST(ProtectedRangeScannerTest, RegionOpenedAmongClassMembersFoldsTheMembersBehindIt)
{
    EXPECT_EQ(analysedTree("class A { int a; // TW-FORMAT-OFF\nint b; int c; // TW-FORMAT-ON\nint d; };"),
              "RootNode 1:1-3:9\n"
              "  ClassDeclNode 1:1-3:9\n"
              "    ClassHeadNode 1:1-1:7\n"
              "      ClassNameNode 1:1-1:7 type=CLASS_KEY text=\"class A\"\n"
              "    ClassBodyNode 1:9-3:8\n"
              "      DataDeclNode 1:11-1:16\n"
              "        TypeNode 1:11-1:13\n"
              "        IdNode 1:15-1:15 text=\"a\"\n"
              "      CommentNode 1:18-3:0 protected=1\n"
              "      DataDeclNode 3:1-3:6\n"
              "        TypeNode 3:1-3:3\n"
              "        IdNode 3:5-3:5 text=\"d\"\n");
}

TEST(ProtectedRangeScannerTest, RegionOpenedInsideAnInitialiserLeavesTheDeclarationInPlace)
{
    // The initialiser is one span that begins before the marker: it stays,
    // and the region takes the nodes from the next whole one on.
    EXPECT_EQ(analysedTree("int a = 1, /* TW-FORMAT-OFF */ b = 2; /* TW-FORMAT-ON */ int c;"),
              "RootNode 1:1-1:63\n"
              "  DataDeclNode 1:1-1:37\n"
              "    TypeNode 1:1-1:3\n"
              "    IdNode 1:5-1:5 text=\"a\"\n"
              "    ExprNode 1:7-1:37\n"
              "  CommentNode 1:39-1:56 protected=1\n"
              "  DataDeclNode 1:58-1:63\n"
              "    TypeNode 1:58-1:60\n"
              "    IdNode 1:62-1:62 text=\"c\"\n");
}

TEST(ProtectedRangeScannerTest, RegionOpenedInAFunctionBodyAndClosedBehindIt)
{
    EXPECT_EQ(analysedTree("void f() { x(); // TW-FORMAT-OFF\ny(); }\n// TW-FORMAT-ON\nint z;\n"),
              "RootNode 1:1-4:6\n"
              "  FunctionDeclNode 1:1-2:6\n"
              "    FunctionHeadNode 1:1-1:8\n"
              "      FunctionReturnNode 1:1-1:4\n"
              "      IdNode 1:6-1:6 text=\"f\"\n"
              "      ParameterListNode 1:7-1:8\n"
              "    BlockNode 1:10-2:6\n"
              "      ExprNode 1:12-1:15\n"
              "      CommentNode 1:17-2:4 protected=1\n"
              "  CommentNode 3:1-4:0 protected=1\n"
              "  DataDeclNode 4:1-4:6\n"
              "    TypeNode 4:1-4:3\n"
              "    IdNode 4:5-4:5 text=\"z\"\n");
}

TEST(ProtectedRangeScannerTest, NoProtectedCommentBeginsBeforeItsMarker)
{
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"void f(int a, /* TW-FORMAT-OFF */ int b) { /* TW-FORMAT-ON */ }", "1:15"},
        {"int f(int a, // TW-FORMAT-OFF\n int b);\n// TW-FORMAT-ON\n", "1:14"},
        {"class A : public B, /* TW-FORMAT-OFF */ public C { }; // TW-FORMAT-ON\n", "1:21"},
        {"A::A() : a(1), /* TW-FORMAT-OFF */ b(2) { } /* TW-FORMAT-ON */", "1:16"},
        {"enum E { X, /* TW-FORMAT-OFF */ Y, Z }; /* TW-FORMAT-ON */", "1:13"},
        {"void g() { if (a) { b(); /* TW-FORMAT-OFF */ c(); } d(); /* TW-FORMAT-ON */ }", "1:26"},
    };
    for (const auto& [text, marker] : cases) {
        const std::string tree = analysedTree(text);
        const std::string begin = firstProtectedBegin(tree);
        ASSERT_NE(begin, "") << text << "\n" << tree;
        const auto colon = begin.find(':');
        const auto markerColon = marker.find(':');
        const Position at(std::stoi(begin.substr(0, colon)), std::stoi(begin.substr(colon + 1)));
        const Position fence(std::stoi(marker.substr(0, markerColon)), std::stoi(marker.substr(markerColon + 1)));
        EXPECT_GE(at, fence) << text << "\n" << tree;
    }
}

TEST(ProtectedRangeScannerTest, AnalysisOfATextThatDoesNotParse)
{
    Cpp::RootNode root;
    Kempt::FormatMessageList messages;
    EXPECT_FALSE(Kempt::analyseText("int x", Kempt::defaultRegionMarkers(), root, messages));
    EXPECT_EQ(messages.size(), 2u);
    messages.clear();
    EXPECT_TRUE(Kempt::analyseText("F(x) int y;", Kempt::defaultRegionMarkers(), root, messages));
    EXPECT_TRUE(messages.empty());
}

} // namespace
