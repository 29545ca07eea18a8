// SPDX-License-Identifier: MIT
#include "demo/checks.h"

#include "demo/pictures.h"
#include "kivconvert/visible_pixels.h"

#include <fmt/format.h>

namespace demo
{

void judge_equality(Report& report, bool equal)
{
    report.passed = equal;
    report.remark = equal ? "there and back: exact" : "there and back: DIFFERS";
}

void judge_pixels(Report& report, const cv::Mat& expected, const std::vector<const KivRegion*>& operands)
{
    cv::Mat differing = mask_of(report.region) != expected;
    const int all = cv::countNonZero(differing);
    for (const KivRegion* operand : operands) {
        clear_last_row_of(*operand, differing);
    }
    report.passed = cv::countNonZero(differing) == 0;
    report.remark = all == 0 ? "as on masks: exact" : fmt::format("as on masks but for {} pixels in last rows", all);
}

void clear_last_row_of(const KivRegion& region, cv::Mat& mask)
{
    if (const KivRunSet pixels = kivconvert::visible_pixels(region); !pixels.Empty()) {
        mask.row(pixels.Runs().back().row).setTo(0);
    }
}

} // namespace demo
