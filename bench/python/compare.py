# SPDX-License-Identifier: MIT
"""Times the Python package beside what Python programs call otherwise, and writes a table of it in Markdown.

    build/python/bin/python bench/python/compare.py                     # prints the tables
    build/python/bin/python bench/python/compare.py --only fill         # of the works whose names have the text
    build/python/bin/python bench/python/compare.py -o docs/speed-python.md

scripts/test-python --peers installs the others.
"""

from __future__ import annotations

import argparse
import datetime
import gc
import importlib.metadata
import pathlib
import platform
import random
import statistics
import sys
import time
from typing import Any, Callable, Iterator

import cv2

import contests
import masks

REPETITIONS = 7
SHORTEST = 0.01  # seconds of one measurement
SLOW = 1.0  # what takes as many seconds is measured once

Contestants = dict[str, Callable[[], Any]]


def seconds(call: Callable[[], Any], calls: int = 1) -> float:
    """Processor time of all threads, so that other programs matter little."""
    begin = time.process_time()
    for _ in range(calls):
        call()
    return (time.process_time() - begin) / calls


def medians(contestants: Contestants) -> dict[str, float]:
    """Median seconds of each, all measured in turns, so that what disturbs the machine disturbs all alike."""
    taken = {name: [seconds(call)] for name, call in contestants.items()}
    calls = {name: max(1, int(SHORTEST / first)) for name, (first,) in taken.items()}
    for _ in range(REPETITIONS):
        for name in random.sample(sorted(calls), len(calls)):
            taken[name].append(seconds(contestants[name], calls[name]))
    return {name: statistics.median(times) for name, times in taken.items()}


def duration(time_taken: float) -> str:
    for unit, size in (("s", 1), ("ms", 1e-3), ("µs", 1e-6)):
        if time_taken >= size:
            break
    else:
        unit, size = "ns", 1e-9
    number = time_taken / size
    return f"{number:.0f} {unit}" if number >= 99.5 else f"{number:.2g} {unit}"


def ratio(theirs: float, ours: float) -> str:
    times = theirs / ours
    digits = 0 if times >= 9.95 else 1 if times >= 1 else 2
    return f"{times:.{digits}f}"


def rows_of_work(work: contests.Work) -> Iterator[str]:
    """A heading, our time for each mask, and the times of the others as multiples of it."""
    measured = {}
    for name, mask in masks.MASKS.items():
        contestants = work.contestants(mask)
        results: dict[str, Any] = {}
        once = {who: seconds(lambda: results.update({who: call()})) for who, call in contestants.items()}
        work.check(results)
        results.clear()
        gc.collect()
        measured[name] = medians({who: call for who, call in contestants.items() if once[who] < SLOW})
        measured[name].update({who: time_taken for who, time_taken in once.items() if time_taken >= SLOW})
        print(f"{work.name}, {name}: {measured[name]}", file=sys.stderr)
    order = [who for who in contestants if who != contests.OURS]
    yield f"| **{work.name}** | " + " | ".join(duration(times[contests.OURS]) for times in measured.values()) + " |"
    for who in order:
        cells = (ratio(times[who], times[contests.OURS]) for times in measured.values())
        yield f"| {who} | " + " | ".join(cells) + " |"


def tables(only: str) -> Iterator[str]:
    for section, works in contests.SECTIONS.items():
        chosen = [work for work in works if only in work.name]
        if chosen:
            yield f"\n## {section}\n"
            yield "| | " + " | ".join(masks.MASKS) + " |"
            yield "|---|" + "---|" * len(masks.MASKS)
            for work in chosen:
                yield from rows_of_work(work)


def machine() -> str:
    cpu = next(
        (line.partition(":")[2].strip() for line in open("/proc/cpuinfo", encoding="utf-8") if line.startswith("model name")),
        platform.machine(),
    )
    packages = ("numpy", "opencv-python-headless", "pycocotools", "RLEMaskLib", "scikit-image", "scipy", "dask", "dask-image")
    versions = ", ".join(f"{name} {importlib.metadata.version(name)}" for name in packages)
    today = datetime.date.today().isoformat()
    return f"Measured on {today}, {cpu}, Python {platform.python_version()}, {versions}."


def main() -> None:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--only", default="", help="times the works whose names have this text")
    parser.add_argument("-o", "--output", type=pathlib.Path, help="writes the page there instead of printing it")
    arguments = parser.parse_args()
    cv2.setNumThreads(1)
    gc.disable()  # it would run in whose call makes it due; between works it is run
    method = (pathlib.Path(__file__).parent / "method.md").read_text(encoding="utf-8")
    page = method + "\n" + machine() + "\n" + "".join(line + "\n" for line in tables(arguments.only))
    if arguments.output:
        arguments.output.write_text(page, encoding="utf-8")
    else:
        print(page, end="")


if __name__ == "__main__":
    main()
