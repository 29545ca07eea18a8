// SPDX-License-Identifier: MIT
#include "kivconvert/standard_streams.h"

#include "kivconvert/errors.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <fmt/format.h>
#include <memory>

namespace kivconvert
{
namespace
{

constexpr const char* dash = "-";

/// The value of an option in the next argument or behind "="; empty if it is not given.
std::string value_of(const std::vector<std::string>& arguments, const std::string& option)
{
    const std::string joined = option + "=";
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        if (argument->starts_with(joined)) {
            return argument->substr(joined.size());
        }
        if (*argument == option && argument + 1 != arguments.end()) {
            return argument[1];
        }
    }
    return {};
}

std::string stream_named(std::string_view name, const std::string& ending, const char* complaint)
{
    if (ending.empty()) {
        throw InputError(dash, complaint);
    }
    return std::string(name) + with_dot(ending);
}

bool takes_an_output(const std::string& argument)
{
    return argument == "-o" || argument == "--output";
}

} // namespace

std::string with_dot(const std::string& ending)
{
    return ending.starts_with('.') ? ending : fmt::format(".{}", ending);
}

std::vector<std::string> with_named_streams(std::vector<std::string> arguments)
{
    const std::string from = value_of(arguments, "--from");
    const std::string to = value_of(arguments, "--to");
    int inputs = 0;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i] != dash) {
            continue;
        }
        if (i > 0 && takes_an_output(arguments[i - 1])) {
            arguments[i] = stream_named(standard_output, to, "is standard output; --to ENDING says what it gets");
        } else {
            arguments[i] = stream_named(standard_input, from, "is standard input; --from ENDING says what it holds");
            ++inputs;
        }
    }
    if (inputs > 1) {
        throw InputError(dash, "is standard input, which can be read once");
    }
    return arguments;
}

void add_single_output(CLI::App& command, std::string& output, const char* description)
{
    command.add_option("-o,--output", output, fmt::format("{}; - is standard output", description))->required();
    command
        .add_option_function<std::string>(
            "--to", [&output](const std::string&) { expect_use_for_ending(output); }, "ending of what - gets")
        ->type_name("ENDING");
}

void expect_use_for_ending(const std::string& output)
{
    if (!is_standard_output(output)) {
        throw InputError("--to", "is for folders and standard output; the name of a single output says its format");
    }
}

} // namespace kivconvert
