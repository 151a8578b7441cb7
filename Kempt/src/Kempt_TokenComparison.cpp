// The token comparison: each text becomes a list of significant tokens, each
// with a key that holds exactly what must not change, and the two lists are
// compared key by key. The rules are listed in Kempt_TokenComparison.h.
//
// Invariants:
//  1. Keys begin with a kind tag, so that tokens of different kinds never
//     compare equal: a comment's words never match the same words as code.
//  2. A directive gives a "#" key, the keys of its body and an end key; the
//     body is lexed again, so a directive nested in it ("#x" in a macro body)
//     is taken apart the same way, to a fixed depth.
//  3. Positions are those of the whole text, also for tokens of a directive
//     body (up to a block comment inside the directive, whose text the lexer
//     gives with a trailing "/" that the source does not have).
#include "Kempt_TokenComparison.h"

#include "Cpp_Lexer.h"
#include "Cpp_TokenType.h"
#include "Varnel_IMemBuf.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <vector>

namespace Kempt {

namespace {

// How deep directives nested in directive bodies are taken apart; deeper
// bodies count by their words. Real code nests one level ("#x" in "#define").
constexpr int MAX_DIRECTIVE_DEPTH = 8;
// How many following tokens must agree to call a difference a dropped or an
// added token rather than a changed one.
constexpr std::size_t AGREEING_TOKENS = 3;
// Token texts longer than this are shortened in descriptions.
constexpr std::size_t SHOWN_LENGTH = 60;

// Kind tags, the first character of every key.
constexpr char TOKEN_TAG = 'T';
constexpr char COMMENT_TAG = 'C';
constexpr char DIRECTIVE_TAG = '#';
constexpr char DIRECTIVE_END_TAG = 'E';
constexpr char STRAY_TAG = '?';
constexpr char WORDS_TAG = 'W';

// White space as the lexer skips it: blank, tab, newline, vertical tab, form
// feed, carriage return.
bool isBlank(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// The words of a text: runs of characters between white space, joined by one blank.
std::string wordsOf(std::string_view text)
{
    std::string words;
    std::size_t i = 0;
    while (i < text.size()) {
        while (i < text.size() && isBlank(text[i]))
            ++i;
        const std::size_t begin = i;
        while (i < text.size() && !isBlank(text[i]))
            ++i;
        if (i > begin) {
            if (!words.empty())
                words += ' ';
            words.append(text.substr(begin, i - begin));
        }
    }
    return words;
}

struct Significant {
    std::string key;  // what is compared
    std::string text; // what a description shows
    Trn::Position position;
    bool excused = false; // a brace named in the options: left out
};

// Where the first character of a text lies in the whole text: a body lexed
// on its own starts at line 1, column 1, which is `line`, `col + 1` outside.
struct Origin {
    std::int32_t line = 1;
    std::int32_t col = 0;

    Trn::Position place(Trn::Position local) const
    {
        return {line + local.line - 1, local.line == 1 ? col + local.col : local.col};
    }
};

// Line starts of a text with the lexer's line breaks (LF, CR LF, CR), to turn
// token positions into offsets and back.
class LineStarts {
public:
    explicit LineStarts(std::string_view text) : m_size(text.size())
    {
        m_starts.push_back(0);
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n')
                ++i;
            if (text[i] == '\n' || text[i] == '\r')
                m_starts.push_back(i + 1);
        }
    }

    // The offset of the first character of a token that starts at `p`.
    std::size_t startOffset(Trn::Position p) const { return clamp(lineStart(p.line) + p.col - 1); }
    // The offset just behind the last character of a token that ends at `p`.
    std::size_t endOffset(Trn::Position p) const { return clamp(lineStart(p.line) + p.col); }

    // The position of the character at `offset`.
    Trn::Position positionOf(std::size_t offset) const
    {
        const auto after = std::upper_bound(m_starts.begin(), m_starts.end(), offset);
        const std::size_t line = static_cast<std::size_t>(after - m_starts.begin());
        return {static_cast<std::int32_t>(line), static_cast<std::int32_t>(offset - m_starts[line - 1] + 1)};
    }

private:
    std::size_t lineStart(std::int32_t line) const
    {
        if (line < 1)
            return 0;
        const std::size_t index = static_cast<std::size_t>(line - 1);
        return index < m_starts.size() ? m_starts[index] : m_size;
    }
    std::size_t clamp(std::size_t offset) const { return std::min(offset, m_size); }

    std::size_t m_size;
    std::vector<std::size_t> m_starts;
};

// Turns one text into its significant tokens.
class SignificantTokens {
public:
    // The tokens of `text`; those braces that start at a position of
    // `excused` (sorted) are marked. `unmatched` gets the positions of
    // `excused` at which no brace stands.
    std::vector<Significant> of(std::string_view text, const std::vector<Trn::Position>& excused,
                                std::vector<Trn::Position>& unmatched)
    {
        m_out.clear();
        m_excused = &excused;
        m_matched.assign(excused.size(), false);
        collect(text, Origin(), 0);
        unmatched.clear();
        for (std::size_t i = 0; i < excused.size(); ++i)
            if (!m_matched[i])
                unmatched.push_back(excused[i]);
        m_excused = nullptr;
        return std::move(m_out);
    }

private:
    void add(char tag, std::string_view key, std::string text, Trn::Position position)
    {
        std::string full(1, tag);
        full.append(key);
        m_out.push_back({std::move(full), std::move(text), position});
    }

