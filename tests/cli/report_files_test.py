"""Where a report may go, and what happens when it cannot go there."""

import os
import resource
import shutil
import signal
import subprocess

import pytest

from report_frames import three_beams

INPUT = ("frame.json", "frame.aluresult", "forces.csv")


@pytest.fixture(autouse=True)
def utf8(monkeypatch):
    monkeypatch.setenv("LC_ALL", "C.UTF-8")


@pytest.fixture
def frame(aluframe, pipe_beam):
    """A checked model with forces in a file of their own."""
    three_beams(pipe_beam)
    aluframe.write(pipe_beam)
    lines = ["element,case,position,N,Fy,Fz,Mx,My,Mz"]
    for row in pipe_beam["forces"]:
        for position, values in enumerate(row["values"]):
            lines.append(",".join(map(str, [row["element"], row["case"], position, *values])))
    (aluframe.folder / "forces.csv").write_text("\n".join(lines) + "\n")
    aluframe("check", "frame.json", "--forces", "forces.csv")
    return aluframe


def bytes_of(frame, *names):
    return [(frame.folder / name).read_bytes() for name in names or INPUT]


# What would be overwritten

@pytest.mark.parametrize("option, what", [("--output", "report"), ("--readable", "readable copy")])
@pytest.mark.parametrize("target, name", zip(INPUT, ("model", "result file", "table of forces")))
def test_a_report_never_takes_the_place_of_its_input(frame, target, name, option, what):
    before = bytes_of(frame)
    done = frame("report", "frame.json", "--forces", "forces.csv", option, target, status=1)
    assert done.stderr == (f"{target}: is the {name}, which the {what} would overwrite; "
                           "choose another file\n")
    assert done.stdout == "" and bytes_of(frame) == before
    assert not (frame.folder / "frame.alu").exists()


@pytest.mark.parametrize("make", [os.symlink, os.link])
@pytest.mark.parametrize("target", INPUT)
def test_a_link_to_an_input_is_that_input(frame, target, make):
    make(frame.folder / target, frame.folder / "linked.alu")
    before = bytes_of(frame)
    frame("report", "frame.json", "--forces", "forces.csv", "--output", "linked.alu", status=1)
    assert bytes_of(frame) == before


@pytest.mark.parametrize("target", ["./frame.json", "../{folder}/frame.json", "{whole}/frame.json"])
def test_a_path_written_in_another_way_is_the_same_path(frame, target):
    target = target.format(folder=frame.folder.name, whole=frame.folder)
    before = bytes_of(frame)
    frame("report", "frame.json", "--output", target, status=1)
    assert bytes_of(frame) == before


def test_results_named_by_hand_are_protected_too(frame):
    shutil.move(frame.folder / "frame.aluresult", frame.folder / "frame.alu")
    before = bytes_of(frame, "frame.alu")
    error = frame("report", "frame.json", "--results", "frame.alu", status=1).stderr
    assert error == ("frame.alu: is the result file, which the report would overwrite; "
                     "choose another file\n")
    assert bytes_of(frame, "frame.alu") == before


def test_the_readable_copy_is_another_file_than_the_report(frame):
    for report, copy in (("a.alu", "a.alu"), ("a.alu", "./a.alu")):
        error = frame("report", "frame.json", "--output", report, "--readable", copy, status=1).stderr
        assert error == (f"{copy}: is the report, which the readable copy would overwrite; "
                         "choose another file\n")
    assert not (frame.folder / "a.alu").exists()


def test_a_results_file_that_is_something_else_is_refused_and_left(frame):
    before = bytes_of(frame)
    for other, status in (("frame.json", 1), ("forces.csv", 1)):
        assert other in frame("report", "frame.json", "--results", other, status=status).stderr
    assert bytes_of(frame) == before


def test_a_file_of_the_users_own_beside_the_report_is_not_taken_for_its_copy(frame):
    (frame.folder / "frame.txt").write_text("notes on the frame\n")
    done = frame("report", "frame.json", status=1)
    assert done.stderr == ("frame.txt: is no readable copy of a report, which would overwrite it; move it, or name "
                           "another file with --readable\n")
    assert (frame.folder / "frame.txt").read_text() == "notes on the frame\n"
    assert not (frame.folder / "frame.alu").exists()
    frame("report", "frame.json", "--readable", "copy.txt")
    assert (frame.folder / "frame.txt").read_text() == "notes on the frame\n"


