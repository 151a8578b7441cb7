// The file job's steps.
#include "App_FileJob.h"

#include "App_MessageLine.h"
#include "App_ProgramFiles.h"
#include "App_UserMessages.h"
#include "KemptUI_UserTexts.h"
#include "Kempt_FormatCheck.h"
#include "Kempt_FormatEngine.h"
#include "Kempt_PropertyNames.h"
#include "Kempt_TokenComparison.h"
#include "Trn_Exception.h"
#include "Varnel_Contract.h"
#include "Varnel_Text.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <new>
#include <sstream>

namespace App {

namespace {

constexpr int INFORMATION = 1;
constexpr int ERROR = 3;

std::string fill(const std::string& text, std::initializer_list<std::string_view> arguments)
{
    return KemptUI::fillTemplate(text, arguments);
}

// A status text on the progress display, when there is one.
void show(FileProgress* progress, const std::string& format, const std::string& path)
{
    if (progress)
        progress->showStatus(fill(format, {path}));
}

} // namespace

FileProgress::~FileProgress() = default;

bool ProgressUpdate::operator()(const std::string& format)
{
    if (!m_progress)
        return true;
    m_progress->showStatus(fill(format, {m_path}));
    return !m_progress->pumpAndCheckCancelled();
}

FormatFunction engineFormat()
{
    return [](const Kempt::FormatSettings& settings, std::istream& in, std::ostream& out,
              Kempt::FormatMessageList& messages, Kempt::UpdateFunctor& update) {
        return Kempt::FormatEngine().format(settings, in, out, messages, update);
    };
}

bool isFormattableFile(const std::string& path, const std::vector<std::string>& extensions)
{
    const std::size_t dot = path.rfind('.');
    if (dot == std::string::npos)
        return false;
    const std::string extension = Varnel::toLower(Varnel::trim(std::string_view(path).substr(dot + 1)));
    return std::any_of(extensions.begin(), extensions.end(),
                       [&](const std::string& entry) { return Varnel::toLower(entry) == extension; });
}

FileJob::FileJob(MessageSink& sink, JobOptions options, FormatFunction format)
    : m_sink(sink), m_options(std::move(options)), m_format(std::move(format))
{
}

JobResult FileJob::formatFile(const std::string& path, const Kempt::PropertySet& properties, FileProgress* progress)
{
    return run(path, properties, progress, Mode::WRITE).result;
}

Examination FileJob::examineFile(const std::string& path, const Kempt::PropertySet& properties,
                                 FileProgress* progress)
{
    return run(path, properties, progress, Mode::EXAMINE);
}

// The guarded block: nothing leaves the job. The handlers go from the
// project's own exception families to the standard ones; the first two do not
// derive from std::exception.
Examination FileJob::run(const std::string& path, const Kempt::PropertySet& properties, FileProgress* progress,
                         Mode mode)
{
    try {
        return runSteps(path, properties, progress, mode);
    } catch (const Trn::Exception& e) {
        reportUnexpected(path, e.what());
    } catch (const Varnel::ContractViolation& e) {
        reportUnexpected(path, e.what());
    } catch (const std::bad_alloc&) {
        const std::string& text = userMessages().outOfMemory;
        m_sink.alert(text);
        m_sink.addMessage(text, ERROR);
    } catch (const std::exception& e) {
        reportUnexpected(path, e.what());
    } catch (...) {
        reportUnexpected(path, "");
    }
    return Examination{};
}

void FileJob::reportUnexpected(const std::string& path, const std::string& details)
{
    const UserMessages& texts = userMessages();
    m_sink.addMessage(fill(texts.unexpectedError, {details}) + fill(texts.willNotBeFormattedTail, {path}), ERROR);
}

Examination FileJob::runSteps(const std::string& path, const Kempt::PropertySet& properties, FileProgress* progress,
                              Mode mode)
{
    const UserMessages& texts = userMessages();
    Examination e;
    if (progress) {
        if (progress->pumpAndCheckCancelled()) {
            e.result = JobResult::CANCELLED;
            return e;
        }
        progress->resetBar();
    }
    show(progress, texts.openingFile, path);
    m_sink.addMessage(fill(texts.formattingFile, {path}), INFORMATION);

    if (!checkFile(path, mode, e))
        return e;
    if (!isNotEmpty(path)) {
        show(progress, texts.completedFile, path);
        e.result = JobResult::EMPTY;
        return e;
    }
    SourceRead read;
    if (!readFile(path, read))
        return e;
    if (read.bytes.empty()) { // emptied since the test above
        show(progress, texts.completedFile, path);
        e.result = JobResult::EMPTY;
        return e;
    }
    e.input = std::move(read.bytes);
    if (!checkBytes(path, e.input))
        return e;

    e.result = runPipeline(path, properties, progress, e);
    if (e.result != JobResult::FORMATTED)
        return e;
    if (!verify(path, properties, e)) {
        e.result = JobResult::FAILED;
        return e;
    }
    if (mode == Mode::EXAMINE)
        return e;
    e.result = writeBack(path, e, read.stamp, progress);
    return e;
}

bool FileJob::checkFile(const std::string& path, Mode mode, Examination& e)
{
    const UserMessages& texts = userMessages();
    e.result = JobResult::FAILED;
    if (!fileExists(path)) {
        m_sink.addMessage(fill(texts.cannotBeFound, {path}), ERROR);
        return false;
    }
    if (const std::string kind = fileKind(path); !kind.empty()) {
        m_sink.addMessage(fill(texts.notARegularFile, {path, kind}), ERROR);
        return false;
    }
    if (!canRead(path) || (mode == Mode::WRITE && !canWrite(path))) {
        m_sink.addMessage(fill(texts.noReadWritePermission, {path}), ERROR);
        return false;
    }
    return true;
}

bool FileJob::readFile(const std::string& path, SourceRead& read)
{
    const UserMessages& texts = userMessages();
    read = readSource(path, m_options.maxSize);
    if (read.tooLarge) {
        m_sink.addMessage(fill(texts.tooLarge, {path, std::to_string(std::max<std::uint64_t>(
                                                           static_cast<std::uint64_t>(read.stamp.size),
                                                           read.bytes.size())),
                                                std::to_string(m_options.maxSize)}),
                          ERROR);
        return false;
    }
    if (!read.ok) {
        m_sink.addMessage(fill(texts.unableToRead, {path}), ERROR);
        if (read.error)
            m_sink.addMessage(path + ": " + std::strerror(read.error), ERROR);
        return false;
    }
    return true;
}

bool FileJob::checkBytes(const std::string& label, const std::string& bytes)
{
    const UserMessages& texts = userMessages();
    if (bytes.size() > m_options.maxSize) {
        m_sink.addMessage(fill(texts.tooLarge, {label, std::to_string(bytes.size()), std::to_string(m_options.maxSize)}),
                          ERROR);
        return false;
    }
    if (const std::string encoding = wideEncoding(bytes); !encoding.empty()) {
        m_sink.addMessage(fill(texts.wideText, {label, encoding}), ERROR);
        return false;
    }
    if (const auto at = nulOffset(bytes)) {
        m_sink.addMessage(fill(texts.binaryFile, {label, std::to_string(*at)}), ERROR);
        return false;
    }
    return true;
}

JobResult FileJob::runPipeline(const std::string& label, const Kempt::PropertySet& properties, FileProgress* progress,
                               Examination& e)
{
    const Kempt::FormatSettings settings(properties, Kempt::defaultRegionMarkers());
    std::istringstream in(e.input);
    std::ostringstream out;
    Kempt::FormatMessageList messages;
    ProgressUpdate update(progress, label);
    const std::int32_t result = m_format(settings, in, out, messages, update);
    if (progress && progress->pumpAndCheckCancelled())
        return JobResult::CANCELLED;
    if (result != 0 || !messages.empty()) {
        reportParseFailure(label, messages, progress);
        return JobResult::FAILED;
    }
    e.output = std::move(out).str();
    return JobResult::FORMATTED;
}

void FileJob::reportParseFailure(const std::string& label, const Kempt::FormatMessageList& messages,
                                 FileProgress* progress)
{
    const UserMessages& texts = userMessages();
    show(progress, texts.willNotBeFormatted, label);
    for (const Kempt::FormatMessage& message : messages)
        m_sink.addMessage(messageLine(label, message), message.severity);
    m_sink.addMessage(fill(texts.couldNotParse, {label}), ERROR);
}

bool FileJob::verify(const std::string& label, const Kempt::PropertySet& properties, const Examination& e)
{
    if (!m_options.verify)
        return true;
    // Under a brace style, exactly the braces the rewriter adds or removes may differ.
    const Kempt::FormatSettings settings(properties, Kempt::defaultRegionMarkers());
    const Kempt::TokenComparison c = Kempt::compareFormatted(settings, e.input, e.output);
    if (c.same)
        return true;
    m_sink.addMessage(fill(userMessages().tokensDiffer, {label, std::to_string(c.beforePosition.line), c.describe()}),
                      ERROR);
    return false;
}

JobResult FileJob::writeBack(const std::string& path, const Examination& e, const FileStamp& stamp,
                             FileProgress* progress)
{
    const UserMessages& texts = userMessages();
    if (m_beforeWrite)
        m_beforeWrite();
    show(progress, texts.writingFile, path);
    // A file changed since it was read is left alone, before its backup too.
    if (const auto now = stampOf(path); !now || !now->sameVersion(stamp)) {
        m_sink.addMessage(fill(texts.changedMeanwhile, {path}), ERROR);
        return JobResult::FAILED;
    }
    SafeWriteOptions options;
    options.fault = m_writeFault;
    if (m_options.createBackups) {
        SafeWriteOptions backup = options;
        backup.followLinks = false; // a link named like the backup is replaced, never written through
        std::string source;
        backup.attributesFrom = resolveTarget(path, source) ? source : path;
        const SafeWriteResult made = writeFileSafely(path + "." + m_options.backupExtension, e.input, backup);
        if (!made.ok) {
            // The text goes out with its "%s" as it stands.
            m_sink.addMessage(texts.unableToBackUp, ERROR);
            m_sink.addMessage(path + "." + m_options.backupExtension + ": " + made.reason, ERROR);
            return JobResult::FAILED;
        }
    }
    options.expected = stamp;
    const SafeWriteResult written = writeFileSafely(path, e.output, options);
    if (written.changedMeanwhile) {
        m_sink.addMessage(fill(texts.changedMeanwhile, {path}), ERROR);
        return JobResult::FAILED;
    }
    if (!written.ok) {
        m_sink.addMessage(fill(texts.unableToWrite, {path}), ERROR);
        m_sink.addMessage(path + ": " + written.reason, ERROR);
        return JobResult::FAILED;
    }
    show(progress, texts.completedFile, path);
    const std::string& success = texts.formatSuccessful; // prepared for no sink: a good run has no line of its own
    (void)success;
    return JobResult::FORMATTED;
}

Examination FileJob::examineText(const std::string& label, std::string text, const Kempt::PropertySet& properties)
{
    Examination e;
    try {
        e.input = std::move(text);
        if (e.input.empty()) {
            e.result = JobResult::EMPTY;
            return e;
        }
        if (!checkBytes(label, e.input))
            return e;
        e.result = runPipeline(label, properties, nullptr, e);
        if (e.result == JobResult::FORMATTED && !verify(label, properties, e))
            e.result = JobResult::FAILED;
        return e;
    } catch (const Trn::Exception& x) {
        reportUnexpected(label, x.what());
    } catch (const Varnel::ContractViolation& x) {
        reportUnexpected(label, x.what());
    } catch (const std::bad_alloc&) {
        m_sink.alert(userMessages().outOfMemory);
        m_sink.addMessage(userMessages().outOfMemory, ERROR);
    } catch (const std::exception& x) {
        reportUnexpected(label, x.what());
    } catch (...) {
        reportUnexpected(label, "");
    }
    e.result = JobResult::FAILED;
    e.output.clear();
    return e;
}

} // namespace App
