// The parser's core and top level: classification of declarations by
// scanning, directives, comments and protected regions, and the top loop.
#include "Cpp_Lexer.h"
#include "Cpp_Nodes.h"
#include "Cpp_Parser.h"
#include "ParserTestSupport.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

TEST(ParserTest, EmptyTextGivesAnEmptyRoot)
{
    EXPECT_TREE("", "RootNode 0:0-0:0\n");
    EXPECT_TREE("\n\n  \n", "RootNode 0:0-0:0\n");
}

TEST(ParserTest, KeepsMessagesItWasGivenAndAppendsItsOwn)
{
    std::istringstream in("int x");
    Cpp::Lexer lexer(in);
    Cpp::RootNode root;
    Trn::FormatMessageList messages{Trn::FormatMessage::coded(5, Trn::Position(9, 9))};
    Cpp::Parser().parse(lexer, root, messages);
    ASSERT_EQ(messages.size(), 3u);
    EXPECT_EQ(messages.front().code, 5);
    EXPECT_EQ(std::next(messages.begin())->code, 1);
    EXPECT_EQ(messages.back().code, 7);
}

TEST(ParserTest, OneParserServesSeveralTexts)
{
    Cpp::Parser parser;
    for (int i = 0; i < 3; ++i) {
        std::istringstream in(i == 1 ? "int" : "int x;");
        Cpp::Lexer lexer(in);
        Cpp::RootNode root;
        Trn::FormatMessageList messages;
        parser.parse(lexer, root, messages);
        EXPECT_EQ(messages.size(), i == 1 ? 2u : 0u) << i;
        EXPECT_EQ(root.size(), i == 1 ? 0u : 1u) << i;
    }
}

TEST(ParserTest, LoneNameIsData)
{
    EXPECT_TREE("foo;", "RootNode 1:1-1:4\n"
                        "  DataDeclNode 1:1-1:4\n"
                        "    IdNode 1:1-1:3 text=\"foo\"\n");
}

TEST(ParserTest, CallAtFileLevelIsABodylessFunction)
{
    EXPECT_TREE("foo(a, b);", "RootNode 1:1-1:10\n"
                              "  FunctionDeclNode 1:1-1:10\n"
                              "    FunctionHeadNode 1:1-1:10\n"
                              "      IdNode 1:1-1:3 text=\"foo\"\n"
                              "      ParameterListNode 1:4-1:9\n"
                              "        ParameterNode 1:5-1:5\n"
                              "        ParameterNode 1:8-1:8\n");
}

TEST(ParserTest, EqualsStopsClassificationFirst)
{
    EXPECT_TREE("int x = f(1);", "RootNode 1:1-1:13\n"
                                 "  DataDeclNode 1:1-1:13\n"
                                 "    TypeNode 1:1-1:3\n"
                                 "    IdNode 1:5-1:5 text=\"x\"\n"
                                 "    ExprNode 1:7-1:13\n");
}

TEST(ParserTest, AssignmentOperatorReachesTheFunctionHeadByTheEqualsRow)
{
    EXPECT_TREE("X::operator=(const X&) { }", "RootNode 1:1-1:26\n"
                                              "  FunctionDeclNode 1:1-1:26\n"
                                              "    FunctionHeadNode 1:1-1:22\n"
                                              "      IdNode 1:1-1:12 text=\"X::operator =\"\n"
                                              "      ParameterListNode 1:13-1:22\n"
                                              "        ParameterNode 1:14-1:21\n"
                                              "    BlockNode 1:24-1:26\n");
}

TEST(ParserTest, CallOperatorReachesTheFunctionHeadByTheParenthesisRow)
{
    EXPECT_TREE("bool operator()(int a) const;", "RootNode 1:1-1:29\n"
                                                 "  FunctionDeclNode 1:1-1:29\n"
                                                 "    FunctionHeadNode 1:1-1:29\n"
                                                 "      FunctionReturnNode 1:1-1:4\n"
                                                 "      IdNode 1:6-1:15 text=\"operator ( )\"\n"
                                                 "      ParameterListNode 1:16-1:22\n"
                                                 "        ParameterNode 1:17-1:21\n"
                                                 "      TextNode 1:24-1:28\n");
}

TEST(ParserTest, FunctionPointersAreData)
{
    EXPECT_TREE("int (*f)(int);", "RootNode 1:1-1:14\n"
                                  "  FunctionPtrDeclNode 1:1-1:14\n"
                                  "    TypeNode 1:1-1:3\n"
                                  "    IdNode 1:5-1:8 text=\"( * f )\"\n"
                                  "    ParameterListNode 1:9-1:13\n"
                                  "      ParameterNode 1:10-1:12\n");
    EXPECT_TREE("void (*g[3])(void);", "RootNode 1:1-1:19\n"
                                       "  FunctionPtrDeclNode 1:1-1:19\n"
                                       "    TypeNode 1:1-1:4\n"
                                       "    IdNode 1:6-1:12 text=\"( * g [ 3 ] )\"\n"
                                       "    ParameterListNode 1:13-1:18\n"
                                       "      ParameterNode 1:14-1:17\n");
}

