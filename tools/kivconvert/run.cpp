// SPDX-License-Identifier: MIT
#include "kivconvert/run.h"

#include "kivconvert/commands.h"
#include "kivconvert/errors.h"
#include "kivconvert/failure.h"
#include "kivconvert/memory_limit.h"
#include "kivconvert/processors.h"
#include "kivconvert/standard_streams.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <fmt/format.h>
#include <limits>
#include <opencv2/core.hpp>
#include <sstream>
#include <string_view>
#include <utility>

namespace kivconvert
{
namespace
{

/// Some versions of OpenCV describe exceptions on standard error as well.
void silence_opencv()
{
    cv::redirectError([](int, const char*, const char*, const char*, int, void*) { return 0; });
}

/// Replaces "--roi SHAPE" and "--roi=SHAPE" by the operand that they stand for, "roi:SHAPE".
std::vector<std::string> with_shapes_as_operands(const std::vector<std::string>& arguments)
{
    constexpr std::string_view option = "--roi";
    std::vector<std::string> operands;
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        if (*argument == option && argument + 1 != arguments.end()) {
            operands.push_back(fmt::format("roi:{}", *++argument));
        } else if (argument->starts_with("--roi=")) {
            operands.push_back(fmt::format("roi:{}", argument->substr(option.size() + 1)));
        } else {
            operands.push_back(*argument);
        }
    }
    return operands;
}

void run_command(std::vector<std::string> arguments, Outcome& outcome)
{
    CLI::App app("Converts shapes between images, runs, contours and points, combines, changes and measures them.");
    add_commands(app, outcome);
    std::reverse(arguments.begin(), arguments.end()); // the order in which CLI11 takes them
    try {
        app.parse(std::move(arguments));
    } catch (const CLI::Success& success) { // the help or the version
        std::ostringstream text;
        app.exit(success, text);
        outcome.out = text.str();
        return;
    }
    if (app.get_subcommands().empty()) { // required by CLI11 itself, a misspelt subcommand would be reported as missing
        throw InputError("command line", "a subcommand is missing; see --help");
    }
}

} // namespace

void add_commands(CLI::App& app, Outcome& outcome)
{
    app.name("kivconvert");
    app.set_version_flag("--version", "kivconvert " KIVCONVERT_VERSION);
    set_memory_limit(default_memory_limit);
    app.add_option_function<int>(
           "--max-memory", set_memory_limit,
           fmt::format("most memory that a file may take, in MiB, {} by default", default_memory_limit))
        ->type_name("N")
        ->check(CLI::Range(1, std::numeric_limits<int>::max()));
    set_jobs(0);
    app.add_option_function<int>("--jobs", set_jobs,
                                 "how many files are worked on at a time, one per processor by default")
        ->type_name("N")
        ->check(CLI::Range(1, 1024));
    app.add_option("--from", "ending, such as .csv, of the file that - is, standard input")->type_name("ENDING");
    app.fallthrough(); // for the subcommands, which inherit it
    add_region_command(app);
    add_image_command(app);
    add_contour_commands(app);
    add_points_command(app);
    add_matrix_command(app);
    add_set_commands(app);
    add_components_command(app);
    add_morphology_commands(app);
    add_measure_command(app, outcome);
    add_report_command(app);
    add_compare_command(app, outcome);
    add_dataset_command(app);
    add_info_command(app, outcome);
}

Outcome run(const std::vector<std::string>& arguments)
{
    silence_opencv();
    Outcome outcome;
    try {
        run_command(with_named_streams(with_shapes_as_operands(arguments)), outcome);
    } catch (const CLI::ParseError& error) {
        outcome.status = exit_status::wrong_input;
        outcome.err = error_line(fmt::format("{}; see --help", error.what()));
    } catch (...) {
        const Failure failure = current_failure();
        outcome.status = std::max(outcome.status, failure.status);
        outcome.err = failure.lines;
    }
    return outcome;
}

} // namespace kivconvert
