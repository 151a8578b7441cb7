// The command's batch: the steps that the arguments and the batch commands
// gave (message lines and files, in order), run on several threads, with
// everything each file shows (messages, formatted text, check lines, diffs)
// held until its turn, so that the output is byte for byte that of a run on
// one thread.
//
// For each file, on the main thread and in order: the duplicate test (a file
// met before, under any name, is left out), the extension test for files
// named on the command line, and the choice of its scheme. Then, on a worker:
// the mode's work (format in place, format to standard output, check, diff).
// Then, on the main thread in order: its output.
//
// Ctrl-C (Cli_Interrupt.h) stops the batch: no file is started after it, a
// file in the pipeline stops before it is written, files already written
// stay so, and the batch ends with "interrupted: N of M files done" and
// status 130.
//
// Protocol of use:
//   Cli::Batch batch(settings, chooser, format, progressLine);
//   int status = batch.run(steps);
#ifndef CLI_BATCH_H
#define CLI_BATCH_H

#include "App_FileJob.h"
#include "App_FormatFunction.h"
#include "App_PathGlob.h"
#include "App_SchemeChoice.h"
#include "App_UnifiedDiff.h"
#include "Cli_ProgressLine.h"

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace Cli {

enum ExitStatus { SUCCESS = 0, FAILED = 1, USAGE = 2, INTERRUPTED = 130 };

enum class Mode { PRINT, IN_PLACE, CHECK, DIFF };

// One step of a batch.
struct Step {
    enum class Kind { MESSAGE, FILE };
    Kind kind = Kind::FILE;
    std::string text;      // MESSAGE: the line; FILE: the path, or "-" for standard input
    int severity = 1;      // MESSAGE
    bool named = false;    // FILE: named on the command line, not found by a walk or a project
};

struct BatchSettings {
    Mode mode = Mode::PRINT;
    App::JobOptions jobOptions;
    int threshold = 2;                     // of the message sink: -q 0, default 2, -v 1
    bool quiet = false;
    App::DiffStyle diffStyle;
    std::string assumeFilename;            // names standard input
    unsigned threads = 1;
    std::vector<std::string> extensions;   // for files named on the command line
    std::string extensionsText;            // as the not-listed message shows it
    std::string extensionsSource;          // "the setting FileExtensions" or "--extensions"
};

class Batch {
public:
    Batch(BatchSettings settings, App::SchemeChooser& chooser, const App::FormatFunction& format,
          ProgressLine& progress);
    ~Batch();

    // Runs the steps: the exit status (0, 1, 2, or 130 when interrupted).
    int run(const std::vector<Step>& steps);

    struct Report;

private:
    using Work = std::function<void(Report&)>;

    std::vector<Step> withoutDuplicates(const std::vector<Step>& steps) const;
    Work prepare(const Step& step, Report& report);
    Work prepareInPlace(const std::string& name, const Step& step, Report& report);
    Work preparePrint(const std::string& name, Report& report);
    Work prepareExamine(const std::string& name, Report& report);
    bool chooseScheme(const std::string& path, std::shared_ptr<const Kempt::PropertySet>& set, Report& report);
    bool extensionListed(const std::string& name, Report& report);
    void tell(const std::string& text, int severity);
    void deliver(Report& report);
    void writeError(const std::string& text);

    BatchSettings m_settings;
    App::SchemeChooser& m_chooser;
    const App::FormatFunction& m_format;
    ProgressLine& m_progress;
    std::set<std::string> m_errorsTold;
    std::vector<std::string> m_labels;   // each file step's path, in order
    int m_done = 0;                      // files delivered
    int m_delivered = 0;                 // files delivered, those stopped by Ctrl-C too
    int m_status = SUCCESS;
    bool m_headers = false;              // standard output mode, more than one file
    bool m_printedOne = false;
    bool m_outputFailed = false;
    std::string m_stdinText;
    bool m_stdinRead = false;
};

// "tidewright: TEXT" on standard error.
void complain(const std::string& text);

// Flushes standard output; false (and told) when it could not be written.
bool outputWritten();

} // namespace Cli

#endif
