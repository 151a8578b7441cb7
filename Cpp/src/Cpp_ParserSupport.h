// Small token tests and text helpers shared by the parser's source files, and
// the parser's one member template. Not part of the parser's interface.
#ifndef CPP_PARSERSUPPORT_H
#define CPP_PARSERSUPPORT_H

#include "Cpp_Nodes.h"
#include "Cpp_Parser.h"
#include "Cpp_TokenType.h"
#include "Trn_Token.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Cpp::ParserSupport {

inline bool isComment(const Trn::Token& t)
{
    return t.type() == LINE_COMMENT || t.type() == BLOCK_COMMENT;
}

// Comments and directives: tokens with no place in most of the tree.
inline bool isDiscardable(const Trn::Token& t)
{
    return isComment(t) || t.type() == PREPROC_DIRECTIVE;
}

inline bool isAccessKey(std::int32_t type)
{
    return type == PUBLIC_KEY || type == PRIVATE_KEY || type == PROTECTED_KEY;
}

// if, else, for, do, while, try, catch, switch (94, 95, 97 to 102).
inline bool isControlKeyword(std::int32_t type)
{
    return type >= IF_KEY && type <= SWITCH_KEY && type != UNUSED_KEY;
}

// char to void (109 to 117).
inline bool isBuiltInType(std::int32_t type)
{
    return type >= FIRST_TYPE_KEYWORD && type <= LAST_TYPE_KEYWORD;
}

inline bool isClassKey(std::int32_t type)
{
    return type == CLASS_KEY || type == STRUCT_KEY || type == UNION_KEY;
}

inline bool isEnd(const Trn::Token& t)
{
    return t.type() == END_OF_FILE || t.type() == INVALID_TOKEN;
}

// An identifier that reads `word`: `constexpr`, `noexcept`, which the lexer
// knows as names.
inline bool isWord(const Trn::Token& t, std::string_view word)
{
    return t.type() == IDENTIFIER && t.text() == word;
}

// The words of a comment: the text without delimiters, trimmed.
std::string commentWords(const Trn::Token& comment);

// The comment that opens a region of text the parser does not read, and the
// one that closes it. They match only exactly, once delimiters and the white
// space around the words are gone.
inline const char* const OFF_MARKER = "TIDEWRIGHT-OFF";
inline const char* const ON_MARKER = "TIDEWRIGHT-ON";

// The text without any white space: "# if 0" reads "#if0".
std::string withoutWhiteSpace(const std::string& text);

// Token texts joined with single blanks, comments and directives left out.
std::string joinTexts(const std::vector<Trn::Token>& tokens, std::size_t first, std::size_t last);

} // namespace Cpp::ParserSupport

namespace Cpp {

// Counts the constructs the parser is inside of; past MAX_NESTING the parse
// ends with one message that says so, at the token where it happened.
class Parser::NestingGuard {
public:
    NestingGuard(Parser& parser, const Trn::Token& at) : m_parser(parser)
    {
        if (++m_parser.m_nesting > MAX_NESTING)
            m_parser.reportTooDeep(at);
    }
    ~NestingGuard() { --m_parser.m_nesting; }
    NestingGuard(const NestingGuard&) = delete;
    NestingGuard& operator=(const NestingGuard&) = delete;

    bool stopping() const { return m_parser.stopping(); }

private:
    Parser& m_parser;
};

} // namespace Cpp

namespace Cpp {

template <typename List, typename Item>
List* Parser::parseCommaList(Stream& s, Item* (Parser::*parseItem)(Stream&))
{
    auto list = std::make_unique<List>();
    for (;;) {
        const Trn::Token t = peekAt(s, 1);
        switch (t.type()) {
        case PREPROC_DIRECTIVE: list->add(parseDirective(s)); continue;
        case LINE_COMMENT:
        case BLOCK_COMMENT: list->add(parseComment(s)); continue;
        case COMMA: get(s); continue;
        case LBRACE: break;
        case END_OF_FILE:
        case INVALID_TOKEN: report(1, t); return nullptr;
        default: {
            Item* item = (this->*parseItem)(s);
            if (!item)
                return nullptr;
            list->add(item);
            continue;
        }
        }
        break;
    }
    if (list->empty())
        return nullptr;
    return list.release();
}

} // namespace Cpp

#endif
