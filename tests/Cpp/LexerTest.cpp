// The C++ lexer: token kinds, exact texts and positions, and every odd case
// that the later passes rely on.
#include "LexerTestSupport.h"

#include <gtest/gtest.h>

namespace {

using TestSupport::dump;
using TestSupport::lex;
using TestSupport::texts;
using TestSupport::types;
using Lines = std::vector<std::string>;
using Types = std::vector<std::int32_t>;

TEST(LexerTest, KeywordsMapToTheirFixedNumbers)
{
    EXPECT_EQ(types("friend struct"), (Types{72, 55}));
    EXPECT_EQ(types("class reinterpret_cast void"), (Types{Cpp::CLASS_KEY, Cpp::REINTERPRET_CAST_KEY, 117}));
}

TEST(LexerTest, ExtensionWordsStayIdentifiers)
{
    for (const char* word : {"__based", "_based", "__assume", "__declspec", "_asm", "__asm", "asm_", "asm__",
                             "_asm_", "__asm__", "___asm", "interrupt"}) {
        const auto tokens = lex(word);
        ASSERT_EQ(tokens.size(), 1u) << word;
        EXPECT_EQ(tokens[0].type(), Cpp::IDENTIFIER) << word;
        EXPECT_EQ(tokens[0].text(), word);
    }
    EXPECT_EQ(types("asm"), (Types{Cpp::ASM_KEY}));
}

TEST(LexerTest, BlankAfterNameEndsIt)
{
    EXPECT_EQ(dump("A :: B"), (Lines{R"(1:1 1:1 120 IDENTIFIER "A")", R"(1:3 1:6 120 IDENTIFIER "::B")"}));
}

TEST(LexerTest, BlankAfterQualificationIsDropped)
{
    EXPECT_EQ(dump("A:: B"), (Lines{R"(1:1 1:5 120 IDENTIFIER "A::B")"}));
    EXPECT_EQ(texts("A::\n  b"), (Lines{"A::b"}));
}

TEST(LexerTest, OperatorSplitOffQualifiedName)
{
    EXPECT_EQ(dump("::operator new"),
              (Lines{R"(1:1 1:10 82 OPERATOR_KEY "::operator")", R"(1:12 1:14 84 NEW_KEY "new")"}));
    EXPECT_EQ(dump("X::operator"),
              (Lines{R"(1:1 1:1 120 IDENTIFIER "X")", R"(1:2 1:11 82 OPERATOR_KEY "::operator")"}));
    EXPECT_EQ(texts("A::B::delete"), (Lines{"A::B", "::delete"}));
    EXPECT_EQ(types("A::B::delete"), (Types{Cpp::IDENTIFIER, Cpp::DELETE_KEY}));
    EXPECT_EQ(types("::new int"), (Types{Cpp::NEW_KEY, Cpp::INT_KEY}));
}

TEST(LexerTest, SplitIdentifierHasNoValue)
{
    const auto tokens = lex("X::operator");
    EXPECT_EQ(tokens[0].valueKind(), 0);
    EXPECT_EQ(lex("X")[0].valueKind(), 8);
    std::string value;
    lex("std::string")[0].value(value);
    EXPECT_EQ(value, "std::string");
}

TEST(LexerTest, DestructorNames)
{
    EXPECT_EQ(texts("X::~X"), (Lines{"X::~X"}));
    EXPECT_EQ(texts("~X"), (Lines{"~X"}));
    EXPECT_EQ(types("~ X"), (Types{Cpp::TILDE, Cpp::IDENTIFIER}));
    EXPECT_EQ(types("~~X"), (Types{Cpp::TILDE, Cpp::IDENTIFIER}));
}

TEST(LexerTest, ConditionalWithQualifiedName)
{
    EXPECT_EQ(texts("a?b::c:d"), (Lines{"a", "?", "b::c", ":", "d"}));
    EXPECT_EQ(types("a?b::c:d"),
              (Types{Cpp::IDENTIFIER, Cpp::QUESTION, Cpp::IDENTIFIER, Cpp::COLON, Cpp::IDENTIFIER}));
}

TEST(LexerTest, NameMayEndInQualification)
{
    EXPECT_EQ(texts("int A::* p"), (Lines{"int", "A::", "*", "p"}));
}

TEST(LexerTest, DirectiveStopsBeforeLineComment)
{
    EXPECT_EQ(dump("#define A 1 // x\n"),
              (Lines{R"(1:1 1:12 1 PREPROC_DIRECTIVE "#define A 1 ")", R"(1:13 2:0 118 LINE_COMMENT "// x\n")"}));
}

TEST(LexerTest, DirectiveTakesSameLineBlockCommentAndTrailingSlash)
{
    EXPECT_EQ(dump("#define A /* x */\n"), (Lines{R"(1:1 2:0 1 PREPROC_DIRECTIVE "#define A /* x *//\n")"}));
}

TEST(LexerTest, DirectiveEndsBeforeMultiLineComment)
{
    EXPECT_EQ(dump("#define A /* x\n y */ B\n"),
              (Lines{R"(1:1 1:10 1 PREPROC_DIRECTIVE "#define A ")", R"(1:11 2:5 119 BLOCK_COMMENT "/* x\n y */")",
                     R"(2:7 2:7 120 IDENTIFIER "B")"}));
}

TEST(LexerTest, DirectiveWithContinuationIsOneToken)
{
    EXPECT_EQ(dump("#define A \\\n  2\nint"),
              (Lines{R"(1:1 3:0 1 PREPROC_DIRECTIVE "#define A \\\n  2\n")", R"(3:1 3:3 113 INT_KEY "int")"}));
    // White space after the backslash still continues the line.
    EXPECT_EQ(texts("#define A \\  \n 2\n"), (Lines{"#define A \\  \n 2\n"}));
}

TEST(LexerTest, DirectiveAnywhere)
{
    EXPECT_EQ(types("void f() {\n#ifdef X\n  g();\n#endif\n}"),
              (Types{Cpp::VOID_KEY, Cpp::IDENTIFIER, Cpp::LPAREN, Cpp::RPAREN, Cpp::LBRACE, Cpp::PREPROC_DIRECTIVE,
                     Cpp::IDENTIFIER, Cpp::LPAREN, Cpp::RPAREN, Cpp::SEMICOLON, Cpp::PREPROC_DIRECTIVE,
                     Cpp::RBRACE}));
    EXPECT_EQ(texts("a # b"), (Lines{"a", "# b"}));
}

TEST(LexerTest, DirectiveAtEndOfInputWithoutNewline)
{
    EXPECT_EQ(dump("#pragma once"), (Lines{R"(1:1 1:12 1 PREPROC_DIRECTIVE "#pragma once")"}));
}

TEST(LexerTest, UnterminatedStringDisappears)
{
    EXPECT_EQ(texts("x \"abc\ny"), (Lines{"x", "y"}));
    EXPECT_EQ(dump("\"abc\ny"), (Lines{R"(2:1 2:1 120 IDENTIFIER "y")"}));
}

TEST(LexerTest, StringLiteral)
{
    const auto tokens = lex(R"(s = "a\tb\"c";)");
    ASSERT_EQ(tokens.size(), 4u);
    EXPECT_EQ(tokens[2].type(), Cpp::STRING_LITERAL);
    EXPECT_EQ(tokens[2].text(), R"("a\tb\"c")");
    EXPECT_EQ(tokens[2].valueKind(), 8);
    std::string value;
    tokens[2].value(value);
    EXPECT_EQ(value, "a\tb\"c");
}

TEST(LexerTest, StringWithLineContinuation)
{
    const auto tokens = lex("\"ab\\\ncd\" x");
    ASSERT_EQ(tokens.size(), 2u);
    EXPECT_EQ(tokens[0].text(), "\"ab\\\ncd\"");
    EXPECT_EQ(tokens[0].end(), Trn::Position(2, 3));
}

TEST(LexerTest, StringClosedByEndOfInput)
{
    const auto tokens = lex("\"abc");
    ASSERT_EQ(tokens.size(), 1u);
    EXPECT_EQ(tokens[0].type(), Cpp::STRING_LITERAL);
    std::string value;
    tokens[0].value(value);
    EXPECT_EQ(value, "ab"); // the last character stands for the quote
}

TEST(LexerTest, EscapedBackslashBeforeQuoteClosesString)
{
    EXPECT_EQ(texts(R"("a\\" b)"), (Lines{R"("a\\")", "b"}));
}

TEST(LexerTest, CharacterLiterals)
{
    const auto tokens = lex(R"('a' '\n' '\'' '\\' 'ab')");
    ASSERT_EQ(tokens.size(), 5u);
    char c = 0;
    tokens[0].value(c);
    EXPECT_EQ(c, 'a');
    tokens[1].value(c);
    EXPECT_EQ(c, '\n');
    tokens[2].value(c);
    EXPECT_EQ(c, '\'');
    EXPECT_EQ(tokens[2].text(), R"('\'')");
    tokens[3].value(c);
    EXPECT_EQ(c, '\\');
    EXPECT_EQ(tokens[4].type(), Cpp::CHAR_LITERAL);
    tokens[4].value(c);
    EXPECT_EQ(c, 'a');
    EXPECT_EQ(tokens[4].valueKind(), 1);
}

TEST(LexerTest, BadCharacterLiteralsAreInvalidTokens)
{
    EXPECT_EQ(dump("''"), (Lines{R"(1:1 1:2 0 INVALID_TOKEN "''")"}));
    EXPECT_EQ(dump("'ab\nx"), (Lines{R"(1:1 1:3 0 INVALID_TOKEN "'ab'")", R"(2:1 2:1 120 IDENTIFIER "x")"}));
    EXPECT_EQ(types("'a"), (Types{Cpp::CHAR_LITERAL}));
}

TEST(LexerTest, Numbers)
{
    EXPECT_EQ(texts("0x1Fu 10UL 1.5e-3f 2.0L 7 0XaBc"), (Lines{"0x1Fu", "10UL", "1.5e-3f", "2.0L", "7", "0XaBc"}));
    EXPECT_EQ(types("1.5e+3"), (Types{Cpp::NUMBER_LITERAL}));
}

TEST(LexerTest, SecondPointEndsNumber)
{
    EXPECT_EQ(dump("1.2.3"), (Lines{R"(1:1 1:3 3 NUMBER_LITERAL "1.2")", R"(1:4 1:4 19 DOT ".")",
                                    R"(1:5 1:5 3 NUMBER_LITERAL "3")"}));
}

TEST(LexerTest, NumberGluedToLetterIsDropped)
{
    EXPECT_EQ(dump("123abc"), (Lines{R"(1:4 1:6 120 IDENTIFIER "abc")"}));
}

TEST(LexerTest, DigitSeparatorsStayInTheNumber)
{
    // A quote between two digits (hexadecimal ones in a hexadecimal number)
    // separates digits; it opens no character literal.
    EXPECT_EQ(dump("1'000'000"), (Lines{R"(1:1 1:9 3 NUMBER_LITERAL "1'000'000")"}));
    EXPECT_EQ(texts("0xaaaa'aaaaLL, 0b1 1.5'5f"), (Lines{"0xaaaa'aaaaLL", ",", "b1", "1.5'5f"}));
    EXPECT_EQ(texts("0x8000'0000u)"), (Lines{"0x8000'0000u", ")"}));
    // A quote behind a number that no digit follows is a character literal.
    EXPECT_EQ(texts("f(1,'a')"), (Lines{"f", "(", "1", ",", "'a'", ")"}));
    EXPECT_EQ(types("1'a'"), (Types{Cpp::NUMBER_LITERAL, Cpp::CHAR_LITERAL}));
}

TEST(LexerTest, LeadingPointIsDot)
{
    EXPECT_EQ(types(".5"), (Types{Cpp::DOT, Cpp::NUMBER_LITERAL}));
}

TEST(LexerTest, NumberEndedByPunctuation)
{
    EXPECT_EQ(texts("a[10]"), (Lines{"a", "[", "10", "]"}));
    EXPECT_EQ(texts("x=1;"), (Lines{"x", "=", "1", ";"}));
}

TEST(LexerTest, Comments)
{
    EXPECT_EQ(dump("// a\n/* b\n c */"),
              (Lines{R"(1:1 2:0 118 LINE_COMMENT "// a\n")", R"(2:1 3:5 119 BLOCK_COMMENT "/* b\n c */")"}));
    EXPECT_EQ(texts("/* open"), (Lines{"/* open"}));
    EXPECT_EQ(texts("// at end"), (Lines{"// at end"}));
    EXPECT_EQ(texts("/**/x"), (Lines{"/**/", "x"}));
    EXPECT_EQ(texts("/*/ x */"), (Lines{"/*/ x */"}));
}

TEST(LexerTest, AllOperators)
{
    const std::string text = "; : , ( ) { } = * & [ ] / . + - ! ~ -> ++ -- % << >> < > <= >= == != ^ | *= /= %= += "
                             "-= <<= >>= &= ^= |= && || ? .* ->*";
    Types expected;
    for (std::int32_t t = Cpp::SEMICOLON; t <= Cpp::ARROW_STAR; ++t)
        expected.push_back(t);
    EXPECT_EQ(types(text), expected);
}

TEST(LexerTest, LongestMatchWithoutBlanks)
{
    EXPECT_EQ(texts("a->*b<<=c>>=d"), (Lines{"a", "->*", "b", "<<=", "c", ">>=", "d"}));
    EXPECT_EQ(texts("x--->y"), (Lines{"x", "--", "->", "y"}));
    EXPECT_EQ(texts("a>>b"), (Lines{"a", ">>", "b"}));
}

TEST(LexerTest, UnknownCharactersVanish)
{
    EXPECT_EQ(texts("a $ @ ` b \x01 c"), (Lines{"a", "b", "c"}));
    EXPECT_EQ(texts("x \xc3\xa9 y"), (Lines{"x", "y"}));
}

TEST(LexerTest, LineContinuationToken)
{
    EXPECT_EQ(dump("a \\  \nb"), (Lines{R"(1:1 1:1 120 IDENTIFIER "a")", R"(1:3 2:0 53 LINE_CONTINUATION "\\  \n")",
                                        R"(2:1 2:1 120 IDENTIFIER "b")"}));
    // A backslash not followed by a line end gives nothing.
    EXPECT_EQ(texts("a \\ b"), (Lines{"a", "b"}));
}

TEST(LexerTest, CrLfGivesSameTokensAsLf)
{
    const std::string lf = "#include <x>\nint main() {\n  // hi\n  return 0; /* a\n b */\n}\n";
    std::string crlf;
    std::string cr;
    for (char c : lf) {
        crlf += c == '\n' ? std::string("\r\n") : std::string(1, c);
        cr += c == '\n' ? '\r' : c;
    }
    EXPECT_EQ(dump(crlf), dump(lf));
    EXPECT_EQ(dump(cr), dump(lf));
}

TEST(LexerTest, EndOfFileForEverAtEnd)
{
    std::istringstream in("x  ");
    Cpp::Lexer lexer(in);
    EXPECT_EQ(lexer.next().type(), Cpp::IDENTIFIER);
    const Trn::Token first = lexer.next();
    EXPECT_EQ(first.type(), Cpp::END_OF_FILE);
    EXPECT_EQ(first.start(), Trn::Position(1, 1));
    for (int i = 0; i < 3; ++i) {
        const Trn::Token t = lexer.next();
        EXPECT_EQ(t.type(), Cpp::END_OF_FILE);
        EXPECT_EQ(t.start(), Trn::Position(1, 3));
    }
}

TEST(LexerTest, EmptyInputGivesEndOfFileAtOnce)
{
    EXPECT_TRUE(lex("").empty());
    EXPECT_TRUE(lex(" \n\t\r\n").empty());
}

TEST(LexerTest, DumpWritesReaderState)
{
    std::istringstream in("ab\ncde fg");
    Cpp::Lexer lexer(in);
    lexer.next();
    lexer.next();
    std::ostringstream out;
    lexer.dump(out);
    EXPECT_EQ(out.str(), "line:\t2\tcol:\t3\tlastlinecol:\t2\n");
}

TEST(LexerTest, ArbitraryBytesNeverStopTheLexer)
{
    std::string junk;
    for (int i = 0; i < 4096; ++i)
        junk += static_cast<char>((i * 7919 + 13) % 256);
    const auto tokens = lex(junk);
    for (const Trn::Token& t : tokens) {
        EXPECT_GE(t.type(), Cpp::INVALID_TOKEN);
        EXPECT_LE(t.type(), Cpp::IDENTIFIER);
        EXPECT_LE(t.start(), t.end());
    }
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

std::vector<std::string> restOf(Cpp::Lexer& lexer)
{
    std::vector<std::string> lines;
    for (Trn::Token t = lexer.next(); t.type() != Cpp::END_OF_FILE; t = lexer.next())
        lines.push_back(Cpp::dumpLine(t));
    return lines;
}

TEST(LexerTest, RestartReadsTheTextAgainFromItsStart)
{
    const std::string text = "int a;\n  // c\n#define X \\\n 1\nX::operator new";
    std::istringstream in(text);
    Cpp::Lexer lexer(in);
    EXPECT_TRUE(lexer.canRestart());
    const auto first = restOf(lexer);
    ASSERT_TRUE(lexer.restart());
    EXPECT_EQ(restOf(lexer), first);
    // Also halfway through, with a token read ahead ("::operator" after "X").
    ASSERT_TRUE(lexer.restart());
    for (int i = 0; i < 6; ++i)
        lexer.next();
    ASSERT_TRUE(lexer.restart());
    EXPECT_EQ(restOf(lexer), first);
    EXPECT_EQ(first, dump(text));
}

TEST(LexerTest, RestartGoesBackToWhereTheLexerBegan)
{
    std::istringstream in("skipped int x;");
    in.seekg(8);
    Cpp::Lexer lexer(in);
    const auto first = restOf(lexer);
    ASSERT_TRUE(lexer.restart());
    EXPECT_EQ(restOf(lexer), first);
    EXPECT_EQ(first, dump("int x;"));
}

TEST(LexerTest, StreamThatCannotBeSetBackCannotRestart)
{
    ForwardOnlyBuf buf("int x;");
    std::istream in(&buf);
    Cpp::Lexer lexer(in);
    EXPECT_FALSE(lexer.canRestart());
    EXPECT_EQ(restOf(lexer), dump("int x;"));
    EXPECT_FALSE(lexer.restart());
    EXPECT_EQ(lexer.next().type(), Cpp::END_OF_FILE);
}

} // namespace

namespace {

// Lexes `text` with the other branches of conditionals folded: each token as
// "type start-end".
std::vector<std::string> foldedSpans(const std::string& text)
{
    std::istringstream in(text);
    Cpp::Lexer lexer(in);
    lexer.setFoldingElseBranches(true);
    std::vector<std::string> spans;
    for (Trn::Token t = lexer.next(); t.type() != Cpp::END_OF_FILE; t = lexer.next())
        spans.push_back(std::string(Cpp::tokenTypeName(t.type())) + " " + std::to_string(t.start().line) + ":" +
                        std::to_string(t.start().col) + "-" + std::to_string(t.end().line) + ":" +
                        std::to_string(t.end().col));
    return spans;
}

} // namespace

TEST(LexerTest, FoldingTakesEachOtherBranchWithItsEndifAsOneDirective)
{
    // The #elif and #else branches, a conditional nested in them, and the
    // #endif are one token; the first branch is read as code.
    const std::string text = "#if A\nx\n#elif B\n#ifdef C\ny\n#endif\n#else\nz\n#endif\nw";
    EXPECT_EQ(foldedSpans(text), (std::vector<std::string>{"PREPROC_DIRECTIVE 1:1-2:0", "IDENTIFIER 2:1-2:1",
                                                           "PREPROC_DIRECTIVE 3:1-10:0", "IDENTIFIER 10:1-10:1"}));
    // Without folding every directive is its own token.
    EXPECT_EQ(TestSupport::lex(text).size(), 10u);
}

TEST(LexerTest, FoldingLeavesIfZeroBlocksAndAnUnclosedBranchEndsAtTheEnd)
{
    // The parser takes an `#if 0` block whole, with its #else branch.
    EXPECT_EQ(foldedSpans("#if 0\nx\n#else\ny\n#endif\n"),
              (std::vector<std::string>{"PREPROC_DIRECTIVE 1:1-2:0", "IDENTIFIER 2:1-2:1", "PREPROC_DIRECTIVE 3:1-4:0",
                                        "IDENTIFIER 4:1-4:1", "PREPROC_DIRECTIVE 5:1-6:0"}));
    EXPECT_EQ(foldedSpans("#ifdef A\nx\n#else\ny z"),
              (std::vector<std::string>{"PREPROC_DIRECTIVE 1:1-2:0", "IDENTIFIER 2:1-2:1", "PREPROC_DIRECTIVE 3:1-4:3"}));
    // An #else without its #if is left as it is.
    EXPECT_EQ(foldedSpans("#else\ny\n"), (std::vector<std::string>{"PREPROC_DIRECTIVE 1:1-2:0", "IDENTIFIER 2:1-2:1"}));
}
