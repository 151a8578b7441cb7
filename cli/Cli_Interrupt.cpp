// The SIGINT flag and its handler.
#include "Cli_Interrupt.h"

#include <atomic>

namespace Cli {

namespace {

static_assert(std::atomic<bool>::is_always_lock_free, "the SIGINT flag must be safe to set in a signal handler");

std::atomic<bool>& interruptFlag()
{
    static std::atomic<bool> flag{false};
    return flag;
}

extern "C" void onInterrupt(int)
{
    interruptFlag().store(true);
}

} // namespace

InterruptGuard::InterruptGuard()
{
    interruptFlag().store(false);
    struct sigaction action {};
    action.sa_handler = onInterrupt;
    sigemptyset(&action.sa_mask);
    // Reads and writes go on after the handler; the second SIGINT is deadly.
    action.sa_flags = SA_RESTART | SA_RESETHAND;
    m_installed = ::sigaction(SIGINT, &action, &m_previous) == 0;
}

InterruptGuard::~InterruptGuard()
{
    if (m_installed)
        ::sigaction(SIGINT, &m_previous, nullptr);
}

bool interrupted()
{
    return interruptFlag().load();
}

} // namespace Cli
