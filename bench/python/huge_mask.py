# SPDX-License-Identifier: MIT
"""Measures the components of a mask that exists nowhere as a whole, by two processes, and tells time and memory.

    python bench/python/huge_mask.py [SIDE [CHUNK]]     100000 and 4000 if left out

The mask has a disc of radius 30 every 97 rows and 89 columns, rings of up to half its side across all of it, and
therefore components of all sizes. What comes out is compared with what the runs of the whole mask give on one machine.
"""

from __future__ import annotations

import resource
import sys
import time
from typing import Any

import dask.array
import numpy
from distributed import Client, LocalCluster

import kivdataconvert.dask
from kivdataconvert import RunSet


def pixels(top: int, left: int, height: int, width: int, side: int) -> Any:
    """The mask's pixels in a box."""
    rows = numpy.arange(top, top + height, dtype=numpy.int32)[:, None]
    cols = numpy.arange(left, left + width, dtype=numpy.int32)[None, :]
    mask = (rows % 97 - 48) ** 2 + (cols % 89 - 44) ** 2 <= 900
    distance = numpy.hypot((rows - side / 2).astype(numpy.float32), (cols - side / 2).astype(numpy.float32))
    return mask | (distance % (side / 8) < 40)


def chunk(block_info: Any = None, side: int = 0) -> Any:
    (top, bottom), (left, right) = block_info[None]["array-location"]
    return pixels(top, left, bottom - top, right - left, side)


def peak() -> int:
    """The most memory that this process ever had, in MB."""
    return resource.getrusage(resource.RUSAGE_SELF).ru_maxrss // 1024


def main(side: int, chunk_side: int) -> None:
    sizes = dask.array.core.normalize_chunks(chunk_side, (side, side))
    mask = dask.array.map_blocks(chunk, chunks=sizes, dtype=bool, side=side, meta=numpy.zeros((0, 0), bool))
    with LocalCluster(n_workers=2, threads_per_worker=1, processes=True, dashboard_address=None) as cluster:
        with Client(cluster) as client:
            start = time.perf_counter()
            table = kivdataconvert.dask.measure_components(mask).compute()
            seconds = time.perf_counter() - start
            print(f"{side} x {side} pixels in chunks of {chunk_side}: {len(table['area'])} components of "
                  f"{table['area'].sum()} pixels in {seconds:.0f} s; peak memory of the workers, in MB: "
                  f"{sorted(client.run(peak).values())}", flush=True)
    start = time.perf_counter()
    strips = [RunSet.from_mask(pixels(top, 0, min(1000, side - top), side, side)).translate(top, 0)
              for top in range(0, side, 1000)]
    expected = RunSet.union(strips).measure_components()
    same = all(table[name].tobytes() == expected[name].tobytes() for name in expected)
    print(f"The runs of the whole mask, on one machine, give {'the same' if same else 'SOMETHING ELSE'} "
          f"({time.perf_counter() - start:.0f} s, {peak()} MB)")
    sys.exit(not same)


if __name__ == "__main__":
    main(*(int(argument) for argument in (sys.argv[1:] + ["100000", "4000"][len(sys.argv) - 1:])))
