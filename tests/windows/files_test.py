"""Files of the program on Windows: names in any script, replaced in one step, held by one run at a time."""

import json
import os
import shutil
import signal
import subprocess
import sys

import pytest

import program_wine
from program_wine import ROOT

program_wine.require()

PORTAL = ROOT / "examples" / "portal-bracket.json"


@pytest.fixture
def folder(tmp_path):
    place = tmp_path / "模型 é"
    place.mkdir()
    return place


def named_model(title):
    model = json.loads(PORTAL.read_text(encoding="utf-8"))
    model["title"] = title
    model["materials"][0]["name"] = title
    return json.dumps(model, ensure_ascii=False)


def test_paths_in_chinese_are_read_and_written(machine, folder):
    shutil.copy(PORTAL, folder / "模型.json")
    assert machine.run("check", "模型.json", folder=folder).status == 0
    assert machine.run("results", "模型.json", "--output", "结果.csv", "--format", "csv",
                       folder=folder).status == 0
    assert machine.run("report", "模型.json", folder=folder).status == 0
    assert {"模型.json", "模型.aluresult", "模型.alu", "模型.txt", "结果.csv"} == {
        path.name for path in folder.iterdir()}


def test_messages_name_a_path_as_the_user_gave_it(machine, folder):
    done = machine.run("check", "没有.json", folder=folder)
    assert (done.status, done.out) == (1, b"")
    assert done.err.decode() == "没有.json: cannot be opened: No such file or directory\n"


def test_names_beyond_sixteen_bits_survive(machine, folder):
    title = "𠮷野 🏗 bridge"
    (folder / "frame.json").write_text(named_model(title), encoding="utf-8")
    settings = machine.run("settings", "frame.json", folder=folder)
    assert title in settings.out.decode()
    assert machine.run("check", "frame.json", folder=folder).status == 0
    assert machine.run("report", "frame.json", folder=folder).status == 0
    page = machine.run("report", "frame.json", "--html", "-", folder=folder)
    assert title in page.out.decode()


@pytest.mark.parametrize("name", ["𠮷.json", "a b.json", "ÄÖ.json", "модель.json"])
def test_a_file_of_any_name_is_found(machine, folder, name):
    shutil.copy(PORTAL, folder / name)
    assert machine.run("validate", name, folder=folder).status == 0


def test_what_is_written_has_no_carriage_returns(machine, folder):
    shutil.copy(PORTAL, folder / "frame.json")
    machine.run("check", "frame.json", folder=folder)
    machine.run("report", "frame.json", folder=folder)
    shown = machine.run("results", "frame.json", "--output", "table.txt", folder=folder)
    assert b"\r" not in shown.out + shown.err
    for name in ("frame.alu", "frame.txt", "table.txt"):
        assert b"\r" not in (folder / name).read_bytes()


def test_a_file_is_replaced_and_nothing_stays_beside_it(machine, folder):
    shutil.copy(PORTAL, folder / "frame.json")
    machine.run("check", "frame.json", folder=folder)
    (folder / "table.txt").write_text("old")
    assert machine.run("results", "frame.json", "--output", "table.txt", folder=folder).status == 0
    assert (folder / "table.txt").read_text(encoding="utf-8") != "old"
    assert sorted(path.name for path in folder.iterdir()) == ["frame.aluresult", "frame.json", "table.txt"]


def test_results_replace_earlier_ones(machine, folder):
    shutil.copy(PORTAL, folder / "frame.json")
    for _ in range(3):
        done = machine.run("check", "frame.json", folder=folder)
        assert done.status == 0, done
    assert sorted(path.name for path in folder.iterdir()) == ["frame.aluresult", "frame.json"]


def test_a_write_protected_file_is_not_replaced(machine, folder):
    shutil.copy(PORTAL, folder / "frame.json")
    machine.run("check", "frame.json", folder=folder)
    protected = folder / "table.txt"
    protected.write_text("old")
    protected.chmod(0o444)
    done = machine.run("results", "frame.json", "--output", "table.txt", folder=folder)
    assert (done.status, done.err.decode()) == (2, "table.txt: cannot be written: is write-protected\n")
    assert protected.read_text() == "old"


def test_an_output_may_go_nowhere(machine, folder):
    shutil.copy(PORTAL, folder / "frame.json")
    machine.run("check", "frame.json", folder=folder)
    done = machine.run("results", "frame.json", "--output", "NUL", folder=folder)
    assert (done.status, done.err) == (0, b"")
    assert not (folder / "NUL").exists()


# --- runs that meet, or end early ---


