// What a golden test prints when two texts differ: the place of the first
// difference and a line diff in which white space can be seen, in the manner
// of `cat -A`: a tab is "^I", a carriage return "^M", other control
// characters "^X", and every line break "$", so that trailing blanks show up
// in front of it. A text whose last line has no line break says so.
#ifndef GOLDENDIFF_H
#define GOLDENDIFF_H

#include <string>
#include <string_view>

namespace Golden {

// One line (without its "\n") with its white space made visible, "$" added
// when `withBreak`.
std::string visibleLine(std::string_view line, bool withBreak);

// "line L, column C" of the first byte where the texts differ (columns count
// bytes from 1), or "" when they are equal.
std::string firstDifference(std::string_view expected, std::string_view actual);

// A diff from `expected` to `actual` with `context` lines around each change:
//   @@ expected line 3, actual line 3 @@
//      2    2   int a;$
//   -  3        ^Iint b;$
//   +       3       int b;$
// Lines are numbered in the text they come from. "" when the texts are equal.
std::string visibleDiff(std::string_view expected, std::string_view actual, int context = 3);

} // namespace Golden

#endif
