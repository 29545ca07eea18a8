// SPDX-License-Identifier: MIT
// kivconvert: does on files what the library does in memory.
//
// Exit status: 0 done; otherwise as failure.h tells. A failure is one line on standard error, and no output file is
// touched.
#include "kivconvert/commands.h"
#include "kivconvert/errors.h"
#include "kivconvert/failure.h"
#include "kivconvert/interruptions.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <fmt/format.h>
#include <opencv2/core.hpp>
#include <string>
#include <string_view>
#include <unistd.h>
#include <utility>
#include <vector>

namespace
{

/// A file that is opened while a standard stream is closed would get that one's number, and what is meant for the
/// stream.
void occupy_closed_streams()
{
    int number = 0;
    do {
        number = open("/dev/null", O_RDONLY); // what is written to it fails, as it would have
    } while (number >= 0 && number <= STDERR_FILENO);
    close(number);
}

/// OpenCV describes its exceptions on standard error as well, in some versions.
void silence_opencv()
{
    cv::redirectError([](int, const char*, const char*, const char*, int, void*) { return 0; });
}

/// The arguments, with "--roi SHAPE" and "--roi=SHAPE" written as the operand that it is: "roi:SHAPE".
std::vector<std::string> arguments_of(int argc, char** argv)
{
    constexpr std::string_view option = "--roi";
    std::vector<std::string> arguments;
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        if (argument == option && i + 1 < argc) {
            arguments.push_back(fmt::format("roi:{}", argv[++i]));
        } else if (argument.starts_with("--roi=")) {
            arguments.push_back(fmt::format("roi:{}", argument.substr(option.size() + 1)));
        } else {
            arguments.emplace_back(argument);
        }
    }
    return arguments;
}

/// What the options of the command line belong to: the subcommand, or the program.
CLI::App* command_of(CLI::App& app, const std::vector<std::string>& arguments)
{
    if (arguments.empty() || arguments[0].starts_with('-')) {
        return &app;
    }
    std::vector<std::string> names;
    for (CLI::App* const subcommand : app.get_subcommands({})) {
        if (subcommand->get_name() == arguments[0]) {
            return subcommand;
        }
        names.push_back(subcommand->get_name());
    }
    throw kivconvert::InputError(arguments[0], fmt::format("is no subcommand; there are {}", fmt::join(names, ", ")));
}

/// CLI11 would say what is missing, and not what is wrong.
void expect_known_words(CLI::App& app, const std::vector<std::string>& arguments)
{
    CLI::App* const command = command_of(app, arguments);
    for (const std::string& argument : arguments) {
        if (argument == "--") { // all others are operands
            return;
        }
        const std::string name = argument.substr(0, argument.find('='));
        if (name.starts_with("--") && command->get_option_no_throw(name) == nullptr) {
            throw kivconvert::InputError(name, fmt::format("is no option of {}; see --help", command->get_name()));
        }
    }
}

void run(std::vector<std::string> arguments, CLI::App& app)
{
    app.name("kivconvert");
    app.set_version_flag("--version", "kivconvert " KIVCONVERT_VERSION);
    app.require_subcommand(1);
    kivconvert::add_region_command(app);
    kivconvert::add_image_command(app);
    kivconvert::add_contour_commands(app);
    kivconvert::add_points_command(app);
    kivconvert::add_matrix_command(app);
    kivconvert::add_set_commands(app);
    kivconvert::add_info_command(app);
    expect_known_words(app, arguments);
    std::reverse(arguments.begin(), arguments.end()); // the order in which CLI11 takes them
    try {
        app.parse(std::move(arguments));
    } catch (const CLI::Success& help) {
        app.exit(help);
    }
}

/// What has been printed may still be waiting to be written.
void expect_printed()
{
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        throw kivconvert::FileError("standard output", fmt::format("cannot be written: {}", std::strerror(errno)));
    }
}

} // namespace

int main(int argc, char** argv)
{
    occupy_closed_streams();
    std::signal(SIGXFSZ, SIG_IGN); // a file that may not grow cannot be written, which is reported
    kivconvert::watch_for_interruptions();
    silence_opencv();
    CLI::App app{"Converts shapes between images, runs, contours and points, and combines them."};
    try {
        run(arguments_of(argc, argv), app);
        expect_printed();
        return 0;
    } catch (const CLI::ParseError& error) {
        kivconvert::report({kivconvert::exit_status::wrong_input, fmt::format("{}; see --help", error.what())});
        return kivconvert::exit_status::wrong_input;
    } catch (...) {
        const kivconvert::Failure failure = kivconvert::current_failure();
        kivconvert::report(failure);
        return failure.status;
    }
}
