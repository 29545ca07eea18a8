// SPDX-License-Identifier: MIT
// Makes values of the bytes of files, calls every function of the library on them, and prints what it gives: a line of
// JSON for each call, with the function's name, its arguments, its code and its result.
#include "inputs.h"

#include <KivDataConvert/KivDataConvert.h>

#include <nlohmann/json.hpp>

#include <cmath>
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <type_traits>
#include <variant>
#include <vector>

namespace
{

using nlohmann::json;

// JSON has no word for what is not finite.
json written(double number)
{
    return std::isfinite(number) ? json(number) : json{{"float", std::to_string(number)}};
}

json written(int number)
{
    return number;
}

json written(bool flag)
{
    return flag;
}

json written(const std::vector<Run>& runs)
{
    json rows = json::array();
    for (const Run& run : runs) {
        rows.push_back({run.row, run.colBegin, run.colEnd});
    }
    return rows;
}

json written(const KivRegion& region)
{
    return {{"region", {region.Width(), region.Height(), written(region.Runs())}}};
}

json numbers_of(const std::vector<cv::Point_<double>>& points)
{
    json numbers = json::array();
    for (const cv::Point_<double>& point : points) {
        numbers.push_back(written(point.x));
        numbers.push_back(written(point.y));
    }
    return numbers;
}

/// The arguments that make a shape, but for the frame.
struct ShapeWriter {
    json operator()(const KivShape::Rectangle& s) const { return {s.left, s.top, s.right, s.bottom}; }
    json operator()(const KivShape::RotatedRectangle& s) const { return {s.cx, s.cy, s.length, s.breadth, s.angle}; }
    json operator()(const KivShape::Empty& /*s*/) const { return json::array(); }
    json operator()(const KivShape::Circle& s) const { return {s.cx, s.cy, s.radius}; }
    json operator()(const KivShape::Ellipse& s) const { return {s.cx, s.cy, s.radius1, s.radius2, s.angle}; }
    json operator()(const KivShape::Ring& s) const { return {s.cx, s.cy, s.inner, s.outer}; }
    json operator()(const KivShape::RingSector& s) const { return {s.cx, s.cy, s.inner, s.outer, s.start, s.sweep}; }
    json operator()(const KivShape::Mask& s) const { return json::array({written(s.runs)}); }
    json operator()(const KivShape::Polygon& s) const { return json::array({numbers_of(s.points)}); }
    json operator()(const KivShape::OpenCurve& s) const { return json::array({numbers_of(s.points)}); }
};

json written(const KivROI& roi)
{
    const IKivROIPara& parameters = roi.Parameters();
    const int type =
        std::visit([](const auto& shape) { return std::decay_t<decltype(shape)>::type; }, parameters.Shape());
    return {{"roi", {type, std::visit(ShapeWriter(), parameters.Shape()), parameters.Width(), parameters.Height()}}};
}

json written(const KivContour& contour)
{
    return {{"points", numbers_of(contour.AllPoints())}};
}

json written(const KivContourArray& contours)
{
    json list = json::array();
    for (const KivContour& contour : contours) {
        list.push_back(written(contour));
    }
    return list;
}

json written(const KivPointArray& points)
{
    json numbers = json::array();
    for (const KivPoint& point : points.Points()) {
        numbers.push_back(written(point.x));
        numbers.push_back(written(point.y));
    }
    return {{"points", numbers}};
}

json written(const KivVarArray& values)
{
    json list = json::array();
    for (int i = 0; i < values.Length(); ++i) {
        const KivVar& value = values[i];
        list.push_back(value.ValType() == KivVar::TextKind     ? json(value.S())
                       : value.ValType() == KivVar::DoubleKind ? written(value.D())
                                                               : json(value.I()));
    }
    return list;
}

json written(const cv::Mat& pixels)
{
    const int channels = pixels.channels();
    json values = json::array();
    cv::Mat doubles;
    pixels.reshape(1).convertTo(doubles, CV_64F);
    for (int row = 0; row < doubles.rows; ++row) {
        for (int column = 0; column < doubles.cols; ++column) {
            values.push_back(written(doubles.at<double>(row, column)));
        }
    }
    json shape = {pixels.rows, pixels.cols};
    if (channels > 1) {
        shape.push_back(channels);
    }
    const char* const type = pixels.depth() == CV_8U ? "uint8" : pixels.depth() == CV_16U ? "uint16" : "float64";
    return {{"array", type}, {"shape", shape}, {"values", values}};
}

json written(const KivImage& image)
{
    return written(image.Mat());
}

json written(const KivMatrix& matrix)
{
    return written(matrix.Mat());
}

/// Prints a call: what it does to results that are made anew.
template <class... Results, class Call, class... Arguments>
void print(const char* name, Call call, const Arguments&... arguments)
{
    json line{name, json::array({written(arguments)...})};
    std::tuple<Results...> results;
    try {
        const int code = std::apply([&](auto&... result) { return call(&result...); }, results);
        line.push_back(code);
        if (code == KIVMV::KIVMV_OK) {
            std::apply([&](const auto&... result) { (line.push_back(written(result)), ...); }, results);
        }
    } catch (const std::exception&) {
        line.push_back("exception");
    }
    std::cout << line << '\n';
}

template <class A, class Result>
void print_call(const char* name, int (*function)(A&, Result*), A a)
{
    print<Result>(
        name, [&](Result* result) { return function(a, result); }, a);
}

template <class A>
void print_call(const char* name, int (*function)(KivImage*, A&), A a)
{
    print<KivImage>(
        name, [&](KivImage* result) { return function(result, a); }, a);
}

template <class A>
void print_call(const char* name, int (*function)(A&, KivVarArray*, KivVarArray*), A a)
{
    print<KivVarArray, KivVarArray>(
        name, [&](KivVarArray* xs, KivVarArray* ys) { return function(a, xs, ys); }, a);
}

template <class A, class Result>
void print_call(const char* name, int (*function)(A&, A&, Result*), A a, A b)
{
    print<Result>(
        name, [&](Result* result) { return function(a, b, result); }, a, b);
}

bool is_small(int width, int height)
{
    return width < 100 && height < 100;
}

#define PRINT(function, ...) print_call(#function, KIVMV::function, __VA_ARGS__)

void print_set_operations(fuzz::FuzzedBytes bytes)
{
    const KivRegion a = bytes.region();
    const KivRegion b = bytes.region();
    PRINT(KivRegionAdd, a, b);
    PRINT(KivRegionAnd, a, b);
    PRINT(KivRegionSub, a, b);
    PRINT(KivRegionNot, a);
    PRINT(KivRegionToROI, a);
}

void print_roi_operations(fuzz::FuzzedBytes bytes)
{
    const KivROI a = bytes.roi();
    const KivROI b = bytes.roi();
    PRINT(KivROIAdd, a, b);
    PRINT(KivROIAnd, a, b);
    PRINT(KivROISub, a, b);
    PRINT(KivROINot, a);
}

void print_rasters(fuzz::FuzzedBytes bytes)
{
    const KivRegion region = bytes.region();
    if (is_small(region.Width(), region.Height())) {
        PRINT(KivRegionToVarArray, region);
        PRINT(KivRegionToPointArray, region);
        PRINT(KivRegionToBinImage, region);
        PRINT(KivRegionToContourArray, region);
        const int foreground = bytes.coordinate();
        const int background = bytes.digit();
        const int width = bytes.digit();
        const int height = bytes.digit();
        print<KivImage>(
            "KivRegionToImage",
            [&](KivImage* image) {
                KivRegion given = region;
                return KIVMV::KivRegionToImage(image, given, foreground, background, width, height);
            },
            region, foreground, background, width, height);
    }
}

void print_shapes(fuzz::FuzzedBytes bytes)
{
    const int width = bytes.digit();
    const KivROI roi(bytes.shape(), width, bytes.digit());
    PRINT(KivROIToRegion, roi);
    PRINT(KivROIToBinImage, roi);
    PRINT(KivROIToContourArray, roi);
}

void print_points(fuzz::FuzzedBytes bytes)
{
    KivVarArray xs;
    KivVarArray ys;
    KivContour::Points fine;
    KivContour::Points near;
    std::vector<KivPoint> points;
    for (int left = bytes.digit(); left > 0; --left) {
        xs.Append(left % 3 == 0 ? KivVar(bytes.digit() / 2.0) : KivVar(bytes.digit()));
        ys.Append(left % 5 == 0 ? KivVar(std::to_string(bytes.digit())) : KivVar(bytes.digit()));
        const double x = bytes.fine_coordinate();
        fine.emplace_back(x, bytes.fine_coordinate());
        near.emplace_back(bytes.digit() / 2.0, bytes.digit());
        points.push_back(KivPoint{near.back().x, near.back().y});
    }
    PRINT(KivVarArrayToRegion, xs, ys);
    PRINT(KivVarArrayToContour, xs, ys);
    PRINT(KivPointArrayToRegion, KivPointArray(points));
    PRINT(KivPointArrayToContour, KivPointArray(points));
    PRINT(KivContourToVarArray, KivContour(fine));
    PRINT(KivContourToPointArray, KivContour(fine));
    PRINT(KivContourToRegion, KivContour(near));
    KivContourArray contours;
    contours.Append(KivContour(near));
    contours.Append(KivContour({{1.0, 1.0}, {5.0, 1.0}, {3.0, 6.0}}));
    const int width = bytes.digit();
    const int height = bytes.digit();
    KivContourArray given = contours;
    print<KivRegion>(
        "KivContourArrayToRegion",
        [&](KivRegion* region) { return KIVMV::KivContourArrayToRegion(given, width, height, region); }, contours,
        width, height);
    print<KivImage>(
        "KivContourArrayToBinImage",
        [&](KivImage* image) { return KIVMV::KivContourArrayToBinImage(image, given, width, height); }, contours, width,
        height);
    print<int>(
        "maxbit",
        [&](int* bits) {
            *bits = KIVMV::maxbit(xs);
            return KIVMV::KIVMV_OK;
        },
        xs);
    const auto sorted = [&](KivVarArray* rows, KivVarArray* begins, KivVarArray* ends) {
        *rows = xs;
        *begins = ys;
        *ends = xs;
        KIVMV::radixsort(*rows, *begins, *ends);
        return KIVMV::KIVMV_OK;
    };
    print<KivVarArray, KivVarArray, KivVarArray>("radixsort", sorted, xs, ys, xs);
}

/// The picture, and what functions refuse or read differently: several channels, 16 bits, no pixels.
std::vector<KivImage> images_of(const cv::Mat& picture)
{
    cv::Mat channels[2];
    cv::merge(std::vector<cv::Mat>(2, picture), channels[0]);
    cv::merge(std::vector<cv::Mat>(3, picture), channels[1]);
    cv::Mat wide;
    picture.convertTo(wide, CV_16U);
    return {KivImage(picture), KivImage(channels[0]), KivImage(channels[1]), KivImage(wide),
            KivImage(cv::Mat(0, 0, CV_8UC1))};
}

void print_images(fuzz::FuzzedBytes bytes)
{
    const bool add = bytes.digit() % 2 == 1;
    const KivContour contour({{double(bytes.digit()), double(bytes.digit())}, {4.0, 2.0}, {2.0, 9.0}});
    cv::Mat pixels = bytes.picture();
    for (const KivImage& image : images_of(pixels)) {
        PRINT(KivImageToRegion, image);
        PRINT(KivBinImageToRegion, image);
        PRINT(KivBinImageToROI, image);
        PRINT(KivBinImageToContourArray, image);
        PRINT(KivImageToMatrix, image);
        print<KivContourArray>(
            "KivMergContour",
            [&](KivContourArray* contours) {
                KivImage given_image(image.Mat().clone());
                KivContour given_contour(contour);
                return KIVMV::KivMergContour(given_image, given_contour, add, contours);
            },
            image, contour, add);
    }
    cv::Mat halves;
    pixels.convertTo(halves, CV_64F, 1.5, -20.0);
    PRINT(KivMatrixToImage, KivMatrix(halves));
}

} // namespace

int main(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i) {
        std::ifstream file(argv[i], std::ios::binary);
        const std::vector<char> content{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
        const fuzz::FuzzedBytes bytes(reinterpret_cast<const std::uint8_t*>(content.data()), content.size());
        for (const auto print_calls :
             {print_set_operations, print_roi_operations, print_rasters, print_shapes, print_points, print_images}) {
            print_calls(bytes);
        }
    }
    return std::cout.flush() ? 0 : 1;
}
