// Formatting a message as a line.
#include "App_MessageLine.h"

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
    static const char* const HEX = "0123456789abcdef";
    std::string line;
    line.reserve(text.size());
    for (const char c : text) {
        const auto u = static_cast<unsigned char>(c);
        switch (c) {
        case '\n': line += "\\n"; break;
        case '\r': line += "\\r"; break;
        case '\t': line += "\\t"; break;
        default:
            if (u < 0x20 || u == 0x7f) {
                line += "\\x";
                line += HEX[u >> 4];
                line += HEX[u & 0xf];
            } else {
                line += c;
            }
        }
    }
    return line;
}

std::string messageLine(const std::string& path, const Kempt::FormatMessage& message)
{
    return oneLine(path) + "(" + std::to_string(message.position.line) + ") : " + severityWord(message.severity)
        + "col " + std::to_string(message.position.col) + ": " + oneLine(message.text);
}

} // namespace App
