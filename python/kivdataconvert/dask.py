# SPDX-License-Identifier: MIT
"""Run sets, components and measures of images larger than a machine, by Dask.

A chunk of an image becomes runs where it is; what goes on from there are runs, and of components that no longer can grow
only their measures. Chunks are joined two by two in each direction, up to the whole image. The results are those of the
whole image on one machine, bit for bit, whatever the chunks, the scheduler and the order of work.

All functions take a two-dimensional dask array and return what Dask computes later: ``measure_components(image).compute()``.
A pixel belongs if it is True or not 0; for other images ``extract`` makes a RunSet of a chunk, pixel by pixel, such as
``lambda chunk: RunSet.from_range(chunk, 100, 255)``.
"""

from __future__ import annotations

from typing import Any, Callable, Dict, List, NamedTuple, Sequence, Tuple

import dask
import dask.array
import numpy
import numpy.typing
from dask.delayed import Delayed

from ._core import RunSet, paint_labels
from ._types import Box, Measures

__all__ = ["components", "label", "measure_components", "mosaic", "run_set"]

Extract = Callable[[Any], RunSet]
Table = Dict[str, Any]  # arrays, by the names of Measures
Found = List[Any]


class _Part(NamedTuple):
    """What is known of a rectangle of the image."""

    box: Box
    open: RunSet  # components that reach the rectangle's border, beyond which they may go on
    found: Found  # what was made of the others


def run_set(image: dask.array.Array, *, extract: Extract = RunSet.from_mask) -> Delayed:
    """The pixels of the image, as a Delayed RunSet."""
    join = dask.delayed(lambda block: RunSet.union([pixels for row in block for pixels in row]), pure=True)
    return _reduced(_extracted(image, extract), join)


def components(image: dask.array.Array, connectivity: int = 8, *, extract: Extract = RunSet.from_mask) -> Delayed:
    """The components of the image, as a Delayed list of RunSet: that of ``RunSet.components``, in the same order."""
    return dask.delayed(_sorted_components, pure=True)(_parted(image, connectivity, extract, _components))


def measure_components(image: dask.array.Array, connectivity: int = 8, *, extract: Extract = RunSet.from_mask) -> Delayed:
    """The measures of the image's components, as a Delayed dict of arrays: that of ``RunSet.measure_components``.

    Runs of a component are forgotten as soon as all of it is in one piece, so what is kept in the end is the table.
    """
    return dask.delayed(_sorted_table, pure=True)(_parted(image, connectivity, extract, _rows))


def label(image: dask.array.Array, connectivity: int = 8, *, extract: Extract = RunSet.from_mask) -> dask.array.Array:
    """The label image, of int32, in the chunks of the image: 1 for the first component's pixels, 2 for the second one's.

    Every chunk waits for the runs of the whole image.
    """
    whole = dask.delayed(_numbered, pure=True)(run_set(image, extract=extract), connectivity)
    cut, paint = dask.delayed(_cut, pure=True), dask.delayed(_painted, pure=True)
    boxes = _boxes(image)
    return dask.array.block(
        [
            [dask.array.from_delayed(paint(cut(whole, box), box), box.shape, numpy.int32) for box in row]
            for row in boxes
        ]
    )


def mosaic(
    files: Sequence[Sequence[Any]],
    read: Callable[[Any], Any],
    heights: Sequence[int],
    widths: Sequence[int],
    dtype: numpy.typing.DTypeLike = bool,
) -> dask.array.Array:
    """One image of files that lie side by side: a list of rows, each a list of what ``read`` makes an array of.

    ``heights`` are those of the rows of files, ``widths`` those of the columns. A file is a chunk, and is read when it is
    worked on.
    """
    load = dask.delayed(_loaded, pure=True)
    if len(files) != len(heights) or any(len(row) != len(widths) for row in files):
        raise ValueError(f"files must be {len(heights)} rows of {len(widths)}")
    return dask.array.block(
        [
            [
                dask.array.from_delayed(load(read, file, (height, width)), (height, width), dtype)
                for file, width in zip(row, widths)
            ]
            for row, height in zip(files, heights)
        ]
    )


def _loaded(read: Callable[[Any], Any], file: Any, shape: Tuple[int, int]) -> Any:
    array = read(file)
    if array.shape != shape:
        raise ValueError(f"{file} must have the shape {shape}, not {array.shape}")
    return array


def _boxes(image: dask.array.Array) -> List[List[Box]]:
    """Where the chunks lie."""
    if not isinstance(image, dask.array.Array):
        raise TypeError(f"image must be a dask array, not {type(image).__name__}")
    if image.ndim != 2:
        raise ValueError(f"image must have two dimensions, not {image.ndim}")
    if any(numpy.isnan(size) for size in image.shape):
        raise ValueError("the image's chunks must have known sizes; see dask.array.Array.compute_chunk_sizes")
    if any(size > 2**31 - 1 for size in image.shape):
        raise ValueError(f"image must have at most 2147483647 rows and columns, not {image.shape}")
    rows, cols = ([(end - size, end - 1) for size, end in zip(sizes, numpy.cumsum(sizes).tolist())] for sizes in image.chunks)
    return [[Box(*row, *col) for col in cols] for row in rows]


def _extracted(image: dask.array.Array, extract: Extract) -> List[List[Delayed]]:
    """The runs of each chunk, in the place of the chunk."""
    runs_of = dask.delayed(_runs_of_chunk, pure=True)
    return [
        [runs_of(chunk, box, extract) for chunk, box in zip(chunks, boxes)]
        for boxes, chunks in zip(_boxes(image), image.to_delayed())
    ]


