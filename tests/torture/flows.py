"""Commands that write, each with the files before it and those that it leaves undisturbed."""

import re
import subprocess
import time
from dataclasses import dataclass, field
from functools import cached_property
from pathlib import Path

from workbench import COPY, REPORT, RESULTS, changed, files_of, frame, lay_out, run, start, text_of

# What a run keeps beside an output until that stands in its place, and its killed run leaves there.
UNFINISHED = re.compile(r"(\.(?P<hidden>.+)\.aluframe-(lock|new(-journal)?)|(?P<shown>.+)\.partial(-journal)?)")


@dataclass
class Flow:
    """A run of a command in a folder that holds `before`, which writes `outputs` anew."""

    name: str
    command: tuple
    before: dict
    outputs: tuple
    after: dict = field(default_factory=dict)
    messages: list = field(default_factory=list)
    seconds: float = 0.0

    def rehearse(self, folder):
        """Runs undisturbed, for what comes of it and how long it takes."""
        times = []
        for _ in range(3):  # the first is longer: files are not in memory yet
            lay_out(folder, self.before)
            began = time.monotonic()
            done = run(folder, *self.command, status=0)
            times.append(time.monotonic() - began)
        self.seconds = min(times)
        self.messages = done.err.splitlines()
        self.after = files_of(folder)
        assert set(self.after) == set(self.before) | set(self.outputs)
        assert all(self.after[name] != self.before.get(name) for name in self.outputs)
        return self

    def start(self, folder, **options):
        return start(folder, *self.command, **options)

    def has_done_its_work(self, folder):
        """Whether all outputs are new; what it could not remove may lie beside them."""
        return all(path.exists() and path.read_bytes() == self.after[name]
                   for name in self.outputs for path in [folder / name])

    def has_cleaned_up(self, folder):
        return self.has_done_its_work(folder) and set(files_of(folder)) == set(self.after)

    def problems_in(self, folder):
        """What in the folder is neither the earlier file nor the new one, nor an unfinished one's."""
        problems = []
        for name, content in files_of(folder).items():
            if name not in self.after and not self.is_unfinished(name):
                problems.append(f"{name} is left")
            if name in self.after and content not in (self.before.get(name), self.after[name]):
                problems.append(f"{name} is neither the earlier file nor the new one")
        return problems + [f"{name} is gone" for name in self.before if not (folder / name).exists()]

    def is_unfinished(self, name):
        beside = UNFINISHED.fullmatch(name)
        return beside is not None and (beside["hidden"] or beside["shown"]) in self.outputs


class Flows:
    """The flows of a frame of a size, rehearsed."""

    def __init__(self, folder: Path, elements: int, combinations: int):
        self.folder = folder
        self.elements = elements
        earlier = frame(elements, combinations)
        self.model = text_of(changed(earlier, "After", 0.9))
        self.earlier_model = text_of(changed(earlier, "Before", 1.0))

    def _made(self, before, *commands):
        lay_out(self.folder, before)
        for command in commands:
            run(self.folder, *command, status=0)
        return files_of(self.folder)

    @cached_property
    def _earlier(self):
        """Results and reports of the model as it was."""
        return self._made({"frame.json": self.earlier_model}, ("check", "frame.json"),
                          ("report", "frame.json", "--readable", COPY))

    @cached_property
    def _half_checked(self):
        half = f"1-{self.elements // 2}"
        return self._made({"frame.json": self.model}, ("check", "frame.json", "--elements", half))

    @cached_property
    def check(self):
        before = {"frame.json": self.model, RESULTS: self._earlier[RESULTS]}
        return Flow("check", ("check", "frame.json"), before, (RESULTS,)).rehearse(self.folder)

    @cached_property
    def report(self):
        """The report checks the second half of the elements and adds it to the results."""
        before = self._half_checked | {name: self._earlier[name] for name in (REPORT, COPY)}
        command = ("report", "frame.json", "--readable", COPY)
        return Flow("report", command, before, (RESULTS, REPORT, COPY)).rehearse(self.folder)

    @cached_property
    def settings(self):
        command = ("settings", "frame.json", "--set", "safety-class=1", "--set", "seismic=on")
        return Flow("settings", command, {"frame.json": self.model}, ("frame.json",)).rehearse(self.folder)

    @cached_property
    def results(self):
        before = {"frame.json": self.model, RESULTS: self.check.after[RESULTS], "table.csv": b"earlier\n"}
        command = ("results", "frame.json", "--format", "csv", "--output", "table.csv")
        return Flow("results", command, before, ("table.csv",)).rehearse(self.folder)

    @cached_property
    def section(self):
        command = ("section", "H 300x150x8x12", "--svg", "shape.svg")
        return Flow("section", command, {"shape.svg": b"<svg/>"}, ("shape.svg",)).rehearse(self.folder)

    def named(self, name):
        return getattr(self, name)


ALL = ("check", "report", "settings", "results", "section")


def ended(process):
    """Waits for a process whose output nobody wants."""
    process.wait()
    for stream in (process.stdout, process.stderr):
        if stream is not None:
            stream.close()


QUIET = {"stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
