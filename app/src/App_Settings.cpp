// The per-user settings file: reading with inih, writing whole and atomically.
#include "App_Settings.h"

#include "App_ExtensionList.h"
#include "App_SafeWrite.h"
#include "App_UserMessages.h"
#include "KemptUI_PreviewSamples.h"
#include "KemptUI_UserTexts.h"

#include <ini.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <set>
#include <sstream>

#if !defined(_WIN32)
#include <pwd.h>
#include <unistd.h>
#endif

namespace App {

namespace fs = std::filesystem;

namespace {

// Escaped text per line of a long quoted value; well within the INI reader's
// line limit of 200 characters, with the key in front.
constexpr std::size_t CHUNK = 120;
constexpr std::size_t PLAIN_LIMIT = 150;

std::string environment(const char* name)
{
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::string homeDirectory()
{
    if (std::string home = environment("HOME"); !home.empty())
        return home;
#if !defined(_WIN32)
    if (const passwd* entry = ::getpwuid(::getuid()); entry && entry->pw_dir)
        return entry->pw_dir;
#endif
    return "";
}

bool isControl(char c)
{
    const auto u = static_cast<unsigned char>(c);
    return u < 0x20 || u == 0x7f;
}

bool isBlank(char c)
{
    return c == ' ';
}

bool isPlain(const std::string& value)
{
    if (value.empty())
        return true;
    if (value.size() > PLAIN_LIMIT || isBlank(value.front()) || isBlank(value.back()) || value.front() == '"')
        return false;
    return std::none_of(value.begin(), value.end(), [](char c) { return isControl(c) || c == ';'; });
}

// The escaped units of a quoted value, one per character.
std::vector<std::string> escapedUnits(const std::string& value)
{
    static const char* const HEX = "0123456789abcdef";
    std::vector<std::string> units;
    units.reserve(value.size());
    for (const char c : value) {
        switch (c) {
        case '\\': units.emplace_back("\\\\"); break;
        case '"': units.emplace_back("\\\""); break;
        case '\n': units.emplace_back("\\n"); break;
        case '\r': units.emplace_back("\\r"); break;
        case '\t': units.emplace_back("\\t"); break;
        case ';': units.emplace_back("\\;"); break;
        default:
            if (isControl(c)) {
                const auto u = static_cast<unsigned char>(c);
                units.push_back(std::string("\\x") + HEX[u >> 4] + HEX[u & 0xf]);
            } else {
                units.emplace_back(1, c);
            }
        }
    }
    return units;
}

int hexDigit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

// True when `raw` opens with a double quote and its last character is the
// unescaped quote that closes it.
bool quotedAndClosed(const std::string& raw)
{
    if (raw.size() < 2 || raw.front() != '"')
        return false;
    for (std::size_t i = 1; i < raw.size(); ++i) {
        if (raw[i] == '\\')
            ++i;
        else if (raw[i] == '"')
            return i == raw.size() - 1;
    }
    return false;
}

bool readInt(const std::string& text, int& out)
{
    std::size_t from = text.find_first_not_of(' ');
    if (from == std::string::npos)
        return false;
    int value = 0;
    const char* end = text.data() + text.size();
    const auto [ptr, ec] = std::from_chars(text.data() + from, end, value);
    if (ec != std::errc() || std::string_view(ptr, static_cast<std::size_t>(end - ptr)).find_first_not_of(' ')
                                 != std::string_view::npos)
        return false;
    out = value;
    return true;
}

bool readRect(const std::string& text, WindowRect& rect)
{
    std::istringstream in(text);
    WindowRect r;
    if (!(in >> r.left >> r.top >> r.right >> r.bottom))
        return false;
    std::string rest;
    if (in >> rest)
        return false;
    rect = r;
    return true;
}

// What the INI reader hands over: the raw values of [Options] by key, a value
// continued on further lines joined to its first line.
struct RawValues {
    std::map<std::string, std::string> values;
    std::string last;
};

int collect(void* user, const char* section, const char* name, const char* value)
{
    auto& raw = *static_cast<RawValues*>(user);
    if (std::strcmp(section, SETTINGS_GROUP) != 0)
        return 1;
    const std::string key = name;
    auto it = raw.values.find(key);
    // A continuation line comes with the key of the line before; it belongs
    // to that value only while its quotes are still open.
    if (key == raw.last && it != raw.values.end() && it->second.front() == '"' && !quotedAndClosed(it->second))
        it->second += value;
    else
        raw.values[key] = value;
    raw.last = key;
    return 1;
}

bool isKnownKey(const std::string& key)
{
    static const std::set<std::string> known = {
        SettingKey::STANDALONE_WINDOW_POS, SettingKey::STANDALONE_ON_FORMAT,      SettingKey::FILE_EXTENSIONS,
        SettingKey::BACKUP_EXTENSION,      SettingKey::CREATE_BACKUPS,            SettingKey::MESSAGES_THRESHOLD,
        SettingKey::STANDALONE_LAST_DIRECTORY, SettingKey::CURRENT_PROPERTY_SET, SettingKey::SHOW_PREVIEW,
        SettingKey::CURRENT_SCHEMES_TAB};
    return known.count(key) != 0;
}

bool isPreviewKey(const std::string& key)
{
    const auto& keys = previewKeys();
    return std::find(keys.begin(), keys.end(), key) != keys.end();
}

void applyValues(const std::map<std::string, std::string>& raw, Settings& s)
{
    auto text = [&](const char* key, std::string& out) {
        if (auto it = raw.find(key); it != raw.end())
            out = decodeValue(it->second);
    };
    auto number = [&](const char* key, int& out) {
        if (auto it = raw.find(key); it != raw.end())
            readInt(decodeValue(it->second), out);
    };
    if (auto it = raw.find(SettingKey::STANDALONE_WINDOW_POS); it != raw.end())
        readRect(decodeValue(it->second), s.standaloneWindowPos);
    text(SettingKey::STANDALONE_ON_FORMAT, s.standaloneOnFormat);
    text(SettingKey::FILE_EXTENSIONS, s.fileExtensions);
    text(SettingKey::BACKUP_EXTENSION, s.backupExtension);
    int backups = s.createBackups ? 1 : 0;
    number(SettingKey::CREATE_BACKUPS, backups);
    s.createBackups = backups != 0;
    number(SettingKey::MESSAGES_THRESHOLD, s.messagesThreshold);
    text(SettingKey::STANDALONE_LAST_DIRECTORY, s.standaloneLastDirectory);
    text(SettingKey::CURRENT_PROPERTY_SET, s.currentPropertySet);
    number(SettingKey::SHOW_PREVIEW, s.showPreview);
    number(SettingKey::CURRENT_SCHEMES_TAB, s.currentSchemesTab);
    for (const auto& [key, value] : raw) {
        if (isPreviewKey(key))
            s.previewSamples[key] = decodeValue(value);
        else if (!isKnownKey(key))
            s.otherValues[key] = decodeValue(value);
    }
}

void writeValue(std::string& out, const std::string& key, const std::string& value)
{
    out += key;
    out += '=';
    if (isPlain(value)) {
        out += value;
        out += '\n';
        return;
    }
    std::vector<std::string> units = escapedUnits(value);
    out += '"';
    std::size_t lineLength = 0;
    for (std::size_t i = 0; i < units.size(); ++i) {
        std::string unit = units[i];
        const bool endsLine = lineLength + unit.size() >= CHUNK && i + 1 < units.size();
        const bool startsLine = lineLength == 0 && i > 0;
        // The reader trims each line, so a blank at either end of one is escaped.
        if ((endsLine || startsLine) && unit == " ")
            unit = "\\x20";
        if (startsLine && unit == "#")
            unit = "\\x23";
        out += unit;
        lineLength += unit.size();
        if (endsLine) {
            out += "\n\t";
            lineLength = 0;
        }
    }
    out += "\"\n";
}

} // namespace

const std::vector<std::string>& previewKeys()
{
    static const std::vector<std::string> keys = [] {
        std::vector<std::string> list;
        for (const KemptUI::PreviewSample& sample : KemptUI::previewSamples())
            list.emplace_back(sample.key);
        return list;
    }();
    return keys;
}

std::vector<std::string> Settings::extensionList() const
{
    return parseExtensionList(fileExtensions.empty() ? std::string(DEFAULT_FILE_EXTENSIONS) : fileExtensions);
}

std::string settingsFilePath()
{
    fs::path base;
    if (const fs::path config = environment("XDG_CONFIG_HOME"); config.is_absolute())
        base = config;
    else if (const std::string home = homeDirectory(); !home.empty())
        base = fs::path(home) / ".config";
    else
        return "";
    return (base / "tidewright" / "tidewright.ini").string();
}

std::string encodeValue(const std::string& value)
{
    std::string line;
    writeValue(line, "", value);
    line.erase(0, 1);  // the "="
    line.pop_back();   // the newline
    return line;
}

std::string decodeValue(const std::string& raw)
{
    if (!quotedAndClosed(raw))
        return raw;
    std::string value;
    const std::size_t end = raw.size() - 1;
    for (std::size_t i = 1; i < end; ++i) {
        const char c = raw[i];
        if (c != '\\' || i + 1 >= end) {
            value += c;
            continue;
        }
        const char e = raw[++i];
        switch (e) {
        case 'n': value += '\n'; break;
        case 'r': value += '\r'; break;
        case 't': value += '\t'; break;
        case 'x':
            if (i + 2 < end && hexDigit(raw[i + 1]) >= 0 && hexDigit(raw[i + 2]) >= 0) {
                value += static_cast<char>(hexDigit(raw[i + 1]) * 16 + hexDigit(raw[i + 2]));
                i += 2;
            } else {
                value += 'x';
            }
            break;
        default: value += e; // \\ \" \; and anything else stand for themselves
        }
    }
    return value;
}

bool loadSettings(const std::string& path, Settings& settings, std::string& error)
{
    const UserMessages& texts = userMessages();
    if (path.empty()) {
        error = KemptUI::fillTemplate(texts.settingsReadFailed, {"(no home directory)"});
        settings.saveDisabled = true;
        return false;
    }
    std::error_code ec;
    if (!fs::exists(path, ec) && !ec && !fs::is_symlink(path, ec))
        return true;
    FILE* file = std::fopen(path.c_str(), "rb");
    if (!file || fs::is_directory(path, ec)) {
        const int reason = file ? EISDIR : errno;
        if (file)
            std::fclose(file);
        error = KemptUI::fillTemplate(texts.settingsReadFailed, {path}) + " (" + std::strerror(reason) + ")";
        settings.saveDisabled = true;
        return false;
    }
    RawValues raw;
    ini_parse_file(file, collect, &raw);
    std::fclose(file);
    applyValues(raw.values, settings);
    return true;
}

std::string settingsText(const Settings& s)
{
    std::string out = "# The per-user settings of " + std::string(KemptUI::PRODUCT_NAME)
        + ". The program rewrites this file\n# whole; values it does not know are kept.\n[";
    out += SETTINGS_GROUP;
    out += "]\n";
    const WindowRect& r = s.standaloneWindowPos;
    writeValue(out, SettingKey::STANDALONE_WINDOW_POS,
               std::to_string(r.left) + " " + std::to_string(r.top) + " " + std::to_string(r.right) + " "
                   + std::to_string(r.bottom));
    writeValue(out, SettingKey::STANDALONE_ON_FORMAT, s.standaloneOnFormat);
    writeValue(out, SettingKey::FILE_EXTENSIONS, s.fileExtensions);
    writeValue(out, SettingKey::BACKUP_EXTENSION, s.backupExtension);
    writeValue(out, SettingKey::CREATE_BACKUPS, s.createBackups ? "1" : "0");
    writeValue(out, SettingKey::MESSAGES_THRESHOLD, std::to_string(s.messagesThreshold));
    writeValue(out, SettingKey::STANDALONE_LAST_DIRECTORY, s.standaloneLastDirectory);
    writeValue(out, SettingKey::CURRENT_PROPERTY_SET, s.currentPropertySet);
    writeValue(out, SettingKey::SHOW_PREVIEW, std::to_string(s.showPreview));
    writeValue(out, SettingKey::CURRENT_SCHEMES_TAB, std::to_string(s.currentSchemesTab));
    for (const auto& [key, value] : s.previewSamples)
        writeValue(out, key, value);
    for (const auto& [key, value] : s.otherValues)
        writeValue(out, key, value);
    return out;
}

bool saveSettings(const std::string& path, const Settings& settings, std::string& error)
{
    const UserMessages& texts = userMessages();
    if (path.empty() || settings.saveDisabled) {
        error = KemptUI::fillTemplate(texts.settingsSaveFailed, {path.empty() ? "(no home directory)" : path});
        return false;
    }
    std::string target;
    if (!resolveTarget(path, target))
        target = path;
    std::error_code ec;
    if (const fs::path dir = fs::path(target).parent_path(); !dir.empty())
        fs::create_directories(dir, ec);
    if (ec) {
        error = KemptUI::fillTemplate(texts.settingsSaveFailed, {path}) + " (" + ec.message() + ")";
        return false;
    }
    const SafeWriteResult written = writeFileSafely(path, settingsText(settings));
    if (!written.ok) {
        error = KemptUI::fillTemplate(texts.settingsSaveFailed, {path}) + " (" + written.reason + ")";
        return false;
    }
    return true;
}

} // namespace App
