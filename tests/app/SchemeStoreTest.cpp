// The user's scheme directory: where it lies, how the built-in schemes get
// there and are refreshed, the start of a session, and the choice of a scheme.
// Every test works in a temporary directory; none touches the real home.
#include "App_SchemeStore.h"

#include "KemptUI_UserTexts.h"
#include "SchemeTestSupport.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using tw_test::EnvGuard;
using tw_test::readBytes;
using tw_test::schemeText;
using tw_test::TempDir;
using tw_test::writeBytes;

const std::string BUILT_IN = TW_SCHEMES_DIR;

// Home and data variables pointed at `dir`, or unset, for the scope.
struct LocationGuard {
    LocationGuard(std::optional<std::string> schemeDir, std::optional<std::string> xdg, std::optional<std::string> home)
        : m_schemeDir(App::SCHEME_DIR_VARIABLE, std::move(schemeDir)), m_xdg("XDG_DATA_HOME", std::move(xdg)),
          m_home("HOME", std::move(home))
    {
    }
    EnvGuard m_schemeDir;
    EnvGuard m_xdg;
    EnvGuard m_home;
};

std::vector<std::string> builtInFiles()
{
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(BUILT_IN))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

TEST(SchemeStoreTest, SchemeDirectoryFollowsOptionThenVariablesThenHome)
{
    TempDir dir;
    const std::string home = (dir.path() / "home").string();
    {
        LocationGuard env("/from/variable", "/xdg", home);
        EXPECT_EQ(App::schemeDirectory("/from/option"), "/from/option");
        EXPECT_EQ(App::schemeDirectory(""), "/from/variable");
    }
    {
        LocationGuard env(std::nullopt, "/xdg", home);
        EXPECT_EQ(App::schemeDirectory(""), "/xdg/tidewright/schemes");
    }
    {
        LocationGuard env("", "relative/xdg", home); // empty and relative values do not count
        EXPECT_EQ(App::schemeDirectory(""), home + "/.local/share/tidewright/schemes");
    }
}

TEST(SchemeStoreTest, BuiltInSchemesAreFoundFromTheBuildTree)
{
    const std::string found = App::builtInSchemeDirectory();
    ASSERT_FALSE(found.empty());
    EXPECT_TRUE(fs::is_regular_file(fs::path(found) / "default.tws")) << found;
}

TEST(SchemeStoreTest, FirstUseCopiesTheBuiltInSchemesReadOnly)
{
    TempDir dir;
    const fs::path to = dir.path() / "new" / "schemes";
    std::string error;
    ASSERT_TRUE(App::installBuiltInSchemes(BUILT_IN, to.string(), "1.3.0", error)) << error;
    for (const std::string& name : builtInFiles()) {
        EXPECT_EQ(readBytes(to / name), readBytes(fs::path(BUILT_IN) / name)) << name;
        EXPECT_EQ(tw_test::modeOf(to / name), tw_test::READ_ONLY) << name;
    }
    EXPECT_EQ(readBytes(to / App::BUILT_IN_STAMP), "1.3.0\n");
    KemptUI::PropertySetStore store(to.string());
    store.read();
    EXPECT_EQ(store.size(), builtInFiles().size());
    for (const auto& [name, entry] : store)
        EXPECT_TRUE(entry.readOnly) << name; // built-in, also for root
}

TEST(SchemeStoreTest, TheSameVersionLeavesTheCopiesAsTheyAre)
{
    TempDir dir;
    std::string error;
    ASSERT_TRUE(App::installBuiltInSchemes(BUILT_IN, dir.path().string(), "1.3.0", error));
    const fs::path copy = dir.path() / "default.tws";
    fs::remove(copy);
    writeBytes(dir.path() / "K&R.tws.tmp", "");
    fs::rename(dir.path() / "K&R.tws.tmp", dir.path() / "K&R.tws"); // replaced by someone: stays
    tw_test::setMode(dir.path() / "K&R.tws", tw_test::READ_ONLY);
    ASSERT_TRUE(App::installBuiltInSchemes(BUILT_IN, dir.path().string(), "1.3.0", error));
    EXPECT_EQ(readBytes(dir.path() / "K&R.tws"), "");
    // A missing one is copied again.
    EXPECT_EQ(readBytes(copy), readBytes(fs::path(BUILT_IN) / "default.tws"));
}

