// SPDX-License-Identifier: MIT
// Images as numbers, and numbers as images: matrix.
#include "kivconvert/commands.h"
#include "kivconvert/conversion_command.h"
#include "kivconvert/help_texts.h"
#include "kivconvert/matrix_files.h"

#include <CLI/CLI.hpp>

#include <string>

namespace kivconvert
{

void add_matrix_command(CLI::App& app)
{
    CLI::App* const command =
        app.add_subcommand("matrix", "Lists an image's values, or rounds and clamps a matrix to an 8-bit image");
    command->footer(example("matrix heights.csv -o heights.png"));
    add_conversion(
        *command,
        {"matrix, .csv, or image of any bit depth", "matrix, .csv, or 8-bit image", ".csv", expect_matrix_output, true},
        [](const std::string& input, const Output& output, const ImagePart& part) {
            KivMatrix matrix = read_matrix(input, part);
            write_matrix(output, matrix);
        });
}

} // namespace kivconvert
