// The plain target of a batch command: each file through FileJob::formatFile
// at once, on the calling thread, with the feedback's progress display, and
// the command's lines to the message sink. This is what the desktop
// application runs; the command line has its own target that formats on
// several threads.
#ifndef APP_JOBTARGET_H
#define APP_JOBTARGET_H

#include "App_BatchFeedback.h"
#include "App_FileJob.h"

#include <string>
#include <vector>

namespace App {

class JobTarget : public BatchTarget {
public:
    // All four must outlive the target.
    JobTarget(FileJob& job, MessageSink& sink, const Kempt::PropertySet& properties, BatchFeedback& feedback)
        : m_job(job), m_sink(sink), m_properties(properties), m_feedback(feedback)
    {
    }

    void message(const std::string& text, int severity) override { m_sink.addMessage(text, severity); }
    void formatFile(const std::string& path) override
    {
        m_results.push_back(m_job.formatFile(path, m_properties, m_feedback.fileProgress()));
    }

    // The result of each file, in order.
    const std::vector<JobResult>& results() const { return m_results; }

private:
    FileJob& m_job;
    MessageSink& m_sink;
    const Kempt::PropertySet& m_properties;
    BatchFeedback& m_feedback;
    std::vector<JobResult> m_results;
};

} // namespace App

#endif
