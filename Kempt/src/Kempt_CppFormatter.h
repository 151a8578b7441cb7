// The layout pass: a tree walker that writes the text of one file again with
// its white space set by the scheme. It does not print the tree: it copies the
// input across by position, in order, and decides only what white space comes
// out between two stretches of text. A node tells it where a stretch begins
// and ends; the text between nodes (comments, macros, directives the tree does
// not model) is a gap, copied with its gap rules.
//
// Protocol:
//   Kempt::CppFormatter formatter(text, result, settings);
//   root.accept(formatter);   // root parsed from `text`; emitRoot runs the pass
//   // `result` holds the text, "\n" for every line break
//
// Invariants:
//  1. The input is read strictly forward; what has been read has been
//     written, or its non-white-space characters will be written by the same
//     operation.
//  2. A white-space setting that is not set leaves its gap as the source has
//     it; a set one replaces the gap's white space, never a comment or a
//     directive, and never puts anything behind a "//" comment on its line.
//  3. A line's indentation comes from the indent guard in force when its
//     first character is written (Varnel::OIndentStream), never from the
//     input. indentStack holds the columns nested constructs indent from.
//  4. White space a head asks of the construct behind it (the gap before an
//     opening brace) waits in pendingWhiteSpace until that construct takes it.
//
// The operations are split by construct family: Kempt_CppFormatter.cpp (core:
// the indent model, blocks, lists, the root), _Functions.cpp (function heads,
// parameter lists, member initialisers), _Comments.cpp (comments and
// directives), _Classes.cpp, _Control.cpp and _Data.cpp.
#ifndef KEMPT_CPPFORMATTER_H
#define KEMPT_CPPFORMATTER_H

#include "Cpp_Emitter.h"
#include "Kempt_CppExprFormatter.h"
#include "Kempt_CppFormatterConfig.h"
#include "Kempt_FormatSettings.h"
#include "Kempt_OffsetCalculator.h"
#include "Kempt_SourceText.h"
#include "Varnel_OIndentStream.h"

#include <cstdint>
#include <deque>
#include <iosfwd>
#include <string>
#include <vector>

namespace Varnel {
struct StreamState;
}

namespace Kempt {

struct AlignedType;

class CppFormatter : public Cpp::Emitter {
public:
    CppFormatter(const std::string& text, std::ostream& result, const FormatSettings& settings);
    CppFormatter(const CppFormatter&) = delete;
    CppFormatter& operator=(const CppFormatter&) = delete;

    // The root, comments and directives (core and _Comments.cpp).
    void emitRoot(Cpp::RootNode& node) override;
    void emitComment(Cpp::CommentNode& node) override;
    void emitPreprocDirective(Cpp::PreprocDirectiveNode& node) override;
    void emitInterior(Cpp::InteriorNode& node) override;

    // Functions (_Functions.cpp).
    void emitFunctionDecl(Cpp::FunctionDeclNode& node) override;
    void emitCtorDecl(Cpp::CtorDeclNode& node) override;
    void emitFunctionHead(Cpp::FunctionHeadNode& node) override;
    void emitFunctionReturn(Cpp::FunctionReturnNode& node) override;
    void emitParameterList(Cpp::ParameterListNode& node) override;
    void emitParameter(Cpp::ParameterNode& node) override;
    void emitInitializerList(Cpp::InitializerListNode& node) override;
    void emitInitializer(Cpp::InitializerNode& node) override;
    void emitFunctionPtrDecl(Cpp::FunctionPtrDeclNode& node) override;

    // Classes, namespaces, enums, templates, linkage blocks (_Classes.cpp).
    void emitClassDecl(Cpp::ClassDeclNode& node) override;
    void emitClassHead(Cpp::ClassHeadNode& node) override;
    void emitClassBody(Cpp::ClassBodyNode& node) override;
    void emitBaseClauseList(Cpp::BaseClauseListNode& node) override;
    void emitBaseClause(Cpp::BaseClauseNode& node) override;
    void emitAccessSpec(Cpp::AccessSpecNode& node) override;
    void emitNamespaceDecl(Cpp::NamespaceDeclNode& node) override;
    void emitNamespaceBody(Cpp::NamespaceBodyNode& node) override;
    void emitLinkageBlock(Cpp::LinkageBlockNode& node) override;
    void emitLinkageBlockBody(Cpp::LinkageBlockBodyNode& node) override;
    void emitEnumDecl(Cpp::EnumDeclNode& node) override;
    void emitEnumBody(Cpp::EnumBodyNode& node) override;
    void emitTemplate(Cpp::TemplateNode& node) override;
    void emitClassName(Cpp::ClassNameNode& node) override;
    void emitEnumHead(Cpp::EnumHeadNode& node) override;
    void emitNamespaceHead(Cpp::NamespaceHeadNode& node) override;
    void emitKeyword(Cpp::KeywordNode& node) override;
    void emitType(Cpp::TypeNode& node) override;
    void emitText(Cpp::TextNode& node) override;
    void emitLabel(Cpp::LabelNode& node) override;

