// SPDX-License-Identifier: MIT
#include "kivconvert/conversion_command.h"

#include "kivconvert/errors.h"
#include "kivconvert/failure.h"
#include "kivconvert/folders.h"

#include <fmt/format.h>
#include <memory>
#include <utility>

namespace kivconvert
{
namespace
{

struct Files {
    std::string input;
    std::string output;
    std::string ending;
};

std::string with_dot(const std::string& ending)
{
    return ending.front() == '.' ? ending : fmt::format(".{}", ending);
}

} // namespace

void add_conversion(CLI::App& command, const ConversionTexts& texts,
                    std::function<void(const std::string& input, const std::string& output)> convert)
{
    const auto files = std::make_shared<Files>();
    command.add_option("IN", files->input, fmt::format("{}; or a folder of such files", texts.input))->required();
    command.add_option("-o,--output", files->output, fmt::format("{}; or a folder for them", texts.output))->required();
    command
        .add_option("--to", files->ending,
                    fmt::format("ending of the files in the output folder, {} by default", texts.ending))
        ->type_name("ENDING");
    const auto convert_named = [convert = std::move(convert)](const std::string& input, const std::string& output) {
        naming(input, [&] { convert(input, output); });
    };
    command.callback([files, convert_named, texts] {
        if (is_folder(files->input)) {
            const std::string ending = files->ending.empty() ? texts.ending : with_dot(files->ending);
            texts.expect_output(fmt::format("{}/*{}", files->output, ending));
            convert_folder(files->input, files->output, ending, convert_named);
        } else if (!files->ending.empty()) {
            throw InputError("--to", "is for folders; the name of a single output tells its format");
        } else {
            texts.expect_output(files->output);
            convert_named(files->input, files->output);
        }
    });
}

} // namespace kivconvert
