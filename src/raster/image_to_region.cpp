// SPDX-License-Identifier: MIT
// The two conversions of an image to a region. They reject different images, in different orders, because one accepts
// everything that can be read as bytes and the other requires a binary image.
#include "foundation/first_member.h"
#include "seam/data_types.h"

#include <KivDataConvert/KivDataConvert.h>

namespace
{

/// Replaces `region` by the foreground of the image, in the frame of the image.
void image_to_region(const KivImage& image, kiv::MaskBytes bytes, KivRegion& region)
{
    kiv::create_region(region, {image.Width(), image.Height()}, kiv::runs_of_image(kiv::matrix_of(image), bytes));
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

    image_to_region(image, kiv::MaskBytes::normalised, *region);
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

    image_to_region(image, kiv::MaskBytes::as_stored, *region);
    return KIVMV_OK;
}
