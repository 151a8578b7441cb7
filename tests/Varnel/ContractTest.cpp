// Contract checks: a holding condition passes, a failing one throws with the
// literal condition text, the line and the file.
#include "Varnel_Contract.h"

#include <gtest/gtest.h>

namespace {

TEST(ContractTest, TrueConditionReturnsTrue)
{
    EXPECT_TRUE(Varnel::check(true, "x", 1, "f"));
    EXPECT_TRUE(Varnel::require(true, "x", 1, "f"));
    EXPECT_TRUE(Varnel::ensure(true, "x", 1, "f"));
    EXPECT_TRUE(TW_CHECK(1 + 1 == 2));
}

TEST(ContractTest, WhatNamesFileLineAndCondition)
{
    const Varnel::ContractViolation v("c", 54, "f");
    EXPECT_EQ(v.what(), "DBC Violation: f(54): c");
}

TEST(ContractTest, FailedCheckThrowsWithLiteralConditionText)
{
    const int n = 0;
    try {
        TW_REQUIRE(n > 0);
        FAIL() << "no violation";
    } catch (const Varnel::ContractViolation& v) {
        EXPECT_EQ(v.condition(), "n > 0");
        EXPECT_EQ(v.file(), "tests/Varnel/ContractTest.cpp");
        EXPECT_GT(v.line(), 0);
        EXPECT_EQ(v.what(), "DBC Violation: tests/Varnel/ContractTest.cpp(" + std::to_string(v.line()) + "): n > 0");
    }
}

TEST(ContractTest, UnreachableBranchReportsFalse)
{
    try {
        TW_CHECK(false);
        FAIL() << "no violation";
    } catch (const Varnel::ContractViolation& v) {
        EXPECT_EQ(v.condition(), "false");
    }
}

TEST(ContractTest, PreAndPostconditionsBehaveAlike)
{
    EXPECT_THROW(Varnel::require(false, "a", 1, "f"), Varnel::ContractViolation);
    EXPECT_THROW(Varnel::ensure(false, "a", 1, "f"), Varnel::ContractViolation);
}

TEST(ContractTest, CopyDuplicatesBothStrings)
{
    auto* original = new Varnel::ContractViolation("cond", 7, "file.cpp");
    const Varnel::ContractViolation copy(*original);
    delete original;
    EXPECT_EQ(copy.what(), "DBC Violation: file.cpp(7): cond");
}

} // namespace
