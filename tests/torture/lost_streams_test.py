"""Nobody reads what a command says: its work is done all the same, and nothing of it lands in a file."""

import os
import subprocess

import pytest

from flows import ALL
from workbench import PROGRAM, RESULTS, ROOT, end_of, files_of, lay_out, run, start

POINTS = (ROOT / "examples" / "points.jsonl").read_bytes()
STREAMS = {"input": 0, "output": 1, "errors": 2}
LOST = [("errors",), ("output",), ("output", "errors"), ("input",), ("input", "output", "errors")]
READING = {
    "members": ("members", "frame.json"),
    "validate": ("validate", "frame.json"),
    "show settings": ("settings", "frame.json"),
    "show results": ("results", "frame.json"),
    "show section": ("section", "P 100x3"),
    "points": ("points", "points.jsonl"),
    "version": ("--version",),
    "help": ("--help",),
    "wrong usage": ("check",),
    "no model": ("check", "none.json"),
}


def run_without(folder, command, lost, how):
    """The end of a command whose lost streams are closed, or lead to a full disk."""
    if how == "full":
        with open("/dev/full", "wb") as full:
            streams = {name: full for name in ("stdout", "stderr")
                       if {"stdout": "output", "stderr": "errors"}[name] in lost}
            return end_of(start(folder, *command, **streams))

    def close_lost():
        for name in lost:
            os.close(STREAMS[name])

    return end_of(start(folder, *command, preexec_fn=close_lost))


@pytest.fixture
def folder(tmp_path):
    made = tmp_path / "frame"
    made.mkdir()
    return made


WAYS = [(lost, "closed") for lost in LOST] + [(lost, "full") for lost in LOST if "input" not in lost]
IDS = [f"{'+'.join(lost)} {how}" for lost, how in WAYS]


@pytest.mark.parametrize("lost, how", WAYS, ids=IDS)
@pytest.mark.parametrize("name", ALL)
def test_the_work_is_done_though_nobody_reads_of_it(small_flows, folder, name, lost, how):
    flow = small_flows.named(name)
    lay_out(folder, flow.before)
    done = run_without(folder, flow.command, lost, how)
    assert flow.has_cleaned_up(folder), done
    prints = name in ("check", "report", "settings", "section")
    assert done.status == (2 if "output" in lost and prints else 0), done
    if "output" in lost and "errors" not in lost and prints:
        assert done.err.endswith("standard output: cannot be written\n")


@pytest.mark.parametrize("lost, how", WAYS, ids=IDS)
@pytest.mark.parametrize("name", READING)
def test_a_command_that_shows_something_ends_by_itself(small_flows, folder, name, lost, how):
    lay_out(folder, small_flows.check.after | {"points.jsonl": POINTS})
    before = files_of(folder)
    whole = run(folder, *READING[name])
    done = run_without(folder, READING[name], lost, how)
    assert done.status == (2 if "output" in lost and whole.out else whole.status), done
    assert files_of(folder) == before


def test_no_message_lands_in_the_result_file_that_is_opened_in_place_of_standard_error(small_flows, folder):
    flow = small_flows.check
    lay_out(folder, flow.before)
    subprocess.run(["sh", "-c", '"$0" check frame.json --progress always <&- >&- 2>&-', PROGRAM],
                   cwd=folder, check=False, timeout=120)
    assert (folder / RESULTS).read_bytes() == flow.after[RESULTS]