TEST(ParserTest, AngleDepthKeepsParenthesesOfTemplateArgumentsFromClassifying)
{
    EXPECT_TREE("template<class T> class A<T*> {};", "RootNode 1:1-1:33\n"
                                                      "  TemplateNode 1:1-1:17\n"
                                                      "    KeywordNode 1:1-1:8 type=TEMPLATE_KEY\n"
                                                      "    ParameterListNode 1:9-1:17\n"
                                                      "      ParameterNode 1:10-1:16\n"
                                                      "  ClassDeclNode 1:19-1:33\n"
                                                      "    ClassHeadNode 1:19-1:29\n"
                                                      "      ClassNameNode 1:19-1:29 type=CLASS_KEY text=\"class A < T * >\"\n"
                                                      "    ClassBodyNode 1:31-1:32\n");
    // A "(" inside angle brackets does not make a function: `A<f(1)> x;` is
    // data. The split of data knows no angle brackets: the "(" splits it.
    EXPECT_TREE("A<f(1)> x;", "RootNode 1:1-1:10\n"
                              "  DataDeclNode 1:1-1:10\n"
                              "    TypeNode 1:1-1:2\n"
                              "    IdNode 1:3-1:3 text=\"f\"\n"
                              "    ExprNode 1:4-1:10\n");
}

TEST(ParserTest, DisabledBlockIsOneDirectiveWithNestedConditionalsCounted)
{
    EXPECT_TREE("#if 0\n}}} (( #if 1\n#endif\nclass {\n#endif\nint y;",
                "RootNode 1:1-6:6\n"
                "  PreprocDirectiveNode 1:1-6:0\n"
                "  DataDeclNode 6:1-6:6\n"
                "    TypeNode 6:1-6:3\n"
                "    IdNode 6:5-6:5 text=\"y\"\n");
}

TEST(ParserTest, WhiteSpaceInsideTheDirectiveIsIgnored)
{
    EXPECT_TREE("# if 0\nx y z\n# endif\n", "RootNode 1:1-4:0\n"
                                           "  PreprocDirectiveNode 1:1-4:0\n");
    EXPECT_TREE("#if 1\nint x;\n#endif\n", "RootNode 1:1-4:0\n"
                                           "  PreprocDirectiveNode 1:1-2:0\n"
                                           "  DataDeclNode 2:1-2:6\n"
                                           "    TypeNode 2:1-2:3\n"
                                           "    IdNode 2:5-2:5 text=\"x\"\n"
                                           "  PreprocDirectiveNode 3:1-4:0\n");
}

// The end-of-file token stands where the last token ended.
TEST(ParserTest, UnclosedDisabledBlockIsEndOfInput)
{
    EXPECT_EQ(TwTest::messagesOf("int a;\n#if 0\nint b;\n"), "3:6 code=1 Unexpected EOF found.\n");
}

TEST(ParserTest, ProtectedRegionIsOneComment)
{
    EXPECT_TREE("// TIDEWRIGHT-OFF\nfoo {{ bar\n// TIDEWRIGHT-ON\nint x;",
                "RootNode 1:1-4:6\n"
                "  CommentNode 1:1-4:0 protected=1\n"
                "  DataDeclNode 4:1-4:6\n"
                "    TypeNode 4:1-4:3\n"
                "    IdNode 4:5-4:5 text=\"x\"\n");
    // Nested regions close with the outermost marker; block comments serve too.
    EXPECT_TREE("/* TIDEWRIGHT-OFF */ a /*TIDEWRIGHT-OFF*/ b /* TIDEWRIGHT-ON */ c /* TIDEWRIGHT-ON */",
                "RootNode 1:1-1:85\n"
                "  CommentNode 1:1-1:85 protected=1\n");
}

TEST(ParserTest, MarkerFollowedByAFurtherWordIsNoRegion)
{
    EXPECT_TREE("// TIDEWRIGHT-OFF now\nint x;\n", "RootNode 1:1-2:6\n"
                                                 "  CommentNode 1:1-2:0 text=\"// TIDEWRIGHT-OFF now\\n\"\n"
                                                 "  DataDeclNode 2:1-2:6\n"
                                                 "    TypeNode 2:1-2:3\n"
                                                 "    IdNode 2:5-2:5 text=\"x\"\n");
}

TEST(ParserTest, UnclosedProtectedRegionIsEndOfInput)
{
    EXPECT_EQ(TwTest::messagesOf("// TIDEWRIGHT-OFF\nint x;\n"), "2:6 code=1 Unexpected EOF found.\n");
}

TEST(ParserTest, StrayTokensAtFileLevelDisappear)
{
    EXPECT_TREE("int a;\n}\n;\nint b;", "RootNode 1:1-4:6\n"
                                        "  DataDeclNode 1:1-1:6\n"
                                        "    TypeNode 1:1-1:3\n"
                                        "    IdNode 1:5-1:5 text=\"a\"\n"
                                        "  DataDeclNode 4:1-4:6\n"
                                        "    TypeNode 4:1-4:3\n"
                                        "    IdNode 4:5-4:5 text=\"b\"\n");
    EXPECT_TREE("}", "RootNode 0:0-0:0\n");
}

