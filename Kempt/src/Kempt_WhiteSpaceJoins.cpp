// White-space joins that respect comments and directives in a gap.
#include "Kempt_WhiteSpaceJoins.h"

#include "Cpp_Lexer.h"
#include "Varnel_IMemBuf.h"
#include "Varnel_Text.h"

namespace Kempt {

namespace {

// A "//" comment, a directive, and a backslash at the end of a line all end
// with their newline; trimming it away would join the next line to them.
bool carriesNewline(std::int32_t type)
{
    return type == Cpp::LINE_COMMENT || type == Cpp::PREPROC_DIRECTIVE || type == Cpp::LINE_CONTINUATION;
}

bool holdsNewline(std::string_view text)
{
    return text.find('\n') != std::string_view::npos;
}

// After a "//" comment: right-trims the text behind the last newline, when
// there is a newline and something behind it.
void trimLastLine(std::string& a)
{
    const std::size_t nl = a.rfind('\n');
    if (nl == std::string::npos || nl + 1 == a.size())
        return;
    a.resize(nl + 1 + Varnel::trimRight(std::string_view(a).substr(nl + 1)).size());
}

void trimRightInPlace(std::string& a)
{
    a.resize(Varnel::trimRight(a).size());
}

} // namespace

bool startsWithLineComment(std::string_view text)
{
    Varnel::IMemStream in(text);
    Cpp::Lexer lexer(in);
    return carriesNewline(lexer.next().type());
}

bool endsWithLineComment(std::string_view text)
{
    Varnel::IMemStream in(text);
    Cpp::Lexer lexer(in);
    std::int32_t last = Cpp::END_OF_FILE;
    for (Trn::Token t = lexer.next(); t.type() != Cpp::END_OF_FILE; t = lexer.next())
        last = t.type();
    return carriesNewline(last);
}

std::string& trimLeadingWhiteSpace(std::string& a)
{
    if (!startsWithLineComment(a)) {
        a = std::string(Varnel::trimLeft(a));
        return a;
    }
    // "// x\n  y": the comment keeps its line, "y" loses its blanks.
    const std::size_t nl = a.find('\n');
    if (nl == std::string::npos)
        return a;
    a = a.substr(0, nl + 1) + std::string(Varnel::trimLeft(std::string_view(a).substr(nl + 1)));
    return a;
}

std::string& trimTrailingWhiteSpace(std::string& a)
{
    if (endsWithLineComment(a))
        trimLastLine(a);
    else
        trimRightInPlace(a);
    return a;
}

std::string& setLeadingWhiteSpace(std::string& a, const std::string& b)
{
    if (!startsWithLineComment(a)) {
        a = b + std::string(Varnel::trimLeft(a));
        return a;
    }
    const std::size_t nl = a.find('\n');
    // "// x" at the very end: nothing is left.
    if (nl == std::string::npos) {
        a.clear();
        return a;
    }
    // "// x\n  y" with b = "\t": "// x\n\ty".
    a = a.substr(0, nl + 1) + b + std::string(Varnel::trimLeft(std::string_view(a).substr(nl + 1)));
    return a;
}

std::string& setTrailingWhiteSpace(std::string& a, const std::string& b)
{
    // "x // c\n" with b = " ": the blank cannot follow the comment.
    if (endsWithLineComment(a) && !holdsNewline(b)) {
        trimLastLine(a);
        return a;
    }
    trimRightInPlace(a);
    a += b;
    return a;
}

std::string& setSurroundingWhiteSpace(std::string& a, const std::string& b, const std::string& c)
{
    const bool endsInComment = endsWithLineComment(a);
    std::string result = a;
    setLeadingWhiteSpace(result, b);
    if (endsInComment && !holdsNewline(c))
        trimLastLine(result);
    else
        trimRightInPlace(result);
    a = result + c;
    return a;
}

} // namespace Kempt
