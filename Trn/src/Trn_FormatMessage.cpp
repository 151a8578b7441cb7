// The table of coded message texts.
#include "Trn_FormatMessage.h"

#include <array>
#include <utility>

namespace Trn {

std::string messageText(std::int32_t code)
{
    // Codes 5 and 6 share their words; codes 3 to 6 are kept although the
    // parser raises none of them.
    static constexpr std::array<const char*, 15> TEXTS = {
        "Unexpected EOF found.",
        "Unexpected token. Was expecting to find \";\" or \"{\".",
        "Unexpected token. Was expecting to find \";\", \"(\" or \"=\".",
        "Data declaration is missing a type specifier",
        "An unexpected semicolon was found.",
        "An unexpected semicolon was found.",
        "The statement cannot be parsed.",
        "public: protected: private: labels are not allowed inside block statements.",
        "template declarations are not allowed inside block statements.",
        "Namespace declarations are not allowed inside block statements.",
        "Expected: if, else, for, do, while, try, catch, switch.",
        "Expected \")\". Possible unbalanced parentheses.",
        "Expected \"(\".",
        "Expected one of \"public\", \"protected\" or \"private\".",
        "Expected an identifier, an integer literal or the \"using\" keyword as part of the embedded "
        "compiler extension syntax \"interrupt n using n\"",
    };
    if (code < 1 || code > static_cast<std::int32_t>(TEXTS.size()))
        return "Unknown error.";
    return TEXTS[static_cast<std::size_t>(code - 1)];
}

FormatMessage FormatMessage::coded(std::int32_t code, Position pos)
{
    return FormatMessage(ERROR, pos, code, messageText(code));
}

FormatMessage FormatMessage::composed(std::string text, Position pos)
{
    return FormatMessage(ERROR, pos, 0, std::move(text));
}

} // namespace Trn