TEST(ParserTest, UsingDeclarationHasNoNode)
{
    EXPECT_TREE("using namespace std;\nint a;", "RootNode 2:1-2:6\n"
                                               "  DataDeclNode 2:1-2:6\n"
                                               "    TypeNode 2:1-2:3\n"
                                               "    IdNode 2:5-2:5 text=\"a\"\n");
}

TEST(ParserTest, CodeFragmentsAtFileLevel)
{
    EXPECT_TREE("{ x = 1; }\nreturn 0;\nif (a) b;",
                "RootNode 1:1-3:9\n"
                "  BlockNode 1:1-1:10\n"
                "    ExprNode 1:3-1:8\n"
                "  ExprNode 2:1-2:9\n"
                "  CtrlStmtNode 3:1-3:9\n"
                "    CtrlSubStmtNode 3:1-3:9\n"
                "      CtrlSubStmtHeadNode 3:1-3:6\n"
                "        KeywordNode 3:1-3:2 type=IF_KEY\n"
                "        ExprNode 3:4-3:6\n"
                "      BlockNode 3:8-3:9\n"
                "        ExprNode 3:8-3:9\n");
}

TEST(ParserTest, MacroBlockForm)
{
    EXPECT_TREE("BEGIN_MAP /* c */ { ENTRY(1) }", "RootNode 1:1-1:30\n"
                                                 "  ExprNode 1:1-1:9\n"
                                                 "  BlockNode 1:19-1:30\n"
                                                 "    ExprNode 1:21-1:28\n");
}

TEST(ParserTest, FunctionLikeMacroBeforeADeclarationIsABodylessFunction)
{
    // Code 2 marks the head that was taken for a macro; the driver drops it.
    EXPECT_TREE("MACRO(x) int y;", "RootNode 1:1-1:15\n"
                                   "  FunctionDeclNode 1:1-1:8\n"
                                   "    FunctionHeadNode 1:1-1:8\n"
                                   "      IdNode 1:1-1:5 text=\"MACRO\"\n"
                                   "      ParameterListNode 1:6-1:8\n"
                                   "        ParameterNode 1:7-1:7\n"
                                   "  DataDeclNode 1:10-1:15\n"
                                   "    TypeNode 1:10-1:12\n"
                                   "    IdNode 1:14-1:14 text=\"y\"\n"
                                   "! 1:10 code=2 Unexpected token. Was expecting to find \";\" or \"{\".\n");
}

TEST(ParserTest, TwoFunctionsInOneDeclaration)
{
    EXPECT_TREE("int f(), g();", "RootNode 1:1-1:13\n"
                                 "  FunctionDeclNode 1:1-1:8\n"
                                 "    FunctionHeadNode 1:1-1:8\n"
                                 "      FunctionReturnNode 1:1-1:3\n"
                                 "      IdNode 1:5-1:5 text=\"f\"\n"
                                 "      ParameterListNode 1:6-1:7\n"
                                 "  FunctionDeclNode 1:10-1:13\n"
                                 "    FunctionHeadNode 1:10-1:13\n"
                                 "      IdNode 1:10-1:10 text=\"g\"\n"
                                 "      ParameterListNode 1:11-1:12\n");
}

TEST(ParserTest, DeclarationThatCannotBeParsedIsCodeSevenAtItsFirstToken)
{
    EXPECT_EQ(TwTest::messagesOf("int a;\n  int b"), "2:7 code=1 Unexpected EOF found.\n"
                                                   "2:3 code=7 The statement cannot be parsed.\n");
    // The top loop goes on: several errors can come from one file.
    EXPECT_EQ(TwTest::messagesOf("public x;\nint y;\nprotected z;"),
              "1:1 code=7 The statement cannot be parsed.\n3:1 code=7 The statement cannot be parsed.\n");
}

TEST(ParserTest, StructWithDeclaratorLeavesTheDeclaratorToTheNextItem)
{
    EXPECT_TREE("struct { int x; } v;", "RootNode 1:1-1:20\n"
                                        "  ClassDeclNode 1:1-1:17\n"
                                        "    ClassHeadNode 1:1-1:6\n"
                                        "      ClassNameNode 1:1-1:6 type=STRUCT_KEY text=\"struct\"\n"
                                        "    ClassBodyNode 1:8-1:17\n"
                                        "      DataDeclNode 1:10-1:15\n"
                                        "        TypeNode 1:10-1:12\n"
                                        "        IdNode 1:14-1:14 text=\"x\"\n"
                                        "  DataDeclNode 1:19-1:20\n"
                                        "    IdNode 1:19-1:19 text=\"v\"\n");
}

