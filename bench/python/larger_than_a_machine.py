# SPDX-License-Identifier: MIT
"""Measures the components of a mask that exists nowhere as a whole, on two workers, and says what that took.

    build/python/bin/python bench/python/larger_than_a_machine.py [SIDE]      # 100,000 pixels if not given
"""

from __future__ import annotations

import functools
import resource
import sys
import time
from typing import Any, Dict

import dask.array
import distributed
import numpy

import kivdataconvert.dask

CHUNK = 4096
PERIOD = 1000
RADIUS = 450


@functools.lru_cache(maxsize=1)
def disc() -> Any:
    """What the mask repeats: a disc with a smaller one cut out."""
    rows, cols = numpy.ogrid[:PERIOD, :PERIOD]
    squares = (rows - PERIOD // 2) ** 2 + (cols - PERIOD // 2) ** 2
    return (squares <= RADIUS**2) & (squares > (RADIUS // 3) ** 2)


def chunk(block_info: Dict[Any, Any]) -> Any:
    rows, cols = (numpy.arange(begin, end) % PERIOD for begin, end in block_info[None]["array-location"])
    return disc()[rows[:, None], cols]


def peak_of_process() -> int:
    """The most memory that this process had, in bytes."""
    return resource.getrusage(resource.RUSAGE_SELF).ru_maxrss * 1024


def sizes_of_chunks(side: int) -> Any:
    return tuple(min(CHUNK, side - begin) for begin in range(0, side, CHUNK))


def main() -> None:
    side = int(sys.argv[1]) if len(sys.argv) > 1 else 100_000
    sizes = sizes_of_chunks(side)
    cluster = distributed.LocalCluster(n_workers=2, threads_per_worker=1, dashboard_address=None)
    with cluster, distributed.Client(cluster) as client:
        idle = client.run(peak_of_process)
        begin = time.perf_counter()
        image = dask.array.map_blocks(chunk, chunks=(sizes, sizes), dtype=bool, meta=numpy.empty((0, 0), bool))
        table = kivdataconvert.dask.measure_components(image).compute()
        taken = time.perf_counter() - begin
        peaks = client.run(peak_of_process)
    whole = table["area"][(table["bottom"] // PERIOD < side // PERIOD) & (table["right"] // PERIOD < side // PERIOD)]
    assert len(whole) == (side // PERIOD) ** 2 and (whole == disc().sum()).all()
    print(f"{side} x {side} pixels in {len(sizes) ** 2} chunks: {len(table['area'])} components, {taken:.0f} s")
    for worker in peaks:
        print(f"a worker: {idle[worker] / 2**20:.0f} MiB before, {peaks[worker] / 2**20:.0f} MiB at most")


if __name__ == "__main__":
    main()
