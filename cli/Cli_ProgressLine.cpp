// Drawing the progress line on a terminal.
#include "Cli_ProgressLine.h"

#include "App_MessageLine.h"

#include <cstdio>
#include <iostream>
#include <sys/ioctl.h>
#include <unistd.h>

namespace Cli {

namespace {

constexpr auto REDRAW_INTERVAL = std::chrono::milliseconds(100);

std::size_t terminalWidth()
{
    winsize size{};
    if (::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 1)
        return size.ws_col;
    return 80;
}

std::size_t columns(const std::string& text)
{
    std::size_t n = 0;
    for (const char c : text)
        n += (static_cast<unsigned char>(c) & 0xC0) != 0x80; // UTF-8 continuation bytes take no column
    return n;
}

// The end of `text` in at most `width` columns, "..." standing for what was
// cut from its start.
std::string keepEnd(const std::string& text, std::size_t width)
{
    if (columns(text) <= width)
        return text;
    if (width <= 3)
        return std::string(width, '.');
    std::size_t from = 0;
    while (from < text.size() && columns(text.substr(from)) + 3 > width)
        ++from;
    while (from < text.size() && (static_cast<unsigned char>(text[from]) & 0xC0) == 0x80)
        ++from; // no half character at the start
    return "..." + text.substr(from);
}

} // namespace

std::string durationText(std::chrono::seconds seconds)
{
    const long long total = seconds.count() < 0 ? 0 : seconds.count();
    char text[32];
    if (total >= 3600)
        std::snprintf(text, sizeof text, "%lld:%02lld:%02lld", total / 3600, total / 60 % 60, total % 60);
    else
        std::snprintf(text, sizeof text, "%lld:%02lld", total / 60, total % 60);
    return text;
}

ProgressLine::ProgressLine(bool enabled, std::size_t width)
    : m_enabled(enabled), m_width(width), m_start(Clock::now())
{
}

std::size_t ProgressLine::width() const
{
    return m_width > 1 ? m_width : terminalWidth();
}

ProgressLine::~ProgressLine()
{
    clear();
}

void ProgressLine::setEnabled(bool enabled)
{
    if (!enabled)
        clear();
    m_enabled = enabled;
}

void ProgressLine::start(int total)
{
    m_total = total;
    m_start = Clock::now();
}

void ProgressLine::status(const std::string& text)
{
    draw(text, false);
}

void ProgressLine::file(int done, int number, const std::string& path)
{
    if (!m_enabled)
        return;
    const std::string head = "Formatting file " + std::to_string(number) + " of " + std::to_string(m_total) + ": ";
    std::string tail;
    const auto elapsed = Clock::now() - m_start;
    if (done > 0 && elapsed >= std::chrono::seconds(1)) {
        const auto left = elapsed * (m_total - done) / done;
        tail = "  (about " + durationText(std::chrono::duration_cast<std::chrono::seconds>(left)) + " left)";
    }
    // The path gives way first, from its start: its end names the file.
    const std::size_t room = width() - 1;
    const std::size_t fixed = columns(head) + columns(tail);
    draw(head + keepEnd(App::oneLine(path), room > fixed ? room - fixed : 0) + tail, false);
}

void ProgressLine::clear()
{
    if (!m_shown)
        return;
    std::cerr << "\r\x1b[K" << std::flush;
    m_shown = false;
}

void ProgressLine::draw(const std::string& text, bool force)
{
    if (!m_enabled)
        return;
    const Clock::time_point now = Clock::now();
    if (m_shown && !force && now - m_lastDraw < REDRAW_INTERVAL)
        return;
    m_lastDraw = now;
    std::string line = App::oneLine(text);
    const std::size_t room = width() - 1;
    // Cut before the first character past the width, never inside one.
    std::size_t seen = 0;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if ((static_cast<unsigned char>(line[i]) & 0xC0) != 0x80 && ++seen > room) {
            line.erase(i);
            break;
        }
    }
    std::cerr << '\r' << line << "\x1b[K" << std::flush;
    m_shown = true;
}

} // namespace Cli
