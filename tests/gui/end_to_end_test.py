"""The real window on a screen of its own, worked by keys and the mouse as a user does."""

import json
import os
import shutil
import subprocess
import time
from pathlib import Path

import pytest

EXAMPLE = Path(__file__).parents[2] / "examples" / "portal-bracket.json"
PATIENCE = 60  # s

missing = [name for name in ("Xvfb", "xdotool") if shutil.which(name) is None]
pytestmark = pytest.mark.skipif(bool(missing), reason=f"not installed: {', '.join(missing)}")


def wait_for(what, told):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        found = what()
        if found:
            return found
        time.sleep(0.05)
    raise AssertionError(f"did not happen: {told}")


@pytest.fixture(scope="module", name="screen")
def fixture_screen():
    """A screen in memory whose number the server chooses."""
    reading, writing = os.pipe()
    with subprocess.Popen(
        ["Xvfb", "-displayfd", str(writing), "-screen", "0", "1500x950x24", "-nolisten", "tcp",
         "-noreset"],
        pass_fds=[writing], stderr=subprocess.DEVNULL,
    ) as server:
        os.close(writing)
        with os.fdopen(reading) as told:
            number = told.readline().strip()
        assert number, "Xvfb did not start"
        yield f":{number}"
        server.terminate()


class Program:
    """The running program and its user."""

    def __init__(self, screen, model, **variables):
        self.home = model.parent / "home"
        self.home.mkdir(exist_ok=True)
        self.environment = {
            key: value for key, value in os.environ.items()
            if key not in ("QT_QPA_PLATFORM", "WAYLAND_DISPLAY")
        } | {
            "DISPLAY": screen, "HOME": str(self.home), "XDG_CONFIG_HOME": str(self.home / "config"),
            "XDG_DATA_HOME": str(self.home / "data"), "LC_ALL": "C.UTF-8",
            "LIBGL_ALWAYS_SOFTWARE": "1", **variables,
        }
        self.process = subprocess.Popen(
            [os.environ["ALUFRAME_DESKTOP"], "--lang", "en", str(model)], env=self.environment,
            stderr=subprocess.PIPE, text=True,
        )

    def user(self, *arguments):
        done = subprocess.run(["xdotool", *map(str, arguments)], env=self.environment, text=True,
                              capture_output=True, check=False, timeout=PATIENCE)
        return done.stdout.strip()

    def window(self, title):
        """The shown window with such a title."""
        def find():
            assert self.process.poll() is None, self.process.stderr.read()
            found = self.user("search", "--onlyvisible", "--pid", self.process.pid, "--name", title)
            return found.split("\n")[0]
        return wait_for(find, f"a window {title}")

    def press(self, *keys):
        self.user("key", "--clearmodifiers", *keys)

    def end(self):
        if self.process.poll() is None:
            self.process.terminate()
        self.process.wait(timeout=PATIENCE)
        self.process.stderr.close()


@pytest.fixture(name="start")
def fixture_start(screen):
    programs = []

    def start(model, **variables):
        programs.append(Program(screen, model, **variables))
        return programs[-1]

    yield start
    for program in programs:
        program.end()


@pytest.fixture(name="model")
def fixture_model(tmp_path):
    return Path(shutil.copy(EXAMPLE, tmp_path / "portal.json"))


def ratios(model):
    done = subprocess.run([os.environ["ALUFRAME"], "results", str(model), "--format", "json"],
                          capture_output=True, text=True, check=True, timeout=PATIENCE)
    return json.loads(done.stdout)


@pytest.mark.parametrize("variables", [{}, {"ALUFRAME_NO_OPENGL": "1"}])
def test_the_hot_key_stores_the_results_of_the_command_line(start, model, tmp_path, variables):
    program = start(model, **variables)
    window = program.window("portal.json")
    program.user("windowfocus", "--sync", window)
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
    box = program.window("AluFrame")
    program.user("windowfocus", "--sync", box)
    program.press("Return")
    assert program.process.wait(timeout=PATIENCE) == 1
    assert f"{broken}: line 1, column 2: " in program.process.stderr.read()
