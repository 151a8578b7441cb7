// The brace pass: walks what can hold a statement and adds or removes the
// braces round single-statement bodies of if, else, for and while.
#include "Kempt_CppRewriter.h"

#include "Cpp_Nodes.h"
#include "Cpp_TokenType.h"
#include "Kempt_PropertyNames.h"
#include "Varnel_Contract.h"

#include <algorithm>
#include <ostream>
#include <string_view>

namespace Kempt {

namespace {

const char LBRACE_CHAR[] = "{";
const char RBRACE_CHAR[] = "}";

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\v' || c == '\f';
}

bool allBlank(const std::string& text)
{
    return std::all_of(text.begin(), text.end(), isBlank);
}

// The keyword of a sub-statement's head, or 0 when it has none.
std::int32_t keywordOf(const Cpp::CtrlSubStmtNode& part)
{
    const Cpp::CtrlSubStmtHeadNode* head = part.head();
    return head && head->keyword() ? head->keyword()->type() : 0;
}

// The sub-statements of a control statement, comments and directives left out.
std::vector<Cpp::CtrlSubStmtNode*> partsOf(Cpp::CtrlStmtNode& node)
{
    std::vector<Cpp::CtrlSubStmtNode*> parts;
    for (auto it = node.childrenBegin(); it != node.childrenEnd(); ++it)
        if (auto* part = dynamic_cast<Cpp::CtrlSubStmtNode*>(*it))
            parts.push_back(part);
    return parts;
}

// `else if (b) ...`: the else part's body is the inner if statement itself,
// starting where the body starts. The inner `if` is a new link of the chain,
// not a statement to put braces round.
Cpp::CtrlStmtNode* elseIfChain(Cpp::BlockNode& body)
{
    if (body.size() != 1)
        return nullptr;
    auto* inner = dynamic_cast<Cpp::CtrlStmtNode*>(*body.childrenBegin());
    if (!inner || inner->empty())
        return nullptr;
    auto* first = dynamic_cast<Cpp::CtrlSubStmtNode*>(*inner->childrenBegin());
    if (!first || first->begin() != body.begin())
        return nullptr;
    return keywordOf(*first) == Cpp::IF_KEY ? inner : nullptr;
}

// True when `node` is an `if` statement, or ends in one through the unbraced
// bodies of its last part. With an `else` written behind it, such a statement
// needs its braces: without an `else` of its own, the `if` would take that
// `else`; with one, the `else` behind is easily read as a second `else` of
// the same `if`.
//   if (b) c;                      -> true
//   if (b) c; else d;              -> true
//   for (;;) while (x) if (b) c;   -> true
//   for (;;) { if (b) c; }         -> false
//   do if (b) c; while (x);        -> false
bool endsInIf(Cpp::SyntaxNode& node)
{
    auto* statement = dynamic_cast<Cpp::CtrlStmtNode*>(&node);
    if (!statement)
        return false;
    const std::vector<Cpp::CtrlSubStmtNode*> parts = partsOf(*statement);
    if (parts.empty())
        return false;
    if (keywordOf(*parts.front()) == Cpp::IF_KEY)
        return true;
    Cpp::CtrlSubStmtNode& last = *parts.back();
    const std::int32_t keyword = keywordOf(last);
    // A do ends in "while (x);", a try or catch in a brace.
    if (keyword != Cpp::FOR_KEY && keyword != Cpp::WHILE_KEY && keyword != Cpp::SWITCH_KEY)
        return false;
    Cpp::BlockNode* body = last.body();
    if (!body || body->size() != 1 || (*body->childrenBegin())->begin() != body->begin())
        return false; // braced, or no statement to end in
    return endsInIf(**body->childrenBegin());
}

// True for a child that is a declaration rather than a statement: without its
// braces, `if (a) int x = f();` is no longer C.
bool isDeclaration(Cpp::SyntaxNode& node)
{
    if (auto* data = dynamic_cast<Cpp::DataDeclNode*>(&node))
        return data->type() != nullptr;
    return dynamic_cast<Cpp::ClassDeclNode*>(&node) || dynamic_cast<Cpp::EnumDeclNode*>(&node)
        || dynamic_cast<Cpp::FunctionPtrDeclNode*>(&node) || dynamic_cast<Cpp::FunctionDeclNode*>(&node)
        || dynamic_cast<Cpp::NamespaceDeclNode*>(&node) || dynamic_cast<Cpp::LinkageBlockNode*>(&node)
        || dynamic_cast<Cpp::TemplateNode*>(&node);
}

// True when the brackets of `text` pair up, literals, comments and directive
// lines aside: a statement the parser took apart in its middle, as in
// `ASSERT_DEATH(return, "")`, is no whole statement to put braces round.
bool balanced(std::string_view text)
{
    std::string open;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        const char next = i + 1 < text.size() ? text[i + 1] : '\0';
        if (c == '"' || c == '\'') {
            for (++i; i < text.size() && text[i] != c && text[i] != '\n'; ++i)
                if (text[i] == '\\')
                    ++i;
        } else if (c == '/' && next == '/') {
            i = text.find('\n', i);
        } else if (c == '/' && next == '*') {
            i = text.find("*/", i + 2);
            i = i == std::string_view::npos ? i : i + 1;
        } else if (c == '#' && (i == 0 || text.find_last_not_of(" \t", i - 1) == std::string_view::npos
                                || text[text.find_last_not_of(" \t", i - 1)] == '\n')) {
            // A directive line, with its continuations.
            while ((i = text.find('\n', i)) != std::string_view::npos && text[i - 1] == '\\')
                ++i;
        } else if (c == '(' || c == '[' || c == '{') {
            open += c;
        } else if (c == ')' || c == ']' || c == '}') {
            const char expected = c == ')' ? '(' : c == ']' ? '[' : '{';
            if (open.empty() || open.back() != expected)
                return false;
            open.pop_back();
        }
        if (i == std::string_view::npos)
            break;
    }
    return open.empty();
}

