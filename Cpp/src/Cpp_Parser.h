// The C++ parser: builds a Cpp::RootNode from the tokens of a Cpp::Lexer and
// appends a message for every fault it finds. It is not a compiler's parser:
// it sees unpreprocessed text, knows no declared names, and must survive
// macros, conditional blocks and compiler extensions.
//
// Protocol: construct once per formatting run; call parse() for each text. The
// parser keeps nothing between calls but the message list of the call in
// progress. A file whose parse leaves any message (other than code 2, which the
// driver drops) is not formatted.
//
// How it reads:
//  1. A declaration is first gathered token by token into a list while a small
//     state machine decides what it is (function, data, class, enum); the list
//     is then parsed by the routine for that kind, from a stream over the list,
//     where look-ahead is exact however deep. On the main stream, over the
//     lexer, look-ahead stays short: its window loses tokens on deep peeks.
//  2. Expressions are never parsed: an expression is an ExprNode span. What
//     lies outside every node stays as text in the gaps, which the passes copy.
//  3. Failure travels by null returns and messages; there is no
//     resynchronisation inside a declaration. The top level goes on with the
//     next token, so one file can report several errors.
//  4. Every loop consumes at least one token per turn, and nesting deeper than
//     MAX_NESTING constructs ends the parse with one message saying so, so
//     that no input makes it hang or exhaust the stack.
//  5. A text is read first by the core rules. Only a text they refuse is read
//     again, from its start, with the extensions for real-world code (macro
//     lines without a semicolon, C++11 and later syntax; see `m_extended`).
//     So a text the core rules accept always keeps exactly the tree they give
//     it. A text the extensions refuse too is read a third time with them,
//     over a lexer that folds the other branches of each conditional into one
//     directive (`#else` ... `#endif`), for braces that balance only across
//     branches. A text still refused is read twice more in the same way with
//     the later extensions on as well (`m_later`: attributes, braced values in
//     conditions, requires clauses), so that every text an earlier reading
//     accepts keeps the tree that reading gives it. The messages of a text
//     refused by every reading are those of the unfolded reading with the
//     later extensions. A reading that will be repeated stops at its first
//     fault.
//
// The routines are split over several files by construct family:
// Cpp_Parser.cpp (core, top level), Cpp_Parser_Classes.cpp (classes, enums,
// namespaces, templates, linkage blocks), Cpp_Parser_Functions.cpp,
// Cpp_Parser_Data.cpp and Cpp_Parser_Statements.cpp.
#ifndef CPP_PARSER_H
#define CPP_PARSER_H

#include "Trn_FormatMessage.h"
#include "Cpp_TokenType.h"
#include "Trn_Parser.h"
#include "Trn_Token.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Trn {
class TokenStream;
}

namespace Cpp {

class Lexer;
class RootNode;
class SyntaxNode;
class InteriorNode;
class AccessSpecNode;
class AsmNode;
class BaseClauseListNode;
class BaseClauseNode;
class BlockNode;
class CaseNode;
class ClassBodyNode;
class ClassDeclNode;
class ClassHeadNode;
class ClassNameNode;
class CommentNode;
class CtrlStmtNode;
class CtrlSubStmtHeadNode;
class CtrlSubStmtNode;
class DataDeclNode;
class EnumBodyNode;
class EnumDeclNode;
class EnumHeadNode;
class ExprNode;
class FunctionDeclNode;
class FunctionHeadNode;
class FunctionPtrDeclNode;
class InitializerListNode;
class InitializerNode;
class LabelNode;
class LinkageBlockBodyNode;
class LinkageBlockNode;
class NamespaceBodyNode;
class NamespaceDeclNode;
class NamespaceHeadNode;
class ParameterListNode;
class PreprocDirectiveNode;
class TextNode;

class Parser : public Trn::Parser {
public:
    // Constructs nested deeper than this (blocks, declarations, control
    // statements) end the parse with the message tooDeepText(). The parts of
    // an `else if` chain do not nest.
    static constexpr int MAX_NESTING = 512;
    // "nesting deeper than 512 levels is not supported"
    static std::string tooDeepText();

