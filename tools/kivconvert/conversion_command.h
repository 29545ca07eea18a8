// SPDX-License-Identifier: MIT
// The arguments that all conversions share: an input and an output, two files or two folders, and the parts of images.
#pragma once

#include "kivconvert/cli_types.h"
#include "kivconvert/image_files.h"
#include "kivconvert/output.h"

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

    bool makes_images = false; ///< whether many outputs can be the pages of one
};

/// Makes the output of an input, of which `part` is read if it is an image.
using Conversion = std::function<void(const std::string& input, const Output& output, const ImagePart& part)>;

/// Adds the operand IN, the options --output and --to, and those of images. `convert` gets the files, one pair after
/// the other; of a folder, several at a time.
void add_conversion(CLI::App& command, const ConversionTexts& texts, Conversion convert);

} // namespace kivconvert
