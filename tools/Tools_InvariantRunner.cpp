// Worker processes for tw-invariants, and the parent that watches them.
//
// Invariants:
//  1. A worker announces each file and scheme ("B") before it checks it, so
//     that the parent always knows what a dying or silent worker was doing.
//  2. The parent restarts a worker behind the item it lost, never on it: a
//     file that crashes or hangs is counted once and not tried again.
//  3. The parent creates no thread; workers are plain forks of it and leave
//     with _exit, so no stream buffer of the parent is flushed twice.
#include "Tools_InvariantRunner.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <fstream>
#include <iostream>
#include <sstream>

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Tools {

namespace {

using Clock = std::chrono::steady_clock;

struct Item {
    std::size_t file = 0;
    std::size_t scheme = 0;
};

std::string escape(const std::string& text)
{
    std::string out;
    for (const char c : text) {
        if (c == '\\')
            out += "\\\\";
        else if (c == '\n')
            out += "\\n";
        else if (c == '\r')
            out += "\\r";
        else
            out += c;
    }
    return out;
}

std::string unescape(const std::string& text)
{
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            out += text[i];
            continue;
        }
        const char c = text[++i];
        out += c == 'n' ? '\n' : c == 'r' ? '\r' : c;
    }
    return out;
}

bool writeAll(int fd, const std::string& text)
{
    std::size_t done = 0;
    while (done < text.size()) {
        const ssize_t n = ::write(fd, text.data() + done, text.size() - done);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return false;
        done += static_cast<std::size_t>(n);
    }
    return true;
}

bool readWhole(const std::string& path, std::string& text)
{
    std::ifstream in(path, std::ios::binary);
    if (!in)
        return false;
    std::ostringstream s;
    s << in.rdbuf();
    text = std::move(s).str();
    return !in.bad();
}

// The body of a worker: checks its share of the files from `from` on and
// reports each verdict on `fd`. Never returns.
[[noreturn]] void workerMain(const RunPlan& plan, std::size_t stride, Item from, int fd)
{
    for (std::size_t f = from.file; f < plan.files.size(); f += stride) {
        std::string text;
        const bool readable = readWhole(plan.files[f], text);
        for (std::size_t s = f == from.file ? from.scheme : 0; s < plan.schemes.size(); ++s) {
            if (!writeAll(fd, "B " + std::to_string(f) + " " + std::to_string(s) + "\n"))
                ::_exit(3);
            Verdict v;
            if (readable)
                v = checkFile(text, plan.schemes[s], plan.format);
            else
                v.detail = "cannot be read";
            const std::string flags = {v.parsed ? '1' : '0',      v.tokensKept ? '1' : '0',  v.stable ? '1' : '0',
                                       v.identical ? '1' : '0',   v.crashed ? '1' : '0',     v.stillParses ? '1' : '0',
                                       v.pairingKept ? '1' : '0'};
            if (!writeAll(fd, "R " + std::to_string(f) + " " + std::to_string(s) + " " + flags + " "
                                  + escape(v.detail) + "\n"))
                ::_exit(3);
        }
    }
    writeAll(fd, "E\n");
    ::_exit(0);
}

std::string signalText(int status)
{
    if (WIFSIGNALED(status)) {
        const int sig = WTERMSIG(status);
        const char* name = ::strsignal(sig);
        return "killed by signal " + std::to_string(sig) + (name ? std::string(" (") + name + ")" : std::string());
    }
    if (WIFEXITED(status))
        return "worker exited with status " + std::to_string(WEXITSTATUS(status));
    return "worker ended";
}

class Supervisor {
public:
    Supervisor(const RunPlan& plan, const VerdictSink& sink) : m_plan(plan), m_sink(sink) {}

    bool run(std::string& error)
    {
        const std::size_t jobs = static_cast<std::size_t>(std::max(1, m_plan.jobs));
        m_workers.resize(std::min(jobs, std::max<std::size_t>(m_plan.files.size(), 1)));
        m_stride = m_workers.size();
        for (std::size_t w = 0; w < m_workers.size(); ++w)
            if (!start(w, Item{w, 0})) {
                error = std::string("cannot start a worker: ") + std::strerror(errno);
                return false;
            }
        while (anyActive())
            step();
        return true;
    }

private:
    struct Worker {
        pid_t pid = -1;
        int fd = -1;
        std::string buffer;
        bool busy = false;      // between "B" and "R"
        Item current;           // of the last "B"
        Item resume;            // where a new worker would go on
        bool progressed = false;
        bool ended = false;     // "E" seen
        Clock::time_point deadline;
    };

    bool anyActive() const
    {
        for (const Worker& w : m_workers)
            if (w.fd >= 0)
                return true;
        return false;
    }

    Item after(Item item) const
    {
        if (item.scheme + 1 < m_plan.schemes.size())
            return {item.file, item.scheme + 1};
        return {item.file + m_stride, 0};
    }

