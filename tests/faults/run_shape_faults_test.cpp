// SPDX-License-Identifier: MIT
// Every allocation of the operations on run sets, and of what makes contours of contours, runs and grey images, fails
// once. Each time the exception reaches the caller, nothing leaks, and the set is as it was.
#include "failing_allocations.h"

#include <KivData/KivContourMeasures.h>
#include <KivData/KivLevelContours.h>
#include <KivData/KivRunPolygons.h>
#include <KivRLC/KivRunBorders.h>
#include <KivRLC/KivRunCoco.h>
#include <KivRLC/KivRunComponents.h>
#include <KivRLC/KivRunImages.h>
#include <KivRLC/KivRunLists.h>
#include <KivRLC/KivRunMeasures.h>
#include <KivRLC/KivRunMorphology.h>
#include <KivRLC/KivRunOutlines.h>
#include <KivRLC/KivRunTransforms.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <new>
#include <ostream>
#include <vector>

namespace
{

constexpr auto connectivity = KivRuns::Connectivity::Four;

struct Operation {
    const char* name;
    void (*run)(const KivRunSet& set);
};

void PrintTo(const Operation& operation, std::ostream* out)
{
    *out << operation.name;
}

KivRuns::Element three_by_three()
{
    return KivRuns::Element::Rectangle(3, 3);
}

const KivRunSet other{{0, 2, 9}, {2, 2, 4}, {5, 0, 0}, {8, 4, 4}};

/// Two rows of twenty pixels each, which are looked up by column.
KivRunSet dense()
{
    std::vector<Run> runs;
    for (const int row : {0, 1}) {
        for (int i = 0; i < 20; ++i) {
            runs.push_back({row, 2 * i, 2 * i});
        }
    }
    return KivRunSet(runs);
}

constexpr std::uint8_t mask[] = {0, 1, 0, 1, 1, 0, 1, 1, 0};
constexpr KivImageView<const std::uint8_t> mask_view = {mask, 3, 3, 3};

const KivContour triangle{{1, 1}, {2, 5}, {3, 5.25}, {9, 1}};

const Operation operations[] = {
    {"RunsInDisorder",
     [](const KivRunSet&) {
         KivRunSet{{4, 1, 2}, {0, 3, 3}, {4, 2, 9}};
     }},
    {"Union", [](const KivRunSet& set) { set | other; }},
    {"Intersection", [](const KivRunSet& set) { set& other; }},
    {"Difference", [](const KivRunSet& set) { set - other; }},
    {"SymmetricDifference", [](const KivRunSet& set) { set ^ other; }},
    {"Complement",
     [](const KivRunSet& set) {
         set.Complement({0, 9, 0, 9});
     }},
    {"UnionOfMany",
     [](const KivRunSet& set) {
         KivRunSet::Union({set, other, set});
     }},
    {"Translate", [](const KivRunSet& set) { KivRuns::Translate(set, 1, 2); }},
    {"FlipLeftRight",
     [](const KivRunSet& set) {
         KivRuns::FlipLeftRight(set, {0, 9, 0, 9});
     }},
    {"Turn",
     [](const KivRunSet& set) {
         KivRuns::Turn(set, 1, {0, 9, 0, 9});
     }},
    {"Crop",
     [](const KivRunSet& set) {
         KivRuns::Crop(set, {1, 7, 1, 7});
     }},
    {"ScaleUp", [](const KivRunSet& set) { KivRuns::ScaleUp(set, 2, 3); }},
    {"ScaleDown", [](const KivRunSet& set) { KivRuns::ScaleDown(set, 2, 3, KivRuns::BlockRule::Most); }},
    {"FromMask", [](const KivRunSet&) { KivRuns::FromMask(mask_view); }},
    {"FromRange", [](const KivRunSet&) { KivRuns::FromRange(mask_view, 1, 2); }},
    {"FromLabels", [](const KivRunSet&) { KivRuns::FromLabels(mask_view); }},
    {"ToCocoCounts", [](const KivRunSet& set) { KivRuns::ToCocoCounts(set, 10, 10); }},
    {"ToCocoText", [](const KivRunSet& set) { KivRuns::ToCocoText(set, 10, 10); }},
    {"FromCocoCounts",
     [](const KivRunSet&) {
         KivRuns::FromCocoCounts({1, 4, 7}, 4, 3);
     }},
    {"FromCocoText", [](const KivRunSet&) { KivRuns::FromCocoText("147", 4, 3); }},
    {"OutlinesOf", [](const KivRunSet& set) { KivRuns::OutlinesOf(set); }},
    {"FromPolygons", [](const KivRunSet&) { KivRuns::FromPolygons({triangle.AllPoints()}, 10, 10); }},
    {"BordersOf", [](const KivRunSet& set) { KivContourArray::BordersOf(set.Runs(), 10, 10); }},
    {"FilledRuns", [](const KivRunSet&) { KivContourArray{triangle}.FilledRuns(10, 10); }},
    {"Simplified", [](const KivRunSet&) { KivContours::Simplified(triangle, 1.0); }},
    {"HullOfContour", [](const KivRunSet&) { KivContours::Hull(triangle); }},
    {"Resampled", [](const KivRunSet&) { KivContours::Resampled(triangle, 5); }},
    {"AtLevel",
     [](const KivRunSet&) { KivContours::AtLevel(cv::Mat(3, 3, CV_8UC1, const_cast<std::uint8_t*>(mask)), 0.5); }},
    {"HoleCount", [](const KivRunSet& set) { KivRuns::HoleCount(set, connectivity); }},
    {"ConvexHull", [](const KivRunSet& set) { KivRuns::ConvexHull(set); }},
    {"FeretDiametersOf", [](const KivRunSet& set) { KivRuns::FeretDiametersOf(set); }},
    {"NumberComponents", [](const KivRunSet& set) { KivRuns::NumberComponents(set, connectivity); }},
    {"NumberComponentsOfDenseRows", [](const KivRunSet&) { KivRuns::NumberComponents(dense(), connectivity); }},
    {"Components", [](const KivRunSet& set) { KivRuns::Components(set, connectivity); }},
    {"SummarizeComponents", [](const KivRunSet& set) { KivRuns::SummarizeComponents(set, connectivity); }},
    {"MeasureComponents", [](const KivRunSet& set) { KivRuns::MeasureComponents(set, connectivity); }},
    {"LargestComponent", [](const KivRunSet& set) { KivRuns::LargestComponent(set, connectivity); }},
    {"ComponentsByArea", [](const KivRunSet& set) { KivRuns::ComponentsByArea(set, connectivity, 2); }},
    {"WithoutBorderComponents",
     [](const KivRunSet& set) {
         KivRuns::WithoutBorderComponents(set, connectivity, {0, 9, 0, 9});
     }},
    {"Holes", [](const KivRunSet& set) { KivRuns::Holes(set, connectivity); }},
    {"FillHoles", [](const KivRunSet& set) { KivRuns::FillHoles(set, connectivity); }},
    {"Element", [](const KivRunSet& set) { KivRuns::Element{set}; }},
    {"Rectangle", [](const KivRunSet&) { KivRuns::Element::Rectangle(3, 2); }},
    {"Disk", [](const KivRunSet&) { KivRuns::Element::Disk(3); }},
    {"Dilate", [](const KivRunSet& set) { KivRuns::Dilate(set, set); }},
    {"Erode", [](const KivRunSet& set) { KivRuns::Erode(set, three_by_three()); }},
    {"Open", [](const KivRunSet& set) { KivRuns::Open(set, three_by_three()); }},
    {"Close", [](const KivRunSet& set) { KivRuns::Close(set, set); }},
    {"Gradient", [](const KivRunSet& set) { KivRuns::Gradient(set, three_by_three()); }},
};

class RunShapeFaults : public testing::TestWithParam<Operation>
{
};

bool fails(const Operation& operation, const KivRunSet& set, long fault_at)
{
    bool failed = false;
    faults::fail_allocation(fault_at);
    try {
        operation.run(set);
    } catch (const std::bad_alloc&) {
        failed = true;
    }
    faults::fail_allocation(0);
    return failed;
}

TEST_P(RunShapeFaults, LoseNothingWhenMemoryRunsOut)
{
    // A ring with a pixel in it, and a bar: two holes, three components.
    const KivRunSet set{{0, 0, 6}, {1, 0, 0}, {1, 6, 6}, {2, 0, 0}, {2, 3, 3}, {2, 6, 6}, {3, 0, 0},
                        {3, 6, 6}, {4, 0, 6}, {6, 0, 8}, {7, 0, 1}, {7, 7, 8}, {8, 0, 8}};
    const KivRunSet before = set;
    long fault_at = 1;
    for (bool failed = true; failed; ++fault_at) {
        SCOPED_TRACE("allocation " + std::to_string(fault_at) + " fails");
        const long living_before = faults::living_blocks();
        failed = fails(GetParam(), set, fault_at);
        EXPECT_EQ(faults::living_blocks(), living_before);
        EXPECT_EQ(set, before);
    }
    EXPECT_GT(fault_at, 2); // at least one did
}

/// Makes each allocation of `change` fail once, until none does. `is_as_it_was()` must hold after each failure.
template <class Change, class Check>
void expect_all_or_nothing(Change change, Check is_as_it_was)
{
    int failures = 0;
    for (bool failed = true; failed;) {
        failed = false;
        faults::fail_allocation(failures + 1);
        try {
            change();
        } catch (const std::bad_alloc&) {
            failed = true;
        }
        faults::fail_allocation(0);
        if (failed) {
            ++failures;
            EXPECT_TRUE(is_as_it_was()) << failures;
        }
    }
    EXPECT_GT(failures, 0);
}

TEST(Lists, AreAsTheyWereWhenMemoryRunsOut)
{
    const std::vector<int> some = {1, 2};
    std::vector<int> columns = some;
    std::vector<int> rows = some;
    expect_all_or_nothing([&] { KivRuns::AppendPixels(other.Runs(), columns, rows); },
                          [&] { return columns == some && rows == some; });
    EXPECT_EQ(columns.size(), 15U);

    std::vector<::Run> shuffled;
    for (int i = 0; i < 200; ++i) {
        shuffled.push_back({1 + i * 77 % 200, 1, 1});
    }
    std::vector<::Run> runs = shuffled;
    expect_all_or_nothing([&] { KivRuns::SortByRow(runs); }, [&] { return runs == shuffled; });
    EXPECT_EQ(runs.front().row, 1);
    runs = shuffled;
    expect_all_or_nothing([&] { KivRuns::SortByRowAndColumn(runs); }, [&] { return runs == shuffled; });
    EXPECT_EQ(runs.front().row, 1);
}

TEST(Borders, TakeHardlyMoreMemoryThanTheirPoints)
{
    std::vector<::Run> runs; // on each row one that begins and ends elsewhere than those beside it
    for (int row = 0; row < 20000; ++row) {
        runs.push_back({row, row * 7919 % 100, 100 + row * 104729 % 100});
    }
    const std::size_t points = KivRunBorders::Of(runs).points.size();
    faults::fail_blocks_over(points * sizeof(KivPixel) * 5 / 4);
    EXPECT_EQ(KivRunBorders::Of(runs).points.size(), points);
    faults::fail_blocks_over(std::numeric_limits<std::size_t>::max());
}

INSTANTIATE_TEST_SUITE_P(All, RunShapeFaults, testing::ValuesIn(operations),
                         [](const auto& test) { return std::string(test.param.name); });

} // namespace
