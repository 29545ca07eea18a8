// SPDX-License-Identifier: MIT
// Of the libraries in Debian, libcsv knows no line numbers, which complaints need, and libfccp wants the columns at
// compile time.
#include "kivconvert/csv_scanner.h"

#include "kivconvert/errors.h"
#include "kivconvert/numbers.h"

#include <algorithm>
#include <fmt/ranges.h>

namespace kivconvert
{
namespace
{

constexpr std::string_view blanks = " \t\r";

std::string_view trimmed(std::string_view text)
{
    const auto first = text.find_first_not_of(blanks);
    if (first == text.npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string_view unquoted(std::string_view field)
{
    const bool is_quoted = field.size() > 1 && field.front() == '"' && field.back() == '"';
    return is_quoted ? trimmed(field.substr(1, field.size() - 2)) : field;
}

/// Removes the text up to the separator, and that, from `rest`. @returns the text
std::string_view take_until(char separator, std::string_view& rest)
{
    const auto stop = std::min(rest.find(separator), rest.size());
    const std::string_view taken = rest.substr(0, stop);
    rest.remove_prefix(std::min(stop + 1, rest.size()));
    return taken;
}

void split(std::string_view line, std::vector<std::string_view>& fields)
{
    fields.clear();
    for (auto rest = std::count(line.begin(), line.end(), ',') + 1; rest > 0; --rest) {
        fields.push_back(unquoted(trimmed(take_until(',', line))));
    }
}

} // namespace

bool CsvScanner::next_line()
{
    ++number_;
    if (rest_.find_first_not_of(" \t\r\n") == rest_.npos) {
        fields_.clear();
        return false;
    }
    line_ = take_until('\n', rest_);
    split(line_, fields_);
    return true;
}

bool CsvScanner::has_fields(FieldNames names) const
{
    return std::equal(fields_.begin(), fields_.end(), names.begin(), names.end());
}

void CsvScanner::expect_fields(FieldNames names) const
{
    if (!has_fields(names)) {
        fail(fmt::format("expected \"{}\"", fmt::join(names, ",")));
    }
}

void CsvScanner::expect_fields_for(FieldNames names) const
{
    if (field_count() < names.size()) {
        fail(fmt::format("{} is missing", names[field_count()]));
    }
    if (field_count() > names.size()) {
        fail("more on the line than expected");
    }
}

int CsvScanner::int_at(std::size_t index, std::string_view name) const
{
    const Parsed<int> parsed = parse_int(fields_[index]);
    if (parsed.error == std::errc::result_out_of_range) {
        fail(fmt::format("{} is out of the range of int", name));
    }
    if (parsed.error != std::errc()) {
        fail(fmt::format("{} is not an integer", name));
    }
    return parsed.value;
}

double CsvScanner::number_at(std::size_t index, std::string_view name, double least, double most) const
{
    const Parsed<double> parsed = parse_double(fields_[index]);
    if (parsed.error == std::errc::invalid_argument) {
        fail(fmt::format("{} is not a number", name));
    }
    if (!(parsed.value >= least && parsed.value <= most)) {
        fail(fmt::format("{} is not a number from {} to {}", name, least, most));
    }
    return parsed.value;
}

void CsvScanner::fail(const std::string& what) const
{
    throw FileError(file_, number_, what);
}

bool begins_with_fields(std::string_view text, FieldNames names)
{
    const std::string no_file;
    CsvScanner scanner(text, no_file);
    return scanner.next_line() && scanner.has_fields(names);
}

} // namespace kivconvert
