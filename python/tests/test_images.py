# SPDX-License-Identifier: MIT
"""Masks, grey images and label images of every type, memory order and stride."""

from __future__ import annotations

import numpy
import pytest
from conftest import masks
from hypothesis import given
from hypothesis import strategies as st

from kivdataconvert import RunSet, paint_labels


def pixels_of(mask: numpy.ndarray) -> RunSet:
    return RunSet([(row, col, col) for row, col in zip(*numpy.nonzero(mask))])


def layouts(array: numpy.ndarray) -> list[numpy.ndarray]:
    """The same pixels in other places of memory."""
    height, width = array.shape
    wide = numpy.zeros((2 * height, 3 * width), array.dtype)
    wide[::2, ::3] = array
    read_only = array.copy()
    read_only.flags.writeable = False
    shifted = numpy.frombuffer(bytearray(array.nbytes + 1), "uint8")[1:].view(array.dtype).reshape(array.shape)
    shifted[:] = array
    return [
        numpy.ascontiguousarray(array),
        numpy.asfortranarray(array),
        array[::-1].copy()[::-1],
        array[:, ::-1].copy()[:, ::-1],
        numpy.pad(array, 3)[3 : 3 + height, 3 : 3 + width],
        numpy.asfortranarray(numpy.pad(array, 3))[3 : 3 + height, 3 : 3 + width],
        wide[::2, ::3],
        read_only,
        shifted,
    ]


@given(masks)
def test_masks_in_any_layout(mask: numpy.ndarray) -> None:
    expected = pixels_of(mask)
    for array in layouts(mask) + layouts(mask.astype("uint8") * 200):
        assert RunSet.from_mask(array) == expected
    assert expected.to_mask(mask.shape).tolist() == mask.tolist()


def test_masks_may_be_other_buffers() -> None:
    assert RunSet.from_mask(memoryview(b"\0\1\1\0").cast("B", (2, 2))).runs.tolist() == [[0, 1, 1], [1, 0, 0]]


@pytest.mark.parametrize("kind", ["int8", "uint16", "int64", "float32", "float64", "complex64", "float16", ">u2"])
def test_masks_of_other_types_are_refused(kind: str) -> None:
    with pytest.raises(TypeError, match="mask must be of bool or uint8, not "):
        RunSet.from_mask(numpy.zeros((2, 2), kind))


@pytest.mark.parametrize("mask", [[[0, 1]], None, 5, "mask"])
def test_masks_that_are_no_arrays_are_refused(mask: object) -> None:
    with pytest.raises(TypeError, match="mask"):
        RunSet.from_mask(mask)  # type: ignore[arg-type]


@pytest.mark.parametrize("shape", [(), (4,), (2, 2, 1)])
def test_masks_have_two_dimensions(shape: tuple[int, ...]) -> None:
    with pytest.raises(ValueError, match=f"two dimensions, not {len(shape)}"):
        RunSet.from_mask(numpy.zeros(shape, "uint8"))


@given(st.sampled_from(["uint8", "uint16", "float32"]), st.floats(-2, 300), st.floats(-2, 300), st.integers(0, 99))
def test_ranges(kind: str, least: float, greatest: float, seed: int) -> None:
    image = (numpy.random.default_rng(seed).uniform(0, 256, (7, 9))).astype(kind)
    expected = pixels_of((image >= numpy.float64(least)) & (image <= numpy.float64(greatest)))
    for array in layouts(image):
        assert RunSet.from_range(array, least, greatest) == expected


def test_ranges_of_unusual_values() -> None:
    image = numpy.array([[numpy.nan, -numpy.inf, 0, numpy.inf]], "float32")
    assert RunSet.from_range(image, -numpy.inf, numpy.inf).runs.tolist() == [[0, 1, 3]]
    assert not RunSet.from_range(image, numpy.nan, 1)
    assert RunSet.from_range(image, 0, 1e300).runs.tolist() == [[0, 2, 2]]
    tenth = numpy.array([[0.1]], "float32")  # above the double 0.1
    assert not RunSet.from_range(tenth, 0, 0.1) and RunSet.from_range(tenth, 0.1, 1)
    with pytest.raises(TypeError, match="image must be of uint8, uint16 or float32, not float64"):
        RunSet.from_range(numpy.zeros((2, 2)), 0, 1)


