// The scheme store: listing, reading and writing the scheme directory, and
// the file names of new schemes.
#include "KemptUI_PropertySetStore.h"

#include "KemptUI_Trace.h"
#include "Varnel_LineBuf.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <ostream>

#if !defined(_WIN32)
#include <fcntl.h>
#include <unistd.h>
#endif

namespace KemptUI {

namespace fs = std::filesystem;

namespace {

// Longer names are cut before the extension goes on. The test is against 256
// and the cut at 260, so names of 257 to 260 characters stay whole.
constexpr std::size_t LONG_NAME = 256;
constexpr std::size_t CUT_LENGTH = 260;

bool endsWith(const std::string& text, const std::string& tail)
{
    return text.size() >= tail.size() && text.compare(text.size() - tail.size(), tail.size(), tail) == 0;
}

// Replaces each of `characters` in `text` by an underscore.
void replaceEach(std::string& text, std::string_view characters)
{
    std::replace_if(text.begin(), text.end(), [&](char c) { return characters.find(c) != std::string_view::npos; },
                    '_');
}

// Replaces every "..", left to right without overlap, by "_": "a...b" -> "a_.b".
void replacePairsOfDots(std::string& text)
{
    for (std::size_t at = text.find(".."); at != std::string::npos; at = text.find("..", at + 1))
        text.replace(at, 2, "_");
}

// Steps 1 to 5 of a new scheme's file name: long names are cut, the
// extension goes on, and characters that a file name cannot hold become
// underscores: "a/b:c" -> "a_b_c.tws".
std::string plainFilename(const std::string& name)
{
    std::string candidate = name.size() > LONG_NAME ? name.substr(0, CUT_LENGTH) : name;
    candidate += PropertySetStore::EXTENSION;
    replaceEach(candidate, "<>:\\/|");
    replacePairsOfDots(candidate);
    replaceEach(candidate, "?");
    return candidate;
}

// Overwrites the last characters of `candidate` with the decimal digits of n,
// keeping its length: "Plain.tws", 1 -> "Plain.tw1"; 10 -> "Plain.t10".
void stampNumber(std::string& candidate, int n)
{
    const std::string digits = std::to_string(n);
    if (digits.size() >= candidate.size()) {
        candidate = digits;
        return;
    }
    candidate.replace(candidate.size() - digits.size(), digits.size(), digits);
}

// A file of the store that is no longer wanted. One that this user may not
// write is left alone, as the read-only mark protects it; a failure to delete
// is traced and otherwise ignored.
void deleteFile(const TraceScope& trace, const std::string& full)
{
    trace.line("Deleting " + full);
    std::error_code ec;
    if (!grantsWriteAccess(full) || !fs::remove(full, ec) || ec)
        trace.line("Could not successfully delete PropertySet file " + full);
}

void writeFile(const std::string& full, const Kempt::PropertySet& set)
{
    std::ofstream file(full, std::ios_base::binary | std::ios_base::out | std::ios_base::trunc);
    if (!file.is_open())
        throw PropertySetStore::WriteError(full);
    const bool written = writeSchemeText(file, set);
    file.close();
    if (!written || file.fail() || file.bad())
        throw PropertySetStore::WriteError(full);
}

} // namespace

// ---------------------------------------------------------------------------
// Write access.

// "Write access" is asked of the file itself: may this user open it for
// writing? Two tests, both needed:
//   1. The mode grants write permission to someone. A built-in scheme is
//      installed with mode 0444; root's access(2) would still say yes to it,
//      so the mode is what keeps it read-only for root as well.
//   2. access(2) with the effective ids says this user may write it, which
//      covers owner, group and other bits, ACLs and read-only file systems.
bool grantsWriteAccess(const std::string& path)
{
    std::error_code ec;
    const fs::file_status status = fs::status(path, ec);
    if (ec || !fs::exists(status))
        return false;
    const fs::perms anyWrite = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    if ((status.permissions() & anyWrite) == fs::perms::none)
        return false;
#if defined(_WIN32)
    return true;
#else
    return ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
#endif
}

bool writeSchemeText(std::ostream& out, const Kempt::PropertySet& set)
{
    {
        Varnel::LineBuf crlf(out.rdbuf(), Varnel::LineBuf::CRLF);
        std::ostream lines(&crlf);
        set.write(lines);
        lines.flush();
        if (!lines)
            out.setstate(std::ios_base::badbit);
    }
    return static_cast<bool>(out);
}

// ---------------------------------------------------------------------------
// The store.

PropertySetStore::PropertySetStore(std::string path) : m_path(std::move(path))
{
    if (!m_path.empty() && m_path.back() != fs::path::preferred_separator)
        m_path += static_cast<char>(fs::path::preferred_separator);
}

std::vector<std::string> PropertySetStore::findPSFiles() const
{
    TraceScope trace("PropertySetStore::findPSFiles");
    std::vector<std::string> names;
    if (m_path.empty())
        return names;
    // Only regular files (or links to them) count: a directory named x.tws is
    // no scheme. The listing is sorted, so that every run sees one order.
    std::error_code ec;
    for (fs::directory_iterator it(m_path, ec), end; !ec && it != end; it.increment(ec)) {
        std::error_code typeError;
        const std::string name = it->path().filename().string();
        if (endsWith(name, EXTENSION) && it->is_regular_file(typeError) && !typeError)
            names.push_back(name);
    }
    std::sort(names.begin(), names.end());
    for (const std::string& name : names)
        trace.line("Found file " + name);
    return names;
}

void PropertySetStore::read()
{
    TraceScope trace("PropertySetStore::read");
    if (m_path.empty())
        return;
    Sets sets;
    Files files;
    for (const std::string& file : findPSFiles()) {
        const std::string full = m_path + file;
        trace.line("Reading " + full);
        std::ifstream in(full, std::ios_base::binary);
        Kempt::PropertySet set;
        set.read(in);
        if (in.fail() || in.bad())
            throw ReadError(full);
        const std::string name = set.name();
        // The first file read under a name is the entry; later ones only add rows.
        sets.emplace(name, SchemeEntry{!grantsWriteAccess(full), std::move(set)});
        files[file] = name;
    }
    m_sets.swap(sets);
    m_files.swap(files);
}

void PropertySetStore::write()
{
    TraceScope trace("PropertySetStore::write");
    if (m_path.empty())
        return;

    // 1. The files on disk, and the files of writable schemes (sorted, as map keys).
    const std::vector<std::string> onDisk = findPSFiles();
    std::vector<std::string> keep = filesToKeep(onDisk);

    // 2. Files that no writable scheme claims go.
    for (const std::string& file : onDisk)
        if (!std::binary_search(keep.begin(), keep.end(), file))
            deleteFile(trace, m_path + file);

    // 3. New files first, then those that are there already.
    std::vector<std::string> toWrite;
    for (const std::string& file : keep)
        if (!std::binary_search(onDisk.begin(), onDisk.end(), file))
            toWrite.push_back(file);
    for (const std::string& file : keep)
        if (std::binary_search(onDisk.begin(), onDisk.end(), file))
            toWrite.push_back(file);

    for (const std::string& file : toWrite) {
        const std::string full = m_path + file;
        trace.line("Writing " + full);
        writeFile(full, m_sets.at(m_files.at(file)).set);
    }
}

// The files that writable schemes claim, in byte order. A file on disk that
// this user may not write is never among them, whoever runs the program: it
// may be a built-in scheme that holds the same name as one of the user's
// (root could open it for writing all the same). A writable scheme left with
// no file of its own that it may write gets a new one.
std::vector<std::string> PropertySetStore::filesToKeep(const std::vector<std::string>& onDisk)
{
    const auto isOnDisk = [&](const std::string& file) { return std::binary_search(onDisk.begin(), onDisk.end(), file); };
    std::vector<std::string> keep;
    std::vector<std::string> homeless;
    for (const auto& [name, entry] : m_sets) {
        if (entry.readOnly)
            continue;
        bool housed = false;
        for (const auto& [file, owner] : m_files) {
            if (owner != name || (isOnDisk(file) && !grantsWriteAccess(m_path + file)))
                continue;
            keep.push_back(file);
            housed = true;
        }
        if (!housed)
            homeless.push_back(name);
    }
    for (const std::string& name : homeless) {
        const std::string file = freeFilename(name, onDisk);
        m_files[file] = name;
        keep.push_back(file);
    }
    std::sort(keep.begin(), keep.end());
    return keep;
}

// A file name for `name` that neither a row nor the directory holds, and that
// the next read finds again: "GNU.tws", then "GNU-1.tws", "GNU-2.tws", ...
std::string PropertySetStore::freeFilename(const std::string& name, const std::vector<std::string>& onDisk) const
{
    std::string candidate = plainFilename(name);
    const std::string stem = candidate.substr(0, candidate.size() - EXTENSION.size());
    for (int n = 1; m_files.count(candidate) != 0 || std::binary_search(onDisk.begin(), onDisk.end(), candidate); ++n)
        candidate = stem + "-" + std::to_string(n) + EXTENSION;
    TraceScope("PropertySetStore::freeFilename").line("New file for a scheme whose file is read-only: " + candidate);
    return candidate;
}

void PropertySetStore::insert(const Kempt::PropertySet& set)
{
    TraceScope trace("PropertySetStore::insert");
    m_files[validFilename(set.name())] = set.name();
    m_sets.emplace(set.name(), SchemeEntry{false, set});
}

// Erasing takes the scheme's file rows with it, so that a scheme inserted
// again under the same name gets its old file name back instead of a ".tw1"
// name, and write() deletes the old file.
void PropertySetStore::erase(const std::string& name)
{
    TraceScope trace("PropertySetStore::erase");
    const auto entry = m_sets.find(name);
    if (entry == m_sets.end())
        return;
    if (entry->second.readOnly) {
        trace.line("Not erasing read-only scheme " + name);
        return;
    }
    m_sets.erase(entry);
    std::erase_if(m_files, [&](const auto& row) { return row.second == name; });
}

bool PropertySetStore::replace(const Kempt::PropertySet& set)
{
    const auto entry = m_sets.find(set.name());
    if (entry == m_sets.end() || entry->second.readOnly)
        return false;
    entry->second.set = set;
    return true;
}

std::string PropertySetStore::validFilename(const std::string& name) const
{
    TraceScope trace("PropertySetStore::validFilename");
    // 1 to 5.
    std::string candidate = plainFilename(name);
    // 6. A name that a row holds already gets a number at its end: "Plain.tw1".
    for (int n = 1; m_files.count(candidate) != 0; ++n)
        stampNumber(candidate, n);
    trace.line("Calculated filename: " + candidate);
    return candidate;
}

} // namespace KemptUI