TEST(SchemeStoreTest, ANewerVersionRefreshesReadOnlyCopiesButNotTheUsersFiles)
{
    TempDir dir;
    std::string error;
    ASSERT_TRUE(App::installBuiltInSchemes(BUILT_IN, dir.path().string(), "1.2.0", error));
    // An old built-in copy, and a user's own writable file under a built-in's name.
    const fs::path old = dir.path() / "GNU.tws";
    fs::remove(old);
    writeBytes(old, "old copy");
    tw_test::setMode(old, tw_test::READ_ONLY);
    const fs::path mine = dir.path() / "default.tws";
    fs::remove(mine);
    writeBytes(mine, "mine");
    ASSERT_TRUE(App::installBuiltInSchemes(BUILT_IN, dir.path().string(), "1.3.0", error)) << error;
    EXPECT_EQ(readBytes(old), readBytes(fs::path(BUILT_IN) / "GNU.tws"));
    EXPECT_EQ(tw_test::modeOf(old), tw_test::READ_ONLY);
    EXPECT_EQ(readBytes(mine), "mine");
    EXPECT_EQ(readBytes(dir.path() / App::BUILT_IN_STAMP), "1.3.0\n");
    // An older program does not bring its schemes back.
    fs::remove(old);
    writeBytes(old, "newer copy");
    tw_test::setMode(old, tw_test::READ_ONLY);
    ASSERT_TRUE(App::installBuiltInSchemes(BUILT_IN, dir.path().string(), "1.2.9", error));
    EXPECT_EQ(readBytes(old), "newer copy");
    EXPECT_EQ(readBytes(dir.path() / App::BUILT_IN_STAMP), "1.3.0\n");
}

TEST(SchemeStoreTest, AnUnreadableStampCountsAsOld)
{
    TempDir dir;
    std::string error;
    writeBytes(dir.path() / App::BUILT_IN_STAMP, "garbage\n");
    writeBytes(dir.path() / "GNU.tws", "stale");
    tw_test::setMode(dir.path() / "GNU.tws", tw_test::READ_ONLY);
    ASSERT_TRUE(App::installBuiltInSchemes(BUILT_IN, dir.path().string(), "1.3.0", error));
    EXPECT_EQ(readBytes(dir.path() / "GNU.tws"), readBytes(fs::path(BUILT_IN) / "GNU.tws"));
}

TEST(SchemeStoreTest, ADirectoryThatCannotBeMadeIsAnError)
{
    TempDir dir;
    writeBytes(dir.path() / "file", "");
    std::string error;
    EXPECT_FALSE(App::installBuiltInSchemes(BUILT_IN, (dir.path() / "file" / "schemes").string(), "1.3.0", error));
    EXPECT_NE(error.find("cannot create the scheme directory"), std::string::npos) << error;
    EXPECT_TRUE(App::installBuiltInSchemes("", (dir.path() / "file" / "x").string(), "1.3.0", error));
}

TEST(SchemeStoreTest, OpeningAFreshStoreShowsTheBuiltInSchemes)
{
    TempDir dir;
    KemptUI::PropertySetStore store((dir.path() / "s").string());
    std::string notice;
    std::string error;
    ASSERT_TRUE(App::openSchemeStore(store, BUILT_IN, notice, error)) << error;
    EXPECT_EQ(notice, "");
    EXPECT_TRUE(store.count("default"));
    EXPECT_TRUE(store.find("Leave as is")->second.readOnly);
}

TEST(SchemeStoreTest, ACorruptFileGivesTheReadErrorTextAndTouchesNothing)
{
    TempDir dir;
    KemptUI::PropertySetStore first(dir.path().string());
    std::string notice;
    std::string error;
    ASSERT_TRUE(App::openSchemeStore(first, BUILT_IN, notice, error));
    writeBytes(dir.path() / "broken.tws", "not a scheme\n");
    writeBytes(dir.path() / "old.tws", schemeText("Old", "")); // would be converted
    const auto before = tw_test::snapshot(dir.path());
    KemptUI::PropertySetStore store(dir.path().string());
    EXPECT_FALSE(App::openSchemeStore(store, BUILT_IN, notice, error));
    EXPECT_EQ(error, KemptUI::readErrorText(dir.dir() + "broken.tws"));
    EXPECT_EQ(tw_test::snapshot(dir.path()), before);
}

TEST(SchemeStoreTest, OldSchemesAreConvertedAtStart)
{
    TempDir dir;
    writeBytes(dir.path() / "old.tws", schemeText("Old", ""));
    writeBytes(dir.path() / "frozen.tws", schemeText("Frozen", "3 TIDEWRIGHT_VERSION \"1.2.2\"\n"));
    tw_test::setMode(dir.path() / "frozen.tws", tw_test::READ_ONLY);
    KemptUI::PropertySetStore store(dir.path().string());
    std::string notice;
    std::string error;
    ASSERT_TRUE(App::openSchemeStore(store, BUILT_IN, notice, error)) << error;
    EXPECT_EQ(notice, KemptUI::fillTemplate(KemptUI::oneOldSchemeTemplate(), {"Frozen"}));
    EXPECT_NE(readBytes(dir.path() / "old.tws").find("3 TIDEWRIGHT_VERSION \"1.3.0\"\r\n"), std::string::npos);
}

TEST(SchemeStoreTest, TheWriteErrorTextNamesTheFileAndItsDirectory)
{
    EXPECT_EQ(App::schemeWriteErrorText("/data/schemes/a.tws"),
              "Tidewright C++ encountered an error while trying to write the scheme file \"/data/schemes/a.tws\". To "
              "correct the problem, ensure you have enough disk space and that the directory \"/data/schemes\" is "
              "not marked read-only.");
}

