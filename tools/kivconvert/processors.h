// SPDX-License-Identifier: MIT
// Work on all processors.
#pragma once

#include <cstddef>
#include <functional>

namespace kivconvert
{

/// How many pieces of work are done at a time from now on; 0: as many as there are processors.
void set_jobs(int jobs);

/// Calls `work` for 0 to `count` - 1, several at a time, in this order. It must not throw.
void on_all_processors(std::size_t count, const std::function<void(std::size_t)>& work);

} // namespace kivconvert
