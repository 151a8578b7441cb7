// Listing a directory in name order and deciding, entry by entry, what the
// walk passes over.
#include "App_FolderWalk.h"

#include "App_FileJob.h"
#include "App_ProgramFiles.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <memory>
#include <sys/stat.h>

namespace App {

namespace {

struct DirCloser {
    void operator()(DIR* dir) const { ::closedir(dir); }
};

// The names in `path` in byte order, "." and ".." left out; false and
// `reason` when it cannot be listed.
bool listNames(const std::string& path, std::vector<std::string>& names, std::string& reason)
{
    std::unique_ptr<DIR, DirCloser> dir(::opendir(path.c_str()));
    if (!dir) {
        reason = std::strerror(errno);
        return false;
    }
    errno = 0;
    while (const dirent* entry = ::readdir(dir.get())) {
        const std::string name = entry->d_name;
        if (name != "." && name != "..")
            names.push_back(name);
        errno = 0;
    }
    if (errno != 0) {
        reason = std::strerror(errno);
        return false;
    }
    // std::string compares as unsigned bytes, the same on every system.
    std::sort(names.begin(), names.end());
    return true;
}

} // namespace

FolderWalk::Visitor::~Visitor() = default;

std::string joinPath(const std::string& directory, const std::string& name)
{
    if (directory.empty() || directory == ".")
        return name;
    if (directory.back() == '/')
        return directory + name;
    return directory + "/" + name;
}

FolderWalk::FolderWalk(std::string root, std::vector<std::string> extensions, std::vector<PathGlob> excludes)
    : m_root(std::move(root)), m_extensions(std::move(extensions)), m_excludes(std::move(excludes))
{
}

FolderWalk::End FolderWalk::run(Visitor& visitor) const
{
    return walkDirectory(m_root, "", visitor) ? End::COMPLETE : End::CANCELLED;
}

// False when the visitor cancelled.
bool FolderWalk::walkDirectory(const std::string& path, const std::string& relative, Visitor& visitor) const
{
    std::vector<std::string> names;
    std::string reason;
    if (!listNames(path, names, reason))
        visitor.unreadable(path, reason);
    for (const std::string& name : names) {
        if (visitor.cancelled())
            return false;
        if (name.front() == '.') // hidden
            continue;
        const std::string entryPath = joinPath(path, name);
        const std::string entryRelative = relative.empty() ? name : relative + "/" + name;
        struct stat info {};
        if (::lstat(entryPath.c_str(), &info) != 0)
            continue; // gone since it was listed
        if (S_ISDIR(info.st_mode)) {
            bool excluded = false;
            for (const PathGlob& glob : m_excludes)
                excluded = excluded || glob.matches(entryRelative, true);
            if (!excluded && !walkDirectory(entryPath, entryRelative, visitor))
                return false;
            continue;
        }
        if (!S_ISREG(info.st_mode)) // a link, device, FIFO or socket
            continue;
        if (!isFormattableFile(name, m_extensions) || !canWrite(entryPath))
            continue;
        bool excluded = false;
        for (const PathGlob& glob : m_excludes)
            excluded = excluded || glob.matches(entryRelative, false);
        if (!excluded)
            visitor.file(entryPath);
    }
    return !visitor.cancelled();
}

} // namespace App