    Parser();
    ~Parser() override;

    void parse(Trn::Lexer& lexer, Trn::SyntaxNode& root, Trn::FormatMessageList& messages) override;
    void parse(Lexer& lexer, RootNode& root, Trn::FormatMessageList& messages);

private:
    friend class ParserTestAccess;
    using Stream = Trn::TokenStream;
    using TokenList = std::vector<Trn::Token>;
    class NestingGuard;
    class InnerBraces;

    // What parseDeclaration found.
    enum class DeclKind { DATA, FUNCTION, CLASS, ENUM };

    // Where the words between a function's parameter list and its body lie in
    // its gathered head, `f() const override {`: indices counted from 1, as
    // peek(n) counts them; `first` is 0 when there are none.
    struct Trailer {
        std::size_t first = 0;
        std::size_t last = 0;
    };

    // --- core and top level (Cpp_Parser.cpp) ---
    // How a text is read: by the core rules, with the extensions, or with the
    // extensions and the later ones (attributes, braced values in conditions,
    // requires clauses and the like), which only a text the others refuse
    // meets, so that a text they accept keeps its tree.
    enum class Reading { CORE, EXTENDED, LATER };
    // One reading of the whole text; true when it left no message but code 2.
    // `stopAtFault` ends the reading at its first fault.
    bool read(Trn::Lexer& tokens, RootNode& root, Reading reading, bool stopAtFault);
    // With the extensions, a `>>` behind `previous` (a token type) at angle
    // depth `angle` closes two template argument lists: `A<B<C>>`.
    bool closesTwoAngles(std::int32_t previous, int angle) const
    {
        return m_extended && angle >= 2 && previous != OPERATOR_KEY;
    }
    // Appends to the first error from `from` on the note that names the last
    // word before it that reads like a macro, when there is one near it;
    // `lexer` reads the text from its start.
    void nameProbableMacro(Lexer& lexer, Trn::FormatMessageList::iterator from);
    // " (is FOO a macro? ...)"
    static std::string probableMacroNote(const std::string& word);
    // Whether the routines should unwind: nesting went too deep, or a reading
    // that stops at its first fault has one.
    bool stopping() const { return m_tooDeep || m_faulted; }
    struct Gathered;
    void parseTopLevel(Stream& s, RootNode& root);
    void topLevelTurn(Stream& s, RootNode& root, const Trn::Token& t);
    SyntaxNode* parseDeclaration(Stream& s, bool& isTypeBody, bool bitFieldsAllowed = false);
    bool classifyDeclaration(Stream& s, Gathered& g);
    bool classifyBracket(Stream& s, Gathered& g);
    bool endsMacroLine(Stream& s, const Trn::Token& word);
    bool startsInlineNamespace(Stream& s);
    void parseMacroScope(Stream& s, InteriorNode& node);
    bool onlyMacroNotes(std::size_t count) const;
    bool gatherThrough(Stream& s, Gathered& g, std::int32_t type);
    bool gatherFunctionHead(Stream& s, Gathered& g);
    bool gatherInitializers(Stream& s, Gathered& g);
    bool gatherTrailer(Stream& s, Gathered& g);
    bool bracedArgumentsAhead(Stream& s);
    void gatherInterruptTail(Stream& s, Gathered& g);
    void gatherFunctionRest(Stream& s, Gathered& g, bool& stoppedAtComma);
    bool isPureSpecifier(const Trn::Token& t) const;
    void gatherDataRest(Stream& s, Gathered& g);
    bool gatherBody(Stream& s, Gathered& g);
    PreprocDirectiveNode* parseDirective(Stream& s);
    CommentNode* parseComment(Stream& s);
    void addWithSemicolon(Stream& s, InteriorNode& node, SyntaxNode* decl, bool isTypeBody);

