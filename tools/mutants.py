#!/usr/bin/python3
"""Puts faults into the program, one at a time, and shows which of them the tests find.

    tools/mutants.py [--table tools/mutants.json] [--folder build/mutants] [NAME ...]

A fault is a row of the table: the file, a piece of it that stands there once, what takes its place, and the
test program that is to find it. The sources are copied, so that those at hand stay as they are. Survivors end
the program with status 1: either a test is missing, or the fault changes nothing and does not belong here.
"""

import argparse
import json
import shutil
import subprocess
import sys
from dataclasses import dataclass
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
LONGEST_TEST = 300  # s; a fault may make a test go on for ever


@dataclass(frozen=True)
class Fault:
    name: str
    file: str
    find: str
    replace: str
    test: str  # the test program that is to find it


def faults_of(table, names):
    faults = [Fault(**row) for row in json.loads(table.read_text(encoding="utf-8"))]
    unknown = set(names) - {fault.name for fault in faults}
    if unknown:
        sys.exit(f"{table}: there is no fault {', '.join(sorted(unknown))}")
    return [fault for fault in faults if not names or fault.name in names]


class Copy:
    """A copy of the sources with a build of its own."""

    def __init__(self, folder):
        self.sources = folder
        self.build = folder / "build" / "release"
        listed = subprocess.run(["git", "-C", ROOT, "ls-files", "-z"], capture_output=True, text=True, check=True)
        for name in filter(None, listed.stdout.split("\0")):
            self._take(ROOT / name, self.sources / name)
        if subprocess.run(["cmake", "--preset", "release", "-DALUFRAME_BENCH=OFF"], cwd=self.sources,
                          stdout=subprocess.DEVNULL, check=False).returncode != 0:
            sys.exit("the build cannot be configured")

    @staticmethod
    def _take(source, target):
        """A file that is the same keeps its time, so that nothing is built twice and nothing stays faulty."""
        if target.exists() and target.read_bytes() == source.read_bytes():
            return
        target.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy(source, target)

    def builds(self, test):
        done = subprocess.run(["cmake", "--build", self.build, "--target", test], check=False,
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return done.returncode == 0

    def passes(self, test):
        try:
            done = subprocess.run([self.build / "bin" / test], check=False, timeout=LONGEST_TEST,
                                  stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            return done.returncode == 0
        except subprocess.TimeoutExpired:
            return False

    def fate_of(self, fault):
        """What becomes of the fault, which is out of the sources again afterwards."""
        file = self.sources / fault.file
        whole = file.read_text(encoding="utf-8")
        if whole.count(fault.find) != 1:
            return f"stands {whole.count(fault.find)} times in {fault.file}"
        file.write_text(whole.replace(fault.find, fault.replace), encoding="utf-8")
        try:
            if not self.builds(fault.test):
                return "does not compile"
            return "survived" if self.passes(fault.test) else "killed"
        finally:
            file.write_text(whole, encoding="utf-8")

    def require_sound(self, tests):
        for test in tests:
            if not self.builds(test) or not self.passes(test):
                sys.exit(f"{test}: does not pass without a fault")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--table", type=Path, default=ROOT / "tools" / "mutants.json")
    parser.add_argument("--folder", type=Path, default=ROOT / "build" / "mutants")
    parser.add_argument("names", nargs="*", metavar="NAME", help="these faults only")
    options = parser.parse_args()
    faults = faults_of(options.table, options.names)
    copy = Copy(options.folder)
    copy.require_sound(sorted({fault.test for fault in faults}))
    fates = {}
    for fault in faults:
        fates[fault.name] = copy.fate_of(fault)
        print(f"{fates[fault.name]:<10} {fault.name}", flush=True)
    alive = [name for name, fate in fates.items() if fate != "killed"]
    print(f"{len(fates) - len(alive)} of {len(fates)} killed")
    return 1 if alive else 0


if __name__ == "__main__":
    sys.exit(main())
