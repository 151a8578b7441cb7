// The parser's core: the entry point, the top loop, the classification of a
// declaration by scanning, directives, comments and the stream helpers shared
// by every construct family.
#include "Cpp_Parser.h"

#include "Cpp_CommentText.h"
#include "Cpp_Lexer.h"
#include "Cpp_Nodes.h"
#include "Cpp_ParserSupport.h"
#include "Trn_TokenStream.h"
#include "Varnel_Contract.h"
#include "Varnel_Text.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <memory>
#include <optional>
#include <string_view>
#include <unordered_set>

namespace Cpp {

using namespace ParserSupport;

// ---------------------------------------------------------------------------
// Word sets and shared helpers.

namespace {

bool inWordSet(const Trn::Token& token, const std::unordered_set<std::string_view>& words)
{
    return token.type() == IDENTIFIER && words.count(Varnel::trim(token.text())) != 0;
}

// Swaps the caller's list in for the run and back out at the end, also when
// an exception passes.
class MessagesGuard {
public:
    MessagesGuard(Trn::FormatMessageList& mine, Trn::FormatMessageList& callers) : m_mine(mine), m_callers(callers)
    {
        m_mine.swap(m_callers);
    }
    ~MessagesGuard()
    {
        m_mine.swap(m_callers);
        m_mine.clear();
    }
    MessagesGuard(const MessagesGuard&) = delete;
    MessagesGuard& operator=(const MessagesGuard&) = delete;

private:
    Trn::FormatMessageList& m_mine;
    Trn::FormatMessageList& m_callers;
};

} // namespace

bool isExtensionWord(const Trn::Token& token)
{
    static const std::unordered_set<std::string_view> words{"__based", "_based", "__assume", "__declspec"};
    return inWordSet(token, words);
}

bool isAsmWord(const Trn::Token& token)
{
    static const std::unordered_set<std::string_view> words{"asm",   "_asm",  "__asm",   "asm_",
                                                            "asm__", "_asm_", "__asm__", "___asm"};
    return (token.type() == ASM_KEY && token.text() == "asm") || inWordSet(token, words);
}

bool isInterruptWord(const Trn::Token& token)
{
    static const std::unordered_set<std::string_view> words{"interrupt"};
    return inWordSet(token, words);
}

bool isQualifiedName(const Trn::Token& token)
{
    const std::int32_t type = token.type();
    if (type != IDENTIFIER && type != OPERATOR_KEY && type != NEW_KEY && type != DELETE_KEY)
        return false;
    const std::string& text = token.text();
    return text.size() > 2 && (text.starts_with("::") || text.ends_with("::"));
}

namespace ParserSupport {

std::string commentWords(const Trn::Token& comment)
{
    std::string text = comment.text();
    stripCommentDelimiters(text);
    return std::string(Varnel::trim(text));
}

std::string withoutWhiteSpace(const std::string& text)
{
    std::string result;
    result.reserve(text.size());
    for (const char c : text)
        if (!std::isspace(static_cast<unsigned char>(c)))
            result += c;
    return result;
}

std::string joinTexts(const std::vector<Trn::Token>& tokens, std::size_t first, std::size_t last)
{
    std::string text;
    for (std::size_t i = first; i <= last && i < tokens.size(); ++i) {
        if (isDiscardable(tokens[i]))
            continue;
        if (!text.empty())
            text += ' ';
        text += tokens[i].text();
    }
    return text;
}

} // namespace ParserSupport

// What phase 1 of parseDeclaration gathers and decides.
struct Parser::Gathered {
    TokenList tokens;
    DeclKind kind = DeclKind::DATA;
    bool functionPointer = false;
    // The last token gathered that is neither a comment nor a directive.
    Trn::Token prev;
    // A macro line without its semicolon: `NS_END` before `}`.
    bool macroLine = false;
    // The words between a function's parameters and its body.
    Trailer trailer;

