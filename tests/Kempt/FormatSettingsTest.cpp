// Settings of a run and the marker tables.
#include "Kempt_FormatSettings.h"

#include <gtest/gtest.h>

namespace {

TEST(FormatSettingsTest, DefaultMarkers)
{
    const Kempt::MarkerList expected = {{"TW-FORMAT-OFF", "TW-FORMAT-ON"}, {"{{AFX", "}}"}, {"{{{AFX", "}}}"}};
    EXPECT_EQ(Kempt::defaultRegionMarkers(), expected);
    EXPECT_EQ(Kempt::FormatSettings().markers(), expected);
}

TEST(FormatSettingsTest, DefaultMarkersAreACopy)
{
    Kempt::MarkerList copy = Kempt::defaultRegionMarkers();
    copy.clear();
    EXPECT_EQ(Kempt::defaultRegionMarkers().size(), 3u);
}

TEST(FormatSettingsTest, MacroMarkers)
{
    EXPECT_EQ(Kempt::macroRegionMarkers(), (Kempt::MarkerList{{"BEGIN_MESSAGE_MAP", "END_MESSAGE_MAP"}}));
}

TEST(FormatSettingsTest, CarriesPropertiesAndMarkers)
{
    Kempt::PropertySet set("S");
    set.setInt("TAB_SIZE", 4);
    const Kempt::FormatSettings settings(set, {{"A", "B"}});
    std::int32_t tab = 0;
    EXPECT_TRUE(settings.getInt("TAB_SIZE", tab));
    EXPECT_EQ(tab, 4);
    EXPECT_EQ(settings.name(), "S");
    EXPECT_EQ(settings.markers(), (Kempt::MarkerList{{"A", "B"}}));
}

} // namespace
