#!/usr/bin/env python3
"""Writes a model file of any size for load tests: a reticulated dome or a braced building grid.

Only the geometry is that of a structure. The element forces are SYNTHETIC: smooth formulas scaled
to the strength of each section, so that ratios spread over 0 to about 1. They are in no equilibrium
and prove nothing about any building. The same arguments give the same file.
"""

import argparse
import itertools
import random
import sys
from collections.abc import Callable, Iterable, Iterator
from dataclasses import dataclass
from pathlib import Path

from frame_analysis import report_errors
from generated_frames import KINDS, Point, Rod
from model_text import model_lines, tidy
from section_properties import properties_of

ALLOYS = ("6061-T6", "6063-T5", "6063-T6", "6063A-T6")
ALLOY_STRENGTH = (200.0, 90.0, 150.0, 160.0)  # design strengths, N/mm²

SECTIONS = (
    {"shape": "H", "dimensions": {"H": 300, "B1": 200, "tw": 10, "tf1": 14}, "welded": True},
    {"shape": "H", "dimensions": {"H": 240, "B1": 180, "tw": 8, "tf1": 12, "B2": 140, "tf2": 10}},
    {"shape": "B", "dimensions": {"H": 200, "B": 200, "tw": 10, "tf1": 10}},
    {"shape": "B", "dimensions": {"H": 160, "B": 100, "tw": 8, "tf1": 8}, "welded": True},
    {"shape": "C", "dimensions": {"H": 200, "B1": 80, "tw": 8, "tf1": 12}},
    {"shape": "2C", "dimensions": {"H": 200, "B": 80, "tw": 8, "tf": 12, "C": 10}},
    {"shape": "T", "dimensions": {"H": 200, "B": 220, "tw": 12, "tf": 16}},
    {"shape": "P", "dimensions": {"D": 140, "t": 8}},
    {"shape": "SR", "dimensions": {"D": 80}},
)
# Places in SECTIONS that a role chooses from.
SECTIONS_OF_ROLE = {
    "column": (0, 1, 2), "beam": (0, 1, 3, 4, 5), "brace": (6, 7), "ring": (3, 7),
    "rib": (0, 2, 7, 8),
}

CASES = (
    ("DL", "static"), ("LL", "static"), ("WIND X", "static"), ("WIND Y", "static"),
    ("SNOW", "static"), ("EQ X", "seismic_static"), ("EQ Y", "seismic_static"),
)
PERMANENT = (1.3, 1.0, 1.35)
VARIABLE = (1.5, 0.0, 1.05, 0.7, -1.5)


@dataclass(frozen=True)
class Piece:
    """An element: its rod, section and material by place, and its share of strength."""

    rod: Rod
    section: int
    material: int
    shares: tuple[float, float, float]  # axial force, bending about y, bending about z


def pieces(kind: str, count: int, seed: int) -> list[Piece]:
    chance = random.Random(seed)
    made = []
    for rod in itertools.islice(KINDS[kind](count), count):
        shares = (chance.uniform(-0.15, 0.3), chance.uniform(0.1, 0.8), chance.uniform(0, 0.3))
        made.append(Piece(rod, chance.choice(SECTIONS_OF_ROLE[rod.role]),
                          chance.randrange(len(ALLOYS)), shares))
    return made


def number_points(rods: Iterable[Rod]) -> dict[Point, int]:
    """Numbers of the points in the order in which they are met; millimetres make them the same."""
    numbers: dict[Point, int] = {}
    for rod in rods:
        for end in rod.ends:
            numbers.setdefault(key_of(end), len(numbers) + 1)
    return numbers


def key_of(point: Point) -> Point:
    return tuple(round(value, 3) + 0.0 for value in point)


def nodes(numbers: dict[Point, int]) -> Iterator[dict]:
    for point, number in numbers.items():
        yield {"number": number, **dict(zip("xyz", map(tidy, point)))}


def supports(numbers: dict[Point, int]) -> Iterator[dict]:
    for point, number in numbers.items():
        if point[2] == 0.0:
            yield {"node": number, "restrained": ["Dx", "Dy", "Dz"]}


def elements(made: list[Piece], numbers: dict[Point, int]) -> Iterator[dict]:
    for number, piece in enumerate(made, 1):
        ends = [numbers[key_of(end)] for end in piece.rod.ends]
        entry = {"number": number, "nodes": ends, "section": piece.section + 1,
                 "material": piece.material + 1}
        yield entry | ({"kind": "truss"} if piece.rod.role == "brace" else {})


def capacities() -> list[tuple[float, float, float]]:
    """Per section: area (mm²) and about half its elastic moduli (mm³), to scale forces by."""
    found = []
    for number, section in enumerate(SECTIONS, 1):
        p, d = properties_of({"number": number, **section}), section["dimensions"]
        depth, width = d.get("H", d.get("D")), d.get("B", d.get("B1", d.get("D")))
        found.append((p.area, p.iyy / depth, p.izz / width))
    return found


