// SPDX-License-Identifier: MIT
// Measures of sets of pixels as rows of a table.
#pragma once

#include "kivconvert/collected_rows.h"

#include <KivRLC/KivRunMeasures.h>

#include <string>
#include <vector>

namespace kivconvert
{

/// Appends the measures to a row that has what names it. Without pixels there are no places and no diameters.
void append_measures(TableRow& row, const KivRunSet& pixels, KivRuns::Connectivity connectivity);

/// The columns of the measures.
std::vector<std::string> measure_names();

/// A line with the names of the columns, and a line per row. Fields are quoted where they need it.
/// @param names the columns before those of the measures
std::string table_as_csv(const std::vector<std::string>& names, const Rows& rows);

} // namespace kivconvert
