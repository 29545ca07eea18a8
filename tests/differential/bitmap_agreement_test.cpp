// SPDX-License-Identifier: MIT
// The set operations against bitmaps, pixel by pixel, where nothing depends on the ends of the run lists.
//
// Rows at a list's end follow rules of their own. All of them are kept away by guard rows below the rows of interest:
// two of A with one run each, then one of B. So A has more than one run. A's last run stands alone on its row, after a
// row that B lacks, which makes every operation take it as it is: the unions and the differences keep it, the
// intersections drop it. B's last row is one that A lacks. The guard rows are compared like all others.
#include "support/pixel_runs.h"
#include "support/set_algebra.h"

#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <iostream>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace
{

using support::described;
using support::Runs;

// Row and column. A set, so that runs may lie outside the frame.
using Pixel = std::pair<int, int>;
using Bitmap = std::set<Pixel>;

Bitmap bitmap_of(const Runs& runs)
{
    Bitmap bitmap;
    for (const Run& run : runs) {
        for (int column = run.colBegin; column <= run.colEnd; ++column) {
            bitmap.insert({run.row, column});
        }
    }
    return bitmap;
}

bool has(const Bitmap& bitmap, int row, int column)
{
    return bitmap.count({row, column}) > 0;
}

std::string described_pixels(const Bitmap& bitmap)
{
    Runs runs;
    for (const auto& [row, column] : bitmap) {
        if (!runs.empty() && runs.back().row == row && runs.back().colEnd == column - 1) {
            runs.back().colEnd = column;
        } else {
            runs.push_back({row, column, column});
        }
    }
    return described(runs);
}

const Runs& runs_of(const KivROI& roi)
{
    static const Runs none;
    const auto* mask = std::get_if<KivShape::Mask>(&roi.Parameters().Shape());
    return mask == nullptr ? none : mask->runs;
}

constexpr int rows_of_interest = 4; // 0 to 3
constexpr int width = 6;
constexpr int height = 8;

Runs guarded_a(Runs runs)
{
    runs.push_back({rows_of_interest, 1, 2});
    runs.push_back({rows_of_interest + 1, 0, 4});
    return runs;
}

Runs guarded_b(Runs runs)
{
    runs.push_back({rows_of_interest + 2, 3, 5});
    return runs;
}

struct Operation {
    const char* name;
    support::Combination<KivRegion> of_regions;
    support::Combination<KivROI> of_rois;
    bool (*keeps)(bool in_a, bool in_b);
};

constexpr Operation operations[] = {
    {"union", KIVMV::KivRegionAdd, KIVMV::KivROIAdd, [](bool in_a, bool in_b) { return in_a || in_b; }},
    {"intersection", KIVMV::KivRegionAnd, KIVMV::KivROIAnd, [](bool in_a, bool in_b) { return in_a && in_b; }},
    {"difference", KIVMV::KivRegionSub, KIVMV::KivROISub, [](bool in_a, bool in_b) { return in_a && !in_b; }},
};

Bitmap combined(const Bitmap& a, const Bitmap& b, bool (*keeps)(bool, bool))
{
    Bitmap result;
    for (const Pixel& pixel : a) {
        if (keeps(true, b.count(pixel) > 0)) {
            result.insert(pixel);
        }
    }
    for (const Pixel& pixel : b) {
        if (keeps(a.count(pixel) > 0, true)) {
            result.insert(pixel);
        }
    }
    return result;
}

testing::AssertionResult same_pixels(const std::string& what, const Runs& actual, const Bitmap& expected)
{
    if (bitmap_of(actual) == expected) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << what << "\nexpected " << described_pixels(expected) << "\n     got "
                                       << described(actual);
}

// Counts what is compared.
class Comparison
{
public:
    testing::AssertionResult pair(const Runs& a_runs, const Runs& b_runs)
    {
        ++count_;
        const Runs a = guarded_a(a_runs);
        const Runs b = guarded_b(b_runs);
        const Bitmap a_bitmap = bitmap_of(a);
        const Bitmap b_bitmap = bitmap_of(b);
        KivRegion region_a(width, height, a);
        KivRegion region_b(width, height, b);
        KivROI roi_a = KivROI::Mask(a, width, height);
        KivROI roi_b = KivROI::Mask(b, width, height);
        for (const Operation& operation : operations) {
            const Bitmap expected = combined(a_bitmap, b_bitmap, operation.keeps);
            const std::string what = std::string(operation.name) + " of A " + described(a) + " and B " + described(b);
            KivRegion region;
            if (operation.of_regions(region_a, region_b, &region) != 0) {
                return testing::AssertionFailure() << what << ": code";
            }
            if (const auto result = same_pixels(what + ", regions", region.Runs(), expected); !result) {
                return result;
            }
            KivROI roi;
            if (operation.of_rois(roi_a, roi_b, &roi) != 0) {
                return testing::AssertionFailure() << what << ": code";
            }
            if (const auto result = same_pixels(what + ", ROIs", runs_of(roi), expected); !result) {
                return result;
            }
        }
        return testing::AssertionSuccess();
    }

    testing::AssertionResult complement(const Runs& runs);

    testing::AssertionResult has_compared(std::size_t at_least) const
    {
        std::cout << "compared " << count_ << " times\n";
        return count_ >= at_least ? testing::AssertionSuccess()
                                  : testing::AssertionFailure() << "compared only " << count_ << " times";
    }

private:
    std::size_t count_ = 0;
};

// ---------------------------------------------------------------------------------------------------------------
// The complement

// The pixels of the frame that the complement must cover: the background, and of every two neighbouring runs of a row
// the last pixel of the left one, and the first pixel of the right one together with the pixel after it, whatever that
// pixel is.
Bitmap complement_with_overlaps(const Bitmap& bitmap)
{
    Bitmap result;
    for (int row = 0; row < height; ++row) {
        int last = -1; // of the run to the left, if any
        for (int column = 0; column < width; ++column) {
            if (!has(bitmap, row, column)) {
                result.insert({row, column});
                continue;
            }
            if (!has(bitmap, row, column - 1) && last >= 0) {
                result.insert({{row, last}, {row, column}});
                if (column + 1 < width) {
                    result.insert({row, column + 1});
                }
            }
            last = column;
        }
    }
    return result;
}

// The runs must not share or touch each other's pixels. The last row of a region's runs gives nothing, so there is a
// full row at the end.
testing::AssertionResult Comparison::complement(const Runs& runs)
{
    ++count_;
    Runs guarded = runs;
    guarded.push_back({rows_of_interest + 1, 0, width - 1});
    const Bitmap expected = complement_with_overlaps(bitmap_of(guarded));
    const auto inside = [](const Runs& all) {
        Runs clipped;
        for (const auto& run : all) {
            clipped.push_back({run.row, run.colBegin, std::min(run.colEnd, width - 1)});
        }
        return clipped;
    };

    KivRegion region_a(width, height, guarded);
    KivRegion region;
    KivROI roi_a = KivROI::Mask(guarded, width, height);
    KivROI roi;
    if (KIVMV::KivRegionNot(region_a, &region) != 0 || KIVMV::KivROINot(roi_a, &roi) != 0) {
        return testing::AssertionFailure() << "code";
    }
    const std::string what = "complement of " + described(guarded);
    if (const auto result = same_pixels(what + ", a region", inside(region.Runs()), expected); !result) {
        return result;
    }
    return same_pixels(what + ", an ROI", inside(runs_of(roi)), expected);
}

// ---------------------------------------------------------------------------------------------------------------
// Bitmaps as runs

Runs runs_of_bits(unsigned bits, int rows, int columns)
{
    return support::runs_where(rows, columns,
                               [=](int row, int column) { return (bits >> (row * columns + column) & 1U) != 0; });
}

TEST(SetOperationsAgainstBitmaps, EveryTwoBitmapsOfTwoRowsAndThreeColumns)
{
    constexpr unsigned count = 1U << 6;
    Comparison comparison;
    for (unsigned a = 0; a < count; ++a) {
        for (unsigned b = 0; b < count; ++b) {
            ASSERT_TRUE(comparison.pair(runs_of_bits(a, 2, 3), runs_of_bits(b, 2, 3)));
        }
    }
    EXPECT_TRUE(comparison.has_compared(4096));
}

TEST(SetOperationsAgainstBitmaps, EveryTwoRowsOfSixPixels)
{
    constexpr unsigned count = 1U << 6;
    Comparison comparison;
    for (unsigned a = 0; a < count; ++a) {
        for (unsigned b = 0; b < count; ++b) {
            ASSERT_TRUE(comparison.pair(runs_of_bits(a, 1, 6), runs_of_bits(b, 1, 6)));
        }
    }
    EXPECT_TRUE(comparison.has_compared(4096));
}

// Runs that overlap, repeat or reach out of the frame, in any order, on the rows of interest and on negative ones.
TEST(SetOperationsAgainstBitmaps, RandomRunsInAnyOrder)
{
    std::mt19937 random(1);
    const auto between = [&random](int lowest, int highest) {
        return std::uniform_int_distribution<int>(lowest, highest)(random);
    };
    const auto any_runs = [&between]() {
        Runs runs;
        for (int count = between(0, 9); count > 0; --count) {
            const int row = between(-1, rows_of_interest - 1);
            const int begin = between(-3, 8);
            runs.push_back({row, begin, begin + between(0, 5)});
        }
        return runs;
    };
    Comparison comparison;
    for (int i = 0; i < 3000; ++i) {
        const Runs a = any_runs();
        const Runs b = any_runs();
        ASSERT_TRUE(comparison.pair(a, b)) << "pair " << i;
    }
    EXPECT_TRUE(comparison.has_compared(3000));
}

TEST(ComplementAgainstBitmaps, EveryBitmapOfTwoRowsAndSixColumns)
{
    Comparison comparison;
    for (unsigned bits = 0; bits < 1U << 12; ++bits) {
        ASSERT_TRUE(comparison.complement(runs_of_bits(bits, 2, 6)));
    }
    EXPECT_TRUE(comparison.has_compared(4096));
}

TEST(ComplementAgainstBitmaps, EveryBitmapOfFourRowsAndThreeColumns)
{
    Comparison comparison;
    for (unsigned bits = 0; bits < 1U << 12; ++bits) {
        ASSERT_TRUE(comparison.complement(runs_of_bits(bits, 4, 3)));
    }
    EXPECT_TRUE(comparison.has_compared(4096));
}

} // namespace
