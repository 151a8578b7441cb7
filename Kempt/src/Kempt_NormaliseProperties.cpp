// Filling in the values a scheme may leave out, in a fixed order of steps.
#include "Kempt_NormaliseProperties.h"

#include "Kempt_PropertyNames.h"

namespace Kempt {

namespace {

const char* const BLANK = " ";

// The gaps between a type and the name behind it.
constexpr const char* TYPE_GAPS[] = {Prop::WS_AFTER_DD_TYPE_ID, Prop::WS_AFTER_FN_DECL_RETURN_TYPE,
                                     Prop::WS_AFTER_FN_DEFN_RETURN_TYPE};

void setIntIfMissing(PropertySet& set, const char* name, std::int32_t value)
{
    if (!set.exists(name))
        set.setInt(name, value);
}

bool isEmptyString(const PropertySet& set, const char* name)
{
    std::string value;
    return set.getString(name, value) && value.empty();
}

} // namespace

void normaliseProperties(PropertySet& set)
{
    // 1-3. Anchors and tab size.
    setIntIfMissing(set, Prop::ASTERISK_ANCHOR, -1);
    setIntIfMissing(set, Prop::AMPERSAND_ANCHOR, -1);
    setIntIfMissing(set, Prop::TAB_SIZE, 1);
    // 4. "int x" in a parameter never becomes "intx".
    if (!set.exists(Prop::WS_AFTER_PARAM_TYPE_ID))
        set.setString(Prop::WS_AFTER_PARAM_TYPE_ID, BLANK);
    // 5. An empty type gap stored in the scheme becomes one blank.
    for (const char* name : TYPE_GAPS)
        if (isEmptyString(set, name))
            set.setString(name, BLANK);
    // 6. With an anchor gap set, the type gaps must exist as well.
    if (set.exists(Prop::WS_BETWEEN_AMPERSAND_ANCHOR) || set.exists(Prop::WS_BETWEEN_ASTERISK_ANCHOR))
        for (const char* name : TYPE_GAPS)
            if (!set.exists(name) || isEmptyString(set, name))
                set.setString(name, BLANK);
    // 7. Tabs pass as they are unless a scheme says otherwise.
    setIntIfMissing(set, Prop::CONVERT_WS, 0);
    // 8. With wrapping on, operands are set apart by one blank unless the scheme says otherwise.
    bool lineWrap = false;
    if (set.getBool(Prop::LINE_WRAP, lineWrap) && lineWrap && !set.exists(Prop::WS_BETWEEN_EXPR_OP_OPERANDS))
        set.setString(Prop::WS_BETWEEN_EXPR_OP_OPERANDS, BLANK);
    // 9.
    setIntIfMissing(set, Prop::EXPR_WRAP_STYLE, 1);
}

} // namespace Kempt
