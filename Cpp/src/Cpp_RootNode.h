// The translation unit: top-level declarations, comments and directives.
#ifndef CPP_ROOTNODE_H
#define CPP_ROOTNODE_H

#include "Cpp_InteriorNode.h"

namespace Cpp {

class RootNode : public InteriorNode {
public:
    RootNode() = default;
    TW_NODE_COPYABLE(RootNode);

    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;
};

} // namespace Cpp

#endif
