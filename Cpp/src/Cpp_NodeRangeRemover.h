// Cuts out of a tree everything that lies inside given ranges of the text, so
// that a pass prints the source text there unchanged. Each run of neighbouring
// children of one list that lie in ranges becomes one protected CommentNode
// with the run's span; a child field of a composite node that lies in a range
// is set to null, and the composite keeps the range it had.
//
// Protocol: construct over the ranges (begin and end inclusive, in text
// order), then root.accept(remover). The remover overrides every operation of
// the emitter, and walks the whole tree itself.
//
// Invariants:
//  1. A node is taken as inside a range when its begin lies in it; while the
//     walk stays in that range, the next node must also end within it.
//  2. Interior nodes are never removed themselves; their children are.
#ifndef CPP_NODERANGEREMOVER_H
#define CPP_NODERANGEREMOVER_H

#include "Cpp_Emitter.h"
#include "Trn_Position.h"

namespace Cpp {

class SyntaxNode;

class NodeRangeRemover : public Emitter {
public:
    explicit NodeRangeRemover(const Trn::RangeList& ranges);

    void emitArgList(ArgListNode& node) override;
    void emitArg(ArgNode& node) override;
    void emitAsm(AsmNode& node) override;
    void emitLabel(LabelNode& node) override;
    void emitText(TextNode& node) override;
    void emitFunctionPtrDecl(FunctionPtrDeclNode& node) override;
    void emitLinkageBlockBody(LinkageBlockBodyNode& node) override;
    void emitLinkageBlock(LinkageBlockNode& node) override;
    void emitEnumBody(EnumBodyNode& node) override;
    void emitEnumHead(EnumHeadNode& node) override;
    void emitEnumDecl(EnumDeclNode& node) override;
    void emitPreprocDirective(PreprocDirectiveNode& node) override;
    void emitComment(CommentNode& node) override;
    void emitTemplate(TemplateNode& node) override;
    void emitCase(CaseNode& node) override;
    void emitKeyword(KeywordNode& node) override;
    void emitCtrlSubStmtHead(CtrlSubStmtHeadNode& node) override;
    void emitCtrlSubStmt(CtrlSubStmtNode& node) override;
    void emitCtrlStmt(CtrlStmtNode& node) override;
    void emitExpr(ExprNode& node) override;
    void emitType(TypeNode& node) override;
    void emitInitializer(InitializerNode& node) override;
    void emitInitializerList(InitializerListNode& node) override;
    void emitDataDecl(DataDeclNode& node) override;
    void emitParameterList(ParameterListNode& node) override;
    void emitParameter(ParameterNode& node) override;
    void emitId(IdNode& node) override;
    void emitFunctionReturn(FunctionReturnNode& node) override;
    void emitBlock(BlockNode& node) override;
    void emitFunctionHead(FunctionHeadNode& node) override;
    void emitFunctionDecl(FunctionDeclNode& node) override;
    void emitCtorDecl(CtorDeclNode& node) override;
    void emitNamespaceBody(NamespaceBodyNode& node) override;
    void emitNamespaceHead(NamespaceHeadNode& node) override;
    void emitNamespaceDecl(NamespaceDeclNode& node) override;
    void emitAccessSpec(AccessSpecNode& node) override;
    void emitClassName(ClassNameNode& node) override;
    void emitClassHead(ClassHeadNode& node) override;
    void emitClassDecl(ClassDeclNode& node) override;
    void emitClassBody(ClassBodyNode& node) override;
    void emitBaseClauseList(BaseClauseListNode& node) override;
    void emitBaseClause(BaseClauseNode& node) override;
    void emitRoot(RootNode& node) override;
    void emitInterior(InteriorNode& node) override;

private:
    // True when `node` lies inside a range; follows the walk's state.
    bool removeNode(const SyntaxNode& node);
    // Visits every child and folds each run of children in ranges.
    void removeChildren(InteriorNode& node);
    // Visits one child field and sets it to null when it lies in a range.
    template <typename Node, typename Child>
    void visitField(Node& node, Child* (Node::*get)() const, void (Node::*set)(Child*));
    // The composite steps around the fields: note the range, test the node,
    // visit the fields, restore the range.
    template <typename Node, typename Fields>
    void visitComposite(Node& node, Fields fields);

    Trn::RangeList m_ranges;
    Trn::Range m_currentRange;
    bool m_inRange = false;
};

} // namespace Cpp

#endif
