// The scheme store over a real directory: listing, reading, read-only files,
// writing back, file names of new schemes, and the trace.
#include "KemptUI_PropertySetStore.h"

#include "Kempt_PropertyNames.h"
#include "SchemeTestSupport.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace {

namespace P = Kempt::Prop;
using KemptUI::PropertySetStore;
using tw_test::readBytes;
using tw_test::schemeText;
using tw_test::TempDir;
using tw_test::writeBytes;

std::string valueOf(const PropertySetStore& store, const std::string& scheme, const char* property)
{
    std::string value = "<missing>";
    const auto entry = store.find(scheme);
    if (entry != store.end())
        entry->second.set.getString(property, value);
    return value;
}

std::vector<std::string> namesOf(const PropertySetStore& store)
{
    std::vector<std::string> names;
    for (const auto& [name, entry] : store)
        names.push_back(name);
    return names;
}

TEST(PropertySetStoreTest, PathEndsInTheSeparatorAndEmptyPathDoesNothing)
{
    EXPECT_EQ(PropertySetStore("/a/b").path(), "/a/b/");
    EXPECT_EQ(PropertySetStore("/a/b/").path(), "/a/b/");
    PropertySetStore none("");
    EXPECT_EQ(none.path(), "");
    none.insert(Kempt::PropertySet("X"));
    EXPECT_NO_THROW(none.write());
    EXPECT_NO_THROW(none.read());
    EXPECT_TRUE(none.count("X")); // an empty path reads nothing, so the store stays
    EXPECT_TRUE(none.findPSFiles().empty());
}

TEST(PropertySetStoreTest, EmptyDirectoryReadsAsEmptyStore)
{
    TempDir dir;
    PropertySetStore store(dir.path().string());
    EXPECT_NO_THROW(store.read());
    EXPECT_TRUE(store.empty());
    EXPECT_EQ(store.size(), 0u);
    PropertySetStore missing((dir.path() / "not-there").string());
    EXPECT_NO_THROW(missing.read());
    EXPECT_TRUE(missing.empty());
}

TEST(PropertySetStoreTest, FindPSFilesListsSchemeFilesOnlyInByteOrder)
{
    TempDir dir;
    for (const char* name : {"b.tws", "A.tws", "a b.tws", "x.tws.bak", "y.TWS", "z.tw1", "notes.txt"})
        writeBytes(dir.path() / name, "");
    std::filesystem::create_directory(dir.path() / "folder.tws");
    PropertySetStore store(dir.path().string());
    EXPECT_EQ(store.findPSFiles(), (std::vector<std::string>{"A.tws", "a b.tws", "b.tws"}));
}

TEST(PropertySetStoreTest, ReadsEverySchemeWithItsFile)
{
    TempDir dir;
    writeBytes(dir.path() / "one.tws", schemeText("First", "3 WS_AFTER_CS_KEY \" \"\r\n"));
    writeBytes(dir.path() / "two.tws", schemeText("Second", "2 TAB_SIZE 8\n"));
    PropertySetStore store(dir.path().string());
    store.read();
    EXPECT_EQ(namesOf(store), (std::vector<std::string>{"First", "Second"}));
    EXPECT_EQ(store.files(), (PropertySetStore::Files{{"one.tws", "First"}, {"two.tws", "Second"}}));
    EXPECT_EQ(valueOf(store, "First", P::WS_AFTER_CS_KEY), " ");
    EXPECT_FALSE(store.find("First")->second.readOnly);
    EXPECT_TRUE(store.count("Second"));
    EXPECT_FALSE(store.count("second")); // names are exact
}

TEST(PropertySetStoreTest, MissingNewlineAfterLastPropertyLosesOnlyThatProperty)
{
    TempDir dir;
    writeBytes(dir.path() / "s.tws", schemeText("S", "2 TAB_SIZE 4\r\n3 WS_AFTER_CS_KEY \" \""));
    PropertySetStore store(dir.path().string());
    EXPECT_NO_THROW(store.read());
    const Kempt::PropertySet& set = store.find("S")->second.set;
    std::int32_t tabSize = 0;
    EXPECT_TRUE(set.getInt(P::TAB_SIZE, tabSize));
    EXPECT_EQ(tabSize, 4);
    EXPECT_FALSE(set.exists(P::WS_AFTER_CS_KEY));
}

