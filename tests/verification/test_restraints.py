"""The rafter with purlins of docs/verification/restraints.md against the program, row by row."""

import json
import os
import re
import subprocess
from pathlib import Path

import pytest

PAGE = (Path(__file__).resolve().parents[2] / "docs" / "verification" / "restraints.md").read_text(encoding="utf-8")
BLOCK = re.compile(r"```json\n(.*?)```", re.DOTALL)
TABLE = re.compile(r"((?:^\|.*\|\n)+)", re.MULTILINE)
# The page has 12 digits; forces of an analysis are kept in single precision.
NEAR = {"rel": 1e-10}
NEAR_FORCES = {"rel": 2e-7}


def rows_of(heading):
    """Rows of the table that has this column."""
    for table in TABLE.findall(PAGE):
        head, _, *rows = [[cell.strip() for cell in line.strip().strip("|").split("|")]
                          for line in table.strip().split("\n")]
        if heading in head:
            return [dict(zip(head, row)) for row in rows]
    raise AssertionError(heading)


def rafter(holds="top", combinations=(1, 2)):
    model = {"format": "aluframe-model", "version": 1} | json.loads("{" + BLOCK.search(PAGE).group(1) + "}")
    model["combinations"] = [{"number": number, "terms": [{"case": number}]} for number in combinations]
    restraint = model["members"][0]["restraints"][0]
    if holds == "nothing":
        del model["members"][0]["restraints"]
    else:
        restraint["holds"] = holds
    return model


def run(folder, model, *arguments):
    (folder / "rafter.json").write_text(json.dumps(model), encoding="utf-8")
    done = subprocess.run([os.environ["ALUFRAME_PROGRAM"], *arguments], cwd=folder, capture_output=True,
                          text=True, check=False, timeout=60)
    assert done.returncode == 0, done.stderr
    return done.stdout


def test_pieces_have_the_critical_moments_that_were_worked_out_by_hand(tmp_path):
    by_hand = rows_of("compressed")
    pieces = json.loads(run(tmp_path, rafter(), "members", "rafter.json", "--segments", "--format", "json"))
    assert len(pieces) == len(by_hand) == 5
    pieces.sort(key=lambda piece: (piece["combination"], piece["from_m"]))
    for piece, hand in zip(pieces, by_hand):
        assert piece["combination"] == int(hand["combination"])
        assert piece["kind"] == f"bending, {hand['compressed']} compressed"
        assert [piece["from_m"], piece["to_m"]] == pytest.approx([float(hand["from"]), float(hand["to"])])
        for field, column in [("mcr_knm", "Mcr"), ("lambda_b", "λb"), ("phi_b", "φb")]:
            expected = pytest.approx(float(hand[column]), **NEAR) if hand[column] else None
            assert piece[field] == expected, (field, piece)


@pytest.mark.parametrize("row", rows_of("stability"), ids=lambda row: f"{row['holds']} {row['combinations']}")
def test_ratios_are_those_that_were_worked_out_by_hand(row, tmp_path):
    model = rafter(row["holds"], [int(number) for number in row["combinations"].split(", ")])
    run(tmp_path, model, "check", "rafter.json")
    results = json.loads(run(tmp_path, model, "results", "rafter.json", "--format", "json"))
    worst = max(result["ratio"] for result in results
                if result["item"] == "stability" and result["ratio"] is not None)
    assert worst == pytest.approx(float(row["stability"]), **NEAR_FORCES)


def test_a_strut_between_purlins_has_their_distance_as_its_buckling_length(tmp_path):
    model = rafter("both", [1])
    model["forces"] = [{"element": number, "case": 1, "values": [[-10, 0, 0, 0, 0, 0]] * 5} for number in (1, 2)]
    del model["load_cases"][0]["span"]
    run(tmp_path, model, "check", "rafter.json")
    results = json.loads(run(tmp_path, model, "results", "rafter.json", "--format", "json"))
    slenderness = [result["demand"] for result in results if result["item"] == "slenderness z"]
    stated = float(re.search(r"λz = 1500/√\(2883960/3720\) = ([0-9.]+)\.", PAGE).group(1))
    assert slenderness == pytest.approx([stated, stated], **NEAR)
