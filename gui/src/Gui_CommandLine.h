// What tidewright-gui does with its own arguments before any window opens:
//   --help, -h   print the usage and end (no display needed)
//   --version    print "tidewright-gui VERSION" and end (no display needed)
//   --check      start the main window, close it again and report where the
//                program found its built-in schemes, the user's schemes and
//                its documentation; exit status 1 when one of them is missing
//                or the window did not start
// Every other argument is Qt's (-platform, -style, ...) and goes on to the
// application as before.
#ifndef GUI_COMMANDLINE_H
#define GUI_COMMANDLINE_H

#include <iosfwd>
#include <string>

namespace Gui {

enum class StartMode { WINDOW, HELP, VERSION, CHECK };

// The first of --help, --version and --check among the arguments; WINDOW when none.
StartMode startMode(int argc, const char* const* argv);

std::string helpText();
std::string versionText();

// The --check run: makes the application, opens and closes the main window,
// writes the report to `out` and failures to `err`. 0 when all was found.
int runStartUpCheck(int& argc, char** argv, std::ostream& out, std::ostream& err);

} // namespace Gui

#endif
