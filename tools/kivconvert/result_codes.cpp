// SPDX-License-Identifier: MIT
#include "kivconvert/result_codes.h"

#include <KivDataConvert/KivDataConvert.h>

#include <algorithm>
#include <fmt/format.h>
#include <iterator>

namespace kivconvert
{
namespace
{

struct ResultCode {
    int code;
    const char* name;
    const char* meaning;
};

constexpr ResultCode result_codes[] = {
    {KIVMV::KIVMV_OK, "KIVMV_OK", "success"},
    {KIVMV::KIVMV_ERR_NO_IMAGE, "KIVMV_ERR_NO_IMAGE", "the input image holds no pixels"},
    {KIVMV::KIVMV_ERR_CHANNELS, "KIVMV_ERR_CHANNELS", "the input image has a channel count that is not taken"},
    {KIVMV::KIVMV_ERR_LENGTH, "KIVMV_ERR_LENGTH", "two parallel arrays are empty or of different lengths"},
    {KIVMV::KIVMV_ERR_PARAM_1, "KIVMV_ERR_PARAM_1", "the first input that is not an image is empty or invalid"},
    {KIVMV::KIVMV_ERR_PARAM_2, "KIVMV_ERR_PARAM_2", "the second input that is not an image is invalid"},
    {KIVMV::KIVMV_ERR_PARAM_3, "KIVMV_ERR_PARAM_3", "the third input that is not an image is invalid"},
    {KIVMV::KIVMV_ERR_PARAM_4, "KIVMV_ERR_PARAM_4", "the fourth input that is not an image is invalid"},
    {KIVMV::KIVMV_ERR_PARAM_5, "KIVMV_ERR_PARAM_5", "the fifth input that is not an image is invalid"},
    {KIVMV::KIVMV_ERR_EXCEPTION, "KIVMV_ERR_EXCEPTION", "an exception was caught while the output was being built"},
    {KIVMV::KIVMV_ERR_BIT_DEPTH, "KIVMV_ERR_BIT_DEPTH", "the input image is not 8-bit"},
};

} // namespace

std::string describe_result(int code)
{
    const auto found = std::find_if(std::begin(result_codes), std::end(result_codes),
                                    [code](const ResultCode& entry) { return entry.code == code; });
    return found == std::end(result_codes) ? fmt::format("unknown result code {}", code)
                                           : fmt::format("{} ({}): {}", found->name, code, found->meaning);
}

void expect_success(int code, const std::string& subject, const std::string& reason)
{
    if (code != KIVMV::KIVMV_OK) {
        throw ResultError(
            fmt::format("{}: {}{}{}", subject, describe_result(code), reason.empty() ? "" : "; ", reason));
    }
}

} // namespace kivconvert
