// The language-neutral root of every syntax node: a node knows where it begins
// and ends in the text. The C++ node classes derive from it.
#ifndef TRN_SYNTAXNODE_H
#define TRN_SYNTAXNODE_H

#include "Trn_Position.h"

namespace Trn {

class SyntaxNode {
public:
    virtual ~SyntaxNode() = default;
    virtual void setBegin(const Position& p) = 0;
    virtual Position begin() const = 0;
    virtual void setEnd(const Position& p) = 0;
    virtual Position end() const = 0;

protected:
    SyntaxNode() = default;
    SyntaxNode(const SyntaxNode&) = default;
    SyntaxNode& operator=(const SyntaxNode&) = default;
};

} // namespace Trn

#endif
