"""What README.md and the pages below docs name is there: pages and places that links lead to, files, options."""

import functools
import re
import shlex
import subprocess
import sys

import pytest
from program import ROOT, Program
from document_coverage import NOT_RUN, reason_not_to_run
from document_runs import commands_of
from documents import anchors_of, blocks_of, inline_code_of, links_of, pages

DESKTOP_PAGE = "docs/dialogs.md"
# Options in running text belong to any command of the program, on these pages to theirs.
COMMAND_OF_PAGE = {"docs/explain.md": "explain", "docs/report.md": "report", "docs/sections.md": "section",
                   "docs/settings.md": "settings"}
OPTION = re.compile(r"(?<![\w-])--[a-z][a-z0-9-]*")
# Folders of the repository that a path in running text may begin with; what a build makes is not there yet.
FOLDERS = [path.name for path in ROOT.iterdir() if path.is_dir() and path.name not in ("build", ".git")]
PATH = re.compile(rf"(?:{'|'.join(map(re.escape, FOLDERS))})/[\w./*-]*")


@functools.cache
def options_of(*program):
    """The options that a program's help names."""
    done = subprocess.run([*program, "--help"], capture_output=True, text=True, check=True, timeout=60, cwd=ROOT)
    return set(OPTION.findall(done.stdout))


@functools.cache
def aluframe_commands():
    path = Program(ROOT).path
    text = subprocess.run([path, "--help"], capture_output=True, text=True, check=True, timeout=60).stdout
    return re.findall(r"^  ([a-z]+) ", text.partition("Subcommands:")[2], re.M)


def desktop_options():
    """The desktop program is not part of every build: its options stand in its source."""
    source = (ROOT / "apps/desktop/main.cpp").read_text(encoding="utf-8")
    return set(re.findall(r'"(--[a-z-]+)"', source))


def options_where(page, code):
    """The options that may stand in inline code: of the program and command that it names, else of the page's."""
    words = code.split()
    if words[0] == "aluframe-desktop" or (page == DESKTOP_PAGE and words[0] != "aluframe"):
        return desktop_options()
    command = words[1] if words[0] == "aluframe" and len(words) > 1 else COMMAND_OF_PAGE.get(page)
    commands = [command] if command in aluframe_commands() else aluframe_commands()
    return set().union(*(options_of(Program(ROOT).path, name) for name in commands))


@pytest.mark.parametrize("page", pages())
def test_links_lead_somewhere(page):
    lost = []
    for line, target in links_of(page):
        path, _, anchor = target.partition("#")
        if path.startswith(("https://", "http://")):
            continue
        goal = ((ROOT / page).parent / path).resolve() if path else ROOT / page
        if not goal.exists() or (anchor and anchor not in anchors_of(goal.relative_to(ROOT).as_posix())):
            lost.append(f"{page}:{line}: {target}")
    assert lost == []


@pytest.mark.parametrize("page", pages())
def test_options_in_running_text_exist(page):
    unknown = []
    for line, code in inline_code_of(page):
        named = set(OPTION.findall(code))
        if named and not reason_not_to_run(code):
            unknown += [f"{page}:{line}: {option}" for option in sorted(named - options_where(page, code))]
    assert unknown == []


@pytest.mark.parametrize("page", pages())
def test_commands_in_running_text_exist(page):
    named = [(line, code.split()[1]) for line, code in inline_code_of(page)
             if code.startswith("aluframe ") and code.split()[1].isalpha()]
    assert [(line, name) for line, name in named if name not in aluframe_commands()] == []


@pytest.mark.parametrize("page", pages())
def test_files_in_running_text_exist(page):
    lost = [f"{page}:{line}: {code}" for line, code in inline_code_of(page)
            if PATH.fullmatch(code) and not any(ROOT.glob(code.rstrip("/")))]
    assert lost == []


def commands_not_run():
    return [(block, command) for page in pages() for block in blocks_of(page) if block.language == "sh"
            for command in commands_of(block) if reason_not_to_run(command)]


@pytest.mark.parametrize("block, command", commands_not_run(), ids=lambda value: getattr(value, "place", value))
def test_commands_that_are_not_run_name_what_exists(block, command):
    program, *words = shlex.split(command, comments=True)
    for word in words:
        if "/" in word and not word.removeprefix("./").startswith("build/"):
            assert (ROOT / word).exists(), f"{block.place}: {word}"
    if program == "./dev":
        usage = subprocess.run([ROOT / "dev", "help"], capture_output=True, text=True, check=True, timeout=60).stdout
        assert re.search(rf"^  {words[0]}  ", usage, re.M), f"{block.place}: {command}"
    named = {word for word in words if word.startswith("--")}
    if named:
        assert named <= options_of(sys.executable, program), f"{block.place}: {command}"


@pytest.mark.parametrize("start", NOT_RUN)
def test_only_commands_that_the_pages_name_are_left_out(start):
    named = [command for _, command in commands_not_run()]
    named += [code for page in pages() for _, code in inline_code_of(page)]
    assert any(command.startswith(start) for command in named)
