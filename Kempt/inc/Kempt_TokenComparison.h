// Whether two texts hold the same tokens: the check that a formatting run
// changed only white space. The golden tests, the invariant tool and the file
// job's verification before writing all ask it about an input and its output.
//
// Both texts are lexed with the project's own Cpp::Lexer and their
// significant tokens are compared in order:
//  1. White space between tokens never counts, newlines included.
//  2. A comment counts by its kind (line or block) and its words: white space
//     inside it may change, as when the continuation lines of a block comment
//     are re-indented; "/* a b */" and "/*a b*/" differ, since "/*a" is a word.
//  3. A preprocessor directive counts by the tokens of its text, lexed again
//     after the "#", followed by its end: the spacing inside a directive may
//     change, its tokens and the line it ends on may not. Two places where
//     white space inside a directive carries meaning are kept exact: the name
//     of "#include <...>" and whether a "(" stands directly after the macro
//     name of a "#define" (a function-like macro against an object-like one).
//  4. Every other token counts by its exact text; a line continuation ("\")
//     counts without the blanks that follow it.
//  5. Characters that the lexer drops without giving a token (a stray "$",
//     "@", a byte above 127 outside comments and literals) count as well, as
//     runs of non-blank characters, so that no character outside white space
//     can vanish unseen.
//  6. The braces named in the options by position do not count: the brace
//     rewriter removed them from `before` or added them to `after`. Every
//     other brace, and everything else, still must match.
//
// After a run whose first pass rewrote braces, compare with the rewrite:
// `before` and the rewritten text must differ by exactly the braces the
// rewriter reports, and the rewritten text and `after` not at all.
//
// Protocol:
//   Kempt::TokenComparison c = Kempt::compareTokens(input, output);
//   if (!c.same)
//       std::cerr << path << ":" << c.beforePosition.line << ": " << c.describe() << "\n";
//   // with braces rewritten (FormatEngine::rewriteBraces):
//   c = Kempt::compareTokens(input, rewrite, output);
#ifndef KEMPT_TOKENCOMPARISON_H
#define KEMPT_TOKENCOMPARISON_H

#include "Kempt_BraceEdits.h"
#include "Trn_Position.h"

#include <string>
#include <string_view>
#include <vector>

namespace Kempt {

struct TokenComparisonOptions {
    // The "{" and "}" tokens (outside directives) that start at these
    // positions are left out of the comparison, in `before` and in `after`.
    // A position at which no such brace stands counts as a difference.
    std::vector<Trn::Position> bracesOutBefore;
    std::vector<Trn::Position> bracesOutAfter;
};

// The outcome of compareTokens. When the texts differ, the first significant
// token where they part, in each text: its position (line from 1, column of
// its first character from 1) and its text as it stands there. A text that
// has run out of tokens there has an empty token text and the position just
// behind its last character.
struct TokenComparison {
    // What happened at the first difference, seen from `before` to `after`.
    enum class Change { NONE, CHANGED, DROPPED, ADDED };

    bool same = true;
    Change change = Change::NONE;
    Trn::Position beforePosition;
    Trn::Position afterPosition;
    std::string beforeToken;
    std::string afterToken;

    // One line for a user: `token "x" became "y"`, `token "x" was dropped`,
    // `token "y" was added`; "same tokens" when nothing differs. Long token
    // texts are shortened and control characters written as escapes.
    std::string describe() const;
};

// Compares the significant tokens of `before` and `after` (see above).
TokenComparison compareTokens(std::string_view before, std::string_view after,
                              const TokenComparisonOptions& options = {});

// Compares `before` with `after` through the text of a brace rewrite of
// `before`: first `before` with `rewrite.text`, leaving out exactly the
// braces of `rewrite.edits`; then `rewrite.text` with `after`, with nothing
// left out. A difference of the second step is told at the place in
// `before` where the rewritten token came from; one of the first step has
// its after-position in the rewritten text.
TokenComparison compareTokens(std::string_view before, const BraceRewrite& rewrite, std::string_view after);

} // namespace Kempt

#endif
