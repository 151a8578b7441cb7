// The tidewright command: arguments, inputs, outputs and exit codes over the
// batch front.
//
//   tidewright [scheme options] [FILE...]        format each FILE (or standard input) to standard output
//   tidewright -i [--backup[=EXT] | --no-backup] FILE...   format each FILE in place, safely
//   tidewright --check [FILE...]                 write nothing; name each file that would change
//   tidewright --diff [--color=WHEN] [FILE...]   write nothing; print a unified diff of each such file
//   ... -r DIR...  --project PATH                the files beneath directories, of a project or workspace
//   ... --exclude GLOB --extensions LIST -j N    what the walks leave out, what they take, how many threads
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
// A batch runs on -j threads (default: one per core); what it shows comes in
// the order of its files (Cli_Batch.h). Ctrl-C stops it with status 130.
//
// Messages go to standard error: errors and warnings by default, -v adds
// information lines, -q shows none. Exit status: 0 when every input
// succeeded, 1 when any failed (or would change, under --check and --diff) or
// standard output could not be written, 2 for a usage error.
#include "Cli_Run.h"
#include "Cli_StandardOutput.h"

#include "App_ExtensionList.h"
#include "App_FileCollection.h"
#include "App_FileJob.h"
#include "App_MessageLine.h"
#include "App_MessageSink.h"
#include "App_ProgramFiles.h"
#include "App_SchemeChoice.h"
#include "App_SchemeFile.h"
#include "App_SchemeStore.h"
#include "App_Settings.h"
#include "App_SourceText.h"
#include "App_TextJob.h"
#include "App_UnifiedDiff.h"
#include "App_UserMessages.h"
#include "Cli_Batch.h"
#include "Cli_HelpFormatter.h"
#include "Cli_Inputs.h"
#include "Cli_Interrupt.h"
#include "Cli_ProgressLine.h"
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
#include <memory>
#include <iostream>
#include <new>
#include <set>
#include <sstream>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

namespace Cli {

namespace {

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
    bool recursive = false;
    std::string project;
    std::vector<std::string> excludes;
    std::string extensions;
    bool extensionsGiven = false;
    unsigned jobs = 0; // 0: one per core
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

// The batch commands' steps, recorded for the batch to run.
class StepRecorder : public App::BatchTarget {
public:
    explicit StepRecorder(std::vector<Step>& steps) : m_steps(steps) {}
    void message(const std::string& text, int severity) override
    {
        m_steps.push_back(Step{Step::Kind::MESSAGE, text, severity, false});
    }
    void formatFile(const std::string& path) override { m_steps.push_back(Step{Step::Kind::FILE, path, 1, false}); }

private:
    std::vector<Step>& m_steps;
};

// The batch commands' feedback on a terminal: no questions (the command is
// the confirmation), Ctrl-C for cancel, the counting walk on the progress line.
class CommandFeedback : public App::BatchFeedback {
public:
    explicit CommandFeedback(ProgressLine& progress) : m_progress(progress) {}
    void setStatus(const std::string& text) override { m_progress.status(text); }
    bool cancelled() override { return interrupted(); }

private:
    ProgressLine& m_progress;
};

// Everything a formatting command needs, set up once.
class Session {
public:
    Session(const Options& options, App::Settings settings, const App::FormatFunction& format)
        : m_options(options), m_settings(std::move(settings)), m_request(makeRequest(options, m_settings)),
          m_chooser(m_request), m_format(format)
    {
        if (options.extensionsGiven)
            m_settings.fileExtensions = options.extensions;
        for (const std::string& glob : options.excludes)
            m_excludes.emplace_back(glob);
    }

