// The upgrade of old schemes, run once at every start after the store is read.
// Each scheme carries in TIDEWRIGHT_VERSION the version that last converted it;
// the steps to 1.2.1, 1.2.2 and 1.3.0 are applied in turn, and a scheme without
// a version goes through all of them. Read-only schemes cannot be converted:
// they are named in the text returned for the user.
#ifndef KEMPTUI_SCHEMECONVERSION_H
#define KEMPTUI_SCHEMECONVERSION_H

#include <string>

namespace Kempt {
class PropertySet;
}

namespace KemptUI {

class PropertySetStore;

inline constexpr const char VERSION_1_2_1[] = "1.2.1";
inline constexpr const char VERSION_1_2_2[] = "1.2.2";
inline constexpr const char VERSION_1_3_0[] = "1.3.0";
// The newest layout of properties; a scheme at this version is left alone.
inline constexpr const char* CONVERSION_TARGET = VERSION_1_3_0;

// Converts every entry in place and writes the store once if anything changed
// (a WriteError passes to the caller). Returns the text to show the user, or
// "" when there is nothing to tell.
std::string convertSchemes(PropertySetStore& store);

// What convertScheme did to one scheme.
enum class SchemeConversion {
    CURRENT,   // at the newest layout already: unchanged
    CONVERTED, // brought up to CONVERSION_TARGET
    INVALID    // its version is not three numbers joined by points: unchanged
};

// Brings one scheme up to the newest layout in memory, by the steps that
// convertSchemes runs for a writable scheme of the store; nothing is written.
// `from` receives the version the scheme had ("" when it had none).
SchemeConversion convertScheme(Kempt::PropertySet& set, std::string& from);

// True when version `a` is older than `b`, comparing major, minor, patch.
// Both must be three integers joined by points: the contracts "numDots == 2"
// and "!is.bad() && !is.fail()" fail otherwise.
bool isOlderVersion(const std::string& a, const std::string& b);

} // namespace KemptUI

#endif
