// SPDX-License-Identifier: MIT
// The runs of an image, also of one inside a larger image, are those that a loop over its bytes finds.
#include "inputs.h"
#include "target.h"

#include "support/rasters.h"

#include <KivDataConvert/KivDataConvert.h>

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    fuzz::FuzzedBytes input(bytes, size);
    const int left = input.digit();
    const int right = input.digit();
    const support::Padded view = support::padded(input.picture(), left, right, 255);
    const KivRegion expected(view.inner.cols, view.inner.rows, support::plain_runs(view.inner));
    KivImage image(view.inner);
    const support::Snapshot snapshot(image);

    KivRegion region;
    EXPECT_EQ(KIVMV::KivImageToRegion(image, &region), KIVMV::KIVMV_OK);
    EXPECT_TRUE(support::same_region(region, expected));
    EXPECT_EQ(KIVMV::KivBinImageToRegion(image, &region), KIVMV::KIVMV_OK);
    EXPECT_TRUE(support::same_region(region, expected));
    EXPECT_TRUE(snapshot.untouched());
    return 0;
}
