# SPDX-License-Identifier: MIT
"""The places of the sources that can be changed, found in their syntax trees, and the changes."""

import re
from dataclasses import dataclass, field
from pathlib import Path

from clang.cindex import CursorKind as Kind
from clang.cindex import Index, TranslationUnit, TranslationUnitLoadError, TypeKind

RELATIONS = {"<": ("<=", ">="), "<=": ("<", ">"), ">": (">=", "<="), ">=": (">", "<"), "==": ("!=",), "!=": ("==",)}
ARITHMETIC = {"+": ("-",), "-": ("+",), "*": ("/",), "/": ("*",), "%": ("*",)}
BITS = {"<<": (">>",), ">>": ("<<",), "&": ("|",), "|": ("&",), "^": ("&",)}
LOGIC = {"&&": ("||",), "||": ("&&",)}
ASSIGNMENTS = {"+=": ("-=",), "-=": ("+=",), "*=": ("/=",), "/=": ("*=",), "%=": ("*=",),
               "&=": ("|=",), "|=": ("&=",), "^=": ("&=",), "<<=": (">>=",), ">>=": ("<<=",)}
BINARY = RELATIONS | ARITHMETIC | BITS | LOGIC | ASSIGNMENTS
STEPS = {"++": "--", "--": "++"}

NUMBER = re.compile(r"(0[xX][0-9a-fA-F']+|[0-9][0-9']*(\.[0-9]*)?([eE][-+]?[0-9]+)?)[uUlLzZfF]*")
FUNCTIONS = (Kind.FUNCTION_DECL, Kind.CXX_METHOD, Kind.CONSTRUCTOR, Kind.DESTRUCTOR, Kind.CONVERSION_FUNCTION,
             Kind.FUNCTION_TEMPLATE)
CLASSES = (Kind.STRUCT_DECL, Kind.CLASS_DECL)
# Values that the compiler needs: they cannot be chosen while the program runs.
CONSTANT_PARENTS = (Kind.STATIC_ASSERT, Kind.ENUM_CONSTANT_DECL)

# Of places with the same extent, the outer one comes first.
STATEMENT, RESULT, CONDITION, OPERATION = range(4)


@dataclass
class Site:
    """A stretch of a file, and what may stand there instead."""

    path: str  # from the root of the project
    start: int
    end: int
    rank: int
    function: str  # or variable, that it is part of
    line: int
    before: str
    afters: list = field(default_factory=list)
    constant: tuple = None  # the stretch of the word constexpr that keeps it from being chosen while the program runs
    in_class: bool = False
    is_bound: bool = False  # whether the constant bounds an array that is a member


def flat(text):
    """Code on one line, without comments."""
    return re.sub(r"\s+", " ", re.sub(r"//.*", "", text)).strip()


