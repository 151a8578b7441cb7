// The user messages about schemes: the texts for a scheme file that cannot be
// read or written, and those of the scheme conversion at start. Each is built
// once from fixed pieces and the product name; "%s" marks where a file, a
// directory or a scheme name goes.
#ifndef KEMPTUI_USERTEXTS_H
#define KEMPTUI_USERTEXTS_H

#include <initializer_list>
#include <string>
#include <string_view>

namespace KemptUI {

inline constexpr const char PRODUCT_NAME[] = "Tidewright C++";

// The templates, with their "%s" placeholders.
const std::string& readErrorTemplate();           // the scheme file
const std::string& writeErrorTemplate();          // the scheme file, its directory
const std::string& invalidVersionTemplate();      // scheme, value, option
const std::string& oneOldSchemeTemplate();        // scheme
const std::string& severalOldSchemesTemplate();   // the names, each followed by CR LF

// Replaces each "%s" in turn by the next argument; "%s" left over without an
// argument stays as it is, and what an argument holds is never scanned.
std::string fillTemplate(std::string_view text, std::initializer_list<std::string_view> arguments);

std::string readErrorText(std::string_view file);
std::string writeErrorText(std::string_view file, std::string_view directory);

} // namespace KemptUI

#endif
