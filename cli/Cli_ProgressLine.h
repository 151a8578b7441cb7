// The self-updating line on standard error that shows how a batch goes:
//   Formatting file 12 of 340: src/net/socket.c  (about 0:41 left)
// drawn with a carriage return and an erase to the line's end, at most ten
// times a second; a path too long for the terminal's width loses its start. It exists only when standard
// error is a terminal; whoever writes anything else to standard error clears
// it first, and the next update draws it again.
//
// Protocol of use:
//   Cli::ProgressLine line(enabled);       // enabled: stderr is a terminal and messages are wanted
//   line.start(total);                      // the clock for the estimate starts
//   line.status("Adding src/a.c");          // any text (while files are counted)
//   line.file(done, number, path);          // the file the batch waits for
//   line.clear();  std::cerr << ...;        // before any other output
//   (the destructor clears it)
#ifndef CLI_PROGRESSLINE_H
#define CLI_PROGRESSLINE_H

#include <chrono>
#include <cstddef>
#include <string>

namespace Cli {

class ProgressLine {
public:
    // `width`: the terminal's columns; 0 asks the terminal at each draw.
    explicit ProgressLine(bool enabled, std::size_t width = 0);
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    bool enabled() const { return m_enabled; }
    void setEnabled(bool enabled);

    void start(int total);
    void status(const std::string& text);
    // `done` files are finished; the batch waits for file `number`, `path`.
    void file(int done, int number, const std::string& path);
    void clear();

private:
    void draw(const std::string& text, bool force);

    using Clock = std::chrono::steady_clock;
    std::size_t width() const;

    bool m_enabled;
    std::size_t m_width;
    bool m_shown = false;
    int m_total = 0;
    Clock::time_point m_start;
    Clock::time_point m_lastDraw;
};

// "0:41", "1:02:03": a time left for the user.
std::string durationText(std::chrono::seconds seconds);

} // namespace Cli

#endif
