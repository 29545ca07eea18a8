// SPDX-License-Identifier: MIT
#include "contract_test.h"

using namespace contract;
using namespace KIVMV;

namespace
{

using ExtractionContract = ContractTest;

const std::vector<Run> untidy = {{7, 5, 9}, {0, 3, 1}, {7, 5, 9}, {-2, 0, 4}};

/// What a region becomes when the extractor gives untidy runs.
template <class Convert>
std::vector<Run> handed_over(Convert convert)
{
    KivRegion region;
    start();
    recording::extracted() = untidy;
    EXPECT_EQ(convert(&region), KIVMV_OK);
    return region.test_runs;
}

bool is_untidy(const std::vector<Run>& runs)
{
    return recording::described(runs) == recording::described(untidy);
}

} // namespace

TEST_F(ExtractionContract, RunsReachTheRegionAsTheExtractorGivesThem)
{
    KivImage image("image");
    image.test_set(padded_matrix(1, 2, {0, 1}));
    EXPECT_TRUE(is_untidy(handed_over([&](KivRegion* out) { return KivImageToRegion(image, out); })));
    EXPECT_TRUE(is_untidy(handed_over([&](KivRegion* out) { return KivBinImageToRegion(image, out); })));

    KivVarArray ones;
    set(ones, {1});
    EXPECT_TRUE(is_untidy(handed_over([&](KivRegion* out) { return KivVarArrayToRegion(ones, ones, out); })));

    KivPointArray points("points");
    points.test_append(1.0, 1.0);
    EXPECT_TRUE(is_untidy(handed_over([&](KivRegion* out) { return KivPointArrayToRegion(points, out); })));

    KivContour contour;
    contour.test_points = {{1.0, 1.0}};
    EXPECT_TRUE(is_untidy(handed_over([&](KivRegion* out) { return KivContourToRegion(contour, out); })));

    KivContourArray contours("contours");
    contours.test_length = 1;
    EXPECT_TRUE(is_untidy(handed_over([&](KivRegion* out) { return KivContourArrayToRegion(contours, 2, 2, out); })));
}

TEST_F(ExtractionContract, RoisKeepTheirOwnRunsWhateverTheExtractorGives)
{
    KivROI roi;
    roi.test_become("roi", 8, 2, 2, {{1, 0, 1}});
    const auto runs = handed_over([&](KivRegion* out) { return KivROIToRegion(roi, out); });
    EXPECT_EQ(recording::described(runs), " (1,0,1)");
}