TEST(PropertySetStoreTest, VersionTwoFailsTheWholeReadAndKeepsTheOldContent)
{
    TempDir dir;
    writeBytes(dir.path() / "good.tws", schemeText("Good", "2 TAB_SIZE 4\n"));
    PropertySetStore store(dir.path().string());
    store.read();
    ASSERT_TRUE(store.count("Good"));
    writeBytes(dir.path() / "future.tws", schemeText("Future", "2 TAB_SIZE 4\n", 2));
    try {
        store.read();
        FAIL() << "no ReadError";
    } catch (const PropertySetStore::ReadError& e) {
        EXPECT_EQ(e.path(), dir.dir() + "future.tws");
    }
    EXPECT_EQ(namesOf(store), (std::vector<std::string>{"Good"}));
    EXPECT_EQ(store.files().size(), 1u);
}

TEST(PropertySetStoreTest, OtherCorruptFilesFailTheRead)
{
    for (const std::string& text : {std::string("not a scheme\n"), std::string(""),
                                    schemeText("T", "4 TAB_SIZE 1\n"), schemeText("T", "2 TAB_SIZE 1\n", 0)}) {
        TempDir dir;
        writeBytes(dir.path() / "bad.tws", text);
        PropertySetStore store(dir.path().string());
        EXPECT_THROW(store.read(), PropertySetStore::ReadError) << text;
    }
}

TEST(PropertySetStoreTest, AValueThatDoesNotParseOnlyDropsItsProperty)
{
    TempDir dir;
    writeBytes(dir.path() / "s.tws", schemeText("S", "2 TAB_SIZE x\n1 LINE_WRAP 1\n"));
    PropertySetStore store(dir.path().string());
    store.read();
    EXPECT_FALSE(store.find("S")->second.set.exists(P::TAB_SIZE));
    EXPECT_TRUE(store.find("S")->second.set.exists(P::LINE_WRAP));
}

TEST(PropertySetStoreTest, TwoFilesWithOneNameTheFirstListedIsUsedAndWriteWritesItToBoth)
{
    TempDir dir;
    writeBytes(dir.path() / "a.tws", schemeText("Same", "2 TAB_SIZE 2\n"));
    writeBytes(dir.path() / "b.tws", schemeText("Same", "2 TAB_SIZE 8\n"));
    PropertySetStore store(dir.path().string());
    store.read();
    ASSERT_EQ(store.findPSFiles().front(), "a.tws");
    std::int32_t tabSize = 0;
    store.find("Same")->second.set.getInt(P::TAB_SIZE, tabSize);
    EXPECT_EQ(tabSize, 2);
    EXPECT_EQ(store.files(), (PropertySetStore::Files{{"a.tws", "Same"}, {"b.tws", "Same"}}));
    store.write();
    const std::string expected = "Kempt::PropertySet\r\n1\r\n\"Same\"\r\n2 TAB_SIZE 2\r\n";
    EXPECT_EQ(readBytes(dir.path() / "a.tws"), expected);
    EXPECT_EQ(readBytes(dir.path() / "b.tws"), expected);
}

TEST(PropertySetStoreTest, StringValuesSurviveWriteAndRead)
{
    TempDir dir;
    PropertySetStore store(dir.path().string());
    Kempt::PropertySet set("Strings");
    const std::string tricky = "\t\n\"quoted\" it's a \\ back\r\v ";
    set.setString(P::WS_AFTER_CS_KEY, tricky);
    set.setString(P::WS_BETWEEN_CS, "'");
    set.setString(P::LEFT_MARGIN, "");
    store.insert(set);
    store.write();
    PropertySetStore back(dir.path().string());
    back.read();
    ASSERT_TRUE(back.count("Strings"));
    EXPECT_EQ(back.find("Strings")->second.set, set);
    EXPECT_EQ(valueOf(back, "Strings", P::WS_AFTER_CS_KEY), tricky);
    EXPECT_EQ(valueOf(back, "Strings", P::WS_BETWEEN_CS), "'");
}