    void append(const Trn::Token& t)
    {
        tokens.push_back(t);
        if (!isDiscardable(t))
            prev = t;
    }
    void removeLast() { tokens.pop_back(); }
};

Parser::Parser() = default;
Parser::~Parser() = default;

// ---------------------------------------------------------------------------
// Entry points.

void Parser::parse(Trn::Lexer& lexer, Trn::SyntaxNode& root, Trn::FormatMessageList& messages)
{
    auto* cppLexer = dynamic_cast<Lexer*>(&lexer);
    auto* cppRoot = dynamic_cast<RootNode*>(&root);
    TW_REQUIRE(cppLexer != nullptr && cppRoot != nullptr);
    parse(*cppLexer, *cppRoot, messages);
}

void Parser::parse(Lexer& lexer, RootNode& root, Trn::FormatMessageList& messages)
{
    MessagesGuard guard(m_messages, messages);
    const auto given = static_cast<std::ptrdiff_t>(m_messages.size());
    const auto dropOwnMessages = [&] { m_messages.erase(std::next(m_messages.begin(), given), m_messages.end()); };

    // 1. The core rules. A text that cannot be read again is read by them only.
    const bool canReadAgain = lexer.canRestart();
    RootNode core;
    if (read(lexer, core, Reading::CORE, canReadAgain) || !lexer.restart()) {
        root = std::move(core);
        return;
    }
    // 2. The extensions, then the same with the other branches of each
    //    conditional folded into one directive, for braces that balance only
    //    across branches; then both again with the later extensions. Each
    //    reading is made only when all before it refused the text, so a text
    //    that one of them accepts keeps the tree that reading gives it.
    //    The messages of a text refused by all are those of the last
    //    unfolded reading.
    Trn::FormatMessageList refusal;
    RootNode refused;
    for (const Reading reading : {Reading::EXTENDED, Reading::LATER}) {
        for (const bool folding : {false, true}) {
            dropOwnMessages();
            if (!lexer.restart())
                break;
            const bool reportsRefusal = reading == Reading::LATER && !folding;
            // Only the folded reading with the extensions alone stops at its
            // first fault: a reading that stops cannot try one reading of a
            // construct after another (`NS_START { ... }`).
            const bool stopAtFault = reading == Reading::EXTENDED && folding;
            lexer.setFoldingElseBranches(folding);
            RootNode attempt;
            const bool accepted = read(lexer, attempt, reading, stopAtFault);
            lexer.setFoldingElseBranches(false);
            if (accepted) {
                root = std::move(attempt);
                return;
            }
            if (reportsRefusal) {
                refusal.assign(std::next(m_messages.begin(), given), m_messages.end());
                refused = std::move(attempt);
            }
        }
    }
    dropOwnMessages();
    m_messages.insert(m_messages.end(), refusal.begin(), refusal.end());
    root = std::move(refused);
    // 3. Most refusals of real code come from a macro used as syntax: name
    //    the likely one.
    if (lexer.restart())
        nameProbableMacro(lexer, std::next(m_messages.begin(), given));
    // The text is read to its end, as by any reading.
    while (lexer.next().type() != END_OF_FILE) {
    }
}

namespace {

// A word that reads like a macro's name: capitals, digits and underscores,
// at least three characters of which two are capitals, and not one of the
// constants that never stand for syntax.
bool looksLikeMacro(const Trn::Token& t)
{
    if (t.type() != IDENTIFIER)
        return false;
    const std::string& text = t.text();
    if (text.size() < 3 || text == "NULL" || text == "TRUE" || text == "FALSE" || text == "EOF")
        return false;
    int capitals = 0;
    for (char c : text) {
        if (c >= 'A' && c <= 'Z')
            ++capitals;
        else if (!(c == '_' || (c >= '0' && c <= '9')))
            return false;
    }
    return capitals >= 2;
}

} // namespace

void Parser::nameProbableMacro(Lexer& lexer, Trn::FormatMessageList::iterator from)
{
    // The first error: `NS_DECL(x) class A`, "Expected ... (is NS_DECL a macro? ...)".
    auto first = std::find_if(from, m_messages.end(), [](const Trn::FormatMessage& m) {
        return m.code != 2 && !(m.position == Trn::Position());
    });
    // The end of input is no macro's fault: the cause lies further back.
    if (first == m_messages.end() || first->code == 1)
        return;
    const Trn::Position at = first->position;
    // The last macro-like word at or before the fault, within three lines.
    std::optional<Trn::Token> word;
    for (Trn::Token t = lexer.next(); !isEnd(t) && !(at < t.start()); t = lexer.next())
        if (looksLikeMacro(t))
            word = t;
    if (!word || word->start().line + 3 < at.line)
        return;
    first->text += probableMacroNote(word->text());
}

std::string Parser::probableMacroNote(const std::string& word)
{
    return " (is " + word + " a macro? Put code that Tidewright cannot read between TIDEWRIGHT-OFF and "
                            "TIDEWRIGHT-ON comments; see \"When a file does not parse\" in the README)";
}

bool Parser::read(Trn::Lexer& tokens, RootNode& root, Reading reading, bool stopAtFault)
{
    const std::size_t before = m_messages.size();
    m_lastPosition = Trn::Position();
    m_nesting = 0;
    m_tooDeep = false;
    m_extended = reading != Reading::CORE;
    m_later = reading == Reading::LATER;
    m_stopAtFault = stopAtFault;
    m_faulted = false;
    Trn::TokenStream stream(tokens);
    parseTopLevel(stream, root);
    return onlyMacroNotes(before);
}

// ---------------------------------------------------------------------------
// The top loop.

void Parser::parseTopLevel(Stream& s, RootNode& root)
{
    while (!stopping()) {
        const Trn::Token t = s.peek(1);
        if (t.type() == END_OF_FILE)
            return;
        topLevelTurn(s, root, t);
        ensureProgress(s, t);
    }
}

void Parser::topLevelTurn(Stream& s, RootNode& root, const Trn::Token& t)
{
    switch (t.type()) {
    // A stray token at file level is no error: `}` `;`
    case INVALID_TOKEN:
    case SEMICOLON:
    case RBRACE: get(s); return;
    case PREPROC_DIRECTIVE: root.add(parseDirective(s)); return;
    case LINE_COMMENT:
    case BLOCK_COMMENT: root.add(parseComment(s)); return;
    // Code fragments at file level: `{ x = 1; }`
    case LBRACE: root.add(parseBlock(s)); return;
    case NAMESPACE_KEY: root.add(parseNamespace(s)); return;
    // With the extensions: `inline namespace v1 {`
    case INLINE_KEY:
        if (m_extended && nextSignificant(s, 2).type() == NAMESPACE_KEY) {
            root.add(parseNamespace(s));
            return;
        }
        break;
    // `using namespace std;` stays text between nodes.
    case USING_KEY: skipTo(s, SEMICOLON); return;
    case TEMPLATE_KEY: root.add(parseTemplate(s)); return;
    case ASM_KEY: root.add(parseAsm(s)); return;
    case EXTERN_KEY: root.add(parseExtern(s)); return;
    case THROW_KEY:
    case CONTINUE_KEY:
    case BREAK_KEY:
    case GOTO_KEY:
    case RETURN_KEY: {
        TokenList list;
        if (gatherUntil(s, list, SEMICOLON)) {
            Stream statement(list);
            root.add(parseExpression(statement));
        }
        return;
    }
    default: break;
    }
    if (isControlKeyword(t.type())) {
        root.add(parseControlStatement(s));
        return;
    }
    if (isAsmWord(t)) {
        root.add(parseAsm(s));
        return;
    }
    // The macro-block form: `BEGIN_MAP { ... }`
    if (t.type() == IDENTIFIER && nextSignificant(s, 2).type() == LBRACE) {
        if (m_extended) {
            parseMacroScope(s, root);
            return;
        }
        const Trn::Token name = get(s);
        root.add(new ExprNode(name.start(), name.end()));
        root.add(parseBlock(s));
        return;
    }
    bool isTypeBody = false;
    SyntaxNode* declaration = parseDeclaration(s, isTypeBody);
    if (!declaration) {
        report(7, t);
        return;
    }
    addWithSemicolon(s, root, declaration, isTypeBody);
}

// A name followed by braces, with the extensions: read as the macro-block
// form when the braces hold statements, `BEGIN_MAP { ENTRY(1) }`, and
// otherwise as a scope of declarations that the macro opens, like a namespace:
// `TOML_NAMESPACE_START { class A; }`.
void Parser::parseMacroScope(Stream& s, InteriorNode& node)
{
    const Trn::Token name = get(s);
    skipDiscardable(s);
    TokenList braces{get(s)};
    if (!gatherBalanced(s, braces, LBRACE, RBRACE, 1))
        return;
    const std::size_t before = m_messages.size();
    {
        Stream statements(braces);
        std::unique_ptr<BlockNode> block(parseBlock(statements));
        const bool allRead = peekAt(statements, 1).type() == END_OF_FILE;
        if (block && allRead && onlyMacroNotes(before)) {
            node.add(new ExprNode(name.start(), name.end()));
            node.add(block.release());
            return;
        }
    }
    if (m_tooDeep)
        return;
    m_messages.resize(before);
    Stream declarations(braces);
    NamespaceBodyNode* body = parseNamespaceBody(declarations);
    if (!body)
        return;
    node.add(new NamespaceDeclNode(new NamespaceHeadNode(name.text(), name.start(), name.end()), body));
}

// Whether the messages since the first `count` are all code 2.
bool Parser::onlyMacroNotes(std::size_t count) const
{
    return std::none_of(std::next(m_messages.begin(), static_cast<std::ptrdiff_t>(count)), m_messages.end(),
                        [](const Trn::FormatMessage& m) { return m.code != 2; });
}

void Parser::addWithSemicolon(Stream& s, InteriorNode& node, SyntaxNode* declaration, bool isTypeBody)
{
    node.add(declaration);
    // `struct S { ... };` ends at its semicolon.
    if (declaration && isTypeBody && nextSignificant(s).type() == SEMICOLON)
        declaration->setEnd(skipToSemicolon(s));
}

// ---------------------------------------------------------------------------
// Declarations: classify by scanning, gather the rest, parse the gathered list.

SyntaxNode* Parser::parseDeclaration(Stream& s, bool& isTypeBody, bool bitFieldsAllowed)
{
    isTypeBody = false;
    NestingGuard nesting(*this, s.peek(1));
    if (nesting.stopping())
        return nullptr;
    Gathered g;
    if (!classifyDeclaration(s, g))
        return nullptr;
    if (g.kind == DeclKind::FUNCTION && !gatherFunctionHead(s, g))
        return nullptr;
    switch (g.kind) {
    case DeclKind::FUNCTION: {
        bool stoppedAtComma = false;
        gatherFunctionRest(s, g, stoppedAtComma);
        FunctionDeclNode* function = parseFunction(g.tokens, s, g.trailer);
        // `int f(), g();` gives two items: the comma between them is dropped.
        if (stoppedAtComma)
            get(s);
        return function;
    }
    case DeclKind::DATA: {
        // The tree `NS_END;` would have.
        if (g.macroLine) {
            const Trn::Token& name = g.prev;
            return new DataDeclNode(nullptr, new IdNode(name.text(), name.start(), name.end()), nullptr);
        }
        gatherDataRest(s, g);
        Stream list(g.tokens);
        if (g.functionPointer)
            return parseFunctionPointer(list);
        return parseDataDeclaration(list, bitFieldsAllowed);
    }
    case DeclKind::CLASS: {
        if (!gatherBody(s, g))
            return nullptr;
        Stream list(g.tokens);
        isTypeBody = true;
        return parseClass(list);
    }
    case DeclKind::ENUM: {
        if (!gatherBody(s, g))
            return nullptr;
        Stream list(g.tokens);
        isTypeBody = true;
        return parseEnum(list);
    }
    }
    TW_CHECK(false);
    return nullptr;
}

// Phase 1: takes tokens until one of them decides the kind. False (with a
// message) at the end of input.
bool Parser::classifyDeclaration(Stream& s, Gathered& g)
{
    int angle = 0;
    bool seenOperator = false;
    bool seenEnum = false;
    bool seenColon = false;
    bool seenOperatorParen = false;
    bool seenClassKey = false;
    bool seenAttribute = false;
    int words = 0; // tokens other than comments and directives
    for (;;) {
        const Trn::Token t = get(s);
        const std::int32_t prev = g.prev.type();
        g.tokens.push_back(t);
        if (!isDiscardable(t))
            ++words;
        switch (t.type()) {
        // `int x;` `foo;`
        case SEMICOLON:
            s.unget();
            g.removeLast();
            g.kind = DeclKind::DATA;
            return true;
        case COLON: seenColon = true; break;
        case LPAREN:
            if (angle != 0)
                break; // `A<f(x)>`
            // With the extensions, a class key inside a macro's parentheses
            // heads a class: `ALIGNED16(class) A : public B { };`
            if (m_extended && prev == IDENTIFIER && !seenClassKey && isClassKey(peekAt(s, 1).type())
                && peekAt(s, 2).type() == RPAREN) {
                g.tokens.push_back(get(s));
                g.tokens.push_back(get(s));
                g.prev = g.tokens.back();
                seenClassKey = true;
                continue;
            }
            // With the extensions, parentheses in a class's base clauses:
            // `struct A : decltype(f(x)) {`
            if (m_extended && seenClassKey && seenColon) {
                if (!gatherBalanced(s, g.tokens, LPAREN, RPAREN, 1))
                    return false;
                g.prev = g.tokens.back();
                continue;
            }
            // The first "(" of `operator()`.
            if (seenOperator && prev == OPERATOR_KEY && !seenOperatorParen) {
                seenOperatorParen = true;
                break;
            }
            g.kind = DeclKind::FUNCTION;
            // `char *(*f)(int)`, `char *(__cdecl *f)(int)`
            if (!seenOperator && prev == ASTERISK) {
                const std::int32_t next = peekAt(s, 1).type();
                if (next == ASTERISK || (next == IDENTIFIER && peekAt(s, 2).type() == ASTERISK))
                    g.functionPointer = true;
            }
            g.prev = t;
            return true;
        // `class A {`, `enum E {`, `typedef enum {`
        case LBRACE:
            // With the later extensions, braces inside template arguments are
            // a value: `struct A<void_t<decltype(f(std::declval<T>(), {}))>>`
            if (m_later && angle > 0
                && (prev == COMMA || prev == LPAREN || prev == LESS_THAN || prev == IDENTIFIER)) {
                if (!gatherBalanced(s, g.tokens, LBRACE, RBRACE, 1))
                    return false;
                g.prev = g.tokens.back();
                continue;
            }
            // With the extensions, a brace initialiser: `int x{0};`
            if (m_extended && !seenEnum && !seenClassKey && !seenColon && words > 2
                && (prev == IDENTIFIER || prev == RBRACKET)) {
                g.prev = t;
                if (!gatherBalanced(s, g.tokens, LBRACE, RBRACE, 1))
                    return false;
                g.kind = DeclKind::DATA;
                return true;
            }
            g.kind = seenEnum ? DeclKind::ENUM : DeclKind::CLASS;
            g.prev = t;
            return true;
        case EQUALS:
            // `X::operator=(const X&)`
            if (seenOperator && nextSignificant(s).type() == LPAREN) {
                g.kind = DeclKind::FUNCTION;
                break;
            }
            // `int x = f(1);`
            s.unget();
            g.removeLast();
            g.kind = DeclKind::DATA;
            return true;
        case LBRACKET:
            // With the later extensions, an attribute decides nothing and leaves the
            // last word as it was: `[[nodiscard]] int f();`
            if (m_later && peekAt(s, 1).type() == LBRACKET) {
                if (!gatherBalanced(s, g.tokens, LBRACKET, RBRACKET, 1))
                    return false;
                --words;
                seenAttribute = true;
                continue;
            }
            return classifyBracket(s, g);
        case LESS_THAN:
            if (prev != OPERATOR_KEY)
                ++angle;
            break;
        case GREATER_THAN:
            if (prev != OPERATOR_KEY && angle > 0)
                --angle;
            break;
        // With the extensions, `>>` closes two template argument lists.
        case RIGHT_SHIFT:
            if (closesTwoAngles(prev, angle))
                angle -= 2;
            break;
        case PUBLIC_KEY:
        case PRIVATE_KEY:
        case PROTECTED_KEY:
            // `MACRO public:`; after a colon it is a base clause's access.
            if (!seenColon) {
                s.unget();
                g.removeLast();
                g.kind = DeclKind::DATA;
                return true;
            }
            break;
        case ENUM_KEY: seenEnum = true; break;
        case CLASS_KEY:
        case STRUCT_KEY:
        case UNION_KEY: seenClassKey = true; break;
        case OPERATOR_KEY: seenOperator = true; break;
        // `class __declspec(dllexport) A`: its parentheses decide nothing.
        case IDENTIFIER:
            if ((isExtensionWord(t) || (m_later && isWord(t, "alignas"))) && peekAt(s, 1).type() == LPAREN) {
                if (!gatherBalanced(s, g.tokens, LPAREN, RPAREN, 0))
                    return false;
                g.prev = g.tokens.back();
                continue;
            }
            // `NS_END }`, `G_END_DECLS` at the end of the text.
            if (m_extended && prev == END_OF_FILE && !seenAttribute && endsMacroLine(s, t)) {
                g.kind = DeclKind::DATA;
                g.macroLine = true;
                g.prev = t;
                return true;
            }
            break;
        case END_OF_FILE:
        case INVALID_TOKEN: report(1, t); return false;
        default: break;
        }
        if (!isDiscardable(t))
            g.prev = t;
    }
}

// A "[" during phase 1: `operator[]`, `operator new[]` are functions; any other
// bracket makes data: `int a[10];`
bool Parser::classifyBracket(Stream& s, Gathered& g)
{
    if (nextSignificant(s).type() != RBRACKET) {
        s.unget();
        g.removeLast();
        g.kind = DeclKind::DATA;
        return true;
    }
    if (!gatherThrough(s, g, RBRACKET))
        return false;
    if (nextSignificant(s).type() != LPAREN) {
        g.kind = DeclKind::DATA;
        return true;
    }
    if (!gatherThrough(s, g, LPAREN))
        return false;
    g.kind = DeclKind::FUNCTION;
    return true;
}

// Whether what follows ends a macro line that has no semicolon: a directive
// on the next line, the end of the text, the "}" of the enclosing body, or the
// next declaration beginning with `namespace`, `inline namespace`, `using` or
// `extern`.
bool Parser::endsMacroLine(Stream& s, const Trn::Token& word)
{
    // `DOCTEST_..._BEGIN` with `#include <string>` on the next line.
    if (peekAt(s, 1).type() == PREPROC_DIRECTIVE)
        return true;
    switch (nextSignificant(s).type()) {
    case END_OF_FILE:
    case RBRACE:
    case NAMESPACE_KEY:
    case USING_KEY:
    case EXTERN_KEY: return true;
    default: break;
    }
    if (startsInlineNamespace(s))
        return true;
    // Lines of one name each, the last of them ending as above:
    // `G_GNUC_END_IGNORE_DEPRECATIONS` / `G_END_DECLS` / `#endif`. The look
    // ahead stays within the main stream's window.
    Trn::Token previous = word;
    std::int32_t k = 1;
    for (int lines = 0; lines < 3; ++lines) {
        while (isComment(peekAt(s, k)))
            ++k;
        const Trn::Token name = peekAt(s, k);
        if (name.type() != IDENTIFIER || name.start().line <= previous.end().line)
            return false;
        std::int32_t after = k + 1;
        while (isComment(peekAt(s, after)))
            ++after;
        const Trn::Token next = peekAt(s, after);
        if (next.type() != END_OF_FILE && next.start().line <= name.end().line)
            return false;
        switch (next.type()) {
        case PREPROC_DIRECTIVE:
        case END_OF_FILE:
        case RBRACE:
        case NAMESPACE_KEY:
        case USING_KEY:
        case EXTERN_KEY: return true;
        default: break;
        }
        previous = name;
        k = after;
    }
    return false;
}

// `inline namespace v1 {` ahead.
bool Parser::startsInlineNamespace(Stream& s)
{
    std::int32_t n = 1;
    while (isDiscardable(peekAt(s, n)))
        ++n;
    if (peekAt(s, n).type() != INLINE_KEY)
        return false;
    return nextSignificant(s, n + 1).type() == NAMESPACE_KEY;
}

std::int32_t Parser::balancedGroupEnd(Stream& s, std::int32_t open)
{
    const std::int32_t opening = peekAt(s, open).type();
    const std::int32_t closing = opening == LPAREN ? RPAREN : RBRACKET;
    int depth = 0;
    for (std::int32_t n = open;; ++n) {
        const std::int32_t type = peekAt(s, n).type();
        if (type == END_OF_FILE)
            return 0;
        if (type == opening)
            ++depth;
        else if (type == closing && --depth == 0)
            return n;
    }
}

// Braces ahead that close before a ",", a "." (of "...") or a "{".
bool Parser::bracedArgumentsAhead(Stream& s)
{
    int depth = 0;
    for (std::int32_t n = 1;; ++n) {
        const std::int32_t type = peekAt(s, n).type();
        if (type == END_OF_FILE)
            return false;
        if (type == LBRACE) {
            ++depth;
        } else if (type == RBRACE && --depth == 0) {
            const std::int32_t next = nextSignificant(s, n + 1).type();
            return next == COMMA || next == DOT || next == LBRACE;
        }
    }
}

// Gathers tokens through the first one of `type`.
bool Parser::gatherThrough(Stream& s, Gathered& g, std::int32_t type)
{
    for (;;) {
        const Trn::Token t = get(s);
        if (isEnd(t)) {
            report(1, t);
            return false;
        }
        g.append(t);
        if (t.type() == type)
            return true;
    }
}

// Phase 2: the rest of a function head, from its parameter list on.
bool Parser::gatherFunctionHead(Stream& s, Gathered& g)
{
    // `int (*f)(int)` is a function pointer declarator.
    if (!g.functionPointer && nextSignificant(s).type() == ASTERISK) {
        g.kind = DeclKind::DATA;
        g.functionPointer = true;
    }
    if (!gatherBalanced(s, g.tokens, LPAREN, RPAREN, 1))
        return false;
    g.prev = g.tokens.back();
    bool seenThrow = false;
    for (;;) {
        const Trn::Token t = get(s);
        // With the extensions: `const override {`, `noexcept -> int {`
        if (m_extended && !seenThrow && g.trailer.first == 0
            && ((t.type() == IDENTIFIER && !isInterruptWord(t)) || t.type() == AMPERSAND || t.type() == LOGICAL_AND
                || t.type() == ARROW)) {
            s.unget();
            if (gatherTrailer(s, g))
                continue;
            get(s);
        }
        switch (t.type()) {
        case PREPROC_DIRECTIVE:
        case LINE_COMMENT:
        case BLOCK_COMMENT: g.append(t); continue;
        // Constructor initialisers: `A() : b(1) {`
        case COLON: g.append(t); return gatherInitializers(s, g);
        // `void (f)(int)`, or a function returning a function pointer.
        case LPAREN:
            s.unget();
            g.kind = DeclKind::DATA;
            g.functionPointer = true;
            return true;
        case CONST_KEY:
        case VOLATILE_KEY: g.append(t); continue;
        case THROW_KEY: {
            seenThrow = true;
            g.append(t);
            const Trn::Token open = get(s);
            if (open.type() != LPAREN) {
                compose("Expected '(' as part of exception specification clause 'throw()'. Got: " + open.text(),
                        open);
                return false;
            }
            g.append(open);
            if (!gatherBalanced(s, g.tokens, LPAREN, RPAREN, 1))
                return false;
            g.prev = g.tokens.back();
            continue;
        }
        // `void f(void) interrupt 3 using 2`
        case IDENTIFIER:
            if (!isInterruptWord(t)) {
                s.unget();
                return true;
            }
            g.append(t);
            gatherInterruptTail(s, g);
            continue;
        default: s.unget(); return true;
        }
    }
}

// The words between a function's parameter list and its body, when the
// tokens ahead are such a run (see trailerLength): gathered, and their place
// noted in g.trailer.
bool Parser::gatherTrailer(Stream& s, Gathered& g)
{
    const std::int32_t length = trailerLength(s);
    if (length == 0)
        return false;
    for (std::int32_t i = 0; i < length; ++i) {
        const Trn::Token t = get(s);
        g.append(t);
        if (isDiscardable(t))
            continue;
        if (g.trailer.first == 0)
            g.trailer.first = g.tokens.size();
        g.trailer.last = g.tokens.size();
    }
    return true;
}

// The member initialisers up to the body's "{", which stays in the stream.
// With the extensions an initialiser's arguments may stand in braces,
// `A() : x{1}, Base<T>{2} {`: a "{" right behind an initialiser's name opens
// its arguments when a "," , "..." or the body's "{" follows its "}"; any
// other "{" is the body.
bool Parser::gatherInitializers(Stream& s, Gathered& g)
{
    bool afterName = false;
    for (;;) {
        const Trn::Token t = peekAt(s, 1);
        if (t.type() == LBRACE && m_extended && afterName && bracedArgumentsAhead(s)) {
            g.append(get(s));
            if (!gatherBalanced(s, g.tokens, LBRACE, RBRACE, 1))
                return false;
            afterName = false;
            continue;
        }
        if (t.type() == LBRACE)
            return true;
        if (t.type() == LPAREN && m_extended) {
            g.append(get(s));
            if (!gatherBalanced(s, g.tokens, LPAREN, RPAREN, 1))
                return false;
            afterName = false;
            continue;
        }
        if (!isDiscardable(t))
            afterName = t.type() == IDENTIFIER || t.type() == GREATER_THAN || t.type() == RIGHT_SHIFT;
        if (t.type() == PREPROC_DIRECTIVE) {
            delete parseDirective(s);
            continue;
        }
        if (isEnd(t)) {
            get(s);
            report(1, t);
            return false;
        }
        g.append(get(s));
    }
}

// The compiler extension tail `interrupt n using n`, up to "{" or ";".
void Parser::gatherInterruptTail(Stream& s, Gathered& g)
{
    for (;;) {
        const Trn::Token t = peekAt(s, 1);
        if (t.type() == LBRACE || t.type() == SEMICOLON || t.type() == END_OF_FILE)
            return;
        get(s);
        const std::int32_t type = t.type();
        if (type != PREPROC_DIRECTIVE && type != NUMBER_LITERAL && type != USING_KEY && !isComment(t)
            && type != IDENTIFIER)
            report(15, t);
        g.append(t);
    }
}

// Phase 3 of a function: what may follow the head. Every token taken is
// gathered; the one that stops the gathering stays in the stream too, except
// a token that cannot follow a head at all, which is taken out of the list.
void Parser::gatherFunctionRest(Stream& s, Gathered& g, bool& stoppedAtComma)
{
    for (;;) {
        const Trn::Token t = get(s);
        g.tokens.push_back(t);
        switch (t.type()) {
        case SEMICOLON:
        case PUBLIC_KEY:
        case PRIVATE_KEY:
        case PROTECTED_KEY:
        case LBRACE:
        case END_OF_FILE:
        case INVALID_TOKEN: s.unget(); return;
        // `int f(), g();`
        case COMMA:
            if (g.prev.type() != OPERATOR_KEY) {
                s.unget();
                stoppedAtComma = true;
                return;
            }
            break;
        case EQUALS: {
            // `virtual void f() = 0;` keeps its pure specifier, and with the
            // extensions `A() = default;` and `A(const A&) = delete;` theirs.
            const Trn::Token next = peekAt(s, 1);
            if (isPureSpecifier(next)) {
                g.tokens.push_back(get(s));
                g.prev = next;
                continue;
            }
            s.unget();
            report(2, t);
            return;
        }
        // `MACRO(x) int y;`: the head was a function-like macro.
        default:
            g.removeLast();
            s.unget();
            report(2, t);
            return;
        }
        if (!isDiscardable(t))
            g.prev = t;
    }
}

// What may follow the "=" behind a function's head: `0`, and with the
// extensions `default` and `delete`.
bool Parser::isPureSpecifier(const Trn::Token& t) const
{
    if (t.type() == NUMBER_LITERAL && t.text() == "0")
        return true;
    return m_extended && (t.type() == DEFAULT_KEY || t.type() == DELETE_KEY);
}

// Phase 3 of data: the tokens up to a ";", an access keyword or the end of
// input, with comments and directives taken out between them (outside
// braces, with the extensions). The list ends
// with a copy of the token that stopped it, which stays in the stream: the
// declaration's node then reaches its semicolon, as a statement's does.
void Parser::gatherDataRest(Stream& s, Gathered& g)
{
    int braces = 0;
    for (;;) {
        skipDiscardable(s);
        const Trn::Token t = peekAt(s, 1);
        // With the extensions, braces are counted: a ";" inside them, as in a
        // lambda's body, ends nothing, and a "}" of the enclosing body ends
        // the declaration, which then has no semicolon.
        if (m_extended) {
            if (t.type() == LBRACE) {
                ++braces;
            } else if (t.type() == RBRACE) {
                if (braces == 0)
                    return;
                --braces;
            } else if (braces > 0 && !isEnd(t)) {
                g.tokens.push_back(get(s));
                continue;
            }
        }
        if (t.type() == SEMICOLON || isAccessKey(t.type()) || isEnd(t)) {
            g.tokens.push_back(t);
            return;
        }
        g.tokens.push_back(get(s));
    }
}

// Phase 3 of a class or enum: the body through its matching "}".
bool Parser::gatherBody(Stream& s, Gathered& g)
{
    int depth = 1; // the "{" is already gathered
    for (;;) {
        const Trn::Token t = get(s);
        if (t.type() == END_OF_FILE) {
            report(1, t);
            return false;
        }
        g.tokens.push_back(t);
        if (t.type() == LBRACE)
            ++depth;
        else if (t.type() == RBRACE && --depth == 0)
            return true;
    }
}

// ---------------------------------------------------------------------------
// Directives and comments.

// A directive, or a whole `#if 0` ... `#endif` block with nested conditionals
// counted, as one verbatim span.
PreprocDirectiveNode* Parser::parseDirective(Stream& s)
{
    const Trn::Token first = get(s);
    if (!withoutWhiteSpace(first.text()).starts_with("#if0"))
        return new PreprocDirectiveNode(first.start(), first.end());
    int depth = 1;
    for (;;) {
        const Trn::Token t = get(s);
        if (t.type() == END_OF_FILE) {
            report(1, t);
            return nullptr;
        }
        if (t.type() != PREPROC_DIRECTIVE)
            continue;
        const std::string text = withoutWhiteSpace(t.text());
        if (text.starts_with("#if"))
            ++depth;
        else if (text.starts_with("#endif") && --depth == 0)
            return new PreprocDirectiveNode(first.start(), t.end());
    }
}

// A comment, or a region from a comment reading exactly "TIDEWRIGHT-OFF" to
// the matching "TIDEWRIGHT-ON", nested, as one protected comment.
CommentNode* Parser::parseComment(Stream& s)
{
    const Trn::Token first = get(s);
    if (!isComment(first)) {
        compose("Expected '// or /*'. Got: " + first.text(), first);
        return nullptr;
    }
    if (commentWords(first) != OFF_MARKER)
        return new CommentNode(first.text(), first.start(), first.end());
    int depth = 1;
    for (;;) {
        const Trn::Token t = get(s);
        if (t.type() == END_OF_FILE) {
            report(1, t);
            return nullptr;
        }
        if (!isComment(t))
            continue;
        const std::string words = commentWords(t);
        if (words == OFF_MARKER)
            ++depth;
        else if (words == ON_MARKER && --depth == 0)
            return new CommentNode(std::string(), first.start(), t.end(), true);
    }
}

// ---------------------------------------------------------------------------
// Stream helpers.

Trn::Token Parser::get(Stream& s)
{
    Trn::Token t = s.get();
    if (!t.start().isNull())
        m_lastPosition = t.start();
    return t;
}

Trn::Token Parser::peekAt(Stream& s, std::int32_t n)
{
    // Over a list the answer is read in place; it is the one peek(n) gives.
    if (s.overList())
        return s.peekInList(n);
    return s.peek(n);
}

void Parser::skipDiscardable(Stream& s)
{
    for (;;) {
        const std::int32_t type = peekAt(s, 1).type();
        if (type == PREPROC_DIRECTIVE)
            delete parseDirective(s);
        else if (type == LINE_COMMENT || type == BLOCK_COMMENT)
            delete parseComment(s);
        else
            return;
    }
}

void Parser::collectDiscardable(Stream& s, InteriorNode& node)
{
    for (;;) {
        const std::int32_t type = peekAt(s, 1).type();
        if (type == PREPROC_DIRECTIVE)
            node.add(parseDirective(s));
        else if (type == LINE_COMMENT || type == BLOCK_COMMENT)
            node.add(parseComment(s));
        else
            return;
    }
}

Trn::Token Parser::nextSignificant(Stream& s, std::int32_t from)
{
    for (std::int32_t n = from;; ++n) {
        const Trn::Token t = peekAt(s, n);
        if (t.type() == PREPROC_DIRECTIVE)
            continue;
        if (!isComment(t))
            return t;
        if (commentWords(t) != OFF_MARKER)
            continue;
        // Skip on to the matching "TIDEWRIGHT-ON".
        for (int depth = 1; depth > 0;) {
            const Trn::Token u = peekAt(s, ++n);
            if (u.type() == END_OF_FILE) {
                report(1, u);
                return u;
            }
            if (!isComment(u))
                continue;
            const std::string words = commentWords(u);
            if (words == OFF_MARKER)
                ++depth;
            else if (words == ON_MARKER)
                --depth;
        }
    }
}

void Parser::skipTo(Stream& s, std::int32_t type)
{
    for (;;) {
        const Trn::Token t = peekAt(s, 1);
        if (t.type() == END_OF_FILE) {
            report(1, t);
            return;
        }
        if (t.type() == PREPROC_DIRECTIVE) {
            delete parseDirective(s);
            continue;
        }
        get(s);
        if (t.type() == type)
            return;
    }
}

void Parser::skipToCollecting(Stream& s, InteriorNode& node, std::int32_t type)
{
    for (;;) {
        const Trn::Token t = peekAt(s, 1);
        if (t.type() == END_OF_FILE) {
            report(1, t);
            return;
        }
        if (t.type() == PREPROC_DIRECTIVE) {
            node.add(parseDirective(s));
            continue;
        }
        if (isComment(t)) {
            node.add(parseComment(s));
            continue;
        }
        get(s);
        if (t.type() == type)
            return;
    }
}

Trn::Position Parser::skipToSemicolon(Stream& s)
{
    for (;;) {
        const Trn::Token t = get(s);
        if (t.type() == SEMICOLON)
            return t.end();
        if (isEnd(t)) {
            report(1, t);
            return t.start();
        }
    }
}

bool Parser::gatherUntil(Stream& s, TokenList& list, std::int32_t type)
{
    for (;;) {
        const Trn::Token t = get(s);
        list.push_back(t);
        if (t.type() == type)
            return true;
        if (t.type() == END_OF_FILE)
            return false;
    }
}

void Parser::gatherStatement(Stream& s, TokenList& list)
{
    int depth = 0;
    // With the extensions, semicolons inside braces end nothing:
    // `auto f = [](int x) { return x; };`
    int braces = 0;
    for (;;) {
        const Trn::Token t = get(s);
        list.push_back(t);
        switch (t.type()) {
        case SEMICOLON:
            if (depth == 0 && braces == 0)
                return;
            break;
        case LPAREN: ++depth; break;
        case RPAREN:
            if (depth > 0)
                --depth;
            break;
        case LBRACE:
            if (m_extended)
                ++braces;
            break;
        case RBRACE:
            if (braces > 0)
                --braces;
            break;
        case PUBLIC_KEY:
        case PRIVATE_KEY:
        case PROTECTED_KEY:
            if (depth == 0) {
                s.unget();
                return;
            }
            break;
        case END_OF_FILE:
        case INVALID_TOKEN: return;
        default: break;
        }
    }
}

bool Parser::gatherBalanced(Stream& s, TokenList& list, std::int32_t open, std::int32_t close, int depth)
{
    for (;;) {
        const Trn::Token t = get(s);
        if (isEnd(t)) {
            report(1, t);
            return false;
        }
        list.push_back(t);
        if (t.type() == open)
            ++depth;
        else if (t.type() == close && --depth <= 0)
            return true;
    }
}

// ---------------------------------------------------------------------------
// Messages and progress.

Trn::Position Parser::placeOf(const Trn::Token& token) const
{
    // The end-of-file token of a list has no position: the last token taken
    // stands for it.
    return token.start().isNull() ? m_lastPosition : token.start();
}

void Parser::report(std::int32_t code, const Trn::Token& at)
{
    report(code, placeOf(at));
}

// Once nesting has gone too deep, or a reading that stops at its first fault
// has one, the parse only unwinds: what the routines on the way out would
// report follows from that one fault and is not told.
void Parser::report(std::int32_t code, const Trn::Position& at)
{
    if (stopping())
        return;
    m_messages.push_back(Trn::FormatMessage::coded(code, at));
    m_faulted = m_stopAtFault && code != 2;
}

void Parser::compose(const std::string& text, const Trn::Token& at)
{
    if (stopping())
        return;
    m_messages.push_back(Trn::FormatMessage::composed(text, placeOf(at)));
    m_faulted = m_stopAtFault;
}

void Parser::reportTooDeep(const Trn::Token& at)
{
    if (stopping())
        return;
    m_messages.push_back(Trn::FormatMessage::composed(tooDeepText(), placeOf(at)));
    m_tooDeep = true;
}

std::string Parser::tooDeepText()
{
    return "nesting deeper than " + std::to_string(MAX_NESTING) + " levels is not supported";
}

void Parser::ensureProgress(Stream& s, const Trn::Token& before)
{
    const Trn::Token now = peekAt(s, 1);
    if (now.type() != END_OF_FILE && now.type() == before.type() && now.start() == before.start()
        && now.text() == before.text())
        get(s);
}

} // namespace Cpp
