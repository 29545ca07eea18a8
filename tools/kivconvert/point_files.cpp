// SPDX-License-Identifier: MIT
#include "kivconvert/point_files.h"

#include "kivconvert/csv_scanner.h"
#include "kivconvert/errors.h"
#include "kivconvert/files.h"
#include "kivconvert/memory_limit.h"
#include "kivconvert/result_codes.h"

#include <KivDataConvert/KivDataConvert.h>

#include <algorithm>
#include <fmt/ranges.h>
#include <iterator>
#include <utility>
#include <vector>

namespace kivconvert
{
namespace
{

constexpr std::string_view point_columns[] = {"x", "y"};

KivPoint read_point(const CsvScanner& scanner)
{
    scanner.expect_fields_for(point_columns);
    return {scanner.number_at(0, "x", -farthest_coordinate, farthest_coordinate),
            scanner.number_at(1, "y", -farthest_coordinate, farthest_coordinate)};
}

std::string header()
{
    return fmt::format("{}\n", fmt::join(point_columns, ","));
}

} // namespace

std::string points_as_csv(const KivPointArray& points)
{
    std::string text = header();
    for (const KivPoint& point : points) {
        fmt::format_to(std::back_inserter(text), "{},{}\n", point.x, point.y);
    }
    return text;
}

std::string points_as_csv(const KivVarArray& xs, const KivVarArray& ys)
{
    std::string text = header();
    for (int i = 0; i < xs.Length(); ++i) {
        fmt::format_to(std::back_inserter(text), "{},{}\n", xs[i].I(), ys[i].I());
    }
    return text;
}

bool looks_like_points(std::string_view text)
{
    return begins_with_fields(text, point_columns);
}

KivPointArray parse_points_csv(std::string_view text, const std::string& file)
{
    CsvScanner scanner(text, file);
    scanner.next_line();
    scanner.expect_fields(point_columns);
    std::vector<KivPoint> points;
    while (scanner.next_line()) {
        points.push_back(read_point(scanner));
    }
    return KivPointArray(std::move(points));
}

void expect_listable(KivRunView runs, const std::string& subject)
{
    double points = 0;
    for (const Run& run : runs) {
        points += std::max(0.0, static_cast<double>(run.colEnd) - run.colBegin + 1);
    }
    expect_affordable(subject, points, "points", bytes_per_point);
}

void expect_point_file(const std::string& path)
{
    if (extension_of(path) != ".csv") {
        throw FileError(path, "is not named like a list of points; those end in .csv");
    }
}

void write_point_file(const std::string& path, const std::string& csv)
{
    expect_point_file(path);
    write_file(path, csv);
}

void write_points(const std::string& path, KivRegion& region, const std::string& subject)
{
    expect_point_file(path);
    expect_listable(region.Runs(), subject);
    KivPointArray points;
    expect_success(KIVMV::KivRegionToPointArray(region, &points), subject);
    write_file(path, points_as_csv(points));
}

} // namespace kivconvert
