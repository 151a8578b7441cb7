// The per-user settings file: where it lies, its defaults, reading a file a
// person wrote, and writing it back whole so that every value survives.
#include "App_Settings.h"

#include "SchemeTestSupport.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using tw_test::EnvGuard;
using tw_test::readBytes;
using tw_test::TempDir;
using tw_test::writeBytes;

App::Settings loaded(const fs::path& path)
{
    App::Settings s;
    std::string error;
    EXPECT_TRUE(App::loadSettings(path.string(), s, error)) << error;
    EXPECT_EQ(error, "");
    return s;
}

TEST(SettingsTest, DefaultsAreTheDocumentedOnes)
{
    const App::Settings s;
    EXPECT_FALSE(s.standaloneWindowPos.isSet());
    EXPECT_EQ(s.standaloneOnFormat, "");
    EXPECT_EQ(s.fileExtensions, "c,cc,cpp,cxx,h,hh,hpp,hxx");
    EXPECT_EQ(s.backupExtension, "bak");
    EXPECT_TRUE(s.createBackups);
    EXPECT_EQ(s.messagesThreshold, 1);
    EXPECT_EQ(s.standaloneLastDirectory, "");
    EXPECT_EQ(s.extensionList(), (std::vector<std::string>{"c", "cc", "cpp", "cxx", "h", "hh", "hpp", "hxx"}));
}

TEST(SettingsTest, PathFollowsXdgConfigHomeThenHome)
{
    {
        EnvGuard xdg("XDG_CONFIG_HOME", "/cfg");
        EnvGuard home("HOME", "/home/u");
        EXPECT_EQ(App::settingsFilePath(), "/cfg/tidewright/tidewright.ini");
    }
    {
        EnvGuard xdg("XDG_CONFIG_HOME", "relative"); // not absolute: ignored
        EnvGuard home("HOME", "/home/u");
        EXPECT_EQ(App::settingsFilePath(), "/home/u/.config/tidewright/tidewright.ini");
    }
    {
        EnvGuard xdg("XDG_CONFIG_HOME", std::nullopt);
        EnvGuard home("HOME", "/home/v");
        EXPECT_EQ(App::settingsFilePath(), "/home/v/.config/tidewright/tidewright.ini");
    }
}

TEST(SettingsTest, AMissingFileGivesTheDefaultsWithoutError)
{
    TempDir dir;
    EXPECT_EQ(loaded(dir.path() / "none.ini"), App::Settings());
}

TEST(SettingsTest, ExtensionListCutsAtSemicolonsCommasAndBlanksAndDropsPoints)
{
    App::Settings s;
    s.fileExtensions = "c;.H, cpp";
    EXPECT_EQ(s.extensionList(), (std::vector<std::string>{"c", "H", "cpp"}));
    s.fileExtensions = " ;;, ";
    EXPECT_TRUE(s.extensionList().empty());
    s.fileExtensions = ""; // empty counts as the default
    EXPECT_EQ(s.extensionList().size(), 8u);
}

TEST(SettingsTest, EveryValueSurvivesASaveAndALoad)
{
    TempDir dir;
    App::Settings s;
    s.standaloneWindowPos = {10, -20, 810, 620};
    s.standaloneOnFormat = "K&R";
    s.fileExtensions = "c;cpp ; inl";
    s.backupExtension = "orig";
    s.createBackups = false;
    s.messagesThreshold = 3;
    s.standaloneLastDirectory = "  /tmp/a dir ; with \"quotes\" \\ and \t tab ";
    s.currentPropertySet = "\"quoted\"";
    s.showPreview = 0;
    s.currentSchemesTab = 7;
    std::string longSample;
    for (int i = 0; i < 60; ++i)
        longSample += "class A" + std::to_string(i) + " { int x; };  // note ; #x\n#define B \\\n  1\r\n";
    s.previewSamples["ClassesPreview"] = longSample;
    s.previewSamples["DataPreview"] = std::string(300, ' ') + "#" + std::string(300, '#') + " ";
    s.otherValues["FutureValue"] = "kept as it is";
    const fs::path path = dir.path() / "deep" / "er" / "tidewright.ini";
    std::string error;
    ASSERT_TRUE(App::saveSettings(path.string(), s, error)) << error;
    EXPECT_EQ(loaded(path), s);
    // No line is longer than the INI reader takes.
    std::istringstream lines(readBytes(path));
    for (std::string line; std::getline(lines, line);)
        EXPECT_LT(line.size(), 190u) << line;
}

TEST(SettingsTest, AFileWrittenByHandIsRead)
{
    TempDir dir;
    const fs::path path = dir.path() / "t.ini";
    writeBytes(path, "; my settings\n[Other]\nBackupExtension=nope\n[Options]\n"
                     "StandaloneOnFormat = Linux kernel\n"
                     "BackupExtension=orig ; inline comment\n"
                     "CreateBackups=0\n"
                     "MessagesThreshold=2\n"
                     "StandaloneWindowPos=1 2 3 4\n");
    const App::Settings s = loaded(path);
    EXPECT_EQ(s.standaloneOnFormat, "Linux kernel");
    EXPECT_EQ(s.backupExtension, "orig");
    EXPECT_FALSE(s.createBackups);
    EXPECT_EQ(s.messagesThreshold, 2);
    EXPECT_EQ(s.standaloneWindowPos, (App::WindowRect{1, 2, 3, 4}));
}

