// SPDX-License-Identifier: MIT
// The two ways from an image to a region. They refuse different images, in different orders, because one takes whatever
// can be read as bytes and the other insists on a binary image.
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

/// Makes the first `cols` bytes of each row 0 or 255. In a mask of several channels the bytes behind them stay as they
/// are: the extractor does not look there.
void normalise(cv::Mat& mask)
{
    for (int y = 0; y < mask.rows; ++y) {
        uchar* row = mask.data + static_cast<std::size_t>(y) * mask.step[0];
        std::transform(row, row + mask.cols, row, [](uchar byte) { return static_cast<uchar>(byte != 0 ? 255 : 0); });
    }
}

kiv::Frame frame_of(const KivImage& image)
{
    return {image.Width(), image.Height()};
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

    cv::Mat mask = copy_of(kiv::matrix_of(image));
    normalise(mask);
    kiv::mask_to_region(mask, frame_of(image), *region);
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

    cv::Mat mask = copy_of(kiv::matrix_of(image));
    kiv::mask_to_region(mask, frame_of(image), *region);
    return KIVMV_OK;
}
