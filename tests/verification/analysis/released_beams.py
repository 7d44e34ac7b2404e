#!/usr/bin/env python3
"""Writes released_beams.json: every release of a beam under every load on its length, in closed form.

Bending by double integration with Macaulay brackets (Timoshenko, Strength of Materials I), in exact
fractions. With M the moment that compresses the top, w the deflection upwards and k the curvature that
a warmer top would give a free beam, w'' = M/EI - k. The four unknowns, shear and moment, deflection and
slope at the start, follow from the four ends: each holds, or its force is zero. Axial forces and
torques are shared by the lever, or go to the end that still holds.
"""

import json
from fractions import Fraction
from itertools import combinations
from pathlib import Path
from typing import NamedTuple

FILE = Path(__file__).with_name("released_beams.json")
LENGTH = Fraction(2400)
EI = 70000 * Fraction(9300000)
EXPANSION = Fraction(23, 1000000)
ENDS = ("start", "end")


class Bending(NamedTuple):
    """A load on the length: its parts q·<x - a>^n/n! of the load, n = -2 for a moment, -1 for a force."""

    name: str
    case: dict
    parts: tuple = ()  # (n, a, value)
    curvature: Fraction = Fraction(0)
    ends: tuple = (0, 0, 0, 0)  # deflection and slope that the start, then the end, are given


def part(share: int, of: int) -> Fraction:
    return LENGTH * share / of


def trapezoid(first: int, last: int, a: Fraction, b: Fraction) -> tuple:
    slope = Fraction(last - first) / (b - a)
    return ((0, a, first), (1, a, slope), (0, b, -last), (1, b, -slope))


BENDING = (
    Bending("uniform load", {"distributed": [{"from_value": [0, 0, -3]}]}, ((0, Fraction(0), -3),)),
    Bending("load from 4 to 9 N/mm on the middle half", {"distributed": [
        {"from_value": [0, 0, -4], "to_value": [0, 0, -9], "from": 0.25, "to": 0.75}]},
        trapezoid(-4, -9, part(1, 4), part(3, 4))),
    Bending("force at 3/8", {"points": [{"force": [0, 0, -5000], "at": 0.375}]},
            ((-1, part(3, 8), -5000),)),
    Bending("moment at 5/8", {"points": [{"moment": [0, 700000, 0], "at": 0.625}]},
            ((-2, part(5, 8), 700000),)),
    Bending("warmer top", {"temperatures": [{"difference_z": 25, "depth_z": 160}]},
            curvature=EXPANSION * 25 / 160),
    Bending("end sinks", {"settlements": [{"direction": "Dz", "value": -7}]}, ends=(0, 0, -7, 0)),
    # A positive rotation about Y lowers what lies ahead.
    Bending("end turns", {"settlements": [{"direction": "Ry", "value": 0.004}]},
            ends=(0, 0, 0, Fraction(-4, 1000))),
)


def factorial(n: int) -> int:
    return 1 if n <= 1 else n * factorial(n - 1)


def integral(load: Bending, times: int, x: Fraction) -> Fraction:
    """The load integrated so many times from the start to x; at a step the side towards the start."""
    total = Fraction(0)
    for n, a, value in load.parts:
        power = n + times
        if x > a and power >= 0:
            total += value * (x - a) ** power / factorial(power)
    return total


def solve(rows: list, right: list) -> list:
    """Gauss-Jordan elimination in fractions."""
    table = [row + [value] for row, value in zip(rows, right)]
    for i in range(len(table)):
        pivot = next(k for k in range(i, len(table)) if table[k][i] != 0)
        table[i], table[pivot] = table[pivot], table[i]
        table[i] = [value / table[i][i] for value in table[i]]
        for k in range(len(table)):
            if k != i:
                table[k] = [a - table[k][i] * b for a, b in zip(table[k], table[i])]
    return [row[-1] for row in table]


def bend(load: Bending, released: tuple) -> tuple:
    """Shear and moment at the start. `released` names of ("Fz", "My") at ("start", "end")."""
    rows, right = [], []
    for end, x in zip(ENDS, (Fraction(0), LENGTH)):
        given = load.ends[0:2] if end == "start" else load.ends[2:4]
        unknowns = {  # of shear, moment, deflection, slope at the start; and what does not depend on them
            "Fz": ([1, 0, 0, 0], integral(load, 1, x), 0),
            "My": ([x, 1, 0, 0], integral(load, 2, x), 0),
            "w": ([x**3 / 6 / EI, x**2 / 2 / EI, 1, x],
                  integral(load, 4, x) / EI - load.curvature * x**2 / 2, given[0]),
            "slope": ([x**2 / 2 / EI, x / EI, 0, 1],
                      integral(load, 3, x) / EI - load.curvature * x, given[1]),
        }
        for force, motion in (("Fz", "w"), ("My", "slope")):
            row, own, value = unknowns[force if (end, force) in released else motion]
            rows.append([Fraction(entry) for entry in row])
            right.append(value - own)
    shear, moment, _, _ = solve(rows, right)
    return shear, moment


def bending_patterns() -> list:
    """Two of the four at most, and not both shears, or the beam would fall."""
    places = [(end, force) for end in ENDS for force in ("Fz", "My")]
    patterns = [p for count in range(3) for p in combinations(places, count)]
    return [p for p in patterns if p != (("start", "Fz"), ("end", "Fz"))]


