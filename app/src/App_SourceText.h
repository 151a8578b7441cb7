// What makes a text unfit for the formatter before it is parsed: a NUL byte
// (a binary file), a UTF-16 or UTF-32 byte-order mark, or a size above the
// limit. And reading a file as bytes with its stamp, so that a later write can
// tell whether it changed meanwhile.
#ifndef APP_SOURCETEXT_H
#define APP_SOURCETEXT_H

#include "App_SafeWrite.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace App {

inline constexpr std::uint64_t DEFAULT_MAX_SIZE = 64ull * 1024 * 1024;

// "UTF-32LE", "UTF-32BE", "UTF-16LE", "UTF-16BE" by the text's byte-order
// mark; empty when it has none of these.
std::string wideEncoding(std::string_view text);

// The offset of the first NUL byte, if any.
std::optional<std::size_t> nulOffset(std::string_view text);

// "a directory", "a FIFO", "a device", "a socket"; empty for a regular file.
std::string fileKind(const std::string& path);

struct SourceRead {
    bool ok = false;
    bool tooLarge = false;  // grew past the limit while it was read
    int error = 0;          // errno of a failed open or read
    std::string bytes;
    FileStamp stamp;        // as the file was when it was opened
};

// Reads the whole file as bytes, refusing to read more than `limit`.
SourceRead readSource(const std::string& path, std::uint64_t limit);

// "64 MiB", "512 KiB", "100 bytes": a size for the user.
std::string sizeText(std::uint64_t bytes);

// Reads a size with an optional suffix K, M or G (powers of 1024, "KiB" and
// "MB" spellings too); false when it does not read.
bool parseSize(const std::string& text, std::uint64_t& bytes);

} // namespace App

#endif
