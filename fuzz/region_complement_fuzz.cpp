// SPDX-License-Identifier: MIT
// The complement of a region is what its literal walk emits. Rows are small: each costs a run.
#include "inputs.h"
#include "target.h"

#include "differential/literal_walks.h"
#include "support/set_algebra.h"

#include <KivDataConvert/KivDataConvert.h>

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    fuzz::FuzzedBytes input(bytes, size);
    const int width = input.digit() + 1;
    const int height = input.digit();
    const KivRegion region(width, height, input.runs_on_near_rows());
    const KivRegion expected(width, height, literal::region_complement(region.Runs(), width, height));
    EXPECT_TRUE(support::same(support::complemented(KIVMV::KivRegionNot, region, KivRegion(2, 2, {})), expected));
    return 0;
}
