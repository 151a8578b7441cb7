// The expression formatter: its settings, the two entry points, the main loop
// of a walk and the table that picks a decision by the left token.
#include "Kempt_CppExprFormatter.h"

#include "Cpp_TokenType.h"
#include "Kempt_CppExprWalk.h"
#include "Kempt_PropertyNames.h"
#include "Varnel_StreamState.h"

#include <cctype>
#include <memory>

namespace Kempt {

namespace {

// Deeper brackets than this are copied as they stand, so that no text can
// exhaust the stack.
constexpr int MAX_DEPTH = 256;

bool readBool(const PropertySet& properties, const char* name)
{
    bool value = false;
    properties.getBool(name, value);
    return value;
}

CppExprFormatter::Gaps readGaps(const PropertySet& p)
{
    CppExprFormatter::Gaps g;
    load(p, Prop::WS_BETWEEN_EXPR_OP_OPERANDS, g.op);
    load(p, Prop::WS_BETWEEN_UNARY_OP_OPERAND, g.unary);
    load(p, Prop::WS_AFTER_FN_CALL_NAME, g.callName);
    load(p, Prop::WS_BEFORE_FN_CALL_COMMA, g.beforeComma);
    load(p, Prop::WS_BETWEEN_FN_CALL_ARGS, g.betweenArgs);
    // Arguments one a line, each under the first.
    if (readBool(p, Prop::ALIGN_FN_CALL_ARGS_LEFT))
        g.betweenArgs = newLineSetting();
    load(p, Prop::WS_AFTER_EXPR_OPEN_PAREN, g.afterParen);
    load(p, Prop::WS_BEFORE_EXPR_CLOSE_PAREN, g.beforeParen);
    load(p, Prop::WS_BEFORE_LBRACKET, g.beforeBracket);
    load(p, Prop::WS_AFTER_LBRACKET, g.afterBracket);
    load(p, Prop::WS_BEFORE_RBRACKET, g.beforeCloseBracket);
    load(p, Prop::WS_BETWEEN_AMPERSAND_ANCHOR, g.ampersandGap);
    load(p, Prop::WS_BETWEEN_ASTERISK_ANCHOR, g.asteriskGap);
    load(p, Prop::WS_AFTER_TP_OPEN_BRACKET, g.afterAngle);
    load(p, Prop::WS_BEFORE_TP_CLOSE_BRACKET, g.beforeCloseAngle);
    load(p, Prop::WS_BETWEEN_TP_PARAMS, g.betweenTemplateArgs);
    load(p, Prop::WS_BEFORE_DD_OPEN_BRACE, g.beforeBrace);
    load(p, Prop::WS_AFTER_DD_OPEN_BRACE, g.afterBrace);
    load(p, Prop::WS_BEFORE_DD_CLOSE_BRACE, g.beforeCloseBrace);
    load(p, Prop::WS_BEFORE_DD_COMMA, g.beforeElementComma);
    load(p, Prop::WS_BETWEEN_DD_ELEMENTS, g.betweenElements);
    load(p, Prop::INDENT_DD_CONTENT, g.braceContentIndent);
    return g;
}

// A token as the check below compares it: comments and directives may have
// been re-indented inside, so only their non-blank characters count.
std::string comparable(const Trn::Token& t)
{
    if (t.type() != Cpp::LINE_COMMENT && t.type() != Cpp::BLOCK_COMMENT && t.type() != Cpp::PREPROC_DIRECTIVE)
        return t.text();
    std::string text;
    for (const char c : t.text())
        if (c != ' ' && c != '\t' && c != '\n' && c != '\r' && c != '\f' && c != '\v')
            text += c;
    return text;
}

// The next token of a walk over every token: the left one, then a step.
bool nextToken(TokenIterator& it, bool& started, Trn::Token& token)
{
    if (!started) {
        it.advance();
        started = true;
    } else if (it.more()) {
        it.advance();
    } else {
        return false;
    }
    token = it.left();
    return token.type() != Cpp::END_OF_FILE;
}

bool sameTokens(const std::string& a, const std::string& b, const MarkerList& markers)
{
    TokenIterator ia(a, markers);
    TokenIterator ib(b, markers);
    bool startedA = false;
    bool startedB = false;
    Trn::Token ta;
    Trn::Token tb;
    for (;;) {
        const bool moreA = nextToken(ia, startedA, ta);
        const bool moreB = nextToken(ib, startedB, tb);
        if (moreA != moreB)
            return false;
        if (!moreA)
            return true;
        if (ta.type() != tb.type() || comparable(ta) != comparable(tb))
            return false;
    }
}

bool isBlankChar(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
}

bool isWordChar(char c)
{
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' || c == '$';
}

// Two characters that could be, or become, one token when nothing stands
// between them: "ab", "--", "->", "//", ".5", "~X" (a destructor's name),
// ":: x" (a qualified name), "L\"s\"" (a wide literal).
bool mayStick(char a, char b)
{
    const bool wordA = isWordChar(a);
    const bool wordB = isWordChar(b);
    const bool digitA = std::isdigit(static_cast<unsigned char>(a)) != 0;
    const bool digitB = std::isdigit(static_cast<unsigned char>(b)) != 0;
    if (wordA && wordB)
        return true;
    if ((a == '~' || a == ':') && wordB)
        return true;
    if (wordA && (b == '"' || b == '\''))
        return true;
    if ((a == '.' && digitB) || (digitA && b == '.'))
        return true;
    if (std::ispunct(static_cast<unsigned char>(a)) == 0 || std::ispunct(static_cast<unsigned char>(b)) == 0)
        return false;
    return detail::wouldFuseChars(a, b);
}

// The line breaks of `text` that end a "//" comment, a directive or a line
// continuation, as the offsets of the white space runs they stand in.
class SignificantBreaks {
public:
    explicit SignificantBreaks(std::string_view text) : m_text(text) {}

