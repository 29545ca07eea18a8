// SPDX-License-Identifier: MIT
// Runs as CSV: a line with the frame, a line with the column names, a line per run.
#include "kivconvert/errors.h"
#include "kivconvert/run_files.h"

#include <algorithm>
#include <charconv>
#include <fmt/format.h>
#include <iterator>
#include <utility>
#include <vector>

namespace kivconvert
{
namespace
{

constexpr std::string_view column_names = "row,colBegin,colEnd";

/// Reads a text from left to right, line by line; errors tell where.
class Scanner
{
public:
    Scanner(std::string_view text, const std::string& file) : rest_(text), file_(file) {}

    bool at_end() const { return rest_.empty(); }
    bool at_line_end() const { return rest_.empty() || rest_[0] == '\n' || rest_.substr(0, 2) == "\r\n"; }

    void expect(std::string_view word)
    {
        if (rest_.substr(0, word.size()) != word) {
            fail(fmt::format("expected \"{}\"", word));
        }
        rest_.remove_prefix(word.size());
    }

    void expect_line_end()
    {
        if (!at_line_end()) {
            fail("more on the line than expected");
        }
        rest_.remove_prefix(std::min(rest_.find('\n'), rest_.size() - 1) + 1);
        ++line_;
    }

    int read_int(std::string_view name)
    {
        int value = 0;
        const auto [stop, error] = std::from_chars(rest_.data(), rest_.data() + rest_.size(), value);
        if (error == std::errc::result_out_of_range) {
            fail(fmt::format("{} is out of the range of int", name));
        }
        if (error != std::errc()) {
            fail(fmt::format("{} is not an integer", name));
        }
        rest_.remove_prefix(static_cast<std::size_t>(stop - rest_.data()));
        return value;
    }

    int read_next_column(std::string_view name)
    {
        if (rest_.substr(0, 1) != ",") {
            fail(fmt::format("{} is missing", name));
        }
        rest_.remove_prefix(1);
        return read_int(name);
    }

    int read_size(std::string_view name)
    {
        const int value = read_int(name);
        if (value < 0) {
            fail(fmt::format("{} is negative", name));
        }
        return value;
    }

private:
    [[noreturn]] void fail(const std::string& what) const { throw FileError(file_, line_, what); }

    std::string_view rest_;
    const std::string& file_;
    std::size_t line_ = 1;
};

std::pair<int, int> read_frame(Scanner& scanner)
{
    scanner.expect("# width=");
    const int width = scanner.read_size("width");
    scanner.expect(" height=");
    const int height = scanner.read_size("height");
    scanner.expect_line_end();
    return {width, height};
}

Run read_run(Scanner& scanner)
{
    const int row = scanner.read_int("row");
    const int begin = scanner.read_next_column("colBegin");
    const int end = scanner.read_next_column("colEnd");
    scanner.expect_line_end();
    return {row, begin, end};
}

} // namespace

KivRegion parse_runs_csv(std::string_view text, const std::string& file)
{
    Scanner scanner(text, file);
    const auto [width, height] = read_frame(scanner);
    scanner.expect(column_names);
    scanner.expect_line_end();

    std::vector<Run> runs;
    while (!scanner.at_end()) {
        runs.push_back(read_run(scanner));
    }
    return KivRegion(width, height, std::move(runs));
}

std::string runs_as_csv(const KivRegion& region)
{
    std::string text = fmt::format("# width={} height={}\n{}\n", region.Width(), region.Height(), column_names);
    for (const Run& run : region.Runs()) {
        fmt::format_to(std::back_inserter(text), "{},{},{}\n", run.row, run.colBegin, run.colEnd);
    }
    return text;
}

} // namespace kivconvert
