// Control statements, bare blocks, case labels and asm statements. A control
// statement is a list of parts (if, else, else; try, catch; do, while), each a
// head (keyword and parenthesised condition) and a body, a block in braces or
// one statement without them. The head sets the gap behind the keyword and
// inside the parentheses; the body goes through formatBlock like any other
// block, with the opening brace's gap passed forward from the head.
//
// Invariants:
//  1. Every statement pushes the column its first keyword stands in; the
//     content of its bodies indents from there, whatever indent got the
//     keyword there.
//  2. An "else if" chain is flat in the tree (every "else if" is a part of
//     the first statement, its "if" alone in a statement of its own) and flat
//     in the output: the "if" behind an "else" stays on the else's line and
//     indents from the chain's column, not one level deeper.
//  3. A comment or directive between two parts is a child of the statement;
//     the gap in front of it and in front of the part behind it are kept.
#include "Kempt_CppFormatter.h"

#include "Cpp_Nodes.h"
#include "Kempt_ColumnArithmetic.h"
#include "Kempt_TokenIterator.h"
#include "Kempt_WhiteSpaceJoins.h"
#include "Varnel_IndentGuard.h"
#include "Varnel_StreamState.h"
#include "Varnel_Text.h"

#include <algorithm>
#include <cctype>
#include <optional>
#include <utility>
#include <vector>

