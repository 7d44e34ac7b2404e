"""The examples are what their tool writes, and their forces, given or computed, are right: in equilibrium,
and those of the analysis in tools/frame_analysis.py."""

import csv
import functools
import io
import json
import math
import tempfile
from pathlib import Path

import pytest
from program import ROOT, Program
from tool_runner import run

from example_models import EXAMPLES
from frame_analysis import analyse_model
from section_properties import properties_of

DENSITY = 2.7e-6  # kg/mm³
FORCES = ("N", "Fy", "Fz", "Mx", "My", "Mz")


def column(rows, name):
    return [row[FORCES.index(name)] for row in rows]


def example(name):
    return json.loads((ROOT / "examples" / name).read_text(encoding="utf-8"))


def described(name):
    """An example with its loads, also where the file gives forces in their place; first order."""
    model = EXAMPLES[name]().model()
    model.pop("analysis", None)
    return model


@functools.cache
def computed(name):
    """Forces of the program under the loads of an example, five rows a pair of element and case."""
    with tempfile.TemporaryDirectory() as folder:
        program = Program(Path(folder))
        program.write(described(name))
        text = program("analyse", "frame.json", "--show", "forces", "--format", "csv").stdout
    found = {}
    for row in csv.DictReader(io.StringIO(text)):
        values = found.setdefault((int(row["element"]), int(row["case"])), [])
        assert int(row["position"]) == len(values)
        values.append([float(row[force]) for force in FORCES])
    return found


@functools.cache
def forces_of_example(name):
    """The forces that an example is checked with: given in its file, or computed by the program."""
    model = example(name)
    if "forces" in model:
        return {(f["element"], f["case"]): f["values"] for f in model["forces"]}
    return computed(name)


def test_the_examples_are_what_their_tool_writes(tmp_path):
    run("make_examples.py", "--folder", tmp_path)
    for path in sorted(tmp_path.iterdir()):
        committed = (ROOT / "examples" / path.name).read_text(encoding="utf-8")
        assert path.read_text(encoding="utf-8") == committed, path.name
    assert {path.name for path in tmp_path.iterdir()} == set(EXAMPLES)


def test_checking_the_examples_reports_one_that_was_changed(tmp_path):
    run("make_examples.py", "--folder", tmp_path)
    path = tmp_path / "footbridge.json"
    text = path.read_text(encoding="utf-8")
    path.write_text(text.replace("6061-T6", "6063-T6"), encoding="utf-8")
    done = run("make_examples.py", "--folder", tmp_path, "--check", status=1)
    assert "footbridge.json" in done.stderr


def unit(vector):
    size = math.sqrt(sum(v * v for v in vector))
    return [v / size for v in vector]


def cross(a, b):
    return [a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]]


def axes(element, points):
    """Local axes as docs/sign-convention.md says, turned about x by Rodrigues' formula."""
    start, end = (points[n] for n in element["nodes"])
    x = unit([b - a for a, b in zip(start, end)])
    y = [0, 1, 0] if abs(abs(x[2]) - 1) < 1e-12 else unit(cross([0, 0, 1], x))
    angle = math.radians(element.get("beta", 0))
    y = [math.cos(angle) * a + math.sin(angle) * b for a, b in zip(y, cross(x, y))]
    return x, y, cross(x, y)


def on_joint(row, local, at_start):
    """Force and moment on the joint, global, from the forces at one end of an element."""
    n, fy, fz, mx, my, mz = row
    side = 1 if at_start else -1
    # The element's end pulls the joint towards it for N > 0 and, at the start, pushes it along −z
    # for Fz > 0. My compresses the top: about y, the start piece turns the rest right-handed.
    force, moment = (n, -fy, -fz), (mx, -my, mz)
    return [side * sum(f * axis[i] for f, axis in zip(components, local))
            for components in (force, moment) for i in range(3)]


def applied_at_nodes(model, loads, points):
    """Nodal loads, and the share that truss elements hand to their nodes, by node."""
    total = {number: [0.0] * 6 for number in points}
    for load in loads.get("nodal", []):
        for node in load["nodes"]:
            for i, name in enumerate(("Fx", "Fy", "Fz", "Mx", "My", "Mz")):
                total[node][i] += load.get(name, 0.0)
    sections = {s["number"]: properties_of(s).area for s in model["sections"]}
    for element in (e for e in model["elements"] if e.get("kind") == "truss"):
        length = math.dist(*(points[n] for n in element["nodes"]))
        weight = loads.get("self_weight", 0) * sections[element["section"]] * DENSITY * 9.80665
        for node in element["nodes"]:
            total[node][2] -= weight * length / 2  # kg/mm · m/s² = N/mm = kN/m
    return total


def imbalance(model, forces, loads):
    """The largest sum of forces (kN) and moments (kN·m) at a direction that no support holds."""
    points = {n["number"]: (n["x"], n["y"], n["z"]) for n in model["nodes"]}
    total = applied_at_nodes(model, loads, points)
    for element in model["elements"]:
        rows, local = forces[element["number"], loads["number"]], axes(element, points)
        for node, row, at_start in zip(element["nodes"], (rows[0], rows[-1]), (True, False)):
            total[node] = [a + b for a, b in zip(total[node], on_joint(row, local, at_start))]
    held = {(s["node"], d) for s in model["supports"] for d in s["restrained"]}
    names = ("Dx", "Dy", "Dz", "Rx", "Ry", "Rz")
    return max(abs(v) for node, sums in total.items() for name, v in zip(names, sums)
               if (node, name) not in held)