def test_a_pipe_beside_the_report_is_no_copy_and_is_not_waited_for(frame):
    os.mkfifo(frame.folder / "frame.txt")
    done = frame("report", "frame.json", status=1)
    assert done.stderr.startswith("frame.txt: is no readable copy of a report, ")
    assert not (frame.folder / "frame.alu").exists()


def test_an_earlier_copy_is_replaced(frame):
    frame("report", "frame.json")
    whole = bytes_of(frame, "frame.txt")
    frame("report", "frame.json", "--elements", "1")
    assert bytes_of(frame, "frame.txt") != whole
    frame("report", "frame.json")
    assert bytes_of(frame, "frame.txt") == whole


def test_a_report_with_the_name_of_its_copy_has_its_copy_beside_it(frame):
    done = frame("report", "frame.json", "--output", "frame.txt")
    assert done.stdout.endswith("Readable copy: frame.readable.txt\n")


# To standard output

def test_a_report_to_standard_output_is_the_readable_copy_and_leaves_no_file(frame):
    frame("report", "frame.json", "--readable", "copy.txt")
    (frame.folder / "frame.alu").unlink()
    listed = sorted(os.listdir(frame.folder))
    done = frame("report", "frame.json", "--output", "-")
    assert done.stdout == (frame.folder / "copy.txt").read_text(encoding="utf-8")
    assert done.stderr.startswith("Report of 3 elements, complete: standard output\n")
    assert "  worst ratio   " in done.stderr
    assert sorted(os.listdir(frame.folder)) == listed


@pytest.mark.parametrize("option, words", [
    (("--readable", "copy.txt"),
     "--readable: --output - writes the readable text to standard output; give one of the two\n"),
    (("--open",), "--open: --output - leaves no file to open; give one of the two\n"),
])
def test_what_needs_a_file_is_refused_beside_standard_output(frame, option, words):
    done = frame("report", "frame.json", "--output", "-", *option, status=1)
    assert done.stderr == words and done.stdout == ""


def test_a_full_disk_behind_standard_output_is_a_failure(frame):
    with open("/dev/full", "w", encoding="utf-8") as full:
        done = subprocess.run([frame.path, "report", "frame.json", "--output", "-"], cwd=frame.folder,
                              stdout=full, stderr=subprocess.PIPE, check=False, timeout=120)
    assert done.returncode == 2


# What cannot be opened

@pytest.mark.parametrize("path, words", [
    ("missing/frame.alu", "cannot be written: No such file or directory"),
    ("folder", "is a folder"),
    ("forces.csv/frame.alu", "cannot be written: Not a directory"),
    ("loop", "cannot be written: Too many levels of symbolic links"),
    pytest.param("n" * 300, "cannot be written: File name too long", id="a long name"),
    (b"caf\xe9.alu", "is not UTF-8"),
])
def test_a_report_that_cannot_be_opened_ends_the_run_and_harms_nothing(frame, path, words):
    (frame.folder / "folder").mkdir()
    os.symlink("loop", frame.folder / "loop")
    before, listed = bytes_of(frame), sorted(os.listdir(frame.folder))
    done = subprocess.run([frame.path, "report", "frame.json", "--output", path], cwd=frame.folder,
                          capture_output=True, check=False, timeout=120)
    assert done.returncode == 2
    error = done.stderr.decode("utf-8", "replace")
    assert error.startswith("the report failed: ") and words in error
    assert done.stdout == b""
    assert bytes_of(frame) == before and sorted(os.listdir(frame.folder)) == listed


def test_a_report_that_cannot_be_opened_checks_nothing(frame):
    (frame.folder / "frame.aluresult").unlink()
    frame("report", "frame.json", "--output", "missing/frame.alu", status=2)
    assert not (frame.folder / "frame.aluresult").exists()


def test_a_readable_copy_that_cannot_be_opened_leaves_the_report(frame):
    frame("report", "frame.json", "--output", "whole.alu")
    done = frame("report", "frame.json", "--readable", "missing/frame.txt", status=2)
    assert done.stderr == ("missing/frame.txt: cannot be written: No such file or directory; the report is whole: "
                           "frame.alu\n")
    assert "Readable copy:" not in done.stdout
    assert bytes_of(frame, "frame.alu") == bytes_of(frame, "whole.alu")