    // Lexes `text` (the whole text at depth 0, a directive's body deeper).
    void collect(std::string_view text, Origin origin, int depth)
    {
        const LineStarts lines(text);
        Varnel::IMemStream in(text);
        Cpp::Lexer lexer(in);
        std::size_t covered = 0; // offset up to which the text is accounted for
        MacroName macro;
        for (Trn::Token token = lexer.next(); token.type() != Cpp::END_OF_FILE; token = lexer.next()) {
            addStrays(text, lines, origin, covered, lines.startOffset(token.start()));
            covered = std::max(covered, lines.endOffset(token.end()));
            if (depth > 0)
                macro.see(token, m_out);
            addToken(token, origin, depth);
        }
        addStrays(text, lines, origin, covered, text.size());
    }

    // Watches the first tokens of a directive body for "define NAME(": the
    // name of a function-like macro counts with its "(", since "#define F(x)"
    // and "#define F (x)" are different macros.
    class MacroName {
    public:
        void see(const Trn::Token& token, std::vector<Significant>& out)
        {
            const std::size_t index = m_seen++;
            if (index == 0) {
                m_define = token.text() == "define";
            } else if (index == 1 && m_define && token.type() == Cpp::IDENTIFIER) {
                m_nameAt = out.size(); // the next entry is the name
                m_nameEnd = token.end();
            } else if (index == 2 && m_nameAt + 1 == out.size() && token.type() == Cpp::LPAREN
                       && token.start() == Trn::Position(m_nameEnd.line, m_nameEnd.col + 1)) {
                out[m_nameAt].key += '(';
                out[m_nameAt].text += '(';
            }
        }

    private:
        std::size_t m_seen = 0;
        bool m_define = false;
        std::size_t m_nameAt = static_cast<std::size_t>(-2);
        Trn::Position m_nameEnd;
    };

    // Runs of non-blank characters in text[from, to) that no token covers.
    void addStrays(std::string_view text, const LineStarts& lines, Origin origin, std::size_t from, std::size_t to)
    {
        std::size_t i = from;
        while (i < to) {
            while (i < to && isBlank(text[i]))
                ++i;
            const std::size_t begin = i;
            while (i < to && !isBlank(text[i]))
                ++i;
            if (i > begin) {
                const std::string run(text.substr(begin, i - begin));
                add(STRAY_TAG, run, run, origin.place(lines.positionOf(begin)));
            }
        }
    }

