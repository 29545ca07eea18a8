// SPDX-License-Identifier: MIT
// Contours filled into a region of a given frame: rounding, holes, rejected frames and which of several faults is
// reported.
#include "support/coordinates.h"
#include "support/rasters.h"

#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>

#include <climits>

namespace
{

using KIVMV::KivContourArrayToRegion;
using support::same_region;
using support::same_values;

const KivRegion earlier(9, 8, {{7, 3, 4}, {1, 2, 2}});
const KivContourArray square = {{{1, 1}, {3, 1}, {3, 2}, {1, 2}}};

void expect_result(const KivContourArray& contours, int width, int height, int code, const KivRegion& expected)
{
    SCOPED_TRACE("into " + std::to_string(width) + " x " + std::to_string(height));
    KivContourArray input(contours);
    KivRegion region(earlier);
    EXPECT_EQ(KivContourArrayToRegion(input, width, height, &region), code);
    EXPECT_TRUE(same_region(region, expected));
    EXPECT_TRUE(same_values(input, contours));
}

void expect_region(const KivContourArray& contours, const KivRegion& expected)
{
    expect_result(contours, expected.Width(), expected.Height(), KIVMV::KIVMV_OK, expected);
}

void expect_refused(const KivContourArray& contours, int width, int height, int code)
{
    expect_result(contours, width, height, code, earlier);
}

TEST(ContoursToRegion, ASquareIsFilledWithItsBorder)
{
    expect_region(square, KivRegion(6, 5, {{1, 1, 3}, {2, 1, 3}}));
}

TEST(ContoursToRegion, TheSmallestFrameIsTwoByTwo)
{
    expect_region({{{0, 0}}}, KivRegion(2, 2, {{0, 0, 0}}));
    expect_region({{{0, 0}, {1, 0}, {1, 1}, {0, 1}}}, KivRegion(2, 2, {{0, 0, 1}, {1, 0, 1}}));
}

TEST(ContoursToRegion, CoordinatesAreRounded)
{
    expect_region({{{2.5, 3.5}}, {{0.51, 0.49}}}, KivRegion(6, 6, {{0, 1, 1}, {4, 2, 2}}));
}

TEST(ContoursToRegion, SeveralContoursAreFilledTogether)
{
    expect_region({{{0, 0}}, {{3, 1}, {5, 1}}}, KivRegion(6, 2, {{0, 0, 0}, {1, 3, 5}}));
}

TEST(ContoursToRegion, AContourInsideOfAnotherIsAHoleWithItsBorderFilled)
{
    expect_region(
        {{{0, 0}, {6, 0}, {6, 6}, {0, 6}}, {{2, 2}, {4, 2}, {4, 4}, {2, 4}}},
        KivRegion(7, 7, {{0, 0, 6}, {1, 0, 6}, {2, 0, 6}, {3, 0, 2}, {3, 4, 6}, {4, 0, 6}, {5, 0, 6}, {6, 0, 6}}));
}

TEST(ContoursToRegion, PartsOutsideOfTheFrameAreCutOff)
{
    expect_region({{{-3, 1}, {9, 1}, {9, 8}, {-3, 8}}}, KivRegion(4, 3, {{1, 0, 3}, {2, 0, 3}}));
}

TEST(ContoursToRegion, ContoursOutsideOfTheFrameGiveARegionWithoutRuns)
{
    expect_region({{{20, 20}, {30, 20}, {30, 30}}}, KivRegion(4, 3, {}));
}

TEST(ContoursToRegion, AContourWithoutPointsIsAContourAllTheSame)
{
    expect_region({KivContour()}, KivRegion(4, 3, {}));
    expect_region({KivContour(), KivContour{{2, 1}}}, KivRegion(4, 3, {{1, 2, 2}}));
}

TEST(ContoursToRegion, CoordinatesBeyondAllIntsFillWhatTheyEnclose)
{
    for (const double far : {support::two_to_31, 1e300, support::infinity}) {
        EXPECT_TRUE(support::is_quick([&] {
            expect_region({{{-far, -far}, {far, -far}, {far, far}, {-far, far}}},
                          KivRegion(3, 2, {{0, 0, 2}, {1, 0, 2}}));
            expect_region({{{-far, 1}, {far, 1}}}, KivRegion(3, 3, {{1, 0, 2}}));
        }));
    }
}

TEST(ContoursToRegion, NoContoursAreRefused)
{
    expect_refused({}, 4, 3, KIVMV::KIVMV_ERR_PARAM_1);
}

TEST(ContoursToRegion, AWidthBelowTwoIsRefused)
{
    for (const int width : {1, 0, -1, INT_MIN}) {
        expect_refused(square, width, 3, KIVMV::KIVMV_ERR_PARAM_2);
    }
}

TEST(ContoursToRegion, AHeightBelowTwoIsRefused)
{
    for (const int height : {1, 0, -1, INT_MIN}) {
        expect_refused(square, 3, height, KIVMV::KIVMV_ERR_PARAM_3);
    }
}

TEST(ContoursToRegion, AFrameThatIsTooLargeToHoldIsAnException)
{
    expect_refused(square, INT_MAX, INT_MAX, KIVMV::KIVMV_ERR_EXCEPTION);
    expect_refused({KivContour()}, INT_MAX, INT_MAX - 1, KIVMV::KIVMV_ERR_EXCEPTION);
}

TEST(ContoursToRegion, TheContoursAreCountedBeforeTheWidthIsLookedAt)
{
    expect_refused({}, 1, 3, KIVMV::KIVMV_ERR_PARAM_1);
}

TEST(ContoursToRegion, TheContoursAreCountedBeforeTheHeightIsLookedAt)
{
    expect_refused({}, 3, 1, KIVMV::KIVMV_ERR_PARAM_1);
    expect_refused({}, 1, 1, KIVMV::KIVMV_ERR_PARAM_1);
}

TEST(ContoursToRegion, TheContoursAreCountedBeforeTheFrameIsMade)
{
    expect_refused({}, INT_MAX, INT_MAX, KIVMV::KIVMV_ERR_PARAM_1);
}

TEST(ContoursToRegion, TheWidthIsLookedAtBeforeTheHeight)
{
    expect_refused(square, 1, 1, KIVMV::KIVMV_ERR_PARAM_2);
    expect_refused(square, -1, 0, KIVMV::KIVMV_ERR_PARAM_2);
}

TEST(ContoursToRegion, TheSizesAreLookedAtBeforeTheFrameIsMade)
{
    expect_refused(square, -1, INT_MAX, KIVMV::KIVMV_ERR_PARAM_2);
    expect_refused(square, INT_MAX, -1, KIVMV::KIVMV_ERR_PARAM_3);
}

} // namespace
