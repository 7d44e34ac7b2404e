"""Runs with a fault in one of their file calls (faulty_calls.c)."""

import os
import re
import shutil
import subprocess
from dataclasses import dataclass
from pathlib import Path

from workbench import Done, end_of

SOURCE = Path(__file__).with_name("faulty_calls.c")
ERRORS = ("EIO", "ENOSPC", "EINTR", "full", "short")
# What is for the program's developers, and no message.
RAW_TEXT = re.compile(r"std::|what\(\)|code -?\d|terminate called|basic_|array::|bad_alloc|__|iostream|Assertion")


def build(folder):
    """The library that is preloaded."""
    library = folder / "faulty_calls.so"
    compiler = shutil.which("cc") or shutil.which("gcc") or shutil.which("c++")
    subprocess.run([compiler, "-shared", "-fPIC", "-O1", "-x", "c", SOURCE, "-o", library, "-ldl"], check=True)
    return library


@dataclass(frozen=True)
class Call:
    """A file call of a run, by its number and what it did to which file."""

    number: int
    name: str
    file: str


@dataclass
class FaultyRuns:
    library: Path
    folder: Path  # of the runs; the library and the log lie elsewhere

    def __call__(self, flow, at=0, kind="EIO"):
        """The end of a run of the flow and its file calls; at 0 none of them fails."""
        log = self.library.with_name("calls.txt")
        with open(log, "wb") as descriptor:
            environment = os.environ | {
                "LD_PRELOAD": str(self.library), "ASAN_OPTIONS": "verify_asan_link_order=0",
                "FAULTS_FOLDER": f"{self.folder.resolve()}", "FAULTS_AT": str(at), "FAULTS_KIND": kind,
                "FAULTS_LOG": str(descriptor.fileno())}
            done = end_of(flow.start(self.folder, env=environment, pass_fds=[descriptor.fileno()]))
        return done, self._calls_in(log)

    def _calls_in(self, log):
        rows = [line.split(" ", 2) for line in log.read_text().splitlines()]
        return [Call(int(number), name, os.path.basename(path)) for number, name, path in rows]


def strange_ends(done: Done):
    """What no run may do, whatever fails."""
    found = []
    if done.status not in (0, 1, 2):
        found.append(f"ended with {done.status}")
    if RAW_TEXT.search(done.err + done.out):
        found.append(f"raw text in: {done.err}")
    return found
