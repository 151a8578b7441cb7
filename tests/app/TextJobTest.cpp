// One text through the engine as the command line runs it.
#include "App_TextJob.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

class CancelAll : public Kempt::UpdateFunctor {
public:
    bool operator()(const std::string&) override { return false; }
};

TEST(TextJobTest, SuccessWritesTextAndNoMessages)
{
    std::istringstream in("int x;\n");
    std::ostringstream out, errors;
    Kempt::UpdateFunctor none;
    EXPECT_TRUE(App::formatText("f.cpp", in, out, errors, Kempt::PropertySet(), none));
    EXPECT_EQ(out.str(), "int x;\n");
    EXPECT_EQ(errors.str(), "");
}

TEST(TextJobTest, FailureWritesOnlyMessageLines)
{
    std::istringstream in("int x;\n");
    std::ostringstream out, errors;
    CancelAll cancel;
    EXPECT_FALSE(App::formatText("f.cpp", in, out, errors, Kempt::PropertySet(), cancel));
    EXPECT_EQ(out.str(), "");
    EXPECT_EQ(errors.str(), "f.cpp(0) : information: col 0: Formatting cancelled at user's request.\n");
}

} // namespace
