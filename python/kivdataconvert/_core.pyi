# SPDX-License-Identifier: MIT
"""Run sets; kivdataconvert has their names."""

from collections.abc import Iterable, Mapping
import enum
from typing import Any, SupportsIndex

import numpy
import numpy.typing

import collections.abc
import typing
from typing import Any

import numpy
import numpy.typing

from ._types import Box, BoxLike, Buffer, Measures

class RunSet:
    """
    A set of pixels, held as its maximal runs.

    Pixels are (row, column), as arrays are indexed; rows and columns may be any 32-bit ints, also negative ones. A set has
    no frame, cannot be changed, and can be a key of a dict. Two sets are equal if and only if they have the same pixels, and
    a set is true if it has any.

    >>> from kivdataconvert import RunSet
    >>> bar = RunSet([(0, 2, 5), (1, 2, 5)])
    >>> bar.area, (0, 5) in bar, (0, 6) in bar
    (8, True, False)
    >>> bar | RunSet([(1, 4, 9)])
    RunSet(12 pixels, 2 runs, rows 0 to 1, columns 2 to 9)
    """

    def __init__(self, runs: numpy.typing.ArrayLike = ()) -> None:
        """
        The pixels that any of the runs covers.

        Each run is a row, the first column and the last one, which is included. Runs may come in any order, overlap, touch and
        repeat; one whose first column lies past its last one covers nothing. ``runs`` is an array of three columns of any
        whole-number type, or anything that numpy.asarray makes one of.

        Raises TypeError if the numbers are not whole, ValueError if they are not three to a run or beyond 32 bits.
        """

    @property
    def area(self) -> int:
        """Number of pixels."""

    @property
    def n_runs(self) -> int:
        """Number of runs."""

    @property
    def runs(self) -> numpy.typing.NDArray[numpy.int32]:
        """
        The runs as a read-only array of shape (n_runs, 3), without a copy: row, first column, last column.

        Rows ascend, and within a row columns do; at least one pixel that does not belong separates two runs of a row.
        """

    def pixels(self) -> tuple[numpy.typing.NDArray[numpy.int32], numpy.typing.NDArray[numpy.int32]]:
        """
        The rows and the columns of all pixels, as numpy.nonzero() gives them of a mask.

        ``image[a.pixels()]`` are the values of an image at the pixels, row by row and from left to right. Pixels must lie in the
        image then: negative rows and columns count from its ends.
        """

    def runs_of_row(self, row: int) -> RunSet:
        """The pixels of one row, as a set. Found by binary search."""

    def __or__(self, arg: RunSet, /) -> RunSet:
        """Union: the pixels of any of them."""

    def __and__(self, arg: RunSet, /) -> RunSet:
        """Intersection: the pixels of both."""

    def __sub__(self, arg: RunSet, /) -> RunSet:
        """Difference: the pixels of the first that the second has not."""

    def __xor__(self, arg: RunSet, /) -> RunSet:
        """Symmetric difference: the pixels of one of them only."""

    def __eq__(self, other: object, /) -> bool:
        """Whether both have the same pixels."""

    def __le__(self, arg: RunSet, /) -> bool:
        """Whether the other set has all pixels of this one."""

    def __ge__(self, arg: RunSet, /) -> bool:
        """Whether this set has all pixels of the other one."""

    def __lt__(self, arg: RunSet, /) -> bool:
        """Whether it is a subset, and not equal."""

    def __gt__(self, arg: RunSet, /) -> bool:
        """Whether the other one is a subset, and not equal."""

    def __contains__(self, pixel: tuple[int, int], /) -> bool:
        """
        Whether pixel (row, column) belongs to the set. Found by binary search.
        """

    def __bool__(self) -> bool:
        """Whether the set has any pixels."""

    @staticmethod
    def union(sets: Iterable[RunSet]) -> RunSet:
        """
        The pixels of any of the sets: linear in all runs, times the logarithm of the number of sets.
        """

    @staticmethod
    def from_polygons(rings: Iterable[numpy.typing.ArrayLike], shape: tuple[int, int], *, rule: str = 'even-odd', pixel_center: float = 0.0) -> RunSet:
        """
        The pixels of an image of the shape (height, width) whose centres lie inside of polygons or on their edges.

        A ring is an array of corners (x, y), or flat: x, y, x, y, ... Holes are rings, too. By the rule "even-odd" a point is inside
        that an odd number of rings goes round, by "non-zero" one that they go round one way more often than the other. The centre
        of pixel (row, col) is the point (col + pixel_center, row + pixel_center): 0 where corners are centres of pixels, 0.5 where
        they lie on their edges, as those of ``outlines()`` and of COCO do.

        Raises ValueError for coordinates that are not finite and arrays that are no points.
        """

    @staticmethod
    def from_box(box: BoxLike) -> RunSet:
        """The pixels of a box, or of an image of the shape (height, width)."""

    def complement(self, box: BoxLike) -> RunSet:
        """
        The pixels of the box, or of an image of the shape (height, width), that do not belong to the set.
        """

    def intersects(self, other: RunSet) -> bool:
        """Whether any pixel belongs to both."""

    def intersection_area(self, other: RunSet) -> int:
        """The number of pixels of both, without making the set."""

    def union_area(self, other: RunSet) -> int:
        """The number of pixels of any of them, without making the set."""

    def iou(self, other: RunSet) -> float:
        """Intersection over union, from 0 to 1; 1 for two empty sets."""

    def __hash__(self) -> int: ...

    def __repr__(self) -> str: ...

    def __reduce_ex__(self, protocol: SupportsIndex, /) -> tuple[Any, ...]: ...

    def __sizeof__(self) -> int:
        """Bytes in memory, the runs included."""

    def __copy__(self) -> RunSet: ...

    def __deepcopy__(self, memo: Any, /) -> RunSet: ...

    def _repr_png_(self) -> bytes | None:
        """A picture for notebooks, at most 300 pixels wide and high."""

    @staticmethod
    def from_mask(mask: Buffer) -> RunSet:
        """
        The pixels of a two-dimensional mask that are True, or not 0.

        Pixel ``mask[row, col]`` is pixel (row, col). The mask may be in any memory order and have any strides; masks that are
        dense by rows or by columns are read where they are.

        Raises TypeError if it is not of bool or uint8: what a pixel of another type means is for the caller to say, for instance
        by ``mask > 0``. Raises ValueError if it has not two dimensions.
        """

    @staticmethod
    def from_range(image: Buffer, least: float, greatest: float) -> RunSet:
        """
        The pixels of a grey image from ``least`` to ``greatest``, both included, without making a mask.

        NaN is in no range. Raises TypeError if the image is not of uint8, uint16 or float32.
        """

    @staticmethod
    def from_labels(labels: Buffer) -> dict[int, RunSet]:
        """
        The pixels of each label but 0, by label, in ascending order. One pass over the image.

        Raises TypeError if the labels are not of a whole-number type, ValueError if one is beyond 32 bits.
        """

    def to_mask(self, shape: tuple[int, int], *, origin: tuple[int, int] = (0, 0)) -> numpy.typing.NDArray[numpy.bool]:
        """
        A mask of bool of the shape (height, width), whose first pixel is pixel ``origin``, (row, column), of the set.

        Pixels outside of the mask are left out.
        """

    def paint(self, image: Buffer, value: float = 1, *, origin: tuple[int, int] = (0, 0)) -> None:
        """
        Gives the set's pixels in an image a value; others stay as they are.

        The image's first pixel is pixel ``origin``, (row, column), of the set. It must be of bool, uint8, uint16, int32 or
        float32 (TypeError), and a value that its pixels can have (ValueError).
        """

    def label_image(self, shape: tuple[int, int], connectivity: int = 8) -> numpy.typing.NDArray[numpy.int32]:
        """
        An image of the shape (height, width) with the number of its component, from 1 on, at each pixel of the set.

        Components are in the order of ``components()``; 0 is what does not belong to the set. Pixels outside of the image are
        left out.
        """

    @staticmethod
    def from_coco(mask: Mapping[str, Any] | str | bytes | Iterable[int], shape: tuple[int, int] | None = None) -> RunSet:
        """
        The set of a run-length mask as COCO's data sets have it.

        ``mask`` is a dict with "size", (height, width), and "counts"; or the counts alone, and then their ``shape`` must be
        given. Counts are packed (str or bytes) or a list of ints. They are checked before anything is allocated for runs.

        Raises ValueError if the counts do not add up to the frame, are malformed or negative; TypeError if ``mask`` is nothing of
        that kind.
        """

    def to_coco(self, shape: tuple[int, int], *, packed: bool = True) -> dict[str, Any]:
        """
        The dict {"size": [height, width], "counts": ...} of the set's pixels in an image of that shape.

        The counts are a str, or with ``packed=False`` a list of ints; json.dumps takes both. Pixels outside are left out.
        """

    def translate(self, rows: int, cols: int) -> RunSet:
        """
        Pixel (row, col) becomes (row + rows, col + cols). Raises OverflowError beyond 32 bits.
        """

    def flip_left_right(self, box: BoxLike) -> RunSet:
        """
        Mirrors the columns of a box, or of an image of a shape; pixels outside are mirrored, too.
        """

    def flip_up_down(self, box: BoxLike) -> RunSet:
        """
        Mirrors the rows of a box, or of an image of a shape; pixels outside are mirrored, too.
        """

    def turn(self, quarters: int, box: BoxLike) -> RunSet:
        """
        Turns a box, or an image of a shape, clockwise by quarters of a circle; its upper left corner stays in place.
        """

    def transpose(self) -> RunSet:
        """Pixel (row, col) becomes (col, row)."""

    def crop(self, box: BoxLike) -> RunSet:
        """The pixels in a box, or in an image of a shape."""

    def scale_up(self, rows: int, cols: int) -> RunSet:
        """
        Every pixel becomes a block of rows x cols pixels. Raises ValueError if a factor is below 1.
        """

    def scale_down(self, rows: int, cols: int, rule: BlockRule) -> RunSet:
        """
        Blocks of rows x cols pixels become one pixel each, or none. Raises ValueError if a factor is below 1.
        """

    def dilate(self, element: Element | RunSet) -> RunSet:
        """
        The union of copies of the element, with the origin at each pixel of the set.
        """

    def erode(self, element: Element | RunSet) -> RunSet:
        """
        The places where the element fits into the set. Raises ValueError if the element is empty.
        """

    def open(self, element: Element | RunSet) -> RunSet:
        """The union of all copies of the element that fit into the set."""

    def close(self, element: Element | RunSet) -> RunSet:
        """The places where the element fits into the dilation of the set."""

    def gradient(self, element: Element | RunSet) -> RunSet:
        """The dilation without the erosion."""

    def components(self, connectivity: int = 8) -> list[RunSet]:
        """
        The connected components as sets, in the order of their first pixels: by row, then by column.

        Pixels are connected by edges (4), or by edges and corners (8).
        """

    def component_numbers(self, connectivity: int = 8) -> numpy.typing.NDArray[numpy.int32]:
        """
        For each run, in the order of ``runs``, which of the components it belongs to, from 0 on.
        """

    def largest_component(self, connectivity: int = 8) -> RunSet:
        """
        The component of the largest area, the first one if several have it; empty if the set is.
        """

    def components_by_area(self, min_area: int = 0, max_area: int | None = None, connectivity: int = 8) -> RunSet:
        """
        The components of at least ``min_area`` and at most ``max_area`` pixels, together as one set.
        """

    def clear_border(self, box: BoxLike, connectivity: int = 8) -> RunSet:
        """
        The set without the components that touch the border of a box, or of an image of a shape, from within.
        """

    def holes(self, max_area: int | None = None, connectivity: int = 8) -> RunSet:
        """
        The holes of at most ``max_area`` pixels as one set. The connectivity is that of the set; holes have the other one.
        """

    def fill_holes(self, max_area: int | None = None, connectivity: int = 8) -> RunSet:
        """The set together with its holes of at most ``max_area`` pixels."""

    @property
    def box(self) -> Box:
        """
        The smallest Box that has all pixels. Raises ValueError if there are none.
        """

    @property
    def centroid(self) -> tuple[float, float]:
        """The mean (x, y) of the pixels. Raises ValueError if there are none."""

    def euler_number(self, connectivity: int = 8) -> int:
        """Components minus holes."""

    def measure(self, connectivity: int = 8) -> Measures:
        """All measures of the set. Raises ValueError if it has no pixels."""

    def measure_components(self, connectivity: int = 8) -> dict[str, numpy.typing.NDArray[Any]]:
        """
        The measures of all components, in their order: an array for each field of Measures, by its name.

        ``pandas.DataFrame(set.measure_components())`` is a table of them.
        """

    def summarize_components(self, connectivity: int = 8) -> dict[str, numpy.typing.NDArray[Any]]:
        """
        Area, box and centroid of all components, which costs less than all measures: those columns of ``measure_components``.
        """

    def convex_hull(self) -> numpy.typing.NDArray[numpy.float64]:
        """
        The corners (x, y) of the smallest convex polygon around the pixels' squares, as an array of shape (n, 2).
        """

    def outlines(self) -> list[list[numpy.typing.NDArray[numpy.int32]]]:
        """
        The border along the edges of the pixels: for each component that edges connect, its outer ring, then its holes'.

        A ring is an array of corners (x, y), not repeated at the end. Pixel (row, col) is the square from (x=col, y=row) to
        (col + 1, row + 1). No ring touches itself, so each component is a valid polygon with holes.
        """

    def borders(self) -> list[list[numpy.typing.NDArray[numpy.int32]]]:
        """
        The border through the centres of the pixels along the edge: for each component that edges or corners connect, its
        outer border, then its holes'.

        A border is an array of pixels (x, y), each a neighbour of the one before: what cv2.findContours gives with RETR_CCOMP
        and CHAIN_APPROX_NONE.
        """

