"""Runs the tools beside the program, and lets tests import their parts."""

import subprocess
import sys

from program import ROOT

TOOLS = ROOT / "tools"
sys.path.insert(0, str(TOOLS))


def run(tool, *arguments, status=0):
    done = subprocess.run([sys.executable, TOOLS / tool, *map(str, arguments)],
                          capture_output=True, text=True, check=False, timeout=120)
    assert done.returncode == status, f"{done.returncode}\n{done.stdout}\n{done.stderr}"
    return done
