// The comment-text helper: takes the delimiters off a comment's text, so that
// markers such as "TW-FORMAT-OFF" can be recognised in it.
#ifndef CPP_COMMENTTEXT_H
#define CPP_COMMENTTEXT_H

#include <string>

namespace Cpp {

// Works in place. Leading white space is trimmed first. "//..." loses its "//";
// "/*...*/" loses both delimiters. Returns false, and removes no delimiter, for
// anything shorter than 2 characters, a "/*" without a closing "*/", or a text
// that starts otherwise.
bool stripCommentDelimiters(std::string& text);

} // namespace Cpp

#endif