def forces(made: list[Piece], cases: int) -> Iterator[dict]:
    """Five positions of every element and case: constant N, parabolas of My and Mz with shears."""
    scales = capacities()
    # Later cases are weaker, and alternate in sign across the axis of the element.
    total = sum(1.5 / (1.5 + case) for case in range(cases))  # with the largest factors
    weights = [(-1.0 if case % 3 == 2 else 1.0) / (1.5 + case) / total for case in range(cases)]
    for number, piece in enumerate(made, 1):
        strength, length = ALLOY_STRENGTH[piece.material], length_of(piece.rod)
        units = (1e-3, 1e-6, 1e-6)  # kN and kN·m in N and N·mm
        top = [share * scale * strength * unit
               for share, scale, unit in zip(piece.shares, scales[piece.section], units)]
        truss = piece.rod.role == "brace"
        for case, weight in enumerate(weights, 1):
            values = rows(*(weight * value for value in top), length, truss)
            yield {"element": number, "case": case, "values": values}


def rows(n: float, my: float, mz: float, length: float, truss: bool) -> list[list[float]]:
    """kN and m. Moments run from -0.6 at the ends to +1 in the middle of their size; dM/dx = F."""
    axial = round(n, 3)
    if truss:
        return [[axial, 0, 0, 0, 0, 0]] * 5
    made = []
    for x in (0.0, 0.25, 0.5, 0.75, 1.0):
        shape, slope = 1.0 - 6.4 * (x - 0.5) ** 2, -12.8 * (x - 0.5) / length
        made.append([axial, round(mz * slope, 3), round(my * slope, 3), round(0.02 * my, 4),
                     round(my * shape, 4), round(mz * shape, 4)])
    return made


def length_of(rod: Rod) -> float:
    start, end = rod.ends
    return sum((b - a) ** 2 for a, b in zip(start, end)) ** 0.5


def linear_combinations(count: int, cases: int) -> Iterator[dict]:
    """One-sided combinations, all different: partial factors in all pairings, then finer steps."""
    lists = [PERMANENT] + [VARIABLE] * (cases - 1)
    for number in range(1, count + 1):
        rest, terms = number - 1, []
        for case, factors in enumerate(lists, 1):
            rest, place = divmod(rest, len(factors))
            terms.append({"case": case, "factor": factors[place]})
        # Every pairing is used up: the permanent load carries what is left, in small steps.
        terms[0]["factor"] = round(terms[0]["factor"] + 0.0001 * rest, 4)
        yield {"number": number, "name": f"ULS{number}",
               "terms": [term for term in terms if term["factor"]]}


def envelopes(count: int, after: int) -> Iterator[dict]:
    """Two-sided combinations, each over up to four of the `after` linear ones."""
    for i in range(count):
        inside = sorted({(4 * i + step) % after + 1 for step in range(4)})
        yield {"number": after + i + 1, "name": f"ENV{i + 1}", "kind": "envelope",
               "terms": [{"combination": number, "factor": 1.0} for number in inside]}


def combinations(arguments: argparse.Namespace) -> Iterator[dict]:
    yield from linear_combinations(arguments.combinations, arguments.cases)
    yield from envelopes(arguments.envelopes, arguments.combinations)


def load_cases(count: int) -> Iterator[dict]:
    for number in range(1, count + 1):
        name, kind = CASES[(number - 1) % len(CASES)]
        again = (number - 1) // len(CASES)
        yield {"number": number, "name": f"{name} {again + 1}" if again else name, "kind": kind}


def make_model(arguments: argparse.Namespace) -> dict:
    made = pieces(arguments.kind, arguments.elements, arguments.seed)
    numbers = number_points(piece.rod for piece in made)
    return {
        "format": "aluframe-model", "version": 1,
        "title": f"Synthetic {arguments.kind} of {arguments.elements} elements",
        "description": "For load tests only: the geometry is that of a structure, the element "
                       "forces are synthetic and in no equilibrium.",
        "units": {"force": "kN", "length": "m", "section": "mm"},
        "materials": ({"number": i, "alloy": alloy} for i, alloy in enumerate(ALLOYS, 1)),
        "sections": ({"number": i, **section} for i, section in enumerate(SECTIONS, 1)),
        "nodes": nodes(numbers), "supports": supports(numbers),
        "elements": elements(made, numbers), "load_cases": load_cases(arguments.cases),
        "combinations": combinations(arguments), "forces": forces(made, arguments.cases),
    }


def write(arguments: argparse.Namespace) -> None:
    with arguments.output.open("w", encoding="utf-8") as file:
        file.writelines(f"{line}\n" for line in model_lines(make_model(arguments)))


def at_least(least: int) -> Callable[[str], int]:
    """A whole number from the command line, not below `least`."""
    def parse(text: str) -> int:
        number = int(text)
        if number < least:
            raise argparse.ArgumentTypeError(f"{number} is less than {least}")
        return number
    parse.__name__ = "whole number"
    return parse


def main() -> int:
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--kind", choices=sorted(KINDS), required=True)
    parser.add_argument("--elements", type=at_least(1), required=True,
                        help="exact number of elements")
    parser.add_argument("--combinations", type=at_least(1), required=True,
                        help="exact number of one-sided design combinations")
    parser.add_argument("--cases", type=at_least(1), default=5, help="load cases (default 5)")
    parser.add_argument("--envelopes", type=at_least(0), default=0,
                        help="two-sided combinations on top (default 0)")
    parser.add_argument("--seed", type=int, default=1, help="of the choice of sections (default 1)")
    parser.add_argument("--output", type=Path, required=True, help="model file to write")
    arguments = parser.parse_args()
    return report_errors("generate_model", lambda: write(arguments))


if __name__ == "__main__":
    sys.exit(main())
