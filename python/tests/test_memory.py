# SPDX-License-Identifier: MIT
"""Calls leave nothing behind: the process does not grow, however often they are made."""

from __future__ import annotations

import copy
import gc
import os
import pickle
from typing import Any, Callable

import numpy
import pytest

from kivdataconvert import BlockRule, Element, RunSet, coco_to_mask, family, paint_labels
from kivdataconvert._display import png

LONG = os.environ.get("KIV_LONG_TESTS") == "1"
CALLS = 1_000_000 if LONG else 5_000
WARM_UP = 2_000
ALLOWED = 2**18
"""Bytes that allocators may take meanwhile. Five thousand calls that lose an object of 64 bytes each take more, and a million
calls that lose a byte."""

MASK = numpy.zeros((6, 8), bool)
MASK[1:5, 1:7] = True
MASK[2, 3] = False
IMAGE = MASK * numpy.uint8(200)
LABELS = MASK.astype("int32")
A = RunSet.from_mask(MASK)
B = A.translate(1, 2)
SHAPE = MASK.shape
COCO = A.to_coco(SHAPE)
COUNTS = A.to_coco(SHAPE, packed=False)
CORNERS = numpy.array([(0, 0), (6, 0), (6, 4)], "float64")
ELEMENT = Element.rectangle(3, 3)
REGION = family.Region(8, 6, A)
ROI = family.ROI.ring(4, 3, 1, 2, 8, 6)
SETS = [A, B]


def refused(call: Callable[[], Any]) -> Callable[[], None]:
    """An error is a result, too."""

    def called() -> None:
        with pytest.raises((ValueError, TypeError, OverflowError, family.KivError)):
            call()

    return called


CASES: dict[str, Callable[[], Any]] = {
    "runs": lambda: RunSet([(0, 1, 2), (1, 1, 1)]),
    "view of runs": lambda: A.runs,
    "set operations": lambda: (A | B, A & B, A - B, A ^ B, RunSet.union(SETS), RunSet.union(iter(SETS))),
    "comparisons": lambda: (A == B, A <= B, A > B, (1, 2) in A, bool(A), hash(A), A == "a", A.intersects(B)),
    "areas": lambda: (A.area, A.n_runs, A.box, A.centroid, A.iou(B), A.union_area(B), A.intersection_area(B)),
    "masks": lambda: (RunSet.from_mask(MASK), RunSet.from_mask(MASK.T), RunSet.from_mask(MASK[::-1, ::2]), A.to_mask(SHAPE)),
    "painting": lambda: (A.paint(IMAGE, 200), paint_labels(SETS, SHAPE), A.label_image(SHAPE)),
    "images": lambda: (RunSet.from_range(IMAGE, 1, 255), RunSet.from_labels(LABELS)),
    "COCO": lambda: (RunSet.from_coco(COCO), RunSet.from_coco(COUNTS), coco_to_mask(COCO), A.to_coco(SHAPE), A.to_coco(SHAPE, packed=False)),
    "polygons": lambda: (RunSet.from_polygons([CORNERS], SHAPE), RunSet.from_polygons([[0, 0, 4, 0, 4, 4]], SHAPE)),
    "outlines": lambda: (A.outlines(), A.borders(), A.convex_hull()),
    "transforms": lambda: (A.translate(1, 1), A.flip_left_right(SHAPE), A.turn(1, SHAPE), A.transpose(), A.crop((2, 2))),
    "scaling": lambda: (A.scale_up(2, 2), A.scale_down(2, 2, BlockRule.MOST), A.complement(SHAPE), A.runs_of_row(2)),
    "morphology": lambda: (A.dilate(ELEMENT), A.erode(B), A.open(ELEMENT), A.close(ELEMENT), A.gradient(Element.disk(1))),
    "components": lambda: (A.components(), A.component_numbers(), A.largest_component(), A.components_by_area(2)),
    "holes": lambda: (A.holes(), A.fill_holes(), A.clear_border(SHAPE), A.euler_number(4)),
    "measures": lambda: (A.measure(), A.measure_components()),
    "copies": lambda: (copy.copy(A), copy.deepcopy(A), pickle.loads(pickle.dumps(A)), pickle.loads(pickle.dumps(A, 5))),
    "displays": lambda: (repr(A), A.__sizeof__()),
    "refused arguments": refused(lambda: RunSet.from_mask(LABELS)),
    "refused runs": refused(lambda: RunSet([(0, 1)])),
    "refused counts": refused(lambda: RunSet.from_coco([5, 9], SHAPE)),
    "refused elements of a union": refused(lambda: RunSet.union([A, None])),  # type: ignore[list-item]
    "regions": lambda: (family.Region(8, 6, A).run_set(), REGION.runs, family.KivRegionAdd(REGION, REGION), repr(REGION)),
    "region to image": lambda: (family.KivRegionToBinImage(REGION), family.KivBinImageToRegion(IMAGE)),
    "region to values": lambda: family.KivVarArrayToRegion(*family.KivRegionToVarArray(REGION)),
    "region to points": lambda: family.KivPointArrayToRegion(family.KivRegionToPointArray(REGION)),
    "contours": lambda: family.KivContourArrayToRegion(family.KivRegionToContourArray(REGION), 8, 6),
    "shapes": lambda: (ROI.run_set(), family.KivROIToRegion(ROI), family.KivROIToBinImage(ROI), family.ROI.mask(A, 8, 6)),
    "values": lambda: (family.radixsort([2, 1], [0, 0], [1, 1]), family.maxbit([1, 10])),
    "codes": refused(lambda: family.KivVarArrayToRegion([1, 2], [1])),
}
SLOW = {"picture": lambda: png(A)}  # zlib
CASES.update(SLOW)

LINUX = pytest.mark.skipif(not os.path.exists("/proc/self/statm"), reason="memory is read from /proc")


def resident() -> int:
    with open("/proc/self/statm", encoding="ascii") as file:
        return int(file.read().split()[1]) * os.sysconf("SC_PAGE_SIZE")


def repeat(call: Callable[[], Any], times: int) -> None:
    for _ in range(times):
        call()
    gc.collect()


def grown(call: Callable[[], Any], times: int) -> int:
    """Bytes that the process has more after calls than it had after some of them."""
    repeat(call, min(times, WARM_UP))
    before = resident()
    repeat(call, times)
    return resident() - before


@LINUX
@pytest.mark.parametrize("name", CASES)
def test_calls_leave_nothing_behind(name: str) -> None:
    times = CALLS // 20 if name in SLOW else CALLS
    # What is lost is lost every time; an allocator may take memory once.
    assert any(grown(CASES[name], times) <= ALLOWED for _ in range(3))


@LINUX
def test_growth_is_seen() -> None:
    kept: list[Any] = []
    # So many that they do not fit into what the tests before have freed.
    assert grown(lambda: kept.append(A | B), 500_000) > ALLOWED