def _runs_of_chunk(chunk: Any, box: Box, extract: Extract) -> RunSet:
    pixels = extract(numpy.asarray(chunk))
    if not isinstance(pixels, RunSet):
        raise TypeError(f"extract must return a RunSet, not {type(pixels).__name__}")
    return pixels.crop(box.shape).translate(box.row_begin, box.col_begin)


def _reduced(grid: List[List[Delayed]], join: Callable[[Any], Delayed]) -> Delayed:
    """What joining neighbours, two by two in each direction, makes of a grid. Rectangles stay rectangles."""
    if not grid or not grid[0]:
        return join([])
    while True:
        grid = [
            [join([row[x : x + 2] for row in grid[y : y + 2]]) for x in range(0, len(grid[0]), 2)]
            for y in range(0, len(grid), 2)
        ]
        if len(grid) == 1 and len(grid[0]) == 1:
            return grid[0][0]


def _parted(image: dask.array.Array, connectivity: int, extract: Extract, make: Callable[[RunSet, int], Any]) -> Delayed:
    """The part that is the whole image, with what ``make`` gives of its components."""
    if connectivity not in (4, 8):
        raise ValueError(f"connectivity must be 4 or 8, not {connectivity}")
    boxes = _boxes(image)
    part, join = dask.delayed(_part, pure=True), dask.delayed(_joined, pure=True)
    parts = [
        [part([], pixels, box, image.shape, connectivity, make) for pixels, box in zip(*rows)]
        for rows in zip(_extracted(image, extract), boxes)
    ]
    return _reduced(parts, lambda block: join(block, image.shape, connectivity, make))


def _part(found: Found, pixels: RunSet, box: Box, shape: Tuple[int, int], connectivity: int, make: Any) -> _Part:
    """Makes something of the components within a rectangle that cannot grow, and keeps the others."""
    # Beyond the border of the image nothing goes on.
    height, width = shape
    within = Box(
        box.row_begin - (box.row_begin == 0),
        box.row_end + (box.row_end == height - 1),
        box.col_begin - (box.col_begin == 0),
        box.col_end + (box.col_end == width - 1),
    )
    closed = pixels.clear_border(within, connectivity)
    return _Part(box, pixels - closed, [*found, make(closed, connectivity)] if closed else found)


def _joined(block: List[List[_Part]], shape: Tuple[int, int], connectivity: int, make: Any) -> _Part:
    parts = [part for row in block for part in row if min(part.box.shape) > 0]
    if not parts:
        return block[0][0] if block else _Part(Box(0, -1, 0, -1), RunSet(), [])
    box = Box(
        min(part.box.row_begin for part in parts),
        max(part.box.row_end for part in parts),
        min(part.box.col_begin for part in parts),
        max(part.box.col_end for part in parts),
    )
    found = [what for part in parts for what in part.found]
    return _part(found, RunSet.union(part.open for part in parts), box, shape, connectivity, make)


def _components(pixels: RunSet, connectivity: int) -> List[RunSet]:
    return pixels.components(connectivity)


def _sorted_components(part: _Part) -> List[RunSet]:
    return sorted((pixels for found in part.found for pixels in found), key=lambda pixels: tuple(pixels.runs[0]))


def _rows(pixels: RunSet, connectivity: int) -> Table:
    """The measures of the components, and their first pixels, by which they are ordered."""
    table = pixels.measure_components(connectivity)
    firsts = numpy.unique(pixels.component_numbers(connectivity), return_index=True)[1]
    table["first_row"], table["first_col"] = pixels.runs[firsts, :2].T.astype(numpy.int64)
    return table


def _sorted_table(part: _Part) -> Table:
    tables = part.found or [RunSet().measure_components()]
    columns = {name: numpy.concatenate([table[name] for table in tables]) for name in tables[0]}
    if not part.found:
        return columns
    order = numpy.lexsort((columns["first_col"], columns["first_row"]))
    return {name: columns[name][order] for name in columns if name in Measures._fields}


def _numbered(pixels: RunSet, connectivity: int) -> Tuple[RunSet, Any]:
    return pixels, pixels.component_numbers(connectivity)


def _cut(whole: Tuple[RunSet, Any], box: Box) -> Tuple[Any, Any]:
    """The runs of a box and their labels."""
    runs, numbers = whole[0].runs, whole[1]
    begin, end = numpy.searchsorted(runs[:, 0], [box.row_begin, box.row_end + 1])
    runs, numbers = runs[begin:end], numbers[begin:end]
    inside = (runs[:, 1] <= box.col_end) & (runs[:, 2] >= box.col_begin)
    return runs[inside], numbers[inside] + 1


def _painted(cut: Tuple[Any, Any], box: Box) -> Any:
    runs, labels = cut
    present, places = numpy.unique(labels, return_inverse=True)
    runs = runs - numpy.array([box.row_begin, box.col_begin, box.col_begin])
    by_label = numpy.argsort(places, kind="stable")
    groups = numpy.split(runs[by_label], numpy.searchsorted(places[by_label], numpy.arange(1, len(present))))
    values = numpy.concatenate([[0], present]).astype(numpy.int32)
    return values[paint_labels([RunSet(group) for group in groups] if len(present) else [], box.shape)]
