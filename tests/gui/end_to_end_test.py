"""The real window on a screen of its own: runs, reports, and what happens to the file."""

import json
import os
import shutil
import signal
import subprocess
import sys
from pathlib import Path

import pytest
from desktop_user import MISSING, PATIENCE, wait_for
from editing_user import (
    edit_haz_width, open_model, save, save_undo_and_redo, with_haz_width)

GENERATOR = Path(__file__).parents[2] / "tools" / "generate_model.py"

pytestmark = pytest.mark.skipif(bool(MISSING), reason=f"not installed: {', '.join(MISSING)}")


def ratios(model):
    done = subprocess.run([os.environ["ALUFRAME"], "results", str(model), "--format", "json"],
                          capture_output=True, text=True, check=True, timeout=PATIENCE)
    return json.loads(done.stdout)


def edit_first_column(program, width):
    """Through the tree and the panel: elements 1 and 2, the member "Column A1"."""
    tree = program.find("tree", "^Model$")
    next(row for row in tree.children() if row.name == "1 Column A1").click()
    program.sees("^2 elements selected$")
    edit_haz_width(program, width)
    program.sees(r"^2 elements together$")
    wait_for(lambda: program.window(r"^\*?portal.json\*"), "a title that says it is changed")


def wait_for_title(program):
    """The title of the model, on top of the tree, as another program has changed it."""
    wait_for(lambda: any(name.startswith("Renamed portal")
                         for name in program.rows("tree", "^Model$")), "the other title")


@pytest.mark.parametrize("variables", [{}, {"ALUFRAME_NO_OPENGL": "1"}])
def test_the_hot_key_stores_the_results_of_the_command_line(start, model, tmp_path, variables):
    program = open_model(start, model, **variables)
    program.press("F9")
    wait_for(model.with_suffix(".aluresult").exists, "results")
    other = Path(shutil.copy(model, tmp_path / "other.json"))
    done = subprocess.run([os.environ["ALUFRAME"], "check", str(other)], check=False,
                          capture_output=True, timeout=PATIENCE)
    assert other.with_suffix(".aluresult").exists(), done.stderr
    assert len(ratios(other)) >= 31, "every element"
    assert ratios(model) == ratios(other)
    assert program.process.poll() is None


def test_a_file_that_is_no_model_is_told_in_a_box(start, tmp_path):
    broken = tmp_path / "broken.json"
    broken.write_text("{")
    program = start(broken)
    program.focus("AluFrame")
    program.press("Return")
    assert program.process.wait(timeout=PATIENCE) == 1
    assert f"{broken}: line 1, column 2: " in program.errors()


def test_a_cancelled_check_leaves_earlier_results(start, tmp_path):
    model = tmp_path / "portal.json"
    subprocess.run([sys.executable, str(GENERATOR), "--kind", "grid", "--elements", "5000",
                    "--combinations", "60", "--output", str(model)], check=True, timeout=PATIENCE)
    subprocess.run([os.environ["ALUFRAME"], "check", str(model), "--elements", "1-20"],
                   check=False, capture_output=True, timeout=PATIENCE)
    results = model.with_suffix(".aluresult")
    before = results.read_bytes()
    program = open_model(start, model)
    program.press("F9")
    program.find("push button", "^Cancel$").click()
    wait_for(lambda: not program.shown("push button", "^Cancel$"), "the end of the run")
    program.find("page tab", "^History$").click()
    wait_for(lambda: any("cancelled" in text.text for text in program.shown("text")),
             "what the history tells")
    assert results.read_bytes() == before


def test_the_report_is_searched_and_closed(start, model):
    program = open_model(start, model)
    program.choose("Report", "Calculation report")
    report = program.find("text", "^Calculation report$")
    assert "report of 31 elements" in report.text
    find = program.find("text", "^Find$")
    find.enter("of 31 elements")
    program.press("Return")
    wait_for(lambda: selected_text(report) == "of 31 elements", "what was looked for, selected")
    find.enter("no such word")
    program.press("Return")
    program.sees("^not found$")
    program.press("Escape")
    wait_for(lambda: len(program.windows()) == 1, "one window again")


def selected_text(widget):
    start, end = widget.proxy.GetSelection(0, dbus_interface="org.a11y.atspi.Text")
    return widget.text[int(start):int(end)]


