"""What a run says of its results: what was not checked, by which settings, and what they cover."""

import csv
import io
import math
import re
import sqlite3

import pytest
from program import PIPE_AREA, PIPE_I
from loaded_beam import beam  # noqa: F401 (a fixture)

# Torsion that the pipe carries, N·mm: fv·It/(D/2), It = 2·I; fv = 240/1.2/√3 N/mm² of 6061-T6.
PIPE_TORSION = 240 / 1.2 / math.sqrt(3) * 2 * PIPE_I / 50


@pytest.fixture(autouse=True)
def utf8(monkeypatch):
    monkeypatch.setenv("LC_ALL", "C.UTF-8")


@pytest.fixture
def twisted(aluframe, pipe_beam):
    """The pipe beam with 2 kN·m of torsion at its end and 1 kN·m elsewhere, load case 1 alone."""
    pipe_beam["combinations"] = pipe_beam["combinations"][:1]
    pipe_beam["forces"] = pipe_beam["forces"][:1]
    for place, values in enumerate(pipe_beam["forces"][0]["values"]):
        values[3] = -2 if place == 4 else 1
    aluframe.model = pipe_beam
    aluframe.write(pipe_beam)
    return aluframe


def stored(aluframe, sql):
    database = sqlite3.connect(aluframe.folder / "frame.aluresult")
    rows = database.execute(sql).fetchall()
    database.close()
    return rows


# What was not checked

def test_what_is_not_checked_comes_with_its_largest_force_and_where_it_acts(twisted):
    done = twisted("check", "frame.json")
    assert ("    element 1: torsion\n"
            "      largest Mx 2 kN·m at element 1, combination 1, position J\n"
            in done.stdout)
    # The ends have shear without bending: 10 kN.
    assert "      largest Fz 10 kN at element 1, combination 1, position I\n" in done.stdout


def test_json_and_csv_say_what_is_not_checked(twisted):
    run = twisted.json("check", "frame.json")[0]
    torsion = [group for group in run["not_checked_groups"] if group["reason"] == "torsion"]
    assert torsion[0].pop("second_opinion") > 0  # its value: second_opinion_test.py
    assert torsion == [{
        "reason": "torsion", "elements": "1", "combinations": "all", "force": "Mx",
        "magnitude": 2e6, "unit": "N·mm", "element": 1, "combination": 1, "side": None,
        "position": "J"}]
    row = next(csv.DictReader(io.StringIO(twisted("check", "frame.json", "--format", "csv").stdout)))
    assert "torsion: element 1; largest Mx 2 kN·m at element 1" in row["not_checked_reasons"]


def test_the_result_file_says_what_is_not_checked(twisted):
    twisted("check", "frame.json")
    assert stored(twisted, "SELECT force, magnitude, position, at_combination, at_min_side "
                           "FROM not_checked WHERE reason = 'torsion'") == [("Mx", 2e6, 4, 1, 0)]
    listed = twisted("results", "frame.json", "--not-checked", "--format", "csv").stdout
    rows = list(csv.DictReader(io.StringIO(listed)))
    assert [(row["force"], float(row["magnitude"])) for row in rows] == [("Fz", 1e4), ("Mx", 2e6)]


@pytest.mark.parametrize("part, is_told", [(0.9e-6, False), (1.1e-6, True)])
def test_a_force_far_below_what_the_element_carries_goes_without_saying(twisted, part, is_told):
    for values in twisted.model["forces"][0]["values"]:
        values[3] = part * PIPE_TORSION / 1e6  # kN·m
    twisted.write(twisted.model)
    assert ("torsion" in twisted("check", "frame.json").stdout) == is_told


def test_an_element_that_only_shear_and_torsion_act_on_names_them(twisted):
    twisted.model["forces"][0]["values"] = [[0, 0, 3, 4, 0, 0]] * 5
    twisted.write(twisted.model)
    done = twisted("check", "frame.json", status=2)
    assert "no element could be checked\n" in done.stderr
    out = twisted("results", "frame.json").stdout
    assert "neither axial force nor bending acts on it" in out
    assert "largest Fz 3 kN at element 1" in out and "largest Mx 4 kN·m at element 1" in out


