// The parser's routines for data declarations: the split of a gathered
// declaration into type, name and the rest, without knowing any type names,
// and function pointer declarators. parseDataDeclaration also serves the block
// parser as the test whether a statement is a declaration: a null without a
// message means no.
#include "Cpp_Parser.h"

#include "Cpp_Nodes.h"
#include "Cpp_ParserSupport.h"
#include "Trn_TokenStream.h"

#include <memory>

namespace Cpp {

using namespace ParserSupport;

namespace {

// The joined text of a data declaration's name: comments and directives left
// out, the built-in words char, wchar_t, bool, short, int and long spelled
// from their type, the others by their text, with single blanks between.
std::string normalisedText(const std::vector<Trn::Token>& tokens, std::size_t first, std::size_t last)
{
    std::string text;
    for (std::size_t i = first; i <= last && i < tokens.size(); ++i) {
        const Trn::Token& t = tokens[i];
        if (isDiscardable(t))
            continue;
        if (!text.empty())
            text += ' ';
        switch (t.type()) {
        case CHAR_KEY: text += "char"; break;
        case WCHAR_T_KEY: text += "wchar_t"; break;
        case BOOL_KEY: text += "bool"; break;
        case SHORT_KEY: text += "short"; break;
        case INT_KEY: text += "int"; break;
        case LONG_KEY: text += "long"; break;
        default: text += t.text(); break;
        }
    }
    return text;
}

// The first comma outside parentheses, braces, brackets and angle brackets:
// the end of the first declarator. -1 when there is none. With `extended`, a
// ">>" closes two angle brackets when two are open.
long firstDeclaratorEnd(const std::vector<Trn::Token>& tokens, bool extended)
{
    int paren = 0;
    int brace = 0;
    int bracket = 0;
    int angle = 0;
    auto down = [](int& count) {
        if (count > 0)
            --count;
    };
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        switch (tokens[i].type()) {
        case LPAREN: ++paren; break;
        case RPAREN: down(paren); break;
        case LBRACE: ++brace; break;
        case RBRACE: down(brace); break;
        case LBRACKET: ++bracket; break;
        case RBRACKET: down(bracket); break;
        case LESS_THAN: ++angle; break;
        case GREATER_THAN: down(angle); break;
        case RIGHT_SHIFT:
            if (extended && angle >= 2)
                angle -= 2;
            break;
        case COMMA:
            if (paren == 0 && brace == 0 && bracket == 0 && angle == 0)
                return static_cast<long>(i);
            break;
        default: break;
        }
    }
    return -1;
}

// Searching back from `from` (exclusive): the first IDENTIFIER outside
// brackets and angle brackets. -1 when there is none. With `extended`, a ">>"
// closes two angle brackets.
long findName(const std::vector<Trn::Token>& tokens, long from, bool extended)
{
    int bracket = 0;
    int angle = 0;
    for (long i = from - 1; i >= 0; --i) {
        switch (tokens[static_cast<std::size_t>(i)].type()) {
        case RBRACKET: ++bracket; break;
        case LBRACKET: --bracket; break;
        case GREATER_THAN: ++angle; break;
        case RIGHT_SHIFT:
            if (extended)
                angle += 2;
            break;
        case LESS_THAN: --angle; break;
        case IDENTIFIER:
            if (bracket == 0 && angle == 0)
                return i;
            break;
        default: break;
        }
    }
    return -1;
}

} // namespace

