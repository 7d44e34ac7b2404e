#!/usr/bin/env python3
"""Works out the element forces of a model file under given loads and writes them into it.

A linear 3D analysis: Euler-Bernoulli beams and truss elements, with releases, beta angles and
supports as in the model file. It needs nothing but Python's standard library and is meant for
frames of up to a few hundred nodes.

Signs (docs/sign-convention.md): local x from start to end, y parallel to the flanges, z up along
the web; for an element that is not vertical z lies upwards in the vertical plane through the axis,
for a vertical one y is the global Y direction; beta turns y and z about x, right-handed. N is
positive in tension. My > 0 compresses the fibre on the positive z side (top), Mz > 0 the one on
the positive y side, so dMy/dx = Fz and dMz/dx = Fy: a beam under gravity has Fz > 0 at its start
and My > 0 in its span. Mx > 0 has its vector on the end face of the start piece along x.

The loads are a JSON file in the force and length units of the model:

  {"cases": [{"case": 1, "self_weight": 1,
              "nodal": [{"nodes": [3, 4], "Fz": -5, "My": 0.2}],
              "span": [{"elements": [1, 2], "direction": "Z", "value": -1.2}],
              "temperature": [{"elements": [1], "change": 30}]}]}

`self_weight` is a factor on the weight, which acts along -Z. Span loads are per length of the
element, along global "X", "Y", "Z" or local "x", "y", "z". Temperatures are changes in K.
"""

import argparse
import json
import sys
from collections.abc import Callable
from pathlib import Path

from frame_elements import Bar, FrameError, SpanLoad, local_axes
from frame_solver import DIRECTIONS, CaseResult, Frame, Loads, analyse
from model_text import model_text, tidy
from section_properties import Properties, properties_of

NEWTONS = {"N": 1.0, "kN": 1e3, "kgf": 9.80665, "tonf": 9806.65, "lbf": 4.4482216152605,
           "kip": 4448.2216152605}
MILLIMETRES = {"m": 1e3, "cm": 10.0, "mm": 1.0, "ft": 304.8, "in": 25.4}
STANDARD_GRAVITY = 9.80665
FORCES = ("N", "Fy", "Fz", "Mx", "My", "Mz")
COMPONENTS = ("Fx", "Fy", "Fz", "Mx", "My", "Mz")


class Units:
    """What one unit of the file is in N and mm."""

    def __init__(self, model: dict) -> None:
        given = model.get("units", {})
        self.force = NEWTONS[given.get("force", "kN")]
        self.length = MILLIMETRES[given.get("length", "m")]
        self.section = MILLIMETRES[given.get("section", "mm")]
        self.moment = self.force * self.length


def by_number(entries: list[dict]) -> dict[int, dict]:
    return {entry["number"]: entry for entry in entries}


def find(table: dict, number: int, what: str) -> object:
    if number not in table:
        raise FrameError(f"{what} {number} does not exist")
    return table[number]


def scaled(properties: Properties, unit: float) -> Properties:
    return Properties(properties.area * unit**2, *(
        value * unit**4 for value in (properties.it, properties.iyy, properties.izz)))


def make_bar(element: dict, nodes: dict[int, int], section: Properties, material: dict) -> Bar:
    e = material.get("e", 70000.0)
    releases = element.get("releases", {})
    released = tuple(
        FORCES.index(name) + offset
        for end, offset in (("start", 0), ("end", 6)) for name in releases.get(end, ()))
    start, end = (find(nodes, node, "node") for node in element["nodes"])
    return Bar(
        number=element["number"], start=start, end=end, area=section.area, it=section.it,
        iyy=section.iyy, izz=section.izz, e=e, g=e / (2 * (1 + material.get("poisson", 0.3))),
        expansion=material.get("thermal_expansion", 2.3e-5),
        mass=material.get("density", 2.7e-6) * section.area, beta=element.get("beta", 0.0),
        truss=element.get("kind") == "truss", released=released)


def fixed_directions(supports: list[dict], nodes: dict[int, int]) -> set[tuple[int, int]]:
    fixed = set()
    for support in supports:
        node = find(nodes, support["node"], "node")
        names = DIRECTIONS if support["restrained"] == ["all"] else support["restrained"]
        fixed.update((node, DIRECTIONS.index(name)) for name in names)
    return fixed


def make_frame(model: dict) -> Frame:
    units = Units(model)
    nodes = {node["number"]: place for place, node in enumerate(model["nodes"])}
    sections = {s["number"]: scaled(properties_of(s), units.section) for s in model["sections"]}
    materials = by_number(model["materials"])
    bars = [
        make_bar(element, nodes, find(sections, element["section"], "section"),
                 find(materials, element["material"], "material"))
        for element in model["elements"]
    ]
    points = [[node[axis] * units.length for axis in "xyz"] for node in model["nodes"]]
    return Frame(list(nodes), points, fixed_directions(model.get("supports", []), nodes), bars)