def _set_of_bytes(runs: Any) -> RunSet:
    """The set of a pickle, whose runs are checked."""

def paint_labels(sets: Iterable[RunSet], shape: tuple[int, int]) -> numpy.typing.NDArray[numpy.int32]:
    """
    A label image of the shape (height, width): 1 for the first set's pixels, 2 for the second one's, and so on.

    Where sets overlap, the later one wins; 0 is what no set has.
    """

def coco_to_mask(mask: Mapping[str, Any] | str | bytes | Iterable[int], shape: tuple[int, int] | None = None) -> numpy.typing.NDArray[numpy.bool]:
    """
    The mask of bool of a run-length mask, for which ``RunSet.from_coco`` and its errors stand.

    The pixels are in memory by columns, as the counts are, so that no run set is made. (``RunSet.to_mask`` gives masks by rows.)
    """

class BlockRule(enum.Enum):
    """Which blocks of pixels become a pixel."""

    ANY = 0
    """Those with any pixel of the set."""

    MOST = 1
    """Those of whose pixels more than half belong to the set."""

    ALL = 2
    """Those all of whose pixels belong to the set."""

class Element:
    """
    A structuring element, prepared for use; a RunSet about its origin (0, 0) is one, too.
    """

    def __init__(self, pixels: RunSet) -> None:
        """Any set; its origin is pixel (0, 0), which need not belong to it."""

    @staticmethod
    def rectangle(rows: int, cols: int) -> Element:
        """
        A rectangle about its centre; where a size is even, the origin is the lower or right one of the two in the middle.
        """

    @staticmethod
    def disk(radius: float) -> Element:
        """The pixels at most ``radius`` from the origin; 0 to 2**30."""
