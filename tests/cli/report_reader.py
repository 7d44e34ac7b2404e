"""Reads a report strictly: whatever deviates from the grammar is an error that names the line."""

import re
from dataclasses import dataclass, field

from report_grammar import DIMENSIONS, RULE, STORED, variants
from report_numbers import property_of, value_of, whole_of

# Powers of the force and of the length unit that a printed value is scaled by; others are not scaled.
SCALES = {
    "N": (1, 0), "Fy": (1, 0), "Fz": (1, 0), "My": (1, 1), "Mz": (1, 1), "f": (1, -2), "fv": (1, -2),
    "Aen": (0, 2), "Ae": (0, 2), "Weny": (0, 3), "Wenz": (0, 3), "Iyy": (0, 4), "Izz": (0, 4),
}
FORCE_UNITS = {"N": 1.0, "kN": 1000.0}
LENGTH_UNITS = {"mm": 1.0, "cm": 10.0, "m": 1000.0}
POSITIONS = ("I", "1/4", "1/2", "3/4", "J")


class Malformed(AssertionError):
    pass


@dataclass
class Block:
    item: str
    variant: str
    values: dict  # printed numbers in N and mm by their name
    combination: int | None = None
    position: str | None = None
    passes: bool | None = None  # the printed verdict

    def __getattr__(self, name):
        try:
            return self.__dict__["values"][name]
        except KeyError:
            raise AttributeError(name) from None


@dataclass
class Member:
    number: int
    type: str
    material: int
    section: int
    length_unit: str
    force_unit: str
    shape: str
    sizes: dict
    properties: dict  # Area, Iyy, Izz, iy, iz in N and mm
    blocks: list = field(default_factory=list)

    def block(self, item):
        return next((block for block in self.blocks if block.item == item), None)


@dataclass
class Report:
    rows: list  # lines of the list of combinations
    members: list


def _pattern(line):
    """The template's regular expression; a number is whatever stands between its neighbours."""
    parts = re.split(r"\{(\w+)\}", line)
    out = re.escape(parts[0])
    for name, literal in zip(parts[1::2], parts[2::2]):
        if name == "verdict":
            out += r"(?P<R>[^<>]+)(?P<sign>[<>])1\.00 ----> (?P<word>OK|Not Acceptable!)"
        elif name == "slenderness":
            out += r"(?P<R>[^<>]+)(?P<sign>[<>])(?P<limit>[^-]+)---->(?P<word>OK|Not Acceptable!)"
        else:
            characters = {"LCB": r"[1-9]\d*", "POS": r"I|1/4|1/2|3/4|J"}.get(name, r"[^,]+")
            out += f"(?P<{name}>{characters})"
        out += re.escape(literal)
    return re.compile(out)


class _Reader:
    def __init__(self, text, texts, seismic):
        if not text.endswith("\n"):
            raise Malformed("the last line has no end")
        self.lines = text[:-1].split("\n")
        self.at = 0
        self.texts = texts
        self.variants = {}
        for variant in variants(texts, seismic):
            entry = (variant, [_pattern(line) for line in variant.lines])
            self.variants.setdefault(variant.title, []).append(entry)

    def error(self, expected):
        found = self.lines[self.at] if self.at < len(self.lines) else "the end"
        raise Malformed(f"line {self.at + 1}: expected {expected}, found: {found}")

    def take(self, expected):
        if self.at >= len(self.lines) or self.lines[self.at] != expected:
            self.error(repr(expected))
        self.at += 1

    def match(self, pattern):
        found = re.fullmatch(pattern, self.lines[self.at]) if self.at < len(self.lines) else None
        if found is None:
            self.error(pattern)
        self.at += 1
        return found

    def until_rule(self):
        start = self.at
        while self.at < len(self.lines) and self.lines[self.at] != RULE:
            self.at += 1
        return self.lines[start:self.at]

    def ended(self):
        return self.at >= len(self.lines)

    def report(self):
        self.take(RULE)
        self.take(f"  Aluminum Alloy Code Checking [ GB 50429 {self.texts.dash} 2007 ]")
        self.take(RULE)
        self.take("  [[[*]]]   " + self.texts.combinations)
        self.take(RULE)
        self.take("     LCB    C      Loadcase Name(Factor)+  Loadcase Name(Factor)+"
                  "  Loadcase Name(Factor)")
        report = Report(self.until_rule(), [])
        while not self.ended():
            report.members.append(self.member())
        return report

    def member(self):
        self.take(RULE)
        head = self.match(r"  MEMBER NO = ([1-9]\d*),   ELEMENT TYPE = (Column|Beam|Brace|Truss|--)")
        parts = self.match(r"  MATERIAL NO = ([1-9]\d*),   SECTION NO = ([1-9]\d*)")
        self.take(RULE)
        units = self.match(r"   UNIT SYSTEM : (\w+), (\w+)")
        self.take("   Section Properties: ")
        shape = self.match(rf"   Shape = (\w+){self.texts.dash}Section ")[1]
        if shape not in DIMENSIONS:
            self.error("a shape")
        self.force, self.length = FORCE_UNITS[units[2]], LENGTH_UNITS[units[1]]
        sizes = self.match("   " + ", ".join(f"{name}=(?P<{name}>[^,]+)" for name in DIMENSIONS[shape]))
        areas = self.match(r"   Area=(?P<Area>[^,]+), Iyy= (?P<Iyy>[^,]+), Izz=(?P<Izz>[^,]+), "
                           r"iy=(?P<iy>[^,]+), iz=(?P<iz>[^,]+)")
        powers = {"Area": 2, "Iyy": 4, "Izz": 4, "iy": 2, "iz": 2}
        member = Member(
            int(head[1]), head[2], int(parts[1]), int(parts[2]), units[1], units[2], shape,
            {name: property_of(text, self.length) for name, text in sizes.groupdict().items()},
            {name: property_of(text, self.length ** powers[name])
             for name, text in areas.groupdict().items()})
        while not self.ended() and self.lines[self.at + 1].startswith("  [[[*]]]   "):
            member.blocks.append(self.block())
        return member

    def block(self):
        self.take(RULE)
        title = self.lines[self.at].removeprefix("  [[[*]]]   ")
        if title not in self.variants:
            self.error("the title of a check")
        self.at += 1
        self.take(RULE)
        start = self.at
        body = self.until_rule()
        for variant, patterns in self.variants[title]:
            if len(patterns) != len(body):
                continue
            matches = [pattern.fullmatch(line) for pattern, line in zip(patterns, body)]
            if all(matches):
                groups = {name: text for found in matches for name, text in found.groupdict().items()}
                return self.block_of(variant, groups)
        self.at = start
        self.error(f"one of the forms of {title}")

    def block_of(self, variant, groups):
        block = Block(variant.item, variant.name, {})
        if "LCB" in groups:
            block.combination, block.position = int(groups.pop("LCB")), groups.pop("POS")
        sign, word = groups.pop("sign", None), groups.pop("word", None)
        for name, text in groups.items():
            force, length = SCALES.get(name, (0, 0))
            read = whole_of if name == "Ae" else value_of
            block.values[name] = read(text, self.force ** force * self.length ** length)
        if sign is not None:
            block.passes = word == "OK"
            assert (sign == "<") == block.passes, f"line {self.at}: {sign} but {word}"
        return block


def read_report(text, texts=STORED, seismic=False):
    """A report's content. @raise Malformed, or AssertionError for a number that is not printed as it should"""
    return _Reader(text, texts, seismic).report()
