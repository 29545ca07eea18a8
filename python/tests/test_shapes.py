# SPDX-License-Identifier: MIT
"""Components, measures, morphology and outlines; beside SciPy, scikit-image and OpenCV where these are installed."""

from __future__ import annotations

import math

import numpy
import pytest
from conftest import blobs, masks
from hypothesis import given
from hypothesis import strategies as st

from kivdataconvert import Element, Measures, RunSet

RING = RunSet.from_mask(numpy.array([[1, 1, 1], [1, 0, 1], [1, 1, 1]], "uint8"))


def test_components_by_hand() -> None:
    pair = RunSet([(0, 1, 1), (1, 0, 0), (0, 5, 5)])  # two pixels that meet by a corner, and one by itself
    assert pair.components() == [RunSet([(0, 1, 1), (1, 0, 0)]), RunSet([(0, 5, 5)])]
    assert [part.area for part in pair.components(4)] == [1, 1, 1]
    assert pair.component_numbers().tolist() == [0, 1, 0] and pair.component_numbers(4).tolist() == [0, 1, 2]
    assert pair.largest_component() == pair.components()[0]
    assert pair.components_by_area(2) == pair.components()[0]
    assert pair.components_by_area(max_area=1) == pair.components()[1]
    assert pair.clear_border((3, 6)) == RunSet()
    assert pair.clear_border((2, 7), connectivity=4) == RunSet()
    assert RING.holes() == RunSet([(1, 1, 1)]) and RING.fill_holes().area == 9
    assert RING.fill_holes(max_area=0) == RING
    assert RING.euler_number() == 0
    with pytest.raises(ValueError, match="4 or 8, not 6"):
        pair.components(6)


def test_measures_by_hand() -> None:
    measures = RING.measure()
    assert isinstance(measures, Measures)
    assert measures[:7] == (8, 0, 0, 2, 2, 1.0, 1.0)
    assert (measures.moment_xx, measures.moment_xy, measures.moment_yy) == (6, 0, 6)
    assert (measures.edge_perimeter, measures.euler_number, measures.holes) == (16, 0, 1)
    assert measures.feret_max == pytest.approx(3 * math.sqrt(2)) and measures.feret_min == pytest.approx(3)
    table = RING.measure_components()
    assert set(table) == set(Measures._fields)
    for name, value in measures._asdict().items():
        assert table[name].shape == (1,) and table[name][0] == value
    assert RunSet().measure_components()["area"].shape == (0,)
    assert RING.convex_hull().tolist() == [[-0.5, -0.5], [2.5, -0.5], [2.5, 2.5], [-0.5, 2.5]]
    with pytest.raises(ValueError):
        RunSet().measure()


@given(masks, st.sampled_from([4, 8]))
def test_components_partition(mask: numpy.ndarray, connectivity: int) -> None:
    pixels = RunSet.from_mask(mask)
    parts = pixels.components(connectivity)
    assert RunSet.union(parts) == pixels and sum(part.area for part in parts) == pixels.area
    table = pixels.measure_components(connectivity)
    assert table["area"].tolist() == [part.area for part in parts]
    summary = pixels.summarize_components(connectivity)
    assert list(summary) == ["area", "left", "top", "right", "bottom", "centroid_x", "centroid_y"]
    assert all(summary[name].tobytes() == table[name].tobytes() for name in summary)
    if pixels:
        assert pixels.measure(connectivity).holes == len(pixels.holes(None, connectivity).components(12 - connectivity))


