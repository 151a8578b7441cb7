// The line wrapping pass: the last pass of the pipeline, a tree walker over a
// fresh parse of the formatted text. It copies the text across and changes
// only the statements and declarations that hold a line beyond the right
// margin; the breaking of one expression or list is left to
// CppExprLineWrapper. Everything else goes through byte for byte.
//
// Protocol:
//   Kempt::CppLineWrapper wrapper(settings, text, result);
//   root.accept(wrapper);   // root parsed from `text`; emitRoot runs the pass
//   // `result` holds the text, "\n" for every line break
//
// Invariants:
//  1. The input is read strictly forward and every character read is
//     written; only the white space between tokens of a wrapped text changes.
//  2. A node none of whose lines is too long is copied whole, without
//     descent (inRange is one look-up in the set of long lines).
//  3. Comments, directives, string literals and access labels are never
//     broken; a text no break point can shorten stays too long.
//  4. Continuation lines indent from the column of the construct they belong
//     to: a statement's own indent, a declaration's name, a function head.
#ifndef KEMPT_CPPLINEWRAPPER_H
#define KEMPT_CPPLINEWRAPPER_H

#include "Cpp_Emitter.h"
#include "Kempt_CppExprLineWrapper.h"
#include "Kempt_FormatSettings.h"
#include "Kempt_SourceText.h"

#include <cstdint>
#include <initializer_list>
#include <iosfwd>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace Cpp {
class SyntaxNode;
}

namespace Kempt {

class CppLineWrapper : public Cpp::Emitter {
public:
    CppLineWrapper(const FormatSettings& settings, const std::string& text, std::ostream& result);
    CppLineWrapper(const CppLineWrapper&) = delete;
    CppLineWrapper& operator=(const CppLineWrapper&) = delete;

    void emitRoot(Cpp::RootNode& node) override;

    // Lists of statements and declarations: descend into the ones in range.
    void emitBlock(Cpp::BlockNode& node) override;
    void emitClassBody(Cpp::ClassBodyNode& node) override;
    void emitNamespaceBody(Cpp::NamespaceBodyNode& node) override;
    void emitLinkageBlockBody(Cpp::LinkageBlockBodyNode& node) override;
    void emitCtrlStmt(Cpp::CtrlStmtNode& node) override;
    void emitInterior(Cpp::InteriorNode& node) override;

    // Declarations.
    void emitClassDecl(Cpp::ClassDeclNode& node) override;
    void emitClassHead(Cpp::ClassHeadNode& node) override;
    void emitBaseClauseList(Cpp::BaseClauseListNode& node) override;
    void emitNamespaceDecl(Cpp::NamespaceDeclNode& node) override;
    void emitLinkageBlock(Cpp::LinkageBlockNode& node) override;
    void emitEnumDecl(Cpp::EnumDeclNode& node) override;
    void emitEnumBody(Cpp::EnumBodyNode& node) override;
    void emitFunctionDecl(Cpp::FunctionDeclNode& node) override;
    void emitCtorDecl(Cpp::CtorDeclNode& node) override;
    void emitFunctionHead(Cpp::FunctionHeadNode& node) override;
    void emitInitializerList(Cpp::InitializerListNode& node) override;
    void emitDataDecl(Cpp::DataDeclNode& node) override;

    // Statements.
    void emitCtrlSubStmt(Cpp::CtrlSubStmtNode& node) override;
    void emitCtrlSubStmtHead(Cpp::CtrlSubStmtHeadNode& node) override;
    void emitExpr(Cpp::ExprNode& node) override;

    // Copied as they stand, in range or not.
    void emitArgList(Cpp::ArgListNode& node) override;
    void emitArg(Cpp::ArgNode& node) override;
    void emitAsm(Cpp::AsmNode& node) override;
    void emitLabel(Cpp::LabelNode& node) override;
    void emitText(Cpp::TextNode& node) override;
    void emitFunctionPtrDecl(Cpp::FunctionPtrDeclNode& node) override;
    void emitEnumHead(Cpp::EnumHeadNode& node) override;
    void emitPreprocDirective(Cpp::PreprocDirectiveNode& node) override;
    void emitComment(Cpp::CommentNode& node) override;
    void emitTemplate(Cpp::TemplateNode& node) override;
    void emitCase(Cpp::CaseNode& node) override;
    void emitKeyword(Cpp::KeywordNode& node) override;
    void emitType(Cpp::TypeNode& node) override;
    void emitInitializer(Cpp::InitializerNode& node) override;
    void emitParameterList(Cpp::ParameterListNode& node) override;
    void emitParameter(Cpp::ParameterNode& node) override;
    void emitId(Cpp::IdNode& node) override;
    void emitFunctionReturn(Cpp::FunctionReturnNode& node) override;
    void emitNamespaceHead(Cpp::NamespaceHeadNode& node) override;
    void emitAccessSpec(Cpp::AccessSpecNode& node) override;
    void emitClassName(Cpp::ClassNameNode& node) override;
    void emitBaseClause(Cpp::BaseClauseNode& node) override;

    // After the walk: whether the result differs from the text.
    bool changedText() const { return m_changed; }

    // The lines of the text, from 1, that pass the right margin.
    const std::set<std::int32_t>& longLines() const { return m_longLines; }

private:
    bool inRange(const Cpp::SyntaxNode& node) const;
    void copyNode(const Cpp::SyntaxNode& node);
    // The node's text wrapped as one expression from the indent of its line.
    void wrapWhole(const Cpp::SyntaxNode& node);
    void visit(Cpp::SyntaxNode* node);
    void visitChildren(Cpp::InteriorNode& node);
    // A node in range: its parts visited in order, the rest copied; else the
    // whole node copied.
    void visitParts(const Cpp::SyntaxNode& node, std::initializer_list<Cpp::SyntaxNode*> parts);
    // visitParts with the column the node starts at as the one its parts'
    // continuation lines indent from.
    void visitPartsFromColumn(const Cpp::SyntaxNode& node, std::initializer_list<Cpp::SyntaxNode*> parts);
    // The column of the construct being wrapped, 0 at the outermost level.
    std::int32_t outerColumn() const;
    void copyThrough(const Trn::Position& p);
    void copyUpTo(const Trn::Position& p);
    // A comma list that stands one element to a line already is left alone.
    void wrapListOf(Cpp::InteriorNode& node, const std::string& beforeComma, const std::string& between,
                    std::int32_t base);
    // The source text behind the cursor, up to the end of its line or the
    // first ":" or "{".
    std::string_view restOfLine() const;
    std::int32_t column() const;
    std::int32_t lineIndent() const;
    Varnel::StreamState stateAt(std::int32_t base) const;

    FormatSettings m_settings;
    SourceText m_source;
    SourceReader m_in;
    std::ostream& m_result;
    std::string m_out;
    CppExprLineWrapper m_wrapper;
    std::set<std::int32_t> m_longLines;
    std::vector<std::int32_t> m_columns; // where continuation lines of the construct being walked indent from
    bool m_lineWrap = false;
    bool m_changed = false;
    std::int32_t m_RightMargin = 0;
    std::int32_t m_tabSize = 1;
    std::int32_t m_wrapStyle = 0;
};

} // namespace Kempt

#endif
