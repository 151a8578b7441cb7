// The column arithmetic all passes share: how wide a character or a string is
// from a given column, where tab stops lie, how much to pad to reach an
// aligned column, and how a width becomes the tabs and blanks of a new line
// under the stream's white-space mode (CONVERT_WS) and tab size. Also the
// search for lines that pass the right margin.
//
// Columns and widths are signed 32-bit; column 0 is the first column. Tab
// modes: 0 keep tabs, 1 expand tabs to blanks, 2 turn blanks into tabs.
#ifndef KEMPT_COLUMNARITHMETIC_H
#define KEMPT_COLUMNARITHMETIC_H

#include "Trn_Position.h"

#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace Varnel {
class ITextDocStream;
class OIndentStream;
} // namespace Varnel

namespace Kempt {

// A tab is as wide as the distance to the next stop, a whole tab on a stop; a
// newline is 0 wide; every other byte 1. Contracts "col >= 0", "tabSize > 0".
std::int32_t charWidth(char c, std::int32_t col, std::int32_t tabSize);

// The width of every line of `s` added up, the first starting at `col`, the
// others at 0: "ab\ncd" is 4 wide. Contracts "col >= 0", "tabSize > 0".
std::int32_t stringWidth(std::string_view s, std::int32_t col, std::int32_t tabSize);

// Steps back from `col` over the characters of `s`, last first, each with its
// width at the remaining column; the column reached, never below 0. 0 when
// the tab size is below 1 or `col` is not above 0.
std::int32_t columnBefore(std::string_view s, std::int32_t col, std::int32_t tabSize);

// r's column less l's on the same line; 0 on different lines. Contract "l <= r".
std::int32_t columnDifference(const Trn::Position& l, const Trn::Position& r);

// The column itself on a stop (0 included), else the next stop.
// Contracts "col >= 0", "tabSize > 0".
std::int32_t nextTabStop(std::int32_t col, std::int32_t tabSize);

// 0 and every multiple of the tab size. Contracts "col >= 0", "tabSize > 0".
bool isTabStop(std::int32_t col, std::int32_t tabSize);

// How many columns to pad from `curCol` to reach a tab stop at or behind
// `targetCol`; when `curCol` is already past the target and past its stop,
// the stop of targetCol + curCol. Contracts "targetCol >= 0", "curCol >= 0",
// "tab > 0".
std::int32_t alignmentSpace(std::int32_t targetCol, std::int32_t curCol, std::int32_t tab);

// The white space that starts a new line at width `target`, built from the
// stream's indent string, tab size and tab mode. In mode 2 a width short of
// the next tab stop behind the indent is dropped, so such a line comes out
// narrower than asked. The stream's tab size must not be 0.
std::string indentString(const Varnel::OIndentStream& out, std::int32_t target);

// Written to an indenting (or document) stream: pads `amount` columns with
// tabs and blanks as the stream's tab mode allows. On an empty line the
// amount counts from column 0 and includes the indent that the stream writes
// first. Contract "amount >= 0".
class ColumnPad {
public:
    explicit ColumnPad(std::int32_t amount);
    std::int32_t amount() const { return m_amount; }

private:
    std::int32_t m_amount;
};

std::ostream& operator<<(std::ostream& out, const ColumnPad& pad);

// The line numbers, from 1 and ascending, of the lines of `in` that are wider
// than `limit`, measured with the stream's tab size. The first line starts at
// the stream's first column, the others at 0.
std::vector<std::int32_t> findLongLines(Varnel::ITextDocStream& in, std::int32_t limit);

} // namespace Kempt

#endif
