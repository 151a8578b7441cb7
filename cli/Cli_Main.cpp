// tidewright: the command line over the formatting engine. See Cli_Run.cpp
// for the modes and docs/command-line.md for the user's view.
#include "App_FormatFunction.h"
#include "Cli_Run.h"

int main(int argc, char** argv)
{
    return Cli::runCommandLine(argc, argv, App::engineFormat());
}
