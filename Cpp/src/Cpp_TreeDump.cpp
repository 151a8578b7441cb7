// Writing trees as text lines.
#include "Cpp_TreeDump.h"

#include "Cpp_Nodes.h"
#include "Cpp_TokenDump.h"
#include "Cpp_TokenType.h"

#include <ostream>
#include <sstream>

namespace Cpp {

namespace {

std::string positionText(const Trn::Position& p)
{
    return std::to_string(p.line) + ":" + std::to_string(p.col);
}

// Learns, for one node, its class name, its own attributes and its children.
class Describer : public Emitter {
public:
    std::string name;
    std::string attributes;
    std::vector<SyntaxNode*> children;

    void emitArgList(ArgListNode& n) override { list("ArgListNode", n); }
    void emitArg(ArgNode&) override { name = "ArgNode"; }
    void emitAsm(AsmNode& n) override
    {
        fields("AsmNode", {n.text(), n.body()});
        number("form", n.form());
    }
    void emitLabel(LabelNode& n) override { fields("LabelNode", {n.name()}); }
    void emitText(TextNode&) override { name = "TextNode"; }
    void emitFunctionPtrDecl(FunctionPtrDeclNode& n) override
    {
        fields("FunctionPtrDeclNode", {n.type(), n.name(), n.parameters(), n.qualifiers()});
    }
    void emitLinkageBlockBody(LinkageBlockBodyNode& n) override { list("LinkageBlockBodyNode", n); }
    void emitLinkageBlock(LinkageBlockNode& n) override { fields("LinkageBlockNode", {n.spec(), n.body()}); }
    void emitEnumBody(EnumBodyNode& n) override { list("EnumBodyNode", n); }
    void emitEnumHead(EnumHeadNode& n) override
    {
        name = "EnumHeadNode";
        text("text", n.name());
    }
    void emitEnumDecl(EnumDeclNode& n) override { fields("EnumDeclNode", {n.head(), n.body()}); }
    void emitPreprocDirective(PreprocDirectiveNode&) override { name = "PreprocDirectiveNode"; }
    void emitComment(CommentNode& n) override
    {
        name = "CommentNode";
        text("text", n.text());
        flag("protected", n.isProtected());
    }
    void emitTemplate(TemplateNode& n) override { fields("TemplateNode", {n.keyword(), n.parameters()}); }
    void emitCase(CaseNode& n) override { fields("CaseNode", {n.keyword(), n.expression()}); }
    void emitKeyword(KeywordNode& n) override
    {
        name = "KeywordNode";
        type("type", n.type());
    }
    void emitCtrlSubStmtHead(CtrlSubStmtHeadNode& n) override
    {
        fields("CtrlSubStmtHeadNode", {n.keyword(), n.condition()});
    }
    void emitCtrlSubStmt(CtrlSubStmtNode& n) override { fields("CtrlSubStmtNode", {n.head(), n.body()}); }
    void emitCtrlStmt(CtrlStmtNode& n) override { list("CtrlStmtNode", n); }
    void emitExpr(ExprNode&) override { name = "ExprNode"; }
    void emitType(TypeNode&) override { name = "TypeNode"; }
    void emitInitializer(InitializerNode& n) override { fields("InitializerNode", {n.name(), n.args()}); }
    void emitInitializerList(InitializerListNode& n) override { list("InitializerListNode", n); }
    void emitDataDecl(DataDeclNode& n) override { fields("DataDeclNode", {n.type(), n.name(), n.initializer()}); }
    void emitParameterList(ParameterListNode& n) override { list("ParameterListNode", n); }
    void emitParameter(ParameterNode& n) override
    {
        name = "ParameterNode";
        flag("endsInAngle", n.endsInAngle());
    }
    void emitId(IdNode& n) override
    {
        name = "IdNode";
        text("text", n.name());
    }
    void emitFunctionReturn(FunctionReturnNode&) override { name = "FunctionReturnNode"; }
    void emitBlock(BlockNode& n) override { list("BlockNode", n); }
    void emitFunctionHead(FunctionHeadNode& n) override
    {
        fields("FunctionHeadNode",
               {n.returnType(), n.name(), n.parameters(), n.qualifiers(), n.exceptionSpec(), n.pureSpec()});
    }
    void emitFunctionDecl(FunctionDeclNode& n) override { fields("FunctionDeclNode", {n.head(), n.block()}); }
    void emitCtorDecl(CtorDeclNode& n) override
    {
        fields("CtorDeclNode", {n.head(), n.initializers(), n.block()});
    }
    void emitNamespaceBody(NamespaceBodyNode& n) override { list("NamespaceBodyNode", n); }
    void emitNamespaceHead(NamespaceHeadNode& n) override
    {
        name = "NamespaceHeadNode";
        text("text", n.name());
    }
    void emitNamespaceDecl(NamespaceDeclNode& n) override
    {
        fields("NamespaceDeclNode", {n.head(), n.body()});
    }
    void emitAccessSpec(AccessSpecNode& n) override
    {
        name = "AccessSpecNode";
        number("kind", n.kind());
        text("text", n.text());
        flag("extended", n.extended());
    }
    void emitClassName(ClassNameNode& n) override
    {
        name = "ClassNameNode";
        type("type", n.type());
        text("text", n.name());
    }
    void emitClassHead(ClassHeadNode& n) override { fields("ClassHeadNode", {n.name(), n.bases()}); }
    void emitClassDecl(ClassDeclNode& n) override { fields("ClassDeclNode", {n.head(), n.body()}); }
    void emitClassBody(ClassBodyNode& n) override { list("ClassBodyNode", n); }
    void emitBaseClauseList(BaseClauseListNode& n) override { list("BaseClauseListNode", n); }
    void emitBaseClause(BaseClauseNode& n) override
    {
        name = "BaseClauseNode";
        if (n.type() != BaseClauseNode::NO_ACCESS)
            type("access", n.type());
        flag("virtual", n.isVirtual());
        text("text", n.name());
    }
    void emitRoot(RootNode& n) override { list("RootNode", n); }
    void emitInterior(InteriorNode& n) override { list("InteriorNode", n); }

private:
    void list(const char* className, InteriorNode& node)
    {
        name = className;
        children.assign(node.childrenBegin(), node.childrenEnd());
    }
    void fields(const char* className, std::initializer_list<SyntaxNode*> set)
    {
        name = className;
        for (SyntaxNode* child : set)
            if (child)
                children.push_back(child);
    }
    void text(const char* key, const std::string& value)
    {
        if (!value.empty())
            attributes += std::string(" ") + key + "=" + quoteText(value);
    }
    void flag(const char* key, bool value)
    {
        if (value)
            attributes += std::string(" ") + key + "=1";
    }
    void number(const char* key, std::int32_t value)
    {
        attributes += std::string(" ") + key + "=" + std::to_string(value);
    }
    void type(const char* key, std::int32_t value)
    {
        attributes += std::string(" ") + key + "=" + tokenTypeName(value);
    }
};

void dumpLines(SyntaxNode& node, std::ostream& out, int depth)
{
    out << std::string(static_cast<std::size_t>(depth) * 2, ' ') << describeNode(node) << '\n';
    for (SyntaxNode* child : childrenOf(node))
        if (child)
            dumpLines(*child, out, depth + 1);
}

} // namespace

std::vector<SyntaxNode*> childrenOf(SyntaxNode& node)
{
    Describer describer;
    node.accept(describer);
    return describer.children;
}

std::string nodeClassName(SyntaxNode& node)
{
    Describer describer;
    node.accept(describer);
    return describer.name;
}

std::string describeNode(SyntaxNode& node)
{
    Describer describer;
    node.accept(describer);
    return describer.name + " " + positionText(node.begin()) + "-" + positionText(node.end())
        + describer.attributes;
}

void dumpTree(SyntaxNode& node, std::ostream& out)
{
    dumpLines(node, out, 0);
}

std::string dumpTree(SyntaxNode& node)
{
    std::ostringstream out;
    dumpTree(node, out);
    return out.str();
}

} // namespace Cpp