    int run()
    {
        if (!m_options.printEffective.empty())
            return printEffectiveScheme();
        const InterruptGuard guard;
        ProgressLine progress(::isatty(STDERR_FILENO) && !m_options.quiet);
        std::vector<Step> steps;
        int status = SUCCESS;
        if (!plan(steps, progress, status)) {
            progress.clear();
            complain("interrupted: 0 files done");
            return INTERRUPTED;
        }
        Batch batch(batchSettings(), m_chooser, m_format, progress);
        const int ran = batch.run(steps);
        return ran == INTERRUPTED ? ran : std::max(status, ran);
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

    BatchSettings batchSettings() const
    {
        BatchSettings b;
        b.mode = mode();
        b.jobOptions.createBackups = m_settings.createBackups;
        b.jobOptions.backupExtension = m_settings.backupExtension;
        if (m_options.backupGiven) {
            b.jobOptions.createBackups = true;
            if (!m_options.backup.empty())
                b.jobOptions.backupExtension = m_options.backup;
        }
        if (m_options.noBackup)
            b.jobOptions.createBackups = false;
        b.jobOptions.verify = !m_options.noVerify;
        if (!m_options.maxSize.empty())
            App::parseSize(m_options.maxSize, b.jobOptions.maxSize);
        b.threshold = m_options.quiet ? 0 : m_options.verbose ? 1 : 2;
        b.quiet = m_options.quiet;
        b.diffStyle.colour = colourWanted(m_options.color);
        b.assumeFilename = m_options.assumeFilename;
        b.threads = m_options.jobs ? m_options.jobs : std::max(1u, std::thread::hardware_concurrency());
        b.extensions = m_settings.extensionList();
        b.extensionsText = m_options.extensionsGiven ? m_options.extensions
            : m_settings.fileExtensions.empty()      ? std::string(App::DEFAULT_FILE_EXTENSIONS)
                                                     : m_settings.fileExtensions;
        b.extensionsSource = m_options.extensionsGiven ? "--extensions" : "the setting FileExtensions";
        return b;
    }

    // The scheme a command's lines name: the one that formats files in `path`.
    std::string schemeNameFor(const std::string& path)
    {
        App::SchemeChoice choice;
        std::string error;
        return m_chooser.choose(path, choice, error) ? choice.set.name() : std::string();
    }

    App::CollectionSetup setup(const std::string& schemeName) const
    {
        App::CollectionSetup s;
        s.extensions = m_settings.extensionList();
        s.excludes = m_excludes;
        s.excludeBase = "."; // a project's files are matched from the current directory
        s.schemeName = schemeName;
        return s;
    }

    // A file named on the command line that an exclusion pattern matches,
    // from the current directory.
    bool excluded(const std::string& name) const
    {
        if (m_excludes.empty() || name == "-")
            return false;
        std::error_code ec;
        const std::filesystem::path cwd = std::filesystem::current_path(ec);
        std::filesystem::path path(name);
        if (path.is_absolute())
            path = path.lexically_normal().lexically_relative(cwd);
        return App::isExcluded(m_excludes, path.lexically_normal().generic_string());
    }

    // The steps of the whole command: the project's, then each FILE's (a
    // directory's under -r). False when Ctrl-C came meanwhile; `status`
    // takes projects that could not be read (2) and directories (1).
    bool plan(std::vector<Step>& steps, ProgressLine& progress, int& status)
    {
        StepRecorder recorder(steps);
        CommandFeedback feedback(progress);
        auto account = [&](const App::CollectionResult& r) {
            if (r.end == App::CollectionResult::End::NOT_READ)
                status = std::max<int>(status, USAGE);
            if (r.problems > 0)
                status = std::max<int>(status, FAILED);
            return r.end != App::CollectionResult::End::CANCELLED;
        };
        if (!m_options.project.empty()) {
            App::FileCollection commands(recorder, feedback, setup(schemeNameFor(m_options.project)));
            if (!account(commands.formatProjectOrWorkspace(m_options.project)))
                return false;
        }
        const std::vector<std::string> names = m_options.files.empty() && !m_options.project.empty()
            ? std::vector<std::string>{}
            : inputNames(m_options.files);
        for (const std::string& name : names) {
            if (interrupted())
                return false;
            if (m_options.recursive && name != "-" && App::isDirectory(name)) {
                App::FileCollection commands(recorder, feedback, setup(schemeNameFor(name)));
                if (!account(commands.formatFolderTree(name)))
                    return false;
                continue;
            }
            if (!excluded(name))
                steps.push_back(Step{Step::Kind::FILE, name, 1, true});
        }
        progress.clear();
        return !interrupted();
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
    const App::FormatFunction& m_format;
    std::vector<App::PathGlob> m_excludes;
};

// Combinations that the parser cannot refuse by itself; an error text, or "".
std::string usageError(const Options& o)
{
    const std::vector<std::string> names
        = o.files.empty() && !o.project.empty() ? std::vector<std::string>{} : inputNames(o.files);
    const bool readsStdin = std::find(names.begin(), names.end(), "-") != names.end();
    if (o.inPlace && readsStdin)
        return "-i/--in-place formats files: name at least one (or a --project), and not - (standard input)";
    if ((o.backupGiven || o.noBackup) && !o.inPlace)
        return "--backup and --no-backup go with -i/--in-place";
    if (!o.assumeFilename.empty() && !(names.size() == 1 && names.front() == "-"))
        return "--assume-filename names standard input: give no FILE, or only -";
    if (o.backupGiven && o.backup.find_first_of("<>:\\/|?") != std::string::npos)
        return "invalid backup extension '" + o.backup
            + "': file extensions may not contain any of the following characters: \"<>:\\/|?\"";
    if (o.extensionsGiven && App::parseExtensionList(o.extensions).empty())
        return "--extensions names no extension: give a list such as c,cpp,h";
    if (o.extensionsGiven && o.extensions.find_first_of("<>:\\/|?") != std::string::npos)
        return "invalid --extensions '" + o.extensions
            + "': file extensions may not contain any of the following characters: \"<>:\\/|?\"";
    if (!o.project.empty() && App::projectKind(o.project) == App::ProjectKind::NONE)
        return "--project takes a .dsp, .dsw, .vcxproj or .sln file, or a compile_commands.json: '" + o.project
            + "' is none of these";
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
    const StandardOutput output;

    CLI::App app{"Tidewright C++: lays out C and C++ source text by a scheme of layout options.\n"
                 "Formats each FILE (standard input when none is given, or for -) to standard output,\n"
                 "or in place with -i; --check and --diff tell what would change.",
                 "tidewright"};
    app.formatter(std::make_shared<HelpFormatter>());
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
    app.add_flag("-r,--recursive", options.recursive,
                 "Format the files beneath each FILE that is a directory: hidden entries, symbolic links, "
                 "read-only files and files of other extensions are passed over");
    app.add_option("--project", options.project,
                   "Format the files of a project or workspace: .dsp, .dsw, .vcxproj, .sln or a "
                   "compile_commands.json")
        ->type_name("PATH");
    app.add_option("--exclude", options.excludes,
                   "Leave out files that match GLOB (repeatable): matched against the path from the walk's "
                   "directory (else from the current directory); * ? [..] within a name, ** across directories; "
                   "a GLOB without / matches a name at any depth")
        ->type_name("GLOB")
        ->allow_extra_args(false);
    CLI::Option* extensions = app.add_option("--extensions", options.extensions,
                                             "The extensions to format, such as c,cpp,h (instead of the setting "
                                             "FileExtensions)")
                                  ->type_name("LIST");
    app.add_option("-j,--jobs", options.jobs, "Format N files at a time (default: one per processor core)")
        ->type_name("N")
        ->check(CLI::Range(1u, 1024u));
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
    options.extensionsGiven = extensions->count() > 0;
    return run(options, format);
}

} // namespace Cli