class Finder:
    """Collects sites. What is read again and again, the headers of others, is parsed once."""

    def __init__(self, root, folders, arguments, scratch):
        self.index = Index.create(excludeDecls=True)
        self.others = str(scratch / "headers.pch")
        header = scratch / "headers.h"
        header.write_text("#include <opencv2/imgproc.hpp>\n#include <algorithm>\n#include <optional>\n")
        self.index.parse(str(header), args=[*arguments, "-x", "c++-header"],
                         options=TranslationUnit.PARSE_INCOMPLETE).save(self.others)
        self.root = root
        self.folders = folders
        self.texts = {}
        self.sites = {}
        self.bounds = set()  # (path, start) of the words constexpr of constants that bound arrays that are members
        self.seen = set()

    def parse(self, source, arguments):
        """Adds what a source file and the headers it includes hold."""
        unit = self.index.parse(source, args=[*arguments, "-include-pch", self.others])
        # Clang 14 fails on one of its own types when it reads what it has parsed before.
        errors = [str(note) for note in unit.diagnostics if note.severity >= 3 and "__va_list_tag" not in note.spelling]
        if errors:
            raise TranslationUnitLoadError("\n".join(errors))
        new = set()
        for cursor in unit.cursor.get_children():
            path = self.path_of(cursor)
            if path and path not in self.seen:
                new.add(path)
                self.texts.setdefault(path, (self.root / path).read_bytes())
                self.visit(cursor, unit.cursor, path, "", None)
        self.seen |= new

    def path_of(self, cursor):
        file = cursor.location.file
        if file is None or not file.name.startswith(f"{self.root}/"):
            return None
        path = file.name[len(f"{self.root}/"):]
        return path if any(re.match(folder, path) for folder in self.folders) else None

    def text(self, path, start, end):
        return self.texts[path][start:end].decode()

    def visit(self, cursor, parent, path, function, constant):
        if cursor.kind in CONSTANT_PARENTS:
            return
        if self.is_compile_time(cursor, parent, path):
            if parent.kind == Kind.FIELD_DECL:
                self.add_bounds(cursor)
            return
        start, end = extent(cursor)
        if cursor.kind in FUNCTIONS:
            function = name_of(cursor)
        if cursor.kind in (Kind.VAR_DECL, Kind.FIELD_DECL):
            function = function or name_of(cursor)
            word = self.constexpr_of(cursor, path)
            if word:
                constant = (*word, cursor.semantic_parent.kind in CLASSES)
        if start < end <= len(self.texts[path]):
            for rank, (first, last), afters in self.changes(cursor, parent, path):
                self.add(path, first, last, rank, function, afters, constant)
        for child in cursor.get_children():
            self.visit(child, cursor, path, function, constant)

    def constexpr_of(self, cursor, path):
        """Where the word constexpr of a variable stands; None if it has none."""
        start = extent(cursor)[0]
        word = re.search(r"\bconstexpr\b", self.text(path, start, cursor.location.offset))
        return (start + word.start(), start + word.end()) if word else None

    def add_bounds(self, bound):
        """Notes the constants that an array's bound depends on."""
        for cursor in bound.walk_preorder():
            constant = cursor.referenced if cursor.kind == Kind.DECL_REF_EXPR else None
            path = self.path_of(constant) if constant is not None and constant.kind == Kind.VAR_DECL else None
            if path:
                self.texts.setdefault(path, (self.root / path).read_bytes())
                word = self.constexpr_of(constant, path)
                if word:
                    self.bounds.add((path, word[0]))
                self.add_bounds(constant)

    def is_compile_time(self, cursor, parent, path):
        """Whether an expression is a case label, the condition of an if constexpr, a template argument in the type of a
        variable, or an array's bound."""
        if not cursor.kind.is_expression():
            return False
        start, end = extent(cursor)
        if parent.kind == Kind.CASE_STMT or (parent.kind == Kind.IF_STMT and self.is_if_constexpr(parent, path)):
            return start == extent(next(parent.get_children()))[0]
        return parent.kind in (Kind.VAR_DECL, Kind.FIELD_DECL, Kind.PARM_DECL) and (
            start < parent.location.offset or self.text(path, end, end + 1) == "]")

    def is_if_constexpr(self, cursor, path):
        return re.match(r"if\s+constexpr", self.text(path, *extent(cursor)))

    def add(self, path, start, end, rank, function, afters, constant):
        key = (path, start, end, rank)
        if not afters or key in self.sites:
            return
        line = self.texts[path].count(b"\n", 0, start) + 1
        word, in_class = (constant[:2], constant[2]) if constant else (None, False)
        self.sites[key] = Site(path, start, end, rank, function, line, flat(self.text(path, start, end)), afters, word,
                               in_class)

    def changes(self, cursor, parent, path):
        """What can be changed about a node: (rank, extent, texts to stand there instead)."""
        whole = extent(cursor)
        text = flat(self.text(path, *whole))
        children = list(cursor.get_children())
        is_left_out = cursor.kind == Kind.CXX_THROW_EXPR or text.startswith("assert(")
        if is_statement(cursor, parent) and not is_left_out:
            yield STATEMENT, whole, ["(void)0"]
        if cursor.kind in (Kind.BREAK_STMT, Kind.CONTINUE_STMT):
            yield STATEMENT, whole, [""]
        if cursor.kind == Kind.RETURN_STMT and children:
            yield from self.changed_result(children[0], path)
        condition = self.condition_of(cursor, children, path)
        if condition is not None:
            yield CONDITION, extent(condition), ["true", "false"]
        yield OPERATION, whole, self.operations(cursor, children, path, text)

    def changed_result(self, value, path):
        inner = peeled(value)
        text = flat(self.text(path, *extent(value)))
        if value.type.get_canonical().kind == TypeKind.BOOL:
            if self.operator_of(inner, list(inner.get_children()), path) not in RELATIONS and \
               inner.kind != Kind.CXX_BOOL_LITERAL_EXPR and not text.startswith("!"):
                yield RESULT, extent(value), [f"!({text})"]
        elif inner.kind == Kind.DECL_REF_EXPR and inner.referenced is not None and \
                inner.referenced.kind == Kind.VAR_DECL and inner.type.is_const_qualified() and \
                self.path_of(inner.referenced):
            yield RESULT, extent(value), [f"{text} + 1"]

    def operations(self, cursor, children, path, text):
        operator = self.operator_of(cursor, children, path)
        if operator:
            left = flat(self.text(path, *extent(children[0])))
            right = flat(self.text(path, *extent(children[-1])))
            return [f"({left}) {other} ({right})" for other in BINARY[operator]]
        if cursor.kind == Kind.UNARY_OPERATOR or (cursor.kind == Kind.CALL_EXPR and
                                                  cursor.spelling in ("operator++", "operator--", "operator!")):
            if text[:2] in STEPS:
                return [STEPS[text[:2]] + text[2:]]
            if text[-2:] in STEPS and text[0] not in "*&!-~+":  # *next++ is a pointer that is followed, not a step
                return [text[:-2] + STEPS[text[-2:]]]
            if text[0] == "!" and text[:2] != "!=":  # != may stand for the opposite of ==
                return [f"static_cast<bool>({text[1:]})"]
            if text[0] in "-~":
                return [text[1:]]
        if cursor.kind in (Kind.INTEGER_LITERAL, Kind.FLOATING_LITERAL) and NUMBER.fullmatch(text):
            return [f"{text} + 1", f"{text} - 1"]
        if cursor.kind == Kind.CXX_BOOL_LITERAL_EXPR and text in ("true", "false"):
            return ["false" if text == "true" else "true"]
        if cursor.kind == Kind.DECL_REF_EXPR and cursor.referenced is not None and \
                cursor.referenced.kind == Kind.ENUM_CONSTANT_DECL and self.path_of(cursor.referenced):
            name = cursor.referenced.spelling
            others = [other.spelling for other in cursor.referenced.semantic_parent.get_children()
                      if other.kind == Kind.ENUM_CONSTANT_DECL and other.spelling != name]
            return [text[:len(text) - len(name)] + other for other in others]
        return []

    def operator_of(self, cursor, children, path):
        """The binary operator of a node, overloaded or not, if it is one that can be changed."""
        is_operation = cursor.kind in (Kind.BINARY_OPERATOR, Kind.COMPOUND_ASSIGNMENT_OPERATOR) or (
            cursor.kind == Kind.CALL_EXPR and cursor.spelling.startswith("operator"))
        if not is_operation or len(children) < 2:
            return None
        between = flat(self.text(path, extent(children[0])[1], extent(children[-1])[0]))
        return between if between in BINARY else None

    def condition_of(self, cursor, children, path):
        """The expression that an if, a loop or a ?: asks; None where it declares a variable or is asked in compiling."""
        if cursor.kind == Kind.CONDITIONAL_OPERATOR:
            return children[0]
        if cursor.kind not in (Kind.IF_STMT, Kind.WHILE_STMT, Kind.FOR_STMT):
            return None
        start, end = extent(cursor)
        if self.is_if_constexpr(cursor, path):
            return None
        head = self.text(path, start, end)
        stop = closing(head, head.index("("))
        parts = semicolons(head, head.index("("), stop)
        if not parts and any(child.kind == Kind.VAR_DECL for child in children):
            return None
        if cursor.kind == Kind.FOR_STMT:
            low, high = parts[0], parts[1]
        else:
            low, high = parts[-1] if parts else head.index("("), stop
        for child in children:
            first, last = extent(child)
            if start + low < first and last <= start + high and child.kind.is_expression():
                return child
        return None