TEST(SchemeStoreTest, AConversionNeverWritesAReadOnlyFileOfTheSameScheme)
{
    // Two files hold one scheme that needs converting; the second may not be
    // written. Only the first is converted, for root as for anyone else.
    TempDir dir;
    writeBytes(dir.path() / "a.tws", schemeText("Old", ""));
    const std::string frozen = schemeText("Old", "");
    writeBytes(dir.path() / "b.tws", frozen);
    tw_test::setMode(dir.path() / "b.tws", tw_test::READ_ONLY);
    KemptUI::PropertySetStore store(dir.path().string());
    std::string notice;
    std::string error;
    ASSERT_TRUE(App::openSchemeStore(store, "", notice, error)) << error;
    EXPECT_NE(readBytes(dir.path() / "a.tws").find("3 TIDEWRIGHT_VERSION \"1.3.0\"\r\n"), std::string::npos);
    EXPECT_EQ(readBytes(dir.path() / "b.tws"), frozen);
    EXPECT_EQ(tw_test::modeOf(dir.path() / "b.tws"), tw_test::READ_ONLY);
}

TEST(SchemeStoreTest, AUserSchemeNamedLikeABuiltInOneNeverOverwritesIt)
{
    // The user's writable file "0gnu.tws" holds a scheme named "GNU" that
    // needs converting, and sorts before the built-in GNU.tws (mode 0444).
    // Run as root too: root could open GNU.tws for writing.
    TempDir dir;
    KemptUI::PropertySetStore fresh(dir.path().string());
    std::string notice;
    std::string error;
    ASSERT_TRUE(App::openSchemeStore(fresh, BUILT_IN, notice, error)) << error;
    const std::string builtIn = readBytes(dir.path() / "GNU.tws");
    writeBytes(dir.path() / "0gnu.tws", schemeText("GNU", "2 TAB_SIZE 3\n"));
    KemptUI::PropertySetStore store(dir.path().string());
    ASSERT_TRUE(App::openSchemeStore(store, BUILT_IN, notice, error)) << error;
    EXPECT_EQ(readBytes(dir.path() / "GNU.tws"), builtIn);
    EXPECT_EQ(tw_test::modeOf(dir.path() / "GNU.tws"), tw_test::READ_ONLY);
    const std::string mine = readBytes(dir.path() / "0gnu.tws");
    EXPECT_NE(mine.find("2 TAB_SIZE 3\r\n"), std::string::npos);
    EXPECT_NE(mine.find("3 TIDEWRIGHT_VERSION \"1.3.0\"\r\n"), std::string::npos);
    // The user's scheme is the one in use, and stays so at the next start.
    KemptUI::PropertySetStore again(dir.path().string());
    ASSERT_TRUE(App::openSchemeStore(again, BUILT_IN, notice, error)) << error;
    EXPECT_FALSE(again.find("GNU")->second.readOnly);
    EXPECT_EQ(notice, "");
}

TEST(SchemeStoreTest, NoDirectoryIsAnError)
{
    KemptUI::PropertySetStore store("");
    std::string notice;
    std::string error;
    EXPECT_FALSE(App::openSchemeStore(store, BUILT_IN, notice, error));
    EXPECT_NE(error.find("no scheme directory"), std::string::npos);
}

TEST(SchemeStoreTest, SchemesAreChosenByExactName)
{
    TempDir dir;
    KemptUI::PropertySetStore store(dir.path().string());
    std::string notice;
    std::string error;
    ASSERT_TRUE(App::openSchemeStore(store, BUILT_IN, notice, error));
    Kempt::PropertySet set;
    ASSERT_TRUE(App::selectScheme(store, "", set, error));
    EXPECT_EQ(set.name(), "default");
    ASSERT_TRUE(App::selectScheme(store, "K&R", set, error));
    EXPECT_EQ(set.name(), "K&R");
    EXPECT_FALSE(App::findScheme(store, "Default", set, error));
    EXPECT_EQ(set.name(), "K&R");
    EXPECT_EQ(error.substr(0, 56), "no scheme named 'Default'; available schemes:\n  GNU (bui");
    EXPECT_NE(error.find("\n  default (built-in)"), std::string::npos) << error;
}

TEST(SchemeStoreTest, AnEmptyStoreSaysSo)
{
    TempDir dir;
    KemptUI::PropertySetStore store(dir.path().string());
    store.read();
    Kempt::PropertySet set;
    std::string error;
    EXPECT_FALSE(App::selectScheme(store, "", set, error));
    EXPECT_EQ(error, "no scheme named 'default'; there are no schemes in " + dir.dir());
}

TEST(SchemeStoreTest, ListingMarksBuiltInSchemes)
{
    TempDir dir;
    writeBytes(dir.path() / "mine.tws", schemeText("Mine", "3 TIDEWRIGHT_VERSION \"1.3.0\"\n"));
    writeBytes(dir.path() / "fixed.tws", schemeText("Fixed", "3 TIDEWRIGHT_VERSION \"1.3.0\"\n"));
    tw_test::setMode(dir.path() / "fixed.tws", tw_test::READ_ONLY);
    KemptUI::PropertySetStore store(dir.path().string());
    store.read();
    std::ostringstream out;
    App::listSchemes(store, out);
    EXPECT_EQ(out.str(), "Fixed (built-in)\nMine\n");
}

} // namespace
