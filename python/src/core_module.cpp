// SPDX-License-Identifier: MIT
// kivdataconvert._core: run sets. It needs nothing of OpenCV.
#include "modules.h"

NB_MODULE(_core, module)
{
    using namespace kivpython;
    module.doc() = "Run sets; kivdataconvert has their names.";
    RunSetClass set(module, "RunSet", nb::is_final(), R"(A set of pixels, held as its maximal runs.

Pixels are (row, column), as arrays are indexed; rows and columns may be any 32-bit ints, also negative ones. A set has
no frame, cannot be changed, and can be a key of a dict. Two sets are equal if and only if they have the same pixels, and
a set is true if it has any.

>>> from kivdataconvert import RunSet
>>> bar = RunSet([(0, 2, 5), (1, 2, 5)])
>>> bar.area, (0, 5) in bar, (0, 6) in bar
(8, True, False)
>>> bar | RunSet([(1, 4, 9)])
RunSet(12 pixels, 2 runs, rows 0 to 1, columns 2 to 9)
)");
    bind_algebra(set);
    bind_python_protocols(module, set);
    bind_images(module, set);
    bind_coco(module, set);
    bind_transforms(module, set);
    bind_morphology(module, set);
    bind_components(set);
    bind_measures(set);
    bind_outlines(set);
}
