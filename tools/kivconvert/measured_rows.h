// SPDX-License-Identifier: MIT
// Rows of measures of what is in files: of their parts, or of the annotations of data sets.
#pragma once

#include "kivconvert/cli_types.h"
#include "kivconvert/collected_rows.h"
#include "kivconvert/connectivity_option.h"
#include "kivconvert/contents.h"

#include <string>
#include <vector>

namespace kivconvert
{

struct MeasureOptions {
    std::string by; ///< what has a row; empty: not given
    KivRuns::Connectivity connectivity = default_connectivity;
    Frame frame;
    ImagePart part;
    bool thumbnails = false; ///< whether rows have one, too
};

/// Adds --by, --connectivity, and the options of frames and images.
void add_measure_options(CLI::App& command, MeasureOptions& options);

/// Appends the rows of an input.
/// @throws InputError, ResultError; FilesFailed behind the rest if annotations of a data set are malformed
void append_measured_rows(Rows& rows, const std::string& input, const MeasureOptions& options);

/// The columns that name the rows, which may be about different things.
std::vector<std::string> name_columns(const Rows& rows);

} // namespace kivconvert