def test_the_report_names_what_an_earlier_run_did_not_check(twisted):
    listed = twisted("check", "frame.json").stdout
    done = twisted("report", "frame.json")
    assert "checked for the report" not in done.stderr
    lines = [line for line in listed.splitlines() if line.startswith("    element 1: ")]
    assert len(lines) == 2 and all(line in done.stdout for line in lines)


def test_a_slenderness_that_fails_without_a_line_in_the_report_is_named(twisted):
    twisted.model["elements"][0]["design"] = {
        "slenderness_limits": {"checked": True, "compression": 50, "tension": 50}}
    twisted.write(twisted.model)
    twisted("check", "frame.json")
    done = twisted("report", "frame.json")
    # 4000/√(I/A) = 124.94 over the limit of 50, hinged at both ends.
    ratio = 4000 / math.sqrt(PIPE_I / PIPE_AREA) / 50
    assert f"Fails without a line in the report: element 1, slenderness y {ratio:.4f}\n" in done.stdout
    assert "  over 1        1 element, 1 of which no line of the report says so: element 1\n" in done.stdout


def test_a_slenderness_that_fails_with_its_line_is_not_named_again(twisted):
    twisted.model["elements"][0]["design"] = {
        "slenderness_limits": {"checked": True, "compression": 50, "tension": 50}}
    for values in twisted.model["forces"][0]["values"]:
        values[0] = -1
    twisted.write(twisted.model)
    twisted("check", "frame.json")
    out = twisted("report", "frame.json").stdout
    assert "without a line" not in out
    assert "  over 1        1 element, 0 of which no line of the report says so\n" in out


# The settings that matter

def test_the_settings_of_a_run_come_with_where_they_are_from(aluframe, pipe_beam):
    aluframe.write(pipe_beam | {"settings": {"safety_class": 1, "strength_ratio": 0.9}})
    out = aluframe("check", "frame.json").stdout
    assert re.findall(r"^  (?:settings)? +(\S.* \((?:given|default|from the frame)\))$", out, re.M) == [
        "safety class 1, gamma0 1.1 (given)", "ribs on, ratio 1.2 (default)",
        "strength ratio 0.9 (given)", "seismic factors off (default)",
        "length factors 1 computed (from the frame)", "buckling limit 10 (default)",
        "analysis given forces (given)"]


def test_json_csv_and_the_result_file_have_the_settings(aluframe, pipe_beam):
    aluframe.write(pipe_beam | {"settings": {"rib": False, "seismic": True}})
    settings = {row["key"]: (row["value"], row["from"])
                for row in aluframe.json("check", "frame.json")[0]["settings"]}
    assert settings["ribs"] == ("off", "given")
    assert settings["safety_class"] == ("2, gamma0 1", "default")
    assert settings["seismic_factors"] == ("on, gammaRE 0.75 strength, 0.8 stability", "given")
    row = next(csv.DictReader(io.StringIO(aluframe("check", "frame.json", "--format", "csv").stdout)))
    assert (row["ribs"], row["ribs_from"]) == settings["ribs"]
    assert {key: (value, origin) for key, value, origin in stored(
        aluframe, "SELECT key, value, origin FROM setting")} == settings


@pytest.mark.parametrize("given, told", [
    ((1,), "linear, beside given forces"), ((1, 2), "given forces, loads are not analysed")])
def test_loads_that_given_forces_stand_for_are_not_said_to_be_analysed(aluframe, beam, given, told):  # noqa: F811
    beam["forces"] = [{"element": 1, "case": case, "values": [[0, 0, 0, 0, 1, 0]] * 5} for case in given]
    aluframe.write(beam)
    done = aluframe("check", "frame.json")
    assert f" analysis {told} (given)\n" in done.stdout
    assert ("linear analysis of" in done.stdout) == (given == (1,))
    assert stored(aluframe, "SELECT analysis FROM run") == [(told,)]
    assert aluframe("results", "frame.json").stdout.endswith(f"forces: {told}\n")


# What results cover

def test_a_report_after_a_check_of_one_combination_goes_by_no_other(aluframe, pipe_beam):
    aluframe.write(pipe_beam)
    aluframe("check", "frame.json", "--combinations", "1")
    done = aluframe("report", "frame.json")
    assert ("frame.aluresult: covers combination 1 alone, 1 of 2, and the report goes by no other; "
            "check the model again for all\n") in done.stderr
    assert "Covered: elements 1 of 1, combinations 1 of 2, forces: given forces\n" in done.stdout
    text = (aluframe.folder / "frame.alu").read_text(encoding="utf-8")
    assert "ULS" in text and "SEIS" not in text


