// SPDX-License-Identifier: MIT
// Borders traced along runs are those followed pixel by pixel.
//
// Input: a picture.
#include "inputs.h"
#include "target.h"

#include "mask_tracer.h"

#include <gtest/gtest.h>

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const cv::Mat picture = fuzz::FuzzedBytes(bytes, size).picture();
    const mask_tracer::Chains expected = mask_tracer::traced(picture);
    std::vector<Run> runs;
    KivRLC::AppendRuns(picture, runs);
    EXPECT_EQ(mask_tracer::chains_of(KivRunBorders::Of(runs)), expected);
    return 0;
}
