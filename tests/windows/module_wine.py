"""Runs programs of the Windows build: what is needed for it, and how."""

import os
import shutil
import subprocess
import tempfile
import time
from pathlib import Path

import pytest

ROOT = Path(__file__).resolve().parents[2]
BUILD = Path(os.environ.get("ALUFRAME_WINDOWS_BUILD_DIR", ROOT / "build" / "windows"))
BIN = BUILD / "bin"
COMPILER = "x86_64-w64-mingw32-g++-posix"
OBJDUMP = "x86_64-w64-mingw32-objdump"


def missing(*programs):
    return [program for program in programs if shutil.which(program) is None]


def require_programs(*programs):
    """Skips the test file when this machine has neither Wine, the compiler nor the programs."""
    absent = missing("wine", COMPILER, *programs)
    if absent:
        pytest.skip(f"needs {', '.join(absent)}", allow_module_level=True)


def require(*programs):
    """Skips the test file when this machine cannot run it."""
    require_programs(*programs)
    if not (BIN / "module_loader.exe").exists():
        pytest.skip("needs the programs of the preset `windows`", allow_module_level=True)


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def library_folders():
    """Where the libraries of the compiler are that programs need when they start."""
    files = ("libstdc++-6.dll", "libwinpthread-1.dll")
    found = [
        subprocess.run([COMPILER, f"-print-file-name={name}"], capture_output=True, text=True,
                       check=True).stdout.strip()
        for name in files
    ]
    return ";".join(windows_path(Path(name).resolve().parent) for name in found)


class Wine:
    """A Windows of its own, in a folder of its own."""

    def __init__(self, prefix, display=""):
        self.environment = dict(
            os.environ, WINEPREFIX=str(prefix), WINEDEBUG="-all", WINEPATH=library_folders(),
            # Neither .NET nor a browser: nobody is asked whether to install them.
            WINEDLLOVERRIDES="mscoree,mshtml=", DISPLAY=display,
        )
        self.keeper = None
        self.run("wineboot", "-i", timeout=180)
        self.install_fonts(Path(prefix) / "drive_c" / "windows" / "Fonts")

    def install_fonts(self, folder):
        """Those of Wine itself, which Debian's does not find: the dialogs' and the captions'."""
        for font in Path("/usr/share/wine/fonts").glob("*.ttf"):
            shutil.copy(font, folder)
        self.end()  # they are looked for when the next program starts
        self.keep_running()

    def keep_running(self):
        """Windows starts with its first program and ends with its last one, which takes seconds: this one stays, and
        no service of the system has the streams of another."""
        self.keeper = self.start("cmd", stdin=subprocess.PIPE)
        subprocess.run(["wine", "cmd", "/c", "exit"], env=self.environment, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL, check=True)

    def run(self, *command, timeout=120, **options):
        return subprocess.run(
            ["wine", *map(str, command)], env=self.environment, capture_output=True, text=True,
            check=False, timeout=timeout, **options,
        )

    def start(self, *command, **options):
        return subprocess.Popen(
            ["wine", *map(str, command)], env=options.pop("env", self.environment),
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, **options,
        )

    def set_value(self, key, name, value, kind="REG_SZ"):
        """In the registry."""
        done = self.run("reg", "add", key, "/v", name, "/t", kind, "/d", value, "/f")
        assert done.returncode == 0, done.stderr

    def end(self):
        if self.keeper is not None:
            self.keeper.communicate(timeout=60)
            self.keeper = None
        subprocess.run(["wineserver", "-k"], env=self.environment, check=False)
        subprocess.run(["wineserver", "-w"], env=self.environment, check=False)


class Screen:
    """A screen in memory, with a keyboard and a mouse."""

    def __init__(self):
        reading, writing = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writing), "-screen", "0", "1280x1024x24", "-noreset"],
            pass_fds=[writing], stderr=subprocess.DEVNULL,
        )
        os.close(writing)
        with os.fdopen(reading) as pipe:
            self.display = ":" + pipe.readline().strip()

    def do(self, *command):
        """What xdotool does with the arguments. @return what it prints"""
        return subprocess.run(
            ["xdotool", *map(str, command)], env=dict(os.environ, DISPLAY=self.display),
            capture_output=True, text=True, check=False,
        ).stdout.strip()

    def take_picture(self, file, place):
        """Of a part of the screen: left, top, width, height."""
        left, top, width, height = place
        subprocess.run(
            ["import", "-window", "root", "-crop", f"{width}x{height}+{left}+{top}", "+repage",
             str(file)],
            env=dict(os.environ, DISPLAY=self.display), check=True,
        )

    def end(self):
        self.server.terminate()
        self.server.wait()


def wait_for(condition, seconds=20.0):
    """What `condition` gives as soon as it is true, or at the end."""
    end = time.monotonic() + seconds
    while True:
        value = condition()
        if value or time.monotonic() > end:
            return value
        time.sleep(0.05)


def temporary_wine(display=""):
    folder = tempfile.TemporaryDirectory(prefix="aluframe-wine-", ignore_cleanup_errors=True)
    return folder, Wine(Path(folder.name) / "prefix", display)