def test_results_say_what_they_cover(aluframe, pipe_beam):
    aluframe.write(pipe_beam)
    aluframe("check", "frame.json")
    whole = aluframe("results", "frame.json")
    assert whole.stdout.endswith(
        "Covered: elements 1 of 1, combinations 2 of 2, forces: given forces\n")
    done = aluframe("check", "frame.json", "--combinations", "2")
    assert "  combinations  1; the model has 2 for design\n" in done.stdout
    part = aluframe("results", "frame.json", "--format", "json")
    assert part.stderr == ("frame.aluresult: covered are elements 1 of 1, combinations 1 of 2, "
                           "forces: given forces\n")


def test_a_report_finds_second_order_in_the_results(aluframe, beam):  # noqa: F811
    aluframe.write(beam)
    aluframe("check", "frame.json", "--second-order")
    aluframe("report", "frame.json", "--second-order", "--output", "asked.alu")
    done = aluframe("report", "frame.json")
    assert done.stderr == "" and "forces: second-order\n" in done.stdout
    assert (aluframe.folder / "frame.alu").read_bytes() == (aluframe.folder / "asked.alu").read_bytes()
    assert aluframe("results", "frame.json").stderr == ""


def test_a_model_that_no_longer_asks_for_second_order_is_another_state(aluframe, beam):  # noqa: F811
    aluframe.write(beam | {"analysis": {"second_order": True}})
    aluframe("check", "frame.json")
    aluframe.write(beam)
    assert "are of another state of frame.json" in aluframe("results", "frame.json").stderr


FORCES = "element,case,position,N,Fy,Fz,Mx,My,Mz\n" + "".join(
    f"1,{case},{place},0,0,0,0,{moment},0\n" for case in (1, 2) for place, moment in ((0, 1), (4, 2)))


def test_a_report_and_results_find_the_file_of_forces(aluframe, pipe_beam):
    aluframe.write(pipe_beam)
    folder = aluframe.folder / "given"
    folder.mkdir()
    (folder / "forces.csv").write_text(FORCES)
    aluframe("check", "frame.json", "--forces", "given/forces.csv")
    assert aluframe("results", "frame.json").stderr == ""
    assert aluframe("report", "frame.json").stderr == ""
    (folder / "forces.csv").write_text(FORCES.replace(",2,0\n", ",3,0\n"))
    assert "are of another state of frame.json or its forces" in aluframe("results", "frame.json").stderr
    assert "holds results of another state" in aluframe("report", "frame.json", status=2).stderr
    (folder / "forces.csv").unlink()
    assert "cannot be compared with the model: given/forces.csv" in aluframe(
        "results", "frame.json").stderr


def test_a_changed_catalogue_is_another_state(aluframe, pipe_beam):
    (aluframe.folder / "own.csv").write_text("name,shape,D,t\nTube,P,100,10\n")
    pipe_beam["catalogues"] = ["own.csv"]
    pipe_beam["sections"] = [{"number": 1, "profile": "Tube"}]
    aluframe.write(pipe_beam)
    aluframe("check", "frame.json")
    assert aluframe("results", "frame.json").stderr == ""
    (aluframe.folder / "own.csv").write_text("name,shape,D,t\nTube,P,100,5\n")
    assert "are of another state of frame.json" in aluframe("results", "frame.json").stderr


def test_second_order_refuses_forces_that_are_all_given(aluframe, pipe_beam):
    aluframe.write(pipe_beam)
    error = aluframe("check", "frame.json", "--second-order", status=1).stderr
    assert error == ("frame.json: element 1 has given forces in load case 1, which second order "
                     "cannot use: it needs loads alone\n")
    assert not (aluframe.folder / "frame.aluresult").exists()


def test_results_stay_those_of_the_model_when_only_its_project_changes(twisted):
    twisted.model["project"] = {"checker": "A. B."}
    twisted.write(twisted.model)
    twisted("check", "frame.json")
    twisted.model["project"] = {"checker": "C. D.", "revision": "2"}
    twisted.write(twisted.model)
    assert twisted("results", "frame.json").stderr == ""
    twisted.model["units"]["length"] = "mm"
    twisted.write(twisted.model)
    assert "another state" in twisted("results", "frame.json").stderr
