# SPDX-License-Identifier: MIT
"""
The functions on the data types; kivdataconvert.family has their names.
"""

from collections.abc import Iterable
from typing import Any

import numpy
import numpy.typing

import collections.abc
import typing
from typing import Any

import numpy
import numpy.typing

from ._core import RunSet
from ._types import GivenValues, Values

class Region:
    """
    Runs in a frame, in the order that they came in; nothing is sorted or joined.
    """

    def __init__(self, width: int, height: int, runs: numpy.typing.ArrayLike | RunSet = ()) -> None:
        """
        A frame and its runs: a RunSet, or rows of (row, first column, last column). Raises ValueError for a negative size.
        """

    @property
    def width(self) -> int:
        """Columns of the frame."""

    @property
    def height(self) -> int:
        """Rows of the frame."""

    @property
    def runs(self) -> numpy.typing.NDArray[numpy.int32]:
        """A copy of the runs: row, first column, last column."""

    def run_set(self) -> RunSet:
        """
        The pixels that any of the runs covers, inside of the frame and outside.
        """

    def __eq__(self, other: object, /) -> bool:
        """Whether frames and runs are the same, in the same order."""

    def __repr__(self) -> str: ...

class ROI:
    """
    A region of interest: a shape in a frame. Coordinates are (x, y), angles in degrees.
    """

    def __init__(self) -> None:
        """The empty shape in a frame of 0 x 0."""

    @staticmethod
    def rectangle(left: float, top: float, right: float, bottom: float, width: int, height: int) -> ROI:
        """An upright rectangle by its sides, which belong to it."""

    @staticmethod
    def rotated_rectangle(cx: float, cy: float, length: float, breadth: float, angle: float, width: int, height: int) -> ROI:
        """
        A rectangle by its centre, its sides and the direction of the first one.
        """

    @staticmethod
    def circle(cx: float, cy: float, radius: float, width: int, height: int) -> ROI:
        """A disc."""

    @staticmethod
    def ellipse(cx: float, cy: float, radius1: float, radius2: float, angle: float, width: int, height: int) -> ROI:
        """An ellipse by its half axes and the direction of the first one."""

    @staticmethod
    def ring(cx: float, cy: float, inner: float, outer: float, width: int, height: int) -> ROI:
        """A disc with a hole."""

    @staticmethod
    def ring_sector(cx: float, cy: float, inner: float, outer: float, start: float, sweep: float, width: int, height: int) -> ROI:
        """A part of a ring, from an angle on."""

    @staticmethod
    def polygon(points: numpy.typing.ArrayLike, width: int, height: int) -> ROI:
        """A polygon by the even-odd rule."""

    @staticmethod
    def open_curve(points: numpy.typing.ArrayLike, width: int, height: int) -> ROI:
        """A curve, which has no pixels."""

    @staticmethod
    def mask(runs: numpy.typing.ArrayLike | RunSet, width: int, height: int) -> ROI:
        """
        The pixels of runs: a RunSet, or rows of (row, first column, last column).
        """

    @property
    def kind(self) -> int:
        """
        The code of the shape: 3 for the empty one, 8 for a mask, 10 for an open curve.
        """

    @property
    def width(self) -> int:
        """Columns of the frame."""

    @property
    def height(self) -> int:
        """Rows of the frame."""

    def run_set(self) -> RunSet:
        """
        The pixels whose centres lie in the shape or on its border; none for an open curve.
        """

    def __eq__(self, other: object, /) -> bool:
        """Whether shapes and frames are the same."""

    def __repr__(self) -> str: ...

def KivRegionToVarArray(region: Region) -> tuple[GivenValues, GivenValues]:
    """The columns and rows of a region's pixels."""

def KivVarArrayToRegion(xs: Values, ys: Values) -> Region:
    """The region of pixels by their columns and rows."""

def KivPointArrayToRegion(points: numpy.typing.ArrayLike) -> Region:
    """The region of points, rounded to pixels."""

def KivRegionToPointArray(region: Region) -> numpy.typing.NDArray[numpy.float64]:
    """The pixels of a region as points."""

def KivImageToRegion(image: numpy.typing.NDArray[Any]) -> Region:
    """The region of an image's pixels that are not 0."""

def KivBinImageToRegion(image: numpy.typing.NDArray[Any]) -> Region:
    """The region of a mask's pixels that are not 0."""

def KivRegionToBinImage(region: Region) -> numpy.typing.NDArray[Any]:
    """A mask of a region, of 0 and 255."""