bool isCommentOrDirective(Cpp::SyntaxNode& node)
{
    return dynamic_cast<Cpp::CommentNode*>(&node) || dynamic_cast<Cpp::PreprocDirectiveNode*>(&node);
}

} // namespace

CppRewriter::CppRewriter(const PropertySet& settings, const std::string& text, std::ostream& result)
    : m_ifElseStyle(readStyle(settings, Prop::IF_ELSE_CS_SINGLE_STMT_BRACE_STYLE)),
      m_forStyle(readStyle(settings, Prop::FOR_CS_SINGLE_STMT_BRACE_STYLE)),
      m_whileStyle(readStyle(settings, Prop::WHILE_CS_SINGLE_STMT_BRACE_STYLE)),
      m_text(text),
      m_in(m_text),
      m_result(result)
{
    m_out.reserve(m_text.size() + m_text.size() / 16 + 16);
}

// A stored value outside 0..2 fails the contract and reads as 0.
std::int32_t CppRewriter::readStyle(const PropertySet& settings, const char* name)
{
    std::int32_t style = LEAVE;
    settings.getInt(name, style);
    if (style < LEAVE || style > REMOVE) {
        TW_CHECK(false);
        style = LEAVE;
    }
    return style;
}

bool CppRewriter::anyStyleSet(const PropertySet& settings)
{
    bool anySet = false;
    for (const char* name : {Prop::IF_ELSE_CS_SINGLE_STMT_BRACE_STYLE, Prop::FOR_CS_SINGLE_STMT_BRACE_STYLE,
                             Prop::WHILE_CS_SINGLE_STMT_BRACE_STYLE})
        anySet = readStyle(settings, name) != LEAVE || anySet;
    return anySet;
}

// ---------------------------------------------------------------------------
// The walk.

