// tidewright: the command line over the formatting engine.
//
//   tidewright [--scheme NAME | --scheme-file PATH] [FILE...]   format each FILE (or standard input)
//   tidewright --dump-tokens [FILE...]          print the tokens of each input, one per line
//   tidewright --list-schemes | --print-scheme NAME   show the schemes of the scheme directory
// A command that needs the scheme directory (--scheme-dir, TIDEWRIGHT_SCHEME_DIR,
// or the user's data directory) first fills it with the built-in schemes, reads
// it and converts old schemes; what the conversion has to tell goes to
// standard error. --scheme-file and the dumps do not read the directory.
//   tidewright --dump-tree [FILE...]            print the syntax tree of each input, one node per line
//
// Exit status: 0 when every input succeeded, 1 when any input failed to
// format or standard output could not be written, 2 for a usage error (an
// unknown option, an unreadable file or scheme, an unknown scheme name, a
// scheme directory that cannot be read or created).
#include "App_SchemeFile.h"
#include "App_SchemeStore.h"
#include "App_TextJob.h"
#include "Cli_Inputs.h"
#include "Cpp_TokenDump.h"
#include "Kempt.h"
#include "Trn_Exception.h"
#include "Varnel_Contract.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iostream>
#include <new>
#include <string>
#include <vector>

namespace {

enum ExitStatus { SUCCESS = 0, FAILED = 1, USAGE = 2 };

struct Options {
    std::vector<std::string> files;
    std::string schemeFile;
    std::string schemeName;
    std::string schemeDir;
    std::string printScheme;
    bool listSchemes = false;
    bool dumpTokens = false;
    bool dumpTree = false;
};

void complain(const std::string& text)
{
    std::cerr << "tidewright: " << text << '\n';
}

// Flushes standard output and tells whether everything written reached it. A
// full disk or a closed file must not pass for success: a script that formats
// into a temporary file and moves it over the source would lose code.
bool outputWritten()
{
    errno = 0;
    if (std::cout.flush())
        return true;
    // A write that failed earlier, inside the engine, left the stream failed
    // without a reason at hand: one more flush of what is left asks again.
    if (errno == 0) {
        std::cout.clear();
        std::cout.flush();
        std::cout.setstate(std::ios::badbit);
    }
    const int error = errno;
    complain(std::string("cannot write to standard output") + (error ? ": " + std::string(std::strerror(error)) : ""));
    return false;
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

// --print-scheme: the scheme as its file holds it.
int printScheme(const KemptUI::PropertySetStore& store, const std::string& name)
{
    Kempt::PropertySet set;
    std::string error;
    if (!App::findScheme(store, name, set, error)) {
        complain(error);
        return USAGE;
    }
    KemptUI::writeSchemeText(std::cout, set);
    return outputWritten() ? SUCCESS : FAILED;
}

// The start of a session on the scheme directory; false when it failed, which
// has been told.
bool openStore(KemptUI::PropertySetStore& store)
{
    std::string notice;
    std::string error;
    if (!App::openSchemeStore(store, App::builtInSchemeDirectory(), notice, error)) {
        complain(error);
        return false;
    }
    if (!notice.empty())
        std::cerr << notice << '\n';
    return true;
}

// The scheme to format with: the file named by path, which needs no scheme
// directory, else a scheme of the directory. False when it failed, which has
// been told.
bool chooseScheme(const Options& options, Kempt::PropertySet& properties)
{
    std::string error;
    if (!options.schemeFile.empty()) {
        std::string notice;
        if (!App::loadSchemeFile(options.schemeFile, properties, notice, error)) {
            complain(error);
            return false;
        }
        if (!notice.empty())
            complain(notice);
        return true;
    }
    KemptUI::PropertySetStore store(App::schemeDirectory(options.schemeDir));
    if (!openStore(store))
        return false;
    if (!App::selectScheme(store, options.schemeName, properties, error)) {
        complain(error);
        return false;
    }
    return true;
}

int run(const Options& options)
{
    if (options.listSchemes || !options.printScheme.empty()) {
        KemptUI::PropertySetStore store(App::schemeDirectory(options.schemeDir));
        if (!openStore(store))
            return USAGE;
        if (!options.printScheme.empty())
            return printScheme(store, options.printScheme);
        App::listSchemes(store, std::cout);
        return outputWritten() ? SUCCESS : FAILED;
    }

    // The dumps show how a text reads; they need no scheme.
    const bool dumping = options.dumpTokens || options.dumpTree;
    Kempt::PropertySet properties;
    if (!dumping && !chooseScheme(options, properties))
        return USAGE;

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
        // Nothing more can reach the output; the inputs after this one are not read.
        if (!outputWritten())
            return std::max<int>(status, FAILED);
    }
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
    CLI::Option* scheme = app.add_option("--scheme", options.schemeName,
                                         "Format with this scheme of the scheme directory (default: default)")
                              ->type_name("NAME");
    app.add_option("--scheme-file", options.schemeFile, "Format with the scheme in this .tws file")
        ->type_name("PATH")
        ->excludes(scheme);
    app.add_option("--scheme-dir", options.schemeDir,
                   "The scheme directory (default: $TIDEWRIGHT_SCHEME_DIR, else ~/.local/share/tidewright/schemes)")
        ->type_name("DIR");
    CLI::Option* list = app.add_flag("--list-schemes", options.listSchemes,
                                     "List the schemes of the scheme directory; built-in ones are marked");
    app.add_option("--print-scheme", options.printScheme, "Write the scheme file of this scheme to standard output")
        ->type_name("NAME")
        ->excludes(list);
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
