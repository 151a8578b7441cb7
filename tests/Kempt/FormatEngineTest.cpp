// The format driver: pass sequence, progress and cancellation, the analysis
// that ends a run on a text that does not parse, whole-text fidelity with a
// scheme that sets nothing, the format pass and the line breaks of the text.
#include "Kempt.h"
#include "Varnel_Contract.h"

#include <gtest/gtest.h>

#include <sstream>
#include <thread>
#include <vector>

namespace {

using Kempt::FormatEngine;
using Kempt::FormatMessageList;
using Kempt::FormatSettings;
using Kempt::PassKind;

class RecordingObserver : public Kempt::PassObserver {
public:
    void passStarted(PassKind pass) override { passes.push_back(pass); }
    std::vector<PassKind> passes;
};

class RecordingUpdate : public Kempt::UpdateFunctor {
public:
    explicit RecordingUpdate(int allowed = 1000) : m_allowed(allowed) {}
    bool operator()(const std::string& format) override
    {
        calls.push_back(format);
        return static_cast<int>(calls.size()) <= m_allowed;
    }
    std::vector<std::string> calls;

private:
    int m_allowed;
};

struct RunResult {
    std::int32_t result;
    std::string out;
    FormatMessageList messages;
};

RunResult format(const std::string& text, const FormatSettings& settings, Kempt::UpdateFunctor& update,
           Kempt::PassObserver* observer = nullptr)
{
    std::istringstream in(text);
    std::ostringstream out;
    RunResult run;
    run.result = FormatEngine(observer).format(settings, in, out, run.messages, update);
    run.out = out.str();
    return run;
}

RunResult format(const std::string& text, const FormatSettings& settings = FormatSettings())
{
    Kempt::UpdateFunctor none;
    return format(text, settings, none);
}

FormatSettings withBraceStyles(std::int32_t ifElse, std::int32_t forStyle, std::int32_t whileStyle, bool wrap)
{
    Kempt::PropertySet set;
    set.setInt(Kempt::Prop::IF_ELSE_CS_SINGLE_STMT_BRACE_STYLE, ifElse);
    set.setInt(Kempt::Prop::FOR_CS_SINGLE_STMT_BRACE_STYLE, forStyle);
    set.setInt(Kempt::Prop::WHILE_CS_SINGLE_STMT_BRACE_STYLE, whileStyle);
    set.setBool(Kempt::Prop::LINE_WRAP, wrap);
    return FormatSettings(set);
}

TEST(FormatEngineTest, NoBraceStyleAndNoWrapParsesOnceInTheFormatPass)
{
    RecordingObserver observer;
    Kempt::UpdateFunctor none;
    const RunResult run = format("int x;\n", withBraceStyles(0, 0, 0, false), none, &observer);
    EXPECT_EQ(run.result, 0);
    EXPECT_EQ(observer.passes, (std::vector<PassKind>{PassKind::FORMAT}));
    EXPECT_EQ(run.out, "int x;\n");
}

TEST(FormatEngineTest, AllBraceStylesAndWrapParseThreeTimes)
{
    RecordingObserver observer;
    Kempt::UpdateFunctor none;
    const RunResult run = format("int x;\n", withBraceStyles(1, 2, 1, true), none, &observer);
    EXPECT_EQ(run.result, 0);
    EXPECT_EQ(observer.passes, (std::vector<PassKind>{PassKind::REWRITE, PassKind::FORMAT, PassKind::WRAP}));
    EXPECT_EQ(run.out, "int x;\n");
}

TEST(FormatEngineTest, OneBraceStyleIsEnoughForTheRewritePass)
{
    RecordingObserver observer;
    Kempt::UpdateFunctor none;
    format("x;", withBraceStyles(0, 0, 2, false), none, &observer);
    EXPECT_EQ(observer.passes, (std::vector<PassKind>{PassKind::REWRITE, PassKind::FORMAT}));
}

TEST(FormatEngineTest, BraceStyleOutsideRangeViolatesContract)
{
    for (const std::int32_t bad : {3, -1}) {
        try {
            format("x", withBraceStyles(0, bad, 0, false));
            FAIL() << "no violation for " << bad;
        } catch (const Varnel::ContractViolation& v) {
            EXPECT_EQ(v.condition(), "false");
        }
    }
}

TEST(FormatEngineTest, ProgressTextsInOrder)
{
    RecordingUpdate update;
    format("x;", withBraceStyles(1, 1, 1, true), update);
    EXPECT_EQ(update.calls, (std::vector<std::string>{"Analyzing file:\n%s", "Formatting file:\n%s"}));
}

TEST(FormatEngineTest, CancelAtFirstCallReturnsOneWithOneInformation)
{
    RecordingUpdate update(0);
    const RunResult run = format("int x;", FormatSettings(), update);
    EXPECT_EQ(run.result, 1);
    ASSERT_EQ(run.messages.size(), 1u);
    EXPECT_EQ(run.messages.front().severity, 1);
    EXPECT_EQ(run.messages.front().position, Trn::Position());
    EXPECT_EQ(run.messages.front().code, 0);
    EXPECT_EQ(run.messages.front().text, "Formatting cancelled at user's request.");
    EXPECT_TRUE(run.out.empty());
}

TEST(FormatEngineTest, CancelBeforeFormatPassWritesNothing)
{
    RecordingUpdate update(1);
    RecordingObserver observer;
    const RunResult run = format("int x;", withBraceStyles(1, 0, 0, false), update, &observer);
    EXPECT_EQ(run.result, 1);
    EXPECT_EQ(run.messages.size(), 1u);
    EXPECT_TRUE(run.out.empty());
    EXPECT_EQ(observer.passes, (std::vector<PassKind>{PassKind::REWRITE}));
}

TEST(FormatEngineTest, EmptyInputGivesEmptyOutputAndNoMessages)
{
    const RunResult run = format("");
    EXPECT_EQ(run.result, 0);
    EXPECT_TRUE(run.messages.empty());
    EXPECT_TRUE(run.out.empty());
}

TEST(FormatEngineTest, TextPassesByteForByte)
{
    for (const std::string& text : {std::string("int main()\r\n{\r\n\treturn 0;\r\n}\r\n"),
                                    std::string("a;\rb;\r\r\n"), std::string("int x; // no newline at end"),
                                    std::string("#if 0\n\x01\x02\xff junk {{{\n#endif\n"),
                                    std::string("// TW-FORMAT-OFF\nint   x;\n// TW-FORMAT-ON\n"),
                                    std::string("// TIDEWRIGHT-OFF\n}}} ((( \n// TIDEWRIGHT-ON\n")}) {
        const RunResult run = format(text, withBraceStyles(1, 1, 1, true));
        EXPECT_EQ(run.result, 0) << text;
        EXPECT_TRUE(run.messages.empty()) << text;
        EXPECT_EQ(run.out, text);
    }
}

TEST(FormatEngineTest, TextThatDoesNotParseEndsTheRunWithItsMessagesInOrder)
{
    RecordingObserver observer;
    Kempt::UpdateFunctor none;
    const RunResult run =
        format("void f()\n{\n  public: x();\n  protected: y();\n}\n", withBraceStyles(1, 0, 0, true), none, &observer);
    EXPECT_EQ(run.result, 2);
    EXPECT_TRUE(run.out.empty());
    EXPECT_EQ(observer.passes, std::vector<PassKind>{PassKind::REWRITE});
    ASSERT_EQ(run.messages.size(), 2u);
    EXPECT_EQ(run.messages.front(), Kempt::FormatMessage::coded(8, Trn::Position(3, 3)));
    EXPECT_EQ(run.messages.back(), Kempt::FormatMessage::coded(8, Trn::Position(4, 3)));
    EXPECT_EQ(run.messages.front().severity, 3);
}

TEST(FormatEngineTest, MessagesAreAppendedBehindTheCallersAndCounted)
{
    std::istringstream in("int x");
    std::ostringstream out;
    FormatMessageList messages{Kempt::FormatMessage(1, Trn::Position(), 0, "earlier")};
    Kempt::UpdateFunctor none;
    EXPECT_EQ(FormatEngine().format(FormatSettings(), in, out, messages, none), 3);
    ASSERT_EQ(messages.size(), 3u);
    EXPECT_EQ(messages.front().text, "earlier");
    EXPECT_EQ(std::next(messages.begin())->code, 1);
    EXPECT_EQ(messages.back().code, 7);
    EXPECT_TRUE(out.str().empty());
}

TEST(FormatEngineTest, TextWithOnlyACodeTwoConditionFormatsWithoutMessages)
{
    // `MACRO(x)` is taken for a bodyless function; the code 2 that says so is dropped.
    const std::string text = "MACRO(x) int y;\n";
    const RunResult run = format(text, withBraceStyles(1, 1, 1, true));
    EXPECT_EQ(run.result, 0);
    EXPECT_TRUE(run.messages.empty());
    EXPECT_EQ(run.out, text);
}

TEST(FormatEngineTest, BinaryJunkFailsWithPositionedMessages)
{
    std::string junk;
    for (int i = 0; i < 70000; ++i)
        junk += static_cast<char>((i * 131 + 7) % 256);
    const RunResult run = format(junk);
    EXPECT_NE(run.result, 0);
    EXPECT_EQ(run.result, static_cast<std::int32_t>(run.messages.size()));
    EXPECT_TRUE(run.out.empty());
    for (const Kempt::FormatMessage& m : run.messages)
        EXPECT_FALSE(m.position.isNull()) << m.text;
}

TEST(FormatEngineTest, InputIsReadFromItsCurrentPosition)
{
    std::istringstream in("skip-this|int keep;");
    in.ignore(10);
    std::ostringstream out;
    FormatMessageList messages;
    Kempt::UpdateFunctor none;
    EXPECT_EQ(FormatEngine().format(FormatSettings(), in, out, messages, none), 0);
    EXPECT_EQ(out.str(), "int keep;");
}

TEST(FormatEngineTest, DriverMessages)
{
    EXPECT_EQ(FormatEngine::rewindFailureMessage().severity, 3);
    EXPECT_EQ(FormatEngine::rewindFailureMessage().text, "Unable to rewind input.");
    EXPECT_EQ(FormatEngine::rewindFailureMessage().position, Trn::Position());
    EXPECT_EQ(FormatEngine::cancelledMessage().severity, 1);
}

TEST(FormatEngineTest, TwoThreadsFormatAtOnce)
{
    std::string text;
    for (int i = 0; i < 500; ++i)
        text += "class A" + std::to_string(i) + " : public B { int f(int x) { return x ? y::z : w; } };\n";
    std::vector<std::string> outputs(4);
    std::vector<std::thread> threads;
    for (std::size_t t = 0; t < outputs.size(); ++t)
        threads.emplace_back([&, t] { outputs[t] = format(text, withBraceStyles(1, 1, 1, true)).out; });
    for (auto& th : threads)
        th.join();
    for (const std::string& out : outputs)
        EXPECT_EQ(out, text);
}

TEST(FormatEngineTest, AStrayClosingBraceAtFileLevelPassesByteForByte)
{
    for (const std::string& text : {std::string("int a;\n}\nint b;\n"), std::string("}\r\n}  }\r\nvoid f() { }\r\n")}) {
        const RunResult run = format(text);
        EXPECT_EQ(run.result, 0);
        EXPECT_TRUE(run.messages.empty());
        EXPECT_EQ(run.out, text);
    }
}

TEST(FormatEngineTest, AnElseIfChainOfTenThousandBranchesGoesThroughThePipeline)
{
    std::string text = "void f(int x)\n{\n";
    for (int i = 0; i < 10000; ++i)
        text += "    if (x == " + std::to_string(i) + ") g();\n    else ";
    text += "h();\n}\n";
    const RunResult run = format(text);
    EXPECT_EQ(run.result, 0);
    EXPECT_TRUE(run.messages.empty());
    EXPECT_EQ(run.out, text);
}

} // namespace

