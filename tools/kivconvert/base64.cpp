// SPDX-License-Identifier: MIT
// Debian's libb64 breaks lines, which a data URL must not have.
#include "kivconvert/base64.h"

#include <cstdint>

namespace kivconvert
{
namespace
{

constexpr std::string_view alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

/// The first three bytes, or what there is of them, as a number of 24 bits.
std::uint32_t group_of(std::string_view bytes)
{
    std::uint32_t group = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        group = group << 8 | (i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0U);
    }
    return group;
}

} // namespace

std::string base64_of(std::string_view bytes)
{
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        const std::string_view rest = bytes.substr(i, 3);
        const std::uint32_t group = group_of(rest);
        for (std::size_t digit = 0; digit < 4; ++digit) {
            text += digit <= rest.size() ? alphabet[group >> (18 - 6 * digit) & 63U] : '=';
        }
    }
    return text;
}

} // namespace kivconvert
