// SPDX-License-Identifier: MIT
#include "kivconvert/folders.h"

#include "kivconvert/errors.h"
#include "kivconvert/failure.h"
#include "kivconvert/paths.h"
#include "kivconvert/processors.h"
#include "kivconvert/progress.h"
#include "kivconvert/run_files.h"

#include <algorithm>
#include <filesystem>
#include <fmt/format.h>
#include <system_error>
#include <unordered_map>
#include <vector>

namespace fs = std::filesystem;

namespace kivconvert
{
namespace
{

/// Paths as strings take a fraction of the memory and of the time that it takes to compare them.
struct Task {
    std::string input;
    std::string output;
};

/// Names that differ in their endings alone would take each other's place.
void expect_distinct_outputs(std::vector<Task> tasks)
{
    const auto by_output = [](const Task& a, const Task& b) { return a.output < b.output; };
    const auto same_output = [](const Task& a, const Task& b) { return a.output == b.output; };
    std::stable_sort(tasks.begin(), tasks.end(), by_output);
    const auto twice = std::adjacent_find(tasks.begin(), tasks.end(), same_output);
    if (twice != tasks.end()) {
        throw FileError(twice->output,
                        fmt::format("would be made of both {} and {}", twice->input, std::next(twice)->input));
    }
}

/// Another one of the inputs may be replaced before it has been read, or while it is being read.
void expect_no_other_input_replaced(const std::vector<Task>& tasks)
{
    std::error_code none;
    std::unordered_map<std::string, const Task*> readers;
    for (const Task& task : tasks) {
        readers.emplace(text_of(fs::weakly_canonical(path_of(task.input), none)), &task);
    }
    for (const Task& task : tasks) {
        const auto reader = readers.find(text_of(fs::weakly_canonical(path_of(task.output), none)));
        if (reader != readers.end() && reader->second != &task) {
            throw FileError(task.output, fmt::format("would be made of {}, but is an input itself", task.input));
        }
    }
}

std::string output_in(const fs::path& folder, const fs::path& input, const std::string& ending)
{
    return text_of(folder / input.parent_path() / path_of(name_without_ending(text_of(input)) + ending));
}

std::vector<Task> tasks_for(const std::vector<InputFile>& files, const fs::path& output, const std::string& ending)
{
    std::vector<Task> tasks;
    for (const InputFile& file : files) {
        tasks.push_back({file.path, output_in(output, file.name, ending)});
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
        throw FileError(text_of(folder), fmt::format("cannot be made a folder: {}", error.message()));
    }
}

void make_folders_of(const std::vector<Task>& tasks)
{
    fs::path last;
    for (const Task& task : tasks) { // those of a folder follow each other
        const fs::path folder = path_of(task.output).parent_path();
        if (folder != last) {
            last = folder;
            make_folder(last);
        }
    }
}

bool is_up_to_date(const fs::path& output, const fs::path& input)
{
    std::error_code none;
    const auto made = fs::last_write_time(output, none);
    return !none && fs::is_regular_file(output, none) && fs::file_size(output, none) > 0 &&
           made >= fs::last_write_time(input, none) && output != input;
}

} // namespace

void expect_readable(const InputFile& file)
{
    std::error_code none;
    if (file.is_found && !fs::is_regular_file(path_of(file.path), none)) {
        throw FileError(file.path, "is not a regular file");
    }
}

void for_each_file(const std::vector<InputFile>& files, const char* done,
                   const std::function<void(std::size_t index)>& work)
{
    if (files.empty()) {
        return;
    }
    if (files.size() == 1 && !files.front().is_found) { // which fails as a single file does
        work(0);
        return;
    }
    std::vector<Complaints> complaints(files.size());
    {
        Progress progress(files.size());
        on_all_processors(files.size(), [&](std::size_t i) {
            complaints[i].keep([&] {
                expect_readable(files[i]);
                work(i);
            });
            progress.advance();
        });
    }
    Complaints all;
    for (const Complaints& some : complaints) {
        all.keep([&some] { some.expect_none(); });
    }
    all.expect_none(files.size(), fmt::format("files could not be {}", done));
}

std::vector<std::string> outputs_in(const std::string& folder, const std::vector<InputFile>& files,
                                    const std::string& ending)
{
    std::vector<Task> tasks = tasks_for(files, path_of(folder), ending);
    make_folder(path_of(folder));
    make_folders_of(tasks);
    std::vector<std::string> outputs;
    for (Task& task : tasks) {
        outputs.push_back(std::move(task.output));
    }
    return outputs;
}

void convert_files(const Inputs& inputs, const std::string& output, const std::string& ending, Existing existing,
                   const FileConversion& convert)
{
    const std::vector<InputFile> files = files_of(inputs, output);
    const std::vector<std::string> outputs = outputs_in(output, files, ending);
    std::vector<InputFile> due;
    std::vector<std::string> due_outputs;
    for (std::size_t i = 0; i < files.size(); ++i) {
        if (existing == Existing::replaced || !is_up_to_date(path_of(outputs[i]), path_of(files[i].path))) {
            due.push_back(files[i]);
            due_outputs.push_back(outputs[i]);
        }
    }
    for_each_file(due, "converted", [&](std::size_t i) { convert(due[i].path, due_outputs[i]); });
}

void convert_into_folder(const std::string& input, const std::string& output, const std::string& ending,
                         const FileConversion& convert)
{
    make_folder(path_of(output));
    convert(input, output_in(path_of(output), path_of(input).filename(), ending));
}

} // namespace kivconvert
