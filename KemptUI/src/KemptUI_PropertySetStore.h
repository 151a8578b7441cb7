// The scheme store: the in-memory image of one directory of scheme files
// (*.tws). It reads every scheme file at once, keeps the map from file name to
// scheme name, and writes all writable schemes back at once. A scheme whose
// file this user may not write is read-only: what the user calls built-in.
//
// Protocol of use:
//   PropertySetStore store(directory);  // touches no disk
//   store.read();                       // throws ReadError naming a corrupt file
//   ... count / find / insert / erase / replace, iterate ...
//   store.write();                      // throws WriteError naming the file
//
// Invariants:
//   1. path() is empty or ends in the platform's directory separator; an
//      empty path makes read() and write() do nothing.
//   2. No two entries share a scheme name; entries are in byte order of names.
//   3. files() maps file names (no directory) to the scheme name inside them;
//      several files may name one scheme, and then all are written with it.
//   4. write() never writes or deletes a file that this user may not write
//      (see grantsWriteAccess), even when a writable scheme names it: such a
//      scheme is written to its other files, or to a new one.
#ifndef KEMPTUI_PROPERTYSETSTORE_H
#define KEMPTUI_PROPERTYSETSTORE_H

#include "Kempt_PropertySet.h"

#include <iosfwd>
#include <map>
#include <string>
#include <vector>

namespace KemptUI {

struct SchemeEntry {
    bool readOnly = false; // the file could not be opened for writing when it was read
    Kempt::PropertySet set;
};

class PropertySetStore {
public:
    inline static const std::string EXTENSION = ".tws";

    // Failures that carry the full path of the file concerned.
    class ReadError {
    public:
        explicit ReadError(std::string path) : m_path(std::move(path)) {}
        const std::string& path() const { return m_path; }

    private:
        std::string m_path;
    };

    class WriteError {
    public:
        explicit WriteError(std::string path) : m_path(std::move(path)) {}
        const std::string& path() const { return m_path; }

    private:
        std::string m_path;
    };

    using Sets = std::map<std::string, SchemeEntry>;  // scheme name -> entry
    using Files = std::map<std::string, std::string>; // file name -> scheme name
    using const_iterator = Sets::const_iterator;

    explicit PropertySetStore(std::string path);

    // Loads the directory; one unreadable file fails it all and keeps the old content.
    void read();
    // Brings the directory in line with the store.
    void write();

    bool count(const std::string& name) const { return m_sets.count(name) != 0; }
    const_iterator find(const std::string& name) const { return m_sets.find(name); }
    // Adds a writable entry and a file for it. When the name is taken, the
    // existing entry stays and only the file map gains the new file's row.
    void insert(const Kempt::PropertySet& set);
    // Removes a writable scheme and its file rows; a read-only one stays.
    void erase(const std::string& name);
    // Puts `set` in place of the writable entry of the same name, keeping its
    // files; false (and no change) for an unknown or read-only name.
    bool replace(const Kempt::PropertySet& set);

    // The file names in the directory that match *.tws, in byte order.
    std::vector<std::string> findPSFiles() const;
    // A file name for a new scheme that no row of files() holds yet.
    std::string validFilename(const std::string& name) const;

    const std::string& path() const { return m_path; }
    const Files& files() const { return m_files; }
    const_iterator begin() const { return m_sets.begin(); }
    const_iterator end() const { return m_sets.end(); }
    std::size_t size() const { return m_sets.size(); }
    bool empty() const { return m_sets.empty(); }

private:
    std::vector<std::string> filesToKeep(const std::vector<std::string>& onDisk);
    std::string freeFilename(const std::string& name, const std::vector<std::string>& onDisk) const;

    std::string m_path;
    Sets m_sets;
    Files m_files;
};

// True when this user may open the file for writing. A file whose mode grants
// no write permission to anyone counts as read-only even for a user whom the
// system would let write it anyway (root): that mode is the read-only mark of
// a built-in scheme.
bool grantsWriteAccess(const std::string& path);

// A scheme as its file holds it, lines ending in CR LF. False when `out` failed.
bool writeSchemeText(std::ostream& out, const Kempt::PropertySet& set);

} // namespace KemptUI

#endif
