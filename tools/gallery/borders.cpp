// SPDX-License-Identifier: MIT
#include "gallery/borders.h"

#include "gallery/gallery.h"
#include "kivconvert/result_codes.h"

#include <KivDataConvert/KivDataConvert.h>

namespace gallery
{

KivImage enclosed_by(KivContourArray& contours)
{
    KivImage mask;
    kivconvert::expect_success(KIVMV::KivContourArrayToBinImage(&mask, contours, part_view.width, part_view.height),
                               "KivContourArrayToBinImage");
    return mask;
}

Drawing drawn(KivContourArray& contours)
{
    Drawing drawing(part_view.size());
    drawing.pixels(enclosed_by(contours).Mat(), "faint");
    for (const KivContour& contour : contours) {
        drawing.border(contour, contour.IsHole() ? "hole" : "outer");
    }
    return drawing;
}

} // namespace gallery
