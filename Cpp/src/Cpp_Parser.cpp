// The parser's entry points.
#include "Cpp_Parser.h"

#include "Cpp_Lexer.h"
#include "Cpp_RootNode.h"
#include "Trn_TokenStream.h"
#include "Varnel_Contract.h"

namespace Cpp {

Parser::Parser() = default;
Parser::~Parser() = default;

void Parser::parse(Trn::Lexer& lexer, Trn::SyntaxNode& root, Trn::FormatMessageList& messages)
{
    auto* cppLexer = dynamic_cast<Lexer*>(&lexer);
    auto* cppRoot = dynamic_cast<RootNode*>(&root);
    TW_REQUIRE(cppLexer != nullptr && cppRoot != nullptr);
    parse(*cppLexer, *cppRoot, messages);
}

void Parser::parse(Lexer& lexer, RootNode& root, Trn::FormatMessageList& messages)
{
    m_messages.swap(messages);
    Trn::TokenStream stream(lexer);
    RootNode local;
    while (stream.get().type() != END_OF_FILE) {
    }
    root = local;
    m_messages.swap(messages);
}

} // namespace Cpp
