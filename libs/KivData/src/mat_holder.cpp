// SPDX-License-Identifier: MIT
#include <KivData/KivMatHolder.h>

#include <cstring>

bool KivMatHolder::equals(const KivMatHolder& other) const
{
    if (matrix_.type() != other.matrix_.type() || matrix_.size != other.matrix_.size) {
        return false;
    }
    if (matrix_.empty()) {
        return true;
    }
    const cv::Mat* matrices[] = {&matrix_, &other.matrix_, nullptr};
    uchar* planes[2] = {};
    cv::NAryMatIterator plane(matrices, planes);
    const std::size_t plane_bytes = plane.size * matrix_.elemSize();
    for (std::size_t i = 0; i < plane.nplanes; ++i, ++plane) {
        if (std::memcmp(planes[0], planes[1], plane_bytes) != 0) {
            return false;
        }
    }
    return true;
}
