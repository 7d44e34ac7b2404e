"""What may go wrong on Windows: odd paths, files that others hold, streams that lead nowhere."""

import json
import shutil
import subprocess

import pytest

import program_wine
from module_wine import BIN, windows_path
from program_wine import ROOT, windows_program

program_wine.require()

PORTAL = ROOT / "examples" / "portal-bracket.json"
POINTS = ROOT / "examples" / "points.jsonl"


@pytest.fixture(name="folder")
def fixture_folder(tmp_path):
    shutil.copy(PORTAL, tmp_path / "frame.json")
    return tmp_path


def names_in(folder):
    return sorted(path.name for path in folder.iterdir())


class Holder:
    """A program that has a file open and shares it with nobody."""

    def __init__(self, machine, path):
        self.program = subprocess.Popen(
            ["wine", str(BIN / "file_holder.exe"), windows_path(path)], stdin=subprocess.PIPE,
            stdout=subprocess.PIPE, env=machine.environment({"WINEPATH": machine.compiler_libraries}))

    def __enter__(self):
        assert self.program.stdout.readline().strip() == b"held"
        return self

    def __exit__(self, *_):
        self.program.communicate(timeout=60)
        assert self.program.returncode == 0


# --- files that another program holds ---


def test_a_model_that_another_program_holds_is_told(machine, folder):
    with Holder(machine, folder / "frame.json"):
        done = machine.run("check", "frame.json", folder=folder)
    assert (done.status, done.err.decode()) == (1, "frame.json: cannot be opened: Device or resource busy\n")
    assert names_in(folder) == ["frame.json"]


def test_a_table_that_another_program_holds_stays(machine, folder):
    machine.run("check", "frame.json", folder=folder)
    (folder / "table.csv").write_text("old")
    with Holder(machine, folder / "table.csv"):
        done = machine.run("results", "frame.json", "--format", "csv", "--output", "table.csv", folder=folder)
    assert done.status == 2 and b"table.csv: cannot be written: " in done.err, done
    assert (folder / "table.csv").read_text() == "old"
    assert names_in(folder) == ["frame.aluresult", "frame.json", "table.csv"]


def test_results_that_another_program_holds_stay_and_nothing_is_lost(machine, folder):
    machine.run("check", "frame.json", folder=folder)
    before = (folder / "frame.aluresult").read_bytes()
    with Holder(machine, folder / "frame.aluresult"):
        done = machine.run("check", "frame.json", folder=folder)
    assert done.status == 2 and b"frame.aluresult" in done.err, done
    assert (folder / "frame.aluresult").read_bytes() == before
    assert machine.run("check", "frame.json", folder=folder).status == 0
    assert names_in(folder) == ["frame.aluresult", "frame.json"]


def test_settings_are_not_changed_in_a_model_that_another_program_holds(machine, folder):
    before = (folder / "frame.json").read_bytes()
    with Holder(machine, folder / "frame.json"):
        done = machine.run("settings", "frame.json", "--set", "strength_ratio=0.8", folder=folder)
    assert done.status != 0
    assert (folder / "frame.json").read_bytes() == before
    assert names_in(folder) == ["frame.json"]


# --- one file under several names ---


@pytest.mark.parametrize("name", ["FRAME.JSON", ".\\Frame.json", "frame.json.", "frame.json "])
def test_a_model_is_never_written_over_whatever_it_is_called(machine, folder, name):
    machine.run("check", "frame.json", folder=folder)
    for command in (["results", "frame.json"], ["check", "frame.json"], ["report", "frame.json"],
                    ["picture", "frame.json"]):
        done = machine.run(*command, "--output", name, folder=folder)
        assert done.status in (1, 2), (command, done)
        assert (folder / "frame.json").read_bytes() == PORTAL.read_bytes()


def test_a_model_in_capitals_is_the_same_model(machine, folder):
    assert machine.run("check", "FRAME.JSON", folder=folder).status == 0
    assert machine.run("results", "frame.json", folder=folder).err == b""


@pytest.mark.parametrize("path", ["..\\own.csv", "C:own.csv", "C:\\own.csv", "\\own.csv", "..\\x\\..\\..\\own.csv",
                                  "\\\\machine\\share\\own.csv"])
def test_a_catalogue_outside_of_the_folder_is_refused(machine, folder, path):
    inside = folder / "inside"
    inside.mkdir()
    model = json.loads(PORTAL.read_text(encoding="utf-8")) | {"catalogues": [path]}
    (inside / "frame.json").write_text(json.dumps(model))
    (folder / "own.csv").write_text("name,shape\n")
    done = machine.run("validate", "frame.json", folder=inside)
    assert done.status == 1
    assert b"which lies outside of the model's folder" in done.err, done


# --- paths ---


