// The user's schemes as the batch front sees them: where the scheme directory
// lies, how the built-in schemes get into it, the start of a session on it
// (install, read, convert) and the choice of one scheme by name.
//
// Protocol of use, as the command line does it:
//   KemptUI::PropertySetStore store(App::schemeDirectory(optionDir));
//   std::string notice, error;
//   if (!App::openSchemeStore(store, App::builtInSchemeDirectory(), notice, error)) -> report error, stop
//   if (!notice.empty()) -> tell the user once
//   App::selectScheme(store, name, properties, error)
#ifndef APP_SCHEMESTORE_H
#define APP_SCHEMESTORE_H

#include "KemptUI_PropertySetStore.h"
#include "Kempt_PropertySet.h"

#include <iosfwd>
#include <string>

namespace App {

// The scheme used when none is named.
inline constexpr const char* DEFAULT_SCHEME = "default";
// Environment variables that place the user's scheme directory.
inline constexpr const char* SCHEME_DIR_VARIABLE = "TIDEWRIGHT_SCHEME_DIR";
// The file in the user's directory that records which program version last
// installed the built-in schemes there. It does not match *.tws.
inline constexpr const char* BUILT_IN_STAMP = ".builtin-version";

// The version of this program, such as "1.3.0".
const char* programVersion();

// The user's scheme directory: `override` when it is not empty; else
// $TIDEWRIGHT_SCHEME_DIR; else $XDG_DATA_HOME/tidewright/schemes (an absolute
// XDG_DATA_HOME only); else ~/.local/share/tidewright/schemes. Empty when no
// home directory is known either.
std::string schemeDirectory(const std::string& override);

// Where the built-in schemes of this program lie: installed beside it
// (share/tidewright/schemes next to its bin directory), else the source
// tree's schemes/ when it runs from a build tree. Empty when neither exists.
std::string builtInSchemeDirectory();

// Copies every built-in scheme that `to` lacks into it, read-only (mode 0444),
// which is what makes it built-in in the store. When the stamp says that an
// older program version (or none) filled the directory, the read-only copies
// already there are refreshed as well and the stamp is rewritten; a writable
// file of the same name belongs to the user and is never replaced. False and
// `error` when the directory cannot be made or a scheme cannot be copied.
bool installBuiltInSchemes(const std::string& from, const std::string& to, const std::string& version,
                           std::string& error);

// The start of a session: install the built-in schemes, read the store and
// convert old schemes. False and `error` (the user text that names the file)
// when the directory cannot be filled, a scheme file is unreadable or a
// converted scheme cannot be written; `notice` is the conversion's text.
bool openSchemeStore(KemptUI::PropertySetStore& store, const std::string& builtInDir, std::string& notice,
                     std::string& error);

// The user text for a scheme file that cannot be written, naming the file and
// its directory.
std::string schemeWriteErrorText(const std::string& file);

// The scheme of that exact name. False and `error` listing the available
// schemes when there is none.
bool findScheme(const KemptUI::PropertySetStore& store, const std::string& name, Kempt::PropertySet& set,
                std::string& error);

// The scheme of the store to format with: `name`, or DEFAULT_SCHEME when it is
// empty. (A scheme file named by path needs no store: see loadSchemeFile.)
bool selectScheme(const KemptUI::PropertySetStore& store, const std::string& name, Kempt::PropertySet& set,
                  std::string& error);

// One line per scheme, in store order; read-only ones end in " (built-in)".
void listSchemes(const KemptUI::PropertySetStore& store, std::ostream& out);

} // namespace App

#endif
