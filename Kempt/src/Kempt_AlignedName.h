// The type in front of a name that is aligned in a column, as the formatter
// writes it and as the name offset calculator measures it. Both go through
// these functions, so that the column the calculator finds is the column the
// formatter can reach.
//
//   "String *  " with ASTERISK_ANCHOR 1  ->  type "String", symbols "*"
//   "String *  " with ASTERISK_ANCHOR 0  ->  type "String*", symbols ""
// The formatter writes the type, pads to the column, writes the symbols, then
// the name: "String    *callme2(".
#ifndef KEMPT_ALIGNEDNAME_H
#define KEMPT_ALIGNEDNAME_H

#include <cstdint>
#include <string>

namespace Varnel {
struct StreamState;
}

namespace Kempt {

class CppExprFormatter;

struct AlignedType {
    std::string type;    // written first, then the padding
    std::string symbols; // written behind the padding, right in front of the name
};

// With an anchor of 1 for the symbol `text` ends in, the trailing run of "*",
// "&" and white space moves out of `text`; it comes back without leading
// white space. Otherwise nothing moves and the result is empty.
std::string splitPointerSymbols(std::string& text, std::int32_t asteriskAnchor, std::int32_t ampersandAnchor);

// How the type text is prepared: a function's return type is formatted and
// then trimmed, a data declaration's type trimmed and then formatted; with
// FN_DO_NOT_FORMAT a return type is only trimmed.
enum class AlignedTypeFormat { FORMAT_FIRST, TRIM_FIRST, AS_IT_STANDS };

// The gap between the start of a declaration and its name, made into the
// aligned type: formatted as a type with no far gap, line breaks made blanks,
// trailing white space trimmed, symbols split off.
AlignedType alignedType(CppExprFormatter& expr, std::string gap, const Varnel::StreamState& state,
                        AlignedTypeFormat how);

// Whether the symbols hang one column left of the names: an anchor of 1
// with its HANGING_ property on.
bool symbolsHang(const AlignedType& aligned, const CppExprFormatter& expr);

// The column, counted from the start of the declaration, at which its name
// (or, with an anchor of 1, its symbols) can stand: one blank behind the
// type. Hanging symbols ask for two more columns when the next tab stop lies
// closer than two columns. 0 when there is no type.
std::int32_t alignedNameMeasure(const AlignedType& aligned, const CppExprFormatter& expr, std::int32_t tabSize);

} // namespace Kempt

#endif
