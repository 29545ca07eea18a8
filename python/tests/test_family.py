# SPDX-License-Identifier: MIT
"""The 35 functions from Python: what they give, and what they raise."""

from __future__ import annotations

import math

import numpy
import pytest
from conftest import blobs, masks
from hypothesis import given

from kivdataconvert import RunSet, family
from kivdataconvert.family import ROI, KivError, Region

BAR = Region(8, 4, [(0, 2, 5), (1, 2, 5)])

FUNCTIONS = """
maxbit radixsort KivRegionToVarArray KivVarArrayToRegion KivPointArrayToRegion KivRegionToPointArray KivImageToRegion
KivBinImageToRegion KivRegionToImage KivRegionToBinImage KivImageToMatrix KivMatrixToImage KivContourToVarArray
KivVarArrayToContour KivContourToPointArray KivPointArrayToContour KivRegionToContourArray KivContourArrayToRegion
KivContourToRegion KivContourArrayToBinImage KivBinImageToContourArray KivMergContour KivROIToRegion KivRegionToROI
KivROIToBinImage KivBinImageToROI KivROIToContourArray KivRegionAdd KivRegionAnd KivRegionSub KivRegionNot KivROIAdd
KivROIAnd KivROISub KivROINot
""".split()


def test_has_all_functions() -> None:
    assert len(FUNCTIONS) == 35
    assert set(FUNCTIONS) <= set(family.__all__)


def test_regions_keep_their_runs() -> None:
    assert (BAR.width, BAR.height) == (8, 4)
    assert BAR.runs.tolist() == [[0, 2, 5], [1, 2, 5]]
    unordered = Region(8, 4, [(1, 5, 2), (0, 2, 5), (0, 2, 5)])
    assert unordered.runs.tolist() == [[1, 5, 2], [0, 2, 5], [0, 2, 5]]
    assert unordered.run_set() == RunSet([(0, 2, 5)]) and unordered != BAR
    assert Region(8, 4, BAR.run_set()) == BAR
    assert repr(BAR) == "Region(8 x 4, 2 runs)"
    assert Region(2, 1).runs.shape == (0, 3)
    with pytest.raises(ValueError):
        Region(-1, 4)


def test_pixels_of_regions() -> None:
    xs, ys = family.KivRegionToVarArray(BAR)
    assert xs.tolist() == [2, 3, 4, 5] * 2 and ys.tolist() == [0] * 4 + [1] * 4
    points = family.KivRegionToPointArray(BAR)
    assert points.dtype == float and points.tolist() == [[x, y] for y in (0, 1) for x in (2, 3, 4, 5)]
    assert family.KivPointArrayToRegion(points).run_set() == BAR.run_set()
    assert family.KivVarArrayToRegion(list(xs), ys.astype("int64")).run_set() == BAR.run_set()


def test_images_of_regions() -> None:
    image = family.KivRegionToImage(BAR, 9, 3, 8, 4)
    assert image.dtype == numpy.uint8 and image.tolist() == numpy.where(BAR.run_set().to_mask((4, 8)), 9, 3).tolist()
    assert family.KivRegionToBinImage(BAR).tolist() == (BAR.run_set().to_mask((4, 8)) * 255).tolist()
    assert family.KivBinImageToRegion(image * 0 + 1).runs.tolist() == [[row, 0, 7] for row in range(4)]
    assert family.KivBinImageToRegion(numpy.asfortranarray(family.KivRegionToBinImage(BAR))) == BAR
    colour = numpy.zeros((2, 3, 3), "uint8")
    assert family.KivMatrixToImage(numpy.array([[0.5, 1.5, 2.5, -1, 300, math.nan]])).tolist() == [[0, 2, 2, 0, 255, 0]]
    assert family.KivImageToMatrix(image).tolist() == image.tolist()
    with pytest.raises(KivError) as error:
        family.KivBinImageToRegion(colour)
    assert error.value.code == 1100005 and error.value.name == "KIVMV_ERR_CHANNELS"
    assert str(error.value) == "the input image has a channel count that is not taken (KIVMV_ERR_CHANNELS, 1100005)"


@pytest.mark.parametrize(
    "call, code",
    [
        (lambda: family.KivRegionToImage(BAR, 256, 0, 8, 4), 1100009),
        (lambda: family.KivBinImageToRegion(numpy.zeros((0, 0), "uint8")), 1100001),
        (lambda: family.KivBinImageToRegion(numpy.zeros((2, 2), "uint16")), 2001014),
        (lambda: family.KivImageToRegion(numpy.zeros((0, 0), "uint8")), 1100001),
        (lambda: family.KivVarArrayToRegion([1, 2], [1]), 1100007),
        (lambda: family.KivROIToRegion(ROI()), 1100008),
    ],
)
def test_codes_are_errors(call: object, code: int) -> None:
    with pytest.raises(KivError) as error:
        call()  # type: ignore[operator]
    assert error.value.code == code


