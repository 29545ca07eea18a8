// SPDX-License-Identifier: MIT
#include "kivconvert/point_files.h"

#include "kivconvert/errors.h"
#include "kivconvert/files.h"
#include "kivconvert/result_codes.h"

#include <KivDataConvert/KivDataConvert.h>

#include <algorithm>
#include <fmt/format.h>
#include <iterator>

namespace kivconvert
{
namespace
{

void expect_listable(const KivRegion& region, const std::string& subject)
{
    long long points = 0;
    for (const Run& run : region.Runs()) {
        points += std::max(0LL, static_cast<long long>(run.colEnd) - run.colBegin + 1);
        if (points > max_listed_points) {
            throw FileError(subject, fmt::format("has more than {} pixels, too many to list", max_listed_points));
        }
    }
}

} // namespace

std::string points_as_csv(const KivPointArray& points)
{
    std::string text = "x,y\n";
    for (const KivPoint& point : points) {
        fmt::format_to(std::back_inserter(text), "{},{}\n", point.x, point.y);
    }
    return text;
}

void write_points(const std::string& path, KivRegion& region, const std::string& subject)
{
    if (extension_of(path) != ".csv") {
        throw FileError(path, "is not named like a list of points; those end in .csv");
    }
    expect_listable(region, subject);
    KivPointArray points;
    expect_success(KIVMV::KivRegionToPointArray(region, &points), subject);
    write_file(path, points_as_csv(points));
}

} // namespace kivconvert
