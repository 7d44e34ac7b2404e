"""What `--strict=safe` fails on, and that it cannot be made to see nothing."""

import sqlite3

import pytest

from second_opinion_models import beam, h200, hidden  # noqa: F401 (a fixture)

OFF = ("--second-opinion", "off")


def loaded(values):
    """The pipe of 4 m under 6 kN/m: M = 6·4²/8 = 12 kN·m in the middle, 1.035 of f = 200 over 57962 mm³."""
    model = beam("P 100x10", 4)
    model["load_cases"][0]["span"] = [{"elements": [1], "direction": "Z", "value": -6}]
    if values:
        model["forces"] = [{"element": 1, "case": 1, "values": values}]
    return model


ENDS = [[0, 0, 12, 0, 0, 0], [0, 0, -12, 0, 0, 0]]


@pytest.mark.parametrize("way", ["model", "table"])
def test_forces_at_the_ends_of_a_loaded_element_are_remarked(aluframe, way):
    assert "1.03" in aluframe("check", aluframe.write(loaded(None)), "--strict", status=4).stdout
    more = []
    if way == "table":
        aluframe.write("element,case,position,N,Fy,Fz,Mx,My,Mz\n1,1,0,0,0,12,0,0,0\n1,1,4,0,0,-12,0,0,0\n", "f.csv")
        more = ["--forces", "f.csv"]
    aluframe.write(loaded(ENDS if way == "model" else None))
    # Nothing acts at the ends that a check is for.
    done = aluframe("check", "frame.json", *more, status=2)
    assert ("    ends, element 1: load case 1 has forces at the two ends only, while loads act between them: "
            "nothing is known there, give five rows\n") in done.stdout


def test_what_is_unknown_between_the_ends_fails_strict_safe(aluframe):
    rows = [[-1, *row[1:]] for row in ENDS]
    aluframe.write(loaded(rows))
    aluframe("check", "frame.json", "--strict")
    done = aluframe("check", "frame.json", "--strict=safe", status=4)
    assert "    ends, element 1: load case 1 has forces at the two ends only" in done.stdout
    assert "over 1        0 elements\n" in done.stdout and "safe over 1   0 elements" in done.stdout


def test_strict_safe_passes_where_everything_is_known_and_sound(aluframe):
    aluframe.write(h200(0, 5))
    aluframe("check", "frame.json", "--strict=safe")


def test_strict_safe_without_a_second_opinion_is_refused(hidden):  # noqa: F811
    error = hidden("check", "frame.json", "--strict=safe", *OFF, status=1).stderr
    assert error == ("--strict=safe looks at safe ratios, which --second-opinion off leaves out: "
                     "give one of the two\n")
    assert not (hidden.folder / "frame.aluresult").exists()


# That there is none is said wherever results are shown.

def test_a_check_without_a_second_opinion_says_so(hidden):  # noqa: F811
    none = "  safe ratio    none: the check was made with --second-opinion off\n"
    assert none in hidden("check", "frame.json", *OFF).stdout
    assert none in hidden("report", "frame.json").stdout
    assert "safe ratio    none" not in hidden("check", "frame.json").stdout


def test_results_without_a_second_opinion_say_so(hidden):  # noqa: F811
    hidden("check", "frame.json", *OFF)
    said = "frame.aluresult: covered are elements 1 of 1, combinations 1 of 1, forces: given forces, second opinion: off\n"
    assert hidden("results", "frame.json").stdout.endswith(", second opinion: off\n")
    for more in (["--element", 1], ["--format", "csv"], ["--format", "json"], ["--not-checked"]):
        assert said in hidden("results", "frame.json", *more).stderr, more
    assert {row["second_opinion"] for row in hidden.json("results", "frame.json")} == {"off"}


@pytest.mark.parametrize("more, expected", [([], "on"), (OFF, "off")])
def test_json_and_the_result_file_say_whether_there_was_a_second_opinion(hidden, more, expected):  # noqa: F811
    assert hidden.json("check", "frame.json", *more)[0]["second_opinion"] == expected
    assert {row["second_opinion"] for row in hidden.json("results", "frame.json")} == {expected}
    database = sqlite3.connect(hidden.folder / "frame.aluresult")
    rows = database.execute("SELECT value, origin FROM setting WHERE key = 'second_opinion'").fetchall()
    database.close()
    assert rows == ([("off", "--second-opinion off")] if more else [])
