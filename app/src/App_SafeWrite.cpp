// Writing a file by way of a temporary file and a rename.
#include "App_SafeWrite.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <random>
#include <sys/stat.h>
#include <unistd.h>

namespace App {

namespace fs = std::filesystem;

namespace {

// The temporary file of one write: removed at the end of the scope unless it
// has been renamed into place.
class TempFileGuard {
public:
    ~TempFileGuard()
    {
        if (m_fd >= 0)
            ::close(m_fd);
        if (!m_path.empty())
            ::unlink(m_path.c_str());
    }
    void set(int fd, std::string path)
    {
        m_fd = fd;
        m_path = std::move(path);
    }
    int fd() const { return m_fd; }
    const std::string& path() const { return m_path; }
    // The descriptor is closed by the caller; a failed close is reported by it.
    int releaseFd()
    {
        const int fd = m_fd;
        m_fd = -1;
        return fd;
    }
    void renamed() { m_path.clear(); }

private:
    int m_fd = -1;
    std::string m_path;
};

std::string randomSuffix()
{
    static const char LETTERS[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    std::random_device device;
    std::uniform_int_distribution<int> pick(0, sizeof LETTERS - 2);
    std::string suffix(6, 'x');
    for (char& c : suffix)
        c = LETTERS[pick(device)];
    return suffix;
}

// Makes a new file ".NAME.tw-XXXXXX" beside `target`; mode 0600 when the
// target's bits will be copied onto it, else 0666 less the umask.
int createTemp(const fs::path& target, bool existing, std::string& tempPath)
{
    const fs::path dir = target.parent_path().empty() ? fs::path(".") : target.parent_path();
    for (int attempt = 0; attempt < 100; ++attempt) {
        tempPath = (dir / ("." + target.filename().string() + ".tw-" + randomSuffix())).string();
        const int fd = ::open(tempPath.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, existing ? 0600 : 0666);
        if (fd >= 0 || errno != EEXIST)
            return fd;
    }
    return -1;
}

bool writeAll(int fd, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t n = ::write(fd, bytes.data(), bytes.size());
        if (n < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(n));
    }
    return true;
}

// The old file's owner, group and permission bits onto the new one. The
// owner only where this process may give it (root, or the owner itself for
// the group); the bits always, and after the owner, which would clear set-id bits.
bool copyAttributes(int fd, const struct stat& old)
{
    if (old.st_uid != ::geteuid() || old.st_gid != ::getegid()) {
        if (::fchown(fd, old.st_uid, old.st_gid) != 0) {
            const int ignored = ::fchown(fd, static_cast<uid_t>(-1), old.st_gid);
            (void)ignored;
        }
    }
    return ::fchmod(fd, old.st_mode & 07777) == 0;
}

void syncDirectory(const fs::path& target)
{
    const fs::path dir = target.parent_path().empty() ? fs::path(".") : target.parent_path();
    const int fd = ::open(dir.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd >= 0) {
        ::fsync(fd);
        ::close(fd);
    }
}

FileStamp stampFrom(const struct stat& st)
{
    FileStamp s;
    s.device = st.st_dev;
    s.inode = st.st_ino;
    s.size = st.st_size;
    s.modified = st.st_mtim;
    return s;
}

} // namespace

bool FileStamp::sameVersion(const FileStamp& other) const
{
    return device == other.device && inode == other.inode && size == other.size
        && modified.tv_sec == other.modified.tv_sec && modified.tv_nsec == other.modified.tv_nsec;
}

std::optional<FileStamp> stampOf(const std::string& path)
{
    struct stat st {};
    if (::stat(path.c_str(), &st) != 0)
        return std::nullopt;
    return stampFrom(st);
}

bool resolveTarget(const std::string& path, std::string& target)
{
    struct stat st {};
    if (::lstat(path.c_str(), &st) != 0 || !S_ISLNK(st.st_mode)) {
        target = path;
        return true;
    }
    char* resolved = ::realpath(path.c_str(), nullptr);
    if (!resolved)
        return false;
    target = resolved;
    std::free(resolved);
    return true;
}

SafeWriteResult writeFileSafely(const std::string& path, std::string_view bytes, const SafeWriteOptions& options)
{
    SafeWriteResult result;
    auto failed = [&](int error) {
        result.reason = std::strerror(error);
        return result;
    };
    auto faultAt = [&](WriteStep step) { return options.fault ? options.fault(step) : 0; };

    std::string targetText;
    if (int e = faultAt(WriteStep::RESOLVE))
        return failed(e);
    if (!options.followLinks) {
        targetText = path;
    } else if (!resolveTarget(path, targetText)) {
        result.reason = "it is a symbolic link that leads nowhere";
        return result;
    }
    const fs::path target(targetText);
    struct stat old {};
    const bool existing = options.attributesFrom.empty() ? ::stat(target.c_str(), &old) == 0
                                                         : ::stat(options.attributesFrom.c_str(), &old) == 0;

    TempFileGuard temp;
    std::string tempPath;
    if (int e = faultAt(WriteStep::CREATE))
        return failed(e);
    const int fd = createTemp(target, existing, tempPath);
    if (fd < 0)
        return failed(errno);
    temp.set(fd, tempPath);

    if (int e = faultAt(WriteStep::WRITE))
        return failed(e);
    if (!writeAll(temp.fd(), bytes))
        return failed(errno);
    if (int e = faultAt(WriteStep::SYNC))
        return failed(e);
    if (::fsync(temp.fd()) != 0)
        return failed(errno);
    if (int e = faultAt(WriteStep::ATTRIBUTES))
        return failed(e);
    if (existing && !copyAttributes(temp.fd(), old))
        return failed(errno);
    if (int e = faultAt(WriteStep::CLOSE))
        return failed(e);
    if (::close(temp.releaseFd()) != 0)
        return failed(errno);

    if (int e = faultAt(WriteStep::CHECK))
        return failed(e);
    if (options.expected) {
        const std::optional<FileStamp> now = stampOf(target.string()); // follows links, as the read did
        if (!now || !now->sameVersion(*options.expected)) {
            result.changedMeanwhile = true;
            result.reason = now ? "the file changed on disk while it was being formatted"
                                : "the file vanished while it was being formatted";
            return result;
        }
    }
    if (int e = faultAt(WriteStep::RENAME))
        return failed(e);
    if (::rename(tempPath.c_str(), target.c_str()) != 0)
        return failed(errno);
    temp.renamed();
    syncDirectory(target);
    result.ok = true;
    return result;
}

} // namespace App
