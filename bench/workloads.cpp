// SPDX-License-Identifier: MIT
#include "workloads.h"

#include <KivDataConvert/KivDataConvert.h>

#include <opencv2/imgproc.hpp>

#include <stdexcept>
#include <utility>

namespace bench
{
namespace
{

KivRegion region_of(const cv::Mat& mask)
{
    KivImage image(mask);
    KivRegion region;
    if (KIVMV::KivBinImageToRegion(image, &region) != KIVMV::KIVMV_OK) {
        throw std::logic_error("workloads: a mask that is no binary image");
    }
    return region;
}

cv::Mat moved(const cv::Mat& mask, cv::Point shift)
{
    cv::Mat result = cv::Mat::zeros(mask.size(), mask.type());
    const cv::Rect whole(cv::Point(0, 0), mask.size());
    const cv::Rect target = (whole + shift) & whole;
    mask(target - shift).copyTo(result(target));
    return result;
}

} // namespace

cv::Mat blobs(cv::Size size, int count, unsigned seed)
{
    cv::Mat mask = cv::Mat::zeros(size, CV_8UC1);
    cv::RNG random(seed);
    const int largest = size.height / 12;
    for (int i = 0; i < count; ++i) {
        const cv::Point centre(random.uniform(0, size.width), random.uniform(0, size.height));
        const cv::Size axes(random.uniform(3, largest), random.uniform(3, largest));
        cv::ellipse(mask, centre, axes, random.uniform(0, 180), 0, 360, cv::Scalar(255), -1);
    }
    return mask;
}

cv::Mat strokes(cv::Size size, int lines, unsigned seed)
{
    cv::Mat mask = cv::Mat::zeros(size, CV_8UC1);
    cv::RNG random(seed);
    const int pitch = size.height / lines;
    for (int line = 0; line < lines; ++line) {
        const int top = line * pitch;
        for (int x = 8; x + 16 < size.width; x += random.uniform(10, 16)) {
            for (int stroke = random.uniform(1, 4); stroke > 0; --stroke) {
                const auto corner = [&] {
                    return cv::Point(x + random.uniform(0, 9), top + random.uniform(2, pitch - 2));
                };
                cv::line(mask, corner(), corner(), cv::Scalar(255), 2);
            }
        }
    }
    return mask;
}

cv::Mat noise(cv::Size size, unsigned seed)
{
    cv::Mat mask(size, CV_8UC1);
    cv::RNG random(seed);
    random.fill(mask, cv::RNG::UNIFORM, 0, 2);
    return mask * 255;
}

cv::Mat ring(cv::Size size)
{
    cv::Mat mask = cv::Mat::zeros(size, CV_8UC1);
    const cv::Point centre(size.width / 2, size.height / 2);
    cv::circle(mask, centre, size.height * 15 / 32, cv::Scalar(255), -1);
    cv::circle(mask, centre, size.height * 12 / 32, cv::Scalar(0), -1);
    return mask;
}

cv::Mat tall(int rows, unsigned seed)
{
    constexpr int width = 256;
    cv::Mat mask = cv::Mat::zeros(rows, width, CV_8UC1);
    cv::RNG random(seed);
    for (int y = 0; y < rows; ++y) {
        const int begin = random.uniform(1, width / 2);
        const int stop = random.uniform(width / 2 + 1, width);
        mask(cv::Rect(begin, y, stop - begin, 1)).setTo(255);
    }
    return mask;
}

Workload workload(std::string name, const cv::Mat& mask, cv::Point shift)
{
    cv::Mat second = moved(mask, shift);
    return {std::move(name), mask, second, region_of(mask), region_of(second)};
}

const std::vector<Workload>& workloads()
{
    static const std::vector<Workload> all = [] {
        std::vector<Workload> made;
        made.push_back(workload("blobs", blobs({3840, 2160}, 200, 1), {40, 25}));
        made.push_back(workload("strokes", strokes({2048, 2048}, 80, 2), {3, 2}));
        made.push_back(workload("noise", noise({1920, 1080}, 3), {5, 3}));
        made.push_back(workload("ring", ring({8192, 8192}), {300, 200}));
        made.push_back(workload("tall", tall(100000, 4), {20, 0}));
        made.push_back(workload("small", blobs({64, 64}, 3, 5), {2, 1}));
        return made;
    }();
    return all;
}

std::vector<Workload> growing(const std::string& kind)
{
    std::vector<Workload> made;
    for (const int factor : {1, 4, 16}) {
        const std::string name = kind + "_" + std::to_string(factor) + "n";
        if (kind == "blobs") {
            // More of the same: a strip of the same height, so that rows get more runs and runs keep their length.
            made.push_back(workload(name, blobs({960 * factor, 1080}, 40 * factor, 1), {40, 25}));
        } else if (kind == "strokes") {
            made.push_back(workload(name, strokes({512, 512 * factor}, 20 * factor, 2), {3, 2}));
        } else if (kind == "tall") {
            made.push_back(workload(name, tall(20000 * factor, 4), {20, 0}));
        } else {
            throw std::invalid_argument("workloads: no growing kind " + kind);
        }
    }
    return made;
}

} // namespace bench
