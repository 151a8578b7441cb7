// The file job: one file on disk through the format pipeline. It checks the
// file, reads it, runs the pipeline, verifies that the output holds the same
// tokens as the input, and then either reports the diagnostics or backs the
// file up and replaces its contents. Every failure is told to the message
// sink and leaves the file as it was; the job never throws, so a batch goes
// on with the next file.
//
// Protocol of use:
//   App::MessageSink sink(threshold);          // or a front end's own sink
//   App::FileJob job(sink, options);
//   App::JobResult r = job.formatFile(path, properties, progress);   // progress may be null
// or, writing nothing (for a check or a diff):
//   App::Examination e = job.examineFile(path, properties, progress);
//   if (e.result == App::JobResult::FORMATTED && e.output != e.input) -> it would change
//
// The order of formatFile:
//   1. progress: events pumped, stop when cancelled; the bar back to 0
//   2. "Opening file"            3. "Formatting "PATH"." (information)
//   4. missing -> error          4a. not a regular file -> error
//   5. no read or write access -> error, before anything is read
//   6. empty -> completed, no message, no backup
//   6a. larger than the limit -> error
//   7. read as bytes; failure -> error; a UTF-16/32 mark or a NUL byte -> error
//   8. the pipeline, with a copy of the properties and the default markers
//   9. progress: cancelled now -> stop without a word, nothing written
//  10. any message from the pipeline -> 15
//  10a. verification: other tokens in the output -> error, nothing written
//  11. "Writing file"
//  12. backup (PATH.EXT), when asked; failure -> error
//  13. safe write (see App_SafeWrite.h); failure or a file changed meanwhile -> error
//  14. "Completed file"
//  15. each pipeline message as a line "PATH(LINE) : error: col N: text"
//  16. the could-not-parse error
#ifndef APP_FILEJOB_H
#define APP_FILEJOB_H

#include "App_FileProgress.h"
#include "App_FormatFunction.h"
#include "App_MessageSink.h"
#include "App_SafeWrite.h"
#include "App_SourceText.h"
#include "Kempt_FormatMessage.h"
#include "Kempt_FormatSettings.h"
#include "Kempt_PropertySet.h"
#include "Kempt_UpdateFunctor.h"

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

namespace App {

struct JobOptions {
    bool createBackups = true;
    std::string backupExtension = "bak";
    // Compare the tokens of input and output before writing.
    bool verify = true;
    std::uint64_t maxSize = DEFAULT_MAX_SIZE;
};

enum class JobResult {
    FORMATTED, // written (formatFile) or formatted in memory (examineFile)
    EMPTY,     // an empty file: completed, nothing to do
    FAILED,    // told to the sink; the file is as it was
    CANCELLED, // the user cancelled; nothing told, nothing written
};

struct Examination {
    JobResult result = JobResult::FAILED;
    std::string input;
    std::string output; // the formatted text when result is FORMATTED
};

// True when the text behind the last point of `path`, trimmed and in lower
// case, equals an entry of `extensions` in lower case. No point: false.
bool isFormattableFile(const std::string& path, const std::vector<std::string>& extensions);

class FileJob {
public:
    FileJob(MessageSink& sink, JobOptions options = {}, FormatFunction format = engineFormat());

    JobResult formatFile(const std::string& path, const Kempt::PropertySet& properties,
                         FileProgress* progress = nullptr);

    // The steps up to the verification, writing nothing. The file needs read
    // access only.
    Examination examineFile(const std::string& path, const Kempt::PropertySet& properties,
                            FileProgress* progress = nullptr);

    // A text that is no file (standard input), named `label` in messages:
    // the checks of its bytes, the pipeline and the verification.
    Examination examineText(const std::string& label, std::string text, const Kempt::PropertySet& properties);

    const JobOptions& options() const { return m_options; }

    // Test seam: simulated failures of the write steps (see SafeWriteOptions).
    void setWriteFault(std::function<int(WriteStep)> fault) { m_writeFault = std::move(fault); }
    // Test seam: called between the read and the write, as another program
    // editing the file would be.
    void setBeforeWrite(std::function<void()> hook) { m_beforeWrite = std::move(hook); }

private:
    enum class Mode { WRITE, EXAMINE };
    Examination run(const std::string& path, const Kempt::PropertySet& properties, FileProgress* progress,
                    Mode mode);
    Examination runSteps(const std::string& path, const Kempt::PropertySet& properties, FileProgress* progress,
                         Mode mode);
    bool checkFile(const std::string& path, Mode mode, Examination& e);
    bool readFile(const std::string& path, SourceRead& read);
    bool checkBytes(const std::string& label, const std::string& bytes);
    JobResult runPipeline(const std::string& label, const Kempt::PropertySet& properties, FileProgress* progress,
                          Examination& e);
    bool verify(const std::string& label, const Kempt::PropertySet& properties, const Examination& e);
    JobResult writeBack(const std::string& path, const Examination& e, const FileStamp& stamp, FileProgress* progress);
    void reportParseFailure(const std::string& label, const Kempt::FormatMessageList& messages, FileProgress* progress);
    void reportUnexpected(const std::string& path, const std::string& details);

    MessageSink& m_sink;
    JobOptions m_options;
    FormatFunction m_format;
    std::function<int(WriteStep)> m_writeFault;
    std::function<void()> m_beforeWrite;
};

} // namespace App

#endif
