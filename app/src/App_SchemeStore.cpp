// The scheme directory, the built-in schemes and the choice of a scheme.
#include "App_SchemeStore.h"

#include "KemptUI_PropertySetStore.h"
#include "KemptUI_SchemeConversion.h"
#include "KemptUI_Trace.h"
#include "KemptUI_UserTexts.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <sstream>
#include <vector>

#if !defined(_WIN32)
#include <pwd.h>
#include <unistd.h>
#endif

// Set by the build: the program's version, the schemes of the source tree, and
// the installed schemes' directory relative to the installed program's.
#ifndef TW_PROGRAM_VERSION
#error "TW_PROGRAM_VERSION must be defined by the build"
#endif
#ifndef TW_SOURCE_SCHEME_DIR
#error "TW_SOURCE_SCHEME_DIR must be defined by the build"
#endif
#ifndef TW_SCHEME_DIR_FROM_BIN
#error "TW_SCHEME_DIR_FROM_BIN must be defined by the build"
#endif

namespace App {

namespace fs = std::filesystem;

namespace {

// A variable's value, or "" when it is not set.
std::string environment(const char* name)
{
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::string homeDirectory()
{
    const std::string home = environment("HOME");
    if (!home.empty())
        return home;
#if !defined(_WIN32)
    if (const passwd* entry = ::getpwuid(::getuid()); entry && entry->pw_dir)
        return entry->pw_dir;
#endif
    return "";
}

fs::path executableDirectory()
{
    std::error_code ec;
    const fs::path self = fs::read_symlink("/proc/self/exe", ec);
    return ec ? fs::path() : self.parent_path();
}

bool isDirectory(const fs::path& path)
{
    std::error_code ec;
    return !path.empty() && fs::is_directory(path, ec);
}

// "1.3.0" -> {1, 3, 0}; false for anything that is not three numbers joined
// by points. A stamp is user-reachable data, so this is a value, not a contract.
bool parseVersion(const std::string& text, std::vector<long>& numbers)
{
    std::istringstream in(text);
    numbers.assign(3, 0);
    char dot1 = 0;
    char dot2 = 0;
    in >> numbers[0] >> dot1 >> numbers[1] >> dot2 >> numbers[2];
    return in && dot1 == '.' && dot2 == '.';
}

// True when the stamp is missing, unreadable, or names a version before `version`.
bool stampIsOlder(const fs::path& stamp, const std::string& version)
{
    std::ifstream in(stamp);
    std::string text;
    std::vector<long> found;
    std::vector<long> running;
    if (!std::getline(in, text) || !parseVersion(text, found) || !parseVersion(version, running))
        return true;
    return found < running;
}

// The built-in schemes in `from`, by file name.
std::vector<std::string> schemeFilesIn(const fs::path& from)
{
    std::vector<std::string> names;
    std::error_code ec;
    for (fs::directory_iterator it(from, ec), end; !ec && it != end; it.increment(ec)) {
        std::error_code typeError;
        const std::string name = it->path().filename().string();
        if (name.size() > KemptUI::PropertySetStore::EXTENSION.size()
            && name.ends_with(KemptUI::PropertySetStore::EXTENSION) && it->is_regular_file(typeError))
            names.push_back(name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

// Copies `source` to `target` as a read-only file. The copy is made under a
// name that no listing matches and then renamed over the target, so that a
// reader never sees half a file and an old read-only copy is simply replaced.
bool copyReadOnly(const fs::path& source, const fs::path& target, std::string& error)
{
    const fs::path partial = target.parent_path() / ("." + target.filename().string() + ".partial");
    std::error_code ec;
    fs::remove(partial, ec);
    ec.clear();
    fs::copy_file(source, partial, ec);
    if (!ec)
        fs::permissions(partial, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read,
                        fs::perm_options::replace, ec);
    if (!ec)
        fs::rename(partial, target, ec);
    if (ec) {
        std::error_code ignored;
        fs::remove(partial, ignored);
        error = "cannot install the built-in scheme '" + target.string() + "': " + ec.message();
        return false;
    }
    return true;
}

bool writeStamp(const fs::path& stamp, const std::string& version, std::string& error)
{
    std::ofstream out(stamp, std::ios_base::trunc);
    out << version << '\n';
    out.close();
    if (!out) {
        error = "cannot write '" + stamp.string() + "'";
        return false;
    }
    return true;
}

std::string availableSchemes(const KemptUI::PropertySetStore& store)
{
    if (store.empty())
        return "there are no schemes in " + store.path();
    std::stringstream names;
    listSchemes(store, names);
    std::string text = "available schemes:";
    for (std::string line; std::getline(names, line);)
        text += "\n  " + line;
    return text;
}

} // namespace

const char* programVersion()
{
    return TW_PROGRAM_VERSION;
}

std::string schemeDirectory(const std::string& override)
{
    if (!override.empty())
        return override;
    if (std::string dir = environment(SCHEME_DIR_VARIABLE); !dir.empty())
        return dir;
    // A relative XDG_DATA_HOME is invalid and ignored, as the base directory
    // rules ask.
    if (const fs::path data = environment("XDG_DATA_HOME"); data.is_absolute())
        return (data / "tidewright" / "schemes").string();
    const std::string home = homeDirectory();
    if (home.empty())
        return "";
    return (fs::path(home) / ".local" / "share" / "tidewright" / "schemes").string();
}

std::string builtInSchemeDirectory()
{
    const fs::path bin = executableDirectory();
    if (const fs::path installed = bin / TW_SCHEME_DIR_FROM_BIN; !bin.empty() && isDirectory(installed))
        return installed.lexically_normal().string();
    if (isDirectory(TW_SOURCE_SCHEME_DIR))
        return TW_SOURCE_SCHEME_DIR;
    return "";
}

bool installBuiltInSchemes(const std::string& from, const std::string& to, const std::string& version,
                           std::string& error)
{
    KemptUI::TraceScope trace("installBuiltInSchemes");
    if (from.empty())
        return true;
    trace.line("Built-in schemes in " + from);
    std::error_code ec;
    fs::create_directories(to, ec);
    if (ec) {
        error = "cannot create the scheme directory '" + to + "': " + ec.message();
        return false;
    }
    const fs::path stamp = fs::path(to) / BUILT_IN_STAMP;
    const bool refresh = stampIsOlder(stamp, version);
    for (const std::string& name : schemeFilesIn(from)) {
        const fs::path target = fs::path(to) / name;
        // Present: kept unless this is a newer program and the copy is ours (read-only).
        if (fs::exists(target, ec) && (!refresh || KemptUI::grantsWriteAccess(target.string())))
            continue;
        trace.line("Installing " + target.string());
        if (!copyReadOnly(fs::path(from) / name, target, error))
            return false;
    }
    return !refresh || writeStamp(stamp, version, error);
}

bool openSchemeStore(KemptUI::PropertySetStore& store, const std::string& builtInDir, std::string& notice,
                     std::string& error)
{
    if (store.path().empty()) {
        error = "no scheme directory: set HOME, " + std::string(SCHEME_DIR_VARIABLE) + " or --scheme-dir";
        return false;
    }
    if (!installBuiltInSchemes(builtInDir, store.path(), programVersion(), error))
        return false;
    try {
        store.read();
        notice = KemptUI::convertSchemes(store);
    } catch (const KemptUI::PropertySetStore::ReadError& e) {
        error = KemptUI::readErrorText(e.path());
        return false;
    } catch (const KemptUI::PropertySetStore::WriteError& e) {
        error = schemeWriteErrorText(e.path());
        return false;
    }
    return true;
}

std::string schemeWriteErrorText(const std::string& file)
{
    return KemptUI::writeErrorText(file, fs::path(file).parent_path().string());
}

bool findScheme(const KemptUI::PropertySetStore& store, const std::string& name, Kempt::PropertySet& set,
                std::string& error)
{
    const auto entry = store.find(name);
    if (entry == store.end()) {
        error = "no scheme named '" + name + "'; " + availableSchemes(store);
        return false;
    }
    set = entry->second.set;
    return true;
}

bool selectScheme(const KemptUI::PropertySetStore& store, const std::string& name, Kempt::PropertySet& set,
                  std::string& error)
{
    return findScheme(store, name.empty() ? std::string(DEFAULT_SCHEME) : name, set, error);
}

void listSchemes(const KemptUI::PropertySetStore& store, std::ostream& out)
{
    for (const auto& [name, entry] : store)
        out << name << (entry.readOnly ? " (built-in)" : "") << '\n';
}

} // namespace App
