// SPDX-License-Identifier: MIT
// Many files, one by one, on all processors.
#pragma once

#include "kivconvert/inputs.h"

#include <functional>
#include <string>
#include <vector>

namespace kivconvert
{

/// Of what is found in folders, pipes would keep the program waiting for ever, and links may lead nowhere.
/// @throws FileError unless the file was given itself or is a regular one
void expect_readable(const InputFile& file);

/// Calls `work` with the index of each file, with a bar on a terminal. Files that fail are reported; the rest are still
/// worked on.
/// A single file that was given itself fails by itself.
/// @param done what is to be done to the files, such as "converted"
/// @throws FilesFailed afterwards, if any file failed
void for_each_file(const std::vector<InputFile>& files, const char* done,
                   const std::function<void(std::size_t index)>& work);

/// The paths of the results of files: the same names with another ending, in a folder, which is created, with its
/// subfolders. @throws FileError as convert_files()
std::vector<std::string> outputs_in(const std::string& folder, const std::vector<InputFile>& files,
                                    const std::string& ending);

/// What becomes of results that are there already. They are whole: an output takes its place when it is complete.
enum class Existing {
    replaced,
    kept, ///< unless they are older than their inputs
};

using FileConversion = std::function<void(const std::string& input, const std::string& output)>;

/// Calls `convert` for each of the inputs. It gets the file and the path of its result: the same name with another
/// ending, in the folder `output`, which is created if it does not exist; in subfolders where the inputs were in some.
///
/// @throws FileError before anything is converted: if a folder cannot be read or created, or holds no files; if two
/// files would have the same result, or a result would replace another input. FilesFailed afterwards, if any file
/// failed
void convert_files(const Inputs& inputs, const std::string& output, const std::string& ending, Existing existing,
                   const FileConversion& convert);

/// The same for a single input.
/// @throws FileError if the folder cannot be made
void convert_into_folder(const std::string& input, const std::string& output, const std::string& ending,
                         const FileConversion& convert);

} // namespace kivconvert
