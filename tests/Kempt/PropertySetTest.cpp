// Property sets: typed maps, name validation, and the scheme file form.
#include "Kempt_PropertySet.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

using Kempt::PropertySet;

PropertySet readFrom(const std::string& text, bool* ok = nullptr)
{
    std::istringstream in(text);
    PropertySet set("unchanged");
    set.setInt("MARK", 7);
    set.read(in);
    if (ok)
        *ok = !in.fail() && !in.bad();
    return set;
}

std::string writeOut(const PropertySet& set)
{
    std::ostringstream out;
    set.write(out);
    return out.str();
}

TEST(PropertySetTest, DefaultsAndNames)
{
    const PropertySet empty;
    EXPECT_EQ(empty.name(), "");
    EXPECT_EQ(empty.version(), 1);
    EXPECT_EQ(empty.count(), 0u);
    EXPECT_EQ(PropertySet("Mine").name(), "Mine");
}

TEST(PropertySetTest, GettersSearchOnlyTheirOwnMap)
{
    PropertySet set;
    set.setString("X", "s");
    std::int32_t i = 5;
    EXPECT_FALSE(set.getInt("X", i));
    EXPECT_EQ(i, 5);
    std::string s;
    EXPECT_TRUE(set.getString("X", s));
    EXPECT_EQ(s, "s");
    bool b = true;
    EXPECT_FALSE(set.getBool("MISSING", b));
    EXPECT_TRUE(b);
}

TEST(PropertySetTest, NameMayStandInSeveralMaps)
{
    PropertySet set;
    set.setBool("N", true);
    set.setInt("N", 3);
    set.setString("N", "x");
    EXPECT_EQ(set.count(), 3u);
    EXPECT_EQ(set.names(), (std::vector<std::string>{"N", "N", "N"}));
    EXPECT_TRUE(set.exists("N"));
}

TEST(PropertySetTest, NamesListBoolsThenIntsThenStringsInByteOrder)
{
    PropertySet set;
    set.setString("b", "");
    set.setInt("Z", 1);
    set.setBool("a", true);
    set.setBool("B", false);
    set.setInt("A", 2);
    EXPECT_EQ(set.names(), (std::vector<std::string>{"B", "a", "A", "Z", "b"}));
}

TEST(PropertySetTest, BadNamesThrowOnSetButNotOnGet)
{
    PropertySet set;
    EXPECT_THROW(set.setString("A B", "x"), Kempt::InvalidPropertyName);
    EXPECT_THROW(set.setInt("", 1), Kempt::InvalidPropertyName);
    EXPECT_THROW(set.setBool("A\tB", true), Kempt::InvalidPropertyName);
    EXPECT_THROW(set.erase("A B"), Kempt::InvalidPropertyName);
    std::string s;
    EXPECT_FALSE(set.getString("A B", s));
    EXPECT_FALSE(set.exists("A B"));
    try {
        set.setString("", "");
    } catch (const Kempt::InvalidPropertyName& e) {
        EXPECT_EQ(e.what(), "Invalid name for a Property.");
    }
}

TEST(PropertySetTest, EraseRemovesStringFirstThenInteger)
{
    PropertySet set;
    set.setString("N", "x");
    set.setInt("N", 3);
    EXPECT_TRUE(set.erase("N"));
    std::string s;
    std::int32_t i = 0;
    EXPECT_FALSE(set.getString("N", s));
    EXPECT_TRUE(set.getInt("N", i));
    EXPECT_TRUE(set.erase("N"));
    EXPECT_FALSE(set.getInt("N", i));
    EXPECT_FALSE(set.erase("N"));
}

TEST(PropertySetTest, CopyAssignAndSwap)
{
    PropertySet a("A");
    a.setInt("TAB_SIZE", 4);
    PropertySet b("B");
    b = a;
    EXPECT_EQ(b, a);
    b.setInt("TAB_SIZE", 8);
    std::int32_t v = 0;
    a.getInt("TAB_SIZE", v);
    EXPECT_EQ(v, 4);
    a.swap(b);
    a.getInt("TAB_SIZE", v);
    EXPECT_EQ(v, 8);
    EXPECT_EQ(b.name(), "A");
}

TEST(PropertySetTest, WritesTheSchemeForm)
{
    PropertySet set("My scheme");
    set.setBool("ALIGN_DD_NAMES_LEFT", true);
    set.setInt("RIGHT_MARGIN", 78);
    set.setString("WS_BEFORE_FN_OPEN_BRACE", "\n");
    EXPECT_EQ(writeOut(set), "Kempt::PropertySet\n1\n\"My scheme\"\n1 ALIGN_DD_NAMES_LEFT 1\n2 RIGHT_MARGIN 78\n"
                             "3 WS_BEFORE_FN_OPEN_BRACE \"\\n\"\n");
}

TEST(PropertySetTest, WriterEscapes)
{
    EXPECT_EQ(Kempt::escapeSchemeString("\t\n\v\r\"'\\ x"), R"(\t\n\v\r\"\'\\ x)");
}

