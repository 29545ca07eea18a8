// SPDX-License-Identifier: MIT
// The rules that docs/set-algebra.md states for the ends of run lists, and its advice on how to avoid them, for
// all pairs of small masks. Here the rules are written as the page's table has them, in the order of its rows.
#include "support/pictures.h"
#include "support/pixel_runs.h"
#include "support/set_algebra.h"

#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <string>

namespace
{

using support::Runs;

constexpr int width = 3;
constexpr int height = 3;
constexpr unsigned row_masks = 1U << width;
constexpr unsigned masks = row_masks * row_masks * row_masks;

/// A mask: the pixels of each row as bits, the first column lowest.
using Rows = std::array<unsigned, height>;

Rows mask_of(unsigned bits)
{
    return {bits % row_masks, bits / row_masks % row_masks, bits / row_masks / row_masks};
}

Runs runs_of(const Rows& mask)
{
    return support::runs_where(height, width, [&mask](int row, int column) {
        return (mask[static_cast<std::size_t>(row)] >> column & 1U) != 0;
    });
}

/// Those of a single row, as row 0.
Runs runs_of(unsigned row_bits)
{
    return runs_of(Rows{row_bits});
}

std::string picture_of(const Rows& mask)
{
    return support::picture_of(runs_of(mask), width, height);
}

// ---------------------------------------------------------------------------------------------------------------------
// The table

enum class Operation { RegionUnion, Difference, RegionIntersection, RoiIntersection, RoiUnion };

bool is_union(Operation operation)
{
    return operation == Operation::RegionUnion || operation == Operation::RoiUnion;
}

/// The operation on a row that both have, where no rule of the ends applies.
unsigned as_any_row(Operation operation, unsigned a, unsigned b)
{
    switch (operation) {
    case Operation::Difference:
        return a & ~b;
    case Operation::RegionIntersection:
    case Operation::RoiIntersection:
        return a & b;
    default:
        return a | b;
    }
}

struct Operands {
    Rows a;
    Rows b;
    int last_a = -1;        ///< the last row of A with runs
    int before_last_a = -1; ///< the row of A before it; below 0 when there is none
    int last_b = -1;
    int rows_of_b = 0;

    Operands(const Rows& first, const Rows& second) : a(first), b(second)
    {
        for (int y = 0; y < height; ++y) {
            if (row_of_a(y) != 0) {
                before_last_a = last_a;
                last_a = y;
            }
            if (row_of_b(y) != 0) {
                last_b = y;
                ++rows_of_b;
            }
        }
    }

