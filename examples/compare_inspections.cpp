// SPDX-License-Identifier: MIT
// Compare two inspections by difference: which pixels are gone, and which are new.
#include "show.h"

#include <KivData/KivRunBridges.h>

namespace
{

/// Shows the pixels of `region` that are not in `other`. A plain set of pixels has no ends that are treated otherwise,
/// as KivRegionSub() treats those of run lists.
bool show_difference(const KivRegion& region, const KivRegion& other)
{
    using KivRuns::SetOf;
    KivRegion difference = KivRuns::RegionOf(SetOf(region) - SetOf(other), region.Width(), region.Height());
    KivImage mask; // of the frame's pixels only
    if (KIVMV::KivRegionToBinImage(&mask, difference) != KIVMV::KIVMV_OK) {
        return false;
    }
    show(mask);
    return true;
}

} // namespace

int main()
{
    const KivRegion before(12, 4, {{0, 1, 10}, {1, 1, 10}, {2, 1, 10}}); // rows with their first and last columns
    const KivRegion after(12, 4, {{0, 1, 10}, {2, 1, 4}, {2, 8, 11}, {3, 2, 3}});

    std::cout << "gone:\n";
    const bool gone = show_difference(before, after);
    std::cout << "new:\n";
    return gone && show_difference(after, before) ? 0 : 1;
}
// Prints:
//   gone:
//   ............
//   .##########.
//   .....###....
//   ............
//   new:
//   ............
//   ............
//   ...........#
//   ..##........
