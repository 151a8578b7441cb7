// Formatter configuration: WsSetting, the choice checks and the text tests.
#include "Kempt_CppFormatterConfig.h"

#include "Cpp_Lexer.h"
#include "Cpp_Nodes.h"
#include "Cpp_Parser.h"

#include "Kempt_PropertyNames.h"
#include "Varnel_Contract.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <sstream>
#include <string>

namespace {

using namespace Kempt;

std::string violation(const std::function<void()>& f)
{
    try {
        f();
    } catch (const Varnel::ContractViolation& v) {
        return v.condition();
    }
    return "";
}

TEST(CppFormatterConfigTest, WsSettingDefaultIsNotSetAndEmpty)
{
    const WsSetting s;
    EXPECT_FALSE(s.isSet());
    EXPECT_EQ(s.value(), "");
    EXPECT_EQ(noWhiteSpace(), s);
    EXPECT_TRUE(newLineSetting().isSet());
    EXPECT_EQ(newLineSetting().value(), "\n");
}

TEST(CppFormatterConfigTest, LoadReadsTheStringProperty)
{
    PropertySet set;
    set.setString(Prop::WS_AFTER_FN_NAME, "\t");
    set.setString(Prop::WS_BEFORE_FN_COMMA, "");
    set.setInt(Prop::WS_AFTER_CS_KEY, 1); // not a string: not set
    WsSetting s(true, "old");
    load(set, Prop::WS_AFTER_FN_NAME, s);
    EXPECT_EQ(s, WsSetting(true, "\t"));
    load(set, Prop::WS_BEFORE_FN_COMMA, s);
    EXPECT_EQ(s, WsSetting(true, ""));
    load(set, Prop::WS_AFTER_CS_KEY, s);
    EXPECT_EQ(s, WsSetting(false, ""));
    load(set, Prop::WS_BETWEEN_CS, s);
    EXPECT_FALSE(s.isSet());
}

TEST(CppFormatterConfigTest, ChoicesInRangePassUnchanged)
{
    for (const char* name : {Prop::WRAP_STYLE, Prop::EXPR_WRAP_STYLE, Prop::SHIFT_WRAP_STYLE, Prop::COMMA_WRAP_STYLE,
                             Prop::INDENT_WRAP_STYLE, Prop::LIST_WRAP_STRATEGY, Prop::IF_ELSE_CS_SINGLE_STMT_BRACE_STYLE,
                             Prop::FOR_CS_SINGLE_STMT_BRACE_STYLE, Prop::WHILE_CS_SINGLE_STMT_BRACE_STYLE,
                             Prop::CONVERT_WS}) {
        for (std::int32_t v = 0; v <= 2; ++v)
            EXPECT_EQ(checkChoice(name, v), v) << name;
        EXPECT_EQ(violation([&] { checkChoice(name, 3); }), "false") << name;
        EXPECT_EQ(violation([&] { checkChoice(name, -1); }), "false") << name;
    }
    for (const char* name : {Prop::ASTERISK_ANCHOR, Prop::AMPERSAND_ANCHOR}) {
        for (std::int32_t v = -1; v <= 1; ++v)
            EXPECT_EQ(checkChoice(name, v), v) << name;
        EXPECT_EQ(violation([&] { checkChoice(name, -2); }), "false") << name;
    }
}

TEST(CppFormatterConfigTest, StoredAnchorOfTwoFailsTheContract)
{
    PropertySet set;
    set.setInt(Prop::ASTERISK_ANCHOR, 2);
    EXPECT_EQ(violation([&] { readChoice(set, Prop::ASTERISK_ANCHOR); }), "false");
}

TEST(CppFormatterConfigTest, MissingAnchorReadsMinusOne)
{
    const PropertySet set;
    EXPECT_EQ(readChoice(set, Prop::ASTERISK_ANCHOR), -1);
    EXPECT_EQ(readChoice(set, Prop::AMPERSAND_ANCHOR), -1);
    EXPECT_EQ(readChoice(set, Prop::WRAP_STYLE), 0);
}

TEST(CppFormatterConfigTest, StoredChoiceIsRead)
{
    PropertySet set;
    set.setInt(Prop::AMPERSAND_ANCHOR, 1);
    set.setInt(Prop::LIST_WRAP_STRATEGY, 2);
    EXPECT_EQ(readChoice(set, Prop::AMPERSAND_ANCHOR), 1);
    EXPECT_EQ(readChoice(set, Prop::LIST_WRAP_STRATEGY), 2);
}

TEST(CppFormatterConfigTest, AskingAboutAPropertyThatIsNoChoiceIsABug)
{
    EXPECT_EQ(violation([] { checkChoice(Prop::TAB_SIZE, 0); }), "range != nullptr");
}

TEST(CppFormatterConfigTest, BeginsWithMarker)
{
    EXPECT_TRUE(beginsWithMarker("TW-FORMAT-OFF for now", "TW-FORMAT-OFF"));
    EXPECT_TRUE(beginsWithMarker("x", "x"));
    EXPECT_FALSE(beginsWithMarker("x", ""));
    EXPECT_FALSE(beginsWithMarker("", ""));
    EXPECT_FALSE(beginsWithMarker(" TW-FORMAT-OFF", "TW-FORMAT-OFF"));
    EXPECT_FALSE(beginsWithMarker("tw-format-off", "TW-FORMAT-OFF"));
}

TEST(CppFormatterConfigTest, EndsInAsterisk)
{
    EXPECT_TRUE(endsInAsterisk("a *"));
    EXPECT_TRUE(endsInAsterisk("char* \t\n"));
    EXPECT_FALSE(endsInAsterisk("*"));
    EXPECT_FALSE(endsInAsterisk(""));
    EXPECT_FALSE(endsInAsterisk("* "));
    EXPECT_FALSE(endsInAsterisk("a * b"));
    EXPECT_FALSE(endsInAsterisk("a &"));
}

TEST(CppFormatterConfigTest, EndsInAmpersand)
{
    EXPECT_TRUE(endsInAmpersand("int &"));
    EXPECT_TRUE(endsInAmpersand("T&&"));
    EXPECT_FALSE(endsInAmpersand("&"));
    EXPECT_FALSE(endsInAmpersand(""));
    EXPECT_FALSE(endsInAmpersand("a *"));
}

TEST(CppFormatterConfigTest, IsDirectiveText)
{
    EXPECT_TRUE(isDirectiveText("#define X"));
    EXPECT_TRUE(isDirectiveText("  \t#if"));
    EXPECT_TRUE(isDirectiveText(" #"));
    EXPECT_FALSE(isDirectiveText(""));
    EXPECT_FALSE(isDirectiveText("   "));
    EXPECT_FALSE(isDirectiveText("x #"));
}

TEST(CppFormatterConfigTest, IsSemicolonOnly)
{
    EXPECT_TRUE(isSemicolonOnly(";"));
    EXPECT_TRUE(isSemicolonOnly(" \n;\t"));
    EXPECT_FALSE(isSemicolonOnly(";;"));
    EXPECT_FALSE(isSemicolonOnly(""));
    EXPECT_FALSE(isSemicolonOnly("x;"));
}

TEST(CppFormatterConfigTest, GapHasLineComment)
{
    EXPECT_TRUE(gapHasLineComment("  // c\n  "));
    EXPECT_TRUE(gapHasLineComment("/* a */ // c"));
    EXPECT_FALSE(gapHasLineComment("  /* c */ "));
    EXPECT_FALSE(gapHasLineComment(""));
    EXPECT_FALSE(gapHasLineComment("#if X\n"));
    // A fenced region counts as the kind of its closing comment.
    EXPECT_TRUE(gapHasLineComment("/* TW-FORMAT-OFF */ x // TW-FORMAT-ON\n"));
    EXPECT_FALSE(gapHasLineComment("// TW-FORMAT-OFF\n x /* TW-FORMAT-ON */"));
}

TEST(CppFormatterConfigTest, GapHasCommentOrDirective)
{
    EXPECT_TRUE(gapHasCommentOrDirective(" /* c */ "));
    EXPECT_TRUE(gapHasCommentOrDirective("\n// c\n"));
    EXPECT_TRUE(gapHasCommentOrDirective("\n#endif\n"));
    EXPECT_FALSE(gapHasCommentOrDirective(" \n\t "));
    EXPECT_FALSE(gapHasCommentOrDirective(", "));
}

} // namespace

