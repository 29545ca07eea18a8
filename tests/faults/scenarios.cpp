// SPDX-License-Identifier: MIT
#include "faults/scenarios.h"

#include "given.h"

#include <KivDataConvert/KivDataConvert.h>

#include <memory>

namespace faults
{
namespace
{

/// A call of `function` on `inputs` and `output`, in that order.
template <class Function, class Output, class... Inputs>
Call call_of(Function function, std::shared_ptr<Output> output, std::shared_ptr<Inputs>... inputs)
{
    return {[=] { return function(*inputs..., output.get()); },
            [=] { return (std::string() + ... + (given::described(*inputs) + "; ")); },
            [=] { return given::described(*output); }};
}

/// A call whose output is its first operand.
template <class Function, class Operand, class... Others>
Call call_on_itself(Function function, std::shared_ptr<Operand> operand, std::shared_ptr<Others>... others)
{
    return {[=] { return function(*operand, *others..., operand.get()); },
            [=] { return (std::string() + ... + (given::described(*others) + "; ")); },
            [=] { return given::described(*operand); }};
}

} // namespace

std::vector<Scenario> all_scenarios()
{
    using namespace KIVMV;
    using given::Runs;
    const auto runs_a = [] { return Runs{{1, 0, 9}, {1, 12, 15}, {3, 2, 4}, {2, 5, 7}}; };
    const auto runs_b = [] { return Runs{{2, 6, 9}, {1, 3, 5}, {4, 0, 3}, {1, 9, 13}}; };
    const auto region_a = [=] { return given::region(16, 6, runs_a()); };
    const auto region_b = [=] { return given::region(12, 8, runs_b()); };
    const auto old_region = [] { return given::region(3, 3, {{0, 0, 0}}); };
    const auto roi_a = [=] { return given::roi(16, 6, runs_a()); };
    const auto roi_b = [=] { return given::roi(12, 8, runs_b()); };
    const auto old_roi = [] { return given::roi(3, 3, {{0, 0, 0}}); };
    const auto image = [] { return given::image(4, 3, {0, 7, 7, 0, 0, 0, 9, 0, 1, 0, 0, 255}); };
    const auto old_image = [] { return given::image(1, 1, {5}); };
    const auto contour = [] { return given::contour({{1.5, 1.0}, {6.2, 1.4}, {6.0, 5.0}, {1.0, 4.8}}); };
    const auto old_contour = [] { return given::contour({{9.0, 9.0}}); };
    const auto contours = [] { return given::contours({{1, 1}, {5, 1}, {5, 4}, {1, 4}}); };
    const auto old_contours = [] { return given::contours({{0, 0}}); };
    const auto array = [](std::vector<int> values) { return given::array(values); };
    const auto points = [] { return given::points({{1.0, 2.5}, {4.9, 1.0}, {4.2, 1.1}}); };
    const auto matrix = [] { return given::matrix(2, 2, {1, 2, 3, 4}); };

    std::vector<Scenario> all;
    const auto add = [&all](const char* name, auto prepare, Output on_failure = Output::untouched,
                            bool exceptions_become_a_code = false) {
        all.push_back({name, on_failure, exceptions_become_a_code, prepare});
    };
    const auto gradually = Output::written_gradually;

    // Outputs that come in pairs or are the inputs themselves are described together.
    struct Arrays {
        given::Ptr<KivVarArray> first;
        given::Ptr<KivVarArray> second;
        std::string text() const { return given::described(*first) + "; " + given::described(*second); }
    };
    const auto nothing = [] { return std::string(); };

    add("maxbit", [=] {
        const auto values = array({3, 4567, 12});
        return Call{[=] { return maxbit(*values) == 4 ? KIVMV_OK : -1; }, [=] { return given::described(*values); },
                    nothing};
    });
    add(
        "radixsort",
        [=] {
            const auto rows = array({5, 12, 5});
            const Arrays columns{array({9, 0, 1}), array({9, 2, 3})};
            return Call{[=] {
                            radixsort(*rows, *columns.first, *columns.second);
                            return KIVMV_OK;
                        },
                        nothing, [=] { return given::described(*rows) + "; " + columns.text(); }};
        },
        Output::rewritten_in_place);
    add(
        "KivRegionToVarArray",
        [=] {
            const auto region = region_a();
            const Arrays out{array({1}), array({2})};
            return Call{[=] { return KivRegionToVarArray(*region, out.first.get(), out.second.get()); },
                        [=] { return given::described(*region); }, [=] { return out.text(); }};
        },
        gradually);
    add("KivVarArrayToRegion", [=] {
        return call_of(KivVarArrayToRegion, old_region(), array({4, 1, 1, -3}), array({2, 1, 1, 0}));
    });
    add("KivPointArrayToRegion", [=] { return call_of(KivPointArrayToRegion, old_region(), points()); });
    add(
        "KivRegionToPointArray", [=] { return call_of(KivRegionToPointArray, points(), region_a()); }, gradually);
    add("KivImageToRegion", [=] { return call_of(KivImageToRegion, old_region(), image()); });
    add("KivBinImageToRegion", [=] { return call_of(KivBinImageToRegion, old_region(), image()); });
    add(
        "KivRegionToImage",
        [=] {
            const auto out = old_image();
            const auto region = region_a();
            return Call{[=] { return KivRegionToImage(out.get(), *region, 200, 10, 9, 7); },
                        [=] { return given::described(*region); }, [=] { return given::described(*out); }};
        },
        Output::untouched, true);
    add("KivRegionToBinImage", [=] {
        const auto out = old_image();
        const auto region = region_a();
        return Call{[=] { return KivRegionToBinImage(out.get(), *region); }, [=] { return given::described(*region); },
                    [=] { return given::described(*out); }};
    });
    add("KivImageToMatrix", [=] { return call_of(KivImageToMatrix, matrix(), image()); });
    add("KivMatrixToImage", [=] {
        const auto out = old_image();
        const auto source = matrix();
        return Call{[=] { return KivMatrixToImage(out.get(), *source); }, [=] { return given::described(*source); },
                    [=] { return given::described(*out); }};
    });
    add(
        "KivContourToVarArray",
        [=] {
            const auto source = contour();
            const Arrays out{array({1}), array({2})};
            return Call{[=] { return KivContourToVarArray(*source, out.first.get(), out.second.get()); },
                        [=] { return given::described(*source); }, [=] { return out.text(); }};
        },
        gradually);
    add(
        "KivVarArrayToContour",
        [=] {
            return call_of(KivVarArrayToContour, old_contour(), array({1, 2, 3}), array({4, 5, 6}));
        },
        gradually);
    add(
        "KivContourToPointArray", [=] { return call_of(KivContourToPointArray, points(), contour()); }, gradually);
    add(
        "KivPointArrayToContour", [=] { return call_of(KivPointArrayToContour, old_contour(), points()); }, gradually);
    add("KivRegionToContourArray", [=] { return call_of(KivRegionToContourArray, old_contours(), region_a()); });
    add(
        "KivContourArrayToRegion",
        [=] {
            const auto out = old_region();
            const auto source = contours();
            return Call{[=] { return KivContourArrayToRegion(*source, 8, 6, out.get()); },
                        [=] { return given::described(*source); }, [=] { return given::described(*out); }};
        },
        Output::untouched, true);
    add("KivContourToRegion", [=] { return call_of(KivContourToRegion, old_region(), contour()); });
    add(
        "KivContourArrayToBinImage",
        [=] {
            const auto out = old_image();
            const auto source = contours();
            return Call{[=] { return KivContourArrayToBinImage(out.get(), *source, 8, 6); },
                        [=] { return given::described(*source); }, [=] { return given::described(*out); }};
        },
        Output::untouched, true);
    add("KivBinImageToContourArray", [=] { return call_of(KivBinImageToContourArray, old_contours(), image()); });
    add("KivMergContour", [=] {
        const auto out = old_contours();
        const auto source = image();
        const auto added = contour();
        return Call{[=] { return KivMergContour(*source, *added, true, out.get()); },
                    [=] { return given::described(*source) + "; " + given::described(*added); },
                    [=] { return given::described(*out); }};
    });
    add("KivROIToRegion", [=] { return call_of(KivROIToRegion, old_region(), roi_a()); });
    add("KivRegionToROI", [=] { return call_of(KivRegionToROI, old_roi(), region_a()); });
    add("KivROIToBinImage", [=] {
        const auto out = old_image();
        const auto source = roi_a();
        return Call{[=] { return KivROIToBinImage(out.get(), *source); }, [=] { return given::described(*source); },
                    [=] { return given::described(*out); }};
    });
    add("KivBinImageToROI", [=] { return call_of(KivBinImageToROI, old_roi(), image()); });
    add("KivROIToContourArray", [=] { return call_of(KivROIToContourArray, old_contours(), roi_a()); });
    add("KivRegionAdd", [=] { return call_of(KivRegionAdd, old_region(), region_a(), region_b()); });
    add("KivRegionAnd", [=] { return call_of(KivRegionAnd, old_region(), region_a(), region_b()); });
    add("KivRegionSub", [=] { return call_of(KivRegionSub, old_region(), region_a(), region_b()); });
    add("KivRegionNot", [=] { return call_of(KivRegionNot, old_region(), region_a()); });
    add("KivROIAdd", [=] { return call_of(KivROIAdd, old_roi(), roi_a(), roi_b()); });
    add("KivROIAnd", [=] { return call_of(KivROIAnd, old_roi(), roi_a(), roi_b()); });
    add("KivROISub", [=] { return call_of(KivROISub, old_roi(), roi_a(), roi_b()); });
    add("KivROINot", [=] { return call_of(KivROINot, old_roi(), roi_a()); });

    // Results that are copies or nothing.
    const auto empty_region = [=] { return given::region(0, 6, runs_a()); };
    const auto empty_type = [] { return std::make_shared<KivROI>(); };
    const auto no_runs = [] { return given::roi(16, 6, {}); };
    add("KivRegionAdd_of_empty_a", [=] { return call_of(KivRegionAdd, old_region(), empty_region(), region_b()); });
    add("KivRegionSub_of_empty_b", [=] { return call_of(KivRegionSub, old_region(), region_a(), empty_region()); });
    add("KivROIAdd_of_empty_type_a", [=] { return call_of(KivROIAdd, old_roi(), empty_type(), roi_b()); });
    add("KivROISub_of_empty_type_a", [=] { return call_of(KivROISub, old_roi(), empty_type(), roi_b()); });
    add("KivROIAdd_of_no_runs_in_b", [=] { return call_of(KivROIAdd, old_roi(), roi_a(), no_runs()); });
    add("KivROIAnd_of_no_runs_in_a", [=] { return call_of(KivROIAnd, old_roi(), no_runs(), roi_b()); });

    // Outputs that are operands.
    add("KivRegionAdd_into_a", [=] { return call_on_itself(KivRegionAdd, region_a(), region_b()); });
    add("KivRegionAnd_into_a", [=] { return call_on_itself(KivRegionAnd, region_a(), region_b()); });
    add("KivRegionSub_into_a", [=] { return call_on_itself(KivRegionSub, region_a(), region_b()); });
    add("KivROIAdd_into_a", [=] { return call_on_itself(KivROIAdd, roi_a(), roi_b()); });
    add("KivROIAnd_into_a", [=] { return call_on_itself(KivROIAnd, roi_a(), roi_b()); });
    add("KivROISub_into_a", [=] { return call_on_itself(KivROISub, roi_a(), roi_b()); });
    add("KivRegionNot_into_a", [=] { return call_on_itself(KivRegionNot, region_a()); });
    add("KivROINot_into_a", [=] { return call_on_itself(KivROINot, roi_a()); });

    // Shapes whose pixels have to be worked out.
    const auto disc = [] { return given::disc(8, 4, 3, 16, 9); };
    add("KivROIToRegion_of_a_disc", [=] { return call_of(KivROIToRegion, old_region(), disc()); });
    add("KivROIToContourArray_of_a_disc", [=] { return call_of(KivROIToContourArray, old_contours(), disc()); });
    add("KivROISub_of_discs", [=] { return call_of(KivROISub, old_roi(), disc(), disc()); });
    return all;
}

} // namespace faults
