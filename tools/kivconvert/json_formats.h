// SPDX-License-Identifier: MIT
// What JSON files may hold, once they have been taken apart. `file` is named in error messages; everything that is not
// the format is an InputError.
#pragma once

#include "kivconvert/contour_files.h"
#include "kivconvert/json_reader.h"

#include <string>

namespace kivconvert
{

KivRegion read_runs(const Json& document, const std::string& file);
KivRegion read_coco(const Json& document, const std::string& file);
TracedContours read_contours(const Json& document, const std::string& file);
TracedContours read_polygons(const Json& document, const std::string& file);

} // namespace kivconvert
