// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace kivrlc
{

/// Which pixels the result of a set operation has: of those that only the first set has, only the second one has, and
/// both have.
struct TruthTable {
    bool only_a;
    bool only_b;
    bool both;

    friend constexpr bool operator==(const TruthTable&, const TruthTable&) = default;

    /// For 64 pixels at once.
    constexpr std::uint64_t operator()(std::uint64_t a, std::uint64_t b) const
    {
        return (only_a ? a & ~b : 0) | (only_b ? b & ~a : 0) | (both ? a & b : 0);
    }
};

inline constexpr TruthTable in_any{true, true, true};
inline constexpr TruthTable in_both{false, false, true};
inline constexpr TruthTable in_first_only{true, false, false};
inline constexpr TruthTable in_one_only{true, true, false};

} // namespace kivrlc
