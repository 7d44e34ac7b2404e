"""`aluframe combinations`: shown, explained, written into the file; and what a rule refuses, with its place."""

import csv
import io
import json

import pytest
from program import by_path

RULE = "GB 50068-2018"
WIND = {"kind": "wind", "exclusive": "wind"}


def model_of(pipe_beam, actions, combinations):
    pipe_beam["load_cases"] = [{"number": number, "name": name, "action": action}
                               for number, (name, action) in enumerate(actions, 1)]
    pipe_beam["combinations"] = combinations
    pipe_beam["forces"] = [{"element": 1, "case": number, "values": [[0, 0, 0, 0, number, 0]] * 5}
                           for number in range(1, len(actions) + 1)]
    return pipe_beam


@pytest.fixture
def windy(pipe_beam):
    actions = [("G", {"kind": "permanent"}), ("Wl", WIND), ("Wr", WIND), ("E", {"kind": "earthquake"})]
    return model_of(pipe_beam, actions, {"rule": RULE, "types": ["fundamental", "seismic"]})


def names(rows):
    return [row["combination"] for row in rows]


FUNDAMENTAL = ["1.3G+1.5Wl", "G+1.5Wl", "1.3G+1.5Wr", "G+1.5Wr", "1.3G", "G"]
SEISMIC = ["1.2G+1.3E", "1.2G-1.3E", "G+1.3E", "G-1.3E"]


def test_combinations_of_the_rule_are_listed_with_their_types(aluframe, windy):
    aluframe.write(windy)
    rows = aluframe.json("combinations", "frame.json")
    assert names(rows) == FUNDAMENTAL + SEISMIC
    assert [row["number"] for row in rows] == [1001, 1002, 1003, 1004, 1005, 1006, 2001, 2002, 2003, 2004]
    assert [row["seismic"] for row in rows] == [False] * 6 + [True] * 4
    assert all(row["design"] for row in rows)


def test_csv_has_the_same_rows(aluframe, windy):
    aluframe.write(windy)
    rows = list(csv.DictReader(io.StringIO(aluframe("combinations", "frame.json", "--format", "csv").stdout)))
    assert names(rows) == FUNDAMENTAL + SEISMIC


def test_an_explanation_names_what_leads_and_what_accompanies(aluframe, pipe_beam):
    actions = [("G", {"kind": "permanent"}), ("S", {"kind": "snow", "category": "I"}), ("W", {"kind": "wind"})]
    aluframe.write(model_of(pipe_beam, actions, {"rule": RULE}))
    rows = aluframe.json("combinations", "frame.json", "--explain")
    row = next(row for row in rows if row["combination"] == "G+1.5W+0.7·1.5S")
    assert (row["unfavourable"], row["favourable"]) == (None, "G")
    assert (row["leading"], row["accompanying"]) == ("1.5W", "0.7·1.5S")


def test_a_rule_of_the_command_goes_before_that_of_the_file(aluframe, windy):
    aluframe.write(windy)
    rows = aluframe.json("combinations", "frame.json", "--rule", "JGJ 102-2003")
    assert "1.35G" in names(rows)


def test_combinations_of_the_file_stay_beside_those_of_the_rule(aluframe, windy):
    own = {"number": 1, "name": "mine", "terms": [{"case": 1, "factor": 2}, {"case": 2, "factor": -1}]}
    windy["combinations"]["also"] = [own]
    aluframe.write(windy)
    rows = aluframe.json("combinations", "frame.json")
    assert names(rows) == ["mine: 2G-Wl"] + FUNDAMENTAL + SEISMIC


def test_writing_keeps_every_other_byte(aluframe, windy):
    windy["combinations"] = "HERE"
    text = json.dumps(windy, indent=3)
    path = aluframe.write(text.replace('"HERE"', json.dumps({"rule": RULE, "types": ["seismic"]})))
    done = aluframe("combinations", "frame.json", "--write")
    assert done.stderr == "4 combinations written\n"
    before, behind = text.split('"HERE"')
    written = path.read_text(encoding="utf-8")
    assert written.startswith(before + "[") and written.endswith("]" + behind)
    listed = json.loads(written)["combinations"]
    assert [each["name"] for each in listed] == SEISMIC
    assert listed[0] == {"number": 2001, "name": "1.2G+1.3E", "seismic": True,
                         "terms": [{"case": 1, "factor": 1.2}, {"case": 4, "factor": 1.3}]}


