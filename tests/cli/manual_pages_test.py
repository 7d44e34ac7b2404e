"""The manual pages name every command and option that the programs' --help does, and no other."""

import os
import re
import shutil
import subprocess
from pathlib import Path

import pytest
from program import ROOT

PAGES = ROOT / "packaging/man"
BIN = Path(os.environ["ALUFRAME"]).parent
OPTION = re.compile(r"(?<![\w-])--[a-z0-9][a-z0-9-]*")
OF_EVERY_COMMAND = {"--help", "--lang"}  # told once, at the head of the page


def help_of(*command):
    environment = os.environ | {"LC_ALL": "C.UTF-8"}
    return subprocess.run([*command, "--help"], capture_output=True, text=True, check=True, timeout=60,
                          env=environment).stdout


def options_of(text):
    """The options at the beginning of the lines of a help text."""
    return set(re.findall(r"^  (?:-\w,)?(--[a-z0-9-]+)", text, re.M))


def commands_of(text):
    return re.findall(r"^  ([a-z]+) ", text.partition("Subcommands:")[2], re.M)


def page_of(program):
    return (PAGES / f"{program}.1").read_text(encoding="utf-8")


def terms_of(part):
    """The options that a part of a page explains."""
    return set(OPTION.findall("\n".join(re.findall(r'^\.BI (".*)$', part.replace("\\-", "-"), re.M))))


def sections_of_commands(page):
    commands = page.partition(".SH COMMANDS\n")[2].partition(".SH ")[0]
    name, *sections = re.split(r"^\.SS (.*)$", commands, flags=re.M)
    assert name == ""
    return dict(zip(sections[::2], sections[1::2]))


def test_the_page_explains_every_command():
    assert list(sections_of_commands(page_of("aluframe"))) == commands_of(help_of(os.environ["ALUFRAME"]))


@pytest.mark.parametrize("command", commands_of(help_of(os.environ["ALUFRAME"])))
def test_the_page_explains_every_option_of_a_command(command):
    explained = terms_of(sections_of_commands(page_of("aluframe"))[command])
    assert explained == options_of(help_of(os.environ["ALUFRAME"], command)) - OF_EVERY_COMMAND


@pytest.mark.parametrize("program", ["aluframe", "aluframe-desktop"])
def test_the_head_of_a_page_explains_the_options_of_the_program(program):
    if not (BIN / program).exists():
        pytest.skip(f"{program} is not built")
    head = page_of(program).partition(".SH OPTIONS\n")[2].partition(".SH ")[0]
    assert terms_of(head) == options_of(help_of(BIN / program))


def test_the_tool_has_nothing_to_change(tmp_path):
    for name in ("tools", "packaging"):
        shutil.copytree(ROOT / name, tmp_path / name)
    subprocess.run([tmp_path / "tools/manual_pages", BIN], check=True, timeout=60)
    changed = [page.name for page in PAGES.glob("*.1")
               if page.read_text(encoding="utf-8") != (tmp_path / "packaging/man" / page.name).read_text(encoding="utf-8")]
    assert changed == [], "tools/manual_pages build/release/bin brings them up to date"
