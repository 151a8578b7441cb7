// Folding the nodes of protected ranges into protected comments.
#include "Cpp_NodeRangeRemover.h"

#include "Cpp_Nodes.h"

#include <vector>

namespace Cpp {

NodeRangeRemover::NodeRangeRemover(const Trn::RangeList& ranges) : m_ranges(ranges) {}

bool NodeRangeRemover::removeNode(const SyntaxNode& node)
{
    // 1. Inside the current range: the node must end within it too.
    if (m_inRange) {
        if (node.begin() >= m_currentRange.first && node.end() <= m_currentRange.second)
            return true;
        m_inRange = false;
    }
    // 2. Otherwise the first range that holds the node's begin starts a run.
    for (const Trn::Range& range : m_ranges) {
        if (node.begin() >= range.first && node.begin() <= range.second) {
            m_inRange = true;
            m_currentRange = range;
            break;
        }
    }
    return m_inRange;
}

void NodeRangeRemover::removeChildren(InteriorNode& node)
{
    struct Visited {
        Trn::Position begin;
        Trn::Position end;
        bool inRange;
    };
    std::vector<Visited> visited;
    visited.reserve(node.size());
    for (auto it = node.childrenBegin(); it != node.childrenEnd(); ++it) {
        SyntaxNode* child = *it;
        const Trn::Position begin = child->begin();
        const Trn::Position end = child->end();
        child->accept(*this);
        // A child that begins before the range is never folded, even when the
        // range began among its children: a region reaches no further back
        // than its opening marker. The children in the range were folded
        // inside the child itself.
        visited.push_back({begin, end, m_inRange && begin >= m_currentRange.first});
    }
    std::size_t i = 0;
    for (auto it = node.childrenBegin(); it != node.childrenEnd();) {
        if (!visited[i].inRange) {
            ++it;
            ++i;
            continue;
        }
        auto first = it;
        const Trn::Position regionBegin = visited[i].begin;
        Trn::Position regionEnd = visited[i].end;
        while (it != node.childrenEnd() && visited[i].inRange) {
            regionEnd = visited[i].end;
            delete *it;
            *it = nullptr;
            ++it;
            ++i;
        }
        *first = new CommentNode(std::string(), regionBegin, regionEnd, true);
    }
    for (auto it = node.childrenBegin(); it != node.childrenEnd();) {
        auto last = it;
        while (last != node.childrenEnd() && *last == nullptr)
            ++last;
        it = last == it ? it + 1 : node.erase(it, last);
    }
}

template <typename Node, typename Child>
void NodeRangeRemover::visitField(Node& node, Child* (Node::*get)() const, void (Node::*set)(Child*))
{
    Child* child = (node.*get)();
    if (!child)
        return;
    child->accept(*this);
    if (removeNode(*child))
        (node.*set)(nullptr);
}

template <typename Node, typename Fields>
void NodeRangeRemover::visitComposite(Node& node, Fields fields)
{
    const Trn::Position begin = node.begin();
    const Trn::Position end = node.end();
    removeNode(node);
    fields();
    if (node.begin() != begin)
        node.setBegin(begin);
    if (node.end() != end)
        node.setEnd(end);
}

// Leaves only follow the state of the walk.
void NodeRangeRemover::emitArg(ArgNode& node) { removeNode(node); }
void NodeRangeRemover::emitText(TextNode& node) { removeNode(node); }
void NodeRangeRemover::emitEnumHead(EnumHeadNode& node) { removeNode(node); }
void NodeRangeRemover::emitPreprocDirective(PreprocDirectiveNode& node) { removeNode(node); }
void NodeRangeRemover::emitComment(CommentNode& node) { removeNode(node); }
void NodeRangeRemover::emitKeyword(KeywordNode& node) { removeNode(node); }
void NodeRangeRemover::emitExpr(ExprNode& node) { removeNode(node); }
void NodeRangeRemover::emitType(TypeNode& node) { removeNode(node); }
void NodeRangeRemover::emitParameter(ParameterNode& node) { removeNode(node); }
void NodeRangeRemover::emitId(IdNode& node) { removeNode(node); }
void NodeRangeRemover::emitFunctionReturn(FunctionReturnNode& node) { removeNode(node); }
void NodeRangeRemover::emitNamespaceHead(NamespaceHeadNode& node) { removeNode(node); }
void NodeRangeRemover::emitAccessSpec(AccessSpecNode& node) { removeNode(node); }
void NodeRangeRemover::emitClassName(ClassNameNode& node) { removeNode(node); }
void NodeRangeRemover::emitBaseClause(BaseClauseNode& node) { removeNode(node); }

// Lists fold their runs.
void NodeRangeRemover::emitArgList(ArgListNode& node) { removeChildren(node); }
void NodeRangeRemover::emitLinkageBlockBody(LinkageBlockBodyNode& node) { removeChildren(node); }
void NodeRangeRemover::emitEnumBody(EnumBodyNode& node) { removeChildren(node); }
void NodeRangeRemover::emitCtrlStmt(CtrlStmtNode& node) { removeChildren(node); }
void NodeRangeRemover::emitInitializerList(InitializerListNode& node) { removeChildren(node); }
void NodeRangeRemover::emitParameterList(ParameterListNode& node) { removeChildren(node); }
void NodeRangeRemover::emitBlock(BlockNode& node) { removeChildren(node); }
void NodeRangeRemover::emitNamespaceBody(NamespaceBodyNode& node) { removeChildren(node); }
void NodeRangeRemover::emitClassBody(ClassBodyNode& node) { removeChildren(node); }
void NodeRangeRemover::emitBaseClauseList(BaseClauseListNode& node) { removeChildren(node); }
void NodeRangeRemover::emitRoot(RootNode& node) { removeChildren(node); }
void NodeRangeRemover::emitInterior(InteriorNode& node) { removeChildren(node); }

// Composites clear the fields that lie in a range.
void NodeRangeRemover::emitAsm(AsmNode& node)
{
    visitComposite(node, [&] {
        visitField(node, &AsmNode::text, &AsmNode::setText);
        visitField(node, &AsmNode::body, &AsmNode::setBody);
    });
}

void NodeRangeRemover::emitLabel(LabelNode& node)
{
    visitComposite(node, [&] { visitField(node, &LabelNode::name, &LabelNode::setName); });
}

void NodeRangeRemover::emitFunctionPtrDecl(FunctionPtrDeclNode& node)
{
    visitComposite(node, [&] {
        visitField(node, &FunctionPtrDeclNode::type, &FunctionPtrDeclNode::setType);
        visitField(node, &FunctionPtrDeclNode::name, &FunctionPtrDeclNode::setName);
        visitField(node, &FunctionPtrDeclNode::parameters, &FunctionPtrDeclNode::setParameters);
        visitField(node, &FunctionPtrDeclNode::qualifiers, &FunctionPtrDeclNode::setQualifiers);
    });
}

void NodeRangeRemover::emitLinkageBlock(LinkageBlockNode& node)
{
    visitComposite(node, [&] {
        visitField(node, &LinkageBlockNode::spec, &LinkageBlockNode::setSpec);
        visitField(node, &LinkageBlockNode::body, &LinkageBlockNode::setBody);
    });
}

void NodeRangeRemover::emitEnumDecl(EnumDeclNode& node)
{
    visitComposite(node, [&] {
        visitField(node, &EnumDeclNode::head, &EnumDeclNode::setHead);
        visitField(node, &EnumDeclNode::body, &EnumDeclNode::setBody);
    });
}

void NodeRangeRemover::emitTemplate(TemplateNode& node)
{
    visitComposite(node, [&] {
        visitField(node, &TemplateNode::keyword, &TemplateNode::setKeyword);
        visitField(node, &TemplateNode::parameters, &TemplateNode::setParameters);
    });
}

void NodeRangeRemover::emitCase(CaseNode& node)
{
    visitComposite(node, [&] {
        visitField(node, &CaseNode::keyword, &CaseNode::setKeyword);
        visitField(node, &CaseNode::expression, &CaseNode::setExpression);
    });
}

void NodeRangeRemover::emitCtrlSubStmtHead(CtrlSubStmtHeadNode& node)
{
    visitComposite(node, [&] {
        visitField(node, &CtrlSubStmtHeadNode::keyword, &CtrlSubStmtHeadNode::setKeyword);
        visitField(node, &CtrlSubStmtHeadNode::condition, &CtrlSubStmtHeadNode::setCondition);
    });
}

void NodeRangeRemover::emitCtrlSubStmt(CtrlSubStmtNode& node)
{
    visitComposite(node, [&] {
        visitField(node, &CtrlSubStmtNode::head, &CtrlSubStmtNode::setHead);
        visitField(node, &CtrlSubStmtNode::body, &CtrlSubStmtNode::setBody);
    });
}

void NodeRangeRemover::emitInitializer(InitializerNode& node)
{
    visitComposite(node, [&] {
        visitField(node, &InitializerNode::name, &InitializerNode::setName);
        visitField(node, &InitializerNode::args, &InitializerNode::setArgs);
    });
}

void NodeRangeRemover::emitDataDecl(DataDeclNode& node)
{
    visitComposite(node, [&] {
        visitField(node, &DataDeclNode::type, &DataDeclNode::setType);
        visitField(node, &DataDeclNode::name, &DataDeclNode::setName);
        visitField(node, &DataDeclNode::initializer, &DataDeclNode::setInitializer);
    });
}

void NodeRangeRemover::emitFunctionHead(FunctionHeadNode& node)
{
    visitComposite(node, [&] {
        visitField(node, &FunctionHeadNode::returnType, &FunctionHeadNode::setReturnType);
        visitField(node, &FunctionHeadNode::name, &FunctionHeadNode::setName);
        visitField(node, &FunctionHeadNode::parameters, &FunctionHeadNode::setParameters);
        visitField(node, &FunctionHeadNode::qualifiers, &FunctionHeadNode::setQualifiers);
        visitField(node, &FunctionHeadNode::exceptionSpec, &FunctionHeadNode::setExceptionSpec);
        visitField(node, &FunctionHeadNode::pureSpec, &FunctionHeadNode::setPureSpec);
    });
}

void NodeRangeRemover::emitFunctionDecl(FunctionDeclNode& node)
{
    visitComposite(node, [&] {
        visitField(node, &FunctionDeclNode::head, &FunctionDeclNode::setHead);
        visitField(node, &FunctionDeclNode::block, &FunctionDeclNode::setBlock);
    });
}

// In text order: head, initialisers, block.
void NodeRangeRemover::emitCtorDecl(CtorDeclNode& node)
{
    FunctionDeclNode& function = node;
    visitComposite(node, [&] {
        visitField(function, &FunctionDeclNode::head, &FunctionDeclNode::setHead);
        visitField(node, &CtorDeclNode::initializers, &CtorDeclNode::setInitializers);
        visitField(function, &FunctionDeclNode::block, &FunctionDeclNode::setBlock);
    });
}

void NodeRangeRemover::emitNamespaceDecl(NamespaceDeclNode& node)
{
    visitComposite(node, [&] {
        visitField(node, &NamespaceDeclNode::head, &NamespaceDeclNode::setHead);
        visitField(node, &NamespaceDeclNode::body, &NamespaceDeclNode::setBody);
    });
}

void NodeRangeRemover::emitClassHead(ClassHeadNode& node)
{
    visitComposite(node, [&] {
        visitField(node, &ClassHeadNode::name, &ClassHeadNode::setName);
        visitField(node, &ClassHeadNode::bases, &ClassHeadNode::setBases);
    });
}

void NodeRangeRemover::emitClassDecl(ClassDeclNode& node)
{
    visitComposite(node, [&] {
        visitField(node, &ClassDeclNode::head, &ClassDeclNode::setHead);
        visitField(node, &ClassDeclNode::body, &ClassDeclNode::setBody);
    });
}

} // namespace Cpp
