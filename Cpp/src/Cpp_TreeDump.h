// Tree dumps: a syntax tree as text, one node per line, for tests, users and
// debugging. A line reads "ClassName L:C-L:C key=value ...", indented by two
// blanks per depth: the class name without its namespace, begin() and end(),
// then the node's own attributes. Text values are double-quoted with the
// escapes of the token dump; flags are written only when set ("protected=1"),
// texts only when not empty, token types by name ("type=CLASS_KEY").
#ifndef CPP_TREEDUMP_H
#define CPP_TREEDUMP_H

#include <iosfwd>
#include <string>
#include <vector>

namespace Cpp {

class SyntaxNode;

// The children of a node in text order: the entries of a child list, or the
// child fields that are set.
std::vector<SyntaxNode*> childrenOf(SyntaxNode& node);

// The class name of a node without its namespace ("IdNode").
std::string nodeClassName(SyntaxNode& node);

// One dump line for a node, without indent and newline.
std::string describeNode(SyntaxNode& node);

// Writes the node and everything below it, one line each.
void dumpTree(SyntaxNode& node, std::ostream& out);
std::string dumpTree(SyntaxNode& node);

} // namespace Cpp

#endif
