// SPDX-License-Identifier: MIT
// Which parameters a shape may have.
#pragma once

#include <KivData/KivShape.h>

namespace kivdata
{

/// Throws std::invalid_argument, naming the parameter and its value, when one is not finite or a radius or length is
/// negative or a sweep is outside 0 to 360 degrees.
void check_shape(const KivShape::Any& shape);

} // namespace kivdata