TEST(SettingsTest, AValueThatDoesNotReadKeepsItsDefaultWithoutAWord)
{
    TempDir dir;
    const fs::path path = dir.path() / "t.ini";
    writeBytes(path, "[Options]\nCreateBackups=yes\nMessagesThreshold=2x\nStandaloneWindowPos=1 2 3\n"
                     "this line is no setting\nFileExtensions=c\n");
    const App::Settings s = loaded(path);
    EXPECT_TRUE(s.createBackups);
    EXPECT_EQ(s.messagesThreshold, 1);
    EXPECT_FALSE(s.standaloneWindowPos.isSet());
    EXPECT_EQ(s.fileExtensions, "c");
}

TEST(SettingsTest, AllZeroWindowPositionCountsAsNotSet)
{
    TempDir dir;
    const fs::path path = dir.path() / "t.ini";
    writeBytes(path, "[Options]\nStandaloneWindowPos=0 0 0 0\n");
    EXPECT_FALSE(loaded(path).standaloneWindowPos.isSet());
}

TEST(SettingsTest, AFileThatCannotBeReadGivesTheTextAndDisablesSaving)
{
    TempDir dir;
    const fs::path path = dir.path() / "t.ini";
    fs::create_directories(path); // a directory where the file should be
    App::Settings s;
    std::string error;
    EXPECT_FALSE(App::loadSettings(path.string(), s, error));
    EXPECT_EQ(error.rfind("Failed to read the settings file \"" + path.string()
                              + "\". Any options you set during this session will not be saved.",
                          0),
              0u)
        << error;
    EXPECT_TRUE(s.saveDisabled);
    EXPECT_FALSE(App::saveSettings(path.string(), s, error));
    EXPECT_TRUE(fs::is_directory(path));
}

TEST(SettingsTest, AFailedSaveGivesTheTextAndLeavesTheOldFile)
{
    TempDir dir;
    writeBytes(dir.path() / "blocker", "a file, not a directory");
    std::string error;
    EXPECT_FALSE(App::saveSettings((dir.path() / "blocker" / "t.ini").string(), App::Settings(), error));
    EXPECT_EQ(error.rfind("Failed to create the settings file \"" + (dir.path() / "blocker" / "t.ini").string()
                              + "\". Any options you set during this session will not be saved.",
                          0),
              0u)
        << error;
    EXPECT_EQ(readBytes(dir.path() / "blocker"), "a file, not a directory");
}

TEST(SettingsTest, SavingThroughASymbolicLinkKeepsTheLink)
{
    TempDir dir;
    const fs::path real = dir.path() / "dotfiles" / "tidewright.ini";
    fs::create_directories(real.parent_path());
    writeBytes(real, "[Options]\nBackupExtension=old\n");
    const fs::path link = dir.path() / "tidewright.ini";
    fs::create_symlink(real, link);
    App::Settings s = loaded(link);
    EXPECT_EQ(s.backupExtension, "old");
    s.backupExtension = "new";
    std::string error;
    ASSERT_TRUE(App::saveSettings(link.string(), s, error)) << error;
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(loaded(real).backupExtension, "new");
}

TEST(SettingsTest, SaveWritesEveryValueOfTheTable)
{
    const std::string text = App::settingsText(App::Settings());
    for (const char* key : {"StandaloneWindowPos=0 0 0 0\n", "StandaloneOnFormat=\n",
                            "FileExtensions=c,cc,cpp,cxx,h,hh,hpp,hxx\n", "BackupExtension=bak\n", "CreateBackups=1\n",
                            "MessagesThreshold=1\n", "StandaloneLastDirectory=\n", "CurrentPropertySet=\n",
                            "ShowPreview=1\n", "CurrentSchemesTab=0\n"})
        EXPECT_NE(text.find(key), std::string::npos) << key;
    EXPECT_NE(text.find("[Options]\n"), std::string::npos);
}

TEST(SettingsTest, ValuesAreWrittenPlainWhenTheyCanBe)
{
    EXPECT_EQ(App::encodeValue("Linux kernel"), "Linux kernel");
    EXPECT_EQ(App::encodeValue(" lead"), "\" lead\"");
    EXPECT_EQ(App::encodeValue("a;b"), "\"a\\;b\"");
    EXPECT_EQ(App::encodeValue("\"q\""), "\"\\\"q\\\"\"");
    EXPECT_EQ(App::encodeValue("x\ty\n"), "\"x\\ty\\n\"");
    for (const std::string v : {"", " ", "a\\b", "\x01\x7f", "\"", "ends\\"})
        EXPECT_EQ(App::decodeValue(App::encodeValue(v)), v) << v;
}

} // namespace
