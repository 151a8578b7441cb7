// Token construction, value access and comparison.
#include "Trn_Token.h"

#include "Trn_Exception.h"
#include "Varnel_Contract.h"

#include <utility>

namespace Trn {

Token::Token(std::int32_t type, Position start, Position end)
    : m_type(type), m_start(start), m_end(end)
{
}

Token::Token(std::int32_t type, Position start, Position end, std::string text)
    : m_type(type), m_start(start), m_end(end), m_text(std::move(text))
{
}

Token::Token(std::int32_t type, Position start, Position end, std::string text, int value)
    : m_type(type), m_start(start), m_end(end), m_text(std::move(text)), m_value(value)
{
}

Token::Token(std::int32_t type, Position start, Position end, std::string text, long value)
    : m_type(type), m_start(start), m_end(end), m_text(std::move(text)), m_value(value)
{
}

Token::Token(std::int32_t type, Position start, Position end, std::string text, char value)
    : m_type(type), m_start(start), m_end(end), m_text(std::move(text)), m_value(value)
{
}

Token::Token(std::int32_t type, Position start, Position end, std::string text, std::string value)
    : m_type(type), m_start(start), m_end(end), m_text(std::move(text)),
      m_value(std::in_place_type<std::string>, std::move(value))
{
}

Token::Token(std::int32_t type, Position start, Position end, std::string text, TextIsValue)
    : m_type(type), m_start(start), m_end(end), m_text(std::move(text)), m_value(TEXT_IS_VALUE)
{
}

Token& Token::operator=(const Token& other)
{
    if (this != &other) {
        Token copy(other);
        swap(copy);
    }
    return *this;
}

void Token::swap(Token& other) noexcept
{
    std::swap(m_type, other.m_type);
    std::swap(m_start, other.m_start);
    std::swap(m_end, other.m_end);
    m_text.swap(other.m_text);
    m_value.swap(other.m_value);
}

template <typename T>
void Token::take(T& out) const
{
    const T* held = std::get_if<T>(&m_value);
    if (!held)
        throw InvalidValueType();
    out = *held;
}

void Token::value(char& out) const { take(out); }
void Token::value(short& out) const { take(out); }
void Token::value(unsigned short& out) const { take(out); }
void Token::value(int& out) const { take(out); }
void Token::value(unsigned int& out) const { take(out); }
void Token::value(long& out) const { take(out); }
void Token::value(unsigned long& out) const { take(out); }
const std::string& Token::stringValue() const
{
    if (std::holds_alternative<TextIsValue>(m_value))
        return m_text;
    const std::string* held = std::get_if<std::string>(&m_value);
    if (!held)
        throw InvalidValueType();
    return *held;
}

void Token::value(std::string& out) const
{
    out = stringValue();
}

namespace {

// The integer kinds 4 to 7 compare their low 32 bits, as the token format
// stores them in a 32-bit member.
template <typename T>
bool equal32(const T& a, const T& b)
{
    return static_cast<std::uint32_t>(a) == static_cast<std::uint32_t>(b);
}

} // namespace

bool operator==(const Token& a, const Token& b)
{
    if (a.m_type != b.m_type || a.m_start != b.m_start || a.m_end != b.m_end || a.m_text != b.m_text
        || a.valueKind() != b.valueKind())
        return false;
    switch (a.valueKind()) {
    case Token::NO_VALUE:
        return true;
    case Token::CHAR_VALUE:
        return std::get<char>(a.m_value) == std::get<char>(b.m_value);
    case Token::SHORT_VALUE:
        return std::get<short>(a.m_value) == std::get<short>(b.m_value);
    case Token::USHORT_VALUE:
        return std::get<unsigned short>(a.m_value) == std::get<unsigned short>(b.m_value);
    case Token::INT_VALUE:
        return equal32(std::get<int>(a.m_value), std::get<int>(b.m_value));
    case Token::UINT_VALUE:
        return equal32(std::get<unsigned int>(a.m_value), std::get<unsigned int>(b.m_value));
    case Token::LONG_VALUE:
        return equal32(std::get<long>(a.m_value), std::get<long>(b.m_value));
    case Token::ULONG_VALUE:
        return equal32(std::get<unsigned long>(a.m_value), std::get<unsigned long>(b.m_value));
    case Token::STRING_VALUE:
        return a.stringValue() == b.stringValue();
    default:
        TW_CHECK(false);
        return false;
    }
}

} // namespace Trn
