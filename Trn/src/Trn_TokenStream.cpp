// The token window and its refill, look-ahead and put-back rules.
#include "Trn_TokenStream.h"

#include "Trn_Lexer.h"
#include "Varnel_Contract.h"

#include <vector>

namespace Trn {

namespace {

const Token& endOfFile()
{
    static const Token EOF_TOKEN;
    return EOF_TOKEN;
}

} // namespace

TokenStream::TokenStream(Lexer& lexer) : m_lexer(&lexer) {}

TokenStream::TokenStream(const std::deque<Token>& tokens) : m_buffer(tokens) {}

TokenStream::TokenStream(const std::vector<Token>& tokens) : m_buffer(tokens.begin(), tokens.end()) {}

void TokenStream::refill()
{
    // 1. A stream over a list has nothing more: it is exhausted.
    if (!m_lexer) {
        m_index = EXHAUSTED;
        return;
    }
    // 2. The first fill takes a whole window.
    if (m_buffer.empty()) {
        for (std::int32_t i = 0; i < WINDOW; ++i)
            m_buffer.push_back(m_lexer->next());
        m_index = 0;
        return;
    }
    // 3. Later fills carry the last two consumed tokens over for put-back;
    //    a window that deep look-ahead had widened shrinks back to its size.
    m_buffer[0] = std::move(m_buffer[static_cast<std::size_t>(m_index - 2)]);
    m_buffer[1] = std::move(m_buffer[static_cast<std::size_t>(m_index - 1)]);
    m_buffer.resize(static_cast<std::size_t>(WINDOW));
    m_index = CARRIED;
    for (std::int32_t i = CARRIED; i < WINDOW; ++i)
        m_buffer[static_cast<std::size_t>(i)] = m_lexer->next();
}

const Token* TokenStream::current()
{
    if (m_index != EXHAUSTED && (m_buffer.empty() || m_index == static_cast<std::int32_t>(m_buffer.size())))
        refill();
    if (m_index == EXHAUSTED)
        return nullptr;
    return &m_buffer[static_cast<std::size_t>(m_index)];
}

Token TokenStream::get()
{
    const Token* t = current();
    if (!t)
        return endOfFile();
    Token result = *t;
    ++m_index;
    return result;
}

Token TokenStream::peek(std::int32_t n)
{
    TW_REQUIRE(n > 0);
    if (m_index == EXHAUSTED)
        return endOfFile();
    if (n == 1) {
        const Token* t = current();
        return t ? *t : endOfFile();
    }
    if (m_lexer)
        return peekAhead(n);
    // Consume n-1 tokens, take the answer, then put the consumed ones back, last
    // first. A get() that found the list exhausted consumed nothing, so it is
    // not put back: look-ahead past the end of a list stays exact.
    std::vector<Token> kept;
    kept.reserve(static_cast<std::size_t>(n - 1));
    for (std::int32_t i = 1; i < n; ++i) {
        if (m_index == EXHAUSTED)
            break;
        Token taken = get();
        if (m_index == EXHAUSTED)
            break;
        kept.push_back(std::move(taken));
    }
    const Token* t = current();
    Token answer = t ? *t : endOfFile();
    for (auto it = kept.rbegin(); it != kept.rend(); ++it)
        putBack(*it);
    return answer;
}

// Over a lexer, look-ahead widens the window as far as it needs to: the
// tokens ahead are read into the buffer and stay there for the gets that
// follow, so a peek of any depth loses nothing.
Token TokenStream::peekAhead(std::int32_t n)
{
    current();
    const auto place = static_cast<std::size_t>(m_index) + static_cast<std::size_t>(n - 1);
    while (m_buffer.size() <= place)
        m_buffer.push_back(m_lexer->next());
    return m_buffer[place];
}

const Token& TokenStream::peekInList(std::int32_t n) const
{
    TW_REQUIRE(n > 0);
    TW_REQUIRE(m_lexer == nullptr);
    if (m_index == EXHAUSTED)
        return endOfFile();
    const auto place = static_cast<std::size_t>(m_index) + static_cast<std::size_t>(n - 1);
    return place < m_buffer.size() ? m_buffer[place] : endOfFile();
}

bool TokenStream::stepBack()
{
    if (m_buffer.empty())
        return false;
    if (m_index == EXHAUSTED) {
        m_index = static_cast<std::int32_t>(m_buffer.size()) - 1;
        return true;
    }
    if (m_index > 0) {
        --m_index;
        return true;
    }
    return false;
}

void TokenStream::unget()
{
    stepBack();
}

void TokenStream::putBack(const Token& token)
{
    if (m_index == 0)
        return;
    if (stepBack())
        m_buffer[static_cast<std::size_t>(m_index)] = token;
}

} // namespace Trn