def name_of(cursor):
    """The name of a function or variable, with that of its class."""
    if cursor.lexical_parent is not None and cursor.lexical_parent.kind in CLASSES:
        return f"{cursor.lexical_parent.spelling}::{cursor.spelling}"
    return cursor.spelling


def extent(cursor):
    return cursor.extent.start.offset, cursor.extent.end.offset


def peeled(cursor):
    """What is inside of parentheses and implicit conversions."""
    while cursor.kind in (Kind.UNEXPOSED_EXPR, Kind.PAREN_EXPR):
        children = list(cursor.get_children())
        if len(children) != 1:
            break
        cursor = children[0]
    return cursor


def is_statement(cursor, parent):
    """Whether an expression stands for itself: in a block, or as all that an if or a loop does."""
    if not cursor.kind.is_expression():
        return False
    if parent.kind == Kind.COMPOUND_STMT:
        return True
    branches = (Kind.IF_STMT, Kind.FOR_STMT, Kind.WHILE_STMT, Kind.CXX_FOR_RANGE_STMT)
    return parent.kind in branches and extent(cursor)[1] == extent(parent)[1]


def closing(text, opening):
    """Where the parenthesis that opens at `opening` is closed."""
    depth = 0
    for at in range(opening, len(text)):
        depth += {"(": 1, ")": -1}.get(text[at], 0)
        if depth == 0:
            return at
    raise ValueError(text)


def semicolons(text, opening, stop):
    """The semicolons of a for or if head, those inside of lambdas apart."""
    found = []
    depth = 0
    for at in range(opening + 1, stop):
        depth += {"(": 1, ")": -1, "{": 1, "}": -1}.get(text[at], 0)
        if text[at] == ";" and depth == 0:
            found.append(at)
    return found


def find_sites(root, commands, folders, scratch):
    """All places in the folders (regular expressions), in the order of files and lines."""
    finder = Finder(root, folders, [word for word in commands[0][1] if "/opencv" in word or word.startswith("-std")],
                    scratch)
    for source, arguments in commands:
        finder.parse(source, arguments)
    found = [finder.sites[key] for key in sorted(finder.sites)]
    for site in found:
        site.is_bound = site.constant is not None and (site.path, site.constant[0]) in finder.bounds
    return found
