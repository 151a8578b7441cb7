// Reading a source file and recognising text the formatter must not take.
#include "App_SourceText.h"

#include <cctype>
#include <cerrno>
#include <charconv>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace App {

namespace {

// Closes the descriptor at the end of the scope.
class FdGuard {
public:
    explicit FdGuard(int fd) : m_fd(fd) {}
    ~FdGuard()
    {
        if (m_fd >= 0)
            ::close(m_fd);
    }
    FdGuard(const FdGuard&) = delete;
    FdGuard& operator=(const FdGuard&) = delete;
    int fd() const { return m_fd; }

private:
    int m_fd;
};

bool startsWith(std::string_view text, std::string_view prefix)
{
    return text.substr(0, prefix.size()) == prefix;
}

} // namespace

std::string wideEncoding(std::string_view text)
{
    using namespace std::string_view_literals;
    // UTF-32LE first: its mark begins with the UTF-16LE one.
    if (startsWith(text, "\xFF\xFE\x00\x00"sv))
        return "UTF-32LE";
    if (startsWith(text, "\x00\x00\xFE\xFF"sv))
        return "UTF-32BE";
    if (startsWith(text, "\xFF\xFE"sv))
        return "UTF-16LE";
    if (startsWith(text, "\xFE\xFF"sv))
        return "UTF-16BE";
    return "";
}

std::optional<std::size_t> nulOffset(std::string_view text)
{
    const std::size_t at = text.find('\0');
    if (at == std::string_view::npos)
        return std::nullopt;
    return at;
}

std::string fileKind(const std::string& path)
{
    struct stat st {};
    if (::stat(path.c_str(), &st) != 0 || S_ISREG(st.st_mode))
        return "";
    if (S_ISDIR(st.st_mode))
        return "a directory";
    if (S_ISFIFO(st.st_mode))
        return "a FIFO";
    if (S_ISCHR(st.st_mode) || S_ISBLK(st.st_mode))
        return "a device";
    if (S_ISSOCK(st.st_mode))
        return "a socket";
    return "not a regular file";
}

SourceRead readSource(const std::string& path, std::uint64_t limit)
{
    SourceRead read;
    // Non-blocking, so that a FIFO put in the file's place cannot hang the job.
    FdGuard file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
    struct stat st {};
    if (file.fd() < 0 || ::fstat(file.fd(), &st) != 0) {
        read.error = errno;
        return read;
    }
    if (!S_ISREG(st.st_mode)) {
        read.error = EINVAL;
        return read;
    }
    read.stamp.device = st.st_dev;
    read.stamp.inode = st.st_ino;
    read.stamp.size = st.st_size;
    read.stamp.modified = st.st_mtim;
    if (static_cast<std::uint64_t>(st.st_size) > limit) {
        read.tooLarge = true;
        return read;
    }
    read.bytes.reserve(static_cast<std::size_t>(st.st_size));
    char buffer[1 << 16];
    for (;;) {
        const ssize_t n = ::read(file.fd(), buffer, sizeof buffer);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            read.error = errno;
            return read;
        }
        if (n == 0)
            break;
        read.bytes.append(buffer, static_cast<std::size_t>(n));
        if (read.bytes.size() > limit) {
            read.tooLarge = true;
            return read;
        }
    }
    read.ok = true;
    return read;
}

std::string sizeText(std::uint64_t bytes)
{
    static const char* const UNITS[] = {"GiB", "MiB", "KiB"};
    std::uint64_t unit = 1ull << 30;
    for (const char* name : UNITS) {
        if (bytes >= unit && bytes % unit == 0)
            return std::to_string(bytes / unit) + " " + name;
        unit >>= 10;
    }
    return std::to_string(bytes) + (bytes == 1 ? " byte" : " bytes");
}

bool parseSize(const std::string& text, std::uint64_t& bytes)
{
    std::uint64_t value = 0;
    const char* end = text.data() + text.size();
    const auto [ptr, ec] = std::from_chars(text.data(), end, value);
    if (ec != std::errc() || ptr == text.data())
        return false;
    std::string suffix(ptr, end);
    for (char& c : suffix)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    std::uint64_t factor = 1;
    if (suffix.empty() || suffix == "B")
        factor = 1;
    else if (suffix == "K" || suffix == "KB" || suffix == "KIB")
        factor = 1ull << 10;
    else if (suffix == "M" || suffix == "MB" || suffix == "MIB")
        factor = 1ull << 20;
    else if (suffix == "G" || suffix == "GB" || suffix == "GIB")
        factor = 1ull << 30;
    else
        return false;
    if (value > UINT64_MAX / factor)
        return false;
    bytes = value * factor;
    return true;
}

} // namespace App
