// Token streams: the 7-token window over a lexer, streams over saved lists,
// look-ahead and put-back.
#include "Trn_Lexer.h"
#include "Trn_TokenStream.h"
#include "Varnel_Contract.h"

#include <gtest/gtest.h>

#include <ostream>
#include <vector>

namespace {

// Gives tokens of type 1, 2, ... n, then end-of-file tokens at (99, 9).
class CountingLexer : public Trn::Lexer {
public:
    explicit CountingLexer(int n) : m_n(n) {}
    Trn::Token next() override
    {
        ++calls;
        if (m_next > m_n)
            return Trn::Token(-1, Trn::Position(99, 9), Trn::Position(99, 9));
        const int t = m_next++;
        return Trn::Token(t, Trn::Position(1, t), Trn::Position(1, t), std::to_string(t));
    }
    void dump(std::ostream& out) const override { out << m_next; }
    int calls = 0;

private:
    int m_n;
    int m_next = 1;
};

std::vector<Trn::Token> listOf(int n)
{
    std::vector<Trn::Token> tokens;
    for (int i = 1; i <= n; ++i)
        tokens.emplace_back(i, Trn::Position(1, i), Trn::Position(1, i), std::to_string(i));
    return tokens;
}

TEST(TokenStreamTest, GetGivesTokensInOrder)
{
    CountingLexer lexer(10);
    Trn::TokenStream stream(lexer);
    for (int i = 1; i <= 10; ++i)
        EXPECT_EQ(stream.get().type(), i);
}

TEST(TokenStreamTest, FirstFillTakesAWholeWindow)
{
    CountingLexer lexer(20);
    Trn::TokenStream stream(lexer);
    stream.peek(1);
    EXPECT_EQ(lexer.calls, 7);
    EXPECT_EQ(stream.bufferSize(), 7u);
}

TEST(TokenStreamTest, GetAfterLastTokenKeepsGivingEndOfFile)
{
    CountingLexer lexer(2);
    Trn::TokenStream stream(lexer);
    stream.get();
    stream.get();
    for (int i = 0; i < 20; ++i) {
        const Trn::Token t = stream.get();
        EXPECT_EQ(t.type(), -1);
        EXPECT_EQ(t.start(), Trn::Position(99, 9));
    }
}

TEST(TokenStreamTest, PeekDoesNotConsume)
{
    CountingLexer lexer(10);
    Trn::TokenStream stream(lexer);
    EXPECT_EQ(stream.peek(1).type(), 1);
    EXPECT_EQ(stream.peek(3).type(), 3);
    EXPECT_EQ(stream.get().type(), 1);
    EXPECT_EQ(stream.get().type(), 2);
}

TEST(TokenStreamTest, PeekOfZeroOrLessViolatesContract)
{
    CountingLexer lexer(3);
    Trn::TokenStream stream(lexer);
    for (int n : {0, -1}) {
        try {
            stream.peek(n);
            FAIL() << "no violation for " << n;
        } catch (const Varnel::ContractViolation& v) {
            EXPECT_EQ(v.condition(), "n > 0");
            EXPECT_EQ(v.file(), "Trn/src/Trn_TokenStream.cpp");
        }
    }
}

TEST(TokenStreamTest, UngetOnFreshStreamDoesNothing)
{
    CountingLexer lexer(3);
    Trn::TokenStream stream(lexer);
    stream.unget();
    EXPECT_EQ(stream.get().type(), 1);
}

TEST(TokenStreamTest, UngetStepsBack)
{
    CountingLexer lexer(5);
    Trn::TokenStream stream(lexer);
    stream.get();
    stream.get();
    stream.unget();
    EXPECT_EQ(stream.get().type(), 2);
}

TEST(TokenStreamTest, AfterRefillTwoUngetsArePossibleAndAThirdDoesNothing)
{
    CountingLexer lexer(20);
    Trn::TokenStream stream(lexer);
    for (int i = 1; i <= 8; ++i)
        stream.get(); // the 8th get refilled the window
    EXPECT_EQ(stream.index(), 3);
    stream.unget();
    stream.unget();
    stream.unget();
    EXPECT_EQ(stream.index(), 0);
    stream.unget();
    EXPECT_EQ(stream.index(), 0);
    EXPECT_EQ(stream.get().type(), 6);
}

TEST(TokenStreamTest, PutBackStoresTokenInPlace)
{
    CountingLexer lexer(5);
    Trn::TokenStream stream(lexer);
    stream.get();
    stream.putBack(Trn::Token(42, Trn::Position(), Trn::Position()));
    EXPECT_EQ(stream.get().type(), 42);
    EXPECT_EQ(stream.get().type(), 2);
}

TEST(TokenStreamTest, PutBackAtIndexZeroDoesNothing)
{
    CountingLexer lexer(5);
    Trn::TokenStream stream(lexer);
    stream.peek(1);
    stream.putBack(Trn::Token(42, Trn::Position(), Trn::Position()));
    EXPECT_EQ(stream.get().type(), 1);
}

TEST(TokenStreamTest, PeekAcrossRefillKeepsTwoCarriedTokens)
{
    CountingLexer lexer(20);
    Trn::TokenStream stream(lexer);
    for (int i = 1; i <= 5; ++i)
        stream.get();
    EXPECT_EQ(stream.peek(5).type(), 10);
    for (int i = 6; i <= 10; ++i)
        EXPECT_EQ(stream.get().type(), i);
}

TEST(TokenStreamTest, DeepPeekAcrossRefillLosesNothing)
{
    // After token 1, peek(8) reaches past the window: the window widens to
    // hold token 9, and every token in between stays for the gets.
    CountingLexer lexer(20);
    Trn::TokenStream stream(lexer);
    stream.get();
    EXPECT_EQ(stream.peek(8).type(), 9);
    for (int i = 2; i <= 20; ++i)
        EXPECT_EQ(stream.get().type(), i);
    EXPECT_EQ(stream.get().type(), -1);
}

TEST(TokenStreamTest, DeepPeekGivesWhatAListStreamGivesAtEveryDepth)
{
    for (int consumed = 0; consumed < 12; ++consumed) {
        for (int n = 1; n <= 30; ++n) {
            CountingLexer lexer(25);
            Trn::TokenStream overLexer(lexer);
            Trn::TokenStream overList(listOf(25));
            for (int i = 0; i < consumed; ++i) {
                overLexer.get();
                overList.get();
            }
            const Trn::Token a = overLexer.peek(n);
            const Trn::Token b = overList.peek(n);
            EXPECT_EQ(a.type(), b.type()) << consumed << " " << n;
            if (b.type() != -1) {
                EXPECT_EQ(a, b) << consumed << " " << n;
            }
            for (int i = consumed + 1; i <= 25; ++i)
                ASSERT_EQ(overLexer.get().type(), i) << consumed << " " << n;
        }
    }
}

TEST(TokenStreamTest, AWidenedWindowShrinksBackAtTheNextRefill)
{
    CountingLexer lexer(40);
    Trn::TokenStream stream(lexer);
    EXPECT_EQ(stream.peek(20).type(), 20);
    EXPECT_EQ(stream.bufferSize(), 20u);
    for (int i = 1; i <= 21; ++i)
        stream.get();
    EXPECT_EQ(stream.bufferSize(), 7u);
    EXPECT_EQ(stream.index(), 3);
    // Two ungets across the refill, as always.
    stream.unget();
    stream.unget();
    stream.unget();
    stream.unget();
    EXPECT_EQ(stream.get().type(), 19);
}

TEST(TokenStreamTest, ListStreamGivesListThenEndOfFileWithDefaultPositions)
{
    Trn::TokenStream stream(listOf(3));
    EXPECT_EQ(stream.get().type(), 1);
    EXPECT_EQ(stream.get().type(), 2);
    EXPECT_EQ(stream.get().type(), 3);
    for (int i = 0; i < 3; ++i) {
        const Trn::Token t = stream.get();
        EXPECT_EQ(t.type(), -1);
        EXPECT_TRUE(t.start().isNull());
        EXPECT_TRUE(t.end().isNull());
        EXPECT_TRUE(t.text().empty());
    }
    EXPECT_EQ(stream.index(), Trn::TokenStream::EXHAUSTED);
}

TEST(TokenStreamTest, ListStreamPeekIsExactAtAnyDepth)
{
    Trn::TokenStream stream(listOf(12));
    EXPECT_EQ(stream.peek(11).type(), 11);
    EXPECT_EQ(stream.peek(12).type(), 12);
    for (int i = 1; i <= 12; ++i)
        EXPECT_EQ(stream.get().type(), i);
}

TEST(TokenStreamTest, ListStreamPeekPastTheEndLosesNothing)
{
    Trn::TokenStream stream(listOf(2));
    stream.get();
    EXPECT_EQ(stream.peek(4).type(), -1);
    EXPECT_EQ(stream.get().type(), 2);
    EXPECT_EQ(stream.get().type(), -1);
}

TEST(TokenStreamTest, ListStreamPeekPastTheEndKeepsWhatWasRead)
{
    Trn::TokenStream stream(listOf(3));
    stream.get();
    EXPECT_EQ(stream.peek(5).type(), -1);
    stream.unget();
    for (int i = 1; i <= 3; ++i)
        EXPECT_EQ(stream.get().type(), i);
    EXPECT_EQ(stream.get().type(), -1);
}

TEST(TokenStreamTest, PeekInListReadsInPlace)
{
    Trn::TokenStream stream(listOf(3));
    EXPECT_TRUE(stream.overList());
    stream.get();
    EXPECT_EQ(stream.peekInList(1).type(), 2);
    EXPECT_EQ(stream.peekInList(2).type(), 3);
    EXPECT_EQ(stream.peekInList(3).type(), -1);
    EXPECT_EQ(stream.index(), 1);
    EXPECT_THROW(stream.peekInList(0), Varnel::ContractViolation);
}

TEST(TokenStreamTest, UngetAfterListEndGivesLastToken)
{
    Trn::TokenStream stream(listOf(2));
    stream.get();
    stream.get();
    EXPECT_EQ(stream.get().type(), -1);
    stream.unget();
    EXPECT_EQ(stream.get().type(), 2);
}

TEST(TokenStreamTest, EmptyListIsExhaustedAtOnce)
{
    Trn::TokenStream stream(std::vector<Trn::Token>{});
    EXPECT_EQ(stream.peek(1).type(), -1);
    EXPECT_EQ(stream.get().type(), -1);
    stream.unget();
    EXPECT_EQ(stream.get().type(), -1);
}

} // namespace