TEST(ParserTest, WordsOfTheParser)
{
    const auto identifier = [](const std::string& text) {
        return Trn::Token(Cpp::IDENTIFIER, Trn::Position(1, 1), Trn::Position(1, 1), text);
    };
    for (const char* word : {"__based", "_based", "__assume", "__declspec"})
        EXPECT_TRUE(Cpp::isExtensionWord(identifier(word))) << word;
    for (const char* word : {"asm", "_asm", "__asm", "asm_", "asm__", "_asm_", "__asm__", "___asm"})
        EXPECT_TRUE(Cpp::isAsmWord(identifier(word))) << word;
    EXPECT_TRUE(Cpp::isAsmWord(Trn::Token(Cpp::ASM_KEY, Trn::Position(1, 1), Trn::Position(1, 3), "asm")));
    EXPECT_TRUE(Cpp::isInterruptWord(identifier("interrupt")));
    EXPECT_FALSE(Cpp::isInterruptWord(identifier("interrupts")));
    EXPECT_TRUE(Cpp::isQualifiedName(identifier("::B")));
    EXPECT_TRUE(Cpp::isQualifiedName(identifier("A::")));
    EXPECT_FALSE(Cpp::isQualifiedName(identifier("::")));
    EXPECT_FALSE(Cpp::isQualifiedName(identifier("A::B")));
    EXPECT_TRUE(Cpp::isQualifiedName(Trn::Token(Cpp::OPERATOR_KEY, {1, 1}, {1, 10}, "::operator")));
    EXPECT_FALSE(Cpp::isQualifiedName(Trn::Token(Cpp::COLON, {1, 1}, {1, 3}, "::x")));
}

TEST(ParserTest, EveryTextIsReadToItsEnd)
{
    for (const char* text : {"int main() { return 0; }", "}}} ((( 'x", "\x01\x02\xff", "class", "#if 0"}) {
        std::istringstream in(text);
        Cpp::Lexer lexer(in);
        Cpp::RootNode root;
        Trn::FormatMessageList messages;
        Cpp::Parser().parse(lexer, root, messages);
        EXPECT_EQ(lexer.next().type(), Cpp::END_OF_FILE) << text;
    }
}

// The shape of a tree: its dump with every position taken out.
std::string shapeOf(const std::string& text)
{
    std::string shape;
    std::istringstream lines(TwTest::treeOf(text));
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string word;
        const std::size_t indent = line.find_first_not_of(' ');
        shape += std::string(indent, ' ');
        while (words >> word)
            if (word.find_first_not_of("0123456789:-") != std::string::npos)
                shape += word + " ";
        shape += "\n";
    }
    return shape;
}

TEST(ParserTest, LookAheadPastManyCommentsFindsTheSameTokens)
{
    // The macro-block form and a declaration behind a run of comments: however
    // many comments stand between, the parser sees the same tokens.
    const std::string plain = shapeOf("FOO\n{ x; }\n");
    const std::string declaration = shapeOf("int\nf() { x; }\n");
    for (int n = 1; n <= 20; ++n) {
        std::string comments;
        for (int i = 1; i <= n; ++i)
            comments += "// c" + std::to_string(i) + "\n";
        const std::string text = "FOO\n" + comments + "{ x; }\n";
        EXPECT_EQ(shapeOf(text), plain) << n;
        TwTest::Parsed parsed;
        TwTest::parseText(text, parsed);
        EXPECT_TRUE(parsed.messages.empty()) << n;
        EXPECT_EQ(TwTest::checkTree(parsed.root, text), "") << n;
        const std::string inside = "int\n" + comments + "f() { x; }\n";
        TwTest::Parsed parsedInside;
        TwTest::parseText(inside, parsedInside);
        EXPECT_TRUE(parsedInside.messages.empty()) << n;
        EXPECT_EQ(TwTest::checkTree(parsedInside.root, inside), "") << n;
    }
}

TEST(ParserTest, OffMarkerFarAheadIsFoundBehindManyComments)
{
    // nextSignificant skips a TIDEWRIGHT-OFF region that lies behind many
    // comments; before, the window lost the marker and the parse went astray.
    std::string text = "FOO\n";
    for (int i = 0; i < 12; ++i)
        text += "// c\n";
    text += "// TIDEWRIGHT-OFF\n]]] ((( \n// TIDEWRIGHT-ON\n{ x; }\n";
    TwTest::Parsed parsed;
    TwTest::parseText(text, parsed);
    EXPECT_TRUE(parsed.messages.empty());
    EXPECT_EQ(TwTest::checkTree(parsed.root, text), "");
}

// --- Extensions for real-world code: a text the core rules refuse is read
// again with them. ---

