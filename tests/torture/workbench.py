"""What the attacks on the program share: how much of them to run, frames, and runs of the program.

    TORTURE=long pytest tests/torture      hours of a user's bad luck; `short` when not given
    TORTURE_SEED=7 ...                     other random times and places; 1 when not given
"""

import copy
import json
import os
import random
import subprocess
import sys
from dataclasses import dataclass
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
PROGRAM = os.environ.get("ALUFRAME", str(ROOT / "build" / "release" / "bin" / "aluframe"))
IS_LONG = os.environ.get("TORTURE", "short") == "long"
TIME_LIMIT = 120  # seconds, for one run; sanitizers included
RESULTS, REPORT, COPY = "frame.aluresult", "frame.alu", "frame.txt"


def amount(short, long):
    return long if IS_LONG else short


def chance_of(name):
    """Random numbers of one test, which do not depend on what other tests draw."""
    return random.Random(f"{name} {os.environ.get('TORTURE_SEED', '1')}")


@dataclass(frozen=True)
class Done:
    status: int  # negative: the number of the signal that ended the program
    out: str
    err: str


def start(folder, *arguments, **options):
    options = {"stdout": subprocess.PIPE, "stderr": subprocess.PIPE} | options
    return subprocess.Popen([PROGRAM, *map(str, arguments)], cwd=folder, **options)


def end_of(process, time_limit=TIME_LIMIT):
    try:
        out, err = process.communicate(timeout=time_limit)
    except subprocess.TimeoutExpired:
        process.kill()
        process.communicate()
        raise
    return Done(process.returncode, *((text or b"").decode("utf-8", "replace") for text in (out, err)))


def run(folder, *arguments, status=None, time_limit=TIME_LIMIT, **options):
    done = end_of(start(folder, *arguments, **options), time_limit)
    assert status is None or done.status == status, done
    return done


def frame(elements, combinations):
    """A dome with forces given, of which two versions differ in every result."""
    made = subprocess.run(
        [sys.executable, ROOT / "tools" / "generate_model.py", "--kind", "dome", "--elements",
         str(elements), "--combinations", str(combinations), "--output", "/dev/stdout"],
        capture_output=True, text=True, check=True)
    return json.loads(made.stdout)


def changed(model, title, factor):
    """The same frame under other forces."""
    model = copy.deepcopy(model)
    model["title"] = title
    for entry in model["forces"]:
        entry["values"] = [[factor * value for value in row] for row in entry["values"]]
    return model


def text_of(model):
    return json.dumps(model, indent=1).encode()


def lay_out(folder, files):
    """Makes these the only files of a folder."""
    for path in folder.iterdir():
        path.unlink()
    for name, content in files.items():
        (folder / name).write_bytes(content)


def files_of(folder):
    return {path.name: path.read_bytes() for path in sorted(folder.iterdir())}
