"""Every line of an explanation gives its result, and all of them together the stored ratio."""

import json
import math
import shutil

import pytest
from explain_lines import column_coefficient, gives, lines_of, worked_out
from loaded_beam import UNIFORM, cases
from program import PIPE_AREA, PIPE_I, PIPE_W, ROOT, Program

EXAMPLES = ["portal-bracket", "platform-roof", "mullion-transom", "footbridge"]


@pytest.fixture(scope="module", params=EXAMPLES)
def example(request, tmp_path_factory):
    """A checked example and its governing rows."""
    folder = tmp_path_factory.mktemp(request.param)
    shutil.copy(ROOT / "examples" / f"{request.param}.json", folder / "frame.json")
    program = Program(folder)
    program("check", "frame.json")
    return program, program.json("results", "frame.json")


@pytest.fixture
def beam(aluframe, pipe_beam):
    aluframe.write(pipe_beam)
    aluframe("check", "frame.json")
    return aluframe


def explained(program, row):
    item = row["item"].replace(" ", "-")
    return program.json("explain", "frame.json", "--element", row["element"], "--item", item)


def assert_line_holds(step):
    """Its numbers give its result, and so does its formula with the values that it follows from."""
    where = f"{step['symbol']} = {step['formula']} = {step['numbers']} = {step['result']}"
    assert gives(step["numbers"], step["result"]), where


def assert_steps_hold(steps):
    values = {step["symbol"]: step["value"] for step in steps}
    assert len(values) == len(steps), "a symbol has two steps"
    for step in steps:
        assert set(step["from"]) <= set(values)
        if step["formula"] is None:
            assert step["result"] and step["quantity"]
            continue
        assert_line_holds(step)
        assert worked_out(step["formula"], values) == pytest.approx(step["value"], rel=1e-9, abs=1e-9), step


def test_every_governing_check_of_an_example_can_be_followed(example):
    program, rows = example
    for row in rows:
        shown = explained(program, row)
        assert (shown["element"], shown["item"]) == (row["element"], row["item"])
        assert (shown["combination"], shown["position"]) == (row["combination"], row["position"])
        assert shown["steps"][0]["symbol"] == "ratio"
        assert shown["steps"][0]["value"] == (row["ratio"] or 0.0)
        assert_steps_hold(shown["steps"])


def test_every_printed_line_of_an_example_gives_its_result(example):
    program, rows = example
    worst = {row["element"] for row in rows}
    for element in worst:
        lines = lines_of(program("explain", "frame.json", "--element", element).stdout)
        assert lines[0].symbol == "ratio"
        numbers = {line.symbol: float(line.result) for line in lines}
        for line in lines:
            if line.formula is None:
                assert line.words
            elif line.numbers is not None:
                assert gives(line.numbers, line.result), line
            else:  # another quantity under a new name
                assert numbers[line.formula] == float(line.result)


def test_text_and_json_have_the_same_steps(example):
    program, rows = example
    for element in sorted({row["element"] for row in rows})[:5]:
        text = lines_of(program("explain", "frame.json", "--element", element).stdout)
        steps = program.json("explain", "frame.json", "--element", element)["steps"]
        assert [(line.symbol, line.result, line.unit) for line in text] == [
            (step["symbol"], step["result"], step["unit"]) for step in steps]


def test_the_reader_of_the_lines_knows_their_grammar():
    assert worked_out("2·|-3|² / (4 - √(4))") == 9
    assert worked_out("max(1, min(5, 1.5e1)) - (-2)") == 7
    assert worked_out("|1·|-2| / 4 - 3 / 2|") == 1
    assert worked_out("k·λ̄y² / N_Ey'", {"k": 2, "λ̄y": 3, "N_Ey'": 9}) == 2
    with pytest.raises(AssertionError):
        worked_out("8 / 4·2")
    assert gives("1 / 3", "0.333333") and not gives("1 / 3", "0.333334")


def test_the_formula_of_appendix_b_has_its_table_at_some_places():
    # Typed from the tables of GB 50429-2007: n = 48 and 100 of weakly, 30 and 75 of strongly hardening alloys.
    assert round(column_coefficient(48, 0.2, 0.15), 3) == 0.735
    assert round(column_coefficient(100, 0.2, 0.15), 3) == 0.254
    assert round(column_coefficient(30, 0.35, 0.1), 3) == 0.822
    assert round(column_coefficient(75, 0.35, 0.1), 3) == 0.373


def values_of(shown):
    return {step["symbol"]: step["value"] for step in shown["steps"]}


def test_a_pipe_in_bending_is_that_of_a_hand_calculation(beam):
    # 10 kN·m in the middle over W = I/50 of the pipe 100 × 10, f = 200 N/mm².
    shown = beam.json("explain", "frame.json", "--element", 1, "--item", "strength", "--combination", 1)
    assert (shown["position"], shown["combination_name"], shown["side"]) == ("1/2", "ULS", None)
    values = values_of(shown)
    assert values["My"] == 1e7
    assert values["W1"] == pytest.approx(PIPE_W)
    assert values["Iyy"] == pytest.approx(PIPE_I)
    assert values["σ"] == pytest.approx(1e7 / PIPE_W)
    assert values["ratio"] == pytest.approx(1e7 / PIPE_W / 200)


