// The scheme messages as the user reads them.
#include "KemptUI_UserTexts.h"

#include <gtest/gtest.h>

namespace {

using namespace KemptUI;

TEST(UserTextsTest, ReadAndWriteErrorsNameTheFile)
{
    EXPECT_EQ(readErrorText("/home/u/schemes/x.tws"),
              "Tidewright C++ encountered an error while trying to read the scheme file \"/home/u/schemes/x.tws\". "
              "To correct the problem, you should delete this file before restarting Tidewright C++ and attempting "
              "this operation again.");
    EXPECT_EQ(writeErrorText("/d/x.tws", "/d"),
              "Tidewright C++ encountered an error while trying to write the scheme file \"/d/x.tws\". To correct "
              "the problem, ensure you have enough disk space and that the directory \"/d\" is not marked "
              "read-only.");
}

TEST(UserTextsTest, ConversionTemplates)
{
    EXPECT_EQ(invalidVersionTemplate(), "The scheme: '%s' has the invalid value: %s for the option: %s.\n"
                                        "The scheme file may have become corrupted.\n");
    EXPECT_EQ(fillTemplate(oneOldSchemeTemplate(), {"S"}),
              "The scheme 'S' was created using a previous version of Tidewright C++. The file is marked read-only "
              "and so cannot be converted. Please ensure the file is read-write and run Tidewright C++ again. Once "
              "the scheme has been converted, the file can be set read-only again.");
    EXPECT_EQ(severalOldSchemesTemplate(),
              "The following schemes were created using a previous version of Tidewright C++:\r\n%sThe files are "
              "read-only and so cannot be converted. Please ensure that the scheme files listed are read-write and "
              "run Tidewright C++ again. Once the schemes have been converted, the files can be set read-only "
              "again.");
}

TEST(UserTextsTest, FillTemplateTakesArgumentsInOrderAndNeverRescansThem)
{
    EXPECT_EQ(fillTemplate("a %s b %s c", {"1", "2"}), "a 1 b 2 c");
    EXPECT_EQ(fillTemplate("%s%s", {"%s", "x"}), "%sx");
    EXPECT_EQ(fillTemplate("a %s b %s", {"1"}), "a 1 b %s");
    EXPECT_EQ(fillTemplate("none", {"1"}), "none");
    EXPECT_EQ(fillTemplate("%s", {""}), "");
    EXPECT_STREQ(PRODUCT_NAME, "Tidewright C++");
}

} // namespace
