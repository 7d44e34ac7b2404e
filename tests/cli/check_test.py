"""`aluframe check` and `results`, from a model file to checked elements."""

import csv
import io
import os
import signal
import sqlite3
import subprocess
import sys
import time

import pytest
from program import PIPE_AREA, PIPE_I, PIPE_W, ROOT


def governing(aluframe, *more):
    rows = aluframe.json("results", "frame.json", *more)
    return {(row["element"], row["item"]): row for row in rows}


def test_a_pipe_beam_is_checked_to_the_numbers_of_the_hand_calculation(aluframe, pipe_beam):
    aluframe.write(pipe_beam)
    aluframe("check", "frame.json")
    checks = governing(aluframe)

    # ULS at midspan: γ0·My/(γy·W) = 1.0 · 1e7 / (1.0 · W), f = 200; with SEIS the tension adds
    # N/Aen = 2e4/(0.85·A) at the same place. Forces are held in single precision: 1e-6 relative.
    tension = 2e4 / (0.85 * PIPE_AREA)
    strength = checks[1, "strength"]
    assert strength["demand"] == pytest.approx(1e7 / PIPE_W + tension, rel=1e-6)
    assert strength["capacity"] == 200
    assert (strength["combination"], strength["position"]) == (2, "1/2")

    # Q/b = (2/3)(50³ − 40³)/20 at the neutral axis; V = 5 kN at the quarters (at the ends My = 0,
    # so no bending, no shear check). fv = 115.
    shear = checks[1, "shear z"]
    assert shear["demand"] == pytest.approx(5e3 * (2 / 3 * (50**3 - 40**3) / 20) / PIPE_I, rel=1e-6)
    assert shear["capacity"] == 115
    assert shear["position"] == "1/4"

    # λ = L / √(I/A), i² = (50² + 40²)/4; tension limit of a member without its own limits: 350.
    slenderness = checks[1, "slenderness y"]
    assert slenderness["demand"] == pytest.approx(4000 / ((50**2 + 40**2) / 4) ** 0.5, rel=1e-9)
    assert slenderness["capacity"] == 350


def test_the_summary_says_what_was_checked_and_what_governs(aluframe, pipe_beam):
    aluframe.write(pipe_beam)
    out = aluframe("check", "frame.json").stdout
    assert "1 of 1 checked" in out
    # 2 combinations × 5 positions; the ends of combination 1 have neither force nor bending.
    assert "8 positions, 3 records stored" in out
    assert 'strength), element 1, position 1/2, combination 2 "SEIS"' in out
    assert "over 1        0 elements" in out
    # At the ends the shear force acts without bending, for which there is no rule.
    assert "element 1: shear where it acts without bending" in out


def test_shear_and_torsion_without_a_rule_are_listed(aluframe, pipe_beam):
    pipe_beam["elements"][0]["member_type"] = "column"
    pipe_beam["forces"][1]["values"] = [[-20, 1, 0, 3, 5, 0]] * 5
    aluframe.write(pipe_beam)
    out = aluframe("check", "frame.json").stdout
    assert "element 1: shear where it acts" in out
    assert "element 1: torsion" in out
    assert "element 1: torsion" in aluframe("results", "frame.json").stdout


@pytest.mark.parametrize("forces", [[0, 0, 100, 0, 0, 0], [0, 0, 0, 20, 0, 0], [0] * 6],
                         ids=["shear only", "torsion only", "nothing"])
def test_an_element_that_no_rule_judges_does_not_count_as_checked(aluframe, pipe_beam, forces):
    pipe_beam["combinations"] = pipe_beam["combinations"][:1]
    pipe_beam["forces"][0]["values"] = [forces] * 5
    aluframe.write(pipe_beam)
    out = aluframe("check", "frame.json", status=2).stdout
    assert "0 of 1 checked" in out
    assert "element 1: neither axial force nor bending acts on it" in out


def test_slenderness_without_a_limit_has_no_ratio(aluframe, pipe_beam):
    pipe_beam["combinations"] = pipe_beam["combinations"][:1]
    aluframe.write(pipe_beam)
    aluframe("check", "frame.json")
    slenderness = governing(aluframe)[1, "slenderness y"]
    # λ = 4000/√((50² + 40²)/4) = 124.9; without axial force there is no limit.
    assert slenderness["demand"] == pytest.approx(124.9, abs=0.1)
    assert slenderness["capacity"] is None and slenderness["ratio"] is None
    overview = aluframe("results", "frame.json").stdout.splitlines()[2].split()
    assert overview[7:9] == ["-", "-"]