TEST(PropertySetStoreTest, WrittenFilesHaveCrLfLinesInTheCanonicalOrder)
{
    TempDir dir;
    PropertySetStore store(dir.path().string());
    Kempt::PropertySet set("My scheme");
    set.setString(P::WS_BEFORE_FN_OPEN_BRACE, "\n");
    set.setInt(P::RIGHT_MARGIN, 78);
    set.setBool(P::ALIGN_DD_NAMES_LEFT, true);
    store.insert(set);
    store.write();
    EXPECT_EQ(readBytes(dir.path() / "My scheme.tws"),
              "Kempt::PropertySet\r\n1\r\n\"My scheme\"\r\n1 ALIGN_DD_NAMES_LEFT 1\r\n2 RIGHT_MARGIN 78\r\n"
              "3 WS_BEFORE_FN_OPEN_BRACE \"\\n\"\r\n");
}

TEST(PropertySetStoreTest, ReadOnlyFilesAreReadOnlyEntriesEvenForRoot)
{
    TempDir dir;
    const auto file = dir.path() / "builtin.tws";
    writeBytes(file, schemeText("Built in", "2 TAB_SIZE 4\n"));
    tw_test::setMode(file, tw_test::READ_ONLY);
    if (::geteuid() == 0) {
        // Root could open the file for writing; the mode still marks it read-only.
        std::ofstream probe(file, std::ios::app);
        EXPECT_TRUE(probe.is_open());
    }
    EXPECT_FALSE(KemptUI::grantsWriteAccess(file.string()));
    PropertySetStore store(dir.path().string());
    store.read();
    EXPECT_TRUE(store.find("Built in")->second.readOnly);
}

TEST(PropertySetStoreTest, WriteAccessFollowsTheModeAndTheUser)
{
    TempDir dir;
    const auto file = dir.path() / "f.tws";
    writeBytes(file, "");
    tw_test::setMode(file, tw_test::READ_WRITE);
    EXPECT_TRUE(KemptUI::grantsWriteAccess(file.string()));
    tw_test::setMode(file, std::filesystem::perms::owner_write);
    EXPECT_TRUE(KemptUI::grantsWriteAccess(file.string()));
    tw_test::setMode(file, std::filesystem::perms::none);
    EXPECT_FALSE(KemptUI::grantsWriteAccess(file.string()));
    // Writable for others only: root may write it; another owner's user may;
    // the owner himself may not, and access(2) says so.
    tw_test::setMode(file, tw_test::READ_ONLY | std::filesystem::perms::others_write);
    EXPECT_EQ(KemptUI::grantsWriteAccess(file.string()), ::geteuid() == 0);
    EXPECT_FALSE(KemptUI::grantsWriteAccess((dir.path() / "missing.tws").string()));
}

TEST(PropertySetStoreTest, ErasingAReadOnlySchemeLeavesIt)
{
    TempDir dir;
    const auto file = dir.path() / "builtin.tws";
    writeBytes(file, schemeText("Built in", "2 TAB_SIZE 4\n"));
    tw_test::setMode(file, tw_test::READ_ONLY);
    PropertySetStore store(dir.path().string());
    store.read();
    store.erase("Built in");
    EXPECT_TRUE(store.count("Built in"));
    EXPECT_EQ(store.files().size(), 1u);
    Kempt::PropertySet changed("Built in");
    EXPECT_FALSE(store.replace(changed));
    EXPECT_EQ(store.find("Built in")->second.set.count(), 1u);
}

