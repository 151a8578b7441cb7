// Taking the delimiters off comment text.
#include "Cpp_CommentText.h"

#include <gtest/gtest.h>

namespace {

struct Case {
    std::string in;
    bool result;
    std::string out;
};

TEST(CommentTextTest, Cases)
{
    const Case cases[] = {
        {"// TW-FORMAT-OFF\n", true, " TW-FORMAT-OFF\n"},
        {"  /* x */", true, " x "},
        {"/**/", true, ""},
        {"//", true, ""},
        {"/* open", false, "/* open"},
        {"/", false, "/"},
        {"", false, ""},
        {"x // y", false, "x // y"},
    };
    for (const Case& c : cases) {
        std::string text = c.in;
        EXPECT_EQ(Cpp::stripCommentDelimiters(text), c.result) << c.in;
        EXPECT_EQ(text, c.out) << c.in;
    }
}

} // namespace
