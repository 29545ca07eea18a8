// SPDX-License-Identifier: MIT
// COCO counts and packed counts are rejected by std::invalid_argument, or are a set within the frame that they give
// again.
//
// Input: width and height in digits, a number of counts and the counts, then packed counts, which are looked at as a
// picture as well.
#include "inputs.h"
#include "target.h"

#include "run_sets.h"

#include <KivRLC/KivRunCoco.h>
#include <KivRLC/KivRunTransforms.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <numeric>
#include <optional>
#include <stdexcept>
#include <vector>

namespace
{

void expect_there_and_back(const KivRunSet& set, int width, int height)
{
    EXPECT_EQ(KivRuns::Crop(set, {0, height - 1, 0, width - 1}), set);
    const std::vector<std::int64_t> counts = KivRuns::ToCocoCounts(set, width, height);
    EXPECT_EQ(std::accumulate(counts.begin(), counts.end(), std::int64_t{0}), std::int64_t{width} * height);
    EXPECT_EQ(KivRuns::FromCocoCounts(counts, width, height), set);
    EXPECT_EQ(KivRuns::FromCocoText(KivRuns::ToCocoText(set, width, height), width, height), set);
}

/// Of what is rejected, nothing.
template <class Read>
std::optional<KivRunSet> accepted(const Read& read)
{
    try {
        return read();
    } catch (const std::invalid_argument&) {
        return std::nullopt;
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    fuzz::FuzzedBytes input(bytes, size);
    const int width = input.digit() * (1 + input.digit());
    const int height = input.digit();
    std::vector<std::int64_t> counts(static_cast<std::size_t>(input.digit()));
    for (std::int64_t& count : counts) {
        count = input.coordinate();
    }
    for (const std::optional<KivRunSet>& set :
         {accepted([&] { return KivRuns::FromCocoCounts(counts, width, height); }),
          accepted([&] { return KivRuns::FromCocoText(input.text(), width, height); })}) {
        if (set) {
            expect_there_and_back(*set, width, height);
        }
    }

    const cv::Mat picture = input.picture();
    const KivRunSet set = run_sets::set_of(picture);
    EXPECT_EQ(KivRuns::ToCocoCounts(set, picture.cols, picture.rows), run_sets::coco_counts_of(picture));
    expect_there_and_back(set, picture.cols, picture.rows);
    return 0;
}
