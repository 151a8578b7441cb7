// One token of a text: its type number, where it starts and ends, its exact
// source text, and an optional value (the character of a character literal, the
// unescaped body of a string, the name of an identifier). Tokens are values and
// are copied constantly, by token streams and by every pass that reads them.
//
// Type -1 is the end-of-file token of every language; a default token has it.
// The value is one of nine kinds; asking for another kind than the one held
// throws Trn::InvalidValueType. There is no conversion between kinds.
#ifndef TRN_TOKEN_H
#define TRN_TOKEN_H

#include "Trn_Position.h"

#include <cstdint>
#include <string>
#include <variant>

namespace Trn {

class Token {
public:
    static constexpr std::int32_t END_OF_FILE_TYPE = -1;

    // Which member of the value is in use.
    enum ValueKind : std::int32_t {
        NO_VALUE = 0,
        CHAR_VALUE = 1,
        SHORT_VALUE = 2,
        USHORT_VALUE = 3,
        INT_VALUE = 4,
        UINT_VALUE = 5,
        LONG_VALUE = 6,
        ULONG_VALUE = 7,
        STRING_VALUE = 8
    };

    Token() = default;
    Token(std::int32_t type, Position start, Position end);
    Token(std::int32_t type, Position start, Position end, std::string text);
    Token(std::int32_t type, Position start, Position end, std::string text, int value);
    Token(std::int32_t type, Position start, Position end, std::string text, long value);
    Token(std::int32_t type, Position start, Position end, std::string text, char value);
    Token(std::int32_t type, Position start, Position end, std::string text, std::string value);

    // Kind 8 whose value is the text itself, as for an identifier: the value
    // shares the text instead of holding a second copy of it.
    struct TextIsValue {
        friend bool operator==(TextIsValue, TextIsValue) = default;
    };
    static constexpr TextIsValue TEXT_IS_VALUE{};
    Token(std::int32_t type, Position start, Position end, std::string text, TextIsValue);

    Token(const Token&) = default;
    Token(Token&&) noexcept = default;
    // Copy and swap: a throw while copying leaves this token untouched.
    Token& operator=(const Token& other);
    Token& operator=(Token&& other) noexcept = default;
    ~Token() = default;

    void swap(Token& other) noexcept;

    std::int32_t type() const { return m_type; }
    Position start() const { return m_start; }
    Position end() const { return m_end; }
    const std::string& text() const { return m_text; }
    std::int32_t valueKind() const
    {
        return std::holds_alternative<TextIsValue>(m_value) ? STRING_VALUE
                                                            : static_cast<std::int32_t>(m_value.index());
    }

    // Each stores the value in the argument, or throws InvalidValueType when
    // the token holds another kind.
    void value(char& out) const;
    void value(short& out) const;
    void value(unsigned short& out) const;
    void value(int& out) const;
    void value(unsigned int& out) const;
    void value(long& out) const;
    void value(unsigned long& out) const;
    void value(std::string& out) const;

    friend bool operator==(const Token& a, const Token& b);

private:
    // The alternatives in the order of the kinds, then the shared form of kind 8.
    using Value = std::variant<std::monostate, char, short, unsigned short, int, unsigned int, long,
                               unsigned long, std::string, TextIsValue>;

    // The string of a kind 8 token.
    const std::string& stringValue() const;

    template <typename T>
    void take(T& out) const;

    std::int32_t m_type = END_OF_FILE_TYPE;
    Position m_start;
    Position m_end;
    std::string m_text;
    Value m_value;
};

} // namespace Trn

#endif
