// Every node class of the C++ syntax tree, for the parser, the walkers and
// the tools that read a whole tree.
#ifndef CPP_NODES_H
#define CPP_NODES_H

#include "Cpp_DeclNodes.h"
#include "Cpp_Emitter.h"
#include "Cpp_InteriorNode.h"
#include "Cpp_LeafNodes.h"
#include "Cpp_ListNodes.h"
#include "Cpp_RootNode.h"
#include "Cpp_StatementNodes.h"
#include "Cpp_SyntaxNode.h"

#endif
