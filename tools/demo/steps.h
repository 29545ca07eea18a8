// SPDX-License-Identifier: MIT
// The steps of the demo, one file per group, in the order in which they build on each other.
#pragma once

#include "demo/inspection.h"

namespace demo
{

// step_threshold.cpp
Report find_parts(Inspection& inspection);

// step_raster.cpp
Report image_to_region(Inspection& inspection);
Report region_to_image(Inspection& inspection);
Report image_to_matrix_to_image(Inspection& inspection);

// step_algebra.cpp
Report difference_of_regions(Inspection& inspection);
Report union_of_regions(Inspection& inspection);
Report complement_of_region(Inspection& inspection);
Report select_with_ring(Inspection& inspection);

// step_contours.cpp
Report cut_out_contour(Inspection& inspection);
Report trace_and_fill(Inspection& inspection);

// step_files.cpp
Report save_contours(Inspection& inspection);
Report save_points(Inspection& inspection);

inline constexpr Step steps[] = {
    {"find the parts", find_parts},
    {"image to region", image_to_region},
    {"region to image", region_to_image},
    {"image to matrix to image", image_to_matrix_to_image},
    {"difference: holes", difference_of_regions},
    {"union: parts and holes", union_of_regions},
    {"complement: the table", complement_of_region},
    {"intersection with a ring", select_with_ring},
    {"cut a contour out", cut_out_contour},
    {"contours and back", trace_and_fill},
    {"contours as SVG and JSON", save_contours},
    {"points as CSV", save_points},
};

} // namespace demo