namespace Kempt {

namespace {

std::int32_t keywordOf(const Cpp::CtrlSubStmtNode& part)
{
    const Cpp::CtrlSubStmtHeadNode* head = part.head();
    return head && head->keyword() ? head->keyword()->type() : 0;
}

bool isCommentOrDirective(const Cpp::SyntaxNode* node)
{
    return dynamic_cast<const Cpp::CommentNode*>(node) != nullptr ||
           dynamic_cast<const Cpp::PreprocDirectiveNode*>(node) != nullptr;
}

// The "if" part of an "else if": the else's body is no block in braces but
// one statement, whose first part is an "if" that begins where the body
// does. Null for any other part.
//   else if (b) x;      -> the part "if (b) x;"
//   else { if (b) x; }  -> null: the inner if is a block's content
const Cpp::CtrlSubStmtNode* elseIfPart(const Cpp::CtrlSubStmtNode& part)
{
    const Cpp::BlockNode* body = part.body();
    if (keywordOf(part) != Cpp::ELSE_KEY || !body || body->size() != 1)
        return nullptr;
    const auto* inner = dynamic_cast<const Cpp::CtrlStmtNode*>(*body->childrenBegin());
    if (!inner || inner->empty())
        return nullptr;
    const auto* first = dynamic_cast<const Cpp::CtrlSubStmtNode*>(*inner->childrenBegin());
    if (!first || first->begin() != body->begin() || keywordOf(*first) != Cpp::IF_KEY)
        return nullptr;
    return first;
}

// The text between "(" and ")" of a for head, cut at its two semicolons.
struct ForClauses {
    std::string init, condition, step;
};

// Cuts the text inside a for head's parentheses at the semicolons that stand
// outside brackets, literals and comments. Empty when there are not exactly
// two of them ("auto& x : v", a macro that hides one).
//   "int i = 0; i < n; ++i"  ->  "int i = 0", " i < n", " ++i"
std::optional<ForClauses> splitForClauses(const std::string& text)
{
    std::vector<Trn::Position> semicolons;
    std::int32_t depth = 0;
    TokenIterator it(text);
    for (it.advance(); it.left().type() != Cpp::END_OF_FILE; it.advance()) {
        const std::int32_t type = it.left().type();
        if (type == Cpp::LPAREN || type == Cpp::LBRACKET || type == Cpp::LBRACE)
            ++depth;
        else if ((type == Cpp::RPAREN || type == Cpp::RBRACKET || type == Cpp::RBRACE) && depth > 0)
            --depth;
        else if (type == Cpp::SEMICOLON && depth == 0)
            semicolons.push_back(it.left().start());
        if (!it.more())
            break;
    }
    if (semicolons.size() != 2)
        return std::nullopt;
    const SourceText source(text);
    const std::size_t first = source.offsetOf(semicolons[0]);
    const std::size_t last = source.offsetOf(semicolons[1]);
    if (first == std::string::npos || last == std::string::npos || last <= first || last >= text.size())
        return std::nullopt;
    return ForClauses{text.substr(0, first), text.substr(first + 1, last - first - 1), text.substr(last + 1)};
}

// The text without white space at either end; a "//" comment at its end
// keeps its line break. Formatted clauses start at their first token.
std::string trimmed(std::string text)
{
    return setSurroundingWhiteSpace(text, "", "");
}

// The text is white space only.
bool isBlank(std::string_view text)
{
    return text.find_first_not_of(" \t\n\r\f\v") == std::string_view::npos;
}

// How many line breaks end `gap` (in its trailing white space).
//   "x;\n\n    "  ->  2
std::size_t trailingLineBreaks(const std::string& gap)
{
    std::size_t count = 0;
    for (auto c = gap.rbegin(); c != gap.rend() && std::isspace(static_cast<unsigned char>(*c)); ++c)
        if (*c == '\n')
            ++count;
    return count;
}

} // namespace

void CppFormatter::emitCtrlStmt(Cpp::CtrlStmtNode& node)
{
    // 1.
    if (node.empty())
        return;
    // 2. The column the statement indents from. The "if" of an "else if"
    //    joins the else's line and takes the chain's column.
    std::int32_t column = top();
    if (m_elseIfChain) {
        joinElseLine(node);
    } else {
        copyThrough(node.begin());
        column = colToOffset(m_out.col());
    }
    // 3.
    StackGuard guard(m_indentStack, column);
    // 4-5. The parts, and WS_BETWEEN_CS in front of each part that follows a
    //      part: "} else", "}\nelse", "} catch". The part whose body the gap
    //      follows is the one before, or the "if" inside an "else if".
    const Cpp::CtrlSubStmtNode* previousPart = nullptr;
    bool previousPlain = false;
    for (auto it = node.childrenBegin(); it != node.childrenEnd(); ++it) {
        Cpp::SyntaxNode* child = *it;
        if (!child)
            continue;
        const bool first = it == node.childrenBegin();
        if (m_layout.csBetween.isSet() && previousPlain && !first && !isCommentOrDirective(child)) {
            std::string gap = readUpTo(child->begin());
            writeWhiteSpace(setTrailingWhiteSpace(gap, betweenParts(previousPart, node.size() > 1)));
        }
        child->accept(*this);
        previousPlain = !isCommentOrDirective(child);
        if (const auto* part = dynamic_cast<const Cpp::CtrlSubStmtNode*>(child)) {
            const Cpp::CtrlSubStmtNode* inner = elseIfPart(*part);
            previousPart = inner ? inner : part;
        }
    }
}

// WS_BETWEEN_CS, or a line break when the part before has no braces round its
// body: "if (a) b;" and "else" never share a line.
std::string CppFormatter::betweenParts(const Cpp::CtrlSubStmtNode* previousPart, bool severalParts) const
{
    if (severalParts && previousPart && !bodyHasBraces(*previousPart))
        return "\n";
    return m_layout.csBetween.text();
}

// The gap between "else" and the "if" of an "else if" becomes one blank; a
// comment on the else's line stays in it. A "//" comment ends the else's
// line, and a comment on lines of its own keeps them: the "if" then starts a
// line at the chain's column. It is the gap behind a control keyword:
// without WS_AFTER_CS_KEY it stays as it is.
//   "else\n    if"  ->  "else if"        "else /* c */ if"  ->  "else /* c */ if"
void CppFormatter::joinElseLine(const Cpp::CtrlStmtNode& node)
{
    std::string gap = readUpTo(node.begin());
    const std::string comment(Varnel::trim(gap));
    const bool commentOnItsLines = !comment.empty() && gap.find('\n') != std::string::npos;
    if (!m_layout.csAfterKey.isSet() || commentOnItsLines || startsWithLineComment(gap) ||
        endsWithLineComment(gap)) {
        write(gap);
        return;
    }
    writeLiteral(comment.empty() ? std::string(" ") : " " + comment + " ");
}

void CppFormatter::emitCtrlSubStmt(Cpp::CtrlSubStmtNode& node)
{
    // 1-2. The else of an "else if" starts a chain; the if behind it ends it.
    const bool isSwitch = keywordOf(node) == Cpp::SWITCH_KEY;
    if (m_elseIfChain) {
        m_elseIfChain = false;
    } else if (elseIfPart(node)) {
        m_elseIfChain = true;
        m_savedKeepLeadingSpace = m_out.keepLeadingSpace();
    }
    // 3. A part without a body is a "while (x);" (or one whose body lies in a
    //    region fenced off from formatting, which passes as it stands).
    Cpp::CtrlSubStmtHeadNode* head = node.head();
    if (head)
        head->accept(*this);
    Cpp::BlockNode* body = node.body();
    if (!body)
        return writeLiteral(readThrough(node.end()));
    // 4. What the head asks in front of its body: the gap before "{", or
    //    before the one statement of a body without braces.
    const Layout& l = m_layout;
    if (head && !m_elseIfChain) {
        const WsSetting& before = hasBraces(*body) ? l.csBeforeOpenBrace : l.csAfterOpenBrace;
        if (before.isSet())
            m_pendingWhiteSpace.push_back(before.text());
    }
    // 5. "else if": the if adds no indentation, the chain stays flat.
    if (m_elseIfChain) {
        const WsSetting flat(!m_out.indent().empty() || !m_out.keepLeadingSpace(), "");
        return formatBlock(*body, flat, l.csAfterOpenBrace, l.csBeforeCloseBrace);
    }
    // 6. Case labels are placed by emitCase; the statements behind them take
    //    the switch body's indent. A body without braces takes the single
    //    statement indent where the scheme has one (GNU: 2, braced bodies 4).
    const WsSetting& indent = isSwitch                                           ? l.csCaseContentIndent
                              : !hasBraces(*body) && l.csSingleStmtIndent.isSet() ? l.csSingleStmtIndent
                                                                                 : l.csIndent;
    formatBlock(*body, indent, l.csAfterOpenBrace, l.csBeforeCloseBrace);
}

void CppFormatter::emitCtrlSubStmtHead(Cpp::CtrlSubStmtHeadNode& node)
{
    // 1-2.
    if (Cpp::KeywordNode* keyword = node.keyword())
        keyword->accept(*this);
    StackGuard guard(m_indentStack, top());
    // 3. "else", "do", "try" (or a condition fenced off from formatting).
    Cpp::ExprNode* condition = node.condition();
    if (!condition)
        return writeLiteral(readThrough(node.end()));
    {
        // 4. Lines of the condition that no setting re-lays keep their white
        //    space as it stands.
        Varnel::KeepLeadingSpaceGuard keep(m_out, true);
        Varnel::IndentGuard indent(m_out, "");
        // 5. "if(a)" with WS_AFTER_CS_KEY " ": "if (a)".
        std::string gap = readUpTo(condition->begin());
        if (m_layout.csAfterKey.isSet())
            writeLiteral(setSurroundingWhiteSpace(gap, "", m_layout.csAfterKey.text()));
        else
            write(gap);
        // 6. "(", the text inside, ")".
        std::string text = readThrough(condition->end());
        const std::size_t open = text.find('(');
        const std::size_t close = text.rfind(')');
        std::string head;
        std::string tail;
        if (open != std::string::npos && close != std::string::npos && open < close) {
            head = text.substr(0, open + 1);
            tail = text.substr(close);
            text = text.substr(open + 1, close - open - 1);
        }
        write(head);
        // 7. Continuation lines of the condition align behind the "(".
        const std::int32_t column = colToOffset(m_out.col() + 1);
        // 8-9.
        const bool isFor = node.keyword() && node.keyword()->type() == Cpp::FOR_KEY;
        if (!isFor || !formatForClauses(text, column))
            formatCondition(node, text, column);
        // 10. A ")" that starts a line stands under its "(".
        Varnel::IndentGuard under(m_out, indentString(m_out, column - 1));
        write(tail);
    }
    // "while (x);" ending a do: the semicolon belongs to the head.
    writeLiteral(readThrough(node.end()));
}

// Step 9: the text inside the parentheses, with WS_AFTER_CS_OPEN_PAREN and
// WS_BEFORE_CS_CLOSE_PAREN, through the expression formatter; the type of a
// catch as a parameter's, the declaration of a for as a data declaration's.
//   "if ( a&&b )"  ->  "if (a && b)"       "catch (const E &e)"
void CppFormatter::formatCondition(const Cpp::CtrlSubStmtHeadNode& node, std::string text, std::int32_t column)
{
    const WsSetting& after = m_layout.csAfterOpenParen;
    const WsSetting& before = m_layout.csBeforeCloseParen;
    const bool aligned = after.isSet() || before.isSet();
    std::optional<Varnel::KeepLeadingSpaceGuard> keep;
    std::optional<Varnel::IndentGuard> indent;
    if (aligned) {
        keep.emplace(m_out, false);
        indent.emplace(m_out, indentString(m_out, column));
    }
    if (after.isSet() && before.isSet())
        setSurroundingWhiteSpace(text, after.text(), before.text());
    else if (after.isSet())
        setLeadingWhiteSpace(text, after.text());
    else if (before.isSet())
        setTrailingWhiteSpace(text, before.text());
    const std::int32_t keyword = node.keyword() ? node.keyword()->type() : 0;
    if (keyword == Cpp::CATCH_KEY)
        text = m_exprFormatter.formatTypeId(text, state(), m_layout.afterParamTypeId);
    else if (keyword == Cpp::FOR_KEY)
        text = m_exprFormatter.formatTypeId(text, state(), m_layout.afterDataTypeId);
    else
        text = m_exprFormatter.format(text, state());
    writeLiteral(text);
}

// Step 8: the three clauses of a for head, when WS_BETWEEN_CS_FOR_CLAUSES is
// set or ALIGN_CS_FOR_CLAUSES_LEFT puts one clause on a line. False, and
// nothing written, when neither asks or the head has no two semicolons. An
// empty clause gets no white space: "for (;;)", "for (int i = 0;; ++i)".
//   "for(int i=0;i<n;++i)"  ->  "for (int i = 0; i < n; ++i)"
//   aligned:                    "for (int i = 0;\n     i < n;\n     ++i)"
bool CppFormatter::formatForClauses(const std::string& text, std::int32_t column)
{
    const Layout& l = m_layout;
    const WsSetting between = l.alignCsForClausesLeft ? newLineSetting() : l.csBetweenForClauses;
    if (!between.isSet())
        return false;
    std::optional<ForClauses> clauses = splitForClauses(text);
    if (!clauses)
        return false;
    // Clause 1: a declaration ("char *p = s") or an expression, as a type;
    // the gap between a declaration's type and name is that of data.
    std::string init;
    {
        Varnel::IndentGuard indent(m_out, indentString(m_out, column));
        Varnel::KeepLeadingSpaceGuard keep(m_out, false);
        init = m_exprFormatter.formatTypeId(trimmed(clauses->init), state(), l.afterDataTypeId);
    }
    // "for (;;)" keeps its parentheses empty; otherwise the blanks inside
    // them stand also in front of an empty first or behind an empty last
    // clause: "for ( ; i < n; )".
    const bool allEmpty = isBlank(clauses->init) && isBlank(clauses->condition) && isBlank(clauses->step);
    const std::string afterOpen = l.csAfterOpenParen.isSet() && !allEmpty ? l.csAfterOpenParen.text() : "";
    const std::string beforeClose = l.csBeforeCloseParen.isSet() && !allEmpty ? l.csBeforeCloseParen.text() : "";
    if (isBlank(init))
        init = afterOpen;
    else
        setSurroundingWhiteSpace(init, afterOpen, "");
    std::int32_t clauseColumn = column;
    if (l.alignCsForClausesLeft && !isBlank(init)) {
        // The clauses line up under the first character of the first one.
        Varnel::KeepLeadingSpaceGuard keep(m_out, true);
        Varnel::IndentGuard indent(m_out, "");
        clauseColumn = writeTypeRun(init);
    }
    // Clauses 2 and 3 start on the line of the first, or each on a line of
    // its own at the clause column.
    Varnel::KeepLeadingSpaceGuard keep(m_out, false);
    Varnel::IndentGuard indent(m_out, indentString(m_out, clauseColumn));
    writeLiteral(init);
    write(";");
    std::string condition = m_exprFormatter.format(trimmed(clauses->condition), state());
    setSurroundingWhiteSpace(condition, isBlank(condition) ? "" : between.text(), "");
    write(condition);
    write(";");
    std::string step = m_exprFormatter.format(trimmed(clauses->step), state());
    if (isBlank(step))
        step = beforeClose;
    else
        setSurroundingWhiteSpace(step, between.text(), beforeClose);
    write(step);
    return true;
}

void CppFormatter::emitBlock(Cpp::BlockNode& node)
{
    // 1. A bare block indents from the indent of its place.
    StackGuard guard(m_indentStack, stringWidth(m_out.indent(), 0, m_tabSize));
    Varnel::IndentGuard indent(m_out, indentString(m_out, top()));
    // 2. The gap in front of "{". A block is a statement of its own: a
    //    setting without a line break (" ", for "extern \"C\" {") does not
    //    pull a block that starts a line onto the line of the statement
    //    before it. At the start of a line ("case 1:\n{", behind a "//"
    //    comment) a line break asked for is there already, and blanks alone
    //    would stand in for the indent. Blank lines before the block stay:
    //    "x;\n\n{" keeps its empty line.
    const WsSetting& beforeOpen = m_layout.globalBeforeOpenBrace;
    if (beforeOpen.isSet()) {
        std::string gap = readUpTo(node.begin());
        std::string s = beforeOpen.text();
        if (s.find('\n') == std::string::npos && gap.find('\n') != std::string::npos)
            s.assign(1, '\n');
        const bool lineStart = m_out.col() == 0;
        const std::size_t breaks = trailingLineBreaks(gap);
        const std::size_t blankLines = lineStart ? breaks : (breaks > 0 ? breaks - 1 : 0);
        const bool ownLine = s.find('\n') != std::string::npos;
        if (lineStart) {
            if (s.starts_with('\n'))
                s.erase(0, 1);
            else if (s.find('\n') == std::string::npos)
                s.clear();
        }
        if (ownLine)
            s.insert(0, blankLines, '\n');
        writeWhiteSpace(setTrailingWhiteSpace(gap, s));
    }
    // 3-4.
    formatBlock(node, m_layout.globalIndent, m_layout.globalAfterOpenBrace, m_layout.globalBeforeCloseBrace);
}

void CppFormatter::emitCase(Cpp::CaseNode& node)
{
    // 1-2. "case 1:" at the label indent, measured from the switch.
    {
        const WsSetting& labels = m_layout.csCaseLabelIndent;
        Varnel::KeepLeadingSpaceGuard keep(m_out, labels.isSet() ? false : m_out.keepLeadingSpace());
        Varnel::IndentGuard indent(m_out, labels.isSet() ? indentString(m_out, top()) + labels.text() : m_out.indent());
        copyThrough(node.end());
    }
    // 3. "case 1: x();" with WS_AFTER_CS_CASE_LABELS "\n": x() on a line of
    //    its own. A "//" comment behind the colon ends the line itself.
    const WsSetting& after = m_layout.csAfterCaseLabels;
    if (!after.isSet())
        return;
    const std::string line = restOfLine();
    if (startsWithLineComment(line)) {
        // "case 4: // four": the blanks in front of the comment are kept
        // here, where the gap behind a label would lose them.
        const std::size_t blanks = line.find_first_not_of(" \t");
        return writeLiteral(readUpTo(m_source.positionOf(m_in.offset() + blanks)));
    }
    // "default: }": nothing follows the label; the closing brace's setting
    // decides the gap.
    if (nextCharacter() == '}')
        return;
    writeLiteral(after.text());
    // "default: ;": an empty statement is no node of the tree. It takes the
    // place of the statement behind the label, and what follows it the
    // place of a statement behind it.
    while (nextCharacter() == ';') {
        std::string gap = readThrough(m_source.positionOf(m_source.text().find(';', m_in.offset())));
        write(trimLeadingWhiteSpace(gap));
        if (nextCharacter() != '}')
            writeLiteral(after.text());
    }
}

// The first character behind the read position that is not white space; 0
// at the end of the text.
char CppFormatter::nextCharacter() const
{
    const std::string& text = m_source.text();
    for (std::size_t i = std::min(m_in.offset(), text.size()); i < text.size(); ++i)
        if (!std::isspace(static_cast<unsigned char>(text[i])))
            return text[i];
    return 0;
}

// The source text from the read position to the end of its line, the line
// break included.
std::string CppFormatter::restOfLine() const
{
    const std::string& text = m_source.text();
    const std::size_t from = std::min(m_in.offset(), text.size());
    const std::size_t nl = text.find('\n', from);
    return text.substr(from, nl == std::string::npos ? std::string::npos : nl - from + 1);
}

void CppFormatter::emitAsm(Cpp::AsmNode& node)
{
    // "__asm { ... }": the assembly keeps its own layout and moves with the
    // statement, as a block.
    if (node.form() == Cpp::AsmNode::BLOCK_FORM)
        return copyAsItStands(node);
    // "__asm mov eax, 1", "asm("nop");": one line, as it stands.
    if (const Cpp::BlockNode* body = node.body())
        return copyThrough(body->end());
    if (const Cpp::TextNode* text = node.text())
        copyThrough(text->end());
}

} // namespace Kempt
