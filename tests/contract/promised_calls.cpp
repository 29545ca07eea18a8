// SPDX-License-Identifier: MIT
#include "contract_test.h"

#include <algorithm>
#include <iterator>
#include <regex>

namespace contract
{

Calls calls()
{
    static const std::regex reading(
        R"([\w]+\.(Width|Height|Channels|BitDepth|ImageData|ROIType|Length|GetRegionRuns)\(\))"
        R"(|\w+\.GetMask\(runs\)|~?KivRLC\(\)|IKivROIPara\(\)|KivROI\(\w+\)|copy = \w+)");
    Calls promised;
    std::copy_if(recording::recorder().calls.begin(), recording::recorder().calls.end(), std::back_inserter(promised),
                 [](const std::string& call) { return !std::regex_match(call, reading); });
    return promised;
}

} // namespace contract