TEST(ParserTest, MacroLineWithoutSemicolonAtTheEndOfTheText)
{
    // The tree `G_END_DECLS;` would have, without the semicolon.
    EXPECT_TREE("int a;\n#ifdef __cplusplus\nG_END_DECLS\n#endif\n", "RootNode 1:1-5:0\n"
                                                                    "  DataDeclNode 1:1-1:6\n"
                                                                    "    TypeNode 1:1-1:3\n"
                                                                    "    IdNode 1:5-1:5 text=\"a\"\n"
                                                                    "  PreprocDirectiveNode 2:1-3:0\n"
                                                                    "  DataDeclNode 3:1-3:11\n"
                                                                    "    IdNode 3:1-3:11 text=\"G_END_DECLS\"\n"
                                                                    "  PreprocDirectiveNode 4:1-5:0\n");
    EXPECT_TREE("G_END_DECLS;", "RootNode 1:1-1:12\n"
                                "  DataDeclNode 1:1-1:12\n"
                                "    IdNode 1:1-1:11 text=\"G_END_DECLS\"\n");
}

TEST(ParserTest, MacroLineWithoutSemicolonBeforeTheClosingBrace)
{
    // A comment behind the macro stays with the body.
    EXPECT_TREE("namespace a {\nint x;\nNS_END // end\n}\n", "RootNode 1:1-4:1\n"
                                                              "  NamespaceDeclNode 1:1-4:1\n"
                                                              "    NamespaceHeadNode 1:1-1:11 text=\"a\"\n"
                                                              "    NamespaceBodyNode 1:13-4:1\n"
                                                              "      DataDeclNode 2:1-2:6\n"
                                                              "        TypeNode 2:1-2:3\n"
                                                              "        IdNode 2:5-2:5 text=\"x\"\n"
                                                              "      DataDeclNode 3:1-3:6\n"
                                                              "        IdNode 3:1-3:6 text=\"NS_END\"\n"
                                                              "      CommentNode 3:8-4:0 text=\"// end\\n\"\n");
    EXPECT_TREE("class A {\n  Q_OBJECT\n};", "RootNode 1:1-3:2\n"
                                             "  ClassDeclNode 1:1-3:2\n"
                                             "    ClassHeadNode 1:1-1:7\n"
                                             "      ClassNameNode 1:1-1:7 type=CLASS_KEY text=\"class A\"\n"
                                             "    ClassBodyNode 1:9-3:1\n"
                                             "      DataDeclNode 2:3-2:10\n"
                                             "        IdNode 2:3-2:10 text=\"Q_OBJECT\"\n");
}

TEST(ParserTest, MacroLineWithoutSemicolonBeforeNamespaceUsingOrExtern)
{
    EXPECT_TREE("NS_END\nnamespace b { }\n", "RootNode 1:1-2:15\n"
                                               "  DataDeclNode 1:1-1:6\n"
                                               "    IdNode 1:1-1:6 text=\"NS_END\"\n"
                                               "  NamespaceDeclNode 2:1-2:15\n"
                                               "    NamespaceHeadNode 2:1-2:11 text=\"b\"\n"
                                               "    NamespaceBodyNode 2:13-2:15\n");
    // `using` and `extern` after a macro line: a text that needs the
    // extensions (here for `NS_END` at its end) reads them as their own items.
    EXPECT_TREE("BEGIN_DECLS\nusing X = Y;\nBEGIN_C\nextern int x;\nNS_END\n",
                "RootNode 1:1-5:6\n"
                "  DataDeclNode 1:1-1:11\n"
                "    IdNode 1:1-1:11 text=\"BEGIN_DECLS\"\n"
                "  DataDeclNode 3:1-3:7\n"
                "    IdNode 3:1-3:7 text=\"BEGIN_C\"\n"
                "  DataDeclNode 4:1-4:13\n"
                "    TypeNode 4:1-4:10\n"
                "    IdNode 4:12-4:12 text=\"x\"\n"
                "  DataDeclNode 5:1-5:6\n"
                "    IdNode 5:1-5:6 text=\"NS_END\"\n");
}

TEST(ParserTest, TextTheCoreRulesAcceptKeepsItsTree)
{
    // A macro in front of a declaration on the line before: the core rules
    // read one declaration, and a text they accept keeps that reading...
    EXPECT_TREE("EXPORT\nextern int x;\n", "RootNode 1:1-2:13\n"
                                            "  DataDeclNode 1:1-2:13\n"
                                            "    TypeNode 1:1-2:10\n"
                                            "    IdNode 2:12-2:12 text=\"x\"\n");
    EXPECT_TREE("FOO\nint x;\n", "RootNode 1:1-2:6\n"
                                 "  DataDeclNode 1:1-2:6\n"
                                 "    TypeNode 1:1-2:3\n"
                                 "    IdNode 2:5-2:5 text=\"x\"\n");
    // ...which the extended reading gives too where no rule of its own applies.
    EXPECT_EQ(TwTest::extendedTreeOf("FOO\nint x;\n"), TwTest::treeOf("FOO\nint x;\n"));
    EXPECT_EQ(TwTest::extendedTreeOf("MACRO(x) int y;"), TwTest::treeOf("MACRO(x) int y;"));
}

