# SPDX-License-Identifier: MIT
"""The data types of the family and its 35 functions, under their own names.

Images and matrices are NumPy arrays, points and contours arrays of shape (n, 2) of (x, y), lists of contours lists of
these, variant arrays one-dimensional arrays or lists of ints, floats and str. Functions return what they write in C++ and
raise KivError where they return a code there. Unions and the like follow the family's own rules at the ends of run lists;
``RunSet`` has the plain ones.
"""

from . import _family
from ._family import *  # noqa: F403
from ._types import KivError

__all__ = ["KivError", *(name for name in vars(_family) if not name.startswith("_"))]
