// The conversion of old schemes at start: the steps, read-only schemes, bad
// versions, and one write of the store at most.
#include "KemptUI_SchemeConversion.h"

#include "KemptUI_PropertySetStore.h"
#include "KemptUI_UserTexts.h"
#include "Kempt_PropertyNames.h"
#include "SchemeTestSupport.h"
#include "Varnel_Contract.h"

#include <gtest/gtest.h>

namespace {

namespace P = Kempt::Prop;
using KemptUI::convertSchemes;
using KemptUI::isOlderVersion;
using KemptUI::PropertySetStore;
using tw_test::readBytes;
using tw_test::schemeText;
using tw_test::TempDir;
using tw_test::writeBytes;

const std::string ONE_OLD_SCHEME_PREFIX = "The scheme '";

// The condition text of the contract that a call breaks, or "" if none.
template <typename Call>
std::string brokenContract(Call call)
{
    try {
        call();
    } catch (const Varnel::ContractViolation& e) {
        return e.condition();
    }
    return "";
}

std::string stringOf(const Kempt::PropertySet& set, const char* name)
{
    std::string value = "<missing>";
    set.getString(name, value);
    return value;
}

std::int32_t intOf(const Kempt::PropertySet& set, const char* name)
{
    std::int32_t value = -99;
    set.getInt(name, value);
    return value;
}

const Kempt::PropertySet& setOf(const PropertySetStore& store, const std::string& name)
{
    return store.find(name)->second.set;
}

// A store read from `dir`, where `files` are written first; names in
// `readOnly` get mode 0444.
PropertySetStore storeWith(const TempDir& dir, const std::vector<std::pair<std::string, std::string>>& files,
                           const std::vector<std::string>& readOnly = {})
{
    for (const auto& [file, text] : files)
        writeBytes(dir.path() / file, text);
    for (const std::string& file : readOnly)
        tw_test::setMode(dir.path() / file, tw_test::READ_ONLY);
    PropertySetStore store(dir.path().string());
    store.read();
    return store;
}

std::string versionLine(const std::string& version)
{
    return "3 TIDEWRIGHT_VERSION \"" + version + "\"\n";
}

TEST(SchemeConversionTest, IsOlderVersionComparesMajorMinorPatch)
{
    EXPECT_TRUE(isOlderVersion("1.2.1", "1.2.2"));
    EXPECT_TRUE(isOlderVersion("1.2.2", "1.3.0"));
    EXPECT_TRUE(isOlderVersion("0.9.9", "1.0.0"));
    EXPECT_FALSE(isOlderVersion("1.3.0", "1.3.0"));
    EXPECT_FALSE(isOlderVersion("1.3.0", "1.2.9"));
    EXPECT_FALSE(isOlderVersion("2.0.0", "1.9.9"));
    EXPECT_FALSE(isOlderVersion("1.10.0", "1.9.0")); // numbers, not text
    EXPECT_TRUE(isOlderVersion("1.2.10", "1.3.0"));
}

TEST(SchemeConversionTest, IsOlderVersionContractsNameTheirConditions)
{
    EXPECT_EQ(brokenContract([] { isOlderVersion("1.3", "1.3.0"); }), "numDots == 2");
    EXPECT_EQ(brokenContract([] { isOlderVersion("1.2.3.4", "1.3.0"); }), "numDots == 2");
    EXPECT_EQ(brokenContract([] { isOlderVersion("", "1.3.0"); }), "numDots == 2");
    EXPECT_EQ(brokenContract([] { isOlderVersion("a.b.c", "1.3.0"); }), "!is.bad() && !is.fail()");
    EXPECT_EQ(brokenContract([] { isOlderVersion("1..2", "1.3.0"); }), "!is.bad() && !is.fail()");
    EXPECT_EQ(brokenContract([] { isOlderVersion("1.3.0", "x"); }), "numDots == 2");
}

TEST(SchemeConversionTest, WritableSchemeAt122GetsOnlyTheLastStep)
{
    TempDir dir;
    PropertySetStore store = storeWith(
        dir, {{"s.tws", schemeText("S", "3 WS_AFTER_DD_RBRACKET \" \"\n3 WS_BETWEEN_UNARY_OP_OPERAND \" \"\n"
                                        + versionLine("1.2.2"))}});
    EXPECT_EQ(convertSchemes(store), "");
    const Kempt::PropertySet& set = setOf(store, "S");
    EXPECT_EQ(stringOf(set, P::TIDEWRIGHT_VERSION), "1.3.0");
    EXPECT_EQ(intOf(set, P::IF_ELSE_CS_SINGLE_STMT_BRACE_STYLE), 0);
    EXPECT_EQ(intOf(set, P::FOR_CS_SINGLE_STMT_BRACE_STYLE), 0);
    EXPECT_EQ(intOf(set, P::WHILE_CS_SINGLE_STMT_BRACE_STYLE), 0);
    EXPECT_EQ(intOf(set, P::INDENT_WRAP_STYLE), 1);
    EXPECT_EQ(stringOf(set, P::WS_BEFORE_LBRACKET), "");
    EXPECT_FALSE(set.exists(P::WS_AFTER_DD_RBRACKET));
    EXPECT_EQ(stringOf(set, P::WS_BETWEEN_UNARY_OP_OPERAND), " "); // the 1.2.2 step did not run
    EXPECT_FALSE(set.exists(P::LINE_WRAP));                         // nor did the first
    EXPECT_EQ(set.count(), 7u);
    // Written to disk.
    PropertySetStore back(dir.path().string());
    back.read();
    EXPECT_EQ(setOf(back, "S"), set);
}

TEST(SchemeConversionTest, WritableSchemeWithoutVersionGoesThroughEveryStep)
{
    TempDir dir;
    const std::string properties = "1 ALIGN_FN_PARAMS_LEFT 1\n1 ALIGN_CS_FOR_CLAUSES_LEFT 0\n"
                                   "1 ALIGN_FN_PARAMS_LEFT_ON_WRAP 1\n1 ALIGN_CS_FOR_CLAUSES_LEFT_ON_WRAP 1\n"
                                   "2 SPACES_PER_TAB 3\n"
                                   "3 GLOBAL_WS_BEFORE_OPEN_BRACE \"\\n\"\n3 GLOBAL_INDENT_CONTENT \"\\t\"\n"
                                   "3 GLOBAL_WS_BEFORE_COMMA \" \"\n3 WS_AFTER_FN_NAME \" \"\n"
                                   "3 WS_AFTER_DD_NAME \" \"\n3 WS_AFTER_CLASS_HEAD \"\\n\"\n3 WS_AFTER_NS_HEAD \" \"\n"
                                   "3 WS_AFTER_DD_RBRACKET \" \"\n3 WS_BETWEEN_UNARY_OP_OPERAND \" \"\n";
    PropertySetStore store = storeWith(dir, {{"old.tws", schemeText("Old", properties)}});
    EXPECT_EQ(convertSchemes(store), "");
    const Kempt::PropertySet& set = setOf(store, "Old");

    // 1.2.1, steps 1 to 3.
    EXPECT_EQ(stringOf(set, P::WS_BETWEEN_FN_PARAMS), "\n");
    EXPECT_FALSE(set.exists(P::WS_BETWEEN_CS_FOR_CLAUSES));
    for (const char* gone : {P::WS_AFTER_DD_NAME, P::ALIGN_FN_PARAMS_LEFT, P::ALIGN_FN_PARAMS_LEFT_ON_WRAP,
                             P::ALIGN_CS_FOR_CLAUSES_LEFT, P::ALIGN_CS_FOR_CLAUSES_LEFT_ON_WRAP})
        EXPECT_FALSE(set.exists(gone)) << gone;
    // Step 4: line wrapping's first defaults, three of them as integers.
    bool lineWrap = true;
    EXPECT_TRUE(set.getBool(P::LINE_WRAP, lineWrap));
    EXPECT_FALSE(lineWrap);
    EXPECT_EQ(intOf(set, P::LINE_WRAP_DO_NOT_FORMAT), 0);
    EXPECT_EQ(intOf(set, P::WRAP_INDENT), 0);
    EXPECT_EQ(intOf(set, P::DATA_DO_NOT_FORMAT), 0);
    EXPECT_EQ(intOf(set, P::RIGHT_MARGIN), 78);
    EXPECT_EQ(intOf(set, P::COMMA_WRAP_STYLE), 2);
    EXPECT_EQ(intOf(set, P::EXPR_WRAP_STYLE), 2);
    EXPECT_EQ(intOf(set, P::LIST_WRAP_STRATEGY), 1);
    EXPECT_EQ(intOf(set, P::SHIFT_WRAP_STYLE), 1);
    EXPECT_EQ(intOf(set, P::WRAP_STYLE), 1);
    // Step 5: copied, else empty.
    EXPECT_EQ(stringOf(set, P::WS_BEFORE_DD_OPEN_BRACE), "\n");
    EXPECT_EQ(stringOf(set, P::WS_AFTER_DD_OPEN_BRACE), "");
    EXPECT_EQ(stringOf(set, P::WS_BEFORE_DD_CLOSE_BRACE), "");
    EXPECT_EQ(stringOf(set, P::INDENT_DD_CONTENT), "\t");
    // Steps 6 and 7.
    EXPECT_EQ(stringOf(set, P::WS_BETWEEN_DD_ELEMENTS), " ");
    for (const char* empty : {P::GLOBAL_WS_BEFORE_COMMA, P::WS_BEFORE_CLASS_INITS_COMMA, P::WS_BEFORE_DD_COMMA,
                              P::WS_BEFORE_ENUM_COMMA, P::WS_BEFORE_FN_CALL_COMMA, P::WS_BEFORE_FN_COMMA,
                              P::WS_BEFORE_TP_COMMA, P::WS_BEFORE_BASE_CLAUSES_COMMA})
        EXPECT_EQ(stringOf(set, empty), "") << empty;
    // Step 8: the call gaps follow the declaration gaps, after step 1.
    EXPECT_EQ(stringOf(set, P::WS_AFTER_FN_CALL_NAME), " ");
    EXPECT_EQ(stringOf(set, P::WS_BETWEEN_FN_CALL_ARGS), "\n");
    // Step 9.
    EXPECT_EQ(intOf(set, P::TAB_SIZE), 3);
    EXPECT_FALSE(set.exists(P::SPACES_PER_TAB));
    // Step 10: renamed only where present.
    EXPECT_EQ(stringOf(set, P::WS_BEFORE_CLASS_OPEN_BRACE), "\n");
    EXPECT_EQ(stringOf(set, P::WS_BEFORE_NS_OPEN_BRACE), " ");
    EXPECT_FALSE(set.exists(P::WS_AFTER_CLASS_HEAD));
    EXPECT_FALSE(set.exists(P::WS_AFTER_NS_HEAD));
    EXPECT_FALSE(set.exists(P::WS_BEFORE_ENUM_OPEN_BRACE));
    EXPECT_FALSE(set.exists(P::WS_BEFORE_FN_OPEN_BRACE));
    EXPECT_FALSE(set.exists(P::WS_BEFORE_CS_OPEN_BRACE));
    // Then 1.2.2 and 1.3.0.
    EXPECT_EQ(stringOf(set, P::WS_BETWEEN_UNARY_OP_OPERAND), "");
    EXPECT_EQ(intOf(set, P::INDENT_WRAP_STYLE), 1);
    EXPECT_FALSE(set.exists(P::WS_AFTER_DD_RBRACKET));
    EXPECT_EQ(stringOf(set, P::TIDEWRIGHT_VERSION), "1.3.0");
}

TEST(SchemeConversionTest, ForClausesGetANewlineWhenAlignedLeft)
{
    TempDir dir;
    PropertySetStore store = storeWith(dir, {{"s.tws", schemeText("S", "1 ALIGN_CS_FOR_CLAUSES_LEFT 1\n")}});
    convertSchemes(store);
    EXPECT_EQ(stringOf(setOf(store, "S"), P::WS_BETWEEN_CS_FOR_CLAUSES), "\n");
    EXPECT_EQ(stringOf(setOf(store, "S"), P::WS_BETWEEN_FN_CALL_ARGS), "");
}

TEST(SchemeConversionTest, ReadOnlySchemeAt121IsListedTwiceAndUnchanged)
{
    TempDir dir;
    const std::string text = schemeText("Old", versionLine("1.2.1"));
    PropertySetStore store = storeWith(dir, {{"old.tws", text}}, {"old.tws"});
    const Kempt::PropertySet before = setOf(store, "Old");
    const std::string message = convertSchemes(store);
    EXPECT_EQ(message, KemptUI::fillTemplate(KemptUI::severalOldSchemesTemplate(), {"Old\r\nOld\r\n"}));
    EXPECT_EQ(message,
              "The following schemes were created using a previous version of Tidewright C++:\r\nOld\r\nOld\r\n"
              "The files are read-only and so cannot be converted. Please ensure that the scheme files listed are "
              "read-write and run Tidewright C++ again. Once the schemes have been converted, the files can be set "
              "read-only again.");
    EXPECT_EQ(message.find(ONE_OLD_SCHEME_PREFIX), std::string::npos);
    EXPECT_EQ(setOf(store, "Old"), before);
    EXPECT_EQ(readBytes(dir.path() / "old.tws"), text);
}

TEST(SchemeConversionTest, OneReadOnlySchemeOneStepBehindGetsTheSingleSchemeText)
{
    TempDir dir;
    PropertySetStore store = storeWith(dir, {{"old.tws", schemeText("Old", versionLine("1.2.2"))}}, {"old.tws"});
    EXPECT_EQ(convertSchemes(store),
              "The scheme 'Old' was created using a previous version of Tidewright C++. The file is marked "
              "read-only and so cannot be converted. Please ensure the file is read-write and run Tidewright C++ "
              "again. Once the scheme has been converted, the file can be set read-only again.");
}

TEST(SchemeConversionTest, Version13GivesTheInvalidValueTextAndNoConversion)
{
    TempDir dir;
    const std::string bad = schemeText("Bad", "1 LINE_WRAP 1\n" + versionLine("1.3"));
    PropertySetStore store = storeWith(
        dir, {{"bad.tws", bad}, {"good.tws", schemeText("Good", versionLine("1.2.2"))}});
    const Kempt::PropertySet before = setOf(store, "Bad");
    EXPECT_EQ(convertSchemes(store), "The scheme: 'Bad' has the invalid value: 1.3 for the option: "
                                     "TIDEWRIGHT_VERSION.\nThe scheme file may have become corrupted.\n");
    EXPECT_EQ(setOf(store, "Bad"), before);
    // The pass went on: the next scheme is converted, and the store written.
    EXPECT_EQ(stringOf(setOf(store, "Good"), P::TIDEWRIGHT_VERSION), "1.3.0");
    EXPECT_EQ(readBytes(dir.path() / "bad.tws"),
              "Kempt::PropertySet\r\n1\r\n\"Bad\"\r\n1 LINE_WRAP 1\r\n3 TIDEWRIGHT_VERSION \"1.3\"\r\n");
}

TEST(SchemeConversionTest, FirstReadOnlySchemeWithoutVersionIsListedAndInvalid)
{
    TempDir dir;
    PropertySetStore store = storeWith(dir, {{"a.tws", schemeText("A", "")}}, {"a.tws"});
    EXPECT_EQ(convertSchemes(store),
              "The scheme: 'A' has the invalid value:  for the option: TIDEWRIGHT_VERSION.\nThe scheme file may have "
              "become corrupted.\n"
                  + KemptUI::fillTemplate(KemptUI::oneOldSchemeTemplate(), {"A"}));
    EXPECT_FALSE(setOf(store, "A").exists(P::TIDEWRIGHT_VERSION));
}

TEST(SchemeConversionTest, AReadOnlySchemeWithoutVersionTakesThePreviousWorkingVersion)
{
    // "A" comes first; "B" has no version and keeps A's working text "1.2.2":
    // listed for the missing version and for the last step.
    TempDir dir;
    PropertySetStore store = storeWith(
        dir, {{"a.tws", schemeText("A", versionLine("1.2.2"))}, {"b.tws", schemeText("B", "")}}, {"b.tws"});
    EXPECT_EQ(convertSchemes(store), KemptUI::fillTemplate(KemptUI::severalOldSchemesTemplate(), {"B\r\nB\r\n"}));
    EXPECT_EQ(stringOf(setOf(store, "A"), P::TIDEWRIGHT_VERSION), "1.3.0");
}

TEST(SchemeConversionTest, CurrentWritableSchemeIsNotTouchedAndNothingIsWritten)
{
    TempDir dir;
    // A comment line would be lost by a rewrite: its survival shows there was none.
    const std::string text = "# mine\n" + schemeText("Current", "2 TAB_SIZE 4\n" + versionLine("1.3.0"));
    PropertySetStore store = storeWith(dir, {{"current.tws", text}});
    tw_test::EnvGuard on("TIDEWRIGHT_TRACE", "1");
    tw_test::ClogGuard clog;
    EXPECT_EQ(convertSchemes(store), "");
    EXPECT_EQ(readBytes(dir.path() / "current.tws"), text);
    EXPECT_EQ(clog.text().find("PropertySetStore::write"), std::string::npos);
}

TEST(SchemeConversionTest, TheStoreIsWrittenOnceEvenIfEverySchemeChanged)
{
    TempDir dir;
    PropertySetStore store = storeWith(dir, {{"a.tws", schemeText("A", "")},
                                             {"b.tws", schemeText("B", versionLine("1.2.1"))},
                                             {"c.tws", schemeText("C", versionLine("1.2.2"))}});
    tw_test::EnvGuard on("TIDEWRIGHT_TRACE", "1");
    tw_test::ClogGuard clog;
    EXPECT_EQ(convertSchemes(store), "");
    const std::string trace = clog.text();
    std::size_t writes = 0;
    for (std::size_t at = trace.find("[trace] > PropertySetStore::write\n"); at != std::string::npos;
         at = trace.find("[trace] > PropertySetStore::write\n", at + 1))
        ++writes;
    EXPECT_EQ(writes, 1u) << trace;
    for (const char* name : {"A", "B", "C"})
        EXPECT_EQ(stringOf(setOf(store, name), P::TIDEWRIGHT_VERSION), "1.3.0") << name;
}

TEST(SchemeConversionTest, AWriteErrorGoesToTheCaller)
{
    TempDir dir;
    PropertySetStore store = storeWith(dir, {{"a.tws", schemeText("A", "")}});
    std::filesystem::remove(dir.path() / "a.tws");
    std::filesystem::create_directory(dir.path() / "a.tws"); // the file can no longer be written
    EXPECT_THROW(convertSchemes(store), PropertySetStore::WriteError);
}

TEST(SchemeConversionTest, AnEmptyStoreHasNothingToSay)
{
    PropertySetStore store("");
    EXPECT_EQ(convertSchemes(store), "");
}

TEST(SchemeConversionTest, OneSchemeIsConvertedInMemory)
{
    Kempt::PropertySet old("Old");
    old.setInt(P::SPACES_PER_TAB, 3);
    std::string from = "stale";
    EXPECT_EQ(KemptUI::convertScheme(old, from), KemptUI::SchemeConversion::CONVERTED);
    EXPECT_EQ(from, "");
    EXPECT_EQ(stringOf(old, P::TIDEWRIGHT_VERSION), "1.3.0");
    std::int32_t tabSize = 0;
    EXPECT_TRUE(old.getInt(P::TAB_SIZE, tabSize));
    EXPECT_EQ(tabSize, 3);

    Kempt::PropertySet second("Second");
    second.setString(P::TIDEWRIGHT_VERSION, "1.2.2");
    EXPECT_EQ(KemptUI::convertScheme(second, from), KemptUI::SchemeConversion::CONVERTED);
    EXPECT_EQ(from, "1.2.2");
    EXPECT_EQ(stringOf(second, P::WS_BEFORE_LBRACKET), "");
    EXPECT_EQ(stringOf(second, P::WS_BETWEEN_UNARY_OP_OPERAND), "<missing>"); // only the last step ran
}

TEST(SchemeConversionTest, OneCurrentOrInvalidSchemeStaysAsItIs)
{
    Kempt::PropertySet current("Current");
    current.setString(P::TIDEWRIGHT_VERSION, "1.3.0");
    const Kempt::PropertySet before = current;
    std::string from;
    EXPECT_EQ(KemptUI::convertScheme(current, from), KemptUI::SchemeConversion::CURRENT);
    EXPECT_EQ(current.count(), before.count());
    Kempt::PropertySet invalid("Invalid");
    invalid.setString(P::TIDEWRIGHT_VERSION, "1.3");
    EXPECT_EQ(KemptUI::convertScheme(invalid, from), KemptUI::SchemeConversion::INVALID);
    EXPECT_EQ(from, "1.3");
    EXPECT_EQ(invalid.count(), 1u);
}

} // namespace