void CppRewriter::emitRoot(Cpp::RootNode& node)
{
    if (m_ifElseStyle != LEAVE || m_forStyle != LEAVE || m_whileStyle != LEAVE)
        walkDeclarations(node);
    m_out += m_in.rest();

    // The added braces were noted as offsets of the result; give them as
    // positions, counted the way the lexer counts them.
    const SourceText written(m_out);
    for (const std::size_t offset : m_addedOffsets)
        m_edits.added.push_back(written.positionOf(offset));
    m_result.write(m_out.data(), static_cast<std::streamsize>(m_out.size()));
}

// The declarations of the root, a namespace, a linkage block or a class. The
// declaration behind a template head is not entered: function templates and
// the members of class templates keep their statements as written.
void CppRewriter::walkDeclarations(Cpp::InteriorNode& node)
{
    bool afterTemplateHead = false;
    for (auto it = node.childrenBegin(); it != node.childrenEnd(); ++it) {
        Cpp::SyntaxNode& child = **it;
        if (dynamic_cast<Cpp::TemplateNode*>(&child)) {
            afterTemplateHead = true;
            continue;
        }
        if (afterTemplateHead && !isCommentOrDirective(child)) {
            afterTemplateHead = false;
            continue;
        }
        child.accept(*this);
    }
}

void CppRewriter::walkChildren(Cpp::InteriorNode& node)
{
    for (auto it = node.childrenBegin(); it != node.childrenEnd(); ++it)
        (*it)->accept(*this);
}

void CppRewriter::emitFunctionDecl(Cpp::FunctionDeclNode& node)
{
    if (Cpp::BlockNode* block = node.block())
        block->accept(*this);
}

void CppRewriter::emitCtorDecl(Cpp::CtorDeclNode& node)
{
    if (Cpp::BlockNode* block = node.block())
        block->accept(*this);
}

void CppRewriter::emitLinkageBlock(Cpp::LinkageBlockNode& node)
{
    if (Cpp::LinkageBlockBodyNode* body = node.body())
        walkDeclarations(*body);
}

void CppRewriter::emitNamespaceDecl(Cpp::NamespaceDeclNode& node)
{
    if (Cpp::NamespaceBodyNode* body = node.body())
        walkDeclarations(*body);
}

void CppRewriter::emitClassDecl(Cpp::ClassDeclNode& node)
{
    if (Cpp::ClassBodyNode* body = node.body())
        walkDeclarations(*body);
}

// A block in braces: whatever stands behind it, its statements are closed
// off by its "}".
void CppRewriter::emitBlock(Cpp::BlockNode& node)
{
    FlagGuard closed(m_elseFollows, false);
    walkChildren(node);
}

void CppRewriter::emitCtrlStmt(Cpp::CtrlStmtNode& node)
{
    walkParts(node);
}

// Each part of a control statement, told whether an `else` stands behind its
// body: the next part's, or for the last part whatever stands behind the
// whole statement.
//   if (a) x; else if (b) y; else z;   the body of `if (b)` has an else behind it
void CppRewriter::walkParts(Cpp::CtrlStmtNode& node)
{
    const bool elseBehindStatement = m_elseFollows;
    const std::vector<Cpp::CtrlSubStmtNode*> parts = partsOf(node);
    std::size_t index = 0;
    for (auto it = node.childrenBegin(); it != node.childrenEnd(); ++it) {
        auto* part = dynamic_cast<Cpp::CtrlSubStmtNode*>(*it);
        if (!part)
            continue; // comments and directives between the parts
        ++index;
        const bool elseBehind = index < parts.size() ? keywordOf(*parts[index]) == Cpp::ELSE_KEY : elseBehindStatement;
        FlagGuard guard(m_elseFollows, elseBehind);
        part->accept(*this);
    }
}

