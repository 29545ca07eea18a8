// SPDX-License-Identifier: MIT
// Set operations keep the laws of sets anywhere, and within pictures do what they do pixel by pixel.
//
// Input: two lists of runs, a rectangle as four numbers, then a picture whose lowest two bits are two masks.
#include "inputs.h"
#include "target.h"

#include "run_sets.h"

#include <KivRLC/KivRunTransforms.h>

#include <gtest/gtest.h>

namespace
{

void expect_laws(const KivRunSet& a, const KivRunSet& b, const KivRunBox& box)
{
    for (const KivRunSet& made : {a | b, a & b, a - b, a ^ b, a.Complement(box)}) {
        EXPECT_EQ(KivRunSet::WhyNotCanonical(made.Runs()), "");
    }
    EXPECT_EQ(a | b, b | a);
    EXPECT_EQ(a & b, b & a);
    EXPECT_EQ((a - b) | (a & b), a);
    EXPECT_EQ(a ^ b, (a - b) | (b - a));
    EXPECT_EQ(a ^ b, (a | b) - (a & b));
    EXPECT_EQ(KivRunSet::Union({a, b, a}), a | b);
    EXPECT_EQ((a | b).Complement(box), a.Complement(box) & b.Complement(box));
    EXPECT_EQ(a.Complement(box).Complement(box), KivRuns::Crop(a, box));

    EXPECT_EQ(a.IntersectionArea(b), (a & b).Area());
    EXPECT_EQ(a.UnionArea(b), (a | b).Area());
    EXPECT_EQ(a.Intersects(b), !(a & b).Empty());
    EXPECT_EQ(a.IsSubsetOf(b), (a - b).Empty());
    EXPECT_EQ(a == b, (a ^ b).Empty());
    for (const Run& run : a.Runs()) {
        EXPECT_TRUE(a.Contains(run.colBegin, run.row) && a.Contains(run.colEnd, run.row));
        EXPECT_EQ((a - b).Contains(run.colBegin, run.row), !b.Contains(run.colBegin, run.row));
    }
}

void expect_as_masks(const cv::Mat& a, const cv::Mat& b)
{
    const KivRunSet set_a = run_sets::set_of(a);
    const KivRunSet set_b = run_sets::set_of(b);
    EXPECT_EQ(set_a | set_b, run_sets::set_of(a | b));
    EXPECT_EQ(set_a & set_b, run_sets::set_of(a & b));
    EXPECT_EQ(set_a - set_b, run_sets::set_of(a & ~b));
    EXPECT_EQ(set_a ^ set_b, run_sets::set_of(a ^ b));
    EXPECT_EQ(set_a.Complement({0, a.rows - 1, 0, a.cols - 1}), run_sets::set_of(~a));
    EXPECT_EQ(set_a.IntersectionArea(set_b), cv::countNonZero(a & b));
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    fuzz::FuzzedBytes input(bytes, size);
    const KivRunSet a(input.runs());
    const KivRunSet b(input.runs());
    const int top = input.digit();
    const int bottom = input.digit();
    const int left = input.coordinate();
    expect_laws(a, b, {top, bottom, left, input.coordinate()});
    const cv::Mat picture = input.picture();
    expect_as_masks((picture & 1) != 0, (picture & 2) != 0);
    return 0;
}
