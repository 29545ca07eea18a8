// SPDX-License-Identifier: MIT
// Pixman's regions: lists of rectangles, of which those that lie below each other are joined.
#include "contest.h"
#include "contestants.h"

#include <pixman.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace bench
{
namespace
{

class PixmanRegion
{
public:
    explicit PixmanRegion(cv::Size its_frame) : frame(its_frame) { pixman_region32_init(&region_); }
    PixmanRegion(const PixmanRegion&) = delete;
    PixmanRegion& operator=(const PixmanRegion&) = delete;
    ~PixmanRegion() { pixman_region32_fini(&region_); }

    pixman_region32_t* get() { return &region_; }

    /// All its rectangles.
    std::pair<const pixman_box32_t*, int> boxes() const
    {
        int count = 0;
        const pixman_box32_t* first = pixman_region32_rectangles(const_cast<pixman_region32_t*>(&region_), &count);
        return {first, count};
    }

    cv::Size frame;

private:
    pixman_region32_t region_;
};

Outcome outcome_of(const std::unique_ptr<PixmanRegion>& region)
{
    const auto [boxes, count] = region->boxes();
    std::vector<Run> runs;
    for (const pixman_box32_t* box = boxes; box != boxes + count; ++box) {
        for (int y = box->y1; y < box->y2; ++y) {
            runs.push_back({y, box->x1, box->x2 - 1});
        }
    }
    return {painted(runs, region->frame), static_cast<double>(runs.size())};
}

struct Unreference {
    void operator()(pixman_image_t* image) const { pixman_image_unref(image); }
};
using PixmanImage = std::unique_ptr<pixman_image_t, Unreference>;

void succeed(pixman_bool_t done)
{
    if (done == 0) {
        throw std::logic_error("a function of Pixman failed");
    }
}

std::unique_ptr<PixmanRegion> region_of(Shape& shape)
{
    std::vector<pixman_box32_t> boxes;
    for (const Run& run : shape.runs()) {
        boxes.push_back({run.colBegin, run.row, run.colEnd + 1, run.row + 1});
    }
    auto region = std::make_unique<PixmanRegion>(shape.mask.size());
    succeed(pixman_region32_init_rects(region->get(), boxes.data(), static_cast<int>(boxes.size())));
    return region;
}

/// One bit for each pixel.
PixmanImage bits_of(const cv::Mat& mask)
{
    PixmanImage image(pixman_image_create_bits(PIXMAN_a1, mask.cols, mask.rows, nullptr, 0));
    std::uint32_t* words = pixman_image_get_data(image.get());
    const int words_in_row = pixman_image_get_stride(image.get()) / 4;
    for (int y = 0; y < mask.rows; ++y) {
        for (int x = 0; x < mask.cols; ++x) {
            if (mask.ptr(y)[x] != 0) {
                words[static_cast<std::ptrdiff_t>(y) * words_in_row + x / 32] |= 1U << (x % 32);
            }
        }
    }
    return image;
}

/// An image of one byte for each pixel that writes to the bytes of a matrix.
PixmanImage image_on(cv::Mat& mask)
{
    return PixmanImage(pixman_image_create_bits(
        PIXMAN_a8, mask.cols, mask.rows, reinterpret_cast<std::uint32_t*>(mask.data), static_cast<int>(mask.step[0])));
}

using LazyRegion = std::shared_ptr<Lazy<std::unique_ptr<PixmanRegion>>>;

LazyRegion lazy_region(Shape& shape)
{
    return std::make_shared<Lazy<std::unique_ptr<PixmanRegion>>>([&shape] { return region_of(shape); });
}

/// Enters an operation under the names of several functions.
template <class Function>
void enter_binary(const std::vector<std::string>& names, Workload& work, Function operation)
{
    const LazyRegion a = lazy_region(work.a);
    const LazyRegion b = lazy_region(work.b);
    for (const std::string& name : names) {
        enter(name, work, "peer:pixman", [&work, a, b, operation] {
            auto out = std::make_unique<PixmanRegion>(work.a.mask.size());
            succeed(operation(out->get(), (*a)()->get(), (*b)()->get()));
            return out;
        });
    }
}

/// What is left of the frame.
pixman_bool_t inverse(pixman_region32_t* out, const pixman_region32_t* a, cv::Size size)
{
    pixman_box32_t frame{0, 0, size.width, size.height};
    return pixman_region32_inverse(out, a, &frame);
}

} // namespace
} // namespace bench

void bench::enter_pixman(Workload& work)
{
    Shape& a = work.a;
    const auto bits = std::make_shared<Lazy<PixmanImage>>([&a] { return bits_of(a.mask); });
    for (const char* function : {"KivImageToRegion", "KivBinImageToRegion", "KivBinImageToROI"}) {
        enter(function, work, "peer:pixman", [&a, bits] {
            auto out = std::make_unique<PixmanRegion>(a.mask.size());
            pixman_region32_init_from_image(out->get(), (*bits)().get());
            return out;
        });
    }
    const LazyRegion region = lazy_region(a);
    for (const char* function : {"KivRegionToImage", "KivRegionToBinImage", "KivROIToBinImage"}) {
        enter(function, work, "peer:pixman", [&a, region] {
            cv::Mat mask = cv::Mat::zeros(a.mask.size(), CV_8UC1);
            const auto [boxes, count] = (*region)()->boxes();
            const pixman_color_t opaque{0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF};
            succeed(pixman_image_fill_boxes(PIXMAN_OP_SRC, image_on(mask).get(), &opaque, count, boxes));
            return mask;
        });
    }
    for (const char* function : {"KivROIToRegion", "KivRegionToROI"}) {
        enter(function, work, "peer:pixman", [&a, region] {
            auto out = std::make_unique<PixmanRegion>(a.mask.size());
            succeed(pixman_region32_copy(out->get(), (*region)()->get()));
            return out;
        });
    }
}

void bench::enter_pixman_set_operations(Workload& work)
{
    const auto inverse_in_frame = [&work](pixman_region32_t* out, const pixman_region32_t* a,
                                          const pixman_region32_t*) { return inverse(out, a, work.a.mask.size()); };
    enter_binary({"KivRegionAnd", "KivROIAnd", "KivRunSetIntersection"}, work, pixman_region32_intersect);
    enter_binary({"KivRegionSub", "KivROISub", "KivRunSetDifference"}, work, pixman_region32_subtract);
    enter_binary({"KivRegionNot", "KivROINot", "KivRunSetComplement"}, work, inverse_in_frame);
    enter_binary({"KivRunSetUnion"}, work, pixman_region32_union);
}

void bench::enter_pixman_unions(Workload& work)
{
    enter_binary({"KivRegionAdd", "KivROIAdd"}, work, pixman_region32_union);
}
