"""The routine of faults: rows that do not fit the sources end it before anything is built."""

import json

import pytest
from program import ROOT
from tool_runner import run

TABLE = ROOT / "tools" / "mutants.json"
ROW = {"name": "a fault", "file": "tools/model_units.py", "find": "NEWTONS = ", "replace": "", "test": "none"}


def refused(tmp_path, *rows, names=()):
    table = tmp_path / "faults.json"
    table.write_text(json.dumps(rows), encoding="utf-8")
    done = run("mutants.py", "--table", table, "--folder", tmp_path / "copies", *names, status=2)
    assert not (tmp_path / "copies").exists()
    return done.stderr


@pytest.mark.parametrize("change, said", [
    ({"find": "text that is nowhere"}, "a fault: what it replaces stands 0 times in tools/model_units.py"),
    ({"find": "\n"}, "a fault: what it replaces stands "),
    ({"file": "tools/nowhere.py"}, "a fault: there is no tools/nowhere.py"),
    ({"find": "NEWTONS = ", "replace": "NEWTONS = "}, "a fault: it changes nothing"),
])
def test_a_row_that_does_not_fit_its_file_is_an_error(tmp_path, change, said):
    assert said in refused(tmp_path, ROW | change)


def test_every_row_that_does_not_fit_is_told_at_once(tmp_path):
    lost = ROW | {"find": "text that is nowhere"}
    said = refused(tmp_path, lost, lost | {"name": "another fault"})
    assert [line.split(":")[0] for line in said.splitlines()] == ["a fault", "another fault"]


def test_names_that_are_unknown_or_given_twice_are_an_error(tmp_path):
    assert "there is no fault another" in refused(tmp_path, ROW, names=["another"])
    assert "there are several faults a fault" in refused(tmp_path, ROW, ROW)


def test_every_row_of_the_table_fits_the_sources():
    for row in json.loads(TABLE.read_text(encoding="utf-8")):
        count = (ROOT / row["file"]).read_text(encoding="utf-8").count(row["find"])
        assert count == 1, f"{row['name']}: stands {count} times in {row['file']}"