// The decision point: which style applies to this part's body.
void CppRewriter::emitCtrlSubStmt(Cpp::CtrlSubStmtNode& node)
{
    std::int32_t style = LEAVE;
    switch (keywordOf(node)) {
    case Cpp::IF_KEY: style = m_ifElseStyle; break;
    case Cpp::ELSE_KEY:
        // `else if (c) d;`: the chain is not touched at the else; the inner
        // if's own parts take their own decisions.
        if (Cpp::BlockNode* body = node.body()) {
            if (Cpp::CtrlStmtNode* inner = elseIfChain(*body)) {
                walkParts(*inner);
                return;
            }
        }
        style = m_ifElseStyle;
        break;
    case Cpp::FOR_KEY: style = m_forStyle; break;
    case Cpp::WHILE_KEY: style = m_whileStyle; break;
    default: return; // do, switch, try, catch and a head without keyword are not entered
    }
    if (Cpp::BlockNode* body = node.body())
        rewriteStatement(*body, style);
}

// ---------------------------------------------------------------------------
// The body of one part.

void CppRewriter::rewriteStatement(Cpp::BlockNode& stmt, std::int32_t style)
{
    // No child, or two or more (a comment beside the statement is a child):
    // the braces stay as they are, and the statements inside are walked.
    if (stmt.size() != 1) {
        keepBraces(stmt);
        return;
    }
    switch (style) {
    case LEAVE: keepBraces(stmt); return;
    case ADD:
        if (hasBraces(stmt) || !isWholeStatement(**stmt.childrenBegin()))
            keepBraces(stmt);
        else
            addBraces(stmt);
        return;
    case REMOVE:
        if (hasBraces(stmt) && mayRemoveBraces(stmt))
            removeBraces(stmt);
        else
            keepBraces(stmt);
        return;
    default: TW_CHECK(false); return;
    }
}

// The text stays; the statements inside are rewritten. A body in braces
// closes off what it holds; one without passes on what stands behind it.
void CppRewriter::keepBraces(Cpp::BlockNode& stmt)
{
    if (stmt.empty())
        return;
    FlagGuard guard(m_elseFollows, m_elseFollows && !hasBraces(stmt));
    copyUpTo(stmt.begin());
    walkChildren(stmt);
    copyUpTo(stmt.end());
}

//   if (a) b;   ->   if (a) {b;}
void CppRewriter::addBraces(Cpp::BlockNode& stmt)
{
    copyUpTo(stmt.begin());
    writeBrace('{');
    {
        FlagGuard closed(m_elseFollows, false);
        walkChildren(stmt);
    }
    m_out += m_in.readThrough(stmt.end());
    writeBrace('}');
}

//   if (a) { b; }   ->   if (a)  b;
// The white space in front of the "}" goes with it; the rest of the gaps
// stays for the formatter to set.
void CppRewriter::removeBraces(Cpp::BlockNode& stmt)
{
    copyUpTo(stmt.begin());
    const std::string open = m_in.readThrough(stmt.begin());
    TW_CHECK(open == LBRACE_CHAR);
    m_edits.removed.push_back(stmt.begin());
    walkChildren(stmt); // m_elseFollows passes through: nothing closes the statement now
    std::string text = m_in.readThrough(stmt.end());
    const std::size_t pos = text.rfind(RBRACE_CHAR);
    if (pos != std::string::npos) {
        TW_CHECK(pos == text.length() - 1);
        text.erase(pos);
        while (!text.empty() && isBlank(text.back()))
            text.pop_back();
    }
    m_edits.removed.push_back(stmt.end());
    m_out += text;
}

// Removing the braces must leave the same program, and one that reads as it is:
//   if (a) { if (b) c; } else d;   the else would go to `if (b)`
//   if (a) { if (b) c; else e; } else d;   two elses in a row
//   if (a) { int x = f(); }        a declaration is no statement in C
//   if (a) { b;; }                 the second ";" would stand behind the if
bool CppRewriter::mayRemoveBraces(const Cpp::BlockNode& stmt) const
{
    Cpp::SyntaxNode& child = **stmt.childrenBegin();
    if (m_elseFollows && endsInIf(child))
        return false;
    if (isDeclaration(child) || isCommentOrDirective(child) || !isWholeStatement(child))
        return false;
    const std::size_t open = m_text.offsetOf(stmt.begin());
    const std::size_t close = m_text.offsetOf(stmt.end());
    const std::size_t first = m_text.offsetOf(child.begin());
    const std::size_t last = m_text.offsetOf(child.end());
    if (open == std::string::npos || close == std::string::npos || first == std::string::npos
        || last == std::string::npos || !(open < first && first <= last && last < close))
        return false;
    const std::string& text = m_text.text();
    return allBlank(text.substr(open + 1, first - open - 1)) && allBlank(text.substr(last + 1, close - last - 1));
}

