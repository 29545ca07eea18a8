// SPDX-License-Identifier: MIT
// Contours in the frame of the part.
#pragma once

#include "gallery/drawing.h"

namespace gallery
{

/// The mask of what contours enclose.
KivImage enclosed_by(KivContourArray& contours);

/// The contours, and faintly the pixels that they enclose.
Drawing drawn(KivContourArray& contours);

} // namespace gallery
