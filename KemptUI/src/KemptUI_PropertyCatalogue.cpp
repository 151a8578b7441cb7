// The catalogue table itself and the small decisions that read it: which radio
// shows a stored value, how an Amount reads and writes, which fallbacks a page
// fills in. The table is constant data, grouped by page in tab order.
#include "KemptUI_PropertyCatalogue.h"

#include "Kempt_PropertyNames.h"
#include "Varnel_Contract.h"

#include <algorithm>
#include <map>

namespace KemptUI {

namespace {

namespace P = Kempt::Prop;
using K = PropertyKind;
using R = PropertyRole;

// ---------------------------------------------------------------------------
// Radios.

constexpr Choice CONVERT_WS_CHOICES[] = {{1, "tabs to spaces"}, {2, "spaces to tabs"}, {0, "do not convert"}};
constexpr Choice WRAP_STYLE_CHOICES[] = {{1, "Align logically with previous line"}, {2, "Indent by"}};
constexpr Choice EXPR_WRAP_STYLE_CHOICES[] = {{1, "Before an operator"}, {2, "After an operator"}};
constexpr Choice SHIFT_WRAP_STYLE_CHOICES[] = {{1, "Before the shift operator"}, {2, "After the shift operator"}};
constexpr Choice COMMA_WRAP_STYLE_CHOICES[] = {{1, "Before the comma"}, {2, "After the comma"}};
constexpr Choice LIST_WRAP_STRATEGY_CHOICES[] = {{1, "Fit as many elements as possible on a single line"},
                                                 {2, "Put each element on a separate line"}};
constexpr Choice BRACE_STYLE_CHOICES[] = {{1, "Always brace"}, {2, "Never brace"}, {0, "Leave as is"}};
constexpr Choice ANCHOR_CHOICES[] = {{0, "Typename"}, {1, "Identifier"}};

// ---------------------------------------------------------------------------
// Builders for the common rows.

constexpr std::string_view EMPTY_TEXT{};

constexpr PropertyInfo ws(const char* name, Page page, const char* label, const char* global = "")
{
    return {.name = name, .kind = K::WHITE_SPACE, .page = page, .label = label, .fallback = EMPTY_TEXT,
            .globalSource = global};
}

constexpr PropertyInfo amount(const char* name, Page page, const char* label, const char* global = "")
{
    return {.name = name, .kind = K::AMOUNT, .page = page, .label = label, .fallback = EMPTY_TEXT,
            .globalSource = global};
}

constexpr PropertyInfo flag(const char* name, Page page, const char* label)
{
    return {.name = name, .kind = K::FLAG, .page = page, .label = label, .fallback = false};
}

constexpr PropertyInfo choice(const char* name, Page page, const char* label, const char* group,
                              std::span<const Choice> choices, std::int32_t fallback)
{
    return {.name = name, .kind = K::CHOICE, .page = page, .label = label, .group = group, .fallback = fallback,
            .choices = choices};
}

constexpr PropertyInfo doNotFormat(const char* name, Page page)
{
    return {.name = name, .kind = K::FLAG, .role = R::DO_NOT_FORMAT, .page = page, .label = "Do not format",
            .fallback = false};
}

constexpr PropertyInfo useGlobal(const char* name, Page page)
{
    return {.name = name, .kind = K::FLAG, .role = R::USE_GLOBAL, .page = page, .label = "Use global settings",
            .fallback = false};
}

constexpr PropertyInfo noPage(const char* name, K kind, const char* note)
{
    return {.name = name, .kind = kind, .role = R::NO_PAGE, .note = note};
}

constexpr PropertyInfo unused(const char* name, K kind, const char* note = "")
{
    return {.name = name, .kind = kind, .role = R::UNUSED, .note = note};
}

constexpr PropertyInfo retired(const char* name, K kind, const char* note)
{
    return {.name = name, .kind = kind, .role = R::RETIRED, .note = note};
}

// ---------------------------------------------------------------------------
// The table.

constexpr Page G = Page::GLOBALS;
constexpr Page NS = Page::NAMESPACES;
constexpr Page CL = Page::CLASSES;
constexpr Page EN = Page::ENUMS;
constexpr Page FN = Page::FUNCTIONS;
constexpr Page MI = Page::MEMBER_INITS;
constexpr Page DD = Page::DATA;
constexpr Page CS = Page::CONTROL_STATEMENTS;
constexpr Page PP = Page::PREPROCESSOR;
constexpr Page EX = Page::EXPRESSIONS;
constexpr Page PR = Page::POINTERS_REFS;
constexpr Page TP = Page::TEMPLATES;
constexpr Page LW = Page::LINE_WRAPPING;

// "Use global settings" copies the global values into a page's body fields
// (indent, before open, after open, before close), its comma and its parens:
// the fields that carry a globalSource below.
constexpr PropertyInfo CATALOGUE[] = {
    // Global Settings
    {.name = P::TAB_SIZE, .kind = K::NUMBER, .page = G, .label = "Tab size:", .fallback = 4, .minimum = 0,
     .maximum = 32767, .note = "A formatting run of a scheme without it uses 1."},
    {.name = P::CONVERT_WS, .kind = K::CHOICE, .page = G, .group = "Convert", .fallback = 1,
     .choices = CONVERT_WS_CHOICES},
    amount(P::LEFT_MARGIN, G, "Left margin:"),
    amount(P::GLOBAL_INDENT_CONTENT, G, "Body:"),
    ws(P::GLOBAL_WS_AFTER_OPEN_PAREN, G, "After open paren:"),
    ws(P::GLOBAL_WS_BEFORE_CLOSE_PAREN, G, "Before close paren:"),
    ws(P::GLOBAL_WS_BEFORE_OPEN_BRACE, G, "Before body open:"),
    ws(P::GLOBAL_WS_AFTER_OPEN_BRACE, G, "After body open:"),
    ws(P::GLOBAL_WS_BEFORE_CLOSE_BRACE, G, "Before body close:"),
    ws(P::GLOBAL_WS_BEFORE_COMMA, G, "Before comma:"),
    {.name = P::BRACE_OFFSET_RELATIVE, .kind = K::FLAG, .page = G,
     .label = "Indent braces from the statement that owns them", .fallback = false,
     .note = "True: blanks after the last newline of a brace setting (\"\\n  \") are added to the indent of the "
             "construct that owns the brace, as GNU and Whitesmiths braces need. False or not set: they are "
             "written from the left edge."},
    doNotFormat(P::GLOBALS_DO_NOT_FORMAT, G),

    // Namespaces
    amount(P::INDENT_NS_CONTENT, NS, "Body:", P::GLOBAL_INDENT_CONTENT),
    ws(P::WS_BEFORE_NS_OPEN_BRACE, NS, "Before body open:", P::GLOBAL_WS_BEFORE_OPEN_BRACE),
    ws(P::WS_AFTER_NS_OPEN_BRACE, NS, "After body open:", P::GLOBAL_WS_AFTER_OPEN_BRACE),
    ws(P::WS_BEFORE_NS_CLOSE_BRACE, NS, "Before body close:", P::GLOBAL_WS_BEFORE_CLOSE_BRACE),
    doNotFormat(P::NAMESPACES_DO_NOT_FORMAT, NS),
    useGlobal(P::NS_USE_GLOBAL_SETTINGS, NS),

    // Classes, Structs and Unions
    amount(P::INDENT_CLASS_CONTENT, CL, "Body:", P::GLOBAL_INDENT_CONTENT),
    amount(P::INDENT_ACCESS_SPEC_LABEL, CL, "Access specifier:"),
    ws(P::WS_BEFORE_CLASS_OPEN_BRACE, CL, "Before body open:", P::GLOBAL_WS_BEFORE_OPEN_BRACE),
    ws(P::WS_AFTER_CLASS_OPEN_BRACE, CL, "After body open:", P::GLOBAL_WS_AFTER_OPEN_BRACE),
    ws(P::WS_BEFORE_CLASS_CLOSE_BRACE, CL, "Before body close:", P::GLOBAL_WS_BEFORE_CLOSE_BRACE),
    ws(P::WS_AFTER_CLASS_NAME, CL, "Before base clause open:"),
    ws(P::WS_BEFORE_BASE_CLAUSES, CL, "After base clause open:"),
    ws(P::WS_BEFORE_BASE_CLAUSES_COMMA, CL, "Before base clause comma:", P::GLOBAL_WS_BEFORE_COMMA),
    ws(P::WS_BETWEEN_BASE_CLAUSES, CL, "Between base clauses:"),
    flag(P::ALIGN_CLASS_MEMBER_NAMES_LEFT, CL, "Align class member names left"),
    doNotFormat(P::CLASS_DO_NOT_FORMAT, CL),
    useGlobal(P::CLASS_USE_GLOBAL_SETTINGS, CL),

    // Enums
    amount(P::INDENT_ENUM_CONTENT, EN, "Body:", P::GLOBAL_INDENT_CONTENT),
    ws(P::WS_BEFORE_ENUM_OPEN_BRACE, EN, "Before body open:", P::GLOBAL_WS_BEFORE_OPEN_BRACE),
    ws(P::WS_AFTER_ENUM_OPEN_BRACE, EN, "After body open:", P::GLOBAL_WS_AFTER_OPEN_BRACE),
    ws(P::WS_BEFORE_ENUM_CLOSE_BRACE, EN, "Before body close:", P::GLOBAL_WS_BEFORE_CLOSE_BRACE),
    ws(P::WS_BEFORE_ENUM_COMMA, EN, "Before comma:", P::GLOBAL_WS_BEFORE_COMMA),
    ws(P::WS_BETWEEN_ENUM_ELEMENTS, EN, "Between elements:"),
    flag(P::ALIGN_ENUM_INITIALIZERS, EN, "Align initializers"),
    doNotFormat(P::ENUMS_DO_NOT_FORMAT, EN),
    useGlobal(P::ENUM_USE_GLOBAL_SETTINGS, EN),

    // Functions
    amount(P::INDENT_FN_CONTENT, FN, "Body:", P::GLOBAL_INDENT_CONTENT),
    ws(P::WS_AFTER_FN_DECL_RETURN_TYPE, FN, "After type name:"),
    ws(P::WS_AFTER_FN_NAME, FN, "After function name:"),
    ws(P::WS_AFTER_FN_OPEN_PAREN, FN, "After open paren:", P::GLOBAL_WS_AFTER_OPEN_PAREN),
    ws(P::WS_BEFORE_FN_CLOSE_PAREN, FN, "Before close paren:", P::GLOBAL_WS_BEFORE_CLOSE_PAREN),
    ws(P::WS_BEFORE_FN_COMMA, FN, "Before comma:", P::GLOBAL_WS_BEFORE_COMMA),
    ws(P::WS_BETWEEN_FN_PARAMS, FN, "Between parameters:"),
    {.name = P::WS_AFTER_FN_DEFN_RETURN_TYPE, .kind = K::WHITE_SPACE, .page = FN, .label = "After type name:",
     .group = "White space - function definitions only:", .fallback = EMPTY_TEXT},
    ws(P::WS_BEFORE_FN_OPEN_BRACE, FN, "Before body open:", P::GLOBAL_WS_BEFORE_OPEN_BRACE),
    ws(P::WS_AFTER_FN_OPEN_BRACE, FN, "After body open:", P::GLOBAL_WS_AFTER_OPEN_BRACE),
    ws(P::WS_BEFORE_FN_CLOSE_BRACE, FN, "Before body close:", P::GLOBAL_WS_BEFORE_CLOSE_BRACE),
    flag(P::ALIGN_FN_DECL_NAMES_LEFT, FN, "Left align function names in groups of function declarations"),
    doNotFormat(P::FN_DO_NOT_FORMAT, FN),
    useGlobal(P::FN_USE_GLOBAL_SETTINGS, FN),

    // Member Initializer Lists
    ws(P::WS_BEFORE_CLASS_INIT_LIST, MI, "Before initializer list:"),
    ws(P::WS_AFTER_CLASS_INIT_LIST, MI, "After initializer list:"),
    ws(P::WS_BEFORE_CLASS_INITS, MI, "Before first initializer:"),
    ws(P::WS_BEFORE_CLASS_INITS_COMMA, MI, "Before comma:"),
    ws(P::WS_BETWEEN_CLASS_INITS, MI, "Between initializers:"),
    doNotFormat(P::MEMBERINITS_DO_NOT_FORMAT, MI),

    // Variable Declarations
    amount(P::INDENT_DD_CONTENT, DD, "Body:", P::GLOBAL_INDENT_CONTENT),
    ws(P::WS_AFTER_DD_TYPE_ID, DD, "After typename:"),
    ws(P::WS_BEFORE_DD_OPEN_BRACE, DD, "Before init body open:", P::GLOBAL_WS_BEFORE_OPEN_BRACE),
    ws(P::WS_AFTER_DD_OPEN_BRACE, DD, "After init body open:", P::GLOBAL_WS_AFTER_OPEN_BRACE),
    ws(P::WS_BEFORE_DD_CLOSE_BRACE, DD, "Before init body close:", P::GLOBAL_WS_BEFORE_CLOSE_BRACE),
    ws(P::WS_BEFORE_DD_COMMA, DD, "Before comma:", P::GLOBAL_WS_BEFORE_COMMA),
    ws(P::WS_BETWEEN_DD_ELEMENTS, DD, "Between init elements:"),
    flag(P::ALIGN_DD_NAMES_LEFT, DD, "Align identifiers"),
    flag(P::ALIGN_DD_INITIALIZERS, DD, "Align initializers"),
    doNotFormat(P::DATA_DO_NOT_FORMAT, DD),
    useGlobal(P::DATA_USE_GLOBAL_SETTINGS, DD),

    // Control Statements
    amount(P::INDENT_CS_CONTENT, CS, "Body:", P::GLOBAL_INDENT_CONTENT),
    {.name = P::INDENT_CS_SINGLE_STMT, .kind = K::AMOUNT, .page = CS, .label = "Single statement body:",
     .fallback = EMPTY_TEXT,
     .note = "The body of a control statement without braces. Not set: the Body indent (INDENT_CS_CONTENT)."},
    amount(P::INDENT_CS_CASE_LABELS, CS, "Case labels:"),
    amount(P::INDENT_CS_CASE_CONTENT, CS, "Case content:"),
    ws(P::WS_AFTER_CS_KEY, CS, "After keyword:"),
    ws(P::WS_BETWEEN_CS_FOR_CLAUSES, CS, "Between \"for\" clauses:"),
    ws(P::WS_AFTER_CS_OPEN_PAREN, CS, "After open paren:", P::GLOBAL_WS_AFTER_OPEN_PAREN),
    ws(P::WS_BEFORE_CS_CLOSE_PAREN, CS, "Before close paren:", P::GLOBAL_WS_BEFORE_CLOSE_PAREN),
    ws(P::WS_BEFORE_CS_OPEN_BRACE, CS, "Before body open:", P::GLOBAL_WS_BEFORE_OPEN_BRACE),
    ws(P::WS_AFTER_CS_OPEN_BRACE, CS, "After body open:", P::GLOBAL_WS_AFTER_OPEN_BRACE),
    ws(P::WS_BEFORE_CS_CLOSE_BRACE, CS, "Before body close:", P::GLOBAL_WS_BEFORE_CLOSE_BRACE),
    ws(P::WS_BETWEEN_CS, CS, "After body close:"),
    ws(P::WS_AFTER_CS_CASE_LABELS, CS, "After case labels:"),
    {.name = P::IF_ELSE_CS_SINGLE_STMT_BRACE_STYLE, .kind = K::CHOICE, .page = CS, .label = "if/else",
     .group = "Single statement control blocks", .fallback = 0, .choices = BRACE_STYLE_CHOICES,
     .note = "Always brace: \"if (a) b(); else c();\" becomes \"if (a) { b(); } else { c(); }\"; Never brace: the "
             "reverse. An \"else if\" chain stays a chain; braces that decide which \"if\" an \"else\" belongs "
             "to stay."},
    {.name = P::FOR_CS_SINGLE_STMT_BRACE_STYLE, .kind = K::CHOICE, .page = CS, .label = "for",
     .group = "Single statement control blocks", .fallback = 0, .choices = BRACE_STYLE_CHOICES,
     .note = "Always brace: \"for (;;) b();\" becomes \"for (;;) { b(); }\"; Never brace: the reverse."},
    {.name = P::WHILE_CS_SINGLE_STMT_BRACE_STYLE, .kind = K::CHOICE, .page = CS, .label = "while",
     .group = "Single statement control blocks", .fallback = 0, .choices = BRACE_STYLE_CHOICES,
     .note = "Always brace: \"while (a) b();\" becomes \"while (a) { b(); }\"; Never brace: the reverse. The \"while\" "
             "of a \"do\" is not touched."},
    doNotFormat(P::CONTROL_STATEMENTS_DO_NOT_FORMAT, CS),
    useGlobal(P::CONTROL_STATEMENTS_USE_GLOBAL_SETTINGS, CS),

    // Preprocessor Directives: one radio group "Indent" over two flags.
    {.name = P::ALIGN_PPD_LEFT_MOST, .kind = K::FLAG, .page = PP, .label = "Align to left-most margin",
     .group = "Indent", .fallback = true, .note = "The one flag whose fallback is true."},
    {.name = P::PPD_DO_NOT_FORMAT, .kind = K::FLAG, .role = R::DO_NOT_FORMAT, .page = PP, .label = "Leave as is",
     .group = "Indent", .fallback = false,
     .note = "Both flags false is the radio \"Indent with surrounding text\"."},

    // Expressions
    ws(P::WS_AFTER_EXPR_OPEN_PAREN, EX, "After open paren:", P::GLOBAL_WS_AFTER_OPEN_PAREN),
    ws(P::WS_BEFORE_EXPR_CLOSE_PAREN, EX, "Before close paren:", P::GLOBAL_WS_BEFORE_CLOSE_PAREN),
    ws(P::WS_BEFORE_LBRACKET, EX, "Before left bracket:"),
    ws(P::WS_AFTER_LBRACKET, EX, "After left bracket:"),
    ws(P::WS_BEFORE_RBRACKET, EX, "Before right bracket:"),
    ws(P::WS_BETWEEN_EXPR_OP_OPERANDS, EX, "Either side of an operator:"),
    ws(P::WS_BETWEEN_UNARY_OP_OPERAND, EX, "Right of unary operator:"),
    ws(P::WS_AFTER_FN_CALL_NAME, EX, "After function name:"),
    ws(P::WS_BEFORE_FN_CALL_COMMA, EX, "Before comma:", P::GLOBAL_WS_BEFORE_COMMA),
    ws(P::WS_BETWEEN_FN_CALL_ARGS, EX, "Between arguments:"),
    doNotFormat(P::EXPR_DO_NOT_FORMAT, EX),
    useGlobal(P::EXPR_USE_GLOBAL_SETTINGS, EX),

    // Pointers && References
    {.name = P::ASTERISK_ANCHOR, .kind = K::ANCHOR, .page = PR, .label = "Keep * with:", .fallback = -1,
     .choices = ANCHOR_CHOICES, .note = "-1 sets neither radio; a formatting run of a scheme without it uses -1."},
    {.name = P::WS_BETWEEN_ASTERISK_ANCHOR, .kind = K::WHITE_SPACE, .page = PR,
     .label = "White space between Type and * :", .fallback = EMPTY_TEXT,
     .alternateLabel = "White space between * and Identifier:"},
    {.name = P::HANGING_ASTERISK, .kind = K::FLAG, .page = PR, .label = "Hang * to left of aligned names:",
     .fallback = false, .note = "Forced to false when the anchor is not \"Identifier\"."},
    {.name = P::AMPERSAND_ANCHOR, .kind = K::ANCHOR, .page = PR, .label = "Keep && with:", .fallback = -1,
     .choices = ANCHOR_CHOICES, .note = "-1 sets neither radio; a formatting run of a scheme without it uses -1."},
    {.name = P::WS_BETWEEN_AMPERSAND_ANCHOR, .kind = K::WHITE_SPACE, .page = PR,
     .label = "White space between Type and && :", .fallback = EMPTY_TEXT,
     .alternateLabel = "White space between && and Identifier:"},
    {.name = P::HANGING_AMPERSAND, .kind = K::FLAG, .page = PR, .label = "Hang && to left of aligned names:",
     .fallback = false, .note = "Forced to false when the anchor is not \"Identifier\"."},
    doNotFormat(P::POINTERSREFS_DO_NOT_FORMAT, PR),
    useGlobal(P::POINTERSREFS_USE_GLOBAL_SETTINGS, PR),

    // Templates
    ws(P::WS_BEFORE_TP_OPEN_BRACKET, TP, "Before open angle bracket:"),
    ws(P::WS_AFTER_TP_OPEN_BRACKET, TP, "After open angle bracket:"),
    ws(P::WS_BEFORE_TP_CLOSE_BRACKET, TP, "Before close angle bracket:"),
    ws(P::WS_AFTER_TP_CLOSE_BRACKET, TP, "After close angle bracket:"),
    ws(P::WS_BEFORE_TP_COMMA, TP, "Before comma:"),
    ws(P::WS_BETWEEN_TP_PARAMS, TP, "Between parameters:"),
    doNotFormat(P::TEMPLATES_DO_NOT_FORMAT, TP),

    // Line Wrapping
    flag(P::LINE_WRAP, LW, "Wrap long lines"),
    // The right margin's range is given nowhere else; it shares the spin
    // range of the tab size.
    {.name = P::RIGHT_MARGIN, .kind = K::NUMBER, .page = LW, .label = "Right margin:", .fallback = 78,
     .minimum = 0, .maximum = 32767},
    choice(P::WRAP_STYLE, LW, "", "Treatment of line continuation", WRAP_STYLE_CHOICES, 1),
    {.name = P::WRAP_INDENT, .kind = K::AMOUNT, .page = LW, .label = "Indent by",
     .group = "Treatment of line continuation", .fallback = EMPTY_TEXT,
     .note = "The count and unit beside the radio \"Indent by\"."},
    choice(P::EXPR_WRAP_STYLE, LW, "", "Wrap expressions", EXPR_WRAP_STYLE_CHOICES, 2),
    choice(P::SHIFT_WRAP_STYLE, LW, "", "Wrap input and output expressions", SHIFT_WRAP_STYLE_CHOICES, 1),
    choice(P::COMMA_WRAP_STYLE, LW, "", "Wrap comma separated lists", COMMA_WRAP_STYLE_CHOICES, 2),
    choice(P::LIST_WRAP_STRATEGY, LW, "", "List wrap strategy", LIST_WRAP_STRATEGY_CHOICES, 1),
    doNotFormat(P::LINE_WRAP_DO_NOT_FORMAT, LW),

    // On no page, read by the passes all the same.
    noPage(P::WS_AFTER_PARAM_TYPE_ID, K::WHITE_SPACE, "A formatting run of a scheme without it uses one blank."),
    noPage(P::WS_BEFORE_ACCESS_SPECS, K::WHITE_SPACE, ""),
    noPage(P::ALIGN_BASE_CLAUSES_LEFT, K::FLAG, ""),
    noPage(P::ALIGN_TP_PARAMS_LEFT, K::FLAG, "True makes the gap between template parameters a newline."),
    noPage(P::ALIGN_CS_FOR_CLAUSES_LEFT, K::FLAG, ""),
    noPage(P::ALIGN_FN_PARAMS_LEFT, K::FLAG, "True makes the gap between function parameters a newline."),
    noPage(P::ALIGN_FN_CALL_ARGS_LEFT, K::FLAG, ""),
    noPage(P::INDENT_WRAP_STYLE, K::INTEGER, "0 to 2."),

    {.name = P::TIDEWRIGHT_VERSION, .kind = K::VERSION, .role = R::VERSION,
     .note = "The version of the program that last converted the scheme, such as 1.3.0."},

    // Read by no pass and no page; kept so that a file that holds them is read
    // and written unchanged. The kinds follow the names' families.
    unused(P::ALIGN_BASE_CLAUSES_LEFT_ON_WRAP, K::FLAG),
    unused(P::ALIGN_CS_FOR_CLAUSES_ON_WRAP, K::FLAG),
    unused(P::ALIGN_FN_PARAMS_LEFT_ON_WRAP, K::FLAG, "Erased by the conversion of a scheme without a version."),
    unused(P::INDENT_CLASS_INITS, K::AMOUNT),
    unused(P::INDENT_FN_PARAMS, K::AMOUNT),
    unused(P::WS_AFTER_ACCESS_SPEC_LABEL, K::WHITE_SPACE),
    unused(P::WS_AFTER_FN_DECL, K::WHITE_SPACE),
    {.name = P::WS_BETWEEN_CS_CASES, .kind = K::WHITE_SPACE, .role = R::UNUSED, .page = CS,
     .label = "Between cases:", .note = "Its field on the Control Statements page is kept hidden."},

    // Written by older versions; the scheme conversion renames or erases them.
    retired(P::ALIGN_CS_FOR_CLAUSES_LEFT_ON_WRAP, K::FLAG, "Erased by the conversion to 1.2.1."),
    retired(P::SPACES_PER_TAB, K::INTEGER, "Moved to TAB_SIZE by the conversion to 1.2.1."),
    retired(P::WS_AFTER_CLASS_HEAD, K::WHITE_SPACE, "Renamed WS_BEFORE_CLASS_OPEN_BRACE by the conversion to 1.2.1."),
    retired(P::WS_AFTER_CS_HEAD, K::WHITE_SPACE, "Renamed WS_BEFORE_CS_OPEN_BRACE by the conversion to 1.2.1."),
    retired(P::WS_AFTER_DD_NAME, K::WHITE_SPACE, "Erased by the conversion to 1.2.1."),
    retired(P::WS_AFTER_DD_RBRACKET, K::WHITE_SPACE, "Erased by the conversion to 1.3.0."),
    retired(P::WS_AFTER_ENUM_HEAD, K::WHITE_SPACE, "Renamed WS_BEFORE_ENUM_OPEN_BRACE by the conversion to 1.2.1."),
    retired(P::WS_AFTER_FN_HEAD, K::WHITE_SPACE, "Renamed WS_BEFORE_FN_OPEN_BRACE by the conversion to 1.2.1."),
    retired(P::WS_AFTER_NS_HEAD, K::WHITE_SPACE, "Renamed WS_BEFORE_NS_OPEN_BRACE by the conversion to 1.2.1."),
};

constexpr PageInfo PAGES[] = {
    {Page::GLOBALS, "GlobalsPage", "Global Settings", P::GLOBALS_DO_NOT_FORMAT, nullptr},
    {Page::NAMESPACES, "NamespacesPage", "Namespaces", P::NAMESPACES_DO_NOT_FORMAT, P::NS_USE_GLOBAL_SETTINGS},
    {Page::CLASSES, "ClassesPage", "Classes, Structs and Unions", P::CLASS_DO_NOT_FORMAT,
     P::CLASS_USE_GLOBAL_SETTINGS},
    {Page::ENUMS, "EnumsPage", "Enums", P::ENUMS_DO_NOT_FORMAT, P::ENUM_USE_GLOBAL_SETTINGS},
    {Page::FUNCTIONS, "FunctionsPage", "Functions", P::FN_DO_NOT_FORMAT, P::FN_USE_GLOBAL_SETTINGS},
    {Page::MEMBER_INITS, "MemberInitsPage", "Member Initializer Lists", P::MEMBERINITS_DO_NOT_FORMAT, nullptr},
    {Page::DATA, "DataPage", "Variable Declarations", P::DATA_DO_NOT_FORMAT, P::DATA_USE_GLOBAL_SETTINGS},
    {Page::CONTROL_STATEMENTS, "ControlStatementsPage", "Control Statements", P::CONTROL_STATEMENTS_DO_NOT_FORMAT,
     P::CONTROL_STATEMENTS_USE_GLOBAL_SETTINGS},
    {Page::PREPROCESSOR, "PreprocessorPage", "Preprocessor Directives", P::PPD_DO_NOT_FORMAT, nullptr},
    {Page::EXPRESSIONS, "ExpressionsPage", "Expressions", P::EXPR_DO_NOT_FORMAT, P::EXPR_USE_GLOBAL_SETTINGS},
    {Page::POINTERS_REFS, "PointersRefsPage", "Pointers && References", P::POINTERSREFS_DO_NOT_FORMAT,
     P::POINTERSREFS_USE_GLOBAL_SETTINGS},
    {Page::TEMPLATES, "TemplatesPage", "Templates", P::TEMPLATES_DO_NOT_FORMAT, nullptr},
    {Page::LINE_WRAPPING, "LineWrappingPage", "Line Wrapping", P::LINE_WRAP_DO_NOT_FORMAT, nullptr},
};

// A page's own fields: options and section flags; not the hidden unused field.
bool isField(const PropertyInfo& info)
{
    return info.role == R::OPTION || info.role == R::DO_NOT_FORMAT || info.role == R::USE_GLOBAL;
}

// Puts a fallback into the set under the map of the property's kind.
void setFallback(Kempt::PropertySet& set, const PropertyInfo& info)
{
    if (const bool* b = std::get_if<bool>(&info.fallback))
        set.setBool(info.name, *b);
    else if (const std::int32_t* i = std::get_if<std::int32_t>(&info.fallback))
        set.setInt(info.name, *i);
    else if (const std::string_view* s = std::get_if<std::string_view>(&info.fallback))
        set.setString(info.name, std::string(*s));
}

// Whether the set holds the property in the map of its kind.
bool holds(const Kempt::PropertySet& set, const PropertyInfo& info)
{
    switch (storageOf(info.kind)) {
    case Storage::BOOL: return set.bools().count(info.name) != 0;
    case Storage::INT: return set.ints().count(info.name) != 0;
    case Storage::STRING: return set.strings().count(info.name) != 0;
    }
    TW_CHECK(false);
    return false;
}

} // namespace

Storage storageOf(PropertyKind kind)
{
    switch (kind) {
    case K::FLAG: return Storage::BOOL;
    case K::NUMBER:
    case K::CHOICE:
    case K::ANCHOR:
    case K::INTEGER: return Storage::INT;
    case K::WHITE_SPACE:
    case K::AMOUNT:
    case K::VERSION: return Storage::STRING;
    }
    TW_CHECK(false);
    return Storage::STRING;
}

std::span<const PropertyInfo> catalogue()
{
    return CATALOGUE;
}

std::span<const PageInfo> pages()
{
    return PAGES;
}

const PageInfo& pageInfo(Page page)
{
    const auto it = std::find_if(std::begin(PAGES), std::end(PAGES), [&](const PageInfo& p) { return p.page == page; });
    TW_REQUIRE(it != std::end(PAGES));
    return *it;
}

const PropertyInfo* findProperty(std::string_view name)
{
    static const std::map<std::string_view, const PropertyInfo*> index = [] {
        std::map<std::string_view, const PropertyInfo*> byName;
        for (const PropertyInfo& info : CATALOGUE)
            byName.emplace(info.name, &info);
        return byName;
    }();
    const auto it = index.find(name);
    return it == index.end() ? nullptr : it->second;
}

std::vector<const PropertyInfo*> propertiesOn(Page page)
{
    std::vector<const PropertyInfo*> fields;
    for (const PropertyInfo& info : CATALOGUE)
        if (info.page == page && isField(info))
            fields.push_back(&info);
    return fields;
}

std::int32_t radioIndex(const PropertyInfo& info, std::int32_t stored)
{
    TW_REQUIRE(info.kind == PropertyKind::CHOICE || info.kind == PropertyKind::ANCHOR);
    // Anchor: the stored value is the radio itself; -1 and strays set none.
    if (info.kind == PropertyKind::ANCHOR)
        return stored == 0 || stored == 1 ? stored : -1;
    // Choice: stored 1 is the first radio, 2 the second, anything else the third.
    for (std::size_t radio = 0; radio < 2 && radio < info.choices.size(); ++radio)
        if (info.choices[radio].stored == stored)
            return static_cast<std::int32_t>(radio);
    return info.choices.size() > 2 ? 2 : -1;
}

std::int32_t storedValue(const PropertyInfo& info, std::int32_t radio)
{
    TW_REQUIRE(radio >= 0 && static_cast<std::size_t>(radio) < info.choices.size());
    return info.choices[static_cast<std::size_t>(radio)].stored;
}

Amount amountFromText(std::string_view text)
{
    const AmountUnit unit = text.find('\t') != std::string_view::npos ? AmountUnit::TABS : AmountUnit::SPACES;
    return {static_cast<std::int32_t>(text.size()), unit};
}

std::string amountText(Amount amount)
{
    TW_REQUIRE(amount.count >= 0);
    return std::string(static_cast<std::size_t>(amount.count), amount.unit == AmountUnit::TABS ? '\t' : ' ');
}

std::int32_t preprocessorIndentRadio(const Kempt::PropertySet& set)
{
    bool leave = false;
    bool leftMost = false;
    set.getBool(P::PPD_DO_NOT_FORMAT, leave);
    set.getBool(P::ALIGN_PPD_LEFT_MOST, leftMost);
    if (leave)
        return 2;
    return leftMost ? 1 : 0;
}

bool fillFallbacks(Kempt::PropertySet& set, Page page)
{
    bool changed = false;
    for (const PropertyInfo* info : propertiesOn(page)) {
        if (std::holds_alternative<std::monostate>(info->fallback) || holds(set, *info))
            continue;
        setFallback(set, *info);
        changed = true;
    }
    return changed;
}

std::string displayText(std::string_view dialogText)
{
    std::string text;
    for (std::size_t i = 0; i < dialogText.size(); ++i) {
        if (dialogText[i] != '&') {
            text += dialogText[i];
            continue;
        }
        // "&&" is one "&"; a lone "&" marks the next letter as the accelerator.
        if (i + 1 < dialogText.size() && dialogText[i + 1] == '&') {
            text += '&';
            ++i;
        }
    }
    return text;
}

const char* kindName(PropertyKind kind)
{
    switch (kind) {
    case K::FLAG: return "Flag";
    case K::NUMBER: return "Number";
    case K::CHOICE: return "Choice";
    case K::ANCHOR: return "Anchor";
    case K::INTEGER: return "Integer";
    case K::WHITE_SPACE: return "White space";
    case K::AMOUNT: return "Amount";
    case K::VERSION: return "Version";
    }
    TW_CHECK(false);
    return "";
}

const char* roleName(PropertyRole role)
{
    switch (role) {
    case R::OPTION: return "option";
    case R::DO_NOT_FORMAT: return "do-not-format flag";
    case R::USE_GLOBAL: return "use-global flag";
    case R::NO_PAGE: return "on no page";
    case R::UNUSED: return "kept, unused";
    case R::RETIRED: return "retired";
    case R::VERSION: return "scheme version";
    }
    TW_CHECK(false);
    return "";
}

} // namespace KemptUI
