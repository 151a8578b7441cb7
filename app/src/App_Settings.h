// What the program remembers per user between runs: one INI file,
// $XDG_CONFIG_HOME/tidewright/tidewright.ini (else ~/.config/...), group
// [Options]. The command line and the desktop application share it.
//
// Protocol of use:
//   App::Settings settings;                         // the defaults
//   std::string error;
//   if (!App::loadSettings(App::settingsFilePath(), settings, error)) -> tell `error`; defaults stand,
//       and the session must not save (settings.saveDisabled is set)
//   ... read and change the values ...
//   if (!App::saveSettings(path, settings, error)) -> tell `error`
//
// The file is written whole, to a temporary file that is renamed over the old
// one, so a reader never sees half of it. A value that is missing or does not
// read as its type keeps its default without a word; values the program does
// not know are kept and written back.
//
// Value form: integers in decimal; a string as it stands, unless it holds
// what an INI line cannot carry (control characters, a backslash, a
// semicolon, blanks at either end, a leading double quote or a length past
// one line). Such a string is written between double quotes with the escapes
// \\ \" \n \r \t \; \xHH, and a long one goes on over continuation lines
// that begin with a tab.
#ifndef APP_SETTINGS_H
#define APP_SETTINGS_H

#include <map>
#include <string>
#include <vector>

namespace App {

inline constexpr const char* SETTINGS_GROUP = "Options";
inline constexpr const char* DEFAULT_FILE_EXTENSIONS = "c,cc,cpp,cxx,h,hh,hpp,hxx";
inline constexpr const char* DEFAULT_BACKUP_EXTENSION = "bak";

// The keys of the [Options] group.
namespace SettingKey {
inline constexpr const char* STANDALONE_WINDOW_POS = "StandaloneWindowPos";
inline constexpr const char* STANDALONE_ON_FORMAT = "StandaloneOnFormat";
inline constexpr const char* FILE_EXTENSIONS = "FileExtensions";
inline constexpr const char* BACKUP_EXTENSION = "BackupExtension";
inline constexpr const char* CREATE_BACKUPS = "CreateBackups";
inline constexpr const char* MESSAGES_THRESHOLD = "MessagesThreshold";
inline constexpr const char* STANDALONE_LAST_DIRECTORY = "StandaloneLastDirectory";
inline constexpr const char* CURRENT_PROPERTY_SET = "CurrentPropertySet";
inline constexpr const char* SHOW_PREVIEW = "ShowPreview";
inline constexpr const char* CURRENT_SCHEMES_TAB = "CurrentSchemesTab";
} // namespace SettingKey

// The scheme editor's preview samples, each stored under its own key.
const std::vector<std::string>& previewKeys();

// The main window's rectangle; all 0 means "not stored, keep the default place".
struct WindowRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    bool isSet() const { return left != 0 || top != 0 || right != 0 || bottom != 0; }
    bool operator==(const WindowRect&) const = default;
};

struct Settings {
    WindowRect standaloneWindowPos;
    std::string standaloneOnFormat;        // the scheme used for formatting; empty: none
    std::string fileExtensions = DEFAULT_FILE_EXTENSIONS;
    std::string backupExtension = DEFAULT_BACKUP_EXTENSION;
    bool createBackups = true;
    int messagesThreshold = 1;
    std::string standaloneLastDirectory;
    // The scheme editor.
    std::string currentPropertySet;
    int showPreview = 1;
    int currentSchemesTab = 0;
    // Preview key -> sample text as stored (escaped by the editor).
    std::map<std::string, std::string> previewSamples;
    // Keys of [Options] this program does not know, kept for a later version.
    std::map<std::string, std::string> otherValues;
    // Set when the file could not be read: saving would lose what it holds.
    bool saveDisabled = false;

    // FileExtensions as a list: cut at blanks, semicolons and commas, pieces
    // trimmed, leading points dropped, empty pieces ignored. An empty text
    // counts as the default.
    std::vector<std::string> extensionList() const;

    bool operator==(const Settings&) const = default;
};

// $XDG_CONFIG_HOME/tidewright/tidewright.ini (an absolute XDG_CONFIG_HOME
// only), else ~/.config/tidewright/tidewright.ini; empty when no home is known.
std::string settingsFilePath();

// Reads `path` into `settings`, whose values stand for what the file lacks. A
// file that does not exist is no error. False, `error` and saveDisabled when
// it exists but cannot be read (or the path is empty).
bool loadSettings(const std::string& path, Settings& settings, std::string& error);

// Writes every value to `path`, making its directory. False and `error` when
// that fails (the old file then stays as it was) or saving is disabled.
bool saveSettings(const std::string& path, const Settings& settings, std::string& error);

// The file's text as saveSettings writes it.
std::string settingsText(const Settings& settings);

// One string value in the file's form, and back (see above). decodeValue takes
// the value as the INI reader gives it, continuation lines already joined.
std::string encodeValue(const std::string& value);
std::string decodeValue(const std::string& raw);

} // namespace App

#endif
