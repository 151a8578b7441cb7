// Writing docs/properties.md from the catalogue. Every cell comes from a
// catalogue field; the fixed prose here explains the columns only.
#include "KemptUI_PropertyReference.h"

#include "KemptUI_PropertyCatalogue.h"
#include "Kempt_PropertyEffect.h"
#include "Kempt_PropertySet.h"

#include <ostream>
#include <sstream>

namespace KemptUI {

namespace {

// Markdown table cells: characters that would start emphasis, code or a new
// cell are escaped.
std::string cell(std::string_view text)
{
    std::string out;
    for (const char c : text) {
        if (c == '|' || c == '*' || c == '_' || c == '`' || c == '\\')
            out += '\\';
        out += c;
    }
    return out;
}

std::string code(std::string_view text)
{
    return "`" + std::string(text) + "`";
}

// "1 = tabs to spaces; 2 = spaces to tabs; any other value = do not convert (saved as 0)"
std::string choicesText(const PropertyInfo& info)
{
    std::string text;
    for (std::size_t i = 0; i < info.choices.size(); ++i) {
        const Choice& c = info.choices[i];
        if (!text.empty())
            text += "; ";
        const bool catchAll = info.kind == PropertyKind::CHOICE && i == 2;
        if (catchAll)
            text += "any other value = " + cell(displayText(c.label)) + " (saved as " + std::to_string(c.stored) + ")";
        else
            text += std::to_string(c.stored) + " = " + cell(displayText(c.label));
    }
    if (info.kind == PropertyKind::ANCHOR)
        text += "; -1 = neither";
    return text;
}

std::string valuesText(const PropertyInfo& info)
{
    switch (info.kind) {
    case PropertyKind::FLAG: return "0 or 1";
    case PropertyKind::NUMBER: return std::to_string(info.minimum) + " to " + std::to_string(info.maximum);
    case PropertyKind::CHOICE:
    case PropertyKind::ANCHOR: return choicesText(info);
    case PropertyKind::INTEGER: return "an integer";
    case PropertyKind::WHITE_SPACE: return "newlines, tabs and blanks";
    case PropertyKind::AMOUNT: return "n blanks or n tabs";
    case PropertyKind::VERSION: return "three numbers joined by points";
    }
    return "";
}

std::string fallbackText(const PropertyInfo& info)
{
    if (const bool* b = std::get_if<bool>(&info.fallback))
        return *b ? "1" : "0";
    if (const std::int32_t* i = std::get_if<std::int32_t>(&info.fallback))
        return std::to_string(*i);
    if (const std::string_view* s = std::get_if<std::string_view>(&info.fallback)) {
        if (info.kind == PropertyKind::AMOUNT) {
            const Amount a = amountFromText(*s);
            return std::to_string(a.count) + " " + AMOUNT_UNIT_LABELS[static_cast<int>(a.unit)];
        }
        return code("\"" + Kempt::escapeSchemeString(std::string(*s)) + "\"");
    }
    return "none";
}

std::string labelText(const PropertyInfo& info)
{
    std::string text = cell(displayText(info.label));
    if (*info.alternateLabel)
        text += " / " + cell(displayText(info.alternateLabel));
    if (*info.group)
        text += std::string(text.empty() ? "" : " ") + "(group \"" + cell(displayText(info.group)) + "\")";
    return text;
}

std::string notesText(const PropertyInfo& info)
{
    std::string text = cell(info.note);
    if (*info.globalSource) {
        if (!text.empty())
            text += " ";
        text += "\"Use global settings\" copies " + code(info.globalSource) + " here.";
    }
    return text;
}

// "yes", "partly: where", "not yet", "editor": whether the passes of this
// build act on the option.
std::string effectText(const PropertyInfo& info)
{
    switch (Kempt::propertyEffect(info.name)) {
    case Kempt::PropertyEffect::IN_EFFECT: return "yes";
    case Kempt::PropertyEffect::PARTLY: return "partly: " + cell(Kempt::effectNote(info.name));
    case Kempt::PropertyEffect::NOT_YET: return "not yet";
    case Kempt::PropertyEffect::EDITOR: return "editor";
    }
    return "";
}

void writeIntroduction(std::ostream& out)
{
    out << "<!-- Generated from the property catalogue (KemptUI/src/KemptUI_PropertyCatalogue.cpp).\n"
        << "     Do not edit: run `" << PROPERTY_REFERENCE_UPDATE_COMMAND << "`. -->\n"
        << "# Scheme options\n\n"
        << "Every option a scheme can hold, as the scheme editor groups them. A scheme\n"
        << "file ([scheme-files.md](scheme-files.md)) stores a flag with tag 1, a number,\n"
        << "choice, anchor or integer with tag 2, and white space, an amount or a version\n"
        << "with tag 3. An option that a scheme lacks is never an error: a white-space\n"
        << "option that is not set keeps the source's gap as it is.\n\n"
        << "| Kind | Stored as | Meaning |\n|---|---|---|\n"
        << "| Flag | 0 or 1 | on or off |\n"
        << "| Number | integer | a count, such as a tab size or a margin |\n"
        << "| Choice | integer | one of the listed values, one radio each |\n"
        << "| Anchor | integer | 0 or 1 picks a radio; -1 picks neither |\n"
        << "| Integer | integer | a value that no page edits |\n"
        << "| White space | text | the literal white space to write at that place; empty for none |\n"
        << "| Amount | text | n blanks or n tabs; the editor shows a count and the unit spaces or tabs |\n"
        << "| Version | text | the program version that last converted the scheme |\n\n"
        << "*Fallback* is what the scheme editor takes when a scheme lacks the option\n"
        << "(it then marks the scheme as changed); *none* leaves the decision to the\n"
        << "formatting run. *Label* is the text of the option's field in the editor.\n\n"
        << "*Acts* says whether the formatting passes of this version act on the\n"
        << "option: *yes*; *partly*, and where; *not yet*: the construct it lays out\n"
        << "(classes, namespaces, enums, template heads, data declarations, control\n"
        << "statements, brace rewriting, line wrapping) still comes out as it stands;\n"
        << "*editor*: a page flag that only the scheme editor reads.\n";
}

void writePage(std::ostream& out, const PageInfo& page)
{
    out << "\n## " << cell(displayText(page.title)) << "\n\n"
        << "Page `" << page.className << "`. Do not format: " << code(page.doNotFormat) << ". Use global settings: "
        << (page.useGlobal ? code(page.useGlobal) : std::string("none")) << ".\n\n"
        << "| Option | Kind | Values | Fallback | Label | Acts | Notes |\n|---|---|---|---|---|---|---|\n";
    for (const PropertyInfo* info : propertiesOn(page.page)) {
        out << "| " << code(info->name) << " | " << kindName(info->kind) << " | " << valuesText(*info) << " | "
            << fallbackText(*info) << " | " << labelText(*info) << " | " << effectText(*info) << " | "
            << notesText(*info) << " |\n";
    }
}

void writeRole(std::ostream& out, PropertyRole role, const char* title, const char* introduction, bool acts)
{
    out << "\n## " << title << "\n\n"
        << introduction << "\n\n"
        << (acts ? "| Option | Kind | Acts | Notes |\n|---|---|---|---|\n" : "| Option | Kind | Notes |\n|---|---|---|\n");
    for (const PropertyInfo& info : catalogue()) {
        if (info.role != role)
            continue;
        std::string notes = notesText(info);
        if (*info.label)
            notes += std::string(notes.empty() ? "" : " ") + "Label: " + labelText(info) + ".";
        out << "| " << code(info.name) << " | " << kindName(info.kind) << " | ";
        if (acts)
            out << effectText(info) << " | ";
        out << notes << " |\n";
    }
}

} // namespace

void writePropertyReference(std::ostream& out)
{
    writeIntroduction(out);
    for (const PageInfo& page : pages())
        writePage(out, page);
    writeRole(out, PropertyRole::NO_PAGE, "Options on no page",
              "Read by the formatting passes, but edited on no page; set them in the scheme file.", true);
    writeRole(out, PropertyRole::VERSION, "Scheme version",
              "Written into every scheme that Tidewright converts; older schemes are upgraded at start.", false);
    writeRole(out, PropertyRole::UNUSED, "Kept, unused",
              "Nothing reads these; a scheme that holds them is read and written unchanged.", false);
    writeRole(out, PropertyRole::RETIRED, "Retired",
              "Written by older versions; the conversion at start renames or erases them.", false);
}

std::string propertyReference()
{
    std::ostringstream out;
    writePropertyReference(out);
    return out.str();
}

} // namespace KemptUI