// ---------------------------------------------------------------------------
// Tests on nodes: braces and line comments, on trees the parser builds.

namespace {

std::unique_ptr<Cpp::RootNode> parse(const std::string& text)
{
    std::istringstream in(text);
    Cpp::Lexer lexer(in);
    auto root = std::make_unique<Cpp::RootNode>();
    Trn::FormatMessageList messages;
    Cpp::Parser().parse(lexer, *root, messages);
    EXPECT_TRUE(messages.empty()) << text;
    return root;
}

// The control statement at the top of a function body "void f() { ... }".
const Cpp::CtrlStmtNode& controlStatementOf(const Cpp::RootNode& root)
{
    const auto* fn = dynamic_cast<const Cpp::FunctionDeclNode*>(*root.childrenBegin());
    EXPECT_NE(fn, nullptr);
    const auto* stmt = dynamic_cast<const Cpp::CtrlStmtNode*>(*fn->block()->childrenBegin());
    EXPECT_NE(stmt, nullptr);
    return *stmt;
}

const Cpp::CtrlSubStmtNode& part(const Cpp::CtrlStmtNode& stmt, std::size_t i)
{
    const auto* p = dynamic_cast<const Cpp::CtrlSubStmtNode*>(*(stmt.childrenBegin() + static_cast<std::ptrdiff_t>(i)));
    EXPECT_NE(p, nullptr);
    return *p;
}

TEST(CppFormatterConfigTest, HasBracesOfAnEmptyNodeWithBeginEqualToEndIsFalse)
{
    EXPECT_FALSE(Kempt::hasBraces(Cpp::BlockNode()));
    EXPECT_FALSE(Kempt::hasBraces(Cpp::BlockNode(Trn::Position(2, 3), Trn::Position(2, 3))));
    EXPECT_TRUE(Kempt::hasBraces(Cpp::BlockNode(Trn::Position(2, 3), Trn::Position(2, 5))));
}

TEST(CppFormatterConfigTest, BodyHasBracesTellsBracedFromUnbracedParts)
{
    const auto root = parse("void f() { if (a) { b(); } else c(); }");
    const Cpp::CtrlStmtNode& stmt = controlStatementOf(*root);
    EXPECT_TRUE(Kempt::bodyHasBraces(part(stmt, 0)));
    EXPECT_FALSE(Kempt::bodyHasBraces(part(stmt, 1)));
    EXPECT_TRUE(Kempt::hasBraces(*part(stmt, 0).body()));
}

TEST(CppFormatterConfigTest, EmptyBracedBodyHasBraces)
{
    const auto root = parse("void f() { while (x) {} }");
    EXPECT_TRUE(Kempt::bodyHasBraces(part(controlStatementOf(*root), 0)));
}

TEST(CppFormatterConfigTest, PartWithoutBodyHasNoBraces)
{
    const auto root = parse("void f() { do x(); while (y); }");
    const Cpp::CtrlStmtNode& stmt = controlStatementOf(*root);
    EXPECT_FALSE(Kempt::bodyHasBraces(part(stmt, 0)));
    EXPECT_EQ(part(stmt, 1).body(), nullptr);
    EXPECT_FALSE(Kempt::bodyHasBraces(part(stmt, 1)));
}

TEST(CppFormatterConfigTest, IsLineCommentNode)
{
    const Cpp::CommentNode line("// x\n");
    const Cpp::CommentNode block("/* x */");
    const Cpp::CommentNode fenced("", Trn::Position(1, 1), Trn::Position(3, 0), true);
    const Cpp::ExprNode expr(Trn::Position(1, 1), Trn::Position(1, 2));
    EXPECT_TRUE(Kempt::isLineCommentNode(&line));
    EXPECT_FALSE(Kempt::isLineCommentNode(&block));
    EXPECT_FALSE(Kempt::isLineCommentNode(&fenced));
    EXPECT_FALSE(Kempt::isLineCommentNode(&expr));
    EXPECT_FALSE(Kempt::isLineCommentNode(nullptr));
}

} // namespace
