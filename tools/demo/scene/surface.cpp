// SPDX-License-Identifier: MIT
// Surfaces are lit by one lamp from the upper left: diffuse light by the slope of the relief, a highlight where it
// mirrors the lamp, and the marks of the machining on top.
#include "demo/scene/surface.h"

#include <algorithm>
#include <cmath>
#include <opencv2/imgproc.hpp>

namespace demo::scene
{
namespace
{

const cv::Vec3d lamp = cv::normalize(cv::Vec3d(-0.42, -0.5, 0.76));
const cv::Vec3d halfway = cv::normalize(lamp + cv::Vec3d(0.0, 0.0, 1.0)); // between lamp and camera

cv::Mat1f brushed_marks(const Part& part, cv::RNG& random)
{
    const cv::Mat1f straight = smooth_noise(part.box.size(), {60.0, 0.7}, random);
    const cv::Point2f middle(0.5F * static_cast<float>(part.box.width), 0.5F * static_cast<float>(part.box.height));
    const cv::Mat turn = cv::getRotationMatrix2D(middle, -part.placement.degrees, 1.0);
    cv::Mat marks;
    cv::warpAffine(straight, marks, turn, part.box.size(), cv::INTER_LINEAR, cv::BORDER_REFLECT);
    marks *= 0.055;
    return marks;
}

/// Rings, and the two bright fans that light makes on them.
cv::Mat1f turned_marks(const Part& part, cv::RNG& random)
{
    const cv::Mat1f rings = smooth_noise({part.box.width, 1}, {1.3, 0.0}, random);
    const double towards_lamp = std::atan2(lamp[1], lamp[0]) - part.placement.degrees * CV_PI / 180.0;
    cv::Mat1f marks(part.box.size());
    for (int row = 0; row < marks.rows; ++row) {
        for (int column = 0; column < marks.cols; ++column) {
            const cv::Point2d point = to_local(part, column, row);
            const int ring = std::min(cvFloor(cv::norm(point) * oversampling), rings.cols - 1);
            const double fan = std::pow(std::abs(std::cos(std::atan2(point.y, point.x) - towards_lamp)), 5.0);
            marks(row, column) = static_cast<float>(0.045 * static_cast<double>(rings(0, ring)) + 0.42 * fan - 0.08);
        }
    }
    return marks;
}

cv::Mat1f machining_marks(const Part& part, cv::RNG& random)
{
    switch (part.finish) {
    case Finish::brushed:
        return brushed_marks(part, random);
    case Finish::turned:
        return turned_marks(part, random);
    case Finish::rolled:
        break;
    }
    return cv::Mat1f(part.box.size(), 0.0F);
}

/// A few long scratches, each a bright or dark hair across the part.
void scratch(cv::Mat1f& marks, int count, cv::RNG& random)
{
    for (int i = 0; i < count; ++i) {
        const cv::Point from(random.uniform(0, marks.cols), random.uniform(0, marks.rows));
        const cv::Point to = from + cv::Point(random.uniform(-160, 160), random.uniform(-90, 90));
        const cv::Point bend = (from + to) / 2 + cv::Point(random.uniform(-12, 12), random.uniform(-12, 12));
        cv::Mat1f hair(marks.size(), 0.0F);
        const std::vector<std::vector<cv::Point>> path = {{from, bend, to}};
        cv::polylines(hair, path, false, cv::Scalar(random.uniform(-0.3, 0.45)), random.uniform(1, 3), cv::LINE_AA);
        marks += hair;
    }
}

double light_on(double slope_x, double slope_y)
{
    const cv::Vec3d normal = cv::normalize(cv::Vec3d(-slope_x, -slope_y, 1.0));
    const double diffuse = std::max(0.0, normal.dot(lamp));
    const double mirrored = std::pow(std::max(0.0, normal.dot(halfway)), 40.0);
    return 0.45 + 0.65 * diffuse + 0.5 * mirrored;
}

cv::Mat1f lit_surface(const Part& part, cv::RNG& random)
{
    const double slope_scale = oversampling / 8.0; // a Sobel filter sums eight differences of one column or row
    cv::Mat1f relief;
    cv::GaussianBlur(part.relief, relief, {}, 1.2);
    cv::Mat1f slope_x;
    cv::Mat1f slope_y;
    cv::Sobel(relief, slope_x, CV_32F, 1, 0, 3, slope_scale);
    cv::Sobel(relief, slope_y, CV_32F, 0, 1, 3, slope_scale);

    cv::Mat1f marks = machining_marks(part, random);
    cv::scaleAdd(smooth_noise(part.box.size(), {40.0, 40.0}, random), 0.05, marks, marks);
    cv::scaleAdd(smooth_noise(part.box.size(), {1.5, 1.5}, random), 0.03, marks, marks);
    scratch(marks, 7, random);
    cv::Mat1f lit(part.box.size());
    for (int row = 0; row < lit.rows; ++row) {
        for (int column = 0; column < lit.cols; ++column) {
            const double light =
                light_on(static_cast<double>(slope_x(row, column)), static_cast<double>(slope_y(row, column)));
            lit(row, column) =
                static_cast<float>(part.reflectance * light * (1.0 + static_cast<double>(marks(row, column))));
        }
    }
    return lit;
}

/// Darkens the picture where the part keeps the lamp's light away, softer the higher the part stands.
void cast_shadow(const Part& part, cv::Mat1f& picture)
{
    const int reach = cvRound(6.0 * part.thickness) * oversampling;
    const cv::Rect whole({}, picture.size());
    const cv::Rect around =
        cv::Rect(part.box.x - reach, part.box.y - reach, part.box.width + 2 * reach, part.box.height + 2 * reach) &
        whole;
    cv::Mat1f cast(whole.size(), 0.0F);
    const cv::Point fall(cvRound(-lamp[0] / lamp[2] * part.thickness * oversampling),
                         cvRound(-lamp[1] / lamp[2] * part.thickness * oversampling));
    const cv::Rect fallen = (part.box + fall) & whole;
    part.outline(fallen - part.box.tl() - fall).convertTo(cast(fallen), CV_32F, 1.0 / 255.0);
    cv::Mat1f light;
    cv::GaussianBlur(cast(around), light, {}, 0.45 * part.thickness * oversampling);
    light.convertTo(light, CV_32F, -0.7, 1.0);
    cv::multiply(picture(around), light, picture(around));
}

} // namespace

cv::Mat1f smooth_noise(cv::Size size, cv::Size2d grain, cv::RNG& random)
{
    cv::Mat1f noise(size);
    random.fill(noise, cv::RNG::NORMAL, 0.0, 1.0);
    cv::GaussianBlur(noise, noise, {}, std::max(grain.width, 0.3), std::max(grain.height, 0.3), cv::BORDER_REFLECT);
    cv::Scalar mean;
    cv::Scalar deviation;
    cv::meanStdDev(noise, mean, deviation);
    const double scale = 1.0 / std::max(deviation[0], 1e-6);
    noise.convertTo(noise, CV_32F, scale, -mean[0] * scale);
    return noise;
}

cv::Mat1f table_surface(cv::Size size, cv::RNG& random)
{
    cv::Mat1f table(size, 0.165F);
    cv::scaleAdd(smooth_noise(size, {1.2, 1.2}, random), 0.008, table, table);
    cv::scaleAdd(smooth_noise(size, {14.0, 0.8}, random), 0.006, table, table);
    cv::scaleAdd(smooth_noise(size, {90.0, 90.0}, random), 0.006, table, table);
    for (int i = 0; i < 220; ++i) {
        const cv::Point speck(random.uniform(0, size.width), random.uniform(0, size.height));
        cv::circle(table, speck, random.uniform(0, 3), cv::Scalar(random.uniform(0.22, 0.42)), cv::FILLED, cv::LINE_AA);
    }
    return table;
}

void lay_down(const Part& part, cv::Mat1f& picture, cv::RNG& random)
{
    cast_shadow(part, picture);
    const cv::Rect visible = part.box & cv::Rect({}, picture.size());
    const cv::Rect inside = visible - part.box.tl();
    cv::Mat1f lit = lit_surface(part, random);
    lit(inside).copyTo(picture(visible), part.outline(inside));
}

} // namespace demo::scene