TEST(PropertySetStoreTest, WriteKeepsReadOnlyFilesAndDeletesErasedOnes)
{
    TempDir dir;
    const auto builtIn = dir.path() / "builtin.tws";
    const std::string builtInText = schemeText("Built in", "2 TAB_SIZE 4\n");
    writeBytes(builtIn, builtInText);
    tw_test::setMode(builtIn, tw_test::READ_ONLY);
    writeBytes(dir.path() / "mine.tws", schemeText("Mine", "2 TAB_SIZE 4\n"));
    writeBytes(dir.path() / "other.tws", schemeText("Other", "2 TAB_SIZE 4\n"));
    PropertySetStore store(dir.path().string());
    store.read();
    store.erase("Other");
    store.write();
    EXPECT_EQ(store.findPSFiles(), (std::vector<std::string>{"builtin.tws", "mine.tws"}));
    EXPECT_EQ(readBytes(builtIn), builtInText); // not rewritten, not deleted (even by root)
    EXPECT_EQ(tw_test::modeOf(builtIn), tw_test::READ_ONLY);
    EXPECT_EQ(readBytes(dir.path() / "mine.tws"), "Kempt::PropertySet\r\n1\r\n\"Mine\"\r\n2 TAB_SIZE 4\r\n");
}

TEST(PropertySetStoreTest, AWritableSchemeWhoseOnlyFileIsReadOnlyGetsANewFile)
{
    // The user's "0gnu.tws" and the read-only "GNU.tws" both hold "GNU". The
    // user erases the scheme and makes it again: its file name would be
    // GNU.tws, which may not be written (root could), so a new file takes it.
    TempDir dir;
    const auto builtIn = dir.path() / "GNU.tws";
    const std::string builtInText = schemeText("GNU", "2 TAB_SIZE 2\n");
    writeBytes(builtIn, builtInText);
    tw_test::setMode(builtIn, tw_test::READ_ONLY);
    writeBytes(dir.path() / "0gnu.tws", schemeText("GNU", "2 TAB_SIZE 3\n"));
    PropertySetStore store(dir.path().string());
    store.read();
    ASSERT_FALSE(store.find("GNU")->second.readOnly);
    store.erase("GNU");
    Kempt::PropertySet mine("GNU");
    mine.setInt(P::TAB_SIZE, 5);
    store.insert(mine);
    store.write();
    EXPECT_EQ(readBytes(builtIn), builtInText);
    EXPECT_EQ(tw_test::modeOf(builtIn), tw_test::READ_ONLY);
    EXPECT_EQ(store.findPSFiles(), (std::vector<std::string>{"GNU-1.tws", "GNU.tws"}));
    EXPECT_EQ(readBytes(dir.path() / "GNU-1.tws"), "Kempt::PropertySet\r\n1\r\n\"GNU\"\r\n2 TAB_SIZE 5\r\n");
    // Read again, the user's file comes first and its scheme is the one used.
    PropertySetStore again(dir.path().string());
    again.read();
    std::int32_t tabSize = 0;
    again.find("GNU")->second.set.getInt(P::TAB_SIZE, tabSize);
    EXPECT_EQ(tabSize, 5);
}

TEST(PropertySetStoreTest, InsertOfATakenNameKeepsTheSetAndAddsAFileRow)
{
    PropertySetStore store("");
    Kempt::PropertySet first("Plain");
    first.setInt(P::TAB_SIZE, 2);
    store.insert(first);
    Kempt::PropertySet second("Plain");
    second.setInt(P::TAB_SIZE, 8);
    store.insert(second);
    EXPECT_EQ(store.size(), 1u);
    EXPECT_EQ(store.find("Plain")->second.set, first);
    EXPECT_FALSE(store.find("Plain")->second.readOnly);
    EXPECT_EQ(store.files(), (PropertySetStore::Files{{"Plain.tw1", "Plain"}, {"Plain.tws", "Plain"}}));
}

