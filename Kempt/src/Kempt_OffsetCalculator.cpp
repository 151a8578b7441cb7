// The offset calculators: runs of declarations, their measures and columns.
#include "Kempt_OffsetCalculator.h"

#include "Cpp_Nodes.h"
#include "Kempt_AlignedName.h"
#include "Kempt_ColumnArithmetic.h"
#include "Kempt_CppFormatterConfig.h"
#include "Kempt_PropertyNames.h"
#include "Kempt_SourceText.h"
#include "Varnel_StreamState.h"

#include <algorithm>

namespace Kempt {

namespace {

bool readBool(const PropertySet& properties, const char* name)
{
    bool value = false;
    properties.getBool(name, value);
    return value;
}

std::int32_t readTabSize(const PropertySet& properties)
{
    std::int32_t tab = 1;
    properties.getInt(Prop::TAB_SIZE, tab);
    return std::max<std::int32_t>(tab, 1);
}

} // namespace

// ---------------------------------------------------------------------------
// The runs.

OffsetCalculator::OffsetCalculator(const SourceText& source, const PropertySet& properties)
    : m_source(source), m_tabSize(readTabSize(properties))
{
}

std::optional<std::int32_t> OffsetCalculator::offsetOf(const Cpp::SyntaxNode* node) const
{
    const auto it = m_offsets.find(node);
    if (it == m_offsets.end())
        return std::nullopt;
    return it->second;
}

void OffsetCalculator::visitChildren(Cpp::InteriorNode& node)
{
    for (auto it = node.childrenBegin(); it != node.childrenEnd(); ++it)
        if (*it)
            (*it)->accept(*this);
}

Trn::Position OffsetCalculator::measureStart(const Trn::Position& begin)
{
    const std::optional<Trn::Position> templateBegin = m_templateBegin;
    m_templateBegin.reset();
    // "template <class T> T x;": measured from "template" on the same line.
    if (templateBegin && templateBegin->line == begin.line)
        return *templateBegin;
    return begin;
}

void OffsetCalculator::emitExpr(Cpp::ExprNode&)
{
    flush();
}

void OffsetCalculator::emitEnumDecl(Cpp::EnumDeclNode&)
{
    flush();
}

void OffsetCalculator::emitAccessSpec(Cpp::AccessSpecNode&)
{
    flush();
}

void OffsetCalculator::emitInterior(Cpp::InteriorNode&)
{
    flush();
}

void OffsetCalculator::emitLinkageBlockBody(Cpp::LinkageBlockBodyNode& node)
{
    visitChildren(node);
    flush();
}

void OffsetCalculator::emitCtrlStmt(Cpp::CtrlStmtNode& node)
{
    visitChildren(node);
    flush();
}

void OffsetCalculator::emitNamespaceBody(Cpp::NamespaceBodyNode& node)
{
    visitChildren(node);
    flush();
}

void OffsetCalculator::emitClassBody(Cpp::ClassBodyNode& node)
{
    visitChildren(node);
    flush();
}

void OffsetCalculator::emitRoot(Cpp::RootNode& node)
{
    visitChildren(node);
    flush();
}

void OffsetCalculator::emitBlock(Cpp::BlockNode& node)
{
    // Locals of a nested block are a run of their own.
    flush();
    visitChildren(node);
    flush();
}

void OffsetCalculator::emitLinkageBlock(Cpp::LinkageBlockNode& node)
{
    flush();
    if (node.body())
        node.body()->accept(*this);
}

void OffsetCalculator::emitNamespaceDecl(Cpp::NamespaceDeclNode& node)
{
    flush();
    if (node.body())
        node.body()->accept(*this);
}

void OffsetCalculator::emitClassDecl(Cpp::ClassDeclNode& node)
{
    flush();
    if (node.body())
        node.body()->accept(*this);
}

void OffsetCalculator::emitTemplate(Cpp::TemplateNode& node)
{
    // A template does not end a run; the declaration behind it is measured
    // from here.
    m_templateBegin = node.begin();
}

void OffsetCalculator::emitCtrlSubStmt(Cpp::CtrlSubStmtNode& node)
{
    flush();
    if (node.body())
        node.body()->accept(*this);
}

void OffsetCalculator::emitFunctionDecl(Cpp::FunctionDeclNode& node)
{
    flush();
    clearTemplate();
    if (node.block())
        node.block()->accept(*this);
}

void OffsetCalculator::emitCtorDecl(Cpp::CtorDeclNode& node)
{
    flush();
    clearTemplate();
    if (node.block())
        node.block()->accept(*this);
}

// ---------------------------------------------------------------------------
// Initializers.

DataOffsetCalculator::DataOffsetCalculator(const SourceText& source, const PropertySet& properties)
    : OffsetCalculator(source, properties), m_alignInitializers(readBool(properties, Prop::ALIGN_DD_INITIALIZERS))
{
}

void DataOffsetCalculator::emitDataDecl(Cpp::DataDeclNode& node)
{
    const Trn::Position start = measureStart(node.begin());
    // "x = y;" has no declarator and takes no part.
    if (!m_alignInitializers || !node.name())
        return;
    m_group.push_back(&node);
    // A declaration over several lines measures 0 and does not widen the run.
    const Trn::Position end = node.name()->end();
    if (start.line == end.line && start <= end)
        m_largest = std::max(m_largest, columnDifference(start, end) + 1);
}

void DataOffsetCalculator::flush()
{
    if (m_largest > 0) {
        const std::int32_t offset = nextTabStop(m_largest + 1, tabSize());
        for (const Cpp::SyntaxNode* node : m_group)
            m_offsets[node] = offset;
    }
    m_group.clear();
    m_largest = 0;
}

// ---------------------------------------------------------------------------
// Names.

NameOffsetCalculator::NameOffsetCalculator(const SourceText& source, const FormatSettings& settings)
    : OffsetCalculator(source, settings),
      m_alignClassMembers(readBool(settings, Prop::ALIGN_CLASS_MEMBER_NAMES_LEFT)),
      m_alignFunctions(readBool(settings, Prop::ALIGN_FN_DECL_NAMES_LEFT)),
      m_alignData(readBool(settings, Prop::ALIGN_DD_NAMES_LEFT)),
      m_functionsAsTheyStand(readBool(settings, Prop::FN_DO_NOT_FORMAT)),
      m_expr(settings, settings.markers())
{
}

bool NameOffsetCalculator::dataTakesPart() const
{
    return (m_inClass && m_alignClassMembers) || m_alignData;
}

bool NameOffsetCalculator::functionsTakePart() const
{
    return (m_inClass && m_alignClassMembers) || m_alignFunctions;
}

std::optional<std::int32_t> NameOffsetCalculator::measure(const Trn::Position& begin, const Cpp::SyntaxNode& type,
                                                          const Cpp::SyntaxNode& name, AlignedTypeFormat how)
{
    const std::string gap = source().between(begin, name.begin());
    // "int /* c */ x;" is never aligned.
    if (gapHasCommentOrDirective(gap))
        return std::nullopt;
    // "int (*p)[2];": more than pointer symbols between the type and the name.
    const std::string declarator = source().slice(type.end(), name.begin());
    if (declarator.size() >= 2 &&
        declarator.substr(1, declarator.size() - 2).find_first_not_of("*& \t\n") != std::string::npos)
        return std::nullopt;
    Varnel::StreamState state;
    state.tabSize = tabSize();
    state.keepLeadingSpace = true;
    // With FN_DO_NOT_FORMAT a return type that ends in no symbol stands as
    // it is.
    if (how == AlignedTypeFormat::FORMAT_FIRST && m_functionsAsTheyStand && !endsInAsterisk(gap) &&
        !endsInAmpersand(gap))
        how = AlignedTypeFormat::AS_IT_STANDS;
    return alignedNameMeasure(alignedType(m_expr, gap, state, how), m_expr, tabSize());
}

void NameOffsetCalculator::emitDataDecl(Cpp::DataDeclNode& node)
{
    if (!dataTakesPart()) {
        clearTemplate();
        return;
    }
    const Trn::Position start = measureStart(node.begin());
    // "x = y;": no type to measure; it joins the run as it is.
    if (!node.type() || !node.name()) {
        if (node.name())
            m_group.push_back(&node);
        return;
    }
    const std::optional<std::int32_t> w = measure(start, *node.type(), *node.name(), AlignedTypeFormat::TRIM_FIRST);
    if (!w)
        return;
    m_group.push_back(&node);
    m_largest = std::max(m_largest, *w);
}

void NameOffsetCalculator::emitFunctionDecl(Cpp::FunctionDeclNode& node)
{
    const Cpp::FunctionHeadNode* head = node.head();
    // A definition ends the run; its body is a world of its own.
    if (!functionsTakePart() || !head || node.block() || !head->name())
        return OffsetCalculator::emitFunctionDecl(node);
    const Trn::Position start = measureStart(node.begin());
    if (!head->returnType()) {
        m_functionGroup.push_back(&node);
        return;
    }
    const std::optional<std::int32_t> w = measure(start, *head->returnType(), *head->name(), AlignedTypeFormat::FORMAT_FIRST);
    if (!w)
        return;
    m_functionGroup.push_back(&node);
    m_functionLargest = std::max(m_functionLargest, *w);
}

void NameOffsetCalculator::emitCtorDecl(Cpp::CtorDeclNode& node)
{
    if (!node.block() && functionsTakePart())
        return emitFunctionDecl(node);
    OffsetCalculator::emitCtorDecl(node);
}

void NameOffsetCalculator::emitClassBody(Cpp::ClassBodyNode& node)
{
    const bool wasInClass = m_inClass;
    m_inClass = true;
    visitChildren(node);
    m_classLeft = true;
    m_inClass = wasInClass;
    flush();
}

void NameOffsetCalculator::emitAccessSpec(Cpp::AccessSpecNode&)
{
    // "public:" does not end a run of member names.
}

void NameOffsetCalculator::flush()
{
    const std::int32_t tab = tabSize();
    if (m_alignClassMembers && (m_inClass || m_classLeft)) {
        // In a class, data members and member functions share one column.
        const std::int32_t offset = std::max(nextTabStop(m_largest, tab), nextTabStop(m_functionLargest, tab));
        for (const Cpp::SyntaxNode* node : m_group)
            m_offsets[node] = offset;
        for (const Cpp::SyntaxNode* node : m_functionGroup)
            m_functionOffsets[node] = offset;
        m_classLeft = false;
    } else {
        for (const Cpp::SyntaxNode* node : m_group)
            m_offsets[node] = nextTabStop(m_largest, tab);
        for (const Cpp::SyntaxNode* node : m_functionGroup)
            m_functionOffsets[node] = nextTabStop(m_functionLargest, tab);
    }
    m_group.clear();
    m_functionGroup.clear();
    m_largest = 0;
    m_functionLargest = 0;
}

} // namespace Kempt
