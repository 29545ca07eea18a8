// SPDX-License-Identifier: MIT
// Dilation, erosion, opening and closing are those of the definitions; and of sets anywhere they keep their laws, or
// raise std::overflow_error.
//
// Input: the element as up to 15 pixels, each a row and a column of one digit, the list of runs of a set anywhere, then
// a picture.
#include "inputs.h"
#include "target.h"

#include "run_brute.h"

#include <KivRLC/KivRunMorphology.h>
#include <KivRLC/KivRunTransforms.h>

#include <gtest/gtest.h>

#include <stdexcept>

namespace
{

KivRunSet small_element(fuzz::FuzzedBytes& input)
{
    std::vector<Run> runs{{0, 0, 0}};
    for (int left = input.digit(); left > 0; --left) {
        const int row = input.digit() - 4;
        const int column = input.digit() - 4;
        runs.push_back({row, column, column});
    }
    return KivRunSet(runs);
}

void expect_definitions(const KivRunSet& set, const KivRunSet& element)
{
    const brute::Pixels pixels = brute::pixels_of(set);
    const brute::Pixels of_element = brute::pixels_of(element);
    const brute::Pixels outer = brute::dilated(pixels, of_element);
    const brute::Pixels inner = brute::eroded(pixels, of_element);
    EXPECT_EQ(KivRuns::Dilate(set, element), brute::set_of(outer));
    EXPECT_EQ(KivRuns::Erode(set, element), brute::set_of(inner));
    EXPECT_EQ(KivRuns::Open(set, element), brute::set_of(brute::dilated(inner, of_element)));
    EXPECT_EQ(KivRuns::Close(set, element), brute::set_of(brute::eroded(outer, of_element)));
}

void expect_laws(const KivRunSet& set, const KivRunSet& element)
{
    const KivRunSet opened = KivRuns::Open(set, element);
    EXPECT_TRUE(opened.IsSubsetOf(set));
    EXPECT_EQ(KivRuns::Open(opened, element), opened);
    try {
        const KivRunSet closed = KivRuns::Close(set, element);
        EXPECT_TRUE(set.IsSubsetOf(closed));
        EXPECT_EQ(KivRuns::Close(closed, element), closed);
        const KivRunSet outer = KivRuns::Dilate(set, element);
        EXPECT_EQ(KivRuns::Erode(outer, element), closed);
        EXPECT_EQ(KivRuns::Dilate(KivRuns::Erode(set, element), element), opened);
    } catch (const std::overflow_error&) {
        EXPECT_FALSE(set.Empty());
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    fuzz::FuzzedBytes input(bytes, size);
    const KivRunSet element = small_element(input);
    expect_laws(KivRunSet(input.runs()), element);
    expect_definitions(KivRuns::Crop(run_sets::set_of(input.picture()), {0, 23, 0, 23}), element);
    return 0;
}
