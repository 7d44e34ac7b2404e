"""Names in a model cannot make up lines of a report or turn the order of what is on the screen."""

import copy

import pytest
from program import by_path

FORGED = "Bridge\n  MEMBER NO = 77"
RULE = "must be one line of text without control characters"

NAMES = {
    "title": (["title"], "/title"),
    "project": (["project", "client"], "/project/client"),
    "node": (["nodes", 0, "name"], "/nodes/0/name"),
    "section": (["sections", 0, "name"], "/sections/0/name"),
    "material": (["materials", 0, "name"], "/materials/0/name"),
    "element": (["elements", 0, "name"], "/elements/0/name"),
    "load case": (["load_cases", 0, "name"], "/load_cases/0/name"),
    "combination": (["combinations", 0, "name"], "/combinations/0/name"),
    "member": (["members", 0, "name"], "/members/0/name"),
    "grade": (["materials", 0, "grade"], "/materials/0/grade"),
    "standard": (["materials", 0, "standard"], "/materials/0/standard"),
}


def named(model, path, name):
    model = copy.deepcopy(model)
    model["members"] = [{"number": 1, "elements": [1]}]
    model["project"] = {}
    if path[0] == "materials":
        model["materials"] = [{"number": 1, "grade": "X", "f02_thin": 110, "fu": 160}]
    at = model
    for key in path[:-1]:
        at = at[key]
    at[path[-1]] = name
    return model


@pytest.mark.parametrize("path, place", NAMES.values(), ids=NAMES.keys())
def test_a_name_of_two_lines_is_refused(aluframe, pipe_beam, path, place):
    aluframe.write(named(pipe_beam, path, FORGED))
    for command in ("check", "report", "validate"):
        done = aluframe(command, "frame.json", status=1)
        assert by_path(done.stderr) == f'frame.json: {place}: found U+000A behind "Bridge", {RULE}\n'


@pytest.mark.parametrize("code", [0x00, 0x09, 0x0D, 0x1B, 0x7F, 0x80, 0x85, 0x9B, 0x2028, 0x2029,
                                  0x202A, 0x202E, 0x2066, 0x2069])
def test_every_control_character_is_named(aluframe, pipe_beam, code):
    aluframe.write(named(pipe_beam, ["title"], "A" + chr(code) + "B"))
    done = aluframe("check", "frame.json", status=1)
    assert by_path(done.stderr) == f'frame.json: /title: found U+{code:04X} behind "A", {RULE}\n'


def test_names_in_any_script_are_taken(aluframe, pipe_beam):
    aluframe.write(named(pipe_beam, ["title"], "幕墙 – Ångström · عمود 🌉"))
    aluframe("check", "frame.json")


def test_a_description_may_have_lines_and_is_in_no_report(aluframe, pipe_beam):
    pipe_beam["description"] = FORGED
    aluframe.write(pipe_beam)
    aluframe("check", "frame.json")
    aluframe("report", "frame.json")
    assert b"MEMBER NO = 77" not in (aluframe.folder / "frame.alu").read_bytes()


@pytest.mark.parametrize("column", ["name", "source"])
def test_a_catalogue_keeps_to_one_line(aluframe, column):
    cells = {"name": "A", "source": "S"} | {column: f'"{FORGED}"'}
    aluframe.write(f"name,source,shape,D\n{cells['name']},{cells['source']},SR,10\n", "mine.csv")
    done = aluframe("section", "--list", "--catalogue", "mine.csv", status=1)
    assert done.stderr == f'mine.csv: line 2: {column}: found U+000A behind "Bridge", {RULE}\n'


def test_a_material_cannot_be_given_such_a_name(aluframe, pipe_beam):
    before = aluframe.write(pipe_beam).read_bytes()
    done = aluframe("settings", "frame.json", "--material", 1, "--name", FORGED, status=1)
    assert done.stderr == f'--name: found U+000A behind "Bridge", {RULE}\n'
    assert (aluframe.folder / "frame.json").read_bytes() == before
