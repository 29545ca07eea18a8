// SPDX-License-Identifier: MIT
#include "demo/scene/camera.h"

#include <algorithm>
#include <cmath>
#include <opencv2/imgproc.hpp>

namespace demo::scene
{
namespace
{

/// The lamp's spot lies left above the middle; the lens darkens towards the corners.
double light_at(double x, double y)
{
    const double from_spot = std::hypot(x + 0.35, y + 0.3);
    const double spot = 0.95 + 0.68 * std::exp(-from_spot * from_spot / 1.1);
    const double cosine = 1.0 / std::sqrt(1.0 + 0.3 * (x * x + y * y));
    return spot * std::pow(cosine, 4.0);
}

void apply_light(cv::Mat1f& picture)
{
    const double half_width = picture.cols / 2.0;
    for (int row = 0; row < picture.rows; ++row) {
        for (int column = 0; column < picture.cols; ++column) {
            const double x = (column - half_width) / half_width;
            const double y = (row - picture.rows / 2.0) / half_width;
            picture(row, column) *= static_cast<float>(light_at(x, y));
        }
    }
}

/// Noise that grows with the root of the light, as photons arrive, and a little from the electronics.
void apply_noise(cv::Mat1f& grey, cv::RNG& random)
{
    cv::Mat1f photons(grey.size());
    cv::Mat1f electronics(grey.size());
    random.fill(photons, cv::RNG::NORMAL, 0.0, 0.22);
    random.fill(electronics, cv::RNG::NORMAL, 0.0, 1.3);
    cv::Mat1f root;
    cv::sqrt(grey, root);
    cv::multiply(photons, root, photons);
    grey += photons;
    grey += electronics;
}

} // namespace

cv::Mat take_picture(const cv::Mat1f& brightness, cv::Size resolution, cv::RNG& random)
{
    cv::Mat1f picture = brightness.clone();
    apply_light(picture);
    cv::GaussianBlur(picture, picture, {}, 1.4);
    cv::Mat1f sensor;
    cv::resize(picture, sensor, resolution, 0.0, 0.0, cv::INTER_AREA);
    cv::max(sensor, 0.0, sensor);
    cv::pow(sensor, 1.0 / 1.35, sensor);
    sensor *= 255.0;
    apply_noise(sensor, random);
    cv::Mat grey;
    sensor.convertTo(grey, CV_8U);
    return grey;
}

} // namespace demo::scene
