// SPDX-License-Identifier: MIT
// Polygons filled into runs have the pixels of their definition, and the borders traced along those runs fill back.
#include "inputs.h"
#include "target.h"

#include "polygon_pixels.h"

#include <KivRLC/KivRunBorders.h>
#include <KivRLC/KivRunSet.h>

#include <gtest/gtest.h>

namespace
{

polygon_pixels::Polygons polygons(fuzz::FuzzedBytes& input)
{
    polygon_pixels::Polygons made(static_cast<std::size_t>(1 + input.digit() % 3));
    for (polygon_pixels::Polygon& polygon : made) {
        for (int corners = input.digit(); corners > 0; --corners) {
            const int x = input.coordinate();
            polygon.push_back({x, input.coordinate()});
        }
    }
    return made;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    fuzz::FuzzedBytes input(bytes, size);
    const int width = input.digit();
    const int height = input.digit();
    const KivRunBox box = {0, height - 1, 0, width - 1};
    const polygon_pixels::Polygons given = polygons(input);
    const std::vector<Run> runs = polygon_pixels::filled(given, box);
    EXPECT_EQ(runs, polygon_pixels::runs_by_pixels(given, box));
    EXPECT_EQ(KivRunSet::WhyNotCanonical(runs), "");

    const KivRunBorders borders = KivRunBorders::Of(runs);
    KivPolygonFill fill(box);
    for (const KivRunBorder& border : borders.borders) {
        fill.Add(borders.points.data() + border.begin, border.end - border.begin);
    }
    EXPECT_EQ(fill.Runs(), runs);
    return 0;
}
