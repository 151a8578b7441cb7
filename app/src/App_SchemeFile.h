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

// Reads the file as readSchemeFile does and brings a scheme of an older
// version up to date in memory (the file stays as it is), so that none of its
// settings are lost to a renamed property. `notice` tells the user what was
// done: that the scheme was converted for this run, or that its version is
// invalid and it is used as it stands; it is empty when there is nothing to tell.
bool loadSchemeFile(const std::string& path, Kempt::PropertySet& set, std::string& notice, std::string& error);

} // namespace App

#endif
