// A place in a text: line and column. Lines count from 1; 0, 0 means "no
// position". Positions compare lexicographically, line first.
#ifndef TRN_POSITION_H
#define TRN_POSITION_H

#include <compare>
#include <cstdint>
#include <utility>
#include <vector>

namespace Trn {

struct Position {
    std::int32_t line = 0;
    std::int32_t col = 0;

    constexpr Position() = default;
    constexpr Position(std::int32_t l, std::int32_t c) : line(l), col(c) {}

    constexpr bool isNull() const { return line == 0 && col == 0; }

    friend constexpr bool operator==(const Position&, const Position&) = default;
    friend constexpr std::strong_ordering operator<=>(const Position&, const Position&) = default;
};

// A stretch of text from `first` to `second`, both inclusive.
using Range = std::pair<Position, Position>;
using RangeList = std::vector<Range>;

} // namespace Trn

#endif
