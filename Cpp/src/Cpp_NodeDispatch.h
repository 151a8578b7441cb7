// The definitions every concrete node class shares: accept() calls the one
// Emitter operation named after the node's own class, and clone() copies the
// most derived class. Included by the .cpp files that define node classes.
#ifndef CPP_NODEDISPATCH_H
#define CPP_NODEDISPATCH_H

#include "Cpp_Emitter.h"

#define TW_NODE_DISPATCH(Class, operation)                                                                     \
    void Class::accept(Emitter& emitter)                                                                       \
    {                                                                                                          \
        emitter.operation(*this);                                                                              \
    }                                                                                                          \
    SyntaxNode* Class::clone() const                                                                           \
    {                                                                                                          \
        return new Class(*this);                                                                               \
    }

#endif
