// SPDX-License-Identifier: MIT
// Runs as CSV: a line with the frame, a line with the column names, a line per run.
#include "kivconvert/contents.h"
#include "kivconvert/csv_scanner.h"
#include "kivconvert/numbers.h"
#include "kivconvert/run_files.h"

#include <fmt/ranges.h>
#include <iterator>
#include <utility>
#include <vector>

namespace kivconvert
{
namespace
{

constexpr std::string_view width_word = "# width=";
constexpr std::string_view height_word = " height=";
constexpr std::string_view run_columns[] = {"row", "colBegin", "colEnd"};

int read_size(const CsvScanner& scanner, std::string_view text, std::string_view name)
{
    const Parsed<int> size = parse_int(text);
    if (size.error != std::errc() || size.value < 0) {
        scanner.fail(fmt::format("{} is not an int of at least 0", name));
    }
    return size.value;
}

/// From the line "# width=W height=H".
Frame read_frame(const CsvScanner& scanner)
{
    std::string_view line = scanner.line().substr(width_word.size());
    line = line.substr(0, line.find_last_not_of(" \t\r") + 1);
    const auto height_at = line.find(height_word);
    if (height_at == line.npos) {
        scanner.fail(fmt::format("expected \"{}\"", height_word));
    }
    return {read_size(scanner, line.substr(0, height_at), "width"),
            read_size(scanner, line.substr(height_at + height_word.size()), "height")};
}

Run read_run(const CsvScanner& scanner)
{
    scanner.expect_fields_for(run_columns);
    return {scanner.int_at(0, "row"), scanner.int_at(1, "colBegin"), scanner.int_at(2, "colEnd")};
}

} // namespace

bool looks_like_runs(std::string_view text)
{
    return text.starts_with(width_word) || begins_with_fields(text, run_columns);
}

KivRegion parse_runs_csv(std::string_view text, const std::string& file)
{
    CsvScanner scanner(text, file);
    scanner.next_line();
    Frame frame;
    if (scanner.line().starts_with(width_word)) {
        frame = read_frame(scanner);
        scanner.next_line();
    }
    scanner.expect_fields(run_columns);
    std::vector<Run> runs;
    while (scanner.next_line()) {
        runs.push_back(read_run(scanner));
    }
    return KivRegion(frame.width, frame.height, std::move(runs));
}

std::string runs_as_csv(const KivRegion& region)
{
    std::string text = fmt::format("{}{}{}{}\n{}\n", width_word, region.Width(), height_word, region.Height(),
                                   fmt::join(run_columns, ","));
    for (const Run& run : region.Runs()) {
        fmt::format_to(std::back_inserter(text), "{},{},{}\n", run.row, run.colBegin, run.colEnd);
    }
    return text;
}

} // namespace kivconvert
