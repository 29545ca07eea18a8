// SPDX-License-Identifier: MIT
// Measures of sets of pixels as rows of a table.
#pragma once

#include <KivRLC/KivRunMeasures.h>

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace kivconvert
{

/// The values of a row by their columns; null where there is none.
using TableRow = nlohmann::ordered_json;

/// Appends the measures to a row that has what names it. Without pixels there are no places and no diameters.
void append_measures(TableRow& row, const KivRunSet& pixels, KivRuns::Connectivity connectivity);

/// A line with the names of the columns, and a line per row. Fields are quoted where they need it.
/// @param names the columns before those of the measures
std::string table_as_csv(const std::vector<std::string>& names, const std::vector<TableRow>& rows);

/// An array with an object per row.
std::string table_as_json(const std::vector<TableRow>& rows);

} // namespace kivconvert