TEST(PropertySetTest, ReadsWhatItWrites)
{
    PropertySet set("Round trip");
    set.setBool("F", false);
    set.setBool("T", true);
    set.setInt("NEG", -12);
    set.setString("WS", "\t\n \"quoted\" it's \\ back\r\v");
    set.setString("EMPTY", "");
    bool ok = false;
    const PropertySet back = readFrom(writeOut(set), &ok);
    EXPECT_TRUE(ok);
    EXPECT_EQ(back, set);
}

TEST(PropertySetTest, ReaderAcceptsCrLfBlankAndCommentLines)
{
    bool ok = false;
    const PropertySet set = readFrom("\r\n# a comment\r\nKempt::PropertySet\r\n  1  \r\n\r\n\"N\"\r\n# x\r\n2 A 5\r\n",
                                     &ok);
    ASSERT_TRUE(ok);
    EXPECT_EQ(set.name(), "N");
    std::int32_t a = 0;
    EXPECT_TRUE(set.getInt("A", a));
    EXPECT_EQ(a, 5);
}

TEST(PropertySetTest, MissingNewlineAfterLastPropertyLosesOnlyThatProperty)
{
    bool ok = false;
    const PropertySet set = readFrom("Kempt::PropertySet\n1\n\"N\"\n2 A 1\n2 B 2", &ok);
    EXPECT_TRUE(ok);
    std::int32_t v = 0;
    EXPECT_TRUE(set.getInt("A", v));
    EXPECT_FALSE(set.getInt("B", v));
    EXPECT_EQ(set.name(), "N");
}

TEST(PropertySetTest, VersionTwoFailsAndLeavesSetUnchanged)
{
    bool ok = true;
    const PropertySet set = readFrom("Kempt::PropertySet\n2\n\"N\"\n2 A 1\n", &ok);
    EXPECT_FALSE(ok);
    EXPECT_EQ(set.name(), "unchanged");
    std::int32_t v = 0;
    EXPECT_TRUE(set.getInt("MARK", v));
}

TEST(PropertySetTest, WrongMagicOrVersionFails)
{
    bool ok = true;
    readFrom("Kempt::PropertySets\n1\n\"N\"\n", &ok);
    EXPECT_FALSE(ok);
    readFrom("Kempt::PropertySet\n0\n\"N\"\n", &ok);
    EXPECT_FALSE(ok);
    readFrom("Kempt::PropertySet\none\n\"N\"\n", &ok);
    EXPECT_FALSE(ok);
    readFrom("", &ok);
    EXPECT_FALSE(ok);
}

TEST(PropertySetTest, TagOutsideOneToThreeFailsTheRead)
{
    bool ok = true;
    const PropertySet set = readFrom("Kempt::PropertySet\n1\n\"N\"\n4 A 1\n2 B 2\n", &ok);
    EXPECT_FALSE(ok);
    EXPECT_EQ(set.name(), "unchanged");
}

TEST(PropertySetTest, ValueThatDoesNotParseSkipsOnlyItsLine)
{
    bool ok = false;
    const PropertySet set = readFrom("Kempt::PropertySet\n1\n\"N\"\n1 A 2\n2 B x\n3 C\n1 D 1\n", &ok);
    EXPECT_TRUE(ok);
    EXPECT_EQ(set.count(), 1u);
    bool d = false;
    EXPECT_TRUE(set.getBool("D", d));
    EXPECT_TRUE(d);
}

TEST(PropertySetTest, UnquotedStringValueIsOneWord)
{
    const PropertySet set = readFrom("Kempt::PropertySet\n1\nN\n3 A word rest\n3 B \"\"\n");
    std::string a, b = "x";
    EXPECT_TRUE(set.getString("A", a));
    EXPECT_EQ(a, "word");
    EXPECT_TRUE(set.getString("B", b));
    EXPECT_EQ(b, "");
    EXPECT_EQ(set.name(), "N");
}

TEST(PropertySetTest, SingleQuoteSurvivesThoughReaderHasNoEntryForIt)
{
    PropertySet set;
    set.setString("Q", "'");
    EXPECT_EQ(writeOut(set), "Kempt::PropertySet\n1\n\"\"\n3 Q \"\\'\"\n");
    std::string q;
    readFrom(writeOut(set)).getString("Q", q);
    EXPECT_EQ(q, "'");
}

TEST(PropertySetTest, StreamConstructorReads)
{
    std::istringstream in("Kempt::PropertySet\n1\n\"S\"\n1 X 1\n");
    const PropertySet set(in);
    EXPECT_EQ(set.name(), "S");
    EXPECT_EQ(set.count(), 1u);
}

TEST(PropertySetTest, EmptyInputAtEndIsNoFailureAfterHeader)
{
    bool ok = false;
    const PropertySet set = readFrom("Kempt::PropertySet\n1\n\"N\"\n", &ok);
    EXPECT_TRUE(ok);
    EXPECT_EQ(set.name(), "N");
    EXPECT_EQ(set.count(), 0u);
}

} // namespace
