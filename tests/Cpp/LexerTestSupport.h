// Helpers for lexer tests: lex a text into tokens or into dump lines.
#ifndef TESTS_CPP_LEXERTESTSUPPORT_H
#define TESTS_CPP_LEXERTESTSUPPORT_H

#include "Cpp_Lexer.h"
#include "Cpp_TokenDump.h"

#include <sstream>
#include <string>
#include <vector>

namespace TestSupport {

inline std::vector<Trn::Token> lex(const std::string& text)
{
    std::istringstream in(text);
    Cpp::Lexer lexer(in);
    std::vector<Trn::Token> tokens;
    for (Trn::Token t = lexer.next(); t.type() != Cpp::END_OF_FILE; t = lexer.next())
        tokens.push_back(t);
    return tokens;
}

inline std::vector<std::string> dump(const std::string& text)
{
    std::vector<std::string> lines;
    for (const Trn::Token& t : lex(text))
        lines.push_back(Cpp::dumpLine(t));
    return lines;
}

inline std::vector<std::int32_t> types(const std::string& text)
{
    std::vector<std::int32_t> result;
    for (const Trn::Token& t : lex(text))
        result.push_back(t.type());
    return result;
}

inline std::vector<std::string> texts(const std::string& text)
{
    std::vector<std::string> result;
    for (const Trn::Token& t : lex(text))
        result.push_back(t.text());
    return result;
}

} // namespace TestSupport

#endif
