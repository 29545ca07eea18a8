// SPDX-License-Identifier: MIT
#include "kivconvert/coco_data_set.h"

#include "kivconvert/errors.h"
#include "kivconvert/files.h"
#include "kivconvert/json_formats.h"
#include "kivconvert/memory_limit.h"
#include "kivconvert/point_files.h"
#include "kivconvert/system.h"
#include "kivconvert/visible_pixels.h"

#include <KivData/KivRunPolygons.h>

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <optional>
#include <unistd.h>
#include <utility>

namespace kivconvert
{
namespace
{

constexpr std::size_t least_numbers = 6; // of three corners

/// An element by its line and, if it has one, its id.
std::string subject_of(const std::string& path, const char* kind, std::size_t line, std::int64_t id)
{
    return id == no_coco_id ? fmt::format("{}:{}: {}", path, line, kind)
                            : fmt::format("{}:{}: {} {}", path, line, kind, id);
}

std::string subject_of(const std::string& path, const CocoEntry& entry)
{
    return subject_of(path, "annotation", entry.line, entry.id);
}

std::string text_member(const Json& object, const char* name)
{
    const auto member = object.find(name);
    return member != object.end() && member->is_string() ? member->get<std::string>() : std::string();
}

/// The corners of one polygon, as points of which pixel (0, 0) has the centre (0, 0).
std::vector<cv::Point2d> ring_of(const Json& numbers, const std::string& subject)
{
    const auto is_coordinate = [](const Json& number) {
        return number.is_number() && std::abs(number.get<double>()) <= farthest_coordinate;
    };
    if (!numbers.is_array() || numbers.size() < least_numbers || numbers.size() % 2 != 0 ||
        !std::all_of(numbers.begin(), numbers.end(), is_coordinate)) {
        throw InputError(subject, fmt::format("a polygon is no array of an even number of at least {} numbers from "
                                              "-{} to {}",
                                              least_numbers, farthest_coordinate, farthest_coordinate));
    }
    constexpr double half_a_pixel = 0.5;
    std::vector<cv::Point2d> ring;
    ring.reserve(numbers.size() / 2);
    for (std::size_t i = 0; i < numbers.size(); i += 2) {
        ring.emplace_back(numbers[i].get<double>() - half_a_pixel, numbers[i + 1].get<double>() - half_a_pixel);
    }
    return ring;
}

PlacedPixels counts_of(const Json& segmentation, const std::optional<Frame>& frame, const std::string& subject)
{
    const KivRegion region = read_coco(segmentation, subject);
    if (frame && (region.Width() != frame->width || region.Height() != frame->height)) {
        throw InputError(subject, fmt::format("\"size\" is {} x {}, but that of the image {} x {}", region.Height(),
                                              region.Width(), frame->height, frame->width));
    }
    return {visible_pixels(region), {region.Width(), region.Height()}};
}

template <class Names>
std::string name_or_id(const Names& names, std::int64_t id)
{
    const auto name = names.find(id);
    return name != names.end() ? name->second : id == no_coco_id ? std::string() : std::to_string(id);
}

} // namespace

CocoDataSet::CocoDataSet(const std::string& path) : path_(path)
{
    read_coco_stream(path_, [this](const CocoElement& element) { add(element); });
    descriptor_ = dup(fileno(open_input(path_).get()));
}

CocoDataSet::~CocoDataSet()
{
    close(descriptor_);
}

CocoEntry CocoDataSet::entry_of(const CocoElement& element, std::size_t position)
{
    return {element.offset,
            element.id == no_coco_id ? static_cast<std::int64_t>(position) : element.id,
            element.image,
            element.category,
            static_cast<std::uint32_t>(element.text.size()),
            static_cast<std::uint32_t>(element.line),
            element.form};
}

void CocoDataSet::add(const CocoElement& element)
{
    switch (element.section) {
    case CocoSection::images:
        add_image(element);
        break;
    case CocoSection::categories:
        add_category(element);
        break;
    case CocoSection::annotations:
        entries_.push_back(entry_of(element, entries_.size() + 1));
        break;
    case CocoSection::other:
        break;
    }
}

void CocoDataSet::add_image(const CocoElement& element)
{
    const std::string subject = subject_of(path_, "image", element.line, element.id);
    if (element.id == no_coco_id) {
        throw InputError(subject, "has no \"id\" that is a whole number");
    }
    const Json image = Json::parse(element.text);
    const Frame frame = {read_size(image, "width", subject), read_size(image, "height", subject)};
    expect_possible_frame(subject, frame.width, frame.height);
    const std::string name = text_member(image, "file_name");
    images_.insert_or_assign(element.id, CocoImage{name.empty() ? std::to_string(element.id) : name, frame});
}

void CocoDataSet::add_category(const CocoElement& element)
{
    if (element.id == no_coco_id) {
        throw InputError(subject_of(path_, "category", element.line, element.id),
                         "has no \"id\" that is a whole number");
    }
    const std::string name = text_member(Json::parse(element.text), "name");
    if (!name.empty()) {
        categories_.insert_or_assign(element.id, name);
    }
}

std::string CocoDataSet::image_name(std::int64_t id) const
{
    const auto image = images_.find(id);
    return image != images_.end() ? image->second.name : id == no_coco_id ? std::string() : std::to_string(id);
}

std::string CocoDataSet::category_name(std::int64_t id) const
{
    return name_or_id(categories_, id);
}

std::string CocoDataSet::text_of(const CocoEntry& entry) const
{
    std::string text(entry.length, '\0');
    if (!system::read_at(descriptor_, entry.offset, text.data(), text.size())) {
        throw InputError(subject_of(path_, entry), "cannot be read");
    }
    return text;
}

PlacedPixels CocoDataSet::pixels_of(const CocoEntry& entry) const
{
    return pixels_of(entry, text_of(entry));
}

PlacedPixels CocoDataSet::pixels_of(const CocoEntry& entry, std::string_view text) const
{
    const std::string subject = subject_of(path_, entry);
    if (text.empty()) {
        throw InputError(subject, "is no JSON object");
    }
    const Json annotation = parse_json_object(text, subject);
    const auto segmentation = annotation.find("segmentation");
    if (segmentation == annotation.end() || !segmentation->is_structured()) {
        throw InputError(subject, "\"segmentation\" is neither polygons nor counts");
    }
    const auto image = images_.find(entry.image);
    if (segmentation->is_object()) {
        return counts_of(*segmentation, image == images_.end() ? std::nullopt : std::optional(image->second.frame),
                         subject);
    }
    if (image == images_.end()) {
        throw InputError(subject, "has polygons, but its image and so its size is not in the file");
    }
    return {polygons_of(*segmentation, image->second.frame, subject), image->second.frame};
}

KivRunSet CocoDataSet::polygons_of(const Json& segmentation, const Frame& frame, const std::string& subject) const
{
    std::vector<KivRunSet> polygons;
    for (const Json& numbers : segmentation) {
        polygons.push_back(KivRuns::FromPolygons({ring_of(numbers, subject)}, frame.width, frame.height));
    }
    return KivRunSet::Union(polygons);
}

bool CocoDataSet::is_chosen(const CocoEntry& entry, const CocoChoice& choice) const
{
    const auto is = [](const std::string& wanted, std::int64_t id, const std::string& name) {
        return wanted.empty() || wanted == name || wanted == std::to_string(id);
    };
    return (!choice.annotation || *choice.annotation == entry.id) &&
           is(choice.image, entry.image, image_name(entry.image)) &&
           is(choice.category, entry.category, category_name(entry.category));
}

PlacedPixels CocoDataSet::pixels_of(const CocoChoice& choice) const
{
    if (!choice.is_made()) {
        throw FileError(path_, "is a COCO data set; --annotation, --of-image or --category says what to take of it");
    }
    std::optional<PlacedPixels> chosen;
    for (const CocoEntry& entry : entries_) {
        if (!is_chosen(entry, choice)) {
            continue;
        }
        const PlacedPixels placed = pixels_of(entry);
        if (!chosen) {
            chosen = placed;
            continue;
        }
        if (placed.frame.width != chosen->frame.width || placed.frame.height != chosen->frame.height) {
            throw FileError(path_, "has what is chosen in images of different sizes; --of-image chooses one");
        }
        chosen->pixels |= placed.pixels;
    }
    if (!chosen) {
        throw FileError(path_, "has no such annotation");
    }
    return *chosen;
}

} // namespace kivconvert
