"""Where remarks stand: once in a line, in every command, in JSON and the result file, and on one element."""

import csv
import io
import sqlite3

import pytest

from program import ROOT
from second_opinion_models import beam, h200, with_forces

EXTREMES = ("combination 7: checked by extremes (\"envelopes\": \"extremes\"), whose forces need not act together; "
            "the ratio of a state in it may be higher")


@pytest.fixture
def extremes(aluframe, pipe_beam):
    pipe_beam["combinations"] = [
        {"number": 7, "name": "Extremes", "kind": "envelope", "terms": [{"case": 1}, {"case": 2}]}]
    pipe_beam["envelopes"] = "extremes"
    aluframe.write(pipe_beam)
    return aluframe


@pytest.mark.parametrize("command", ["check", "validate", "report", "results"])
def test_extremes_are_a_remark_like_others(extremes, command):
    extremes("check", "frame.json")
    done = extremes(command, "frame.json")
    assert f"  remarks\n    extremes: {EXTREMES}\n" in done.stdout
    assert "extremes" not in done.stderr


def test_json_and_the_result_file_have_the_remark_on_extremes(extremes):
    run = extremes.json("check", "frame.json")[0]
    kinds = [row["kind"] for row in run["remarks"]]
    assert "extremes" in kinds and run["remark_count"] == len(kinds)
    database = sqlite3.connect(extremes.folder / "frame.aluresult")
    assert (EXTREMES, "") in database.execute("SELECT text, elements FROM remark WHERE kind = 'extremes'").fetchall()
    database.close()


def two_pipes():
    """Element 1 is the slender pipe 200x2 (100 over 12000/240 = 50), element 2 twisted."""
    model = with_forces(beam("P 200x2", 4), [0, 0, 0, 0, 5, 0])
    model["sections"].append({"number": 2, "profile": "P 100x10"})
    model["nodes"].append({"number": 3, "x": 8, "y": 0, "z": 3})
    model["supports"] = [*model["supports"], {"node": 3, "restrained": ["Dy", "Dz"]}]
    model["elements"].append({"number": 2, "nodes": [2, 3], "section": 2, "material": 1})
    model["forces"].append({"element": 2, "case": 1, "values": [[0, 0, 0, 2, 5, 0]] * 5})
    return model


@pytest.fixture
def pipes(aluframe):
    aluframe.write(two_pipes())
    aluframe("check", "frame.json")
    return aluframe


def test_one_element_has_its_own_remarks(pipes):
    assert "  remarks\n    B12, element 1: slender plates" in pipes("results", "frame.json", "--element", 1).stdout
    assert "B12" not in pipes("results", "frame.json", "--element", 2).stdout


def test_what_is_not_checked_of_one_element_has_its_second_opinion(pipes):
    whole = pipes("results", "frame.json").stdout
    opinion = next(line for line in whole.splitlines() if line.startswith("      second opinion "))
    out = pipes("results", "frame.json", "--element", 2).stdout
    assert opinion in out.partition("  not checked\n")[2].splitlines()


@pytest.mark.parametrize("form", ["json", "csv"])
def test_rows_of_results_name_the_kinds_of_their_remarks(pipes, form):
    text = pipes("results", "frame.json", "--format", form).stdout
    rows = pipes.json("results", "frame.json") if form == "json" else list(csv.DictReader(io.StringIO(text)))
    assert {(int(row["element"]), row["remark_kinds"]) for row in rows} == {(1, "B12"), (2, "C6")}


def test_a_remark_on_the_model_is_one_on_every_element(extremes):
    extremes("check", "frame.json")
    assert all("extremes" in row["remark_kinds"] for row in extremes.json("results", "frame.json"))
    assert EXTREMES in extremes("results", "frame.json", "--element", 1).stdout


def test_remarks_can_be_had_alone(pipes):
    rows = pipes.json("results", "frame.json", "--remarks")
    assert [(row["kind"], row["elements"]) for row in rows] == [("B12", "1"), ("C6", "2")]
    assert rows[1]["second_opinion"] > 0 and rows[1]["element"] == 2
    assert rows == pipes.json("check", "frame.json")[0]["remarks"]
    assert [row["kind"] for row in pipes.json("results", "frame.json", "--remarks", "--element", 2)] == ["C6"]
    assert "no result of element 9" in pipes("results", "frame.json", "--remarks", "--element", 9, status=1).stderr
    table = pipes("results", "frame.json", "--remarks", "--format", "csv").stdout
    assert [row["text"] for row in csv.DictReader(io.StringIO(table))] == [row["text"] for row in rows]
    assert "--not-checked excludes --remarks" in pipes(
        "results", "frame.json", "--remarks", "--not-checked", status=1).stderr


def test_a_remark_names_its_elements_once(aluframe):
    """Twenty slender pipes, with gaps: the text of the remark says nothing of them again."""
    model = with_forces(beam("P 200x2", 4), [0, 0, 0, 0, 5, 0])
    element = model["elements"][0]
    model["elements"] = [{**element, "number": number} for number in range(1, 2000, 2)]
    model["supports"] = [{"node": 1, "restrained": "all"}, {"node": 2, "restrained": "all"}]
    model["forces"] = [{**model["forces"][0], "element": of["number"]} for of in model["elements"]]
    aluframe.write(model)
    for command in ("validate", "check"):
        out = aluframe(command, "frame.json").stdout
        line = next(line for line in out.splitlines() if line.startswith("    B12, "))
        shown, _, text = line.partition(": ")
        # 60 characters are 1, 3, ... 27, 29, 31: "1, 3, 5, 7, 9" and fours with a blank.
        assert shown == "    B12, element 1, 3, 5, 7, 9, 11, 13, 15, 17, 19, 21, 23, 25, 27, 29, 31 and 984 more"
        assert "element" not in text
    row = aluframe.json("check", "frame.json")[0]["remarks"][0]
    assert row["elements"] == ", ".join(str(number) for number in range(1, 2000, 2))
    assert aluframe("results", "frame.json", "--remarks").stdout.count(", 1999: ") == 1


def test_free_ends_within_the_frame_ask_for_no_hand_check_that_the_safe_ratio_makes(aluframe):
    """Two open beams end at a node without support, where they meet."""
    model = h200(0, 5)
    model["nodes"].append({"number": 3, "x": 8, "y": 0, "z": 3})
    model["supports"] = [{"node": 1, "restrained": "all"}, {"node": 3, "restrained": "all"}]
    model["elements"].append({**model["elements"][0], "number": 2, "nodes": [2, 3]})
    model["members"] = [{"number": 1, "elements": [1]}, {"number": 2, "elements": [2]}]
    model["forces"].append({**model["forces"][0], "element": 2})
    out = aluframe("check", aluframe.write(model)).stdout
    line = next(line for line in out.splitlines() if line.startswith("    S6, element 1-2: "))
    assert "by hand" not in line and "check" not in line and "the safe ratio takes the length itself" in line


# Of every example what the documents count, by its shapes: chords of 2C and welded posts with ribs; T and C.
@pytest.mark.parametrize("name, kinds", [
    ("mullion-transom", []), ("platform-roof", []),
    ("footbridge", ["B11", "B12", "S6"]), ("portal-bracket", ["W5", "B12", "S6", "length"])])
def test_an_ordinary_frame_has_few_warnings(aluframe, name, kinds):
    out = aluframe("validate", ROOT / "examples" / f"{name}.json").stdout.partition("  remarks\n")[2]
    assert [line.strip().partition(",")[0] for line in out.splitlines()] == kinds
