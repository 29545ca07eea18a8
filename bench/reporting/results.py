# SPDX-License-Identifier: MIT
"""What the benchmarks measured."""

import json
import math
import statistics
from collections import defaultdict
from typing import NamedTuple

OURS = "kiv"


class Timing(NamedTuple):
    nanoseconds: float  # of the processor, the median of the repetitions
    runs: float  # that the result is made of; 0 where it is not made of runs


def read_timings(path):
    """{(function, workload): {contestant: Timing}}"""
    samples = defaultdict(list)
    runs = {}
    with open(path, encoding="utf-8") as file:
        for entry in json.load(file)["benchmarks"]:
            if entry.get("run_type") != "iteration":
                continue
            name = entry["run_name"]
            if entry.get("error_occurred"):
                raise SystemExit(f"{name}: {entry['error_message']}")
            assert entry["time_unit"] == "ns"
            samples[name].append(entry["cpu_time"])
            runs[name] = entry.get("runs", 0.0)
    timings = defaultdict(dict)
    for name, times in samples.items():
        function, workload, contestant = name.split("/")
        timings[function, workload][contestant] = Timing(statistics.median(times), runs[name])
    return timings


def read_memory(path):
    """{(function, workload): {"allocations": ..., "needed": ..., "bytes": ..., "allowed": ...}}"""
    with open(path, encoding="utf-8") as file:
        return {(entry["function"], entry["workload"]): entry for entry in json.load(file)}


def exponents(timings):
    """{(function, contestant): exponent of its time}, from the workloads growth_1, growth_4 and growth_16."""
    points = defaultdict(list)
    for (function, workload), contestants in timings.items():
        if workload.startswith("growth_"):
            for contestant, timing in contestants.items():
                size = float(workload.removeprefix("growth_"))
                points[function, contestant].append((math.log(size), math.log(timing.nanoseconds)))
    return {key: slope(of_key) for key, of_key in points.items() if len(of_key) > 1}


def slope(points):
    """Of the straight line that comes closest to the points."""
    mean_x = sum(x for x, _ in points) / len(points)
    mean_y = sum(y for _, y in points) / len(points)
    return sum((x - mean_x) * (y - mean_y) for x, y in points) / sum((x - mean_x) ** 2 for x, _ in points)