def test_combinations_are_counted_once_and_their_sides_beside_them(aluframe, pipe_beam):
    pipe_beam["envelopes"] = "extremes"
    pipe_beam["combinations"].append(
        {"number": 3, "kind": "envelope", "terms": [{"combination": 1}, {"combination": 2}]})
    aluframe.write(pipe_beam)
    assert "combinations  3 (4 with both sides of envelopes)" in aluframe("check", "frame.json").stdout


def test_every_combination_and_position_of_an_element_is_listed(aluframe, pipe_beam):
    aluframe.write(pipe_beam)
    aluframe("check", "frame.json")
    rows = aluframe.json("results", "frame.json", "--element", "1")
    places = {(row["combination"], row["position"]) for row in rows}
    assert places == {(c, p) for c in (1, 2) for p in ("I", "1/4", "1/2", "3/4", "J")}
    text = aluframe("results", "frame.json", "--element", "1").stdout
    assert "Element 1: ratios of every combination and position" in text


def test_seismic_combinations_use_the_seismic_factor_when_the_settings_say_so(aluframe, pipe_beam):
    pipe_beam["settings"] = {"seismic": True, "gamma_re_strength": 0.5}
    aluframe.write(pipe_beam)
    aluframe("check", "frame.json")
    # With γRE 0.5 the seismic combination falls below the plain one, 1e7/W.
    strength = governing(aluframe)[1, "strength"]
    assert strength["combination"] == 1
    assert strength["demand"] == pytest.approx(1e7 / PIPE_W, rel=1e-6)


def test_strict_ends_with_status_4_only_when_a_ratio_exceeds_1(aluframe, pipe_beam):
    aluframe.write(pipe_beam)
    aluframe("check", "frame.json", "--strict")
    pipe_beam["combinations"][0]["terms"][0]["factor"] = 2.0
    aluframe.write(pipe_beam)
    aluframe("check", "frame.json", status=0)
    aluframe("check", "frame.json", "--strict", status=4)


def test_a_second_run_leaves_the_same_results_byte_for_byte(aluframe, pipe_beam):
    aluframe.write(pipe_beam)
    aluframe("check", "frame.json")
    first = (aluframe.folder / "frame.aluresult").read_bytes()
    aluframe("check", "frame.json")
    assert (aluframe.folder / "frame.aluresult").read_bytes() == first


def test_an_envelope_is_checked_on_both_sides_when_the_model_wants_its_extremes(aluframe, pipe_beam):
    pipe_beam["envelopes"] = "extremes"
    pipe_beam["combinations"].append({
        "number": 3, "name": "ENV", "kind": "envelope",
        "terms": [{"combination": 1, "factor": 1.5}, {"case": 1, "factor": -1.5}],
    })
    aluframe.write(pipe_beam)
    rows = [row for row in checked_rows(aluframe) if row["combination"] == 3]
    assert {row["side"] for row in rows} == {"max", "min"}
    strength = {row["side"]: row["demand"] for row in rows
                if row["item"] == "strength" and row["position"] == "1/2"}
    # ±1.5 · 1e7 / W: the pipe takes both alike.
    assert strength["max"] == pytest.approx(1.5e7 / PIPE_W, rel=1e-6)
    assert strength["min"] == pytest.approx(1.5e7 / PIPE_W, rel=1e-6)


def checked_rows(aluframe):
    aluframe("check", "frame.json")
    return aluframe.json("results", "frame.json", "--element", "1")


def test_forces_from_csv_take_the_place_of_the_models(aluframe, pipe_beam):
    aluframe.write(pipe_beam)
    (aluframe.folder / "forces.csv").write_text(
        "element,case,position,N,Fy,Fz,Mx,My,Mz\n"
        "1,1,0,0,0,0,0,1,0\n1,1,4,0,0,0,0,2,0\n1,2,0,0,0,0,0,0,0\n1,2,4,0,0,0,0,0,0\n")
    aluframe("check", "frame.json", "--forces", "forces.csv")
    strength = governing(aluframe)[1, "strength"]
    assert strength["demand"] == pytest.approx(2e6 / PIPE_W, rel=1e-6)
    assert strength["position"] == "J"


def test_bad_csv_ends_the_run_with_the_line(aluframe, pipe_beam):
    aluframe.write(pipe_beam)
    (aluframe.folder / "forces.csv").write_text("element,case,position,N,Fy,Fz,Mx,My,Mz\n1,9,0,0,0,0,0,0,0\n")
    error = aluframe("check", "frame.json", "--forces", "forces.csv", status=1).stderr
    assert "forces.csv: line 2" in error and "9" in error


