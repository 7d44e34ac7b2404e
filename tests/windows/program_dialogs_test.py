"""`aluframe dialogs` on Windows: dialogs of the system over a model file, worked by keys."""

import json
import shutil
import subprocess
import time

import pytest

import module_wine
import program_wine
from module_wine import wait_for, windows_path
from program_wine import ROOT
from screen_user import CODE, MATERIALS, MATERIALS_SIZE, User

module_wine.require_programs("Xvfb", "xdotool", "import")
program_wine.require()

IN_CHINESE = {CODE: "铝合金设计规范", MATERIALS: "修改铝合金材料"}


@pytest.fixture(name="model")
def fixture_model(tmp_path):
    folder = tmp_path / "模型 é"
    folder.mkdir()
    return shutil.copy(ROOT / "examples" / "portal-bracket.json", folder / "模型.json")


@pytest.fixture(name="start")
def fixture_start(wine, screen, model):
    users = []

    def start(*arguments):
        user = User(wine, screen, program_wine.windows_program(), "dialogs", windows_path(model), *arguments,
                    cwd=model.parent)
        users.append(user)
        return user

    yield start
    for user in users:
        user.ends()


def text_of(model):
    return model.read_text(encoding="utf-8")


def material_of(model):
    return json.loads(text_of(model))["materials"][0]


def set_meanwhile(model, change):
    subprocess.run([program_wine.LINUX, "settings", model, "--set", change], check=True, capture_output=True)


def shown_windows(user):
    return user.screen.do("search", "--onlyvisible", "--class", ".").split()


def give_keyboard(user):
    """To the only window: nobody on this screen does so when another one was closed."""
    time.sleep(0.5)  # until it is drawn
    user.screen.do("windowfocus", *shown_windows(user)[-1:])
    time.sleep(0.2)


def works_in(user, title):
    """As soon as the dialog is shown."""
    user.sees(title)
    give_keyboard(user)


def enter_ratio(user, text, title=CODE):
    works_in(user, title)
    # From the list of codes: Ok, Close, ribs, the classes, the ratio.
    user.press(*["Tab"] * 5)
    user.type(text)


def status_of(user):
    return user.program.wait(timeout=60)


def press_and_see_a_box(user, key):
    user.press(key)
    # In the place of the dialog.
    assert wait_for(lambda: CODE not in user.windows() and shown_windows(user)), "no box asks"
    give_keyboard(user)


def test_ok_stores_the_settings_and_nothing_else_of_the_file(start, model):
    before = text_of(model)
    user = start("--dialog", "code")
    enter_ratio(user, "0.8")
    user.press("Return")
    assert status_of(user) == 0
    assert text_of(model) == before.replace('"strength_ratio": 0.9', '"strength_ratio": 0.8')


def test_escape_stores_nothing_and_is_told_by_the_status(start, model):
    before = model.read_bytes()
    user = start("--dialog", "code")
    enter_ratio(user, "0.8")
    user.press("Escape")
    assert status_of(user) == 3
    assert model.read_bytes() == before


def test_both_dialogs_open_one_after_the_other(start, model):
    user = start()
    works_in(user, CODE)
    user.press("Escape")
    works_in(user, MATERIALS)
    user.does_not_see(CODE)
    user.press("Escape")
    assert status_of(user) == 0


def test_a_material_is_changed(start, model):
    user = start("--dialog", "materials")
    works_in(user, MATERIALS)
    user.click(MATERIALS, MATERIALS_SIZE, 30, 36)  # the first row
    user.click(MATERIALS, MATERIALS_SIZE, 200, 117)  # opens the list of grades
    user.press("Down", "Return")
    user.click(MATERIALS, MATERIALS_SIZE, 169, 225)  # Modify
    user.press("Escape")
    assert status_of(user) == 0
    assert material_of(model)["alloy"] == "6063-T5"


def test_a_material_is_changed_by_the_keyboard_alone(start, model):
    user = start("--dialog", "materials")
    works_in(user, MATERIALS)
    user.press("Down")  # in the list of materials: its only row
    # On to the standard, the grade.
    user.press("Tab", "Tab", "Down")
    user.press("Escape")
    assert status_of(user) == 0
    assert material_of(model)["alloy"] == "6061-T6", "only Modify stores"


def test_the_dialogs_are_chinese_in_chinese(start, model):
    user = start("--lang", "zh")
    enter_ratio(user, "0.7", IN_CHINESE[CODE])
    user.press("Return")
    works_in(user, IN_CHINESE[MATERIALS])
    user.press("Escape")
    assert status_of(user) == 0
    assert '"strength_ratio": 0.7' in text_of(model)


def test_what_another_program_changes_meanwhile_stays(start, model):
    before = text_of(model)
    user = start("--dialog", "code")
    enter_ratio(user, "0.8")
    set_meanwhile(model, "safety_class=1")
    user.press("Return")
    assert status_of(user) == 0
    assert text_of(model) == before.replace('"strength_ratio": 0.9', '"strength_ratio": 0.8').replace(
        '"safety_class": 2', '"safety_class": 1')


@pytest.mark.parametrize("keys, ratio", [(["Return"], "0.8"), (["Tab", "Return"], "0.7")], ids=["mine", "theirs"])
def test_who_has_changed_a_setting_last_is_asked_about(start, model, keys, ratio):
    user = start("--dialog", "code")
    enter_ratio(user, "0.8")
    set_meanwhile(model, "strength_ratio=0.7")
    press_and_see_a_box(user, "Return")
    assert '"strength_ratio": 0.7' in text_of(model)
    user.press(*keys)
    assert status_of(user) == 0
    assert f'"strength_ratio": {ratio}' in text_of(model)


def test_neither_side_leads_back_to_the_dialog_which_can_be_closed(start, model):
    user = start("--dialog", "code")
    enter_ratio(user, "0.8")
    set_meanwhile(model, "strength_ratio=0.7")
    theirs = model.read_bytes()
    press_and_see_a_box(user, "Return")
    user.press("Escape")
    works_in(user, CODE)
    assert user.program.poll() is None
    user.press("Escape")
    assert status_of(user) == 3
    assert model.read_bytes() == theirs


def test_a_model_that_cannot_be_written_is_told_and_stays(start, model, wine):
    before = model.read_bytes()
    model.chmod(0o444)
    done = start("--dialog", "code")
    enter_ratio(done, "0.8")
    done.press("Return")
    assert status_of(done) == 2
    assert model.read_bytes() == before


def test_a_model_that_is_not_there_opens_no_dialog(wine, tmp_path):
    done = wine.run(program_wine.windows_program(), "dialogs", "没有.json", cwd=tmp_path)
    assert done.returncode == 1
    assert done.stderr == "没有.json: cannot be opened: No such file or directory\n"
