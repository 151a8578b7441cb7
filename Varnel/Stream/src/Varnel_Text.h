// Small text helpers shared by the layers: trimming by isspace, lower case, the backslash
// unescaping that literals and scheme files use alike, and the escaping that
// keeps a text on one line.
#ifndef VARNEL_TEXT_H
#define VARNEL_TEXT_H

#include <string>
#include <string_view>

namespace Varnel {

// Remove leading, trailing or both kinds of isspace characters.
std::string_view trimLeft(std::string_view text);
std::string_view trimRight(std::string_view text);
std::string_view trim(std::string_view text);

// The text with ASCII capitals made small (file names, extensions).
std::string toLower(std::string_view text);

// "\\" "\n" "\r" "\t" "\v" give their character; a backslash before any other
// character is dropped and the character stays; a backslash at the very end
// is dropped.
std::string unescapeBackslashes(std::string_view text);

// The text with its control characters escaped, so that it stays on one
// line: newline, carriage return and tab as \n \r \t, other bytes below 0x20
// and 0x7f as \xHH. With `quotes` a backslash and a double quote are escaped
// too (\\ and \"), so that the text can stand between double quotes.
std::string escapeControlCharacters(std::string_view text, bool quotes = false);

} // namespace Varnel

#endif