TEST(PropertySetStoreTest, ValidFilenameReplacesCharactersAFileNameCannotHold)
{
    const PropertySetStore store("");
    EXPECT_EQ(store.validFilename("a/b:c"), "a_b_c.tws");
    EXPECT_EQ(store.validFilename("<>:\\/|?"), "_______.tws");
    EXPECT_EQ(store.validFilename("K&R"), "K&R.tws");
    EXPECT_EQ(store.validFilename("Linux kernel"), "Linux kernel.tws");
    EXPECT_EQ(store.validFilename("a..b"), "a_b.tws");
    EXPECT_EQ(store.validFilename("a...b"), "a_.b.tws");
    EXPECT_EQ(store.validFilename("a....b"), "a__b.tws");
    // The pairs are replaced after the extension is on: a final point joins it.
    EXPECT_EQ(store.validFilename("x."), "x_tws");
    EXPECT_EQ(store.validFilename(""), ".tws");
}

TEST(PropertySetStoreTest, ValidFilenameCutsLongNames)
{
    const PropertySetStore store("");
    EXPECT_EQ(store.validFilename(std::string(256, 'a')), std::string(256, 'a') + ".tws");
    EXPECT_EQ(store.validFilename(std::string(258, 'a')), std::string(258, 'a') + ".tws");
    EXPECT_EQ(store.validFilename(std::string(260, 'a')), std::string(260, 'a') + ".tws");
    EXPECT_EQ(store.validFilename(std::string(300, 'a')), std::string(260, 'a') + ".tws");
}

TEST(PropertySetStoreTest, CollisionsNumberTheEndOfTheName)
{
    PropertySetStore store("");
    std::vector<std::string> files;
    for (int i = 0; i < 12; ++i) {
        files.push_back(store.validFilename("Plain"));
        store.insert(Kempt::PropertySet("Plain"));
    }
    EXPECT_EQ(files, (std::vector<std::string>{"Plain.tws", "Plain.tw1", "Plain.tw2", "Plain.tw3", "Plain.tw4",
                                               "Plain.tw5", "Plain.tw6", "Plain.tw7", "Plain.tw8", "Plain.tw9",
                                               "Plain.t10", "Plain.t11"}));
}

TEST(PropertySetStoreTest, ANumberedFileIsWrittenButNotFoundAgain)
{
    TempDir dir;
    PropertySetStore store(dir.path().string());
    store.insert(Kempt::PropertySet("Plain"));
    store.insert(Kempt::PropertySet("Plain"));
    store.write();
    EXPECT_TRUE(std::filesystem::exists(dir.path() / "Plain.tw1"));
    PropertySetStore back(dir.path().string());
    back.read();
    EXPECT_EQ(back.files(), (PropertySetStore::Files{{"Plain.tws", "Plain"}}));
}

TEST(PropertySetStoreTest, EraseThenInsertKeepsTheFileName)
{
    TempDir dir;
    writeBytes(dir.path() / "Mine.tws", schemeText("Mine", "2 TAB_SIZE 4\n"));
    PropertySetStore store(dir.path().string());
    store.read();
    Kempt::PropertySet changed("Mine");
    changed.setInt(P::TAB_SIZE, 8);
    store.erase("Mine");
    EXPECT_FALSE(store.count("Mine"));
    EXPECT_TRUE(store.files().empty());
    store.insert(changed);
    store.write();
    EXPECT_EQ(store.findPSFiles(), (std::vector<std::string>{"Mine.tws"}));
    EXPECT_EQ(readBytes(dir.path() / "Mine.tws"), "Kempt::PropertySet\r\n1\r\n\"Mine\"\r\n2 TAB_SIZE 8\r\n");
}

TEST(PropertySetStoreTest, ReplaceChangesAWritableEntryInPlace)
{
    PropertySetStore store("");
    store.insert(Kempt::PropertySet("Mine"));
    Kempt::PropertySet changed("Mine");
    changed.setBool(P::LINE_WRAP, true);
    EXPECT_TRUE(store.replace(changed));
    EXPECT_EQ(store.find("Mine")->second.set, changed);
    EXPECT_FALSE(store.replace(Kempt::PropertySet("Unknown")));
    EXPECT_EQ(store.files().size(), 1u);
}

