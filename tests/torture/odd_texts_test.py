"""Texts of models and result files cannot forge what is shown, and pipes in place of files hold nobody up."""

import csv
import io
import json
import os
import re
import sqlite3
import xml.etree.ElementTree

import pytest

from workbench import RESULTS, lay_out, run

PIPE_LIMIT = 10  # seconds
FORGED = "worst ratio   0.1"
# Title or name, with what an unwary program would do with it.
ODD = {
    "line feed": f"Frame\n  {FORGED}",
    "carriage return": f"Frame\r  {FORGED}",
    "escape sequence": "Frame\x1b[2J\x1b[1;1H",
    "control sequence introducer": "Frame\u009b2J",
    "bidirectional override": "Frame \u202e1.0 oitar",
    "isolate": "Frame \u20661.0\u2069",
    "line separator": f"Frame\u2028{FORGED}",
    "bell": "Frame\a",
}
ALL_ODD = " ".join(ODD.values())
SHOWS_AS_ANOTHER = re.compile(
    "[\x00-\x09\x0b-\x1f\x7f-\x9f\u061c\u200e\u200f\u2028\u2029\u202a-\u202e\u2066-\u2069]")
FORMULAS = ("=1+1", "+1+1", "-1+1", "@SUM(A1)")
NUMBER = re.compile(r"[+-]?(\d+(\.\d*)?([eE][+-]?\d+)?|inf|nan)")


def require_plain(done, odd):
    text = done.out + done.err
    assert done.status >= 0, done
    assert SHOWS_AS_ANOTHER.search(text) is None, repr(text)
    assert not any(line.strip().startswith(FORGED) for line in text.splitlines()), repr(text)
    assert odd not in text


def require_no_formula(text):
    cells = [cell for row in csv.reader(io.StringIO(text)) for cell in row]
    assert cells and not [cell for cell in cells if cell[:1] in tuple("=+-@") and not NUMBER.fullmatch(cell)]


@pytest.fixture
def model(small_flows):
    return json.loads(small_flows.model)


def write_model(folder, model):
    (folder / "frame.json").write_text(json.dumps(model))


# Pipes

READERS = [("check", "FILE"), ("report", "FILE"), ("validate", "FILE"), ("members", "FILE"), ("analyse", "FILE"),
           ("settings", "FILE"), ("settings", "FILE", "--set", "seismic=on"), ("results", "FILE"),
           ("results", "frame.json"), ("check", "frame.json", "--forces", "FILE"),
           ("check", "frame.json", "--output", "FILE"), ("report", "frame.json", "--results", "FILE"),
           ("section", "Post", "--catalogue", "FILE"), ("section", "--list", "--catalogue", "FILE")]


@pytest.mark.parametrize("command", READERS, ids=" ".join)
@pytest.mark.parametrize("name", ["pipe.json", "pipe.aluresult"])
def test_a_pipe_in_place_of_a_file_holds_no_command_up(small_flows, tmp_path, command, name):
    lay_out(tmp_path, small_flows.check.before)
    (tmp_path / RESULTS).unlink()
    os.mkfifo(tmp_path / RESULTS)
    os.mkfifo(tmp_path / name)
    done = run(tmp_path, *[name if word == "FILE" else word for word in command], time_limit=PIPE_LIMIT)
    assert done.status in (1, 2) and len(done.err.splitlines()) == 1, done


def test_a_pipe_in_place_of_a_models_catalogue_holds_no_command_up(small_flows, tmp_path, model):
    lay_out(tmp_path, {})
    write_model(tmp_path, model | {"catalogues": ["mine.csv"]})
    os.mkfifo(tmp_path / "mine.csv")
    done = run(tmp_path, "check", "frame.json", time_limit=PIPE_LIMIT)
    assert done.status == 1 and "mine.csv" in done.err and len(done.err.splitlines()) == 1, done


# Texts of models

def with_text(model, place, text):
    if place == "title":
        return model | {"title": text}
    rows = [dict(row) for row in model[place]]
    rows[0]["name"] = text
    return model | {place: rows}


