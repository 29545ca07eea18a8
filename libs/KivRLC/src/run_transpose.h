// SPDX-License-Identifier: MIT
#pragma once

#include <KivRLC/KivRunSet.h>

namespace kivrlc
{

/// The pixels of a set as runs of one pixel with columns and rows exchanged, in the order of the columns, and in a
/// column from top to bottom. Linear in the pixels.
RunBuffer pixels_by_column(const KivRunSet& set);

} // namespace kivrlc
