"""Warnings of load cases that no checked combination contains."""

import sqlite3

import pytest

from second_opinion_models import beam

WARNING = ("cases: no checked combination contains load case 2: its loads and forces have no part in any ratio; "
           "add it to the combinations\n")


def under_two_cases(*terms):
    """1 kN/m downwards, and 2 kN/m, which only `terms` may name."""
    model = beam("P 100x10", 4)
    model["load_cases"] = [
        {"number": number, "name": f"L{number}", "span": [{"elements": [1], "direction": "Z", "value": -number}]}
        for number in (1, 2)]
    model["combinations"][0]["terms"] += terms
    return model


@pytest.mark.parametrize("command", ["validate", "check"])
def test_a_loaded_case_that_no_combination_names_is_warned_of(aluframe, command):
    assert WARNING in aluframe(command, aluframe.write(under_two_cases())).stdout


def test_the_result_file_keeps_the_warning(aluframe):
    aluframe("check", aluframe.write(under_two_cases()))
    with sqlite3.connect(aluframe.folder / "frame.aluresult") as results:
        assert results.execute("SELECT elements FROM remark WHERE kind = 'cases'").fetchall() == [("",)]


def test_a_case_in_an_envelope_within_a_combination_is_not(aluframe):
    model = under_two_cases({"combination": 2})
    model["combinations"].append({"number": 2, "kind": "envelope", "design": False,
                                  "terms": [{"case": 2}, {"case": 1, "factor": 0}]})
    for command in ("validate", "check"):
        assert "load case 2" not in aluframe(command, aluframe.write(model)).stdout


def test_forces_given_for_such_a_case_are_warned_of(aluframe):
    model = under_two_cases()
    for case in model["load_cases"]:
        del case["span"]
    model["forces"] = [{"element": 1, "case": case, "values": [[0, 0, 0, 0, 1, 0]] * 5} for case in (1, 2)]
    assert WARNING in aluframe("validate", aluframe.write(model)).stdout


def test_a_model_without_combinations_is_not_checked_and_says_just_that(aluframe):
    model = under_two_cases()
    del model["combinations"]
    assert "load case 2" not in aluframe("validate", aluframe.write(model)).stdout
    refused = aluframe("check", "frame.json", status=1)
    assert "the model has no load combination for design" in refused.stderr
