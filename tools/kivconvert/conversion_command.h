// SPDX-License-Identifier: MIT
// What all conversions have on the command line: an input and an output, each a file or both folders.
#pragma once

#include <CLI/CLI.hpp>

#include <functional>
#include <string>

namespace kivconvert
{

struct ConversionTexts {
    const char* input;  ///< what may be converted
    const char* output; ///< what it becomes
    const char* ending; ///< of the files in the output folder

    /// Throws InputError unless the output is named like one.
    void (*expect_output)(const std::string& path);
};

/// Adds the operand IN and the options --output and --to. `convert` gets the files, one pair after the other; of a
/// folder, several at a time.
void add_conversion(CLI::App& command, const ConversionTexts& texts,
                    std::function<void(const std::string& input, const std::string& output)> convert);

} // namespace kivconvert
