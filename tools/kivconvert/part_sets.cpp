// SPDX-License-Identifier: MIT
#include "kivconvert/part_sets.h"

#include "kivconvert/label_images.h"
#include "kivconvert/placed_pixels.h"

#include <KivRLC/KivRunComponents.h>

#include <algorithm>
#include <cstdint>
#include <utility>

namespace kivconvert
{
namespace
{

Parts components_of(const std::string& input, const Frame& frame, const ImagePart& part,
                    KivRuns::Connectivity connectivity)
{
    const PlacedPixels placed = read_pixels(input, frame, part);
    return {numbered_components(placed.pixels, connectivity), placed.frame};
}

Parts labels_in(const std::string& input, const Frame&, const ImagePart& part, KivRuns::Connectivity)
{
    const KivImage image = read_image(input, part);
    return {labels_of(image.Mat(), input), {image.Width(), image.Height()}};
}

Parts whole_of(const std::string& input, const Frame& frame, const ImagePart& part, KivRuns::Connectivity)
{
    PlacedPixels placed = read_pixels(input, frame, part);
    return {{{1, std::move(placed.pixels)}}, placed.frame};
}

} // namespace

const std::vector<PartKind>& part_kinds()
{
    static const std::vector<PartKind> kinds = {
        {"component", components_of, true}, {"label", labels_in, true}, {"file", whole_of, false}};
    return kinds;
}

const PartKind* find_part_kind(const std::string& name)
{
    const auto kind = std::find_if(part_kinds().begin(), part_kinds().end(),
                                   [&name](const PartKind& each) { return name == each.name; });
    return kind == part_kinds().end() ? nullptr : &*kind;
}

std::vector<KivRuns::LabelledSet> numbered_components(const KivRunSet& pixels, KivRuns::Connectivity connectivity)
{
    std::vector<KivRuns::LabelledSet> numbered;
    for (KivRunSet& component : KivRuns::Components(pixels, connectivity)) {
        numbered.push_back({static_cast<std::int32_t>(numbered.size()) + 1, std::move(component)});
    }
    return numbered;
}

} // namespace kivconvert
