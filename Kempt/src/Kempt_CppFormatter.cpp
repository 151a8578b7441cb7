// The formatter's core: the scheme it reads, the indent model, blocks and
// lists, pending white space, and the root.
#include "Kempt_CppFormatter.h"

#include "Cpp_Nodes.h"
#include "Kempt_ColumnArithmetic.h"
#include "Kempt_NormaliseProperties.h"
#include "Kempt_PropertyNames.h"
#include "Kempt_TokenIterator.h"
#include "Kempt_WhiteSpaceJoins.h"
#include "Varnel_Contract.h"
#include "Varnel_IndentGuard.h"
#include "Varnel_StreamState.h"
#include "Varnel_Text.h"

#include <algorithm>
#include <optional>
#include <ostream>
#include <vector>

namespace Kempt {

namespace {

FormatSettings normalised(const FormatSettings& settings)
{
    FormatSettings copy(settings);
    normaliseProperties(copy);
    return copy;
}

bool holdsNewline(const std::string& text)
{
    return text.find('\n') != std::string::npos;
}

bool isDirectiveNode(const Cpp::SyntaxNode* node)
{
    return dynamic_cast<const Cpp::PreprocDirectiveNode*>(node) != nullptr;
}

// A "//" comment or a directive: a child whose text ends with its newline.
bool endsWithItsNewline(const Cpp::SyntaxNode* node)
{
    return isLineCommentNode(node) || isDirectiveNode(node);
}

bool gapHasComma(const std::string& gap)
{
    if (gap.find(',') == std::string::npos)
        return false;
    TokenIterator it(gap);
    for (it.advance(); it.left().type() != Cpp::END_OF_FILE; it.advance()) {
        if (it.left().type() == Cpp::COMMA)
            return true;
        if (!it.more())
            break;
    }
    return false;
}

// The white space asked for in front of a closing brace, when the line
// before it was ended by a "//" comment or a directive: that newline is the
// first break the setting asks for, and what stood before it on that line
// cannot be written there.
//   "\n"   ->  ""        "\n\n"  ->  "\n"        " "  ->  ""
std::string afterLineEnd(const std::string& setting)
{
    const std::size_t nl = setting.find('\n');
    return nl == std::string::npos ? std::string() : setting.substr(nl + 1);
}

// The blanks that start the first line of a block's content in the source,
// when that line keeps its indentation: the content's indent is not set and
// the after-open setting ends with a line break.
//   "{\n    x();" with "\n" and no indent  ->  "    "
std::string sourceIndentation(const std::string& gap, const WsSetting& afterOpen, const WsSetting& indent)
{
    const std::size_t nl = gap.rfind('\n');
    if (indent.isSet() || !afterOpen.text().ends_with('\n') || nl == std::string::npos)
        return std::string();
    const std::string tail = gap.substr(nl + 1);
    return tail.find_first_not_of(" \t") == std::string::npos ? tail : std::string();
}

} // namespace

// The indent of a block's content, set for the life of the object.
class CppFormatter::ContentIndent {
public:
    ContentIndent(Varnel::OIndentStream& out, const WsSetting& indent, std::int32_t base)
        : m_keep(out, indent.isSet() ? false : out.keepLeadingSpace()),
          m_indent(out, indent.isSet() ? indentString(out, base) + indent.text() : out.indent())
    {
    }

private:
    Varnel::KeepLeadingSpaceGuard m_keep;
    Varnel::IndentGuard m_indent;
};

CppFormatter::CppFormatter(const std::string& text, std::ostream& result, const FormatSettings& settings)
    : m_settings(normalised(settings)), m_source(text), m_in(m_source), m_out(result, 0, 1),
      m_exprFormatter(m_settings, m_settings.markers())
{
    readProperties();
}

Varnel::StreamState CppFormatter::state() const
{
    return Varnel::StreamState::of(m_out);
}

std::int32_t CppFormatter::colToOffset(std::int32_t col)
{
    TW_REQUIRE(col >= 0);
    return col > 0 ? col - 1 : 0;
}

std::int32_t CppFormatter::columnOf(const OffsetMap& columns, const Cpp::SyntaxNode* node)
{
    const auto it = columns.find(node);
    return it == columns.end() ? 1 : it->second;
}

void CppFormatter::emitRoot(Cpp::RootNode& node)
{
    // 1-2. The columns of aligned names and initializers, found before
    //      anything is written.
    const Layout& l = m_layout;
    if (l.alignClassMemberNamesLeft || l.alignFnDeclNamesLeft || l.alignDataNamesLeft) {
        NameOffsetCalculator names(m_source, m_settings);
        node.accept(names);
        m_fnNameColumns = names.functionOffsets();
        m_dataNameColumns = names.dataOffsets();
    }
    if (l.alignDataInitializers) {
        DataOffsetCalculator initializers(m_source, m_settings);
        node.accept(initializers);
        m_initializerColumns = initializers.offsets();
    }
    // 3. LEFT_MARGIN is one more indent block, round the whole file; without
    //    it the top level keeps the source's indentation.
    Varnel::KeepLeadingSpaceGuard keep(m_out, !m_leftMargin.isSet());
    formatChildren(node, m_leftMargin);
    // 4. Trailing comments and white space of the file.
    write(m_in.rest());
    m_out.flush();
}

void CppFormatter::emitInterior(Cpp::InteriorNode&)
{
    // A plain interior node is never made by the parser.
}

void CppFormatter::formatChildren(Cpp::InteriorNode& node, const WsSetting& indentSetting)
{
    ContentIndent indent(m_out, indentSetting, top());
    for (auto it = node.childrenBegin(); it != node.childrenEnd(); ++it) {
        Cpp::SyntaxNode* child = *it;
        if (!child)
            continue;
        // "struct S { } s;": the declarator behind a class body belongs to it.
        if (!m_afterClassBody) {
            child->accept(*this);
        } else if (dynamic_cast<Cpp::DataDeclNode*>(child)) {
            child->accept(*this);
            m_afterClassBody = false;
        } else {
            m_afterClassBody = false;
            child->accept(*this);
        }
        // "case 1:  x();": the one gap consumed here, behind a case label.
        auto next = it + 1;
        if (dynamic_cast<Cpp::CaseNode*>(child) && m_layout.csAfterCaseLabels.isSet() && next != node.childrenEnd() &&
            *next) {
            std::string gap = readUpTo((*next)->begin());
            write(trimLeadingWhiteSpace(gap));
        }
    }
}

void CppFormatter::flushPending(const Cpp::SyntaxNode& node)
{
    if (m_pendingWhiteSpace.empty())
        return;
    const std::string value = m_pendingWhiteSpace.front();
    m_pendingWhiteSpace.pop_front();
    std::string gap = readUpTo(node.begin());
    writeLiteral(setTrailingWhiteSpace(gap, value));
}

void CppFormatter::formatBlock(Cpp::InteriorNode& node, const WsSetting& indentSetting,
                               const WsSetting& afterOpenSetting, const WsSetting& beforeCloseSetting)
{
    // 1. The white space a head asked for in front of the brace. A "//"
    //    comment there is written at the content's indent.
    if (!m_pendingWhiteSpace.empty()) {
        const std::string pending = m_pendingWhiteSpace.front();
        m_pendingWhiteSpace.pop_front();
        std::string gap = readUpTo(node.begin());
        const bool lineComment = gapHasLineComment(gap);
        setTrailingWhiteSpace(gap, pending);
        if (lineComment) {
            ContentIndent indent(m_out, indentSetting, top());
            write(gap);
        } else {
            writeLiteral(gap);
        }
    }
    // 2. With children, or a block the width of one character.
    if (!node.empty() || node.begin() == node.end())
        return formatBlockContent(node, indentSetting, afterOpenSetting, beforeCloseSetting);
    // 3. "{ }", braces with nothing but white space or comments inside.
    formatEmptyBlock(node, indentSetting, afterOpenSetting, beforeCloseSetting);
}

void CppFormatter::formatBlockContent(Cpp::InteriorNode& node, const WsSetting& indentSetting,
                                      const WsSetting& afterOpenSetting, const WsSetting& beforeCloseSetting)
{
    const bool braces = hasBraces(node);
    if (node.empty()) {
        // c. One character, no children: copied at the content's indent.
        ContentIndent indent(m_out, indentSetting, top());
        return copyThrough(node.end());
    }
    // a. "{" and the gap behind it.
    if (braces) {
        copyThrough(node.begin());
        std::string gap = readUpTo((*node.childrenBegin())->begin());
        if (afterOpenSetting.isSet())
            setLeadingWhiteSpace(gap, afterOpenSetting.text() + sourceIndentation(gap, afterOpenSetting, indentSetting));
        ContentIndent indent(m_out, indentSetting, top());
        write(gap);
    }
    // b. The children, the gap in front of "}", and the "}".
    formatChildren(node, indentSetting);
    const Cpp::SyntaxNode* last = *(node.childrenEnd() - 1);
    std::string gap = readUpTo(node.end());
    if (braces && beforeCloseSetting.isSet()) {
        // "x; // c\n}": the comment's newline is the break asked for.
        const std::string s =
            endsWithItsNewline(last) ? afterLineEnd(beforeCloseSetting.text()) : beforeCloseSetting.text();
        writeLiteral(setTrailingWhiteSpace(gap, s));
    } else {
        write(gap);
    }
    copyThrough(node.end());
}

void CppFormatter::formatEmptyBlock(Cpp::InteriorNode& node, const WsSetting& indentSetting,
                                    const WsSetting& afterOpenSetting, const WsSetting& beforeCloseSetting)
{
    copyThrough(node.begin());
    std::string gap = readUpTo(node.end());
    const std::string& afterOpen = afterOpenSetting.text();
    const std::string& beforeClose = beforeCloseSetting.text();
    if (afterOpenSetting.isSet())
        trimLeadingWhiteSpace(gap);
    if (beforeCloseSetting.isSet())
        trimTrailingWhiteSpace(gap);
    const bool lineComment = endsWithLineComment(gap);
    // "{ }" with both set: "{" and the after-open text, then "}"; a comment
    // inside goes between the two, "{", break, comment, break, "}".
    if (afterOpenSetting.isSet() && beforeCloseSetting.isSet() && gap.empty()) {
        writeLiteral(afterOpen);
        return copyThrough(node.end());
    }
    if (afterOpenSetting.isSet())
        writeLiteral(afterOpen);
    {
        ContentIndent indent(m_out, indentSetting, top());
        write(gap);
    }
    if (beforeCloseSetting.isSet())
        writeLiteral(lineComment ? afterLineEnd(beforeClose) : beforeClose);
    copyThrough(node.end());
}

void CppFormatter::formatList(Cpp::InteriorNode& node, const WsSetting& beforeSeparator, const WsSetting& between,
                              const WsSetting& alignmentSetting)
{
    // 1. "a,\n b": a setting with a line break puts one element on a line.
    if (node.empty())
        return;
    const bool oneALine = holdsNewline(beforeSeparator.text()) || holdsNewline(between.text());
    // 2. The elements' column: where the first one begins.
    std::string indentText = alignmentSetting.text();
    if (oneALine) {
        copyUpTo((*node.childrenBegin())->begin());
        const std::int32_t column = m_out.col() == 0 ? stringWidth(m_out.indent(), 0, m_tabSize) : m_out.col();
        indentText = indentString(m_out, column);
    }
    // 3.
    const bool untouched = !oneALine && !alignmentSetting.isSet();
    Varnel::KeepLeadingSpaceGuard keep(m_out, untouched ? m_out.keepLeadingSpace() : false);
    Varnel::IndentGuard indent(m_out, untouched ? m_out.indent() : indentText);
    // 4. Each element, and the separator behind it.
    for (auto it = node.childrenBegin(); it != node.childrenEnd(); ++it) {
        if (!*it)
            continue;
        (*it)->accept(*this);
        const auto next = it + 1;
        if (next == node.childrenEnd() || !*next)
            continue;
        std::string gap = readUpTo((*next)->begin());
        // No comma: behind a comment child. One a line, the element after it
        // starts in the column like the others.
        if (!gapHasComma(gap)) {
            if (oneALine)
                write(gap);
            else
                writeLiteral(gap);
            continue;
        }
        writeLiteral(separateListGap(std::move(gap), *it, *next, oneALine, beforeSeparator, between));
    }
}

// The gap between two list elements, with its comma spaced.
std::string CppFormatter::separateListGap(std::string gap, const Cpp::SyntaxNode* child, const Cpp::SyntaxNode* next,
                                          bool oneALine, const WsSetting& beforeSeparator, const WsSetting& between)
{
    // Neither setting set: the gap stays, blank lines in front of a
    // directive included.
    if (!beforeSeparator.isSet() && !between.isSet())
        return gap;
    if (oneALine) {
        if (gapHasLineComment(gap))
            trimTrailingWhiteSpace(gap);
        // "a, // c": behind a comment or a directive no text is added.
        if (isLineCommentNode(next) || isLineCommentNode(child) || isDirectiveNode(child))
            return m_exprFormatter.separateList(gap, Cpp::COMMA, beforeSeparator, noWhiteSpace(), state());
        return m_exprFormatter.separateList(gap, Cpp::COMMA, beforeSeparator, between, state());
    }
    // "a,\n#if X": a directive starts its own line.
    if (isDirectiveNode(next))
        return m_exprFormatter.separateList(gap, Cpp::COMMA, beforeSeparator, newLineSetting(), state());
    return m_exprFormatter.separateList(gap, Cpp::COMMA, beforeSeparator, between, state());
}

namespace {

// The lines of `text` (counted from 0) that begin inside a literal spanning
// lines; shifting their leading white space would change the literal.
std::vector<bool> linesInsideLiterals(const std::string& text)
{
    std::vector<bool> inside(static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1, false);
    TokenIterator it(text);
    for (it.advance(); it.left().type() != Cpp::END_OF_FILE; it.advance()) {
        const Trn::Token t = it.left();
        const bool literal = t.type() >= Cpp::CHAR_LITERAL && t.type() <= Cpp::STRING_LITERAL;
        if (literal)
            for (std::int32_t line = t.start().line + 1; line <= t.end().line; ++line)
                if (static_cast<std::size_t>(line - 1) < inside.size())
                    inside[static_cast<std::size_t>(line - 1)] = true;
        if (!it.more())
            break;
    }
    return inside;
}

} // namespace

// A construct whose own layout this pass does not set (yet) comes out with
// every character as it stands. The gap in front of it is a gap like any
// other, so its first line takes the indent of its place; its later lines
// move by as much as its first one did, and keep their shape. Lines that
// begin inside a literal spanning lines are never touched.
//   "if (a)\n{\n    b();\n}" at column 0, its block now indented by 4:
//   "    if (a)\n    {\n        b();\n    }"
void CppFormatter::copyAsItStands(const Cpp::SyntaxNode& node)
{
    copyUpTo(node.begin());
    const std::int32_t sourceColumn = m_in.sourceColumnOf(node.begin(), m_tabSize);
    copyThrough(node.begin());
    const std::int32_t column = colToOffset(m_out.col());
    const std::string text = readThrough(node.end());
    if (column == sourceColumn || text.find('\n') == std::string::npos)
        return writeLiteral(text);
    writeMovedLines(m_out, text, sourceColumn, column, m_tabSize,
                    linesInsideLiterals(m_source.slice(node.begin(), node.end())));
}

} // namespace Kempt
