// SPDX-License-Identifier: MIT
// The program as a function, for main(), tests and fuzzers.
#pragma once

#include <string>
#include <vector>

namespace kivconvert
{

struct Outcome {
    int status = 0;  ///< exit status: 0, or one of exit_status
    std::string out; ///< for standard output
    std::string err; ///< for standard error
};

/// Does what `kivconvert ARGUMENTS...` does. Throws nothing.
Outcome run(const std::vector<std::string>& arguments);

} // namespace kivconvert