    bool start(std::size_t index, Item from)
    {
        Worker& w = m_workers[index];
        w = Worker();
        w.resume = from;
        if (from.file >= m_plan.files.size())
            return true; // nothing left for this worker
        int fds[2];
        if (::pipe(fds) != 0)
            return false;
        std::cout.flush();
        std::cerr.flush();
        const pid_t pid = ::fork();
        if (pid < 0) {
            ::close(fds[0]);
            ::close(fds[1]);
            return false;
        }
        if (pid == 0) {
            ::close(fds[0]);
            for (const Worker& other : m_workers)
                if (other.fd >= 0)
                    ::close(other.fd);
            workerMain(m_plan, m_stride, from, fds[1]);
        }
        ::close(fds[1]);
        w.pid = pid;
        w.fd = fds[0];
        return true;
    }

    void step()
    {
        std::vector<pollfd> polls;
        std::vector<std::size_t> owners;
        for (std::size_t i = 0; i < m_workers.size(); ++i)
            if (m_workers[i].fd >= 0) {
                polls.push_back({m_workers[i].fd, POLLIN, 0});
                owners.push_back(i);
            }
        ::poll(polls.data(), polls.size(), 200);
        for (std::size_t k = 0; k < polls.size(); ++k)
            if (polls[k].revents & (POLLIN | POLLHUP | POLLERR))
                readFrom(owners[k]);
        const Clock::time_point now = Clock::now();
        for (std::size_t i = 0; i < m_workers.size(); ++i) {
            Worker& w = m_workers[i];
            if (w.fd >= 0 && w.busy && now > w.deadline) {
                ::kill(w.pid, SIGKILL);
                Verdict hung;
                hung.hung = true;
                hung.detail = "no result within " + std::to_string(static_cast<long>(m_plan.timeoutSeconds))
                    + " s; the worker was killed";
                finish(i, &hung);
            }
        }
    }

    void readFrom(std::size_t index)
    {
        Worker& w = m_workers[index];
        char chunk[1 << 14];
        const ssize_t n = ::read(w.fd, chunk, sizeof chunk);
        if (n < 0 && errno == EINTR)
            return;
        if (n <= 0) {
            finish(index, nullptr);
            return;
        }
        w.buffer.append(chunk, static_cast<std::size_t>(n));
        for (std::size_t end; (end = w.buffer.find('\n')) != std::string::npos;) {
            const std::string line = w.buffer.substr(0, end);
            w.buffer.erase(0, end + 1);
            handleLine(w, line);
        }
    }

    void handleLine(Worker& w, const std::string& line)
    {
        std::istringstream in(line);
        char kind = 0;
        Item item;
        in >> kind;
        if (kind == 'E') {
            w.ended = true;
            return;
        }
        in >> item.file >> item.scheme;
        if (kind == 'B') {
            w.busy = true;
            w.current = item;
            w.progressed = true;
            w.deadline = Clock::now()
                + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(m_plan.timeoutSeconds));
            return;
        }
        std::string flags;
        in >> flags;
        std::string detail;
        std::getline(in, detail);
        if (kind != 'R' || flags.size() != 7)
            return;
        Verdict v;
        v.parsed = flags[0] == '1';
        v.tokensKept = flags[1] == '1';
        v.stable = flags[2] == '1';
        v.identical = flags[3] == '1';
        v.crashed = flags[4] == '1';
        v.stillParses = flags[5] == '1';
        v.pairingKept = flags[6] == '1';
        v.detail = unescape(detail.empty() ? detail : detail.substr(1));
        m_sink(item.file, item.scheme, v);
        w.busy = false;
        w.resume = after(item);
    }

    // The worker's pipe is done: it ended, died, or was killed for a hang
    // (`lost` then says so). A worker that stopped before its end is
    // replaced behind the item it was on.
    void finish(std::size_t index, const Verdict* lost)
    {
        Worker& w = m_workers[index];
        ::close(w.fd);
        w.fd = -1;
        int status = 0;
        while (::waitpid(w.pid, &status, 0) < 0 && errno == EINTR) {
        }
        if (w.ended && !lost && WIFEXITED(status) && WEXITSTATUS(status) == 0)
            return;
        Item from = w.resume;
        if (w.busy) {
            Verdict v;
            if (lost) {
                v = *lost;
            } else {
                v.crashed = true;
                v.detail = signalText(status);
            }
            m_sink(w.current.file, w.current.scheme, v);
            from = after(w.current);
        } else if (!w.progressed) {
            std::cerr << "tw-invariants: a worker ended before its first file (" << signalText(status)
                      << "); its files are left out\n";
            return;
        }
        if (!start(index, from))
            std::cerr << "tw-invariants: cannot start a worker: " << std::strerror(errno)
                      << "; its remaining files are left out\n";
    }

    const RunPlan& m_plan;
    const VerdictSink& m_sink;
    std::vector<Worker> m_workers;
    std::size_t m_stride = 1;
};

} // namespace

bool runPlan(const RunPlan& plan, const VerdictSink& sink, std::string& error)
{
    if (plan.files.empty() || plan.schemes.empty())
        return true;
    return Supervisor(plan, sink).run(error);
}

} // namespace Tools
