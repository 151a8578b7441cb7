// The one-line form in which a formatting message is shown to the user:
//   path(line) : error: col N: text
// with "warning: " for severity 2, "error: " for 3 and "information: " else.
#ifndef APP_MESSAGELINE_H
#define APP_MESSAGELINE_H

#include "Kempt_FormatMessage.h"

#include <string>

namespace App {

std::string messageLine(const std::string& path, const Kempt::FormatMessage& message);

} // namespace App

#endif
