"""The program in a console: its characters, colours, progress bar, and ends that the user makes."""

import contextlib
import errno
import fcntl
import os
import pty
import re
import select
import shutil
import struct
import subprocess
import sys
import termios
import time

import pytest

import program_wine
from program_wine import ROOT, windows_program

program_wine.require()

ROWS, COLUMNS = 50, 160


class Console:
    """A console with the program in it."""

    def __init__(self, machine, folder, *arguments):
        self.end, inner = pty.openpty()
        fcntl.ioctl(inner, termios.TIOCSWINSZ, struct.pack("HHHH", ROWS, COLUMNS, 0, 0))
        self.program = subprocess.Popen(
            ["wine", str(windows_program()), *map(str, arguments)], cwd=folder, env=machine.environment({}),
            stdin=inner, stdout=inner, stderr=inner, start_new_session=True,
            preexec_fn=lambda: fcntl.ioctl(0, termios.TIOCSCTTY, 0))
        os.close(inner)
        self.raw = b""

    def read(self, seconds):
        """What comes within a time. @return false when no more will come"""
        if not select.select([self.end], [], [], seconds)[0]:
            return True
        try:
            more = os.read(self.end, 65536)
        except OSError as error:
            if error.errno != errno.EIO:
                raise
            more = b""
        self.raw += more
        return more != b""

    def shown(self):
        """What was shown so far, without what moves the cursor; blanks are moves to the right."""
        text = self.raw.decode("utf-8", "replace")
        text = re.sub(r"\x1b\[(\d*)C", lambda move: " " * int(move[1] or 1), text)
        text = re.sub(r"\x1b\[[0-9;?]*[A-Zhln]", "", text)
        return text.replace("\r", "")

    def wait_for(self, words, seconds=60):
        end = time.monotonic() + seconds
        while words not in self.shown():
            assert self.read(0.2) and time.monotonic() < end, f"no {words!r} in {self.shown()!r}"

    def type(self, keys):
        os.write(self.end, keys)

    def finish(self, seconds=120):
        """@return the status"""
        end = time.monotonic() + seconds
        while self.read(0.2):
            if self.program.poll() is not None and not select.select([self.end], [], [], 0.5)[0]:
                break
            assert time.monotonic() < end, self.shown()
        return self.program.wait(timeout=seconds)

    def close(self):
        if self.end is not None:
            with contextlib.suppress(OSError):
                os.close(self.end)
            self.end = None


@pytest.fixture(name="open_console")
def fixture_open_console(machine):
    consoles = []

    def open_console(folder, *arguments):
        consoles.append(Console(machine, folder, *arguments))
        return consoles[-1]

    yield open_console
    for console in consoles:
        console.close()
        if console.program.poll() is None:
            console.program.kill()
        console.program.wait(timeout=60)


@pytest.fixture(name="folder")
def fixture_folder(tmp_path):
    shutil.copy(ROOT / "examples" / "portal-bracket.json", tmp_path / "模型.json")
    return tmp_path


def write_large_model(folder):
    subprocess.run(
        [sys.executable, str(ROOT / "tools" / "generate_model.py"), "--kind", "grid", "--elements", "8000",
         "--combinations", "50", "--output", str(folder / "large.json")], check=True)


def test_chinese_characters_are_shown_as_they_are(open_console, folder):
    console = open_console(folder, "settings", "模型.json", "--lang", "zh")
    assert console.finish() == 0
    assert "设置项" in console.shown()


def test_help_in_chinese_is_shown_as_it_is(open_console, folder):
    console = open_console(folder, "--lang", "zh", "check", "--help")
    assert console.finish() == 0
    assert "检查" in console.shown() or "验算" in console.shown()


def test_a_message_names_a_chinese_file(open_console, folder):
    console = open_console(folder, "check", "没有.json")
    assert console.finish() == 1
    assert "没有.json: cannot be opened: No such file or directory" in console.shown()


def test_ratios_above_one_are_red(open_console, machine, folder):
    machine.run("check", "模型.json", folder=folder)
    console = open_console(folder, "results", "模型.json", "--sort", "ratio")
    assert console.finish() == 0
    assert "31m" in console.raw.decode("utf-8", "replace")
    printed = machine.run("results", "模型.json", "--sort", "ratio", folder=folder)
    assert b"\x1b" not in printed.out


def test_the_bar_of_a_check_grows(open_console, folder):
    write_large_model(folder)
    console = open_console(folder, "check", "large.json")
    console.wait_for("100 %", seconds=300)
    assert console.finish() == 0
    shown = console.shown()
    bars = [len(bar.strip(".")) for bar in re.findall(r"elements \[([#.]+)\]", shown)]
    assert bars == sorted(bars) and bars[0] < bars[-1] and len(bars) > 3, shown
    assert "#" in shown


def test_ctrl_c_ends_a_check_and_keeps_what_was_stored(open_console, machine, folder):
    write_large_model(folder)
    console = open_console(folder, "check", "large.json")
    console.wait_for("left")
    console.type(b"\x03")
    assert console.finish() == 3
    assert "are in large.aluresult.partial, --resume goes on with them" in console.shown()
    assert machine.run("check", "large.json", "--resume", folder=folder).status == 0


def test_a_console_that_is_closed_ends_a_check_and_keeps_what_was_stored(open_console, machine, folder):
    write_large_model(folder)
    console = open_console(folder, "check", "large.json")
    console.wait_for("left")
    console.close()
    console.program.wait(timeout=60)
    assert not (folder / "large.aluresult").exists()
    # Whatever Wine leaves the program of its time: the file is whole, and the run can go on.
    assert machine.run("check", "large.json", "--resume", folder=folder).status == 0
    assert sorted(path.name for path in folder.glob("large*")) == ["large.aluresult", "large.json"]