DataDeclNode* Parser::parseDataDeclaration(Stream& s, bool bitFieldsAllowed)
{
    // First pass: take the tokens, and find where the first declarator splits.
    TokenList tokens;
    int paren = 0;
    int bracket = 0;
    // With the extensions, the depth inside an initialiser's braces, where
    // semicolons end nothing: `auto f = [&](int x) { g(x); return x; };`
    int brace = 0;
    long splitIndex = -1;
    bool ctorStyle = false;
    bool bitField = false;
    std::int32_t previous = END_OF_FILE;
    Trn::Position statementEnd;
    bool afterAlignas = false;
    for (bool done = false; !done;) {
        const Trn::Token t = get(s);
        const long index = static_cast<long>(tokens.size());
        const bool alignasBefore = afterAlignas;
        afterAlignas = m_later && isWord(t, "alignas");
        switch (t.type()) {
        case END_OF_FILE:
        case INVALID_TOKEN: return nullptr;
        case SEMICOLON:
            if (brace > 0)
                break;
            statementEnd = t.end();
            s.unget();
            done = true;
            continue;
        case PUBLIC_KEY:
        case PRIVATE_KEY:
        case PROTECTED_KEY:
            if (brace > 0)
                break;
            s.unget();
            done = true;
            continue;
        // `unsigned x : 3;` in a class.
        case COLON:
            if (paren == 0 && bracket == 0 && bitFieldsAllowed && !bitField) {
                const std::int32_t next = nextSignificant(s).type();
                if (next == NUMBER_LITERAL || next == IDENTIFIER) {
                    bitField = true;
                    splitIndex = index;
                }
            }
            break;
        // `A a(1);`, but not `int (*f)(int)`-like parentheses.
        case LPAREN:
            // With the later extensions `alignas(...)` is part of the type:
            // `alignas(16) char buffer[64];`
            if (paren == 0 && bracket == 0 && previous != ASTERISK && splitIndex == -1 && !alignasBefore) {
                ctorStyle = true;
                splitIndex = index;
            } else {
                ++paren;
            }
            break;
        case RPAREN:
            if (paren > 0)
                --paren;
            break;
        case EQUALS:
            if (paren == 0 && bracket == 0 && splitIndex == -1)
                splitIndex = index;
            break;
        // With the extensions, a brace initialiser splits like "=": `int x{0};`
        case LBRACE:
            if (m_extended && paren == 0 && bracket == 0 && splitIndex == -1
                && (previous == IDENTIFIER || previous == RBRACKET))
                splitIndex = index;
            if (m_extended)
                ++brace;
            break;
        case RBRACE:
            if (brace > 0)
                --brace;
            break;
        case LBRACKET: ++bracket; break;
        case RBRACKET:
            if (bracket > 0)
                --bracket;
            break;
        default: break;
        }
        tokens.push_back(t);
        if (!isDiscardable(t))
            previous = t.type();
    }
    if (tokens.empty())
        return nullptr;

    // Second pass: the name, searched back from the end of the first
    // declarator. The first declarator ends at its split (`=`, `(`, `:`) when
    // that comes before the first comma: `int a = b, c;` names `a`.
    long end = static_cast<long>(tokens.size());
    if (bitField) {
        end = splitIndex;
    } else {
        const long comma = firstDeclaratorEnd(tokens, m_extended);
        if (comma >= 0 && !(splitIndex >= 0 && splitIndex < comma))
            end = comma;
        else if (splitIndex >= 0)
            end = splitIndex;
    }
    const long name = findName(tokens, end, m_extended);
    const long typeEnd = name >= 0 ? name : end; // everything before the name is the type

    std::unique_ptr<TypeNode> type;
    if (typeEnd > 0)
        type = std::make_unique<TypeNode>(tokens.front().start(), tokens[static_cast<std::size_t>(typeEnd - 1)].end());
    std::unique_ptr<IdNode> id;
    if (name >= 0) {
        const auto first = static_cast<std::size_t>(name);
        const auto last = static_cast<std::size_t>(end - 1);
        id = std::make_unique<IdNode>(normalisedText(tokens, first, last), tokens[first].start(), tokens[last].end());
    }
    std::unique_ptr<ExprNode> rest;
    if (end < static_cast<long>(tokens.size()))
        rest = std::make_unique<ExprNode>(tokens[static_cast<std::size_t>(end)].start(),
                                          statementEnd.isNull() ? tokens.back().end() : statementEnd);
    // `foo(x);` is not a declaration.
    if (ctorStyle && !type)
        return nullptr;
    auto node = new DataDeclNode(type.release(), id.release(), rest.release());
    if (!statementEnd.isNull() && !node->initializer())
        node->setEnd(statementEnd);
    return node;
}

// `int (*f)(int);`, `void (*g[3])(void);`: the type before the first "(",
// the parenthesised declarator as the name, then the parameter list.
FunctionPtrDeclNode* Parser::parseFunctionPointer(Stream& s)
{
    int depth = 0;
    bool inType = true;
    bool typeMade = false;
    bool anyType = false;
    Trn::Position typeBegin;
    Trn::Position typeEnd;
    std::string idText;
    Trn::Position idBegin;
    Trn::Position idEnd;
    std::unique_ptr<TypeNode> type;
    std::unique_ptr<IdNode> id;
    std::unique_ptr<ParameterListNode> parameters;
    auto piece = [&](const Trn::Token& t) {
        if (!typeMade) {
            if (!anyType)
                typeBegin = t.start();
            anyType = true;
            typeEnd = t.end();
            return;
        }
        if (!idText.empty())
            idText += ' ';
        idText += t.text();
        idEnd = t.end();
    };
    for (bool done = false; !done;) {
        skipDiscardable(s);
        const Trn::Token t = get(s);
        switch (t.type()) {
        case SEMICOLON:
            compose("Expected \"(\" as part of pointer-to-function declaration. Got ';'", t);
            return nullptr;
        case LPAREN:
            if (++depth != 1) {
                piece(t);
                break;
            }
            // The first "(" ends the type and opens the declarator.
            if (!typeMade) {
                if (anyType)
                    type = std::make_unique<TypeNode>(typeBegin, typeEnd);
                typeMade = true;
                idBegin = t.start();
                piece(t);
                break;
            }
            s.unget();
            parameters.reset(parseParameterList(s, false));
            if (!parameters)
                return nullptr;
            done = true;
            break;
        case RPAREN: {
            --depth;
            piece(t);
            if (depth != 0 || !inType)
                break;
            // `(*f) MACRO`: a word behind the declarator belongs to it.
            skipDiscardable(s);
            if (peekAt(s, 1).type() == IDENTIFIER)
                piece(get(s));
            const Trn::Token next = nextSignificant(s);
            id = std::make_unique<IdNode>(idText, idBegin, idEnd);
            inType = false;
            if (next.type() == SEMICOLON) {
                done = true;
            } else if (next.type() != LPAREN) {
                compose("Expected \"(\" as part of pointer-to-function declaration. Got: " + next.text(), next);
                return nullptr;
            }
            break;
        }
        case END_OF_FILE:
        case INVALID_TOKEN: report(1, t); return nullptr;
        default: piece(t); break;
        }
    }
    skipDiscardable(s);
    std::unique_ptr<TextNode> qualifiers;
    const Trn::Token next = peekAt(s, 1);
    if (next.type() == CONST_KEY || next.type() == VOLATILE_KEY || isInterruptWord(next))
        qualifiers.reset(parseQualifiers(s, Trailer()));
    auto node = new FunctionPtrDeclNode(type.release(), id.release(), parameters.release(), qualifiers.release());
    if (peekAt(s, 1).type() == SEMICOLON)
        node->setEnd(get(s).end());
    return node;
}

} // namespace Cpp