TEST(ParserTest, MacroLineWithParenthesesIsABodylessFunction)
{
    EXPECT_TREE("namespace a {\nDECLARE(x)\n}\n", "RootNode 1:1-3:1\n"
                                                   "  NamespaceDeclNode 1:1-3:1\n"
                                                   "    NamespaceHeadNode 1:1-1:11 text=\"a\"\n"
                                                   "    NamespaceBodyNode 1:13-3:1\n"
                                                   "      FunctionDeclNode 2:1-2:10\n"
                                                   "        FunctionHeadNode 2:1-2:10\n"
                                                   "          IdNode 2:1-2:7 text=\"DECLARE\"\n"
                                                   "          ParameterListNode 2:8-2:10\n"
                                                   "            ParameterNode 2:9-2:9\n"
                                                   "! 3:1 code=2 Unexpected token. Was expecting to find \";\" or \"{\".\n");
}

// The note a refusal takes when a word that reads like a macro stands near it.
std::string macroNote(const std::string& word)
{
    return " (is " + word +
           " a macro? Put code that Tidewright cannot read between TIDEWRIGHT-OFF and TIDEWRIGHT-ON comments; see "
           "\"When a file does not parse\" in the README)";
}

TEST(ParserTest, MacroLineNearMissesStayRefused)
{
    // Two words are no macro line; nor is a keyword.
    EXPECT_EQ(TwTest::messagesOf("FOO BAR\n}\n"), "2:1 code=1 Unexpected EOF found.\n"
                                                 "1:1 code=7 The statement cannot be parsed.\n");
    EXPECT_EQ(TwTest::messagesOf("namespace a {\nint\n}\n"), "3:1 code=1 Unexpected EOF found.\n"
                                                           "2:1 code=7 The statement cannot be parsed.\n");
    // A name followed by anything else goes on as a declaration.
    EXPECT_EQ(TwTest::messagesOf("FOO\nint x"), "2:5 code=1 Unexpected EOF found.\n"
                                                "1:1 code=7 The statement cannot be parsed.\n");
}

TEST(ParserTest, RefusalNamesTheWordThatReadsLikeAMacro)
{
    // The last such word at or before the first error, within three lines;
    // only the first error takes the note.
    EXPECT_EQ(TwTest::messagesOf("struct S {\n  CONSTCD11 explicit operator unsigned() const NOEXCEPT;\n};\n"),
              "2:48 code=2 Unexpected token. Was expecting to find \";\" or \"{\".\n"
              "2:31 code=0 Expected function name. Got: unsigned" + macroNote("CONSTCD11") + "\n"
              "2:3 code=7 The statement cannot be parsed.\n"
              "1:1 code=7 The statement cannot be parsed.\n");
    // The end of input is never blamed on the last word before it.
    EXPECT_EQ(TwTest::messagesOf("int f(\n#ifdef A\nint a\n#endif\nNS_DECL(Lt, x) BAR(\n"),
              "5:19 code=1 Unexpected EOF found.\n"
              "1:1 code=7 The statement cannot be parsed.\n");
    // No such word near the fault: no note.
    EXPECT_EQ(TwTest::messagesOf("namespace a {\nint\n}\n"), "3:1 code=1 Unexpected EOF found.\n"
                                                           "2:1 code=7 The statement cannot be parsed.\n");
    EXPECT_EQ(TwTest::messagesOf("MACRO\n\n\n\nnamespace a {\nint\n}\n"),
              "7:1 code=1 Unexpected EOF found.\n"
              "6:1 code=7 The statement cannot be parsed.\n");
    // The core rules' messages stay as they were.
    EXPECT_EQ(TwTest::coreMessagesOf("FOO\nint x").find(" a macro?"), std::string::npos);
}

// A stream buffer over a string that cannot be set back, like a pipe's.
class ForwardOnlyBuf : public std::streambuf {
public:
    explicit ForwardOnlyBuf(std::string text) : m_text(std::move(text))
    {
        setg(m_text.data(), m_text.data(), m_text.data() + m_text.size());
    }

private:
    std::string m_text;
};

TEST(ParserTest, TextThatCannotBeReadAgainIsReadByTheCoreRulesOnly)
{
    ForwardOnlyBuf buf("int a;\nG_END_DECLS\n");
    std::istream in(&buf);
    Cpp::Lexer lexer(in);
    Cpp::RootNode root;
    Trn::FormatMessageList messages;
    Cpp::Parser().parse(lexer, root, messages);
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_EQ(messages.front().code, 1);
    EXPECT_EQ(messages.back().code, 7);
    EXPECT_EQ(messages.back().position, Trn::Position(2, 1));
}

