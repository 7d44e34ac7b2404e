"""Time of `aluframe check` with one build and with another, run by turns.

    /usr/bin/python3 bench/compare_builds.py BUILD OTHER_BUILD [--elements 2000] [--rounds 15]
        [--options "--second-opinion off"] [--other-options "--second-opinion off"]

A build is a folder with bin/aluframe and its lib/. The model is a grid with 50 combinations. What is
printed is the median processor time of the whole program, the writing thread included, divided by
the checked positions, and the median of what passed on the clock, which has the waiting for the disk
in it; and the ratios of the two builds. Turns make what else the machine does hit both alike, and every
round begins with the other build: what the one leaves to the disk is not always the other's to wait for.
"""

import argparse
import os
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

COMBINATIONS = 50
POSITIONS = 5
GENERATOR = Path(__file__).resolve().parent.parent / "tools" / "generate_model.py"


def seconds_of(build, options, model, results):
    """User and system time of one check of the model, and what passed on the clock."""
    begin = time.monotonic()
    program = subprocess.Popen(
        [build / "bin" / "aluframe", "check", model, "--progress", "never", "--output", results,
         *options],
        env=os.environ | {"LD_LIBRARY_PATH": str(build / "lib")},
        stdout=subprocess.DEVNULL)
    _, status, usage = os.wait4(program.pid, 0)
    if status != 0:
        sys.exit(f"{build}: the check failed")
    return usage.ru_utime + usage.ru_stime, time.monotonic() - begin


def generate(model, elements):
    subprocess.run([sys.executable, GENERATOR, "--kind", "grid", "--elements", str(elements),
                    "--combinations", str(COMBINATIONS), "--output", model], check=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("build", type=Path)
    parser.add_argument("other_build", type=Path)
    parser.add_argument("--elements", type=int, default=2000)
    parser.add_argument("--rounds", type=int, default=15)
    parser.add_argument("--options", default="", help="more options of check with the build")
    parser.add_argument("--other-options", default="", help="and with the other build")
    options = parser.parse_args()
    runs = [(options.build.resolve(), options.options),
            (options.other_build.resolve(), options.other_options)]
    seconds = [[] for _ in runs]
    with tempfile.TemporaryDirectory() as folder:
        model = Path(folder) / "model.json"
        generate(model, options.elements)
        for turn in range(options.rounds):
            for i in (0, 1) if turn % 2 == 0 else (1, 0):
                build, more = runs[i]
                results = Path(folder) / f"run-{i}.aluresult"
                seconds[i].append(seconds_of(build, more.split(), model, results))
    medians = [[statistics.median(column) for column in zip(*measured)] for measured in seconds]
    checks = options.elements * COMBINATIONS * POSITIONS
    for (build, more), (median, clock), measured in zip(runs, medians, seconds):
        print(f"{build} {more}: {median / checks * 1e6:.3f} us a position ({median:.3f} s, "
              f"least {min(measured)[0]:.3f} s), {clock:.3f} s by the clock")
    (median, clock), (other_median, other_clock) = medians
    print(f"ratio {other_median / median:.3f}, by the clock {other_clock / clock:.3f}")


if __name__ == "__main__":
    main()
