// Ctrl-C during a batch: the first SIGINT only raises a flag, which the batch
// reads before each file and the file job reads at its cancel points, so
// that the run stops between files and never in the middle of a write. The
// default action is back at once: a second Ctrl-C ends the program (a file
// being replaced is still either old or new; see App_SafeWrite.h).
//
// The flag is the one piece of process-wide mutable state outside the word
// tables: a signal handler can reach nothing else.
//
// Protocol of use:
//   { Cli::InterruptGuard guard;   // handler installed, flag cleared
//     ... if (Cli::interrupted()) stop ...
//   }                              // the previous handler is back
#ifndef CLI_INTERRUPT_H
#define CLI_INTERRUPT_H

#include <csignal>

namespace Cli {

class InterruptGuard {
public:
    InterruptGuard();
    ~InterruptGuard();
    InterruptGuard(const InterruptGuard&) = delete;
    InterruptGuard& operator=(const InterruptGuard&) = delete;

private:
    struct sigaction m_previous {};
    bool m_installed = false;
};

// True once SIGINT arrived while a guard was in place.
bool interrupted();

} // namespace Cli

#endif
