// SPDX-License-Identifier: MIT
#include <KivData/KivRegion.h>

#include <gtest/gtest.h>

#include <climits>
#include <stdexcept>
#include <utility>
#include <vector>

namespace
{

using Runs = std::vector<Run>;

/// Unsorted, doubled, overlapping, touching, outside of the frame, back to front: all kept as they are.
const Runs untidy = {{5, 3, 4}, {0, 0, 9}, {5, 3, 4}, {5, 4, 8}, {5, 9, 9}, {-3, 1, 2}, {INT_MAX, INT_MIN, INT_MAX},
                     {2, 7, 1}};

struct Arrays {
    KivVarArray rows;
    KivVarArray begins;
    KivVarArray ends;
};

Arrays arrays_of(const Runs& runs)
{
    Arrays arrays;
    for (const Run& run : runs) {
        arrays.rows.Append(KivVar(run.row));
        arrays.begins.Append(KivVar(run.colBegin));
        arrays.ends.Append(KivVar(run.colEnd));
    }
    return arrays;
}

TEST(Region, IsEmptyByDefault)
{
    KivRegion region;
    EXPECT_EQ(region.Width(), 0);
    EXPECT_EQ(region.Height(), 0);
    EXPECT_TRUE(region.Runs().empty());
}

TEST(Region, KeepsRunsVerbatim)
{
    Arrays given = arrays_of(untidy);
    KivRegion region;
    region.CreateRegion(4, 6, given.rows, given.begins, given.ends);
    EXPECT_EQ(region.Width(), 4);
    EXPECT_EQ(region.Height(), 6);
    EXPECT_EQ(region.Runs(), untidy);

    Arrays got;
    region.GetRegionRuns(&got.rows, &got.begins, &got.ends);
    EXPECT_EQ(got.rows, given.rows);
    EXPECT_EQ(got.begins, given.begins);
    EXPECT_EQ(got.ends, given.ends);
    EXPECT_EQ(region, KivRegion(4, 6, untidy));
}

TEST(Region, ReadsArraysThatAreNotPacked)
{
    KivVarArray rows{3.9, 1};
    KivVarArray begins{0, "text"};
    KivVarArray ends{-2.5, 1e99};
    KivRegion region;
    region.CreateRegion(1, 1, rows, begins, ends);
    EXPECT_EQ(region.Runs(), (Runs{{3, 0, -2}, {1, 0, INT_MAX}}));
}

TEST(Region, ReplacesWhatTheArraysHeld)
{
    Arrays got = arrays_of({{1, 1, 1}});
    KivRegion region(4, 6, {});
    region.GetRegionRuns(&got.rows, &got.begins, &got.ends);
    EXPECT_EQ(got.rows.Length() + got.begins.Length() + got.ends.Length(), 0);
}

TEST(Region, RefusesBadArgumentsAndKeepsItsContents)
{
    const KivRegion before(4, 6, untidy);
    KivRegion region(before);
    Arrays arrays = arrays_of(untidy);
    EXPECT_THROW(region.CreateRegion(-1, 6, arrays.rows, arrays.begins, arrays.ends), std::invalid_argument);
    EXPECT_THROW(region.CreateRegion(4, -1, arrays.rows, arrays.begins, arrays.ends), std::invalid_argument);
    EXPECT_THROW(region.CreateRegion(4, -1, Runs()), std::invalid_argument);
    EXPECT_THROW(KivRegion(INT_MIN, 0, {}), std::invalid_argument);
    for (KivVarArray* shortened : {&arrays.rows, &arrays.begins, &arrays.ends}) {
        const KivVarArray whole(*shortened);
        shortened->Remove(0);
        EXPECT_THROW(region.CreateRegion(1, 1, arrays.rows, arrays.begins, arrays.ends), std::invalid_argument);
        *shortened = whole;
    }
    EXPECT_EQ(region, before);
}

TEST(Region, HasValueSemantics)
{
    const KivRegion sample(4, 6, untidy);
    KivRegion copy(sample);
    EXPECT_EQ(copy, sample);
    copy.CreateRegion(4, 6, Runs());
    EXPECT_NE(copy, sample);
    copy = sample;
    const KivRegion& same = copy;
    copy = same;
    EXPECT_EQ(copy, sample);

    KivRegion moved(std::move(copy));
    EXPECT_EQ(moved, sample);
    EXPECT_EQ(copy, KivRegion());
    copy = std::move(moved);
    EXPECT_EQ(copy, sample);
    EXPECT_EQ(moved, KivRegion());
    KivRegion& itself = copy;
    copy = std::move(itself);
    EXPECT_EQ(copy, sample);
    copy.swap(moved);
    EXPECT_EQ(moved, sample);
    EXPECT_EQ(copy, KivRegion());
}

TEST(Region, ComparesFrameAndRunsInOrder)
{
    const KivRegion region(4, 6, {{0, 1, 2}, {1, 1, 2}});
    EXPECT_NE(region, KivRegion(5, 6, {{0, 1, 2}, {1, 1, 2}}));
    EXPECT_NE(region, KivRegion(4, 5, {{0, 1, 2}, {1, 1, 2}}));
    EXPECT_NE(region, KivRegion(4, 6, {{1, 1, 2}, {0, 1, 2}}));
}

} // namespace
