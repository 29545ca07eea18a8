# SPDX-License-Identifier: MIT
"""Sources with all mutants in them, of which one is chosen when the program runs, or with one mutant in plain text."""

from dataclasses import dataclass

from .sites import CONDITION, RESULT, STATEMENT, Site, flat


@dataclass(eq=False)
class Mutant:
    """A site and one of the texts that may stand there."""

    number: int
    site: Site
    after: str
    name: str  # the same as long as the changed place is; what lists of mutants go by
    build: str = "shared"  # or "own", where it cannot be chosen in a running program, or "impossible"

    def __str__(self):
        return f"{self.number}, line {self.site.line}: {self.name}"


def make_mutants(sites):
    """Numbered from a multiple of 100 on in each file, so that a change of one file seldom renumbers the others."""
    mutants = []
    times_named = {}
    number = 0
    for site in sites:
        if mutants and mutants[-1].site.path != site.path:
            number += 100 - number % 100
        for after in site.afters:
            name = f"{site.path} {site.function}: {site.before} => {after}"
            times_named[name] = times_named.get(name, 0) + 1
            if times_named[name] > 1:
                name += f" #{times_named[name]}"
            number += 1
            mutants.append(Mutant(number, site, after, name, "own" if site.is_bound else "shared"))
    return mutants


@dataclass
class Node:
    site: Site
    mutants: list
    inner: list


def nested(mutants):
    """The mutants of one file as a forest of the sites, each with those inside of it."""
    by_site = {}
    for mutant in mutants:
        by_site.setdefault(id(mutant.site), Node(mutant.site, [], [])).mutants.append(mutant)
    forest = []
    path = []
    for node in sorted(by_site.values(), key=lambda node: (node.site.start, -node.site.end, node.site.rank)):
        while path and path[-1].site.end <= node.site.start:
            path.pop()
        if path and path[-1].site.end < node.site.end:
            raise ValueError(f"{node.site.path}:{node.site.line}: places overlap: {node.site.before}")
        (path[-1].inner if path else forest).append(node)
        path.append(node)
    return forest


class Rewriting:
    """One file with all of its mutants that need no build of their own. Lines keep their numbers."""

    def __init__(self, source, mutants):
        self.source = source
        chosen = [mutant for mutant in mutants if mutant.build == "shared"]
        self.words = {mutant.site.constant: mutant.site.in_class for mutant in chosen if mutant.site.constant}
        self.pieces = []
        self.length = 0
        self.spans = []  # (start, end, mutants, whether it is the text of one): where they are in the result
        self.write_range(0, len(source), nested(chosen))
        self.text = "".join(self.pieces)

    def put(self, text):
        self.pieces.append(text)
        self.length += len(text)

    def write_range(self, start, end, nodes):
        for node in nodes:
            self.copy(start, node.site.start)
            self.write_node(node)
            start = node.site.end
        self.copy(start, end)

    def copy(self, start, end):
        # A constant that is computed in compiling has no mutants; one that is computed at the start of a program has.
        for word_start, word_end in sorted(self.words):
            if start <= word_start and word_end <= end:
                self.put(self.source[start:word_start].decode())
                self.put("inline const" if self.words[word_start, word_end] else "const")
                start = word_end
        self.put(self.source[start:end].decode())

    def write_node(self, node):
        start = self.length
        if flat(self.source[node.site.start:node.site.end].decode()) in ("break", "continue"):
            self.put(f"if (!kiv_mutant({node.mutants[0].number})) ")
            self.write_range(node.site.start, node.site.end, node.inner)
        else:
            self.put("(")
            for mutant in node.mutants:
                self.put(f"{'kiv_mutant_of_constant' if node.site.constant else 'kiv_mutant'}({mutant.number}) ? ")
                after_start = self.length
                self.put(f"({mutant.after})")
                self.spans.append((after_start, self.length, [mutant], True))
                self.put(" : ")
            self.put({STATEMENT: "(void)(", CONDITION: "static_cast<bool>(", RESULT: "("}.get(node.site.rank, "("))
            self.write_range(node.site.start, node.site.end, node.inner)
            self.put("))")
        self.spans.append((start, self.length, node.mutants, False))

    def mutants_at(self, line, column):
        """The mutants at a place of the result, and whether it is in the text of one: else they are all of a site."""
        lines = self.text.split("\n")
        offset = sum(len(text) + 1 for text in lines[:line - 1]) + len(lines[line - 1].encode()[:column - 1].decode())
        around = [span for span in self.spans if span[0] <= offset < span[1]]
        return min(around, key=lambda span: span[1] - span[0])[2:] if around else ([], False)


def with_mutant(source, mutant):
    """A file with one mutant, as plain text."""
    return (source[:mutant.site.start] + mutant.after.encode() + source[mutant.site.end:]).decode()