    // Statements and blocks (_Control.cpp).
    void emitCtrlStmt(Cpp::CtrlStmtNode& node) override;
    void emitCtrlSubStmt(Cpp::CtrlSubStmtNode& node) override;
    void emitCtrlSubStmtHead(Cpp::CtrlSubStmtHeadNode& node) override;
    void emitBlock(Cpp::BlockNode& node) override;
    void emitCase(Cpp::CaseNode& node) override;
    void emitAsm(Cpp::AsmNode& node) override;

    // Data declarations and expressions (_Data.cpp).
    void emitDataDecl(Cpp::DataDeclNode& node) override;
    void emitExpr(Cpp::ExprNode& node) override;
    void emitId(Cpp::IdNode& node) override;

    // The settings the pass reads, as WsSetting values; a setting the scheme
    // does not hold is not set.
    struct Layout {
        WsSetting globalBeforeOpenBrace, globalIndent, globalAfterOpenBrace, globalBeforeCloseBrace;
        WsSetting nsBeforeOpenBrace, nsIndent, nsAfterOpenBrace, nsBeforeCloseBrace;
        WsSetting classBeforeOpenBrace, classAfterName, classIndent, classAfterOpenBrace, classBeforeCloseBrace;
        WsSetting beforeBaseClauses, beforeBaseClausesComma, betweenBaseClauses, beforeAccessSpecs;
        WsSetting accessSpecIndent;
        WsSetting beforeInitList, beforeInits, beforeInitsComma, betweenInits, afterInitList;
        WsSetting fnBeforeOpenBrace, fnAfterName, fnIndent, fnAfterOpenBrace, fnBeforeCloseBrace;
        WsSetting fnBeforeComma, fnBetweenParams, fnAfterOpenParen, fnBeforeCloseParen;
        WsSetting csBeforeOpenBrace, csAfterKey, csAfterOpenBrace, csBetween, csBeforeCloseBrace, csIndent;
        WsSetting csBetweenForClauses, csAfterOpenParen, csBeforeCloseParen, csCaseContentIndent, csCaseLabelIndent;
        WsSetting csAfterCaseLabels;
        WsSetting afterParamTypeId, afterDataTypeId, dataIndent, afterFnDeclReturnType, afterFnDefnReturnType;
        WsSetting beforeDataComma, betweenDataElements, betweenOperands, afterCallName;
        WsSetting tpBeforeOpenBracket, tpAfterOpenBracket, tpBeforeComma, tpBetweenParams, tpBeforeCloseBracket;
        WsSetting tpAfterCloseBracket;
        WsSetting enumBeforeOpenBrace, enumAfterOpenBrace, enumBeforeCloseBrace, enumBeforeComma, enumBetween;
        WsSetting enumIndent;
        WsSetting beforeLBracket;
        bool alignBaseClausesLeft = false, alignFnParamsLeft = false, fnDoNotFormat = false;
        bool dataDoNotFormat = false, alignCsForClausesLeft = false, alignTpParamsLeft = false;
        bool alignFnCallArgsLeft = false, alignDataNamesLeft = false, alignDataInitializers = false;
        bool alignFnDeclNamesLeft = false, alignPpdLeftMost = false, alignClassMemberNamesLeft = false;
        bool alignEnumInitializers = false;
        std::int32_t asteriskAnchor = -1, ampersandAnchor = -1;
        bool hangingAsterisk = false, hangingAmpersand = false;
    };

private:
    // Pushes a column on indentStack for the life of the guard.
    class StackGuard {
    public:
        StackGuard(std::vector<std::int32_t>& stack, std::int32_t column) : m_stack(stack) { m_stack.push_back(column); }
        ~StackGuard() { m_stack.pop_back(); }
        StackGuard(const StackGuard&) = delete;
        StackGuard& operator=(const StackGuard&) = delete;

