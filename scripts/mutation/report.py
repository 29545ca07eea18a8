# SPDX-License-Identifier: MIT
"""What became of the mutants."""

import re
from collections import Counter


def folder_of(mutant):
    return re.match(r"(src/[^/]+|libs/[^/]+|[^/]+)", mutant.site.path)[0]


def table(mutants, verdicts):
    """Counts by folder. Verdicts: noticed, survived, impossible."""
    counts = Counter((folder_of(mutant), verdicts[mutant.name]) for mutant in mutants)
    folders = sorted({folder_of(mutant) for mutant in mutants})
    rows = [["folder", "mutants", "noticed", "survived", "impossible"]]
    for folder in folders:
        of_folder = [counts[folder, verdict] for verdict in ("noticed", "survived", "impossible")]
        rows.append([folder, sum(of_folder), *of_folder])
    rows.append(["all", *(sum(row[column] for row in rows[1:]) for column in range(1, 5))])
    return "\n".join(f"{row[0]:<20}" + "".join(f"{cell:>13}" for cell in row[1:]) for row in rows)
