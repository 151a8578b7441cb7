// The visitor over the C++ syntax tree. Every pass that walks a tree derives
// from it. accept() of a node calls exactly the one operation named after the
// node's own class; there is no default traversal, so each walker decides which
// children to visit and in what order. Every operation here does nothing, and
// an operation a walker does not override drops that subtree.
#ifndef CPP_EMITTER_H
#define CPP_EMITTER_H

namespace Cpp {

class ArgListNode;
class ArgNode;
class AsmNode;
class LabelNode;
class TextNode;
class FunctionPtrDeclNode;
class LinkageBlockBodyNode;
class LinkageBlockNode;
class EnumBodyNode;
class EnumHeadNode;
class EnumDeclNode;
class PreprocDirectiveNode;
class CommentNode;
class TemplateNode;
class CaseNode;
class KeywordNode;
class CtrlSubStmtHeadNode;
class CtrlSubStmtNode;
class CtrlStmtNode;
class ExprNode;
class TypeNode;
class InitializerNode;
class InitializerListNode;
class DataDeclNode;
class ParameterListNode;
class ParameterNode;
class IdNode;
class FunctionReturnNode;
class BlockNode;
class FunctionHeadNode;
class FunctionDeclNode;
class CtorDeclNode;
class NamespaceBodyNode;
class NamespaceHeadNode;
class NamespaceDeclNode;
class AccessSpecNode;
class ClassNameNode;
class ClassHeadNode;
class ClassDeclNode;
class ClassBodyNode;
class BaseClauseListNode;
class BaseClauseNode;
class RootNode;
class InteriorNode;

class Emitter {
public:
    virtual ~Emitter() = default;

    virtual void emitArgList(ArgListNode&) {}
    virtual void emitArg(ArgNode&) {}
    virtual void emitAsm(AsmNode&) {}
    virtual void emitLabel(LabelNode&) {}
    virtual void emitText(TextNode&) {}
    virtual void emitFunctionPtrDecl(FunctionPtrDeclNode&) {}
    virtual void emitLinkageBlockBody(LinkageBlockBodyNode&) {}
    virtual void emitLinkageBlock(LinkageBlockNode&) {}
    virtual void emitEnumBody(EnumBodyNode&) {}
    virtual void emitEnumHead(EnumHeadNode&) {}
    virtual void emitEnumDecl(EnumDeclNode&) {}
    virtual void emitPreprocDirective(PreprocDirectiveNode&) {}
    virtual void emitComment(CommentNode&) {}
    virtual void emitTemplate(TemplateNode&) {}
    virtual void emitCase(CaseNode&) {}
    virtual void emitKeyword(KeywordNode&) {}
    virtual void emitCtrlSubStmtHead(CtrlSubStmtHeadNode&) {}
    virtual void emitCtrlSubStmt(CtrlSubStmtNode&) {}
    virtual void emitCtrlStmt(CtrlStmtNode&) {}
    virtual void emitExpr(ExprNode&) {}
    virtual void emitType(TypeNode&) {}
    virtual void emitInitializer(InitializerNode&) {}
    virtual void emitInitializerList(InitializerListNode&) {}
    virtual void emitDataDecl(DataDeclNode&) {}
    virtual void emitParameterList(ParameterListNode&) {}
    virtual void emitParameter(ParameterNode&) {}
    virtual void emitId(IdNode&) {}
    virtual void emitFunctionReturn(FunctionReturnNode&) {}
    virtual void emitBlock(BlockNode&) {}
    virtual void emitFunctionHead(FunctionHeadNode&) {}
    virtual void emitFunctionDecl(FunctionDeclNode&) {}
    virtual void emitCtorDecl(CtorDeclNode&) {}
    virtual void emitNamespaceBody(NamespaceBodyNode&) {}
    virtual void emitNamespaceHead(NamespaceHeadNode&) {}
    virtual void emitNamespaceDecl(NamespaceDeclNode&) {}
    virtual void emitAccessSpec(AccessSpecNode&) {}
    virtual void emitClassName(ClassNameNode&) {}
    virtual void emitClassHead(ClassHeadNode&) {}
    virtual void emitClassDecl(ClassDeclNode&) {}
    virtual void emitClassBody(ClassBodyNode&) {}
    virtual void emitBaseClauseList(BaseClauseListNode&) {}
    virtual void emitBaseClause(BaseClauseNode&) {}
    virtual void emitRoot(RootNode&) {}
    virtual void emitInterior(InteriorNode&) {}
};

} // namespace Cpp

#endif
