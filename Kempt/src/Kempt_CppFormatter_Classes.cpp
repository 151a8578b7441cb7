// Classes, namespaces, enums, templates and linkage blocks: the declarations
// that wrap other declarations. Each follows one pattern: find the column the
// construct begins at, push it on the indent stack, let the head copy itself,
// hand the white space in front of the opening brace forward through
// pendingWhiteSpace, and lay the body out as a block.
//   "class A:public B{int a;};" with the default scheme:
//   "class A : public B\n{\n    int a;\n};"
#include "Kempt_CppFormatter.h"

#include "Cpp_Nodes.h"
#include "Cpp_TokenType.h"
#include "Kempt_ColumnArithmetic.h"
#include "Kempt_ScratchStream.h"
#include "Kempt_WhiteSpaceJoins.h"
#include "Varnel_IndentGuard.h"
#include "Varnel_StreamState.h"

#include <algorithm>
#include <optional>

namespace Kempt {

namespace {

bool holdsNewline(const WsSetting& setting)
{
    return setting.isSet() && setting.text().find('\n') != std::string::npos;
}

bool isDirective(const Cpp::SyntaxNode* node)
{
    return dynamic_cast<const Cpp::PreprocDirectiveNode*>(node) != nullptr;
}

// A "//" comment or a directive: a child whose text ends with its newline.
bool endsWithItsNewline(const Cpp::SyntaxNode* node)
{
    return isLineCommentNode(node) || isDirective(node);
}

// Every child starts on a line below the one before it.
bool childrenOnLinesOfTheirOwn(const Cpp::InteriorNode& node)
{
    std::int32_t line = 0;
    for (auto it = node.childrenBegin(); it != node.childrenEnd(); ++it) {
        if (!*it)
            continue;
        if ((*it)->begin().line <= line)
            return false;
        line = (*it)->begin().line;
    }
    return true;
}

std::size_t childCount(const Cpp::InteriorNode& node)
{
    return static_cast<std::size_t>(node.childrenEnd() - node.childrenBegin());
}

// The white space asked for in front of a closing brace, when the line
// before it ended with a "//" comment or a directive: that newline is the
// first break the setting asks for.   "\n" -> ""   " " -> ""
std::string afterLineEnd(const std::string& setting)
{
    const std::size_t nl = setting.find('\n');
    return nl == std::string::npos ? std::string() : setting.substr(nl + 1);
}

} // namespace

// A template head whose declaration has not come (a declaration that does
// not take the head's column, or none at all): its stack entry goes.
void CppFormatter::closeTemplateHead()
{
    if (!m_templateHeadOpen)
        return;
    m_templateHeadOpen = false;
    if (!m_indentStack.empty())
        m_indentStack.pop_back();
}

// The column a construct's body indents from, taken when the first
// character of its head has been written: that character's column, or, for a
// head that does not begin its line ("public: class A", "}; enum E"), the
// indent of that line, so that the body's content and its braces agree.
std::int32_t CppFormatter::headColumn() const
{
    const std::int32_t column = colToOffset(m_out.col());
    if (m_out.keepLeadingSpace())
        return column;
    return std::min(column, stringWidth(m_out.indent(), 0, m_tabSize));
}

void CppFormatter::emitClassDecl(Cpp::ClassDeclNode& node)
{
    // 1-2. Behind a template head the class takes the column of "template".
    flushPending(node);
    std::int32_t column = top();
    const bool afterTemplate = m_templateHeadOpen;
    closeTemplateHead();
    // 3. The head, and what it asks for in front of the opening brace.
    Cpp::ClassHeadNode* head = node.head();
    Cpp::ClassBodyNode* body = node.body();
    if (head) {
        if (!afterTemplate) {
            copyThrough(head->begin());
            column = headColumn();
        }
        head->accept(*this);
        if (body && m_layout.classBeforeOpenBrace.isSet())
            m_pendingWhiteSpace.push_back(m_layout.classBeforeOpenBrace.text());
    }
    // 4-6. "struct S { int a; } s;": the declarator behind the brace belongs
    //      to the class.
    StackGuard guard(m_indentStack, column);
    if (body) {
        body->accept(*this);
        m_afterClassBody = !body->empty() && hasBraces(*body) && node.end() == body->end();
    }
}

void CppFormatter::emitClassHead(Cpp::ClassHeadNode& node)
{
    if (node.name())
        node.name()->accept(*this);
    if (!node.bases())
        return;
    if (m_layout.classAfterName.isSet())
        m_pendingWhiteSpace.push_back(m_layout.classAfterName.text());
    node.bases()->accept(*this);
}

void CppFormatter::emitBaseClauseList(Cpp::BaseClauseListNode& node)
{
    // 1-3. "A : public B": the colon, with WS_AFTER_CLASS_NAME in front of it
    //      and WS_BEFORE_BASE_CLAUSES behind it.
    std::string gap = readUpTo(node.begin());
    WsSetting before = noWhiteSpace();
    if (m_layout.classAfterName.isSet() && !m_pendingWhiteSpace.empty()) {
        before = WsSetting(true, m_pendingWhiteSpace.front());
        m_pendingWhiteSpace.pop_front();
    }
    writeLiteral(m_exprFormatter.alignList(gap, Cpp::COLON, before, m_layout.beforeBaseClauses, state()));
    // 4-5. The bases, one a line under the first with ALIGN_BASE_CLAUSES_LEFT.
    const WsSetting& between = m_layout.alignBaseClausesLeft ? newLineSetting() : m_layout.betweenBaseClauses;
    formatList(node, m_layout.beforeBaseClausesComma, between, noWhiteSpace());
}

void CppFormatter::emitBaseClause(Cpp::BaseClauseNode& node)
{
    writeLiteral(m_exprFormatter.formatTypeId(readThrough(node.end()), state(), m_layout.afterParamTypeId));
}

void CppFormatter::emitClassBody(Cpp::ClassBodyNode& node)
{
    flushPending(node);
    // inClass and the body's first member for the scope of the body.
    const bool wasInClass = m_inClass;
    const Cpp::SyntaxNode* wasFirst = m_firstInClassBody;
    m_inClass = true;
    m_firstInClassBody = node.empty() ? nullptr : *node.childrenBegin();
    try {
        formatBlock(node, m_layout.classIndent, m_layout.classAfterOpenBrace, m_layout.classBeforeCloseBrace);
    } catch (...) {
        m_inClass = wasInClass;
        m_firstInClassBody = wasFirst;
        throw;
    }
    m_inClass = wasInClass;
    m_firstInClassBody = wasFirst;
}

void CppFormatter::emitAccessSpec(Cpp::AccessSpecNode& node)
{
    closeTemplateHead();
    // 2-4. "public:", indented from the class's column, not the members'.
    //      Not set, the label keeps the indentation it has in the source.
    const WsSetting& indent = m_layout.accessSpecIndent;
    Varnel::KeepLeadingSpaceGuard keep(m_out, !indent.isSet());
    Varnel::IndentGuard guard(m_out, indent.isSet() ? indentString(m_out, top()) + indent.text() : std::string());
    writeAccessSpecGap(node, readUpTo(node.begin()));
    write(readThrough(node.end()));
}

// Step 1 of a label: the gap in front of it. WS_BEFORE_ACCESS_SPECS stands
// in front of any comment in the gap. A label first in its body stands
// behind WS_AFTER_CLASS_OPEN_BRACE instead, which the body has written; a
// label right behind a "//" comment or a directive (a line begun) keeps that
// comment as its heading, with nothing put between them.
//   "int a; private:" with "\n\n"  ->  "int a;\n\nprivate:"
void CppFormatter::writeAccessSpecGap(const Cpp::AccessSpecNode& node, std::string gap)
{
    const WsSetting& before = m_layout.beforeAccessSpecs;
    if (!before.isSet() || &node == m_firstInClassBody || m_out.col() == 0)
        return write(gap);
    trimLeadingWhiteSpace(gap);
    writeLiteral(before.text());
    write(gap);
}

void CppFormatter::emitNamespaceDecl(Cpp::NamespaceDeclNode& node)
{
    flushPending(node);
    closeTemplateHead();
    Cpp::NamespaceHeadNode* head = node.head();
    Cpp::NamespaceBodyNode* body = node.body();
    if (!head) {
        if (body)
            body->accept(*this);
        return;
    }
    copyThrough(head->begin());
    StackGuard guard(m_indentStack, headColumn());
    head->accept(*this);
    if (!body)
        return;
    if (m_layout.nsBeforeOpenBrace.isSet())
        m_pendingWhiteSpace.push_back(m_layout.nsBeforeOpenBrace.text());
    body->accept(*this);
}

void CppFormatter::emitNamespaceBody(Cpp::NamespaceBodyNode& node)
{
    formatBlock(node, m_layout.nsIndent, m_layout.nsAfterOpenBrace, m_layout.nsBeforeCloseBrace);
}

void CppFormatter::emitLinkageBlock(Cpp::LinkageBlockNode& node)
{
    closeTemplateHead();
    std::int32_t column = top();
    Cpp::LinkageBlockBodyNode* body = node.body();
    if (Cpp::ExprNode* spec = node.spec()) {
        copyThrough(spec->begin());
        column = headColumn();
        spec->accept(*this);
        if (body && m_layout.globalBeforeOpenBrace.isSet())
            m_pendingWhiteSpace.push_back(m_layout.globalBeforeOpenBrace.text());
    }
    StackGuard guard(m_indentStack, column);
    if (body)
        body->accept(*this);
}

void CppFormatter::emitLinkageBlockBody(Cpp::LinkageBlockBodyNode& node)
{
    flushPending(node);
    formatBlock(node, m_layout.globalIndent, m_layout.globalAfterOpenBrace, m_layout.globalBeforeCloseBrace);
}

void CppFormatter::emitEnumDecl(Cpp::EnumDeclNode& node)
{
    flushPending(node);
    closeTemplateHead();
    std::int32_t column = top();
    Cpp::EnumBodyNode* body = node.body();
    if (Cpp::EnumHeadNode* head = node.head()) {
        copyThrough(head->begin());
        column = headColumn();
        head->accept(*this);
        if (body && m_layout.enumBeforeOpenBrace.isSet())
            m_pendingWhiteSpace.push_back(m_layout.enumBeforeOpenBrace.text());
    }
    StackGuard guard(m_indentStack, column);
    if (body)
        body->accept(*this);
}

void CppFormatter::emitEnumBody(Cpp::EnumBodyNode& node)
{
    const Layout& l = m_layout;
    // 1-2. "{ }", or braces round nothing but comments: a block like others.
    flushPending(node);
    if (node.empty())
        return formatBlock(node, l.enumIndent, l.enumAfterOpenBrace, l.enumBeforeCloseBrace);
    copyThrough(node.begin());
    const Cpp::SyntaxNode* first = *node.childrenBegin();
    const Cpp::SyntaxNode* last = *(node.childrenEnd() - 1);
    // 4. The gap behind "{".
    std::string gap = readUpTo(first->begin());
    if (l.enumAfterOpenBrace.isSet() && !isDirective(first))
        writeLiteral(setLeadingWhiteSpace(gap, l.enumAfterOpenBrace.text()));
    else
        write(gap);
    // 5-8. The enumerators as one text, at the content's indent: spaced as a
    //      list, and with their "=" in one column where that is asked for.
    formatEnumerators(node, readThrough(last->end()));
    // 9-10. The gap in front of "}", and the "}".
    gap = readUpTo(node.end());
    if (l.enumBeforeCloseBrace.isSet()) {
        const std::string& s = l.enumBeforeCloseBrace.text();
        writeWhiteSpace(setTrailingWhiteSpace(gap, endsWithItsNewline(last) ? afterLineEnd(s) : s));
    } else {
        write(gap);
    }
    copyThrough(node.end());
}

// Steps 5 to 8 of an enum body: `text` holds the enumerators, from the first
// one's begin through the last one's end.
void CppFormatter::formatEnumerators(const Cpp::EnumBodyNode& node, std::string text)
{
    const Layout& l = m_layout;
    // The content's indent; not set, the lines keep the indent they have.
    std::optional<Varnel::KeepLeadingSpaceGuard> keep;
    std::optional<Varnel::IndentGuard> indent;
    if (l.enumIndent.isSet()) {
        keep.emplace(m_out, false);
        indent.emplace(m_out, indentString(m_out, top()) + l.enumIndent.text());
    }
    const bool oneALine = holdsNewline(l.enumBeforeComma) || holdsNewline(l.enumBetween);
    const bool align =
        l.alignEnumInitializers && childCount(node) > 1 && (oneALine || childrenOnLinesOfTheirOwn(node));
    const Varnel::StreamState textState = state();
    if (l.enumBeforeComma.isSet() || l.enumBetween.isSet()) {
        text = m_exprFormatter.format(text, textState);
        text = m_exprFormatter.separateList(text, Cpp::COMMA, l.enumBeforeComma, l.enumBetween, textState);
    } else {
        // Not spaced: the lines only take the indent.
        ScratchStream scratch(textState);
        writeKeepingLiterals(scratch.out(), text);
        text = scratch.str();
    }
    // The text holds its indent already: alignAssignments measures the left
    // sides from the start of the lines and writes them as they are.
    if (align) {
        Varnel::StreamState asWritten = state();
        asWritten.indent.clear();
        asWritten.keepLeadingSpace = true;
        text = m_exprFormatter.alignAssignments(text, asWritten);
    }
    writeLiteral(text);
}

void CppFormatter::emitTemplate(Cpp::TemplateNode& node)
{
    // 1. The column of "template" stays on the stack for the declaration
    //    behind the head, which takes it off. A second head in a row
    //    ("template <class T> template <class U>") keeps the first one's.
    flushPending(node);
    copyThrough(node.begin());
    if (!m_templateHeadOpen) {
        m_indentStack.push_back(headColumn());
        m_templateHeadOpen = true;
    }
    const Layout& l = m_layout;
    if (Cpp::ParameterListNode* list = node.parameters()) {
        // 2-3. "template <".
        std::string gap = readUpTo(list->begin());
        writeLiteral(l.tpBeforeOpenBracket.isSet() ? setTrailingWhiteSpace(gap, l.tpBeforeOpenBracket.text()) : gap);
        copyThrough(list->begin());
        // 4-5. The parameters.
        if (!list->empty()) {
            gap = readUpTo((*list->childrenBegin())->begin());
            writeLiteral(l.tpAfterOpenBracket.isSet() ? setTrailingWhiteSpace(gap, l.tpAfterOpenBracket.text())
                                                       : gap);
        }
        formatList(*list, l.tpBeforeComma, l.tpBetweenParams, noWhiteSpace());
        // 6. The gap in front of ">"; "X<T> >" never becomes "X<T>>", and a
        //    ">>" that closes the last parameter's list and the head is one
        //    token, never split: "class = E<X<T>>" stays as it is.
        if (!list->empty()) {
            const std::string source = readUpTo(list->end());
            const auto* lastParameter = dynamic_cast<const Cpp::ParameterNode*>(*(list->childrenEnd() - 1));
            const bool sharedToken = !source.empty() && source.back() == '>';
            gap = m_exprFormatter.formatTypeId(source, state(), l.afterParamTypeId);
            if (l.tpBeforeCloseBracket.isSet() && m_out.col() > 0 && !sharedToken) {
                std::string s = l.tpBeforeCloseBracket.text();
                if (s.empty() && lastParameter && lastParameter->endsInAngle())
                    s = " ";
                setTrailingWhiteSpace(gap, s);
            }
            writeLiteral(gap);
        }
        // 7. "template < >" without parameters.
        std::string rest = readUpTo(list->end());
        if (l.tpAfterOpenBracket.isSet() || l.tpBeforeCloseBracket.isSet())
            setTrailingWhiteSpace(rest, "");
        writeLiteral(rest);
    }
    // 8-9.
    copyThrough(node.end());
    if (l.tpAfterCloseBracket.isSet())
        m_pendingWhiteSpace.push_back(l.tpAfterCloseBracket.text());
}

// Name and head leaves: copied through their end.
void CppFormatter::emitClassName(Cpp::ClassNameNode& node)
{
    copyThrough(node.end());
}

void CppFormatter::emitEnumHead(Cpp::EnumHeadNode& node)
{
    copyThrough(node.end());
}

void CppFormatter::emitNamespaceHead(Cpp::NamespaceHeadNode& node)
{
    copyThrough(node.end());
}

void CppFormatter::emitKeyword(Cpp::KeywordNode& node)
{
    copyThrough(node.end());
}

void CppFormatter::emitType(Cpp::TypeNode& node)
{
    copyThrough(node.end());
}

void CppFormatter::emitText(Cpp::TextNode& node)
{
    copyThrough(node.end());
}

void CppFormatter::emitLabel(Cpp::LabelNode& node)
{
    copyThrough(node.end());
}

} // namespace Kempt
