// SPDX-License-Identifier: MIT
// What every reader of run files promises.
#pragma once

#include "inputs.h"

#include "support/rasters.h"

#include "kivconvert/errors.h"
#include "kivconvert/run_files.h"

#include <string>
#include <string_view>

namespace fuzz
{

/// The text is rejected by a FileError, or is a region that stays the same when it is written and read.
inline void check_run_reader(FuzzedBytes bytes, KivRegion (*parse)(std::string_view, const std::string&),
                             std::string (*format)(const KivRegion&))
{
    try {
        const KivRegion region = parse(bytes.text(), "input");
        EXPECT_TRUE(support::same_region(parse(format(region), "written"), region));
    } catch (const kivconvert::InputError& error) {
        EXPECT_EQ(std::string_view(error.what()).substr(0, 6), "input:");
    }
}

} // namespace fuzz
