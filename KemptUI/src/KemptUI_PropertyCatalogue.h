// The property catalogue: every property a scheme can hold, with its kind, its
// values, the fallback the scheme editor takes when a scheme lacks it, and the
// page and label under which the user sees it. The editor, the command line and
// docs/properties.md read this one table; names are the Kempt::Prop constants.
//
// Protocol of use: look a property up with findProperty(), or walk catalogue()
// (grouped by page, in tab order) or pages(). The table is constant data.
//
//   const PropertyInfo* p = KemptUI::findProperty(Kempt::Prop::TAB_SIZE);
//   p->kind == PropertyKind::NUMBER, p->fallback -> 4, p->label == "Tab size:"
//
// Labels are written as the dialog system takes them: "&&" stands for one "&"
// (use displayText() to show them).
#ifndef KEMPTUI_PROPERTYCATALOGUE_H
#define KEMPTUI_PROPERTYCATALOGUE_H

#include "Kempt_PropertySet.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace KemptUI {

// How a property is stored and edited.
enum class PropertyKind : std::int32_t {
    FLAG,        // bool
    NUMBER,      // integer in [minimum, maximum], a spin field
    CHOICE,      // integer, one radio per listed value; see radioIndex()
    ANCHOR,      // integer stored as the radio index itself: 0, 1, or -1 for no radio
    INTEGER,     // integer that no page edits
    WHITE_SPACE, // string of literal newlines, tabs and blanks; empty for none
    AMOUNT,      // string that is a run of one character: n blanks or n tabs
    VERSION,     // string: three numbers joined by points
};

// The map of Kempt::PropertySet that holds a kind's values.
enum class Storage : std::int32_t { BOOL, INT, STRING };
Storage storageOf(PropertyKind kind);

// Why the catalogue holds a property.
enum class PropertyRole : std::int32_t {
    OPTION,        // a field on a page
    DO_NOT_FORMAT, // a page's "Do not format" flag
    USE_GLOBAL,    // a page's "Use global settings" flag
    NO_PAGE,       // read by the passes, edited on no page
    UNUSED,        // read by no pass and no page; kept so that a file round-trips
    RETIRED,       // written by old versions; the scheme conversion renames or erases it
    VERSION,       // the version of the program that last converted the scheme
};

// The editor's pages, in tab order; NONE for properties on no page.
enum class Page : std::int32_t {
    NONE,
    GLOBALS,
    NAMESPACES,
    CLASSES,
    ENUMS,
    FUNCTIONS,
    MEMBER_INITS,
    DATA,
    CONTROL_STATEMENTS,
    PREPROCESSOR,
    EXPRESSIONS,
    POINTERS_REFS,
    TEMPLATES,
    LINE_WRAPPING,
};

struct PageInfo {
    Page page;
    const char* className;   // "GlobalsPage"
    const char* title;       // "Global Settings"
    const char* doNotFormat; // the page's do-not-format flag
    const char* useGlobal;   // the page's use-global flag, or nullptr
};

// One radio: the value stored for it and its label.
struct Choice {
    std::int32_t stored;
    const char* label;
};

// What the editor takes when a scheme lacks the property: nothing (the reading
// pass decides), a flag, an integer, or a string (for an Amount, its text).
using Fallback = std::variant<std::monostate, bool, std::int32_t, std::string_view>;

struct PropertyInfo {
    const char* name = nullptr; // a Kempt::Prop constant
    PropertyKind kind = PropertyKind::FLAG;
    PropertyRole role = PropertyRole::OPTION;
    Page page = Page::NONE;
    const char* label = "";          // the field's label; "" when the group names it
    const char* group = "";          // the group box or list the field stands in
    Fallback fallback{};
    std::int32_t minimum = 0;        // NUMBER only
    std::int32_t maximum = 0;        // NUMBER only
    std::span<const Choice> choices{}; // CHOICE and ANCHOR, in radio order
    const char* alternateLabel = ""; // the label while the anchor radio is "Identifier"
    const char* globalSource = "";   // the GLOBAL_ property "Use global settings" copies in
    const char* note = "";           // a remark for the documentation
};

// All properties, grouped by page in tab order, then the properties on no page,
// the version, the unused and the retired names.
std::span<const PropertyInfo> catalogue();
// The thirteen pages in tab order.
std::span<const PageInfo> pages();
const PageInfo& pageInfo(Page page);

// The entry of a name, or nullptr for a name the catalogue does not know.
const PropertyInfo* findProperty(std::string_view name);
// The fields of a page: its options and its section flags, in catalogue order.
std::vector<const PropertyInfo*> propertiesOn(Page page);

// Which radio shows a stored value. CHOICE: stored equal to the first choice is
// radio 0, to the second radio 1, anything else the third radio (2), or -1
// when there is no third. ANCHOR: 0 and 1 are their radios, anything else -1.
//   radioIndex(CONVERT_WS, 7) == 2   // "do not convert"
std::int32_t radioIndex(const PropertyInfo& info, std::int32_t stored);
// The value a radio stores: radio 2 of CONVERT_WS stores 0.
std::int32_t storedValue(const PropertyInfo& info, std::int32_t radio);

// Amounts: a count and a unit, shown as a spin field and the list "spaces", "tabs".
enum class AmountUnit : std::int32_t { SPACES = 0, TABS = 1 };
struct Amount {
    std::int32_t count = 0;
    AmountUnit unit = AmountUnit::SPACES;
    friend bool operator==(const Amount&, const Amount&) = default;
};
inline constexpr const char* AMOUNT_UNIT_LABELS[] = {"spaces", "tabs"};
// The unit is tabs if the text holds a tab; the count is the text's length.
Amount amountFromText(std::string_view text);
// n blanks or n tabs.
std::string amountText(Amount amount);

// The radio group "Indent" of the preprocessor page, which drives two flags:
// "Indent with surrounding text" (both false), "Align to left-most margin"
// (ALIGN_PPD_LEFT_MOST) and "Leave as is" (PPD_DO_NOT_FORMAT).
inline constexpr const char* PREPROCESSOR_INDENT_LABELS[] = {"Indent with surrounding text",
                                                             "Align to left-most margin", "Leave as is"};
// The radio the two flags select; "Leave as is" wins when both are set.
std::int32_t preprocessorIndentRadio(const Kempt::PropertySet& set);

// The page-loading step of the editor: every field of the page that the set
// lacks and that has a fallback gets it. True when anything was added, which
// marks the page and the scheme as changed.
bool fillFallbacks(Kempt::PropertySet& set, Page page);

// A label as the user reads it: "&&" becomes "&", a lone "&" (a keyboard
// accelerator) is dropped. "Keep && with:" -> "Keep & with:".
std::string displayText(std::string_view dialogText);

// The names of a kind and a role as the documentation writes them.
const char* kindName(PropertyKind kind);
const char* roleName(PropertyRole role);

} // namespace KemptUI

#endif
