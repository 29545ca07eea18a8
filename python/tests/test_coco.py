# SPDX-License-Identifier: MIT
"""COCO masks: by hand, malformed, and beside pycocotools where that is installed."""

from __future__ import annotations

import json
import random
from typing import Any

import numpy
import pytest
from conftest import masks
from hypothesis import given

from kivdataconvert import RunSet, coco_to_mask

CORNER = RunSet([(0, 1, 2), (1, 1, 1)])
"""Of 2 x 3 pixels, column by column: 2 that do not belong, then 3 that do, then 1 that does not."""


def test_by_hand() -> None:
    assert CORNER.to_coco((2, 3)) == {"size": [2, 3], "counts": "231"}
    assert CORNER.to_coco((2, 3), packed=False) == {"size": [2, 3], "counts": [2, 3, 1]}
    for counts in ("231", b"231", [2, 3, 1], (2, 3, 1), numpy.array([2, 3, 1], "uint32")):
        assert RunSet.from_coco(counts, (2, 3)) == CORNER
        assert RunSet.from_coco({"size": [2, 3], "counts": counts, "more": 5}) == CORNER
    assert json.loads(json.dumps(CORNER.to_coco((2, 3)))) == {"size": [2, 3], "counts": "231"}
    assert RunSet().to_coco((0, 0), packed=False)["counts"] == [0]
    assert RunSet([(0, 0, 99)]).to_coco((1, 2), packed=False)["counts"] == [0, 2]


@given(masks)
def test_there_and_back(mask: numpy.ndarray) -> None:
    pixels = RunSet.from_mask(mask)
    for packed in (True, False):
        coco = pixels.to_coco(mask.shape, packed=packed)
        assert RunSet.from_coco(coco) == pixels
        painted = coco_to_mask(coco)
        assert painted.dtype == bool and painted.flags.f_contiguous and numpy.array_equal(painted, mask != 0)


@pytest.mark.parametrize(
    "mask, shape, error",
    [
        ([1, 2], (2, 2), ValueError),  # too few
        ([1, 4], (2, 2), ValueError),  # too many
        ([5, -1], (2, 2), ValueError),
        ([2**64], (2, 2), ValueError),
        ([2**62, 2**62, 2**62], (2, 2), ValueError),
        ([1.5, 2.5], (2, 2), TypeError),
        ("2", (2, 2), ValueError),
        ("\x7f", (2, 2), ValueError),
        ("é", (2, 2), ValueError),
        ("o", (2, 2), ValueError),  # does not end
        (b"o" * 40, (2, 2), ValueError),
        (None, (2, 2), TypeError),
        (5, (2, 2), TypeError),
        ([4], None, TypeError),
        ([4], (2,), ValueError),
        ([4], (-2, -2), ValueError),
        ({"counts": [4]}, None, ValueError),
        ({"size": [2, 2]}, None, ValueError),
        ({"counts": [4], "size": [2, 2]}, (2, 2), TypeError),
        ({"counts": {"counts": [4], "size": [2, 2]}, "size": [2, 2]}, None, TypeError),
    ],
)
def test_refuses(mask: Any, shape: Any, error: type[Exception]) -> None:
    for read in (RunSet.from_coco, coco_to_mask):
        with pytest.raises(error):
            read(mask, shape)


def test_random_texts_are_masks_or_errors() -> None:
    chance = random.Random(7)
    taken = 0
    for _ in range(100_000):
        text = bytes(chance.randrange(46, 113) for _ in range(chance.randrange(8)))
        try:
            pixels = RunSet.from_coco(text, (2, 3))
        except ValueError:
            continue
        taken += 1
        assert RunSet.from_coco(pixels.to_coco((2, 3))) == pixels
    assert taken > 10


def test_agrees_with_pycocotools() -> None:
    theirs = pytest.importorskip("pycocotools.mask")
    chance = numpy.random.default_rng(3)
    for _ in range(1000):
        shape = tuple(chance.integers(1, 40, 2))
        a, b = (chance.random(shape) < chance.random() for _ in range(2))
        x, y = RunSet.from_mask(a), RunSet.from_mask(b)
        p, q = (theirs.encode(numpy.asfortranarray(mask, "uint8")) for mask in (a, b))
        assert x.to_coco(shape) == {**p, "counts": p["counts"].decode()}
        assert RunSet.from_coco(p) == x
        assert RunSet.from_coco(theirs.merge([p, q])) == x | y
        assert RunSet.from_coco(theirs.merge([p, q], intersect=True)) == x & y
        assert theirs.area(p) == x.area
        if x:
            left, top, width, height = theirs.toBbox(p)
            assert x.box == (top, top + height - 1, left, left + width - 1)
        if x or y:
            assert theirs.iou([p], [q], [False])[0, 0] == x.iou(y)
