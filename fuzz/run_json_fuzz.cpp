// SPDX-License-Identifier: MIT
// The reader of run files as JSON.
#include "run_reader.h"
#include "target.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    fuzz::check_run_reader({bytes, size}, kivconvert::parse_runs_json, kivconvert::runs_as_json);
    return 0;
}
