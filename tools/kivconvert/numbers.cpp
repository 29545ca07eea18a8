// SPDX-License-Identifier: MIT
#include "kivconvert/numbers.h"

#include "kivconvert/system.h"

#include <charconv>
#include <cmath>
#include <string>

namespace kivconvert
{
namespace
{

/// std::from_chars() takes no plus sign.
std::string_view without_plus(std::string_view text)
{
    return text.starts_with('+') && !text.starts_with("+-") ? text.substr(1) : text;
}

double double_of(const std::string& text, std::size_t& length)
{
    char* stop = nullptr;
    const double value = system::classic_strtod(text.c_str(), &stop);
    length = static_cast<std::size_t>(stop - text.c_str());
    return value;
}

} // namespace

Parsed<int> parse_int(std::string_view text)
{
    const std::string_view digits = without_plus(text);
    Parsed<int> parsed;
    const auto [stop, error] = std::from_chars(digits.data(), digits.data() + digits.size(), parsed.value);
    const bool is_whole_text = stop == digits.data() + digits.size();
    parsed.error = is_whole_text ? error : std::errc::invalid_argument;
    return parsed;
}

Parsed<double> parse_double(std::string_view text)
{
    // Neither names, such as nan, nor hexadecimal notation, nor blanks.
    if (text.empty() || text.find_first_not_of("+-.0123456789eE") != text.npos) {
        return {0, std::errc::invalid_argument};
    }
    std::size_t length = 0;
    const double value = double_of(std::string(text), length);
    if (length != text.size()) {
        return {0, std::errc::invalid_argument};
    }
    return {value, std::isinf(value) ? std::errc::result_out_of_range : std::errc()};
}

} // namespace kivconvert
