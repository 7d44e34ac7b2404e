"""What `report` tells beside the report itself, on the screen and behind the readable copy, as `check` tells it."""

import pytest

from program import PIPE_W

from report_frames import checked_three_beams
from second_opinion_models import h200

ENVELOPE = {"number": 7, "name": "Extremes", "kind": "envelope", "terms": [{"case": 1}, {"case": 2}]}


@pytest.fixture(autouse=True)
def utf8(monkeypatch):
    monkeypatch.setenv("LC_ALL", "C.UTF-8")


def told(text):
    """The lines of the safe ratio and behind, as far as "results"."""
    start = text.index("  safe ratio ")
    return text[start:].partition("  results ")[0].partition("Readable copy")[0]


def ratios(text):
    """The lines of the worst ratio and of what is over 1, as far as the place of failures."""
    return [line.partition(", 0 of which")[0] for line in text.splitlines()
            if line.startswith(("  worst ratio ", "  over 1 "))]


def appendix(aluframe):
    text = (aluframe.folder / "frame.txt").read_text(encoding="utf-8")
    return text.partition("Second opinion (no part of the calculation report")[2]


@pytest.fixture
def hogging(aluframe):
    """A beam under a moment that hogs: 0.68 in the checks, over 1 by the second opinion."""
    aluframe.write(h200(0, -30))
    return aluframe


@pytest.mark.parametrize("is_checked_before", [False, True])
def test_a_report_tells_the_safe_ratio_as_a_check_does(hogging, is_checked_before):
    checked = told(hogging("check", "frame.json").stdout)
    assert "safe over 1   1 element, 1 of which no check says so\n" in checked
    if not is_checked_before:
        (hogging.folder / "frame.aluresult").unlink()
    assert told(hogging("report", "frame.json").stdout) == checked


@pytest.mark.parametrize("is_checked_before", [False, True])
def test_a_report_ends_with_the_worst_ratio_as_a_check_does(aluframe, pipe_beam, is_checked_before):
    frame = checked_three_beams(aluframe, pipe_beam)
    checked = ratios(frame("check", "frame.json").stdout)
    # Uniform load on 4 m: M = 30 kN·m in the middle of element 1003, 20 of 1002: both over f = 200.
    ratio = 3e7 / PIPE_W / 200
    assert checked == [
        f'  worst ratio   {ratio:.4f} (strength), element 1003, position 1/2, combination 1 "ULS"',
        "  over 1        2 elements"]
    if not is_checked_before:
        (frame.folder / "frame.aluresult").unlink()
    done = frame("report", "frame.json")
    assert ratios(done.stdout) == checked
    assert "\nCombinations: 1-2\n" in done.stdout


def test_the_ratios_are_those_of_the_reported_elements_alone(aluframe, pipe_beam):
    frame = checked_three_beams(aluframe, pipe_beam)
    assert "  over 1        0 elements\n" in frame("report", "frame.json", "--elements", "1").stdout
    out = frame("report", "frame.json", "--elements", "1-1002", "--readable", "frame.txt").stdout
    assert ", element 1002, position 1/2, " in ratios(out)[0] and ratios(out)[1] == "  over 1        1 element"
    assert ratios(appendix(frame)) == ratios(out)


# --strict, as that of a check

@pytest.mark.parametrize("elements, status", [("1", 0), ("1-1002", 4)])
@pytest.mark.parametrize("strict", ["--strict", "--strict=checks"])
def test_strict_fails_when_a_check_of_a_reported_element_does(aluframe, pipe_beam, strict, elements, status):
    frame = checked_three_beams(aluframe, pipe_beam)
    frame("report", "frame.json", "--elements", elements, status=0)
    (frame.folder / "frame.alu").unlink()
    done = frame("report", "frame.json", "--elements", elements, strict, status=status)
    assert "complete: frame.alu\n" in done.stdout and (frame.folder / "frame.alu").exists()


def test_strict_safe_looks_at_the_second_opinion(hogging):
    hogging("check", "frame.json")
    hogging("report", "frame.json", "--strict")
    hogging("report", "frame.json", "--strict=safe", status=4)


def test_strict_safe_fails_on_what_nothing_has_checked(aluframe, pipe_beam):
    frame = checked_three_beams(aluframe, pipe_beam)
    frame.model["forces"] = [row for row in frame.model["forces"] if row["element"] == 1]
    frame.write(frame.model)
    frame("check", "frame.json", "--strict=safe", status=4)
    frame("report", "frame.json", "--strict")
    frame("report", "frame.json", "--strict=safe", status=4)


def test_strict_safe_without_a_second_opinion_in_the_results_is_refused(hogging):
    hogging("check", "frame.json", "--second-opinion", "off")
    done = hogging("report", "frame.json", "--strict=safe", status=1)
    assert done.stderr == ("--strict=safe looks at safe ratios, and frame.aluresult has none: check the model "
                           "again without --second-opinion off\n")
    assert not (hogging.folder / "frame.alu").exists()


def test_a_strictness_that_does_not_exist_is_refused(hogging):
    error = hogging("report", "frame.json", "--strict=all", status=1).stderr
    assert "--strict" in error and "all" in error and "checks, safe" in error