CASES = [(name, case["number"])
         for name in EXAMPLES for case in EXAMPLES[name]().model()["load_cases"]]


def largest_force(name, case):
    return max(abs(v) for (_, of), rows in forces_of_example(name).items() if of == case
               for row in rows for v in row)


@pytest.mark.parametrize("name, case", CASES)
def test_every_joint_of_an_example_is_in_equilibrium(name, case):
    model = described(name)
    loads = next(c for c in model["load_cases"] if c["number"] == case)
    # Fewer than ten elements meet at a joint. Written values are rounded by at most 0.5e-6, computed
    # ones to single precision, 6e-8 of them.
    tolerance = 10 * (0.5e-6 + 6e-8 * largest_force(name, case))
    assert imbalance(model, forces_of_example(name), loads) < tolerance


@pytest.mark.parametrize("name, case", CASES)
def test_forces_along_an_element_of_an_example_follow_from_its_shear(name, case):
    model = example(name)
    points = {n["number"]: (n["x"], n["y"], n["z"]) for n in model["nodes"]}
    lengths = {e["number"]: math.dist(*(points[n] for n in e["nodes"])) for e in model["elements"]}
    for (element, of), rows in forces_of_example(name).items():
        if of != case or len(rows) != 5:
            continue
        for shear, moment in (("Fz", "My"), ("Fy", "Mz")):
            f, m = column(rows, shear), column(rows, moment)
            # Shear is linear, so Simpson's rule is exact: M(L) − M(0) = L·(F0 + 4·F½ + F1)/6.
            area = lengths[element] * (f[0] + 4 * f[2] + f[4]) / 6
            assert m[4] - m[0] == pytest.approx(area, abs=2e-5), element


@pytest.mark.parametrize("name", EXAMPLES)
def test_the_program_and_the_tool_compute_the_same_forces(name):
    frame, results = analyse_model(described(name))
    program = computed(name)
    assert program.keys() == {(bar.number, case) for bar in frame.bars for case in results}
    for place, bar in enumerate(frame.bars):
        for case, result in results.items():
            rows = [[v / (1e3 if i < 3 else 1e6) for i, v in enumerate(row)]
                    for row in result.forces[place]]
            for kind in (slice(0, 3), slice(3, 6)):
                largest = max(abs(v) for row in rows for v in row[kind])
                for position in range(5):
                    # Single precision of the program, and the rounding of two solutions of the
                    # equations; what is zero by statics is zero in one of them only.
                    assert program[bar.number, case][position][kind] == pytest.approx(
                        rows[position][kind], rel=0, abs=1e-6 * largest + 1e-9), (bar.number, case)


@pytest.mark.parametrize("name", EXAMPLES)
def test_an_example_gives_loads_or_the_forces_of_another_program(name):
    model = example(name)
    carries_loads = [case.keys() > {"number", "name", "kind"} for case in model["load_cases"]]
    assert all(carries_loads) if "forces" not in model else not any(carries_loads)


def test_one_example_has_the_forces_of_another_program():
    assert [name for name in EXAMPLES if "forces" in example(name)] == ["portal-bracket.json"]


def test_the_bridge_carries_its_crowd():
    model = example("footbridge.json")
    loads = model["load_cases"][1]
    assert loads["name"] == "CROWD"
    total = -sum(load["value"] * 3.0 * len(load["elements"]) for load in loads["span"])
    # 4.3 kN/m² on 24 m × 3 m.
    assert total == pytest.approx(4.3 * 24 * 3)
    # As a simple truss: chord force in the middle = qL²/8/h per truss, q = 4.3 · 3/2 kN/m; welded
    # joints take less than 3 % of it away.
    by_hand = 4.3 * 1.5 * 24**2 / 8 / 2.7
    middle = next(e["number"] for e in model["elements"] if e["name"] == "Upper chord R4")
    assert computed("footbridge.json")[middle, 2][2][0] == pytest.approx(-by_hand, rel=0.03)


def test_the_tie_rods_only_pull():
    model = example("portal-bracket.json")
    ties = [e["number"] for e in model["elements"] if e["name"].startswith("Tie")]
    axial = {(f["element"], f["case"]): f["values"][0][0] for f in model["forces"]}
    combinations = {c["number"]: c for c in model["combinations"]}

    def lowest(number, element):
        """Least axial force, taking the smallest of an envelope's terms."""
        combination = combinations[number]
        parts = [term["factor"] * (axial[element, term["case"]] if "case" in term
                                   else lowest(term["combination"], element))
                 for term in combination["terms"]]
        return min(parts) if combination.get("kind") == "envelope" else sum(parts)

    assert len(ties) == 2
    for tie in ties:
        for number in (n for n, c in combinations.items() if c.get("design", True)):
            assert lowest(number, tie) > 0, number