@pytest.mark.parametrize(
    "call, error",
    [
        (lambda: family.KivRegionAdd(BAR, RunSet()), TypeError),
        (lambda: family.KivRegionAdd(BAR, None), TypeError),
        (lambda: family.KivBinImageToRegion([[1]]), TypeError),
        (lambda: family.KivBinImageToRegion(numpy.zeros(4, "uint8")), ValueError),
        (lambda: family.KivBinImageToRegion(numpy.zeros((2, 2), "uint64")), TypeError),
        (lambda: family.KivImageToMatrix(numpy.zeros((2, 2, 513), "uint8")), ValueError),
        (lambda: family.KivPointArrayToRegion([[1, 2, 3]]), ValueError),
        (lambda: family.KivPointArrayToRegion([1, 2, 3]), ValueError),
        (lambda: family.KivPointArrayToRegion("ab"), ValueError),
        (lambda: family.KivVarArrayToRegion([2**31], [1]), ValueError),
        (lambda: family.KivVarArrayToRegion(numpy.array([2**64 - 1], "uint64"), [1]), ValueError),
        (lambda: family.KivVarArrayToRegion([None], [1]), TypeError),
        (lambda: family.maxbit(numpy.zeros((2, 2), int)), ValueError),
    ],
)
def test_what_is_none_of_the_types_is_refused(call: object, error: type[Exception]) -> None:
    with pytest.raises(error):
        call()  # type: ignore[operator]


def test_variant_arrays() -> None:
    assert family.maxbit([1, 999, 12.5]) == 3
    rows, begins, ends = family.radixsort([3, 1, 2], [30, 10, 20], ["x", "y", 5])
    assert rows.tolist() == [1, 2, 3] and begins.tolist() == [10, 20, 30]
    contour = family.KivVarArrayToContour([0.25, 1.5], [2, 3])
    assert contour.tolist() == [[0, 2], [1, 3]]  # coordinates are read as ints
    assert family.KivContourToPointArray(contour).tolist() == contour.tolist()
    assert family.KivPointArrayToContour(contour).tolist() == contour.tolist()
    assert [list(values) for values in family.KivContourToVarArray([(0.5, 2), (1.5, 3.2)])] == [[0, 2], [2, 3]]


@given(masks)
def test_contours_give_masks_back(mask: numpy.ndarray) -> None:
    height, width = mask.shape
    if not mask.any() or min(mask.shape) < 2:  # frames have at least 2 x 2 pixels
        return
    image = mask.astype("uint8") * 255
    contours = family.KivBinImageToContourArray(image)
    assert family.KivContourArrayToBinImage(contours, width, height).tolist() == image.tolist()
    region = family.KivContourArrayToRegion(contours, width, height)
    assert region.run_set() == RunSet.from_mask(mask)
    for ours, theirs in zip(family.KivRegionToContourArray(region), contours):
        assert ours.tolist() == theirs.tolist()


def test_regions_of_interest() -> None:
    disc = ROI.circle(10, 8, 5, 40, 30)
    assert (disc.kind, disc.width, disc.height) == (4, 40, 30)
    rows, cols = numpy.mgrid[:30, :40]
    assert disc.run_set() == RunSet.from_mask((cols - 10) ** 2 + (rows - 8) ** 2 <= 25)
    assert family.KivROIToRegion(disc).run_set() == disc.run_set()
    assert family.KivROIToBinImage(disc).tolist() == (disc.run_set().to_mask((30, 40)) * 255).tolist()
    mask = ROI.mask(disc.run_set(), 40, 30)
    assert mask.kind == 8 and mask != disc and repr(mask) == "ROI(kind 8, 40 x 30)"
    assert family.KivRegionToROI(family.KivROIToRegion(disc)) == mask
    assert len(family.KivROIToContourArray(disc)) == 1
    shapes = [
        ROI.rectangle(1, 2, 8, 9, 20, 20), ROI.rotated_rectangle(10, 10, 8, 4, 30, 20, 20),
        ROI.ellipse(10, 10, 6, 3, 45, 20, 20), ROI.ring(10, 10, 2, 6, 20, 20), ROI.ring_sector(10, 10, 2, 6, 0, 90, 20, 20),
        ROI.polygon([(1, 1), (9, 1), (5, 8)], 20, 20),
    ]
    assert len({shape.kind for shape in shapes}) == 6 and all(shape.run_set() for shape in shapes)
    assert not ROI.open_curve([(1, 1), (9, 1)], 20, 20).run_set()


def test_set_operations_follow_the_rules_of_the_family() -> None:
    a = Region(8, 4, [(0, 0, 3), (1, 0, 3), (2, 0, 3)])
    b = Region(8, 4, [(1, 2, 5), (2, 2, 5)])
    assert family.KivRegionAdd(a, b).run_set() <= a.run_set() | b.run_set()
    assert family.KivRegionNot(a).width == 8
    single = Region(8, 4, [(1, 0, 3)])
    assert family.KivRegionAnd(single, b).runs.tolist() == []  # a list of a single run pairs with nothing


def test_polygons() -> None:
    mask = blobs(60, 90, seed=4)
    pixels = RunSet.from_mask(mask)
    rings = [ring for component in pixels.outlines() for ring in component]
    assert RunSet.from_polygons(rings, mask.shape, pixel_center=0.5) == pixels
    assert RunSet.from_polygons([[0, 0, 4, 0, 4, 4, 0, 4]], (9, 9)).area == 25
    twice = [[(0, 0), (4, 0), (4, 4), (0, 4)]] * 2
    assert RunSet.from_polygons(twice, (9, 9), rule="non-zero").area == 25
    with pytest.raises(ValueError, match="rule must be"):
        RunSet.from_polygons(twice, (9, 9), rule="odd")
    with pytest.raises(ValueError):
        RunSet.from_polygons([[(0, 0), (math.nan, 1), (1, 1)]], (9, 9))
    with pytest.raises(ValueError):
        RunSet.from_polygons([[(0, 0, 1), (2, 1, 1)]], (9, 9))


def test_level_contours() -> None:
    image = numpy.zeros((3, 3), "float32")
    image[1, 1] = 2
    (contour,) = family.level_contours(image, 1)
    assert sorted(map(tuple, contour)) == [(0.5, 1), (1, 0.5), (1, 1.5), (1.5, 1)]
