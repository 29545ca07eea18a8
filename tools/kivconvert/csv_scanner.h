// SPDX-License-Identifier: MIT
// What all CSV files have in common: numbers separated by commas, line by line.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kivconvert
{

/// Reads a text from left to right; every complaint is a FileError that names the file and the line.
class CsvScanner
{
public:
    /// Both must outlive the scanner. `file` is named in error messages.
    CsvScanner(std::string_view text, const std::string& file) : rest_(text), file_(file) {}

    bool at_end() const { return rest_.empty(); }
    bool at_line_end() const;

    void expect(std::string_view word);
    void expect_line_end();

    /// `name` tells in error messages what the number is.
    int read_int(std::string_view name);

    /// A number of at least `least` and at most `most`.
    double read_number(std::string_view name, double least, double most);

    /// Goes on to the next column of the line.
    void expect_column(std::string_view name);

    [[noreturn]] void fail(const std::string& what) const;

private:
    template <class Number>
    Number read(std::string_view name, std::string_view kind, std::string_view range);

    std::string_view rest_;
    const std::string& file_;
    std::size_t line_ = 1;
};

} // namespace kivconvert