def test_a_settings_dialog_is_undone_too(start, model):
    # Neither class is what holds without one.
    first = model.read_text(encoding="utf-8").replace('"safety_class": 2', '"safety_class": 1')
    model.write_text(first, encoding="utf-8")
    program = open_model(start, model)
    program.choose("Design", "Design code...")
    program.find("check box|radio button", "^Grade three$").click()
    program.find("push button", "^Ok$").click()
    wait_for(lambda: len(program.windows()) == 1, "the end of the dialog")
    edited = first.replace('"safety_class": 1', '"safety_class": 3')
    save_undo_and_redo(program, model, first, edited, "ctrl+y")


def test_what_another_program_writes_is_read_again(start, model):
    program = open_model(start, model)
    text = model.read_text(encoding="utf-8")
    model.write_text(text.replace("Workshop portal", "Renamed portal"), encoding="utf-8")
    wait_for_title(program)


def test_what_another_program_writes_stays_beside_changes(start, model):
    program = open_model(start, model)
    edit_first_column(program, 31)
    other = model.read_text(encoding="utf-8").replace("Workshop portal", "Renamed portal")
    other = other.replace("Tie rod 22", "Tie rod")
    model.write_text(other, encoding="utf-8")
    wait_for_title(program)
    save(program, model, with_haz_width(other, [1, 2], 31))


@pytest.mark.parametrize("answer, width", [("Keep mine", 31), ("Keep theirs", 40)])
def test_who_changed_a_value_last_is_asked_about(start, model, answer, width):
    program = open_model(start, model)
    edit_first_column(program, 31)
    other = with_haz_width(model.read_text(encoding="utf-8"), [1], 40)
    other = other.replace("Workshop portal", "Renamed portal")
    model.write_text(other, encoding="utf-8")
    program.sees("/elements/0/design/haz_width: 25 when it was opened, 31 here, 40 in the file")
    program.find("push button", f"^{answer}$").click()
    wait_for_title(program)
    expected = with_haz_width(other, [2], 31)
    save(program, model, expected.replace('"haz_width": 40', f'"haz_width": {width}'))


def test_a_folder_that_is_gone_is_told_once(start, tmp_path, model):
    program = open_model(start, model)
    edit_first_column(program, 31)
    first = model.read_text(encoding="utf-8")
    aside = tmp_path.with_name(tmp_path.name + "-aside")
    tmp_path.rename(aside)
    try:
        program.press("ctrl+s")
        program.sees("portal.json")
        program.find("push button", "^OK$").click()
        wait_for(lambda: len(program.windows()) == 1, "no other message")
        program.window(r"^\*?portal.json\*")
    finally:
        aside.rename(tmp_path)
    save(program, model, with_haz_width(first, [1, 2], 31))


def test_changes_outlive_a_kill(start, model):
    first = model.read_text(encoding="utf-8")
    program = open_model(start, model)
    edit_first_column(program, 31)
    wait_for(lambda: list(program.home.glob("data/**/autosave/*.json")), "kept changes")
    program.process.send_signal(signal.SIGKILL)
    program.process.wait(timeout=PATIENCE)
    assert model.read_text(encoding="utf-8") == first
    again = start(model)
    again.sees("an earlier session ended with changes that were not saved")
    assert again.shown("frame", "^portal.json"), "the window that the question is about"
    again.find("push button", "^Yes$").click()
    again.sees("^0 elements selected$")
    save(again, model, with_haz_width(first, [1, 2], 31))
    wait_for(lambda: not list(again.home.glob("data/**/autosave/*.json")), "nothing kept")


def test_closing_asks_for_what_is_not_saved(start, model):
    first = model.read_text(encoding="utf-8")
    program = open_model(start, model)
    edit_first_column(program, 31)
    program.press("ctrl+q")
    program.sees("Save the changes")
    program.find("push button", "^Cancel$").click()
    wait_for(lambda: len(program.windows()) == 1, "the window alone")
    program.focus("portal.json")
    program.press("ctrl+q")
    program.find("push button", "Discard|Don.t Save|without").click()
    assert program.process.wait(timeout=PATIENCE) == 0
    assert model.read_text(encoding="utf-8") == first
    assert not list(program.home.glob("data/**/autosave/*.json"))
