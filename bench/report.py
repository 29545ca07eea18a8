#!/usr/bin/python3 -B
# SPDX-License-Identifier: MIT
"""Judges measurements by targets.csv: prints a table, and writes docs/speed.md with its plot, and bench/README.md."""

import argparse
from pathlib import Path

from reporting import results, tables, targets

HERE = Path(__file__).parent


def judged_targets(timings, memory):
    every = targets.read_targets(HERE / "targets.csv")
    return [(target, targets.findings(target, timings, memory)) for target in every]


def text_of(name):
    return (HERE / name).read_text(encoding="utf-8")


def part_of_page(name):
    return text_of(name).split("\n", 1)[1]  # the page has a licence line


def page_for_users(timings):
    sections = [text_of("speed_head.md"), tables.overview(timings),
                "![Ratios of all functions](images/speed.svg)\n"]
    sections += [part_of_page(name) for name in ("speed_advice.md", "speed_method.md", "speed_reasons.md")]
    sections += ["## Everything\n", tables.full_table(timings)]
    return "\n".join(sections)


def page_for_makers(timings, returned, memory):
    judged = judged_targets(timings, memory)
    sections = [text_of("targets_head.md"), "## Targets\n", tables.target_overview(judged)]
    for target, found in judged:
        if found:
            sections.append(f"### {target.what}: at most {target.at_most:g}\n")
            sections.append(tables.target_table(target, found))
    sections += ["## Growth\n", tables.growth_table(results.exponents(timings)),
                 "## Memory returned to the system\n", tables.returned_table(timings, returned)]
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
        (options.write / "speed.md").write_text(page_for_users(timings), encoding="utf-8")
        makers = page_for_makers(timings, results.read_timings(options.returned), memory)
        (HERE / "README.md").write_text(makers, encoding="utf-8")


if __name__ == "__main__":
    main()
