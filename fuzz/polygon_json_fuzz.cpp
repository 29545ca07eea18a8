// SPDX-License-Identifier: MIT
// The reader of GeoJSON: it refuses a text by an InputError and by nothing else, or reads contours all of which are
// there when they have been written and read again. They may have changed polygons: the pixels of the frame decide
// which holes belong to which outer border.
#include "inputs.h"
#include "target.h"

#include "kivconvert/contour_files.h"
#include "kivconvert/errors.h"

#include <gtest/gtest.h>

#include <string_view>

namespace
{

/// Small enough to be painted, and large enough for the library to do so.
bool is_paintable(const kivconvert::TracedContours& read)
{
    return read.width >= 2 && read.height >= 2 && read.width <= 256 && read.height <= 256;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    try {
        auto read = kivconvert::parse_contours_geojson(fuzz::FuzzedBytes(bytes, size).text(), "input");
        if (is_paintable(read)) {
            const auto again = kivconvert::parse_contours_geojson(kivconvert::contours_as_geojson(read), "written");
            EXPECT_EQ(again.width, read.width);
            EXPECT_EQ(again.height, read.height);
            EXPECT_EQ(again.contours.Length(), read.contours.Length());
        }
    } catch (const kivconvert::InputError& error) {
        EXPECT_EQ(std::string_view(error.what()).substr(0, 6), "input:");
    }
    return 0;
}
