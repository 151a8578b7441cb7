// The abstract parser: builds a tree under a root node from the tokens of a
// lexer, appending a message for each fault it finds. A language's parser
// derives from it; the driver names the concrete classes.
#ifndef TRN_PARSER_H
#define TRN_PARSER_H

#include "Trn_FormatMessage.h"

namespace Trn {

class Lexer;
class SyntaxNode;

class Parser {
public:
    Parser() = default;
    virtual ~Parser();
    Parser(const Parser&) = delete;
    Parser& operator=(const Parser&) = delete;

    virtual void parse(Lexer& lexer, SyntaxNode& root, FormatMessageList& messages) = 0;
};

} // namespace Trn

#endif
