// SPDX-License-Identifier: MIT
#include "foundation/pixels.h"

namespace kiv
{

Frame frame_up_to(int column, int row)
{
    CV_Assert(column < std::numeric_limits<int>::max() && row < std::numeric_limits<int>::max());
    return {column + 1, row + 1};
}

} // namespace kiv