    // Helpers on a stream.
    Trn::Token get(Stream& s);
    Trn::Token peekAt(Stream& s, std::int32_t n);
    void skipDiscardable(Stream& s);
    void collectDiscardable(Stream& s, InteriorNode& node);
    Trn::Token nextSignificant(Stream& s, std::int32_t from = 1);
    void skipTo(Stream& s, std::int32_t type);
    void skipToCollecting(Stream& s, InteriorNode& node, std::int32_t type);
    Trn::Position skipToSemicolon(Stream& s);
    bool gatherUntil(Stream& s, TokenList& list, std::int32_t type);
    void gatherStatement(Stream& s, TokenList& list);
    // Gathers through the `close` that brings `depth` (the opens already
    // gathered) back to 0. False, with message code 1, at the end of input.
    bool gatherBalanced(Stream& s, TokenList& list, std::int32_t open, std::int32_t close, int depth);

    // Messages: coded ones with the table's text, composed ones with their own.
    void report(std::int32_t code, const Trn::Token& at);
    void report(std::int32_t code, const Trn::Position& at);
    void compose(const std::string& text, const Trn::Token& at);
    // The one message of a parse that nests too deep; later ones are dropped.
    void reportTooDeep(const Trn::Token& at);
    Trn::Position placeOf(const Trn::Token& token) const;

    // Makes sure a loop's turn consumed something: drops the token that stood
    // ahead before the turn when it still stands there.
    void ensureProgress(Stream& s, const Trn::Token& before);

    // --- classes, enums, namespaces, templates, linkage (Cpp_Parser_Classes.cpp) ---
    struct HeadText;
    void joinHead(Stream& s, HeadText& head, bool enumHead);
    void parseNestedNamespace(Stream& s, InteriorNode& body);
    ClassDeclNode* parseClass(Stream& s);
    ClassHeadNode* parseClassHead(Stream& s);
    ClassNameNode* parseClassName(Stream& s);
    BaseClauseListNode* parseBaseClauses(Stream& s);
    BaseClauseNode* parseBaseClause(Stream& s);
    ClassBodyNode* parseClassBody(Stream& s);
    AccessSpecNode* parseAccessSpec(Stream& s);
    EnumDeclNode* parseEnum(Stream& s);
    EnumHeadNode* parseEnumHead(Stream& s);
    EnumBodyNode* parseEnumBody(Stream& s);
    NamespaceDeclNode* parseNamespace(Stream& s);
    NamespaceHeadNode* parseNamespaceHead(Stream& s);
    NamespaceHeadNode* parseExtendedNamespaceHead(Stream& s, const Trn::Token& keyword);
    // The peek index of the ")" or "]" that closes the "(" or "[" at peek
    // index `open`, counting only that kind; 0 at the end of input.
    std::int32_t balancedGroupEnd(Stream& s, std::int32_t open);
    NamespaceBodyNode* parseNamespaceBody(Stream& s);
    SyntaxNode* parseTemplate(Stream& s);
    std::int32_t requiresClauseLength(Stream& s);
    std::int32_t nextSignificantIndex(Stream& s, std::int32_t from, std::int32_t type);
    SyntaxNode* parseExtern(Stream& s);
    LinkageBlockNode* parseLinkageBlock(Stream& s);
    LinkageBlockBodyNode* parseLinkageBody(Stream& s);
    bool parseMemberDeclaration(Stream& s, InteriorNode& node, bool bitFieldsAllowed);
    // One turn of a namespace or linkage body at the token `t` ahead.
    enum class BodyTurn { GO_ON, CLOSED, FAILED };
    BodyTurn declarationBodyTurn(Stream& s, InteriorNode& body, const Trn::Token& t, int& depth);
    // A list of items between directives, comments and commas, up to the "{"
    // behind it: base clauses, member initialisers. Null when empty or when an
    // item fails.
    template <typename List, typename Item>
    List* parseCommaList(Stream& s, Item* (Parser::*parseItem)(Stream&));

