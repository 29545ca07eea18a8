// SPDX-License-Identifier: MIT
// Standard input and output in the place of files, on the command line a dash.
#pragma once

#include "kivconvert/cli_types.h"

#include <string>
#include <string_view>
#include <vector>

namespace kivconvert
{

/// Names that stand for the streams, followed by the ending of the file that each of them is. Write ./<stdin> for a
/// file whose name begins like that.
inline constexpr std::string_view standard_input = "<stdin>";
inline constexpr std::string_view standard_output = "<stdout>";

inline bool is_standard_input(std::string_view path)
{
    return path.starts_with(standard_input);
}

inline bool is_standard_output(std::string_view path)
{
    return path.starts_with(standard_output);
}

/// The ending with the dot that it begins with.
std::string with_dot(const std::string& ending);

/// Replaces each dash that stands for a file by the name of the stream, with the ending that --from or --to gives.
/// @throws InputError if that is missing, or two inputs are a dash
std::vector<std::string> with_named_streams(std::vector<std::string> arguments);

/// Adds --output and --to to a command with a single output.
void add_single_output(CLI::App& command, std::string& output, const char* description);

/// @throws InputError unless the output is standard output
void expect_use_for_ending(const std::string& output);

} // namespace kivconvert
