// The expression line wrapper: breaks one already formatted expression,
// statement head or list that runs past the right margin. It works on text,
// not on nodes, and only ever turns the gap between two tokens into a line
// break and the indent of a continuation line. The line wrapper pass hands it
// the text of each statement that holds a long line.
//
// The ladder: inside the outermost parentheses of a call first (at commas),
// then in the text itself at commas, at shift operators, at logical
// operators, at other binary operators, and last behind old-style casts; each
// rung runs only while something is still too long. A rung that is taken
// breaks at every point of its kind at that level: "a && b && c" ends up one
// operand to a line. A text that no rung can shorten stays as it is.
//
// Protocol:
//   Kempt::CppExprLineWrapper wrapper(settings);
//   Varnel::StreamState state = Varnel::StreamState::of(out);
//   out.writeLiteral(wrapper.wrapExpression(text, state));
// The state gives the column the text starts at and, by its indent, the base
// column of the statement (the column continuation lines indent from). The
// result is written literally: it holds the padding of every line it starts.
//
// Invariants:
//  1. Every token of the text comes out, in order; only white space between
//     tokens changes. Comments, literals and directives are never split.
//  2. Nothing stands behind a "//" comment on its line.
//  3. With LINE_WRAP off or a right margin below 1 no line is broken.
#ifndef KEMPT_CPPEXPRLINEWRAPPER_H
#define KEMPT_CPPEXPRLINEWRAPPER_H

#include "Kempt_ExprFormatterBase.h"
#include "Kempt_WrapFinders.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace Varnel {
struct StreamState;
}

namespace Kempt {

class CppExprLineWrapper : public ExprFormatterBase {
public:
    explicit CppExprLineWrapper(const PropertySet& properties, const MarkerList& markers = MarkerList());

    // The text with breaks, for expression statements, conditions and
    // initialisers. `noExtraIndent`: continuation lines of WRAP_STYLE 2 stay
    // on the base column.
    std::string wrapExpression(const std::string& text, const Varnel::StreamState& state, bool continuation = false,
                               bool noExtraIndent = false);
    // The same for the comma lists of declarations, as LIST_WRAP_STRATEGY
    // says: 0 leaves the list, 1 fills lines, 2 one element to a line.
    // `trailing` is what follows the list on its last line ("{" or ";"),
    // measured with the list and left out of the result.
    std::string wrapList(const std::string& text, const Varnel::StreamState& state, bool continuation = false,
                         std::string_view trailing = {});
    // The clauses of a for head ("int i = 0; i < n; ++i"): a line after each
    // ";", and a clause still too long goes down the ladder by itself.
    std::string wrapForHead(const std::string& text, const Varnel::StreamState& state);
    // Fills lines with the elements of a comma list when the text is too long.
    std::string wrapCommaList(const std::string& text, const Varnel::StreamState& state);
    // Whether a line of `text`, written from the state's column, passes the
    // right margin.
    bool needsWrap(const std::string& text, const Varnel::StreamState& state) const;

    // The blanks and tabs that start a line at column `width`, as the
    // scheme's white-space mode writes them.
    std::string padding(std::int32_t width) const;

    std::int32_t rightMargin() const { return m_RightMargin; }
    bool lineWrap() const { return m_lineWrap; }
    std::int32_t wrapStyle() const { return m_wrapStyle; }

    // Where a text starts: the column of its first character and the base
    // column its continuation lines indent from. Internal to the wrapper's
    // operations, public for its helpers.
    struct Place {
        std::int32_t col = 0;
        std::int32_t base = 0;
    };

private:
    std::string expression(const std::string& text, Place place, bool noExtraIndent);
    std::string deepLevels(std::string text, Place place, std::string_view trailing = {});
    // `trailing`: what follows the text on its last line, measured with it.
    std::string wrapText(const std::string& text, Place place, std::string_view trailing = {});
    std::string wrapEach(const std::string& text, Place place, FirstWrapToken& finder, bool afterToken);
    std::string wrapFit(const std::string& text, Place place, std::string_view trailing = {});
    std::string wrapShifts(const std::string& text, Place place);
    // Runs wrapText over the contents of the bracket groups at `level` whose
    // opening bracket is `open`. `calls`: only groups behind an identifier;
    // otherwise only groups behind anything else.
    std::string wrapGroups(const std::string& text, Place place, std::int32_t open, std::int32_t level, bool calls);
    std::string breakStrings(const std::string& text, Place place) const;
    std::string placeDirectives(const std::string& text) const;

    bool needsWrapAt(std::string_view text, std::int32_t col) const;
    std::int32_t continuationColumn(std::int32_t alignColumn, std::int32_t base) const;
    std::int32_t columnAfter(std::string_view text, std::int32_t col) const;

    std::int32_t m_RightMargin = 0;
    bool m_lineWrap = false;
    std::int32_t m_wrapStyle = 0;
    std::int32_t m_shiftStyle = 0;
    std::int32_t m_exprStyle = 1;
    std::int32_t m_commaStyle = 2;
    std::int32_t m_groupStartStyle = 2;
    std::int32_t m_listStrategy = 0;
    std::string m_wrapIndent;
    std::int32_t m_convertWs = 0;
    bool m_noExtraIndent = false;
    bool m_continuation = false;
};

} // namespace Kempt

#endif
