// SPDX-License-Identifier: MIT
// Every function in several threads at once, on one input that they share, each with an output of its own: an input is
// not changed, not even for a moment.
#include "concurrent_calls.h"

#include "faults/bundled/given.h"

#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>

#include <functional>

namespace
{

/// Inputs for all functions. They are used by all threads at once.
struct Inputs {
    KivRegion region_a{16, 6, {{1, 0, 9}, {1, 12, 15}, {3, 2, 4}, {2, 5, 7}}};
    KivRegion region_b{12, 8, {{2, 6, 9}, {1, 3, 5}, {4, 0, 3}, {1, 9, 13}}};
    KivROI mask_a = KivROI::Mask(region_a.Runs(), 16, 6);
    KivROI mask_b = KivROI::Mask(region_b.Runs(), 12, 8);
    KivROI circle = KivROI::Circle(8, 4, 3.5, 16, 9);
    KivROI polygon = KivROI::Polygon({{1, 1}, {9, 2}, {4, 7.5}}, 16, 9);
    KivImage image{cv::Mat(3, 4, CV_8UC1, cv::Scalar(7))};
    KivMatrix matrix{cv::Mat(3, 4, CV_32FC1, cv::Scalar(7.5))};
    KivContour contour{{1.5, 1.0}, {6.2, 1.4}, {6.0, 5.0}, {1.0, 4.8}};
    KivContourArray contours{{{1, 1}, {5, 1}, {5, 4}, {1, 4}}, {{6, 5}}};
    KivPointArray points{{1.0, 2.5}, {4.9, 1.0}, {4.2, 1.1}};
    KivVarArray packed_xs{4, 1, 1, -3};
    KivVarArray packed_ys{2, 1, 1, 0};
    KivVarArray mixed_xs{4.5, 1, 1, -3};
    KivVarArray mixed_ys{2, 1, 1.25, 0};
};

struct Use {
    std::string name;
    std::function<std::string(Inputs&)> call;
};

/// The result code and the output of a call, which gets an output of its own.
template <class Output, class Call>
std::string outcome_of(Call call)
{
    Output out;
    const int code = call(&out);
    return std::to_string(code) + ": " + given::described(out);
}

template <class Call>
std::string outcome_of_arrays(Call call)
{
    KivVarArray xs;
    KivVarArray ys;
    const int code = call(&xs, &ys);
    return std::to_string(code) + ": " + given::described(xs) + "; " + given::described(ys);
}

template <class Operand>
std::string all_combinations(int (*const (&operations)[3])(Operand&, Operand&, Operand*), Operand& a, Operand& b)
{
    std::string results;
    for (const auto operation : operations) {
        results += outcome_of<Operand>([&](Operand* out) { return operation(a, b, out); });
        results += outcome_of<Operand>([&](Operand* out) { return operation(a, a, out); });
    }
    return results;
}

std::string all_of_roi(KivROI& roi)
{
    using namespace KIVMV;
    return outcome_of<KivRegion>([&](KivRegion* out) { return KivROIToRegion(roi, out); }) +
           outcome_of<KivImage>([&](KivImage* out) { return KivROIToBinImage(out, roi); }) +
           outcome_of<KivContourArray>([&](KivContourArray* out) { return KivROIToContourArray(roi, out); }) +
           outcome_of<KivROI>([&](KivROI* out) { return KivROINot(roi, out); });
}

std::string all_of_arrays(KivVarArray& xs, KivVarArray& ys)
{
    using namespace KIVMV;
    return outcome_of<KivRegion>([&](KivRegion* out) { return KivVarArrayToRegion(xs, ys, out); }) +
           outcome_of<KivContour>([&](KivContour* out) { return KivVarArrayToContour(xs, ys, out); }) +
           std::to_string(maxbit(xs));
}

std::vector<Use> all_uses()
{
    using namespace KIVMV;
    return {
        {"RegionConversions",
         [](Inputs& in) {
             KivRegion& region = in.region_a;
             return outcome_of_arrays(
                        [&](KivVarArray* xs, KivVarArray* ys) { return KivRegionToVarArray(region, xs, ys); }) +
                    outcome_of<KivPointArray>([&](KivPointArray* out) { return KivRegionToPointArray(region, out); }) +
                    outcome_of<KivImage>([&](KivImage* out) { return KivRegionToImage(out, region, 9, 1, 8, 5); }) +
                    outcome_of<KivImage>([&](KivImage* out) { return KivRegionToBinImage(out, region); }) +
                    outcome_of<KivContourArray>(
                        [&](KivContourArray* out) { return KivRegionToContourArray(region, out); }) +
                    outcome_of<KivROI>([&](KivROI* out) { return KivRegionToROI(region, out); });
         }},
        {"RegionAlgebra",
         [](Inputs& in) {
             return all_combinations({KivRegionAdd, KivRegionAnd, KivRegionSub}, in.region_a, in.region_b) +
                    outcome_of<KivRegion>([&](KivRegion* out) { return KivRegionNot(in.region_a, out); });
         }},
        {"Masks", [](Inputs& in) { return all_of_roi(in.mask_a); }},
        {"Circles", [](Inputs& in) { return all_of_roi(in.circle); }},
        {"Polygons", [](Inputs& in) { return all_of_roi(in.polygon); }},
        {"RoiAlgebra",
         [](Inputs& in) {
             return all_combinations({KivROIAdd, KivROIAnd, KivROISub}, in.mask_a, in.mask_b);
         }},
        {"RoiAlgebraOfShapes",
         [](Inputs& in) {
             return all_combinations({KivROIAdd, KivROIAnd, KivROISub}, in.circle, in.polygon);
         }},
        {"Images",
         [](Inputs& in) {
             KivImage& image = in.image;
             return outcome_of<KivRegion>([&](KivRegion* out) { return KivImageToRegion(image, out); }) +
                    outcome_of<KivRegion>([&](KivRegion* out) { return KivBinImageToRegion(image, out); }) +
                    outcome_of<KivMatrix>([&](KivMatrix* out) { return KivImageToMatrix(image, out); }) +
                    outcome_of<KivROI>([&](KivROI* out) { return KivBinImageToROI(image, out); }) +
                    outcome_of<KivContourArray>(
                        [&](KivContourArray* out) { return KivBinImageToContourArray(image, out); }) +
                    outcome_of<KivContourArray>(
                        [&](KivContourArray* out) { return KivMergContour(image, in.contour, false, out); });
         }},
        {"Matrices",
         [](Inputs& in) {
             return outcome_of<KivImage>([&](KivImage* out) { return KivMatrixToImage(out, in.matrix); });
         }},
        {"Contours",
         [](Inputs& in) {
             return outcome_of_arrays(
                        [&](KivVarArray* xs, KivVarArray* ys) { return KivContourToVarArray(in.contour, xs, ys); }) +
                    outcome_of<KivPointArray>(
                        [&](KivPointArray* out) { return KivContourToPointArray(in.contour, out); }) +
                    outcome_of<KivRegion>([&](KivRegion* out) { return KivContourToRegion(in.contour, out); }) +
                    outcome_of<KivRegion>(
                        [&](KivRegion* out) { return KivContourArrayToRegion(in.contours, 9, 7, out); }) +
                    outcome_of<KivImage>(
                        [&](KivImage* out) { return KivContourArrayToBinImage(out, in.contours, 9, 7); });
         }},
        {"Points",
         [](Inputs& in) {
             return outcome_of<KivRegion>([&](KivRegion* out) { return KivPointArrayToRegion(in.points, out); }) +
                    outcome_of<KivContour>([&](KivContour* out) { return KivPointArrayToContour(in.points, out); });
         }},
        {"PackedArrays", [](Inputs& in) { return all_of_arrays(in.packed_xs, in.packed_ys); }},
        {"MixedArrays", [](Inputs& in) { return all_of_arrays(in.mixed_xs, in.mixed_ys); }},
        {"OneArrayTwice", [](Inputs& in) { return all_of_arrays(in.packed_xs, in.packed_xs); }},
    };
}

class SharedInputs : public testing::TestWithParam<Use>
{
};

TEST_P(SharedInputs, GiveTheResultsOfASingleThread)
{
    Inputs for_one_thread;
    const std::string expected = GetParam().call(for_one_thread);
    Inputs shared;
    EXPECT_EQ(threads::results_of_threads([&] { return GetParam().call(shared); }), threads::always(expected));
}

INSTANTIATE_TEST_SUITE_P(All, SharedInputs, testing::ValuesIn(all_uses()),
                         [](const auto& use) { return use.param.name; });

} // namespace
