// SPDX-License-Identifier: MIT
// Measures are those of the pixels counted one by one, and do not depend on where the shape lies, up to the ends of the
// ints.
//
// Input: column and row by which the picture is moved, then the picture.
#include "inputs.h"
#include "target.h"

#include "run_brute.h"

#include <KivRLC/KivRunMeasures.h>
#include <KivRLC/KivRunTransforms.h>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <numbers>
#include <stdexcept>

namespace
{

using KivRuns::Connectivity;

void expect_counted(const KivRunSet& set)
{
    const brute::Pixels pixels = brute::pixels_of(set);
    const int straight = brute::entries(pixels, 0, 1) + brute::entries(pixels, 1, 0);
    const int diagonal = brute::entries(pixels, 1, 1) + brute::entries(pixels, 1, -1);
    EXPECT_EQ(set.Area(), static_cast<std::int64_t>(pixels.size()));
    EXPECT_EQ(KivRuns::EdgePerimeter(set), 2 * straight);
    EXPECT_DOUBLE_EQ(KivRuns::CroftonPerimeter(set), std::numbers::pi / 4 * (straight + diagonal / std::sqrt(2.0)));
    for (const Connectivity connectivity : {Connectivity::Four, Connectivity::Eight}) {
        const auto holes = static_cast<std::int64_t>(brute::holes(pixels, connectivity).size());
        EXPECT_EQ(KivRuns::HoleCount(set, connectivity), holes);
        EXPECT_EQ(KivRuns::EulerNumber(set, connectivity),
                  static_cast<std::int64_t>(brute::components(pixels, connectivity).size()) - holes);
    }
}

/// What is measured of a shape does not change when it is moved, places excepted.
void expect_same(const KivRunSet& set, const KivRunSet& moved)
{
    const KivRuns::Measures here = KivRuns::Measure(set, Connectivity::Eight);
    const KivRuns::Measures there = KivRuns::Measure(moved, Connectivity::Eight);
    EXPECT_EQ(here.moments.area, there.moments.area);
    EXPECT_EQ(here.moments.xx, there.moments.xx);
    EXPECT_EQ(here.moments.xy, there.moments.xy);
    EXPECT_EQ(here.moments.yy, there.moments.yy);
    EXPECT_EQ(here.edgePerimeter, there.edgePerimeter);
    EXPECT_EQ(here.eulerNumber, there.eulerNumber);
    EXPECT_EQ(KivRuns::ConvexHull(set).size(), KivRuns::ConvexHull(moved).size());
    const KivRuns::FeretDiameters diameters = KivRuns::FeretDiametersOf(set);
    EXPECT_EQ(diameters.largest, KivRuns::FeretDiametersOf(moved).largest);
    EXPECT_EQ(diameters.smallest, KivRuns::FeretDiametersOf(moved).smallest);
    EXPECT_LE(diameters.smallest, diameters.largest);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    fuzz::FuzzedBytes input(bytes, size);
    const int columns = input.coordinate();
    const int rows = input.coordinate();
    const KivRunSet set = KivRuns::Crop(run_sets::set_of(input.picture()), {0, 31, 0, 31});
    expect_counted(set);
    if (!set.Empty()) {
        try {
            expect_same(set, KivRuns::Translate(set, columns, rows));
        } catch (const std::overflow_error&) {
            EXPECT_TRUE(columns > 1 << 30 || rows > 1 << 30);
        }
    }
    return 0;
}
