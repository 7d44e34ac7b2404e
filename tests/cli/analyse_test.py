"""aluframe analyse from end to end: beams worked out by hand, and its options."""

import csv
import io
import json
import math
import re

import pytest
from program import PIPE_AREA, PIPE_I, ROOT
from loaded_beam import CANTILEVER, SIMPLE, UNIFORM, beam, cases, leaning_column  # noqa: F401

E = 70000.0
G = E / 2.6
FORCES = ("N", "Fy", "Fz", "Mx", "My", "Mz")


@pytest.fixture
def analyse(aluframe, beam):
    """Analyses the beam, changed in some fields, and gives the tables of the JSON output."""
    def run(*options, **changes):
        aluframe.write(beam | changes)
        return aluframe.json("analyse", "frame.json", *options)
    return run


def column(rows, name, **where):
    return [row[name] for row in rows
            if all(row[field] == value for field, value in where.items())]


def near(*expected, abs=1e-6):
    """Forces are kept in single precision: 6e-8 of some tens."""
    return pytest.approx(list(expected), abs=abs)


# What it computes, by hand.


def test_a_simple_beam_under_uniform_load_has_its_parabola_of_moments(analyse):
    forces = analyse("--cases", "1")["forces"]
    # qL/2 = 12 kN; qL²/8 = 12 kN·m, 3/4 of it at the quarters.
    assert column(forces, "Fz") == near(12, 6, 0, -6, -12)
    assert column(forces, "My") == near(0, 9, 12, 9, 0)
    for name in ("N", "Fy", "Mx", "Mz"):
        assert column(forces, name) == [0] * 5


def test_a_point_load_stands_between_the_positions_of_a_simple_beam(analyse):
    # PL/4 = 8 kN·m.
    assert column(analyse("--cases", "2")["forces"], "My") == near(0, 4, 8, 4, 0)


def test_reactions_carry_the_load(analyse):
    tables = analyse("--cases", "1")
    assert column(tables["reactions"], "Fz") == near(12, 12)
    assert column(tables["summary"], "Fz") == near(24)
    assert tables["summary"][0]["residual"] < 1e-8


def test_a_cantilever_sinks_by_bending_and_by_shear(analyse):
    tip = {"nodal": [{"nodes": [2], "Fz": -2}]}
    row = analyse("--nodes", "2", supports=CANTILEVER, load_cases=cases(tip), combinations=[])[
        "displacements"][0]
    # PL³/(3·EI) + PL/(G·As), with half of a pipe's area in shear; turned by PL²/(2·EI), about +Y.
    bending = 2000 * 4000**3 / (3 * E * PIPE_I)
    shear = 2000 * 4000 / (G * PIPE_AREA / 2)
    assert row["Dz"] == pytest.approx(-(bending + shear) / 1000, rel=1e-9)
    assert row["Ry"] == pytest.approx(2000 * 4000**2 / (2 * E * PIPE_I), rel=1e-9)
    assert shear / bending > 1e-4  # the comparison would notice it


def test_self_weight_is_that_of_the_pipe(analyse):
    summary = analyse(load_cases=cases({"self_weight": 1}), combinations=[])["summary"]
    weight = PIPE_AREA * 4000 * 2.7e-6 * 9.80665 / 1000
    assert summary[0]["Fz"] == pytest.approx(weight, rel=1e-9)


def test_a_settlement_moves_its_node_and_strains_no_simple_beam(analyse):
    tables = analyse(load_cases=cases({"settlements": [{"node": 2, "Dz": -0.01}]}), combinations=[])
    assert column(tables["displacements"], "Dz", node=2) == near(-0.01)
    for name in FORCES:
        assert column(tables["forces"], name) == [0] * 5


def test_a_spring_takes_the_load_that_its_stiffness_gives_it(analyse):
    # Two springs at the ends of 24 kN: 12 kN / 600 kN/m.
    supports = [{"node": 1, "restrained": ["Dx", "Dy", "Rx"], "springs": {"Dz": 600}},
                {"node": 2, "restrained": ["Dy"], "springs": {"Dz": 600}}]
    tables = analyse("--cases", "1", supports=supports)
    assert column(tables["displacements"], "Dz") == near(-0.02, -0.02)
    assert column(tables["reactions"], "Fz") == near(12, 12)


def test_a_combination_adds_up_its_load_cases(analyse):
    forces = analyse("--combinations", "1")["forces"]
    assert column(forces, "combination") == [1] * 5
    # 1.3 · 12 + 1.5 · 8.
    assert column(forces, "My", position=2) == near(27.6)


# Second order.


def test_a_column_bends_more_under_its_axial_force_in_second_order(analyse):
    forces = analyse("--second-order", **leaning_column(30))["forces"]
    # M = H·L·tan(kL)/(kL), k² = P/EI; far fibre the bottom one, since z points along −X.
    kl = math.sqrt(30000 / (E * 8e6)) * 4000
    # The geometric stiffness of eight pieces is within 1e-4 of the exact one this far from buckling.
    assert column(forces, "My", position=0) == [pytest.approx(-4 * math.tan(kl) / kl, rel=1e-4)]
    assert math.tan(kl) / kl > 1.3


def test_first_order_leaves_the_column_as_it_stands(analyse):
    assert column(analyse(**leaning_column(30))["forces"], "My", position=0) == near(-4)


def test_the_model_may_ask_for_second_order(analyse):
    column_model = leaning_column(30) | {"analysis": {"second_order": True}}
    tables = analyse(**column_model)
    assert "iterations" in tables["summary"][0]
    assert abs(column(tables["forces"], "My", position=0)[0]) > 4 * 1.3