def write_large_model(folder, combinations=50, elements=8000):
    """A frame whose check takes seconds, as large.json."""
    subprocess.run(
        [sys.executable, str(ROOT / "tools" / "generate_model.py"), "--kind", "grid", "--elements", str(elements),
         "--combinations", str(combinations), "--output", str(folder / "large.json")], check=True)


def start_check(machine, folder):
    """A check that has begun to store results."""
    running = machine.start("check", "large.json", "--progress", "always", folder=folder,
                            stdout=subprocess.PIPE, stderr=subprocess.PIPE)
    while b"%" not in running.stderr.read(1):
        assert running.poll() is None, "the run ended before it could be disturbed"
    return running


def names_in(folder):
    return sorted(path.name for path in folder.iterdir())


def test_a_second_run_on_the_same_results_is_refused(machine, folder):
    write_large_model(folder)
    first = start_check(machine, folder)
    second = machine.run("check", "large.json", folder=folder)
    first.communicate(timeout=300)
    assert second.status == 2
    assert b"another run is writing this file" in second.err
    assert first.returncode == 0
    assert names_in(folder) == ["large.aluresult", "large.json"]


def test_a_run_waits_for_another_where_it_is_told_to(machine, folder):
    write_large_model(folder)
    first = start_check(machine, folder)
    second = machine.run("check", "large.json", "--wait", folder=folder)
    first.communicate(timeout=300)
    assert (first.returncode, second.status) == (0, 0)


def test_a_killed_run_is_told_and_gone_on_with(machine, folder):
    write_large_model(folder)
    running = start_check(machine, folder)
    running.kill()
    running.communicate(timeout=60)
    told = machine.run("results", "large.json", folder=folder)
    assert told.status == 1
    assert b"large.aluresult.partial holds what a run that is going on or ended early has stored" in told.err
    assert machine.run("check", "large.json", "--resume", folder=folder).status == 0
    assert names_in(folder) == ["large.aluresult", "large.json"]
    resumed = machine.run("results", "large.json", "--format", "csv", folder=folder)
    assert machine.run("check", "large.json", folder=folder).status == 0
    assert machine.run("results", "large.json", "--format", "csv", folder=folder) == resumed


def test_a_killed_run_leaves_the_earlier_results(machine, folder):
    write_large_model(folder, combinations=1)
    machine.run("check", "large.json", folder=folder)
    before = (folder / "large.aluresult").read_bytes()
    write_large_model(folder)
    running = start_check(machine, folder)
    running.kill()
    running.communicate(timeout=60)
    assert (folder / "large.aluresult").read_bytes() == before


def test_ctrl_c_ends_a_run_cleanly_and_keeps_what_was_stored(machine, folder):
    write_large_model(folder)
    running = start_check(machine, folder)
    running.send_signal(signal.SIGINT)
    _, said = running.communicate(timeout=120)
    assert running.returncode == 3, said.decode()
    assert b"are in large.aluresult.partial, --resume goes on with them" in said
    shown = machine.run("results", "large.aluresult.partial", folder=folder)
    assert b"stopped before its end" in shown.err


def test_standard_output_on_a_full_disk_is_a_failure(machine, folder):
    shutil.copy(PORTAL, folder / "frame.json")
    machine.run("check", "frame.json", folder=folder)
    with open("/dev/full", "wb") as full:
        running = machine.start("results", "frame.json", folder=folder, stdout=full, stderr=subprocess.PIPE)
        _, said = running.communicate(timeout=60)
    assert running.returncode == 2
    assert said.decode() == "standard output: cannot be written\n"


@pytest.mark.skipif(os.geteuid() != 0, reason="only root can make a small disk")
def test_a_disk_that_gets_full_ends_the_run_and_keeps_the_earlier_results(machine, tmp_path):
    disk = tmp_path / "disk"
    disk.mkdir()
    subprocess.run(["mount", "-t", "tmpfs", "-o", "size=40m", "none", str(disk)], check=True)
    try:
        write_large_model(disk, combinations=1, elements=2000)
        done = machine.run("check", "large.json", folder=disk)
        assert done.status == 0, done
        before = (disk / "large.aluresult").read_bytes()
        (disk / "ballast").write_bytes(bytes(max(0, shutil.disk_usage(disk).free - 200_000)))
        done = machine.run("check", "large.json", folder=disk)
        assert done.status == 2, done
        assert b"full" in done.err or b"No space left" in done.err
        assert (disk / "large.aluresult").read_bytes() == before
    finally:
        subprocess.run(["umount", "-l", str(disk)], check=True)
