// SPDX-License-Identifier: MIT
#include "kivconvert/folders.h"

#include "kivconvert/errors.h"
#include "kivconvert/failure.h"
#include "kivconvert/progress.h"
#include "kivconvert/run_files.h"

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <fmt/format.h>
#include <map>
#include <optional>
#include <system_error>
#include <thread>
#include <vector>

namespace fs = std::filesystem;

namespace kivconvert
{
namespace
{

struct Task {
    fs::path input;
    fs::path output;
};

std::vector<fs::path> files_of(const fs::path& folder)
{
    std::vector<fs::path> files;
    std::error_code error;
    std::error_code none;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, error)) {
        if (!entry.is_directory(none) && entry.path().filename().native().front() != '.') {
            files.push_back(entry.path());
        }
    }
    if (error || files.empty()) {
        throw FileError(folder, error ? fmt::format("cannot be read: {}", error.message()) : "holds no files");
    }
    std::sort(files.begin(), files.end());
    return files;
}

/// Names that differ in their endings alone would take each other's place.
void expect_distinct_outputs(std::vector<Task> tasks)
{
    const auto by_output = [](const Task& a, const Task& b) { return a.output < b.output; };
    const auto same_output = [](const Task& a, const Task& b) { return a.output == b.output; };
    std::stable_sort(tasks.begin(), tasks.end(), by_output);
    const auto twice = std::adjacent_find(tasks.begin(), tasks.end(), same_output);
    if (twice != tasks.end()) {
        throw FileError(twice->output, fmt::format("would be made of both {} and {}", twice->input.string(),
                                                   std::next(twice)->input.string()));
    }
}

/// Another one of the inputs may be replaced before it has been read, or while it is being read.
void expect_no_other_input_replaced(const std::vector<Task>& tasks)
{
    std::error_code none;
    std::map<fs::path, const Task*> readers;
    for (const Task& task : tasks) {
        readers.emplace(fs::weakly_canonical(task.input, none), &task);
    }
    for (const Task& task : tasks) {
        const auto reader = readers.find(fs::weakly_canonical(task.output, none));
        if (reader != readers.end() && reader->second != &task) {
            throw FileError(task.output,
                            fmt::format("would be made of {}, but is an input itself", task.input.string()));
        }
    }
}

fs::path output_in(const fs::path& folder, const fs::path& input, const std::string& ending)
{
    return folder / (name_without_ending(input) + ending);
}

std::vector<Task> tasks_for(const fs::path& input, const fs::path& output, const std::string& ending)
{
    std::vector<Task> tasks;
    for (const fs::path& file : files_of(input)) {
        tasks.push_back({file, output_in(output, file, ending)});
    }
    expect_distinct_outputs(tasks);
    expect_no_other_input_replaced(tasks);
    return tasks;
}

void make_folder(const fs::path& folder)
{
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) {
        throw FileError(folder, fmt::format("cannot be made a folder: {}", error.message()));
    }
}

void on_all_processors(std::size_t count, const std::function<void(std::size_t)>& work)
{
    std::atomic<std::size_t> next{0};
    const auto worker = [&] {
        for (std::size_t i = next++; i < count; i = next++) {
            work(i);
        }
    };
    const std::size_t workers = std::min<std::size_t>(count, std::thread::hardware_concurrency());
    std::vector<std::thread> helpers;
    helpers.reserve(workers);
    try {
        while (helpers.size() + 1 < workers) {
            helpers.emplace_back(worker);
        }
    } catch (const std::system_error&) { // no more threads can be had: those that there are do the work
    }
    worker();
    for (std::thread& helper : helpers) {
        helper.join();
    }
}

/// Pipes would keep the program waiting for ever, and links may lead nowhere.
void expect_regular_file(const fs::path& path)
{
    std::error_code none;
    if (!fs::is_regular_file(path, none)) {
        throw FileError(path, "is not a regular file");
    }
}

using Failures = std::vector<std::optional<Failure>>;

Failures run_all(const std::vector<Task>& tasks,
                 const std::function<void(const std::string& input, const std::string& output)>& convert)
{
    Failures failures(tasks.size());
    Progress progress(tasks.size());
    on_all_processors(tasks.size(), [&](std::size_t i) {
        try {
            expect_regular_file(tasks[i].input);
            convert(tasks[i].input, tasks[i].output);
        } catch (...) {
            failures[i] = current_failure();
        }
        progress.advance();
    });
    return failures;
}

void expect_no_failures(const Failures& failures)
{
    std::size_t failed = 0;
    Failure all{0, {}};
    for (const std::optional<Failure>& failure : failures) {
        if (failure) {
            ++failed;
            all.status = std::max(all.status, failure->status);
            all.lines += failure->lines;
        }
    }
    if (failed > 0) {
        const std::string summary = fmt::format("{} of {} files could not be converted", failed, failures.size());
        all.lines += error_line(summary);
        throw FilesFailed(all, summary);
    }
}

} // namespace

bool is_folder(const std::string& path)
{
    std::error_code none;
    return fs::is_directory(path, none);
}

void convert_folder(const std::string& input, const std::string& output, const std::string& ending,
                    const std::function<void(const std::string& input, const std::string& output)>& convert)
{
    const std::vector<Task> tasks = tasks_for(input, output, ending);
    make_folder(output);
    expect_no_failures(run_all(tasks, convert));
}

void convert_into_folder(const std::string& input, const std::string& output, const std::string& ending,
                         const std::function<void(const std::string& input, const std::string& output)>& convert)
{
    make_folder(output);
    convert(input, output_in(output, input, ending));
}

} // namespace kivconvert
