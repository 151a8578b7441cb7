// The built-in schemes shipped in schemes/: each reads, is current, survives a
// write and a read unchanged, and holds only values the catalogue allows.
#include "KemptUI_PropertyCatalogue.h"
#include "KemptUI_PropertySetStore.h"
#include "KemptUI_SchemeConversion.h"
#include "Kempt.h"
#include "SchemeTestSupport.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

namespace fs = std::filesystem;
namespace P = Kempt::Prop;
using namespace KemptUI;

const fs::path SCHEMES = TW_SCHEMES_DIR;

const std::vector<std::string> NAMED = {"default", "K&R",          "Stroustrup", "GNU",
                                        "Whitesmiths", "Linux kernel", "Leave as is"};

Kempt::PropertySet readScheme(const std::string& name)
{
    std::ifstream in(SCHEMES / (name + ".tws"), std::ios::binary);
    Kempt::PropertySet set;
    set.read(in);
    EXPECT_FALSE(in.fail() || in.bad()) << name;
    return set;
}

std::string stringOf(const Kempt::PropertySet& set, const char* name)
{
    std::string value = "<missing>";
    set.getString(name, value);
    return value;
}

bool onlyWhiteSpace(const std::string& text)
{
    return text.find_first_not_of(" \t\n") == std::string::npos;
}

// One rule per kind: whether a value fits what the catalogue says of the property.
bool fitsInteger(const PropertyInfo& p, std::int32_t value)
{
    switch (p.kind) {
    case PropertyKind::NUMBER: return value >= p.minimum && value <= p.maximum;
    case PropertyKind::CHOICE:
        return std::any_of(p.choices.begin(), p.choices.end(), [&](const Choice& c) { return c.stored == value; });
    case PropertyKind::ANCHOR: return value >= -1 && value <= 1;
    case PropertyKind::INTEGER: return value >= 0 && value <= 2;
    default: return false;
    }
}

bool fitsString(const PropertyInfo& p, const std::string& value)
{
    switch (p.kind) {
    case PropertyKind::WHITE_SPACE: return onlyWhiteSpace(value);
    case PropertyKind::AMOUNT: return value.empty() || value.find_first_not_of(value[0]) == std::string::npos;
    case PropertyKind::VERSION: return value == CONVERSION_TARGET;
    default: return false;
    }
}

void expectFitsTheCatalogue(const std::string& scheme, const Kempt::PropertySet& set)
{
    for (const std::string& name : set.names()) {
        const PropertyInfo* p = findProperty(name);
        ASSERT_NE(p, nullptr) << scheme << ": " << name;
        EXPECT_TRUE(p->role != PropertyRole::UNUSED && p->role != PropertyRole::RETIRED) << scheme << ": " << name;
    }
    for (const auto& [name, value] : set.bools())
        EXPECT_EQ(storageOf(findProperty(name)->kind), Storage::BOOL) << scheme << ": " << name;
    for (const auto& [name, value] : set.ints())
        EXPECT_TRUE(fitsInteger(*findProperty(name), value)) << scheme << ": " << name << " " << value;
    for (const auto& [name, value] : set.strings())
        EXPECT_TRUE(fitsString(*findProperty(name), value)) << scheme << ": " << name;
}

TEST(BuiltInSchemesTest, TheNamedSchemesAreThereUnderTheirFileNames)
{
    const PropertySetStore empty("");
    for (const std::string& name : NAMED) {
        EXPECT_TRUE(fs::is_regular_file(SCHEMES / (name + ".tws"))) << name;
        EXPECT_EQ(empty.validFilename(name), name + ".tws");
        EXPECT_EQ(readScheme(name).name(), name);
    }
}

TEST(BuiltInSchemesTest, EveryFileReadsInAStoreAsCurrentAndConvertsToNothing)
{
    tw_test::TempDir dir;
    for (const auto& entry : fs::directory_iterator(SCHEMES))
        fs::copy_file(entry.path(), dir.path() / entry.path().filename());
    const auto before = tw_test::snapshot(dir.path());
    PropertySetStore store(dir.path().string());
    store.read();
    EXPECT_GE(store.size(), NAMED.size());
    EXPECT_EQ(store.size(), store.files().size()); // one file per scheme
    for (const auto& [name, entry] : store)
        EXPECT_EQ(stringOf(entry.set, P::TIDEWRIGHT_VERSION), CONVERSION_TARGET) << name;
    EXPECT_EQ(convertSchemes(store), "");
    EXPECT_EQ(tw_test::snapshot(dir.path()), before);
}

TEST(BuiltInSchemesTest, EachSurvivesAWriteAndAReadUnchanged)
{
    for (const std::string& name : NAMED) {
        const Kempt::PropertySet set = readScheme(name);
        std::ostringstream written;
        ASSERT_TRUE(writeSchemeText(written, set));
        // The files are in the writer's own form, byte for byte.
        EXPECT_EQ(written.str(), tw_test::readBytes(SCHEMES / (name + ".tws"))) << name;
        std::istringstream in(written.str());
        Kempt::PropertySet back;
        back.read(in);
        EXPECT_FALSE(in.fail()) << name;
        EXPECT_EQ(back, set) << name;
    }
}

TEST(BuiltInSchemesTest, ValuesFollowTheCatalogue)
{
    for (const std::string& name : NAMED)
        expectFitsTheCatalogue(name, readScheme(name));
}

TEST(BuiltInSchemesTest, LayoutSchemesSetEveryFieldOfEveryPage)
{
    // The editor opens them without taking a single fallback.
    for (const std::string& name : NAMED) {
        if (name == "Leave as is")
            continue;
        Kempt::PropertySet set = readScheme(name);
        for (const PageInfo& page : pages())
            EXPECT_FALSE(fillFallbacks(set, page.page)) << name << ": " << page.className;
    }
}

