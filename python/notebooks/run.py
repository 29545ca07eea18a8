# SPDX-License-Identifier: MIT
"""Runs the notebook, keeps its outputs in it, and makes the page docs/first-steps.md of it, with its pictures.

    build/python/bin/python python/notebooks/run.py

It does by itself what little of Jupyter the notebook needs, so that the tests need none of it.
"""

from __future__ import annotations

import ast
import base64
import contextlib
import io
import json
import pathlib
from typing import Any, Dict, Iterator, List, Tuple

ROOT = pathlib.Path(__file__).parents[2]
NOTEBOOK = ROOT / "python" / "notebooks" / "first_steps.ipynb"
PAGE = ROOT / "docs" / "first-steps.md"
LICENCE = "<!-- SPDX-License-Identifier: MIT -->\n"
MADE_BY = "<!-- Made by python/notebooks/run.py out of python/notebooks/first_steps.ipynb. -->\n"

Cell = Dict[str, Any]


def read(path: pathlib.Path = NOTEBOOK) -> Dict[str, Any]:
    notebook: Dict[str, Any] = json.loads(path.read_text(encoding="utf-8"))
    return notebook


def lines(text: str) -> List[str]:
    return text.splitlines(keepends=True)


def outputs_of(source: str, names: Dict[str, Any], count: int) -> List[Cell]:
    """Runs a cell: what it prints, and the value of its last line if that is an expression."""
    tree = ast.parse(source)
    value = None
    printed = io.StringIO()
    with contextlib.redirect_stdout(printed):
        last = tree.body[-1] if tree.body else None
        if isinstance(last, ast.Expr):
            tree.body.pop()
        exec(compile(tree, f"<cell {count}>", "exec"), names)
        if isinstance(last, ast.Expr):
            value = eval(compile(ast.Expression(last.value), f"<cell {count}>", "eval"), names)
    outputs: List[Cell] = []
    if printed.getvalue():
        outputs.append({"name": "stdout", "output_type": "stream", "text": lines(printed.getvalue())})
    if value is not None:
        data: Dict[str, Any] = {"text/plain": lines(repr(value))}
        png = value._repr_png_() if hasattr(value, "_repr_png_") else None
        if png:
            data["image/png"] = base64.b64encode(png).decode()
        outputs.append({"data": data, "execution_count": count, "metadata": {}, "output_type": "execute_result"})
    return outputs


def run(notebook: Dict[str, Any]) -> None:
    names: Dict[str, Any] = {"__name__": "__main__"}
    codes = [cell for cell in notebook["cells"] if cell["cell_type"] == "code"]
    for count, cell in enumerate(codes, 1):
        cell["outputs"] = outputs_of("".join(cell["source"]), names, count)
        cell["execution_count"] = count


def page_of(notebook: Dict[str, Any]) -> Tuple[str, Dict[str, bytes]]:
    """The page in Markdown, and its pictures by name."""
    pictures: Dict[str, bytes] = {}

    def parts(cell: Cell) -> Iterator[str]:
        source = "".join(cell["source"])
        if cell["cell_type"] == "markdown":
            yield source
            return
        yield f"```python\n{source}\n```"
        for output in cell["outputs"]:
            data = output.get("data", {"text/plain": output.get("text")})
            if "image/png" in data:
                name = f"first-steps-{len(pictures) + 1}.png"
                pictures[name] = base64.b64decode(data["image/png"])
                yield f"![{''.join(data['text/plain'])}](images/{name})"
            else:
                yield "```text\n" + "".join(data["text/plain"]).rstrip("\n") + "\n```"

    title, *rest = [part for cell in notebook["cells"] for part in parts(cell)]
    return "\n\n".join([f"{title}\n{LICENCE}{MADE_BY}".rstrip("\n"), *rest]) + "\n", pictures


def main() -> None:
    notebook = read()
    run(notebook)
    licensed = {"metadata": {"license": "SPDX-License-Identifier: MIT", **notebook.pop("metadata")}, **notebook}
    NOTEBOOK.write_text(json.dumps(licensed, indent=1, ensure_ascii=False) + "\n", encoding="utf-8")
    page, pictures = page_of(notebook)
    PAGE.write_text(page, encoding="utf-8")
    for name, png in pictures.items():
        (PAGE.parent / "images" / name).write_bytes(png)


if __name__ == "__main__":
    main()
