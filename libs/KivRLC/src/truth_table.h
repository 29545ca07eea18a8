// SPDX-License-Identifier: MIT
#pragma once

namespace kivrlc
{

/// Which pixels the result of a set operation has: of those that only the first set has, only the second one has, and
/// both have.
struct TruthTable {
    bool only_a;
    bool only_b;
    bool both;

    friend constexpr bool operator==(const TruthTable&, const TruthTable&) = default;
};

inline constexpr TruthTable in_any{true, true, true};
inline constexpr TruthTable in_both{false, false, true};
inline constexpr TruthTable in_first_only{true, false, false};
inline constexpr TruthTable in_one_only{true, true, false};

} // namespace kivrlc
