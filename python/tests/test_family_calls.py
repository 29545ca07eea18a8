# SPDX-License-Identifier: MIT
"""The 35 functions give in Python what they give in C++: on values made of the seeds of the fuzz targets."""

from __future__ import annotations

import json
import os
import pathlib
import subprocess
from typing import Any

import numpy
import pytest
from test_family import FUNCTIONS

from kivdataconvert import family
from kivdataconvert.family import ROI, KivError, Region

# The program that makes the calls in C++; it is built with the fuzz targets.
PROGRAM = os.environ.get("KIV_FAMILY_CALLS", "")
SEEDS = sorted(str(path) for path in (pathlib.Path(__file__).parents[2] / "fuzz/corpus").glob("*/*") if path.is_file())

SHAPES = {
    1: ROI.rectangle, 2: ROI.rotated_rectangle, 4: ROI.circle, 5: ROI.ellipse, 6: ROI.ring, 7: ROI.ring_sector,
    8: ROI.mask, 9: ROI.polygon, 10: ROI.open_curve,
}


def read(value: Any) -> Any:
    """The value that a line stands for."""
    if isinstance(value, list):
        return [read(item) for item in value]
    if not isinstance(value, dict):
        return value
    if "float" in value:
        return float(value["float"])
    if "region" in value:
        return Region(*value["region"])
    if "roi" in value:
        kind, arguments, width, height = value["roi"]
        return ROI() if kind == 3 else SHAPES[kind](*read(arguments), width, height)
    if "points" in value:
        return numpy.array(read(value["points"]), float).reshape(-1, 2)
    return numpy.array(read(value["values"]), value["array"]).reshape(value["shape"])


def is_same(given: Any, expected: Any) -> bool:
    """Whether Python gave what was expected; variant arrays of whole numbers come as arrays."""
    if isinstance(expected, (Region, ROI)):
        return bool(given == expected)
    if isinstance(expected, numpy.ndarray):
        return given.dtype == expected.dtype and numpy.array_equal(given, expected, equal_nan=expected.dtype == float)
    if isinstance(expected, list):
        items = given.tolist() if isinstance(given, numpy.ndarray) else given
        return len(items) == len(expected) and all(map(is_same, items, expected))
    return type(given) is type(expected) and (given == expected or given != given and expected != expected)


def check(name: str, arguments: list[Any], code: Any, *results: Any) -> None:
    function, values = getattr(family, name), read(arguments)
    if code == 0:
        given = function(*values)
        assert all(map(is_same, given if len(results) > 1 else [given], read(list(results))))
        return
    with pytest.raises(Exception) as raised:
        function(*values)
    assert (raised.value.code if isinstance(raised.value, KivError) else "exception") == code


@pytest.mark.skipif(not PROGRAM, reason="is run where the fuzz targets are built")
def test_functions_give_what_they_give_in_cpp() -> None:
    printed = subprocess.run([PROGRAM, *SEEDS], capture_output=True, check=True).stdout
    names = set()
    for line in printed.splitlines():
        call = json.loads(line)
        try:
            check(*call)
        except BaseException as error:
            raise AssertionError(line.decode()) from error
        names.add(call[0])
    assert names == set(FUNCTIONS)
