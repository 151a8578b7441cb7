// Dispatch and copies of the list nodes.
#include "Cpp_ListNodes.h"

#include "Cpp_Emitter.h"
#include "Cpp_NodeDispatch.h"

namespace Cpp {

TW_NODE_DISPATCH(ArgListNode, emitArgList)
TW_NODE_DISPATCH(ClassBodyNode, emitClassBody)
TW_NODE_DISPATCH(EnumBodyNode, emitEnumBody)
TW_NODE_DISPATCH(NamespaceBodyNode, emitNamespaceBody)
TW_NODE_DISPATCH(LinkageBlockBodyNode, emitLinkageBlockBody)
TW_NODE_DISPATCH(ParameterListNode, emitParameterList)
TW_NODE_DISPATCH(BlockNode, emitBlock)
TW_NODE_DISPATCH(BaseClauseListNode, emitBaseClauseList)
TW_NODE_DISPATCH(InitializerListNode, emitInitializerList)
TW_NODE_DISPATCH(CtrlStmtNode, emitCtrlStmt)

} // namespace Cpp
