// The properties the formatter reads once, when it is built. Two rewrites
// happen here, and they are why parameter lists aligned one a line need no
// code of their own: ALIGN_FN_PARAMS_LEFT and ALIGN_TP_PARAMS_LEFT make the
// gap between elements a line break.
#include "Kempt_CppFormatter.h"

#include "Kempt_ColumnArithmetic.h"
#include "Kempt_PropertyNames.h"

#include <algorithm>

namespace Kempt {

namespace {

bool readBool(const PropertySet& p, const char* name)
{
    bool value = false;
    p.getBool(name, value);
    return value;
}

std::int32_t readInt(const PropertySet& p, const char* name, std::int32_t fallback)
{
    std::int32_t value = fallback;
    p.getInt(name, value);
    return value;
}

void readBraces(const PropertySet& p, CppFormatter::Layout& l)
{
    load(p, Prop::GLOBAL_WS_BEFORE_OPEN_BRACE, l.globalBeforeOpenBrace);
    load(p, Prop::GLOBAL_INDENT_CONTENT, l.globalIndent);
    load(p, Prop::GLOBAL_WS_AFTER_OPEN_BRACE, l.globalAfterOpenBrace);
    load(p, Prop::GLOBAL_WS_BEFORE_CLOSE_BRACE, l.globalBeforeCloseBrace);
    load(p, Prop::WS_BEFORE_NS_OPEN_BRACE, l.nsBeforeOpenBrace);
    load(p, Prop::INDENT_NS_CONTENT, l.nsIndent);
    load(p, Prop::WS_AFTER_NS_OPEN_BRACE, l.nsAfterOpenBrace);
    load(p, Prop::WS_BEFORE_NS_CLOSE_BRACE, l.nsBeforeCloseBrace);
}

void readClasses(const PropertySet& p, CppFormatter::Layout& l)
{
    load(p, Prop::WS_BEFORE_CLASS_OPEN_BRACE, l.classBeforeOpenBrace);
    load(p, Prop::WS_AFTER_CLASS_NAME, l.classAfterName);
    load(p, Prop::INDENT_CLASS_CONTENT, l.classIndent);
    load(p, Prop::WS_AFTER_CLASS_OPEN_BRACE, l.classAfterOpenBrace);
    load(p, Prop::WS_BEFORE_CLASS_CLOSE_BRACE, l.classBeforeCloseBrace);
    load(p, Prop::WS_BEFORE_BASE_CLAUSES, l.beforeBaseClauses);
    load(p, Prop::WS_BEFORE_BASE_CLAUSES_COMMA, l.beforeBaseClausesComma);
    load(p, Prop::WS_BETWEEN_BASE_CLAUSES, l.betweenBaseClauses);
    load(p, Prop::WS_BEFORE_ACCESS_SPECS, l.beforeAccessSpecs);
    load(p, Prop::INDENT_ACCESS_SPEC_LABEL, l.accessSpecIndent);
    l.alignBaseClausesLeft = readBool(p, Prop::ALIGN_BASE_CLAUSES_LEFT);
    load(p, Prop::WS_BEFORE_CLASS_INIT_LIST, l.beforeInitList);
    load(p, Prop::WS_BEFORE_CLASS_INITS, l.beforeInits);
    load(p, Prop::WS_BEFORE_CLASS_INITS_COMMA, l.beforeInitsComma);
    load(p, Prop::WS_BETWEEN_CLASS_INITS, l.betweenInits);
    load(p, Prop::WS_AFTER_CLASS_INIT_LIST, l.afterInitList);
}

void readFunctions(const PropertySet& p, CppFormatter::Layout& l)
{
    load(p, Prop::WS_BEFORE_FN_OPEN_BRACE, l.fnBeforeOpenBrace);
    load(p, Prop::WS_AFTER_FN_NAME, l.fnAfterName);
    load(p, Prop::INDENT_FN_CONTENT, l.fnIndent);
    load(p, Prop::WS_AFTER_FN_OPEN_BRACE, l.fnAfterOpenBrace);
    load(p, Prop::WS_BEFORE_FN_CLOSE_BRACE, l.fnBeforeCloseBrace);
    load(p, Prop::WS_BEFORE_FN_COMMA, l.fnBeforeComma);
    load(p, Prop::WS_BETWEEN_FN_PARAMS, l.fnBetweenParams);
    load(p, Prop::WS_AFTER_FN_OPEN_PAREN, l.fnAfterOpenParen);
    load(p, Prop::WS_BEFORE_FN_CLOSE_PAREN, l.fnBeforeCloseParen);
    l.alignFnParamsLeft = readBool(p, Prop::ALIGN_FN_PARAMS_LEFT);
    l.fnDoNotFormat = readBool(p, Prop::FN_DO_NOT_FORMAT);
    l.dataDoNotFormat = readBool(p, Prop::DATA_DO_NOT_FORMAT);
    // Parameters one a line, each under the first.
    if (l.alignFnParamsLeft)
        l.fnBetweenParams = newLineSetting();
}

void readControl(const PropertySet& p, CppFormatter::Layout& l)
{
    load(p, Prop::WS_BEFORE_CS_OPEN_BRACE, l.csBeforeOpenBrace);
    load(p, Prop::WS_AFTER_CS_KEY, l.csAfterKey);
    load(p, Prop::WS_AFTER_CS_OPEN_BRACE, l.csAfterOpenBrace);
    load(p, Prop::WS_BETWEEN_CS, l.csBetween);
    load(p, Prop::WS_BEFORE_CS_CLOSE_BRACE, l.csBeforeCloseBrace);
    load(p, Prop::INDENT_CS_CONTENT, l.csIndent);
    load(p, Prop::WS_BETWEEN_CS_FOR_CLAUSES, l.csBetweenForClauses);
    load(p, Prop::WS_AFTER_CS_OPEN_PAREN, l.csAfterOpenParen);
    load(p, Prop::WS_BEFORE_CS_CLOSE_PAREN, l.csBeforeCloseParen);
    load(p, Prop::INDENT_CS_CASE_CONTENT, l.csCaseContentIndent);
    load(p, Prop::INDENT_CS_CASE_LABELS, l.csCaseLabelIndent);
    load(p, Prop::WS_AFTER_CS_CASE_LABELS, l.csAfterCaseLabels);
    l.alignCsForClausesLeft = readBool(p, Prop::ALIGN_CS_FOR_CLAUSES_LEFT);
}

void readDeclarations(const PropertySet& p, CppFormatter::Layout& l)
{
    load(p, Prop::WS_AFTER_PARAM_TYPE_ID, l.afterParamTypeId);
    load(p, Prop::WS_AFTER_DD_TYPE_ID, l.afterDataTypeId);
    load(p, Prop::INDENT_DD_CONTENT, l.dataIndent);
    load(p, Prop::WS_AFTER_FN_DECL_RETURN_TYPE, l.afterFnDeclReturnType);
    load(p, Prop::WS_AFTER_FN_DEFN_RETURN_TYPE, l.afterFnDefnReturnType);
    load(p, Prop::WS_BEFORE_DD_COMMA, l.beforeDataComma);
    load(p, Prop::WS_BETWEEN_DD_ELEMENTS, l.betweenDataElements);
    load(p, Prop::WS_BETWEEN_EXPR_OP_OPERANDS, l.betweenOperands);
    load(p, Prop::WS_AFTER_FN_CALL_NAME, l.afterCallName);
}

void readTemplatesAndEnums(const PropertySet& p, CppFormatter::Layout& l)
{
    load(p, Prop::WS_BEFORE_TP_OPEN_BRACKET, l.tpBeforeOpenBracket);
    load(p, Prop::WS_AFTER_TP_OPEN_BRACKET, l.tpAfterOpenBracket);
    load(p, Prop::WS_BEFORE_TP_COMMA, l.tpBeforeComma);
    load(p, Prop::WS_BETWEEN_TP_PARAMS, l.tpBetweenParams);
    load(p, Prop::WS_BEFORE_TP_CLOSE_BRACKET, l.tpBeforeCloseBracket);
    load(p, Prop::WS_AFTER_TP_CLOSE_BRACKET, l.tpAfterCloseBracket);
    l.alignTpParamsLeft = readBool(p, Prop::ALIGN_TP_PARAMS_LEFT);
    if (l.alignTpParamsLeft)
        l.tpBetweenParams = newLineSetting();
    load(p, Prop::WS_BEFORE_ENUM_OPEN_BRACE, l.enumBeforeOpenBrace);
    load(p, Prop::WS_AFTER_ENUM_OPEN_BRACE, l.enumAfterOpenBrace);
    load(p, Prop::WS_BEFORE_ENUM_CLOSE_BRACE, l.enumBeforeCloseBrace);
    load(p, Prop::WS_BEFORE_ENUM_COMMA, l.enumBeforeComma);
    load(p, Prop::WS_BETWEEN_ENUM_ELEMENTS, l.enumBetween);
    load(p, Prop::INDENT_ENUM_CONTENT, l.enumIndent);
}

void readAlignment(const PropertySet& p, CppFormatter::Layout& l)
{
    load(p, Prop::WS_BEFORE_LBRACKET, l.beforeLBracket);
    l.alignFnCallArgsLeft = readBool(p, Prop::ALIGN_FN_CALL_ARGS_LEFT);
    l.alignDataNamesLeft = readBool(p, Prop::ALIGN_DD_NAMES_LEFT);
    l.alignDataInitializers = readBool(p, Prop::ALIGN_DD_INITIALIZERS);
    l.alignFnDeclNamesLeft = readBool(p, Prop::ALIGN_FN_DECL_NAMES_LEFT);
    l.alignPpdLeftMost = readBool(p, Prop::ALIGN_PPD_LEFT_MOST);
    l.alignClassMemberNamesLeft = readBool(p, Prop::ALIGN_CLASS_MEMBER_NAMES_LEFT);
    l.alignEnumInitializers = readBool(p, Prop::ALIGN_ENUM_INITIALIZERS);
    l.asteriskAnchor = readChoice(p, Prop::ASTERISK_ANCHOR);
    l.hangingAsterisk = readBool(p, Prop::HANGING_ASTERISK);
    l.ampersandAnchor = readChoice(p, Prop::AMPERSAND_ANCHOR);
    l.hangingAmpersand = readBool(p, Prop::HANGING_AMPERSAND);
}

} // namespace

void CppFormatter::readProperties()
{
    const PropertySet& p = m_settings;
    m_rightMargin = std::max<std::int32_t>(readInt(p, Prop::RIGHT_MARGIN, 0), 0);
    m_lineWrap = readBool(p, Prop::LINE_WRAP);
    m_tabSize = std::max<std::int32_t>(readInt(p, Prop::TAB_SIZE, 1), 0);
    readBraces(p, m_layout);
    readClasses(p, m_layout);
    readFunctions(p, m_layout);
    readControl(p, m_layout);
    readDeclarations(p, m_layout);
    readTemplatesAndEnums(p, m_layout);
    readAlignment(p, m_layout);
    // A tab size of 0 cannot divide a column: the stream takes 1 then.
    m_out.setTabSize(std::max<std::int32_t>(m_tabSize, 1));
    m_tabSize = m_out.tabSize();
    load(p, Prop::LEFT_MARGIN, m_leftMargin);
    m_leftMarginWidth = m_leftMargin.isSet() ? stringWidth(m_leftMargin.text(), 0, m_tabSize) : 0;
    m_convertWs = readChoice(p, Prop::CONVERT_WS);
    m_out.setTabMode(m_convertWs);
}

} // namespace Kempt
