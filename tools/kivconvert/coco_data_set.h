// SPDX-License-Identifier: MIT
// COCO data sets: instances files and results lists. What annotations say is read when it is asked for, so that a data
// set takes some tens of bytes of memory an annotation, whatever its size.
#pragma once

#include "kivconvert/coco_stream.h"
#include "kivconvert/image_files.h"
#include "kivconvert/json_reader.h"
#include "kivconvert/placed_pixels.h"

#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <vector>

namespace kivconvert
{

/// An image of a data set.
struct CocoImage {
    std::string name; ///< of its file, or else its id
    Frame frame;
};

/// Where an annotation stands, and what it belongs to.
struct CocoEntry {
    std::uint64_t offset;
    std::int64_t id; ///< in a list without ids, the position, counted from 1
    std::int64_t image;
    std::int64_t category;
    std::uint32_t length;
    std::uint32_t line;
    CocoForm form;
};

/// The file must stay as it is while the object lives. Reading annotations is safe on several threads.
class CocoDataSet
{
public:
    /// @throws FileError if the file cannot be read, is no JSON, or an image or a category of it is malformed
    explicit CocoDataSet(const std::string& path);
    CocoDataSet(const CocoDataSet&) = delete;
    CocoDataSet& operator=(const CocoDataSet&) = delete;
    ~CocoDataSet();

    const std::string& path() const { return path_; }
    const std::deque<CocoEntry>& entries() const { return entries_; }
    const std::map<std::int64_t, CocoImage>& images() const { return images_; }
    const std::map<std::int64_t, std::string>& categories() const { return categories_; }

    /// The name of an image or a category, or its id if it has none.
    std::string image_name(std::int64_t id) const;
    std::string category_name(std::int64_t id) const;

    /// Reads the pixels of an annotation. Polygons are united; the corners of pixel (x, y) are (x, y) to (x + 1, y +
    /// 1), and a pixel belongs if its centre lies inside by the even-odd rule.
    /// @throws FileError that names the annotation and its line, if it is malformed
    PlacedPixels pixels_of(const CocoEntry& entry) const;

    /// The same of an annotation in memory.
    PlacedPixels pixels_of(const CocoEntry& entry, std::string_view text) const;

    /// Whether an annotation is one of those that are chosen, as all are by no choice.
    bool is_chosen(const CocoEntry& entry, const CocoChoice& choice) const;

    /// The union of the annotations that are chosen. @throws InputError unless there are any, all in one frame
    PlacedPixels pixels_of(const CocoChoice& choice) const;

    /// What makes an entry of an element of the stream.
    /// @param position of the annotation, counted from 1
    static CocoEntry entry_of(const CocoElement& element, std::size_t position);

private:
    void add(const CocoElement& element);
    void add_image(const CocoElement& element);
    void add_category(const CocoElement& element);
    std::string text_of(const CocoEntry& entry) const;
    KivRunSet polygons_of(const Json& segmentation, const Frame& frame, const std::string& subject) const;

    std::string path_;
    int descriptor_ = -1;
    std::deque<CocoEntry> entries_;
    std::map<std::int64_t, CocoImage> images_;
    std::map<std::int64_t, std::string> categories_;
};

} // namespace kivconvert
