# SPDX-License-Identifier: MIT
"""The targets of targets.csv, and what was measured of each."""

import csv
from fnmatch import fnmatch
from typing import NamedTuple

from .results import OURS, exponents


class Target(NamedTuple):
    what: str
    functions: str  # names, or * for all
    workloads: str  # names, * for all, or -name for all but that one
    measure: str  # a key of MEASURES
    against: str  # the contestants whose best counts, a pattern of file names; or another function
    at_most: float

    def concerns(self, function, workload):
        if self.functions != "*" and function not in self.functions.split():
            return False
        if self.workloads == "*":
            return not workload.startswith("growth")
        if self.workloads.startswith("-"):
            return not workload.startswith("growth") and workload != self.workloads[1:]
        return workload in self.workloads.split()


class Finding(NamedTuple):
    function: str
    workload: str
    value: float
    against: str  # who it was measured against; empty for what stands for itself

    def meets(self, target):
        return self.value <= target.at_most


def read_targets(path):
    with open(path, encoding="utf-8") as file:
        return [Target(**{**row, "at_most": float(row["at_most"])}) for row in csv.DictReader(file)]


def ratios(target, timings, time_of):
    for (function, workload), contestants in timings.items():
        rivals = [name for name in contestants if fnmatch(name, target.against)]
        if target.concerns(function, workload) and OURS in contestants and rivals:
            best = min(rivals, key=lambda name: time_of(contestants[name]))
            value = time_of(contestants[OURS]) / time_of(contestants[best])
            yield Finding(function, workload, value, best)


def time_ratios(target, timings, _memory):
    return ratios(target, timings, lambda timing: timing.nanoseconds)


def time_ratios_to_function(target, timings, _memory):
    """Beside another function on the same operands."""
    for (function, workload), contestants in timings.items():
        if target.concerns(function, workload) and OURS in contestants:
            other = timings[target.against, workload][OURS]
            yield Finding(function, workload, contestants[OURS].nanoseconds / other.nanoseconds, target.against)


def time_per_run_ratios(target, timings, _memory):
    return ratios(target, timings, lambda timing: timing.nanoseconds / timing.runs)


def nanoseconds(target, timings, _memory):
    for (function, workload), contestants in timings.items():
        if target.concerns(function, workload) and OURS in contestants:
            yield Finding(function, workload, contestants[OURS].nanoseconds, "")


def nanoseconds_per_run(target, timings, _memory):
    """For each run that is read."""
    for (function, workload), contestants in timings.items():
        if target.concerns(function, workload) and OURS in contestants:
            yield Finding(function, workload, contestants[OURS].nanoseconds / contestants[target.against].runs, "")


def growth(_target, timings, _memory):
    for (function, contestant), exponent in exponents(timings).items():
        if contestant == OURS:
            yield Finding(function, "growth", exponent, "")


def growth_beyond(_target, timings, _memory):
    """Beyond the exponent of the floor that grows most, or of OpenCV's own calls if there is no floor, on the same
    shapes."""
    of_all = exponents(timings)
    for function in sorted({function for function, contestant in of_all if contestant == OURS}):
        others = {name: exponent for (of, name), exponent in of_all.items() if of == function and name != OURS}
        floors = {name: exponent for name, exponent in others.items() if name.startswith("floor:")}
        rivals = floors or others
        if rivals:
            most = max(rivals, key=rivals.get)
            yield Finding(function, "growth", of_all[function, OURS] - rivals[most], most)


def allocations(target, _timings, memory):
    for (function, workload), entry in memory.items():
        if target.concerns(function, workload):
            yield Finding(function, workload, max(0, entry["allocations"] - entry["needed"]), "")


HEADERS = 512  # bytes that the headers of a few matrices and malloc's rounding come to


def bytes_in_use(target, _timings, memory):
    for (function, workload), entry in memory.items():
        if target.concerns(function, workload):
            yield Finding(function, workload, max(0, entry["bytes"] - HEADERS) / entry["allowed"], "")


MEASURES = {
    "time": time_ratios,
    "time of": time_ratios_to_function,
    "time per run": time_per_run_ratios,
    "nanoseconds": nanoseconds,
    "nanoseconds per run": nanoseconds_per_run,
    "exponent": growth,
    "exponent beyond": growth_beyond,
    "allocations": allocations,
    "bytes": bytes_in_use,
}


def findings(target, timings, memory):
    return list(MEASURES[target.measure](target, timings, memory))
