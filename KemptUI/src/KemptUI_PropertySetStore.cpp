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
    std::vector<std::string> keep;
    for (const auto& [file, name] : m_files) {
        const auto entry = m_sets.find(name);
        if (entry != m_sets.end() && !entry->second.readOnly)
            keep.push_back(file);
    }

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
    // 1. Long names are cut.
    std::string candidate = name.size() > LONG_NAME ? name.substr(0, CUT_LENGTH) : name;
    // 2. The extension.
    candidate += EXTENSION;
    // 3 to 5. Characters that a file name cannot hold: "a/b:c" -> "a_b_c.tws".
    replaceEach(candidate, "<>:\\/|");
    replacePairsOfDots(candidate);
    replaceEach(candidate, "?");
    // 6. A name that a row holds already gets a number at its end: "Plain.tw1".
    for (int n = 1; m_files.count(candidate) != 0; ++n)
        stampNumber(candidate, n);
    trace.line("Calculated filename: " + candidate);
    return candidate;
}

} // namespace KemptUI
