// The root of the C++ node classes. The tree is an outline of the text: nodes
// hold positions, and printing reads the text again by position. accept()
// dispatches one level to the Emitter; clone() makes a deep heap copy.
#ifndef CPP_SYNTAXNODE_H
#define CPP_SYNTAXNODE_H

#include "Trn_SyntaxNode.h"

namespace Cpp {

class Emitter;

class SyntaxNode : public Trn::SyntaxNode {
public:
    virtual void accept(Emitter& emitter) = 0;
    virtual SyntaxNode* clone() const = 0;

protected:
    SyntaxNode() = default;
    SyntaxNode(const SyntaxNode&) = default;
    SyntaxNode& operator=(const SyntaxNode&) = default;
};

} // namespace Cpp

#endif
