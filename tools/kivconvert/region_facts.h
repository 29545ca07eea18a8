// SPDX-License-Identifier: MIT
// Counts and extents of a region.
#pragma once

#include <KivData/KivData.h>

#include <cstddef>

namespace kivconvert
{

/// First and last value, both included.
struct Extent {
    int first = 0;
    int last = -1;
};

struct RegionFacts {
    std::size_t runs = 0;    ///< as many as the list has
    std::size_t outside = 0; ///< how many of them reach outside the frame or cover nothing
    long long pixels = 0;    ///< inside the frame, each counted once
    Extent columns;          ///< of those pixels
    Extent rows;             ///< of those pixels
};

/// Costs what the runs cost, however large the frame.
RegionFacts facts_of(const KivRegion& region);

} // namespace kivconvert
