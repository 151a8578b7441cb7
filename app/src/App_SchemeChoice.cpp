// Choosing the scheme of a file.
#include "App_SchemeChoice.h"

#include "App_SchemeFile.h"
#include "App_SchemeStore.h"

#include <filesystem>

namespace App {

namespace fs = std::filesystem;

namespace {

fs::path startDirectory(const std::string& path)
{
    std::error_code ec;
    if (path.empty())
        return fs::current_path(ec);
    fs::path absolute = fs::absolute(path, ec).lexically_normal();
    if (fs::is_directory(absolute, ec))
        return absolute;
    return absolute.parent_path();
}

} // namespace

std::string findProjectScheme(const std::string& directory)
{
    std::error_code ec;
    fs::path dir = fs::path(directory).lexically_normal();
    for (;;) {
        const fs::path candidate = dir / PROJECT_SCHEME_FILE;
        if (fs::is_regular_file(candidate, ec))
            return candidate.string();
        if (!dir.has_parent_path() || dir.parent_path() == dir)
            return "";
        dir = dir.parent_path();
    }
}

SchemeChooser::SchemeChooser(SchemeRequest request) : m_request(std::move(request))
{
}

bool SchemeChooser::openStore(std::string& error)
{
    if (m_store) {
        error = m_storeError;
        return !m_storeFailed;
    }
    m_store = std::make_unique<KemptUI::PropertySetStore>(schemeDirectory(m_request.schemeDirectory));
    std::string notice;
    if (!openSchemeStore(*m_store, m_request.builtInDirectory, notice, m_storeError)) {
        m_storeFailed = true;
        error = m_storeError;
        return false;
    }
    if (!notice.empty())
        m_notices.push_back(notice);
    return true;
}

bool SchemeChooser::loadFile(const std::string& file, Kempt::PropertySet& set, std::string& error)
{
    if (auto it = m_files.find(file); it != m_files.end()) {
        set = it->second;
        return true;
    }
    std::string notice;
    if (!loadSchemeFile(file, set, notice, error))
        return false;
    if (!notice.empty())
        m_notices.push_back(notice);
    m_files[file] = set;
    return true;
}

bool SchemeChooser::choose(const std::string& path, SchemeChoice& choice, std::string& error)
{
    choice = SchemeChoice{};
    if (!m_request.schemeFile.empty()) {
        choice.source = SchemeSource::OPTION_FILE;
        choice.file = m_request.schemeFile;
        return loadFile(m_request.schemeFile, choice.set, error);
    }
    if (!m_request.schemeName.empty()) {
        choice.source = SchemeSource::OPTION_NAME;
        return openStore(error) && findScheme(*m_store, m_request.schemeName, choice.set, error);
    }
    const std::string dir = startDirectory(path).string();
    auto known = m_projectByDir.find(dir);
    if (known == m_projectByDir.end())
        known = m_projectByDir.emplace(dir, findProjectScheme(dir)).first;
    if (!known->second.empty()) {
        choice.source = SchemeSource::PROJECT_FILE;
        choice.file = known->second;
        return loadFile(known->second, choice.set, error);
    }
    if (!openStore(error))
        return false;
    if (!m_request.onFormat.empty()) {
        if (m_store->count(m_request.onFormat)) {
            choice.source = SchemeSource::SETTINGS;
            return findScheme(*m_store, m_request.onFormat, choice.set, error);
        }
        choice.note = "the setting StandaloneOnFormat names the scheme '" + m_request.onFormat
            + "', which the scheme directory does not hold; it is ignored";
    }
    choice.source = SchemeSource::DEFAULT;
    return selectScheme(*m_store, "", choice.set, error);
}

std::vector<std::string> SchemeChooser::takeNotices()
{
    std::vector<std::string> notices;
    notices.swap(m_notices);
    return notices;
}

std::string explainChoice(const SchemeChoice& choice, const SchemeRequest& request, const std::string& storePath)
{
    std::string text = "scheme: " + choice.set.name() + "\n";
    switch (choice.source) {
    case SchemeSource::OPTION_FILE:
        text += "file: " + choice.file + "\nreason: named by --scheme-file\n";
        break;
    case SchemeSource::OPTION_NAME:
        text += "directory: " + storePath + "\nreason: named by --scheme\n";
        break;
    case SchemeSource::PROJECT_FILE:
        text += "file: " + choice.file + "\nreason: the nearest " + PROJECT_SCHEME_FILE
            + " in the file's directory or above it\n";
        break;
    case SchemeSource::SETTINGS:
        text += "directory: " + storePath + "\nreason: the setting StandaloneOnFormat in " + request.settingsPath + "\n";
        break;
    case SchemeSource::DEFAULT:
        text += "directory: " + storePath + "\nreason: no scheme option, no " + std::string(PROJECT_SCHEME_FILE)
            + " above the file and no usable StandaloneOnFormat setting: the default scheme\n";
        break;
    }
    if (!choice.note.empty())
        text += "note: " + choice.note + "\n";
    return text;
}

} // namespace App
