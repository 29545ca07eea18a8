// SPDX-License-Identifier: MIT
// Components and holes are those that flood fill finds.
//
// Input: whether corners connect, the least and the greatest area of interest, then the picture.
#include "inputs.h"
#include "target.h"

#include "run_brute.h"

#include <KivRLC/KivRunComponents.h>
#include <KivRLC/KivRunTransforms.h>

#include <gtest/gtest.h>

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    fuzz::FuzzedBytes input(bytes, size);
    const auto connectivity = input.digit() % 2 == 0 ? KivRuns::Connectivity::Four : KivRuns::Connectivity::Eight;
    const std::int64_t least = input.digit();
    const std::int64_t most = input.digit();
    const KivRunSet set = KivRuns::Crop(run_sets::set_of(input.picture()), {0, 31, 0, 31});

    KivRunSet chosen;
    std::vector<KivRunSet> components;
    for (const brute::Pixels& pixels : brute::components(brute::pixels_of(set), connectivity)) {
        components.push_back(brute::set_of(pixels));
        const std::int64_t area = components.back().Area();
        chosen |= least <= area && area <= most ? components.back() : KivRunSet();
    }
    KivRunSet holes;
    for (const brute::Pixels& pixels : brute::holes(brute::pixels_of(set), connectivity)) {
        holes |= static_cast<std::int64_t>(pixels.size()) <= most ? brute::set_of(pixels) : KivRunSet();
    }

    EXPECT_EQ(KivRuns::Components(set, connectivity), components);
    EXPECT_EQ(KivRuns::SummarizeComponents(set, connectivity).size(), components.size());
    EXPECT_EQ(KivRuns::ComponentsByArea(set, connectivity, least, most), chosen);
    EXPECT_EQ(KivRuns::Holes(set, connectivity, most), holes);
    EXPECT_EQ(KivRuns::FillHoles(set, connectivity, most), set | holes);
    return 0;
}
