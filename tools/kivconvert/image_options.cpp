// SPDX-License-Identifier: MIT
#include "kivconvert/image_options.h"

#include <CLI/CLI.hpp>

#include <limits>
#include <string>

namespace kivconvert
{
namespace
{

void add_alpha_options(CLI::App& command, ImagePart& part)
{
    CLI::Option* const taken = command.add_flag_callback(
        "--alpha", [&part] { part.alpha = Alpha::taken; },
        "take an image's alpha channel: foreground is not transparent");
    command
        .add_flag_callback(
            "--no-alpha", [&part] { part.alpha = Alpha::ignored; }, "leave out an image's alpha channel, opaque or not")
        ->excludes(taken);
}

void add_choice_options(CLI::App& command, CocoChoice& choice)
{
    command.add_option("--annotation", choice.annotation, "of a COCO data set, take the annotation of this id")
        ->type_name("ID");
    command.add_option("--of-image", choice.image, "of a COCO data set, take the annotations of this image")
        ->type_name("ID|NAME");
    command.add_option("--category", choice.category, "of a COCO data set, take the annotations of this category")
        ->type_name("ID|NAME");
}

CLI::Validator page_numbers()
{
    return CLI::Range(1, std::numeric_limits<int>::max());
}

} // namespace

void add_image_options(CLI::App& command, ImagePart& part)
{
    add_alpha_options(command, part);
    add_choice_options(command, part.choice);
    command.add_option("--page", part.page, "page of an image, counted from 1")->type_name("N")->check(page_numbers());
}

void add_image_options(CLI::App& command, ImagePart& part, bool& all_pages)
{
    add_alpha_options(command, part);
    add_choice_options(command, part.choice);
    const CLI::Validator is_all(
        [](const std::string& page) { return page == "all" ? std::string() : "Value is not all"; }, "all");
    const auto set = [&](const std::string& page) {
        all_pages = page == "all";
        part.page = all_pages ? 0 : std::stoi(page);
    };
    command.add_option_function<std::string>("--page", set, "page of an image, counted from 1, or all of them")
        ->type_name("N|all")
        ->check(page_numbers() | is_all);
}

} // namespace kivconvert
