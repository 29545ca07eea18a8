// SPDX-License-Identifier: MIT
/// @file
/// Connected components of a set of pixels, and holes. This header needs no OpenCV.
///
/// A component is a maximal connected part of a set; pixels are connected by edges, or by edges and corners. A hole is
/// a finite component of the background, for which the other connectivity holds. Components are in the order of their
/// first pixels: by row, then by column.
///
/// Unless said otherwise, the cost is linear in the runs, and memory beyond the result is 8 bytes a run. Functions that
/// allocate throw std::bad_alloc if memory runs out, and std::length_error for sets of more than 2^31 - 1 runs.
#pragma once

#include <KivRLC/KivRLCExport.h>
#include <KivRLC/KivRunMeasures.h>
#include <KivRLC/KivRunSet.h>

#include <cstdint>
#include <limits>
#include <vector>

namespace KivRuns
{

/// An area that no set exceeds.
constexpr std::int64_t AnyArea = std::numeric_limits<std::int64_t>::max();

/// The component to which each run belongs.
struct ComponentNumbers {
    std::vector<int> ofRun; ///< a number from 0 to count - 1 for each run, in the order of Runs()
    int count;              ///< the number of components
};

/// Numbers the components, by union-find along the runs (He, Chao, Suzuki 2008).
KIVRLC_API ComponentNumbers NumberComponents(const KivRunSet& set, Connectivity connectivity);

/// The components, each as a set.
KIVRLC_API std::vector<KivRunSet> Components(const KivRunSet& set, Connectivity connectivity);

/// Size and place of a component: what cv::connectedComponentsWithStats gives.
struct ComponentSummary {
    std::int64_t area; ///< pixels
    KivRunBox box;     ///< BoundingBox()
    Place centroid;    ///< Centroid()
};

/// Size and place of all components, in their order, without making the sets.
KIVRLC_API std::vector<ComponentSummary> SummarizeComponents(const KivRunSet& set, Connectivity connectivity);

/// All measures of all components, in their order, without making the sets.
KIVRLC_API std::vector<Measures> MeasureComponents(const KivRunSet& set, Connectivity connectivity);

/// The component of the largest area, the first one if several have it. Empty if the set is.
KIVRLC_API KivRunSet LargestComponent(const KivRunSet& set, Connectivity connectivity);

/// The components of at least `minArea` and at most `maxArea` pixels, together as one set.
KIVRLC_API KivRunSet ComponentsByArea(const KivRunSet& set, Connectivity connectivity, std::int64_t minArea,
                                      std::int64_t maxArea = AnyArea);

/// The set without the components that touch the border of a box from within: those with a pixel in the box's first or
/// last row or column. Components that lie wholly outside or wholly inside stay. A box that holds no pixel has no
/// border.
KIVRLC_API KivRunSet WithoutBorderComponents(const KivRunSet& set, Connectivity connectivity, const KivRunBox& box);

/// The holes of at most `maxArea` pixels, together as one set.
///
/// The connectivity is that of the set; the holes have the other one.
KIVRLC_API KivRunSet Holes(const KivRunSet& set, Connectivity connectivity, std::int64_t maxArea = AnyArea);

/// The set together with its holes of at most `maxArea` pixels. A piece of the background that reaches the border of
/// the set's bounding box is no hole.
///
/// The connectivity is that of the set; the holes have the other one.
KIVRLC_API KivRunSet FillHoles(const KivRunSet& set, Connectivity connectivity, std::int64_t maxArea = AnyArea);

} // namespace KivRuns
