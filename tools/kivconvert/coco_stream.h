// SPDX-License-Identifier: MIT
// COCO data sets as a stream: only one image, annotation or category of a file is in memory at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace kivconvert
{

/// The arrays of a data set. A results list is one array, of annotations.
enum class CocoSection { other, images, categories, annotations };

/// How the pixels of an annotation are written.
enum class CocoForm : std::uint8_t {
    none,
    polygons,
    packed_counts, ///< a text
    plain_counts,  ///< an array of numbers
};

/// In the place of an id that there is not.
inline constexpr std::int64_t no_coco_id = INT64_MIN;

/// An element of one of the arrays.
struct CocoElement {
    CocoSection section = CocoSection::other;
    std::uint64_t offset = 0; ///< of its first byte in the file
    std::size_t line = 0;     ///< of its first byte, counted from 1
    std::string text;         ///< as it stands in the file; empty if it is no object

    // Members of an annotation, if they are whole numbers.
    std::int64_t id = no_coco_id;
    std::int64_t image = no_coco_id;
    std::int64_t category = no_coco_id;
    CocoForm form = CocoForm::none;
};

/// Calls `take` for each element of the arrays, in the order of the file, and `pass` for all other bytes.
/// @throws FileError if the file cannot be read or is no JSON; what was read before that has been handed over
void read_coco_stream(const std::string& path, const std::function<void(CocoElement& element)>& take,
                      const std::function<void(std::string_view bytes)>& pass = {});

/// Whether a file is a JSON array, or a JSON object with images or annotations. Reads no further than it must.
bool is_coco_data_set(const std::string& path);

} // namespace kivconvert
