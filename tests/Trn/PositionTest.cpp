// Positions compare line first, then column; 0, 0 is "no position".
#include "Trn_Position.h"

#include <gtest/gtest.h>

namespace {

TEST(PositionTest, DefaultIsNoPosition)
{
    const Trn::Position p;
    EXPECT_EQ(p.line, 0);
    EXPECT_EQ(p.col, 0);
    EXPECT_TRUE(p.isNull());
    EXPECT_FALSE(Trn::Position(1, 0).isNull());
}

TEST(PositionTest, ComparesLexicographically)
{
    const Trn::Position a(1, 9), b(2, 1), c(2, 1);
    EXPECT_LT(a, b);
    EXPECT_GT(b, a);
    EXPECT_EQ(b, c);
    EXPECT_NE(a, b);
    EXPECT_LE(b, c);
    EXPECT_GE(b, c);
    EXPECT_LT(Trn::Position(2, 1), Trn::Position(2, 2));
}

} // namespace
