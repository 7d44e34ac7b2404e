"""What aluframe analyse refuses: wrong usage, frames that move, faults of the model and of its loads."""

import pytest
from loaded_beam import SIMPLE, beam, leaning_column  # noqa: F401
from program import by_path


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
    (["--output", "frame.json"], "frame.json: is the model, which the output would overwrite"),
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
    ({"supports": without(SIMPLE, 2, "Dz")}, "frame.json: the supports do not hold the structure"),
    ({"supports": without(SIMPLE, 1, "Rx")}, "turn about an axis along X"),
    ({"supports": []}, "frame.json: nothing supports the structure"),
    (HINGED_CHAIN, "/nodes/1: node 14 can rotate freely about Y"),
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
    assert "/nodes/2: nothing supports the part of the structure with nodes 3-4" in done.stderr


def test_releases_that_leave_an_element_without_hold_are_told_with_their_place(aluframe, beam):
    beam["elements"][0]["releases"] = {"start": ["Mx"], "end": ["Mx"]}
    aluframe.write(beam)
    done = aluframe("analyse", "frame.json", status=1)
    assert "frame.json: /elements/0: element 1: nothing holds it any more" in done.stderr


def test_results_and_report_from_before_stay_when_the_analysis_fails(aluframe, beam):
    beam["combinations"] = [{"number": 1, "terms": [{"case": 1}]}]
    aluframe.write(beam)
    aluframe("check", "frame.json")
    aluframe("report", "frame.json")
    kept = {path.name: path.read_bytes() for path in aluframe.folder.iterdir()
            if path.name != "frame.json"}
    assert kept.keys() == {"frame.aluresult", "frame.alu", "frame.txt"}
    aluframe.write(beam | {"supports": []})
    for command in ("check", "report"):
        aluframe(command, "frame.json", status=1)
    assert {path.name: path.read_bytes() for path in aluframe.folder.iterdir()
            if path.name != "frame.json"} == kept


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
    assert f"frame.json: {message}" in by_path(done.stderr)
    assert done.stdout == ""


def test_an_elastic_modulus_of_1e300_is_refused(aluframe, beam):
    beam["materials"] = [{"number": 1, "grade": "", "f02_thin": 110, "fu": 150, "e": 1e300}]
    aluframe.write(beam)
    done = aluframe("analyse", "frame.json", status=1)
    assert "frame.json: /materials/0/e: found 1e+300, must be" in by_path(done.stderr)


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


def test_a_column_beyond_its_buckling_load_is_refused(aluframe, beam):
    # π²·EI/(2L)² = 86.4 kN.
    aluframe.write(beam | leaning_column(90))
    done = aluframe("analyse", "frame.json", "--second-order", status=1)
    assert "frame.json: " in done.stderr and "buckle" in done.stderr
    assert done.stdout == ""
