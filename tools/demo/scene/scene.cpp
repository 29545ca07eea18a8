// SPDX-License-Identifier: MIT
#include "demo/scene/scene.h"

#include "demo/scene/camera.h"
#include "demo/scene/parts.h"
#include "demo/scene/surface.h"

#include <vector>

namespace demo::scene
{
namespace
{

const cv::Size resolution(1280, 960);
constexpr std::uint64_t seed = 20;

std::vector<Part> parts_on_the_table()
{
    return {
        flange({{205, 210}, 12}, 150, 6),
        washer({{425, 105}, 0}, 64, 31),
        angle_bracket({{690, 240}, -14}),
        hex_nut({{955, 135}, 20}, 62),
        washer({{1120, 240}, 0}, 92, 46),
        slotted_bar({{300, 520}, 19}, 380, 96),
        hex_bolt({{640, 560}, -24}, 235, 22),
        gear({{1040, 560}, 4}, 150, 28),
        hex_nut({{120, 690}, 7}, 50),
        hex_bolt({{215, 860}, -9}, 260, 26),
        washer({{640, 760}, 0}, 118, 58),
        washer({{862, 810}, 0}, 48, 23),
        slotted_bar({{1060, 830}, -7}, 250, 80),
        washer({{820, 420}, 0}, 40, 19),
    };
}

} // namespace

cv::Mat draw()
{
    cv::RNG random(seed);
    cv::Mat1f picture = table_surface(resolution * oversampling, random);
    for (const Part& part : parts_on_the_table()) {
        lay_down(part, picture, random);
    }
    return take_picture(picture, resolution, random);
}

} // namespace demo::scene
