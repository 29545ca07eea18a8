// SPDX-License-Identifier: MIT
// Numbers in texts, in decimal notation whatever the locale.
#pragma once

#include <string_view>
#include <system_error>

namespace kivconvert
{

template <class Number>
struct Parsed {
    Number value = 0;
    std::errc error = {}; ///< none, invalid_argument or result_out_of_range
};

/// The int that the whole text is. A sign may precede it.
Parsed<int> parse_int(std::string_view text);

/// The finite number that the whole text is, with or without a fraction and an exponent.
Parsed<double> parse_double(std::string_view text);

} // namespace kivconvert
