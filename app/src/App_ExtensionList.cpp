// Cutting the FileExtensions text into its extensions.
#include "App_ExtensionList.h"

namespace App {

std::vector<std::string> parseExtensionList(const std::string& text)
{
    std::vector<std::string> list;
    std::string piece;
    auto finish = [&] {
        const std::size_t first = piece.find_first_not_of(" \t.");
        const std::size_t last = piece.find_last_not_of(" \t");
        if (first != std::string::npos && last != std::string::npos && first <= last)
            list.push_back(piece.substr(first, last - first + 1));
        piece.clear();
    };
    for (const char c : text) {
        if (c == ' ' || c == ';' || c == ',')
            finish();
        else
            piece += c;
    }
    finish();
    return list;
}

} // namespace App
