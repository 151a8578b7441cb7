// The C++ token types with their fixed numbers, and the process-wide word
// tables that tie keywords to them. The numbers come from Cpp_TokenTypes.def.
//
// The word tables are built once, on first use, thread-safely: the keyword map
// (63 words) and the set of words that the lexer splits off a qualified name
// ("new", "delete", "operator").
#ifndef CPP_TOKENTYPE_H
#define CPP_TOKENTYPE_H

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace Cpp {

enum TokenType : std::int32_t {
#define TW_TOKEN(NAME, NUMBER) NAME = NUMBER,
#define TW_KEYWORD(NAME, NUMBER, WORD) NAME = NUMBER,
#include "Cpp_TokenTypes.def"
#undef TW_TOKEN
#undef TW_KEYWORD
};

// Ranges that the passes test.
constexpr std::int32_t FIRST_OPERATOR = SEMICOLON;        // 6
constexpr std::int32_t LAST_OPERATOR = ARROW_STAR;        // 52
constexpr std::int32_t FIRST_KEYWORD = CLASS_KEY;         // 54
constexpr std::int32_t LAST_KEYWORD = VOID_KEY;           // 117
constexpr std::int32_t FIRST_STATEMENT_KEYWORD = IF_KEY;  // 94
constexpr std::int32_t LAST_STATEMENT_KEYWORD = RETURN_KEY; // 108
constexpr std::int32_t FIRST_TYPE_KEYWORD = CHAR_KEY;     // 109
constexpr std::int32_t LAST_TYPE_KEYWORD = VOID_KEY;      // 117

// The enumeration name of a type ("IDENTIFIER"), or "UNKNOWN" for a number
// that is not in the vocabulary.
const char* tokenTypeName(std::int32_t type);

// Keyword spelling to token type. Words that are not in it are identifiers.
const std::unordered_map<std::string, std::int32_t>& keywordMap();

// The keyword type of a word, or INVALID_TOKEN when the word is no keyword.
std::int32_t keywordType(std::string_view word);

// The words that the lexer splits off the end of a qualified name.
bool isSplitWord(std::string_view word);

} // namespace Cpp

#endif
