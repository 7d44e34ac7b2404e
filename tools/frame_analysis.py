#!/usr/bin/env python3
"""Works out the element forces of a model file under its loads and writes them into it.

A linear 3D analysis, independent of the program's own, to compare that with: beams with shear
flexibility and truss elements, with releases, beta angles and rigid supports as in the model file.
It needs nothing but Python's standard library and is meant for frames of up to a few hundred nodes.
What it cannot analyse it refuses; tools/frame_loads.py lists the loads that it knows.

Signs (docs/sign-convention.md): local x from start to end, y parallel to the flanges, z up along
the web; for an element that is not vertical z lies upwards in the vertical plane through the axis,
for a vertical one y is the global Y direction; an orientation gives the side of z in their place;
beta turns y and z about x, right-handed. N is
positive in tension. My > 0 compresses the fibre on the positive z side (top), Mz > 0 the one on
the positive y side, so dMy/dx = Fz and dMz/dx = Fy: a beam under gravity has Fz > 0 at its start
and My > 0 in its span. Mx > 0 has its vector on the end face of the start piece along x.
"""

import argparse
import json
import sys
from collections.abc import Callable
from dataclasses import dataclass
from pathlib import Path

from frame_elements import Bar, FrameError
from frame_loads import find, has_loads, loads_of
from frame_solver import DIRECTIONS, CaseResult, Frame, analyse
from model_text import model_text, tidy
from model_units import Units
from section_properties import Properties, properties_of
from shear_areas import shear_areas_of

FORCES = ("N", "Fy", "Fz", "Mx", "My", "Mz")


def by_number(entries: list[dict]) -> dict[int, dict]:
    return {entry["number"]: entry for entry in entries}


@dataclass(frozen=True)
class Section:
    properties: Properties
    ay: float  # shear areas
    az: float


def make_section(section: dict, unit: float) -> Section:
    found = properties_of(section)
    inertias = (value * unit**4 for value in (found.it, found.iyy, found.izz))
    ay, az = (area * unit**2 for area in shear_areas_of(section))
    return Section(Properties(found.area * unit**2, *inertias), ay, az)


def reference_of(element: dict, nodes: dict[int, int],
                 points: list[list[float]]) -> tuple[float, ...] | None:
    """The global direction that the orientation of an element gives."""
    if "orientation" not in element:
        return None
    orientation = element["orientation"]
    if "vector" in orientation:
        return tuple(orientation["vector"])
    start, to = (points[find(nodes, node, "node")]
                 for node in (element["nodes"][0], orientation["node"]))
    return tuple(b - a for a, b in zip(start, to))


def make_bar(element: dict, nodes: dict[int, int], points: list[list[float]], section: Section,
             material: dict) -> Bar:
    e = material.get("e", 70000.0)
    releases = element.get("releases", {})
    released = tuple(
        FORCES.index(name) + offset
        for end, offset in (("start", 0), ("end", 6)) for name in releases.get(end, ()))
    start, end = (find(nodes, node, "node") for node in element["nodes"])
    constants = section.properties
    return Bar(
        number=element["number"], start=start, end=end, area=constants.area, it=constants.it,
        iyy=constants.iyy, izz=constants.izz, ay=section.ay, az=section.az, e=e,
        g=e / (2 * (1 + material.get("poisson", 0.3))),
        expansion=material.get("thermal_expansion", 2.3e-5),
        mass=material.get("density", 2.7e-6) * constants.area, beta=element.get("beta", 0.0),
        reference=reference_of(element, nodes, points),
        truss=element.get("kind") == "truss", released=released)


def fixed_directions(supports: list[dict], nodes: dict[int, int]) -> set[tuple[int, int]]:
    fixed = set()
    for support in supports:
        node = find(nodes, support["node"], "node")
        if "springs" in support:
            raise FrameError(f"the support of node {support['node']}: springs cannot be analysed here")
        names = DIRECTIONS if support["restrained"] == "all" else support["restrained"]
        fixed.update((node, DIRECTIONS.index(name)) for name in names)
    return fixed


def make_frame(model: dict) -> Frame:
    units = Units(model)
    nodes = {node["number"]: place for place, node in enumerate(model["nodes"])}
    sections = {s["number"]: make_section(s, units.section) for s in model["sections"]}
    materials = by_number(model["materials"])
    points = [[node[axis] * units.length for axis in "xyz"] for node in model["nodes"]]
    bars = [
        make_bar(element, nodes, points, find(sections, element["section"], "section"),
                 find(materials, element["material"], "material"))
        for element in model["elements"]
    ]
    return Frame(list(nodes), points, fixed_directions(model.get("supports", []), nodes), bars)


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


def analyse_model(model: dict) -> tuple[Frame, dict[int, CaseResult]]:
    """The frame of a model, and the result of each of its load cases with loads, in N and mm."""
    units, frame = Units(model), make_frame(model)
    cases = [case for case in model.get("load_cases", []) if has_loads(case)]
    results = analyse(frame, [loads_of(case, frame, units) for case in cases])
    return frame, {case["number"]: result for case, result in zip(cases, results)}


def forces_of(model: dict) -> list[dict]:
    """Entries for `forces` of the model under the loads of its load cases. Raises FrameError."""
    if model.get("analysis", {}).get("second_order", False):
        raise FrameError("the model asks for a second-order analysis, and this one is linear")
    frame, results = analyse_model(model)
    return force_entries(frame, list(results), list(results.values()), Units(model))


def read_json(path: Path) -> dict:
    try:
        return json.loads(path.read_text(encoding="utf-8"))
    except json.JSONDecodeError as problem:
        raise ValueError(f"{path}: {problem}") from None


def run(arguments: argparse.Namespace) -> None:
    model = read_json(arguments.model)
    model["forces"] = forces_of(model)
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
    parser.add_argument("--output", type=Path, help="file to write (default: standard output)")
    arguments = parser.parse_args()
    return report_errors("frame_analysis", lambda: run(arguments))


if __name__ == "__main__":
    sys.exit(main())
