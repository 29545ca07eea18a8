// SPDX-License-Identifier: MIT
// The reader of run files as CSV.
#include "run_reader.h"
#include "target.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    fuzz::check_run_reader({bytes, size}, kivconvert::parse_runs_csv, kivconvert::runs_as_csv);
    return 0;
}
