// The tidewright command: arguments, inputs, outputs and exit codes over the
// batch front.
//
//   tidewright [scheme options] [FILE...]        format each FILE (or standard input) to standard output
//   tidewright -i [--backup[=EXT] | --no-backup] FILE...   format each FILE in place, safely
//   tidewright --check [FILE...]                 write nothing; name each file that would change
//   tidewright --diff [--color=WHEN] [FILE...]   write nothing; print a unified diff of each such file
//   tidewright --print-effective-scheme FILE     say which scheme formats FILE, and why
//   tidewright --print-settings                  the settings file and its values
//   tidewright --dump-tokens | --dump-tree [FILE...]
//   tidewright --list-schemes | --print-scheme NAME
//
// The scheme of each file: --scheme or --scheme-file; else the nearest
// .tidewright.tws in the file's directory or above; else the setting
// StandaloneOnFormat; else "default". --assume-filename NAME gives standard
// input a name for that search, for the extension check and for messages.
//
// Messages go to standard error: errors and warnings by default, -v adds
// information lines, -q shows none. Exit status: 0 when every input
// succeeded, 1 when any failed (or would change, under --check and --diff) or
// standard output could not be written, 2 for a usage error.
#include "Cli_Run.h"

#include "App_FileJob.h"
#include "App_MessageLine.h"
#include "App_MessageSink.h"
#include "App_SchemeChoice.h"
#include "App_SchemeFile.h"
#include "App_SchemeStore.h"
#include "App_Settings.h"
#include "App_SourceText.h"
#include "App_TextJob.h"
#include "App_UnifiedDiff.h"
#include "App_UserMessages.h"
#include "Cli_Inputs.h"
#include "Cpp_TokenDump.h"
#include "KemptUI_UserTexts.h"
#include "Kempt.h"
#include "Trn_Exception.h"
#include "Varnel_Contract.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <new>
#include <set>
#include <sstream>
#include <string>
#include <unistd.h>
#include <vector>

