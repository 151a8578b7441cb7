// The list of file extensions that the batch commands format, read from the
// setting FileExtensions: the text is cut at every blank, semicolon and
// comma; each piece is trimmed and loses its leading points; empty pieces are
// ignored. "c; .H,cpp" gives c, H, cpp. Matching against a file name
// (isFormattableFile, App_FileJob.h) ignores case.
#ifndef APP_EXTENSIONLIST_H
#define APP_EXTENSIONLIST_H

#include <string>
#include <vector>

namespace App {

// The pieces of `text` as above, in their order; an empty text gives none.
std::vector<std::string> parseExtensionList(const std::string& text);

} // namespace App

#endif
