// SPDX-License-Identifier: MIT
#include "foundation/first_member.h"
#include "raster/rounded_bytes.h"

#include <KivDataConvert/KivDataConvert.h>

namespace
{

cv::Mat byte_copy_of(const cv::Mat& matrix)
{
    static const bool opencv_rounds_alike = kiv::opencv_rounds_alike();
    const bool is_left_to_opencv = opencv_rounds_alike || matrix.depth() < CV_32F || matrix.empty();
    // Of bytes, the conversion is a plain copy.
    return is_left_to_opencv ? kiv::converted_bytes(matrix) : kiv::rounded_bytes(matrix);
}

} // namespace

int KIVMV::KivMatrixToImage(KivImage* image, KivMatrix& matrix)
{
    const cv::Mat& source = kiv::matrix_of(matrix);
    if (source.rows < 1) {
        return KIVMV_ERR_PARAM_1;
    }

    kiv::matrix_of(*image) = byte_copy_of(source);
    return KIVMV_OK;
}
