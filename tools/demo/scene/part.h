// SPDX-License-Identifier: MIT
// One machined part on the table: where it lies, its outline, its relief and how its surface was finished.
//
// Lengths are pixels of the finished picture. Parts are drawn at `oversampling` times that resolution.
#pragma once

#include <opencv2/core.hpp>

#include <functional>
#include <vector>

namespace demo::scene
{

inline constexpr int oversampling = 2;

/// Where a part's own origin lies, and how far its own x axis is turned clockwise.
struct Placement {
    cv::Point2d centre;
    double degrees = 0.0;
};

enum class Finish {
    brushed, // straight grinding marks along the part's x axis
    turned,  // circular marks around its centre
    rolled,  // smooth, no marks
};

struct Part {
    Placement placement;
    Finish finish = Finish::rolled;
    double reflectance = 0.5;
    double thickness = 8.0; ///< how far its shadow falls
    cv::Rect box;           ///< the part of the oversampled picture that the two matrices cover
    cv::Mat1b outline;      ///< 255 where the part is
    cv::Mat1f relief;       ///< height of the surface
};

/// A point of the part's box in the part's own coordinates.
cv::Point2d to_local(const Part& part, int column, int row);

/// Draws outlines in a part's own coordinates.
class OutlinePen
{
public:
    /// Begins a part of nothing; what is drawn must stay within `reach` of its centre.
    OutlinePen(const Placement& placement, double reach);

    OutlinePen& disc(cv::Point2d centre, double radius) { return fill_disc(centre, radius, 255); }
    OutlinePen& hole(cv::Point2d centre, double radius) { return fill_disc(centre, radius, 0); }
    OutlinePen& polygon(const std::vector<cv::Point2d>& corners, double corner_radius = 0.0);
    OutlinePen& slot(cv::Point2d from, cv::Point2d to, double radius);

    /// The part, with a flat relief whose edges are bevelled.
    Part bevelled(Finish finish, double reflectance, double bevel) const;

    /// The part, with a relief that is a function of its own coordinates.
    Part modelled(Finish finish, double reflectance, const std::function<double(cv::Point2d)>& height) const;

private:
    OutlinePen& fill_disc(cv::Point2d centre, double radius, int value);
    cv::Point to_box(cv::Point2d local) const;
    int fixed(double length) const;

    Part part_;
};

} // namespace demo::scene
