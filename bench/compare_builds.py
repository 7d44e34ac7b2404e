"""Processor time of `aluframe check` with one build and with another, run by turns.

    /usr/bin/python3 bench/compare_builds.py BUILD OTHER_BUILD [--elements 2000] [--rounds 15]
        [--options "--second-opinion off"] [--other-options "--second-opinion off"]

A build is a folder with bin/aluframe and its lib/. The model is a grid with 50 combinations. What is
printed is the median processor time of the whole program, the writing thread included, divided by
the checked positions, and the ratio of the two; turns make what else the machine does hit both alike.
"""

import argparse
import os
import statistics
import subprocess
import sys
import tempfile
from pathlib import Path

COMBINATIONS = 50
POSITIONS = 5
GENERATOR = Path(__file__).resolve().parent.parent / "tools" / "generate_model.py"


def processor_seconds(build, options, model, results):
    """User and system time of one check of the model."""
    program = subprocess.Popen(
        [build / "bin" / "aluframe", "check", model, "--progress", "never", "--output", results,
         *options],
        env=os.environ | {"LD_LIBRARY_PATH": str(build / "lib")},
        stdout=subprocess.DEVNULL)
    _, status, usage = os.wait4(program.pid, 0)
    if status != 0:
        sys.exit(f"{build}: the check failed")
    return usage.ru_utime + usage.ru_stime


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
        for _ in range(options.rounds):
            for (build, more), measured in zip(runs, seconds):
                measured.append(processor_seconds(build, more.split(), model,
                                                  Path(folder) / "run.aluresult"))
    medians = [statistics.median(measured) for measured in seconds]
    checks = options.elements * COMBINATIONS * POSITIONS
    for (build, more), median, measured in zip(runs, medians, seconds):
        print(f"{build} {more}: {median / checks * 1e6:.3f} us a position ({median:.3f} s, "
              f"least {min(measured):.3f} s)")
    print(f"ratio {medians[1] / medians[0]:.3f}")


if __name__ == "__main__":
    main()
