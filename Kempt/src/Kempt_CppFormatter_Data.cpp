// Data declarations, expression statements and names. A statement the parser
// reads as a run of tokens is an expression node and goes through the
// expression formatter. The layout of data declarations (aligned names and
// initializers, the declarator list) is not set by this pass yet: they come
// out as they stand (copyAsItStands), moved as a block to their place.
//   FIXME: lay these out by the scheme, e.g. "int  a=1,b;" with the default
//   scheme as "int a = 1, b;".
#include "Kempt_CppFormatter.h"

#include "Cpp_Nodes.h"
#include "Varnel_StreamState.h"

namespace Kempt {

void CppFormatter::emitDataDecl(Cpp::DataDeclNode& node)
{
    flushPending(node);
    copyAsItStands(node);
}

void CppFormatter::emitExpr(Cpp::ExprNode& node)
{
    // "return strcmp(a,b)==0;"
    writeLiteral(m_exprFormatter.format(readThrough(node.end()), state()));
}

void CppFormatter::emitId(Cpp::IdNode& node)
{
    copyThrough(node.end());
}

} // namespace Kempt
