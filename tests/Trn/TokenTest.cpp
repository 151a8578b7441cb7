// Tokens: construction, value kinds, copies and equality.
#include "Trn_Exception.h"
#include "Trn_Token.h"

#include <gtest/gtest.h>

namespace {

const Trn::Position S(1, 1), E(1, 3);

TEST(TokenTest, DefaultTokenIsEndOfFile)
{
    const Trn::Token t;
    EXPECT_EQ(t.type(), -1);
    EXPECT_EQ(t.valueKind(), 0);
    EXPECT_TRUE(t.text().empty());
    EXPECT_TRUE(t.start().isNull());
}

TEST(TokenTest, ConstructorsSetKinds)
{
    EXPECT_EQ(Trn::Token(5, S, E).valueKind(), 0);
    EXPECT_EQ(Trn::Token(5, S, E, "x").valueKind(), 0);
    EXPECT_EQ(Trn::Token(5, S, E, "x", 3).valueKind(), 4);
    EXPECT_EQ(Trn::Token(5, S, E, "x", 3L).valueKind(), 6);
    EXPECT_EQ(Trn::Token(5, S, E, "x", 'c').valueKind(), 1);
    EXPECT_EQ(Trn::Token(5, S, E, "x", std::string("v")).valueKind(), 8);
}

TEST(TokenTest, ValueOfMatchingKind)
{
    int i = 0;
    Trn::Token(5, S, E, "x", 42).value(i);
    EXPECT_EQ(i, 42);
    long l = 0;
    Trn::Token(5, S, E, "x", 7L).value(l);
    EXPECT_EQ(l, 7L);
    char c = 0;
    Trn::Token(5, S, E, "x", 'q').value(c);
    EXPECT_EQ(c, 'q');
    std::string s;
    Trn::Token(5, S, E, "x", std::string("body")).value(s);
    EXPECT_EQ(s, "body");
}

TEST(TokenTest, ValueOfOtherKindThrows)
{
    std::string s = "unchanged";
    try {
        Trn::Token(5, S, E, "x").value(s);
        FAIL() << "no exception";
    } catch (const Trn::InvalidValueType& e) {
        EXPECT_EQ(e.what(), "Invalid value() function called for Token object.");
    }
    EXPECT_EQ(s, "unchanged");
    int i = 0;
    EXPECT_THROW(Trn::Token(5, S, E, "x", 3L).value(i), Trn::InvalidValueType);
    long l = 0;
    EXPECT_THROW(Trn::Token(5, S, E, "x", 3).value(l), Trn::InvalidValueType);
    unsigned short us = 0;
    EXPECT_THROW(Trn::Token(5, S, E, "x", 3).value(us), Trn::InvalidValueType);
}

TEST(TokenTest, StringKindCopiesOwnSeparateStrings)
{
    auto* original = new Trn::Token(120, S, E, "name", std::string("name"));
    Trn::Token copy(*original);
    Trn::Token assigned;
    assigned = *original;
    std::string a, b, c;
    original->value(a);
    copy.value(b);
    assigned.value(c);
    EXPECT_EQ(a, b);
    delete original; // each copy keeps its own string
    copy.value(b);
    assigned.value(c);
    EXPECT_EQ(b, "name");
    EXPECT_EQ(c, "name");
}

TEST(TokenTest, SelfAssignmentKeepsToken)
{
    Trn::Token t(120, S, E, "n", std::string("n"));
    Trn::Token& ref = t;
    t = ref;
    EXPECT_EQ(t.text(), "n");
}

TEST(TokenTest, EqualityComparesAllFields)
{
    const Trn::Token a(120, S, E, "n", std::string("n"));
    EXPECT_EQ(a, Trn::Token(120, S, E, "n", std::string("n")));
    EXPECT_NE(a, Trn::Token(120, S, E, "n", std::string("m")));
    EXPECT_NE(a, Trn::Token(120, S, E, "n"));
    EXPECT_NE(a, Trn::Token(121, S, E, "n", std::string("n")));
    EXPECT_NE(a, Trn::Token(120, S, Trn::Position(1, 4), "n", std::string("n")));
    EXPECT_NE(a, Trn::Token(120, S, E, "N", std::string("n")));
    EXPECT_EQ(Trn::Token(5, S, E, "x"), Trn::Token(5, S, E, "x"));
    EXPECT_EQ(Trn::Token(5, S, E, "x", 3), Trn::Token(5, S, E, "x", 3));
    EXPECT_NE(Trn::Token(5, S, E, "x", 3), Trn::Token(5, S, E, "x", 4));
    EXPECT_NE(Trn::Token(5, S, E, "x", 3), Trn::Token(5, S, E, "x", 3L));
}

TEST(TokenTest, TextAsValueIsKindEightWithTheTextAsValue)
{
    const Trn::Token shared(120, S, E, "name", Trn::Token::TEXT_IS_VALUE);
    EXPECT_EQ(shared.valueKind(), 8);
    std::string value;
    shared.value(value);
    EXPECT_EQ(value, "name");
    EXPECT_EQ(shared, Trn::Token(120, S, E, "name", std::string("name")));
    EXPECT_NE(shared, Trn::Token(120, S, E, "name", std::string("other")));
    EXPECT_NE(shared, Trn::Token(120, S, E, "name"));
    int i = 0;
    EXPECT_THROW(shared.value(i), Trn::InvalidValueType);
}

TEST(TokenTest, LongValuesCompareTheirLow32Bits)
{
    const long big = (1L << 40) + 5;
    EXPECT_EQ(Trn::Token(5, S, E, "x", big), Trn::Token(5, S, E, "x", 5L));
}

} // namespace
