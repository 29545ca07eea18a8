// SPDX-License-Identifier: MIT
// The pictures and the table of pairs of docs/set-algebra.md.
#include "support/pictures.h"
#include "support/set_algebra.h"

#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>

#include <string>

namespace
{

using support::picture_of;
using support::Runs;
using support::same;

KivRegion region_of(const cv::Mat& mask)
{
    KivImage image(mask);
    KivRegion region;
    EXPECT_EQ(KIVMV::KivBinImageToRegion(image, &region), 0);
    return region;
}

std::string shown(const KivRegion& region)
{
    return picture_of(region.Runs(), region.Width(), region.Height());
}

std::string shown(support::Combination<KivRegion> operation, KivRegion a, KivRegion b)
{
    KivRegion out;
    EXPECT_EQ(operation(a, b, &out), 0);
    return shown(out);
}

/// The same of masks.
std::string shown(support::Combination<KivROI> operation, const KivRegion& a, const KivRegion& b)
{
    KivROI first = KivROI::Mask(a.Runs(), a.Width(), a.Height());
    KivROI second = KivROI::Mask(b.Runs(), b.Width(), b.Height());
    KivROI out;
    EXPECT_EQ(operation(first, second, &out), 0);
    return picture_of(out.Parameters().MaskRuns(), out.Parameters().Width(), out.Parameters().Height());
}

TEST(SetAlgebraPage, TheOrdinaryCase)
{
    const KivRegion a = region_of(support::mask_of({"..#####...", //
                                                    "..#####...", //
                                                    "..........", //
                                                    "#........."}));
    const KivRegion b = region_of(support::mask_of({"..........", //
                                                    "....#####.", //
                                                    "....#####.", //
                                                    ".........#"}));
    EXPECT_EQ(shown(KIVMV::KivRegionAdd, a, b), "..#####...\n"
                                                "..#######.\n"
                                                "....#####.\n"
                                                "#........#\n");
    EXPECT_EQ(shown(KIVMV::KivRegionAnd, a, b), "..........\n"
                                                "....###...\n"
                                                "..........\n"
                                                "..........\n");
    EXPECT_EQ(shown(KIVMV::KivRegionSub, a, b), "..#####...\n"
                                                "..##......\n"
                                                "..........\n"
                                                "#.........\n");
}

/// A row of the table of pairs: the runs of A and B, and those of the three results.
struct Pair {
    Run a;
    Run b;
    Runs results[3];
};

TEST(SetAlgebraPage, PairsOfRuns)
{
    const Pair pairs[] = {
        {{0, 2, 8}, {0, 5, 12}, {{{0, 2, 12}}, {{0, 5, 8}}, {{0, 2, 4}}}},
        {{0, 5, 12}, {0, 2, 8}, {{{0, 2, 12}}, {{0, 5, 8}}, {{0, 9, 12}}}},
        {{0, 2, 9}, {0, 4, 5}, {{{0, 2, 9}}, {{0, 4, 5}}, {{0, 2, 3}, {0, 6, 9}}}},
        {{0, 4, 5}, {0, 2, 9}, {{{0, 2, 9}}, {{0, 4, 5}}, {}}},
        {{0, 2, 4}, {0, 4, 9}, {{{0, 2, 9}}, {{0, 4, 4}}, {{0, 2, 3}}}},
        {{0, 2, 4}, {0, 5, 9}, {{{0, 2, 4}, {0, 5, 9}}, {}, {{0, 2, 4}}}},
        {{0, 6, 9}, {0, 2, 4}, {{{0, 2, 4}, {0, 6, 9}}, {}, {{0, 6, 9}}}},
    };
    const support::Combination<KivRegion> operations[] = {KIVMV::KivRegionAdd, KIVMV::KivRegionAnd,
                                                          KIVMV::KivRegionSub};
    for (const Pair& pair : pairs) {
        for (int i = 0; i < 3; ++i) {
            const KivRegion a(20, 4, {pair.a, {3, 0, 0}}); // a further row below
            Runs expected = pair.results[i];
            if (i != 1) {
                expected.push_back({3, 0, 0});
            }
            EXPECT_TRUE(same(support::combined(operations[i], a, KivRegion(20, 4, {pair.b}), KivRegion()),
                             KivRegion(20, 4, expected)));
        }
    }
}

TEST(SetAlgebraPage, AGapOfTheComplementIncludesAPixelOfEachNeighbour)
{
    KivRegion region(10, 1, {{0, 2, 3}, {0, 6, 7}, {1, 0, 0}}); // the last row gives nothing
    KivRegion complement;
    ASSERT_EQ(KIVMV::KivRegionNot(region, &complement), 0);
    EXPECT_TRUE(same(complement, KivRegion(10, 1, {{0, 0, 1}, {0, 3, 7}, {0, 8, 9}})));
}

TEST(SetAlgebraPage, PicturesOfTheEndsOfTheLists)
{
    EXPECT_EQ(shown(KIVMV::KivRegionAdd,
                    region_of(support::mask_of({".............", "####......###", "##..........."})),
                    region_of(support::mask_of({".............", ".............", ".....##......"}))),
              ".............\n"
              "####......###\n"
              "##...........\n");

    const KivRegion bars = region_of(support::mask_of({"######", "######"}));
    const KivRegion dots = region_of(support::mask_of({"..##..", "..##.."}));
    EXPECT_EQ(shown(KIVMV::KivRegionAnd, bars, dots), "..##..\n"
                                                      "......\n");
    EXPECT_EQ(shown(KIVMV::KivROIAnd, bars, dots), "..##..\n"
                                                   "..##..\n");

    EXPECT_EQ(shown(KIVMV::KivROIAdd,
                    region_of(support::mask_of(
                        {".............", "####.........", "..........###", ".............", "............."})),
                    region_of(support::mask_of(
                        {".............", ".....##......", ".............", ".............", "#............"}))),
              ".............\n"
              "####.##......\n"
              ".....##...###\n"
              ".............\n"
              "#............\n");
}

} // namespace
