// The line wrapping pass: finding the long lines, walking down to the
// statements and declarations that hold them, and handing their text to the
// expression line wrapper. See Kempt_CppLineWrapper.h.
#include "Kempt_CppLineWrapper.h"

#include "Cpp_Nodes.h"
#include "Cpp_TokenType.h"
#include "Kempt_ColumnArithmetic.h"
#include "Kempt_PropertyNames.h"
#include "Kempt_WhiteSpaceJoins.h"
#include "Varnel_ITextDocStream.h"
#include "Varnel_StreamState.h"

#include <algorithm>
#include <ostream>
#include <sstream>

namespace Kempt {

namespace {

bool readFlag(const PropertySet& p, const char* name)
{
    bool value = false;
    p.getBool(name, value);
    return value;
}

std::string readText(const PropertySet& p, const char* name)
{
    std::string value;
    p.getString(name, value);
    return value;
}

bool hasNewline(const std::string& s)
{
    return s.find('\n') != std::string::npos;
}

// The text with a top-level comma: "a = 1, b = 2" declares two names.
bool hasTopLevelComma(const std::string& text)
{
    const std::vector<WrapToken> tokens = wrapTokens(text);
    const std::vector<std::int32_t> depths = bracketDepths(tokens);
    for (std::size_t i = 0; i < tokens.size(); ++i)
        if (depths[i] == 0 && tokens[i].type == Cpp::COMMA)
            return true;
    return false;
}

} // namespace

CppLineWrapper::CppLineWrapper(const FormatSettings& settings, const std::string& text, std::ostream& result)
    : m_settings(settings), m_source(text), m_in(m_source), m_result(result),
      m_wrapper(settings, settings.markers())
{
    m_lineWrap = readFlag(m_settings, Prop::LINE_WRAP);
    m_settings.getInt(Prop::RIGHT_MARGIN, m_RightMargin);
    m_RightMargin = std::max<std::int32_t>(m_RightMargin, 0);
    m_settings.getInt(Prop::TAB_SIZE, m_tabSize);
    m_tabSize = std::max<std::int32_t>(m_tabSize, 1);
    m_wrapStyle = m_wrapper.wrapStyle();
    if (m_lineWrap && m_RightMargin > 0) {
        std::istringstream source(m_source.text());
        Varnel::ITextDocStream in(source, 0, m_tabSize, 1, 0);
        for (const std::int32_t line : findLongLines(in, m_RightMargin))
            m_longLines.insert(line);
    }
    m_out.reserve(m_source.size() + m_source.size() / 8 + 64);
}

bool CppLineWrapper::inRange(const Cpp::SyntaxNode& node) const
{
    const std::int32_t first = node.begin().line;
    const std::int32_t last = node.end().line;
    if (first <= 0 || last <= 0 || first > last)
        return false;
    const auto it = m_longLines.lower_bound(first);
    return it != m_longLines.end() && *it <= last;
}

void CppLineWrapper::copyThrough(const Trn::Position& p)
{
    if (!p.isNull())
        m_out += m_in.readThrough(p);
}

void CppLineWrapper::copyUpTo(const Trn::Position& p)
{
    if (!p.isNull())
        m_out += m_in.readUpTo(p);
}

void CppLineWrapper::copyNode(const Cpp::SyntaxNode& node)
{
    copyThrough(node.end());
}

void CppLineWrapper::visit(Cpp::SyntaxNode* node)
{
    if (node)
        node->accept(*this);
}

void CppLineWrapper::visitParts(const Cpp::SyntaxNode& node, std::initializer_list<Cpp::SyntaxNode*> parts)
{
    if (!inRange(node))
        return copyNode(node);
    for (Cpp::SyntaxNode* part : parts)
        visit(part);
    copyNode(node);
}

void CppLineWrapper::visitPartsFromColumn(const Cpp::SyntaxNode& node, std::initializer_list<Cpp::SyntaxNode*> parts)
{
    if (!inRange(node))
        return copyNode(node);
    copyUpTo(node.begin());
    m_columns.push_back(column());
    for (Cpp::SyntaxNode* part : parts)
        visit(part);
    m_columns.pop_back();
    copyNode(node);
}

std::int32_t CppLineWrapper::outerColumn() const
{
    return m_columns.empty() ? 0 : m_columns.back();
}

void CppLineWrapper::visitChildren(Cpp::InteriorNode& node)
{
    if (!inRange(node))
        return copyNode(node);
    for (auto it = node.childrenBegin(); it != node.childrenEnd(); ++it)
        visit(*it);
    copyNode(node);
}

std::string_view CppLineWrapper::restOfLine() const
{
    const std::string& text = m_source.text();
    const std::size_t from = std::min(m_in.offset(), text.size());
    std::size_t to = text.find('\n', from);
    if (to == std::string::npos)
        to = text.size();
    // "int b) : m_a(a)", "Base {": an initialiser list or a brace that
    // follows has a line of its own to go to.
    const std::size_t stop = text.find_first_of(":{", from);
    if (stop != std::string::npos && stop < to)
        to = stop;
    return std::string_view(text).substr(from, to - from);
}

std::int32_t CppLineWrapper::column() const
{
    const std::size_t nl = m_out.rfind('\n');
    const std::size_t from = nl == std::string::npos ? 0 : nl + 1;
    return stringWidth(std::string_view(m_out).substr(from), 0, m_tabSize);
}

std::int32_t CppLineWrapper::lineIndent() const
{
    const std::size_t nl = m_out.rfind('\n');
    const std::size_t from = nl == std::string::npos ? 0 : nl + 1;
    std::size_t to = from;
    while (to < m_out.size() && (m_out[to] == ' ' || m_out[to] == '\t'))
        ++to;
    return stringWidth(std::string_view(m_out).substr(from, to - from), 0, m_tabSize);
}

Varnel::StreamState CppLineWrapper::stateAt(std::int32_t base) const
{
    Varnel::StreamState state;
    state.indent = std::string(static_cast<std::size_t>(std::max(base, 0)), ' ');
    state.tabSize = m_tabSize;
    state.col = column();
    return state;
}

void CppLineWrapper::emitRoot(Cpp::RootNode& node)
{
    if (m_lineWrap && inRange(node)) {
        m_columns.push_back(0);
        for (auto it = node.childrenBegin(); it != node.childrenEnd(); ++it)
            visit(*it);
        m_columns.pop_back();
    }
    m_out += m_in.rest();
    m_changed = m_out != m_source.text();
    m_result.write(m_out.data(), static_cast<std::streamsize>(m_out.size()));
    m_result.flush();
}

// ---- Lists of statements and declarations ----

void CppLineWrapper::emitBlock(Cpp::BlockNode& node)
{
    visitChildren(node);
}

void CppLineWrapper::emitClassBody(Cpp::ClassBodyNode& node)
{
    visitChildren(node);
}

void CppLineWrapper::emitNamespaceBody(Cpp::NamespaceBodyNode& node)
{
    visitChildren(node);
}

void CppLineWrapper::emitLinkageBlockBody(Cpp::LinkageBlockBodyNode& node)
{
    visitChildren(node);
}

void CppLineWrapper::emitCtrlStmt(Cpp::CtrlStmtNode& node)
{
    visitChildren(node);
}

void CppLineWrapper::emitInterior(Cpp::InteriorNode& node)
{
    // A fenced region or a text the parser kept as it stands.
    copyNode(node);
}

// ---- Declarations ----

void CppLineWrapper::emitClassDecl(Cpp::ClassDeclNode& node)
{
    visitPartsFromColumn(node, {node.head(), node.body()});
}

void CppLineWrapper::emitClassHead(Cpp::ClassHeadNode& node)
{
    visitParts(node, {node.name(), node.bases()});
}

void CppLineWrapper::emitBaseClauseList(Cpp::BaseClauseListNode& node)
{
    if (!inRange(node) || readFlag(m_settings, Prop::ALIGN_BASE_CLAUSES_LEFT))
        return copyNode(node);
    wrapListOf(node, readText(m_settings, Prop::WS_BEFORE_BASE_CLAUSES_COMMA),
               readText(m_settings, Prop::WS_BETWEEN_BASE_CLAUSES), outerColumn());
}

void CppLineWrapper::emitNamespaceDecl(Cpp::NamespaceDeclNode& node)
{
    visitParts(node, {node.head(), node.body()});
}

void CppLineWrapper::emitLinkageBlock(Cpp::LinkageBlockNode& node)
{
    visitParts(node, {node.spec(), node.body()});
}

void CppLineWrapper::emitEnumDecl(Cpp::EnumDeclNode& node)
{
    visitPartsFromColumn(node, {node.head(), node.body()});
}

void CppLineWrapper::emitEnumBody(Cpp::EnumBodyNode& node)
{
    // An enum whose elements stand one to a line, or a scheme without a
    // continuation style, stays as it is.
    if (!inRange(node) || m_wrapStyle == 0)
        return copyNode(node);
    wrapListOf(node, readText(m_settings, Prop::WS_BEFORE_ENUM_COMMA),
               readText(m_settings, Prop::WS_BETWEEN_ENUM_ELEMENTS), outerColumn());
}

void CppLineWrapper::emitFunctionDecl(Cpp::FunctionDeclNode& node)
{
    visitParts(node, {node.head(), node.block()});
}

void CppLineWrapper::emitCtorDecl(Cpp::CtorDeclNode& node)
{
    if (!inRange(node))
        return copyNode(node);
    copyUpTo(node.begin());
    m_columns.push_back(column());
    visit(node.head());
    visit(node.initializers());
    m_columns.pop_back();
    visit(node.block());
    copyNode(node);
}

void CppLineWrapper::emitFunctionHead(Cpp::FunctionHeadNode& node)
{
    if (!inRange(node))
        return copyNode(node);
    copyUpTo(node.begin());
    // The parameters indent from the column the head starts at.
    m_columns.push_back(column());
    visit(node.returnType());
    visit(node.name());
    if (Cpp::ParameterListNode* params = node.parameters()) {
        if (readFlag(m_settings, Prop::ALIGN_FN_PARAMS_LEFT))
            copyNode(*params);
        else
            wrapListOf(*params, readText(m_settings, Prop::WS_BEFORE_FN_COMMA),
                       readText(m_settings, Prop::WS_BETWEEN_FN_PARAMS), m_columns.back());
    }
    m_columns.pop_back();
    copyNode(node);
}

void CppLineWrapper::emitInitializerList(Cpp::InitializerListNode& node)
{
    if (!inRange(node))
        return copyNode(node);
    const std::int32_t base = outerColumn();
    const std::string beforeComma = readText(m_settings, Prop::WS_BEFORE_CLASS_INITS_COMMA);
    const std::string between = readText(m_settings, Prop::WS_BETWEEN_CLASS_INITS);
    if (node.empty() || hasNewline(beforeComma) || hasNewline(between))
        return copyNode(node);
    Cpp::SyntaxNode* first = *node.childrenBegin();
    Cpp::SyntaxNode* last = *(node.childrenEnd() - 1);
    if (first->begin().isNull() || last->end().isNull())
        return copyNode(node);
    // "f(int a) : m_a(a), m_b(b)": the initialisers first fill the lines
    // behind the head; when one still does not fit there, the ":" starts a
    // line of its own, indented from the head.
    const std::size_t mark = m_out.size();
    std::string gap = m_in.readUpTo(first->begin());
    const std::string text = m_in.readThrough(last->end());
    m_out += gap;
    std::string wrapped = m_wrapper.wrapList(text, stateAt(base));
    const std::size_t colon = gap.rfind(':');
    if (m_wrapper.lineWrap() && m_wrapStyle != 0 && colon != std::string::npos &&
        gap.find("//") == std::string::npos && gap.find("/*") == std::string::npos &&
        m_wrapper.needsWrap(wrapped, stateAt(base))) {
        m_out.resize(mark);
        std::string before = gap.substr(0, colon);
        trimTrailingWhiteSpace(before);
        std::string indent = readText(m_settings, Prop::WRAP_INDENT);
        if (indent.empty())
            indent = "    ";
        const std::int32_t target = base + stringWidth(indent, base, m_tabSize);
        m_out += before;
        m_out += '\n';
        m_out += m_wrapper.padding(target);
        m_out += gap.substr(colon);
        wrapped = m_wrapper.wrapList(text, stateAt(base));
    }
    m_out += wrapped;
    copyNode(node);
}

void CppLineWrapper::wrapListOf(Cpp::InteriorNode& node, const std::string& beforeComma, const std::string& between,
                                std::int32_t base)
{
    if (node.empty() || !inRange(node) || hasNewline(beforeComma) || hasNewline(between))
        return copyNode(node);
    Cpp::SyntaxNode* first = *node.childrenBegin();
    Cpp::SyntaxNode* last = *(node.childrenEnd() - 1);
    if (first->begin().isNull() || last->end().isNull())
        return copyNode(node);
    copyUpTo(first->begin());
    // The closing bracket goes with the last element: "int b)" must fit too.
    std::string text = m_in.readThrough(last->end());
    text += m_in.readThrough(node.end());
    m_out += m_wrapper.wrapList(text, stateAt(base), false, restOfLine());
    copyNode(node);
}

void CppLineWrapper::emitDataDecl(Cpp::DataDeclNode& node)
{
    if (!inRange(node))
        return copyNode(node);
    copyUpTo(node.begin());
    std::int32_t base = lineIndent();
    // "int x = a + b;": the type stays, the declarator and its initialiser
    // indent from the name.
    if (node.name() && !node.name()->begin().isNull() && node.type()) {
        copyUpTo(node.name()->begin());
        base = column();
    }
    const std::string text = m_in.readThrough(node.end());
    const Varnel::StreamState state = stateAt(base);
    m_out += hasTopLevelComma(text) && node.type() ? m_wrapper.wrapList(text, state)
                                                   : m_wrapper.wrapExpression(text, state);
}

// ---- Statements ----

void CppLineWrapper::emitCtrlSubStmt(Cpp::CtrlSubStmtNode& node)
{
    visitParts(node, {node.head(), node.body()});
}

void CppLineWrapper::emitCtrlSubStmtHead(Cpp::CtrlSubStmtHeadNode& node)
{
    if (!inRange(node))
        return copyNode(node);
    copyUpTo(node.begin());
    const std::int32_t base = lineIndent();
    const bool isFor = node.keyword() && node.keyword()->type() == Cpp::FOR_KEY;
    visit(node.keyword());
    Cpp::ExprNode* condition = node.condition();
    if (!condition || condition->begin().isNull() || !inRange(*condition))
        return copyNode(node);
    copyUpTo(condition->begin());
    const std::string text = m_in.readThrough(condition->end());
    // "(a && b)": the parentheses stay, the inside is wrapped.
    const std::size_t open = text.find('(');
    const std::size_t close = text.rfind(')');
    if (open == std::string::npos || close == std::string::npos || close <= open) {
        m_out += m_wrapper.wrapExpression(text, stateAt(base));
        return copyNode(node);
    }
    m_out += text.substr(0, open + 1);
    // The inside is wrapped with the closing parenthesis behind it, so that
    // "(a && b)" counts the ")" when it measures the last line.
    const std::string inner = text.substr(open + 1);
    const Varnel::StreamState state = stateAt(base);
    m_out += isFor ? m_wrapper.wrapForHead(inner, state) : m_wrapper.wrapExpression(inner, state);
    copyNode(node);
}

void CppLineWrapper::emitExpr(Cpp::ExprNode& node)
{
    wrapWhole(node);
}

void CppLineWrapper::wrapWhole(const Cpp::SyntaxNode& node)
{
    if (!inRange(node))
        return copyNode(node);
    copyUpTo(node.begin());
    const std::int32_t base = lineIndent();
    const std::string text = m_in.readThrough(node.end());
    m_out += m_wrapper.wrapExpression(text, stateAt(base));
}

// ---- Copied as they stand ----

void CppLineWrapper::emitArgList(Cpp::ArgListNode& node)
{
    copyNode(node);
}

void CppLineWrapper::emitArg(Cpp::ArgNode& node)
{
    copyNode(node);
}

void CppLineWrapper::emitAsm(Cpp::AsmNode& node)
{
    copyNode(node);
}

void CppLineWrapper::emitLabel(Cpp::LabelNode& node)
{
    copyNode(node);
}

void CppLineWrapper::emitText(Cpp::TextNode& node)
{
    copyNode(node);
}

void CppLineWrapper::emitFunctionPtrDecl(Cpp::FunctionPtrDeclNode& node)
{
    // "int (*f)(int a, int b);": the parameters are the group to break.
    wrapWhole(node);
}

void CppLineWrapper::emitEnumHead(Cpp::EnumHeadNode& node)
{
    copyNode(node);
}

void CppLineWrapper::emitPreprocDirective(Cpp::PreprocDirectiveNode& node)
{
    copyNode(node);
}

void CppLineWrapper::emitComment(Cpp::CommentNode& node)
{
    copyNode(node);
}

void CppLineWrapper::emitTemplate(Cpp::TemplateNode& node)
{
    // "template <typename A, typename B>": the parameters fill the lines
    // from the column behind "<".
    if (!inRange(node) || !node.parameters())
        return copyNode(node);
    copyUpTo(node.begin());
    const std::int32_t base = column();
    visit(node.keyword());
    wrapListOf(*node.parameters(), readText(m_settings, Prop::WS_BEFORE_TP_COMMA),
               readText(m_settings, Prop::WS_BETWEEN_TP_PARAMS), base);
    copyNode(node);
}

void CppLineWrapper::emitCase(Cpp::CaseNode& node)
{
    copyNode(node);
}

void CppLineWrapper::emitKeyword(Cpp::KeywordNode& node)
{
    copyNode(node);
}

void CppLineWrapper::emitType(Cpp::TypeNode& node)
{
    copyNode(node);
}

void CppLineWrapper::emitInitializer(Cpp::InitializerNode& node)
{
    copyNode(node);
}

void CppLineWrapper::emitParameterList(Cpp::ParameterListNode& node)
{
    copyNode(node);
}

void CppLineWrapper::emitParameter(Cpp::ParameterNode& node)
{
    copyNode(node);
}

void CppLineWrapper::emitId(Cpp::IdNode& node)
{
    copyNode(node);
}

void CppLineWrapper::emitFunctionReturn(Cpp::FunctionReturnNode& node)
{
    copyNode(node);
}

void CppLineWrapper::emitNamespaceHead(Cpp::NamespaceHeadNode& node)
{
    copyNode(node);
}

void CppLineWrapper::emitAccessSpec(Cpp::AccessSpecNode& node)
{
    copyNode(node);
}

void CppLineWrapper::emitClassName(Cpp::ClassNameNode& node)
{
    copyNode(node);
}

void CppLineWrapper::emitBaseClause(Cpp::BaseClauseNode& node)
{
    copyNode(node);
}

} // namespace Kempt
