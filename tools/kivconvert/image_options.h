// SPDX-License-Identifier: MIT
// --alpha, --no-alpha and --page: what is read of an image. --annotation, --of-image and --category: of a COCO data
// set.
#pragma once

#include "kivconvert/cli_types.h"
#include "kivconvert/image_files.h"

namespace kivconvert
{

/// Adds the options for a command that reads one page.
void add_image_options(CLI::App& command, ImagePart& part);

/// The same for a command that can do its work for each page: --page takes "all" as well, and sets `all_pages` then.
void add_image_options(CLI::App& command, ImagePart& part, bool& all_pages);

} // namespace kivconvert
