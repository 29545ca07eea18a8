// SPDX-License-Identifier: MIT
// The kinds of parts that lie on the table.
#pragma once

#include "demo/scene/part.h"

namespace demo::scene
{

Part washer(const Placement& placement, double outer_radius, double inner_radius);
Part flange(const Placement& placement, double radius, int bolt_holes);
Part gear(const Placement& placement, double radius, int teeth);
Part angle_bracket(const Placement& placement);
Part slotted_bar(const Placement& placement, double length, double width);
Part hex_nut(const Placement& placement, double radius);
Part hex_bolt(const Placement& placement, double length, double radius);

} // namespace demo::scene
