// SPDX-License-Identifier: MIT
#include "kivconvert/csv_scanner.h"

#include "kivconvert/errors.h"

#include <algorithm>
#include <charconv>
#include <fmt/format.h>

namespace kivconvert
{

bool CsvScanner::at_line_end() const
{
    return rest_.empty() || rest_[0] == '\n' || rest_.substr(0, 2) == "\r\n";
}

void CsvScanner::expect(std::string_view word)
{
    if (rest_.substr(0, word.size()) != word) {
        fail(fmt::format("expected \"{}\"", word));
    }
    rest_.remove_prefix(word.size());
}

void CsvScanner::expect_line_end()
{
    if (!at_line_end()) {
        fail("more on the line than expected");
    }
    rest_.remove_prefix(std::min(rest_.find('\n'), rest_.size() - 1) + 1);
    ++line_;
}

int CsvScanner::read_int(std::string_view name)
{
    return read<int>(name, "an integer", "int");
}

double CsvScanner::read_number(std::string_view name, double least, double most)
{
    const auto value = read<double>(name, "a number", "double");
    if (!(value >= least && value <= most)) {
        fail(fmt::format("{} is not a number from {} to {}", name, least, most));
    }
    return value;
}

void CsvScanner::expect_column(std::string_view name)
{
    if (rest_.substr(0, 1) != ",") {
        fail(fmt::format("{} is missing", name));
    }
    rest_.remove_prefix(1);
}

void CsvScanner::fail(const std::string& what) const
{
    throw FileError(file_, line_, what);
}

template <class Number>
Number CsvScanner::read(std::string_view name, std::string_view kind, std::string_view range)
{
    Number value = 0;
    const auto [stop, error] = std::from_chars(rest_.data(), rest_.data() + rest_.size(), value);
    if (error == std::errc::result_out_of_range) {
        fail(fmt::format("{} is out of the range of {}", name, range));
    }
    if (error != std::errc()) {
        fail(fmt::format("{} is not {}", name, kind));
    }
    rest_.remove_prefix(static_cast<std::size_t>(stop - rest_.data()));
    return value;
}

} // namespace kivconvert
