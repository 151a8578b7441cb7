// Data declarations, expression statements and names. A data declaration is
// also any statement the parser reads as a run of tokens up to its semicolon:
// a type (any of the three parts may be missing), a name, and the rest from
// the "=", "(" or "," behind the first declarator on. The alignment of names
// and of initialisers in columns meets the spacing of types here.
//   "int  a=1,b;" with the default scheme: "int a = 1, b;"
#include "Kempt_CppFormatter.h"

#include "Cpp_Nodes.h"
#include "Cpp_TokenType.h"
#include "Kempt_AlignedName.h"
#include "Kempt_ColumnArithmetic.h"
#include "Kempt_WhiteSpaceJoins.h"
#include "Varnel_IndentGuard.h"
#include "Varnel_StreamState.h"

#include <algorithm>
#include <optional>

namespace Kempt {

namespace {

// The first character of `text` that is not white space, or '\0'.
char firstSignificant(std::string_view text)
{
    const std::size_t i = text.find_first_not_of(" \t\r\n\f\v");
    return i == std::string_view::npos ? '\0' : text[i];
}

std::string newlinesAsBlanks(std::string text)
{
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

} // namespace

bool CppFormatter::dataNamesAligned() const
{
    return m_layout.alignDataNamesLeft || (m_layout.alignClassMemberNamesLeft && m_inClass);
}

// The column the next character goes to; at the start of a line, behind the
// indent the stream will write first.
std::int32_t CppFormatter::nextColumn() const
{
    return m_out.col() == 0 ? stringWidth(m_out.indent(), 0, m_tabSize) : m_out.col();
}

void CppFormatter::emitDataDecl(Cpp::DataDeclNode& node)
{
    // 1. A template head in front of a data declaration ends here.
    // "template <class T> class A;": a declaration behind a template head
    // lines up under "template", and its name is not padded.
    flushPending(node);
    const bool afterTemplate = m_templateHeadOpen;
    closeTemplateHead();
    std::int32_t column = top();
    // 2-3. Type and name.
    if (node.name() && node.type() && !m_afterClassBody && !afterTemplate && dataNamesAligned())
        column = writeAlignedDataHead(node);
    else if (node.name() || node.initializer())
        column = writeDataHead(node);
    // 4. "= 1", "(1, 2)", with the declarators behind it.
    const Cpp::ExprNode* initializer = node.initializer();
    if (initializer) {
        const char opener = firstSignificant(m_source.slice(initializer->begin(), initializer->end()));
        if (opener == '=' || opener == '(')
            writeDataInitializer(node, column);
    }
    // 5. The other declarators and the semicolon.
    std::string tail = m_exprFormatter.formatTypeId(readThrough(node.end()), state(), m_layout.afterDataTypeId);
    writeLiteral(m_exprFormatter.alignList(tail, Cpp::COMMA, m_layout.beforeDataComma,
                                           m_layout.betweenDataElements, state()));
}

// Step 2: the type, padded so that the name stands in the column of its run.
// Returns the declaration's column.
std::int32_t CppFormatter::writeAlignedDataHead(Cpp::DataDeclNode& node)
{
    std::int32_t column = top();
    std::string gap;
    if (const Cpp::TypeNode* type = node.type()) {
        copyUpTo(type->begin());
        gap = readUpTo(node.name()->begin());
    } else {
        copyUpTo(node.name()->begin());
        column = nextColumn();
    }
    // b. "int /* c */ a": a comment or directive in the type; no padding.
    if (gapHasCommentOrDirective(gap)) {
        gap = m_exprFormatter.formatTypeId(gap, state(), noWhiteSpace());
        const std::string symbols =
            splitPointerSymbols(gap, m_layout.asteriskAnchor, m_layout.ampersandAnchor);
        if (!gap.empty())
            column = writeTypeText(gap);
        write(symbols);
        return column;
    }
    // c. "const char", padding, "*name".
    AlignedType aligned;
    if (node.type()) {
        aligned = alignedType(m_exprFormatter, gap, state(), AlignedTypeFormat::TRIM_FIRST);
        column = writeTypeRun(aligned.type);
    }
    padToName(node, column, aligned);
    return column;
}

// The rest of the aligned type, the padding to the name column of the run,
// and the symbols that stand in that column in front of the name. The column
// counts from where the declaration begins, as the run was measured.
//   "int    *p" with HANGING_ASTERISK: the "*" one column left of the names.
void CppFormatter::padToName(const Cpp::DataDeclNode& node, std::int32_t column, const AlignedType& aligned)
{
    writeLiteral(aligned.type);
    const std::int32_t target = column + columnOf(m_dataNameColumns, &node);
    std::int32_t space = alignmentSpace(target, nextColumn(), m_tabSize);
    if (space > 0 && symbolsHang(aligned, m_exprFormatter))
        --space;
    // A declaration that lies past the column: type and name never run
    // together.
    if (space < 1 && !aligned.type.empty() && aligned.symbols.empty())
        space = 1;
    m_out << ColumnPad(space);
    write(aligned.symbols);
}

// A formatted type, its indent included: its first character literally, the
// rest with the lines as they stand.
std::int32_t CppFormatter::writeTypeText(std::string text)
{
    Varnel::KeepLeadingSpaceGuard keep(m_out, true);
    Varnel::IndentGuard indent(m_out, std::string());
    const std::int32_t column = writeTypeRun(text);
    write(text);
    return column;
}

// Step 3: the type and the gap behind it, unaligned. Returns the
// declaration's column.
std::int32_t CppFormatter::writeDataHead(Cpp::DataDeclNode& node)
{
    const Layout& l = m_layout;
    const Cpp::SyntaxNode* target = node.name() ? static_cast<const Cpp::SyntaxNode*>(node.name())
                                                : static_cast<const Cpp::SyntaxNode*>(node.initializer());
    const Cpp::TypeNode* type = node.type();
    // c. No type: "x = y;", or the declarator behind "struct S { } s;". The
    //    gap in front of it is an ordinary gap between statements.
    if (!type) {
        copyUpTo(target->begin());
        return nextColumn();
    }
    // a. DATA_DO_NOT_FORMAT: the type as it stands, its indent included.
    if (l.dataDoNotFormat) {
        std::string gap = readUpTo(target->begin());
        const std::int32_t column = writeTypeRun(gap);
        write(gap);
        return column;
    }
    // b. "int  a" with WS_AFTER_DD_TYPE_ID " ": "int a". A type ending in
    //    "*" or "&" keeps the anchor gap the expression formatter gives it.
    copyUpTo(type->begin());
    std::string gap = readUpTo(target->begin());
    const bool endsInSymbol = endsInAsterisk(gap) || endsInAmpersand(gap);
    gap = m_exprFormatter.formatTypeId(gap, state(), l.afterDataTypeId);
    if (!endsInSymbol && l.afterDataTypeId.isSet()) {
        std::string s = l.afterDataTypeId.text();
        if (l.alignDataInitializers)
            s = newlinesAsBlanks(s);
        setTrailingWhiteSpace(gap, s);
    }
    // d.
    return gap.empty() ? nextColumn() : writeTypeText(gap);
}

// Step 4: the name with the gap behind it, and the initialiser from its "="
// or "(" through the end of the statement.
void CppFormatter::writeDataInitializer(Cpp::DataDeclNode& node, std::int32_t column)
{
    const Layout& l = m_layout;
    const Cpp::ExprNode& initializer = *node.initializer();
    // a-b.
    m_afterClassBody = false;
    std::string gap = readUpTo(initializer.begin());
    std::string rest = readThrough(initializer.end());
    trimLeadingWhiteSpace(rest);
    const bool call = rest.starts_with('(');
    if (l.alignDataInitializers) {
        // c. "int a   = 1;": the "=" in the column of its run.
        writeLiteral(m_exprFormatter.formatTypeId(trimTrailingWhiteSpace(gap), state(), l.afterDataTypeId));
        const std::int32_t target = column + columnOf(m_initializerColumns, &node);
        m_out << ColumnPad(std::max(1, target - nextColumn()));
    } else {
        // d. "a(1)" takes the call rule, "a = 1" the operator rule.
        if (call) {
            if (l.afterCallName.isSet() || l.alignFnCallArgsLeft)
                trimTrailingWhiteSpace(gap);
        } else if (l.betweenOperands.isSet() && !endsWithLineComment(gap)) {
            trimTrailingWhiteSpace(gap);
            gap += l.betweenOperands.text();
        }
        writeLiteral(m_exprFormatter.formatTypeId(gap, state(), l.afterDataTypeId));
    }
    // e. Later lines of the initialiser indent from the declaration.
    std::optional<Varnel::KeepLeadingSpaceGuard> keep;
    std::optional<Varnel::IndentGuard> indent;
    if (!l.dataDoNotFormat && l.dataIndent.isSet()) {
        keep.emplace(m_out, false);
        indent.emplace(m_out, indentString(m_out, column) + l.dataIndent.text());
    }
    // f-g. "(1, 2)" is spaced as the arguments of a call.
    if (call && m_out.col() > 0) {
        Varnel::StreamState before = state();
        --before.col;
        rest = m_exprFormatter.formatTypeId("f" + rest, before, l.afterDataTypeId).substr(1);
    } else {
        rest = m_exprFormatter.formatTypeId(rest, state(), l.afterDataTypeId);
    }
    // h. The declarators behind the first one, as a list.
    if (l.alignDataInitializers)
        trimLeadingWhiteSpace(rest);
    writeLiteral(m_exprFormatter.alignList(rest, Cpp::COMMA, l.beforeDataComma, l.betweenDataElements, state()));
}

void CppFormatter::emitExpr(Cpp::ExprNode& node)
{
    // "template <class T> using P = T*;": the head's white space and column
    // end here.
    if (m_templateHeadOpen) {
        flushPending(node);
        closeTemplateHead();
    }
    // "return strcmp(a,b)==0;"
    writeLiteral(m_exprFormatter.format(readThrough(node.end()), state()));
}

void CppFormatter::emitId(Cpp::IdNode& node)
{
    copyThrough(node.end());
}

} // namespace Kempt
