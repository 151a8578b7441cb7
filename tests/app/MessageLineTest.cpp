// Message lines as the user sees them.
#include "App_MessageLine.h"

#include <gtest/gtest.h>

namespace {

TEST(MessageLineTest, SeverityWords)
{
    using Kempt::FormatMessage;
    EXPECT_EQ(App::messageLine("a.cpp", FormatMessage(3, Trn::Position(12, 5), 8, "text")),
              "a.cpp(12) : error: col 5: text");
    EXPECT_EQ(App::messageLine("b.h", FormatMessage(2, Trn::Position(1, 1), 0, "w")), "b.h(1) : warning: col 1: w");
    EXPECT_EQ(App::messageLine("<stdin>", FormatMessage(1, Trn::Position(), 0, "i")),
              "<stdin>(0) : information: col 0: i");
}

} // namespace
