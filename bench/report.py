#!/usr/bin/python3 -B
# SPDX-License-Identifier: MIT
"""Judges measurements by targets.csv: prints a table, and writes docs/speed.md with its plot."""

import argparse
from pathlib import Path

from reporting import results, tables, targets

HERE = Path(__file__).parent


def judged_targets(timings, memory):
    every = targets.read_targets(HERE / "targets.csv")
    return [(target, targets.findings(target, timings, memory)) for target in every]


def page(timings, returned, memory):
    judged = judged_targets(timings, memory)
    sections = [(HERE / "speed_method.md").read_text(encoding="utf-8"),
                "## Targets\n", tables.target_overview(judged),
                (HERE / "speed_reasons.md").read_text(encoding="utf-8").split("\n", 1)[1],  # the page has a licence line
                "![Ratios of all functions](images/speed.svg)\n",
                "## Target by target\n\nWhat misses its target is bold.\n"]
    for target, found in judged:
        if found:
            sections.append(f"### {target.what}: at most {target.at_most:g}\n")
            sections.append(tables.target_table(target, found))
    sections += ["## Growth\n", tables.growth_table(results.exponents(timings)),
                 "## Memory returned to the system\n", tables.returned_table(timings, returned),
                 "## Everything\n", tables.full_table(timings)]
    return "\n".join(sections)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--speed", required=True, help="results of speed_bench")
    parser.add_argument("--returned", help="the same with malloc as it is")
    parser.add_argument("--memory", help="results of memory_bench")
    parser.add_argument("--write", type=Path, help="the folder of documents to write into")
    options = parser.parse_args()
    timings = results.read_timings(options.speed)
    memory = results.read_memory(options.memory) if options.memory else {}
    print(tables.full_table(timings))
    print(tables.target_overview([judged for judged in judged_targets(timings, memory) if judged[1]]))
    if options.write:
        from reporting import plot  # only now, as nothing else needs Matplotlib

        (options.write / "images").mkdir(exist_ok=True)
        plot.draw(timings, options.write / "images" / "speed.svg")
        text = page(timings, results.read_timings(options.returned), memory)
        (options.write / "speed.md").write_text(text, encoding="utf-8")


if __name__ == "__main__":
    main()