    void addToken(const Trn::Token& token, Origin origin, int depth)
    {
        const Trn::Position at = origin.place(token.start());
        switch (token.type()) {
        case Cpp::LINE_COMMENT:
        case Cpp::BLOCK_COMMENT:
            // "/* a\n   * b */" and "/* a\n * b */" are the same comment.
            add(COMMENT_TAG, std::to_string(token.type()) + ' ' + wordsOf(token.text()), token.text(), at);
            return;
        case Cpp::PREPROC_DIRECTIVE:
            addDirective(token, at, depth);
            return;
        case Cpp::LINE_CONTINUATION:
            // "\" and the blanks behind it up to the newline: only the "\" counts.
            add(TOKEN_TAG, std::to_string(token.type()), "\\", at);
            return;
        default:
            break;
        }
        add(TOKEN_TAG, std::to_string(token.type()) + ' ' + token.text(), token.text(), at);
        if ((token.type() == Cpp::LBRACE || token.type() == Cpp::RBRACE) && depth == 0)
            m_out.back().excused = isExcused(at);
    }

    bool isExcused(Trn::Position at)
    {
        if (!m_excused)
            return false;
        const auto it = std::lower_bound(m_excused->begin(), m_excused->end(), at);
        if (it == m_excused->end() || *it != at)
            return false;
        m_matched[static_cast<std::size_t>(it - m_excused->begin())] = true;
        return true;
    }

    // "#", the tokens of the text behind it, and the directive's end.
    void addDirective(const Trn::Token& token, Trn::Position at, int depth)
    {
        const std::string& text = token.text();
        add(DIRECTIVE_TAG, "", firstLineOf(text), at);
        const std::string_view body = std::string_view(text).substr(1);
        const Origin bodyOrigin{at.line, at.col};
        if (depth + 1 >= MAX_DIRECTIVE_DEPTH)
            add(WORDS_TAG, wordsOf(body), std::string(body), at);
        else if (!addIncludeName(body, bodyOrigin, depth + 1))
            collect(body, bodyOrigin, depth + 1);
        add(DIRECTIVE_END_TAG, "", "\n", Origin{at.line, at.col - 1}.place(lastCharacterOf(text)));
    }

    // "#include <a b.h>": the name between "<" and ">" counts exactly, blanks
    // included; the rest of the body as usual. False when the body is no such
    // include.
    bool addIncludeName(std::string_view body, Origin origin, int depth)
    {
        std::size_t i = 0;
        while (i < body.size() && (body[i] == ' ' || body[i] == '\t'))
            ++i;
        const std::size_t wordBegin = i;
        while (i < body.size() && (std::isalnum(static_cast<unsigned char>(body[i])) || body[i] == '_'))
            ++i;
        const std::string_view word = body.substr(wordBegin, i - wordBegin);
        if (word != "include" && word != "include_next" && word != "import")
            return false;
        while (i < body.size() && (body[i] == ' ' || body[i] == '\t'))
            ++i;
        if (i >= body.size() || body[i] != '<')
            return false;
        const std::size_t close = body.find_first_of(">\n\r", i);
        if (close == std::string_view::npos || body[close] != '>')
            return false;
        add(TOKEN_TAG, std::to_string(Cpp::IDENTIFIER) + ' ' + std::string(word), std::string(word),
            origin.place({1, static_cast<std::int32_t>(wordBegin + 1)}));
        const std::string name(body.substr(i, close - i + 1));
        add(TOKEN_TAG, "<> " + name, name, origin.place({1, static_cast<std::int32_t>(i + 1)}));
        const Origin rest{origin.line, origin.col + static_cast<std::int32_t>(close + 1)};
        collect(body.substr(close + 1), rest, depth);
        return true;
    }

