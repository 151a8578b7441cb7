// Classes, namespaces, enums, templates and linkage blocks: the declarations
// that wrap other declarations. Their layout is not set by this pass yet:
// each comes out as it stands (copyAsItStands), moved as a block to the
// column its place gives its first line. The name and head leaves are plain
// copies.
//   FIXME: lay these out by the scheme, e.g. "class A{int a;};" with the
//   default scheme as "class A\n{\n    int a;\n};".
#include "Kempt_CppFormatter.h"

#include "Cpp_Nodes.h"

namespace Kempt {

void CppFormatter::emitClassDecl(Cpp::ClassDeclNode& node)
{
    flushPending(node);
    copyAsItStands(node);
}

void CppFormatter::emitNamespaceDecl(Cpp::NamespaceDeclNode& node)
{
    flushPending(node);
    copyAsItStands(node);
}

void CppFormatter::emitLinkageBlock(Cpp::LinkageBlockNode& node)
{
    copyAsItStands(node);
}

void CppFormatter::emitEnumDecl(Cpp::EnumDeclNode& node)
{
    flushPending(node);
    copyAsItStands(node);
}

void CppFormatter::emitTemplate(Cpp::TemplateNode& node)
{
    flushPending(node);
    copyAsItStands(node);
}

void CppFormatter::emitAccessSpec(Cpp::AccessSpecNode& node)
{
    copyAsItStands(node);
}

// Parts of the declarations above: reached only through them.
void CppFormatter::emitClassHead(Cpp::ClassHeadNode& node)
{
    copyAsItStands(node);
}

void CppFormatter::emitClassBody(Cpp::ClassBodyNode& node)
{
    copyAsItStands(node);
}

void CppFormatter::emitBaseClauseList(Cpp::BaseClauseListNode& node)
{
    copyAsItStands(node);
}

void CppFormatter::emitBaseClause(Cpp::BaseClauseNode& node)
{
    copyAsItStands(node);
}

void CppFormatter::emitNamespaceBody(Cpp::NamespaceBodyNode& node)
{
    copyAsItStands(node);
}

void CppFormatter::emitLinkageBlockBody(Cpp::LinkageBlockBodyNode& node)
{
    copyAsItStands(node);
}

void CppFormatter::emitEnumBody(Cpp::EnumBodyNode& node)
{
    copyAsItStands(node);
}

// Name and head leaves: copied through their end.
void CppFormatter::emitClassName(Cpp::ClassNameNode& node)
{
    copyThrough(node.end());
}

void CppFormatter::emitEnumHead(Cpp::EnumHeadNode& node)
{
    copyThrough(node.end());
}

void CppFormatter::emitNamespaceHead(Cpp::NamespaceHeadNode& node)
{
    copyThrough(node.end());
}

void CppFormatter::emitKeyword(Cpp::KeywordNode& node)
{
    copyThrough(node.end());
}

void CppFormatter::emitType(Cpp::TypeNode& node)
{
    copyThrough(node.end());
}

void CppFormatter::emitText(Cpp::TextNode& node)
{
    copyThrough(node.end());
}

void CppFormatter::emitLabel(Cpp::LabelNode& node)
{
    copyThrough(node.end());
}

} // namespace Kempt
