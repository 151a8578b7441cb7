// OIndentStream: the indent at the start of each line, keep-leading-space,
// literal writes, the guards and the stream state.
#include "Varnel_IndentGuard.h"
#include "Varnel_OIndentStream.h"
#include "Varnel_StreamState.h"

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>
#include <string>

namespace {

std::string indented(const std::string& indent, bool keep, const std::string& text, std::int32_t tabMode = 0,
                     std::int32_t tabSize = 4)
{
    std::ostringstream target;
    {
        Varnel::OIndentStream out(target, tabMode, tabSize);
        out.setIndent(indent);
        out.setKeepLeadingSpace(keep);
        out << text;
    }
    return target.str();
}

TEST(OIndentStreamTest, IndentReplacesOldIndentationAndEmptyLineStaysEmpty)
{
    EXPECT_EQ(indented("    ", false, "  x\n\n"), "    x\n\n");
}

TEST(OIndentStreamTest, EveryLineGetsTheIndent)
{
    EXPECT_EQ(indented("  ", false, "a\n\tb\n  c"), "  a\n  b\n  c");
}

TEST(OIndentStreamTest, LineOfBlanksOnlyStaysEmpty)
{
    EXPECT_EQ(indented("    ", false, "a\n   \t \nb"), "    a\n\n    b");
}

TEST(OIndentStreamTest, KeepLeadingSpaceWritesIndentThenOldWhiteSpace)
{
    EXPECT_EQ(indented("    ", true, "  x\n\n"), "      x\n\n");
}

TEST(OIndentStreamTest, EmptyIndentWithKeepPassesLinesAsTheyStand)
{
    EXPECT_EQ(indented("", true, "  x\n\ty\n"), "  x\n\ty\n");
}

TEST(OIndentStreamTest, EmptyIndentWithoutKeepStripsIndentation)
{
    EXPECT_EQ(indented("", false, "  x\n\ty\n"), "x\ny\n");
}

TEST(OIndentStreamTest, IndentIsNotWrittenMidLine)
{
    EXPECT_EQ(indented("    ", false, "a  b"), "    a  b");
}

TEST(OIndentStreamTest, IndentGoesThroughTheTabMode)
{
    EXPECT_EQ(indented("        ", false, "x", 2, 4), "\t\tx");
    EXPECT_EQ(indented("\t", false, "x", 1, 4), "    x");
}

TEST(OIndentStreamTest, ColumnCountsTheIndent)
{
    std::ostringstream target;
    Varnel::OIndentStream out(target, 0, 4);
    out.setIndent("\t  ");
    out << "ab";
    EXPECT_EQ(out.col(), 8);
}

TEST(OIndentStreamTest, IndentInForceAtFirstCharacterIsTheOneTheLineGets)
{
    std::ostringstream target;
    {
        Varnel::OIndentStream out(target, 0, 4);
        out << "a\n";
        out.setIndent("  ");
        out << "b";
        out.setIndent("    ");
        out << "c\nd";
    }
    EXPECT_EQ(target.str(), "a\n  bc\n    d");
}

TEST(OIndentStreamTest, WriteLiteralSuspendsTheIndentRule)
{
    std::ostringstream target;
    {
        Varnel::OIndentStream out(target, 0, 4);
        out.setIndent("    ");
        out << "{";
        out.writeLiteral("\n  ");
        EXPECT_EQ(out.col(), 2);
        out << "x;";
        out.writeLiteral("\n");
        out << "}";
    }
    EXPECT_EQ(target.str(), "    {\n  x;\n    }");
}

TEST(OIndentStreamTest, WriteLiteralStillAppliesTheTabMode)
{
    std::ostringstream target;
    {
        Varnel::OIndentStream out(target, 1, 4);
        out.writeLiteral("\tx");
    }
    EXPECT_EQ(target.str(), "    x");
}

TEST(OIndentStreamTest, LineEndingApplies)
{
    std::ostringstream target;
    {
        Varnel::OIndentStream out(target, 0, 4, 1, 0, Varnel::LineBuf::CRLF);
        out.setIndent("  ");
        out << "a\n\nb\n";
    }
    EXPECT_EQ(target.str(), "  a\r\n\r\n  b\r\n");
}

TEST(OIndentStreamTest, IndentGuardRestoresTheOldIndent)
{
    std::ostringstream target;
    Varnel::OIndentStream out(target, 0, 4);
    out.setIndent("  ");
    {
        Varnel::IndentGuard guard(out, "    ");
        EXPECT_EQ(out.indent(), "    ");
        {
            Varnel::IndentGuard inner(out, "\t");
            EXPECT_EQ(out.indent(), "\t");
        }
        EXPECT_EQ(out.indent(), "    ");
    }
    EXPECT_EQ(out.indent(), "  ");
}

TEST(OIndentStreamTest, GuardsRestoreWhenAnExceptionPasses)
{
    std::ostringstream target;
    Varnel::OIndentStream out(target, 0, 4);
    out.setIndent("  ");
    out.setKeepLeadingSpace(true);
    try {
        Varnel::IndentGuard indent(out, "        ");
        Varnel::KeepLeadingSpaceGuard keep(out, false);
        throw std::runtime_error("x");
    } catch (const std::runtime_error&) {
    }
    EXPECT_EQ(out.indent(), "  ");
    EXPECT_TRUE(out.keepLeadingSpace());
}

TEST(OIndentStreamTest, KeepLeadingSpaceGuardRestoresTheFlag)
{
    std::ostringstream target;
    Varnel::OIndentStream out(target, 0, 4);
    EXPECT_FALSE(out.keepLeadingSpace());
    {
        Varnel::KeepLeadingSpaceGuard guard(out, true);
        EXPECT_TRUE(out.keepLeadingSpace());
    }
    EXPECT_FALSE(out.keepLeadingSpace());
}

TEST(OIndentStreamTest, StreamStateCopiesTheSetupOfOneStreamToAnother)
{
    std::ostringstream a;
    std::ostringstream b;
    Varnel::OIndentStream first(a, 2, 8, 1, 0, Varnel::LineBuf::CRLF);
    first.setIndent("\t");
    first.setKeepLeadingSpace(true);
    first << "abc";
    const Varnel::StreamState state = Varnel::StreamState::of(first);
    EXPECT_EQ(state.indent, "\t");
    EXPECT_TRUE(state.keepLeadingSpace);
    EXPECT_EQ(state.tabMode, 2);
    EXPECT_EQ(state.tabSize, 8);
    EXPECT_EQ(state.lineEnding, Varnel::LineBuf::CRLF);
    EXPECT_EQ(state.col, 11);

    Varnel::OIndentStream second(b, 0, 4);
    state.applyTo(second);
    EXPECT_EQ(Varnel::StreamState::of(second).indent, "\t");
    EXPECT_TRUE(second.keepLeadingSpace());
    EXPECT_EQ(second.tabMode(), 2);
    EXPECT_EQ(second.tabSize(), 8);
    EXPECT_EQ(second.lineEnding(), Varnel::LineBuf::CRLF);
    EXPECT_EQ(second.col(), 0); // the column is the stream's own
}

TEST(OIndentStreamTest, StreamFromStateContinuesAtItsColumn)
{
    std::ostringstream a;
    Varnel::OIndentStream first(a, 2, 4);
    first.setIndent("    ");
    first << "ab";
    const Varnel::StreamState state = Varnel::StreamState::of(first);

    std::ostringstream scratch;
    {
        Varnel::OIndentStream s(scratch, state);
        EXPECT_EQ(s.col(), 6);
        s << "  x\ny"; // blanks from column 6 stay blanks; the next line gets a tab
    }
    EXPECT_EQ(scratch.str(), "  x\n\ty");
}

} // namespace