    // The position of the last character of a directive's text (its line
    // break, or the last character at the end of the text), counted with
    // the "#" at line 1, column 1.
    static Trn::Position lastCharacterOf(const std::string& text)
    {
        std::int32_t line = 1;
        std::int32_t col = 0;
        for (std::size_t i = 0; i + 1 < text.size(); ++i) {
            if (text[i] == '\n') {
                ++line;
                col = 0;
            } else {
                ++col;
            }
        }
        return {line, col + 1};
    }

    static std::string firstLineOf(const std::string& text)
    {
        const std::size_t end = text.find('\n');
        return end == std::string::npos ? text : text.substr(0, end);
    }

    const std::vector<Trn::Position>* m_excused = nullptr;
    std::vector<bool> m_matched;
    std::vector<Significant> m_out;
};

std::vector<Significant> withoutExcused(std::vector<Significant> tokens)
{
    tokens.erase(std::remove_if(tokens.begin(), tokens.end(), [](const Significant& t) { return t.excused; }),
                 tokens.end());
    return tokens;
}

std::vector<Trn::Position> sorted(std::vector<Trn::Position> positions)
{
    std::sort(positions.begin(), positions.end());
    return positions;
}

// True when the `count` tokens from a[i] on equal those from b[j] on, each
// list allowed to end at the same place.
bool agree(const std::vector<Significant>& a, std::size_t i, const std::vector<Significant>& b, std::size_t j,
           std::size_t count)
{
    for (std::size_t k = 0; k < count; ++k) {
        const bool aEnded = i + k >= a.size();
        const bool bEnded = j + k >= b.size();
        if (aEnded || bEnded)
            return aEnded && bEnded;
        if (a[i + k].key != b[j + k].key)
            return false;
    }
    return true;
}

// The position just behind the last character of a text.
Trn::Position endPosition(std::string_view text)
{
    const LineStarts lines(text);
    if (text.empty())
        return {1, 1};
    const Trn::Position last = lines.positionOf(text.size() - 1);
    const char c = text.back();
    if (c == '\n' || c == '\r')
        return {last.line + 1, 1};
    return {last.line, last.col + 1};
}

// A token text for a description: quoted, control characters escaped, cut
// at SHOWN_LENGTH characters.
std::string quoted(const std::string& text)
{
    std::string out = "\"";
    std::size_t shown = 0;
    for (const char c : text) {
        if (shown++ == SHOWN_LENGTH) {
            out += "...";
            break;
        }
        switch (c) {
        case '\n': out += "\\n"; break;
        case '\r': out += "\\r"; break;
        case '\t': out += "\\t"; break;
        case '"': out += "\\\""; break;
        case '\\': out += "\\\\"; break;
        default:
            if (static_cast<unsigned char>(c) < 0x20) {
                static const char* const HEX = "0123456789abcdef";
                out += "\\x";
                out += HEX[(c >> 4) & 0xf];
                out += HEX[c & 0xf];
            } else {
                out += c;
            }
        }
    }
    return out + "\"";
}

} // namespace

std::string TokenComparison::describe() const
{
    switch (change) {
    case Change::NONE:
        return "same tokens";
    case Change::DROPPED:
        return "token " + quoted(beforeToken) + " was dropped";
    case Change::ADDED:
        return "token " + quoted(afterToken) + " was added";
    case Change::CHANGED:
        break;
    }
    return "token " + quoted(beforeToken) + " became " + quoted(afterToken);
}

namespace {

// The first place where two token lists part, or the length of both when
// they do not.
std::size_t firstDifference(const std::vector<Significant>& a, const std::vector<Significant>& b)
{
    std::size_t i = 0;
    while (i < a.size() && i < b.size() && a[i].key == b[i].key)
        ++i;
    return i;
}

// The kind of change at index i, where a and b part.
TokenComparison::Change changeAt(const std::vector<Significant>& a, const std::vector<Significant>& b, std::size_t i)
{
    if (i == b.size() || (i < a.size() && agree(a, i + 1, b, i, AGREEING_TOKENS)))
        return TokenComparison::Change::DROPPED;
    if (i == a.size() || agree(a, i, b, i + 1, AGREEING_TOKENS))
        return TokenComparison::Change::ADDED;
    return TokenComparison::Change::CHANGED;
}

// The comparison's result where a (of `before`) and b (of `after`) part at i.
TokenComparison differenceAt(const std::vector<Significant>& a, std::string_view before,
                             const std::vector<Significant>& b, std::string_view after, std::size_t i)
{
    TokenComparison result;
    result.same = false;
    result.beforePosition = i < a.size() ? a[i].position : endPosition(before);
    result.afterPosition = i < b.size() ? b[i].position : endPosition(after);
    result.beforeToken = i < a.size() ? a[i].text : std::string();
    result.afterToken = i < b.size() ? b[i].text : std::string();
    result.change = changeAt(a, b, i);
    return result;
}

// A brace the options name where no brace stands: the list and the text do
// not belong together, and the comparison fails there.
TokenComparison unmatchedBrace(Trn::Position at, bool inBefore)
{
    TokenComparison result;
    result.same = false;
    result.change = inBefore ? TokenComparison::Change::DROPPED : TokenComparison::Change::ADDED;
    (inBefore ? result.beforePosition : result.afterPosition) = at;
    // assign(count, char): GCC 12 misreads assigning a literal here as an
    // overlapping copy (-Wrestrict) once this is inlined.
    (inBefore ? result.beforeToken : result.afterToken).assign(1, '{');
    return result;
}

} // namespace

TokenComparison compareTokens(std::string_view before, std::string_view after, const TokenComparisonOptions& options)
{
    SignificantTokens lexer;
    std::vector<Trn::Position> unmatched;
    const std::vector<Significant> a = withoutExcused(lexer.of(before, sorted(options.bracesOutBefore), unmatched));
    if (!unmatched.empty())
        return unmatchedBrace(unmatched.front(), true);
    const std::vector<Significant> b = withoutExcused(lexer.of(after, sorted(options.bracesOutAfter), unmatched));
    if (!unmatched.empty())
        return unmatchedBrace(unmatched.front(), false);
    const std::size_t i = firstDifference(a, b);
    if (i == a.size() && i == b.size())
        return TokenComparison();
    return differenceAt(a, before, b, after, i);
}

TokenComparison compareTokens(std::string_view before, const BraceRewrite& rewrite, std::string_view after)
{
    // 1. The rewrite changed exactly its braces.
    TokenComparisonOptions options;
    options.bracesOutBefore = rewrite.edits.removed;
    options.bracesOutAfter = rewrite.edits.added;
    if (TokenComparison c = compareTokens(before, rewrite.text, options); !c.same)
        return c;

    // 2. The later passes changed nothing. Token k of the rewritten text that
    //    the rewriter did not add is token k' of `before`, k' counting the
    //    tokens not added in front of it.
    SignificantTokens lexer;
    std::vector<Trn::Position> unmatched;
    const std::vector<Significant> a = withoutExcused(lexer.of(before, sorted(rewrite.edits.removed), unmatched));
    const std::vector<Significant> r = lexer.of(rewrite.text, sorted(rewrite.edits.added), unmatched);
    const std::vector<Significant> b = lexer.of(after, {}, unmatched);
    const std::size_t k = firstDifference(r, b);
    if (k == r.size() && k == b.size())
        return TokenComparison();
    TokenComparison result = differenceAt(r, rewrite.text, b, after, k);
    const auto kept = static_cast<std::size_t>(
        std::count_if(r.begin(), r.begin() + static_cast<std::ptrdiff_t>(std::min(k, r.size())),
                      [](const Significant& t) { return !t.excused; }));
    result.beforePosition = kept < a.size() ? a[kept].position : endPosition(before);
    return result;
}

} // namespace Kempt
