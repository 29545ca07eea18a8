// SPDX-License-Identifier: MIT
// The inputs of a command that takes one or many: files, shapes as text, and folders of files.
#pragma once

#include "kivconvert/cli_types.h"

#include <filesystem>
#include <string>
#include <vector>

namespace kivconvert
{

bool is_folder(const std::string& path);

/// The operands IN.
struct Inputs {
    std::vector<std::string> texts;
    bool recursive = false; ///< whether folders within folders count

    /// Whether there is one, and no folder.
    bool is_single() const { return texts.size() == 1 && !is_folder(texts.front()); }
};

/// Adds the operands IN and --recursive.
void add_inputs(CLI::App& command, Inputs& inputs, const std::string& description);

struct InputFile {
    std::string path;
    std::filesystem::path name; ///< with the subfolders below the folder that was given
    bool is_found = false;      ///< in a folder, rather than given itself
};

/// The files that are meant: those given, in their order, and in the place of a folder its files, sorted by name.
/// Hidden files and folders are ignored, and so is what is already in the folder `output`, unless that is an input.
/// @throws FileError if a folder cannot be read or holds no files
std::vector<InputFile> files_of(const Inputs& inputs, const std::string& output = {});

} // namespace kivconvert
