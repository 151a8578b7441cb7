// The user's reference of scheme options, docs/properties.md, written from the
// property catalogue: one table per editor page, then the options on no page,
// the kept and the retired names. A test compares the committed file with this
// output, so the document cannot drift from the catalogue.
#ifndef KEMPTUI_PROPERTYREFERENCE_H
#define KEMPTUI_PROPERTYREFERENCE_H

#include <iosfwd>
#include <string>

namespace KemptUI {

// How to bring docs/properties.md up to date; the stale-document test says it.
inline constexpr const char* PROPERTY_REFERENCE_UPDATE_COMMAND = "cmake --build --preset dev --target property-doc";

void writePropertyReference(std::ostream& out);
std::string propertyReference();

} // namespace KemptUI

#endif
