# SPDX-License-Identifier: MIT
"""The Python code of the guide and of the READMEs runs, and prints what they say."""

from __future__ import annotations

import doctest
import pathlib
import re
import subprocess
import sys

import pytest

ROOT = pathlib.Path(__file__).parents[2]
PRINTS = "# Prints:\n"


def blocks(page: str, language: str) -> list[str]:
    text = (ROOT / page).read_text(encoding="utf-8")
    return re.findall(rf"^```{language}\n(.*?)^```", text, re.MULTILINE | re.DOTALL)


@pytest.mark.parametrize("page", ["docs/python.md", "python/README.md"])
def test_sessions_go_as_shown(page: str) -> None:
    """Those of a page are one session."""
    sessions = blocks(page, "pycon")
    assert sessions
    test = doctest.DocTestParser().get_doctest("".join(sessions), {}, page, page, 0)
    runner = doctest.DocTestRunner()
    output: list[str] = []
    runner.run(test, out=output.append)
    assert runner.failures == 0, "".join(output)


@pytest.mark.parametrize("page", ["README.md", "docs/python.md"])
def test_programs_print_what_they_say(page: str, tmp_path: pathlib.Path) -> None:
    programs = blocks(page, "python")
    assert programs
    for number, program in enumerate(programs):
        if "distributed" in program:
            pytest.importorskip("distributed")
        expected = "".join(line.removeprefix("#   ") for line in program.partition(PRINTS)[2].splitlines(keepends=True))
        assert expected, f"program {number + 1} does not say what it prints"
        source = tmp_path / f"program_{number}.py"
        source.write_text(program, encoding="utf-8")
        run = subprocess.run([sys.executable, source], capture_output=True, text=True, check=False, timeout=300)
        assert run.returncode == 0, run.stderr
        assert run.stdout == expected
