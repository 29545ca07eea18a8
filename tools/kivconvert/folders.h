// SPDX-License-Identifier: MIT
// Folders of files, converted one by one.
#pragma once

#include <functional>
#include <string>

namespace kivconvert
{

bool is_folder(const std::string& path);

/// Calls `convert` for each file of the folder `input`, on all processors. It gets the file and the path of its result:
/// the same name with another ending, in the folder `output`, which is created if it does not exist. Hidden files and
/// subfolders are ignored. Files that fail are reported; the rest are still converted.
///
/// @throws FileError before anything is converted: if a folder cannot be read or created, or holds no files; if two
/// files would have the same result, or a result would replace another input. FilesFailed afterwards, if any file
/// failed
void convert_folder(const std::string& input, const std::string& output, const std::string& ending,
                    const std::function<void(const std::string& input, const std::string& output)>& convert);

/// The same for a single file: its result belongs in the folder `output` as well, by its name with another ending.
/// @throws FileError if the folder cannot be made
void convert_into_folder(const std::string& input, const std::string& output, const std::string& ending,
                         const std::function<void(const std::string& input, const std::string& output)>& convert);

} // namespace kivconvert