@pytest.mark.parametrize("kind", ["uint8", "int8", "uint16", "int16", "int32", "uint32", "int64", "uint64"])
def test_labels(kind: str) -> None:
    labels = numpy.array([[0, 3, 3], [1, 0, 3], [1, 1, 0]], kind)
    for array in layouts(labels):
        sets = RunSet.from_labels(array)
        assert list(sets) == [1, 3]
        assert sets[1] == pixels_of(labels == 1) and sets[3] == pixels_of(labels == 3)


def test_labels_beyond_32_bits_are_refused() -> None:
    assert list(RunSet.from_labels(numpy.array([[2**31 - 1, -5]]))) == [-5, 2**31 - 1]
    with pytest.raises(ValueError, match="2147483648 is beyond 32 bits"):
        RunSet.from_labels(numpy.array([[2**31]]))
    with pytest.raises(TypeError, match="whole-number type, not float32"):
        RunSet.from_labels(numpy.zeros((2, 2), "float32"))


def test_paints_labels() -> None:
    sets = [RunSet([(0, 0, 2)]), RunSet([(0, 2, 9), (1, -3, 0)])]
    labels = paint_labels(sets, (2, 4))
    assert labels.dtype == numpy.int32 and labels.tolist() == [[1, 1, 2, 2], [2, 0, 0, 0]]


def test_label_images() -> None:
    pixels = RunSet([(-1, 3, 3), (0, 0, 1), (0, 3, 9), (1, 2, 2)])
    labels = pixels.label_image((2, 4))  # by corners all of it is one
    assert labels.dtype == numpy.int32 and labels.tolist() == [[1, 1, 0, 1], [0, 0, 1, 0]]
    assert pixels.label_image((2, 4), connectivity=4).tolist() == [[2, 2, 0, 1], [0, 0, 3, 0]]
    with pytest.raises(ValueError):
        pixels.label_image((2, 4), 6)


@pytest.mark.parametrize("kind", ["bool", "uint8", "uint16", "int32", "float32"])
def test_paints(kind: str) -> None:
    pixels = RunSet([(-1, 0, 1), (0, 1, 5)])
    for image in layouts(numpy.ones((2, 3), kind)):
        if image.flags.writeable and (image.strides[1] == image.itemsize or image.strides[0] == image.itemsize):
            pixels.paint(image, 0)
            assert image.tolist() == [[1, 0, 0], [1, 1, 1]]
            pixels.paint(image, 1)
            pixels.paint(image, 0, origin=(-1, 0))
            assert image.tolist() == [[0, 0, 1], [1, 0, 0]]


def test_paints_nothing_it_should_not() -> None:
    image = numpy.zeros((2, 3), "uint8")
    image.flags.writeable = False
    with pytest.raises(ValueError, match="can be written to"):
        RunSet([(0, 0, 2)]).paint(image)
    with pytest.raises(ValueError, match="dense"):
        RunSet([(0, 0, 2)]).paint(numpy.zeros((4, 6), "uint8")[::2, ::2])
    for value in (256, -1, 0.5, float("nan")):
        with pytest.raises(ValueError, match="value"):
            RunSet([(0, 0, 2)]).paint(numpy.zeros((2, 3), "uint8"), value)
    with pytest.raises(TypeError, match="float64"):
        RunSet([(0, 0, 2)]).paint(numpy.zeros((2, 3)))


def test_masks_from_far_away() -> None:
    least, most = -(2**31), 2**31 - 1
    corners = RunSet([(least, least, least), (most, most, most)])
    assert corners.to_mask((2, 2), origin=(least, least)).tolist() == [[True, False], [False, False]]
    assert corners.to_mask((2, 2), origin=(most, most)).tolist() == [[True, False], [False, False]]
    with pytest.raises(ValueError, match="negative"):
        corners.to_mask((-1, 2))