TEST(ParserTest, MacroOpeningAScopeOfDeclarations)
{
    // The braces hold declarations: a scope like a namespace's.
    EXPECT_TREE("NS_START\n{\nvoid f() { g(); }\n}\nNS_END\n", "RootNode 1:1-5:6\n"
                                                              "  NamespaceDeclNode 1:1-4:1\n"
                                                              "    NamespaceHeadNode 1:1-1:8 text=\"NS_START\"\n"
                                                              "    NamespaceBodyNode 2:1-4:1\n"
                                                              "      FunctionDeclNode 3:1-3:17\n"
                                                              "        FunctionHeadNode 3:1-3:8\n"
                                                              "          FunctionReturnNode 3:1-3:4\n"
                                                              "          IdNode 3:6-3:6 text=\"f\"\n"
                                                              "          ParameterListNode 3:7-3:8\n"
                                                              "        BlockNode 3:10-3:17\n"
                                                              "          ExprNode 3:12-3:15\n"
                                                              "  DataDeclNode 5:1-5:6\n"
                                                              "    IdNode 5:1-5:6 text=\"NS_END\"\n");
    // Inside a namespace too.
    EXPECT_EQ(TwTest::messagesOf("namespace a {\nIMPL_START {\nclass A;\n}\n}\n"), "");
    // Braces that hold statements keep the macro-block form.
    EXPECT_EQ(TwTest::extendedTreeOf("BEGIN_MAP /* c */ { ENTRY(1) }"),
              TwTest::treeOf("BEGIN_MAP /* c */ { ENTRY(1) }"));
}

TEST(ParserTest, MacroLineWithoutSemicolonBeforeADirective)
{
    EXPECT_TREE("BEGIN_CLEAN\n#include <string>\nEND_CLEAN\nnamespace a { }\n",
                "RootNode 1:1-4:15\n"
                "  DataDeclNode 1:1-1:11\n"
                "    IdNode 1:1-1:11 text=\"BEGIN_CLEAN\"\n"
                "  PreprocDirectiveNode 2:1-3:0\n"
                "  DataDeclNode 3:1-3:9\n"
                "    IdNode 3:1-3:9 text=\"END_CLEAN\"\n"
                "  NamespaceDeclNode 4:1-4:15\n"
                "    NamespaceHeadNode 4:1-4:11 text=\"a\"\n"
                "    NamespaceBodyNode 4:13-4:15\n");
}

TEST(ParserTest, BracesBalancedOnlyAcrossBranchesAreReadWithTheFirstBranch)
{
    // A parameter list closed in both branches: the #else branch and its
    // #endif are one directive, which lies between the head and the body.
    EXPECT_TREE("int f(\n#ifdef WIDE\n      long a, long b)\n#else\n      int a)\n#endif\n{\n    return a;\n}\n",
                "RootNode 1:1-9:1\n"
                "  FunctionDeclNode 1:1-9:1\n"
                "    FunctionHeadNode 1:1-3:21\n"
                "      FunctionReturnNode 1:1-1:3\n"
                "      IdNode 1:5-1:5 text=\"f\"\n"
                "      ParameterListNode 1:6-3:21\n"
                "        PreprocDirectiveNode 2:1-3:0\n"
                "        ParameterNode 3:7-3:12\n"
                "        ParameterNode 3:15-3:20\n"
                "    BlockNode 7:1-9:1\n"
                "      ExprNode 8:5-8:13\n");
    // Two heads of a control statement.
    EXPECT_TREE("void h() {\n#if A\n  if (x) {\n#else\n  if (y) {\n#endif\n    run();\n  }\n}\n",
                "RootNode 1:1-9:1\n"
                "  FunctionDeclNode 1:1-9:1\n"
                "    FunctionHeadNode 1:1-1:8\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"h\"\n"
                "      ParameterListNode 1:7-1:8\n"
                "    BlockNode 1:10-9:1\n"
                "      PreprocDirectiveNode 2:1-3:0\n"
                "      CtrlStmtNode 3:3-8:3\n"
                "        CtrlSubStmtNode 3:3-8:3\n"
                "          CtrlSubStmtHeadNode 3:3-3:8\n"
                "            KeywordNode 3:3-3:4 type=IF_KEY\n"
                "            ExprNode 3:6-3:8\n"
                "          BlockNode 3:10-8:3\n"
                "            PreprocDirectiveNode 4:1-7:0\n"
                "            ExprNode 7:5-7:10\n");
}

TEST(ParserTest, BranchesAreFoldedOnlyForATextRefusedOtherwise)
{
    // A text that reads with every branch keeps its directives apart.
    const std::string text = "#ifdef A\nint x;\n#else\nlong x;\n#endif\n";
    EXPECT_EQ(TwTest::treeOf(text), "RootNode 1:1-6:0\n"
                                    "  PreprocDirectiveNode 1:1-2:0\n"
                                    "  DataDeclNode 2:1-2:6\n"
                                    "    TypeNode 2:1-2:3\n"
                                    "    IdNode 2:5-2:5 text=\"x\"\n"
                                    "  PreprocDirectiveNode 3:1-4:0\n"
                                    "  DataDeclNode 4:1-4:7\n"
                                    "    TypeNode 4:1-4:4\n"
                                    "    IdNode 4:6-4:6 text=\"x\"\n"
                                    "  PreprocDirectiveNode 5:1-6:0\n");
    // A text refused even with the branches folded reports what the reading
    // without folding found.
    const std::string bad = "#ifdef A\nint f(\n#else\nint f(\n#endif\nint a) { ) }\n";
    std::string extendedMessages;
    std::istringstream dump(TwTest::extendedTreeOf(bad));
    for (std::string line; std::getline(dump, line);)
        if (line.starts_with("! "))
            extendedMessages += line.substr(2) + "\n";
    EXPECT_FALSE(extendedMessages.empty());
    EXPECT_EQ(TwTest::messagesOf(bad), extendedMessages);
}

