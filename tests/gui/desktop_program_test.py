"""The desktop program from its command line, where no window opens."""

import os
import subprocess

import pytest


def run(*arguments, display="offscreen"):
    environment = {
        key: value
        for key, value in os.environ.items()
        if key not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM")
    }
    if display:
        environment["QT_QPA_PLATFORM"] = display
    return subprocess.run(
        [os.environ["ALUFRAME_DESKTOP"], *map(str, arguments)],
        capture_output=True, text=True, check=False, timeout=60, env=environment,
    )


def test_help_needs_no_display():
    done = run("--help", display=None)
    assert done.returncode == 0
    assert "--dialog" in done.stdout


@pytest.mark.parametrize(
    "arguments, told",
    [
        (["--dialog", "forces", "model.json"], "found 'forces', must be one of code, materials"),
        (["--lang", "fr"], "found 'fr', must be one of en, zh"),
        (["--dialog", "code"], "MODEL"),
        (["--colour"], "--colour"),
    ],
)
def test_wrong_usage_is_told(arguments, told):
    done = run(*arguments)
    assert done.returncode == 1
    assert told in done.stderr


@pytest.mark.parametrize("options", [[], ["--dialog", "code"], ["--dialog", "materials"]])
def test_a_model_that_cannot_be_read_is_told(tmp_path, options):
    model = tmp_path / "broken.json"
    model.write_text("{")
    done = run(*options, model)
    assert done.returncode == 1
    assert f"\naluframe-desktop: {model}: line 1, column 2: " in "\n" + done.stderr


def test_without_display_nothing_opens(tmp_path):
    done = run(tmp_path / "model.json", display=None)
    assert done.returncode == 2
    assert done.stderr == "aluframe-desktop: there is no display to show windows on\n"
