"""A report and the stored results that it goes by: missing, old, unfinished, of another model."""

import os
import re
import sqlite3
import time

import pytest

from program import PIPE_W

from report_frames import checked_three_beams, elements_of, text_of


@pytest.fixture(autouse=True)
def utf8(monkeypatch):
    monkeypatch.setenv("LC_ALL", "C.UTF-8")


@pytest.fixture
def frame(aluframe, pipe_beam):
    """Three beams, checked; the first is also pulled by an earthquake. Numbers above 999."""
    return checked_three_beams(aluframe, pipe_beam)


# Elements that have not been checked, or cannot be

def test_elements_that_were_never_checked_are_checked_now_and_stored(frame):
    frame("report", "frame.json", "--output", "whole.alu")
    whole = frame.json("results", "frame.json")
    frame("check", "frame.json", "--elements", "1")
    done = frame("report", "frame.json")
    assert done.stdout.startswith("Report of 3 elements, complete: frame.alu\n")
    assert done.stderr.startswith(
        "checked for the report and added to frame.aluresult: element 1002-1003\n")
    assert text_of(frame) == text_of(frame, "whole.alu")
    assert frame.json("results", "frame.json") == whole
    assert frame("report", "frame.json").stderr == ""


def test_a_model_that_was_never_checked_is_checked_whole(frame):
    frame("report", "frame.json", "--output", "whole.alu")
    whole = frame.json("results", "frame.json")
    (frame.folder / "frame.aluresult").unlink()
    done = frame("report", "frame.json")
    assert done.stderr.startswith(
        "checked for the report and added to frame.aluresult: element 1, 1002-1003\n")
    assert text_of(frame) == text_of(frame, "whole.alu")
    assert frame.json("results", "frame.json") == whole


def with_a_shape_without_rules(frame):
    frame.model["sections"].append({
        "number": 2, "shape": "UP", "properties": {
            "area": 1000, "iyy": 1e6, "izz": 1e6,
            "point_y": [-20, 20, 20, -20], "point_z": [20, 20, -20, -20]}})
    frame.model["elements"][1]["section"] = 2
    frame.write(frame.model)
    frame("check", "frame.json")


def test_an_element_without_forces_is_left_out_and_named(frame):
    frame.model["forces"] = [row for row in frame.model["forces"] if row["element"] != 1002]
    frame.write(frame.model)
    frame("check", "frame.json")
    done = frame("report", "frame.json")
    assert elements_of(frame) == [1, 1003]
    assert done.stdout.startswith("Report of 2 elements, complete: frame.alu\n")
    assert done.stderr == "without results: element 1002\n"


def test_an_element_of_a_shape_that_is_not_checked_is_named(frame):
    with_a_shape_without_rules(frame)
    done = frame("report", "frame.json")
    assert "no check to show: element 1002\n" in done.stderr
    assert "element 1002: the checks do not cover the shape of section " in done.stdout


def test_a_report_without_any_check_ends_with_status_2(frame):
    with_a_shape_without_rules(frame)
    done = frame("report", "frame.json", "--elements", "1002", status=2)
    assert "no check to show: element 1002\n" in done.stderr


@pytest.mark.parametrize("change", [
    lambda model: model["forces"].pop(),
    lambda model: model["combinations"][0]["terms"][0].update(factor=1.3),
    lambda model: model["settings"].update(safety_class=1),
])
def test_results_of_another_state_of_the_model_are_refused(frame, change):
    frame("report", "frame.json")
    before = text_of(frame), (frame.folder / "frame.aluresult").read_bytes()
    frame.model.setdefault("settings", {})
    change(frame.model)
    frame.write(frame.model)
    done = frame("report", "frame.json", status=2)
    assert done.stderr.endswith(
        "the report failed: frame.aluresult: holds results of another state of the model or its "
        "forces; check the model again\n")
    assert (text_of(frame), (frame.folder / "frame.aluresult").read_bytes()) == before


def test_elements_checked_for_the_report_say_what_was_not_checked(frame):
    stored = frame.json("results", "frame.json")
    listed = frame("check", "frame.json", "--format", "csv").stderr
    (frame.folder / "frame.aluresult").unlink()
    done = frame("report", "frame.json")
    assert "  not checked\n" in listed
    assert listed[listed.index("  not checked\n"):].partition("  remarks\n")[0].strip() in done.stdout
    assert frame.json("results", "frame.json") == stored


