// Token dumps: the tokens of a text one per line, for tests, users and
// debugging. A line reads "L:C L:C N NAME "TEXT"": start, end, type number,
// type name and the exact text, quoted with escapes.
#ifndef CPP_TOKENDUMP_H
#define CPP_TOKENDUMP_H

#include "Trn_Token.h"

#include <iosfwd>
#include <string>

namespace Cpp {

// Double-quotes a text: \\ \" \n \r \t are escaped, other control bytes
// (below 0x20, and 0x7f) are written as \xHH, everything else as it is.
std::string quoteText(const std::string& text);

// One dump line for a token, without the newline.
std::string dumpLine(const Trn::Token& token);

// Lexes all of `in` and writes one line per token up to, not including, the
// end-of-file token.
void dumpTokens(std::istream& in, std::ostream& out);

} // namespace Cpp

#endif
