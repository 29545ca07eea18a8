# SPDX-License-Identifier: MIT
"""The stubs and docstrings are those of the modules, and true."""

from __future__ import annotations

import doctest
import pathlib
import subprocess
import sys

import pytest

import kivdataconvert
from kivdataconvert import _core, _family

PACKAGE = pathlib.Path(kivdataconvert.__file__).parent
SOURCES = pathlib.Path(__file__).parents[1]


@pytest.mark.parametrize("name", ["_core", "_family"])
def test_stubs_are_those_of_the_modules(name: str) -> None:
    pytest.importorskip("nanobind")
    sys.path.insert(0, str(SOURCES / "stubs"))
    from make_stubs import stub_of

    assert stub_of(name) == (SOURCES / "kivdataconvert" / f"{name}.pyi").read_text(encoding="utf-8"), (
        "run python/stubs/make_stubs.py"
    )


def test_passes_mypy_in_strict_mode() -> None:
    pytest.importorskip("mypy")
    checked = subprocess.run(
        [sys.executable, "-m", "mypy", "--config-file", str(SOURCES.parent / "pyproject.toml"), str(SOURCES / "kivdataconvert")],
        capture_output=True,
        text=True,
        check=False,
    )
    assert checked.returncode == 0, checked.stdout


@pytest.mark.parametrize("module", [_core, _family])
def test_every_name_has_a_docstring(module: object) -> None:
    def documented(owner: object, name: str) -> bool:
        member = getattr(owner, name)
        if isinstance(member, type) and not name.startswith("_"):
            assert all(documented(member, inner) for inner in vars(member) if not inner.startswith("_")), name
        return bool(member.__doc__)

    for name in vars(module):
        assert name.startswith("_") or documented(module, name), name


def test_examples_of_docstrings_run() -> None:
    finder = doctest.DocTestFinder()
    runner = doctest.DocTestRunner()
    examples = finder.find(_core.RunSet, "RunSet", module=False)  # type: ignore[arg-type]
    assert sum(len(example.examples) for example in examples) >= 4
    for example in examples:
        runner.run(example)
    assert runner.summarize().failed == 0


def test_version_is_that_of_the_library() -> None:
    text = (SOURCES.parent / "CMakeLists.txt").read_text(encoding="utf-8")
    assert f"project(KivDataConvert VERSION {kivdataconvert.__version__} " in text


def test_import_is_light() -> None:
    code = "import sys, kivdataconvert; print(sorted(m for m in ('cv2', 'dask', 'scipy', 'kivdataconvert._family') if m in sys.modules))"
    shown = subprocess.run([sys.executable, "-W", "error", "-c", code], capture_output=True, text=True, check=True)
    assert shown.stdout == "[]\n" and shown.stderr == ""
