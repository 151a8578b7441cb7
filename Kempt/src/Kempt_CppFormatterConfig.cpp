// Choice checks, white-space settings and text tests shared by the passes.
#include "Kempt_CppFormatterConfig.h"

#include "Cpp_Nodes.h"
#include "Cpp_TokenType.h"
#include "Kempt_PropertyNames.h"
#include "Kempt_TokenIterator.h"
#include "Varnel_Contract.h"
#include "Varnel_Text.h"

#include <array>
#include <cctype>

namespace Kempt {

void load(const PropertySet& properties, const std::string& name, WsSetting& setting)
{
    std::string text;
    const bool isSet = properties.getString(name, text);
    setting = WsSetting(isSet, std::move(text));
}

const WsSetting& noWhiteSpace()
{
    static const WsSetting setting;
    return setting;
}

const WsSetting& newLineSetting()
{
    static const WsSetting setting(true, "\n");
    return setting;
}

namespace {

struct ChoiceRange {
    std::string_view name;
    std::int32_t lowest;
    std::int32_t highest;
    std::int32_t fallback;
};

constexpr std::array CHOICE_RANGES = {
    ChoiceRange{Prop::WRAP_STYLE, 0, 2, 0},
    ChoiceRange{Prop::EXPR_WRAP_STYLE, 0, 2, 0},
    ChoiceRange{Prop::SHIFT_WRAP_STYLE, 0, 2, 0},
    ChoiceRange{Prop::COMMA_WRAP_STYLE, 0, 2, 0},
    ChoiceRange{Prop::INDENT_WRAP_STYLE, 0, 2, 0},
    ChoiceRange{Prop::LIST_WRAP_STRATEGY, 0, 2, 0},
    ChoiceRange{Prop::ASTERISK_ANCHOR, -1, 1, -1},
    ChoiceRange{Prop::AMPERSAND_ANCHOR, -1, 1, -1},
    ChoiceRange{Prop::IF_ELSE_CS_SINGLE_STMT_BRACE_STYLE, 0, 2, 0},
    ChoiceRange{Prop::FOR_CS_SINGLE_STMT_BRACE_STYLE, 0, 2, 0},
    ChoiceRange{Prop::WHILE_CS_SINGLE_STMT_BRACE_STYLE, 0, 2, 0},
    ChoiceRange{Prop::CONVERT_WS, 0, 2, 0},
};

const ChoiceRange& choiceRange(std::string_view name)
{
    const ChoiceRange* range = nullptr;
    for (const ChoiceRange& row : CHOICE_RANGES)
        if (row.name == name)
            range = &row;
    TW_REQUIRE(range != nullptr);
    return *range;
}

bool isSpace(char c)
{
    return std::isspace(static_cast<unsigned char>(c)) != 0;
}

// The walk of endsInAsterisk and endsInAmpersand.
bool endsInSymbol(std::string_view text, char symbol)
{
    for (std::size_t i = text.size(); i > 1; --i) {
        const char c = text[i - 1];
        if (c == symbol)
            return true;
        if (!isSpace(c))
            return false;
    }
    return false;
}

template <typename Predicate>
bool gapHasToken(const std::string& text, Predicate wanted)
{
    TokenIterator it(text);
    it.advance();
    for (; it.more(); it.advance())
        if (wanted(it.left().type()))
            return true;
    // The last token stands in `left` once `right` is the end.
    return wanted(it.left().type());
}

} // namespace

std::int32_t checkChoice(std::string_view name, std::int32_t value)
{
    const ChoiceRange& range = choiceRange(name);
    if (value >= range.lowest && value <= range.highest)
        return value;
    TW_CHECK(false);
    return range.fallback;
}

std::int32_t readChoice(const PropertySet& properties, const std::string& name)
{
    std::int32_t value = choiceRange(name).fallback;
    properties.getInt(name, value);
    return checkChoice(name, value);
}

bool beginsWithMarker(std::string_view text, std::string_view marker)
{
    return !marker.empty() && text.starts_with(marker);
}

bool endsInAsterisk(std::string_view text)
{
    return endsInSymbol(text, '*');
}

bool endsInAmpersand(std::string_view text)
{
    return endsInSymbol(text, '&');
}

bool isDirectiveText(std::string_view text)
{
    if (text.empty())
        return false;
    std::size_t i = 0;
    while (i + 1 < text.size() && isSpace(text[i]))
        ++i;
    return text[i] == '#';
}

bool isSemicolonOnly(std::string_view text)
{
    return Varnel::trim(text) == ";";
}

bool gapHasLineComment(const std::string& text)
{
    return gapHasToken(text, [](std::int32_t type) { return type == Cpp::LINE_COMMENT; });
}

bool gapHasCommentOrDirective(const std::string& text)
{
    return gapHasToken(text, [](std::int32_t type) {
        return type == Cpp::LINE_COMMENT || type == Cpp::BLOCK_COMMENT || type == Cpp::PREPROC_DIRECTIVE;
    });
}

bool hasBraces(const Cpp::InteriorNode& node)
{
    if (node.empty())
        return node.begin() != node.end();
    const Cpp::SyntaxNode* first = *node.childrenBegin();
    return first == nullptr || node.begin() != first->begin();
}

bool bodyHasBraces(const Cpp::CtrlSubStmtNode& part)
{
    const Cpp::BlockNode* body = part.body();
    return body != nullptr && hasBraces(*body);
}

bool isLineCommentNode(const Cpp::SyntaxNode* node)
{
    const auto* comment = dynamic_cast<const Cpp::CommentNode*>(node);
    return comment != nullptr && comment->isLineComment();
}

} // namespace Kempt
