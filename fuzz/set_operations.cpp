// SPDX-License-Identifier: MIT
#include "set_operations.h"

#include "support/set_algebra.h"

#include <KivDataConvert/KivDataConvert.h>

#include <algorithm>

namespace fuzz
{
namespace
{

const KivRegion used_region(3, 3, {{0, 0, 0}});
const KivROI used_roi = KivROI::Mask({{0, 0, 0}}, 3, 3);

struct Parts {
    int width;
    int height;
    Runs runs;
};

Parts parts_of(const KivRegion& region)
{
    return {region.Width(), region.Height(), region.Runs()};
}

Parts parts_of(const KivROI& roi)
{
    return {roi.Parameters().Width(), roi.Parameters().Height(), roi.Parameters().MaskRuns()};
}

Parts walked(const Parts& a, const Parts& b, Runs (*walk)(Runs, Runs), ResultFrame frame)
{
    const bool of_a = frame == ResultFrame::of_a;
    return {of_a ? a.width : std::max(a.width, b.width), of_a ? a.height : std::max(a.height, b.height),
            walk(a.runs, b.runs)};
}

} // namespace

void check_regions(FuzzedBytes bytes, int (*operation)(KivRegion&, KivRegion&, KivRegion*), Runs (*walk)(Runs, Runs),
                   ResultFrame frame)
{
    const KivRegion a = bytes.region();
    const KivRegion b = bytes.region();
    if (a.Width() < 1 && b.Width() < 1) {
        EXPECT_TRUE(support::gives(operation, a, b, used_region, KIVMV::KIVMV_ERR_PARAM_1, KivRegion()));
        return;
    }
    const auto expected = [&](const KivRegion& other) {
        if (a.Width() < 1 || other.Width() < 1) {
            return a.Width() < 1 ? other : a;
        }
        const auto [width, height, runs] = walked(parts_of(a), parts_of(other), walk, frame);
        return KivRegion(width, height, runs);
    };
    EXPECT_TRUE(support::same(support::combined(operation, a, b, used_region), expected(b)));
    if (a.Width() > 0) {
        EXPECT_TRUE(support::same(support::combined_with_itself(operation, a, used_region), expected(a)));
    }
}

void check_rois(FuzzedBytes bytes, int (*operation)(KivROI&, KivROI&, KivROI*), Runs (*walk)(Runs, Runs),
                ResultFrame frame)
{
    KivROI a = bytes.roi();
    KivROI b = bytes.roi();
    const Parts parts_of_a = parts_of(a);
    const Parts parts_of_b = parts_of(b);
    if (parts_of_a.runs.empty() || parts_of_b.runs.empty()) { // there is no walk, and each operation has its own rule
        KivROI out(used_roi);
        const int code = operation(a, b, &out);
        EXPECT_TRUE(code == 0 || code == KIVMV::KIVMV_ERR_PARAM_1 || code == KIVMV::KIVMV_ERR_PARAM_2);
        EXPECT_TRUE(code == 0 || out == used_roi || out == KivROI());
        return;
    }
    const auto expected = [&](const Parts& other) {
        const auto [width, height, runs] = walked(parts_of_a, other, walk, frame);
        return KivROI::Mask(runs, width, height);
    };
    EXPECT_TRUE(support::same(support::combined(operation, a, b, used_roi), expected(parts_of_b)));
    EXPECT_TRUE(support::same(support::combined_with_itself(operation, a, used_roi), expected(parts_of_a)));
}

} // namespace fuzz
