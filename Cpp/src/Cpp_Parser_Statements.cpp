// The parser's routines for statements and blocks. Expressions stay unparsed,
// as spans; what is recognised is a statement's kind and its extent. A
// function's body is parsed from the main stream.
#include "Cpp_Parser.h"

#include "Cpp_Nodes.h"
#include "Cpp_ParserSupport.h"
#include "Trn_TokenStream.h"

#include <memory>
#include <optional>

namespace Cpp {

using namespace ParserSupport;

namespace {

// const, volatile, auto and the built-in type words begin declarations.
bool beginsDeclaration(std::int32_t type)
{
    return type == CONST_KEY || type == VOLATILE_KEY || type == AUTO_KEY || isBuiltInType(type);
}

bool isJumpKeyword(std::int32_t type)
{
    return type == THROW_KEY || type == CONTINUE_KEY || type == BREAK_KEY || type == GOTO_KEY || type == RETURN_KEY;
}

} // namespace

// ---------------------------------------------------------------------------
// Blocks.

// A braced block, or the one statement that forms the body of a control
// statement without braces (a block without a position of its own).
BlockNode* Parser::parseBlock(Stream& s)
{
    NestingGuard nesting(*this, peekAt(s, 1));
    if (nesting.stopping())
        return nullptr;
    auto block = std::make_unique<BlockNode>();
    for (;;) {
        const Trn::Token t = get(s);
        const std::int32_t type = t.type();
        if (isDiscardable(t)) {
            s.unget();
            if (type == PREPROC_DIRECTIVE)
                delete parseDirective(s);
            else
                delete parseComment(s);
            continue;
        }
        // The empty statement `;`
        if (type == SEMICOLON) {
            block->setBegin(t.start());
            block->setEnd(t.end());
            return block.release();
        }
        if (type == LBRACE) {
            block->setBegin(t.start());
            parseBlockContent(s, *block);
            return block.release();
        }
        s.unget();
        if (beginsDeclaration(type)) {
            declarationOrExpression(s, *block);
        } else if (type == TYPEDEF_KEY) {
            bool isTypeBody = false;
            SyntaxNode* declaration = parseDeclaration(s, isTypeBody);
            addWithSemicolon(s, *block, declaration, isTypeBody);
        } else if (isJumpKeyword(type)) {
            block->add(parseExpression(s));
        } else if (isControlKeyword(type)) {
            block->add(parseControlStatement(s));
        } else if (type == IDENTIFIER) {
            // `T * x;` `T& r = y;` `A<B> c;` `T x;` may be declarations.
            const std::int32_t next = peekAt(s, 2).type();
            if (next == ASTERISK || next == AMPERSAND || next == LESS_THAN || next == IDENTIFIER)
                declarationOrExpression(s, *block);
            else
                block->add(parseExpression(s));
        } else {
            block->add(parseExpression(s));
        }
        // A body that holds nothing, as in `if (x) }`, is no body.
        if (block->empty())
            return nullptr;
        return block.release();
    }
}

// The statements of a braced block, through its closing brace.
void Parser::parseBlockContent(Stream& s, BlockNode& node)
{
    int depth = 1;
    while (depth > 0 && !stopping()) {
        const Trn::Token t = get(s);
        parseBlockTurn(s, node, t, depth);
        if (depth > 0 && !isEnd(t))
            ensureProgress(s, t);
        if (isEnd(t))
            return;
    }
}

void Parser::parseBlockTurn(Stream& s, BlockNode& node, const Trn::Token& t, int& depth)
{
    const std::int32_t type = t.type();
    switch (type) {
    case PREPROC_DIRECTIVE:
        s.unget();
        node.add(parseDirective(s));
        return;
    case LINE_COMMENT:
    case BLOCK_COMMENT:
        s.unget();
        node.add(parseComment(s));
        return;
    case SEMICOLON: return;
    case LBRACE:
        s.unget();
        node.add(parseBlock(s));
        return;
    case RBRACE:
        if (--depth == 0)
            node.setEnd(t.end());
        return;
    case CLASS_KEY:
    case STRUCT_KEY:
    case STATIC_KEY:
    case TYPEDEF_KEY:
    case ENUM_KEY:
    case UNION_KEY: {
        s.unget();
        bool isTypeBody = false;
        SyntaxNode* declaration = parseDeclaration(s, isTypeBody);
        addWithSemicolon(s, node, declaration, isTypeBody);
        return;
    }
    // Reported, dropped, and the block goes on.
    case PUBLIC_KEY:
    case PRIVATE_KEY:
    case PROTECTED_KEY: report(8, t); return;
    case NAMESPACE_KEY: report(10, t); return;
    case TEMPLATE_KEY: report(9, t); return;
    case USING_KEY: skipToCollecting(s, node, SEMICOLON); return;
    // `extern "C" int f();` in a block: the statement behind is read as usual.
    case EXTERN_KEY:
        collectDiscardable(s, node);
        if (peekAt(s, 1).type() == STRING_LITERAL)
            get(s);
        return;
    case CASE_KEY:
    case DEFAULT_KEY:
        s.unget();
        node.add(parseCase(s));
        return;
    case END_OF_FILE:
    case INVALID_TOKEN: report(1, t); return;
    default: break;
    }
    s.unget();
    if (beginsDeclaration(type))
        declarationOrExpression(s, node);
    else if (type == ASM_KEY || isAsmWord(t))
        node.add(parseAsm(s));
    else if (type == IDENTIFIER)
        parseIdentifierStatement(s, node);
    else if (isControlKeyword(type))
        node.add(parseControlStatement(s));
    else
        node.add(parseExpression(s));
}

// A statement that begins with a name: a declaration, a label, or an expression.
void Parser::parseIdentifierStatement(Stream& s, BlockNode& node)
{
    get(s);
    const std::int32_t next = nextSignificant(s).type();
    s.unget();
    switch (next) {
    // `x;` `T * x;` `T& r = y;` `A<B> c;` `T x;`
    case SEMICOLON:
    case ASTERISK:
    case AMPERSAND:
    case LESS_THAN:
    case IDENTIFIER: declarationOrExpression(s, node); return;
    // `again:`
    case COLON: {
        LabelNode* label = parseLabel(s);
        if (label)
            node.add(label);
        else
            node.add(parseExpression(s));
        return;
    }
    default: node.add(parseExpression(s)); return;
    }
}

// `T * x;` or `a * b;`: decided by attempt. The statement is gathered; if it
// parses as a data declaration it is one, otherwise it is an expression.
void Parser::declarationOrExpression(Stream& s, BlockNode& node)
{
    TokenList list;
    gatherStatement(s, list);
    {
        Stream declaration(list);
        if (DataDeclNode* data = parseDataDeclaration(declaration, false)) {
            node.add(data);
            return;
        }
    }
    Stream expression(list);
    node.add(parseExpression(expression));
}

// ---------------------------------------------------------------------------
// Expressions.

// With the extensions: which braces an expression takes whole, and the depth
// inside them. Inside parentheses every "{" does (`f([](int x) { return x; })`,
// `g({1, 2})`); outside them, the body of a lambda (`[&] {`, `[](int x) {`,
// `[]() mutable -> int {`) and a braced list behind `=`, `return`, `new` or
// a type (`x = T{1, 2};`, `return {a, b};`) do. The braces of a macro call
// that heads a block stay the block: `FOREACH(x, list) {`.
class Parser::InnerBraces {
public:
    bool inside() const { return m_depth > 0; }
    // A "{" or "}" inside, or the "{" that opens them.
    void take(const Trn::Token& t)
    {
        if (t.type() == LBRACE)
            ++m_depth;
        else if (t.type() == RBRACE && m_depth > 0)
            --m_depth;
        m_lambdaHead = false;
    }
    // Whether a "{" at parenthesis depth 0 behind `previous` opens braces
    // the expression takes.
    bool opensAtStatementLevel(const Trn::Token& previous) const
    {
        const std::int32_t p = previous.type();
        if (m_lambdaHead || p == RBRACKET || p == EQUALS || p == RETURN_KEY || p == GREATER_THAN)
            return true;
        // `T{1}` behind `=`, `return` or `new`
        return p == IDENTIFIER && (m_beforePrevious == EQUALS || m_beforePrevious == RETURN_KEY ||
                                   m_beforePrevious == NEW_KEY);
    }
    // Follows a token outside the braces; `paren` is the parenthesis depth
    // in front of it.
    void note(const Trn::Token& t, int paren)
    {
        const std::int32_t type = t.type();
        // `[...](` opens a lambda's parameters; their ")" at depth 0 ends its
        // head, and the words up to its "{" (`mutable`, `-> T`) keep it open.
        if (type == LPAREN && m_last == RBRACKET && paren == 0)
            m_lambdaParams = true;
        else if (type == RPAREN && m_lambdaParams && paren == 1) {
            m_lambdaParams = false;
            m_lambdaHead = true;
        } else if (type == SEMICOLON || type == COMMA || type == EQUALS)
            m_lambdaHead = false;
        m_beforePrevious = m_last;
        m_last = type;
    }

private:
    int m_depth = 0;
    bool m_lambdaParams = false;
    bool m_lambdaHead = false;
    std::int32_t m_last = 0;
    std::int32_t m_beforePrevious = 0;
};

// A run of tokens through its semicolon at parenthesis depth 0, or up to a
// token that cannot belong to it (a directive, a brace, a statement keyword).
// A missing semicolon in a macro line thus ends the expression without a
// message: `FOO(x) }` gives the expression `FOO(x)`.
ExprNode* Parser::parseExpression(Stream& s)
{
    skipDiscardable(s);
    const Trn::Position start = peekAt(s, 1).start();
    int paren = 0;
    int angle = 0;
    bool seenTemplate = false;
    bool any = false;
    Trn::Token previous;
    InnerBraces braces;
    // Ends before the token just taken, which stays in the stream.
    auto endBefore = [&]() -> ExprNode* {
        s.unget();
        return any ? new ExprNode(start, previous.end()) : nullptr;
    };
    for (;;) {
        const Trn::Token t = get(s);
        const std::int32_t type = t.type();
        if (type == PREPROC_DIRECTIVE)
            return endBefore();
        // With the extensions, the braces of a lambda's body or of a braced
        // list belong to the expression, with all they hold.
        if (m_extended && !isEnd(t)) {
            if (braces.inside()) {
                braces.take(t);
                previous = t;
                continue;
            }
            if (type == LBRACE && (paren > 0 || braces.opensAtStatementLevel(previous))) {
                braces.take(t);
                previous = t;
                any = true;
                continue;
            }
            braces.note(t, paren);
        }
        if (type == SEMICOLON && paren == 0)
            return new ExprNode(start, t.end());
        if (type == LPAREN) {
            ++paren;
        } else if (type == RPAREN) {
            if (paren > 0)
                --paren;
        } else if (paren == 0 && (type == LBRACE || type == RBRACE || (type >= IF_KEY && type <= DEFAULT_KEY))) {
            return endBefore();
        } else if (type == LESS_THAN) {
            ++angle;
        } else if (type == GREATER_THAN) {
            if (angle > 0)
                --angle;
        } else if (type == RIGHT_SHIFT && closesTwoAngles(previous.type(), angle)) {
            angle -= 2;
        } else if ((type == CLASS_KEY || type == STRUCT_KEY) && paren == 0 && angle == 0 && !seenTemplate) {
            return endBefore();
        } else if (type == TEMPLATE_KEY) {
            seenTemplate = true;
        } else if ((type == THROW_KEY || type == RETURN_KEY) && any) {
            return endBefore();
        } else if (isEnd(t)) {
            report(1, t);
            return any ? new ExprNode(start, previous.end()) : nullptr;
        }
        previous = t;
        any = true;
    }
}

// ---------------------------------------------------------------------------
// Control statements.

// An if with all its else parts, a try with its catch parts, a do with its
// while; comments and directives between the parts are children too.
//
// An `else if` chain is read in one loop and kept flat, so that a chain of any
// length costs no nesting depth in this parser or in any walker:
//   if (a) x; else if (b) y; else z;
// gives one statement with three parts: `if (a) x;`, then `else` whose body
// (no braces) holds a statement with the one part `if (b) y;`, then `else z;`.
// Each else part still reads as "else, then an if statement" on its own; the
// parts that continue the inner `if` are siblings in the outer statement.
CtrlStmtNode* Parser::parseControlStatement(Stream& s)
{
    NestingGuard nesting(*this, peekAt(s, 1));
    if (nesting.stopping())
        return nullptr;
    skipDiscardable(s);
    const Trn::Token t = peekAt(s, 1);
    if (!isControlKeyword(t.type())) {
        get(s);
        report(11, t);
        return nullptr;
    }
    CtrlSubStmtNode* first = parseSubStatement(s);
    if (!first)
        return nullptr;
    auto node = std::make_unique<CtrlStmtNode>();
    node->add(first);
    for (std::int32_t last = t.type();;) {
        std::int32_t due = 0;
        if (last == IF_KEY || last == ELSE_KEY)
            due = ELSE_KEY;
        else if (last == TRY_KEY || last == CATCH_KEY)
            due = CATCH_KEY;
        else if (last == DO_KEY)
            due = WHILE_KEY;
        else
            break;
        if (last != DO_KEY && nextSignificant(s).type() != due)
            break;
        CtrlSubStmtNode* part = nullptr;
        for (;;) {
            const Trn::Token u = peekAt(s, 1);
            if (u.type() == PREPROC_DIRECTIVE)
                node->add(parseDirective(s));
            else if (isComment(u))
                node->add(parseComment(s));
            else if (u.type() == due)
                part = due == ELSE_KEY ? parseElsePart(s) : parseSubStatement(s);
            else
                break;
            if (part)
                break;
        }
        if (!part)
            break;
        node->add(part);
        // After `else if (...) ...` an `else` may follow again.
        last = isElseIf(*part) ? IF_KEY : due;
    }
    return node.release();
}

// An else part. Before `if` the part is built here rather than by
// parseSubStatement, so that only the `if` part of the inner statement is read
// and the chain's further parts come back to the caller's loop.
CtrlSubStmtNode* Parser::parseElsePart(Stream& s)
{
    if (nextSignificant(s, 2).type() != IF_KEY)
        return parseSubStatement(s);
    std::unique_ptr<CtrlSubStmtHeadNode> head(parseHead(s));
    if (!head)
        return nullptr;
    // Comments and directives between `else` and `if` stay text in the gap,
    // as they do in front of any unbraced body.
    skipDiscardable(s);
    CtrlSubStmtNode* ifPart = parseSubStatement(s);
    if (!ifPart)
        return nullptr;
    auto inner = std::make_unique<CtrlStmtNode>();
    inner->add(ifPart);
    auto body = std::make_unique<BlockNode>();
    body->add(inner.release());
    return new CtrlSubStmtNode(head.release(), body.release());
}

// An else part made by parseElsePart around an `if`.
bool Parser::isElseIf(const CtrlSubStmtNode& part)
{
    const CtrlSubStmtHeadNode* head = part.head();
    const BlockNode* body = part.body();
    if (!head || !head->keyword() || head->keyword()->type() != ELSE_KEY || !body || body->size() != 1)
        return false;
    const auto* inner = dynamic_cast<const CtrlStmtNode*>(*body->childrenBegin());
    if (!inner || inner->empty() || inner->begin() != body->begin())
        return false;
    const auto* ifPart = dynamic_cast<const CtrlSubStmtNode*>(*inner->childrenBegin());
    return ifPart && ifPart->head() && ifPart->head()->keyword() && ifPart->head()->keyword()->type() == IF_KEY;
}

CtrlSubStmtNode* Parser::parseSubStatement(Stream& s)
{
    std::unique_ptr<CtrlSubStmtHeadNode> head(parseHead(s));
    // The tail of a do, or a while with an empty body: `while (x);`
    if (head && head->keyword() && head->keyword()->type() == WHILE_KEY && nextSignificant(s).type() == SEMICOLON) {
        head->setEnd(skipToSemicolon(s));
        return new CtrlSubStmtNode(head.release(), nullptr);
    }
    BlockNode* body = parseBlock(s);
    if (!head && !body)
        return nullptr;
    return new CtrlSubStmtNode(head.release(), body);
}

// The keyword and, for for, if, while, catch and switch, the condition. The
// condition's span runs from its "(" to its ")": the passes that print a head
// read the condition with its outer parentheses.
CtrlSubStmtHeadNode* Parser::parseHead(Stream& s)
{
    skipDiscardable(s);
    const Trn::Token keyword = get(s);
    const std::int32_t type = keyword.type();
    if (type < IF_KEY || type > SWITCH_KEY) {
        s.unget();
        report(11, keyword);
        return nullptr;
    }
    auto keywordNode = std::make_unique<KeywordNode>(type, keyword.start(), keyword.end());
    if (type != FOR_KEY && type != IF_KEY && type != WHILE_KEY && type != CATCH_KEY && type != SWITCH_KEY)
        return new CtrlSubStmtHeadNode(keywordNode.release(), nullptr);
    skipDiscardable(s);
    // With the extensions, `if constexpr (...)` and a macro in its place,
    // `if _GLIBCXX17_CONSTEXPR (...)`: the word begins the condition's
    // expression, so that it lies inside a node.
    std::optional<Trn::Position> conditionStart;
    if (m_extended && type == IF_KEY && peekAt(s, 1).type() == IDENTIFIER
        && (isWord(peekAt(s, 1), "constexpr") || peekAt(s, 2).type() == LPAREN)) {
        conditionStart = get(s).start();
        skipDiscardable(s);
    }
    const Trn::Token open = get(s);
    if (open.type() != LPAREN) {
        report(13, open);
        s.unget();
        return new CtrlSubStmtHeadNode(keywordNode.release(), nullptr);
    }
    Trn::Token previous = open;
    bool arrow = false;
    for (int depth = 1;;) {
        skipDiscardable(s);
        const Trn::Token t = get(s);
        const std::int32_t inner = t.type();
        // With the extensions, the body of a lambda and a braced list are
        // taken whole: `if (any_of(b, e, [](int x) { return x > 0; }))`.
        if (m_extended && inner == LBRACE
            && (opensBracesInHead(previous, arrow) || (m_later && bracedValueAhead(s, previous)))) {
            if (!skipBraces(s, t))
                return nullptr;
            previous = t;
            arrow = false;
            continue;
        }
        // The head has run away: `if (a {`
        if (inner == END_OF_FILE || inner == LBRACE || inner == RBRACE || inner == NAMESPACE_KEY
            || (inner >= IF_KEY && inner <= RETURN_KEY)) {
            report(12, t);
            return nullptr;
        }
        if (inner == ARROW)
            arrow = true;
        previous = t;
        if (inner == LPAREN)
            ++depth;
        else if (inner == RPAREN && --depth == 0)
            return new CtrlSubStmtHeadNode(keywordNode.release(),
                                           new ExprNode(conditionStart.value_or(open.start()), t.end()));
    }
}

// With the extensions: whether a "{" behind `previous` inside a control
// statement's parentheses opens a lambda's body or a braced list rather than
// showing a head that has run away (`if (a {`): `for (int i : {1, 2})`,
// `if (f([](int x) { return x; }))`. `arrow`: a "->" came since.
bool Parser::opensBracesInHead(const Trn::Token& previous, bool arrow) const
{
    const std::int32_t p = previous.type();
    if (arrow || p == RPAREN || p == RBRACKET || p == GREATER_THAN || p == COMMA || p == LPAREN || p == EQUALS
        || p == COLON)
        return true;
    return p == MUTABLE_KEY || isWord(previous, "noexcept");
}

// With the later extensions: whether the "{" just taken behind `previous`, a
// name or a type word, inside a control statement's parentheses opens a value
// rather than showing a head that has run away: `if (n != size_t{})`,
// `if (x == int{})`, `if (Pred{}(x))`, and the body of a requires expression,
// `if constexpr (requires { x.f(); })`. The braces of a value hold no ";"
// (but those of a requires expression may), and a ")" or an operator follows
// them.
bool Parser::bracedValueAhead(Stream& s, const Trn::Token& previous)
{
    if (previous.type() != IDENTIFIER && !isBuiltInType(previous.type()))
        return false;
    const bool requirement = isWord(previous, "requires");
    int depth = 1;
    for (std::int32_t n = 1;; ++n) {
        const std::int32_t type = peekAt(s, n).type();
        if (isEnd(peekAt(s, n)) || type == PREPROC_DIRECTIVE || (type >= IF_KEY && type <= RETURN_KEY))
            return false;
        if (type == SEMICOLON && !requirement)
            return false;
        if (type == LBRACE) {
            ++depth;
        } else if (type == RBRACE && --depth == 0) {
            const std::int32_t next = nextSignificant(s, n + 1).type();
            return next != LBRACE && next != SEMICOLON && next != RBRACE && !(next >= IF_KEY && next <= RETURN_KEY)
                && next != IDENTIFIER;
        }
    }
}

// Takes the braces whose "{" `open` has just been taken, through the "}" that
// closes them. False, with message code 12 at the end of input.
bool Parser::skipBraces(Stream& s, const Trn::Token& open)
{
    int depth = 1;
    while (depth > 0) {
        const Trn::Token t = get(s);
        if (isEnd(t)) {
            report(12, open);
            return false;
        }
        if (t.type() == LBRACE)
            ++depth;
        else if (t.type() == RBRACE)
            --depth;
    }
    return true;
}

// `case expr:` or `default:`
CaseNode* Parser::parseCase(Stream& s)
{
    skipDiscardable(s);
    const Trn::Token keyword = get(s);
    if (keyword.type() != CASE_KEY && keyword.type() != DEFAULT_KEY) {
        compose("Expected either 'case' or 'default'. Got: " + keyword.text(), keyword);
        s.unget();
        return nullptr;
    }
    auto keywordNode = std::make_unique<KeywordNode>(keyword.type(), keyword.start(), keyword.end());
    if (keyword.type() == DEFAULT_KEY) {
        const Trn::Token colon = get(s);
        if (colon.type() != COLON) {
            compose("Expected a : immediately following 'default'. Got: " + colon.text(), colon);
            s.unget();
            return nullptr;
        }
        auto node = new CaseNode(keywordNode.release(), nullptr);
        node->setEnd(colon.end());
        return node;
    }
    bool any = false;
    Trn::Position valueBegin;
    Trn::Position valueEnd;
    for (;;) {
        skipDiscardable(s);
        const Trn::Token t = get(s);
        if (t.type() == COLON || isEnd(t)) {
            auto node = new CaseNode(keywordNode.release(), any ? new ExprNode(valueBegin, valueEnd) : nullptr);
            if (t.type() == COLON)
                node->setEnd(t.end());
            else
                s.unget(); // the block reports the end of input
            return node;
        }
        if (!any)
            valueBegin = t.start();
        any = true;
        valueEnd = t.end();
    }
}

// `again:`
LabelNode* Parser::parseLabel(Stream& s)
{
    const Trn::Token name = get(s);
    if (name.type() != IDENTIFIER || nextSignificant(s).type() != COLON) {
        s.unget();
        return nullptr;
    }
    auto id = std::make_unique<IdNode>(name.text(), name.start(), name.end());
    skipDiscardable(s);
    const Trn::Token colon = get(s);
    auto label = new LabelNode(id.release());
    label->setEnd(colon.end());
    return label;
}

// `__asm { ... }` to its closing brace; `__asm mov eax, 1` to the end of its
// line (or a semicolon), since single-line inline assembly needs none.
AsmNode* Parser::parseAsm(Stream& s)
{
    skipDiscardable(s);
    const Trn::Token keyword = get(s);
    if (!isAsmWord(keyword)) {
        compose("Expected 'asm'. Got: " + keyword.text(), keyword);
        s.unget();
        return nullptr;
    }
    auto text = std::make_unique<TextNode>(keyword.start(), keyword.end());
    auto body = std::make_unique<BlockNode>();
    const Trn::Token first = get(s);
    if (first.type() == LBRACE) {
        Trn::Token last = first;
        for (int depth = 1; depth > 0;) {
            last = get(s);
            if (last.type() == END_OF_FILE) {
                report(1, last);
                return nullptr;
            }
            if (last.type() == LBRACE)
                ++depth;
            else if (last.type() == RBRACE)
                --depth;
        }
        body->add(new TextNode(first.start(), last.end()));
        return new AsmNode(text.release(), body.release(), AsmNode::BLOCK_FORM);
    }
    if (first.type() == END_OF_FILE) {
        s.unget();
        return new AsmNode(text.release(), body.release(), AsmNode::LINE_FORM);
    }
    std::int32_t form = first.type() == LPAREN ? AsmNode::CALL_FORM : AsmNode::LINE_FORM;
    Trn::Token last = first;
    const std::int32_t line = first.start().line;
    while (last.type() != SEMICOLON) {
        const Trn::Token t = peekAt(s, 1);
        if (t.type() == END_OF_FILE || t.start().line > line)
            break;
        last = get(s);
        if (last.type() == LPAREN)
            form = AsmNode::CALL_FORM;
    }
    body->add(new TextNode(first.start(), last.end()));
    return new AsmNode(text.release(), body.release(), form);
}

} // namespace Cpp
