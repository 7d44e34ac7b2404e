"""What the end-to-end tests share: the program, and small models worked out by hand."""

import json
import math
import os
import re
import subprocess
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
# The tests read English, whatever the language of who runs them; a test may ask for another.
for name in ("LC_ALL", "LC_MESSAGES", "LANG"):
    if os.environ.get(name, "").startswith("zh"):
        os.environ[name] = "C.UTF-8"
os.environ.setdefault("ALUFRAME", str(ROOT / "build" / "release" / "bin" / "aluframe"))

# A pipe 100 × 10 as a beam of 4 m. By hand, mm:
PIPE_AREA = math.pi / 4 * (100**2 - 80**2)
PIPE_I = math.pi / 64 * (100**4 - 80**4)
PIPE_W = PIPE_I / 50

PIPE_BEAM = {
    "format": "aluframe-model",
    "version": 1,
    "title": "One pipe",
    "units": {"force": "kN", "length": "m"},
    "materials": [{"number": 1, "alloy": "6061-T6"}],
    "sections": [{"number": 1, "shape": "P", "dimensions": {"D": 100, "t": 10}}],
    "nodes": [{"number": 1, "x": 0, "y": 0, "z": 3}, {"number": 2, "x": 4, "y": 0, "z": 3}],
    "supports": [
        {"node": 1, "restrained": ["Dx", "Dy", "Dz", "Rx"]},
        {"node": 2, "restrained": ["Dy", "Dz"]},
    ],
    "elements": [{"number": 1, "nodes": [1, 2], "section": 1, "material": 1}],
    "load_cases": [{"number": 1, "name": "DL"}, {"number": 2, "name": "EQ", "kind": "seismic_static"}],
    "combinations": [
        {"number": 1, "name": "ULS", "terms": [{"case": 1, "factor": 1.0}]},
        {"number": 2, "name": "SEIS", "terms": [{"case": 1, "factor": 1.0}, {"case": 2}]},
    ],
    "forces": [
        {
            "element": 1,
            "case": 1,
            # Uniform load on a simple span: M = 10 kN·m in the middle, V = 10 kN at the ends.
            "values": [
                [0, 0, 10, 0, 0, 0],
                [0, 0, 5, 0, 7.5, 0],
                [0, 0, 0, 0, 10, 0],
                [0, 0, -5, 0, 7.5, 0],
                [0, 0, -10, 0, 0, 0],
            ],
        },
        {"element": 1, "case": 2, "values": [[20, 0, 0, 0, 0, 0]] * 5},
    ],
}


def by_path(message):
    """Messages about a model file by their JSON paths alone, without lines and numbers of entities (faults_test.py)."""
    message = re.sub(r"(json: )line \d+: (?=/|[a-z])", r"\1", message)
    return re.sub(r"(json: /\S*?) \([a-z]+( [a-z]+)* \d+(, load case \d+)?\): ", r"\1: ", message)


# A program with sanitizers takes memory and addresses of another order.
IS_SANITIZED = bool(os.environ.get("ALUFRAME_SANITIZE"))


def in_memory(kilobytes):
    """What stands in front of a command that may have so much memory."""
    return [] if IS_SANITIZED else ["sh", "-c", f'ulimit -v {kilobytes}; exec "$0" "$@"']


class Program:
    """The program under test, run in a folder of its own."""

    def __init__(self, folder):
        self.path = os.environ["ALUFRAME"]
        self.folder = folder

    def __call__(self, *arguments, status=0):
        done = subprocess.run(
            [self.path, *map(str, arguments)],
            capture_output=True, text=True, check=False, cwd=self.folder, timeout=120,
        )
        assert done.returncode == status, f"{done.returncode}\n{done.stdout}\n{done.stderr}"
        return done

    def json(self, *arguments, status=0):
        return json.loads(self(*arguments, "--format", "json", status=status).stdout)

    def write(self, model, name="frame.json"):
        path = self.folder / name
        path.write_text(model if isinstance(model, str) else json.dumps(model), encoding="utf-8")
        return path
