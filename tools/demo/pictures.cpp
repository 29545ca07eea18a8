// SPDX-License-Identifier: MIT
#include "demo/pictures.h"

#include "kivconvert/errors.h"
#include "kivconvert/result_codes.h"

#include <KivDataConvert/KivDataConvert.h>

#include <fmt/format.h>
#include <opencv2/imgcodecs.hpp>
#include <opencv2/imgproc.hpp>

namespace demo
{
namespace
{

constexpr int columns = 3;
constexpr int margin = 8;
constexpr int caption_height = 26;
const cv::Size largest_tile(400, 300);

void write_picture(const std::string& path, const cv::Mat& pixels, const std::vector<int>& parameters = {})
{
    if (!cv::imwrite(path, pixels, parameters)) {
        throw kivconvert::FileError(path, "cannot be written");
    }
}

cv::Mat tile_of(const Picture& picture, cv::Size size)
{
    cv::Mat small;
    cv::resize(picture.pixels, small, size, 0.0, 0.0, cv::INTER_AREA);
    if (small.channels() == 1) {
        cv::cvtColor(small, small, cv::COLOR_GRAY2BGR);
    }
    cv::copyMakeBorder(small, small, margin, caption_height, margin, 0, cv::BORDER_CONSTANT, cv::Scalar::all(255));
    const cv::Point baseline(margin, small.rows - 8);
    cv::putText(small, picture.caption, baseline, cv::FONT_HERSHEY_SIMPLEX, 0.5, cv::Scalar::all(40), 1, cv::LINE_AA);
    return small;
}

/// The size of a picture, shrunk to fit a tile.
cv::Size tile_size(cv::Size size)
{
    const double shrink = std::min(static_cast<double>(largest_tile.width) / size.width,
                                   static_cast<double>(largest_tile.height) / size.height);
    return {std::max(1, cvRound(size.width * shrink)), std::max(1, cvRound(size.height * shrink))};
}

} // namespace

KivImage read_camera_picture(const std::string& path)
{
    const cv::Mat pixels = cv::imread(path, cv::IMREAD_GRAYSCALE);
    if (pixels.empty()) {
        throw kivconvert::FileError(path, "cannot be read, or is no picture of a known format");
    }
    if (std::min(pixels.cols, pixels.rows) < 2) {
        throw kivconvert::FileError(path, "is smaller than 2 x 2 pixels");
    }
    return KivImage(pixels);
}

cv::Mat mask_of(KivRegion& region)
{
    KivImage image;
    kivconvert::expect_success(KIVMV::KivRegionToBinImage(&image, region), "mask");
    return image.Mat();
}

cv::Mat tinted(const Inspection& inspection, KivRegion& region, const cv::Scalar& colour)
{
    cv::Mat dark;
    cv::cvtColor(inspection.camera.Mat() * 0.6, dark, cv::COLOR_GRAY2BGR);
    const cv::Mat paint(dark.size(), dark.type(), colour);
    cv::Mat painted;
    cv::addWeighted(dark, 0.7, paint, 0.6, 0.0, painted);
    painted.copyTo(dark, mask_of(region));
    return dark;
}

void draw_contour(cv::Mat& picture, const KivContour& contour, const cv::Scalar& colour, int thickness)
{
    const std::vector<cv::Point> pixels(contour.AllPoints().begin(), contour.AllPoints().end());
    cv::polylines(picture, std::vector<std::vector<cv::Point>>{pixels}, true, colour, thickness, cv::LINE_AA);
}

std::string add_picture(Inspection& inspection, const std::string& name, const std::string& caption,
                        const cv::Mat& pixels)
{
    std::string file = fmt::format("{}/{:02}-{}.png", inspection.folder, inspection.pictures.size() + 1, name);
    write_picture(file, pixels);
    inspection.pictures.push_back({name, file, caption, pixels.clone()});
    return file;
}

void write_contact_sheet(const Inspection& inspection)
{
    const cv::Size size = tile_size(inspection.camera.Mat().size());
    const cv::Size cell = size + cv::Size(margin, margin + caption_height);
    const int count = static_cast<int>(inspection.pictures.size());
    const int rows = (count + columns - 1) / columns;
    cv::Mat sheet(rows * cell.height, columns * cell.width + margin, CV_8UC3, cv::Scalar::all(255));
    for (int i = 0; i < count; ++i) {
        const cv::Point corner(i % columns * cell.width, i / columns * cell.height);
        tile_of(inspection.pictures[static_cast<std::size_t>(i)], size).copyTo(sheet(cv::Rect(corner, cell)));
    }
    write_picture(inspection.folder + "/contact-sheet.jpg", sheet, {cv::IMWRITE_JPEG_QUALITY, 88});
}

} // namespace demo