@given(masks, st.integers(1, 5), st.integers(1, 5))
def test_morphology_is_that_of_definitions(mask: numpy.ndarray, rows: int, cols: int) -> None:
    pixels, element = RunSet.from_mask(mask), Element.rectangle(rows, cols)
    block = RunSet([(row, -(cols // 2), (cols - 1) // 2) for row in range(-(rows // 2), (rows + 1) // 2)])
    copies = [pixels.translate(*pixel) for pixel in numpy.argwhere(block.to_mask((9, 9), origin=(-4, -4))) - 4]
    dilated = RunSet.union(copies)
    assert pixels.dilate(element) == pixels.dilate(block) == dilated
    assert pixels.erode(element).dilate(element) == pixels.open(element) <= pixels
    assert dilated.erode(element) == pixels.close(block) >= pixels
    assert pixels.gradient(block) == dilated - pixels.erode(block)


def test_disks() -> None:
    assert RunSet([(0, 0, 0)]).dilate(Element.disk(1)) == RunSet([(-1, 0, 0), (0, -1, 1), (1, 0, 0)])
    for bad in (-1, math.nan, 2**31):
        with pytest.raises(ValueError):
            Element.disk(bad)
    with pytest.raises(ValueError):
        RING.erode(RunSet())
    with pytest.raises(TypeError):
        RING.dilate(3)  # type: ignore[arg-type]


def test_outlines_by_hand() -> None:
    (outer, hole), = RING.outlines()
    assert outer.dtype == numpy.int32
    assert outer.tolist() == [[0, 0], [3, 0], [3, 3], [0, 3]]
    assert hole.tolist() == [[1, 1], [1, 2], [2, 2], [2, 1]]
    (border, inner), = RING.borders()
    assert len(border) == 8 and inner.tolist() == [[0, 1], [1, 0], [2, 1], [1, 2]]
    with pytest.raises(OverflowError):
        RunSet([(0, 0, 2**31 - 1)]).outlines()


def test_measures_are_those_of_scikit_image() -> None:
    measure = pytest.importorskip("skimage.measure")
    for seed in range(5):
        mask = blobs(150, 220, seed)
        pixels = RunSet.from_mask(mask)
        labels = measure.label(mask, connectivity=2)
        ours = pixels.measure_components()
        theirs = measure.regionprops_table(labels, properties=(
            "area", "bbox", "centroid", "axis_major_length", "axis_minor_length", "perimeter_crofton", "euler_number",
            "feret_diameter_max"))
        assert ours["area"].tolist() == theirs["area"].tolist()
        assert ours["bottom"].tolist() == (theirs["bbox-2"] - 1).tolist()
        assert ours["euler_number"].tolist() == theirs["euler_number"].tolist()
        numpy.testing.assert_allclose(ours["centroid_x"], theirs["centroid-1"], rtol=1e-12)
        numpy.testing.assert_allclose(ours["crofton_perimeter"], theirs["perimeter_crofton"], rtol=1e-12)
        large = ours["area"] > 20
        numpy.testing.assert_allclose(ours["major_axis"][large], theirs["axis_major_length"][large], rtol=1e-9)
        numpy.testing.assert_allclose(ours["minor_axis"][large], theirs["axis_minor_length"][large], rtol=1e-9)
        # Corners of pixels are no points of a set by that definition, which takes the midpoints of their edges.
        assert (numpy.abs(ours["feret_max"] - theirs["feret_diameter_max"]) < 1).all()


def test_components_are_those_of_scipy_and_opencv() -> None:
    ndimage = pytest.importorskip("scipy.ndimage")
    cv2 = pytest.importorskip("cv2")
    mask = blobs(200, 300, seed=5)
    pixels = RunSet.from_mask(mask)
    labels, count = ndimage.label(mask, numpy.ones((3, 3)))
    sets = RunSet.from_labels(labels)
    assert sorted(part.area for part in pixels.components()) == sorted(part.area for part in sets.values())
    assert len(pixels.components()) == count
    assert pixels.fill_holes(connectivity=8) == RunSet.from_mask(ndimage.binary_fill_holes(mask))
    kernel = numpy.ones((5, 7), "uint8")
    image = numpy.pad(mask.astype("uint8"), 10)
    padded = RunSet.from_mask(image)
    assert padded.dilate(Element.rectangle(5, 7)) == RunSet.from_mask(cv2.dilate(image, kernel))
    assert padded.erode(Element.rectangle(5, 7)) == RunSet.from_mask(cv2.erode(image, kernel))
    contours, _ = cv2.findContours(image, cv2.RETR_CCOMP, cv2.CHAIN_APPROX_NONE)
    assert [border.tolist() for component in padded.borders() for border in component] == [
        contour[:, 0].tolist() for contour in contours]
