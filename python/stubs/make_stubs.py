# SPDX-License-Identifier: MIT
"""Writes the stubs of the modules that Python finds into a folder: ``python python/stubs/make_stubs.py python/kivdataconvert``."""

from __future__ import annotations

import importlib
import pathlib
import re
import sys

from nanobind.stubgen import StubGen, load_pattern_file  # type: ignore[import-untyped,unused-ignore]

PATTERNS = pathlib.Path(__file__).with_name("patterns.nb")


def stub_of(name: str) -> str:
    """The stub of a module of the package, by its name there."""
    generator = StubGen(
        importlib.import_module(f"kivdataconvert.{name}"), include_private=True, patterns=load_pattern_file(str(PATTERNS))
    )
    generator.put(generator.module)
    text: str = generator.get()
    return "# SPDX-License-Identifier: MIT\n" + re.sub(r"\n{3,}", "\n\n", text)


if __name__ == "__main__":
    for module in ("_core", "_family"):
        pathlib.Path(sys.argv[1], f"{module}.pyi").write_text(stub_of(module), encoding="utf-8")
