// SPDX-License-Identifier: MIT
// Folders of files, converted one by one.
#pragma once

#include <functional>
#include <string>

namespace kivconvert
{

bool is_folder(const std::string& path);

/// Calls `convert` for each file of the folder `input`, on all processors; it gets the file and where its result
/// belongs: in the folder `output`, which is made if need be, by the same name with another ending. Hidden files and
/// folders within are left out. What cannot be converted is reported and does not keep the rest from it.
///
/// @throws FileError before anything is converted: for folders that cannot be read, made, or hold no files, for two
/// files that would be one afterwards, and for a file that would take the place of another input; FilesFailed
/// afterwards
void convert_folder(const std::string& input, const std::string& output, const std::string& ending,
                    const std::function<void(const std::string& input, const std::string& output)>& convert);

} // namespace kivconvert
