// Scheme files given by path.
#include "App_SchemeFile.h"

#include "KemptUI_SchemeConversion.h"
#include "KemptUI_UserTexts.h"
#include "Kempt_PropertyNames.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

namespace App {

bool readSchemeFile(const std::string& path, Kempt::PropertySet& set, std::string& error)
{
    std::error_code ec;
    if (std::filesystem::is_directory(path, ec)) {
        error = "cannot read scheme file '" + path + "': it is a directory";
        return false;
    }
    std::ifstream in(path, std::ios_base::binary);
    if (!in) {
        error = "cannot read scheme file '" + path + "': " + std::strerror(errno);
        return false;
    }
    Kempt::PropertySet read;
    if (!read.read(in)) {
        error = "cannot read scheme file '" + path + "': it is not a valid scheme file";
        return false;
    }
    set.swap(read);
    return true;
}

bool loadSchemeFile(const std::string& path, Kempt::PropertySet& set, std::string& notice, std::string& error)
{
    Kempt::PropertySet read;
    if (!readSchemeFile(path, read, error))
        return false;
    std::string from;
    switch (KemptUI::convertScheme(read, from)) {
    case KemptUI::SchemeConversion::CURRENT: notice.clear(); break;
    case KemptUI::SchemeConversion::CONVERTED:
        notice = "note: the scheme file '" + path + "' was made by "
            + (from.empty() ? std::string("an older version") : "version " + from) + " of " + KemptUI::PRODUCT_NAME
            + "; it has been converted to version " + KemptUI::CONVERSION_TARGET
            + " for this run (the file itself is unchanged)";
        break;
    case KemptUI::SchemeConversion::INVALID:
        notice = "warning: "
            + KemptUI::fillTemplate(KemptUI::invalidVersionTemplate(), {read.name(), from, Kempt::Prop::TIDEWRIGHT_VERSION});
        while (!notice.empty() && notice.back() == '\n')
            notice.pop_back();
        notice += "\nThe scheme file '" + path + "' is used as it stands.";
        break;
    }
    set.swap(read);
    return true;
}

} // namespace App
