# SPDX-License-Identifier: MIT
"""Run sets as values of Python, and their algebra, held to masks."""

from __future__ import annotations

import copy
import pickle
import sys
import threading

import numpy
import pytest
from conftest import masks, pairs_of_masks
from hypothesis import given
from hypothesis import strategies as st

import kivdataconvert
from kivdataconvert import Box, RunSet

BAR = RunSet([(0, 2, 5), (1, 2, 5)])

ints = st.integers(-(2**31), 2**31 - 1)


def test_makes_sets_of_runs_in_any_order() -> None:
    assert RunSet().area == 0
    assert RunSet([]) == RunSet(numpy.zeros((0, 3), "int32")) == RunSet()
    assert RunSet([(1, 4, 6), (0, 0, 0), (1, 2, 3), (1, 9, 8)]).runs.tolist() == [[0, 0, 0], [1, 2, 6]]
    for kind in "bBhHiIqQ":
        assert RunSet(numpy.array([[1, 2, 3]], kind)).runs.tolist() == [[1, 2, 3]]


@pytest.mark.parametrize(
    "runs, error, words",
    [
        ([(0, 1)], ValueError, "three columns"),
        ([(0, 1, 2, 3)], ValueError, "three columns"),
        ([0, 1, 2], ValueError, "two dimensions, not 1"),
        ([(0.0, 1.0, 2.0)], TypeError, "whole numbers, not float64"),
        (numpy.zeros((1, 3), bool), TypeError, "whole numbers, not bool"),
        ([(0, 1, 2**31)], ValueError, "2147483648 is beyond 32 bits"),
        ([(0, -(2**31) - 1, 2)], ValueError, "beyond 32 bits"),
        (5, TypeError, "int"),
    ],
)
def test_refuses_what_are_no_runs(runs: object, error: type[Exception], words: str) -> None:
    with pytest.raises(error, match=words):
        RunSet(runs)


@given(masks)
def test_pixels_are_those_of_the_mask(mask: numpy.ndarray) -> None:
    rows, columns = RunSet.from_mask(mask).pixels()
    expected = numpy.nonzero(mask)
    assert rows.dtype == columns.dtype == numpy.int32
    numpy.testing.assert_array_equal(rows, expected[0])
    numpy.testing.assert_array_equal(columns, expected[1])


def test_pixels_index_images() -> None:
    image = numpy.arange(20).reshape(2, 10)
    assert image[BAR.pixels()].tolist() == [2, 3, 4, 5, 12, 13, 14, 15]
    assert image[RunSet().pixels()].tolist() == []
    rows, columns = RunSet([(-(2**31), 2**31 - 2, 2**31 - 1)]).pixels()
    assert rows.tolist() == [-(2**31)] * 2 and columns.tolist() == [2**31 - 2, 2**31 - 1]
    rows[0] = 7  # they are the caller's


def test_runs_are_a_read_only_view() -> None:
    runs = BAR.runs
    assert runs.dtype == numpy.int32 and runs.tolist() == [[0, 2, 5], [1, 2, 5]]
    assert not runs.flags.writeable and not runs.flags.owndata
    with pytest.raises(ValueError):
        runs[0, 0] = 7
    assert RunSet().runs.shape == (0, 3)
    lasting = RunSet([(7, 1, 2)]).runs
    assert lasting.tolist() == [[7, 1, 2]]
    assert numpy.shares_memory(BAR.runs, BAR.runs)


def test_is_a_value() -> None:
    assert {BAR: 1}[RunSet([(1, 2, 5), (0, 2, 5)])] == 1
    assert hash(BAR) != hash(RunSet([(0, 2, 5), (1, 2, 6)]))
    assert BAR != RunSet() and BAR != 5 and not BAR == "bar"
    assert copy.copy(BAR) is BAR and copy.deepcopy(BAR) is BAR
    assert BAR and not RunSet()
    with pytest.raises(TypeError):
        BAR | 5  # noqa: B018
    with pytest.raises(AttributeError):
        BAR.area = 3  # type: ignore[misc]
    with pytest.raises(TypeError):
        type("Derived", (RunSet,), {})


def test_prints_one_line() -> None:
    assert repr(BAR) == "RunSet(8 pixels, 2 runs, rows 0 to 1, columns 2 to 5)"
    assert repr(RunSet([(-1, 3, 3)])) == "RunSet(1 pixel, 1 run, rows -1 to -1, columns 3 to 3)"
    assert repr(RunSet()) == "RunSet(empty)"
    assert "\n" not in repr(RunSet([(-(2**31), -(2**31), 2**31 - 1), (2**31 - 1, 0, 0)]))


def test_knows_its_pixels() -> None:
    assert (0, 2) in BAR and (1, 5) in BAR
    assert (0, 1) not in BAR and (2, 2) not in BAR and (0, 6) not in BAR
    assert numpy.array([1, 2]) in BAR
    with pytest.raises(TypeError, match="pair"):
        5 in BAR  # type: ignore[operator] # noqa: B015
    with pytest.raises(ValueError, match="not 3 of them"):
        (1, 2, 3) in BAR  # type: ignore[operator] # noqa: B015
    assert BAR.runs_of_row(1) == RunSet([(1, 2, 5)]) and not BAR.runs_of_row(2)


@given(st.lists(st.tuples(ints, ints, ints), max_size=5))
def test_pickles(runs: list[tuple[int, int, int]]) -> None:
    pixels = RunSet(runs)
    for protocol in range(2, pickle.HIGHEST_PROTOCOL + 1):
        assert pickle.loads(pickle.dumps(pixels, protocol)) == pixels


