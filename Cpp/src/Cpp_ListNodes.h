// The interior nodes below the root: lists of children in source order. The
// delimited ones (bodies in braces, parameter and argument lists) keep the
// positions of their delimiters; the plain ones (base list, initialiser list,
// control statement) are located by their first and last child.
//
// A BlockNode or LinkageBlockBodyNode without a position of its own but with
// children is located by them: that is a block the parser made around one
// unbraced statement, and the text has no braces there.
#ifndef CPP_LISTNODES_H
#define CPP_LISTNODES_H

#include "Cpp_InteriorNode.h"

namespace Cpp {

// Declares a delimited list class: default constructor, one taking the
// positions of the delimiters, copies, dispatch and clone.
#define TW_DELIMITED_NODE(Class, fallsBack)                                                                    \
    class Class : public DelimitedNode {                                                                       \
    public:                                                                                                    \
        Class() : DelimitedNode(fallsBack) {}                                                                  \
        Class(const Trn::Position& b, const Trn::Position& e) : DelimitedNode(fallsBack, b, e) {}              \
        TW_NODE_COPYABLE(Class);                                                                               \
        void accept(Emitter& emitter) override;                                                                \
        SyntaxNode* clone() const override;                                                                    \
    }

// Declares a plain list class, located by its children.
#define TW_PLAIN_LIST_NODE(Class)                                                                              \
    class Class : public InteriorNode {                                                                        \
    public:                                                                                                    \
        Class() = default;                                                                                     \
        TW_NODE_COPYABLE(Class);                                                                               \
        void accept(Emitter& emitter) override;                                                                \
        SyntaxNode* clone() const override;                                                                    \
    }

// The parenthesised arguments of a member initialiser: ArgNode children.
TW_DELIMITED_NODE(ArgListNode, false);
// The braces of a class and its members, access labels, comments, directives.
TW_DELIMITED_NODE(ClassBodyNode, false);
// The braces of an enum: one ExprNode per enumerator, comments, directives.
TW_DELIMITED_NODE(EnumBodyNode, false);
// The braces of a namespace and its contents.
TW_DELIMITED_NODE(NamespaceBodyNode, false);
// The braces of extern "C" { ... } and its contents.
TW_DELIMITED_NODE(LinkageBlockBodyNode, true);
// The parenthesised or angle-bracketed parameters: ParameterNode children,
// and directives or comments standing between parameters.
TW_DELIMITED_NODE(ParameterListNode, false);
// A compound statement, or the body of a control statement without braces.
TW_DELIMITED_NODE(BlockNode, true);

// The base list of a class head: BaseClauseNode children.
TW_PLAIN_LIST_NODE(BaseClauseListNode);
// The member initialiser list of a constructor: InitializerNode children.
TW_PLAIN_LIST_NODE(InitializerListNode);
// A whole control statement: an if with all its else parts, a try with all
// its catch parts, a do with its while; comments and directives between.
TW_PLAIN_LIST_NODE(CtrlStmtNode);

#undef TW_DELIMITED_NODE
#undef TW_PLAIN_LIST_NODE

} // namespace Cpp

#endif
