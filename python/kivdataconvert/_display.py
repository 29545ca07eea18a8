# SPDX-License-Identifier: MIT
"""The picture of a set in a notebook."""

from __future__ import annotations

import struct
import zlib

from ._core import BlockRule, RunSet
from ._types import Box

LARGEST = 300
"""Pixels that a picture is wide and high at most."""


def png(pixels: RunSet) -> bytes | None:
    """A PNG of the set in its box and a pixel around it, white on black, scaled down where it is too large.

    An object too small to be seen otherwise stays: a pixel of the picture is white if any of its block is. None for an
    empty set.
    """
    if not pixels:
        return None
    box = pixels.box
    factor = -(-max(box.shape) // (LARGEST - 3))  # a pixel for the border on each side, one for a block that is cut
    small = pixels.scale_down(factor, factor, BlockRule.ANY)
    box = small.box
    mask = small.to_mask((box.shape[0] + 2, box.shape[1] + 2), origin=(box.row_begin - 1, box.col_begin - 1))
    rows = b"".join(b"\0" + (row * 255).astype("uint8").tobytes() for row in mask)

    def chunk(kind: bytes, data: bytes) -> bytes:
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    header = struct.pack(">IIBBBBB", mask.shape[1], mask.shape[0], 8, 0, 0, 0, 0)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(rows)) + chunk(b"IEND", b"")
