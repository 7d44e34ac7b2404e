"""A screen, a model of the user's own and programs that end with their test."""

import os
import shutil
from pathlib import Path

import pytest
from desktop_user import Program, Screen

EXAMPLE = Path(__file__).parents[2] / "examples" / "portal-bracket.json"


@pytest.fixture(scope="session", name="screen")
def fixture_screen(tmp_path_factory):
    screen = Screen(tmp_path_factory.mktemp("screen"))
    yield screen
    screen.end()


@pytest.fixture(name="start")
def fixture_start(screen):
    programs = []

    def start(model, **variables):
        programs.append(Program(screen, model, **variables))
        return programs[-1]

    yield start
    for program in programs:
        program.end()


@pytest.fixture(name="start_dialog")
def fixture_start_dialog(start):
    def start_dialog(model, dialog, language="en"):
        return start(model, options=["--dialog", dialog], language=language)

    return start_dialog


@pytest.fixture(name="aluframe")
def fixture_aluframe():
    return os.environ["ALUFRAME"]


@pytest.fixture(name="model")
def fixture_model(tmp_path):
    return Path(shutil.copy(EXAMPLE, tmp_path / "portal.json"))
