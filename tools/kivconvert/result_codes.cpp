// SPDX-License-Identifier: MIT
#include "kivconvert/result_codes.h"

#include <KivDataConvert/KivResult.h>

#include <fmt/format.h>

namespace kivconvert
{
std::string describe_result(int code)
{
    const KIVMV::ResultDescription* found = KIVMV::DescribeResult(code);
    return found == nullptr ? fmt::format("unknown result code {}", code)
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
