// Names of the token types and the process-wide keyword tables.
#include "Cpp_TokenType.h"

#include <array>
#include <vector>

namespace Cpp {

namespace {

struct NamedType {
    std::int32_t type;
    const char* name;
};

constexpr NamedType TYPE_NAMES[] = {
#define TW_TOKEN(NAME, NUMBER) {NAME, #NAME},
#define TW_KEYWORD(NAME, NUMBER, WORD) {NAME, #NAME},
#include "Cpp_TokenTypes.def"
#undef TW_TOKEN
#undef TW_KEYWORD
};

} // namespace

const char* tokenTypeName(std::int32_t type)
{
    // The table runs from -1 without gaps, so the type number is an index.
    const std::int32_t index = type + 1;
    if (index < 0 || index >= static_cast<std::int32_t>(std::size(TYPE_NAMES)))
        return "UNKNOWN";
    return TYPE_NAMES[index].name;
}

const std::unordered_map<std::string, std::int32_t>& keywordMap()
{
    static const std::unordered_map<std::string, std::int32_t> MAP = [] {
        std::unordered_map<std::string, std::int32_t> words;
#define TW_TOKEN(NAME, NUMBER)
#define TW_KEYWORD(NAME, NUMBER, WORD) words.emplace(WORD, NAME);
#include "Cpp_TokenTypes.def"
#undef TW_TOKEN
#undef TW_KEYWORD
        return words;
    }();
    return MAP;
}

namespace {

// The keywords sorted into buckets by length and first letter, so that a
// lookup compares the word with at most a few candidates of its own length.
class KeywordIndex {
public:
    static constexpr std::size_t MAX_LENGTH = 16; // "reinterpret_cast"

    KeywordIndex()
    {
        for (const auto& [word, type] : keywordMap())
            m_buckets[word.size()][static_cast<std::size_t>(word[0] - 'a')].push_back({word, type});
    }

    std::int32_t find(std::string_view word) const
    {
        if (word.size() < 2 || word.size() > MAX_LENGTH || word[0] < 'a' || word[0] > 'z')
            return INVALID_TOKEN;
        for (const Entry& e : m_buckets[word.size()][static_cast<std::size_t>(word[0] - 'a')])
            if (e.word == word)
                return e.type;
        return INVALID_TOKEN;
    }

private:
    struct Entry {
        std::string_view word; // points into the keyword map, which lives as long
        std::int32_t type;
    };
    std::vector<Entry> m_buckets[MAX_LENGTH + 1][26];
};

} // namespace

std::int32_t keywordType(std::string_view word)
{
    static const KeywordIndex INDEX;
    return INDEX.find(word);
}

bool isSplitWord(std::string_view word)
{
    static const std::unordered_set<std::string_view> WORDS = {"new", "delete", "operator"};
    return WORDS.count(word) != 0;
}

} // namespace Cpp
