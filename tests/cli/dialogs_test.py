"""`aluframe dialogs`: the dialogs of the desktop program that stands beside the program."""

import os
import shutil
import subprocess
from pathlib import Path

import pytest

PROGRAM = Path(os.environ.get(
    "ALUFRAME", Path(__file__).resolve().parents[2] / "build" / "release" / "bin" / "aluframe"))


@pytest.fixture(name="program")
def fixture_program(tmp_path):
    """The program in a folder of its own, with its libraries and no desktop program."""
    (tmp_path / "bin").mkdir()
    shutil.copy(PROGRAM, tmp_path / "bin")
    (tmp_path / "lib").symlink_to(PROGRAM.resolve().parents[1] / "lib")
    return tmp_path / "bin" / "aluframe"


def put_desktop(program, statuses):
    """Beside it, a desktop program that notes how it was called and ends with these statuses."""
    desktop = program.parent / "aluframe-desktop"
    calls = program.parent / "calls"
    desktop.write_text(
        f'#!/bin/sh\necho "$@" >> {calls}\n'
        f'set -- {" ".join(map(str, statuses))}\n'
        f'shift $(($(wc -l < {calls}) - 1))\nexit "$1"\n')
    desktop.chmod(0o755)
    return calls


def run(program, *arguments):
    return subprocess.run([program, *arguments], capture_output=True, text=True, check=False)


def test_both_dialogs_open_one_after_the_other(program):
    calls = put_desktop(program, [0, 0])
    assert run(program, "dialogs", "frame.json").returncode == 0
    assert calls.read_text() == (
        "--dialog code --lang en frame.json\n--dialog materials --lang en frame.json\n")


def test_closing_the_first_without_ok_leads_to_the_second(program):
    calls = put_desktop(program, [3, 0])
    assert run(program, "dialogs", "frame.json").returncode == 0
    assert len(calls.read_text().splitlines()) == 2


def test_a_model_that_cannot_be_read_ends_it(program):
    calls = put_desktop(program, [1, 0])
    assert run(program, "dialogs", "frame.json").returncode == 1
    assert len(calls.read_text().splitlines()) == 1


def test_one_dialog_alone_in_chinese(program):
    calls = put_desktop(program, [3])
    done = run(program, "dialogs", "--dialog", "code", "--lang", "zh", "frame.json")
    assert done.returncode == 3
    assert calls.read_text() == "--dialog code --lang zh frame.json\n"


def test_another_dialog_is_refused(program):
    done = run(program, "dialogs", "--dialog", "colours", "frame.json")
    assert done.returncode == 1
    assert "found 'colours', must be one of code, materials" in done.stderr


def test_without_the_desktop_program_a_message_says_so(program):
    done = run(program, "dialogs", "frame.json")
    assert done.returncode == 2
    missing = program.parent / "aluframe-desktop"
    assert done.stderr == f"the dialogs need the desktop program, which is missing: {missing}\n"
