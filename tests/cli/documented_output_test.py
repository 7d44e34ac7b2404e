"""What README.md and docs/members.md show is what the program prints, but for the time that a run takes."""

import re
import shlex
import shutil

import pytest
from conftest import ROOT
from members_test import PORTAL


def shown_in(page):
    """Commands of a page with the lines that it shows of their output."""
    text = (ROOT / page).read_text(encoding="utf-8")
    for block in re.findall(r"```\n(\$ .*?)```", text, re.DOTALL):
        for part in block.split("$ aluframe ")[1:]:
            command, _, output = part.partition("\n")
            yield pytest.param(shlex.split(command), output.strip().split("\n"), id=command)


def without_time(lines):
    return [line.rstrip() for line in lines if not line.startswith("  time ")]


@pytest.fixture(scope="module")
def checked_example(tmp_path_factory):
    folder = tmp_path_factory.mktemp("documented")
    shutil.copytree(ROOT / "examples", folder / "examples")
    return folder


@pytest.mark.parametrize("command, output", shown_in("README.md"))
def test_the_readme_shows_what_is_printed(aluframe, checked_example, command, output):
    aluframe.folder = checked_example  # results of the first command serve the second
    done = aluframe(*command)
    printed = (done.stderr + done.stdout).strip().split("\n")
    assert without_time(printed) == without_time(output)


@pytest.mark.parametrize("command, output", shown_in("docs/members.md"))
def test_the_page_on_members_shows_what_is_printed(aluframe, command, output):
    aluframe.write(PORTAL, "portal.json")
    assert without_time(aluframe(*command).stdout.strip().split("\n")) == without_time(output)
