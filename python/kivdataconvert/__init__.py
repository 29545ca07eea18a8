# SPDX-License-Identifier: MIT
"""Sets of pixels as runs: exact and fast set algebra, measures, components, morphology and COCO masks.

Pixels are (row, column), as arrays are indexed; points, those of outlines, polygons and centroids, are (x, y), as in
OpenCV, shapely and COCO: x is a column, y a row. The centre of pixel (row, col) is the point (x=col, y=row).
"""

from . import _pickle as _pickle
from ._core import BlockRule, Element, RunSet, coco_to_mask, paint_labels
from ._types import Box, Measures

__all__ = ["BlockRule", "Box", "Element", "Measures", "RunSet", "coco_to_mask", "paint_labels"]
__version__ = "3.0.0"