    unsigned row_of_a(int y) const { return a[static_cast<std::size_t>(y)]; }
    unsigned row_of_b(int y) const { return b[static_cast<std::size_t>(y)]; }
};

bool single(unsigned row)
{
    return runs_of(row).size() == 1;
}

unsigned first_run(unsigned row)
{
    const Run run = runs_of(row).front();
    return ((1U << (run.colEnd + 1)) - 1) & ~((1U << run.colBegin) - 1);
}

/// Whether the operation keeps what is left of A on a row, whatever B does at its end.
bool keeps_a(Operation operation)
{
    return operation == Operation::RegionUnion || operation == Operation::Difference;
}

/// What the operation makes of `a`, in the company of B's runs on row `y`.
unsigned in_company_of(Operation operation, unsigned a, const Operands& operands, int y)
{
    const unsigned b = operands.row_of_b(y);
    const bool as_any = keeps_a(operation) || (operation != Operation::RegionIntersection && single(b));
    // B's last row is a row of A, and perhaps the only row that B has
    if (y == operands.last_b && !as_any) {
        return operands.rows_of_b == 1 ? as_any_row(operation, a, first_run(b)) : 0;
    }
    return as_any_row(operation, a, b);
}

/// What the operation gives on row `y`, which is a row of A.
unsigned row_of_table(Operation operation, const Operands& operands, int y)
{
    const unsigned a = operands.row_of_a(y);
    const int before = operands.before_last_a;
    const bool is_last = y == operands.last_a;

    // A is a single run
    if (is_last && before < 0 && single(a)) {
        return keeps_a(operation) ? a : 0;
    }
    // A's last row is a single run, and B lacks, or has, the row of A before it
    if (is_last && before >= 0 && single(a)) {
        const bool has_before = operands.row_of_b(before) != 0;
        if (!has_before && (keeps_a(operation) || operation == Operation::RoiUnion)) {
            return a;
        }
        if (has_before && operation == Operation::RoiUnion) {
            return in_company_of(operation, a, operands, before);
        }
    }
    // A's last row has several runs
    if (is_last && !single(a) && operation == Operation::RoiUnion) {
        return 0;
    }
    return in_company_of(operation, a, operands, y);
}

Rows by_the_table(Operation operation, const Operands& operands)
{
    Rows result{};
    for (int y = 0; y < height; ++y) {
        const unsigned only_b = is_union(operation) ? operands.row_of_b(y) : 0;
        result[static_cast<std::size_t>(y)] = operands.row_of_a(y) != 0 ? row_of_table(operation, operands, y) : only_b;
    }
    return result;
}

// ---------------------------------------------------------------------------------------------------------------------
// The library

/// The pixels of the frame that are in the runs.
Rows painted(const Runs& runs)
{
    Rows mask{};
    for (const Run& run : runs) {
        for (int x = run.colBegin; run.row < height && x <= run.colEnd; ++x) {
            mask[static_cast<std::size_t>(run.row)] |= 1U << x;
        }
    }
    return mask;
}

/// What an operation gives inside of the frame, for the runs of two regions.
Rows given(support::Combination<KivRegion> operation, const Runs& a, const Runs& b)
{
    KivRegion first(width, height, a);
    KivRegion second(width, height, b);
    KivRegion out;
    EXPECT_EQ(operation(first, second, &out), 0);
    return painted(out.Runs());
}

/// The same of two masks.
Rows given(support::Combination<KivROI> operation, const Runs& a, const Runs& b)
{
    KivROI first = KivROI::Mask(a, width, height);
    KivROI second = KivROI::Mask(b, width, height);
    KivROI out;
    EXPECT_EQ(operation(first, second, &out), 0);
    return painted(out.Parameters().MaskRuns());
}

/// Calls `compare` for all pairs of masks that have pixels; the page has a table of its own for those that have none.
void for_all_pairs(const std::function<void(const Operands&)>& compare)
{
    for (unsigned a = 1; a < masks; ++a) {
        for (unsigned b = 1; b < masks; ++b) {
            compare(Operands(mask_of(a), mask_of(b)));
            if (testing::Test::HasFailure()) {
                FAIL() << "A:\n" << picture_of(mask_of(a)) << "B:\n" << picture_of(mask_of(b));
            }
        }
    }
}

TEST(SetAlgebraRules, TheTableOfTheEndsOfTheLists)
{
    for_all_pairs([](const Operands& operands) {
        const Runs a = runs_of(operands.a);
        const Runs b = runs_of(operands.b);
        const auto expected = [&operands](Operation operation) { return by_the_table(operation, operands); };
        EXPECT_EQ(given(KIVMV::KivRegionAdd, a, b), expected(Operation::RegionUnion)) << "KivRegionAdd";
        EXPECT_EQ(given(KIVMV::KivRegionSub, a, b), expected(Operation::Difference)) << "KivRegionSub";
        EXPECT_EQ(given(KIVMV::KivROISub, a, b), expected(Operation::Difference)) << "KivROISub";
        EXPECT_EQ(given(KIVMV::KivRegionAnd, a, b), expected(Operation::RegionIntersection)) << "KivRegionAnd";
        EXPECT_EQ(given(KIVMV::KivROIAnd, a, b), expected(Operation::RoiIntersection)) << "KivROIAnd";
        EXPECT_EQ(given(KIVMV::KivROIAdd, a, b), expected(Operation::RoiUnion)) << "KivROIAdd";
    });
}

TEST(SetAlgebraRules, TheAdvisedEndsMakeTheOperationsPlain)
{
    for_all_pairs([](const Operands& operands) {
        Runs a = runs_of(operands.a);
        Runs b = runs_of(operands.b);
        a.insert(a.end(), {{height, 0, 0}, {height + 1, 0, 0}});

        Rows any = operands.a;
        Rows both = operands.a;
        Rows rest = operands.a;
        for (std::size_t y = 0; y < height; ++y) {
            any[y] |= operands.b[y];
            both[y] &= operands.b[y];
            rest[y] &= ~operands.b[y];
        }
        EXPECT_EQ(given(KIVMV::KivRegionSub, a, b), rest) << "the end of A is all that matters";
        b.push_back({height + 2, 0, 0});
        EXPECT_EQ(given(KIVMV::KivRegionAdd, a, b), any) << "KivRegionAdd";
        EXPECT_EQ(given(KIVMV::KivROIAdd, a, b), any) << "KivROIAdd";
        EXPECT_EQ(given(KIVMV::KivRegionAnd, a, b), both) << "KivRegionAnd";
        EXPECT_EQ(given(KIVMV::KivROIAnd, a, b), both) << "KivROIAnd";
        EXPECT_EQ(given(KIVMV::KivRegionSub, a, b), rest) << "KivRegionSub";
        EXPECT_EQ(given(KIVMV::KivROISub, a, b), rest) << "KivROISub";
    });
}

TEST(SetAlgebraRules, ThePlainComplementIsADifference)
{
    Runs full;
    for (int y = 0; y < height + 2; ++y) {
        full.push_back({y, 0, width - 1});
    }
    for (unsigned bits = 1; bits < masks; ++bits) {
        const Rows mask = mask_of(bits);
        Rows rest{};
        for (std::size_t y = 0; y < height; ++y) {
            rest[y] = ~mask[y] & (row_masks - 1);
        }
        EXPECT_EQ(given(KIVMV::KivRegionSub, full, runs_of(mask)), rest) << picture_of(mask);
        EXPECT_EQ(given(KIVMV::KivROISub, full, runs_of(mask)), rest) << picture_of(mask);
    }
}

TEST(SetAlgebraRules, ARowBelowTheFrameGivesTheComplementItsLastRowBack)
{
    for (unsigned bits = 1; bits < masks; ++bits) {
        KivROI roi = KivROI::Mask(runs_of(mask_of(bits)), width, height);
        KivROI by_roi;
        ASSERT_EQ(KIVMV::KivROINot(roi, &by_roi), 0);
        Runs ended = runs_of(mask_of(bits));
        ended.push_back({height, 0, 0});
        KivRegion region(width, height, ended);
        KivRegion out;
        ASSERT_EQ(KIVMV::KivRegionNot(region, &out), 0);
        EXPECT_EQ(painted(out.Runs()), painted(by_roi.Parameters().MaskRuns())) << picture_of(mask_of(bits));
    }
}

} // namespace
