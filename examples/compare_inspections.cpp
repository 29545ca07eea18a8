// SPDX-License-Identifier: MIT
// Compare two inspections by difference: what was there before and is gone, and what is new.
#include "show.h"

#include <utility>

namespace
{

/// The region with two more runs, below its frame. The difference treats the last rows of its first operand in ways of
/// their own; now these are the last ones, and no pixel of the frame is on them.
KivRegion with_end(const KivRegion& region)
{
    std::vector<Run> runs = region.Runs();
    runs.push_back({region.Height(), 0, 0});
    runs.push_back({region.Height() + 1, 0, 0});
    return KivRegion(region.Width(), region.Height(), std::move(runs));
}

/// Shows the pixels of `region` that are not in `other`.
bool show_difference(const KivRegion& region, KivRegion& other)
{
    KivRegion ended = with_end(region);
    KivRegion difference;
    KivImage mask; // of the frame's pixels only
    if (KIVMV::KivRegionSub(ended, other, &difference) != KIVMV::KIVMV_OK ||
        KIVMV::KivRegionToBinImage(&mask, difference) != KIVMV::KIVMV_OK) {
        return false;
    }
    show(mask);
    return true;
}

} // namespace

int main()
{
    KivRegion before(12, 4, {{0, 1, 10}, {1, 1, 10}, {2, 1, 10}}); // rows with their first and last columns
    KivRegion after(12, 4, {{0, 1, 10}, {2, 1, 4}, {2, 8, 11}, {3, 2, 3}});

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