// The text of a statement pairs its brackets up: the parser did not take a
// macro call apart in its middle.
bool CppRewriter::isWholeStatement(const Cpp::SyntaxNode& statement) const
{
    const std::size_t first = m_text.offsetOf(statement.begin());
    const std::size_t last = m_text.offsetOf(statement.end());
    if (first == std::string::npos || last == std::string::npos || last < first || last >= m_text.size())
        return false;
    return balanced(std::string_view(m_text.text()).substr(first, last - first + 1));
}

// Without children: braces when the body spans more than one character
// ("{}" against ";"). With children: braces when the first child does not
// start where the body starts, for a body in braces starts with its "{".
bool CppRewriter::hasBraces(const Cpp::BlockNode& stmt) const
{
    if (stmt.empty())
        return stmt.begin() != stmt.end();
    return (*stmt.childrenBegin())->begin() != stmt.begin();
}

// ---------------------------------------------------------------------------
// Output.

void CppRewriter::copyUpTo(const Trn::Position& p)
{
    m_out += m_in.readUpTo(p);
}

void CppRewriter::writeBrace(char brace)
{
    m_addedOffsets.push_back(m_out.size());
    m_out += brace;
}

// ---------------------------------------------------------------------------
// No walked node has these children.

void CppRewriter::emitLinkageBlockBody(Cpp::LinkageBlockBodyNode&) { TW_CHECK(false); }
void CppRewriter::emitEnumBody(Cpp::EnumBodyNode&) { TW_CHECK(false); }
void CppRewriter::emitEnumHead(Cpp::EnumHeadNode&) { TW_CHECK(false); }
// A case label can stand in any block inside a switch, such as the body of an
// if within it ("switch (x) case 0: default: if (a) ..."): its text is
// carried by the next copy.
void CppRewriter::emitCase(Cpp::CaseNode&) {}
void CppRewriter::emitKeyword(Cpp::KeywordNode&) { TW_CHECK(false); }
void CppRewriter::emitCtrlSubStmtHead(Cpp::CtrlSubStmtHeadNode&) { TW_CHECK(false); }
void CppRewriter::emitType(Cpp::TypeNode&) { TW_CHECK(false); }
void CppRewriter::emitInitializer(Cpp::InitializerNode&) { TW_CHECK(false); }
void CppRewriter::emitInitializerList(Cpp::InitializerListNode&) { TW_CHECK(false); }
void CppRewriter::emitParameterList(Cpp::ParameterListNode&) { TW_CHECK(false); }
void CppRewriter::emitParameter(Cpp::ParameterNode&) { TW_CHECK(false); }
void CppRewriter::emitFunctionReturn(Cpp::FunctionReturnNode&) { TW_CHECK(false); }
void CppRewriter::emitFunctionHead(Cpp::FunctionHeadNode&) { TW_CHECK(false); }
void CppRewriter::emitNamespaceBody(Cpp::NamespaceBodyNode&) { TW_CHECK(false); }
void CppRewriter::emitNamespaceHead(Cpp::NamespaceHeadNode&) { TW_CHECK(false); }
void CppRewriter::emitClassName(Cpp::ClassNameNode&) { TW_CHECK(false); }
void CppRewriter::emitClassHead(Cpp::ClassHeadNode&) { TW_CHECK(false); }
void CppRewriter::emitClassBody(Cpp::ClassBodyNode&) { TW_CHECK(false); }
void CppRewriter::emitBaseClauseList(Cpp::BaseClauseListNode&) { TW_CHECK(false); }
void CppRewriter::emitBaseClause(Cpp::BaseClauseNode&) { TW_CHECK(false); }

} // namespace Kempt
