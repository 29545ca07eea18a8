// SPDX-License-Identifier: MIT
// A page about many objects, for any browser, without a network: a table that can be sorted and filtered, with an
// outline of each object, and a histogram of areas.
#pragma once

#include "kivconvert/collected_rows.h"

#include <KivRLC/KivRunSet.h>

#include <string>
#include <vector>

namespace kivconvert
{

/// The member of a row that has the thumbnail, which is no column.
inline constexpr const char* thumbnail_member = "thumbnail";

/// The outline of a set as the path of an SVG, reduced to at most some tens of units, with its width and height.
TableRow thumbnail_of(const KivRunSet& pixels);

/// @param columns those that the table has, in this order
std::string report_page(const std::vector<std::string>& columns, const Rows& rows);

} // namespace kivconvert
