// Where the file job's messages go: a sink that drops what lies below its
// threshold and hands the rest on, each with its severity (1 information,
// 2 warning, 3 error).
//
//   threshold 0: nothing is shown;  1: severity 1 and up;  2: 2 and up;
//   3: errors only;  any other value: everything.
//
// The base class keeps the shown messages in a queue, each ending in CR LF,
// for a window to take; a front end that prints at once overrides deliver().
// A new batch may set a line that goes in before its first shown message.
#ifndef APP_MESSAGESINK_H
#define APP_MESSAGESINK_H

#include <string>
#include <vector>

namespace App {

// True when a message of `severity` passes `threshold`.
bool passesThreshold(int threshold, int severity);

class MessageSink {
public:
    explicit MessageSink(int threshold = 1) : m_threshold(threshold) {}
    virtual ~MessageSink();

    void addMessage(const std::string& text, int severity);

    int threshold() const { return m_threshold; }
    void setThreshold(int threshold) { m_threshold = threshold; }

    // The next shown message is preceded by `line`, once.
    void startBatch(std::string line);

    // Told when memory ran out, before its message: a window shows it in a box.
    virtual void alert(const std::string& text);

    const std::vector<std::string>& queue() const { return m_queue; }
    void clear() { m_queue.clear(); }

protected:
    // A message that passed the threshold.
    virtual void deliver(const std::string& text, int severity);

private:
    int m_threshold;
    bool m_firstMessage = false;
    std::string m_firstLine;
    std::vector<std::string> m_queue;
};

} // namespace App

#endif
