// Formatting a message as a line.
#include "App_MessageLine.h"

#include "Varnel_Text.h"

namespace App {

namespace {

const char* severityWord(std::int32_t severity)
{
    switch (severity) {
    case Kempt::FormatMessage::WARNING: return "warning: ";
    case Kempt::FormatMessage::ERROR: return "error: ";
    default: return "information: ";
    }
}

} // namespace

std::string oneLine(const std::string& text)
{
    return Varnel::escapeControlCharacters(text);
}

std::string messageLine(const std::string& path, const Kempt::FormatMessage& message)
{
    return oneLine(path) + "(" + std::to_string(message.position.line) + ") : " + severityWord(message.severity)
        + "col " + std::to_string(message.position.col) + ": " + oneLine(message.text);
}

} // namespace App
