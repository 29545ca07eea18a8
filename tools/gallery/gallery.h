// SPDX-License-Identifier: MIT
// The elements of the gallery, and the data that its chapters draw.
#pragma once

#include "demo/inspection.h"
#include "gallery/drawing.h"

#include <string>
#include <vector>

namespace gallery
{

/// A picture on the page.
struct Panel {
    std::string caption;
    std::string alt;  ///< what is seen, in words
    std::string svg;  ///< the picture itself, or
    std::string file; ///< a picture of the demo
    cv::Size size;

    Panel(std::string title, std::string seen, const Drawing& drawing)
        : caption(std::move(title)), alt(std::move(seen)), svg(drawing.svg()), size(drawing.size())
    {
    }
    Panel(std::string title, std::string seen, const demo::Picture& picture)
        : caption(std::move(title)), alt(std::move(seen)), file(picture.file), size(picture.pixels.size())
    {
    }
};

/// An exported function, or a group of operations: what it gives, and a picture before and after it.
struct Entry {
    std::string function;
    std::string text; ///< one or two sentences, in HTML
    std::vector<Panel> panels;
    std::string found; ///< numbers of this very call
    bool holds;        ///< whether the result was checked to be what the text says
};

struct Chapter {
    std::string id;
    std::string title;
    std::vector<Entry> entries;
};

/// The scene, and two cut-outs of it, each with its own frame.
struct Stage {
    demo::Inspection scene; ///< after all steps of the demo
    KivImage mask;          ///< the end of a slotted bar
    KivRegion part;         ///< the same as a region
    KivImage lens_grey;     ///< the lower edge of the hole in it
    KivImage lens_mask;
    KivRegion lens;
    bool passed = true; ///< all checks of the steps

    const demo::Picture& picture(const std::string& name) const; ///< one that a step of the demo has made
};

/// Where the cut-outs lie in the scene.
inline const cv::Rect part_view(928, 824, 56, 62);
inline const cv::Rect lens_view(950, 851, 22, 7);
inline const cv::Size part(part_view.size());
inline const cv::Size lens(lens_view.size());

/// Descriptions of the part.
inline const std::string part_in_bars = "The end of a bar with a round hole, made of horizontal blue bars.";
inline const std::string part_in_white = "The end of a bar with a round hole, white on black.";

/// Draws the scene and runs the steps of the demo, which write their pictures into the folder.
Stage set_stage(const std::string& folder);

/// "1 run", "3 runs"
std::string counted(std::size_t count, const std::string& thing);

/// The chapters, a file each.
Chapter raster_chapter(Stage& stage);
Chapter array_chapter(Stage& stage);
Chapter point_chapter();
Chapter contour_chapter(Stage& stage);
Chapter roi_chapter(Stage& stage);
Chapter algebra_chapter(Stage& stage);
Chapter run_set_chapter();

} // namespace gallery
