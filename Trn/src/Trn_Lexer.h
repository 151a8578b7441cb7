// The abstract lexer: a source of tokens. At the end of its input it returns
// end-of-file tokens (type -1) for ever. Trn::TokenStream knows only this class.
#ifndef TRN_LEXER_H
#define TRN_LEXER_H

#include "Trn_Token.h"

#include <iosfwd>

namespace Trn {

class Lexer {
public:
    Lexer() = default;
    virtual ~Lexer();
    Lexer(const Lexer&) = delete;
    Lexer& operator=(const Lexer&) = delete;

    virtual Token next() = 0;
    // Writes the reader's state, for diagnostics.
    virtual void dump(std::ostream& out) const = 0;
};

} // namespace Trn

#endif
