// SPDX-License-Identifier: MIT
// The reader of points.
#include "target.h"
#include "text_reader.h"

#include "kivconvert/point_files.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    fuzz::check_text_reader<KivPointArray>({bytes, size}, kivconvert::parse_points_csv, kivconvert::points_as_csv);
    return 0;
}
