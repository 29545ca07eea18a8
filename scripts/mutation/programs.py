# SPDX-License-Identifier: MIT
"""Runs the tests: once each to see which mutants they come by, and again for each mutant."""

import hashlib
import math
import os
import pickle
import re
import subprocess
import tempfile
import threading
from concurrent.futures import ThreadPoolExecutor
from dataclasses import dataclass
from pathlib import Path

WORKERS = 2
MEMORY = 4 << 30  # bytes of address space
QUICK = 0.01  # seconds; tests that take longer are run after those of their program that do not
SLOW = 0.1  # seconds; tests that take longer are kept for mutants that survive the others
MOST_MUTANTS = 1 << 16  # as mutant.h has it


@dataclass
class Test:
    program: Path
    name: str
    seconds: float  # of processor time
    reached: frozenset  # numbers of mutants


def run(program, tests, seconds, number=0, reached=None, output=subprocess.DEVNULL):
    """Runs a program's tests (all of them if None) with a mutant. Returns whether they pass, and the processor time."""
    environment = dict(os.environ, KIV_MUTANT=str(number), RC_PARAMS="seed=1")
    if reached:
        environment["KIV_REACHED"] = reached
    if tests is not None:
        environment["GTEST_FILTER"] = ":".join(tests)
    enough = ["--gtest_fail_fast"] if output == subprocess.DEVNULL else []  # someone who reads wants to know all
    process = subprocess.Popen(
        ["prlimit", f"--as={MEMORY}", f"--cpu={math.ceil(seconds)}", "--core=0", program, "--gtest_brief=1", *enough],
        cwd=program.parent, env=environment, stdout=output, stderr=subprocess.STDOUT)
    alarm = threading.Timer(100 * seconds + 100, process.kill)  # for one that waits for what never comes
    alarm.start()
    _, status, usage = os.wait4(process.pid, 0)
    alarm.cancel()
    process.returncode = os.waitstatus_to_exitcode(status)
    return process.returncode == 0, usage.ru_utime + usage.ru_stime


def names_of_tests(program):
    listed = subprocess.run([program, "--gtest_list_tests"], text=True, capture_output=True, check=True).stdout
    suite = ""
    for line in listed.splitlines():
        name = line.split("#")[0].rstrip()
        if re.fullmatch(r"\S+\.", name):
            suite = name
        elif line.startswith("  ") and "DISABLED_" not in suite + name:
            yield suite + name.strip()


def record(program, name):
    """Runs one test as it is."""
    with tempfile.NamedTemporaryFile() as file:
        file.truncate(MOST_MUTANTS)
        passes, seconds = run(program, [name], 600, reached=file.name)
        if not passes:
            raise RuntimeError(f"{program} --gtest_filter={name} fails without a mutant")
        reached = frozenset(number for number, byte in enumerate(file.read()) if byte)
    return Test(program, name, seconds, reached)


def record_all(programs, folder):
    """All tests of the programs. What was recorded of a program is kept for as long as it and the libraries stay."""
    kept_file = folder / "recorded.pickle"
    kept = pickle.loads(kept_file.read_bytes()) if kept_file.exists() else {}
    libraries = b"".join(hashlib.sha256(file.read_bytes()).digest() for file in sorted(folder.rglob("lib*.so")))
    recorded = {}
    for program in programs:
        state = hashlib.sha256(program.read_bytes() + libraries).hexdigest()
        if state not in kept:
            with ThreadPoolExecutor(WORKERS) as pool:
                kept[state] = list(pool.map(lambda name: record(program, name), names_of_tests(program)))
        recorded[state] = kept[state]
    kept_file.write_bytes(pickle.dumps(recorded))
    return [test for tests in recorded.values() for test in tests]


def first_to_notice(tests, number, output=subprocess.DEVNULL):
    """The program whose tests notice a mutant, the quickest ones being asked first; None if all of them pass."""
    groups = {}
    for test in tests:
        groups.setdefault((test.program, test.seconds > QUICK), []).append(test)
    for (program, _), group in sorted(groups.items(), key=lambda item: sum(test.seconds for test in item[1])):
        passes, _ = run(program, [test.name for test in group], 10 * sum(test.seconds for test in group), number,
                        output=output)
        if not passes:
            return program
    return None
