// Reading a single scheme file (.tws) named by the user, with an error text
// that names the file when it cannot be read.
#ifndef APP_SCHEMEFILE_H
#define APP_SCHEMEFILE_H

#include "Kempt_PropertySet.h"

#include <string>

namespace App {

// True and `set` filled when the file reads; otherwise false, `set` untouched
// and `error` saying what went wrong, with the path in it.
bool readSchemeFile(const std::string& path, Kempt::PropertySet& set, std::string& error);

} // namespace App

#endif
