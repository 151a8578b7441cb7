// Dispatch, copies and ranges of the declaration and statement composites.
#include "Cpp_StatementNodes.h"

#include "Cpp_Emitter.h"
#include "Cpp_NodeDispatch.h"
#include "Cpp_TokenType.h"
#include "Varnel_Contract.h"

namespace Cpp {

// begin() and end() from the own range and the child fields in field order.
#define TW_COMPOSITE_RANGE_OF(Class, ...)                                                                      \
    Trn::Position Class::begin() const                                                                         \
    {                                                                                                          \
        return compositeBegin(m_begin, {__VA_ARGS__});                                                         \
    }                                                                                                          \
    Trn::Position Class::end() const                                                                           \
    {                                                                                                          \
        return compositeEnd(m_end, {__VA_ARGS__});                                                             \
    }

TW_NODE_DISPATCH(ClassHeadNode, emitClassHead)
TW_COMPOSITE_RANGE_OF(ClassHeadNode, name(), bases())
ClassHeadNode::ClassHeadNode(ClassNameNode* name, BaseClauseListNode* bases) : m_name(name), m_bases(bases) {}

TW_NODE_DISPATCH(ClassDeclNode, emitClassDecl)
TW_COMPOSITE_RANGE_OF(ClassDeclNode, head(), body())
ClassDeclNode::ClassDeclNode(ClassHeadNode* head, ClassBodyNode* body) : m_head(head), m_body(body) {}

TW_NODE_DISPATCH(EnumDeclNode, emitEnumDecl)
TW_COMPOSITE_RANGE_OF(EnumDeclNode, head(), body())
EnumDeclNode::EnumDeclNode(EnumHeadNode* head, EnumBodyNode* body) : m_head(head), m_body(body) {}

TW_NODE_DISPATCH(NamespaceDeclNode, emitNamespaceDecl)
TW_COMPOSITE_RANGE_OF(NamespaceDeclNode, head(), body())
NamespaceDeclNode::NamespaceDeclNode(NamespaceHeadNode* head, NamespaceBodyNode* body) : m_head(head), m_body(body)
{
}

TW_NODE_DISPATCH(LinkageBlockNode, emitLinkageBlock)
TW_COMPOSITE_RANGE_OF(LinkageBlockNode, spec(), body())
LinkageBlockNode::LinkageBlockNode(ExprNode* spec, LinkageBlockBodyNode* body) : m_spec(spec), m_body(body) {}

TW_NODE_DISPATCH(TemplateNode, emitTemplate)
TW_COMPOSITE_RANGE_OF(TemplateNode, keyword(), parameters())
TemplateNode::TemplateNode(KeywordNode* keyword, ParameterListNode* parameters)
    : m_keyword(keyword), m_parameters(parameters)
{
}

TW_NODE_DISPATCH(FunctionHeadNode, emitFunctionHead)
TW_COMPOSITE_RANGE_OF(FunctionHeadNode, returnType(), name(), parameters(), qualifiers(), exceptionSpec(),
                      pureSpec())
FunctionHeadNode::FunctionHeadNode(FunctionReturnNode* returnType, IdNode* name, ParameterListNode* parameters,
                                   TextNode* qualifiers, ExprNode* exceptionSpec, ExprNode* pureSpec)
    : m_returnType(returnType), m_name(name), m_parameters(parameters), m_qualifiers(qualifiers),
      m_exceptionSpec(exceptionSpec), m_pureSpec(pureSpec)
{
}

TW_NODE_DISPATCH(InitializerNode, emitInitializer)
TW_COMPOSITE_RANGE_OF(InitializerNode, name(), args())
InitializerNode::InitializerNode(IdNode* name, ArgListNode* args) : m_name(name), m_args(args) {}

TW_NODE_DISPATCH(FunctionDeclNode, emitFunctionDecl)
TW_COMPOSITE_RANGE_OF(FunctionDeclNode, head(), block())
FunctionDeclNode::FunctionDeclNode(FunctionHeadNode* head, BlockNode* block) : m_head(head), m_block(block) {}

TW_NODE_DISPATCH(CtorDeclNode, emitCtorDecl)
// In text order: head, initialisers, block.
TW_COMPOSITE_RANGE_OF(CtorDeclNode, head(), initializers(), block())
CtorDeclNode::CtorDeclNode(FunctionHeadNode* head, BlockNode* block, InitializerListNode* initializers)
    : FunctionDeclNode(head, block), m_initializers(initializers)
{
}

TW_NODE_DISPATCH(FunctionPtrDeclNode, emitFunctionPtrDecl)
TW_COMPOSITE_RANGE_OF(FunctionPtrDeclNode, type(), name(), parameters(), qualifiers())
FunctionPtrDeclNode::FunctionPtrDeclNode(TypeNode* type, IdNode* name, ParameterListNode* parameters,
                                         TextNode* qualifiers)
    : m_type(type), m_name(name), m_parameters(parameters), m_qualifiers(qualifiers)
{
}

TW_NODE_DISPATCH(DataDeclNode, emitDataDecl)
TW_COMPOSITE_RANGE_OF(DataDeclNode, type(), name(), initializer())
DataDeclNode::DataDeclNode(TypeNode* type, IdNode* name, ExprNode* initializer)
    : m_type(type), m_name(name), m_initializer(initializer)
{
}

TW_NODE_DISPATCH(CtrlSubStmtHeadNode, emitCtrlSubStmtHead)
TW_COMPOSITE_RANGE_OF(CtrlSubStmtHeadNode, keyword(), condition())
CtrlSubStmtHeadNode::CtrlSubStmtHeadNode(KeywordNode* keyword, ExprNode* condition)
    : m_keyword(keyword), m_condition(condition)
{
}

TW_NODE_DISPATCH(CtrlSubStmtNode, emitCtrlSubStmt)
TW_COMPOSITE_RANGE_OF(CtrlSubStmtNode, head(), body())
CtrlSubStmtNode::CtrlSubStmtNode(CtrlSubStmtHeadNode* head, BlockNode* body) : m_head(head), m_body(body) {}

TW_NODE_DISPATCH(CaseNode, emitCase)
TW_COMPOSITE_RANGE_OF(CaseNode, keyword(), expression())
CaseNode::CaseNode(KeywordNode* keyword, ExprNode* expression) : m_expression(expression)
{
    setKeyword(keyword);
}

void CaseNode::setKeyword(KeywordNode* k)
{
    // Take the node first, so that it is not leaked when the check fails.
    NodePtr<KeywordNode> owned(k);
    TW_REQUIRE(k == nullptr || k->type() == CASE_KEY || k->type() == DEFAULT_KEY);
    m_keyword = std::move(owned);
}

TW_NODE_DISPATCH(LabelNode, emitLabel)
TW_COMPOSITE_RANGE_OF(LabelNode, name())
LabelNode::LabelNode(IdNode* name) : m_name(name) {}

TW_NODE_DISPATCH(AsmNode, emitAsm)
TW_COMPOSITE_RANGE_OF(AsmNode, text(), body())
AsmNode::AsmNode(TextNode* text, BlockNode* body, std::int32_t form) : m_text(text), m_body(body), m_form(form) {}

#undef TW_COMPOSITE_RANGE_OF

} // namespace Cpp
