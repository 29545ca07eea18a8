// SPDX-License-Identifier: MIT
#include "kivconvert/conversion_command.h"

#include "kivconvert/errors.h"
#include "kivconvert/failure.h"
#include "kivconvert/files.h"
#include "kivconvert/folders.h"
#include "kivconvert/image_options.h"
#include "kivconvert/inputs.h"
#include "kivconvert/page_stack.h"
#include "kivconvert/paths.h"
#include "kivconvert/standard_streams.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <fmt/format.h>
#include <memory>
#include <system_error>
#include <utility>

namespace kivconvert
{
namespace
{

struct Files {
    Inputs inputs;
    std::string output;
    std::string ending;
    ImagePart part;
    bool all_pages = false;
    bool resume = false;
};

void convert_to_file(const Files& files, const ConversionTexts& texts, const Conversion& convert)
{
    if (!files.ending.empty()) {
        expect_use_for_ending(files.output);
    }
    texts.expect_output(files.output);
    convert(files.inputs.texts.front(), files.output, files.part);
}

/// The pages become files of their own, whose names end in the page's number with as many digits as the last one has.
void convert_pages(const std::string& input, const std::string& output, const std::string& ending, ImagePart part,
                   const Conversion& convert)
{
    part.file = std::make_shared<ImageFile>(input);
    const int pages = part.file->pages();
    const std::size_t digits = fmt::formatted_size("{}", pages);
    const std::string name = output.substr(0, output.size() - ending.size());
    for (part.page = 1; part.page <= pages; ++part.page) {
        convert(input, fmt::format("{}-{:0{}}{}", name, part.page, digits, ending), part);
    }
}

/// Where outputs go that are more than one.
void expect_folder_for(const char* what, const std::string& output)
{
    if (!is_folder(output) && !extension_of(output).empty()) {
        throw FileError(output, fmt::format("is named like a file; with {}, it is a folder", what));
    }
}

/// The output of a page may have the name of any other file.
void expect_other_folder(const Inputs& inputs, const std::string& output)
{
    std::error_code none;
    for (const std::string& input : inputs.texts) {
        if (std::filesystem::equivalent(path_of(input), path_of(output), none)) {
            throw FileError(output, "holds the inputs; with --page all, the outputs need another folder");
        }
    }
}

void convert_to_folder(const Files& files, const ConversionTexts& texts, const Conversion& convert)
{
    const std::string ending = files.ending.empty() ? texts.ending : with_dot(files.ending);
    texts.expect_output(fmt::format("{}/*{}", files.output, ending));
    const auto convert_one = [&](const std::string& input, const std::string& output) {
        if (files.all_pages) {
            convert_pages(input, output, ending, files.part, convert);
        } else {
            convert(input, output, files.part);
        }
    };
    if (files.inputs.is_single()) {
        expect_folder_for("--page all", files.output);
        convert_into_folder(files.inputs.texts.front(), files.output, ending, convert_one);
        return;
    }
    if (files.inputs.texts.size() > 1) {
        expect_folder_for("several inputs", files.output);
    }
    if (files.all_pages && files.resume) {
        throw InputError("--resume", "is for inputs with one output each, not for --page all");
    }
    if (files.all_pages) {
        expect_other_folder(files.inputs, files.output);
    }
    convert_files(files.inputs, files.output, ending, files.resume ? Existing::kept : Existing::replaced, convert_one);
}

/// Whether all outputs are pages of one file.
bool is_stack(const Files& files, const ConversionTexts& texts)
{
    return texts.makes_images && can_have_pages(files.output);
}

/// The pages are in the order of the inputs, and of their pages.
void convert_to_stack(const Files& files, const ConversionTexts& texts, const Conversion& convert)
{
    texts.expect_output(files.output);
    if (!files.ending.empty()) {
        expect_use_for_ending(files.output);
    }
    if (files.resume) {
        throw InputError("--resume", "is for inputs with one output each, not for pages of one");
    }
    PageStack stack(files.output);
    const std::vector<InputFile> inputs = files_of(files.inputs);
    if (!files.all_pages) {
        stack.add(inputs.size(), [&](std::size_t i, const Output& page) {
            expect_readable(inputs[i]);
            convert(inputs[i].path, page, files.part);
        });
    }
    for (std::size_t i = 0; files.all_pages && i < inputs.size(); ++i) {
        expect_readable(inputs[i]);
        ImagePart of_file = files.part;
        of_file.file = std::make_shared<ImageFile>(inputs[i].path);
        stack.add(static_cast<std::size_t>(of_file.file->pages()), [&](std::size_t index, const Output& page) {
            ImagePart part = of_file;
            part.page = static_cast<int>(index) + 1;
            convert(inputs[i].path, page, part);
        });
    }
    stack.finish();
}

} // namespace

void add_conversion(CLI::App& command, const ConversionTexts& texts, Conversion convert)
{
    const auto files = std::make_shared<Files>();
    add_inputs(command, files->inputs, texts.input);
    command
        .add_option("-o,--output", files->output,
                    fmt::format("{}; or a folder for them{}; - is standard output", texts.output,
                                texts.makes_images ? ", or a .tif with a page of each" : ""))
        ->required();
    command
        .add_option("--to", files->ending,
                    fmt::format("ending of the files in the output folder, {} by default, or of -", texts.ending))
        ->type_name("ENDING");
    command.add_flag("--resume", files->resume, "of many files, leave out those whose outputs are there and newer");
    add_image_options(command, files->part, files->all_pages);
    const auto convert_named = [convert = std::move(convert)](const std::string& input, const Output& output,
                                                              const ImagePart& part) {
        report_under(input, [&] { convert(input, output, part); });
    };
    command.callback([files, convert_named, texts] {
        if (files->inputs.is_single() && !files->all_pages) {
            convert_to_file(*files, texts, convert_named);
        } else if (is_stack(*files, texts)) {
            convert_to_stack(*files, texts, convert_named);
        } else {
            convert_to_folder(*files, texts, convert_named);
        }
    });
}

} // namespace kivconvert
