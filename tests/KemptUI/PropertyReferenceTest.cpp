// docs/properties.md is written from the catalogue; the committed file must be
// what the catalogue writes today.
#include "KemptUI_PropertyReference.h"

#include "KemptUI_PropertyCatalogue.h"
#include "Kempt_PropertyEffect.h"
#include "Kempt_PropertyNames.h"
#include "SchemeTestSupport.h"

#include <gtest/gtest.h>

namespace {

const std::string DOC = std::string(TW_DOCS_DIR) + "/properties.md";

TEST(PropertyReferenceTest, CommittedDocumentIsUpToDate)
{
    const std::string committed = tw_test::readBytes(DOC);
    ASSERT_FALSE(committed.empty()) << DOC << " is missing";
    EXPECT_TRUE(committed == KemptUI::propertyReference())
        << DOC << " is stale: run `" << KemptUI::PROPERTY_REFERENCE_UPDATE_COMMAND << "` and commit the result.";
}

TEST(PropertyReferenceTest, NamesEveryPropertyAndEveryPage)
{
    const std::string doc = KemptUI::propertyReference();
    for (const KemptUI::PropertyInfo& p : KemptUI::catalogue())
        EXPECT_NE(doc.find("| `" + std::string(p.name) + "` |"), std::string::npos) << p.name;
    for (const KemptUI::PageInfo& page : KemptUI::pages())
        EXPECT_NE(doc.find("Page `" + std::string(page.className) + "`"), std::string::npos) << page.className;
    // Markdown-sensitive label text is escaped, ampersands shown once.
    EXPECT_NE(doc.find("Keep \\* with:"), std::string::npos);
    EXPECT_NE(doc.find("## Pointers & References"), std::string::npos);
}

TEST(PropertyReferenceTest, SaysWhichOptionsActToday)
{
    const std::string doc = KemptUI::propertyReference();
    EXPECT_NE(doc.find("| `WS_BETWEEN_EXPR_OP_OPERANDS` |"), std::string::npos);
    EXPECT_NE(doc.find("| Option | Kind | Values | Fallback | Label | Acts | Notes |"), std::string::npos);
    EXPECT_NE(doc.find("| partly: template arguments in expressions and types |"), std::string::npos);
}

TEST(PropertyReferenceTest, PageFlagsAreTheEditorsAndUnusedNamesActNowhere)
{
    using Kempt::PropertyEffect;
    for (const KemptUI::PropertyInfo& p : KemptUI::catalogue()) {
        const PropertyEffect effect = Kempt::propertyEffect(p.name);
        const std::string name = p.name;
        if (p.role == KemptUI::PropertyRole::USE_GLOBAL) {
            EXPECT_EQ(effect, PropertyEffect::EDITOR) << name;
        }
        // The passes read three of the do-not-format flags themselves.
        if (p.role == KemptUI::PropertyRole::DO_NOT_FORMAT && name != Kempt::Prop::FN_DO_NOT_FORMAT &&
            name != Kempt::Prop::DATA_DO_NOT_FORMAT && name != Kempt::Prop::LINE_WRAP_DO_NOT_FORMAT) {
            EXPECT_EQ(effect, PropertyEffect::EDITOR) << name;
        }
        if (p.role == KemptUI::PropertyRole::UNUSED || p.role == KemptUI::PropertyRole::RETIRED) {
            EXPECT_EQ(effect, PropertyEffect::NOT_YET) << name;
        }
    }
    EXPECT_EQ(Kempt::propertyEffect(Kempt::Prop::FN_DO_NOT_FORMAT), PropertyEffect::IN_EFFECT);
    EXPECT_EQ(Kempt::propertyEffect(Kempt::Prop::WS_BEFORE_CLASS_OPEN_BRACE), PropertyEffect::NOT_YET);
    EXPECT_EQ(Kempt::propertyEffect("NO_SUCH_NAME"), PropertyEffect::NOT_YET);
    EXPECT_EQ(Kempt::effectNote(Kempt::Prop::TAB_SIZE), "");
}

} // namespace
