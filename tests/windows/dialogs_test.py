"""The module's dialogs as windows of the system, worked by keys and mouse on a screen in memory."""

import time

import pytest

import module_wine
from module_wine import BIN, wait_for
from screen_user import CODE, MATERIALS, MATERIALS_SIZE, User

module_wine.require("Xvfb", "xdotool", "import")


@pytest.fixture
def user(wine, screen, tmp_path):
    somebody = User(wine, screen, BIN / "module_window.exe", cwd=tmp_path)
    somebody.sees("Tiny frame")
    yield somebody
    somebody.press("Escape")
    somebody.press("alt+a", "q")
    somebody.ends()


@pytest.mark.parametrize("name", ["windows_framework_test", "windows_dialogs_test"])
def test_the_dialogs_behave_as_those_in_memory(wine, name):
    done = wine.run(BIN / f"{name}.exe", "--gtest_brief=1", timeout=300)
    assert done.returncode == 0, done.stdout[-4000:]
    assert "[  PASSED  ]" in done.stdout


def test_a_host_checks_a_pipe(user):
    user.press("alt+a", "c")
    # By hand: γ0 1.0, Aen = 0.85 · 2827.43 = 2403.3155 mm²; 1e5 N / Aen = 41.609 N/mm².
    # 6061-T6: f = 200 N/mm².
    user.sees("strength 41.609 of 200.000")


def test_settings_are_changed_by_the_keyboard_and_used_by_the_next_check(user):
    user.press("alt+a", "d")
    user.sees(CODE)
    # From the list of codes: Ok, Close, ribs, the classes (an arrow checks the third), the ratio.
    user.press("Tab", "Tab", "Tab", "Tab", "Down", "Tab")
    user.type("0.9")
    user.press("Return")
    user.sees("settings 1 ratio 0.900")
    user.press("alt+a", "c")
    # By hand: γ0 0.9, Aen = 0.9 · 2827.43 = 2544.687 mm²; 0.9 · 1e5 N / Aen = 35.368 N/mm².
    user.sees("strength 35.368 of 200.000")


def test_shift_and_tab_go_back(user):
    user.press("alt+a", "d")
    user.sees(CODE)
    # From the list of codes back to the rib's ratio, the check box of the earthquake (the factors
    # behind it are disabled) and the ratio of strength.
    user.press("shift+Tab", "shift+Tab", "shift+Tab")
    user.type("0.7")
    user.press("Return")
    user.sees("settings 1 ratio 0.700")


def test_a_wrong_number_is_told_in_a_box_and_the_dialog_stays(user):
    user.press("alt+a", "d")
    user.sees(CODE)
    before = len(user.windows())
    user.press("Tab", "Tab", "Tab", "Tab", "Tab")
    user.type("0")
    user.press("Return")
    shown = user.screen.do
    assert wait_for(lambda: len(shown("search", "--onlyvisible", "--class", ".").split()) > before)
    user.press("Return")
    user.sees(CODE)
    user.press("Escape")
    user.sees("settings 2 ratio none")


def test_the_close_button_of_the_title_stores_nothing(user):
    user.press("alt+a", "d")
    user.sees(CODE)
    left, top, width, _ = user.place(CODE)
    user.screen.do("mousemove", left + width - 12, top + 12, "click", "1")
    user.sees("settings 2 ratio none")


def test_a_material_is_changed_by_the_mouse(user):
    user.press("alt+a", "t")
    user.sees(MATERIALS)
    user.click(MATERIALS, MATERIALS_SIZE, 30, 36)  # the first row
    user.click(MATERIALS, MATERIALS_SIZE, 184, 168)  # the edit of fu
    user.press("End", *["BackSpace"] * 5)
    user.type("260.5")
    user.click(MATERIALS, MATERIALS_SIZE, 169, 225)  # Modify
    user.click(MATERIALS, MATERIALS_SIZE, 223, 225)  # Close
    user.sees("material 6061-T6 260.500")


def test_a_grade_is_chosen_by_the_mouse(user):
    user.press("alt+a", "t")
    user.sees(MATERIALS)
    user.click(MATERIALS, MATERIALS_SIZE, 30, 36)
    user.click(MATERIALS, MATERIALS_SIZE, 200, 117)  # opens the list of grades
    user.press("Down", "Return")
    user.click(MATERIALS, MATERIALS_SIZE, 169, 225)
    user.press("Escape")
    user.sees("material 6063-T6 205.000")


def test_a_long_check_shows_its_progress_and_can_be_cancelled(user):
    user.press("alt+a", "m")
    user.sees("IDS_MAIN_RIBBON_MENU_ALU_DGN")  # this host's texts are their keys
    time.sleep(0.5)  # until it has the keyboard
    user.press("Return")
    user.sees("stopped")


def test_a_long_check_that_is_left_alone_ends_and_closes_its_progress(user):
    user.press("alt+a", "m")
    user.sees("IDS_MAIN_RIBBON_MENU_ALU_DGN")
    assert wait_for(lambda: "strength 41.609 of 200.000" in user.windows(), 120)
    user.does_not_see("IDS_MAIN_RIBBON_MENU_ALU_DGN")


def report_of(user, folder):
    user.press("alt+a", "c")
    user.sees("strength 41.609 of 200.000")
    user.press("alt+a", "r")
    user.sees("report written")
    return (folder / "tiny.alu").read_bytes()


def test_a_report_is_written_and_shown_in_the_editor(user, tmp_path):
    lines = report_of(user, tmp_path).split(b"\n")
    # By hand, as in the check of this pipe above; 41.609 of 200 is a ratio of 0.208.
    assert b"   Aen =   2403.315" in lines
    assert b"   Rmax1=N/(f*Aen)=     0.208<1.00 ----> OK" in lines
    user.sees("tiny.alu - Notepad")
    user.press("alt+F4")
    user.does_not_see("tiny.alu - Notepad")


def test_a_report_is_in_the_users_code_page(wine, screen, tmp_path):
    korean = dict(wine.environment, LC_ALL="ko_KR.EUC-KR")
    user = User(wine, screen, BIN / "module_window.exe", cwd=tmp_path, env=korean)
    user.sees("Tiny frame")
    lines = report_of(user, tmp_path).split(b"\n")
    # Through code page 949 the title of the strength check has the bytes of the GBK text U+5F3A
    # U+5EA6 U+9A8C U+7B97.
    assert "  [[[*]]]   \u5f3a\u5ea6\u9a8c\u7b97".encode("gbk") in lines
    assert wait_for(lambda: any(title.startswith("tiny.alu") for title in user.windows()))
    user.press("alt+F4")
    assert wait_for(lambda: not any(t.startswith("tiny.alu") for t in user.windows()))
    user.press("alt+a", "q")
    user.ends()
