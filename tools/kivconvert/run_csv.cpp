// SPDX-License-Identifier: MIT
// Runs as CSV: a line with the frame, a line with the column names, a line per run.
#include "kivconvert/csv_scanner.h"
#include "kivconvert/run_files.h"

#include <fmt/format.h>
#include <iterator>
#include <utility>
#include <vector>

namespace kivconvert
{
namespace
{

constexpr std::string_view first_word = "# width=";
constexpr std::string_view column_names = "row,colBegin,colEnd";

int read_size(CsvScanner& scanner, std::string_view name)
{
    const int value = scanner.read_int(name);
    if (value < 0) {
        scanner.fail(fmt::format("{} is negative", name));
    }
    return value;
}

std::pair<int, int> read_frame(CsvScanner& scanner)
{
    scanner.expect(first_word);
    const int width = read_size(scanner, "width");
    scanner.expect(" height=");
    const int height = read_size(scanner, "height");
    scanner.expect_line_end();
    return {width, height};
}

int read_next_column(CsvScanner& scanner, std::string_view name)
{
    scanner.expect_column(name);
    return scanner.read_int(name);
}

Run read_run(CsvScanner& scanner)
{
    const int row = scanner.read_int("row");
    const int begin = read_next_column(scanner, "colBegin");
    const int end = read_next_column(scanner, "colEnd");
    scanner.expect_line_end();
    return {row, begin, end};
}

} // namespace

bool looks_like_runs(std::string_view text)
{
    return text.starts_with(first_word);
}

KivRegion parse_runs_csv(std::string_view text, const std::string& file)
{
    CsvScanner scanner(text, file);
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
