// The conversion steps of old schemes and the comparison of version texts.
#include "KemptUI_SchemeConversion.h"

#include "KemptUI_PropertySetStore.h"
#include "KemptUI_Trace.h"
#include "KemptUI_UserTexts.h"
#include "Kempt_PropertyNames.h"
#include "Varnel_Contract.h"

#include <sstream>
#include <vector>

namespace KemptUI {

namespace {

namespace P = Kempt::Prop;
using Kempt::PropertySet;

struct VersionNumbers {
    int major = 0;
    int minor = 0;
    int patch = 0;
};

// "1.2.3" -> 1, 2, 3. Anything but three integers joined by two points breaks
// a contract, which the conversion reports as an invalid value.
VersionNumbers parseVersion(const std::string& text)
{
    std::string spaced = text;
    int numDots = 0;
    for (char& c : spaced) {
        if (c == '.') {
            c = ' ';
            ++numDots;
        }
    }
    TW_REQUIRE(numDots == 2);
    std::istringstream is(spaced);
    VersionNumbers v;
    is >> v.major >> v.minor >> v.patch;
    TW_CHECK(!is.bad() && !is.fail());
    return v;
}

// Y takes the string X if the set has it, else the empty string.
void copyElseEmpty(PropertySet& set, const char* from, const char* to)
{
    std::string value;
    set.getString(from, value);
    set.setString(to, value);
}

// The old name's string moves to the new name; nothing happens without one.
void renameString(PropertySet& set, const char* oldName, const char* newName)
{
    std::string value;
    if (!set.getString(oldName, value))
        return;
    set.setString(newName, value);
    set.erase(oldName);
}

bool isTrue(const PropertySet& set, const char* name)
{
    bool value = false;
    return set.getBool(name, value) && value;
}

// The first step, for a writable scheme without a version; `version` is the
// working version, "1.2.1".
void convertTo121(PropertySet& set, const std::string& version)
{
    // 1-2. Left-aligned lists become one element a line.
    if (isTrue(set, P::ALIGN_FN_PARAMS_LEFT))
        set.setString(P::WS_BETWEEN_FN_PARAMS, "\n");
    if (isTrue(set, P::ALIGN_CS_FOR_CLAUSES_LEFT))
        set.setString(P::WS_BETWEEN_CS_FOR_CLAUSES, "\n");
    // 3. Names that this version dropped.
    for (const char* name : {P::WS_AFTER_DD_NAME, P::ALIGN_FN_PARAMS_LEFT, P::ALIGN_FN_PARAMS_LEFT_ON_WRAP,
                             P::ALIGN_CS_FOR_CLAUSES_LEFT, P::ALIGN_CS_FOR_CLAUSES_LEFT_ON_WRAP})
        set.erase(name);
    // 4. Line wrapping's first defaults. Three of them go to the integer map
    //    although the pages read them otherwise; the editor then takes its fallback.
    set.setInt(P::LINE_WRAP_DO_NOT_FORMAT, 0);
    set.setBool(P::LINE_WRAP, false);
    set.setInt(P::RIGHT_MARGIN, 78);
    set.setInt(P::COMMA_WRAP_STYLE, 2);
    set.setInt(P::EXPR_WRAP_STYLE, 2);
    set.setInt(P::LIST_WRAP_STRATEGY, 1);
    set.setInt(P::SHIFT_WRAP_STYLE, 1);
    set.setInt(P::WRAP_STYLE, 1);
    set.setInt(P::WRAP_INDENT, 0);
    set.setInt(P::DATA_DO_NOT_FORMAT, 0);
    // 5. Initialiser bodies of data take the global body values.
    copyElseEmpty(set, P::GLOBAL_WS_BEFORE_OPEN_BRACE, P::WS_BEFORE_DD_OPEN_BRACE);
    copyElseEmpty(set, P::GLOBAL_WS_AFTER_OPEN_BRACE, P::WS_AFTER_DD_OPEN_BRACE);
    copyElseEmpty(set, P::GLOBAL_WS_BEFORE_CLOSE_BRACE, P::WS_BEFORE_DD_CLOSE_BRACE);
    copyElseEmpty(set, P::GLOBAL_INDENT_CONTENT, P::INDENT_DD_CONTENT);
    // 6-7. Gaps that this version introduced.
    set.setString(P::WS_BETWEEN_DD_ELEMENTS, " ");
    for (const char* name : {P::GLOBAL_WS_BEFORE_COMMA, P::WS_BEFORE_CLASS_INITS_COMMA, P::WS_BEFORE_DD_COMMA,
                             P::WS_BEFORE_ENUM_COMMA, P::WS_BEFORE_FN_CALL_COMMA, P::WS_BEFORE_FN_COMMA,
                             P::WS_BEFORE_TP_COMMA, P::WS_BEFORE_BASE_CLAUSES_COMMA})
        set.setString(name, "");
    // 8. Calls take the values of declarations.
    copyElseEmpty(set, P::WS_AFTER_FN_NAME, P::WS_AFTER_FN_CALL_NAME);
    copyElseEmpty(set, P::WS_BETWEEN_FN_PARAMS, P::WS_BETWEEN_FN_CALL_ARGS);
    // 9. The tab size's old name.
    std::int32_t spacesPerTab = 0;
    if (set.getInt(P::SPACES_PER_TAB, spacesPerTab)) {
        set.setInt(P::TAB_SIZE, spacesPerTab);
        set.erase(P::SPACES_PER_TAB);
    }
    // 10. The gaps after a head became the gaps before the body.
    renameString(set, P::WS_AFTER_CLASS_HEAD, P::WS_BEFORE_CLASS_OPEN_BRACE);
    renameString(set, P::WS_AFTER_NS_HEAD, P::WS_BEFORE_NS_OPEN_BRACE);
    renameString(set, P::WS_AFTER_ENUM_HEAD, P::WS_BEFORE_ENUM_OPEN_BRACE);
    renameString(set, P::WS_AFTER_FN_HEAD, P::WS_BEFORE_FN_OPEN_BRACE);
    renameString(set, P::WS_AFTER_CS_HEAD, P::WS_BEFORE_CS_OPEN_BRACE);
    // 11.
    set.setString(P::TIDEWRIGHT_VERSION, version);
}

void convertTo122(PropertySet& set)
{
    set.setString(P::WS_BETWEEN_UNARY_OP_OPERAND, "");
    set.setString(P::TIDEWRIGHT_VERSION, VERSION_1_2_2);
}

void convertTo130(PropertySet& set)
{
    set.setInt(P::IF_ELSE_CS_SINGLE_STMT_BRACE_STYLE, 0);
    set.setInt(P::FOR_CS_SINGLE_STMT_BRACE_STYLE, 0);
    set.setInt(P::WHILE_CS_SINGLE_STMT_BRACE_STYLE, 0);
    set.setInt(P::INDENT_WRAP_STYLE, 1);
    set.setString(P::WS_BEFORE_LBRACKET, "");
    set.erase(P::WS_AFTER_DD_RBRACKET);
    set.setString(P::TIDEWRIGHT_VERSION, VERSION_1_3_0);
}

// What the steps do to one scheme. `version` is the working version: a scheme
// without one keeps the text of the scheme before it (empty for the first).
// A read-only scheme is listed once for each step it misses.
struct OneScheme {
    PropertySet set;
    bool readOnly;
    bool changed = false;
};

void convertOne(OneScheme& scheme, std::string& version, std::vector<std::string>& listed)
{
    const std::string name = scheme.set.name();
    // 1-2. No version: a writable scheme starts at "1.2.1" with the first step.
    if (!scheme.set.getString(P::TIDEWRIGHT_VERSION, version)) {
        if (scheme.readOnly) {
            listed.push_back(name);
        } else {
            scheme.changed = true;
            version = VERSION_1_2_1;
            convertTo121(scheme.set, version);
        }
    }
    // 3.
    if (isOlderVersion(version, VERSION_1_2_2)) {
        if (scheme.readOnly) {
            listed.push_back(name);
        } else {
            scheme.changed = true;
            convertTo122(scheme.set);
        }
    }
    // 4.
    if (isOlderVersion(version, VERSION_1_3_0)) {
        if (scheme.readOnly) {
            listed.push_back(name);
        } else {
            scheme.changed = true;
            convertTo130(scheme.set);
        }
    }
}

// The closing text about read-only schemes: one name, or the names each
// followed by CR LF.
std::string readOnlyText(const std::vector<std::string>& listed)
{
    if (listed.empty())
        return "";
    if (listed.size() == 1)
        return fillTemplate(oneOldSchemeTemplate(), {listed.front()});
    std::string names;
    for (const std::string& name : listed)
        names += name + "\r\n";
    return fillTemplate(severalOldSchemesTemplate(), {names});
}

} // namespace

SchemeConversion convertScheme(Kempt::PropertySet& set, std::string& from)
{
    from.clear();
    set.getString(P::TIDEWRIGHT_VERSION, from);
    OneScheme scheme{set, false};
    std::string version;
    std::vector<std::string> listed;
    try {
        convertOne(scheme, version, listed);
    } catch (const Varnel::ContractViolation&) {
        return SchemeConversion::INVALID;
    }
    if (!scheme.changed)
        return SchemeConversion::CURRENT;
    set.swap(scheme.set);
    return SchemeConversion::CONVERTED;
}

bool isOlderVersion(const std::string& a, const std::string& b)
{
    const VersionNumbers older = parseVersion(a);
    const VersionNumbers newer = parseVersion(b);
    if (older.major != newer.major)
        return older.major < newer.major;
    if (older.minor != newer.minor)
        return older.minor < newer.minor;
    return older.patch < newer.patch;
}

std::string convertSchemes(PropertySetStore& store)
{
    TraceScope trace("convertSchemes");
    std::string message;
    std::vector<std::string> listed;
    std::string version;
    bool changed = false;

    for (const auto& [name, entry] : store) {
        OneScheme scheme{entry.set, entry.readOnly};
        try {
            convertOne(scheme, version, listed);
        } catch (const Varnel::ContractViolation&) {
            // The scheme stays as it was; the pass goes on with the next.
            message += fillTemplate(invalidVersionTemplate(), {name, version, P::TIDEWRIGHT_VERSION});
            continue;
        }
        if (scheme.changed) {
            trace.line("Converted " + name);
            store.replace(scheme.set);
            changed = true;
        }
    }

    if (changed)
        store.write();
    return message + readOnlyText(listed);
}

} // namespace KemptUI