def test_a_path_may_be_in_any_script(frame):
    done = frame("report", "frame.json", "--output", "铝框架 – Größe.alu")
    assert done.stdout.startswith("Report of 3 elements, complete: 铝框架 – Größe.alu\n")
    frame("report", "frame.json")
    assert bytes_of(frame, "铝框架 – Größe.alu") == bytes_of(frame, "frame.alu")


# A disk that is full

SMALL_DISK = r"""
mount -t tmpfs -o size=4k none disk || exit 99
program=$1
shift
"$program" "$@"
status=$?
cp disk/* kept
exit $status
"""


def small_disk_command():
    """How a command gets a disk of its own that ends after 4 kB: as the superuser, or as the one of a
    user namespace where the system lets users have them. None where neither works."""
    for command in (["unshare", "-m"], ["unshare", "-r", "-m"]):
        if shutil.which("unshare") is None:
            break
        done = subprocess.run([*command, "mount", "-t", "tmpfs", "none", "/mnt"], check=False,
                              capture_output=True)
        if done.returncode == 0:
            return command
    return None


def limit_files(size):
    """In a new process: no file may grow beyond, and the program learns of it as of a full disk."""
    def limit():
        signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
        resource.setrlimit(resource.RLIMIT_FSIZE, (size, size))
    return limit


def run_on_small_disk(frame, *arguments):
    """Reports to disk/frame.alu with room for 4096 bytes. What fits is in kept/ afterwards.
    @return the process, and the reason that the system gives for a write beyond"""
    (frame.folder / "disk").mkdir()
    (frame.folder / "kept").mkdir()
    command = [frame.path, "report", "frame.json", "--output", "disk/frame.alu", *arguments]
    options = {"cwd": frame.folder, "capture_output": True, "text": True, "check": False, "timeout": 120}
    unshare = small_disk_command()
    if unshare is not None:
        done = subprocess.run([*unshare, "sh", "-c", SMALL_DISK, "sh", *command], **options)
        return done, "No space left on device"
    done = subprocess.run(command, preexec_fn=limit_files(4096), **options)
    shutil.copytree(frame.folder / "disk", frame.folder / "kept", dirs_exist_ok=True)
    return done, "File too large"


def blocks_of(text):
    """A report cut in front of every banner's first rule; joined again they are the report."""
    rule = "=" * 100 + "\n"
    blocks = text.replace(rule + "  ", "\f" + rule + "  ").split("\f")
    return [block for block in blocks if block]


def test_a_full_disk_ends_the_run_with_a_clear_message_and_every_finished_block_intact(frame):
    frame("report", "frame.json", "--output", "whole.alu")
    whole = (frame.folder / "whole.alu").read_text(encoding="utf-8")
    assert len(whole.encode()) > 4096, "the report must not fit"
    before = bytes_of(frame)
    done, reason = run_on_small_disk(frame)
    assert done.returncode == 2, done.stderr
    assert done.stderr == (f"the report failed: disk/frame.alu: the report is incomplete: {reason}; "
                           "what was written is in frame.alu.partial; "
                           f"disk/frame.txt: cannot be written: {reason}\n")
    assert done.stdout == ""
    kept = (frame.folder / "kept" / "frame.alu.partial").read_bytes().decode("utf-8", "ignore")
    assert len(blocks_of(kept)) > 3
    for block in blocks_of(kept)[:-1]:
        assert block in blocks_of(whole)
    assert whole.startswith(kept)
    assert bytes_of(frame) == before


def test_a_full_disk_at_the_readable_copy_leaves_the_report(frame):
    frame("report", "frame.json", "--output", "whole.alu")
    size = (frame.folder / "whole.alu").stat().st_size
    done = frame("report", "frame.json", "--readable", "/dev/full", status=2)
    assert done.stderr == "/dev/full: cannot be written: No space left on device; the report is whole: frame.alu\n"
    assert (frame.folder / "frame.alu").stat().st_size == size


def test_results_that_do_not_fit_on_the_disk_end_the_run_with_status_2(frame):
    (frame.folder / "frame.aluresult").unlink()
    done = subprocess.run([frame.path, "report", "frame.json"], cwd=frame.folder, capture_output=True,
                          text=True, check=False, preexec_fn=limit_files(8192), timeout=120)
    assert done.returncode == 2
    assert "the report failed: " in done.stderr and "frame.aluresult" in done.stderr
    assert done.stdout == ""