TEST(PropertySetStoreTest, EntriesAreInByteOrderOfNames)
{
    PropertySetStore store("");
    for (const char* name : {"default", "GNU", "K&R", "Leave as is", "Zed"})
        store.insert(Kempt::PropertySet(name));
    EXPECT_EQ(namesOf(store), (std::vector<std::string>{"GNU", "K&R", "Leave as is", "Zed", "default"}));
}

TEST(PropertySetStoreTest, AFileThatCannotBeWrittenIsAWriteErrorNamingIt)
{
    TempDir dir;
    // A directory where the file should go: it is no scheme file, and it
    // cannot be opened for writing.
    std::filesystem::create_directory(dir.path() / "Blocked.tws");
    PropertySetStore store(dir.path().string());
    store.insert(Kempt::PropertySet("Blocked"));
    try {
        store.write();
        FAIL() << "no WriteError";
    } catch (const PropertySetStore::WriteError& e) {
        EXPECT_EQ(e.path(), dir.dir() + "Blocked.tws");
    }
}

TEST(PropertySetStoreTest, WriteSchemeTextGivesTheFileForm)
{
    Kempt::PropertySet set("S");
    set.setString(P::WS_AFTER_CS_KEY, "\n");
    std::ostringstream out;
    EXPECT_TRUE(KemptUI::writeSchemeText(out, set));
    EXPECT_EQ(out.str(), "Kempt::PropertySet\r\n1\r\n\"S\"\r\n3 WS_AFTER_CS_KEY \"\\n\"\r\n");
}

TEST(PropertySetStoreTest, OperationsTraceWhenAskedAndOnlyThen)
{
    TempDir dir;
    writeBytes(dir.path() / "a.tws", schemeText("A", ""));
    {
        tw_test::EnvGuard off("TIDEWRIGHT_TRACE", std::nullopt);
        tw_test::ClogGuard clog;
        PropertySetStore store(dir.path().string());
        store.read();
        EXPECT_EQ(clog.text(), "");
    }
    tw_test::EnvGuard on("TIDEWRIGHT_TRACE", "1");
    tw_test::ClogGuard clog;
    PropertySetStore store(dir.path().string());
    store.read();
    store.erase("A");
    store.insert(Kempt::PropertySet("B"));
    store.write();
    const std::string trace = clog.text();
    EXPECT_NE(trace.find("[trace] > PropertySetStore::read\n"), std::string::npos) << trace;
    EXPECT_NE(trace.find("PropertySetStore::findPSFiles: Found file a.tws\n"), std::string::npos) << trace;
    EXPECT_NE(trace.find("PropertySetStore::validFilename: Calculated filename: B.tws\n"), std::string::npos);
    EXPECT_NE(trace.find("PropertySetStore::write: Deleting " + dir.dir() + "a.tws\n"), std::string::npos);
    EXPECT_NE(trace.find("PropertySetStore::write: Writing " + dir.dir() + "B.tws\n"), std::string::npos);
    EXPECT_NE(trace.find("[trace] < PropertySetStore::write\n"), std::string::npos);
}

TEST(PropertySetStoreTest, FailedDeletionIsTracedAndIgnored)
{
    TempDir dir;
    const auto file = dir.path() / "stray.tws";
    writeBytes(file, schemeText("Stray", ""));
    tw_test::setMode(file, tw_test::READ_ONLY);
    PropertySetStore store(dir.path().string()); // never read: the stray file is nobody's
    tw_test::EnvGuard on("TIDEWRIGHT_TRACE", "1");
    tw_test::ClogGuard clog;
    EXPECT_NO_THROW(store.write());
    EXPECT_TRUE(std::filesystem::exists(file));
    EXPECT_NE(clog.text().find("Could not successfully delete PropertySet file " + file.string()), std::string::npos);
}

} // namespace