def test_a_report_tells_the_remarks_as_a_check_does(aluframe):
    aluframe.write(h200(1))  # a little tension beside bending
    checked = told(aluframe("check", "frame.json").stdout)
    assert "  remarks\n    C1, element 1: bending beside tension" in checked
    assert told(aluframe("report", "frame.json").stdout) == checked


def two_beams():
    """Element 2 hogs, element 1 does not."""
    model = h200(0, -30)
    model["nodes"].append({"number": 3, "x": 8, "y": 0, "z": 3})
    model["supports"] = [*model["supports"], {"node": 3, "restrained": ["Dy", "Dz"]}]
    model["elements"].append({**model["elements"][0], "number": 2, "nodes": [2, 3]})
    model["forces"].append({**model["forces"][0], "element": 2})
    model["forces"][0] = {**model["forces"][0], "values": [[0, 0, 0, 0, 1, 0]] * 5}
    return model


def test_a_report_of_some_elements_tells_of_these_alone(aluframe):
    aluframe.write(two_beams())
    aluframe("check", "frame.json")
    of_one = aluframe("report", "frame.json", "--elements", 1, "--readable", "frame.txt").stdout
    assert "safe over 1   0 elements" in of_one and "element 2" not in of_one
    assert "element 2" not in appendix(aluframe)
    assert "safe over 1   1 element, 1 of" in aluframe("report", "frame.json", "--elements", 2).stdout


def test_the_readable_copy_says_what_is_covered_and_by_which_combinations(aluframe, pipe_beam):
    pipe_beam["combinations"].append(ENVELOPE)
    aluframe.write(pipe_beam)
    aluframe("check", "frame.json")
    aluframe("report", "frame.json", "--readable", "frame.txt")
    # States of the envelope: case 1, which combination 1 stands for, and case 2.
    assert ("Covered: elements 1 of 1, combinations 3 of 3 (as 3 states), forces: given forces\n"
            "Combinations: 1-2, 7\n") in appendix(aluframe)
    aluframe("check", "frame.json", "--combinations", 2)
    aluframe("report", "frame.json", "--readable", "frame.txt")
    assert "combinations 1 of 3, forces: given forces\nCombinations: 2\n" in appendix(aluframe)


def test_the_readable_copy_tells_of_extremes(aluframe, pipe_beam):
    pipe_beam |= {"combinations": [ENVELOPE], "envelopes": "extremes"}
    aluframe.write(pipe_beam)
    aluframe("check", "frame.json")
    aluframe("report", "frame.json", "--readable", "frame.txt")
    assert "    extremes: combination 7: checked by extremes" in appendix(aluframe)


def test_without_a_second_opinion_the_readable_copy_tells_the_rest_and_that(aluframe, pipe_beam):
    for values in pipe_beam["forces"][0]["values"]:
        values[3] = 1  # torsion
    pipe_beam["sections"][0]["dimensions"] = {"D": 200, "t": 2}  # D/t = 100 of 12000/240 = 50
    aluframe.write(pipe_beam)
    aluframe("check", "frame.json", "--second-opinion", "off")
    aluframe("report", "frame.json", "--readable", "frame.txt")
    text = appendix(aluframe)
    assert "second opinion: off\n" in text
    assert "  safe ratio    none: the check was made with --second-opinion off\n" in text
    assert "    B12, element 1: slender plates" in text
    assert "  not checked\n" in text and "largest Mx 1 kN·m at element 1" in text


def test_elements_added_to_results_without_a_second_opinion_have_none_either(aluframe):
    aluframe.write(two_beams())
    aluframe("check", "frame.json", "--elements", 1, "--second-opinion", "off")
    done = aluframe("report", "frame.json")
    assert "checked for the report" in done.stderr and "safe over 1" not in done.stdout
    assert "second opinion: off\n" in done.stdout


def test_the_lists_of_the_readable_copy_are_whole(aluframe):
    """Fifty elements with torsion, every second one: a list too long for a line of the screen."""
    model = h200(0, 1)
    count = 100
    model["nodes"] = [{"number": n, "x": n, "y": 0, "z": 3} for n in range(1, count + 2)]
    model["supports"] = [{"node": n, "restrained": "all"} for n in range(1, count + 2)]
    element = model["elements"][0]
    model["elements"] = [{**element, "number": n, "nodes": [n, n + 1]} for n in range(1, count + 1)]
    model["forces"] = [{"element": n, "case": 1, "values": [[0, 0, 0, n % 2, 1, 0]] * 5} for n in range(1, count + 1)]
    aluframe.write(model)
    out = aluframe("check", "frame.json").stdout
    line = next(line for line in out.splitlines() if line.endswith(": torsion"))
    assert len(line) < 100 and line.startswith("    element 1, 3, 5,") and line.endswith(" more: torsion")
    named = len(line.partition(" and ")[0].split(","))
    assert f" and {50 - named} more: " in line
    aluframe("report", "frame.json", "--readable", "frame.txt")
    whole = ", ".join(str(n) for n in range(1, count + 1, 2))
    assert f"    element {whole}: torsion\n" in appendix(aluframe)
    group = aluframe.json("check", "frame.json")[0]["not_checked_groups"]
    assert whole in [row["elements"] for row in group]
