// The brace pass: a tree walker that adds or removes the braces round the
// single statement of an if, else, for or while, and changes nothing else. It
// runs first, before the formatter, and only when one of the three brace
// styles is not 0. It copies its input by position and makes no attempt at
// layout: an inserted brace stands directly against its statement, and the
// formatter puts it in place on the next pass.
//
// Protocol:
//   Kempt::CppRewriter rewriter(settings, text, result);
//   root.accept(rewriter);          // root parsed from `text`
//   // `result` holds the whole text, "\n" for every line break;
//   // rewriter.edits() tells which braces went in and out
//
// Invariants:
//  1. The input is read strictly forward and everything read is written,
//     except for the braces removed (and the white space in front of a
//     removed "}").
//  2. Only the body of an if, else, for or while sub-statement ever gains or
//     loses braces, and only when it holds exactly one child.
//  3. Braces are never removed where that would change which `if` an `else`
//     belongs to, or put two `else` in a row: not round a statement that
//     ends in an `if` when an `else` stands behind it. m_elseFollows says
//     whether one does, with nothing but unbraced bodies in between.
//  4. Braces are never removed round a declaration, nor where anything but
//     white space stands between a brace and the statement; they are never
//     added or removed round a statement whose brackets do not pair up (a
//     macro call the parser took apart in its middle).
#ifndef KEMPT_CPPREWRITER_H
#define KEMPT_CPPREWRITER_H

#include "Cpp_Emitter.h"
#include "Kempt_BraceEdits.h"
#include "Kempt_PropertySet.h"
#include "Kempt_SourceText.h"

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

namespace Cpp {
class SyntaxNode;
}

namespace Kempt {

class CppRewriter : public Cpp::Emitter {
public:
    // The three styles and what they mean.
    static constexpr std::int32_t LEAVE = 0;
    static constexpr std::int32_t ADD = 1;
    static constexpr std::int32_t REMOVE = 2;

    CppRewriter(const PropertySet& settings, const std::string& text, std::ostream& result);
    CppRewriter(const CppRewriter&) = delete;
    CppRewriter& operator=(const CppRewriter&) = delete;

    // Whether any of the three styles is set in `settings` (each must lie in
    // 0..2; another value is a contract failure).
    static bool anyStyleSet(const PropertySet& settings);

    // The braces removed (positions in the input) and added (positions in
    // the result), in text order; complete once emitRoot has run.
    const BraceEdits& edits() const { return m_edits; }

    // Walked: their statements are reached.
    void emitRoot(Cpp::RootNode& node) override;
    void emitCtrlStmt(Cpp::CtrlStmtNode& node) override;
    void emitCtrlSubStmt(Cpp::CtrlSubStmtNode& node) override;
    void emitBlock(Cpp::BlockNode& node) override;
    void emitFunctionDecl(Cpp::FunctionDeclNode& node) override;
    void emitCtorDecl(Cpp::CtorDeclNode& node) override;
    void emitLinkageBlock(Cpp::LinkageBlockNode& node) override;
    void emitNamespaceDecl(Cpp::NamespaceDeclNode& node) override;
    void emitClassDecl(Cpp::ClassDeclNode& node) override;

    // A case label in a walked block: nothing, its text is carried along.
    void emitCase(Cpp::CaseNode& node) override;

    // Never reached: no walked node has such a child.
    void emitLinkageBlockBody(Cpp::LinkageBlockBodyNode& node) override;
    void emitEnumBody(Cpp::EnumBodyNode& node) override;
    void emitEnumHead(Cpp::EnumHeadNode& node) override;
    void emitKeyword(Cpp::KeywordNode& node) override;
    void emitCtrlSubStmtHead(Cpp::CtrlSubStmtHeadNode& node) override;
    void emitType(Cpp::TypeNode& node) override;
    void emitInitializer(Cpp::InitializerNode& node) override;
    void emitInitializerList(Cpp::InitializerListNode& node) override;
    void emitParameterList(Cpp::ParameterListNode& node) override;
    void emitParameter(Cpp::ParameterNode& node) override;
    void emitFunctionReturn(Cpp::FunctionReturnNode& node) override;
    void emitFunctionHead(Cpp::FunctionHeadNode& node) override;
    void emitNamespaceBody(Cpp::NamespaceBodyNode& node) override;
    void emitNamespaceHead(Cpp::NamespaceHeadNode& node) override;
    void emitClassName(Cpp::ClassNameNode& node) override;
    void emitClassHead(Cpp::ClassHeadNode& node) override;
    void emitClassBody(Cpp::ClassBodyNode& node) override;
    void emitBaseClauseList(Cpp::BaseClauseListNode& node) override;
    void emitBaseClause(Cpp::BaseClauseNode& node) override;

    // Everything else does nothing: its text is carried by the next copy.

private:
    // Sets a walker flag for the life of the guard.
    class FlagGuard {
    public:
        FlagGuard(bool& flag, bool value) : m_flag(flag), m_saved(flag) { m_flag = value; }
        ~FlagGuard() { m_flag = m_saved; }
        FlagGuard(const FlagGuard&) = delete;
        FlagGuard& operator=(const FlagGuard&) = delete;

    private:
        bool& m_flag;
        bool m_saved;
    };

    void walkDeclarations(Cpp::InteriorNode& node);
    void walkParts(Cpp::CtrlStmtNode& node);
    void walkChildren(Cpp::InteriorNode& node);
    void rewriteStatement(Cpp::BlockNode& stmt, std::int32_t style);
    void keepBraces(Cpp::BlockNode& stmt);
    void addBraces(Cpp::BlockNode& stmt);
    void removeBraces(Cpp::BlockNode& stmt);
    bool mayRemoveBraces(const Cpp::BlockNode& stmt) const;
    bool isWholeStatement(const Cpp::SyntaxNode& statement) const;
    bool hasBraces(const Cpp::BlockNode& stmt) const;

    void copyUpTo(const Trn::Position& p);
    void writeBrace(char brace);

    static std::int32_t readStyle(const PropertySet& settings, const char* name);

    std::int32_t m_ifElseStyle = LEAVE;
    std::int32_t m_forStyle = LEAVE;
    std::int32_t m_whileStyle = LEAVE;
    SourceText m_text;
    SourceReader m_in;
    std::ostream& m_result;
    std::string m_out;
    std::vector<std::size_t> m_addedOffsets;
    BraceEdits m_edits;
    bool m_elseFollows = false;
};

} // namespace Kempt

#endif
