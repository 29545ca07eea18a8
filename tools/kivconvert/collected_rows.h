// SPDX-License-Identifier: MIT
// Facts of many files, gathered in the order of the files.
#pragma once

#include "kivconvert/inputs.h"

#include <nlohmann/json.hpp>

#include <exception>
#include <functional>
#include <string>
#include <vector>

namespace kivconvert
{

/// Values by their names, in their order; null where there is none.
using TableRow = nlohmann::ordered_json;
using Rows = std::vector<TableRow>;

struct Collected {
    Rows rows;
    std::exception_ptr failure; ///< null: none

    /// @throws FilesFailed if any of several files, or of several parts of a file, failed
    void expect_no_failure() const;
};

/// Appends what is to be said about an input.
using RowMaker = std::function<void(Rows& rows, const std::string& input)>;

/// What `append` appends for each input, in the order of the inputs, whichever is done first. Several files are worked
/// on at a time, and the rows of the rest are there also if some fail.
/// @param done what is to be done to the files, such as "measured"
/// @throws what `append` throws for a single input
Collected collect(const Inputs& inputs, const char* done, const RowMaker& append);

/// An array with an object per row.
std::string rows_as_json(const Rows& rows);

} // namespace kivconvert
