// What the expression formatter, the expression line wrapper and the offset
// calculators share: the scheme (a normalised copy), the tab size, the left
// margin, the placement of directives and the region markers; and the
// operations on text larger than one token pair: spacing a separated list,
// aligning its elements in a column, re-indenting comments and directives that
// span lines, and lining up the assignment operators of several lines.
//
// The list operations take a text and the state of the stream it will be
// written to, and return the text to write literally there. The token
// operations write to a stream directly.
//
// Invariants:
//  1. Nothing but white space is ever dropped: a gap is trimmed or has a
//     setting put in front of or behind it, never replaced while it holds
//     anything else.
//  2. Nothing is written behind a "//" comment or a directive on its line:
//     their newline is never trimmed away.
//  3. A separator counts only outside every bracket: "(" ")", "{" "}",
//     "[" "]" and "<" ">" are counted apart, and a count that never returns
//     to 0 hides every later separator.
#ifndef KEMPT_EXPRFORMATTERBASE_H
#define KEMPT_EXPRFORMATTERBASE_H

#include "Kempt_CppFormatterConfig.h"
#include "Kempt_FormatSettings.h"
#include "Kempt_PropertySet.h"
#include "Trn_Position.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Varnel {
class OIndentStream;
struct StreamState;
} // namespace Varnel

namespace Kempt {

class SourceReader;

class ExprFormatterBase {
public:
    // How directives are placed: ALIGN_PPD_LEFT_MOST true, false, or missing.
    enum class DirectivePlacement { LEFT_MOST, WITH_CODE, AS_THEY_STAND };

    // Works on a normalised copy of `properties`.
    ExprFormatterBase(const PropertySet& properties, const MarkerList& markers);
    virtual ~ExprFormatterBase() = default;

    // Spaces a list without aligning it: at every separator of type
    // `separatorType` outside brackets, the blanks in front of it become
    // `wsBefore` and those behind it `wsAfter`, where they are set.
    //   "a ,b"  with "" and " "  ->  "a, b"
    std::string separateList(const std::string& text, std::int32_t separatorType, const WsSetting& wsBefore,
                             const WsSetting& wsAfter, const Varnel::StreamState& state) const;

    // Lays a list out like separateList, and where either setting breaks the
    // line, puts the elements in the column of the first one:
    //   "a, b"  with "" and "\n"  ->  "a,\n" + blanks to a's column + "b"
    // With a line break in `wsBefore` the separator starts the line, to the
    // left of that column: "a\n, b".
    std::string alignList(const std::string& text, std::int32_t separatorType, const WsSetting& wsBefore,
                          const WsSetting& wsAfter, const Varnel::StreamState& state) const;

    // Writes `text` to `out`, placing its directives and re-indenting its
    // block comments that span lines.
    void emitTokens(const std::string& text, Varnel::OIndentStream& out) const;

    // Copies the token from `begin` through `end` (a comment, a directive, a
    // protected region) from `in` to `out`, the gap before it included. A
    // token that spans lines keeps its shape: its later lines move by as much
    // as its first character moved. A token whose column does not change is
    // copied exactly.
    void reindentToken(const Trn::Position& begin, const Trn::Position& end, SourceReader& in,
                       Varnel::OIndentStream& out) const;

    // Copies one directive by the placement of the scheme: at the left margin,
    // with the code around it, or as it stands.
    void emitDirective(const Trn::Position& begin, const Trn::Position& end, SourceReader& in,
                       Varnel::OIndentStream& out) const;

    // Lines up the first assignment operator of each line of `text` in one
    // column, a tab stop at least two columns behind the widest left side.
    std::string alignAssignments(const std::string& text, const Varnel::StreamState& state) const;

    const PropertySet& properties() const { return m_properties; }
    const MarkerList& markers() const { return m_markers; }
    std::int32_t tabSize() const { return m_tabSize; }
    const WsSetting& leftMargin() const { return m_leftMargin; }
    DirectivePlacement directivePlacement() const { return m_directivePlacement; }

protected:
    PropertySet m_properties;

private:
    // One line of alignAssignments: its first assignment operator padded to
    // `column`.
    void writeAlignedLine(const std::string& line, std::int32_t column, std::int32_t tabSize,
                          Varnel::OIndentStream& out) const;

    MarkerList m_markers;
    std::int32_t m_tabSize = 1;
    WsSetting m_leftMargin;
    DirectivePlacement m_directivePlacement = DirectivePlacement::AS_THEY_STAND;
};

// The predicates the expression walk and the lists share. Each is a plain
// test on a token type of the C++ vocabulary.
//
// isOpType         : = * & / + - ! ~ % << >> < > <= >= == != ^ | the compound
//                    assignments && || ?
// isUnaryOpType    * & + - ! ~
// isPtrType        * &
// isAssignType     no token at all (type -1), = and the compound assignments
// isIncDecType     ++ --
// isBuiltinType    char wchar_t bool short int long float double void
bool isOpType(std::int32_t type);
bool isUnaryOpType(std::int32_t type);
bool isPtrType(std::int32_t type);
bool isAssignType(std::int32_t type);
bool isIncDecType(std::int32_t type);
bool isBuiltinType(std::int32_t type);

// Writes `text`, which goes on from a token's first character already
// written: its first line as it stands, and each later line moved from the
// column `sourceColumn` to `column`. The blanks before the old column go and
// the new column's indent takes their place; blanks beyond the old column
// stay, and a line of blanks keeps none. A line marked in `untouched` (by its
// index from 0) passes exactly as it stands.
//   "/* a\n   * b */" from column 2 to 4: "/* a\n     * b */"
void writeMovedLines(Varnel::OIndentStream& out, std::string_view text, std::int32_t sourceColumn,
                     std::int32_t column, std::int32_t tabSize, const std::vector<bool>& untouched = {});

// Right-trims `text`, but keeps the newline that ends a "//" comment, a
// directive or a line continuation at its end: "x // c\n  " gives
// "x // c\n", "x \\\n  " gives "x \\\n".
std::string trimRightKeepingLineEnd(std::string_view text);

} // namespace Kempt

#endif
