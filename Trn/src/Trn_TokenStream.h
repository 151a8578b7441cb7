// A buffered stream of tokens with look-ahead and put-back, either over a lexer
// or over a saved list of tokens.
//
// Over a lexer the buffer is a window of 7 tokens; at each refill the 2 tokens
// consumed last are carried over for put-back. A peek(n) beyond the window
// widens it by reading the tokens ahead into the buffer, where the gets that
// follow find them; the next refill shrinks the window back to 7. So look-ahead
// of any depth is exact and loses nothing: peek(n) gives the token a stream
// over a list of the same tokens would give.
//
// Over a list there is no refill: when index reaches the end it becomes -1
// ("exhausted"), and from then on the stream gives end-of-file tokens with
// default positions.
//
// Protocol: get() consumes, peek(n) looks n tokens ahead (n > 0), unget()
// steps back one token, putBack(token) steps back and stores token there.
#ifndef TRN_TOKENSTREAM_H
#define TRN_TOKENSTREAM_H

#include "Trn_Token.h"

#include <cstdint>
#include <deque>
#include <vector>

namespace Trn {

class Lexer;

class TokenStream {
public:
    static constexpr std::int32_t WINDOW = 7;
    static constexpr std::int32_t CARRIED = 2;
    static constexpr std::int32_t EXHAUSTED = -1;

    explicit TokenStream(Lexer& lexer);
    explicit TokenStream(const std::deque<Token>& tokens);
    explicit TokenStream(const std::vector<Token>& tokens);

    Token get();
    Token peek(std::int32_t n = 1);
    void unget();
    void putBack(const Token& token);

    // True for a stream over a saved list.
    bool overList() const { return m_lexer == nullptr; }
    // On a stream over a list: the token that peek(n) gives, read in place
    // without stepping through the list and back. Contract: n > 0, and the
    // stream is over a list.
    const Token& peekInList(std::int32_t n) const;

    // For tests and diagnostics.
    std::int32_t index() const { return m_index; }
    std::size_t bufferSize() const { return m_buffer.size(); }

private:
    const Token* current();
    Token peekAhead(std::int32_t n);
    void refill();
    bool stepBack();

    Lexer* m_lexer = nullptr;
    std::int32_t m_index = 0;
    std::deque<Token> m_buffer;
};

} // namespace Trn

#endif
