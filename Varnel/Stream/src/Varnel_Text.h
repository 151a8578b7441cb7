// Small text helpers shared by the layers: trimming by isspace, and the
// backslash unescaping that literals and scheme files use alike.
#ifndef VARNEL_TEXT_H
#define VARNEL_TEXT_H

#include <string>
#include <string_view>

namespace Varnel {

// Remove leading, trailing or both kinds of isspace characters.
std::string_view trimLeft(std::string_view text);
std::string_view trimRight(std::string_view text);
std::string_view trim(std::string_view text);

// "\\" "\n" "\r" "\t" "\v" give their character; a backslash before any other
// character is dropped and the character stays; a backslash at the very end
// is dropped.
std::string unescapeBackslashes(std::string_view text);

} // namespace Varnel

#endif
