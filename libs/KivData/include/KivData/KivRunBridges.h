// SPDX-License-Identifier: MIT
/// @file
/// Regions and regions of interest as plain sets of pixels, and back: `RegionOf(SetOf(a) | SetOf(b), width, height)` is
/// the plain union of two regions.
///
/// A set has no frame. It keeps the runs that lie outside of the frame of what it was made from, and whoever wants a
/// region back says which frame it gets. All functions throw std::bad_alloc if memory runs out.
#pragma once

#include <KivData/KivRegion.h>
#include <KivData/KivROI.h>
#include <KivRLC/KivRunSet.h>

#include <vector>

namespace KivRuns
{

/// The pixels that any of the region's runs covers, inside of the frame and outside. Costs what KivRunSet does: linear
/// if the runs are in order.
inline KivRunSet SetOf(const KivRegion& region)
{
    return KivRunSet(region.Runs());
}

/// The pixels of a region of interest: those of IKivROIPara::MaskRuns(). None for an open curve.
inline KivRunSet SetOf(const KivROI& roi)
{
    return KivRunSet(roi.Parameters().MaskRuns());
}

/// A region of the given frame with the set's runs, those outside of the frame included.
///
/// @throws std::invalid_argument if width or height is negative.
inline KivRegion RegionOf(const KivRunSet& set, int width, int height)
{
    return KivRegion(width, height, std::vector<Run>(set.Runs().begin(), set.Runs().end()));
}

/// A region of interest that is a mask of the given frame with the set's runs, those outside of the frame included.
///
/// @throws std::invalid_argument if width or height is negative.
inline KivROI MaskOf(const KivRunSet& set, int width, int height)
{
    return KivROI::Mask(std::vector<Run>(set.Runs().begin(), set.Runs().end()), width, height);
}

} // namespace KivRuns
