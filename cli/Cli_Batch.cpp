// Running the steps of a batch on the worker threads, in order.
#include "Cli_Batch.h"
#include "Cli_StandardOutput.h"

#include "App_MessageLine.h"
#include "App_MessageSink.h"
#include "App_OrderedPool.h"
#include "App_ProgramFiles.h"
#include "App_TextJob.h"
#include "App_UserMessages.h"
#include "Cli_Inputs.h"
#include "Cli_Interrupt.h"
#include "KemptUI_UserTexts.h"
#include "Kempt.h"
#include "Trn_Exception.h"
#include "Varnel_Contract.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <map>
#include <new>
#include <sstream>
#include <sys/stat.h>

namespace Cli {

namespace fs = std::filesystem;

// What one file shows, gathered on its worker and shown in its turn.
struct Batch::Report {
    std::string label;       // the file as messages name it
    std::string out;         // for standard output
    std::string err;         // for standard error, whole lines
    int status = SUCCESS;
    bool cancelled = false;  // stopped by Ctrl-C before it was done
};

namespace {

// The job's messages into a report, one line each.
class ReportSink : public App::MessageSink {
public:
    ReportSink(int threshold, std::string& lines) : App::MessageSink(threshold), m_lines(lines) {}

protected:
    void deliver(const std::string& text, int) override { m_lines += App::oneLine(text) + "\n"; }

private:
    std::string& m_lines;
};

// The file job's cancel points read the Ctrl-C flag.
class InterruptProgress : public App::FileProgress {
public:
    bool pumpAndCheckCancelled() override { return interrupted(); }
    void resetBar() override {}
    void showStatus(const std::string&) override {}
};

// The pipeline stops when Ctrl-C came.
class InterruptUpdate : public Kempt::UpdateFunctor {
public:
    bool operator()(const std::string&) override { return !interrupted(); }
};

// What identifies a file whatever it is called: its device and inode, or,
// for a file that does not exist, its normalised absolute path.
std::string identity(const std::string& path)
{
    struct stat info {};
    if (::stat(path.c_str(), &info) == 0)
        return std::to_string(info.st_dev) + ":" + std::to_string(info.st_ino);
    std::error_code ec;
    return "path:" + fs::absolute(path, ec).lexically_normal().string();
}

// Runs `work` on `report`, turning what escapes it into a failed file: a task
// on a worker thread must not throw.
void guarded(const std::function<void(Batch::Report&)>& work, Batch::Report& report)
{
    auto failed = [&](const std::string& what) {
        report.err += "tidewright: internal error while processing '" + App::oneLine(report.label) + "': " + what + "\n";
        report.status = std::max<int>(report.status, FAILED);
    };
    try {
        work(report);
    } catch (const Varnel::ContractViolation& e) {
        failed(e.what());
    } catch (const Trn::Exception& e) {
        failed(e.what());
    } catch (const std::bad_alloc&) {
        report.err += "tidewright: out of memory while processing '" + App::oneLine(report.label) + "'\n";
        report.status = std::max<int>(report.status, FAILED);
    } catch (const std::exception& e) {
        failed(e.what());
    } catch (...) {
        failed("unknown exception");
    }
}

} // namespace

void complain(const std::string& text)
{
    std::cerr << "tidewright: " << text << '\n';
}

bool outputWritten()
{
    if (std::cout.flush())
        return true;
    const int error = StandardOutput::currentError();
    complain(std::string("cannot write to standard output") + (error ? ": " + std::string(std::strerror(error)) : ""));
    return false;
}

Batch::Batch(BatchSettings settings, App::SchemeChooser& chooser, const App::FormatFunction& format,
             ProgressLine& progress)
    : m_settings(std::move(settings)), m_chooser(chooser), m_format(format), m_progress(progress)
{
}

Batch::~Batch() = default;

std::vector<Step> Batch::withoutDuplicates(const std::vector<Step>& steps) const
{
    std::vector<Step> kept;
    std::set<std::string> seen;
    for (const Step& step : steps) {
        if (step.kind == Step::Kind::FILE && step.text != "-" && !seen.insert(identity(step.text)).second)
            continue;
        kept.push_back(step);
    }
    return kept;
}

int Batch::run(const std::vector<Step>& given)
{
    const std::vector<Step> steps = withoutDuplicates(given);
    for (const Step& step : steps)
        if (step.kind == Step::Kind::FILE)
            m_labels.push_back(step.text == "-" ? std::string(STDIN_LABEL) : step.text);
    const int total = static_cast<int>(m_labels.size());
    m_headers = m_settings.mode == Mode::PRINT && total > 1;
    // A line for a batch of more than a few files only.
    if (total <= 3)
        m_progress.setEnabled(false);
    m_progress.start(total);
    if (total > 0)
        m_progress.file(0, 1, m_labels.front());

    App::OrderedPool pool(m_settings.threads);
    for (const Step& step : steps) {
        if (interrupted() || m_outputFailed)
            break;
        if (step.kind == Step::Kind::MESSAGE) {
            pool.submit({}, [this, text = step.text, severity = step.severity] { tell(text, severity); });
            continue;
        }
        auto report = std::make_shared<Report>();
        report->label = step.text == "-" ? std::string(STDIN_LABEL) : step.text;
        Work work = prepare(step, *report);
        App::OrderedPool::Task task;
        if (work)
            task = [report, work] { guarded(work, *report); };
        pool.submit(std::move(task), [this, report] { deliver(*report); });
    }
    if (interrupted())
        pool.submit({}, [this] { tell(App::userMessages().cancelledByUser, 1); });
    pool.finish();
    m_progress.clear();
    if (interrupted()) {
        complain("interrupted: " + std::to_string(m_done) + " of " + std::to_string(total) + " files done");
        return INTERRUPTED;
    }
    return m_status;
}

Batch::Work Batch::prepare(const Step& step, Report& report)
{
    const std::string& name = step.text;
    switch (m_settings.mode) {
    case Mode::IN_PLACE: return prepareInPlace(name, step, report);
    case Mode::PRINT: return preparePrint(name, report);
    case Mode::CHECK:
    case Mode::DIFF: break;
    }
    const bool isStdin = name == "-";
    // A named file is checked; standard input only when it has a name.
    const std::string searchPath = isStdin ? m_settings.assumeFilename : name;
    if ((!isStdin || !m_settings.assumeFilename.empty()) && !extensionListed(searchPath, report)) {
        report.status = FAILED;
        return {};
    }
    return prepareExamine(name, report);
}

Batch::Work Batch::prepareInPlace(const std::string& name, const Step& step, Report& report)
{
    if (step.named && !extensionListed(name, report)) {
        report.status = FAILED;
        return {};
    }
    std::shared_ptr<const Kempt::PropertySet> set;
    if (!chooseScheme(name, set, report)) {
        report.status = USAGE;
        return {};
    }
    return [this, name, set](Report& r) {
        if (interrupted()) {
            r.cancelled = true;
            return;
        }
        ReportSink sink(m_settings.threshold, r.err);
        App::FileJob job(sink, m_settings.jobOptions, m_format);
        InterruptProgress progress;
        const App::JobResult result = job.formatFile(name, *set, &progress);
        r.cancelled = result == App::JobResult::CANCELLED;
        const bool ok = result == App::JobResult::FORMATTED || result == App::JobResult::EMPTY;
        r.status = std::max<int>(r.status, ok || r.cancelled ? SUCCESS : FAILED);
    };
}

// Standard output mode: the formatted text, or nothing and message lines.
Batch::Work Batch::preparePrint(const std::string& name, Report& report)
{
    const bool isStdin = name == "-";
    const std::string searchPath = isStdin ? m_settings.assumeFilename : name;
    if (isStdin && !m_settings.assumeFilename.empty() && !extensionListed(searchPath, report)) {
        report.status = FAILED;
        return {};
    }
    std::shared_ptr<const Kempt::PropertySet> set;
    if (!chooseScheme(searchPath, set, report)) {
        report.status = USAGE;
        return {};
    }
    std::string label = report.label;
    if (isStdin) {
        if (!m_settings.assumeFilename.empty())
            label = m_settings.assumeFilename;
        if (!m_stdinRead) { // standard input is read once, here, on the main thread
            std::ostringstream text;
            text << std::cin.rdbuf();
            m_stdinText = text.str();
            m_stdinRead = true;
        }
    }
    const std::string stdinText = isStdin ? m_stdinText : std::string();
    return [this, name, label, set, isStdin, stdinText](Report& r) {
        if (interrupted()) {
            r.cancelled = true;
            return;
        }
        std::string text = stdinText;
        if (!isStdin) {
            Input input(name);
            if (!input.ok()) {
                r.err += "tidewright: " + input.error() + "\n";
                r.status = USAGE;
                return;
            }
            std::ostringstream read;
            read << input.stream().rdbuf();
            text = read.str();
        }
        std::istringstream in(text);
        std::ostringstream out;
        std::ostringstream errors;
        InterruptUpdate update;
        const bool ok = App::formatText(label, in, out, errors, *set, update, m_format);
        if (interrupted() && !ok) {
            r.cancelled = true;
            return;
        }
        if (!m_settings.quiet)
            r.err += errors.str();
        if (!ok) {
            r.status = FAILED;
            return;
        }
        if (m_settings.jobOptions.verify) {
            // Under a brace style, exactly the braces the rewriter adds or removes may differ.
            const Kempt::TokenComparison c = Kempt::compareFormatted(
                Kempt::FormatSettings(*set, Kempt::defaultRegionMarkers()), text, out.str());
            if (!c.same) {
                ReportSink sink(m_settings.threshold, r.err);
                sink.addMessage(KemptUI::fillTemplate(App::userMessages().tokensDiffer,
                                                      {label, std::to_string(c.beforePosition.line), c.describe()}),
                                3);
                r.status = FAILED;
                return;
            }
        }
        r.out = std::move(out).str();
    };
}

// --check and --diff: formats in memory and tells what would change.
Batch::Work Batch::prepareExamine(const std::string& name, Report& report)
{
    const bool isStdin = name == "-";
    std::shared_ptr<const Kempt::PropertySet> set;
    if (!chooseScheme(isStdin ? m_settings.assumeFilename : name, set, report)) {
        report.status = USAGE;
        return {};
    }
    std::string label = name;
    std::string stdinText;
    if (isStdin) {
        label = m_settings.assumeFilename.empty() ? std::string(STDIN_LABEL) : m_settings.assumeFilename;
        std::ostringstream text;
        text << std::cin.rdbuf();
        stdinText = text.str();
    }
    return [this, name, label, set, isStdin, stdinText](Report& r) {
        if (interrupted()) {
            r.cancelled = true;
            return;
        }
        ReportSink sink(m_settings.threshold, r.err);
        App::FileJob job(sink, m_settings.jobOptions, m_format);
        InterruptProgress progress;
        const App::Examination e
            = isStdin ? job.examineText(label, stdinText, *set) : job.examineFile(name, *set, &progress);
        if (e.result == App::JobResult::CANCELLED) {
            r.cancelled = true;
            return;
        }
        if (e.result == App::JobResult::EMPTY)
            return;
        if (e.result != App::JobResult::FORMATTED) {
            r.status = FAILED;
            return;
        }
        if (e.output == e.input)
            return;
        r.status = FAILED;
        if (m_settings.mode == Mode::CHECK) {
            if (!m_settings.quiet)
                r.out = App::oneLine(label) + ": would be reformatted\n";
        } else {
            r.out = App::unifiedDiff(label, e.input, e.output, m_settings.diffStyle);
        }
    };
}

// The scheme for the file; false when it cannot be had, which the report
// tells (each distinct error once in the batch).
bool Batch::chooseScheme(const std::string& path, std::shared_ptr<const Kempt::PropertySet>& set, Report& report)
{
    App::SchemeChoice choice;
    std::string error;
    const bool ok = m_chooser.choose(path, choice, error);
    for (const std::string& notice : m_chooser.takeNotices())
        report.err += "tidewright: " + notice + "\n";
    if (!ok) {
        if (m_errorsTold.insert(error).second)
            report.err += "tidewright: " + error + "\n";
        return false;
    }
    set = std::make_shared<const Kempt::PropertySet>(std::move(choice.set));
    return true;
}

bool Batch::extensionListed(const std::string& name, Report& report)
{
    // A directory named without -r goes on to the file job, which says what it is.
    if (App::isFormattableFile(name, m_settings.extensions) || App::isDirectory(name))
        return true;
    ReportSink sink(m_settings.threshold, report.err);
    sink.addMessage(KemptUI::fillTemplate(App::userMessages().extensionNotListed, {name}) + " Listed: "
                        + App::oneLine(m_settings.extensionsText) + " (" + m_settings.extensionsSource + ").",
                    2);
    return false;
}

void Batch::tell(const std::string& text, int severity)
{
    if (App::passesThreshold(m_settings.threshold, severity))
        writeError(App::oneLine(text) + "\n");
}

void Batch::writeError(const std::string& text)
{
    if (text.empty())
        return;
    m_progress.clear();
    std::cerr << text << std::flush;
}

void Batch::deliver(Report& report)
{
    ++m_delivered;
    // After standard output failed, files already under way are not shown:
    // the command stops as if they had not been started.
    if (report.cancelled || m_outputFailed)
        return;
    ++m_done;
    writeError(report.err);
    m_status = std::max(m_status, report.status);
    if (!report.out.empty() && !m_outputFailed) {
        if (m_headers) {
            std::cout << (m_printedOne ? "\n" : "") << "==> " << App::oneLine(report.label) << " <==\n";
            m_printedOne = true;
        }
        std::cout << report.out;
        if (!outputWritten()) {
            m_outputFailed = true; // nothing more can reach the output; no file after this one is started
            m_status = std::max<int>(m_status, FAILED);
        }
    }
    if (m_delivered < static_cast<int>(m_labels.size()))
        m_progress.file(m_done, m_delivered + 1, m_labels[static_cast<std::size_t>(m_delivered)]);
}

} // namespace Cli