def test_written_combinations_stand_behind_those_of_the_file(aluframe, windy):
    own = {"number": 1, "name": "mine", "terms": [{"case": 1}]}
    windy["combinations"] = [own]
    path = aluframe.write(windy)
    aluframe("combinations", "frame.json", "--rule", RULE, "--write")
    listed = json.loads(path.read_text(encoding="utf-8"))["combinations"]
    assert listed[0] == own
    assert [each["name"] for each in listed[1:7]] == FUNDAMENTAL


def test_a_model_without_a_rule_is_not_written(aluframe, pipe_beam):
    path = aluframe.write(pipe_beam)
    before = path.read_bytes()
    done = aluframe("combinations", "frame.json", "--write")
    assert done.stderr == "frame.json: no rule makes combinations; nothing to change\n"
    assert path.read_bytes() == before


@pytest.mark.parametrize(("case", "action", "message"), [
    (1, {"kind": "storm"}, '/load_cases/1/action/kind: found "storm", must be one of permanent, prestress, '
                           "settlement, live, snow, wind, temperature, construction, earthquake, accidental, none"),
    (1, {"kind": "wind", "exclusive": "alone"},
     '/load_cases/1/action/exclusive: the exclusive group "alone" has no other case'),
    (1, {"kind": "wind", "together_with": 2},
     "/load_cases/1/action/together_with: cases act together in a circle: 2 → 2"),
    (1, {"kind": "wind", "together_with": 9}, "/load_cases/1/action/together_with: load case 9 does not exist"),
    (0, {"kind": "live"}, '/load_cases/0/action: missing field "category": live is one of residence, office'),
    (0, {"kind": "permanent", "exclusiv": "a"}, '/load_cases/0/action/exclusiv: unknown field, did you mean "exclusive"'),
])
def test_a_bad_action_is_refused_with_its_place(aluframe, windy, case, action, message):
    windy["load_cases"][case]["action"] = action
    if case == 1:
        windy["load_cases"][2]["action"] = {"kind": "wind"}
    aluframe.write(windy)
    done = aluframe("validate", "frame.json", status=1)
    assert by_path(done.stderr).startswith("frame.json: " + message)
    assert done.stderr.count("\n") == 1


def test_a_case_without_an_action_is_named_when_a_rule_asks_for_it(aluframe, pipe_beam):
    aluframe.write(pipe_beam)
    done = aluframe("combinations", "frame.json", "--rule", RULE, status=1)
    assert by_path(done.stderr).startswith('frame.json: /load_cases/0: missing field "action"')


def test_an_unknown_rule_is_refused_with_those_that_are_known(aluframe, windy):
    aluframe.write(windy)
    done = aluframe("combinations", "frame.json", "--rule", "GB 50068", status=1)
    assert done.stderr == 'frame.json: --rule: found "GB 50068", must be one of GB 50068-2018, JGJ 102-2003\n'


def test_a_check_takes_combinations_of_the_rule_as_those_that_are_written(aluframe, windy):
    aluframe.write(windy, "rule.json")
    aluframe.write(windy, "written.json")
    aluframe("combinations", "written.json", "--write")
    for name in ("rule", "written"):
        aluframe("check", f"{name}.json")
    by_rule, written = (aluframe.json("results", f"{name}.json", "--element", 1) for name in ("rule", "written"))
    assert by_rule == written
    assert len(by_rule) > 0


def test_serviceability_combinations_are_not_checked(aluframe, windy):
    windy["combinations"] = {"rule": RULE, "types": ["fundamental", "characteristic"]}
    aluframe.write(windy)
    aluframe("check", "frame.json")
    rows = aluframe.json("results", "frame.json", "--element", 1)
    assert {row["combination"] for row in rows} <= set(range(1001, 1007))
