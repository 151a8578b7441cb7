// normaliseProperties: the defaults a pass finds where a scheme is silent.
#include "Kempt_NormaliseProperties.h"

#include "Kempt_PropertyNames.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using Kempt::PropertySet;
namespace Prop = Kempt::Prop;

std::int32_t intOf(const PropertySet& set, const char* name)
{
    std::int32_t value = 12345;
    EXPECT_TRUE(set.getInt(name, value)) << name;
    return value;
}

std::string stringOf(const PropertySet& set, const char* name)
{
    std::string value = "<missing>";
    set.getString(name, value);
    return value;
}

TEST(NormalisePropertiesTest, EmptySetGetsTheDefaults)
{
    PropertySet set;
    Kempt::normaliseProperties(set);
    EXPECT_EQ(intOf(set, Prop::ASTERISK_ANCHOR), -1);
    EXPECT_EQ(intOf(set, Prop::AMPERSAND_ANCHOR), -1);
    EXPECT_EQ(intOf(set, Prop::TAB_SIZE), 1);
    EXPECT_EQ(stringOf(set, Prop::WS_AFTER_PARAM_TYPE_ID), " ");
    EXPECT_EQ(intOf(set, Prop::CONVERT_WS), 0);
    EXPECT_EQ(intOf(set, Prop::EXPR_WRAP_STYLE), 1);
    // Nothing else: the type gaps and the operand gap stay missing.
    EXPECT_FALSE(set.exists(Prop::WS_AFTER_DD_TYPE_ID));
    EXPECT_FALSE(set.exists(Prop::WS_BETWEEN_EXPR_OP_OPERANDS));
    EXPECT_EQ(set.count(), 6u);
}

TEST(NormalisePropertiesTest, ValuesPresentAreKept)
{
    PropertySet set;
    set.setInt(Prop::ASTERISK_ANCHOR, 1);
    set.setInt(Prop::AMPERSAND_ANCHOR, 0);
    set.setInt(Prop::TAB_SIZE, 8);
    set.setString(Prop::WS_AFTER_PARAM_TYPE_ID, "");
    set.setInt(Prop::CONVERT_WS, 2);
    set.setInt(Prop::EXPR_WRAP_STYLE, 0);
    const PropertySet before = set;
    Kempt::normaliseProperties(set);
    EXPECT_EQ(set, before);
}

TEST(NormalisePropertiesTest, PresenceInAnyMapCounts)
{
    // "missing" means in no map at all: a string TAB_SIZE keeps the integer out.
    PropertySet set;
    set.setString(Prop::TAB_SIZE, "4");
    Kempt::normaliseProperties(set);
    std::int32_t tab = 0;
    EXPECT_FALSE(set.getInt(Prop::TAB_SIZE, tab));
}

TEST(NormalisePropertiesTest, EmptyTypeGapsBecomeOneBlank)
{
    PropertySet set;
    set.setString(Prop::WS_AFTER_DD_TYPE_ID, "");
    set.setString(Prop::WS_AFTER_FN_DECL_RETURN_TYPE, "\n");
    set.setString(Prop::WS_AFTER_FN_DEFN_RETURN_TYPE, "");
    Kempt::normaliseProperties(set);
    EXPECT_EQ(stringOf(set, Prop::WS_AFTER_DD_TYPE_ID), " ");
    EXPECT_EQ(stringOf(set, Prop::WS_AFTER_FN_DECL_RETURN_TYPE), "\n");
    EXPECT_EQ(stringOf(set, Prop::WS_AFTER_FN_DEFN_RETURN_TYPE), " ");
}

TEST(NormalisePropertiesTest, AnchorGapMakesTheTypeGapsExist)
{
    for (const char* anchor : {Prop::WS_BETWEEN_AMPERSAND_ANCHOR, Prop::WS_BETWEEN_ASTERISK_ANCHOR}) {
        PropertySet set;
        set.setString(anchor, "");
        set.setString(Prop::WS_AFTER_FN_DECL_RETURN_TYPE, "\t");
        Kempt::normaliseProperties(set);
        EXPECT_EQ(stringOf(set, Prop::WS_AFTER_DD_TYPE_ID), " ");
        EXPECT_EQ(stringOf(set, Prop::WS_AFTER_FN_DECL_RETURN_TYPE), "\t");
        EXPECT_EQ(stringOf(set, Prop::WS_AFTER_FN_DEFN_RETURN_TYPE), " ");
    }
}

TEST(NormalisePropertiesTest, LineWrapOnNeedsAnOperandGap)
{
    PropertySet on;
    on.setBool(Prop::LINE_WRAP, true);
    Kempt::normaliseProperties(on);
    EXPECT_EQ(stringOf(on, Prop::WS_BETWEEN_EXPR_OP_OPERANDS), " ");

    PropertySet kept;
    kept.setBool(Prop::LINE_WRAP, true);
    kept.setString(Prop::WS_BETWEEN_EXPR_OP_OPERANDS, "");
    Kempt::normaliseProperties(kept);
    EXPECT_EQ(stringOf(kept, Prop::WS_BETWEEN_EXPR_OP_OPERANDS), "");

    PropertySet off;
    off.setBool(Prop::LINE_WRAP, false);
    Kempt::normaliseProperties(off);
    EXPECT_FALSE(off.exists(Prop::WS_BETWEEN_EXPR_OP_OPERANDS));
}

TEST(NormalisePropertiesTest, RunningTwiceChangesNothing)
{
    PropertySet set;
    set.setBool(Prop::LINE_WRAP, true);
    set.setString(Prop::WS_BETWEEN_ASTERISK_ANCHOR, " ");
    Kempt::normaliseProperties(set);
    const PropertySet once = set;
    Kempt::normaliseProperties(set);
    EXPECT_EQ(set, once);
}

} // namespace
