"""aluframe analyse from end to end: beams worked out by hand, its options, and what it refuses."""

import copy
import csv
import io
import json
import math

import pytest
from conftest import PIPE_AREA, PIPE_I

E = 70000.0
G = E / 2.6
SPAN = 4.0  # m
FORCES = ("N", "Fy", "Fz", "Mx", "My", "Mz")

SIMPLE = [
    {"node": 1, "restrained": ["Dx", "Dy", "Dz", "Rx"]},
    {"node": 2, "restrained": ["Dy", "Dz"]},
]
CANTILEVER = [{"node": 1, "restrained": "all"}]
# Constants without a shape: rigid in shear.
RIGID_IN_SHEAR = {"number": 1, "shape": "UP", "properties": {
    "area": 2000, "it": 3e6, "iyy": 8e6, "izz": 8e6,
    "point_y": [-50, 50, 50, -50], "point_z": [100, 100, -100, -100]}}
# By hand, of 6 kN/m on 4 m and of 8 kN in the middle:
UNIFORM = {"span": [{"elements": [1], "direction": "Z", "value": -6}]}
POINT = {"points": [{"elements": [1], "direction": "Z", "at": 0.5, "force": -8}]}


def cases(*loads):
    return [{"number": number, "name": f"L{number}", **load} for number, load in enumerate(loads, 1)]


@pytest.fixture
def beam(pipe_beam):
    """The pipe 100 × 10 of 4 m on two supports, with loads in place of forces."""
    del pipe_beam["forces"]
    pipe_beam |= {"supports": SIMPLE, "load_cases": cases(UNIFORM, POINT), "combinations": [
        {"number": 1, "name": "ULS", "terms": [{"case": 1, "factor": 1.3}, {"case": 2, "factor": 1.5}]},
        {"number": 2, "name": "Both", "kind": "envelope", "terms": [{"case": 1}, {"case": 2}]}]}
    return copy.deepcopy(pipe_beam)  # tests change it in depth


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


def leaning_column(axial):
    """A cantilever column under an axial force and 1 kN along X at its top, rigid in shear."""
    return {
        "sections": [RIGID_IN_SHEAR], "supports": CANTILEVER,
        "nodes": [{"number": 1, "x": 0, "y": 0, "z": 0}, {"number": 2, "x": 0, "y": 0, "z": SPAN}],
        "load_cases": cases({"nodal": [{"nodes": [2], "Fx": 1, "Fz": -axial}]}), "combinations": []}


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


def test_a_column_beyond_its_buckling_load_is_refused(aluframe, beam):
    # π²·EI/(2L)² = 86.4 kN.
    aluframe.write(beam | leaning_column(90))
    done = aluframe("analyse", "frame.json", "--second-order", status=1)
    assert "frame.json: " in done.stderr and "buckle" in done.stderr
    assert done.stdout == ""


# Its options.


def test_a_table_tells_the_title_and_the_units(aluframe, beam):
    aluframe.write(beam)
    text = aluframe("analyse", "frame.json").stdout
    assert text.startswith("One pipe: linear analysis\n")
    for heading in ("Largest displacements", "Displacements of nodes", "Reactions of supports",
                    "Element forces in local axes"):
        assert f"\n{heading}" in text
    assert "My kN·m" in text and "Dz m" in text


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
    beam["load_cases"] = [{"number": 1}, {"number": 2}]
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


# What it refuses.


@pytest.mark.parametrize("options, message", [
    (["--cases", "7"], "frame.json: --cases: there is no load case with loads 7"),
    (["--combinations", "7"], "frame.json: --combinations: there is no combination 7"),
    (["--nodes", "9"], "frame.json: --nodes: there is no node 9"),
    (["--elements", "9"], "frame.json: --elements: there is no element 9"),
    (["--cases", "two"], "--cases: found 'two', must be numbers"),
    (["--cases", "1", "--combinations", "1"], "--cases and --combinations do not go together"),
    (["--show", "loads"], "--show: found 'loads', must be one of summary, displacements, reactions"),
    (["--units", "kN"], "--units: found 'kN', must be a force unit"),
    (["--format", "xml"], "--format: found 'xml', must be one of table, json, csv"),
    (["--format", "csv"], "--format csv writes one table: name it with --show"),
    (["--format", "csv", "--show", "forces,reactions"], "--format csv writes one table"),
    (["--output", "frame.json"], "--output: frame.json is the input"),
    (["--output", "no/such/folder.txt"], "no/such/folder.txt"),
])
def test_wrong_usage_is_told_and_nothing_is_shown(aluframe, beam, options, message):
    path = aluframe.write(beam)
    before = path.read_bytes()
    done = aluframe("analyse", "frame.json", *options, status=2 if "no/such" in message else 1)
    assert message in done.stderr
    assert done.stdout == ""
    assert path.read_bytes() == before


def without(supports, node, direction):
    return [support | {"restrained": [d for d in support["restrained"] if d != direction]}
            if support["node"] == node else support for support in supports]


