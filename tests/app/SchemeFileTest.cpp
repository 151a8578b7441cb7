// Scheme files named by path: good, missing, corrupt.
#include "App_SchemeFile.h"

#include <gtest/gtest.h>

namespace {

const std::string DIR = std::string(TW_TEST_DATA_DIR) + "/schemes/";

TEST(SchemeFileTest, ReadsAGoodFile)
{
    Kempt::PropertySet set;
    std::string error;
    ASSERT_TRUE(App::readSchemeFile(DIR + "minimal.tws", set, error)) << error;
    EXPECT_EQ(set.name(), "Minimal");
    std::string ws;
    EXPECT_TRUE(set.getString("WS_AFTER_CS_KEY", ws));
    EXPECT_EQ(ws, " ");
}

TEST(SchemeFileTest, FailuresNameTheFileAndLeaveTheSet)
{
    for (const std::string name : {"missing.tws", "version2.tws", "garbage.tws", ""}) {
        Kempt::PropertySet set("kept");
        std::string error;
        EXPECT_FALSE(App::readSchemeFile(DIR + name, set, error)) << name;
        EXPECT_NE(error.find(DIR + name), std::string::npos) << error;
        EXPECT_EQ(set.name(), "kept");
    }
}

} // namespace
