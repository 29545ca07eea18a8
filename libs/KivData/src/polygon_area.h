// SPDX-License-Identifier: MIT
// The area of polygons, their edges included.
#pragma once

#include "columns.h"

#include <KivData/KivRunPolygons.h>
#include <KivRLC/KivRun.h>

#include <opencv2/core.hpp>

#include <cstddef>
#include <vector>

namespace kivdata
{

/// An edge of a polygon, from its upper end down to its lower one.
///
/// Coordinates may be so large that products of them overflow; they are scaled by a power of two, which is exact,
/// before they are multiplied.
class PolygonEdge
{
public:
    PolygonEdge(cv::Point_<double> a, cv::Point_<double> b, double scale);

    double top() const { return upper_.y; }
    double bottom() const { return lower_.y; }

    /// Negative for a point to the right of the edge's line, 0 for one on it; never rises with x.
    double side(double x, double y) const;

    /// Whether the row y counts for the even-odd rule. The lower end does not, so that two edges that follow each other
    /// downward count once where they meet.
    bool crosses(double y) const { return top() <= y && y < bottom(); }

    /// 1 if the polygon goes down along the edge, -1 if it goes up.
    int turn() const { return turn_; }

    /// Whether any point of row y may lie on the edge.
    bool touches(double y) const { return top() <= y && y <= bottom(); }

    /// @name The points of a touched row that lie on the edge, as columns.h wants them
    /// @{
    bool begun(double x, double y) const { return x >= left_ && side(x, y) <= 0.0; }
    bool ended(double x, double y) const { return x > right_ || side(x, y) < 0.0; }
    /// @}

private:
    cv::Point_<double> upper_;
    cv::Point_<double> lower_;
    double left_;
    double right_;
    double scale_;
    int turn_;
};

/// Closed polygons, filled together.
class PolygonArea
{
public:
    using Ring = std::vector<cv::Point_<double>>;

    explicit PolygonArea(const Ring& points) : PolygonArea(&points, 1, KivRuns::FillRule::EvenOdd) {}
    PolygonArea(const Ring* rings, std::size_t count, KivRuns::FillRule rule);

    /// By the even-odd rule.
    bool contains(double x, double y) const;
    std::vector<Run> runs(int width, int height) const;

private:
    std::vector<PolygonEdge> edges_;
    KivRuns::FillRule rule_;
};

} // namespace kivdata
