// The options the passes of this build act on, one table.
#include "Kempt_PropertyEffect.h"

#include "Kempt_PropertyNames.h"

#include <array>

namespace Kempt {

namespace {

struct Effect {
    std::string_view name;
    PropertyEffect effect;
    std::string_view note;
};

using enum PropertyEffect;

// Every option that is not NOT_YET. Function heads, parameter lists, member
// initialisers, function bodies, classes, namespaces, enums, templates,
// linkage blocks, data declarations, control statements, bare blocks, case
// labels, comments, directives and expression statements are laid out;
// braces round single statements are added or removed, and long lines are
// wrapped.
constexpr std::array EFFECTS = {
    Effect{Prop::TAB_SIZE, IN_EFFECT, ""},
    Effect{Prop::CONVERT_WS, IN_EFFECT, ""},
    Effect{Prop::LEFT_MARGIN, IN_EFFECT, ""},
    // Functions.
    Effect{Prop::WS_BEFORE_FN_OPEN_BRACE, IN_EFFECT, ""},
    Effect{Prop::WS_AFTER_FN_NAME, IN_EFFECT, ""},
    Effect{Prop::INDENT_FN_CONTENT, IN_EFFECT, ""},
    Effect{Prop::WS_AFTER_FN_OPEN_BRACE, IN_EFFECT, ""},
    Effect{Prop::WS_BEFORE_FN_CLOSE_BRACE, IN_EFFECT, ""},
    Effect{Prop::WS_BEFORE_FN_COMMA, IN_EFFECT, ""},
    Effect{Prop::WS_BETWEEN_FN_PARAMS, IN_EFFECT, ""},
    Effect{Prop::WS_AFTER_FN_OPEN_PAREN, IN_EFFECT, ""},
    Effect{Prop::WS_BEFORE_FN_CLOSE_PAREN, IN_EFFECT, ""},
    Effect{Prop::ALIGN_FN_PARAMS_LEFT, IN_EFFECT, ""},
    Effect{Prop::ALIGN_FN_DECL_NAMES_LEFT, IN_EFFECT, ""},
    Effect{Prop::FN_DO_NOT_FORMAT, IN_EFFECT, ""},
    Effect{Prop::WS_AFTER_FN_DECL_RETURN_TYPE, IN_EFFECT, ""},
    Effect{Prop::WS_AFTER_FN_DEFN_RETURN_TYPE, IN_EFFECT, ""},
    Effect{Prop::WS_AFTER_PARAM_TYPE_ID, IN_EFFECT, ""},
    // Member initialisers.
    Effect{Prop::WS_BEFORE_CLASS_INIT_LIST, IN_EFFECT, ""},
    Effect{Prop::WS_BEFORE_CLASS_INITS, IN_EFFECT, ""},
    Effect{Prop::WS_BEFORE_CLASS_INITS_COMMA, IN_EFFECT, ""},
    Effect{Prop::WS_BETWEEN_CLASS_INITS, IN_EFFECT, ""},
    Effect{Prop::WS_AFTER_CLASS_INIT_LIST, IN_EFFECT, ""},
    // Control statements, case labels and bare blocks.
    Effect{Prop::WS_AFTER_CS_KEY, IN_EFFECT, ""},
    Effect{Prop::WS_AFTER_CS_OPEN_PAREN, IN_EFFECT, ""},
    Effect{Prop::WS_BEFORE_CS_CLOSE_PAREN, IN_EFFECT, ""},
    Effect{Prop::WS_BETWEEN_CS_FOR_CLAUSES, IN_EFFECT, ""},
    Effect{Prop::ALIGN_CS_FOR_CLAUSES_LEFT, IN_EFFECT, ""},
    Effect{Prop::WS_BEFORE_CS_OPEN_BRACE, IN_EFFECT, ""},
    Effect{Prop::WS_AFTER_CS_OPEN_BRACE, IN_EFFECT, ""},
    Effect{Prop::WS_BEFORE_CS_CLOSE_BRACE, IN_EFFECT, ""},
    Effect{Prop::INDENT_CS_CONTENT, IN_EFFECT, ""},
    // The brace rewriter.
    Effect{Prop::IF_ELSE_CS_SINGLE_STMT_BRACE_STYLE, IN_EFFECT, ""},
    Effect{Prop::FOR_CS_SINGLE_STMT_BRACE_STYLE, IN_EFFECT, ""},
    Effect{Prop::WHILE_CS_SINGLE_STMT_BRACE_STYLE, IN_EFFECT, ""},
    Effect{Prop::INDENT_CS_SINGLE_STMT, IN_EFFECT, ""},
    Effect{Prop::BRACE_OFFSET_RELATIVE, IN_EFFECT, ""},
    Effect{Prop::WS_BETWEEN_CS, IN_EFFECT, ""},
    Effect{Prop::INDENT_CS_CASE_LABELS, IN_EFFECT, ""},
    Effect{Prop::INDENT_CS_CASE_CONTENT, IN_EFFECT, ""},
    Effect{Prop::WS_AFTER_CS_CASE_LABELS, IN_EFFECT, ""},
    // Bare blocks and linkage blocks.
    Effect{Prop::GLOBAL_WS_BEFORE_OPEN_BRACE, IN_EFFECT, ""},
    Effect{Prop::GLOBAL_WS_AFTER_OPEN_BRACE, IN_EFFECT, ""},
    Effect{Prop::GLOBAL_WS_BEFORE_CLOSE_BRACE, IN_EFFECT, ""},
    Effect{Prop::GLOBAL_INDENT_CONTENT, IN_EFFECT, ""},
    // Classes, base clauses and access labels.
    Effect{Prop::WS_BEFORE_CLASS_OPEN_BRACE, IN_EFFECT, ""},
    Effect{Prop::WS_AFTER_CLASS_NAME, IN_EFFECT, ""},
    Effect{Prop::INDENT_CLASS_CONTENT, IN_EFFECT, ""},
    Effect{Prop::WS_AFTER_CLASS_OPEN_BRACE, IN_EFFECT, ""},
    Effect{Prop::WS_BEFORE_CLASS_CLOSE_BRACE, IN_EFFECT, ""},
    Effect{Prop::WS_BEFORE_BASE_CLAUSES, IN_EFFECT, ""},
    Effect{Prop::WS_BEFORE_BASE_CLAUSES_COMMA, IN_EFFECT, ""},
    Effect{Prop::WS_BETWEEN_BASE_CLAUSES, IN_EFFECT, ""},
    Effect{Prop::ALIGN_BASE_CLAUSES_LEFT, IN_EFFECT, ""},
    Effect{Prop::WS_BEFORE_ACCESS_SPECS, IN_EFFECT, ""},
    Effect{Prop::INDENT_ACCESS_SPEC_LABEL, IN_EFFECT, ""},
    Effect{Prop::ALIGN_CLASS_MEMBER_NAMES_LEFT, IN_EFFECT, ""},
    // Namespaces.
    Effect{Prop::WS_BEFORE_NS_OPEN_BRACE, IN_EFFECT, ""},
    Effect{Prop::INDENT_NS_CONTENT, IN_EFFECT, ""},
    Effect{Prop::WS_AFTER_NS_OPEN_BRACE, IN_EFFECT, ""},
    Effect{Prop::WS_BEFORE_NS_CLOSE_BRACE, IN_EFFECT, ""},
    // Enums.
    Effect{Prop::WS_BEFORE_ENUM_OPEN_BRACE, IN_EFFECT, ""},
    Effect{Prop::WS_AFTER_ENUM_OPEN_BRACE, IN_EFFECT, ""},
    Effect{Prop::WS_BEFORE_ENUM_CLOSE_BRACE, IN_EFFECT, ""},
    Effect{Prop::WS_BEFORE_ENUM_COMMA, IN_EFFECT, ""},
    Effect{Prop::WS_BETWEEN_ENUM_ELEMENTS, IN_EFFECT, ""},
    Effect{Prop::INDENT_ENUM_CONTENT, IN_EFFECT, ""},
    Effect{Prop::ALIGN_ENUM_INITIALIZERS, IN_EFFECT, ""},
    // Template heads and template arguments.
    Effect{Prop::WS_BEFORE_TP_OPEN_BRACKET, IN_EFFECT, ""},
    Effect{Prop::WS_AFTER_TP_OPEN_BRACKET, IN_EFFECT, ""},
    Effect{Prop::WS_BEFORE_TP_COMMA, IN_EFFECT, ""},
    Effect{Prop::WS_BETWEEN_TP_PARAMS, IN_EFFECT, ""},
    Effect{Prop::WS_BEFORE_TP_CLOSE_BRACKET, IN_EFFECT, ""},
    Effect{Prop::WS_AFTER_TP_CLOSE_BRACKET, IN_EFFECT, ""},
    Effect{Prop::ALIGN_TP_PARAMS_LEFT, IN_EFFECT, ""},
    // Data declarations and their brace initialisers.
    Effect{Prop::WS_AFTER_DD_TYPE_ID, IN_EFFECT, ""},
    Effect{Prop::INDENT_DD_CONTENT, IN_EFFECT, ""},
    Effect{Prop::WS_BEFORE_DD_COMMA, IN_EFFECT, ""},
    Effect{Prop::WS_BETWEEN_DD_ELEMENTS, IN_EFFECT, ""},
    Effect{Prop::WS_BEFORE_DD_OPEN_BRACE, IN_EFFECT, ""},
    Effect{Prop::WS_AFTER_DD_OPEN_BRACE, IN_EFFECT, ""},
    Effect{Prop::WS_BEFORE_DD_CLOSE_BRACE, IN_EFFECT, ""},
    Effect{Prop::ALIGN_DD_NAMES_LEFT, IN_EFFECT, ""},
    Effect{Prop::ALIGN_DD_INITIALIZERS, IN_EFFECT, ""},
    Effect{Prop::DATA_DO_NOT_FORMAT, IN_EFFECT, ""},
    // Expressions, pointers and references.
    Effect{Prop::WS_BETWEEN_EXPR_OP_OPERANDS, IN_EFFECT, ""},
    Effect{Prop::WS_BETWEEN_UNARY_OP_OPERAND, IN_EFFECT, ""},
    Effect{Prop::WS_AFTER_FN_CALL_NAME, IN_EFFECT, ""},
    Effect{Prop::WS_BEFORE_FN_CALL_COMMA, IN_EFFECT, ""},
    Effect{Prop::WS_BETWEEN_FN_CALL_ARGS, IN_EFFECT, ""},
    Effect{Prop::ALIGN_FN_CALL_ARGS_LEFT, IN_EFFECT, ""},
    Effect{Prop::WS_AFTER_EXPR_OPEN_PAREN, IN_EFFECT, ""},
    Effect{Prop::WS_BEFORE_EXPR_CLOSE_PAREN, IN_EFFECT, ""},
    Effect{Prop::WS_BEFORE_LBRACKET, IN_EFFECT, ""},
    Effect{Prop::WS_AFTER_LBRACKET, IN_EFFECT, ""},
    Effect{Prop::WS_BEFORE_RBRACKET, IN_EFFECT, ""},
    Effect{Prop::ASTERISK_ANCHOR, IN_EFFECT, ""},
    Effect{Prop::AMPERSAND_ANCHOR, IN_EFFECT, ""},
    Effect{Prop::WS_BETWEEN_ASTERISK_ANCHOR, IN_EFFECT, ""},
    Effect{Prop::WS_BETWEEN_AMPERSAND_ANCHOR, IN_EFFECT, ""},
    Effect{Prop::HANGING_ASTERISK, IN_EFFECT, ""},
    Effect{Prop::HANGING_AMPERSAND, IN_EFFECT, ""},
    // Directives.
    Effect{Prop::ALIGN_PPD_LEFT_MOST, IN_EFFECT, ""},
    // Read by the driver; the passes they switch on print the text as it stands.
    Effect{Prop::LINE_WRAP, IN_EFFECT, ""},
    Effect{Prop::RIGHT_MARGIN, IN_EFFECT, ""},
    Effect{Prop::WRAP_STYLE, IN_EFFECT, ""},
    Effect{Prop::WRAP_INDENT, IN_EFFECT, ""},
    Effect{Prop::EXPR_WRAP_STYLE, IN_EFFECT, ""},
    Effect{Prop::SHIFT_WRAP_STYLE, IN_EFFECT, ""},
    Effect{Prop::COMMA_WRAP_STYLE, IN_EFFECT, ""},
    Effect{Prop::LIST_WRAP_STRATEGY, IN_EFFECT, ""},
    Effect{Prop::INDENT_WRAP_STYLE, IN_EFFECT, ""},
    // Flags of the editor's pages.
    Effect{Prop::GLOBALS_DO_NOT_FORMAT, EDITOR, ""},
    Effect{Prop::NAMESPACES_DO_NOT_FORMAT, EDITOR, ""},
    Effect{Prop::CLASS_DO_NOT_FORMAT, EDITOR, ""},
    Effect{Prop::ENUMS_DO_NOT_FORMAT, EDITOR, ""},
    Effect{Prop::MEMBERINITS_DO_NOT_FORMAT, EDITOR, ""},
    Effect{Prop::CONTROL_STATEMENTS_DO_NOT_FORMAT, EDITOR, ""},
    Effect{Prop::PPD_DO_NOT_FORMAT, EDITOR, ""},
    Effect{Prop::EXPR_DO_NOT_FORMAT, EDITOR, ""},
    Effect{Prop::POINTERSREFS_DO_NOT_FORMAT, EDITOR, ""},
    Effect{Prop::TEMPLATES_DO_NOT_FORMAT, EDITOR, ""},
    Effect{Prop::NS_USE_GLOBAL_SETTINGS, EDITOR, ""},
    Effect{Prop::CLASS_USE_GLOBAL_SETTINGS, EDITOR, ""},
    Effect{Prop::ENUM_USE_GLOBAL_SETTINGS, EDITOR, ""},
    Effect{Prop::FN_USE_GLOBAL_SETTINGS, EDITOR, ""},
    Effect{Prop::DATA_USE_GLOBAL_SETTINGS, EDITOR, ""},
    Effect{Prop::CONTROL_STATEMENTS_USE_GLOBAL_SETTINGS, EDITOR, ""},
    Effect{Prop::EXPR_USE_GLOBAL_SETTINGS, EDITOR, ""},
    Effect{Prop::POINTERSREFS_USE_GLOBAL_SETTINGS, EDITOR, ""},
};

const Effect* find(std::string_view name)
{
    for (const Effect& e : EFFECTS)
        if (e.name == name)
            return &e;
    return nullptr;
}

} // namespace

PropertyEffect propertyEffect(std::string_view name)
{
    const Effect* e = find(name);
    return e ? e->effect : NOT_YET;
}

std::string_view effectNote(std::string_view name)
{
    const Effect* e = find(name);
    return e ? e->note : std::string_view();
}

} // namespace Kempt
