// Which scheme formats a file, first match wins:
//   1. a scheme named on the command line (--scheme, --scheme-file);
//   2. a project scheme: the file ".tidewright.tws" in the file's directory
//      or the nearest directory above it (checked into a repository);
//   3. the user's setting StandaloneOnFormat, when the scheme directory holds
//      a scheme of that name (else it is ignored);
//   4. the scheme "default".
// The scheme directory is opened only when a choice needs it, once.
//
// Protocol of use:
//   App::SchemeChooser chooser(request);
//   App::SchemeChoice choice;
//   if (!chooser.choose(path, choice, error)) -> tell `error` (usage error)
//   for (auto& n : chooser.takeNotices()) -> tell once (scheme conversion notes)
//   App::explainChoice(choice) -> for --print-effective-scheme
#ifndef APP_SCHEMECHOICE_H
#define APP_SCHEMECHOICE_H

#include "KemptUI_PropertySetStore.h"
#include "Kempt_PropertySet.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace App {

inline constexpr const char* PROJECT_SCHEME_FILE = ".tidewright.tws";

// The nearest project scheme file in `directory` or above it; empty when none.
std::string findProjectScheme(const std::string& directory);

enum class SchemeSource { OPTION_NAME, OPTION_FILE, PROJECT_FILE, SETTINGS, DEFAULT };

struct SchemeChoice {
    SchemeSource source = SchemeSource::DEFAULT;
    std::string file;    // the .tws file the scheme comes from, where there is one
    std::string note;    // why a setting was passed over, if one was
    Kempt::PropertySet set;
};

struct SchemeRequest {
    std::string schemeName;        // --scheme
    std::string schemeFile;        // --scheme-file
    std::string schemeDirectory;   // --scheme-dir (empty: the usual place)
    std::string onFormat;          // the setting StandaloneOnFormat
    std::string settingsPath;      // where that setting lives, for explanations
    std::string builtInDirectory;  // the built-in schemes to install
};

class SchemeChooser {
public:
    explicit SchemeChooser(SchemeRequest request);

    // The scheme for the file at `path`; an empty path means standard input
    // without a name, searched from the current directory.
    bool choose(const std::string& path, SchemeChoice& choice, std::string& error);

    // Notes of the scheme conversion, each given once.
    std::vector<std::string> takeNotices();

private:
    bool openStore(std::string& error);
    bool loadFile(const std::string& file, Kempt::PropertySet& set, std::string& error);

    SchemeRequest m_request;
    std::unique_ptr<KemptUI::PropertySetStore> m_store;
    bool m_storeFailed = false;
    std::string m_storeError;
    std::map<std::string, Kempt::PropertySet> m_files;   // scheme files read, by path
    std::map<std::string, std::string> m_projectByDir;   // directory -> project scheme file
    std::vector<std::string> m_notices;
};

// Lines for the user: "scheme: NAME", "file: PATH", "reason: ...", and a
// "note: ..." when a setting was passed over.
std::string explainChoice(const SchemeChoice& choice, const SchemeRequest& request, const std::string& storePath);

} // namespace App

#endif
