# SPDX-License-Identifier: MIT
"""The notebook gives what is stored in it and shown on its page."""

from __future__ import annotations

import base64
import copy
import pathlib
import struct
import sys
import zlib
from typing import Any

sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / "notebooks"))
import run as notebooks


def picture(png: bytes) -> tuple[bytes, bytes]:
    """Header and pixels, which are the same however well they are compressed."""
    assert png.startswith(b"\x89PNG\r\n\x1a\n")
    chunks, place = {}, 8
    while place < len(png):
        size, kind = struct.unpack(">I4s", png[place : place + 8])
        chunks[kind] = png[place + 8 : place + 8 + size]
        place += size + 12
    return chunks[b"IHDR"], zlib.decompress(chunks[b"IDAT"])


def comparable(output: dict[str, Any]) -> Any:
    data = output.get("data")
    if data is None:
        return output["text"]
    return data["text/plain"], picture(base64.b64decode(data["image/png"])) if "image/png" in data else None


def test_notebook_gives_what_it_stores() -> None:
    stored = notebooks.read()
    again = copy.deepcopy(stored)
    notebooks.run(again)
    pictures = 0
    for cell, rerun in zip(stored["cells"], again["cells"]):
        outputs = cell.get("outputs", [])
        assert [comparable(output) for output in outputs] == [comparable(output) for output in rerun.get("outputs", [])], (
            "run python/notebooks/run.py"
        )
        pictures += sum("image/png" in output.get("data", {}) for output in outputs)
    assert pictures >= 5


def test_page_is_that_of_the_notebook() -> None:
    page, pictures = notebooks.page_of(notebooks.read())
    assert notebooks.PAGE.read_text(encoding="utf-8") == page, "run python/notebooks/run.py"
    for name, png in pictures.items():
        assert (notebooks.PAGE.parent / "images" / name).read_bytes() == png
