// Dispatch and copy of the root node.
#include "Cpp_RootNode.h"

#include "Cpp_Emitter.h"

namespace Cpp {

void RootNode::accept(Emitter& emitter)
{
    emitter.emitRoot(*this);
}

SyntaxNode* RootNode::clone() const
{
    return new RootNode(*this);
}

} // namespace Cpp