HINGED_CHAIN = {
    "nodes": [{"number": n, "x": 2 * i, "y": 0, "z": 0} for i, n in enumerate((1, 14, 2))],
    "supports": [{"node": n, "restrained": "all"} for n in (1, 2)],
    "elements": [
        {"number": 1, "nodes": [1, 14], "section": 1, "material": 1, "releases": {"end": ["My"]}},
        {"number": 2, "nodes": [14, 2], "section": 1, "material": 1, "releases": {"start": ["My"]}}]}


@pytest.mark.parametrize("change, words", [
    ({"supports": without(SIMPLE, 2, "Dz")}, "the supports do not hold the structure"),
    ({"supports": without(SIMPLE, 1, "Rx")}, "turn about an axis along X"),
    ({"supports": []}, "nothing supports the structure"),
    (HINGED_CHAIN, "node 14 can rotate freely about Y"),
], ids=["a missing support", "no hold against twisting", "no support", "a node of hinges"])
@pytest.mark.parametrize("command", ["analyse", "check", "validate", "report"])
def test_what_moves_is_told_in_words(aluframe, beam, command, change, words):
    aluframe.write(beam | change)
    done = aluframe(command, "frame.json", status=1)
    assert done.stderr.startswith("frame.json: ")
    assert words in done.stderr
    assert "nan" not in done.stderr.lower()


def test_parts_that_nothing_supports_are_named(aluframe, beam):
    beam["nodes"] += [{"number": 3, "x": 0, "y": 5, "z": 0}, {"number": 4, "x": 4, "y": 5, "z": 0}]
    beam["elements"].append({"number": 2, "nodes": [3, 4], "section": 1, "material": 1})
    aluframe.write(beam)
    done = aluframe("analyse", "frame.json", status=1)
    assert "nothing supports the part of the structure with nodes 3-4" in done.stderr


def changed(path, value):
    """A change of the model at a path: the last name of the path is set, "-" appends."""
    def change(model):
        *parents, last = path
        for name in parents:
            model = model[name]
        if last == "-":
            model.append(value)
        else:
            model[last] = value
    return change


@pytest.mark.parametrize("path, value, message", [
    (["load_cases", 0, "span", 0, "elements"], [1, 9],
     "/load_cases/0/span/0/elements/1: element 9 does not exist"),
    (["load_cases", 1, "points", 0, "elements"], [3],
     "/load_cases/1/points/0/elements/0: element 3 does not exist"),
    (["nodes", 1, "x"], 0, "/elements/0/nodes: nodes 1 and 2 are at the same point"),
    (["elements", 0, "section"], 4, "/elements/0/section: section 4 does not exist"),
    (["sections", 0, "properties"], {"area": -1},
     "/sections/0/properties/area: found -1, must be positive"),
    (["supports", 0, "springs"], {"Ry": 1e300},
     "/supports/0/springs/Ry: found 1e+300, must be between -1e30 and 1e30"),
    (["supports", "-"], {"node": 1, "restrained": "all"},
     "/supports/2: node 1 has a support already"),
], ids=["a span load on a missing element", "a point load on a missing element",
        "an element without length", "an unknown section", "a negative area",
        "a stiffness of 1e300", "a second support"])
def test_a_fault_of_the_model_is_told_with_its_place(aluframe, beam, path, value, message):
    changed(path, value)(beam)
    aluframe.write(beam)
    done = aluframe("analyse", "frame.json", status=1)
    assert f"frame.json: {message}" in done.stderr
    assert done.stdout == ""


def test_an_elastic_modulus_of_1e300_is_refused(aluframe, beam):
    beam["materials"] = [{"number": 1, "grade": "", "f02_thin": 110, "fu": 150, "e": 1e300}]
    aluframe.write(beam)
    done = aluframe("analyse", "frame.json", status=1)
    assert "frame.json: /materials/0/e: found 1e+300, must be" in done.stderr


def test_a_load_on_a_node_that_no_element_meets_is_refused(aluframe, beam):
    beam["nodes"].append({"number": 3, "x": 0, "y": 5, "z": 0})
    beam["load_cases"][0]["nodal"] = [{"nodes": [3], "Fz": -1}]
    aluframe.write(beam)
    done = aluframe("analyse", "frame.json", status=1)
    assert "/nodes/2: node 3 is loaded with a force along Z, but no element meets it" in done.stderr


def test_a_model_without_loads_has_nothing_to_analyse(aluframe, pipe_beam):
    aluframe.write(pipe_beam)
    done = aluframe("analyse", "frame.json", status=1)
    assert "frame.json: has no loads to analyse" in done.stderr


def test_a_combination_of_a_case_without_loads_is_refused(aluframe, beam):
    beam["load_cases"][1] = {"number": 2}
    aluframe.write(beam)
    done = aluframe("analyse", "frame.json", "--combinations", "1", status=1)
    assert "combination 1: load case 2 has no loads" in done.stderr


def test_json_is_one_object_of_tables(aluframe, beam):
    aluframe.write(beam)
    tables = json.loads(aluframe("analyse", "frame.json", "--format", "json").stdout)
    assert list(tables) == ["summary", "displacements", "reactions", "forces"]
