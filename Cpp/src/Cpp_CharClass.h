// Character classes of the "C" locale, in which the program runs, as one
// table: the lexer asks for them for every character it reads, and a table
// lookup is much cheaper than a call into the C library. The classes equal
// those of isspace, isalpha, isdigit, isxdigit and ispunct in that locale.
#ifndef CPP_CHARCLASS_H
#define CPP_CHARCLASS_H

#include <array>
#include <cstddef>
#include <string>

namespace Cpp::CharClass {

inline constexpr int END = std::char_traits<char>::eof();

enum Class : unsigned char { SPACE = 1, ALPHA = 2, DIGIT = 4, XDIGIT = 8, PUNCT = 16 };

constexpr std::array<unsigned char, 256> makeClasses()
{
    std::array<unsigned char, 256> table{};
    for (int c = 0; c < 256; ++c) {
        unsigned char k = 0;
        if (c == ' ' || (c >= '\t' && c <= '\r'))
            k |= SPACE;
        if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'))
            k |= ALPHA;
        if (c >= '0' && c <= '9')
            k |= DIGIT | XDIGIT;
        if ((c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'))
            k |= XDIGIT;
        if (c > ' ' && c < 0x7f && !(k & (ALPHA | DIGIT)))
            k |= PUNCT;
        table[static_cast<std::size_t>(c)] = k;
    }
    return table;
}

inline constexpr std::array<unsigned char, 256> CLASSES = makeClasses();

inline bool is(int c, unsigned char cls)
{
    return c != END && (CLASSES[static_cast<unsigned char>(c)] & cls) != 0;
}

inline bool isSpace(int c) { return is(c, SPACE); }
inline bool isAlpha(int c) { return is(c, ALPHA); }
inline bool isAlnum(int c) { return is(c, ALPHA | DIGIT); }
inline bool isDigit(int c) { return is(c, DIGIT); }
inline bool isXDigit(int c) { return is(c, XDIGIT); }
inline bool isPunct(int c) { return is(c, PUNCT); }

} // namespace Cpp::CharClass

#endif
