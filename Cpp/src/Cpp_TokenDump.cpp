// Writing tokens as text lines.
#include "Cpp_TokenDump.h"

#include "Cpp_Lexer.h"
#include "Varnel_Text.h"

#include <ostream>

namespace Cpp {

std::string quoteText(const std::string& text)
{
    return '"' + Varnel::escapeControlCharacters(text, true) + '"';
}

namespace {

std::string positionText(const Trn::Position& p)
{
    return std::to_string(p.line) + ":" + std::to_string(p.col);
}

} // namespace

std::string dumpLine(const Trn::Token& token)
{
    return positionText(token.start()) + " " + positionText(token.end()) + " " + std::to_string(token.type())
        + " " + tokenTypeName(token.type()) + " " + quoteText(token.text());
}

void dumpTokens(std::istream& in, std::ostream& out)
{
    Lexer lexer(in);
    for (Trn::Token t = lexer.next(); t.type() != END_OF_FILE; t = lexer.next())
        out << dumpLine(t) << '\n';
}

} // namespace Cpp
