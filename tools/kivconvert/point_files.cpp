// SPDX-License-Identifier: MIT
#include "kivconvert/point_files.h"

#include "kivconvert/csv_scanner.h"
#include "kivconvert/errors.h"
#include "kivconvert/files.h"
#include "kivconvert/result_codes.h"

#include <KivDataConvert/KivDataConvert.h>

#include <algorithm>
#include <fmt/format.h>
#include <iterator>
#include <utility>
#include <vector>

namespace kivconvert
{
namespace
{

constexpr std::string_view column_names = "x,y";

double read_coordinate(CsvScanner& scanner, std::string_view name)
{
    return scanner.read_number(name, -farthest_coordinate, farthest_coordinate);
}

KivPoint read_point(CsvScanner& scanner)
{
    const double x = read_coordinate(scanner, "x");
    scanner.expect_column("y");
    const double y = read_coordinate(scanner, "y");
    scanner.expect_line_end();
    return {x, y};
}

} // namespace

std::string points_as_csv(const KivPointArray& points)
{
    std::string text = fmt::format("{}\n", column_names);
    for (const KivPoint& point : points) {
        fmt::format_to(std::back_inserter(text), "{},{}\n", point.x, point.y);
    }
    return text;
}

std::string points_as_csv(const KivVarArray& xs, const KivVarArray& ys)
{
    std::string text = fmt::format("{}\n", column_names);
    for (int i = 0; i < xs.Length(); ++i) {
        fmt::format_to(std::back_inserter(text), "{},{}\n", xs[i].I(), ys[i].I());
    }
    return text;
}

bool looks_like_points(std::string_view text)
{
    return text.substr(0, column_names.size()) == column_names;
}

KivPointArray parse_points_csv(std::string_view text, const std::string& file)
{
    CsvScanner scanner(text, file);
    scanner.expect(column_names);
    scanner.expect_line_end();
    std::vector<KivPoint> points;
    while (!scanner.at_end()) {
        points.push_back(read_point(scanner));
    }
    return KivPointArray(std::move(points));
}

void expect_listable(const std::vector<Run>& runs, const std::string& subject)
{
    long long points = 0;
    for (const Run& run : runs) {
        points += std::max(0LL, static_cast<long long>(run.colEnd) - run.colBegin + 1);
        if (points > max_listed_points) {
            throw FileError(subject, fmt::format("has more than {} pixels, too many to list", max_listed_points));
        }
    }
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
