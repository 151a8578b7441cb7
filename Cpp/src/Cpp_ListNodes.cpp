// Dispatch and copies of the list nodes.
#include "Cpp_ListNodes.h"

#include "Cpp_Emitter.h"

namespace Cpp {

#define TW_LIST_DISPATCH(Class, operation)                                                                     \
    void Class::accept(Emitter& emitter)                                                                       \
    {                                                                                                          \
        emitter.operation(*this);                                                                              \
    }                                                                                                          \
    SyntaxNode* Class::clone() const                                                                           \
    {                                                                                                          \
        return new Class(*this);                                                                               \
    }

TW_LIST_DISPATCH(ArgListNode, emitArgList)
TW_LIST_DISPATCH(ClassBodyNode, emitClassBody)
TW_LIST_DISPATCH(EnumBodyNode, emitEnumBody)
TW_LIST_DISPATCH(NamespaceBodyNode, emitNamespaceBody)
TW_LIST_DISPATCH(LinkageBlockBodyNode, emitLinkageBlockBody)
TW_LIST_DISPATCH(ParameterListNode, emitParameterList)
TW_LIST_DISPATCH(BlockNode, emitBlock)
TW_LIST_DISPATCH(BaseClauseListNode, emitBaseClauseList)
TW_LIST_DISPATCH(InitializerListNode, emitInitializerList)
TW_LIST_DISPATCH(CtrlStmtNode, emitCtrlStmt)

#undef TW_LIST_DISPATCH

} // namespace Cpp