    // Whether the white space run that starts at `offset` holds a line break
    // that ends a "//" comment, a directive, or a line that a backslash
    // continues.
    bool at(std::size_t offset)
    {
        scanTo(offset);
        return m_significant;
    }

private:
    void scanTo(std::size_t offset)
    {
        bool lineStart = m_pos == 0;
        m_significant = false;
        for (; m_pos < offset; ++m_pos) {
            const char c = m_text[m_pos];
            const char next = m_pos + 1 < m_text.size() ? m_text[m_pos + 1] : '\0';
            switch (m_state) {
            case CODE:
                if (c == '"' || c == '\'') {
                    m_state = LITERAL;
                    m_quote = c;
                } else if (c == '/' && next == '/') {
                    m_state = LINE_COMMENT;
                } else if (c == '/' && next == '*') {
                    m_state = BLOCK_COMMENT;
                    ++m_pos;
                } else if (c == '#' && lineStart) {
                    m_directive = true;
                }
                break;
            case LITERAL:
                if (c == '\\')
                    ++m_pos;
                else if (c == m_quote || c == '\n')
                    m_state = CODE;
                break;
            case LINE_COMMENT:
                if (c == '\n')
                    m_state = CODE;
                break;
            case BLOCK_COMMENT:
                if (c == '*' && next == '/') {
                    m_state = CODE;
                    ++m_pos;
                }
                break;
            }
            if (c == '\n')
                m_directive = m_directive && m_pos > 0 && m_text[m_pos - 1] == '\\';
            lineStart = c == '\n' || (lineStart && isBlankChar(c));
        }
        const bool continued = offset > 0 && m_text[offset - 1] == '\\';
        m_significant = m_state == LINE_COMMENT || m_directive || continued;
    }