def test_slenderness_of_a_pipe_is_that_of_a_hand_calculation(beam):
    shown = beam.json("explain", "frame.json", "--element", 1, "--item", "slenderness-y")
    values = values_of(shown)
    assert values["iy"] == pytest.approx(math.sqrt(PIPE_I / PIPE_AREA))
    assert values["λy"] == pytest.approx(values["Ky"] * 4000 / math.sqrt(PIPE_I / PIPE_AREA))
    assert values["limit"] == 350  # a beam in tension


def test_a_position_that_is_asked_for_is_explained(beam):
    shown = beam.json("explain", "frame.json", "--element", 1, "--item", "strength", "--combination", 1,
                      "--position", "1/4")
    assert shown["position"] == "1/4"
    assert values_of(shown)["My"] == 7.5e6


def test_the_worst_check_is_explained_when_nothing_is_asked_for(beam):
    rows = beam.json("results", "frame.json")
    worst = max(rows, key=lambda row: row["ratio"] or 0)
    shown = beam.json("explain", "frame.json", "--element", 1)
    assert shown["item"] == worst["item"]
    assert shown["steps"][0]["value"] == worst["ratio"]


def test_slenderness_without_a_limit_says_so(aluframe, pipe_beam):
    pipe_beam["combinations"] = pipe_beam["combinations"][:1]
    aluframe.write(pipe_beam)
    aluframe("check", "frame.json")
    text = aluframe("explain", "frame.json", "--element", 1, "--item", "slenderness-y").stdout
    assert "ratio = 0: utilisation; 0: without a limit nothing is judged" in text
    assert "there is no limit without axial force (N2)" in text


def test_a_result_that_is_no_number_is_followed_to_where_it_comes_from(aluframe, pipe_beam):
    """A truss has no coefficients of the critical moment (rule C9), so Mcr is 0."""
    pipe_beam["sections"] = [
        {"number": 1, "shape": "H", "dimensions": {"H": 200, "B1": 100, "tw": 6, "tf1": 10}}]
    pipe_beam["elements"][0]["kind"] = "truss"
    pipe_beam["combinations"] = pipe_beam["combinations"][:1]
    aluframe.write(pipe_beam)
    aluframe("check", "frame.json")
    arguments = ("explain", "frame.json", "--element", 1, "--item", "stability")
    shown = aluframe.json(*arguments)
    values = values_of(shown)
    assert (values["β1"], values["Mcr"], values["λb"], values["ratio"]) == (0, 0, "inf", "nan")
    assert "a truss has none, so Mcr is 0 (C9)" in (text := aluframe(*arguments).stdout)
    assert "ratio = σ / f = nan / 200 = nan\n    utilisation; what is no finite number counts as failed\n" in text


def test_a_shape_that_the_checks_do_not_cover_has_nothing_to_explain(aluframe, pipe_beam):
    pipe_beam["sections"] = [{"number": 1, "shape": "UP", "properties": {
        "area": 2000, "it": 3e6, "iyy": 8e6, "izz": 8e6,
        "point_y": [-50, 50, 50, -50], "point_z": [100, 100, -100, -100]}}]
    aluframe.write(pipe_beam)
    aluframe("check", "frame.json", status=2)
    done = aluframe("explain", "frame.json", "--element", 1, status=1)
    assert "the checks do not cover the shape of the section" in done.stderr


def test_sides_of_an_envelope_are_explained_apart(aluframe, pipe_beam):
    pipe_beam["combinations"] = [{"number": 7, "kind": "envelope", "terms": [
        {"case": 1, "factor": 1.0}, {"case": 1, "factor": 0.5}]}]
    pipe_beam["envelopes"] = "extremes"
    aluframe.write(pipe_beam)
    aluframe("check", "frame.json")
    moments = {}
    for side in ("max", "min"):
        shown = aluframe.json("explain", "frame.json", "--element", 1, "--item", "strength", "--side", side,
                              "--position", "1/2")
        assert shown["side"] == side
        moments[side] = values_of(shown)["My"]
    assert moments == {"max": 1e7, "min": 5e6}


def test_a_state_is_found_by_its_envelope(aluframe, pipe_beam):
    pipe_beam["combinations"] = [{"number": 7, "name": "Env", "kind": "envelope", "terms": [
        {"case": 1, "factor": 1.0}, {"case": 1, "factor": 0.5}]}]
    aluframe.write(pipe_beam)
    aluframe("check", "frame.json")
    shown = aluframe.json("explain", "frame.json", "--element", 1, "--item", "strength", "--combination", 7)
    assert shown["combination"] == 7
    assert values_of(shown)["My"] == 1e7


def test_an_explanation_can_be_written_to_a_file(beam):
    printed = beam("explain", "frame.json", "--element", 1).stdout
    assert beam("explain", "frame.json", "--element", 1, "--output", "steps.txt").stdout == ""
    assert (beam.folder / "steps.txt").read_text(encoding="utf-8") == printed


