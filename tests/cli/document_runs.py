"""Runs what the pages show, each page in a folder of its own that looks like the repository after a build.

Every language of blocks has one runner. It gives what was run, whether that succeeded, and, where the page shows
the output, the shown and the printed lines.
"""

import json
import os
import shutil
import sqlite3
import subprocess
import sys
from pathlib import Path
from typing import NamedTuple

from program import ROOT
from document_coverage import (
    BEFORE, CSV_FILES, FRAGMENTS, QUERIED, TEXTS, WORKED_EXAMPLES, Answer, Drawing, Excerpt, entry_for,
    reason_not_to_run)

PROGRAMS = Path("build/release/bin")


class Run(NamedTuple):
    command: str
    status: int
    printed: list  # lines of both outputs
    shown: list | None = None
    first: int | None = None  # line of the block, from 0, that the shown lines begin at, where they can be replaced


def folder_for(page, parent):
    """A copy of the examples, and links to what commands may read beside them."""
    folder = parent / "aluframe"
    shutil.copytree(ROOT / "examples", folder / "examples", ignore=shutil.ignore_patterns("*.alu*"))
    for name in ("dev", "docs", "schema", "tests", "tools"):
        (folder / name).symlink_to(ROOT / name)
    (folder / PROGRAMS).mkdir(parents=True)
    (folder / PROGRAMS / "aluframe").symlink_to(os.environ["ALUFRAME"])
    for command in BEFORE.get(page, []):
        done = execute(command, folder)
        assert done.status == 0, f"{page}: {done}"
    return folder


def execute(command, folder, given=""):
    environment = os.environ | {
        "PATH": f"{folder / PROGRAMS}:{os.environ['PATH']}", "LC_ALL": "C.UTF-8", "VISUAL": "true",
        # stdbuf stands in front of the sanitizer's library.
        "ASAN_OPTIONS": os.environ.get("ASAN_OPTIONS", "") + ":verify_asan_link_order=0"}
    # Lines in the order of a terminal, whichever of the two outputs they go to.
    done = subprocess.run(["stdbuf", "-oL", "bash", "-c", command], cwd=folder, input=given, text=True, check=False,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=120, env=environment)
    printed = done.stdout.strip("\n")
    return Run(command, done.returncode, printed.split("\n") if printed else [])


def commands_of(block):
    """The commands of an `sh` block: a line each, but for those that run on."""
    lines = (line.strip() for line in block.text.replace("\\\n", " ").split("\n"))
    return [line for line in lines if line and not line.startswith("#")]


def run_commands(block, folder):
    return [execute(command, folder) for command in commands_of(block) if not reason_not_to_run(command)]


def run_session(block, folder):
    """Commands behind "$ ", each with the lines of its output up to the next one."""
    starts = [at for at, line in enumerate(block.lines) if line.startswith("$ ")]
    assert starts and starts[0] == 0, f"{block.place}: a console block begins with a command behind \"$ \""
    runs = []
    for start, end in zip(starts, [*starts[1:], len(block.lines)]):
        shown = list(block.lines[start + 1:end])
        while shown and not shown[-1].strip():
            shown.pop()
        runs.append(execute(block.lines[start][2:], folder)._replace(shown=shown, first=start + 1))
    return runs


def run_json(block, folder):
    """A whole model and a completed part of one go through `validate`, a check point through `points`."""
    fragment = entry_for(block, FRAGMENTS)
    content = json.loads("{" + block.text + "}" if block.opens_with('"') else block.text)
    if "data" in content:
        return [execute("aluframe points", folder, json.dumps(content) + "\n")]
    assert fragment or "format" in content, f"{block.place}: neither a model nor a known part of one"
    name = "part.json" if fragment else "model.json"
    (folder / name).write_text(json.dumps(fragment(content) if fragment else content), encoding="utf-8")
    return [execute(f"aluframe validate {name}", folder)]


def run_csv(block, folder):
    found = next((use for header, use in CSV_FILES.items() if block.opens_with(header)), None)
    assert found, f"{block.place}: no table that the program reads"
    name, command = found
    (folder / name).write_text(block.text, encoding="utf-8")
    return [execute(command, folder)]


def run_sql(block, folder):
    """A query must find something in the results of the page."""
    with sqlite3.connect(folder / QUERIED) as database:
        rows = database.execute(block.text).fetchall()
    return [Run(block.text, 0 if rows else 1, list(map(str, rows)))]


def run_python(block, folder):
    (folder / "shown.py").write_text(block.text, encoding="utf-8")
    return [execute(f"{sys.executable} shown.py", folder)]


def run_cpp(block, folder):
    """A program over the headers of the module and its contract must compile; what it prints is a test of its own."""
    (folder / "shown.cpp").write_text(block.text, encoding="utf-8")
    return [execute(f"c++ -std=c++20 -fsyntax-only -I{ROOT} shown.cpp", folder)]


def run_text(block, folder):
    entry = entry_for(block, TEXTS)
    if isinstance(entry, Answer):
        done = execute(entry.command, folder, entry.given)
        return [done._replace(printed=["".join("".join(done.printed).split())],
                              shown=["".join(block.text.split())])]
    if isinstance(entry, Excerpt):
        lines = excerpt(entry, (folder / entry.file).read_text(encoding="utf-8").split("\n"), block)
        return [Run(entry.file, 0, lines, list(block.lines), 0)]
    worked = block.page.startswith(WORKED_EXAMPLES) and not block.page.endswith("README.md")
    assert isinstance(entry, Drawing) or worked, f"{block.place}: no rule says what this text is"
    return []


def excerpt(entry, lines, block):
    """As many lines of a file as the page shows: from where its second line stands first after the given one."""
    after = next((at for at, line in enumerate(lines) if line.startswith(entry.after)), len(lines))
    start = next((at - 1 for at in range(after, len(lines)) if lines[at] == block.lines[1]), None)
    assert start is not None, f"{block.place}: {entry.file} has no '{block.lines[1]}' behind '{entry.after}'"
    return lines[start:start + len(block.lines)]


RUNNERS = {
    "console": run_session, "sh": run_commands, "json": run_json, "csv": run_csv, "sql": run_sql,
    "cpp": run_cpp, "python": run_python, "text": run_text,
}


def run_block(block, folder):
    assert block.language in RUNNERS, (
        f"{block.place}: found a block of language '{block.language}', must be one of {', '.join(RUNNERS)}")
    return RUNNERS[block.language](block, folder)
