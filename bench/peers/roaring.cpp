// SPDX-License-Identifier: MIT
// Roaring bitmaps: the set of the pixels' places, counted row by row, in containers that are runs where that is
// shorter.
#include "contest.h"
#include "contestants.h"

#include <roaring/roaring.h>

#include <memory>
#include <string>
#include <vector>

namespace bench
{
namespace
{

struct Free {
    void operator()(roaring_bitmap_t* bitmap) const { roaring_bitmap_free(bitmap); }
};
using Bitmap = std::unique_ptr<roaring_bitmap_t, Free>;

struct PlacesIn {
    Bitmap places;
    cv::Size frame;
};

Outcome outcome_of(const PlacesIn& result)
{
    std::vector<std::uint32_t> places(roaring_bitmap_get_cardinality(result.places.get()));
    roaring_bitmap_to_uint32_array(result.places.get(), places.data());
    cv::Mat mask = cv::Mat::zeros(result.frame, CV_8UC1);
    for (const std::uint32_t place : places) {
        mask.data[place] = 255;
    }
    return {mask};
}

std::uint32_t place_of(int x, int y, int width)
{
    return static_cast<std::uint32_t>(y) * static_cast<std::uint32_t>(width) + static_cast<std::uint32_t>(x);
}

Bitmap bitmap_of(Shape& shape)
{
    Bitmap bitmap(roaring_bitmap_create());
    const int width = shape.mask.cols;
    for (const Run& run : shape.runs()) {
        roaring_bitmap_add_range_closed(bitmap.get(), place_of(run.colBegin, run.row, width),
                                        place_of(run.colEnd, run.row, width));
    }
    roaring_bitmap_run_optimize(bitmap.get());
    roaring_bitmap_shrink_to_fit(bitmap.get());
    return bitmap;
}

/// Enters an operation under the names of several functions.
template <class Function>
void enter_binary(const std::vector<std::string>& names, Workload& work, Function operation)
{
    const auto a = std::make_shared<Lazy<Bitmap>>([&work] { return bitmap_of(work.a); });
    const auto b = std::make_shared<Lazy<Bitmap>>([&work] { return bitmap_of(work.b); });
    for (const std::string& name : names) {
        enter(name, work, "peer:roaring", [&work, a, b, operation] {
            return PlacesIn{Bitmap(operation((*a)().get(), (*b)().get())), work.a.mask.size()};
        });
    }
}

} // namespace
} // namespace bench

void bench::enter_roaring_set_operations(Workload& work)
{
    enter_binary({"KivRegionAnd", "KivROIAnd", "KivRunSetIntersection"}, work, roaring_bitmap_and);
    enter_binary({"KivRegionSub", "KivROISub", "KivRunSetDifference"}, work, roaring_bitmap_andnot);
    enter_binary({"KivRegionNot", "KivROINot", "KivRunSetComplement"}, work,
                 [&work](const roaring_bitmap_t* a, const roaring_bitmap_t*) {
                     return roaring_bitmap_flip(a, 0, work.a.mask.total());
                 });
    enter_binary({"KivRunSetUnion"}, work, roaring_bitmap_or);
    enter_binary({"KivRunSetSymmetricDifference"}, work, roaring_bitmap_xor);
}

void bench::enter_roaring_unions(Workload& work)
{
    enter_binary({"KivRegionAdd", "KivROIAdd"}, work, roaring_bitmap_or);
}
