// Function heads, parameter lists, member initialisers and the way into a
// function's body. The head is the intricate piece: the return type, the
// alignment of names in a column, FN_DO_NOT_FORMAT and the anchors of "*"
// and "&" all meet in the gap between return type and name.
#include "Kempt_CppFormatter.h"

#include "Cpp_Lexer.h"
#include "Cpp_Nodes.h"
#include "Kempt_AlignedName.h"
#include "Kempt_ColumnArithmetic.h"
#include "Kempt_WhiteSpaceJoins.h"
#include "Varnel_IMemBuf.h"
#include "Varnel_IndentGuard.h"
#include "Varnel_StreamState.h"
#include "Varnel_Text.h"

#include <algorithm>

namespace Kempt {

namespace {

// Kinds that writeTypeRun never cuts: literals, directives, continuations,
// comments.
bool isUncut(std::int32_t type)
{
    return (type >= Cpp::PREPROC_DIRECTIVE && type <= Cpp::STRING_LITERAL) || type == Cpp::LINE_CONTINUATION ||
           type == Cpp::LINE_COMMENT || type == Cpp::BLOCK_COMMENT;
}

bool startsOrEndsWithLineComment(const std::string& text)
{
    return startsWithLineComment(text) || endsWithLineComment(text);
}

} // namespace

bool CppFormatter::namesAligned() const
{
    return m_layout.alignFnDeclNamesLeft || (m_layout.alignClassMemberNamesLeft && m_inClass);
}

// The start of a type, written literally (the text comes from the
// expression formatter, indent included): the text through the first
// character of its first token, or through the whole token when that is a
// literal, a directive, a continuation or a comment. Returns the column of
// that character and takes what it wrote off `text`.
std::int32_t CppFormatter::writeTypeRun(std::string& text)
{
    Varnel::IMemStream in(text);
    Cpp::Lexer lexer(in);
    const Trn::Token first = lexer.next();
    // "   ": nothing to start on; the whole text goes.
    if (first.type() == Cpp::END_OF_FILE || first.type() == Cpp::INVALID_TOKEN) {
        writeLiteral(text);
        text.clear();
        return 0;
    }
    const SourceText source(text);
    std::size_t through = source.offsetOf(first.start()) + 1;
    writeLiteral(std::string_view(text).substr(0, through));
    const std::int32_t column = colToOffset(m_out.col());
    // "\"a b\"": a literal or comment is written whole.
    if (isUncut(first.type())) {
        const std::size_t end = std::min(source.offsetOf(first.end()) + 1, text.size());
        writeLiteral(std::string_view(text).substr(through, end - through));
        through = end;
    }
    text.erase(0, through);
    return column;
}

std::int32_t CppFormatter::formatFunctionHead(Cpp::FunctionDeclNode& node)
{
    // 1-2.
    flushPending(node);
    std::int32_t column = top();
    Cpp::FunctionHeadNode* head = node.head();
    if (!head)
        return column;
    bool afterTemplate = false;
    if (m_templateHeadOpen) {
        m_templateHeadOpen = false;
        m_indentStack.pop_back();
        afterTemplate = true;
    }
    // 3. Return type and name.
    if (head->name())
        formatReturnType(node, column, afterTemplate);
    // 4. The column of the function, for what follows in this routine.
    StackGuard guard(m_indentStack, column);
    // 5. "f (int a)" with WS_AFTER_FN_NAME "": "f(int a)".
    if (Cpp::ParameterListNode* list = head->parameters()) {
        std::string gap = readUpTo(list->begin());
        if (m_layout.fnAfterName.isSet()) {
            // A gap with a comment or directive that goes on to the next
            // line before it takes no white space after the name, and a line comment keeps
            // the blanks before it: added blanks would grow on each run.
            const std::size_t text = gap.find_first_not_of(" \t");
            const bool lineEndsFirst = text != std::string::npos && (gap[text] == '\n' || gap[text] == '\r') &&
                                       !Varnel::trim(gap).empty();
            if (lineEndsFirst)
                gap.erase(0, text);
            else if (!startsOrEndsWithLineComment(gap))
                gap = std::string(Varnel::trim(gap));
            if (!lineEndsFirst && (gap.empty() || (gap[0] != ' ' && gap[0] != '\t')))
                writeLiteral(m_layout.fnAfterName.text());
        }
        write(gap);
        formatParameterList(*list, m_layout.fnAfterOpenParen, m_layout.fnBeforeComma, m_layout.fnBetweenParams,
                            m_layout.fnBeforeCloseParen);
    }
    // 6. Qualifiers, exception specification, pure specifier.
    writeLiteral(m_exprFormatter.format(readThrough(head->end()), state()));
    return column;
}

// Step 3 of the head: from the return type through the name. `column`
// becomes the column the function's body indents from.
void CppFormatter::formatReturnType(Cpp::FunctionDeclNode& node, std::int32_t& column, bool afterTemplate)
{
    const Cpp::FunctionHeadNode& head = *node.head();
    const Cpp::SyntaxNode* returnType = head.returnType();
    const Cpp::SyntaxNode& name = *head.name();
    // a-b. The return type and all that stands behind it up to the name.
    if (returnType)
        copyUpTo(returnType->begin());
    const std::string gap = readUpTo(name.begin());
    // e. "String*      callme2(": a prototype's name in the column of its run.
    if (!node.block() && namesAligned() && !gapHasCommentOrDirective(gap))
        writeAlignedReturnType(node, gap, column);
    else
        writeReturnType(node, gap, column);
    // h. The name; a constructor takes its column from it.
    copyThrough(name.begin());
    if (!returnType && !afterTemplate)
        column = colToOffset(m_out.col());
    copyThrough(name.end());
}

// c-d. The return type is formatted as a type, unless FN_DO_NOT_FORMAT keeps
// one that does not end in "*" or "&" as it stands.
bool CppFormatter::returnTypeIsFormatted(const Cpp::FunctionDeclNode& node, const std::string& gap) const
{
    const bool endsWithPtr = endsInAsterisk(gap) || endsInAmpersand(gap);
    return node.head()->returnType() && !(!endsWithPtr && m_layout.fnDoNotFormat);
}

void CppFormatter::writeAlignedReturnType(Cpp::FunctionDeclNode& node, const std::string& gap, std::int32_t& column)
{
    AlignedType aligned;
    aligned.type = gap;
    // "Fred();" without a return type: the gap in front of the name is an
    // ordinary gap, and its line takes the indent of its place.
    if (!node.head()->returnType()) {
        write(gap);
        aligned.type.clear();
        // The padding behind the indent: blanks that begin a line would be
        // taken for its old indentation and dropped.
        if (m_out.col() == 0 && !m_out.keepLeadingSpace())
            writeLiteral(m_out.indent());
    }
    if (node.head()->returnType()) {
        aligned = alignedType(m_exprFormatter, gap, state(),
                              returnTypeIsFormatted(node, gap) ? AlignedTypeFormat::FORMAT_FIRST
                                                               : AlignedTypeFormat::AS_IT_STANDS);
        if (endsInAsterisk(gap) || endsInAmpersand(gap))
            column = writeTypeRun(aligned.type);
    }
    writeAlignedName(node, m_fnNameColumns, aligned);
}

// f-g. The gap behind the return type of a declaration, or of a definition.
void CppFormatter::writeReturnType(Cpp::FunctionDeclNode& node, std::string gap, std::int32_t& column)
{
    const WsSetting& after = node.block() ? m_layout.afterFnDefnReturnType : m_layout.afterFnDeclReturnType;
    if (returnTypeIsFormatted(node, gap))
        gap = m_exprFormatter.formatTypeId(gap, state(), after);
    // "String *callme2": a symbol anchored to the name keeps its anchor gap;
    // the return type's gap stands in front of the symbol already.
    const bool symbolAtName = endsInAsterisk(gap) || endsInAmpersand(gap);
    if (node.head()->returnType() && !m_layout.fnDoNotFormat && after.isSet() && !symbolAtName)
        setTrailingWhiteSpace(gap, after.text());
    if (!gap.empty() && !m_layout.fnDoNotFormat)
        column = writeTypeRun(gap);
    writeLiteral(gap);
}

// The rest of an aligned type, the padding to the column of the run, and the
// symbols that stand in that column in front of the name.
void CppFormatter::writeAlignedName(const Cpp::SyntaxNode& node, const OffsetMap& columns, const AlignedType& aligned)
{
    writeLiteral(aligned.type);
    const std::int32_t target = columnOf(columns, &node) + stringWidth(m_out.indent(), 0, m_tabSize);
    std::int32_t space = alignmentSpace(target, m_out.col(), m_tabSize);
    // "int    *p" with HANGING_ASTERISK: the "*" one column left of the names.
    if (space > 0 && symbolsHang(aligned, m_exprFormatter))
        --space;
    // "return f(x)" behind a "{" on its line lies past the column: a type
    // and a name never run together.
    if (space < 1 && !aligned.type.empty() && aligned.symbols.empty())
        space = 1;
    m_out << ColumnPad(space);
    write(aligned.symbols);
}

void CppFormatter::formatParameterList(Cpp::ParameterListNode& list, const WsSetting& afterOpen,
                                       const WsSetting& beforeComma, const WsSetting& between,
                                       const WsSetting& beforeClose)
{
    // 1-2. "(" and the gap behind it.
    copyThrough(list.begin());
    if (!list.empty()) {
        std::string gap = readUpTo((*list.childrenBegin())->begin());
        if (afterOpen.isSet())
            writeLiteral(setTrailingWhiteSpace(gap, afterOpen.text()));
        else
            write(gap);
    }
    // 3. The parameters.
    formatList(list, beforeComma, between, noWhiteSpace());
    // 4. The gap in front of ")".
    if (!list.empty()) {
        std::string gap = m_exprFormatter.formatTypeId(readUpTo(list.end()), state(), m_layout.afterParamTypeId);
        if (beforeClose.isSet() && m_out.col() > 0)
            setTrailingWhiteSpace(gap, beforeClose.text());
        writeLiteral(gap);
    }
    // 5. "( )" loses its inner blanks when either setting is set.
    std::string rest = readUpTo(list.end());
    if (afterOpen.isSet() || beforeClose.isSet())
        setLeadingWhiteSpace(rest, "");
    writeLiteral(rest);
}

void CppFormatter::emitFunctionDecl(Cpp::FunctionDeclNode& node)
{
    const std::int32_t column = formatFunctionHead(node);
    StackGuard guard(m_indentStack, column);
    Cpp::BlockNode* block = node.block();
    if (!block)
        return;
    if (m_layout.fnBeforeOpenBrace.isSet())
        m_pendingWhiteSpace.push_back(m_layout.fnBeforeOpenBrace.text());
    formatBlock(*block, m_layout.fnIndent, m_layout.fnAfterOpenBrace, m_layout.fnBeforeCloseBrace);
}

void CppFormatter::emitCtorDecl(Cpp::CtorDeclNode& node)
{
    const std::int32_t column = formatFunctionHead(node);
    StackGuard guard(m_indentStack, column);
    Cpp::InitializerListNode* initializers = node.initializers();
    Cpp::BlockNode* block = node.block();
    // 2. What the colon (or else the brace) asks for in front of it.
    if (initializers && m_layout.beforeInitList.isSet())
        m_pendingWhiteSpace.push_back(m_layout.beforeInitList.text());
    else if ((block || initializers) && m_layout.fnBeforeOpenBrace.isSet())
        m_pendingWhiteSpace.push_back(m_layout.fnBeforeOpenBrace.text());
    // 3.
    if (initializers) {
        initializers->accept(*this);
        if (block && m_layout.afterInitList.isSet())
            m_pendingWhiteSpace.push_back(m_layout.afterInitList.text());
    }
    // 4.
    if (block)
        formatBlock(*block, m_layout.fnIndent, m_layout.fnAfterOpenBrace, m_layout.fnBeforeCloseBrace);
}

void CppFormatter::emitInitializerList(Cpp::InitializerListNode& node)
{
    // 1-2. " : ", with the white space the constructor asked for in front.
    std::string gap = readUpTo(node.begin());
    WsSetting before = noWhiteSpace();
    if ((m_layout.fnBeforeOpenBrace.isSet() || m_layout.beforeInitList.isSet()) && !m_pendingWhiteSpace.empty()) {
        before = WsSetting(true, m_pendingWhiteSpace.front());
        m_pendingWhiteSpace.pop_front();
    }
    // 3-4.
    writeLiteral(m_exprFormatter.alignList(gap, Cpp::COLON, before, m_layout.beforeInits, state()));
    formatList(node, m_layout.beforeInitsComma, m_layout.betweenInits, noWhiteSpace());
}

void CppFormatter::emitInitializer(Cpp::InitializerNode& node)
{
    writeLiteral(m_exprFormatter.formatTypeId(readThrough(node.end()), state(), noWhiteSpace()));
}

void CppFormatter::emitParameter(Cpp::ParameterNode& node)
{
    std::string source = readThrough(node.end());
    // "class = E<X<T>>": the first half of the ">>" that follows closes this
    // parameter's own argument list. It is formatted with the parameter, so
    // that the list reads as one, and left in the input for the closing.
    const std::string_view rest = std::string_view(m_source.text()).substr(std::min(m_in.offset(), m_source.text().size()));
    const bool closedByShared = rest.starts_with(">>") && !source.ends_with('>') &&
                                std::count(source.begin(), source.end(), '<') > std::count(source.begin(), source.end(), '>');
    std::string text = m_exprFormatter.formatTypeId(closedByShared ? source + ">" : source, state(),
                                                    m_layout.afterParamTypeId);
    if (closedByShared && text.ends_with('>'))
        text.pop_back();
    else if (closedByShared)
        text = source;
    if (endsInAsterisk(text) || endsInAmpersand(text))
        trimTrailingWhiteSpace(text);
    writeLiteral(text);
}

// Parameter lists, heads and return types are written by position from the
// function's own operation.
void CppFormatter::emitParameterList(Cpp::ParameterListNode&) {}
void CppFormatter::emitFunctionHead(Cpp::FunctionHeadNode&) {}
void CppFormatter::emitFunctionReturn(Cpp::FunctionReturnNode&) {}

namespace {

// "( * fp )" with both settings "": "(*fp)". White space behind the first
// character and in front of the last is replaced where a setting is set.
std::string respaceParens(const std::string& text, const WsSetting& afterOpen, const WsSetting& beforeClose)
{
    if (text.size() < 2 || text.front() != '(' || text.back() != ')')
        return text;
    std::string inner = text.substr(1, text.size() - 2);
    if (afterOpen.isSet())
        setLeadingWhiteSpace(inner, afterOpen.text());
    if (beforeClose.isSet())
        setTrailingWhiteSpace(inner, beforeClose.text());
    return "(" + inner + ")";
}

} // namespace

void CppFormatter::emitFunctionPtrDecl(Cpp::FunctionPtrDeclNode& node)
{
    flushPending(node);
    closeTemplateHead();
    std::int32_t column = top();
    // 1. "int (*fp)": the type, then the parenthesised name.
    if (const Cpp::IdNode* name = node.name()) {
        std::string gap;
        if (const Cpp::TypeNode* type = node.type()) {
            copyUpTo(type->begin());
            gap = m_exprFormatter.formatTypeId(readUpTo(name->begin()), state(), noWhiteSpace());
        }
        const std::string nameText =
            respaceParens(readThrough(name->end()), m_layout.fnAfterOpenParen, m_layout.fnBeforeCloseParen);
        if (node.type() && !gap.empty()) {
            column = writeTypeRun(gap);
            writeLiteral(gap);
            write(nameText);
        } else {
            std::string text = nameText;
            column = writeTypeRun(text);
            write(text);
        }
    }
    // 2. The parameters.
    StackGuard guard(m_indentStack, column);
    if (Cpp::ParameterListNode* list = node.parameters()) {
        write(readUpTo(list->begin()));
        formatParameterList(*list, m_layout.fnAfterOpenParen, m_layout.fnBeforeComma, m_layout.fnBetweenParams,
                            m_layout.fnBeforeCloseParen);
    }
    // 3.
    copyThrough(node.end());
}

} // namespace Kempt
