// Helpers for the expression formatter tests: a scheme built in a line, and
// formatting a text on a stream that starts at column 0 with no indent.
#ifndef TW_TESTS_EXPRTESTSUPPORT_H
#define TW_TESTS_EXPRTESTSUPPORT_H

#include "Kempt_CppExprFormatter.h"
#include "Kempt_PropertyNames.h"
#include "Varnel_StreamState.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace TestSupport {

// A scheme of string settings, with optional integer and bool ones:
//   scheme({{Prop::WS_BETWEEN_EXPR_OP_OPERANDS, " "}}, {{Prop::ASTERISK_ANCHOR, 1}})
inline Kempt::PropertySet scheme(const std::vector<std::pair<std::string, std::string>>& strings,
                                 const std::vector<std::pair<std::string, std::int32_t>>& ints = {},
                                 const std::vector<std::pair<std::string, bool>>& bools = {})
{
    Kempt::PropertySet set("test");
    for (const auto& [name, value] : strings)
        set.setString(name, value);
    for (const auto& [name, value] : ints)
        set.setInt(name, value);
    for (const auto& [name, value] : bools)
        set.setBool(name, value);
    return set;
}

// A stream at column `col`, with `indent` and keep-leading-space as given.
inline Varnel::StreamState streamAt(std::int32_t col = 0, std::string indent = "", bool keep = true,
                                    std::int32_t tabSize = 4)
{
    Varnel::StreamState state;
    state.indent = std::move(indent);
    state.keepLeadingSpace = keep;
    state.tabSize = tabSize;
    state.col = col;
    return state;
}

inline std::string format(const Kempt::PropertySet& set, const std::string& text,
                          const Varnel::StreamState& state = streamAt())
{
    Kempt::CppExprFormatter f(set);
    return f.format(text, state);
}

inline std::string formatTypeId(const Kempt::PropertySet& set, const std::string& text,
                                const Kempt::WsSetting& farGap, const Varnel::StreamState& state = streamAt())
{
    Kempt::CppExprFormatter f(set);
    return f.formatTypeId(text, state, farGap);
}

} // namespace TestSupport

// Formats `input` and expects `expected`; then formats `expected` and expects
// it back unchanged, so that every case also checks stability.
#define EXPECT_EXPR(set, expected, input)                                                                          \
    do {                                                                                                           \
        EXPECT_EQ(TestSupport::format((set), (input)), (expected)) << "input: " << (input);                       \
        EXPECT_EQ(TestSupport::format((set), (expected)), (expected)) << "second run";                            \
    } while (0)

#define EXPECT_TYPE_ID(set, far, expected, input)                                                                  \
    do {                                                                                                           \
        EXPECT_EQ(TestSupport::formatTypeId((set), (input), (far)), (expected)) << "input: " << (input);          \
        EXPECT_EQ(TestSupport::formatTypeId((set), (expected), (far)), (expected)) << "second run";               \
    } while (0)

#endif
