// SPDX-License-Identifier: MIT
// What every reader of numbers promises.
#pragma once

#include "inputs.h"

#include "kivconvert/errors.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace fuzz
{

/// The text is rejected by an InputError, or is a value that stays the same when it is written and read.
template <class Value>
void check_text_reader(FuzzedBytes bytes, Value (*parse)(std::string_view, const std::string&),
                       std::string (*format)(const Value&))
{
    try {
        const Value value = parse(bytes.text(), "input");
        EXPECT_TRUE(parse(format(value), "written") == value);
    } catch (const kivconvert::InputError& error) {
        EXPECT_EQ(std::string_view(error.what()).substr(0, 6), "input:");
    }
}

} // namespace fuzz
