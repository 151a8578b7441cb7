// Joining white space that may hold comments and directives, as the text
// between two tokens does. The rule throughout: a set white-space value may
// replace the blanks and line breaks at the edges of a gap, but never removes
// a comment or directive, and never puts anything behind a "//" comment on
// its line. Each operation works in place and returns the string.
#ifndef KEMPT_WHITESPACEJOINS_H
#define KEMPT_WHITESPACEJOINS_H

#include <string>
#include <string_view>

namespace Kempt {

// The first, respectively the last, token of the text is a "//" comment, a
// directive or a line continuation (a backslash at the end of a line): a
// token that carries its own newline.
bool startsWithLineComment(std::string_view text);
bool endsWithLineComment(std::string_view text);

// "  x " gives "x ". Behind a leading "//" comment only the text after its
// newline is trimmed; without a newline the text stays as it is.
std::string& trimLeadingWhiteSpace(std::string& a);

// " x  " gives " x". After a trailing "//" comment only the text behind the
// last newline is trimmed, and only when there is such text.
std::string& trimTrailingWhiteSpace(std::string& a);

// Replaces a's leading white space by b: b + trimmed a. After a leading "//"
// comment b goes behind the comment's newline; a "//" comment with no newline
// behind it leaves nothing at all.
std::string& setLeadingWhiteSpace(std::string& a, const std::string& b);

// Replaces a's trailing white space by b: trimmed a + b. When a ends with a
// "//" comment and b holds no newline, b cannot follow the comment and is
// not added; only a's last line is trimmed.
std::string& setTrailingWhiteSpace(std::string& a, const std::string& b);

// Leading white space b and trailing white space c at once. Unlike
// setTrailingWhiteSpace, c is always appended, also behind a "//" comment.
std::string& setSurroundingWhiteSpace(std::string& a, const std::string& b, const std::string& c);

} // namespace Kempt

#endif