def test_paths_longer_than_260_characters(machine, folder):
    deep = folder
    for part in range(6):
        deep = deep / (f"{part}-" + "x" * 58)
    deep.mkdir(parents=True)
    shutil.copy(PORTAL, deep / "frame.json")
    model = windows_path(deep / "frame.json")
    assert len(model) > 350
    assert machine.run("check", model, folder=folder).status == 0
    assert machine.run("results", model, "--output", windows_path(deep / "table.txt"), folder=folder).status == 0
    assert machine.run("report", model, folder=folder).status == 0
    assert names_in(deep) == ["frame.alu", "frame.aluresult", "frame.json", "frame.txt", "table.txt"]


@pytest.mark.parametrize("path", ["", ".", "..", "Z:\\", "Q:\\frame.json", "nowhere\\frame.json", "frame.json\\x.json",
                                  "fr?me.json", "*.json", "frame.json|x", "\\\\machine\\share\\frame.json"])
def test_a_path_that_leads_to_no_model_is_told(machine, folder, path):
    done = machine.run("check", path, folder=folder)
    assert done.status == 1 and done.out == b"", done
    assert done.err.endswith(b"\n") and done.err.count(b"\n") == 1, done
    assert names_in(folder) == ["frame.json"]


@pytest.mark.parametrize("path", ["", ".", "Z:\\", "Q:\\table.txt", "nowhere\\table.txt", "frame.json\\table.txt",
                                  "ta?le.txt", "a|b"])
def test_a_path_that_cannot_be_written_is_told(machine, folder, path):
    machine.run("check", "frame.json", folder=folder)
    done = machine.run("results", "frame.json", "--output", path, folder=folder)
    assert done.status in (1, 2) and done.out == b"", done
    assert done.err.count(b"\n") == 1, done
    assert names_in(folder) == ["frame.aluresult", "frame.json"]


# --- texts of Windows ---


def test_a_model_of_the_editor_of_windows_is_read(machine, folder):
    """With carriage returns, and the mark that says UTF-8."""
    text = PORTAL.read_text(encoding="utf-8").replace("\n", "\r\n")
    (folder / "edited.json").write_bytes(b"\xef\xbb\xbf" + text.encode())
    machine.run("check", "frame.json", folder=folder)
    assert machine.run("check", "edited.json", folder=folder).status == 0
    shown = [machine.run("results", name, "--format", "csv", folder=folder) for name in ("frame.json", "edited.json")]
    assert shown[0] == shown[1] and shown[0].status == 0


def test_a_model_in_utf16_is_refused_with_words(machine, folder):
    (folder / "edited.json").write_bytes(PORTAL.read_text(encoding="utf-8").encode("utf-16"))
    done = machine.run("check", "edited.json", folder=folder)
    assert done.status == 1 and b"edited.json" in done.err and b"UTF-" in done.err, done


def test_points_with_carriage_returns_have_the_same_answers(both):
    text = POINTS.read_bytes()
    plain = both.same("points", "-", given=text)
    assert both.same("points", "-", given=text.replace(b"\n", b"\r\n")) == plain


def test_a_changed_model_keeps_its_carriage_returns(machine, folder):
    text = PORTAL.read_text(encoding="utf-8").replace("\n", "\r\n")
    (folder / "frame.json").write_bytes(text.encode())
    assert machine.run("settings", "frame.json", "--set", "strength_ratio=0.8", folder=folder).status == 0
    changed = text.replace('"strength_ratio": 0.9', '"strength_ratio": 0.8')
    assert (folder / "frame.json").read_bytes() == changed.encode()


# --- streams ---


def shell(machine, line, folder):
    return subprocess.run(["bash", "-c", line], cwd=folder, env=machine.environment({"ALUFRAME": str(windows_program())}),
                          capture_output=True, check=False, timeout=120)


def test_a_closed_standard_output_is_a_failure_and_no_file_takes_its_place(machine, folder):
    machine.run("check", "frame.json", folder=folder)
    done = shell(machine, 'wine "$ALUFRAME" results frame.json >&-', folder)
    assert done.returncode == 2, done
    assert names_in(folder) == ["frame.aluresult", "frame.json"]


def test_a_reader_that_goes_away_is_a_failure(machine, folder):
    (folder / "many.jsonl").write_bytes(POINTS.read_bytes() * 5000)
    done = shell(machine, 'wine "$ALUFRAME" points many.jsonl | head -n 1 >first; echo ${PIPESTATUS[0]}', folder)
    assert done.stdout.strip() == b"2", done
    assert (folder / "first").read_bytes().count(b"\n") == 1


def test_an_unknown_locale_does_no_harm(machine, folder):
    done = machine.run("check", "frame.json", folder=folder, LC_ALL="xx_YY.Nothing", LANG="nonsense")
    assert done.status == 0
    assert machine.run("report", "frame.json", folder=folder, LC_ALL="xx_YY.Nothing").status == 0
