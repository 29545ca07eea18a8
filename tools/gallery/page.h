// SPDX-License-Identifier: MIT
// The gallery as one HTML page with its pictures beside it.
#pragma once

#include "gallery/gallery.h"

#include <string>
#include <vector>

namespace gallery
{

/// Writes index.html and pictures/ into the folder. Nothing is fetched from anywhere else. @throws FileError
void write_page(const std::string& folder, const Stage& stage, const std::vector<Chapter>& chapters);

} // namespace gallery
