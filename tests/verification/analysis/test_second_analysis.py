"""The analysis against a second one that shares no code with it: tools/frame_analysis.py.

Both get the same model: random frames of beams, trusses, releases and turned sections. Section
constants are each program's own. The tests of the examples compare theirs in the same way.
"""

import math
import os
import random
import subprocess
from pathlib import Path

import pytest
from frame_analysis import analyse_model
from model_text import model_text

# Forces are kept in single precision, 6e-8 of each; measured against the largest of a case.
TOLERANCE = 2e-7
# A moment that is zero is the rounding of a force over lengths of a metre.
METRE = 1000.0


def found_forces(model: dict, folder: Path) -> dict:
    """Rows of forces by element and case, as the program under test computes them."""
    file = folder / "model.json"
    file.write_text(model_text(model), encoding="utf-8")
    done = subprocess.run([os.environ["ALUFRAME_PROGRAM"], "analyse", file, "--show", "forces",
                           "--format", "csv", "--units", "N,mm"],
                          capture_output=True, text=True, check=False)
    assert done.returncode == 0, done.stderr
    rows: dict = {}
    for line in done.stdout.splitlines()[1:]:
        element, case, _position, *forces = line.split(",")
        rows.setdefault((int(element), int(case)), []).append([float(force) for force in forces])
    return rows


def expected_forces(model: dict) -> dict:
    """The same by the second analysis."""
    frame, results = analyse_model(model)
    return {(bar.number, case): result.forces[place]
            for case, result in results.items() for place, bar in enumerate(frame.bars)}


def sizes(rows: list) -> tuple[float, float]:
    """The largest force and the largest moment."""
    return (max(abs(value) for row in rows for value in row[:3]),
            max(abs(value) for row in rows for value in row[3:]))


def compare(model: dict, folder: Path) -> None:
    found, expected = found_forces(model, folder), expected_forces(model)
    for case in (case["number"] for case in model["load_cases"]):
        pairs = {pair: rows for pair, rows in expected.items() if pair[1] == case}
        force, moment = sizes([row for rows in pairs.values() for row in rows])
        limits = [TOLERANCE * max(force, moment / METRE)] * 3 + [
            TOLERANCE * max(moment, force * METRE)] * 3
        for pair, rows in pairs.items():
            for position, (row, other) in enumerate(zip(rows, found[pair], strict=True)):
                for i, (a, b) in enumerate(zip(row, other, strict=True)):
                    assert abs(a - b) <= limits[i], (pair, position, i, a, b)


def random_element(number: int, nodes: list[int], dice: random.Random, stands: bool) -> dict:
    """A beam of the tree that the frame stands by, or a truss or a beam with hinges beside it."""
    element = {"number": number, "nodes": nodes, "section": dice.randint(1, 2), "material": 1,
               "beta": dice.choice([0, 0, 90, -37.5, 180])}
    if dice.random() < 0.3:
        # Elements are far from the first one's side, and from the node set aside for it.
        element["orientation"] = dice.choice([{"vector": [0.2, 7, -40]}, {"node": 100}])
    if stands:
        return element
    if dice.random() < 0.3:
        return element | {"kind": "truss"}
    # Of each pair of ends one at most, so that the element is held.
    released: dict[str, list[str]] = {"start": [], "end": []}
    for force in ("N", "Mx", "My", "Mz"):
        if dice.random() < 0.4:
            released[dice.choice(["start", "end"])].append(force)
    return element | {"releases": {end: names for end, names in released.items() if names}}


def random_model(dice: random.Random) -> dict:
    count = dice.randint(3, 10)
    nodes = [{"number": 3 * i + 1, "x": round(1.7 * i, 3), "y": round(dice.uniform(-3, 3), 3),
              "z": round(dice.uniform(-3, 3), 3)} for i in range(count)]
    # One that stands upright, or leans by a millimetre, since its axes follow another rule.
    nodes[1] |= {"x": nodes[0]["x"], "y": nodes[0]["y"] + dice.choice([0, 0.001]),
                 "z": nodes[0]["z"] + 2.5}
    ends = [([nodes[dice.randrange(i)]["number"], nodes[i]["number"]], True) for i in range(1, count)]
    ends += [([n["number"] for n in dice.sample(nodes, 2)], False) for _ in range(count)]
    elements = [random_element(i, pair, dice, stands) for i, (pair, stands) in enumerate(ends, 1)]
    return {
        "format": "aluframe-model", "version": 1, "units": {"force": "kN", "length": "m"},
        "materials": [{"number": 1, "alloy": "6061-T6"}],
        "sections": [
            {"number": 1, "shape": "P", "dimensions": {"D": 120, "t": 6}},
            {"number": 2, "shape": "H", "dimensions": {"H": 200, "B1": 100, "tw": 6, "tf1": 9}}],
        "nodes": [*nodes, {"number": 100, "x": -3, "y": 90, "z": 20}], "elements": elements,
        "supports": [
            {"node": nodes[0]["number"], "restrained": ["Dx", "Dy", "Dz", "Rx", "Ry", "Rz"]},
            {"node": nodes[-1]["number"], "restrained": dice.sample(["Dx", "Dy", "Dz"], 2)}]}


def random_loaded_model(dice: random.Random) -> dict:
    model = random_model(dice)
    return model | {"load_cases": [random_case(number, model, dice) for number in (1, 7)]}


def random_case(number: int, model: dict, dice: random.Random) -> dict:
    def some(things: list[dict]) -> list[int]:
        return dice.sample([thing["number"] for thing in things], 2)

    def value() -> float:
        return round(dice.uniform(-5, 5), 2)

    return {
        "number": number, "self_weight": dice.choice([1, 0.5]),
        "nodal": [{"nodes": some(model["nodes"][1:-1]), "Fx": value(), "Fy": value(), "Fz": value(),
                   "Mx": value(), "My": value(), "Mz": value()}],
        "span": [{"elements": some(model["elements"]), "direction": axis, "value": value() or 1}
                 for axis in ("X", "Y", "Z", "x", "y", "z")],
        "temperature": [{"elements": some(model["elements"]), "change": dice.choice([-20, 35])}]}


@pytest.mark.parametrize("seed", range(40))
def test_random_frame_has_the_forces_of_the_second_analysis(seed, tmp_path):
    compare(random_loaded_model(random.Random(seed)), tmp_path)


def test_a_difference_is_noticed(tmp_path):
    """The comparison itself: a load that only one of the two gets fails."""
    model = random_loaded_model(random.Random(1))
    found = found_forces(model, tmp_path)
    model["load_cases"][0]["self_weight"] *= 1.001
    expected = expected_forces(model)
    pair = (1, model["load_cases"][0]["number"])
    assert not math.isclose(found[pair][0][2], expected[pair][0][2], rel_tol=1e-7)