@pytest.mark.parametrize("place", ["title", "load_cases", "combinations", "materials", "sections"])
@pytest.mark.parametrize("what", ODD)
def test_a_text_of_a_model_reaches_no_terminal_as_it_is(tmp_path, model, place, what):
    write_model(tmp_path, with_text(model, place, ODD[what]))
    for command in ("check", "validate", "members", "settings", "results"):
        require_plain(run(tmp_path, command, "frame.json"), ODD[what])


@pytest.mark.parametrize("text", FORMULAS)
def test_a_name_that_a_spreadsheet_would_compute_is_no_cell(tmp_path, model, text):
    for place in ("title", "load_cases", "combinations", "materials"):
        model = with_text(model, place, text)
    model["combinations"] = [row | {"name": text + str(row["number"])} for row in model["combinations"]]
    del model["forces"]
    model["load_cases"] = [{"number": row["number"], "name": text, "self_weight": 1} for row in model["load_cases"]]
    write_model(tmp_path, model)
    require_no_formula(run(tmp_path, "check", "frame.json", "--format", "csv").out)
    for command in ("results", "settings", "members"):
        require_no_formula(run(tmp_path, command, "frame.json", "--format", "csv", status=0).out)
    for table in ("summary", "forces", "displacements", "reactions"):
        require_no_formula(run(tmp_path, "analyse", "frame.json", "--show", table, "--format", "csv", status=0).out)


def test_a_profile_with_a_name_of_markup_is_drawn_in_markup(tmp_path):
    name = 'A<&"\'>B'
    with open(tmp_path / "mine.csv", "w", newline="", encoding="utf-8") as file:
        csv.writer(file).writerows([["name", "shape", "D", "t"], [name, "P", 100, 10]])
    run(tmp_path, "section", name, "--catalogue", "mine.csv", "--svg", "a.svg", status=0)
    drawing = xml.etree.ElementTree.parse(tmp_path / "a.svg")
    assert name in "".join(drawing.getroot().itertext())


# Texts of result files

PLACES = {
    "title": "UPDATE run SET title = ?",
    "code": "UPDATE run SET code = ?",
    "program": "UPDATE run SET program = ?",
    "analysis": "UPDATE run SET analysis = ?",
    "model file": "UPDATE run SET model_file = ?",
    "setting": "UPDATE setting SET value = ?",
    "setting key": "UPDATE setting SET key = ?",
    "combination": "UPDATE combination SET name = ?",
    "not checked": "UPDATE not_checked SET reason = ?",
    "remark kind": "UPDATE remark SET kind = ?",
    "remark text": "UPDATE remark SET text = ?",
    "rules": "UPDATE safe SET rules = ?",
}
VIEWS = [(), ("--element", "1"), ("--remarks",), ("--not-checked",)]


def change_results(folder, statement, text):
    """As somebody with a database program would: of a run that ended early nothing is sealed."""
    with sqlite3.connect(folder / RESULTS) as database:
        assert database.execute(statement, (text,)).rowcount > 0
        database.execute("UPDATE run SET state = 'cancelled'")


@pytest.mark.parametrize("place", PLACES)
@pytest.mark.parametrize("form", ["table", "json", "csv"])
def test_a_text_of_a_result_file_reaches_nobody_as_it_is(small_flows, tmp_path, place, form):
    lay_out(tmp_path, small_flows.check.after)
    change_results(tmp_path, PLACES[place], ALL_ODD)
    for view in VIEWS:
        done = run(tmp_path, "results", RESULTS, *view, "--format", form)
        require_plain(done, ALL_ODD)
        if form == "json" and done.status == 0:
            json.loads(done.out)


@pytest.mark.parametrize("place", PLACES)
@pytest.mark.parametrize("text", FORMULAS)
def test_a_text_of_a_result_file_is_no_formula(small_flows, tmp_path, place, text):
    lay_out(tmp_path, small_flows.check.after)
    change_results(tmp_path, PLACES[place], text)
    for view in VIEWS:
        done = run(tmp_path, "results", RESULTS, *view, "--format", "csv")
        if done.out:
            require_no_formula(done.out)


def test_results_that_somebody_has_changed_are_refused(small_flows, tmp_path):
    lay_out(tmp_path, small_flows.check.after)
    with sqlite3.connect(tmp_path / RESULTS) as database:
        database.execute("UPDATE governing SET capacity = 2 * capacity")
    done = run(tmp_path, "results", RESULTS, status=1)
    assert "is damaged" in done.err and done.out == ""
