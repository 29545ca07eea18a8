// SPDX-License-Identifier: MIT
#include <KivData/KivContour.h>

#include "argument_checks.h"
#include "common/fetch_ahead.h"

#include <KivRLC/KivPolygonFill.h>

#include <algorithm>
#include <utility>

namespace
{

KivContour contour_of(const KivPixel* begin, const KivPixel* end)
{
    KivContour::Points points;
    points.reserve(static_cast<std::size_t>(end - begin)); // making all points at once would clear them first
    constexpr std::ptrdiff_t at_once = 64;
    while (begin != end) {
        kivcommon::fetch_ahead(begin, at_once * sizeof(KivPixel));
        kivcommon::fetch_room_ahead(points, at_once);
        const KivPixel* const stop = begin + std::min(at_once, end - begin);
        for (; begin != stop; ++begin) {
            points.emplace_back(begin->x, begin->y);
        }
    }
    return KivContour(std::move(points));
}

} // namespace

KivContour::KivContour(Points points) : points_(kivdata::checked_elements("KivContour", std::move(points))) {}

bool KivContour::IsHole() const noexcept
{
    if (points_.empty()) {
        return false;
    }
    // Seen from the first point, so that a contour far from the origin loses no digits.
    const cv::Point_<double> origin = points_.front();
    double doubled_area = 0.0;
    for (std::size_t i = 1; i < points_.size(); ++i) {
        doubled_area += (points_[i - 1] - origin).cross(points_[i] - origin);
    }
    return doubled_area > 0.0;
}

KivContourArray::KivContourArray(std::vector<KivContour> contours)
    : contours_(kivdata::checked_elements("KivContourArray", std::move(contours)))
{
}

void KivContourArray::Append(KivContour contour)
{
    kivdata::check_room("KivContourArray", contours_.size(), 1);
    contours_.push_back(std::move(contour));
}

std::size_t KivContourArray::checked(int index) const
{
    return kivdata::checked_index("KivContourArray", index, Length());
}

KivContourArray KivContourArray::BordersOf(KivRunView runs, int width, int height)
{
    kivdata::check_frame(width, height);
    if (width == 0 || height == 0) {
        return KivContourArray();
    }
    kivdata::check_traced_frame(width, height);
    const KivRunBorders borders = KivRunBorders::Of(runs, {0, height - 1, 0, width - 1});
    KivContourArray contours;
    contours.contours_.reserve(borders.borders.size());
    for (const KivRunBorder& border : borders.borders) {
        contours.Append(contour_of(borders.points.data() + border.begin, borders.points.data() + border.end));
    }
    return contours;
}

std::vector<Run> KivContourArray::FilledRuns(int width, int height) const
{
    kivdata::check_frame(width, height);
    KivPolygonFill fill({0, height - 1, 0, width - 1});
    std::size_t points = 0;
    for (const KivContour& contour : contours_) {
        points += contour.AllPoints().size();
    }
    fill.Reserve(contours_.size(), points);
    for (const KivContour& contour : contours_) {
        if (contour.Length() > 0) {
            fill.AddRounded(&contour.AllPoints().front().x, contour.AllPoints().size());
        }
    }
    return fill.Runs();
}
