# SPDX-License-Identifier: MIT
"""What pickles of sets name. A function stays as it is: pickles outlast versions."""

from __future__ import annotations

import copyreg
import importlib
import operator
from typing import Any

from . import _core


def run_set_1(runs: Any) -> _core.RunSet:
    """The set of runs as bytes: three 32-bit ints each, as in RunSet.runs."""
    return _core._set_of_bytes(runs)


def member(module: str, name: str) -> Any:
    """A function of the modules, such as RunSet.from_mask, by its name: they do not pickle by themselves."""
    return operator.attrgetter(name)(importlib.import_module(module))


copyreg.pickle(
    type(_core.RunSet.from_mask),  # only functions of this package are of this type
    lambda function: (member, (function.__module__, function.__qualname__)),
)
