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

TEST(MessageLineTest, ControlCharactersAreEscapedSoTheMessageStaysOneLine)
{
    using Kempt::FormatMessage;
    EXPECT_EQ(App::messageLine("a.cpp", FormatMessage(3, Trn::Position(2, 3), 0, "Got: /* multi\n line */\r\t\x01")),
              "a.cpp(2) : error: col 3: Got: /* multi\\n line */\\r\\t\\x01");
    EXPECT_EQ(App::messageLine("odd\nname.cpp", FormatMessage(3, Trn::Position(1, 1), 0, "x")),
              "odd\\nname.cpp(1) : error: col 1: x");
    EXPECT_EQ(App::oneLine("plain text, \"quoted\" \\ and caf\xc3\xa9"), "plain text, \"quoted\" \\ and caf\xc3\xa9");
}

} // namespace