def test_pickles_out_of_band() -> None:
    pixels = RunSet([(row, 0, row) for row in range(1000)])
    buffers: list[pickle.PickleBuffer] = []
    data = pickle.dumps(pixels, protocol=5, buffer_callback=buffers.append)
    assert len(data) < 200 and len(buffers) == 1
    assert buffers[0].raw().nbytes == 12000
    assert pickle.loads(data, buffers=buffers) == pixels


def test_functions_pickle() -> None:
    for function in (RunSet.from_mask, RunSet.union, kivdataconvert.paint_labels):
        again = pickle.loads(pickle.dumps(function))
        assert again.__qualname__ == function.__qualname__
    assert pickle.loads(pickle.dumps(RunSet.from_range))(numpy.ones((1, 3), "uint8"), 1, 2).area == 3


def test_refuses_broken_pickles() -> None:
    unpickle = RunSet().__reduce_ex__(2)[0]
    with pytest.raises(ValueError, match="part of a run"):
        unpickle(b"12345")
    with pytest.raises(ValueError):
        unpickle(numpy.array([[1, 0, 3], [0, 0, 3]], "int32").tobytes())
    with pytest.raises(TypeError):
        unpickle(5)


def test_tells_its_size() -> None:
    few, many = RunSet([(0, 0, 0)]), RunSet([(2 * row, 0, 0) for row in range(1001)])
    assert sys.getsizeof(many) - sys.getsizeof(few) == 12000


@given(pairs_of_masks)
def test_algebra_is_that_of_masks(pair: tuple[numpy.ndarray, numpy.ndarray]) -> None:
    a, b = pair
    x, y = RunSet.from_mask(a), RunSet.from_mask(b)
    assert x | y == RunSet.from_mask(a | b) == RunSet.union([x, y])
    assert x & y == RunSet.from_mask(a & b)
    assert x - y == RunSet.from_mask(a & ~b)
    assert x ^ y == RunSet.from_mask(a ^ b)
    assert x.complement(a.shape) == RunSet.from_mask(~a)
    assert RunSet.from_box(a.shape) == x | RunSet.from_mask(~a)
    subset = bool((b | ~a).all())
    assert (x <= y) == subset and (y >= x) == subset
    assert (x < y) == (y > x) == (subset and bool((a != b).any()))
    assert x.intersects(y) == bool((a & b).any())
    assert x.intersection_area(y) == (a & b).sum() and x.union_area(y) == (a | b).sum()
    assert x.iou(y) == ((a & b).sum() / (a | b).sum() if (a | b).any() else 1)


def test_unites_many() -> None:
    assert RunSet.union([]) == RunSet()
    assert RunSet.union(RunSet([(0, col, col)]) for col in range(100)) == RunSet([(0, 0, 99)])
    with pytest.raises(TypeError):
        RunSet.union([BAR, 5])  # type: ignore[list-item]


@given(masks, st.integers(-20, 20), st.integers(-20, 20), st.integers(-5, 5))
def test_transforms_are_those_of_arrays(mask: numpy.ndarray, rows: int, cols: int, quarters: int) -> None:
    pixels = RunSet.from_mask(mask)
    assert pixels.translate(rows, cols).to_mask(mask.shape, origin=(rows, cols)).tolist() == mask.tolist()
    assert pixels.flip_left_right(mask.shape) == RunSet.from_mask(mask[:, ::-1])
    assert pixels.flip_up_down(mask.shape) == RunSet.from_mask(mask[::-1])
    assert pixels.transpose() == RunSet.from_mask(mask.T)
    assert pixels.turn(quarters, mask.shape) == RunSet.from_mask(numpy.rot90(mask, -quarters))
    assert pixels.scale_up(3, 2) == RunSet.from_mask(mask.repeat(3, axis=0).repeat(2, axis=1))
    part = Box(1, 4, 2, 6)
    assert pixels.crop(part).translate(-1, -2) == RunSet.from_mask(mask[part.slices])


def test_overflow_is_an_error() -> None:
    with pytest.raises(OverflowError):
        BAR.translate(0, 2**31 - 1)
    with pytest.raises((OverflowError, TypeError)):
        BAR.translate(0, 2**31)


@pytest.mark.parametrize("box", [(1, 2, 3), (1,), (1, 2, 3, 4, 5), "ab1", 5, (1.0, 2.0), (-1, 2), (2**31, 1)])
def test_refuses_what_are_no_boxes(box: object) -> None:
    with pytest.raises((TypeError, ValueError)):
        BAR.crop(box)  # type: ignore[arg-type]


def test_boxes_know_their_slices() -> None:
    box = BAR.box
    assert box == (0, 1, 2, 5) and box.shape == (2, 4)
    assert box.slices == (slice(0, 2), slice(2, 6))
    assert Box(3, 2, 0, 0).shape == (0, 1)
    with pytest.raises(ValueError):
        RunSet().box  # noqa: B018


def test_other_threads_read_the_same_set() -> None:
    pixels = RunSet([(row, 0, row) for row in range(20000)])
    results: list[bool] = []

    def work() -> None:
        for _ in range(20):
            results.append((pixels | pixels.translate(0, 1)).area == pixels.area + 20000)

    threads = [threading.Thread(target=work) for _ in range(4)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert results == [True] * 80


def test_shows_itself_in_notebooks() -> None:
    assert RunSet()._repr_png_() is None
    picture = BAR._repr_png_()
    assert picture is not None and picture.startswith(b"\x89PNG")
    assert picture[16:24] == (6).to_bytes(4, "big") + (4).to_bytes(4, "big")  # the set and a pixel around it
    large = RunSet([(-1000, -1000, -1000), (10**6, 10**6, 10**6)])._repr_png_()
    assert large is not None
    assert all(int.from_bytes(large[at : at + 4], "big") <= 300 for at in (16, 20))
