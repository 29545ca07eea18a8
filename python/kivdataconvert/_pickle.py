# SPDX-License-Identifier: MIT
"""What pickles of sets name. A function stays as it is: pickles outlast versions."""

from __future__ import annotations

from typing import Any

from . import _core


def run_set_1(runs: Any) -> _core.RunSet:
    """The set of runs as bytes: three 32-bit ints each, as in RunSet.runs."""
    return _core._set_of_bytes(runs)
