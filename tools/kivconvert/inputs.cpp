// SPDX-License-Identifier: MIT
#include "kivconvert/inputs.h"

#include "kivconvert/errors.h"
#include "kivconvert/paths.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <fmt/format.h>
#include <iterator>
#include <system_error>

namespace fs = std::filesystem;

namespace kivconvert
{
namespace
{

bool is_hidden(const fs::path& path)
{
    return path.filename().native().front() == '.';
}

/// The files below one folder, found one folder at a time.
class FolderFiles
{
public:
    FolderFiles(fs::path root, bool recursive, const std::string& output)
        : root_(std::move(root)), recursive_(recursive), output_(path_of(output))
    {
        add_folder(root_);
        if (files_.empty()) {
            throw FileError(text_of(root_), "holds no files");
        }
        const auto by_path = [](const InputFile& a, const InputFile& b) { return path_of(a.path) < path_of(b.path); };
        std::sort(files_.begin(), files_.end(), by_path);
    }

    std::vector<InputFile> take() { return std::move(files_); }

private:
    void add_folder(const fs::path& folder)
    {
        std::error_code error;
        for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
             entry.increment(error)) {
            add_entry(*entry);
        }
        if (error) {
            throw FileError(text_of(folder), fmt::format("cannot be read: {}", error.message()));
        }
    }

    void add_entry(const fs::directory_entry& entry)
    {
        std::error_code none;
        if (is_hidden(entry.path())) {
            return;
        }
        if (!entry.is_directory(none)) {
            files_.push_back({text_of(entry.path()), entry.path().lexically_relative(root_), true});
        } else if (recursive_ && !entry.is_symlink(none) && !fs::equivalent(entry.path(), output_, none)) {
            add_folder(entry.path());
        }
    }

    fs::path root_;
    bool recursive_;
    fs::path output_;
    std::vector<InputFile> files_;
};

} // namespace

bool is_folder(const std::string& path)
{
    std::error_code none;
    return fs::is_directory(path_of(path), none);
}

void add_inputs(CLI::App& command, Inputs& inputs, const std::string& description)
{
    command.add_option("IN", inputs.texts, fmt::format("{}; or a folder of such files; or several", description))
        ->required();
    command.add_flag("-r,--recursive", inputs.recursive, "of folders, take the files in the folders within, too");
}

std::vector<InputFile> files_of(const Inputs& inputs, const std::string& output)
{
    std::vector<InputFile> files;
    for (const std::string& text : inputs.texts) {
        if (is_folder(text)) {
            std::vector<InputFile> found = FolderFiles(path_of(text), inputs.recursive, output).take();
            std::move(found.begin(), found.end(), std::back_inserter(files));
        } else {
            files.push_back({text, path_of(text).filename()});
        }
    }
    return files;
}

} // namespace kivconvert
