// SPDX-License-Identifier: MIT
// Bytes as text, for data: URLs.
#pragma once

#include <string>
#include <string_view>

namespace kivconvert
{

/// RFC 4648, with padding and without line breaks.
std::string base64_of(std::string_view bytes);

} // namespace kivconvert
