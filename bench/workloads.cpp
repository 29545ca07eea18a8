// SPDX-License-Identifier: MIT
#include "workloads.h"

#include <opencv2/imgproc.hpp>

#include <initializer_list>
#include <memory>
#include <utility>

namespace bench
{
namespace
{

cv::Mat moved(const cv::Mat& mask, cv::Point shift)
{
    cv::Mat result = cv::Mat::zeros(mask.size(), mask.type());
    const cv::Rect whole(cv::Point(0, 0), mask.size());
    const cv::Rect target = (whole + shift) & whole;
    mask(target - shift).copyTo(result(target));
    return result;
}

/// Room at the end of the mask, with one run on each of the given rows, counted from the last one.
cv::Mat ends_apart(cv::Mat mask, std::initializer_list<int> rows_from_last)
{
    mask.rowRange(mask.rows - 4, mask.rows).setTo(0);
    for (const int row : rows_from_last) {
        mask.row(mask.rows - 1 - row).colRange(0, 3).setTo(255);
    }
    return mask;
}

Workloads growing(cv::Mat (*make)(int factor))
{
    static std::vector<std::unique_ptr<Workload>> kept;
    Workloads made;
    for (const int factor : {1, 4, 16}) {
        const cv::Point shift(3, 2);
        kept.push_back(std::make_unique<Workload>("growth_" + std::to_string(factor), make(factor), shift));
        made.push_back(kept.back().get());
    }
    return made;
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

Workload::Workload(std::string its_name, const cv::Mat& mask, cv::Point shift)
    : name(std::move(its_name)), a(ends_apart(mask.clone(), {2, 1})), b(ends_apart(moved(mask, shift), {0}))
{
}

const Workloads& workloads()
{
    static Workload blobs_at("blobs", blobs({3840, 2160}, 200, 1), {40, 25});
    static Workload strokes_at("strokes", strokes({2048, 2048}, 80, 2), {3, 2});
    static Workload noise_at("noise", noise({1920, 1080}, 3), {5, 3});
    static Workload ring_at("ring", ring({8192, 8192}), {300, 200});
    static Workload tall_at("tall", tall(100000, 4), {20, 0});
    static Workload small_at("small", blobs({64, 64}, 3, 5), {2, 1});
    static const Workloads all = {&blobs_at, &strokes_at, &noise_at, &ring_at, &tall_at, &small_at};
    return all;
}

const Workloads& lighter_workloads()
{
    static Workload strokes_at("few_strokes", strokes({512, 512}, 20, 2), {3, 2});
    static Workload noise_at("little_noise", noise({240, 135}, 3), {5, 3});
    static const Workloads all = [] {
        Workloads some = workloads();
        some[1] = &strokes_at;
        some[2] = &noise_at;
        return some;
    }();
    return all;
}

const Workloads& growing_rows()
{
    static const Workloads all = growing([](int factor) { return strokes({256, 4096 * factor}, 160 * factor, 2); });
    return all;
}

const Workloads& few_growing_rows()
{
    static const Workloads all = growing([](int factor) { return strokes({512, 256 * factor}, 10 * factor, 2); });
    return all;
}

const Workloads& growing_outline()
{
    static const Workloads all = growing([](int factor) { return tall(1000 * factor, 4); });
    return all;
}

} // namespace bench