def KivImageToMatrix(image: numpy.typing.NDArray[Any]) -> numpy.typing.NDArray[Any]:
    """An image's pixels as a matrix."""

def KivMatrixToImage(matrix: numpy.typing.NDArray[Any]) -> numpy.typing.NDArray[Any]:
    """A matrix as an 8-bit image: rounded, ties to even, and saturated."""

def KivContourToVarArray(contour: numpy.typing.ArrayLike) -> tuple[GivenValues, GivenValues]:
    """The coordinates of a contour's points, rounded."""

def KivVarArrayToContour(xs: Values, ys: Values) -> numpy.typing.NDArray[numpy.float64]:
    """The contour of points by their coordinates."""

def KivContourToPointArray(contour: numpy.typing.ArrayLike) -> numpy.typing.NDArray[numpy.float64]:
    """A contour's points."""

def KivPointArrayToContour(points: numpy.typing.ArrayLike) -> numpy.typing.NDArray[numpy.float64]:
    """The contour of points."""

def KivRegionToContourArray(region: Region) -> list[numpy.typing.NDArray[numpy.float64]]:
    """The borders of a region."""

def KivContourToRegion(contour: numpy.typing.ArrayLike) -> Region:
    """The region that a contour encloses."""

def KivBinImageToContourArray(image: numpy.typing.NDArray[Any]) -> list[numpy.typing.NDArray[numpy.float64]]:
    """The borders in a mask."""

def KivROIToRegion(roi: ROI) -> Region:
    """The pixels of a region of interest."""

def KivRegionToROI(region: Region) -> ROI:
    """A region of interest that is a region's mask."""

def KivROIToBinImage(roi: ROI) -> numpy.typing.NDArray[Any]:
    """A mask of a region of interest, of 0 and 255."""

def KivBinImageToROI(image: numpy.typing.NDArray[Any]) -> ROI:
    """A region of interest that is a mask's."""

def KivROIToContourArray(roi: ROI) -> list[numpy.typing.NDArray[numpy.float64]]:
    """The borders of a region of interest."""

def KivRegionAdd(a: Region, b: Region) -> Region:
    """Union, by the family's rules at the ends of lists."""

def KivRegionAnd(a: Region, b: Region) -> Region:
    """Intersection, by the family's rules."""

def KivRegionSub(a: Region, b: Region) -> Region:
    """Difference, by the family's rules."""

def KivRegionNot(a: Region) -> Region:
    """Complement, by the family's rules."""

def KivROIAdd(a: ROI, b: ROI) -> ROI:
    """Union, by the family's rules at the ends of lists."""

def KivROIAnd(a: ROI, b: ROI) -> ROI:
    """Intersection, by the family's rules."""

def KivROISub(a: ROI, b: ROI) -> ROI:
    """Difference, by the family's rules."""

def KivROINot(a: ROI) -> ROI:
    """Complement, by the family's rules."""

def KivRegionToImage(region: Region, foreground: int, background: int, width: int, height: int) -> numpy.typing.NDArray[Any]:
    """An image of a region, in two grey values of 0 to 255."""

def KivContourArrayToRegion(contours: Iterable[numpy.typing.ArrayLike], width: int, height: int) -> Region:
    """The region that contours enclose together."""

def KivContourArrayToBinImage(contours: Iterable[numpy.typing.ArrayLike], width: int, height: int) -> numpy.typing.NDArray[Any]:
    """A mask of what contours enclose together, of 0 and 255."""

def KivMergContour(image: numpy.typing.NDArray[Any], contour: numpy.typing.ArrayLike, add: bool) -> list[numpy.typing.NDArray[numpy.float64]]:
    """
    The borders of a mask to which a contour's inside is added, or from which it is cut.
    """

def maxbit(values: Values) -> int:
    """The number of decimal digits of the largest value, at least 1."""

def radixsort(rows: Values, col_begins: Values, col_ends: Values) -> tuple[GivenValues, GivenValues, GivenValues]:
    """Runs sorted by row, stably: the three arrays anew."""

def level_contours(image: numpy.typing.NDArray[Any], level: float) -> list[numpy.typing.NDArray[numpy.float64]]:
    """
    The closed contours of a grey image at a level, to fractions of a pixel.
    """

def _set_of_polygons(rings: Any, shape: tuple[int, int], rule: str, pixel_center: float) -> RunSet: ...
