// Control statements, bare blocks, case labels and asm statements. Their
// layout is not set by this pass yet: each comes out as it stands
// (copyAsItStands), moved as a block to the column its place gives its first
// line.
//   FIXME: lay these out by the scheme, e.g. "if(a){b();}" with the default
//   scheme as "if (a)\n{\n    b();\n}".
#include "Kempt_CppFormatter.h"

#include "Cpp_Nodes.h"

namespace Kempt {

void CppFormatter::emitCtrlStmt(Cpp::CtrlStmtNode& node)
{
    copyAsItStands(node);
}

void CppFormatter::emitCtrlSubStmt(Cpp::CtrlSubStmtNode& node)
{
    copyAsItStands(node);
}

void CppFormatter::emitCtrlSubStmtHead(Cpp::CtrlSubStmtHeadNode& node)
{
    copyAsItStands(node);
}

void CppFormatter::emitBlock(Cpp::BlockNode& node)
{
    copyAsItStands(node);
}

void CppFormatter::emitCase(Cpp::CaseNode& node)
{
    copyAsItStands(node);
}

void CppFormatter::emitAsm(Cpp::AsmNode& node)
{
    copyAsItStands(node);
}

} // namespace Kempt
