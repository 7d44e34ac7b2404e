#!/usr/bin/python3
"""Puts faults into the program, one at a time, and shows which of them the tests find.

    tools/mutants.py [--table tools/mutants.json] [--folder build/mutants] [--jobs 2] [NAME ...]

A fault is a row of the table: the file, a piece of it that stands there once, what takes its place, and what is to
find it: a test program of the build, or a file of tests/cli, which runs the command line. With "only", such tests of
it alone are run: a filter of GoogleTest, or of pytest's -k. The sources are copied, once for each job, so that those
at hand stay as they are. Survivors end the program with status 1: either a test is missing, or the fault changes
nothing and does not belong here. A row that does not fit the sources, or does not compile, is an error of the table
and ends it with status 2.
"""

import argparse
import json
import os
import queue
import shutil
import subprocess
import sys
import time
from concurrent.futures import ThreadPoolExecutor
from dataclasses import dataclass
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
LONGEST_TEST = 60  # s; a fault may make a test go on for ever
KILLED, SURVIVED = "killed", "survived"


@dataclass(frozen=True)
class Fault:
    name: str
    file: str
    find: str
    replace: str
    test: str  # what is to find it: a test program, or a file of Python tests
    only: str = ""  # of it, by name

    def problem_in(self, text):
        """Why the row does not fit the text of its file."""
        count = text.count(self.find)
        if count != 1:
            return f"what it replaces stands {count} times in {self.file}"
        return "" if self.find != self.replace else "it changes nothing"


def faults_of(table, names):
    """The faults of the table, or those that are named."""
    faults = [Fault(**row) for row in json.loads(table.read_text(encoding="utf-8"))]
    known = [fault.name for fault in faults]
    repeated = sorted({name for name in known if known.count(name) > 1})
    unknown = sorted(set(names) - set(known))
    for what, found in (("there is no fault", unknown), ("there are several faults", repeated)):
        if found:
            fail(f"{table}: {what} {', '.join(found)}")
    return [fault for fault in faults if not names or fault.name in names]


def fail(text):
    print(text, file=sys.stderr)
    sys.exit(2)


def require_fitting(faults):
    problems = []
    for fault in faults:
        file = ROOT / fault.file
        problem = fault.problem_in(file.read_text(encoding="utf-8")) if file.exists() else f"there is no {fault.file}"
        if problem:
            problems.append(f"{fault.name}: {problem}")
    if problems:
        fail("\n".join(problems))


class Copy:
    """A copy of the sources with a build of its own."""

    def __init__(self, folder, names):
        self.sources = folder
        self.build = folder / "build" / "release"
        for name in names:
            self._take(ROOT / name, self.sources / name)
        # As the release, but without optimisation at link time, which takes longer than most tests.
        options = ["-DALUFRAME_BENCH=OFF", "-DCMAKE_BUILD_TYPE=RelWithDebInfo",
                   "-DCMAKE_CXX_FLAGS_RELWITHDEBINFO=-O2 -DNDEBUG"]
        if subprocess.run(["cmake", "--preset", "release", *options], cwd=self.sources,
                          stdout=subprocess.DEVNULL, check=False).returncode != 0:
            fail("the build cannot be configured")

    @staticmethod
    def _take(source, target):
        """A file that is the same keeps its time, so that nothing is built twice and nothing stays faulty."""
        if not source.is_file() or (target.exists() and target.read_bytes() == source.read_bytes()):
            return
        target.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy(source, target)

    def builds(self, tests, jobs=1):
        targets = {"aluframe" if test.endswith(".py") else test for test in tests}
        done = subprocess.run(["cmake", "--build", self.build, "--parallel", str(jobs), "--target", *targets],
                              check=False, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return done.returncode == 0

    def passes(self, test, only):
        program = self.build / "bin"
        if test.endswith(".py"):
            command = ["/usr/bin/python3", "-m", "pytest", "-q", "-x", "-p", "no:cacheprovider", test]
            command += ["-k", only] if only else []
        else:
            command = [program / test, f"--gtest_filter={only or '*'}", "--gtest_fail_fast"]
        environment = {**os.environ, "ALUFRAME": str(program / "aluframe"), "PYTHONDONTWRITEBYTECODE": "1"}
        try:
            done = subprocess.run(command, check=False, timeout=LONGEST_TEST, cwd=self.sources, env=environment,
                                  stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        except subprocess.TimeoutExpired:
            return False
        if b"Running 0 tests" in done.stdout or b"no tests ran" in done.stdout:
            fail(f"{test}: {only} names none of its tests")
        return done.returncode == 0

    def fate_of(self, fault):
        """What becomes of the fault, which is out of the sources again afterwards."""
        file = self.sources / fault.file
        whole = file.read_text(encoding="utf-8")
        file.write_text(whole.replace(fault.find, fault.replace), encoding="utf-8")
        try:
            if not self.builds([fault.test]):
                return "does not compile"
            return SURVIVED if self.passes(fault.test, fault.only) else KILLED
        finally:
            file.write_text(whole, encoding="utf-8")


def require_sound(copies, faults):
    """Everything builds and passes as it is; what one copy passes, the others pass too."""
    for copy in copies:  # one after the other: with a compiler cache the second costs little
        if not copy.builds({fault.test for fault in faults}, len(copies)):
            fail("the tests do not build without a fault")
    tests = sorted({(fault.test, fault.only) for fault in faults})
    with ThreadPoolExecutor(len(copies)) as workers:
        for (test, only), passes in zip(tests, workers.map(lambda test: copies[0].passes(*test), tests)):
            if not passes:
                fail(f"{test} {only}: does not pass without a fault")


def fates_of(faults, copies):
    """What becomes of each fault, told as it is known."""
    waiting = queue.SimpleQueue()
    for fault in faults:
        waiting.put(fault)
    fates = {}

    def work_through(copy):
        while not waiting.empty():
            try:
                fault = waiting.get_nowait()
            except queue.Empty:
                return
            begin = time.monotonic()
            fates[fault.name] = copy.fate_of(fault)
            print(f"{fates[fault.name]:<8} {time.monotonic() - begin:5.1f} s  {fault.name}", flush=True)

    with ThreadPoolExecutor(len(copies)) as workers:
        for done in [workers.submit(work_through, copy) for copy in copies]:
            done.result()
    return fates


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--table", type=Path, default=ROOT / "tools" / "mutants.json")
    parser.add_argument("--folder", type=Path, default=ROOT / "build" / "mutants")
    parser.add_argument("--jobs", type=int, default=min(2, os.cpu_count() or 1), help="faults at a time")
    parser.add_argument("names", nargs="*", metavar="NAME", help="these faults only")
    options = parser.parse_args()
    faults = faults_of(options.table, options.names)
    require_fitting(faults)
    listed = subprocess.run(["git", "-C", ROOT, "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
                            capture_output=True, text=True, check=True)
    names = list(filter(None, listed.stdout.split("\0")))
    copies = [Copy(options.folder / str(i + 1), names) for i in range(max(1, min(options.jobs, len(faults))))]
    require_sound(copies, faults)
    fates = fates_of(sorted(faults, key=lambda fault: (fault.test, fault.file)), copies)
    counts = [sum(fate == kind for fate in fates.values()) for kind in (KILLED, SURVIVED)]
    print(f"{counts[0]} of {len(fates)} killed")
    if sum(counts) < len(fates):
        return 2
    return 1 if counts[1] else 0


if __name__ == "__main__":
    sys.exit(main())
