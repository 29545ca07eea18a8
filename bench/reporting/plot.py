# SPDX-License-Identifier: MIT
"""One picture of all functions: our time beside the best peer's, on every workload."""

import matplotlib

matplotlib.use("svg")
import matplotlib.pyplot as pyplot  # noqa: E402 (the backend is chosen first)

from .results import OURS  # noqa: E402
from .tables import in_order  # noqa: E402

MARKERS = "osD^vP*X"


def best(contestants, kinds):
    times = [timing.nanoseconds for name, timing in contestants.items() if name.split(":")[0] in kinds]
    return min(times, default=None)


def ratios_to(timings, kinds):
    """[(function, workload, our time : the best of theirs)]"""
    found = []
    for (function, workload), contestants in timings.items():
        rival = best(contestants, kinds)
        if rival and OURS in contestants and not workload.startswith("growth"):
            found.append((function, workload, contestants[OURS].nanoseconds / rival))
    return found


def panel(axes, title, found, functions, workloads, colours):
    for index, workload in enumerate(workloads):
        of_workload = [(ratio, functions.index(function)) for function, on, ratio in found if on == workload]
        if of_workload:
            axes.scatter(*zip(*of_workload), marker=MARKERS[index % len(MARKERS)], s=26, color=colours(index),
                         label=workload, zorder=3)
    axes.axvline(1, color="black", linewidth=1, zorder=2)
    axes.set_xscale("log")
    axes.set_title(title, fontsize=10)
    axes.set_ylim(len(functions) - 0.5, -0.5)
    axes.grid(color="0.88", zorder=0)


def draw(timings, path):
    peers = ratios_to(timings, {"peer", "calls"})
    floors = ratios_to(timings, {"floor"})
    functions = sorted({function for function, _, _ in peers + floors})
    workloads = in_order(workload for _, workload, _ in peers + floors)
    colours = pyplot.get_cmap("tab10")
    figure, (left, right) = pyplot.subplots(1, 2, sharey=True, figsize=(11, 0.26 * len(functions) + 1.6))
    panel(left, "our time : best peer's (left of 1 is faster)", peers, functions, workloads, colours)
    panel(right, "our time : floor's", floors, functions, workloads, colours)
    left.set_yticks(range(len(functions)), functions, fontsize=8)
    handles = {}
    for axes in (left, right):
        handles.update(zip(*reversed(axes.get_legend_handles_labels())))
    figure.legend(handles.values(), handles.keys(), loc="lower center", ncol=len(workloads), fontsize=8, frameon=False)
    figure.tight_layout(rect=(0, 0.03, 1, 1))
    matplotlib.rcParams["svg.hashsalt"] = "speed"
    figure.savefig(path, metadata={"Date": None})
