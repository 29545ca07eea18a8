# SPDX-License-Identifier: MIT
"""The mutated copy of the project, under build/mutation, and its programs."""

import hashlib
import json
import pickle
import re
import shlex
import subprocess
import sys
from pathlib import Path

from . import sites
from .rewriting import Rewriting, make_mutants, with_mutant

FOLDERS = (r"src/", r"seam/", r"common/", r"libs/[^/]+/(src|include)/", r"include/")
# Left out because they take long: threads, huge images, documents, and what compiles the library's sources once more, for calls
# that fail and by the contract alone. What compiles headers as C++17 is left out, as mutants need C++20.
LEFT_OUT = re.compile(r"tests/(threads|huge|repository|headers|faults/call|.*_contract_tests)")


def run_or_exit(command, **options):
    done = subprocess.run(command, text=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False, **options)
    if done.returncode != 0:
        sys.exit(f"{shlex.join(map(str, command))}\n{done.stdout}")
    return done.stdout


class Tree:
    def __init__(self, root):
        self.root = root
        self.folder = root / "build" / "mutation"
        self.copy = self.folder / "tree"
        self.build_folder = self.folder / "build"
        self.copy_project()
        self.configure()
        self.mutants = make_mutants(self.find_sites())
        self.apart = self.folder / "apart.json"  # mutants that are known not to be fit for the shared build
        apart = json.loads(self.apart.read_text()) if self.apart.exists() else {}
        for mutant in self.mutants:
            mutant.build = apart.get(mutant.name, mutant.build)

    def copy_project(self):
        wanted = set(self.project_files())
        for path in wanted:
            # The files that get mutants are written when the mutants are known; until then any content will do.
            if not self.is_mutated(path) or not (self.copy / path).exists():
                write_if_changed(self.copy / path, (self.root / path).read_bytes())
        for file in list(self.copy.rglob("*")):
            if file.is_file() and str(file.relative_to(self.copy)) not in wanted:
                file.unlink()

    def project_files(self):
        listed = run_or_exit(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"], cwd=self.root)
        return sorted(path for path in listed.split("\0") if path and (self.root / path).is_file())

    @staticmethod
    def is_mutated(path):
        return any(re.match(folder, path) for folder in FOLDERS)

    def configure(self):
        """Configures the build, and precompiles what nearly every file includes for each kind of compilation."""
        prelude = self.folder / "prelude.h"
        included = [Path(__file__).with_name("mutant.h"), "opencv2/core.hpp", "gtest/gtest.h", "algorithm", "random"]
        write_if_changed(prelude, "".join(f'#include "{header}"\n' for header in included).encode())
        opencv = run_or_exit(["pkg-config", "--cflags", "opencv4"]).strip()
        flags = f"-std=c++20 -O1 -DNDEBUG -w -Wno-narrowing {opencv} -include {prelude}"
        run_or_exit(["cmake", "-S", self.copy, "-B", self.build_folder, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=None",
                     "-DKIV_BUILD_TOOLS=OFF", "-DCMAKE_CXX_COMPILER_LAUNCHER=", f"-DCMAKE_CXX_FLAGS={flags}"])
        commands = [entry["command"] for entry in self.compile_commands()]
        for kind in sorted({" ".join(re.findall(r"-f\S+|-DGTEST\S+", command)) for command in commands}):
            precompiled = Path(f"{prelude}.gch") / kind.replace(" ", "")
            if not precompiled.exists() or precompiled.stat().st_mtime < included[0].stat().st_mtime:
                precompiled.parent.mkdir(exist_ok=True)
                run_or_exit(["c++", *flags.split()[:-2], *kind.split(), "-x", "c++-header", prelude, "-o", precompiled])

    def compile_commands(self):
        return json.loads((self.build_folder / "compile_commands.json").read_text())

    def find_sites(self):
        """As find_sites() of the module of that name; what it found is kept for as long as nothing that counts changes."""
        commands = list(self.commands())
        state = self.state_of_sites(commands)
        kept = self.folder / "sites.pickle"
        if kept.exists():
            kept_state, found = pickle.loads(kept.read_bytes())
            if kept_state == state:
                return found
        found = sites.find_sites(self.root, commands, FOLDERS, self.folder)
        kept.write_bytes(pickle.dumps((state, found)))
        return found

    def state_of_sites(self, commands):
        """A hash of all that the sites depend on."""
        state = hashlib.sha256(repr(commands).encode())
        for path in [*self.project_files(), sites.__file__]:
            if self.is_mutated(path) or path == sites.__file__:
                state.update(path.encode() + (self.root / path).read_bytes())
        return state.hexdigest()

    def commands(self):
        """(file, compiler arguments) of the libraries' sources, as they are in the project itself."""
        for entry in self.compile_commands():
            if not Path(entry["file"]).is_relative_to(self.copy):
                continue  # sources that are taken as one, each of which is compiled by itself, too
            path = str(Path(entry["file"]).relative_to(self.copy))
            if self.is_mutated(path) and "data_types_contract" not in entry["command"]:
                words = shlex.split(entry["command"].replace(str(self.copy), str(self.root)))
                yield str(self.root / path), [word for word in words if re.match(r"-[DI]|-std|-isystem", word) or
                                              previous(words, word) == "-isystem"]

    def build(self):
        """Builds the test programs with all mutants in them, apart from those with which they do not compile."""
        while True:
            files = self.write_mutated()
            done = subprocess.run(["cmake", "--build", self.build_folder, "--target", *self.targets(), "--", "-k0"],
                                  text=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
            if done.returncode == 0:
                return
            if not self.set_apart(done.stdout, files):
                sys.exit(done.stdout)

    def write_mutated(self):
        files = {}
        for path in filter(self.is_mutated, self.project_files()):
            mutants = [mutant for mutant in self.mutants if mutant.site.path == path]
            files[path] = Rewriting((self.root / path).read_bytes(), mutants)
            write_if_changed(self.copy / path, files[path].text.encode())
        return files

    def set_apart(self, output, files):
        """Takes out of the build the mutants that the compiler complains about. Returns whether there are any."""
        complaints = re.findall(r"^(\S+?):(\d+):(\d+): (error|note)", output, re.MULTILINE)
        apart = {}
        for path, line, column, kind in complaints:
            path = (self.build_folder / path).resolve()
            path = str(path.relative_to(self.copy)) if path.is_relative_to(self.copy) else None
            if path not in files:
                continue
            if kind == "error":
                mutants, in_text = files[path].mutants_at(int(line), int(column))
                apart.update((mutant, "impossible" if in_text else "own") for mutant in mutants)
            else:
                # A constant that compiling cannot do without: the complaint is about its use.
                apart.update((mutant, "own") for mutant in self.mutants if mutant.build == "shared" and
                             mutant.site.constant and mutant.site.path == path and mutant.site.line == int(line))
        for mutant, build in apart.items():
            mutant.build = build
        kept = {mutant.name: mutant.build for mutant in self.mutants if mutant.build != "shared"}
        self.apart.write_text(json.dumps(kept, indent=1))
        return bool(apart)

    def targets(self):
        """The test programs, as CMake's ninja files list them."""
        listed = run_or_exit(["ninja", "-C", self.build_folder, "-t", "targets", "all"])
        programs = re.findall(r"^((?:tests|libs)/\S+_tests): CXX_EXECUTABLE_LINKER", listed, re.MULTILINE)
        return sorted(program for program in programs if not LEFT_OUT.match(program))

    def programs(self):
        return [self.build_folder / target for target in self.targets()]

    def build_alone(self, mutant):
        """Builds with one mutant in the text of its file. Returns whether it compiles."""
        source = (self.root / mutant.site.path).read_bytes()
        write_if_changed(self.copy / mutant.site.path, with_mutant(source, mutant).encode())
        command = ["cmake", "--build", self.build_folder, "--target", *self.targets()]
        done = subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=False)
        return done.returncode == 0


def previous(words, word):
    at = words.index(word)
    return words[at - 1] if at else None


def write_if_changed(path, content):
    if not path.exists() or path.read_bytes() != content:
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content)
