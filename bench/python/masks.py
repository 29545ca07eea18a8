# SPDX-License-Identifier: MIT
"""The masks that are timed: those of the C++ benchmarks, all of the same size."""

from __future__ import annotations

import cv2
import numpy

SIZE = 2048


def blobs() -> numpy.ndarray:
    """200 ellipses."""
    chance = numpy.random.default_rng(1)
    mask = numpy.zeros((SIZE, SIZE), "uint8")
    for _ in range(200):
        centre = tuple(chance.integers(0, SIZE, 2).tolist())
        axes = tuple(chance.integers(3, SIZE // 12, 2).tolist())
        cv2.ellipse(mask, centre, axes, float(chance.uniform(0, 180)), 0, 360, 1, -1)
    return mask.astype(bool)


def strokes() -> numpy.ndarray:
    """80 lines of strokes like text."""
    chance = numpy.random.default_rng(2)
    mask = numpy.zeros((SIZE, SIZE), "uint8")
    pitch = SIZE // 80
    for top in range(0, 80 * pitch, pitch):
        x = 8
        while x + 16 < SIZE:
            for _ in range(chance.integers(1, 4)):
                corners = chance.integers([x, top + 2], [x + 9, top + pitch - 2], (2, 2)).tolist()
                cv2.line(mask, corners[0], corners[1], 1, 2)
            x += int(chance.integers(10, 16))
    return mask.astype(bool)


def ring() -> numpy.ndarray:
    mask = numpy.zeros((SIZE, SIZE), "uint8")
    cv2.circle(mask, (SIZE // 2, SIZE // 2), SIZE * 15 // 32, 1, -1)
    cv2.circle(mask, (SIZE // 2, SIZE // 2), SIZE * 12 // 32, 0, -1)
    return mask.astype(bool)


def noise() -> numpy.ndarray:
    """Every second pixel, by chance; less of it, as some take minutes for many components."""
    return numpy.random.default_rng(3).random((SIZE // 4, SIZE // 4)) < 0.5


def small() -> numpy.ndarray:
    """Three blobs on 64 x 64: what a call costs that has little to do."""
    rows, cols = numpy.ogrid[:64, :64]
    discs = ((15, 14, 8), (36, 40, 12), (22, 50, 6))  # row, column and radius
    return numpy.logical_or.reduce([(rows - y) ** 2 + (cols - x) ** 2 <= radius**2 for y, x, radius in discs])


def moved(mask: numpy.ndarray) -> numpy.ndarray:
    """The other operand."""
    return numpy.roll(mask, (25, 40), (0, 1))


MASKS = {"blobs": blobs(), "strokes": strokes(), "ring": ring(), "noise": noise(), "small": small()}
