// The shape of the control statements of a tree, for tw-invariants: which
// parts each if, else, for, while, do, switch, try and catch has, and what
// their bodies hold, with the braces round a single statement left aside.
// Two texts that differ only in such braces have the same shape; one where
// an `else` went to another `if` has not.
//
//   if (a) { if (b) c; } else d;   (if[(if[s])]else[s])
//   if (a) if (b) c; else d;       (if[(if[s]else[s])])
#ifndef TOOLS_CONTROLSHAPE_H
#define TOOLS_CONTROLSHAPE_H

#include <string>

namespace Cpp {
class SyntaxNode;
}

namespace Tools {

// The shape of everything below `root`; comments and directives do not count.
std::string controlShape(Cpp::SyntaxNode& root);

} // namespace Tools

#endif
