"""Runs `aluframe` of the Windows build under Wine, beside that of this machine."""

import os
import shutil
import subprocess
import tempfile
from pathlib import Path

import pytest

import module_wine
from module_wine import BIN, BUILD, ROOT

UNPACKED = BUILD / "unpacked" / "aluframe-windows" / "bin"
LINUX = Path(os.environ.get("ALUFRAME", ROOT / "build" / "release" / "bin" / "aluframe"))
EXAMPLES = sorted((ROOT / "examples").glob("*.json"))


def windows_program():
    """That of the archive with nothing but its own libraries, or else of the build folder."""
    packed = UNPACKED / "aluframe.exe"
    return packed if packed.exists() else BIN / "aluframe.exe"


def require():
    """Skips the test file when this machine cannot run it."""
    module_wine.require_programs()
    for program in (windows_program(), LINUX):
        if not program.exists():
            pytest.skip(f"needs {program}: ./dev windows-test builds it", allow_module_level=True)


class Done:
    """What a program came to: its status and both outputs, as they are."""

    def __init__(self, done):
        self.status, self.out, self.err = done.returncode, done.stdout, done.stderr

    def __eq__(self, other):
        return (self.status, self.out, self.err) == (other.status, other.out, other.err)

    def __repr__(self):
        text = (self.out + self.err).decode("utf-8", "backslashreplace")
        return f"status {self.status}\n{text}"


class Machine:
    """A Windows of its own in the build folder, made once, with the program on it."""

    def __init__(self):
        self.wine = module_wine.Wine(BUILD / "wine")
        self.compiler_libraries = self.wine.environment["WINEPATH"]
        if windows_program().parent == UNPACKED:
            self.wine.environment.pop("WINEPATH")
        self.wine.environment["LC_ALL"] = "C.UTF-8"

    def environment(self, changes):
        return {name: value for name, value in (self.wine.environment | changes).items() if value is not None}

    def run(self, *arguments, folder, given=b"", timeout=300, **changes):
        # Into files: services of Wine that a program happens to start hold its pipes open for ever.
        with tempfile.TemporaryFile() as out, tempfile.TemporaryFile() as err:
            done = subprocess.run(
                ["wine", str(windows_program()), *map(str, arguments)], cwd=folder, input=given, stdout=out,
                stderr=err, check=False, timeout=timeout, env=self.environment(changes))
            for stream in (out, err):
                stream.seek(0)
            done.stdout, done.stderr = out.read(), err.read()
        return Done(done)

    def start(self, *arguments, folder, **options):
        return subprocess.Popen(
            ["wine", str(windows_program()), *map(str, arguments)], cwd=folder,
            env=self.environment({}), **options)

    def end(self):
        self.wine.end()


def run_here(*arguments, folder, given=b"", timeout=300, **changes):
    return Done(subprocess.run(
        [str(LINUX), *map(str, arguments)], cwd=folder, input=given, capture_output=True, check=False,
        timeout=timeout, env=os.environ | {"LC_ALL": "C.UTF-8"} | changes))


class Both:
    """The program on both systems, each in a folder of its own with the same files."""

    def __init__(self, machine, folder):
        self.machine = machine
        self.windows, self.linux = folder / "windows", folder / "linux"
        for each in (self.windows, self.linux):
            each.mkdir(parents=True)

    def copy(self, file, name=None):
        for each in (self.windows, self.linux):
            shutil.copy(file, each / (name or file.name))

    def run(self, *arguments, given=b""):
        """@return what came of it on Windows and on this machine"""
        return (self.machine.run(*arguments, folder=self.windows, given=given),
                run_here(*arguments, folder=self.linux, given=given))

    def same(self, *arguments, given=b""):
        """Runs both, which must end and print alike. @return that"""
        windows, linux = self.run(*arguments, given=given)
        assert windows == linux, f"on Windows: {windows!r}\nhere: {linux!r}"
        return windows

    def same_file(self, name):
        windows, linux = ((each / name).read_bytes() for each in (self.windows, self.linux))
        assert windows == linux, f"{name}: {first_difference(windows, linux)}"
        return windows


def first_difference(windows, linux):
    pairs = zip(windows.split(b"\n"), linux.split(b"\n"))
    line, (ours, theirs) = next(
        ((at, pair) for at, pair in enumerate(pairs, 1) if pair[0] != pair[1]), (0, (b"", b"")))
    return f"{len(windows)} and {len(linux)} bytes; line {line}: {ours[:200]!r} and {theirs[:200]!r}"
