// The golden cases as GoogleTest tests: one parameterised test per case under
// tests/golden, found when the program starts, and one test of the tree's
// layout. CTest registers each of them when it runs (see GoldenMain.cpp and
// cmake/TwGoldenDiscovery.cmake), so a new case needs no CMake edit.
#include "GoldenCases.h"
#include "GoldenRun.h"
#include "GoldenTree.h"

#include <gtest/gtest.h>

#include <ostream>

namespace Golden {

// How GoogleTest shows a case, in test listings and failure reports.
void PrintTo(const Case& c, std::ostream* out)
{
    *out << c.id;
}

namespace {

class GoldenCaseTest : public ::testing::TestWithParam<Case> {};

TEST_P(GoldenCaseTest, Case)
{
    const Case& c = GetParam();
    LoadedCase loaded;
    std::string error;
    ASSERT_TRUE(loadCase(defaultRoots(), c, loaded, error)) << error;
    for (const std::string& failure : checkCase(loaded))
        ADD_FAILURE() << "golden case " << c.id << " (" << c.input.string() << ")\n" << failure;
}

INSTANTIATE_TEST_SUITE_P(Golden, GoldenCaseTest, ::testing::ValuesIn(allCases()),
                         [](const ::testing::TestParamInfo<Case>& info) { return allTestNames()[info.index]; });
// With no case at all the tree test below fails; the suite itself may be empty.
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(GoldenCaseTest);

TEST(GoldenTree, FollowsTheConvention)
{
    const Roots roots = defaultRoots();
    for (const std::string& problem : checkTree(roots))
        ADD_FAILURE() << problem;
    EXPECT_FALSE(allCases().empty()) << "no golden case under " << roots.golden.string();
}

} // namespace

} // namespace Golden