def bending_expected(load: Bending, released: tuple) -> list:
    shear, moment = bend(load, released)
    rows = [(0, "Fz", shear)]
    for position in (0, 2, 4):
        x = LENGTH * position / 4
        rows.append((position, "My", moment + shear * x + integral(load, 2, x)))
    return rows


# Force along x, or torque about x, at 1/4; and a warmth of 35 K.
AXIAL = {"N": ({"points": [{"force": [8000, 0, 0], "at": 0.25}]}, 8000),
         "Mx": ({"points": [{"moment": [400000, 0, 0], "at": 0.25}]}, 400000)}


def axial_expected(force: str, released: tuple) -> list:
    """A load at 1/4 is shared 3:1, or goes to the end that holds."""
    value = AXIAL[force][1]
    share = {(): Fraction(3, 4), (("start", force),): 0, (("end", force),): 1}[released]
    return [(0, force, share * value), (2, force, (share - 1) * value), (4, force, (share - 1) * value)]


def element_case(case: dict, element: int) -> dict:
    """The case's loads, meant for this element; settlements are those of its end node."""
    return {kind: [{("node" if kind == "settlements" else "element"):
                    2 * element if kind == "settlements" else element} | load for load in loads]
            for kind, loads in case.items()}


def beams() -> list:
    axial = [((end, force),) for force in AXIAL for end in ENDS]
    return bending_patterns() + axial


def frame(patterns: list) -> dict:
    nodes, elements, supports = [], [], []
    for i, released in enumerate(patterns):
        nodes += [[0, 1000 * i, 0], [int(LENGTH), 1000 * i, 0]]
        element = {"nodes": [2 * i + 1, 2 * i + 2], "section": "all"}
        for end in ENDS:
            names = [force for where, force in released if where == end]
            if names:
                element["released_" + end] = names
        elements.append(element)
        supports += [{"node": node, "fixed": ["Dx", "Dy", "Dz", "Rx", "Ry", "Rz"]}
                     for node in (2 * i + 1, 2 * i + 2)]
    section = {"E": 70000, "G": 27000, "A": 2500, "It": 310000, "Iyy": 9300000, "Izz": 2900000,
               "expansion": float(EXPANSION)}
    return {"nodes": nodes, "sections": {"all": section}, "elements": elements, "supports": supports}


def loads_and_answers(patterns: list) -> list:
    """Per load case: its loads on single elements and the function that expects their forces."""
    cases = [(load.case, lambda p, load=load: bending_expected(load, p)) for load in BENDING]
    for force, (case, _) in AXIAL.items():
        cases.append((case, lambda p, force=force: axial_expected(force, p)))
    warmth = {"temperatures": [{"change": 35}]}
    push = -70000 * 2500 * EXPANSION * 35
    cases.append((warmth, lambda p: [(2, "N", push if not p else Fraction(0))]))
    return cases


def concerns(case: dict, released: tuple) -> bool:
    """Whether a load acts on what the pattern releases: bending, axial force or torsion."""
    load = json.dumps(case)
    kind = "N" if '"force": [8' in load or '"change"' in load else (
        "Mx" if '"moment": [4' in load else "bending")
    releases = {"bending" if force in ("Fz", "My") else force for _, force in released}
    return not releases or releases == {kind}


def data() -> dict:
    patterns = beams()
    cases, expected = [], []
    for number, (case, answers) in enumerate(loads_and_answers(patterns), start=1):
        merged: dict = {}
        for element, released in enumerate(patterns, start=1):
            if not concerns(case, released):
                continue
            for kind, loads in element_case(case, element).items():
                merged.setdefault(kind, []).extend(loads)
            expected += [
                {"case": number, "what": "force", "element": element, "position": position,
                 "component": component, "value": float(value), "tolerance": tolerance(component)}
                for position, component, value in answers(released)]
        cases.append(merged)
    return {
        "title": "Every release of a clamped beam under every load on its length",
        "source": "double integration with Macaulay brackets (Timoshenko, Strength of Materials I), in "
                  "exact fractions; axial forces and torques by the lever; worked out by "
                  "released_beams.py",
        "units": "N, mm", "frame": frame(patterns), "cases": cases,
        "tolerance": {"reason": "single precision, 6e-8, of the largest force, 1.4e5 N, and moment, 1e7 N mm"},
        "expected": expected}


def tolerance(component: str) -> float:
    return 0.01 if component in ("N", "Fz") else 1.0


def lines(values: list) -> str:
    return ",\n".join("    " + json.dumps(value) for value in values)


def text() -> str:
    content = data()
    frame_text = ",\n".join(
        f'    "{key}": [\n{lines(value)}\n    ]' if isinstance(value, list) else
        f'    "{key}": {json.dumps(value)}' for key, value in content["frame"].items())
    head = "".join(f'  "{key}": {json.dumps(content[key])},\n' for key in ("title", "source", "units"))
    return (f'{{\n{head}  "frame": {{\n{frame_text}\n  }},\n  "cases": [\n{lines(content["cases"])}\n  ],\n'
            f'  "tolerance": {json.dumps(content["tolerance"])},\n'
            f'  "expected": [\n{lines(content["expected"])}\n  ]\n}}\n')


if __name__ == "__main__":
    FILE.write_text(text(), encoding="utf-8")