    private:
        std::vector<std::int32_t>& m_stack;
    };

    // The indent of a block's content: with `indent` set, lines lose their
    // old leading white space and start at the top of indentStack plus the
    // setting's text; not set, they keep what they have.
    class ContentIndent;

    // Core (Kempt_CppFormatter.cpp).
    void readProperties();
    void formatChildren(Cpp::InteriorNode& node, const WsSetting& indentSetting);
    void formatBlock(Cpp::InteriorNode& node, const WsSetting& indentSetting, const WsSetting& afterOpenSetting,
                     const WsSetting& beforeCloseSetting);
    void formatBlockContent(Cpp::InteriorNode& node, const WsSetting& indentSetting,
                            const WsSetting& afterOpenSetting, const WsSetting& beforeCloseSetting);
    void formatEmptyBlock(Cpp::InteriorNode& node, const WsSetting& indentSetting, const WsSetting& afterOpenSetting,
                          const WsSetting& beforeCloseSetting);
    void formatList(Cpp::InteriorNode& node, const WsSetting& beforeSeparator, const WsSetting& between,
                    const WsSetting& alignmentSetting);
    std::string separateListGap(std::string gap, const Cpp::SyntaxNode* child, const Cpp::SyntaxNode* next,
                                bool oneALine, const WsSetting& beforeSeparator, const WsSetting& between);
    void flushPending(const Cpp::SyntaxNode& node);
    void copyAsItStands(const Cpp::SyntaxNode& node);

    // Functions (_Functions.cpp).
    std::int32_t formatFunctionHead(Cpp::FunctionDeclNode& node);
    void formatReturnType(Cpp::FunctionDeclNode& node, std::int32_t& column, bool afterTemplate);
    bool returnTypeIsFormatted(const Cpp::FunctionDeclNode& node, const std::string& gap) const;
    void writeAlignedReturnType(Cpp::FunctionDeclNode& node, const std::string& gap, std::int32_t& column);
    void writeReturnType(Cpp::FunctionDeclNode& node, std::string gap, std::int32_t& column);
    void writeAlignedName(const Cpp::SyntaxNode& node, const OffsetMap& columns, const AlignedType& aligned);
    void formatParameterList(Cpp::ParameterListNode& list, const WsSetting& afterOpen, const WsSetting& beforeComma,
                             const WsSetting& between, const WsSetting& beforeClose);
    std::int32_t writeTypeRun(std::string& text);
    bool namesAligned() const;

    // Reading and writing.
    void copyThrough(const Trn::Position& p) { m_in.copyThrough(p, m_out); }
    void copyUpTo(const Trn::Position& p) { m_in.copyUpTo(p, m_out); }
    std::string readThrough(const Trn::Position& p) { return m_in.readThrough(p); }
    std::string readUpTo(const Trn::Position& p) { return m_in.readUpTo(p); }
    void write(std::string_view text) { writeKeepingLiterals(m_out, text); }
    void writeLiteral(std::string_view text) { m_out.writeLiteral(text); }
    Varnel::StreamState state() const;
    std::int32_t top() const { return m_indentStack.empty() ? 0 : m_indentStack.back(); }
    static std::int32_t colToOffset(std::int32_t col);
    static std::int32_t columnOf(const OffsetMap& columns, const Cpp::SyntaxNode* node);

    FormatSettings m_settings;
    SourceText m_source;
    SourceReader m_in;
    Varnel::OIndentStream m_out;
    Layout m_layout;
    WsSetting m_leftMargin;
    std::int32_t m_leftMarginWidth = 0;
    bool m_lineWrap = false;
    std::int32_t m_tabSize = 1;
    std::int32_t m_convertWs = 0;
    std::int32_t m_rightMargin = 0;
    bool m_inClass = false;
    bool m_templateHeadOpen = false;
    bool m_elseIfChain = false;
    bool m_savedKeepLeadingSpace = false;
    bool m_afterClassBody = false;
    std::vector<std::int32_t> m_indentStack;
    std::deque<std::string> m_pendingWhiteSpace;
    OffsetMap m_fnNameColumns;
    OffsetMap m_dataNameColumns;
    OffsetMap m_initializerColumns;
    CppExprFormatter m_exprFormatter;
};

} // namespace Kempt

#endif
