// SPDX-License-Identifier: MIT
// File names as texts, which are UTF-8 wherever names have an encoding, with a slash between folders everywhere. Where
// names are wide, as on Windows, std::filesystem would take texts to be in another encoding.
#pragma once

#include <filesystem>
#include <string>

namespace kivconvert
{

inline std::filesystem::path path_of(const std::string& text)
{
    return std::u8string(text.begin(), text.end());
}

inline std::string text_of(const std::filesystem::path& path)
{
    const std::u8string text = path.generic_u8string();
    return {text.begin(), text.end()};
}

} // namespace kivconvert
