"""Finds what can be changed in a source, and writes the source with all of these changes in it, each behind
a switch that is read when the program runs: one build serves every mutant.
"""

import collections
import re

from clang.cindex import Index, CursorKind as Kind

Mutant = collections.namedtuple("Mutant", "id file line change")

SWITCH = """#pragma once

#include <fcntl.h>
#include <sys/mman.h>

#include <cstdlib>

// Which mutant this process is, and a file with a byte for each that it has come by.
namespace mutants {
inline bool on(int id)
{
    static const char *chosen = std::getenv("MUTANT");
    static const int number = chosen ? std::atoi(chosen) : -1;
    static const auto reached = []() -> unsigned char * {
        const char *file = std::getenv("MUTANTS_REACHED");
        const int descriptor = file ? open(file, O_RDWR | O_CLOEXEC) : -1;
        if (descriptor < 0)
            return nullptr;
        void *bytes = mmap(nullptr, MOST, PROT_READ | PROT_WRITE, MAP_SHARED, descriptor, 0);
        return bytes == MAP_FAILED ? nullptr : static_cast<unsigned char *>(bytes);
    }();
    if (reached)
        reached[id] = 1;
    return id == number;
}
} // namespace mutants
"""
MOST = 1 << 16  # bytes of that file

# What becomes of a comparison besides its opposite: the other side of the limit.
beside = {"<": "<=", "<=": "<", ">": ">=", ">=": ">"}
opposite = {"==": "!=", "!=": "==", "<": ">=", ">=": "<", ">": "<=", "<=": ">"}
statements = {Kind.CALL_EXPR, Kind.CXX_NEW_EXPR, Kind.COMPOUND_ASSIGNMENT_OPERATOR, Kind.BINARY_OPERATOR,
              Kind.UNARY_OPERATOR}
classes = {Kind.CLASS_DECL, Kind.STRUCT_DECL, Kind.CLASS_TEMPLATE}
wrappers = {Kind.UNEXPOSED_EXPR, Kind.PAREN_EXPR}


