// SPDX-License-Identifier: MIT
// Contours as SVG. An integer point is the centre of its pixel, so the frame begins half a pixel before (0, 0).
#include "kivconvert/base64.h"
#include "kivconvert/outlines.h"

#include <fmt/format.h>
#include <iterator>

namespace kivconvert
{
namespace
{

void append_border(std::string& text, const KivContour& border)
{
    const char* command = "M";
    for (const auto& point : border.AllPoints()) {
        fmt::format_to(std::back_inserter(text), "{}{},{}", command, point.x, point.y);
        command = " ";
    }
    text += "Z";
}

void append_path(std::string& text, const Outline& outline)
{
    text += "<path d=\"";
    append_border(text, *outline.outer);
    for (const KivContour* hole : outline.holes) {
        append_border(text, *hole);
    }
    text += "\"/>\n";
}

std::string picture_element(std::string_view png, int width, int height)
{
    return fmt::format("<image x=\"-0.5\" y=\"-0.5\" width=\"{}\" height=\"{}\" preserveAspectRatio=\"none\" "
                       "image-rendering=\"pixelated\" href=\"data:image/png;base64,{}\"/>\n",
                       width, height, base64_of(png));
}

} // namespace

std::string contours_as_svg(const TracedContours& traced, std::string_view png)
{
    std::string text = fmt::format("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"{0}\" height=\"{1}\" "
                                   "viewBox=\"-0.5 -0.5 {0} {1}\">\n",
                                   traced.width, traced.height);
    if (!png.empty()) {
        text += picture_element(png, traced.width, traced.height);
    }
    text += "<g fill=\"#2fbf71\" fill-opacity=\"0.3\" fill-rule=\"evenodd\" stroke=\"#e8590c\" "
            "stroke-linecap=\"round\" stroke-linejoin=\"round\">\n";
    for (const Outline& outline : outlines_of(traced)) {
        append_path(text, outline);
    }
    return text + "</g>\n</svg>\n";
}

} // namespace kivconvert
