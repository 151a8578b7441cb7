// The tidewright command as a function of its arguments, so that a test
// program can run it over a formatter of its own.
#ifndef CLI_RUN_H
#define CLI_RUN_H

#include "App_FormatFunction.h"

namespace Cli {

// Parses the arguments, does what they ask, returns the exit status:
// 0 all good, 1 an input failed (or, under --check and --diff, would change),
// 2 a usage error.
int runCommandLine(int argc, char** argv, const App::FormatFunction& format);

} // namespace Cli

#endif
