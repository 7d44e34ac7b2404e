"""Every example checks from end to end, and says where it stands."""

import json
import re

import pytest
from program import ROOT

EXAMPLES = sorted((ROOT / "examples").glob("*.json"))


@pytest.mark.parametrize("path", EXAMPLES, ids=lambda path: path.stem)
def test_an_example_is_checked_whole(aluframe, path):
    done = aluframe("check", path, "--output", "out.aluresult")
    model = json.loads(path.read_text(encoding="utf-8"))
    count = len(model["elements"])
    assert f"{count} of {count} checked" in done.stdout
    # What remains unchecked are effects without a rule, not elements or combinations.
    unchecked = done.stdout.partition("not checked\n")[2]
    assert ", combination" not in re.sub(r"\n *(largest|second opinion) [^\n]*", "", unchecked)
    assert "no forces" not in unchecked
    assert "internal inconsistency" not in done.stderr
    listed = {row["element"] for row in aluframe.json("results", "out.aluresult")}
    assert listed == {element["number"] for element in model["elements"]}


@pytest.mark.parametrize("path", EXAMPLES, ids=lambda path: path.stem)
def test_an_example_says_where_it_stands_and_where_its_forces_come_from(path):
    description = json.loads(path.read_text(encoding="utf-8"))["description"]
    assert "forces" in description.lower()


def test_the_columns_of_the_platform_roof_stand_in_equilibrium_where_they_have_moved_to(aluframe):
    path = ROOT / "examples" / "platform-roof.json"
    model = json.loads(path.read_text(encoding="utf-8"))
    columns = [e for e in model["elements"] if e["name"].startswith("Column")]
    wind = {case["name"]: case for case in model["load_cases"]}["WIND"]
    assert [load["elements"] for load in wind["span"]] == [[1]]
    tables = aluframe.json("analyse", path)
    moved = {(row["combination"], row["node"]): row for row in tables["displacements"]}
    rows = {(row["combination"], row["element"], row["position"]): row for row in tables["forces"]}
    for combination in model["combinations"]:
        number = combination["number"]
        blown = sum(term["factor"] for term in combination["terms"] if term["case"] == wind["number"])
        for column in columns:
            foot, top = (rows[number, column["number"], position] for position in (0, 4))
            assert foot["My"] == 0
            # About the foot: the axial force at the top has the sway as its arm, the weight of the column
            # about half of it, the wind on the column half its height. z of a column points along −X.
            sway, weight = moved[number, column["nodes"][1]]["Dx"], top["N"] - foot["N"]
            wind_moment = blown * wind["span"][0]["value"] * 4**2 / 2 if column["number"] == 1 else 0
            by_sway = (weight / 2 - top["N"]) * sway
            # The column bows by some millimetres: so little is uncertain about where its weight stands.
            assert top["My"] == pytest.approx(4 * top["Fz"] + wind_moment + by_sway,
                                              abs=weight * 0.01)
            if blown and column["number"] == 2:
                assert by_sway > 0.03 * top["My"]  # else there would be little to see


def test_mullions_of_the_curtain_wall_are_found_to_buckle_from_floor_to_floor(aluframe):
    rows = aluframe.json("members", ROOT / "examples" / "mullion-transom.json")
    found = [row for row in rows if row["origin"] == "found"]
    # Five mullions of two storeys of 3.6 m, hinged at top and bottom; both storeys buckle at once, each as a
    # bar on hinges (Euler), for transoms on hinges hold none of their turning.
    assert [row["elements"] for row in found] == [f"{n}-{n + 1}" for n in range(1, 20, 2)]
    for row in found:
        assert (row["length_m"], row["ky"], row["kz"]) == pytest.approx((3.6, 1, 1), abs=1e-6)


def test_there_are_examples_of_every_kind():
    shapes = {section["shape"] for path in EXAMPLES
              for section in json.loads(path.read_text(encoding="utf-8"))["sections"]}
    assert {"C", "H", "T", "B", "P", "2C"} <= shapes
