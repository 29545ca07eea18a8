// SPDX-License-Identifier: MIT
// The two ways from an image to a region. They refuse different images, in different orders, because one takes whatever
// can be read as bytes and the other insists on a binary image.
#include "foundation/bulk.h"
#include "foundation/first_member.h"
#include "foundation/masks.h"

#include <KivDataConvert/KivDataConvert.h>

#include <algorithm>

namespace
{

cv::Mat copy_of(const cv::Mat& pixels)
{
    cv::Mat copy;
    pixels.copyTo(copy);
    return copy;
}

/// A copy whose rows begin with `cols` bytes of 0 or 255. In a mask of several channels the bytes behind them are as
/// they were: the extractor does not look there.
cv::Mat normalised_copy_of(const cv::Mat& pixels)
{
    cv::Mat mask(pixels.rows, pixels.cols, pixels.type());
    const std::size_t row_bytes = static_cast<std::size_t>(pixels.cols) * pixels.elemSize();
    for (int y = 0; y < mask.rows; ++y) {
        const uchar* from = pixels.ptr(y);
        uchar* normalised_end = std::transform(from, from + pixels.cols, mask.ptr(y),
                                               [](uchar byte) { return static_cast<uchar>(byte != 0 ? 255 : 0); });
        std::copy(from + pixels.cols, from + row_bytes, normalised_end);
    }
    return mask;
}

/// The runs of the pixels. An extractor that may write to what it is given gets a copy.
template <class Extractor>
kiv::RunList runs_of(const cv::Mat& pixels, cv::Mat (*copied)(const cv::Mat&))
{
    if constexpr (kiv::ReadsMasks<Extractor>) {
        kiv::RunList runs;
        Extractor::AppendRuns(pixels, runs);
        return runs;
    } else {
        cv::Mat mask = copied(pixels);
        return kiv::extract_runs(mask);
    }
}

/// Makes `region` the foreground of the image, in the image's frame.
void image_to_region(const KivImage& image, cv::Mat (*copied)(const cv::Mat&), KivRegion& region)
{
    const int height = image.Height();
    const kiv::Frame frame{image.Width(), height};
    kiv::create_region(region, frame, runs_of<KivRLC>(kiv::matrix_of(image), copied));
}

} // namespace

int KIVMV::KivImageToRegion(KivImage& image, KivRegion* region)
{
    if (image.Channels() == 3) {
        return KIVMV_ERR_CHANNELS;
    }
    if (image.ImageData() == nullptr) {
        return KIVMV_ERR_NO_IMAGE;
    }
    if (image.BitDepth() != 0) {
        return KIVMV_ERR_BIT_DEPTH;
    }

    image_to_region(image, normalised_copy_of, *region);
    return KIVMV_OK;
}

int KIVMV::KivBinImageToRegion(KivImage& image, KivRegion* region)
{
    if (image.Height() < 1) {
        return KIVMV_ERR_NO_IMAGE;
    }
    if (image.Channels() != 1) {
        return KIVMV_ERR_CHANNELS;
    }
    if (image.BitDepth() != 0) {
        return KIVMV_ERR_BIT_DEPTH;
    }

    image_to_region(image, copy_of, *region);
    return KIVMV_OK;
}
