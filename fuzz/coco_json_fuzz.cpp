// SPDX-License-Identifier: MIT
// The reader of the counts of COCO data sets, packed or not.
#include "run_reader.h"
#include "target.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    fuzz::check_run_reader({bytes, size}, kivconvert::parse_runs_coco, kivconvert::runs_as_coco);
    return 0;
}
