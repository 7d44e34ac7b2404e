"""Selecting and editing in the real window with the real mouse, on a screen of its own."""

import json
import os
import subprocess

import pytest
from desktop_user import ENABLED, MISSING, PATIENCE, wait_for
from editing_user import edit_haz_width, open_model, save_undo_and_redo, with_haz_width
from shown_frame import ShownFrame

pytestmark = pytest.mark.skipif(bool(MISSING), reason=f"not installed: {', '.join(MISSING)}")
WITH_AND_WITHOUT_OPENGL = pytest.mark.parametrize(
    "variables", [{}, {"ALUFRAME_NO_OPENGL": "1"}], ids=["opengl", "lines"])


def checked_elements(program, model):
    """The selected elements, by the results of checking them alone."""
    results = model.with_suffix(".aluresult")
    before = results.stat().st_ino if results.exists() else None
    program.press("shift+F9")
    wait_for(lambda: results.exists() and results.stat().st_ino != before, "new results")
    wait_for(lambda: not program.shown("push button", "^Cancel$"), "the end of the run")
    done = subprocess.run([os.environ["ALUFRAME"], "results", str(model), "--format", "json"],
                          capture_output=True, text=True, check=True, timeout=PATIENCE)
    return sorted({row["element"] for row in json.loads(done.stdout)})


@WITH_AND_WITHOUT_OPENGL
def test_a_click_selects_and_ctrl_adds(start, model, variables):
    program = open_model(start, model, **variables)
    frame = ShownFrame(program, model)
    program.click(*frame.point(17, 0.6))
    program.sees("^element 17 \"Tie 1\"")
    program.sees("^1 element selected$")
    assert checked_elements(program, model) == [17]
    program.click(*frame.point(4), "ctrl")
    program.sees("^2 elements selected$")
    assert checked_elements(program, model) == [4, 17]
    program.click(*frame.point(17, 0.6), "ctrl")
    program.sees("^1 element selected$")
    assert checked_elements(program, model) == [4]
    program.click(frame.area[0] + 10, frame.area[1] + 10)
    program.sees("^0 elements selected$")


@WITH_AND_WITHOUT_OPENGL
def test_a_band_takes_what_is_in_it_or_what_it_touches(start, model, variables):
    program = open_model(start, model, **variables)
    frame = ShownFrame(program, model)
    x, y, width, height = frame.area
    left, top = frame.point(2, 1.0)  # the eaves of column A1
    band = left - 30, top - 30, left + 60, top + 120
    for kind, start_at, end_at in (("window", band[:2], band[2:]),
                                   ("crossing", (band[2], band[1]), (band[0], band[3]))):
        expected = frame.in_band(*band, whole=kind == "window")
        program.drag(start_at, end_at)
        program.sees(f"^{len(expected)} elements? selected$")
        assert checked_elements(program, model) == expected, kind
    # From left below to right above, so that the cube in the corner is not in the way.
    program.drag((x + 20, y + height - 20), (x + width - 20, y + 20))
    program.sees("^31 elements selected$")
    assert checked_elements(program, model) == list(range(1, 32))


def test_attributes_of_clicked_elements_are_saved_undone_and_redone(start, model):
    first = model.read_text(encoding="utf-8")
    edited = with_haz_width(first, [1, 4], 31)
    program = open_model(start, model)
    frame = ShownFrame(program, model)
    program.click(*frame.point(1))
    program.sees("^1 element selected$")
    program.click(*frame.point(4), "ctrl")
    program.sees("^2 elements selected$")
    edit_haz_width(program, 31)
    assert model.read_text(encoding="utf-8") == first, "nothing is written before it is saved"
    save_undo_and_redo(program, model, first, edited, "ctrl+shift+z")


def test_the_tree_and_the_table_select(start, model):
    program = open_model(start, model)
    program.choose("Design", "Check all")
    wait_for(model.with_suffix(".aluresult").exists, "results")
    table = program.find("table", "^Table$")
    wait_for(lambda: len(table.children()) > 31, "a row of every element")
    cells = table.children()
    left = next(cell for cell in cells if cell.name == "element").area[0]
    next(cell for cell in cells if cell.name == "2" and cell.area[0] == left).click()
    program.sees("^1 element selected$")
    program.sees("^Element 2 ")
    program.press("shift+Down", "shift+Down")
    program.sees("^3 elements selected$")
    program.sees("^Element 4 .*of 3 selected")
    tree = program.find("tree", "^Model$")
    ties = next(row for row in tree.children() if row.name == "7 Tie rod 22")
    ties.click()
    program.sees("^2 elements selected$")
    program.find("page tab", "^Design attributes$").click()
    program.sees("^2 elements together$")


def test_the_wheel_scrolls_a_panel_and_changes_no_attribute(start, model):
    first = model.read_text(encoding="utf-8")
    program = open_model(start, model)
    frame = ShownFrame(program, model)
    program.click(*frame.point(13, 0.8))
    program.sees("^1 element selected$")
    program.find("page tab", "^Design attributes$").click()
    choice = program.find("combo box", "^beam$")
    place = choice.area
    program.xdotool("mousemove", *choice.middle, "click", 5)
    wait_for(lambda: choice.area != place or choice.name != "beam", "what the wheel does")
    assert choice.name == "beam"
    assert not program.find("push button", "^Save$").has(ENABLED)
    assert model.read_text(encoding="utf-8") == first
