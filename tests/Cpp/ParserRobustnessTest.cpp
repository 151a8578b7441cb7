// The parser on real and on damaged code: it never crashes, hangs or throws;
// a text that parses gives a tree whose spans lose no token, and a text that
// does not parse gives at least one message with a position.
//
// ParserRobustnessTest.Corpus parses every file under the directory named by
// the environment variable TW_CORPUS_DIR (skipped when it is not set).
// ParserRobustnessTest.MutatedSamples parses 10,000 variants of the bundled
// samples, damaged by a fixed-seed random generator.
#include "Cpp_Lexer.h"
#include "Cpp_Nodes.h"
#include "Cpp_Parser.h"
#include "ParserTestSupport.h"
#include "Varnel_IMemBuf.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <vector>

namespace {

namespace fs = std::filesystem;

std::string readFile(const fs::path& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

// "" when the text behaves: parsed with a sound tree, or failed with a
// positioned message. Otherwise what went wrong.
std::string verdict(const std::string& text)
{
    TwTest::Parsed parsed;
    TwTest::parseText(text, parsed);
    parsed.messages.remove_if([](const Trn::FormatMessage& m) { return m.code == 2; });
    if (parsed.messages.empty())
        return TwTest::checkTree(parsed.root, text);
    const bool positioned = std::any_of(parsed.messages.begin(), parsed.messages.end(),
                                        [](const Trn::FormatMessage& m) { return !m.position.isNull(); });
    return positioned ? std::string() : "no message has a position: " + parsed.messages.front().text;
}

TEST(ParserRobustnessTest, Corpus)
{
    const char* dir = std::getenv("TW_CORPUS_DIR");
    if (!dir || !*dir)
        GTEST_SKIP() << "TW_CORPUS_DIR is not set";
    std::vector<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(dir))
        if (entry.is_regular_file() && entry.path().filename() != "MANIFEST")
            files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    ASSERT_FALSE(files.empty()) << dir;
    std::size_t parsed = 0;
    for (const fs::path& path : files) {
        const std::string text = readFile(path);
        const std::string problem = verdict(text);
        EXPECT_EQ(problem, "") << path;
        TwTest::Parsed result;
        TwTest::parseText(text, result);
        parsed += std::none_of(result.messages.begin(), result.messages.end(),
                               [](const Trn::FormatMessage& m) { return m.code != 2; });
    }
    std::cout << "[ corpus   ] " << files.size() << " files, " << parsed << " parsed\n";
}

// The damage done to a sample: cut a stretch, insert C++ punctuation or
// words, duplicate a stretch, or cut the text short.
std::string mutate(const std::string& text, std::mt19937& random)
{
    static const std::vector<std::string> pieces{
        "{", "}", "(", ")", "<", ">", ";", ":", ",", "*", "&", "=", "[", "]", "\n", "#if 0\n", "#endif\n",
        "/*", "*/", "//", "\"", "'", "\\\n", "class ", "struct ", "enum ", "template", "operator", "namespace ",
        "extern \"C\" ", "if ", "else ", "do ", "while ", "for ", "switch ", "case ", "default:", "public:",
        "__asm ", "__declspec(", "throw", "// TIDEWRIGHT-OFF\n", "// TIDEWRIGHT-ON\n", "typedef ", "x", "0"};
    std::string result = text;
    const int edits = 1 + static_cast<int>(random() % 4);
    for (int e = 0; e < edits && !result.empty(); ++e) {
        const std::size_t at = random() % result.size();
        const std::size_t length = 1 + random() % 16;
        switch (random() % 4) {
        case 0: result.erase(at, length); break;
        case 1: result.insert(at, pieces[random() % pieces.size()]); break;
        case 2: result.insert(at, result.substr(at, length * 4)); break;
        default: result.resize(at); break;
        }
    }
    return result;
}

TEST(ParserRobustnessTest, MutatedSamples)
{
    std::vector<std::string> samples;
    for (const auto& entry : fs::directory_iterator(TW_EXAMPLES_DIR))
        if (entry.is_regular_file())
            samples.push_back(readFile(entry.path()));
    std::sort(samples.begin(), samples.end());
    ASSERT_FALSE(samples.empty());
    std::mt19937 random(20240611u);
    for (int n = 0; n < 10000; ++n) {
        const std::string text = mutate(samples[static_cast<std::size_t>(n) % samples.size()], random);
        const std::string problem = verdict(text);
        ASSERT_EQ(problem, "") << "variant " << n << ":\n" << text;
    }
}

TEST(ParserRobustnessTest, TreeCheckFindsLostTokens)
{
    const std::string text = "int a;\nint b;\n";
    Cpp::RootNode inOrder;
    inOrder.add(new Cpp::ExprNode({1, 1}, {1, 6}));
    inOrder.add(new Cpp::ExprNode({2, 1}, {2, 6}));
    EXPECT_EQ(TwTest::checkTree(inOrder, text), "");
    Cpp::RootNode reversed;
    reversed.add(new Cpp::ExprNode({2, 1}, {2, 6}));
    reversed.add(new Cpp::ExprNode({1, 1}, {1, 6}));
    EXPECT_EQ(TwTest::checkTree(reversed, text), "RootNode 2:1-1:6: ends before it begins");
    Cpp::RootNode swapped;
    auto* braces = new Cpp::BlockNode({1, 1}, {1, 9});
    braces->add(new Cpp::ExprNode({1, 6}, {1, 7}));
    braces->add(new Cpp::ExprNode({1, 3}, {1, 4}));
    swapped.add(braces);
    EXPECT_EQ(TwTest::checkTree(swapped, "{ a; b; }"), "ExprNode 1:3-1:4: overlaps or precedes ExprNode 1:6-1:7");
    Cpp::RootNode cutting;
    cutting.add(new Cpp::ExprNode({1, 2}, {1, 6}));
    EXPECT_EQ(TwTest::checkTree(cutting, text), "RootNode 1:2-1:6: does not begin at a token");
    Cpp::RootNode outside;
    auto* block = new Cpp::BlockNode({1, 1}, {1, 3});
    block->add(new Cpp::ExprNode({2, 1}, {2, 6}));
    outside.add(block);
    EXPECT_EQ(TwTest::checkTree(outside, "{ }\nint b;"), "ExprNode 2:1-2:6: lies outside its parent BlockNode 1:1-1:3");
}

TEST(ParserRobustnessTest, DeepNestingEndsWithOneMessageThatSaysSo)
{
    // Each construct, nested 1,000 deep and closed again. (A class body is
    // gathered once per level, so deeper classes only cost time here.)
    const std::vector<std::pair<std::string, std::string>> nests = {
        {"{", "}"}, {"if (x) ", ""}, {"struct A { ", "};"}, {"namespace a { ", "}"}, {"extern \"C\" { ", "}"}};
    for (const auto& [open, close] : nests) {
        std::string text;
        for (int i = 0; i < 1000; ++i)
            text += open;
        text += ";";
        for (int i = 0; i < 1000; ++i)
            text += close;
        EXPECT_EQ(verdict(text), "") << open;
        const std::string messages = TwTest::messagesOf(text);
        EXPECT_EQ(std::count(messages.begin(), messages.end(), '\n'), 1) << open << messages;
        EXPECT_NE(messages.find(" code=0 nesting deeper than 512 levels is not supported\n"), std::string::npos)
            << open << messages;
    }
}

TEST(ParserRobustnessTest, UnclosedNestingEndsWithAMessage)
{
    for (const std::string& open : {std::string("{"), std::string("if (x) "), std::string("struct A { "),
                                    std::string("namespace a { "), std::string("extern \"C\" { "),
                                    std::string("void f() { ")}) {
        std::string text;
        for (int i = 0; i < 20000; ++i)
            text += open;
        EXPECT_EQ(verdict(text), "") << open;
        EXPECT_NE(TwTest::messagesOf(text), "") << open;
    }
}

TEST(ParserRobustnessTest, TenThousandNestedBracesGiveOneMessageAtTheFirstTooDeep)
{
    const std::string text = "void f() " + std::string(10000, '{') + std::string(10000, '}') + "\n";
    // The declaration is level 1 and the function's block level 2, so the
    // 511th brace inside it (column 10 + 511) is one too many.
    EXPECT_EQ(TwTest::messagesOf(text), "1:521 code=0 nesting deeper than 512 levels is not supported\n");
}

// if (x == 0) g(); else if (x == 1) g(); ... else h();
std::string elseIfChain(int branches)
{
    std::string text = "void f() {\n";
    for (int i = 0; i < branches; ++i)
        text += "  if (x == " + std::to_string(i) + ") g();\n  else";
    text += " h();\n}\n";
    return text;
}

TEST(ParserRobustnessTest, ElseIfChainOfTenThousandBranchesParses)
{
    const std::string text = elseIfChain(10000);
    EXPECT_EQ(TwTest::messagesOf(text), "");
    EXPECT_EQ(verdict(text), "");
}

TEST(ParserRobustnessTest, ElseIfChainCostsNoDepth)
{
    // A chain inside blocks nested nearly to the limit still parses.
    std::string text = "void f() " + std::string(500, '{') + elseIfChain(1000) + std::string(500, '}');
    EXPECT_EQ(TwTest::messagesOf(text), "");
}

TEST(ParserRobustnessTest, ElseIfChainKeepsItsDepthConstant)
{
    TwTest::Parsed parsed;
    TwTest::parseText(elseIfChain(300), parsed);
    ASSERT_TRUE(parsed.messages.empty());
    const auto& body = *dynamic_cast<Cpp::FunctionDeclNode&>(**parsed.root.childrenBegin()).block();
    const auto& chain = dynamic_cast<Cpp::CtrlStmtNode&>(**body.childrenBegin());
    // The first if, 299 else-if parts and the last else are siblings.
    EXPECT_EQ(chain.size(), 301U);
}

} // namespace
