// The property names as shared constants: Kempt::Prop::TAB_SIZE is "TAB_SIZE".
// allPropertyNames() lists them all, in byte order.
#ifndef KEMPT_PROPERTYNAMES_H
#define KEMPT_PROPERTYNAMES_H

#include <array>
#include <string_view>

namespace Kempt::Prop {

#define TW_PROPERTY(NAME) inline constexpr const char NAME[] = #NAME;
#include "Kempt_PropertyNames.def"
#undef TW_PROPERTY

inline constexpr std::array ALL_NAMES = {
#define TW_PROPERTY(NAME) std::string_view(NAME),
#include "Kempt_PropertyNames.def"
#undef TW_PROPERTY
};

} // namespace Kempt::Prop

#endif