TEST(ParserTest, RunOfMacroLinesEndingAtADirectiveOrTheEnd)
{
    EXPECT_TREE("int f(void);\nG_GNUC_END_IGNORE\n\nG_END_DECLS\n#endif\n",
                "RootNode 1:1-6:0\n"
                "  FunctionDeclNode 1:1-1:12\n"
                "    FunctionHeadNode 1:1-1:12\n"
                "      FunctionReturnNode 1:1-1:3\n"
                "      IdNode 1:5-1:5 text=\"f\"\n"
                "      ParameterListNode 1:6-1:11\n"
                "        ParameterNode 1:7-1:10\n"
                "  DataDeclNode 2:1-2:17\n"
                "    IdNode 2:1-2:17 text=\"G_GNUC_END_IGNORE\"\n"
                "  DataDeclNode 4:1-4:11\n"
                "    IdNode 4:1-4:11 text=\"G_END_DECLS\"\n"
                "  PreprocDirectiveNode 5:1-6:0\n");
    // A run that ends in a declaration keeps the older reading.
    EXPECT_EQ(TwTest::extendedTreeOf("FOO\nBar\nbaz;\n"), TwTest::treeOf("FOO\nBar\nbaz;\n"));
}

// --- Later extensions: readings of their own, attributes and alignas. ---

TEST(ParserTest, AttributesAndAlignasDecideNothing)
{
    // Read with the later extensions (the braced value in the condition needs
    // them), an attribute or `alignas(...)` before a declaration is part of
    // its type, its return type or its class name, and the declaration keeps
    // the kind its other words give it.
    EXPECT_TREE("[[nodiscard]] static int count(const char* s);\n"
                "alignas(16) char buffer[64];\n"
                "struct alignas(8) Pair { int a; };\n"
                "void f() { if (n != int{}) { } }\n",
                "RootNode 1:1-4:32\n"
                "  FunctionDeclNode 1:1-1:46\n"
                "    FunctionHeadNode 1:1-1:46\n"
                "      FunctionReturnNode 1:1-1:24\n"
                "      IdNode 1:26-1:30 text=\"count\"\n"
                "      ParameterListNode 1:31-1:45\n"
                "        ParameterNode 1:32-1:44\n"
                "  DataDeclNode 2:1-2:28\n"
                "    TypeNode 2:1-2:16\n"
                "    IdNode 2:18-2:27 text=\"buffer [ 64 ]\"\n"
                "  ClassDeclNode 3:1-3:34\n"
                "    ClassHeadNode 3:1-3:22\n"
                "      ClassNameNode 3:1-3:22 type=STRUCT_KEY text=\"struct alignas ( 8 ) Pair\"\n"
                "    ClassBodyNode 3:24-3:33\n"
                "      DataDeclNode 3:26-3:31\n"
                "        TypeNode 3:26-3:28\n"
                "        IdNode 3:30-3:30 text=\"a\"\n"
                "  FunctionDeclNode 4:1-4:32\n"
                "    FunctionHeadNode 4:1-4:8\n"
                "      FunctionReturnNode 4:1-4:4\n"
                "      IdNode 4:6-4:6 text=\"f\"\n"
                "      ParameterListNode 4:7-4:8\n"
                "    BlockNode 4:10-4:32\n"
                "      CtrlStmtNode 4:12-4:30\n"
                "        CtrlSubStmtNode 4:12-4:30\n"
                "          CtrlSubStmtHeadNode 4:12-4:26\n"
                "            KeywordNode 4:12-4:13 type=IF_KEY\n"
                "            ExprNode 4:15-4:26\n"
                "          BlockNode 4:28-4:30\n");
}

TEST(ParserTest, TextAnEarlierReadingAcceptsKeepsItsTree)
{
    // The extended reading accepts this text, reading the attributed function
    // as data; the later extensions would read a function. The text keeps the
    // tree of the first reading that accepts it.
    const std::string text = "[[noreturn]] static void fail(int x);\nNS_END\n";
    EXPECT_EQ(TwTest::treeOf(text), TwTest::extendedTreeOf(text));
    EXPECT_NE(TwTest::treeOf(text).find("DataDeclNode 1:1-1:37"), std::string::npos);
    EXPECT_NE(TwTest::laterTreeOf(text).find("FunctionDeclNode 1:1-1:37"), std::string::npos);
}

TEST(ParserTest, AttributeWithParenthesesIsNoParameterList)
{
    EXPECT_NE(TwTest::laterTreeOf("[[deprecated(\"use g\")]] int f(int x);\n")
                  .find("IdNode 1:29-1:29 text=\"f\""),
              std::string::npos);
}

} // namespace
