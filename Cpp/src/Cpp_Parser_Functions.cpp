// The parser's routines for functions: the head, found in a gathered list by
// first finding the "(" of the parameter list and then looking back at what
// stands before it; parameter lists (also those of templates); member
// initialisers; qualifiers.
#include "Cpp_Parser.h"

#include "Cpp_Nodes.h"
#include "Cpp_ParserSupport.h"
#include "Trn_TokenStream.h"

#include <memory>

namespace Cpp {

using namespace ParserSupport;

// Where the name of a function lies in its head list: indices counted from 1,
// as peek(n) counts them.
struct Parser::FunctionName {
    std::size_t first = 0;
    std::size_t last = 0;
};

namespace {

const Trn::Token& endOfList()
{
    static const Trn::Token EOF_TOKEN;
    return EOF_TOKEN;
}

// The token peek(i) gives on a fresh stream over the list.
const Trn::Token& at(const std::vector<Trn::Token>& list, std::size_t i)
{
    return i >= 1 && i <= list.size() ? list[i - 1] : endOfList();
}

// The index of the token before i that is neither comment nor directive; 0
// when there is none.
std::size_t previousSignificant(const std::vector<Trn::Token>& list, std::size_t i)
{
    while (i > 1) {
        --i;
        if (!isDiscardable(at(list, i)))
            return i;
    }
    return 0;
}

// The last OPERATOR_KEY at or before i, or 0.
std::size_t operatorKeyBack(const std::vector<Trn::Token>& list, std::size_t i)
{
    for (; i >= 1; --i)
        if (at(list, i).type() == OPERATOR_KEY)
            return i;
    return 0;
}

// Tokens that end the name of an overloaded operator: `operator+`.
bool isOperatorSymbol(std::int32_t type)
{
    switch (type) {
    case COMMA:
    case EQUALS:
    case ASTERISK:
    case AMPERSAND:
    case SLASH:
    case PLUS:
    case MINUS:
    case NOT:
    case TILDE:
    case ARROW:
    case PLUS_PLUS:
    case MINUS_MINUS:
    case PERCENT:
    case LEFT_SHIFT:
    case RIGHT_SHIFT:
    case LESS_THAN:
    case QUESTION:
    case ARROW_STAR:
    case NEW_KEY:
    case DELETE_KEY: return true;
    default: return type >= LESS_EQUALS && type <= LOGICAL_OR;
    }
}

// Walking back from the ">" (or with `extended` the ">>") at `close`: the
// index of the "<" that balances it, or 0.
std::size_t openingAngle(const std::vector<Trn::Token>& list, std::size_t close, bool extended)
{
    std::size_t open = close;
    for (int depth = 0; open >= 1; --open) {
        const std::int32_t t = at(list, open).type();
        if (t == GREATER_THAN)
            ++depth;
        else if (t == RIGHT_SHIFT && extended)
            depth += 2;
        else if (t == LESS_THAN && --depth == 0)
            break;
    }
    return open;
}

bool isNameToken(const Trn::Token& t)
{
    const std::int32_t type = t.type();
    return type == IDENTIFIER || type == OPERATOR_KEY || type == NEW_KEY || type == DELETE_KEY;
}

// The texts of a function's name joined with single blanks; a piece of a
// qualification ("::operator", "A::") joins its neighbour without one, so that
// `A::operator+` reads "A::operator +".
std::string joinName(const std::vector<Trn::Token>& list, std::size_t first, std::size_t last)
{
    std::string text;
    for (std::size_t i = first; i <= last; ++i) {
        const Trn::Token& t = at(list, i);
        if (isDiscardable(t))
            continue;
        if (!text.empty() && !t.text().starts_with("::") && !text.ends_with("::"))
            text += ' ';
        text += t.text();
    }
    return text;
}

} // namespace

// ---------------------------------------------------------------------------
// Functions.

FunctionDeclNode* Parser::parseFunction(const TokenList& headList, Stream& main, const Trailer& trailer)
{
    Stream head(headList);
    std::unique_ptr<FunctionHeadNode> functionHead(parseFunctionHead(headList, head, trailer));
    // `A::A() : b(1), c(2, 3) { }`
    std::unique_ptr<InitializerListNode> initializers;
    if (functionHead && nextSignificant(head).type() == COLON) {
        skipDiscardable(head);
        get(head);
        initializers.reset(parseInitializerList(head));
    }
    std::unique_ptr<BlockNode> block;
    const Trn::Token next = peekAt(main, 1);
    if (isDiscardable(next) && nextSignificant(main).type() == LBRACE) {
        skipDiscardable(main);
        block.reset(parseBlock(main));
    } else if (next.type() == LBRACE) {
        block.reset(parseBlock(main));
    }
    if (!functionHead)
        return nullptr;
    if (initializers)
        return new CtorDeclNode(functionHead.release(), block.release(), initializers.release());
    return new FunctionDeclNode(functionHead.release(), block.release());
}

FunctionHeadNode* Parser::parseFunctionHead(const TokenList& list, Stream& head, const Trailer& trailer)
{
    // Step 1: find the "(" of the parameter list, and the head's end.
    Trn::Token prev;
    int paren = 0;
    int angle = 0;
    bool seenOperator = false;
    bool seenThrow = false;
    bool foundParen = false;
    std::size_t parenIndex = 1;
    Trn::Position headEnd;
    for (std::size_t i = 1;; ++i) {
        const Trn::Token& t = at(list, i);
        if (isDiscardable(t))
            continue;
        bool stop = false;
        switch (t.type()) {
        case SEMICOLON:
            if (paren == 0) {
                headEnd = t.end();
                stop = true;
            }
            break;
        case COLON:
        case LBRACE: stop = paren == 0; break;
        // `int f(), g();` ends the first head at the comma.
        case COMMA:
            if (paren == 0 && angle == 0 && prev.type() != OPERATOR_KEY) {
                headEnd = t.start();
                stop = true;
            }
            break;
        case LPAREN:
            // The "()" of `operator()` is stepped over.
            if (seenOperator && prev.type() == OPERATOR_KEY) {
                if (at(list, i + 1).type() != RPAREN) {
                    compose("Expected ')'. As part of overloaded function call operator.", at(list, i + 1));
                    return nullptr;
                }
                ++i;
                seenOperator = false;
                prev = at(list, i);
                continue;
            }
            // Parentheses behind the parameter list, `noexcept(true)`, are
            // not the list.
            if (!seenThrow && paren == 0 && (trailer.first == 0 || i < trailer.first)) {
                foundParen = true;
                parenIndex = i;
            }
            ++paren;
            break;
        case RPAREN:
            if (paren > 0)
                --paren;
            break;
        case LESS_THAN:
            if (prev.type() != OPERATOR_KEY)
                ++angle;
            break;
        case GREATER_THAN:
            if (prev.type() != OPERATOR_KEY && angle > 0)
                --angle;
            break;
        case RIGHT_SHIFT:
            if (closesTwoAngles(prev.type(), angle))
                angle -= 2;
            break;
        case OPERATOR_KEY: seenOperator = true; break;
        case THROW_KEY: seenThrow = true; break;
        case END_OF_FILE:
        case INVALID_TOKEN:
            if (!foundParen) {
                report(1, t);
                return nullptr;
            }
            stop = true;
            break;
        default: break;
        }
        if (stop)
            break;
        prev = t;
    }

    // Step 2: the name, from what stands before the "(".
    FunctionName name;
    if (!findFunctionName(list, parenIndex, name))
        return nullptr;
    auto id = std::make_unique<IdNode>(joinName(list, name.first, name.last), at(list, name.first).start(),
                                       at(list, name.last).end());

    // Step 3: the return type, without leading and trailing comments and directives.
    std::unique_ptr<FunctionReturnNode> returnType;
    std::size_t typeFirst = 1;
    std::size_t typeLast = name.first - 1;
    while (typeFirst <= typeLast && isDiscardable(at(list, typeFirst)))
        ++typeFirst;
    while (typeLast >= typeFirst && typeLast >= 1 && isDiscardable(at(list, typeLast)))
        --typeLast;
    if (typeFirst <= typeLast && typeLast >= 1)
        returnType = std::make_unique<FunctionReturnNode>(at(list, typeFirst).start(), at(list, typeLast).end());

    // Step 4: the parameter list.
    for (std::size_t i = 1; i <= name.last; ++i)
        get(head);
    skipDiscardable(head);
    // With the later extensions, an attribute between the name and the list
    // lies between their nodes: `operator() [[nodiscard]] (T&& x)`.
    while (m_later && peekAt(head, 1).type() == LBRACKET && peekAt(head, 2).type() == LBRACKET) {
        TokenList attribute;
        if (!gatherBalanced(head, attribute, LBRACKET, RBRACKET, 0))
            return nullptr;
        skipDiscardable(head);
    }
    std::unique_ptr<ParameterListNode> parameters;
    if (peekAt(head, 1).type() == LPAREN) {
        parameters.reset(parseParameterList(head, false));
        if (!parameters)
            return nullptr;
    }

    // Step 5: `const`, `volatile`, `interrupt 3 using 2`, and with the
    // extensions the words up to the body: `const noexcept override`.
    skipDiscardable(head);
    std::unique_ptr<TextNode> qualifiers;
    const Trn::Token next = peekAt(head, 1);
    if (next.type() == CONST_KEY || next.type() == VOLATILE_KEY || isInterruptWord(next) || trailer.first != 0)
        qualifiers.reset(parseQualifiers(head, trailer));

    // Step 6: `throw(...)`.
    skipDiscardable(head);
    std::unique_ptr<ExprNode> exceptionSpec;
    if (peekAt(head, 1).type() == THROW_KEY) {
        exceptionSpec.reset(parseExceptionSpec(head));
        if (!exceptionSpec)
            return nullptr;
    }

    // Step 7: `= 0`, and with the extensions `= default` and `= delete`.
    skipDiscardable(head);
    std::unique_ptr<ExprNode> pureSpec;
    if (peekAt(head, 1).type() == EQUALS)
        pureSpec.reset(parsePureSpec(head));

    // Step 8.
    auto node = new FunctionHeadNode(returnType.release(), id.release(), parameters.release(), qualifiers.release(),
                                     exceptionSpec.release(), pureSpec.release());
    if (!headEnd.isNull())
        node->setEnd(headEnd);
    return node;
}

bool Parser::findFunctionName(const TokenList& list, std::size_t parenIndex, FunctionName& name)
{
    std::size_t end = parenIndex - 1;
    while (end >= 1 && isDiscardable(at(list, end)))
        --end;
    if (end < 1) {
        compose("Expected function name. Got: " + at(list, parenIndex).text(), at(list, parenIndex));
        return false;
    }
    // With the later extensions an attribute may stand between the name and
    // the parameter list: `operator() [[nodiscard]] (T&& x)`.
    if (m_later)
        end = beforeAttributes(list, end);
    if (end < 1) {
        compose("Expected function name. Got: " + at(list, parenIndex).text(), at(list, parenIndex));
        return false;
    }
    name.first = name.last = end;
    const Trn::Token& last = at(list, end);
    const std::int32_t type = last.type();
    // `extern "C" ("...")`-like heads: the literal is the id.
    if (type == STRING_LITERAL)
        return true;
    // With the extensions a ">>" that no `operator` precedes closes two
    // template argument lists: `f<A<int>>(x)`.
    const bool closesTwo = type == RIGHT_SHIFT && m_extended && operatorKeyBack(list, end - 1) == 0;
    if (isOperatorSymbol(type) && !closesTwo)
        return findOperatorName(list, name);
    // `operator()`
    if (type == RPAREN) {
        const std::size_t open = previousSignificant(list, end);
        if (open == 0 || at(list, open).type() != LPAREN) {
            compose("Expected (.", at(list, open == 0 ? end : open));
            return false;
        }
        const std::size_t keyword = previousSignificant(list, open);
        if (keyword == 0 || at(list, keyword).type() != OPERATOR_KEY) {
            const Trn::Token& got = at(list, keyword == 0 ? open : keyword);
            compose("Expected \"operator\". Got: " + got.text(), got);
            return false;
        }
        name.first = keyword;
        extendName(list, name);
        return true;
    }
    // `operator[]`, `operator new[]`
    if (type == RBRACKET) {
        const std::size_t open = previousSignificant(list, end);
        if (open == 0 || at(list, open).type() != LBRACKET) {
            compose("Expected [.", at(list, open == 0 ? end : open));
            return false;
        }
        std::size_t keyword = previousSignificant(list, open);
        const std::int32_t before = at(list, keyword).type();
        if (keyword != 0 && (before == NEW_KEY || before == DELETE_KEY)) {
            const std::size_t key = previousSignificant(list, keyword);
            if (key != 0 && at(list, key).type() == OPERATOR_KEY)
                keyword = key;
        }
        const std::int32_t found = at(list, keyword).type();
        if (keyword == 0 || (found != OPERATOR_KEY && found != IDENTIFIER)) {
            const Trn::Token& got = at(list, keyword == 0 ? open : keyword);
            compose("Expected \"operator\". Got: " + got.text(), got);
            return false;
        }
        name.first = keyword;
        extendName(list, name);
        return true;
    }
    // `operator>`, or a template's arguments: `foo<int>(x)`, and with the
    // extensions `foo<A<int>>(x)`.
    if (type == GREATER_THAN || closesTwo) {
        if (const std::size_t keyword = operatorKeyBack(list, end - 1)) {
            name.first = keyword;
            extendName(list, name);
            return true;
        }
        const std::size_t open = openingAngle(list, end, m_extended);
        if (open < 1) {
            compose("Expected \"<\".", last);
            return false;
        }
        const std::size_t templateName = previousSignificant(list, open);
        name.first = templateName != 0 ? templateName : open;
        extendName(list, name);
        return true;
    }
    // A name, or the type of a conversion operator: `operator int`.
    if (type == CONST_KEY || isBuiltInType(type) || type == IDENTIFIER) {
        if (const std::size_t keyword = operatorKeyBack(list, end - 1))
            name.first = keyword;
        extendName(list, name);
        return true;
    }
    compose("Expected function name. Got: " + last.text(), last);
    return false;
}

// The index of the last token before the attributes `[[...]]` that end at
// `end`, or `end` when none ends there; 0 when nothing stands before them.
std::size_t Parser::beforeAttributes(const TokenList& list, std::size_t end)
{
    while (end >= 2 && at(list, end).type() == RBRACKET) {
        const std::size_t inner = previousSignificant(list, end);
        if (inner == 0 || at(list, inner).type() != RBRACKET)
            return end;
        std::size_t open = end;
        for (int depth = 0; open >= 1; --open) {
            const std::int32_t type = at(list, open).type();
            if (type == RBRACKET)
                ++depth;
            else if (type == LBRACKET && --depth == 0)
                break;
        }
        if (open < 1 || at(list, open + 1).type() != LBRACKET)
            return end;
        end = previousSignificant(list, open);
    }
    return end;
}

// The name ends in an operator symbol: it begins at the "operator" before it.
bool Parser::findOperatorName(const TokenList& list, FunctionName& name)
{
    const Trn::Token& symbol = at(list, name.last);
    if (name.last == 1 && (symbol.type() == ASTERISK || symbol.type() == AMPERSAND)) {
        compose("Could not recognize overloaded operator.", symbol);
        return false;
    }
    const std::size_t keyword = operatorKeyBack(list, name.last);
    if (keyword == 0) {
        compose("Expected \"operator\". Got: " + symbol.text(), symbol);
        return false;
    }
    name.first = keyword;
    extendName(list, name);
    return true;
}

// Steps back over the qualification before a name that the lexer delivered in
// pieces: `A` before "::operator", `A<B>` before "::f". It never crosses a
// token outside angle brackets that is not a name.
void Parser::extendName(const TokenList& list, FunctionName& name)
{
    for (;;) {
        const std::size_t before = previousSignificant(list, name.first);
        if (before == 0)
            return;
        const Trn::Token& current = at(list, name.first);
        const Trn::Token& previous = at(list, before);
        const bool closesAngle
            = previous.type() == GREATER_THAN || (previous.type() == RIGHT_SHIFT && m_extended);
        if (closesAngle && isQualifiedName(current) && current.text().starts_with("::")) {
            const std::size_t open = openingAngle(list, before, m_extended);
            const std::size_t templateName = open >= 1 ? previousSignificant(list, open) : 0;
            if (templateName == 0 || !isNameToken(at(list, templateName)))
                return;
            name.first = templateName;
            continue;
        }
        if (!isQualifiedName(previous) && !isQualifiedName(current))
            return;
        if (!isNameToken(previous))
            return;
        name.first = before;
    }
}

ExprNode* Parser::parseExceptionSpec(Stream& head)
{
    const Trn::Token keyword = get(head);
    skipDiscardable(head);
    const Trn::Token open = get(head);
    if (open.type() != LPAREN) {
        compose("Expected '(' as part of a 'throw()' clause. Got: " + open.text(), open);
        return nullptr;
    }
    for (int depth = 1;;) {
        const Trn::Token t = get(head);
        if (isEnd(t)) {
            report(1, t);
            return nullptr;
        }
        if (t.type() == LPAREN)
            ++depth;
        else if (t.type() == RPAREN && --depth == 0)
            return new ExprNode(keyword.start(), t.end());
    }
}

ExprNode* Parser::parsePureSpec(Stream& head)
{
    const Trn::Token equals = get(head);
    skipDiscardable(head);
    const Trn::Token zero = get(head);
    if (isPureSpecifier(zero))
        return new ExprNode(equals.start(), zero.end());
    compose("Expected '= 0' to indicate a pure virtual function. Got: " + zero.text(), zero);
    head.putBack(zero);
    head.putBack(equals);
    return nullptr;
}

// `const volatile`, then the extension tail `interrupt 3 using 2`, or the
// words up to the body that `trailer` marks in a gathered head, as one span.
TextNode* Parser::parseQualifiers(Stream& s, const Trailer& trailer)
{
    bool any = false;
    Trn::Position begin;
    Trn::Position end;
    auto take = [&](const Trn::Token& t) {
        if (!any)
            begin = t.start();
        any = true;
        end = t.end();
    };
    for (;;) {
        const Trn::Token t = peekAt(s, 1);
        if (t.type() == CONST_KEY || t.type() == VOLATILE_KEY)
            take(get(s));
        else if (t.type() == PREPROC_DIRECTIVE)
            delete parseDirective(s);
        else if (isComment(t))
            delete parseComment(s);
        else
            break;
    }
    // The stream is over the gathered head: its index counts the list from 0.
    if (trailer.first != 0) {
        while (s.index() >= 0 && static_cast<std::size_t>(s.index()) < trailer.last) {
            const Trn::Token t = get(s);
            if (!isDiscardable(t))
                take(t);
        }
        return any ? new TextNode(begin, end) : nullptr;
    }
    if (isInterruptWord(peekAt(s, 1))) {
        take(get(s));
        for (;;) {
            const std::int32_t type = peekAt(s, 1).type();
            if (type != NUMBER_LITERAL && type != USING_KEY && type != IDENTIFIER)
                break;
            take(get(s));
        }
    }
    return any ? new TextNode(begin, end) : nullptr;
}

// ---------------------------------------------------------------------------
// The words between a parameter list and a body (with the extensions).

namespace {

// Words of a trailing return type after "->": `-> const std::string&`
bool isTypeWord(std::int32_t type)
{
    switch (type) {
    case IDENTIFIER:
    case CONST_KEY:
    case VOLATILE_KEY:
    case TYPENAME_KEY:
    case AUTO_KEY:
    case SIGNED_KEY:
    case UNSIGNED_KEY:
    case CLASS_KEY:
    case STRUCT_KEY:
    case UNION_KEY:
    case ENUM_KEY:
    case ASTERISK:
    case AMPERSAND:
    case LOGICAL_AND: return true;
    default: return isBuiltInType(type);
    }
}

} // namespace

// How many tokens ahead form the words between a function's parameter list
// (and its `const` or `volatile`) and its body; 0 when the tokens ahead are no
// such run. The run begins with a name, "&", "&&" or "->" and holds names,
// each with its parenthesised or angle-bracketed arguments (`noexcept(true)`,
// `MACRO(x)`, `requires C<T>`), "&", "&&", `const`, `volatile`, and "->" with
// a type. It must end before "{", before ":" that a member initialiser
// follows, or before "=" that `0`, `default` or `delete` follows: so that
// `MACRO(x) T y;` stays a macro and a declaration.
std::int32_t Parser::trailerLength(Stream& s)
{
    bool any = false;
    bool inType = false;       // behind "->"
    bool inConstraint = false; // behind `requires`
    for (std::int32_t n = 1;; ++n) {
        const Trn::Token t = peekAt(s, n);
        const std::int32_t type = t.type();
        if (isDiscardable(t))
            continue;
        switch (type) {
        case LBRACE: return any ? n - 1 : 0;
        case COLON: return any && initializerAhead(s, n + 1) ? n - 1 : 0;
        case EQUALS: return any && specifierAhead(s, n + 1) ? n - 1 : 0;
        case ARROW: inType = true; break;
        case IDENTIFIER:
            if (isInterruptWord(t))
                return 0;
            if (t.text() == "requires")
                inConstraint = true;
            break;
        case CONST_KEY:
        case VOLATILE_KEY:
        case AMPERSAND:
        case LOGICAL_AND:
            break;
        case LPAREN:
        case LESS_THAN:
            if (!any)
                return 0;
            n = balancedEnd(s, n);
            if (n == 0)
                return 0;
            break;
        default:
            if (any && ((inType && isTypeWord(type))
                        || (inConstraint && (type == NOT || type == LOGICAL_OR || type == TRUE_KEY
                                             || type == FALSE_KEY))))
                break;
            return 0;
        }
        any = true;
    }
}

// The index of the ")" or ">" that closes the "(" or "<" at peek index
// `open`, or 0. Parentheses inside angle brackets are counted, so that a ">"
// in them closes nothing; a ">>" closes two angle brackets.
std::int32_t Parser::balancedEnd(Stream& s, std::int32_t open)
{
    const bool angled = peekAt(s, open).type() == LESS_THAN;
    int paren = angled ? 0 : 1;
    int angle = angled ? 1 : 0;
    for (std::int32_t n = open + 1;; ++n) {
        switch (peekAt(s, n).type()) {
        case END_OF_FILE: return 0;
        case LPAREN: ++paren; break;
        case RPAREN:
            if (--paren < 0)
                return 0;
            break;
        case LESS_THAN:
            if (paren == 0)
                ++angle;
            break;
        case GREATER_THAN:
            if (paren == 0)
                --angle;
            break;
        case RIGHT_SHIFT:
            if (paren == 0)
                angle -= 2;
            break;
        case SEMICOLON:
        case LBRACE:
        case RBRACE:
            if (angled && paren == 0)
                return 0;
            break;
        default: break;
        }
        if (paren == 0 && angle == 0)
            return n;
        if (angle < 0)
            return 0;
    }
}

// A member initialiser at peek index `n`: a name, then "(", "{" or "<".
bool Parser::initializerAhead(Stream& s, std::int32_t n)
{
    const Trn::Token name = nextSignificant(s, n);
    if (name.type() != IDENTIFIER)
        return false;
    std::int32_t at = n;
    while (peekAt(s, at).start() != name.start() || peekAt(s, at).type() != IDENTIFIER)
        ++at;
    const std::int32_t next = nextSignificant(s, at + 1).type();
    return next == LPAREN || next == LBRACE || next == LESS_THAN;
}

// `0`, `default` or `delete` at peek index `n`, behind an "=".
bool Parser::specifierAhead(Stream& s, std::int32_t n)
{
    const Trn::Token t = nextSignificant(s, n);
    return (t.type() == NUMBER_LITERAL && t.text() == "0") || t.type() == DEFAULT_KEY || t.type() == DELETE_KEY;
}

// ---------------------------------------------------------------------------
// Parameter lists.

// `(int a, char* b)`, or in template mode `<class T, int N>`. Each parameter
// is a span; a directive or comment between parameters is a child of the
// list, one inside a parameter is part of its span.
ParameterListNode* Parser::parseParameterList(Stream& s, bool templateMode)
{
    const std::int32_t open = templateMode ? LESS_THAN : LPAREN;
    const std::int32_t close = templateMode ? GREATER_THAN : RPAREN;
    skipDiscardable(s);
    const Trn::Token first = get(s);
    if (first.type() != open) {
        compose(std::string("Expected '") + (templateMode ? "<" : "(") + "' Got: " + first.text(), first);
        s.unget();
        return nullptr;
    }
    auto list = std::make_unique<ParameterListNode>();
    list->setBegin(first.start());
    int depth = 1;
    int angle = 0;
    int parens = 0; // in template mode, with the later extensions
    std::int32_t previous = first.type(); // the last token other than a comment or directive
    bool inParameter = false;
    bool complex = false;
    Trn::Position parameterBegin;
    Trn::Position parameterEnd;
    // A parameter begins with the first token that extends it.
    auto extend = [&](const Trn::Position& b, const Trn::Position& e) {
        if (!inParameter)
            parameterBegin = b;
        inParameter = true;
        parameterEnd = e;
    };
    auto addParameter = [&] {
        if (inParameter)
            list->add(new ParameterNode(complex, parameterBegin, parameterEnd));
        inParameter = false;
        complex = false;
    };
    for (;;) {
        const Trn::Token t = get(s);
        const std::int32_t type = t.type();
        if (isDiscardable(t)) {
            s.unget();
            std::unique_ptr<SyntaxNode> node(type == PREPROC_DIRECTIVE ? static_cast<SyntaxNode*>(parseDirective(s))
                                                                       : parseComment(s));
            if (!node)
                continue;
            if (depth == 1 && angle == 0 && !inParameter)
                list->add(node.release());
            else
                extend(node->begin(), node->end());
            continue;
        }
        if (type == COMMA && depth == 1 && angle == 0) {
            addParameter();
            continue;
        }
        const std::int32_t before = previous;
        previous = type;
        // With the later extensions, angle brackets inside parentheses in a
        // template's list are comparisons: `template <bool = (N < 2)>`.
        if (templateMode && m_later) {
            if (type == LPAREN) {
                ++parens;
            } else if (type == RPAREN && parens > 0) {
                --parens;
            } else if (parens > 0 && (type == LESS_THAN || type == GREATER_THAN || type == RIGHT_SHIFT)) {
                extend(t.start(), t.end());
                continue;
            }
        }
        if (type == open) {
            ++depth;
        } else if (type == close) {
            if (--depth == 0) {
                // With the extensions, a "<" still open at the end of the
                // list was a comparison or an operator passed to a macro:
                // `static_assert(N < 200, "...")`, `DEFINE_OP(Lt, <)`.
                if (angle != 0 && !m_extended)
                    compose("Expected '>'. Got: " + t.text(), t);
                addParameter();
                list->setEnd(t.end());
                return list.release();
            }
            if (templateMode)
                complex = true;
        } else if (type == RIGHT_SHIFT && templateMode && closesTwoAngles(before, depth)) {
            // `template<class T = A<B>>`: the list may close with it, and the
            // last parameter ends in front of it.
            depth -= 2;
            if (depth == 0) {
                addParameter();
                list->setEnd(t.end());
                return list.release();
            }
            complex = true;
        } else if (type == LESS_THAN) {
            ++angle;
        } else if (type == GREATER_THAN) {
            if (angle > 0)
                --angle;
            complex = true;
        } else if (type == RIGHT_SHIFT && closesTwoAngles(before, angle)) {
            angle -= 2;
            complex = true;
        } else if (isEnd(t)) {
            report(1, t);
            return nullptr;
        }
        extend(t.start(), t.end());
    }
}

// ---------------------------------------------------------------------------
// Member initialisers.

InitializerListNode* Parser::parseInitializerList(Stream& s)
{
    return parseCommaList<InitializerListNode>(s, &Parser::parseInitializer);
}

// `m_size(size)`, `Base<T>(x, y)`, and with the extensions `m_size{size}`
InitializerNode* Parser::parseInitializer(Stream& s)
{
    skipDiscardable(s);
    const Trn::Token first = get(s);
    if (first.type() != IDENTIFIER) {
        compose("Expected a variable name for an initializer. Got: \"" + first.text(), first);
        return nullptr;
    }
    TokenList name{first};
    Trn::Position nameEnd = first.end();
    // With the extensions the arguments may stand in braces: `x{1}`.
    for (;;) {
        const Trn::Token t = peekAt(s, 1);
        if (t.type() == LPAREN || (m_extended && t.type() == LBRACE))
            break;
        if (isEnd(t) || t.type() == LBRACE) {
            report(1, t);
            return nullptr;
        }
        name.push_back(get(s));
        if (!isDiscardable(t))
            nameEnd = t.end();
    }
    auto id = std::make_unique<IdNode>(joinTexts(name, 0, name.size() - 1), first.start(), nameEnd);
    const Trn::Token open = get(s);
    if (open.type() != LPAREN && open.type() != LBRACE) {
        compose("Expected a (. Got: \"" + open.text(), open);
        return nullptr;
    }
    const std::int32_t opening = open.type();
    const std::int32_t closing = opening == LPAREN ? RPAREN : RBRACE;
    auto args = std::make_unique<ArgListNode>();
    args->setBegin(open.start());
    bool inArg = false;
    Trn::Position argBegin;
    Trn::Position argEnd;
    auto addArg = [&] {
        if (inArg)
            args->add(new ArgNode(argBegin, argEnd));
        inArg = false;
    };
    for (int depth = 1;;) {
        collectDiscardable(s, *args);
        const Trn::Token t = get(s);
        if (isEnd(t)) {
            report(1, t);
            return nullptr;
        }
        // A comma at any depth ends an argument.
        if (t.type() == COMMA) {
            addArg();
            continue;
        }
        if (t.type() == opening) {
            ++depth;
        } else if (t.type() == closing && --depth == 0) {
            addArg();
            args->setEnd(t.end());
            // With the extensions a pack expansion may follow, `Base(args)...`;
            // it stays text behind the initialiser.
            while (m_extended && peekAt(s, 1).type() == DOT)
                get(s);
            return new InitializerNode(id.release(), args.release());
        }
        if (!inArg)
            argBegin = t.start();
        inArg = true;
        argEnd = t.end();
    }
}

} // namespace Cpp
