// Trimming and unescaping.
#include "Varnel_Text.h"

#include <cctype>

namespace Varnel {

namespace {

bool isSpace(char c)
{
    return std::isspace(static_cast<unsigned char>(c)) != 0;
}

} // namespace

std::string_view trimLeft(std::string_view text)
{
    std::size_t i = 0;
    while (i < text.size() && isSpace(text[i]))
        ++i;
    return text.substr(i);
}

std::string_view trimRight(std::string_view text)
{
    std::size_t n = text.size();
    while (n > 0 && isSpace(text[n - 1]))
        --n;
    return text.substr(0, n);
}

std::string_view trim(std::string_view text)
{
    return trimRight(trimLeft(text));
}

std::string toLower(std::string_view text)
{
    std::string lowered(text);
    for (char& c : lowered)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return lowered;
}

std::string unescapeBackslashes(std::string_view text)
{
    std::string value;
    value.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            value += text[i];
            continue;
        }
        if (++i == text.size())
            break;
        switch (text[i]) {
        case 'n': value += '\n'; break;
        case 'r': value += '\r'; break;
        case 't': value += '\t'; break;
        case 'v': value += '\v'; break;
        default: value += text[i]; break;
        }
    }
    return value;
}

std::string escapeControlCharacters(std::string_view text, bool quotes)
{
    static constexpr char HEX[] = "0123456789abcdef";
    std::string escaped;
    escaped.reserve(text.size());
    for (const char ch : text) {
        const auto c = static_cast<unsigned char>(ch);
        if (quotes && (ch == '\\' || ch == '"')) {
            escaped += '\\';
            escaped += ch;
            continue;
        }
        switch (ch) {
        case '\n': escaped += "\\n"; break;
        case '\r': escaped += "\\r"; break;
        case '\t': escaped += "\\t"; break;
        default:
            if (c < 0x20 || c == 0x7f) {
                escaped += "\\x";
                escaped += HEX[c >> 4];
                escaped += HEX[c & 0xf];
            } else {
                escaped += ch;
            }
        }
    }
    return escaped;
}

} // namespace Varnel
