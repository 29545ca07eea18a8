// SPDX-License-Identifier: MIT
// What all fuzz targets begin with: an expectation of GoogleTest that does not hold ends the run.
#include "target.h"

#include <gtest/gtest.h>

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/)
{
    GTEST_FLAG_SET(throw_on_failure, true);
    return 0;
}
