// SPDX-License-Identifier: MIT
// How much memory results keep: at most a quarter more than their runs, and a kilobyte.
#include "support/set_algebra.h"

#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>

namespace
{

using support::Runs;

constexpr int rows = 20000;

// Ten runs on each row, of which those in rows up to the given one, and all on the last row, begin at column 0.
Runs ten_a_row(int common_rows)
{
    Runs runs;
    for (int row = 0; row < rows; ++row) {
        const int begin = row < common_rows || row == rows - 1 ? 0 : 1000;
        for (int i = 0; i < 10; ++i) {
            runs.push_back({row, begin + 10 * i, begin + 10 * i + 5});
        }
    }
    return runs;
}

// What they have in common lies in the first rows, so that more of it seems to come.
const Runs a = ten_a_row(rows);
const Runs b = ten_a_row(rows / 20);

void expect_no_spare_room(const Runs& runs)
{
    EXPECT_GT(runs.size(), static_cast<std::size_t>(rows) / 4);
    EXPECT_LE(runs.capacity(), runs.size() * 5 / 4 + 1024 / sizeof(::Run));
}

TEST(ResultMemory, OfARegionIsHardlyMoreThanItsRuns)
{
    KivRegion region_a(2000, rows, a);
    KivRegion region_b(2000, rows, b);
    KivRegion out;
    EXPECT_EQ(KIVMV::KivRegionAnd(region_a, region_b, &out), KIVMV::KIVMV_OK);
    expect_no_spare_room(out.Runs());
}

TEST(ResultMemory, OfAnROIIsHardlyMoreThanItsRuns)
{
    KivROI roi_a = KivROI::Mask(a, 2000, rows);
    KivROI roi_b = KivROI::Mask(b, 2000, rows);
    KivROI out;
    EXPECT_EQ(KIVMV::KivROIAnd(roi_a, roi_b, &out), KIVMV::KIVMV_OK);
    expect_no_spare_room(*out.Parameters().KeptRuns());
}

} // namespace
