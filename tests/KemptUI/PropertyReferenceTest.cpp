// docs/properties.md is written from the catalogue; the committed file must be
// what the catalogue writes today.
#include "KemptUI_PropertyReference.h"

#include "KemptUI_PropertyCatalogue.h"
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

} // namespace