def test_an_element_without_forces_is_listed_as_not_checked(aluframe, pipe_beam):
    pipe_beam["nodes"].append({"number": 3, "x": 8, "y": 0, "z": 3})
    pipe_beam["elements"].append({"number": 2, "nodes": [2, 3], "section": 1, "material": 1})
    aluframe.write(pipe_beam)
    out = aluframe("check", "frame.json").stdout
    assert "1 of 2 checked" in out
    assert "element 2: no forces (none for load case 1) in any combination" in out
    assert "element 2: no forces" in aluframe("results", "frame.json").stdout


def test_an_element_without_forces_in_one_combination_is_listed_with_it(aluframe, pipe_beam):
    del pipe_beam["forces"][1]
    aluframe.write(pipe_beam)
    pipe_beam["combinations"].append(
        {"number": 3, "kind": "envelope", "terms": [{"combination": 1}, {"case": 2}]})
    aluframe.write(pipe_beam)
    out = aluframe("check", "frame.json").stdout
    assert "1 of 1 checked" in out
    assert "element 1, combination 2-3: no forces (none for load case 2)" in out
    # Once for combination 2, once for the envelope, and once for the shear at the ends.
    assert aluframe.json("check", "frame.json")[0]["not_checked"] == 3


def test_a_shape_without_rules_is_listed_as_not_checked(aluframe, pipe_beam):
    pipe_beam["sections"].append({
        "number": 2, "shape": "UP", "properties": {
            "area": 1000, "iyy": 1e6, "izz": 1e6,
            "point_y": [-20, 20, 20, -20], "point_z": [20, 20, -20, -20]}})
    pipe_beam["elements"][0]["section"] = 2
    # Also where shear alone acts: the shape is what keeps it from being checked.
    pipe_beam["forces"][0]["values"] = [[0, 0, 100, 0, 0, 0]] * 5
    aluframe.write(pipe_beam)
    done = aluframe("check", "frame.json", status=2)
    assert "element 1: the checks do not cover the shape of section 2" in done.stdout
    assert "no element could be checked" in done.stderr


def test_results_that_are_no_numbers_are_shown_and_count_as_failed(aluframe, pipe_beam):
    # 1e10 N·mm times 1e30 is beyond single precision, in which forces are held: infinite.
    for row in pipe_beam["forces"][0]["values"]:
        row[4] *= 1000
    pipe_beam["combinations"][0]["terms"][0]["factor"] = 1e30
    pipe_beam["combinations"] = pipe_beam["combinations"][:1]
    aluframe.write(pipe_beam)
    aluframe("check", "frame.json", "--strict", status=4)
    strength = governing(aluframe)[1, "strength"]
    assert (strength["demand"], strength["ratio"]) == ("inf", "inf")
    assert "inf" in aluframe("results", "frame.json").stdout
    assert "inf (strength)" in aluframe("check", "frame.json").stdout


def test_a_run_can_be_limited_to_elements_and_combinations(aluframe, pipe_beam):
    aluframe.write(pipe_beam)
    aluframe("check", "frame.json", "--combinations", "2", "--elements", "1")
    assert {row["combination"] for row in aluframe.json("results", "frame.json", "--element", 1)} == {2}
    assert "there is no element 7" in aluframe("check", "frame.json", "--elements", "7", status=1).stderr
    assert "there is no design combination 9" in aluframe(
        "check", "frame.json", "--combinations", "9", status=1).stderr
    assert "found '3-1'" in aluframe("check", "frame.json", "--elements", "3-1", status=1).stderr


@pytest.mark.parametrize("language, text", [
    ("en", "the model has no load combination for design."),
    ("zh", "没有用于设计的荷载组合"),
])
def test_a_model_without_design_combinations_says_so(aluframe, pipe_beam, language, text):
    for combination in pipe_beam["combinations"]:
        combination["design"] = False
    aluframe.write(pipe_beam)
    done = aluframe("check", "frame.json", "--lang", language, status=1)
    assert text in done.stderr
    assert not (aluframe.folder / "frame.aluresult").exists()


def test_a_result_file_that_cannot_be_created_ends_with_status_2(aluframe, pipe_beam):
    aluframe.write(pipe_beam)
    error = aluframe("check", "frame.json", "--output", "missing/out.aluresult", status=2).stderr
    assert "the run failed" in error and "missing" in error


@pytest.mark.parametrize("arguments", [
    [], ["check"], ["check", "frame.json", "--nonsense"], ["dance"],
    ["check", "frame.json", "--format", "xml"], ["results", "frame.json", "--sort", "colour"],
    ["check", "frame.json", "--progress", "maybe"], ["check", "frame.json", "--lang", "fr"],
])
def test_wrong_usage_ends_with_status_1(aluframe, pipe_beam, arguments):
    aluframe.write(pipe_beam)
    assert aluframe(*arguments, status=1).stderr != ""