# Results of some combinations

def test_a_report_of_some_combinations_says_so_and_adds_elements_by_the_same_ones(frame):
    frame("check", "frame.json", "--combinations", "1", "--elements", "1")
    done = frame("report", "frame.json")
    assert done.stderr.startswith(
        "frame.aluresult: covers combination 1 alone, 1 of 2, and the report goes by no other; check the model "
        "again for all\n")
    assert "\nCombinations: 1\n" in done.stdout
    assert "SEIS" not in text_of(frame) and elements_of(frame) == [1, 1002, 1003]
    with sqlite3.connect(frame.folder / "frame.aluresult") as database:
        assert {row[0] for row in database.execute("SELECT combination FROM governing")} == {1}
    database.close()


def test_results_of_some_combinations_that_pass_for_all_are_not_mixed_with_others(frame):
    frame("check", "frame.json", "--combinations", "1", "--elements", "1")
    with sqlite3.connect(frame.folder / "frame.aluresult") as database:
        database.execute("UPDATE run SET state = 'cancelled', model_states = 1")
        database.execute("DELETE FROM seal")
    database.close()
    before = (frame.folder / "frame.aluresult").read_bytes()
    done = frame("report", "frame.json", status=2)
    assert done.stderr.endswith(
        "the report failed: frame.aluresult: holds results of combination 1, which are not mixed with those of "
        "combination 1-2; check the model again\n")
    assert (frame.folder / "frame.aluresult").read_bytes() == before
    assert not (frame.folder / "frame.alu").exists()


# Stored checks that are not those of the model

def exchange_results(frame):
    """Elements 1002 and 1003 get each other's records, in a file that no longer says that it is whole."""
    with sqlite3.connect(frame.folder / "frame.aluresult") as database:
        database.execute("UPDATE run SET state = 'cancelled'")
        database.execute("DELETE FROM seal")
        for old, new in ((1002, 9999), (1003, 1002), (9999, 1003)):
            database.execute("UPDATE record SET element = ? WHERE element = ?", (new, old))
    database.close()


def test_a_stored_demand_that_is_not_the_check_stops_the_report(frame):
    frame("report", "frame.json")
    exchange_results(frame)
    before = text_of(frame), (frame.folder / "frame.aluresult").read_bytes()
    error = frame("report", "frame.json", status=2).stderr
    # Uniform load on 4 m, M = 20 kN·m at element 1002 and 30 at 1003.
    made, stored = (f"{moment / PIPE_W:.6g}" for moment in (2e7, 3e7))
    assert error.endswith(
        "the report failed: frame.alu: the report is incomplete: element 1002, strength, combination 1, position 1/2: "
        f"demand {made} when made again, {stored} as stored in frame.aluresult; check the model again; "
        "what was written is in frame.alu.partial\n")
    assert (text_of(frame), (frame.folder / "frame.aluresult").read_bytes()) == before


def test_elements_whose_stored_checks_are_those_of_the_model_are_reported(frame):
    exchange_results(frame)
    frame("report", "frame.json", "--elements", "1")
    assert elements_of(frame) == [1]


# What the user should know of the results

def test_a_model_that_was_only_touched_is_the_same_model(frame):
    later = time.time() + 10
    os.utime(frame.folder / "frame.json", (later, later))
    assert frame("report", "frame.json").stderr == ""


@pytest.mark.parametrize("state, words", [
    ("running", "did not finish"), ("cancelled", "stopped before its end"),
    ("failed", "stopped before its end"),
])
def test_results_of_an_unfinished_run_come_with_a_warning(frame, state, words):
    with sqlite3.connect(frame.folder / "frame.aluresult") as database:
        database.execute("UPDATE run SET state = ?", (state,))
    database.close()
    assert words in frame("report", "frame.json").stderr


@pytest.mark.parametrize("change", ["title", "combination"])
def test_results_of_another_model_are_refused(frame, change):
    if change == "title":
        frame.model["title"] = "Two pipes"
    else:
        frame.model["combinations"][0]["name"] = "ULS 2"
    frame.write(frame.model)
    before = (frame.folder / "frame.aluresult").read_bytes()
    error = frame("report", "frame.json", status=2).stderr
    assert "frame.aluresult: holds results of " in error
    assert (frame.folder / "frame.aluresult").read_bytes() == before
