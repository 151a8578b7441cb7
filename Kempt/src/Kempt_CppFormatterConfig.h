// What the passes share for reading choice properties and for looking at
// text: the checks that turn a stored integer into a known choice, the
// WsSetting value type that holds every white-space property, and the small
// text tests of the formatter (markers, trailing "*" and "&", directives,
// comments in a gap).
#ifndef KEMPT_CPPFORMATTERCONFIG_H
#define KEMPT_CPPFORMATTERCONFIG_H

#include "Kempt_PropertySet.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace Cpp {
class CtrlSubStmtNode;
class InteriorNode;
class SyntaxNode;
} // namespace Cpp

namespace Kempt {

// An optional white-space property: set or not, and its text. Not set always
// means: keep the source's gap as it is.
class WsSetting {
public:
    WsSetting() = default;
    WsSetting(bool isSet, std::string text) : m_isSet(isSet), m_text(std::move(text)) {}

    bool isSet() const { return m_isSet; }
    std::string value() const { return m_text; }
    const std::string& text() const { return m_text; }

    friend bool operator==(const WsSetting&, const WsSetting&) = default;

private:
    bool m_isSet = false;
    std::string m_text;
};

// Sets `setting` from the string property `name`: set when the property is in
// the string map, with its text; not set and empty otherwise.
void load(const PropertySet& properties, const std::string& name, WsSetting& setting);

// Not set, empty: passed where a caller has no setting.
const WsSetting& noWhiteSpace();
// Set, "\n".
const WsSetting& newLineSetting();

// The value of a choice property when it lies in the property's range;
// otherwise the contract "false" fails (and, were checks to go on, the
// property's default would be the answer). The choices and their ranges:
//   WRAP_STYLE, EXPR_WRAP_STYLE, SHIFT_WRAP_STYLE, COMMA_WRAP_STYLE,
//   INDENT_WRAP_STYLE, LIST_WRAP_STRATEGY                0..2, default 0
//   ASTERISK_ANCHOR, AMPERSAND_ANCHOR                   -1..1, default -1
//   IF_ELSE_, FOR_, WHILE_CS_SINGLE_STMT_BRACE_STYLE      0..2, default 0
//   CONVERT_WS                                            0..2, default 0
// Asking about any other name is a bug: "range != nullptr".
std::int32_t checkChoice(std::string_view name, std::int32_t value);

// Reads a choice property through its check; a property missing from the set
// reads as the default of its range.
std::int32_t readChoice(const PropertySet& properties, const std::string& name);

// False for an empty marker; true when `text` starts with `marker`. The test
// of a region's begin marker.
bool beginsWithMarker(std::string_view text, std::string_view marker);

// Going back from the last character down to index 1: the symbol gives true,
// white space is passed over, anything else gives false. Index 0 is never
// looked at: "a *" is true, "*" and "" are false.
bool endsInAsterisk(std::string_view text);
bool endsInAmpersand(std::string_view text);

// False for an empty text; otherwise white space is skipped up to the last
// character but one, and the text is a directive when "#" is reached.
bool isDirectiveText(std::string_view text);

// The text, trimmed at both ends, is exactly ";".
bool isSemicolonOnly(std::string_view text);

// A TokenIterator over the gap meets a "//" comment; respectively a comment
// of either kind or a directive. A fenced region counts as the kind of its
// closing comment.
bool gapHasLineComment(const std::string& text);
bool gapHasCommentOrDirective(const std::string& text);

// Whether a block-like node (a node with children or delimiters) was written
// with braces: with no children, its begin differs from its end; with
// children, its begin differs from its first child's begin. A block the
// parser made around one unbraced statement begins where that statement does.
//   { x; }   -> true        x;   -> false        (empty, begin == end) -> false
bool hasBraces(const Cpp::InteriorNode& node);
// The same for the body of a control statement part; false without a body.
bool bodyHasBraces(const Cpp::CtrlSubStmtNode& part);
// The node is a comment node that holds a "//" comment.
bool isLineCommentNode(const Cpp::SyntaxNode* node);

} // namespace Kempt

#endif
