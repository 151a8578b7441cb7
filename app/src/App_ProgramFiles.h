// How the program finds its own things: its version text, its help, and the
// plain tests on a file's path that the job and the dialogs ask.
#ifndef APP_PROGRAMFILES_H
#define APP_PROGRAMFILES_H

#include <string>

namespace App {

// The product version for the user, from the version the program was built
// with: three numbers joined by points, a number above 1000 divided by 1000.
std::string getVersionText();

// The same rule applied to a version text such as "1.3.0" or "2.1003.0";
// "0.0.0" when it does not hold three numbers.
std::string versionText(const std::string& productVersion);

// The directory of the program's documentation: installed beside it
// (share/doc/tidewright next to its bin directory), else the source tree's
// docs/ when it runs from a build tree; empty when neither exists.
std::string helpFilePath();

// The user's scheme directory (see App_SchemeStore.h), with no override.
std::string schemeDirectory();

// Tests on a path. They follow symbolic links and never throw.
bool fileExists(const std::string& path);
bool canRead(const std::string& path);
// This user may write the file, and its mode grants write permission to
// someone: a file without any write bit counts as read-only even for root.
bool canWrite(const std::string& path);
bool isNotEmpty(const std::string& path);
bool isDirectory(const std::string& path);

} // namespace App

#endif