    // --- functions and parameters (Cpp_Parser_Functions.cpp) ---
    FunctionDeclNode* parseFunction(const TokenList& head, Stream& main, const Trailer& trailer);
    FunctionHeadNode* parseFunctionHead(const TokenList& list, Stream& head, const Trailer& trailer);
    std::int32_t trailerLength(Stream& s);
    std::int32_t balancedEnd(Stream& s, std::int32_t open);
    bool initializerAhead(Stream& s, std::int32_t n);
    bool specifierAhead(Stream& s, std::int32_t n);
    struct FunctionName;
    bool findFunctionName(const TokenList& list, std::size_t parenIndex, FunctionName& name);
    bool findOperatorName(const TokenList& list, FunctionName& name);
    std::size_t beforeAttributes(const TokenList& list, std::size_t end);
    void extendName(const TokenList& list, FunctionName& name);
    ExprNode* parseExceptionSpec(Stream& head);
    ExprNode* parsePureSpec(Stream& head);
    ParameterListNode* parseParameterList(Stream& s, bool templateMode);
    InitializerListNode* parseInitializerList(Stream& s);
    InitializerNode* parseInitializer(Stream& s);
    TextNode* parseQualifiers(Stream& s, const Trailer& trailer);

    // --- data declarations (Cpp_Parser_Data.cpp) ---
    DataDeclNode* parseDataDeclaration(Stream& s, bool bitFieldsAllowed);
    FunctionPtrDeclNode* parseFunctionPointer(Stream& s);

    // --- statements and blocks (Cpp_Parser_Statements.cpp) ---
    BlockNode* parseBlock(Stream& s);
    void parseBlockContent(Stream& s, BlockNode& node);
    void parseBlockTurn(Stream& s, BlockNode& node, const Trn::Token& t, int& depth);
    void parseIdentifierStatement(Stream& s, BlockNode& node);
    void declarationOrExpression(Stream& s, BlockNode& node);
    ExprNode* parseExpression(Stream& s);
    CtrlStmtNode* parseControlStatement(Stream& s);
    CtrlSubStmtNode* parseSubStatement(Stream& s);
    CtrlSubStmtNode* parseElsePart(Stream& s);
    static bool isElseIf(const CtrlSubStmtNode& part);
    CtrlSubStmtHeadNode* parseHead(Stream& s);
    bool opensBracesInHead(const Trn::Token& previous, bool arrow) const;
    bool bracedValueAhead(Stream& s, const Trn::Token& previous);
    bool skipBraces(Stream& s, const Trn::Token& open);
    CaseNode* parseCase(Stream& s);
    LabelNode* parseLabel(Stream& s);
    AsmNode* parseAsm(Stream& s);

    Trn::FormatMessageList m_messages;
    Trn::Position m_lastPosition; // of the last real token taken, for messages at end of input
    int m_nesting = 0;
    bool m_tooDeep = false;
    // The extensions for real-world code are on (a reading after the core one).
    bool m_extended = false;
    // The later extensions are on too (the readings after the extended ones).
    bool m_later = false;
    // The reading ends at its first message other than code 2, and has one.
    bool m_stopAtFault = false;
    bool m_faulted = false;
};

// Word tests of the parser's own vocabulary.
bool isExtensionWord(const Trn::Token& token); // __based _based __assume __declspec
bool isAsmWord(const Trn::Token& token);       // asm _asm __asm asm_ asm__ _asm_ __asm__ ___asm
bool isInterruptWord(const Trn::Token& token); // interrupt
// An IDENTIFIER, OPERATOR_KEY, NEW_KEY or DELETE_KEY longer than 2 characters
// that starts or ends with "::".
bool isQualifiedName(const Trn::Token& token);

} // namespace Cpp

#endif
