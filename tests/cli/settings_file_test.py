"""`aluframe settings` and the file that it changes, and what follows in checks and reports."""

import os
import re
import resource
import signal
import stat
import subprocess

import pytest

from program import PIPE_AREA, PIPE_W
from settings_model import MODEL, change, text_of


@pytest.fixture
def frame(aluframe):
    aluframe.write(MODEL)
    return aluframe


# The file

def test_a_change_that_changes_nothing_leaves_the_file_untouched(frame):
    path = frame.folder / "frame.json"
    os.utime(path, (1, 1))
    inode = path.stat().st_ino
    done = change(frame, "--set", "seismic=on", "--set", "rib-ratio=1.20", "--material", "3",
                  "--grade", "6061-T6")
    assert (done.stdout, done.stderr) == ("", "frame.json: nothing to change\n")
    assert (path.stat().st_mtime, path.stat().st_ino) == (1, inode)


def test_defaults_do_not_give_settings_to_a_model_without(aluframe, pipe_beam):
    path = aluframe.write(pipe_beam)
    before = path.read_bytes()
    assert change(aluframe, "--set", "rib=on").stderr == "frame.json: nothing to change\n"
    assert path.read_bytes() == before


def test_permissions_and_links_stay(frame):
    path, link = frame.folder / "frame.json", frame.folder / "link.json"
    path.chmod(0o640)
    link.symlink_to("frame.json")
    frame("settings", "link.json", "--set", "rib=off")
    assert link.is_symlink() and stat.S_IMODE(path.stat().st_mode) == 0o640
    assert '"rib": false' in text_of(frame)
    assert sorted(os.listdir(frame.folder)) == ["frame.json", "link.json"]


def run_limited(frame, limit=None, under=()):
    return subprocess.run([*under, frame.path, "settings", "frame.json", "--set", "rib=off"],
                          cwd=frame.folder, capture_output=True, text=True, check=False, timeout=60,
                          preexec_fn=limit)


def test_a_full_disk_keeps_the_old_file_and_leaves_no_half_of_the_new_one(frame):
    def limit():
        signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
        resource.setrlimit(resource.RLIMIT_FSIZE, (500, 500))

    done = run_limited(frame, limit)
    assert (done.returncode, done.stdout) == (2, "")
    assert done.stderr == "frame.json: cannot be saved: File too large\n"
    assert text_of(frame) == MODEL and os.listdir(frame.folder) == ["frame.json"]


def test_a_write_protected_file_is_not_replaced(frame):
    (frame.folder / "frame.json").chmod(0o444)
    done = change(frame, "--set", "rib=off", status=2)
    assert done.stderr == "frame.json: cannot be saved: is write-protected\n"
    assert text_of(frame) == MODEL


def test_a_folder_that_takes_no_new_file_keeps_the_old_one(frame):
    frame.write(MODEL)
    frame.folder.chmod(0o555)
    # Permissions to write count for the superuser, too, without this capability.
    under = ("setpriv", "--bounding-set=-dac_override") if os.geteuid() == 0 else ()
    done = run_limited(frame, under=under)
    frame.folder.chmod(0o755)
    assert (done.returncode, done.stdout) == (2, "")
    assert done.stderr == "frame.json: cannot be saved: Permission denied\n"
    assert text_of(frame) == MODEL


# What follows

def strength(frame):
    frame("check", "frame.json")
    rows = frame.json("results", "frame.json")
    return next(row for row in rows if row["item"] == "strength")


def test_the_seismic_factor_scales_the_stress_of_the_next_check(frame):
    # GB 50429-2007, tension with bending: γRE·(N/(0.85·A) + M/(γ·W)), γ = 1 for a pipe, f = 200;
    # 20 kN and 10 kN·m at the end. Forces are held in single precision: 1e-6 relative.
    stress = 2e4 / (0.85 * PIPE_AREA) + 1e7 / PIPE_W
    before = strength(frame)
    assert before["demand"] == pytest.approx(0.8 * stress, rel=1e-6)
    done = change(frame, "--set", "gamma-re-strength=0.6")
    assert done.stderr == "frame.aluresult is out of date; check the model again\n"
    after = strength(frame)
    assert after["demand"] == pytest.approx(0.6 * stress, rel=1e-6)
    assert after["ratio"] == pytest.approx(0.6 * stress / 200, rel=1e-6)
    # Without seismic factors γ0 = 1.1 of class 1 takes their place.
    change(frame, "--set", "seismic=off", "--set", "safety-class=1")
    assert strength(frame)["demand"] == pytest.approx(1.1 * stress, rel=1e-6)


def test_a_grade_gives_the_next_check_its_strength(frame):
    assert strength(frame)["capacity"] == 200
    change(frame, "--material", "3", "--grade", "6063-T5")
    assert strength(frame)["capacity"] == 90  # GB 50429-2007, t ≤ 10 mm
    change(frame, "--material", "3", "--f02-thin", "150")
    assert strength(frame)["capacity"] == 125  # values of the user: f0.2/1.2


def test_the_report_shows_the_new_factor(frame):
    frame("check", "frame.json")
    frame("report", "frame.json", "--readable", "old.txt")
    change(frame, "--set", "gamma-re-strength=0.6")
    frame("check", "frame.json")
    frame("report", "frame.json", "--readable", "new.txt")
    factors = [set(re.findall(r"γRE= +([0-9.]+)", (frame.folder / name).read_text(encoding="utf-8")))
               for name in ("old.txt", "new.txt")]
    assert factors == [{"0.800"}, {"0.600"}]  # of strength and of shear along both axes


def test_results_of_the_old_settings_make_no_report(frame):
    frame("check", "frame.json")
    change(frame, "--set", "gamma-re-strength=0.6")
    done = frame("report", "frame.json", status=2)
    assert done.stdout == "" and not (frame.folder / "frame.alu").exists()


def test_without_results_nothing_is_out_of_date(frame):
    assert change(frame, "--set", "rib=off").stderr == ""


def test_a_saved_model_is_valid(frame):
    change(frame, "--set", "rib=off", "--material", "1", "--poisson", "0.5")
    assert frame("validate", "frame.json").stdout.startswith("frame.json: valid\n")
