# SPDX-License-Identifier: MIT
"""Findings as tables of Markdown, which are as legible in a terminal."""

from .results import OURS

WORKLOADS = ["blobs", "strokes", "few_strokes", "noise", "little_noise", "ring", "tall", "small",
             "shuffled", "ascending", "growth"]


def in_order(workloads):
    return sorted(set(workloads), key=WORKLOADS.index)


def by_name(keys_and_values):
    """[((function, workload), value)] by function, then in the order of the workloads."""
    def place(item):
        function, workload = item[0]
        return function, WORKLOADS.index(workload.split("_")[0] if workload.startswith("growth") else workload)

    return sorted(keys_and_values, key=place)


def number(value):
    if value >= 100:
        return f"{value:,.0f}"
    return f"{value:.3g}" if value < 1 else f"{value:.2f}"


def table(heads, rows):
    """Rows of texts as a table with columns of even width."""
    widths = [max(len(row[i]) for row in [heads, *rows]) for i in range(len(heads))]
    lines = [heads, ["-" * width for width in widths], *rows]
    return "\n".join("| " + " | ".join(cell.ljust(width) for cell, width in zip(line, widths)) + " |"
                     for line in lines) + "\n"


def verdict(target, found):
    """One line: is the target met, and if not, how often."""
    missed = sum(not finding.meets(target) for finding in found)
    if not found:
        return "not measured"
    return "met" if missed == 0 else f"not met in {missed} of {len(found)}"


def target_overview(judged):
    rows = [[target.what, f"≤ {target.at_most:g}", number(max(finding.value for finding in found)) if found else "",
             verdict(target, found)] for target, found in judged]
    return table(["what", "target", "worst", "result"], rows)


def target_table(target, found):
    """Functions by workloads; what misses the target is bold."""
    workloads = in_order(finding.workload for finding in found)
    values = {(finding.function, finding.workload): finding for finding in found}
    rows = []
    for function in sorted({finding.function for finding in found}):
        row = [function]
        for workload in workloads:
            finding = values.get((function, workload))
            text = number(finding.value) if finding else ""
            row.append(text if not finding or finding.meets(target) else f"**{text}**")
        rows.append(row)
    return table(["function", *workloads], rows)


def would_be_called(name):
    """Whether somebody without the library would call this contestant."""
    return name.startswith(("peer:", "calls:"))


OVERVIEW = [["blobs"], ["strokes", "few_strokes"], ["noise", "little_noise"], ["ring"], ["tall"], ["small"]]


def overview(timings):
    """Functions by shapes: our time in that of the fastest of what would be called instead, and who that is."""
    rows = []
    for function in sorted({function for function, _ in timings}):
        cells = [overview_cell(timings, function, workloads) for workloads in OVERVIEW]
        if any(cells):
            rows.append([function, *cells])
    return table(["function", *(workloads[0] for workloads in OVERVIEW)], rows)


def overview_cell(timings, function, workloads):
    for workload in workloads:
        contestants = timings.get((function, workload), {})
        others = {name: timing.nanoseconds for name, timing in contestants.items() if would_be_called(name)}
        if OURS in contestants and others:
            best = min(others, key=others.get)
            ratio = contestants[OURS].nanoseconds / others[best]
            few = " (" + workload.split("_")[0] + ")" if "_" in workload else ""
            text = number(ratio) if ratio <= 1 else f"**{number(ratio)}**"
            return f"{text} {best.split(':')[1]}{few}"
    return ""


def full_table(timings):
    """Every function and workload: our time, and everybody else's in ours."""
    rows = []
    for (function, workload), contestants in by_name(timings.items()):
        ours = contestants.get(OURS)
        if ours is None or workload.startswith("growth"):
            continue
        others = sorted((timing.nanoseconds, name) for name, timing in contestants.items() if name != OURS)
        rows.append([function, workload, duration(ours.nanoseconds), f"{ours.runs:,.0f}" if ours.runs else "",
                     ", ".join(f"{name} {number(ours.nanoseconds / time)}" for time, name in others)])
    return table(["function", "workload", "time", "runs", "our time : theirs"], rows)


def returned_table(kept, returned):
    """The same contests with malloc as it is, beside those where freed memory is kept."""
    rows = []
    for key, contestants in by_name(returned.items()):
        ours = contestants.get(OURS)
        for name, timing in sorted(contestants.items()):
            if ours and name != OURS and name in kept.get(key, {}):
                with_kept = kept[key][OURS].nanoseconds / kept[key][name].nanoseconds
                rows.append([*key, name, number(with_kept), number(ours.nanoseconds / timing.nanoseconds)])
    return table(["function", "workload", "against", "memory kept", "memory returned"], rows)


def growth_table(exponents):
    """Our exponent, and that of the floor on the same shapes."""
    rows = []
    for (function, contestant), exponent in sorted(exponents.items()):
        if contestant == OURS:
            floors = [f"{name} {value:.2f}" for (of, name), value in exponents.items()
                      if of == function and name != OURS]
            rows.append([function, f"{exponent:.2f}", ", ".join(floors)])
    return table(["function", "exponent", "floor's"], rows)


def duration(nanoseconds):
    for unit, size in (("s", 1e9), ("ms", 1e6), ("µs", 1e3)):
        if nanoseconds >= size:
            return f"{nanoseconds / size:.3g} {unit}"
    return f"{nanoseconds:.3g} ns"
