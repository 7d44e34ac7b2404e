"""Programs and libraries look for ours beside themselves, never in the folder one happens to be in."""

import os
import re
import shutil
import subprocess
from pathlib import Path

import pytest

BUILD = Path(os.environ["ALUFRAME"]).resolve().parents[1]


def is_elf(path):
    with open(path, "rb") as file:
        return file.read(4) == b"\x7fELF"


def programs_and_libraries():
    files = [path for folder in ("bin", "lib") for path in sorted((BUILD / folder).iterdir())]
    return [path for path in files if path.is_file() and not path.is_symlink() and is_elf(path)]


def searched_folders(path):
    dynamic = subprocess.run(["readelf", "-d", path], capture_output=True, text=True, check=True)
    found = re.findall(r"\((?:RUNPATH|RPATH)\).*\[(.*)\]", dynamic.stdout)
    return [folder for entry in found for folder in entry.split(":")]


def test_every_search_path_begins_where_the_file_stands():
    files = programs_and_libraries()
    assert BUILD / "bin" / "aluframe" in files
    assert searched_folders(BUILD / "bin" / "aluframe") != []
    searched = {path.name: searched_folders(path) for path in files}
    assert {name: folders for name, folders in searched.items()
            if not all(folder.startswith("$ORIGIN") for folder in folders)} == {}


@pytest.mark.parametrize("library", ["libtz_alu.so.0", "libaluhost.so.0"])
def test_a_library_planted_in_the_current_folder_is_not_loaded(tmp_path, library):
    source = tmp_path / "planted.c"
    source.write_text('#include <unistd.h>\n'
                      '__attribute__((constructor)) static void run(void) { _exit(77); }\n')
    compiler = shutil.which("cc") or shutil.which("gcc") or shutil.which("c++")
    subprocess.run([compiler, "-shared", "-fPIC", source, "-o", tmp_path / library], check=True)
    done = subprocess.run([os.environ["ALUFRAME"], "--version"], cwd=tmp_path, check=False,
                          capture_output=True, timeout=60)
    assert done.returncode == 0
