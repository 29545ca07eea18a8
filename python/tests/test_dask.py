# SPDX-License-Identifier: MIT
"""Images in chunks give what they give as a whole, on every scheduler, also when a worker is lost."""

from __future__ import annotations

import functools
import os
import pathlib
import signal
import time
from typing import Any

import numpy
import pytest
from conftest import blobs, masks
from hypothesis import given, settings
from hypothesis import strategies as st

from kivdataconvert import RunSet

dask = pytest.importorskip("dask")
array = pytest.importorskip("dask.array")
kiv = pytest.importorskip("kivdataconvert.dask")

CHUNKS = [(1, 1), (2, 3), (5, 5), (1, 100), (100, 1), (7, 11), ((3, 1, 0, 12), (1, 2, 21))]


def assert_same_tables(ours: dict[str, Any], theirs: dict[str, Any]) -> None:
    assert ours.keys() == theirs.keys()
    for name in theirs:
        assert ours[name].tobytes() == theirs[name].tobytes() and ours[name].dtype == theirs[name].dtype, name


def check(image: Any, mask: numpy.ndarray, connectivity: int) -> None:
    whole = RunSet.from_mask(mask)
    pixels, parts, table, labels = dask.compute(
        kiv.run_set(image), kiv.components(image, connectivity), kiv.measure_components(image, connectivity),
        kiv.label(image, connectivity))
    assert pixels == whole
    assert parts == whole.components(connectivity)
    assert_same_tables(table, whole.measure_components(connectivity))
    expected = numpy.zeros(mask.shape, "int32")
    for number, part in enumerate(whole.components(connectivity)):
        part.paint(expected, number + 1)
    assert labels.dtype == numpy.int32 and labels.tolist() == expected.tolist()


@pytest.mark.parametrize("chunks", CHUNKS)
@pytest.mark.parametrize("connectivity", [4, 8])
def test_chunks_do_not_matter(chunks: Any, connectivity: int) -> None:
    mask = blobs(16, 24, seed=3) ^ (numpy.random.default_rng(1).random((16, 24)) < 0.05)
    with dask.config.set(scheduler="synchronous"):
        check(array.from_array(mask, chunks=chunks), mask, connectivity)


@settings(max_examples=25)
@given(masks.filter(lambda mask: mask.size), st.integers(1, 5), st.integers(1, 5), st.sampled_from([4, 8]))
def test_small_masks_in_chunks(mask: numpy.ndarray, rows: int, cols: int, connectivity: int) -> None:
    with dask.config.set(scheduler="synchronous"):
        check(array.from_array(mask, chunks=(rows, cols)), mask, connectivity)


def test_shapes_that_wind_through_chunks() -> None:
    """A spiral and a ring around tiles: components that stay open until the end."""
    spiral = numpy.zeros((33, 33), bool)
    top, bottom, left, right = 0, 32, 0, 32
    while right - left > 3:
        spiral[top, left : right + 1] = spiral[top : bottom + 1, right] = True
        spiral[bottom, left + 2 : right + 1] = spiral[top + 2 : bottom + 1, left + 2] = True
        top, bottom, left, right = top + 2, bottom - 2, left + 2, right - 2
    for chunks in (4, 8, 11):
        for mask in (spiral, ~spiral):
            check(array.from_array(mask, chunks=chunks), mask, 8)


def test_other_images() -> None:
    grey = numpy.random.default_rng(5).integers(0, 65536, (50, 40)).astype("uint16")
    image = array.from_array(grey, chunks=13)
    extract = functools.partial(RunSet.from_range, least=1000, greatest=30000)
    assert kiv.run_set(image, extract=extract).compute() == RunSet.from_range(grey, 1000, 30000)


def test_empty_images() -> None:
    image = array.zeros((20, 20), chunks=6, dtype=bool)
    assert kiv.components(image).compute() == []
    assert_same_tables(kiv.measure_components(image).compute(), RunSet().measure_components())
    assert not kiv.label(image).compute().any()


def test_what_is_no_image_is_refused() -> None:
    with pytest.raises(TypeError, match="dask array, not ndarray"):
        kiv.run_set(numpy.zeros((2, 2)))
    with pytest.raises(ValueError, match="two dimensions, not 3"):
        kiv.run_set(array.zeros((2, 2, 2)))
    with pytest.raises(ValueError, match="at most 2147483647"):
        kiv.run_set(array.zeros((2, 2**31), chunks=(2, 2**30)))
    with pytest.raises(ValueError, match="known sizes"):
        known = array.zeros((4, 4), chunks=2)
        kiv.run_set(known[known[:, 0] > 0])
    with pytest.raises(ValueError, match="4 or 8"):
        kiv.components(array.zeros((2, 2), dtype=bool), 6)
    with pytest.raises(TypeError, match="float64"):
        kiv.run_set(array.zeros((2, 2))).compute()
    with pytest.raises(TypeError, match="must return a RunSet"):
        kiv.run_set(array.zeros((2, 2)), extract=lambda chunk: chunk).compute()


def test_mosaics_of_files(tmp_path: pathlib.Path) -> None:
    mask = blobs(30, 50, seed=2)
    heights, widths = (10, 20), (25, 20, 5)
    files = []
    for row, top in zip(heights, (0, 10)):
        files.append([])
        for col, left in zip(widths, (0, 25, 45)):
            files[-1].append(tmp_path / f"{top}-{left}.npy")
            numpy.save(files[-1][-1], mask[top : top + row, left : left + col])
    check(kiv.mosaic(files, numpy.load, heights, widths), mask, 8)
    with pytest.raises(ValueError, match="2 rows of 2"):
        kiv.mosaic(files, numpy.load, heights, (25, 20))
    with pytest.raises(ValueError, match="must have the shape"):
        kiv.run_set(kiv.mosaic(files, numpy.load, heights, (25, 21, 5))).compute()


def _lose_a_worker(flag: str, block: numpy.ndarray) -> RunSet:
    """Ends the process that works on a chunk, once."""
    try:
        os.close(os.open(flag, os.O_CREAT | os.O_EXCL))
    except FileExistsError:
        time.sleep(0.01)
        return RunSet.from_mask(block)
    os.kill(os.getpid(), signal.SIGKILL)
    raise AssertionError("not reached")


def test_a_cluster_that_loses_a_worker(tmp_path: pathlib.Path) -> None:
    distributed = pytest.importorskip("distributed")
    mask = blobs(200, 300, seed=9)
    image = array.from_array(mask, chunks=32)
    with dask.config.set({"distributed.comm.timeouts.connect": "60s"}), distributed.LocalCluster(
        n_workers=2, threads_per_worker=1, processes=True, dashboard_address=None
    ) as cluster, distributed.Client(cluster):
        check(image, mask, 8)
        flag = tmp_path / "lost"
        extract = functools.partial(_lose_a_worker, str(flag))
        assert_same_tables(
            kiv.measure_components(image, extract=extract).compute(), RunSet.from_mask(mask).measure_components())
        assert flag.exists()
