// tidewright: the command line over the formatting engine.
//
//   tidewright [--scheme-file PATH] [FILE...]   format each FILE (or standard input) to standard output
//   tidewright --dump-tokens [FILE...]          print the tokens of each input, one per line
//   tidewright --dump-tree [FILE...]            print the syntax tree of each input, one node per line
//
// Exit status: 0 when every input succeeded, 1 when any input failed to
// format, 2 for a usage error (an unknown option, an unreadable file or scheme).
#include "App_SchemeFile.h"
#include "App_TextJob.h"
#include "Cli_Inputs.h"
#include "Cpp_TokenDump.h"
#include "Kempt.h"
#include "Trn_Exception.h"
#include "Varnel_Contract.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iostream>
#include <new>
#include <string>
#include <vector>

namespace {

enum ExitStatus { SUCCESS = 0, FAILED = 1, USAGE = 2 };

struct Options {
    std::vector<std::string> files;
    std::string schemeFile;
    bool dumpTokens = false;
    bool dumpTree = false;
};

void complain(const std::string& text)
{
    std::cerr << "tidewright: " << text << '\n';
}

// Runs one input through `work`, turning internal errors into a failed input.
template <typename Work>
ExitStatus runInput(const std::string& name, Work work)
{
    Cli::Input input(name);
    if (!input.ok()) {
        complain(input.error());
        return USAGE;
    }
    try {
        return work(input) ? SUCCESS : FAILED;
    } catch (const Varnel::ContractViolation& e) {
        complain("internal error while processing '" + input.label() + "': " + e.what());
    } catch (const Trn::Exception& e) {
        complain("internal error while processing '" + input.label() + "': " + e.what());
    } catch (const std::bad_alloc&) {
        complain("out of memory while processing '" + input.label() + "'");
    } catch (const std::exception& e) {
        complain("internal error while processing '" + input.label() + "': " + e.what());
    }
    return FAILED;
}

int run(const Options& options)
{
    Kempt::PropertySet properties;
    if (!options.schemeFile.empty()) {
        std::string error;
        if (!App::readSchemeFile(options.schemeFile, properties, error)) {
            complain(error);
            return USAGE;
        }
    }

    Kempt::UpdateFunctor noProgress;
    int status = SUCCESS;
    for (const std::string& name : Cli::inputNames(options.files)) {
        const ExitStatus one = runInput(name, [&](Cli::Input& input) {
            if (options.dumpTokens) {
                Cpp::dumpTokens(input.stream(), std::cout);
                return true;
            }
            if (options.dumpTree)
                return App::dumpTreeText(input.label(), input.stream(), std::cout, std::cerr);
            return App::formatText(input.label(), input.stream(), std::cout, std::cerr, properties, noProgress);
        });
        status = std::max<int>(status, one);
    }
    std::cout.flush();
    return status;
}

} // namespace

int main(int argc, char** argv)
{
    std::ios_base::sync_with_stdio(false);

    CLI::App app{"Tidewright C++: lays out C and C++ source text by a scheme of layout options.\n"
                 "Formats each FILE (standard input when none is given, or for -) to standard output.",
                 "tidewright"};
    Options options;
    app.add_option("FILE", options.files, "Files to format; - reads standard input");
    app.add_option("--scheme-file", options.schemeFile, "Format with the scheme in this .tws file")
        ->type_name("PATH");
    CLI::Option* dumpTokens = app.add_flag("--dump-tokens", options.dumpTokens,
                 "Print the tokens of each input instead of formatting it: start end type name \"text\"");
    app.add_flag("--dump-tree", options.dumpTree,
                 "Print the syntax tree of each input instead of formatting it: one node per line, "
                 "ClassName L:C-L:C and its attributes")
        ->excludes(dumpTokens);
    app.set_version_flag("--version", std::string("tidewright ") + TIDEWRIGHT_VERSION_TEXT);

    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp& e) {
        return app.exit(e);
    } catch (const CLI::CallForVersion& e) {
        return app.exit(e);
    } catch (const CLI::ParseError& e) {
        app.exit(e);
        return USAGE;
    }
    return run(options);
}
