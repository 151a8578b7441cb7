// The C++ lexer's main loop and its scanners.
#include "Cpp_Lexer.h"

#include "Cpp_CharClass.h"
#include "Varnel_Text.h"

#include <ostream>

namespace Cpp {

namespace {

constexpr int END = std::char_traits<char>::eof();

using CharClass::isAlnum;
using CharClass::isAlpha;
using CharClass::isDigit;
using CharClass::isPunct;
using CharClass::isSpace;
using CharClass::isXDigit;

bool isOneOf(int c, const char* set)
{
    for (; *set; ++set)
        if (c == static_cast<unsigned char>(*set))
            return true;
    return false;
}

} // namespace

Lexer::Lexer(std::istream& in)
    : m_source(in),
      m_start(in.rdbuf() ? in.rdbuf()->pubseekoff(0, std::ios_base::cur, std::ios_base::in)
                         : std::streampos(std::streamoff(-1)))
{
    m_input.emplace(in, 0, 1, 1, 0);
    // Fill the process-wide word tables now, once for the process.
    keywordType("new");
    isSplitWord("new");
}

Lexer::~Lexer() = default;

void Lexer::dump(std::ostream& out) const
{
    out << "line:\t" << m_input->line() << "\tcol:\t" << m_input->col() << "\tlastlinecol:\t"
        << m_input->buf().lastLineLength() << '\n';
}

bool Lexer::restart()
{
    if (!canRestart() || m_source.rdbuf()->pubseekpos(m_start, std::ios_base::in) != m_start)
        return false;
    m_input.reset();
    m_input.emplace(m_source, 0, 1, 1, 0);
    m_pending = Trn::Token();
    m_conditionals.clear();
    return true;
}

Trn::Token Lexer::next()
{
    if (!m_foldElse)
        return nextToken();
    Trn::Token t = nextToken();
    if (t.type() == PREPROC_DIRECTIVE)
        return foldConditional(std::move(t));
    return t;
}

namespace {

// The directive's name and what follows it, without white space: "#if0",
// "#else", "#endif".
std::string directiveWords(const std::string& text)
{
    std::string words;
    for (char c : text)
        if (c != ' ' && c != '\t' && c != '\r' && c != '\n' && c != '\\')
            words += c;
    return words;
}

} // namespace

Trn::Token Lexer::foldConditional(Trn::Token t)
{
    const std::string words = directiveWords(t.text());
    if (words.starts_with("#if")) {
        m_conditionals.push_back(words.starts_with("#if0"));
        return t;
    }
    if (words.starts_with("#endif")) {
        if (!m_conditionals.empty())
            m_conditionals.pop_back();
        return t;
    }
    if (!(words.starts_with("#else") || words.starts_with("#elif")) || m_conditionals.empty() || m_conditionals.back())
        return t;
    // `#else` ... `#endif`: one token; a conditional nested in the branch is
    // counted, and the end of input ends an unclosed one.
    m_conditionals.pop_back();
    Trn::Position end = t.end();
    for (int depth = 1; depth > 0;) {
        Trn::Token u = nextToken();
        if (u.type() == END_OF_FILE)
            break;
        end = u.end();
        if (u.type() != PREPROC_DIRECTIVE)
            continue;
        const std::string inner = directiveWords(u.text());
        if (inner.starts_with("#if"))
            ++depth;
        else if (inner.starts_with("#endif"))
            --depth;
    }
    return Trn::Token(PREPROC_DIRECTIVE, t.start(), end, t.text());
}

Trn::Token Lexer::nextToken()
{
    // 1. A token read ahead goes first.
    if (m_pending.type() != END_OF_FILE) {
        Trn::Token t;
        t.swap(m_pending);
        return t;
    }
    // 2. The end-of-file token stands where this call began.
    const Trn::Position here = position();
    Trn::Token out;
    for (;;) {
        const int c = read();
        if (c == END)
            return Trn::Token(END_OF_FILE, here, here);
        bool gave = false;
        if (isSpace(c))
            continue;
        if (c == '/' && (peek() == '/' || peek() == '*'))
            gave = scanComment(c, out);
        else if (c == '_' || isAlpha(c) || (c == ':' && peek() == ':') || (c == '~' && isAlpha(peek())))
            gave = scanName(c, out);
        else if (isDigit(c))
            gave = scanNumber(c, out);
        else if (c == '"')
            gave = scanString(out);
        else if (c == '\'')
            gave = scanChar(out);
        else if (c == '#')
            gave = scanDirective(out);
        else
            gave = scanOperator(c, out);
        if (gave)
            return out;
    }
}

bool Lexer::scanComment(int first, Trn::Token& out)
{
    const Trn::Position start = position();
    std::string text(1, static_cast<char>(first));
    const int second = read();
    text += static_cast<char>(second);
    if (second == '/') {
        // "//" up to and including the newline, or the end of input.
        for (int c = read(); c != END; c = read()) {
            text += static_cast<char>(c);
            if (c == '\n')
                break;
        }
        out = Trn::Token(LINE_COMMENT, start, position(), std::move(text));
        return true;
    }
    // "/*" up to "*/"; an unterminated comment simply ends with the input.
    for (int c = read(); c != END; c = read()) {
        text += static_cast<char>(c);
        if (c == '*' && peek() == '/') {
            text += static_cast<char>(read());
            break;
        }
    }
    out = Trn::Token(BLOCK_COMMENT, start, position(), std::move(text));
    return true;
}

bool Lexer::scanName(int first, Trn::Token& out)
{
    const Trn::Position start = position();
    std::string text;
    Trn::Position end = start;
    bool qualified = false;
    std::size_t splitAt = 0;      // where the last "::" begins in the text
    Trn::Position splitPos;       // end of the component before the last "::"
    Trn::Position splitStart;     // position of the first colon of the last "::"

    for (int c = first; c != END; c = read()) {
        if (c == '_' || isAlnum(c) || (c == '~' && text.empty())) {
            text += static_cast<char>(c);
            end = position();
            continue;
        }
        if (c == ':' && peek() == ':') {
            // A qualification. The first colon has been read; the split position
            // is where the reader stood before it.
            splitPos = Trn::Position(position().line, position().col - 1);
            splitStart = position();
            read();
            splitAt = text.size();
            text += "::";
            end = position();
            qualified = true;
            // White space, newlines included, between "::" and a name is dropped.
            while (isSpace(peek()))
                read();
            const int n = peek();
            if (n == '_' || n == '~' || isAlpha(n)) {
                text += static_cast<char>(read());
                end = position();
                continue;
            }
            break; // a name may end in "::", as before the "*" of a pointer to member
        }
        unread(); // any other character ends the name
        break;
    }

    if (const std::int32_t keyword = keywordType(text); keyword != INVALID_TOKEN) {
        out = Trn::Token(keyword, start, end, std::move(text));
        return true;
    }
    if (qualified && isSplitWord(std::string_view(text).substr(splitAt + 2))) {
        // "X::operator" gives IDENTIFIER "X" now and OPERATOR_KEY "::operator" next.
        Trn::Token split(keywordType(text.substr(splitAt + 2)), splitStart, end, text.substr(splitAt));
        if (splitAt == 0) {
            out = std::move(split); // "::operator": nothing stands before the "::"
            return true;
        }
        m_pending = std::move(split);
        out = Trn::Token(IDENTIFIER, start, splitPos, text.substr(0, splitAt));
        return true;
    }
    if (text.empty())
        return false;
    out = Trn::Token(IDENTIFIER, start, end, std::move(text), Trn::Token::TEXT_IS_VALUE);
    return true;
}

bool Lexer::scanNumber(int first, Trn::Token& out)
{
    const Trn::Position start = position();
    std::string text(1, static_cast<char>(first));
    Trn::Position end = start;
    bool hex = false;
    if (first == '0' && (peek() == 'x' || peek() == 'X')) {
        text += static_cast<char>(read());
        end = position();
        hex = true;
    }
    bool seenPoint = false;
    bool seenExponent = false;
    auto take = [&](int c) {
        text += static_cast<char>(c);
        end = position();
    };
    auto takeWhile = [&](const char* letters) {
        while (isOneOf(peek(), letters))
            take(read());
    };

    int c = read();
    for (; c != END; c = read()) {
        if (isSpace(c))
            break;
        if (isDigit(c) || (hex && isXDigit(c))) {
            take(c);
        } else if (c == '.' && !seenPoint) {
            seenPoint = true;
            take(c);
        } else if ((c == 'e' || c == 'E') && !seenExponent) {
            seenExponent = true;
            take(c);
            if (peek() == '+' || peek() == '-')
                take(read());
        } else if (isOneOf(c, "uUlL") && !seenExponent && !seenPoint) {
            take(c);
            takeWhile("uUlL");
        } else if (isOneOf(c, "lLfF")) {
            take(c);
            takeWhile("lLfF");
        } else if (c == '\'' && (isDigit(peek()) || (hex && isXDigit(peek())))) {
            // A digit separator: `1'000'000`, `0xffff'ffff`.
            take(c);
        } else {
            break;
        }
    }
    if (c != END) {
        unread();
        // "123abc": a number glued to a letter is no number; the rest is lexed anew.
        if (!isSpace(c) && !isPunct(c))
            return false;
    }
    out = Trn::Token(NUMBER_LITERAL, start, end, std::move(text));
    return true;
}

bool Lexer::scanString(Trn::Token& out)
{
    const Trn::Position start = position();
    std::string text(1, '"');
    Trn::Position end = start;
    int lastSignificant = '"';
    bool escaped = false;
    for (int c = read(); c != END; c = read()) {
        if (c == '\n') {
            // A newline ends an unclosed string unless a backslash continues the line.
            if (lastSignificant != '\\')
                return false; // dropped; lexing goes on after the newline
            lastSignificant = 0;
        } else if (!isSpace(c)) {
            lastSignificant = c;
        }
        text += static_cast<char>(c);
        end = position();
        if (escaped) {
            escaped = false;
        } else if (c == '\\') {
            escaped = true;
        } else if (c == '"') {
            break;
        }
    }
    // The end of input closes a string too: its last character stands for the quote.
    std::string body = text.size() >= 2 ? text.substr(1, text.size() - 2) : std::string();
    out = Trn::Token(STRING_LITERAL, start, end, std::move(text), Varnel::unescapeBackslashes(body));
    return true;
}

bool Lexer::scanChar(Trn::Token& out)
{
    const Trn::Position start = position();
    Trn::Position end = start;
    std::string body;
    bool atNewline = false;
    for (int c = read(); c != END; c = read()) {
        if (c == '\n') {
            unread(); // the newline stays for the next token
            atNewline = true;
            break;
        }
        end = position();
        if (c == '\'')
            break;
        body += static_cast<char>(c);
        if (c == '\\' && (peek() == '\\' || peek() == '\'')) {
            body += static_cast<char>(read()); // "\\" and "\'" are taken whole
            end = position();
        }
    }
    std::string text = "'" + body + "'";
    if (atNewline || body.empty()) {
        out = Trn::Token(INVALID_TOKEN, start, end, std::move(text));
        return true;
    }
    const std::string value = Varnel::unescapeBackslashes(body);
    out = Trn::Token(CHAR_LITERAL, start, end, std::move(text), value.empty() ? '\0' : value[0]);
    return true;
}

bool Lexer::scanDirective(Trn::Token& out)
{
    const Trn::Position start = position();
    Trn::Position end = start;
    std::string text(1, '#');
    int lastSignificant = '#';
    for (int c = read(); c != END; c = read()) {
        if (!isSpace(c))
            lastSignificant = c;
        if (c == '/' && peek() == '/') {
            // A line comment is not part of the directive: it is the next token.
            unread();
            end = position();
            break;
        }
        if (c == '/' && peek() == '*') {
            unread();
            end = position();
            const std::int32_t lineReached = position().line;
            Trn::Token comment;
            if (!scanComment(read(), comment))
                break;
            if (comment.end().line != lineReached) {
                // The directive ends before a comment that runs onto another line.
                m_pending = std::move(comment);
                break;
            }
            text += comment.text();
            lastSignificant = 0;
            // The "/" read first is appended behind the comment as well.
        }
        end = position();
        text += static_cast<char>(c);
        if (c == '\n') {
            if (lastSignificant != '\\')
                break;
            lastSignificant = 0;
        }
    }
    out = Trn::Token(PREPROC_DIRECTIVE, start, end, std::move(text));
    return true;
}

bool Lexer::scanContinuation(Trn::Token& out)
{
    const Trn::Position start = position();
    std::string text(1, '\\');
    while (isSpace(peek())) {
        const int c = read();
        text += static_cast<char>(c);
        if (c == '\n') {
            out = Trn::Token(LINE_CONTINUATION, start, position(), std::move(text));
            return true;
        }
    }
    return false; // the white space is consumed, and nothing is given
}

bool Lexer::scanOperator(int first, Trn::Token& out)
{
    if (first == '\\')
        return scanContinuation(out);
    if (!isPunct(first))
        return false; // control characters and other bytes vanish
    const Trn::Position start = position();
    std::string text(1, static_cast<char>(first));
    auto follow = [&](char c) {
        if (peek() != static_cast<unsigned char>(c))
            return false;
        text += static_cast<char>(read());
        return true;
    };
    std::int32_t type = INVALID_TOKEN;
    switch (first) {
    case ';': type = SEMICOLON; break;
    case ':': type = COLON; break;
    case ',': type = COMMA; break;
    case '(': type = LPAREN; break;
    case ')': type = RPAREN; break;
    case '{': type = LBRACE; break;
    case '}': type = RBRACE; break;
    case '[': type = LBRACKET; break;
    case ']': type = RBRACKET; break;
    case '~': type = TILDE; break;
    case '?': type = QUESTION; break;
    case '=': type = follow('=') ? EQUALS_EQUALS : EQUALS; break;
    case '!': type = follow('=') ? NOT_EQUALS : NOT; break;
    case '*': type = follow('=') ? ASTERISK_EQUALS : ASTERISK; break;
    case '/': type = follow('=') ? SLASH_EQUALS : SLASH; break;
    case '%': type = follow('=') ? PERCENT_EQUALS : PERCENT; break;
    case '^': type = follow('=') ? CARET_EQUALS : CARET; break;
    case '.': type = follow('*') ? DOT_STAR : DOT; break;
    case '+': type = follow('+') ? PLUS_PLUS : follow('=') ? PLUS_EQUALS : PLUS; break;
    case '&': type = follow('&') ? LOGICAL_AND : follow('=') ? AMPERSAND_EQUALS : AMPERSAND; break;
    case '|': type = follow('|') ? LOGICAL_OR : follow('=') ? BAR_EQUALS : BAR; break;
    case '-':
        if (follow('>'))
            type = follow('*') ? ARROW_STAR : ARROW;
        else
            type = follow('-') ? MINUS_MINUS : follow('=') ? MINUS_EQUALS : MINUS;
        break;
    case '<':
        if (follow('<'))
            type = follow('=') ? LEFT_SHIFT_EQUALS : LEFT_SHIFT;
        else
            type = follow('=') ? LESS_EQUALS : LESS_THAN;
        break;
    case '>':
        if (follow('>'))
            type = follow('=') ? RIGHT_SHIFT_EQUALS : RIGHT_SHIFT;
        else
            type = follow('=') ? GREATER_EQUALS : GREATER_THAN;
        break;
    default:
        return false; // "$", "@" and "`" have no token
    }
    out = Trn::Token(type, start, position(), std::move(text));
    return true;
}

} // namespace Cpp
