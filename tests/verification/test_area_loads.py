"""Loads per area of docs/verification/area-loads.md against the program, row by row."""

import json
import os
import re
import subprocess
from pathlib import Path

import pytest

PAGE = Path(__file__).resolve().parents[2] / "docs" / "verification" / "area-loads.md"
SECTION = re.compile(r"^## (.+?)\n(.*?)(?=^## |\Z)", re.DOTALL | re.MULTILINE)
BLOCK = re.compile(r"```json\n(.*?)```", re.DOTALL)
TABLE = re.compile(r"((?:^\|.*\|\n)+)", re.MULTILINE)
# What every model needs beside what the page shows.
FRAME = {
    "format": "aluframe-model", "version": 1,
    "materials": [{"number": 1, "alloy": "6061-T6"}],
    "sections": [{"number": 1, "shape": "P", "dimensions": {"D": 100, "t": 5}}],
}
SECTIONS = dict(SECTION.findall(PAGE.read_text(encoding="utf-8")))
# The page has 12 digits; 0 comes from differences of lengths of some metres.
NEAR = {"rel": 1e-9, "abs": 1e-12}


def rows_of(section, heading):
    """Rows of the tables of a section that have this column."""
    out = []
    for table in TABLE.findall(SECTIONS[section]):
        head, _, *rows = [[cell.strip() for cell in line.strip("|").split("|")] for line in table.strip().split("\n")]
        if heading in head:
            out += [dict(zip(head, row)) for row in rows]
    return out


def analysed(section, folder, show):
    path = folder / "frame.json"
    path.write_text(json.dumps(FRAME | json.loads("{" + BLOCK.search(SECTIONS[section]).group(1) + "}")),
                    encoding="utf-8")
    done = subprocess.run([os.environ["ALUFRAME_PROGRAM"], "analyse", str(path), "--show", show, "--format", "json"],
                          capture_output=True, text=True, check=False, timeout=60)
    assert done.returncode == 0, done.stderr
    return json.loads(done.stdout)[show]


@pytest.mark.parametrize("section", ["Bay of a curtain wall", "Strips that differ"])
def test_elements_have_the_line_loads_that_were_worked_out_by_hand(section, tmp_path):
    by_hand = rows_of(section, "at from")
    rows = analysed(section, tmp_path, "line_loads")
    assert len(by_hand) >= 10
    assert [(row["case"], row["load"], row["element"], row["along"]) for row in rows] == [
        (int(row["case"]), int(row["load"]), int(row["element"]), row["along"]) for row in by_hand]
    for row, hand in zip(rows, by_hand):
        for field, column in [("from", "from"), ("to", "to"), ("from_value", "at from"), ("to_value", "at to")]:
            assert row[field] == pytest.approx(float(hand[column]), **NEAR), (row, hand)


def test_the_bay_bends_as_it_was_worked_out_by_hand(tmp_path):
    forces = {(row["case"], row["element"], row["position"]): (row["My"]**2 + row["Mz"]**2)**0.5
              for row in analysed("Bay of a curtain wall", tmp_path, "forces")}
    rows = rows_of("Bay of a curtain wall", "moment")
    assert len(rows) == 5
    for row in rows:
        moment = forces[int(row["case"]), int(row["element"]), int(row["position"])]
        # Forces are kept in single precision.
        assert moment == pytest.approx(float(row["moment"]), rel=1e-6), row


def test_pressures_are_those_that_were_worked_out_by_hand(tmp_path):
    rows = analysed("Wind and snow", tmp_path, "pressures")
    by_hand = rows_of("Wind and snow", "symbol")
    assert [(row["load"], row["symbol"]) for row in rows] == [(int(row["load"]), row["symbol"]) for row in by_hand]
    for row, hand in zip(rows, by_hand):
        assert row["value"] == pytest.approx(float(hand["value"]), **NEAR), (row, hand)


@pytest.mark.parametrize("section, case, area, force", [
    ("Bay of a curtain wall", 1, 3.6, (0, 3.6, 0)), ("Bay of a curtain wall", 2, 3.6, (0, 3.6, 0)),
    ("Bay of a curtain wall", 3, 3.6, (0, 3.6, 0)), ("Bay of a curtain wall", 4, 3.6, (0, 3.6, 0)),
    ("Strips that differ", 1, 18, (0, 0, -18)), ("Strips that differ", 2, 9, (0, 0, -9)),
    ("Strips that differ", 3, 8, (0, 0, -2.56)), ("Strips that differ", 4, 10, (3, 0, -4)),
])
def test_the_sums_are_pressure_times_area(section, case, area, force, tmp_path):
    row = next(row for row in analysed(section, tmp_path, "area_loads") if row["case"] == case)
    assert row["area"] == pytest.approx(area, rel=1e-12)
    assert [row["Fx"], row["Fy"], row["Fz"]] == pytest.approx(force, rel=1e-12, abs=1e-12)


def test_the_reactions_are_the_loads(tmp_path):
    rows = analysed("Strips that differ", tmp_path, "summary")
    assert [row["Fz"] for row in rows] == pytest.approx([18, 9, 2.56, 4], rel=1e-9)
