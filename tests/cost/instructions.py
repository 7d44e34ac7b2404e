"""Instructions of one engine call, counted by callgrind: independent of the machine's speed.

Usage: instructions.py PROGRAM LIMIT. Exits with 77 (skipped) where valgrind is missing.
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile

SKIPPED = 77


def instructions_per_call(program):
    with tempfile.TemporaryDirectory() as folder:
        run = subprocess.run(
            ["valgrind", "--tool=callgrind", "--collect-atstart=no",
             "--toggle-collect=run_engine_calls*",
             f"--callgrind-out-file={os.path.join(folder, 'profile')}", program],
            capture_output=True, text=True, check=True)
    collected = re.search(r"Collected : (\d+)", run.stderr)
    return int(collected.group(1)) / int(run.stdout)


def main(program, limit):
    if shutil.which("valgrind") is None:
        print("skipped: valgrind is not installed, so instructions are not counted")
        return SKIPPED
    mean = instructions_per_call(program)
    print(f"{mean:.0f} instructions per engine call, limit {limit}")
    return 0 if 100 < mean <= limit else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], int(sys.argv[2])))