TEST(BuiltInSchemesTest, DefaultIsAllmanWithFourSpaces)
{
    const Kempt::PropertySet set = readScheme("default");
    for (const char* brace : {P::WS_BEFORE_FN_OPEN_BRACE, P::WS_BEFORE_CS_OPEN_BRACE, P::WS_BEFORE_CLASS_OPEN_BRACE,
                              P::WS_BEFORE_NS_OPEN_BRACE, P::WS_BEFORE_ENUM_OPEN_BRACE, P::WS_BETWEEN_CS})
        EXPECT_EQ(stringOf(set, brace), "\n") << brace;
    for (const char* indent : {P::INDENT_FN_CONTENT, P::INDENT_CS_CONTENT, P::INDENT_CLASS_CONTENT,
                               P::INDENT_NS_CONTENT, P::GLOBAL_INDENT_CONTENT})
        EXPECT_EQ(stringOf(set, indent), "    ") << indent;
    EXPECT_EQ(stringOf(set, P::WS_BETWEEN_EXPR_OP_OPERANDS), " ");
    EXPECT_EQ(stringOf(set, P::WS_AFTER_CS_KEY), " ");
    for (const char* afterComma : {P::WS_BETWEEN_FN_PARAMS, P::WS_BETWEEN_FN_CALL_ARGS, P::WS_BETWEEN_TP_PARAMS,
                                   P::WS_BETWEEN_DD_ELEMENTS, P::WS_BETWEEN_BASE_CLAUSES, P::WS_BETWEEN_CLASS_INITS})
        EXPECT_EQ(stringOf(set, afterComma), " ") << afterComma;
    std::int32_t tabSize = 0;
    set.getInt(P::TAB_SIZE, tabSize);
    EXPECT_EQ(tabSize, 4);
}

TEST(BuiltInSchemesTest, KAndRAndLinuxKeepOpeningBracesOnTheHeadLine)
{
    for (const char* name : {"K&R", "Linux kernel", "Stroustrup"}) {
        const Kempt::PropertySet set = readScheme(name);
        EXPECT_EQ(stringOf(set, P::WS_BEFORE_FN_OPEN_BRACE), "\n") << name;
        EXPECT_EQ(stringOf(set, P::WS_BEFORE_CS_OPEN_BRACE), " ") << name;
        EXPECT_EQ(stringOf(set, P::WS_BEFORE_CLASS_OPEN_BRACE), " ") << name;
    }
    EXPECT_EQ(stringOf(readScheme("K&R"), P::WS_BETWEEN_CS), " ");
    EXPECT_EQ(stringOf(readScheme("Stroustrup"), P::WS_BETWEEN_CS), "\n");
}

TEST(BuiltInSchemesTest, LinuxKernelIndentsWithTabsEightWide)
{
    const Kempt::PropertySet set = readScheme("Linux kernel");
    std::int32_t tabSize = 0;
    set.getInt(P::TAB_SIZE, tabSize);
    EXPECT_EQ(tabSize, 8);
    for (const char* indent : {P::INDENT_FN_CONTENT, P::INDENT_CS_CONTENT, P::INDENT_CLASS_CONTENT,
                               P::INDENT_CS_CASE_CONTENT, P::INDENT_ENUM_CONTENT})
        EXPECT_EQ(stringOf(set, indent), "\t") << indent;
    EXPECT_EQ(stringOf(set, P::INDENT_CS_CASE_LABELS), "");
}

// The layouts GNU and Whitesmiths give nested code are pinned by the golden
// cases under tests/golden/nesting; here only what makes them possible.
TEST(BuiltInSchemesTest, GnuAndWhitesmithsCountBraceOffsetsFromTheirOwner)
{
    for (const char* name : {"GNU", "Whitesmiths"}) {
        bool relative = false;
        EXPECT_TRUE(readScheme(name).getBool(P::BRACE_OFFSET_RELATIVE, relative) && relative) << name;
    }
    for (const char* name : {"default", "K&R", "Stroustrup", "Linux kernel"}) {
        bool relative = true;
        EXPECT_TRUE(readScheme(name).getBool(P::BRACE_OFFSET_RELATIVE, relative) && !relative) << name;
    }
}

TEST(BuiltInSchemesTest, LeaveAsIsHasNoWhiteSpaceSettingsAtAll)
{
    const Kempt::PropertySet set = readScheme("Leave as is");
    for (const auto& [name, value] : set.strings())
        EXPECT_EQ(name, P::TIDEWRIGHT_VERSION);
    EXPECT_TRUE(set.ints().empty());
    for (const PageInfo& page : pages()) {
        bool doNotFormat = false;
        EXPECT_TRUE(set.getBool(page.doNotFormat, doNotFormat) && doNotFormat) << page.doNotFormat;
    }
    EXPECT_EQ(set.count(), pages().size() + 1);
}

TEST(BuiltInSchemesTest, LeaveAsIsFormatsTheSampleToItself)
{
    const std::string sample = tw_test::readBytes(fs::path(TW_EXAMPLES_DIR) / "sample.cpp");
    ASSERT_FALSE(sample.empty());
    std::istringstream in(sample);
    std::ostringstream out;
    Kempt::FormatMessageList messages;
    Kempt::UpdateFunctor noProgress;
    const Kempt::FormatSettings settings(readScheme("Leave as is"));
    EXPECT_EQ(Kempt::FormatEngine().format(settings, in, out, messages, noProgress), 0);
    EXPECT_EQ(out.str(), sample);
}

} // namespace
