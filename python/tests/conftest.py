# SPDX-License-Identifier: MIT
"""What the tests share: masks of all kinds, and what a set of pixels is without runs."""

from __future__ import annotations

import hypothesis
import hypothesis.extra.numpy
import numpy
import pytest
from hypothesis import strategies

hypothesis.settings.register_profile("kiv", deadline=None, derandomize=True)
hypothesis.settings.load_profile("kiv")

masks = hypothesis.extra.numpy.arrays(
    bool, hypothesis.extra.numpy.array_shapes(min_dims=2, max_dims=2, min_side=0, max_side=12)
)
"""Small masks of any shape."""

pairs_of_masks = strategies.integers(0, 9).flatmap(
    lambda height: strategies.integers(0, 9).flatmap(
        lambda width: strategies.tuples(
            *2 * [hypothesis.extra.numpy.arrays(bool, (height, width))]
        )
    )
)
"""Two masks of the same shape."""


def blobs(height: int, width: int, seed: int) -> numpy.ndarray:
    """A mask of smooth shapes with holes."""
    random = numpy.random.default_rng(seed)
    rows, cols = numpy.mgrid[:height, :width]
    field = numpy.zeros((height, width))
    for _ in range(12):
        y, x, scale = random.uniform(0, height), random.uniform(0, width), random.uniform(0.02, 0.15) * max(height, width)
        field += random.choice([-1, 1]) * numpy.exp(-((rows - y) ** 2 + (cols - x) ** 2) / (2 * scale**2))
    return field > 0.1


@pytest.fixture
def blob_mask() -> numpy.ndarray:
    return blobs(120, 160, seed=1)