class Source:
    """A source file, its mutants from the number FIRST on, and its text with all of them."""

    def __init__(self, root, name, arguments, first):
        self.name = name
        self.bytes = (root / name).read_bytes()
        self.mutants = []
        self.first = first
        self.changes = []  # (start, end, order, write): write(render) is the text in place of start..end
        self.seen = set()
        unit = Index.create().parse(str(root / name), args=arguments)
        errors = [str(fault) for fault in unit.diagnostics if fault.severity > 2]
        if errors:
            raise SystemExit("\n".join(errors))
        for cursor in unit.cursor.get_children():
            if cursor.location.file and cursor.location.file.name == str(root / name):
                self.visit(cursor)

    def text(self):
        changes = sorted(self.changes, key=lambda change: (change[0], -change[1], change[2]))
        return b'#include "mutantswitch.h"\n#line 1\n' + self.render(0, len(self.bytes), changes)

    def render(self, start, end, changes):
        """The text from START to END, with those of the CHANGES, the outer ones first, that lie within."""
        text = b""
        while changes:
            (begin, stop, _, write), *changes = changes
            if begin < start or stop > end:
                continue
            inner = changes
            text += self.bytes[start:begin] + write(lambda a, b, inner=inner: self.render(
                a, b, [change for change in inner if a <= change[0] and change[1] <= b]))
            start = stop
        return text + self.bytes[start:end]

    def add(self, cursor, change):
        """The condition, as C++, of a new mutant."""
        number = self.first + len(self.mutants)
        self.mutants.append(Mutant(number, self.name, cursor.extent.start.line, change))
        return b"mutants::on(%d)" % number

    def place(self, start, end, write):
        self.changes.append((start, end, len(self.changes), write))

    def written(self, cursor):
        return self.bytes[cursor.extent.start.offset:cursor.extent.end.offset]

    def short(self, text):
        text = re.sub(r"\s+", " ", text.decode())
        return text if len(text) < 70 else text[:66] + " ..."

    def visit(self, cursor, statement=False):
        """Looks at a part of the program; STATEMENT when it stands by itself, its value unused."""
        children = list(cursor.get_children())
        if cursor.kind in wrappers and len(children) == 1:
            self.visit(children[0], statement)
            return
        place = (cursor.kind, cursor.extent.start.offset, cursor.extent.end.offset)
        if place in self.seen or cursor.kind in (Kind.ENUM_DECL, Kind.STATIC_ASSERT):
            return
        self.seen.add(place)
        constant = self.is_constant(cursor)
        if constant and (cursor.kind != Kind.VAR_DECL or cursor.semantic_parent.kind in classes):
            return  # no switch can be in there
        count = len(self.mutants)
        if statement and cursor.kind in statements:
            self.drop(cursor)
        if cursor.kind in (Kind.IF_STMT, Kind.WHILE_STMT, Kind.CONDITIONAL_OPERATOR) and children:
            self.negate(children[0])
        elif cursor.kind == Kind.CALL_EXPR and cursor.spelling[8:] in opposite and len(children) == 3:
            self.compare(cursor, children[0], children[2])
        elif cursor.kind == Kind.BINARY_OPERATOR and len(children) == 2:
            self.compare(cursor, *children)
        elif cursor.kind == Kind.UNARY_OPERATOR and self.written(cursor).startswith(b"!"):
            self.invert(cursor)
        elif cursor.kind in (Kind.INTEGER_LITERAL, Kind.FLOATING_LITERAL, Kind.CXX_BOOL_LITERAL_EXPR):
            self.move(cursor)
        if cursor.kind == Kind.CASE_STMT:
            children = children[1:]
        for number, child in enumerate(children):
            bodies = {Kind.COMPOUND_STMT: 0, Kind.IF_STMT: 1, Kind.WHILE_STMT: 1, Kind.CASE_STMT: 0,
                      Kind.DEFAULT_STMT: 0, Kind.FOR_STMT: len(children) - 1,
                      Kind.CXX_FOR_RANGE_STMT: len(children) - 1}
            self.visit(child, number >= bodies.get(cursor.kind, len(children)))
        if constant and len(self.mutants) > count:
            start = self.bytes.index(b"constexpr", cursor.extent.start.offset)
            self.place(start, start + len(b"constexpr"), lambda render: b"const")

    def is_constant(self, cursor):
        kinds = (Kind.VAR_DECL, Kind.FUNCTION_DECL, Kind.CXX_METHOD, Kind.CONSTRUCTOR)
        head = self.written(cursor).split(b"{")[0].split(b"(")[0].split(b"=")[0]
        return cursor.kind in kinds and b"constexpr" in head.split()

    def drop(self, cursor):
        start, end = cursor.extent.start.offset, cursor.extent.end.offset
        text = self.written(cursor)
        alone = self.bytes[end:].lstrip().startswith(b";")
        if not alone or re.match(rb"Q_[A-Z]", text):
            return
        if cursor.kind == Kind.BINARY_OPERATOR and not re.match(rb"[\w.>\[\]*()-]+ = ", text):
            return
        if cursor.kind == Kind.UNARY_OPERATOR and not text.startswith((b"++", b"--")):
            return
        switch = self.add(cursor, f"without {self.short(text)}")
        self.place(start, end, lambda render: b"if (%s) {} else %s" % (switch, render(start, end)))

    def negate(self, condition):
        start, end = condition.extent.start.offset, condition.extent.end.offset
        inner = condition
        while inner.kind in wrappers and len(list(inner.get_children())) == 1:
            inner = next(inner.get_children())
        sides = list(inner.get_children())
        turned = len(sides) in (2, 3) and self.between(sides[0], sides[-1]) in opposite
        if turned or self.written(inner).startswith(b"!") and inner.kind == Kind.UNARY_OPERATOR:
            return  # by itself
        if condition.kind in (Kind.DECL_STMT, Kind.VAR_DECL):
            return
        switch = self.add(condition, f"not ({self.short(self.written(condition))})")
        self.place(start, end, lambda render: b"%s != bool(%s)" % (switch, render(start, end)))

    def between(self, left, right):
        return self.bytes[left.extent.end.offset:right.extent.start.offset].strip().decode()

    def compare(self, cursor, left, right):
        sign = self.between(left, right)
        a, b = left.extent.start.offset, left.extent.end.offset
        c, d = right.extent.start.offset, right.extent.end.offset
        start, end = cursor.extent.start.offset, cursor.extent.end.offset
        if sign in ("&&", "||"):
            others = ["||" if sign == "&&" else "&&"]
        elif sign in opposite:
            others = [opposite[sign]] + ([beside[sign]] if sign in beside else [])
        elif sign in ("+", "-", "*", "/") and cursor.type.get_canonical().kind.name in ("INT", "DOUBLE"):
            others = [{"+": "-", "-": "+", "*": "/", "/": "*"}[sign]]
        else:
            return
        names = [(other, self.add(cursor, f"{other} for {sign} in {self.short(self.written(cursor))}"))
                 for other in others]

        def write(render):
            lhs, rhs = render(a, b), render(c, d)
            text = b"%s %s %s" % (lhs, sign.encode(), rhs)
            for other, switch in names:
                text = b"%s ? (%s %s %s) : (%s)" % (switch, lhs, other.encode(), rhs, text)
            return b"(%s)" % text
        self.place(start, end, write)

    def invert(self, cursor):
        start, end = cursor.extent.start.offset, cursor.extent.end.offset
        switch = self.add(cursor, f"without ! in {self.short(self.written(cursor))}")
        self.place(start, end, lambda render: b"(%s == bool(%s))" % (switch, render(start + 1, end)))

    def move(self, cursor):
        start, end = cursor.extent.start.offset, cursor.extent.end.offset
        text = self.written(cursor)
        if cursor.kind == Kind.CXX_BOOL_LITERAL_EXPR:
            other = {b"true": b"false", b"false": b"true"}.get(text)
        elif re.fullmatch(rb"(0x)?[0-9a-fA-F.]+[fuUlL]*", text):
            other = text + b" + 1"
        else:
            other = None  # a macro's
        if other is None:
            return
        switch = self.add(cursor, f"{other.decode()} for {text.decode()}")
        self.place(start, end, lambda render: b"(%s ? %s : %s)" % (switch, other, text))
