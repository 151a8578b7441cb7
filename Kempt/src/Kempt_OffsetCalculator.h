// The offset calculators: tree passes that run before the formatter writes
// anything and find the columns at which runs of like declarations line up.
// NameOffsetCalculator finds the column of the names of data declarations and
// function prototypes; DataOffsetCalculator the column of the initializers of
// data declarations. The formatter looks the columns up by node while it
// writes.
//
// Protocol:
//   Kempt::NameOffsetCalculator names(source, settings);
//   root.accept(names);                  // emitRoot ends with a flush
//   names.dataOffsets(); names.functionOffsets();
//
// Invariants:
//  1. A run (group) is a sequence of declarations that nothing but comments,
//     directives, templates and (for names) access labels separates; a blank
//     line does not end it. Any other construct flushes the run.
//  2. Every node of a run gets the run's one offset when the run is flushed;
//     a node whose measure cannot be taken is left out and has no offset.
//  3. Offsets count from the start of the declaration's line content, that
//     is, from the indent the formatter will give it.
#ifndef KEMPT_OFFSETCALCULATOR_H
#define KEMPT_OFFSETCALCULATOR_H

#include "Cpp_Emitter.h"
#include "Kempt_AlignedName.h"
#include "Kempt_CppExprFormatter.h"
#include "Kempt_FormatSettings.h"
#include "Trn_Position.h"

#include <cstdint>
#include <deque>
#include <map>
#include <optional>

namespace Cpp {
class InteriorNode;
class SyntaxNode;
} // namespace Cpp

namespace Kempt {

class SourceText;

using OffsetMap = std::map<const Cpp::SyntaxNode*, std::int32_t>;

class OffsetCalculator : public Cpp::Emitter {
public:
    OffsetCalculator(const SourceText& source, const PropertySet& properties);

    void emitLinkageBlockBody(Cpp::LinkageBlockBodyNode& node) override;
    void emitLinkageBlock(Cpp::LinkageBlockNode& node) override;
    void emitEnumDecl(Cpp::EnumDeclNode& node) override;
    void emitTemplate(Cpp::TemplateNode& node) override;
    void emitCtrlSubStmt(Cpp::CtrlSubStmtNode& node) override;
    void emitCtrlStmt(Cpp::CtrlStmtNode& node) override;
    void emitExpr(Cpp::ExprNode& node) override;
    void emitBlock(Cpp::BlockNode& node) override;
    void emitFunctionDecl(Cpp::FunctionDeclNode& node) override;
    void emitCtorDecl(Cpp::CtorDeclNode& node) override;
    void emitNamespaceBody(Cpp::NamespaceBodyNode& node) override;
    void emitNamespaceDecl(Cpp::NamespaceDeclNode& node) override;
    void emitAccessSpec(Cpp::AccessSpecNode& node) override;
    void emitClassDecl(Cpp::ClassDeclNode& node) override;
    void emitClassBody(Cpp::ClassBodyNode& node) override;
    void emitRoot(Cpp::RootNode& node) override;
    void emitInterior(Cpp::InteriorNode& node) override;

    // Closes the current run: every node queued gets its offset.
    virtual void flush() = 0;

    // The offset of a node, if it has one.
    std::optional<std::int32_t> offsetOf(const Cpp::SyntaxNode* node) const;
    const OffsetMap& offsets() const { return m_offsets; }

protected:
    void visitChildren(Cpp::InteriorNode& node);
    // Where the declaration at `begin` is measured from: the "template" in
    // front of it on the same line, if any. Clears the template's mark.
    Trn::Position measureStart(const Trn::Position& begin);
    void clearTemplate() { m_templateBegin.reset(); }
    const SourceText& source() const { return m_source; }
    std::int32_t tabSize() const { return m_tabSize; }

    std::int32_t m_largest = 0;
    std::deque<const Cpp::SyntaxNode*> m_group;
    OffsetMap m_offsets;

private:
    const SourceText& m_source;
    std::int32_t m_tabSize = 1;
    std::optional<Trn::Position> m_templateBegin;
};

// The column of the initializers: one behind the widest declaration up to the
// end of its name, on the next tab stop.
//   int a = 1;         ->  int a       = 1;
//   double speed = 2;      double speed = 2;
class DataOffsetCalculator : public OffsetCalculator {
public:
    DataOffsetCalculator(const SourceText& source, const PropertySet& properties);

    void emitDataDecl(Cpp::DataDeclNode& node) override;
    void flush() override;

private:
    bool m_alignInitializers = false;
};

// The column of the names of data declarations and function prototypes.
// Outside a class, data and functions line up apart; inside one with
// ALIGN_CLASS_MEMBER_NAMES_LEFT, on one column.
class NameOffsetCalculator : public OffsetCalculator {
public:
    NameOffsetCalculator(const SourceText& source, const FormatSettings& settings);

    void emitDataDecl(Cpp::DataDeclNode& node) override;
    void emitFunctionDecl(Cpp::FunctionDeclNode& node) override;
    void emitCtorDecl(Cpp::CtorDeclNode& node) override;
    void emitClassBody(Cpp::ClassBodyNode& node) override;
    void emitAccessSpec(Cpp::AccessSpecNode& node) override;
    void flush() override;

    const OffsetMap& dataOffsets() const { return m_offsets; }
    const OffsetMap& functionOffsets() const { return m_functionOffsets; }

private:
    bool dataTakesPart() const;
    bool functionsTakePart() const;
    // The measure of the type in front of `name`, from `begin`; empty when
    // the declaration cannot be aligned (a comment in the way, or more than
    // "*" and "&" between the type and the name).
    std::optional<std::int32_t> measure(const Trn::Position& begin, const Cpp::SyntaxNode& type,
                                        const Cpp::SyntaxNode& name, AlignedTypeFormat how);

    bool m_inClass = false;
    bool m_classLeft = false;
    bool m_alignClassMembers = false;
    bool m_alignFunctions = false;
    bool m_alignData = false;
    bool m_functionsAsTheyStand = false;
    CppExprFormatter m_expr;
    std::int32_t m_functionLargest = 0;
    std::deque<const Cpp::SyntaxNode*> m_functionGroup;
    OffsetMap m_functionOffsets;
};

} // namespace Kempt

#endif
