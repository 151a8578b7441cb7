// Replacing a file's contents so that a failure or a kill at any moment
// leaves either the old file or the new one, never a mix or nothing.
//
// Steps: a temporary file is made in the target's own directory (so the
// rename stays within one file system), the bytes are written and flushed to
// the disk, the old file's permission bits and, where this process may, its
// owner and group are put on it, and it is renamed over the target; then the
// directory is flushed. A path that is a symbolic link is resolved first: its
// target gets the new contents and the link stays a link. On any failure the
// temporary file is removed and the target is as it was.
//
// Invariants:
//   1. The target is touched only by the final rename.
//   2. When `expected` is given, the rename happens only while the target's
//      size and modification time still equal it (a file edited meanwhile is
//      not overwritten).
#ifndef APP_SAFEWRITE_H
#define APP_SAFEWRITE_H

#include <ctime>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>

namespace App {

// What identifies one version of a file on disk.
struct FileStamp {
    dev_t device = 0;
    ino_t inode = 0;
    off_t size = 0;
    timespec modified{};
    bool sameVersion(const FileStamp& other) const;
};

// The stamp of the file at `path` (following links); nullopt when it cannot be read.
std::optional<FileStamp> stampOf(const std::string& path);

// The steps of a write, in order, for the test seam.
enum class WriteStep { RESOLVE, CREATE, WRITE, SYNC, ATTRIBUTES, CLOSE, CHECK, RENAME };

struct SafeWriteOptions {
    // Write through a symbolic link to its target (the link stays). When
    // false, a link at `path` is replaced by the new file.
    bool followLinks = true;
    // Take permission bits and owner from this file instead of the one replaced.
    std::string attributesFrom;
    // Rename only while the target still has this stamp.
    std::optional<FileStamp> expected;
    // Test seam: called before each step; a non-zero errno value makes the
    // step fail as if the system had returned it.
    std::function<int(WriteStep)> fault;
};

struct SafeWriteResult {
    bool ok = false;
    bool changedMeanwhile = false; // the target no longer matched `expected`
    std::string reason;            // why it failed, for the user: "No space left on device"
};

// Replaces the contents of `path` (made when missing) by `bytes`.
SafeWriteResult writeFileSafely(const std::string& path, std::string_view bytes, const SafeWriteOptions& options = {});

// The file that `path` stands for: the final target of a symbolic link, else
// `path` itself. False when the link leads nowhere.
bool resolveTarget(const std::string& path, std::string& target);

} // namespace App

#endif
