// The scheme editor's built-in samples: one per page, in page order, each a
// text the engine parses, so that every preview shows a layout.
#include "KemptUI_PreviewSamples.h"
#include "Kempt.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>

namespace {

TEST(PreviewSamplesTest, ThirteenSamplesInPageOrder)
{
    const std::vector<std::string> expected = {
        "ClassesPreview",     "ControlStatementsPreview",  "DataPreview",         "FunctionsPreview",
        "MemberInitsPreview", "NamespacesPreview",         "PreprocessorPreview", "ExpressionsPreview",
        "PointersReferencesPreview", "TemplatesPreview",   "EnumsPreview",        "GlobalsPreview",
        "LineWrappingPreview"};
    std::vector<std::string> keys;
    for (const KemptUI::PreviewSample& sample : KemptUI::previewSamples())
        keys.emplace_back(sample.key);
    EXPECT_EQ(keys, expected);
}

TEST(PreviewSamplesTest, LookupByKey)
{
    EXPECT_TRUE(KemptUI::previewSample("EnumsPreview").starts_with("enum keyword{ASM,AUTO,BREAK};\n"));
    EXPECT_TRUE(KemptUI::previewSample("NoSuchPreview").empty());
    EXPECT_TRUE(KemptUI::previewSample("").empty());
}

TEST(PreviewSamplesTest, SamplesStartUnindentedAndEndWithoutABreak)
{
    for (const KemptUI::PreviewSample& sample : KemptUI::previewSamples()) {
        ASSERT_FALSE(sample.text.empty()) << sample.key;
        EXPECT_NE(sample.text.front(), ' ') << sample.key;
        EXPECT_EQ(sample.text.find('\t'), std::string_view::npos) << sample.key;
        EXPECT_EQ(sample.text.find('\r'), std::string_view::npos) << sample.key;
    }
}

// Escapes inside the samples' literals stay escapes: a string or character
// literal never spans a line.
TEST(PreviewSamplesTest, LiteralsKeepTheirEscapes)
{
    EXPECT_NE(KemptUI::previewSample("ExpressionsPreview").find("\"to demonstrate layout\\n\"}"),
              std::string_view::npos);
    EXPECT_NE(KemptUI::previewSample("LineWrappingPreview").find("a->name << '\\n' << a->website"),
              std::string_view::npos);
}

TEST(PreviewSamplesTest, EverySampleParsesWithTheDefaultSettings)
{
    for (const KemptUI::PreviewSample& sample : KemptUI::previewSamples()) {
        std::istringstream in{std::string(sample.text)};
        std::ostringstream out;
        Kempt::FormatMessageList messages;
        Kempt::UpdateFunctor noProgress;
        EXPECT_EQ(Kempt::FormatEngine().format(Kempt::FormatSettings(), in, out, messages, noProgress), 0)
            << sample.key;
        EXPECT_TRUE(messages.empty()) << sample.key;
    }
}

} // namespace