def test_second_order_shows_combinations_because_load_cases_do_not_add_up(analyse):
    tables = analyse("--second-order")
    assert column(tables["summary"], "combination") == [1]


# Its options.


def test_a_table_tells_the_title_and_the_units(aluframe, beam):
    aluframe.write(beam)
    text = aluframe("analyse", "frame.json").stdout
    assert text.startswith("One pipe: linear analysis\n")
    for heading in ("Largest displacements", "Displacements of nodes", "Reactions of supports",
                    "Element forces in local axes"):
        assert f"\n{heading}" in text
    assert "My kN·m" in text and "Dz m" in text


def test_what_rounds_to_zero_is_shown_without_a_sign(aluframe):
    # The ridge of this symmetric frame does not move sideways, but for rounding.
    path = ROOT / "examples" / "platform-roof.json"
    text = aluframe("analyse", path, "--cases", "1,2").stdout
    assert re.search(r"\b0\.000000\b", text)
    assert not re.search(r"-0\.0+\b", text)


def test_units_can_be_chosen(analyse):
    tables = analyse("--cases", "1", "--units", "N,mm")
    # 12 kN·m; the deflection of a support is 0, its slope qL³/(24·EI) has no unit.
    assert column(tables["forces"], "My", position=2) == near(12e6, abs=1)
    assert column(tables["reactions"], "Fz") == near(12000, 12000, abs=1e-3)
    assert column(tables["displacements"], "Ry", node=1) == [
        pytest.approx(6 * 4000**3 / (24 * E * PIPE_I), rel=1e-9)]


def test_only_chosen_tables_nodes_and_elements_are_shown(aluframe, beam):
    beam["nodes"].append({"number": 3, "x": 8, "y": 0, "z": 3})
    beam["supports"] = [*SIMPLE, {"node": 3, "restrained": ["Dy", "Dz"]}]
    beam["elements"].append({"number": 7, "nodes": [2, 3], "section": 1, "material": 1})
    aluframe.write(beam)
    tables = aluframe.json("analyse", "frame.json", "--show", "reactions,forces", "--nodes", "2-3",
                           "--elements", "7", "--cases", "2")
    assert list(tables) == ["reactions", "forces"]
    assert column(tables["reactions"], "node") == [2, 3]
    assert set(column(tables["forces"], "element")) == {7}
    assert set(column(tables["forces"], "case")) == {2}


def test_load_cases_without_loads_are_not_shown(analyse):
    summary = analyse(load_cases=[*cases(UNIFORM), {"number": 5}], combinations=[])["summary"]
    assert column(summary, "case") == [1]


def test_an_envelope_is_left_out_with_a_message(aluframe, beam):
    aluframe.write(beam)
    done = aluframe("analyse", "frame.json", "--combinations", "1-2", "--show", "summary")
    assert "left out: combination 2; the two sides of an envelope are no state" in done.stderr


def test_output_goes_to_a_file(aluframe, beam):
    aluframe.write(beam)
    shown = aluframe("analyse", "frame.json", "--format", "json").stdout
    done = aluframe("analyse", "frame.json", "--format", "json", "--output", "out.json")
    assert done.stdout == ""
    assert (aluframe.folder / "out.json").read_text(encoding="utf-8") == shown


def test_forces_written_as_csv_are_checked_to_the_same_results(aluframe, beam):
    aluframe.write(beam)
    aluframe("analyse", "frame.json", "--show", "forces", "--format", "csv", "--output", "forces.csv")
    aluframe("check", "frame.json", "--output", "computed.aluresult")
    beam["load_cases"] = [{"number": 1, "name": "L1"}, {"number": 2, "name": "L2"}]
    aluframe.write(beam, "without.json")
    aluframe("check", "without.json", "--forces", "forces.csv", "--output", "read.aluresult")
    computed = aluframe.json("results", "computed.aluresult", "--element", "1")
    assert computed == aluframe.json("results", "read.aluresult", "--element", "1")
    rows = list(csv.DictReader(io.StringIO((aluframe.folder / "forces.csv").read_text())))
    assert [row["position"] for row in rows] == ["0", "1", "2", "3", "4"] * 2


def test_the_check_uses_the_forces_that_are_shown(aluframe, beam):
    # The strength of the pipe under My alone: M / (γ·f·W), by the forces given instead of the loads.
    aluframe.write(beam)
    aluframe("check", "frame.json", "--output", "loads.aluresult")
    rows = [[0, 0, 12 - 6 * x, 0, 12 * x - 3 * x**2, 0] for x in range(5)]
    point = [[0, 0, 4 if x <= 2 else -4, 0, 4 * min(x, 4 - x), 0] for x in range(5)]
    beam |= {"load_cases": [{"number": 1}, {"number": 2}], "forces": [
        {"element": 1, "case": 1, "values": rows}, {"element": 1, "case": 2, "values": point}]}
    aluframe.write(beam, "given.json")
    aluframe("check", "given.json", "--output", "given.aluresult")
    found, expected = (aluframe.json("results", name) for name in ("loads.aluresult", "given.aluresult"))
    assert found[0]["ratio"] == pytest.approx(expected[0]["ratio"], rel=1e-6)
    assert found[0]["ratio"] > 0.5


def test_json_is_one_object_of_tables(aluframe, beam):
    aluframe.write(beam)
    tables = json.loads(aluframe("analyse", "frame.json", "--format", "json").stdout)
    assert list(tables) == ["summary", "displacements", "reactions", "forces"]
