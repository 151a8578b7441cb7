// The composite nodes of declarations: heads and their declarations, the
// template head and the member initialiser. Each holds its children in fixed
// fields, each an owning pointer that may be null; a child given to a
// constructor or set operation becomes the node's. Accessors return a raw
// pointer or null and keep ownership.
//
// Range: a node's own begin (end) when it is set, otherwise the begin (end)
// of its first (last) child present; setBegin and setEnd set the own range.
#ifndef CPP_DECLNODES_H
#define CPP_DECLNODES_H

#include "Cpp_LeafNodes.h"
#include "Cpp_ListNodes.h"

namespace Cpp {

// The own range of a composite node, and its setters.
#define TW_COMPOSITE_RANGE                                                                                     \
public:                                                                                                        \
    void setBegin(const Trn::Position& p) override { m_begin = p; }                                            \
    void setEnd(const Trn::Position& p) override { m_end = p; }                                                \
    Trn::Position begin() const override;                                                                      \
    Trn::Position end() const override;                                                                        \
                                                                                                               \
private:                                                                                                       \
    Trn::Position m_begin;                                                                                     \
    Trn::Position m_end;                                                                                       \
                                                                                                               \
public:

// One owned child field: accessor and set operation.
#define TW_CHILD_FIELD(Type, name, setName)                                                                    \
public:                                                                                                        \
    Type* name() const { return m_##name.get(); }                                                              \
    void setName(Type* node) { m_##name.reset(node); }                                                         \
                                                                                                               \
private:                                                                                                       \
    NodePtr<Type> m_##name;                                                                                    \
                                                                                                               \
public:

// The head of a class: its name and, when it has one, its base list.
class ClassHeadNode : public SyntaxNode {
public:
    ClassHeadNode() = default;
    ClassHeadNode(ClassNameNode* name, BaseClauseListNode* bases);
    TW_NODE_COPYABLE(ClassHeadNode);
    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;
    TW_COMPOSITE_RANGE
    TW_CHILD_FIELD(ClassNameNode, name, setName)
    TW_CHILD_FIELD(BaseClauseListNode, bases, setBases)
};

// A class, struct or union; the body is null for a forward declaration.
class ClassDeclNode : public DeclNode {
public:
    ClassDeclNode() = default;
    ClassDeclNode(ClassHeadNode* head, ClassBodyNode* body);
    TW_NODE_COPYABLE(ClassDeclNode);
    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;
    TW_COMPOSITE_RANGE
    TW_CHILD_FIELD(ClassHeadNode, head, setHead)
    TW_CHILD_FIELD(ClassBodyNode, body, setBody)
};

// An enum: head and body.
class EnumDeclNode : public DeclNode {
public:
    EnumDeclNode() = default;
    EnumDeclNode(EnumHeadNode* head, EnumBodyNode* body);
    TW_NODE_COPYABLE(EnumDeclNode);
    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;
    TW_COMPOSITE_RANGE
    TW_CHILD_FIELD(EnumHeadNode, head, setHead)
    TW_CHILD_FIELD(EnumBodyNode, body, setBody)
};

// A namespace: head and body.
class NamespaceDeclNode : public DeclNode {
public:
    NamespaceDeclNode() = default;
    NamespaceDeclNode(NamespaceHeadNode* head, NamespaceBodyNode* body);
    TW_NODE_COPYABLE(NamespaceDeclNode);
    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;
    TW_COMPOSITE_RANGE
    TW_CHILD_FIELD(NamespaceHeadNode, head, setHead)
    TW_CHILD_FIELD(NamespaceBodyNode, body, setBody)
};

// extern "C" { ... }: the span of `extern "C"` and the body.
class LinkageBlockNode : public DeclNode {
public:
    LinkageBlockNode() = default;
    LinkageBlockNode(ExprNode* spec, LinkageBlockBodyNode* body);
    TW_NODE_COPYABLE(LinkageBlockNode);
    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;
    TW_COMPOSITE_RANGE
    TW_CHILD_FIELD(ExprNode, spec, setSpec)
    TW_CHILD_FIELD(LinkageBlockBodyNode, body, setBody)
};

// "template" and its parameter list. The declaration that follows is the next
// item of the enclosing list, not a child.
class TemplateNode : public SyntaxNode {
public:
    TemplateNode() = default;
    TemplateNode(KeywordNode* keyword, ParameterListNode* parameters);
    TW_NODE_COPYABLE(TemplateNode);
    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;
    TW_COMPOSITE_RANGE
    TW_CHILD_FIELD(KeywordNode, keyword, setKeyword)
    TW_CHILD_FIELD(ParameterListNode, parameters, setParameters)
};

// A function up to its body.
class FunctionHeadNode : public SyntaxNode {
public:
    FunctionHeadNode() = default;
    FunctionHeadNode(FunctionReturnNode* returnType, IdNode* name, ParameterListNode* parameters,
                     TextNode* qualifiers, ExprNode* exceptionSpec, ExprNode* pureSpec);
    TW_NODE_COPYABLE(FunctionHeadNode);
    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;
    TW_COMPOSITE_RANGE
    TW_CHILD_FIELD(FunctionReturnNode, returnType, setReturnType)
    TW_CHILD_FIELD(IdNode, name, setName)
    TW_CHILD_FIELD(ParameterListNode, parameters, setParameters)
    TW_CHILD_FIELD(TextNode, qualifiers, setQualifiers)
    TW_CHILD_FIELD(ExprNode, exceptionSpec, setExceptionSpec)
    TW_CHILD_FIELD(ExprNode, pureSpec, setPureSpec)
};

// The member initialiser list's element: a name and its arguments.
class InitializerNode : public SyntaxNode {
public:
    InitializerNode() = default;
    InitializerNode(IdNode* name, ArgListNode* args);
    TW_NODE_COPYABLE(InitializerNode);
    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;
    TW_COMPOSITE_RANGE
    TW_CHILD_FIELD(IdNode, name, setName)
    TW_CHILD_FIELD(ArgListNode, args, setArgs)
};

// A function declaration or definition; the block is null for a declaration.
class FunctionDeclNode : public DeclNode {
public:
    FunctionDeclNode() = default;
    FunctionDeclNode(FunctionHeadNode* head, BlockNode* block);
    TW_NODE_COPYABLE(FunctionDeclNode);
    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;
    Trn::Position begin() const override;
    Trn::Position end() const override;
    void setBegin(const Trn::Position& p) override { m_begin = p; }
    void setEnd(const Trn::Position& p) override { m_end = p; }

    FunctionHeadNode* head() const { return m_head.get(); }
    // Takes over ownership of the head.
    virtual void setHead(FunctionHeadNode* head) { m_head.reset(head); }
    BlockNode* block() const { return m_block.get(); }
    void setBlock(BlockNode* block) { m_block.reset(block); }

protected:
    Trn::Position m_begin;
    Trn::Position m_end;

private:
    NodePtr<FunctionHeadNode> m_head;
    NodePtr<BlockNode> m_block;
};

// A function with member initialisers. The initialiser list stands between
// head and block in the text, and the range follows the text: it ends with
// the block when there is one.
class CtorDeclNode : public FunctionDeclNode {
public:
    CtorDeclNode() = default;
    CtorDeclNode(FunctionHeadNode* head, BlockNode* block, InitializerListNode* initializers);
    TW_NODE_COPYABLE(CtorDeclNode);
    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;
    Trn::Position begin() const override;
    Trn::Position end() const override;
    TW_CHILD_FIELD(InitializerListNode, initializers, setInitializers)
};

// A function pointer declaration: `int (*f)(int);`.
class FunctionPtrDeclNode : public DeclNode {
public:
    FunctionPtrDeclNode() = default;
    FunctionPtrDeclNode(TypeNode* type, IdNode* name, ParameterListNode* parameters, TextNode* qualifiers);
    TW_NODE_COPYABLE(FunctionPtrDeclNode);
    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;
    TW_COMPOSITE_RANGE
    TW_CHILD_FIELD(TypeNode, type, setType)
    TW_CHILD_FIELD(IdNode, name, setName)
    TW_CHILD_FIELD(ParameterListNode, parameters, setParameters)
    TW_CHILD_FIELD(TextNode, qualifiers, setQualifiers)
};

// One data declaration statement, or any statement read as a run of tokens
// up to its semicolon: type, name, and the initialiser from the "=" or "("
// behind the name on. Any of the three can be null.
class DataDeclNode : public DeclNode {
public:
    DataDeclNode() = default;
    DataDeclNode(TypeNode* type, IdNode* name, ExprNode* initializer);
    TW_NODE_COPYABLE(DataDeclNode);
    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;
    TW_COMPOSITE_RANGE
    TW_CHILD_FIELD(TypeNode, type, setType)
    TW_CHILD_FIELD(IdNode, name, setName)
    TW_CHILD_FIELD(ExprNode, initializer, setInitializer)
};

} // namespace Cpp

#endif
