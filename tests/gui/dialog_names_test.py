"""What a reader of the screen is told of both settings dialogs, and their keyboard, in the running
program."""

import subprocess
from pathlib import Path

import pytest
from desktop_user import ACCESSIBLE, FOCUSED, MISSING, PATIENCE, PROPERTIES, Widget, wait_for

pytestmark = pytest.mark.skipif(bool(MISSING), reason=f"not installed: {', '.join(MISSING)}")

SELECTED = 23  # place in an AT-SPI state set
LABELLED_BY = 2  # a kind of AT-SPI relation
ENGLISH = {
    "code": ["Design Code", "Section rib stiffener", "Adjustment ratio of strength design",
             "Strength GammaRE", "Stability GammaRE"],
    "materials": ["Material list", "Code", "Grade", "Modulus of Elasticity (Es)",
                  "Poisson's Ratio (Ps)", "Tensil Strength(Fu)", "Yeild Strength(Fy1)",
                  "Yeild Strength(Fy2)"],
}
CHINESE = {
    "code": ["设计规范", "截面有加劲肋", "设计强度调整系数", "强度 γRE", "稳定 γRE"],
    "materials": ["材料列表", "标准", "牌号", "弹性模量（Es）", "泊松比（Ps）", "抗拉强度（Fu）",
                  "屈服强度（Fy1）", "屈服强度（Fy2）"],
}


def fields(program):
    return [widget for widget in program.shown("text|combo box|tree|table")]


def announced(widget):
    """As readers of the screen do: the label that a field is tied to goes before its name, which is
    the chosen entry of a drop-down list."""
    for kind, labels in widget.proxy.GetRelationSet(dbus_interface=ACCESSIBLE):
        if int(kind) == LABELLED_BY:
            label = Widget(widget.program, *labels[0])
            return label.name.rstrip(":：")
    return widget.name


def description(widget):
    return str(widget.proxy.Get(ACCESSIBLE, "Description", dbus_interface=PROPERTIES))


@pytest.mark.parametrize("language, names", [("en", ENGLISH), ("zh", CHINESE)])
@pytest.mark.parametrize("dialog", ["code", "materials"])
def test_every_field_is_announced_by_its_own_label(start_dialog, model, language, names, dialog):
    program = start_dialog(model, dialog, language)
    wait_for(lambda: fields(program), "the dialog")
    assert sorted(announced(field) for field in fields(program)) == sorted(names[dialog])


def test_a_unit_describes_its_field_and_no_other(start_dialog, model):
    program = start_dialog(model, "materials")
    strength = program.find("text", "^Tensil Strength")
    assert description(strength) == "N/mm²"
    assert description(program.find("text", "^Poisson")) == ""


def test_the_only_row_is_reached_by_the_keyboard(start_dialog, model):
    program = start_dialog(model, "materials")
    rows = program.find("tree|table", "^Material list$")
    program.focus("^Modify Alu Material")
    wait_for(lambda: rows.has(FOCUSED), "the focus of the list")
    modulus = program.find("text", "^Modulus")
    assert modulus.text == ""
    program.press("Down")
    wait_for(lambda: modulus.text == "70000", "the values of the row")
    selected = [cell.name for cell in rows.children() if cell.has(SELECTED)]
    assert "6061-T6" in selected


def test_a_message_of_the_dialogs_has_no_caption(start_dialog, model):
    program = start_dialog(model, "materials")
    program.find("push button", "^Modify$").click()
    program.sees("Select the material to modify")
    names = program.xdotool("search", "--onlyvisible", "--pid", program.process.pid, "--name", "")
    titles = [program.xdotool("getwindowname", number) for number in names.split()]
    assert [title for title in titles if title.strip()] == ["Modify Alu Material"]


@pytest.mark.parametrize("answer, ratio", [("Keep mine", "0.7"), ("Keep theirs", "0.8")])
def test_who_changed_a_setting_last_is_asked_about(start_dialog, model, aluframe, answer, ratio):
    first = model.read_text(encoding="utf-8")
    program = start_dialog(model, "code")
    field = program.find("text", "^Adjustment ratio")
    field.enter("0.7")
    program.find("radio button|check box", "^Grade one$").click()
    subprocess.run([aluframe, "settings", model, "--set", "strength_ratio=0.8"], check=True)
    program.find("push button", "^Ok$").click()
    program.sees("/settings/strength_ratio: 0.9 when it was opened, 0.7 here, 0.8 in the file")
    program.find("push button", f"^{answer}$").click()
    assert program.process.wait(timeout=PATIENCE) == 0
    expected = first.replace('"strength_ratio": 0.9', f'"strength_ratio": {ratio}')
    assert Path(model).read_text(encoding="utf-8") == expected.replace(
        '"safety_class": 2', '"safety_class": 1')


def test_neither_side_leads_back_to_the_dialog_as_it_was(start_dialog, model, aluframe):
    program = start_dialog(model, "code")
    program.find("text", "^Adjustment ratio").enter("0.7")
    subprocess.run([aluframe, "settings", model, "--set", "strength_ratio=0.8"], check=True)
    theirs = model.read_text(encoding="utf-8")
    program.find("push button", "^Ok$").click()
    program.sees("/settings/strength_ratio")
    program.find("push button", "^Cancel$").click()
    assert program.find("text", "^Adjustment ratio").text == "0.7"
    assert model.read_text(encoding="utf-8") == theirs
    program.find("push button", "^Close$").click()
    assert program.process.wait(timeout=PATIENCE) == 3
    assert model.read_text(encoding="utf-8") == theirs