def along_local(frame: Frame, bar: Bar, direction: str, value: float) -> list[float]:
    """Components of a span load along the local axes of the element."""
    if direction in ("x", "y", "z"):
        return [value if axis == direction else 0.0 for axis in "xyz"]
    if direction not in ("X", "Y", "Z"):
        raise FrameError(f"direction {direction!r} is none of X, Y, Z, x, y, z")
    axes = local_axes(frame.points[bar.start], frame.points[bar.end], bar.beta)
    return [value * axis["XYZ".index(direction)] for axis in axes]


class SpanSums:
    """Adds up what acts on each element."""

    def __init__(self, frame: Frame) -> None:
        self.frame = frame
        self.q = [[0.0, 0.0, 0.0] for _ in frame.bars]
        self.strain = [0.0] * len(frame.bars)

    def add(self, place: int, direction: str, value: float) -> None:
        load = along_local(self.frame, self.frame.bars[place], direction, value)
        self.q[place] = [a + b for a, b in zip(self.q[place], load)]

    def result(self) -> dict[int, SpanLoad]:
        return {i: SpanLoad(tuple(q), s) for i, (q, s) in enumerate(zip(self.q, self.strain))}


def span_loads(case: dict, frame: Frame, units: Units) -> dict[int, SpanLoad]:
    places = {bar.number: place for place, bar in enumerate(frame.bars)}
    sums = SpanSums(frame)
    for place, bar in enumerate(frame.bars):
        sums.add(place, "Z", -case.get("self_weight", 0.0) * bar.mass * STANDARD_GRAVITY)
    for load in case.get("span", []):
        for number in load["elements"]:
            value = load["value"] * units.force / units.length
            sums.add(find(places, number, "element"), load["direction"], value)
    for load in case.get("temperature", []):
        for number in load["elements"]:
            place = find(places, number, "element")
            sums.strain[place] += frame.bars[place].expansion * load["change"]
    return sums.result()


def nodal_loads(case: dict, frame: Frame, units: Units) -> dict[int, list[float]]:
    places = {number: place for place, number in enumerate(frame.names)}
    loads: dict[int, list[float]] = {}
    for load in case.get("nodal", []):
        for number in load["nodes"]:
            sums = loads.setdefault(find(places, number, "node"), [0.0] * 6)
            for i, name in enumerate(COMPONENTS):
                sums[i] += load.get(name, 0.0) * (units.force if i < 3 else units.moment)
    return loads


def make_loads(case: dict, frame: Frame, units: Units) -> Loads:
    return Loads(nodal_loads(case, frame, units), span_loads(case, frame, units))


def rounded_row(row: list[float], units: Units) -> list[float | int]:
    """To 1 mN and 1 N·mm, so that what is zero but for rounding is written as 0."""
    return [
        tidy(round(value, 3) / units.force if i < 3 else round(value) / units.moment)
        for i, value in enumerate(row)
    ]


def force_entries(frame: Frame, numbers: list[int], results: list[CaseResult],
                  units: Units) -> list[dict]:
    """The `forces` of a model file, element by element; truss elements at their ends only."""
    entries = []
    for place, bar in enumerate(frame.bars):
        for number, result in zip(numbers, results):
            rows = result.forces[place]
            kept = (rows[0], rows[4]) if bar.truss else rows
            entries.append({"element": bar.number, "case": number,
                            "values": [rounded_row(row, units) for row in kept]})
    return entries


def forces_of(model: dict, cases: list[dict]) -> list[dict]:
    """Entries for `forces` of the model under the cases of a loads file."""
    units, frame = Units(model), make_frame(model)
    known = {case["number"] for case in model.get("load_cases", [])}
    for case in cases:
        find({number: number for number in known}, case["case"], "load case")
    results = analyse(frame, [make_loads(case, frame, units) for case in cases])
    return force_entries(frame, [case["case"] for case in cases], results, units)


def read_json(path: Path) -> dict:
    try:
        return json.loads(path.read_text(encoding="utf-8"))
    except json.JSONDecodeError as problem:
        raise ValueError(f"{path}: {problem}") from None


def run(arguments: argparse.Namespace) -> None:
    model = read_json(arguments.model)
    model["forces"] = forces_of(model, read_json(arguments.loads)["cases"])
    text = model_text(model)
    if arguments.output is None:
        sys.stdout.write(text)
    else:
        arguments.output.write_text(text, encoding="utf-8")


def report_errors(tool: str, action: Callable[[], None]) -> int:
    """Runs a tool; what the user can mend goes to standard error as one line, exit status 1."""
    try:
        action()
    except KeyError as missing:
        print(f"{tool}: unknown or missing: {missing.args[0]}", file=sys.stderr)
    except (OSError, ValueError) as problem:
        print(f"{tool}: {problem}", file=sys.stderr)
    else:
        return 0
    return 1


def main() -> int:
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("model", type=Path, help="model file; forces in it are replaced")
    parser.add_argument("--loads", type=Path, required=True, help="loads file (see above)")
    parser.add_argument("--output", type=Path, help="file to write (default: standard output)")
    arguments = parser.parse_args()
    return report_errors("frame_analysis", lambda: run(arguments))


if __name__ == "__main__":
    sys.exit(main())