def test_a_word_that_is_no_command_is_told_with_the_commands(aluframe):
    done = aluframe("analyze", "frame.json", status=1)
    assert done.stderr.startswith("found command 'analyze', must be one of check, analyse, ")


def test_results_without_a_run_say_what_is_missing(aluframe, pipe_beam):
    aluframe.write(pipe_beam)
    assert "frame.aluresult" in aluframe("results", "frame.json", status=1).stderr


def test_results_of_a_changed_model_come_with_a_warning(aluframe, pipe_beam):
    path = aluframe.write(pipe_beam)
    aluframe("check", "frame.json")
    earlier = time.time() - 1000
    pipe_beam["combinations"][0]["terms"][0]["factor"] = 2
    aluframe.write(pipe_beam)
    os.utime(path, (earlier, earlier))  # what a copy of an older file has
    assert ("frame.aluresult: these results are of another state of frame.json or its forces; "
            "check it again\n") == aluframe("results", "frame.json").stderr


def test_progress_goes_to_standard_error_only(aluframe, pipe_beam):
    aluframe.write(pipe_beam)
    silent = aluframe("check", "frame.json")
    shown = aluframe("check", "frame.json", "--progress", "always")
    assert "100 %" in shown.stderr and "100 %" not in silent.stderr
    assert "100 %" not in shown.stdout


def generated(aluframe, elements, combinations):
    subprocess.run(
        [sys.executable, str(ROOT / "tools" / "generate_model.py"), "--kind", "grid",
         "--elements", str(elements), "--combinations", str(combinations),
         "--output", str(aluframe.folder / "large.json")], check=True)


def interrupted_run(aluframe, number):
    """A run that got the signal after its first element; its exit status."""
    run = subprocess.Popen(
        [aluframe.path, "check", "large.json", "--progress", "always"],
        cwd=aluframe.folder, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
    # The first drawing of the bar says that the run is going on.
    while b"%" not in run.stderr.read(1):
        assert run.poll() is None, "the run ended before it could be stopped"
    run.send_signal(number)
    run.stderr.read()
    return run.wait(timeout=60)


def test_ctrl_c_ends_the_run_cleanly_and_keeps_what_was_stored(aluframe):
    generated(aluframe, 4000, 50)
    assert interrupted_run(aluframe, signal.SIGINT) == 3
    done = aluframe("results", "large.aluresult.partial", "--format", "csv")
    assert "stopped before its end" in done.stderr
    rows = list(csv.DictReader(io.StringIO(done.stdout)))
    assert 0 < len({row["element"] for row in rows}) < 4000


def test_a_killed_run_is_recognisable_as_unfinished(aluframe):
    generated(aluframe, 4000, 50)
    assert interrupted_run(aluframe, signal.SIGKILL) == -signal.SIGKILL
    assert aluframe("results", "large.json", status=1).stderr == (
        "large.aluresult: there is no such file yet; large.aluresult.partial holds what a run that is "
        "going on or ended early has stored\n")
    assert "did not finish" in aluframe("results", "large.aluresult.partial").stderr


def test_a_run_that_is_stopped_leaves_the_earlier_results_and_says_what_stands_where(aluframe):
    generated(aluframe, 4000, 2)
    aluframe("check", "large.json")
    before = (aluframe.folder / "large.aluresult").read_bytes()
    generated(aluframe, 4000, 50)
    for number, status in ((signal.SIGTERM, 3), (signal.SIGHUP, 3), (signal.SIGKILL, -9)):
        assert interrupted_run(aluframe, number) == status
        assert (aluframe.folder / "large.aluresult").read_bytes() == before
        assert ("large.aluresult.partial: a later run is going on or ended early; these results are of "
                "an earlier one") in aluframe("results", "large.json").stderr
    aluframe("check", "large.json")
    assert sorted(path.name for path in aluframe.folder.iterdir()) == ["large.aluresult", "large.json"]


def test_a_run_that_is_cancelled_counts_what_its_file_holds(aluframe):
    generated(aluframe, 4000, 50)
    run = subprocess.Popen([aluframe.path, "check", "large.json", "--progress", "always"], cwd=aluframe.folder,
                           stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
    while b"%" not in run.stderr.read(1):
        assert run.poll() is None, "the run ended before it could be stopped"
    run.send_signal(signal.SIGINT)
    said = run.stderr.read().decode()
    assert run.wait(timeout=60) == 3
    with sqlite3.connect(aluframe.folder / "large.aluresult.partial") as database:
        (count,), = database.execute("SELECT count(*) FROM element")
    elements = "1 element" if count == 1 else f"{count} elements"
    assert f"cancelled; the results of {elements} are in large.aluresult.partial, --resume goes on with them\n" in said
