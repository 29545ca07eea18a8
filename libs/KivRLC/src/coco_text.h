// SPDX-License-Identifier: MIT
// Counts as text: 5 bits a character, the lowest first; a sixth bit says that more follow. The highest of the bits is
// the sign.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kivrlc
{

/// Reads packed counts one by one.
class CocoTextReader
{
public:
    explicit CocoTextReader(std::string_view text) : left_(text) {}

    bool done() const { return left_.empty(); }

    /// The next count. Throws std::invalid_argument if there is none in the text.
    std::int64_t next();

private:
    std::int64_t next_number();

    std::string_view left_;
    std::int64_t index_ = 0;
    std::int64_t last_ = 0;
    std::int64_t last_but_one_ = 0;
};

/// Appends a number.
void append_coco_number(std::int64_t number, std::string& text);

} // namespace kivrlc
