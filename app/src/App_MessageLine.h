// The one-line form in which a formatting message is shown to the user:
//   path(line) : error: col N: text
// with "warning: " for severity 2, "error: " for 3 and "information: " else.
#ifndef APP_MESSAGELINE_H
#define APP_MESSAGELINE_H

#include "Kempt_FormatMessage.h"

#include <string>

namespace App {

// Control characters in the path and the text (a message may quote a token
// that spans lines) are escaped, so the result is always one line: a newline
// reads \n (backslash, n), a carriage return \r, a tab \t, any other \xHH.
std::string messageLine(const std::string& path, const Kempt::FormatMessage& message);

// `text` with its control characters escaped as messageLine does.
std::string oneLine(const std::string& text);

} // namespace App

#endif
