// The user texts, word for word: users and their scripts read them.
#include "App_UserMessages.h"

#include <gtest/gtest.h>

namespace {

TEST(UserMessagesTest, TheTableIsBuiltOnce)
{
    EXPECT_EQ(&App::userMessages(), &App::userMessages());
}

TEST(UserMessagesTest, ProgramTexts)
{
    const App::UserMessages& m = App::userMessages();
    EXPECT_EQ(m.outOfMemory, "Tidewright C++ is out of memory. Please try closing applications before attempting to "
                             "run this application again.");
    EXPECT_EQ(m.unexpectedError, "An unexpected error has occurred. The current Tidewright C++ operation has failed. "
                                 "Please contact Tidewright Technical Support and report the following details: %s");
    EXPECT_EQ(m.readOnlyFile, "The file you are attempting to format is read only and cannot be formatted.");
    EXPECT_EQ(m.noSchemeSelected,
              "You have not selected a scheme to use when formatting. Please indicate via the Tidewright C++ Options "
              "dialog which Scheme you wish to use when formatting before attempting to format again.");
    EXPECT_EQ(m.componentMissing, "Tidewright C++ was unable to load a component it needs for succesful operation. "
                                  "Tidewright C++ will not be available.");
    EXPECT_EQ(m.noActiveProject,
              "Tidewright C++ was unable to find an active project in the currently loaded workspace. Please set a "
              "project to be active before trying this command again.");
    EXPECT_EQ(m.noWorkspace,
              "No workspace is currently loaded. Please open a workspace before trying this command again.");
    EXPECT_EQ(m.preparingFailed, "Tidewright C++ encountered an error while preparing the file for formatting. The "
                                 "file will not be formatted.");
    EXPECT_EQ(m.servicesMissing,
              "Tidewright C++ was unable to successfully initialize. Operating system services that are required do "
              "not appear to be present.Tidewright C++ will now exit. Please contact Tidewright Technical Support "
              "and report this error.");
    EXPECT_EQ(m.featuresNotWorking,
              "Tidewright C++ was unable to successfully initialize. Certain operating system. features are not "
              "operating as expected.Tidewright C++ will now exit. Please contact Tidewright Technical Support and "
              "report this error.");
    EXPECT_EQ(m.featuresTooOld,
              "Tidewright C++ was unable to successfully initialize. Certain operating system features do not appear "
              "to be recent enough.Tidewright C++ will now exit. Please contact Tidewright Technical Support and "
              "report this error.");
}

TEST(UserMessagesTest, FileJobTexts)
{
    const App::UserMessages& m = App::userMessages();
    EXPECT_EQ(m.openingFile, "Opening file:\n%s");
    EXPECT_EQ(m.writingFile, "Writing file:\n%s");
    EXPECT_EQ(m.completedFile, "Completed file:\n%s");
    EXPECT_EQ(m.willNotBeFormatted, "The file will not be formatted:\n%s");
    EXPECT_EQ(m.formattingFile, "Formatting \"%s\".");
    EXPECT_EQ(m.cannotBeFound, "The file \"%s\" cannot be found.");
    EXPECT_EQ(m.noReadWritePermission,
              "The file \"%s\" does not have read/write permissions and cannot be formatted.");
    EXPECT_EQ(m.unableToRead,
              "Tidewright C++ was unable to read the contents of the file \"%s\". The file will not be formatted.");
    EXPECT_EQ(m.unableToBackUp, "Tidewright C++ was unable to create a backup file for the file \"%s\". The file "
                                "will not be formatted.");
    EXPECT_EQ(m.unableToWrite, "Tidewright C++ was unable to write the formatted text back to the file \"%s\". The "
                               "file will not be formatted.");
    EXPECT_EQ(m.formatSuccessful, " Format successful.");
    EXPECT_EQ(m.couldNotParse,
              "Tidewright C++ could not successfully parse the file %s. If the file contains only valid C/C++ then "
              "please check the Tidewright C++ FAQ at the project's web site to see if this is a known issue. "
              "Otherwise, please send an email to the project's maintainers. The file will not be formatted.");
    EXPECT_EQ(m.willNotBeFormattedTail, " The file \"%s\" will not be formatted.");
}

TEST(UserMessagesTest, SettingsTextsNameTheFileWhereTheRegistryWas)
{
    const App::UserMessages& m = App::userMessages();
    EXPECT_EQ(m.settingsSaveFailed,
              "Failed to create the settings file \"%s\". Any options you set during this session will not be saved.");
    EXPECT_EQ(m.settingsReadFailed,
              "Failed to read the settings file \"%s\". Any options you set during this session will not be saved.");
}

TEST(UserMessagesTest, RefusalsSayWhatTheFileLooksLike)
{
    const App::UserMessages& m = App::userMessages();
    EXPECT_NE(m.binaryFile.find("looks like a binary file"), std::string::npos);
    EXPECT_NE(m.wideText.find("byte-order mark"), std::string::npos);
    EXPECT_NE(m.tokensDiffer.find("does not hold the same tokens"), std::string::npos);
}

} // namespace
