// Out-of-line destructors of the abstract lexer and parser, so that their
// virtual tables live in one place.
#include "Trn_Lexer.h"
#include "Trn_Parser.h"

namespace Trn {

Lexer::~Lexer() = default;
Parser::~Parser() = default;

} // namespace Trn
