// SPDX-License-Identifier: MIT
// The complement of a mask is what its literal walk emits; a mask without runs has none. Rows are small: each costs a
// run.
#include "inputs.h"
#include "target.h"

#include "differential/literal_walks.h"
#include "support/set_algebra.h"

#include <KivDataConvert/KivDataConvert.h>

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    fuzz::FuzzedBytes input(bytes, size);
    const int width = input.digit();
    const int height = input.digit();
    const support::Runs runs = input.runs_on_near_rows();
    const support::Runs expected = runs.empty() ? runs : literal::roi_complement(runs, width, height);
    const KivROI complement = support::complemented(KIVMV::KivROINot, KivROI::Mask(runs, width, height), KivROI());
    EXPECT_TRUE(support::same(complement, KivROI::Mask(expected, width, height)));
    return 0;
}