// The format pass runs the formatter, and the text keeps its line breaks.

namespace {

FormatSettings indentedBodies()
{
    Kempt::PropertySet set("bodies");
    set.setString(Kempt::Prop::INDENT_FN_CONTENT, "    ");
    set.setString(Kempt::Prop::LEFT_MARGIN, "");
    return FormatSettings(set);
}

TEST(FormatEnginePassesTest, TheFormatPassLaysTheTextOut)
{
    const RunResult run = format("void f()\n{\nx();\n}\n", indentedBodies());
    EXPECT_EQ(run.result, 0);
    EXPECT_EQ(run.out, "void f()\n{\n    x();\n}\n");
}

TEST(FormatEnginePassesTest, CrLfTextKeepsCrLf)
{
    EXPECT_EQ(format("void f()\r\n{\r\nx();\r\n}\r\n", indentedBodies()).out, "void f()\r\n{\r\n    x();\r\n}\r\n");
    EXPECT_EQ(format("void f()\r{\rx();\r}\r", indentedBodies()).out, "void f()\r{\r    x();\r}\r");
}

TEST(FormatEnginePassesTest, UnchangedTextWithMixedLineBreaksIsByteForByte)
{
    const std::string text = "void f()\r\n{\n    x();\r}\r\n";
    EXPECT_EQ(format(text, indentedBodies()).out, text);
}

TEST(FormatEnginePassesTest, ChangedTextWithMixedLineBreaksTakesTheMostFrequent)
{
    EXPECT_EQ(format("void f()\r\n{\r\nx();\n}\r\n", indentedBodies()).out, "void f()\r\n{\r\n    x();\r\n}\r\n");
}

} // namespace
