"""All faults of a model file are told in one go: by line, JSON path and the entity's own number."""

import json

import pytest


def write_lines(aluframe, model):
    """One value a line, so that lines can be counted by hand."""
    text = json.dumps(model, indent=1)
    aluframe.write(text)
    return text.splitlines()


def line_of(lines, start, word):
    """Of the first line at or behind `start` (from 1) that has a word."""
    return next(i for i, line in enumerate(lines, 1) if i >= start and word in line)


@pytest.fixture
def renumbered(pipe_beam):
    """Numbers that no place in a list has."""
    pipe_beam["materials"][0]["number"] = 40
    pipe_beam["sections"][0]["number"] = 50
    pipe_beam["elements"][0] |= {"number": 12, "section": 50, "material": 40}
    pipe_beam["forces"][0]["element"] = pipe_beam["forces"][1]["element"] = 12
    return pipe_beam


def told(aluframe, command="validate"):
    return aluframe(command, "frame.json", status=1).stderr.splitlines()


def test_faults_of_all_parts_are_told_in_the_order_of_the_file(aluframe, renumbered):
    renumbered["elements"][0]["beta"] = "steep"
    renumbered["nodes"][1]["z"] = None
    renumbered["sections"][0]["dimensions"]["t"] = -3
    renumbered["combinations"][1]["terms"][0]["case"] = 7
    renumbered["forces"][1]["values"][2] = [1, 2]
    # The order of the parts in the file is not the one in which they hang on one another.
    order = ["forces", "combinations", "elements", "nodes", "sections"]
    model = {key: renumbered[key] for key in renumbered if key not in order} | {key: renumbered[key] for key in order}
    lines = write_lines(aluframe, model)
    # Each row before it has six numbers and two brackets, each on a line.
    rows = line_of(lines, line_of(lines, 1, '"case": 2'), '"values"')
    combination = line_of(lines, 1, '"name": "SEIS"')
    expected = [
        f"frame.json: line {rows + 1 + 2 * 8}: /forces/1/values/2 (element 12, load case 2): found 2 numbers, a row has 6: "
        "N, Fy, Fz, Mx, My, Mz",
        f"frame.json: line {line_of(lines, combination, '7')}: /combinations/1/terms/0/case (combination 2): "
        "load case 7 does not exist",
        f"frame.json: line {line_of(lines, 1, 'steep')}: /elements/0/beta (element 12): found \"steep\", must be a number",
        f"frame.json: line {line_of(lines, 1, 'null')}: /nodes/1/z (node 2): found null, must be a number",
        f"frame.json: line {line_of(lines, 1, '-3')}: /sections/0/dimensions/t (section 50): found -3, must be positive",
    ]
    assert told(aluframe) == expected
    for command in ("check", "analyse", "members", "report", "settings", "combinations"):
        assert told(aluframe, command) == expected, command


def test_faults_of_one_entity_are_told_each(aluframe, renumbered):
    renumbered["elements"][0] |= {"nodes": [1, 9], "kind": "rope", "beta": "x"}
    aluframe.write(renumbered)
    assert [line.split(": ")[2] for line in told(aluframe)] == [
        "/elements/0/nodes/1 (element 12)", "/elements/0/kind (element 12)", "/elements/0/beta (element 12)"]


def test_faults_of_a_combination_rule_and_of_actions_are_told_each(aluframe, renumbered):
    renumbered["load_cases"][0]["action"] = {"kind": "permanent", "favourable": "often", "reversible": 1}
    renumbered["combinations"] = {
        "rule": 68, "types": ["fundamental", "seldom"], "design_life": 0,
        "table": [{"kind": "wind", "gamma": -1.5, "psi_c": 5}, {"kind": "storm"}, {"kind": "snow", "category": "I", "gamma": 1.4},
                  {"kind": "snow", "category": "I", "gamma": 1.2}],
        "also": [{"number": 500, "terms": [{"case": 99}]}]}
    # Whether any of the combinations is for serviceability is not known.
    renumbered["deflection_limit"] = {"span": 180}
    aluframe.write(renumbered)
    assert [line.split(": ", 2)[2].split(":")[0].split(" (")[0] for line in told(aluframe)] == [
        "/load_cases/0/action/favourable", "/load_cases/0/action/reversible",
        "/combinations/rule", "/combinations/types/1", "/combinations/design_life",
        "/combinations/table/0/gamma", "/combinations/table/0/psi_c", "/combinations/table/1/kind", "/combinations/table/3",
        "/combinations/also/0/terms/0/case"]


def test_faults_of_restraints_are_told_each(aluframe, renumbered):
    renumbered["members"] = [{"number": 7, "elements": [12], "restraints": [
        {"holds": "left", "at": [1]}, {"holds": "z", "at": [99]}, {"holds": "z", "spacing": 1}, {"holds": "top", "at": [1]}]}]
    aluframe.write(renumbered)
    assert [line.split(": ", 2)[2].split(":")[0] for line in told(aluframe)] == [
        "/members/0/restraints/0/holds (member 7)", "/members/0/restraints/1/at/0 (member 7)",
        "/members/0/restraints/3/holds (member 7)"]


