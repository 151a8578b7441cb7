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

TEST(SchemeFileTest, LoadingConvertsAnOldSchemeAndSaysSo)
{
    Kempt::PropertySet set;
    std::string notice;
    std::string error;
    ASSERT_TRUE(App::loadSchemeFile(DIR + "minimal.tws", set, notice, error)) << error;
    EXPECT_EQ(notice, "note: the scheme file '" + DIR + "minimal.tws' was made by an older version of Tidewright "
                      "C++; it has been converted to version 1.3.0 for this run (the file itself is unchanged)");
    std::string version;
    EXPECT_TRUE(set.getString("TIDEWRIGHT_VERSION", version));
    EXPECT_EQ(version, "1.3.0");
    std::string ws;
    EXPECT_TRUE(set.getString("WS_AFTER_CS_KEY", ws)); // its own settings survive
    EXPECT_EQ(ws, " ");
}

TEST(SchemeFileTest, LoadingACurrentSchemeSaysNothing)
{
    Kempt::PropertySet set;
    std::string notice = "stale";
    std::string error;
    ASSERT_TRUE(App::loadSchemeFile(DIR + "current.tws", set, notice, error)) << error;
    EXPECT_EQ(notice, "");
    EXPECT_EQ(set.name(), "Current");
    EXPECT_FALSE(App::loadSchemeFile(DIR + "garbage.tws", set, notice, error));
    EXPECT_EQ(set.name(), "Current");
}

} // namespace

