// The threshold and queue of the job's messages.
#include "App_MessageSink.h"

namespace App {

bool passesThreshold(int threshold, int severity)
{
    switch (threshold) {
    case 0: return false;
    case 1:
    case 2:
    case 3: return severity >= threshold;
    default: return true;
    }
}

MessageSink::~MessageSink() = default;

void MessageSink::addMessage(const std::string& text, int severity)
{
    if (!passesThreshold(m_threshold, severity))
        return;
    if (m_firstMessage) {
        m_firstMessage = false;
        deliver(m_firstLine, 1);
    }
    deliver(text, severity);
}

void MessageSink::startBatch(std::string line)
{
    m_firstMessage = true;
    m_firstLine = std::move(line);
}

void MessageSink::alert(const std::string&)
{
}

void MessageSink::deliver(const std::string& text, int)
{
    m_queue.push_back(text + "\r\n");
}

} // namespace App
