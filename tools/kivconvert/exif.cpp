// SPDX-License-Identifier: MIT
#include "kivconvert/exif.h"

#include <cstddef>

namespace kivconvert
{
namespace
{

/// The TIFF structure of Exif data; what lies beyond its end is 0.
class ExifReader
{
public:
    explicit ExifReader(std::string_view data) : data_(data), is_big_endian_(data.substr(0, 2) == "MM") {}

    std::size_t number(std::size_t at, std::size_t bytes) const
    {
        std::size_t value = 0;
        for (std::size_t i = 0; i < bytes; ++i) {
            value = value << 8U | byte(is_big_endian_ ? at + i : at + bytes - 1 - i);
        }
        return value;
    }

private:
    std::size_t byte(std::size_t at) const { return at < data_.size() ? static_cast<unsigned char>(data_[at]) : 0; }

    std::string_view data_;
    bool is_big_endian_;
};

} // namespace

int exif_orientation(std::string_view segment)
{
    constexpr std::string_view mark("Exif\0\0", 6);
    constexpr std::size_t orientation_tag = 0x0112;
    if (!segment.starts_with(mark)) {
        return 1;
    }
    const ExifReader exif(segment.substr(mark.size()));
    const std::size_t directory = exif.number(4, 4);
    const std::size_t entries = exif.number(directory, 2);
    for (std::size_t i = 0; i < entries; ++i) {
        const std::size_t entry = directory + 2 + 12 * i;
        if (exif.number(entry, 2) == orientation_tag) {
            const std::size_t value = exif.number(entry + 8, 2);
            return value >= 1 && value <= 8 ? static_cast<int>(value) : 1;
        }
    }
    return 1;
}

} // namespace kivconvert
