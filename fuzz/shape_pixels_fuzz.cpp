// SPDX-License-Identifier: MIT
// The runs of a shape cover exactly the pixels that Contains() reports, and for some shapes those that satisfy their
// formula.
#include "inputs.h"
#include "target.h"

#include "support/rasters.h"

#include <KivDataConvert/KivDataConvert.h>

namespace
{

/// Whether the formula of a shape says what `contained` says. Shapes with sines and cosines are not asked.
struct Formula {
    double x;
    double y;
    bool contained;

    bool operator()(const KivShape::Rectangle& box) const
    {
        return contained == (box.left <= x && x <= box.right && box.top <= y && y <= box.bottom);
    }
    bool operator()(const KivShape::Circle& circle) const
    {
        return contained == (distance_squared(circle.cx, circle.cy) <= circle.radius * circle.radius);
    }
    bool operator()(const KivShape::Ring& ring) const
    {
        const double squared = distance_squared(ring.cx, ring.cy);
        return contained == (ring.inner * ring.inner <= squared && squared <= ring.outer * ring.outer);
    }
    template <class Shape>
    bool operator()(const Shape& /*shape*/) const
    {
        return true;
    }

    double distance_squared(double cx, double cy) const { return (x - cx) * (x - cx) + (y - cy) * (y - cy); }
};

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    fuzz::FuzzedBytes input(bytes, size);
    const int width = input.digit();
    const int height = input.digit();
    KivROI roi(input.shape(), width, height);
    cv::Mat pixels = cv::Mat::zeros(height, width, CV_8UC1);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const bool contained = roi.Parameters().Contains(x, y);
            EXPECT_TRUE(std::visit(Formula{double(x), double(y), contained}, roi.Parameters().Shape()));
            pixels.at<unsigned char>(y, x) = contained ? 255 : 0;
        }
    }

    KivRegion region;
    const int code = KIVMV::KivROIToRegion(roi, &region);
    if (width < 1) {
        EXPECT_EQ(code, KIVMV::KIVMV_ERR_PARAM_1);
    } else {
        EXPECT_EQ(code, KIVMV::KIVMV_OK);
        EXPECT_TRUE(support::same_region(region, KivRegion(width, height, support::plain_runs(pixels))));
    }
    return 0;
}