    enum State { CODE, LITERAL, LINE_COMMENT, BLOCK_COMMENT };
    std::string_view m_text;
    std::size_t m_pos = 0;
    State m_state = CODE;
    char m_quote = 0;
    bool m_directive = false;
    bool m_significant = false;
};

// A quick proof that `result` holds the tokens of `text`: the same
// characters other than white space, in order, and wherever white space came
// or went between two of them, no token can have been joined or split, and no
// line break that ends a comment or directive was lost. False means "not
// proven", not "changed".
bool surelySameTokens(std::string_view text, std::string_view result)
{
    SignificantBreaks breaks(text);
    std::size_t i = 0;
    std::size_t j = 0;
    char previous = '\0';
    for (;;) {
        const std::size_t runStart = i;
        bool breakIn = false;
        bool breakOut = false;
        for (; i < text.size() && isBlankChar(text[i]); ++i)
            breakIn = breakIn || text[i] == '\n';
        const bool blankIn = i > runStart;
        const std::size_t outStart = j;
        for (; j < result.size() && isBlankChar(result[j]); ++j)
            breakOut = breakOut || result[j] == '\n';
        const bool blankOut = j > outStart;
        if (i == text.size() || j == result.size())
            return i == text.size() && j == result.size();
        if (text[i] != result[j])
            return false;
        if (previous != '\0' && blankIn != blankOut && mayStick(previous, text[i]))
            return false;
        if (breakIn && !breakOut && breaks.at(runStart))
            return false;
        previous = text[i];
        ++i;
        ++j;
    }
}

// The text copied as it stands, with the indent of the lines it begins.
std::string copied(const std::string& text, const Varnel::StreamState& state)
{
    ScratchStream scratch(state);
    scratch.out() << text;
    return scratch.str();
}

} // namespace

bool keepsTokens(const std::string& before, const std::string& after, const MarkerList& markers)
{
    return surelySameTokens(before, after) || sameTokens(before, after, markers);
}

const MarkerList& CppExprFormatter::defaultMarkerList()
{
    static const MarkerList MARKERS = defaultRegionMarkers();
    return MARKERS;
}

CppExprFormatter::CppExprFormatter(const PropertySet& properties, const MarkerList& markers)
    : ExprFormatterBase(properties, markers), m_gaps(readGaps(m_properties))
{
    m_lineWrap = readBool(m_properties, Prop::LINE_WRAP);
    m_ampersandAnchor = readChoice(m_properties, Prop::AMPERSAND_ANCHOR);
    m_asteriskAnchor = readChoice(m_properties, Prop::ASTERISK_ANCHOR);
    m_hangingAmpersand = readBool(m_properties, Prop::HANGING_AMPERSAND);
    m_hangingAsterisk = readBool(m_properties, Prop::HANGING_ASTERISK);
}

std::string CppExprFormatter::format(const std::string& text, const Varnel::StreamState& state)
{
    std::string result = detail::ExprWalk::walk(*this, text, state);
    // The walk changes gaps only; should two tokens ever have run together,
    // the text is given back as it stands rather than changed.
    if (!keepsTokens(text, result, markers()))
        return copied(text, state);
    return result;
}

std::string CppExprFormatter::formatTypeId(const std::string& text, const Varnel::StreamState& state,
                                           const WsSetting& farGap)
{
    FlagGuard<bool> typeId(m_typeIdMode, true);
    FlagGuard<WsSetting> far(m_farGap, farGap);
    return format(text, state);
}

namespace detail {

ExprWalk::ExprWalk(CppExprFormatter& formatter, const std::string& text, const Varnel::StreamState& state)
    : m_f(formatter), m_gaps(formatter.gaps()), m_source(text), m_in(m_source),
      m_it(m_source.text(), formatter.markers()), m_scratch(state)
{
}

std::string ExprWalk::walk(CppExprFormatter& formatter, const std::string& text, const Varnel::StreamState& state)
{
    if (formatter.m_depth >= MAX_DEPTH)
        return copied(text, state);
    CppExprFormatter::FlagGuard<int> depth(formatter.m_depth, formatter.m_depth + 1);
    // On the heap: a walk holds a lexer with its buffer, and walks nest.
    auto walk = std::make_unique<ExprWalk>(formatter, text, state);
    return walk->run();
}

std::string ExprWalk::run()
{
    while (m_it.more()) {
        advance();
        dispatch();
    }
    write(rest());
    return m_scratch.str();
}

Varnel::StreamState ExprWalk::state() const
{
    return Varnel::StreamState::of(const_cast<ExprWalk*>(this)->out());
}

std::string ExprWalk::formatInner(const std::string& text)
{
    return walk(m_f, text, state());
}

void ExprWalk::emitDirectiveToken(const Trn::Token& directive)
{
    copyUpTo(directive.start());
    m_f.emitDirective(directive.start(), directive.end(), m_in, out());
}

void ExprWalk::emitComments()
{
    // "a /* c */ + b": comments and directives pass before the pair is judged.
    for (;;) {
        const std::int32_t r = rightType();
        if (r == Cpp::PREPROC_DIRECTIVE)
            emitDirectiveToken(right());
        else if (r == Cpp::LINE_COMMENT || r == Cpp::BLOCK_COMMENT)
            copyThrough(right().end());
        else
            return;
        advance();
    }
}

void ExprWalk::dispatch()
{
    const std::int32_t l = leftType();
    const std::int32_t r = rightType();
    // "" : nothing to decide.
    if (l == Cpp::END_OF_FILE)
        return;
    // "#if X": placed as a directive.
    if (l == Cpp::PREPROC_DIRECTIVE)
        return emitDirectiveToken(left());
    // "/* c */ x": a comment passes as it stands.
    if (l == Cpp::LINE_COMMENT || l == Cpp::BLOCK_COMMENT)
        return copyThrough(left().end());
    // "1 + x", "(a) + b", "a[1] = 2"
    if (l == Cpp::NUMBER_LITERAL || l == Cpp::CHAR_LITERAL || l == Cpp::UNUSED_LITERAL || l == Cpp::RPAREN ||
        l == Cpp::RBRACKET)
        return emitPair();
    // "\"a\" \"b\"": adjacent literals.
    if (l == Cpp::STRING_LITERAL) {
        if (r == Cpp::STRING_LITERAL)
            return joinStrings();
        if (m_f.lineWrap() && r == Cpp::BLOCK_COMMENT)
            return joinStringsAcrossComments();
        return emitPair();
    }
    if (dispatchPunctuation(l, r))
        return;
    // "static_cast<int>(x)"
    if (l >= Cpp::STATIC_CAST_KEY && l <= Cpp::REINTERPRET_CAST_KEY)
        return emitNamedCast();
    // "sizeof(x)", "throw (e)"
    if (l == Cpp::THROW_KEY || l == Cpp::SIZEOF_KEY)
        return r == Cpp::LPAREN ? emitCall() : emitPair();
    // "f(x)", "vector<int>", "x + 1"
    if (l == Cpp::IDENTIFIER) {
        if (r == Cpp::LPAREN)
            return emitCall();
        if (r == Cpp::LESS_THAN)
            return emitAngle();
        return emitPair();
    }
    // "-x" at the start, "!done"
    if (isUnaryOpType(l))
        return emitUnary();
    emitPair();
}

bool ExprWalk::dispatchPunctuation(std::int32_t l, std::int32_t r)
{
    switch (l) {
    // "; -x": a unary operator after a semicolon.
    case Cpp::SEMICOLON:
        if (isUnaryOpType(r)) {
            advance();
            emitUnary();
        } else {
            emitPair();
        }
        return true;
    // "a ? -b : -c"
    case Cpp::COLON:
    case Cpp::QUESTION:
        if (isUnaryOpType(r)) {
            afterOp(left(), right());
            advance();
            emitUnary();
        } else {
            emitPair();
        }
        return true;
    // "f(a, -b)"; "a, *p" is left to the pair rules.
    case Cpp::COMMA:
        if (isUnaryOpType(r) && !isPtrType(r)) {
            afterOp(left(), right());
            advance();
            emitUnary();
        } else {
            emitPair();
        }
        return true;
    // "(a + b) * c"
    case Cpp::LPAREN:
        emitGroup(Cpp::LPAREN, Cpp::RPAREN, m_gaps.afterParen, m_gaps.beforeParen, m_gaps.beforeComma,
                  m_gaps.betweenArgs);
        if (rightType() == Cpp::RPAREN)
            afterCloseParen();
        return true;
    // "= {1, 2}" or "= 1"
    case Cpp::EQUALS: emitEquals(); return true;
    // "[i + 1]"
    case Cpp::LBRACKET:
        emitGroup(Cpp::LBRACKET, Cpp::RBRACKET, m_gaps.afterBracket, m_gaps.beforeCloseBracket, noWhiteSpace(),
                  noWhiteSpace());
        return true;
    // "<int>" at the start of a text
    case Cpp::LESS_THAN: emitAngle(); return true;
    default: return false;
    }
}

} // namespace detail

} // namespace Kempt