namespace Cli {

namespace {

enum ExitStatus { SUCCESS = 0, FAILED = 1, USAGE = 2 };

enum class Mode { PRINT, IN_PLACE, CHECK, DIFF };

struct Options {
    std::vector<std::string> files;
    std::string schemeFile;
    std::string schemeName;
    std::string schemeDir;
    std::string printScheme;
    bool listSchemes = false;
    bool dumpTokens = false;
    bool dumpTree = false;
    bool inPlace = false;
    bool check = false;
    bool diff = false;
    std::string backup;
    bool backupGiven = false;
    bool noBackup = false;
    std::string color = "auto";
    std::string assumeFilename;
    std::string printEffective;
    bool printSettings = false;
    bool verbose = false;
    bool quiet = false;
    bool noVerify = false;
    std::string maxSize;
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

// The job's messages, one line each on standard error.
class TerminalSink : public App::MessageSink {
public:
    using App::MessageSink::MessageSink;

protected:
    void deliver(const std::string& text, int) override { std::cerr << App::oneLine(text) << '\n'; }
};

// Runs one input through `work`, turning internal errors into a failed input.
template <typename Work>
ExitStatus runInput(const std::string& name, Work work)
{
    Input input(name);
    if (!input.ok()) {
        complain(input.error());
        return USAGE;
    }
    try {
        return work(input);
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

bool colourWanted(const std::string& when)
{
    if (when == "always")
        return true;
    if (when == "never")
        return false;
    const char* term = std::getenv("TERM");
    return ::isatty(STDOUT_FILENO) && !std::getenv("NO_COLOR") && !(term && std::string(term) == "dumb");
}

// Everything a formatting command needs, set up once.
class Session {
public:
    Session(const Options& options, App::Settings settings, const App::FormatFunction& format)
        : m_options(options), m_settings(std::move(settings)), m_request(makeRequest(options, m_settings)),
          m_chooser(m_request), m_sink(threshold(options)), m_format(format)
    {
        m_jobOptions.createBackups = m_settings.createBackups;
        m_jobOptions.backupExtension = m_settings.backupExtension;
        if (options.backupGiven) {
            m_jobOptions.createBackups = true;
            if (!options.backup.empty())
                m_jobOptions.backupExtension = options.backup;
        }
        if (options.noBackup)
            m_jobOptions.createBackups = false;
        m_jobOptions.verify = !options.noVerify;
        if (!options.maxSize.empty())
            App::parseSize(options.maxSize, m_jobOptions.maxSize);
    }

    int run()
    {
        if (!m_options.printEffective.empty())
            return printEffectiveScheme();
        int status = SUCCESS;
        for (const std::string& name : inputNames(m_options.files)) {
            status = std::max(status, runOne(name));
            // Nothing more can reach the output; the inputs after this one are not read.
            if (!outputWritten())
                return std::max<int>(status, FAILED);
        }
        return status;
    }

private:
    static App::SchemeRequest makeRequest(const Options& options, const App::Settings& settings)
    {
        App::SchemeRequest request;
        request.schemeName = options.schemeName;
        request.schemeFile = options.schemeFile;
        request.schemeDirectory = options.schemeDir;
        request.onFormat = settings.standaloneOnFormat;
        request.settingsPath = App::settingsFilePath();
        request.builtInDirectory = App::builtInSchemeDirectory();
        return request;
    }

    static int threshold(const Options& options)
    {
        if (options.quiet)
            return 0;
        return options.verbose ? 1 : 2;
    }

    Mode mode() const
    {
        if (m_options.inPlace)
            return Mode::IN_PLACE;
        if (m_options.check)
            return Mode::CHECK;
        if (m_options.diff)
            return Mode::DIFF;
        return Mode::PRINT;
    }

    // The scheme for the input; false when it cannot be had, which has been
    // told (each distinct error once).
    bool chooseScheme(const std::string& path, Kempt::PropertySet& set)
    {
        App::SchemeChoice choice;
        std::string error;
        const bool ok = m_chooser.choose(path, choice, error);
        for (const std::string& notice : m_chooser.takeNotices())
            complain(notice);
        if (!ok) {
            if (m_errorsTold.insert(error).second)
                complain(error);
            return false;
        }
        set = std::move(choice.set);
        return true;
    }

    // The extension test of the settings' list; false when the file is not
    // to be formatted, which has been told.
    bool extensionListed(const std::string& name)
    {
        if (App::isFormattableFile(name, m_settings.extensionList()))
            return true;
        m_sink.addMessage(KemptUI::fillTemplate(App::userMessages().extensionNotListed, {name})
                              + " Listed: " + App::oneLine(m_settings.fileExtensions.empty()
                                                               ? std::string(App::DEFAULT_FILE_EXTENSIONS)
                                                               : m_settings.fileExtensions)
                              + " (the setting FileExtensions).",
                          2);
        return false;
    }

    int runOne(const std::string& name)
    {
        const bool isStdin = name == "-";
        // What standard input stands for, when --assume-filename names it.
        const std::string searchPath = isStdin ? m_options.assumeFilename : name;
        if (mode() == Mode::IN_PLACE) {
            if (!extensionListed(name))
                return FAILED;
            Kempt::PropertySet set;
            if (!chooseScheme(name, set))
                return USAGE;
            App::FileJob job(m_sink, m_jobOptions, m_format);
            const App::JobResult r = job.formatFile(name, set);
            return r == App::JobResult::FORMATTED || r == App::JobResult::EMPTY ? SUCCESS : FAILED;
        }
        const bool checkExtension = mode() != Mode::PRINT ? !isStdin || !m_options.assumeFilename.empty()
                                                          : isStdin && !m_options.assumeFilename.empty();
        if (checkExtension && !extensionListed(searchPath))
            return FAILED;
        if (mode() == Mode::PRINT)
            return printFormatted(name, searchPath);
        return examine(name, searchPath);
    }

    // Standard output mode: the formatted text, or nothing and message lines.
    int printFormatted(const std::string& name, const std::string& searchPath)
    {
        return runInput(name, [&](Input& input) {
            Kempt::PropertySet set;
            if (!chooseScheme(searchPath, set))
                return USAGE;
            const std::string label = name == "-" && !m_options.assumeFilename.empty() ? m_options.assumeFilename
                                                                                       : input.label();
            std::ostringstream text;
            text << input.stream().rdbuf();
            std::istringstream in(text.str());
            std::ostringstream out;
            std::ostringstream errors;
            Kempt::UpdateFunctor noProgress;
            const bool ok = App::formatText(label, in, out, errors, set, noProgress, m_format);
            if (!m_options.quiet)
                std::cerr << errors.str();
            if (!ok)
                return FAILED;
            if (m_jobOptions.verify) {
                const Kempt::TokenComparison c = Kempt::compareTokens(text.str(), out.str());
                if (!c.same) {
                    m_sink.addMessage(KemptUI::fillTemplate(App::userMessages().tokensDiffer,
                                                            {label, std::to_string(c.beforePosition.line),
                                                             c.describe()}),
                                      3);
                    return FAILED;
                }
            }
            std::cout << out.str();
            return SUCCESS;
        });
    }

    // --check and --diff: formats in memory and tells what would change.
    int examine(const std::string& name, const std::string& searchPath)
    {
        Kempt::PropertySet set;
        if (!chooseScheme(searchPath, set))
            return USAGE;
        App::FileJob job(m_sink, m_jobOptions, m_format);
        App::Examination e;
        std::string label = name;
        if (name == "-") {
            label = m_options.assumeFilename.empty() ? std::string(STDIN_LABEL) : m_options.assumeFilename;
            std::ostringstream text;
            text << std::cin.rdbuf();
            e = job.examineText(label, text.str(), set);
        } else {
            e = job.examineFile(name, set);
        }
        if (e.result == App::JobResult::EMPTY)
            return SUCCESS;
        if (e.result != App::JobResult::FORMATTED)
            return FAILED;
        if (e.output == e.input)
            return SUCCESS;
        if (mode() == Mode::CHECK) {
            if (!m_options.quiet)
                std::cout << App::oneLine(label) << ": would be reformatted\n";
        } else {
            App::DiffStyle style;
            style.colour = colourWanted(m_options.color);
            std::cout << App::unifiedDiff(label, e.input, e.output, style);
        }
        return FAILED;
    }

    int printEffectiveScheme()
    {
        Kempt::PropertySet set;
        App::SchemeChoice choice;
        std::string error;
        const bool ok = m_chooser.choose(m_options.printEffective, choice, error);
        for (const std::string& notice : m_chooser.takeNotices())
            complain(notice);
        if (!ok) {
            complain(error);
            return USAGE;
        }
        std::cout << "path: " << App::oneLine(m_options.printEffective) << '\n'
                  << explainChoice(choice, m_request, App::schemeDirectory(m_options.schemeDir));
        return outputWritten() ? SUCCESS : FAILED;
    }

    const Options& m_options;
    App::Settings m_settings;
    App::SchemeRequest m_request;
    App::SchemeChooser m_chooser;
    TerminalSink m_sink;
    App::JobOptions m_jobOptions;
    const App::FormatFunction& m_format;
    std::set<std::string> m_errorsTold;
};

// Combinations that the parser cannot refuse by itself; an error text, or "".
std::string usageError(const Options& o)
{
    const std::vector<std::string> names = inputNames(o.files);
    const bool readsStdin = std::find(names.begin(), names.end(), "-") != names.end();
    if (o.inPlace && readsStdin)
        return "-i/--in-place formats files: name at least one, and not - (standard input)";
    if ((o.backupGiven || o.noBackup) && !o.inPlace)
        return "--backup and --no-backup go with -i/--in-place";
    if (!o.assumeFilename.empty() && !(names.size() == 1 && names.front() == "-"))
        return "--assume-filename names standard input: give no FILE, or only -";
    if (o.backupGiven && o.backup.find_first_of("<>:\\/|?") != std::string::npos)
        return "invalid backup extension '" + o.backup
            + "': file extensions may not contain any of the following characters: \"<>:\\/|?\"";
    std::uint64_t size = 0;
    if (!o.maxSize.empty() && !App::parseSize(o.maxSize, size))
        return "invalid --max-size '" + o.maxSize + "': give a number of bytes, optionally with K, M or G";
    return "";
}

// The settings, with a warning when they cannot be read; defaults then stand.
App::Settings loadUserSettings(const Options& options)
{
    App::Settings settings;
    std::string error;
    if (!App::loadSettings(App::settingsFilePath(), settings, error) && !options.quiet)
        complain("warning: " + error);
    return settings;
}

int run(const Options& options, const App::FormatFunction& format)
{
    if (const std::string error = usageError(options); !error.empty()) {
        complain(error);
        return USAGE;
    }
    if (options.listSchemes || !options.printScheme.empty()) {
        KemptUI::PropertySetStore store(App::schemeDirectory(options.schemeDir));
        if (!openStore(store))
            return USAGE;
        if (!options.printScheme.empty())
            return printScheme(store, options.printScheme);
        App::listSchemes(store, std::cout);
        return outputWritten() ? SUCCESS : FAILED;
    }
    if (options.printSettings) {
        const App::Settings settings = loadUserSettings(options);
        std::cout << "# " << App::settingsFilePath() << '\n' << App::settingsText(settings);
        return outputWritten() ? SUCCESS : FAILED;
    }

    // The dumps show how a text reads; they need no scheme.
    if (options.dumpTokens || options.dumpTree) {
        int status = SUCCESS;
        for (const std::string& name : inputNames(options.files)) {
            const ExitStatus one = runInput(name, [&](Input& input) {
                if (options.dumpTokens) {
                    Cpp::dumpTokens(input.stream(), std::cout);
                    return SUCCESS;
                }
                return App::dumpTreeText(input.label(), input.stream(), std::cout, std::cerr) ? SUCCESS : FAILED;
            });
            status = std::max<int>(status, one);
            if (!outputWritten())
                return std::max<int>(status, FAILED);
        }
        return status;
    }
    Session session(options, loadUserSettings(options), format);
    return session.run();
}

} // namespace

int runCommandLine(int argc, char** argv, const App::FormatFunction& format)
{
    std::ios_base::sync_with_stdio(false);

    CLI::App app{"Tidewright C++: lays out C and C++ source text by a scheme of layout options.\n"
                 "Formats each FILE (standard input when none is given, or for -) to standard output,\n"
                 "or in place with -i; --check and --diff tell what would change.",
                 "tidewright"};
    Options options;
    app.add_option("FILE", options.files, "Files to format; - reads standard input");
    CLI::Option* inPlace = app.add_flag("-i,--in-place", options.inPlace,
                                        "Format each FILE in place: checked, verified, backed up as the settings "
                                        "say, and replaced safely");
    CLI::Option* check = app.add_flag("--check", options.check,
                                      "Write nothing; print 'PATH: would be reformatted' for each input whose text "
                                      "would change, and exit 1 if any would");
    CLI::Option* diff = app.add_flag("--diff", options.diff,
                                     "Write nothing; print a unified diff (for patch -p0) of each input that would "
                                     "change, and exit 1 if any would");
    inPlace->excludes(check)->excludes(diff);
    check->excludes(diff);
    CLI::Option* backup = app.add_flag("--backup{}", options.backup,
                                       "With -i: keep the old text as FILE.EXT (EXT: the setting BackupExtension, "
                                       "else bak); --backup=EXT names the extension")
                              ->type_name("[=EXT]");
    CLI::Option* noBackup = app.add_flag("--no-backup", options.noBackup, "With -i: make no backup");
    backup->excludes(noBackup);
    app.add_option("--color", options.color, "Colour the --diff output: auto (on a terminal), always or never")
        ->type_name("WHEN")
        ->check(CLI::IsMember({"auto", "always", "never"}));
    app.add_flag("--no-verify", options.noVerify,
                 "Do not check that the output holds the same tokens as the input before it is used (faster)");
    app.add_option("--max-size", options.maxSize, "Refuse files larger than this (default 64M); K, M, G suffixes")
        ->type_name("SIZE");
    app.add_option("--assume-filename", options.assumeFilename,
                   "The name of the text on standard input: for the extension check, the project scheme search "
                   "and messages")
        ->type_name("NAME");
    CLI::Option* verbose = app.add_flag("-v,--verbose", options.verbose, "Also print information messages");
    CLI::Option* quiet = app.add_flag("-q,--quiet", options.quiet, "Print no messages; only the exit status tells");
    verbose->excludes(quiet);

    CLI::Option* scheme = app.add_option("--scheme", options.schemeName,
                                         "Format with this scheme of the scheme directory (default: the project's "
                                         ".tidewright.tws, else the setting StandaloneOnFormat, else default)")
                              ->type_name("NAME");
    app.add_option("--scheme-file", options.schemeFile, "Format with the scheme in this .tws file")
        ->type_name("PATH")
        ->excludes(scheme);
    app.add_option("--scheme-dir", options.schemeDir,
                   "The scheme directory (default: $TIDEWRIGHT_SCHEME_DIR, else ~/.local/share/tidewright/schemes)")
        ->type_name("DIR");
    app.add_option("--print-effective-scheme", options.printEffective,
                   "Print which scheme would format FILE, where it comes from and why")
        ->type_name("FILE");
    app.add_flag("--print-settings", options.printSettings,
                 "Print the settings file's path and every setting as it is in force");
    CLI::Option* list = app.add_flag("--list-schemes", options.listSchemes,
                                     "List the schemes of the scheme directory; built-in ones are marked");
    app.add_option("--print-scheme", options.printScheme, "Write the scheme file of this scheme to standard output")
        ->type_name("NAME")
        ->excludes(list);
    CLI::Option* dumpTokens = app.add_flag("--dump-tokens", options.dumpTokens,
                 "Print the tokens of each input instead of formatting it: start end type name \"text\"");
    CLI::Option* dumpTree = app.add_flag("--dump-tree", options.dumpTree,
                 "Print the syntax tree of each input instead of formatting it: one node per line, "
                 "ClassName L:C-L:C and its attributes");
    dumpTree->excludes(dumpTokens);
    for (CLI::Option* dump : {dumpTokens, dumpTree})
        dump->excludes(inPlace)->excludes(check)->excludes(diff);
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
    options.backupGiven = backup->count() > 0;
    return run(options, format);
}

} // namespace Cli
