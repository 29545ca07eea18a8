# SPDX-License-Identifier: MIT
"""What the guide's tables say is the same as, or differs from, the functions of scikit-image, OpenCV and SciPy."""

from __future__ import annotations

import numpy
import pytest
from conftest import blobs

from kivdataconvert import Element, RunSet

skimage = pytest.importorskip("skimage")
cv2 = pytest.importorskip("cv2")
ndimage = pytest.importorskip("scipy.ndimage")

from skimage import draw, measure, morphology, segmentation  # noqa: E402

PLAIN = blobs(150, 220, seed=2)
SPECKLED = blobs(150, 220, seed=3) ^ (numpy.random.default_rng(3).random((150, 220)) < 0.03)
MASKS = pytest.mark.parametrize("mask", [PLAIN, SPECKLED])
ASYMMETRIC = RunSet([(0, 0, 2), (1, 0, 0)])
KERNEL = ASYMMETRIC.to_mask((5, 5), origin=(-2, -2)).astype("uint8")


def same(pixels: RunSet, mask: numpy.ndarray) -> bool:
    return pixels == RunSet.from_mask(mask.astype(bool))


@MASKS
def test_labels(mask: numpy.ndarray) -> None:
    pixels = RunSet.from_mask(mask)
    labels = measure.label(mask)
    assert (pixels.label_image(mask.shape) == labels).all()
    by_edges, _ = ndimage.label(mask)
    assert (pixels.label_image(mask.shape, 4) == by_edges).all()
    assert [part.box.slices for part in pixels.components(4)] == ndimage.find_objects(by_edges)
    statistics = cv2.connectedComponentsWithStats(mask.astype("uint8"))[2]
    assert sorted(pixels.measure_components()["area"]) == sorted(statistics[1:, cv2.CC_STAT_AREA])
    assert same(pixels.clear_border(mask.shape), segmentation.clear_border(labels))
    assert same(pixels.components_by_area(10), morphology.remove_small_objects(mask, max_size=9, connectivity=2))


@MASKS
def test_properties(mask: numpy.ndarray) -> None:
    pixels = RunSet.from_mask(mask)
    names = ("orientation", "axis_major_length", "axis_minor_length", "area_filled", "feret_diameter_max", "bbox")
    theirs = measure.regionprops_table(measure.label(mask), properties=names)
    ours = pixels.measure_components()
    long = (ours["area"] > 30) & (ours["major_axis"] > 1.05 * ours["minor_axis"])
    assert long.any()
    turns = (ours["orientation"] - (numpy.pi / 2 - theirs["orientation"]))[long] / numpy.pi
    numpy.testing.assert_allclose(turns, numpy.round(turns), atol=1e-9)
    numpy.testing.assert_allclose(ours["major_axis"], theirs["axis_major_length"], atol=1e-9)
    numpy.testing.assert_allclose(ours["minor_axis"], theirs["axis_minor_length"], atol=1e-6)
    assert [part.fill_holes(connectivity=4).area for part in pixels.components()] == theirs["area_filled"].tolist()
    assert (abs(ours["feret_max"] - theirs["feret_diameter_max"]) < 1).all()
    for index, name in enumerate(("top", "left", "bottom", "right")):
        assert (theirs[f"bbox-{index}"] - ours[name] == index // 2).all()


@MASKS
def test_pixels(mask: numpy.ndarray) -> None:
    pixels = RunSet.from_mask(mask)
    rows, columns = pixels.pixels()
    found = cv2.findNonZero(mask.astype("uint8")).reshape(-1, 2)
    assert (found == numpy.stack([columns, rows], axis=1)).all()
    image = numpy.arange(1, mask.size + 1).reshape(mask.shape)
    for part, theirs in zip(pixels.components(), measure.regionprops(measure.label(mask), image)):
        assert (theirs.coords == numpy.stack(part.pixels(), axis=1)).all()
        assert (theirs.image_intensity[theirs.image_intensity > 0] == image[part.pixels()]).all()


def test_small_holes() -> None:
    open_corner = numpy.ones((4, 4), bool)
    open_corner[0, 0] = open_corner[2, 2] = False
    assert RunSet.from_mask(open_corner).fill_holes(1).area == 15
    assert morphology.remove_small_holes(open_corner, max_size=1).sum() == 16
    padded = numpy.pad(SPECKLED, 3)
    assert same(RunSet.from_mask(padded).fill_holes(9), morphology.remove_small_holes(padded, max_size=9))


@MASKS
def test_morphology_at_the_border(mask: numpy.ndarray) -> None:
    assert mask[[0, -1]].any() or mask[:, [0, -1]].any()
    pixels, element, ones = RunSet.from_mask(mask), Element.rectangle(5, 7), numpy.ones((5, 7), "uint8")
    image = mask.astype("uint8")
    for dilated in (cv2.dilate(image, ones), morphology.dilation(mask, ones), ndimage.binary_dilation(mask, ones)):
        assert same(pixels.dilate(element).crop(mask.shape), dilated)
    assert same(pixels.erode(element), ndimage.binary_erosion(mask, ones))
    for eroded in (cv2.erode(image, ones), morphology.erosion(mask, ones)):
        assert pixels.erode(element) < RunSet.from_mask(eroded)
    assert same(pixels.open(element), ndimage.binary_opening(mask, ones))
    assert pixels.close(element) > RunSet.from_mask(ndimage.binary_closing(mask, ones))


def test_elements_that_are_not_symmetric() -> None:
    mask = numpy.pad(SPECKLED, 3)
    pixels, turned = RunSet.from_mask(mask), KERNEL[::-1, ::-1]
    dilated = pixels.dilate(ASYMMETRIC)
    assert same(dilated, ndimage.binary_dilation(mask, KERNEL))
    for other in (cv2.dilate, morphology.dilation):
        assert same(dilated, other(mask.astype("uint8"), turned)) and not same(dilated, other(mask.astype("uint8"), KERNEL))
    for other in (cv2.erode, morphology.erosion, ndimage.binary_erosion):
        assert same(pixels.erode(ASYMMETRIC), other(mask.astype("uint8"), KERNEL))


def test_polygons() -> None:
    random = numpy.random.default_rng(7)
    for _ in range(20):
        corners = random.uniform(0, 99, (5, 2))
        assert same(RunSet.from_polygons([corners], (100, 100)), draw.polygon2mask((100, 100), corners[:, ::-1]))
        drawn = cv2.fillPoly(numpy.zeros((100, 100), "uint8"), [numpy.round(corners).astype("int32")], 1)
        assert RunSet.from_polygons([numpy.round(corners)], (100, 100)) <= RunSet.from_mask(drawn)
