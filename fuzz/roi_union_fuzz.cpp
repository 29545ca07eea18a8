// SPDX-License-Identifier: MIT
// The union of ROIs is what its literal walk emits.
#include "set_operations.h"
#include "target.h"

#include "differential/literal_walks.h"

#include <KivDataConvert/KivDataConvert.h>

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    fuzz::check_rois({bytes, size}, KIVMV::KivROIAdd, literal::roi_union, fuzz::ResultFrame::larger);
    return 0;
}
