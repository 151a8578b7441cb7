// The parser's routines for constructs with a body of declarations: classes,
// enums, namespaces, linkage blocks, and template heads. parseClass and
// parseEnum run on a gathered list that ends with the closing brace; the
// others run on the stream they are given.
#include "Cpp_Parser.h"

#include "Cpp_Nodes.h"
#include "Cpp_ParserSupport.h"
#include "Trn_TokenStream.h"

#include <memory>

namespace Cpp {

using namespace ParserSupport;

// The words of a class or enum head, joined as they are taken.
struct Parser::HeadText {
    std::string text;
    Trn::Position begin;
    Trn::Position end;
    std::int32_t key = INVALID_TOKEN; // the class key, or ENUM_KEY, once seen
    Trn::Token stop;                  // the token that ended the head

    void join(const std::string& words, const Trn::Position& from, const Trn::Position& to)
    {
        if (!text.empty())
            text += ' ';
        text += words;
        if (begin.isNull())
            begin = from;
        end = to;
    }
};

// Joins the tokens of a head with single blanks, so that macro words,
// `__declspec(...)` and template arguments stay in the name. A directive or
// comment on the way is parsed and its text joined. The key is the first
// class key at angle depth 0 (for an enum head: ENUM_KEY anywhere). `{` and
// `;` stop the head, and for a class `:` too; the end of input stops it, and
// is put back when a key was seen.
void Parser::joinHead(Stream& s, HeadText& head, bool enumHead)
{
    int angle = 0;
    for (;;) {
        const Trn::Token t = get(s);
        switch (t.type()) {
        case PREPROC_DIRECTIVE: {
            s.unget();
            std::unique_ptr<PreprocDirectiveNode> directive(parseDirective(s));
            head.join(t.text(), t.start(), directive ? directive->end() : t.end());
            continue;
        }
        case LINE_COMMENT:
        case BLOCK_COMMENT: {
            s.unget();
            std::unique_ptr<CommentNode> comment(parseComment(s));
            head.join(t.text(), t.start(), comment ? comment->end() : t.end());
            continue;
        }
        case COLON:
            if (enumHead)
                break; // `enum E : int {`
            [[fallthrough]];
        case LBRACE:
        case SEMICOLON:
            // With the later extensions braces inside template arguments are
            // part of the name: `A<decltype(f({}))>`.
            if (m_later && angle > 0 && t.type() == LBRACE)
                break;
            s.unget();
            head.stop = t;
            return;
        case END_OF_FILE:
        case INVALID_TOKEN:
            if (head.key != INVALID_TOKEN)
                s.unget();
            head.stop = t;
            return;
        case LESS_THAN: ++angle; break;
        case GREATER_THAN:
            if (angle > 0)
                --angle;
            break;
        case RIGHT_SHIFT:
            if (closesTwoAngles(INVALID_TOKEN, angle))
                angle -= 2;
            break;
        case CLASS_KEY:
        case STRUCT_KEY:
        case UNION_KEY:
            if (!enumHead && angle == 0 && head.key == INVALID_TOKEN)
                head.key = t.type();
            break;
        case ENUM_KEY:
            if (enumHead)
                head.key = ENUM_KEY;
            break;
        default: break;
        }
        head.join(t.text(), t.start(), t.end());
    }
}

// ---------------------------------------------------------------------------
// Classes.

ClassDeclNode* Parser::parseClass(Stream& s)
{
    std::unique_ptr<ClassHeadNode> head(parseClassHead(s));
    if (!head)
        return nullptr;
    // `class A;` has no body.
    if (peekAt(s, 1).type() != LBRACE)
        return new ClassDeclNode(head.release(), nullptr);
    ClassBodyNode* body = parseClassBody(s);
    if (!body)
        return nullptr;
    return new ClassDeclNode(head.release(), body);
}

ClassHeadNode* Parser::parseClassHead(Stream& s)
{
    std::unique_ptr<ClassNameNode> name(parseClassName(s));
    if (!name)
        return nullptr;
    skipDiscardable(s);
    if (peekAt(s, 1).type() != COLON)
        return new ClassHeadNode(name.release(), nullptr);
    get(s);
    const std::size_t messagesBefore = m_messages.size();
    BaseClauseListNode* bases = parseBaseClauses(s);
    if (!bases && m_messages.size() != messagesBefore)
        return nullptr;
    return new ClassHeadNode(name.release(), bases);
}

ClassNameNode* Parser::parseClassName(Stream& s)
{
    skipDiscardable(s);
    HeadText head;
    joinHead(s, head, false);
    if (head.key == INVALID_TOKEN) {
        compose("Expected an identifier for the class name.", head.stop);
        return nullptr;
    }
    return new ClassNameNode(head.key, head.text, head.begin, head.end);
}

BaseClauseListNode* Parser::parseBaseClauses(Stream& s)
{
    return parseCommaList<BaseClauseListNode>(s, &Parser::parseBaseClause);
}

// `public virtual B<C, D>`
BaseClauseNode* Parser::parseBaseClause(Stream& s)
{
    std::int32_t access = BaseClauseNode::NO_ACCESS;
    bool isVirtual = false;
    TokenList pieces;
    Trn::Position begin;
    Trn::Position end;
    auto mark = [&](const Trn::Token& t) {
        if (begin.isNull())
            begin = t.start();
        end = t.end();
    };
    for (;;) {
        skipDiscardable(s);
        const Trn::Token t = get(s);
        switch (t.type()) {
        case PUBLIC_KEY:
        case PROTECTED_KEY:
        case PRIVATE_KEY:
            if (access != BaseClauseNode::NO_ACCESS || !pieces.empty()) {
                compose("Not expecting to find keyword \"" + t.text() + "\"", t);
                return nullptr;
            }
            access = t.type();
            mark(t);
            continue;
        case VIRTUAL_KEY:
            if (!pieces.empty()) {
                compose("Not expecting to find keyword \"virtual\"", t);
                return nullptr;
            }
            isVirtual = true;
            mark(t);
            continue;
        case IDENTIFIER:
        case ASTERISK:
        case AMPERSAND:
            pieces.push_back(t);
            mark(t);
            continue;
        // Template arguments, commas and all, to the balancing ">".
        // With the extensions, a comparison in parentheses closes nothing:
        // `__bool_constant<(N > 0)>`.
        case LESS_THAN: {
            pieces.push_back(t);
            mark(t);
            int paren = 0;
            for (int depth = 1; depth > 0;) {
                const Trn::Token u = get(s);
                if (isEnd(u)) {
                    report(1, u);
                    return nullptr;
                }
                pieces.push_back(u);
                mark(u);
                if (m_extended && u.type() == LPAREN)
                    ++paren;
                else if (m_extended && u.type() == RPAREN && paren > 0)
                    --paren;
                else if (paren > 0)
                    continue;
                else if (u.type() == LESS_THAN)
                    ++depth;
                else if (u.type() == GREATER_THAN)
                    --depth;
                else if (u.type() == RIGHT_SHIFT && closesTwoAngles(INVALID_TOKEN, depth))
                    depth -= 2;
            }
            continue;
        }
        // With the extensions, a pack expansion behind a base, `: T...`, and
        // a base in parentheses, `: decltype(f(x))`.
        case DOT:
            if (m_extended && !pieces.empty() && peekAt(s, 1).type() == DOT && peekAt(s, 2).type() == DOT) {
                pieces.push_back(t);
                for (int i = 0; i < 2; ++i)
                    pieces.push_back(get(s));
                mark(pieces.back());
                continue;
            }
            compose("Unexpected Token: \"" + t.text() + "\"", t);
            return nullptr;
        case LPAREN:
            if (m_extended && !pieces.empty()) {
                pieces.push_back(t);
                if (!gatherBalanced(s, pieces, LPAREN, RPAREN, 1))
                    return nullptr;
                mark(pieces.back());
                continue;
            }
            compose("Unexpected Token: \"" + t.text() + "\"", t);
            return nullptr;
        case COMMA:
        case LBRACE:
            s.unget();
            // A clause must name its class: `class A : public {` does not.
            if (pieces.empty()) {
                compose("Unexpected Token: \"" + t.text() + "\"", t);
                return nullptr;
            }
            return new BaseClauseNode(access, isVirtual, joinTexts(pieces, 0, pieces.size() - 1), begin, end);
        default: compose("Unexpected Token: \"" + t.text() + "\"", t); return nullptr;
        }
    }
}

ClassBodyNode* Parser::parseClassBody(Stream& s)
{
    const Trn::Token open = get(s);
    if (open.type() != LBRACE) {
        s.unget();
        compose("Expected: \"{\".", open);
        return nullptr;
    }
    auto body = std::make_unique<ClassBodyNode>();
    body->setBegin(open.start());
    collectDiscardable(s, *body);
    int depth = 1;
    while (!stopping()) {
        collectDiscardable(s, *body);
        const Trn::Token t = peekAt(s, 1);
        switch (t.type()) {
        case SEMICOLON: get(s); break;
        case LBRACE:
            get(s);
            ++depth;
            break;
        case RBRACE:
            get(s);
            if (--depth == 0) {
                body->setEnd(t.end());
                return body.release();
            }
            break;
        case PUBLIC_KEY:
        case PRIVATE_KEY:
        case PROTECTED_KEY: body->add(parseAccessSpec(s)); break;
        case NAMESPACE_KEY:
            compose("Namespace declaration illegal inside class declaration.", t);
            get(s);
            break;
        case USING_KEY: skipToCollecting(s, *body, SEMICOLON); break;
        case TEMPLATE_KEY: body->add(parseTemplate(s)); break;
        case EXTERN_KEY: body->add(parseExtern(s)); break;
        case END_OF_FILE:
        case INVALID_TOKEN: report(1, t); return nullptr;
        case IDENTIFIER:
            // A macro used as a label: `signals:`
            if (peekAt(s, 2).type() == COLON) {
                body->add(parseAccessSpec(s));
                break;
            }
            [[fallthrough]];
        default:
            if (!parseMemberDeclaration(s, *body, true))
                return nullptr;
            break;
        }
        ensureProgress(s, t);
    }
    return nullptr;
}

bool Parser::parseMemberDeclaration(Stream& s, InteriorNode& node, bool bitFieldsAllowed)
{
    const Trn::Token first = peekAt(s, 1);
    bool isTypeBody = false;
    SyntaxNode* declaration = parseDeclaration(s, isTypeBody, bitFieldsAllowed);
    if (!declaration) {
        report(7, first);
        return false;
    }
    addWithSemicolon(s, node, declaration, isTypeBody);
    return true;
}

// `public:`, `public slots:`, `signals:`
AccessSpecNode* Parser::parseAccessSpec(Stream& s)
{
    skipDiscardable(s);
    const Trn::Token t = get(s);
    const std::int32_t type = t.type();
    if (type == IDENTIFIER && peekAt(s, 1).type() != COLON) {
        report(14, t);
        return nullptr;
    }
    if (type != IDENTIFIER && !isAccessKey(type)) {
        s.unget();
        report(14, t);
        return nullptr;
    }
    std::string text = t.text();
    bool extended = false;
    if (isAccessKey(type)) {
        while (peekAt(s, 1).type() == IDENTIFIER) {
            text += ' ' + get(s).text();
            extended = true;
        }
    }
    const Trn::Token colon = get(s);
    if (colon.type() != COLON) {
        compose("Expected ':' Found: " + colon.text(), colon);
        s.unget();
        return nullptr;
    }
    return new AccessSpecNode(type, text, extended, t.start(), colon.end());
}

// ---------------------------------------------------------------------------
// Enums.

EnumDeclNode* Parser::parseEnum(Stream& s)
{
    std::unique_ptr<EnumHeadNode> head(parseEnumHead(s));
    if (!head)
        return nullptr;
    EnumBodyNode* body = parseEnumBody(s);
    if (!body)
        return nullptr;
    return new EnumDeclNode(head.release(), body);
}

EnumHeadNode* Parser::parseEnumHead(Stream& s)
{
    skipDiscardable(s);
    HeadText head;
    joinHead(s, head, true);
    if (head.key != ENUM_KEY) {
        compose("Expected \"enum\".", head.stop);
        return nullptr;
    }
    return new EnumHeadNode(head.text, head.begin, head.end);
}

// One ExprNode per enumerator, without its comma; comments and directives
// close the enumerator before them and are attached in order.
EnumBodyNode* Parser::parseEnumBody(Stream& s)
{
    const Trn::Token open = get(s);
    if (open.type() != LBRACE) {
        s.unget();
        compose("Expected: \"{\".", open);
        return nullptr;
    }
    auto body = std::make_unique<EnumBodyNode>();
    body->setBegin(open.start());
    bool pending = false;
    Trn::Position pendingBegin;
    Trn::Position pendingEnd;
    auto close = [&] {
        if (pending)
            body->add(new ExprNode(pendingBegin, pendingEnd));
        pending = false;
    };
    auto extend = [&](const Trn::Token& t) {
        if (!pending)
            pendingBegin = t.start();
        pending = true;
        pendingEnd = t.end();
    };
    for (int depth = 1;;) {
        const Trn::Token t = get(s);
        switch (t.type()) {
        case PREPROC_DIRECTIVE:
            close();
            s.unget();
            body->add(parseDirective(s));
            break;
        case LINE_COMMENT:
        case BLOCK_COMMENT:
            close();
            s.unget();
            body->add(parseComment(s));
            break;
        case COMMA: close(); break;
        case LBRACE:
            ++depth;
            extend(t);
            break;
        case RBRACE:
            if (--depth == 0) {
                body->setEnd(t.end());
                close();
                return body.release();
            }
            extend(t);
            break;
        case CLASS_KEY:
        case STRUCT_KEY:
        case ENUM_KEY:
        case UNION_KEY:
            s.unget();
            compose("Expected \"}\" first to close enum declaration.", peekAt(s, 1));
            return nullptr;
        case EXTERN_KEY:
            if (peekAt(s, 1).type() == STRING_LITERAL)
                get(s);
            break;
        case END_OF_FILE:
        case INVALID_TOKEN: report(1, t); return nullptr;
        default: extend(t); break;
        }
    }
}

// ---------------------------------------------------------------------------
// Namespaces.

NamespaceDeclNode* Parser::parseNamespace(Stream& s)
{
    NestingGuard nesting(*this, peekAt(s, 1));
    if (nesting.stopping())
        return nullptr;
    skipDiscardable(s);
    // With the extensions: `inline namespace v1 {`
    Trn::Token inlineKey;
    if (m_extended && peekAt(s, 1).type() == INLINE_KEY) {
        inlineKey = get(s);
        skipDiscardable(s);
    }
    const Trn::Token keyword = get(s);
    if (keyword.type() != NAMESPACE_KEY) {
        s.unget();
        compose("Expected \"namespace\".", keyword);
        return nullptr;
    }
    // `namespace fs = std::filesystem;` has no node.
    if (peekAt(s, 1).type() == IDENTIFIER && peekAt(s, 2).type() == EQUALS) {
        skipTo(s, SEMICOLON);
        return nullptr;
    }
    s.unget();
    std::unique_ptr<NamespaceHeadNode> head(parseNamespaceHead(s));
    if (inlineKey.type() == INLINE_KEY)
        head->setBegin(inlineKey.start());
    skipDiscardable(s);
    NamespaceBodyNode* body = parseNamespaceBody(s);
    if (!body)
        return nullptr;
    return new NamespaceDeclNode(head.release(), body);
}

NamespaceHeadNode* Parser::parseNamespaceHead(Stream& s)
{
    const Trn::Token keyword = get(s);
    if (m_extended)
        return parseExtendedNamespaceHead(s, keyword);
    if (peekAt(s, 1).type() != IDENTIFIER)
        return new NamespaceHeadNode(std::string(), keyword.start(), keyword.end());
    const Trn::Token name = get(s);
    return new NamespaceHeadNode(name.text(), keyword.start(), name.end());
}

// With the extensions, the words up to the "{" behind `namespace` join the
// name, each with its parentheses or brackets: `namespace std
// _GLIBCXX_VISIBILITY(default)`, `namespace [[deprecated]] old`.
NamespaceHeadNode* Parser::parseExtendedNamespaceHead(Stream& s, const Trn::Token& keyword)
{
    TokenList words;
    for (;;) {
        const std::int32_t type = peekAt(s, 1).type();
        if (type == IDENTIFIER) {
            words.push_back(get(s));
            continue;
        }
        if (type == LPAREN || type == LBRACKET) {
            const std::int32_t close = balancedGroupEnd(s, 1);
            if (close == 0)
                break;
            for (std::int32_t i = 0; i < close; ++i)
                words.push_back(get(s));
            continue;
        }
        break;
    }
    if (words.empty())
        return new NamespaceHeadNode(std::string(), keyword.start(), keyword.end());
    return new NamespaceHeadNode(joinTexts(words, 0, words.size() - 1), keyword.start(), words.back().end());
}

// The rows that namespace and linkage bodies share. `depth` counts the open
// braces; the "}" that closes the body ends it.
Parser::BodyTurn Parser::declarationBodyTurn(Stream& s, InteriorNode& body, const Trn::Token& t, int& depth)
{
    switch (t.type()) {
    case SEMICOLON: get(s); break;
    case LBRACE:
        get(s);
        ++depth;
        break;
    case RBRACE:
        get(s);
        if (--depth == 0) {
            body.setEnd(t.end());
            return BodyTurn::CLOSED;
        }
        break;
    case NAMESPACE_KEY: parseNestedNamespace(s, body); break;
    // With the extensions: `inline namespace v1 {`
    case INLINE_KEY:
        if (m_extended && nextSignificant(s, 2).type() == NAMESPACE_KEY) {
            body.add(parseNamespace(s));
            break;
        }
        if (!parseMemberDeclaration(s, body, false))
            return BodyTurn::FAILED;
        break;
    case USING_KEY: skipToCollecting(s, body, SEMICOLON); break;
    case TEMPLATE_KEY: body.add(parseTemplate(s)); break;
    case EXTERN_KEY: body.add(parseExtern(s)); break;
    case END_OF_FILE:
    case INVALID_TOKEN: report(1, t); return BodyTurn::FAILED;
    // With the extensions, a scope opened by a macro: `NS_START {`
    case IDENTIFIER:
        if (m_extended && nextSignificant(s, 2).type() == LBRACE) {
            parseMacroScope(s, body);
            break;
        }
        [[fallthrough]];
    default:
        if (!parseMemberDeclaration(s, body, false))
            return BodyTurn::FAILED;
        break;
    }
    return BodyTurn::GO_ON;
}

NamespaceBodyNode* Parser::parseNamespaceBody(Stream& s)
{
    const Trn::Token open = get(s);
    if (open.type() != LBRACE) {
        s.unget();
        compose("Expected:: \"{\".", open);
        return nullptr;
    }
    auto body = std::make_unique<NamespaceBodyNode>();
    body->setBegin(open.start());
    int depth = 1;
    while (!stopping()) {
        collectDiscardable(s, *body);
        const Trn::Token t = peekAt(s, 1);
        const BodyTurn turn = declarationBodyTurn(s, *body, t, depth);
        if (turn == BodyTurn::CLOSED)
            return body.release();
        if (turn == BodyTurn::FAILED)
            return nullptr;
        ensureProgress(s, t);
    }
    return nullptr;
}

// A namespace inside a namespace or linkage body. The keyword is taken first;
// for an alias (`namespace a = b;`) the words behind it are read as the next
// items of the body.
void Parser::parseNestedNamespace(Stream& s, InteriorNode& body)
{
    const Trn::Token keyword = get(s);
    collectDiscardable(s, body);
    if (peekAt(s, 1).type() == IDENTIFIER && peekAt(s, 2).type() == EQUALS)
        return;
    s.putBack(keyword);
    body.add(parseNamespace(s));
}

// ---------------------------------------------------------------------------
// Templates.

// `template<class T>` gives a TemplateNode, and the declaration behind it is
// the next item of the enclosing list. `template class A<int>;`, an explicit
// instantiation, is an expression.
SyntaxNode* Parser::parseTemplate(Stream& s)
{
    skipDiscardable(s);
    const Trn::Token keyword = get(s);
    if (keyword.type() != TEMPLATE_KEY) {
        compose("Expected the keyword 'template'. Got: " + keyword.text(), keyword);
        s.unget();
        return nullptr;
    }
    auto keywordNode = std::make_unique<KeywordNode>(TEMPLATE_KEY, keyword.start(), keyword.end());
    skipDiscardable(s);
    if (peekAt(s, 1).type() != LESS_THAN) {
        s.putBack(keyword);
        return parseExpression(s);
    }
    ParameterListNode* parameters = parseParameterList(s, true);
    if (!parameters)
        return nullptr;
    auto node = std::make_unique<TemplateNode>(keywordNode.release(), parameters);
    // With the later extensions a requires clause behind the head belongs to
    // it, and is copied as it stands: `template <class T> requires C<T>`.
    if (m_later) {
        const std::int32_t length = requiresClauseLength(s);
        Trn::Token last;
        for (std::int32_t i = 0; i < length; ++i)
            last = get(s);
        if (length > 0)
            node->setEnd(last.end());
    }
    return node.release();
}

// The peek index of the first token from `from` on that is neither comment
// nor directive, when it is of `type`; 0 otherwise.
std::int32_t Parser::nextSignificantIndex(Stream& s, std::int32_t from, std::int32_t type)
{
    while (isDiscardable(peekAt(s, from)))
        ++from;
    return peekAt(s, from).type() == type ? from : 0;
}

// The number of tokens ahead that form a requires clause, `requires C<T> &&
// (sizeof(T) > 4)`, through its last token; 0 when no `requires` stands ahead
// or the clause does not end well. Its terms are names with their template
// arguments, `true`, `false` and parenthesised expressions, each perhaps
// behind `!`, and requires expressions, joined by `&&` and `||`.
std::int32_t Parser::requiresClauseLength(Stream& s)
{
    std::int32_t n = 1;
    const auto skipToSignificant = [&] {
        while (isDiscardable(peekAt(s, n)))
            ++n;
    };
    skipToSignificant();
    if (!isWord(peekAt(s, n), "requires"))
        return 0;
    for (;;) {
        ++n;
        skipToSignificant();
        while (peekAt(s, n).type() == NOT) {
            ++n;
            skipToSignificant();
        }
        const Trn::Token term = peekAt(s, n);
        if (isWord(term, "requires")) {
            // A requires expression: `requires (T& t) { t.f(); }`
            if (nextSignificantIndex(s, n + 1, LPAREN)) {
                n = balancedEnd(s, nextSignificantIndex(s, n + 1, LPAREN));
                if (n == 0)
                    return 0;
            }
            const std::int32_t open = nextSignificantIndex(s, n + 1, LBRACE);
            if (open == 0)
                return 0;
            n = open;
            for (int depth = 1; depth > 0;) {
                const std::int32_t type = peekAt(s, ++n).type();
                if (type == END_OF_FILE)
                    return 0;
                if (type == LBRACE)
                    ++depth;
                else if (type == RBRACE)
                    --depth;
            }
        } else if (term.type() == LPAREN) {
            n = balancedEnd(s, n);
            if (n == 0)
                return 0;
        } else if (term.type() == IDENTIFIER) {
            // `C<T>`, `std::is_integral_v<T>`, `C<T>::value`
            while (peekAt(s, n + 1).type() == LESS_THAN) {
                n = balancedEnd(s, n + 1);
                if (n == 0)
                    return 0;
                if (!isQualifiedName(peekAt(s, n + 1)) || !peekAt(s, n + 1).text().starts_with("::"))
                    break;
                ++n;
            }
        } else if (term.type() != TRUE_KEY && term.type() != FALSE_KEY) {
            return 0;
        }
        const std::int32_t last = n;
        ++n;
        skipToSignificant();
        const std::int32_t joint = peekAt(s, n).type();
        if (joint != LOGICAL_AND && joint != LOGICAL_OR)
            return last;
    }
}

// ---------------------------------------------------------------------------
// Linkage.

// `extern "C" { ... }` is a linkage block; `extern "C" int x;` and
// `extern int x;` are declarations.
SyntaxNode* Parser::parseExtern(Stream& s)
{
    skipDiscardable(s);
    const Trn::Token first = peekAt(s, 1);
    if (first.type() != EXTERN_KEY) {
        compose("Expected 'extern'. Got: " + first.text(), first);
        return nullptr;
    }
    bool seenString = false;
    for (std::int32_t n = 2;; ++n) {
        const Trn::Token t = peekAt(s, n);
        if (isDiscardable(t))
            continue;
        if (t.type() == STRING_LITERAL && !seenString) {
            seenString = true;
            continue;
        }
        if (t.type() == LBRACE)
            return parseLinkageBlock(s);
        break;
    }
    bool isTypeBody = false;
    SyntaxNode* declaration = parseDeclaration(s, isTypeBody);
    if (!declaration) {
        report(7, first);
        return nullptr;
    }
    if (isTypeBody && nextSignificant(s).type() == SEMICOLON)
        declaration->setEnd(skipToSemicolon(s));
    return declaration;
}

LinkageBlockNode* Parser::parseLinkageBlock(Stream& s)
{
    NestingGuard nesting(*this, peekAt(s, 1));
    if (nesting.stopping())
        return nullptr;
    skipDiscardable(s);
    const Trn::Token keyword = get(s);
    if (keyword.type() != EXTERN_KEY) {
        compose("Expected 'extern'. Got: " + keyword.text(), keyword);
        s.unget();
        return nullptr;
    }
    Trn::Position specEnd = keyword.end();
    skipDiscardable(s);
    if (peekAt(s, 1).type() == STRING_LITERAL)
        specEnd = get(s).end();
    auto spec = std::make_unique<ExprNode>(keyword.start(), specEnd);
    skipDiscardable(s);
    const Trn::Token open = peekAt(s, 1);
    if (open.type() != LBRACE) {
        compose("Expected '{'. Got: " + open.text(), open);
        return nullptr;
    }
    LinkageBlockBodyNode* body = parseLinkageBody(s);
    if (!body)
        return nullptr;
    return new LinkageBlockNode(spec.release(), body);
}

LinkageBlockBodyNode* Parser::parseLinkageBody(Stream& s)
{
    const Trn::Token open = get(s);
    if (open.type() != LBRACE) {
        compose("Expected '{'. Got: " + open.text(), open);
        s.unget();
        return nullptr;
    }
    auto body = std::make_unique<LinkageBlockBodyNode>();
    body->setBegin(open.start());
    int depth = 1;
    while (!stopping()) {
        collectDiscardable(s, *body);
        const Trn::Token t = peekAt(s, 1);
        const std::int32_t type = t.type();
        // Each of these is reported and stepped over.
        if (isAccessKey(type)) {
            compose("public: protected: private: labels are illegal inside linkage blocks.", t);
            get(s);
            continue;
        }
        if (type == TEMPLATE_KEY) {
            compose("templates cannot be declared to have 'C' linkage.", t);
            get(s);
            continue;
        }
        if (isControlKeyword(type) || type == CASE_KEY || type == DEFAULT_KEY) {
            compose("control statements (e.g. if, else, while) are illegal inside linkage blocks.", t);
            get(s);
            continue;
        }
        const BodyTurn turn = declarationBodyTurn(s, *body, t, depth);
        if (turn == BodyTurn::CLOSED)
            return body.release();
        if (turn == BodyTurn::FAILED)
            return nullptr;
        ensureProgress(s, t);
    }
    return nullptr;
}

} // namespace Cpp
