# SPDX-License-Identifier: MIT
"""Plain records that the module returns."""

from __future__ import annotations

from typing import Any, List, NamedTuple, Sequence, Tuple, Union

import numpy
import numpy.typing

Buffer = Union[numpy.typing.NDArray[Any], memoryview]
"""An array, of a type and shape that the function says."""

Values = Union[Sequence[Union[int, float, str]], numpy.typing.NDArray[Any]]
"""A variant array: ints, floats and texts."""

GivenValues = Union[numpy.typing.NDArray[numpy.int32], List[Union[int, float, str]]]
"""A variant array as functions return it: an array if all are ints, else a list."""


class KivError(Exception):
    """A result code other than success, from one of the functions of kivdataconvert.family."""

    def __init__(self, code: int, name: str, meaning: str) -> None:
        super().__init__(code, name, meaning)
        self.code = code
        """The number."""
        self.name = name
        """The name of its constant, such as KIVMV_ERR_LENGTH."""
        self.meaning = meaning
        """What it says, in a phrase."""

    def __str__(self) -> str:
        return f"{self.meaning} ({self.name}, {self.code})"


class Box(NamedTuple):
    """An upright rectangle of pixels. All four ends are included, as those of runs are.

    Where a box is an argument, any four ints will do, and so will a shape ``(height, width)``, which is the box of an
    image of that shape.
    """

    row_begin: int
    """The uppermost row."""
    row_end: int
    """The lowermost row, inclusive."""
    col_begin: int
    """The leftmost column."""
    col_end: int
    """The rightmost column, inclusive."""

    @property
    def shape(self) -> tuple[int, int]:
        """Height and width; 0 where the box is inverted."""
        return max(self.row_end - self.row_begin + 1, 0), max(self.col_end - self.col_begin + 1, 0)

    @property
    def slices(self) -> tuple[slice, slice]:
        """What an array that starts at pixel (0, 0) is indexed with to get the box: ``image[box.slices]``."""
        return slice(self.row_begin, self.row_end + 1), slice(self.col_begin, self.col_end + 1)


BoxLike = Union[Box, Tuple[int, int, int, int], Tuple[int, int]]
"""A Box, its four numbers, or a shape (height, width)."""


class Measures(NamedTuple):
    """Measures of a set of pixels. Lengths are in pixels, x counts columns, y counts rows downwards, and the centre of
    pixel (row, col) is the point (x=col, y=row).
    """

    area: int
    """Number of pixels."""
    left: int
    """The leftmost column."""
    top: int
    """The uppermost row."""
    right: int
    """The rightmost column, inclusive."""
    bottom: int
    """The lowermost row, inclusive."""
    centroid_x: float
    """Mean of the pixels' columns."""
    centroid_y: float
    """Mean of the pixels' rows."""
    moment_xx: float
    """Sum of (x - centroid_x)**2 over the pixels: mu20 of OpenCV."""
    moment_xy: float
    """Sum of (x - centroid_x) (y - centroid_y): mu11."""
    moment_yy: float
    """Sum of (y - centroid_y)**2: mu02."""
    orientation: float
    """Angle of the longer axis of the ellipse of the same moments, in radians from the x axis towards growing y."""
    major_axis: float
    """Length of that ellipse's longer axis."""
    minor_axis: float
    """Length of its shorter axis."""
    edge_perimeter: int
    """Number of pixel edges between the set and the rest."""
    crofton_perimeter: float
    """Crofton's estimate of the perimeter, from four directions."""
    euler_number: int
    """Components minus holes."""
    holes: int
    """Holes, by the connectivity of the set."""
    feret_max: float
    """Largest distance of parallel lines that touch the pixels' squares from both sides."""
    feret_min: float
    """Smallest such distance."""
