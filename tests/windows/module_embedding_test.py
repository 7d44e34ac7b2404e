"""The example of a host in the documentation compiles against the installed package and runs."""

import re
import shutil
import subprocess

import pytest

import module_wine
from module_wine import BUILD, COMPILER, ROOT

module_wine.require("cmake")

PAGE = (ROOT / "docs" / "windows.md").read_text(encoding="utf-8")


@pytest.fixture
def wine():
    folder, machine = module_wine.temporary_wine()
    yield machine
    machine.end()
    folder.cleanup()


def test_the_example_is_short():
    example = re.search(r"```cpp\n(.*?)```", PAGE, re.DOTALL).group(1)
    assert len(example.splitlines()) <= 60


def test_the_example_prints_what_the_page_says(wine, tmp_path):
    done = subprocess.run(["cmake", "--install", BUILD, "--prefix", tmp_path / "aluframe"],
                          capture_output=True, text=True, check=False)
    assert done.returncode == 0, done.stderr
    (tmp_path / "pipe.cpp").write_text(re.search(r"```cpp\n(.*?)```", PAGE, re.DOTALL).group(1))
    command = re.search(rf"`({re.escape(COMPILER)} .*?)`", PAGE, re.DOTALL).group(1).split()
    done = subprocess.run(command, cwd=tmp_path, capture_output=True, text=True, check=False)
    assert done.returncode == 0, done.stderr
    for library in (tmp_path / "aluframe" / "bin").glob("*.dll"):
        shutil.copy(library, tmp_path)
    printed = wine.run(tmp_path / "pipe.exe").stdout.strip()
    # By hand: Aen = 0.85 · 2827.43 = 2403.3155 mm²; 1e5 N / Aen = 41.609 N/mm²; f = 200 N/mm².
    assert printed == "1: 41.609 of 200.000 N/mm2, 0 inconsistencies"
    assert printed in " ".join(PAGE.split())