def test_faults_of_limits_and_of_wind_are_told_each(aluframe, renumbered):
    renumbered["deflection_limit"] = {"span": 5, "absolute": -1}
    renumbered["displacement_limits"] = [{"nodes": [2], "direction": "Q", "absolute": 0}]
    renumbered["load_cases"][0]["area"] = [{"elements": [12], "spacing": 1, "wind": {"w0": 0, "mu_sl": -1}}]
    aluframe.write(renumbered)
    places = [line.split(": ", 2)[2].split(":")[0].split(" (")[0] for line in told(aluframe)]
    assert sorted(places) == ["/deflection_limit/absolute", "/deflection_limit/span",
                              "/displacement_limits/0/absolute", "/displacement_limits/0/direction",
                              "/load_cases/0/area/0/wind", "/load_cases/0/area/0/wind", "/load_cases/0/area/0/wind/w0"]


@pytest.mark.parametrize("fault", [
    lambda model: model["nodes"][0].update(x="a"),
    lambda model: model["nodes"][0].update(number="one"),
    lambda model: model.pop("nodes"),
    lambda model: model.update(nodes={}),
    lambda model: model["sections"][0].update(shape="Q"),
    lambda model: model["materials"][0].update(alloy="steel"),
    lambda model: model["elements"][0].update(nods=model["elements"][0].pop("nodes")),
    lambda model: model.update(elemnts=model.pop("elements")),
    lambda model: model["load_cases"][0].update(kind="wild"),
    lambda model: model["units"].update(length="mile"),
    lambda model: model.update(catalogues=["none.csv"]),
    lambda model: model["members"][0].update(restraints=[{"holds": "z", "at": [1]}]) or model["sections"][0].update(shape="Q"),
    lambda model: model["members"][0].update(restraints=[{"holds": "top", "at": [1]}]) or model["nodes"][1].update(x="a"),
])
def test_what_follows_from_a_fault_is_not_told(aluframe, renumbered, fault):
    renumbered["members"] = [{"number": 1, "elements": [12]}]
    renumbered["load_cases"][0]["span"] = [{"elements": [12], "direction": "Z", "value": -1}]
    fault(renumbered)
    aluframe.write(renumbered)
    assert len(told(aluframe)) == 1


def test_a_section_of_a_catalogue_that_cannot_be_read_is_no_fault(aluframe, renumbered):
    renumbered["catalogues"] = ["none.csv"]
    renumbered["sections"] = [{"number": 50, "profile": "Rail"}]
    aluframe.write(renumbered)
    assert len(told(aluframe)) == 1


def test_a_number_that_is_taken_is_told_by_the_place_in_the_file(aluframe, renumbered):
    """Also behind an entity that could not be read."""
    renumbered["nodes"] = [{"number": 8, "x": "a", "y": 0, "z": 0}, *renumbered["nodes"],
                           {"number": 2, "x": 0, "y": 0, "z": 9}, {"number": 8, "x": 0, "y": 0, "z": 9}]
    aluframe.write(renumbered)
    assert [line.split(": ", 2)[2] for line in told(aluframe)] == [
        '/nodes/0/x (node 8): found "a", must be a number',
        "/nodes/3/number (node 2): number 2 is taken by /nodes/2",
        "/nodes/4/number (node 8): number 8 is taken by /nodes/0"]


@pytest.mark.parametrize("count, has_more", [(20, False), (21, True), (5000, True)])
def test_at_most_twenty_faults_are_told_the_first_of_the_file(aluframe, renumbered, count, has_more):
    renumbered["nodes"] += [{"number": 100 + i, "x": 0, "y": 0, "z": "up"} for i in range(count)]
    aluframe.write(renumbered)
    lines = told(aluframe)
    assert [f"/nodes/{2 + i}/z (node {100 + i})" for i in range(20)] == [line.split(": ")[2] for line in lines[:20]]
    assert lines[20:] == (["frame.json: and more faults"] if has_more else [])


def test_a_fault_of_the_file_as_a_whole_stands_alone(aluframe, renumbered):
    renumbered["version"] = 3
    renumbered["nodes"][0]["x"] = "a"
    aluframe.write(renumbered)
    assert [line.split(": ", 2)[2] for line in told(aluframe)] == ["/version: found 3, must be 1"]


def test_magnitudes_that_are_hardly_meant_are_remarks_and_no_faults(aluframe, renumbered):
    """The same structure with coordinates in mm under "m", a web in m under "mm" and an angle in radians."""
    renumbered["nodes"][1]["x"] = 4000
    renumbered["sections"][0]["dimensions"] = {"D": 0.1, "t": 0.01}
    renumbered["elements"][0]["beta"] = 1.5708
    aluframe.write(renumbered)
    done = aluframe("validate", "frame.json")
    said = [line.strip() for line in done.stdout.splitlines() if "units, " in line]
    assert said[:3] == [
        "units, element 12: /elements/0: a span of 4000 m begins with element 12, usual are 100 mm to 500 m: are "
        'coordinates in a smaller unit than "m"?',
        "units, element 12: /sections/0: t of section 50 is 0.01 mm, walls of aluminium sections have 0.1 to 100 mm: are "
        'its dimensions in another unit than "mm"?',
        "units, element 12: /elements/0/beta: element 12 is turned by 1.5708°, a round angle if it were in radians "
        "(90°): beta is in degrees"]
    # Forces of 10 kNm on a rod as thin as a hair.
    assert [line.split(":")[1] for line in said[3:]] == [" /elements/0"]
    assert all(line in aluframe("check", "frame.json").stdout for line in said)
    assert "长" in aluframe("validate", "frame.json", "--lang", "zh").stdout
