// Writing tokens as text lines.
#include "Cpp_TokenDump.h"

#include "Cpp_Lexer.h"

#include <ostream>

namespace Cpp {

std::string quoteText(const std::string& text)
{
    static constexpr char HEX[] = "0123456789abcdef";
    std::string quoted;
    quoted.reserve(text.size() + 2);
    quoted += '"';
    for (const char ch : text) {
        const auto c = static_cast<unsigned char>(ch);
        switch (c) {
        case '\\': quoted += "\\\\"; break;
        case '"': quoted += "\\\""; break;
        case '\n': quoted += "\\n"; break;
        case '\r': quoted += "\\r"; break;
        case '\t': quoted += "\\t"; break;
        default:
            if (c < 0x20 || c == 0x7f) {
                quoted += "\\x";
                quoted += HEX[c >> 4];
                quoted += HEX[c & 0xf];
            } else {
                quoted += ch;
            }
        }
    }
    quoted += '"';
    return quoted;
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
