// SPDX-License-Identifier: MIT
// The reader of contour files: it refuses a text by an InputError and by nothing else, or reads contours that are
// written and read back as they are.
#include "inputs.h"
#include "target.h"

#include "support/coordinates.h"

#include "kivconvert/contour_files.h"
#include "kivconvert/errors.h"

#include <string_view>

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    try {
        const auto read = kivconvert::parse_contours_json(fuzz::FuzzedBytes(bytes, size).text(), "input");
        const auto again = kivconvert::parse_contours_json(kivconvert::contours_as_json(read), "written");
        EXPECT_EQ(again.width, read.width);
        EXPECT_EQ(again.height, read.height);
        EXPECT_TRUE(support::same_values(again.contours, read.contours));
    } catch (const kivconvert::InputError& error) {
        EXPECT_EQ(std::string_view(error.what()).substr(0, 6), "input:");
    }
    return 0;
}
