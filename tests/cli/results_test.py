"""Listing of stored results: order, filters, formats, units."""

import csv
import io

import pytest


@pytest.fixture
def frame(aluframe, pipe_beam):
    """Three beams whose moments at midspan are 10, 30 and 20 kN·m."""
    pipe_beam["nodes"] += [{"number": n, "x": 4 * (n - 1), "y": 0, "z": 3} for n in (3, 4)]
    case = pipe_beam["forces"][0]
    pipe_beam["combinations"] = pipe_beam["combinations"][:1]
    pipe_beam["forces"] = [case]
    for number, factor in ((2, 3), (3, 2)):
        pipe_beam["elements"].append(
            {"number": number, "nodes": [number, number + 1], "section": 1, "material": 1})
        pipe_beam["forces"].append({
            "element": number, "case": 1,
            "values": [[value * factor for value in row] for row in case["values"]]})
    aluframe.write(pipe_beam)
    aluframe("check", "frame.json")
    return aluframe


def listed(aluframe, *arguments):
    rows = aluframe.json("results", "frame.json", *arguments)
    return list(dict.fromkeys(row["element"] for row in rows))


def test_elements_are_listed_by_number(frame):
    assert listed(frame) == [1, 2, 3]


def test_elements_can_be_sorted_by_ratio_and_by_check(frame):
    assert listed(frame, "--sort", "ratio") == [2, 3, 1]
    assert listed(frame, "--sort", "shear-z") == [2, 3, 1]


def test_top_keeps_the_first_ones_of_the_order(frame):
    assert listed(frame, "--sort", "ratio", "--top", "2") == [2, 3]


def test_over_keeps_the_elements_above_a_ratio(frame):
    # 10 kN·m gives 1e7/57962.4/200 = 0.863; 20 and 30 kN·m are over 1.
    assert listed(frame, "--over", "1.0") == [2, 3]
    assert listed(frame, "--over", "0.8") == [1, 2, 3]


def test_elements_can_be_chosen(frame):
    assert listed(frame, "--elements", "1,3") == [1, 3]


def test_csv_has_one_row_for_each_element_and_check(frame):
    rows = list(csv.DictReader(io.StringIO(frame("results", "frame.json", "--format", "csv").stdout)))
    assert {row["item"] for row in rows} == {
        "strength", "shear y", "shear z", "stability", "slenderness y", "slenderness z"}
    assert all(float(row["ratio"]) == pytest.approx(
        float(row["demand"]) / float(row["capacity"])) for row in rows if row["capacity"])


def test_stresses_can_be_shown_in_other_units(frame):
    plain = frame.json("results", "frame.json")[0]
    scaled = frame.json("results", "frame.json", "--units", "kN,m")[0]
    # 1 N/mm² is 1000 kN/m².
    assert scaled["demand"] == pytest.approx(1000 * plain["demand"], rel=1e-12)
    assert scaled["unit"] == "kN/m²"
    assert "--units" in frame("results", "frame.json", "--units", "kN", status=1).stderr


def test_the_overview_has_one_line_for_each_element(frame):
    lines = frame("results", "frame.json", "--sort", "ratio").stdout.splitlines()
    assert lines[0].split()[:3] == ["element", "type", "strength"]
    assert [line.split()[0] for line in lines[2:5]] == ["2", "3", "1"]
    assert lines[5] == "" and "  not checked" in lines[6:]


def test_results_can_be_written_to_a_file(frame):
    frame("results", "frame.json", "--format", "csv", "--output", "out.csv")
    assert (frame.folder / "out.csv").read_text().startswith("element,member_type,item,")
    assert "cannot be written" in frame(
        "results", "frame.json", "--output", "missing/out.csv", status=2).stderr


def test_a_file_that_is_no_result_file_is_refused(frame):
    (frame.folder / "other.aluresult").write_text("no database")
    assert "other.aluresult" in frame("results", "other.aluresult", status=1).stderr


@pytest.mark.parametrize("arguments, word", [
    (["--combinations", "1"], "--element"),
    (["--element", "1", "--sort", "ratio"], "--element"),
    (["--element", "1", "--top", "3"], "--element"),
    (["--element", "1", "--combinations", "99"], "no result of a combination 99"),
    (["--top", "-1"], "whole number"),
])
def test_options_that_do_not_go_together_are_refused(frame, arguments, word):
    assert word in frame("results", "frame.json", *arguments, status=1).stderr


def test_a_table_never_takes_the_place_of_its_input(frame):
    before = (frame.folder / "frame.json").read_bytes()
    for target in ("frame.json", "frame.aluresult", "./frame.json"):
        error = frame("results", "frame.json", "--output", target, status=1).stderr
        assert "which the table would overwrite; choose another file" in error
    assert (frame.folder / "frame.json").read_bytes() == before


def test_an_element_without_results_is_refused(frame):
    assert "no result of element 99" in frame(
        "results", "frame.json", "--element", "99", status=1).stderr
