// The scheme messages, built once from their pieces.
#include "KemptUI_UserTexts.h"

namespace KemptUI {

namespace {

// The product name as a string to build on; not a namespace-scope object, so
// that no order of static initialisation matters.
std::string product()
{
    return PRODUCT_NAME;
}

} // namespace

const std::string& readErrorTemplate()
{
    static const std::string text = product() + " encountered an error while trying to read the scheme file \"%s\". "
                                              "To correct the problem, you should delete this file before restarting "
        + PRODUCT_NAME + " and attempting this operation again.";
    return text;
}

const std::string& writeErrorTemplate()
{
    static const std::string text = product()
        + " encountered an error while trying to write the scheme file \"%s\". To correct the problem, ensure you "
          "have enough disk space and that the directory \"%s\" is not marked read-only.";
    return text;
}

const std::string& invalidVersionTemplate()
{
    static const std::string text = "The scheme: '%s' has the invalid value: %s for the option: %s.\n"
                                    "The scheme file may have become corrupted.\n";
    return text;
}

const std::string& oneOldSchemeTemplate()
{
    static const std::string text = "The scheme '%s' was created using a previous version of " + product()
        + ". The file is marked read-only and so cannot be converted. Please ensure the file is read-write and run "
        + PRODUCT_NAME + " again. Once the scheme has been converted, the file can be set read-only again.";
    return text;
}

const std::string& severalOldSchemesTemplate()
{
    static const std::string text = "The following schemes were created using a previous version of " + product()
        + ":\r\n%sThe files are read-only and so cannot be converted. Please ensure that the scheme files listed are "
          "read-write and run "
        + PRODUCT_NAME + " again. Once the schemes have been converted, the files can be set read-only again.";
    return text;
}

std::string fillTemplate(std::string_view text, std::initializer_list<std::string_view> arguments)
{
    std::string out;
    auto next = arguments.begin();
    std::size_t from = 0;
    for (std::size_t at = text.find("%s"); at != std::string_view::npos && next != arguments.end();
         at = text.find("%s", from)) {
        out.append(text, from, at - from);
        out.append(*next++);
        from = at + 2;
    }
    out.append(text, from);
    return out;
}

std::string readErrorText(std::string_view file)
{
    return fillTemplate(readErrorTemplate(), {file});
}

std::string writeErrorText(std::string_view file, std::string_view directory)
{
    return fillTemplate(writeErrorTemplate(), {file, directory});
}

} // namespace KemptUI