def test_the_result_file_is_no_output(beam):
    before = (beam.folder / "frame.aluresult").read_bytes()
    beam("explain", "frame.json", "--element", 1, "--output", "frame.aluresult", status=1)
    beam("explain", "frame.json", "--element", 1, "--output", "frame.json", status=1)
    assert (beam.folder / "frame.aluresult").read_bytes() == before


REFUSED = [
    (["--element", 9], "frame.aluresult: --element: there is no result of element 9"),
    (["--element", 1, "--combination", 5],
     "frame.aluresult: --combination: there is no result of element 1 in combination 5, covered are 1-2"),
    (["--element", 1, "--side", "min"], "frame.aluresult: --side: there is no minimum side"),
    (["--element", 1, "--item", "stability", "--combination", 2],
     "element 1 has no stability result at I in combination 2 \"SEIS\": tension alone: there is no stability check (C1)"),
    (["--element", 1, "--item", "shear-z", "--combination", 1, "--position", "I"],
     "element 1 has no shear-z result at I in combination 1 \"ULS\": no axial force and no moment: shear is checked in "
     "bending without axial force, of beams in bending with any (C5)"),
    (["--element", 1, "--item", "combined-stability"],
     "element 1 has no combined-stability result at I in combination 1 \"ULS\": no axial force and no moment: combined "
     "stability is of compression with bending"),
    (["--element", 1, "--item", "weld"], "--item: found 'weld', must be one of strength, shear-y"),
    (["--element", 1, "--position", "K"], "--position: found 'K', must be one of I, 1/4, 1/2, 3/4, J"),
    (["--element", 1, "--side", "left"], "--side: found 'left', must be one of max, min"),
    (["--element", 1, "--format", "csv"], "--format: found 'csv', must be one of table, json, html"),
    ([], "--element is required"),
]


@pytest.mark.parametrize("arguments, message", REFUSED, ids=lambda value: None)
def test_what_cannot_be_explained_is_refused_with_one_message(beam, arguments, message):
    done = beam("explain", "frame.json", *arguments, status=1)
    assert done.stdout == ""
    assert message in done.stderr


def test_positions_without_forces_are_refused(aluframe, pipe_beam):
    for force in pipe_beam["forces"]:
        force["values"] = [force["values"][0], force["values"][-1]]
    aluframe.write(pipe_beam)
    aluframe("check", "frame.json")
    done = aluframe("explain", "frame.json", "--element", 1, "--position", "1/2", status=1)
    assert done.stderr == "--position: there are no forces at 1/2 of element 1, only at I and J\n"


def test_results_must_be_there(aluframe, pipe_beam):
    aluframe.write(pipe_beam)
    done = aluframe("explain", "frame.json", "--element", 1, status=1)
    assert done.stderr == (
        "frame.aluresult: there is no such file; check the model first: aluframe check frame.json\n")


def test_results_of_another_state_of_the_model_are_refused(beam, pipe_beam):
    pipe_beam["sections"][0]["dimensions"]["t"] = 11
    beam.write(pipe_beam)
    done = beam("explain", "frame.json", "--element", 1, status=1)
    assert "these results are of another state of frame.json or its forces; check it again" in done.stderr
    assert done.stdout == ""


def test_results_of_another_kind_of_analysis_are_refused(aluframe, pipe_beam):
    del pipe_beam["forces"]
    aluframe.write(pipe_beam | {"load_cases": cases(UNIFORM), "combinations": [{"number": 1, "terms": [{"case": 1}]}]})
    aluframe("check", "frame.json")
    aluframe("explain", "frame.json", "--element", 1)
    done = aluframe("explain", "frame.json", "--element", 1, "--second-order", status=1)
    assert "these results are of another state of frame.json or its forces" in done.stderr


def test_forces_of_a_file_are_found_again(aluframe, pipe_beam):
    """The result file tells where the forces of its run were; with them the bending moment in the middle is half."""
    aluframe.write(pipe_beam)
    (aluframe.folder / "half.csv").write_text(
        "element,case,position,N,Fy,Fz,Mx,My,Mz\n" + "".join(
            f"1,{case},{place},0,0,0,0,5,0\n" for case in (1, 2) for place in (0, 4)), encoding="utf-8")
    aluframe("check", "frame.json", "--forces", "half.csv")
    shown = aluframe.json("explain", "frame.json", "--element", 1, "--item", "strength", "--combination", 1)
    assert values_of(shown)["My"] == 5e6


def test_results_of_another_model_are_refused(aluframe, pipe_beam):
    aluframe.write(pipe_beam)
    aluframe("check", "frame.json")
    other = json.loads((aluframe.folder / "frame.json").read_text(encoding="utf-8"))
    other["forces"][0]["values"][2][4] = 11
    aluframe.write(other, "other.json")
    aluframe("check", "other.json")
    done = aluframe("explain", "frame.json", "--element", 1, "--results", "other.aluresult", status=1)
    assert "other.aluresult: these results are of another state of frame.json" in done.stderr
