// The C++ parser: builds a Cpp::RootNode from the tokens of a Cpp::Lexer and
// appends a message for every fault it finds. One parser serves every parse of
// one formatting run; it keeps nothing between calls but the message list.
//
// This parser reads the whole token stream and recognises no declarations yet:
// every text parses, into an empty tree, so the passes copy it through as it is.
#ifndef CPP_PARSER_H
#define CPP_PARSER_H

#include "Trn_FormatMessage.h"
#include "Trn_Parser.h"

namespace Cpp {

class Lexer;
class RootNode;

class Parser : public Trn::Parser {
public:
    Parser();
    ~Parser() override;

    void parse(Trn::Lexer& lexer, Trn::SyntaxNode& root, Trn::FormatMessageList& messages) override;
    void parse(Lexer& lexer, RootNode& root, Trn::FormatMessageList& messages);

private:
    Trn::FormatMessageList m_messages;
};

} // namespace Cpp

#endif
