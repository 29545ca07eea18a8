// SPDX-License-Identifier: MIT
// What all CSV files have in common: lines of fields, separated by commas. Blanks around a field and quotes around it
// are not part of it; blank lines at the end of the file are ignored.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kivconvert
{

using FieldNames = std::span<const std::string_view>;

/// Reads a text line by line. All errors are FileErrors that name the file and the line.
class CsvScanner
{
public:
    /// Both must outlive the scanner. `file` is named in error messages.
    CsvScanner(std::string_view text, const std::string& file) : rest_(text), file_(file) {}

    /// Goes on to the next line. @returns false at the end of the file
    bool next_line();

    /// The current line, without its end.
    std::string_view line() const { return line_; }

    std::size_t field_count() const { return fields_.size(); }

    /// Whether the fields of the current line are these names.
    bool has_fields(FieldNames names) const;

    /// @throws FileError if they are not
    void expect_fields(FieldNames names) const;

    /// @throws FileError unless the current line has one field for each name
    void expect_fields_for(FieldNames names) const;

    /// The field as a number; `name` is what error messages call it.
    int int_at(std::size_t index, std::string_view name) const;

    /// The same for a number from `least` to `most`.
    double number_at(std::size_t index, std::string_view name, double least, double most) const;

    [[noreturn]] void fail(const std::string& what) const;

private:
    std::string_view rest_;
    const std::string& file_;
    std::string_view line_;
    std::vector<std::string_view> fields_;
    std::size_t number_ = 0;
};

/// Whether the first line of a text has these fields.
bool begins_with_fields(std::string_view text, FieldNames names);

} // namespace kivconvert
