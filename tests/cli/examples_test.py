"""Every example checks from end to end, and says where it stands."""

import json

import pytest
from conftest import ROOT

EXAMPLES = sorted((ROOT / "examples").glob("*.json"))


@pytest.mark.parametrize("path", EXAMPLES, ids=lambda path: path.stem)
def test_an_example_is_checked_whole(aluframe, path):
    done = aluframe("check", path, "--output", "out.aluresult")
    model = json.loads(path.read_text(encoding="utf-8"))
    count = len(model["elements"])
    assert f"{count} of {count} checked" in done.stdout
    # What remains unchecked are effects without a rule, not elements or combinations.
    unchecked = done.stdout.partition("not checked\n")[2]
    assert "combination" not in unchecked
    assert "no forces" not in unchecked
    assert "internal inconsistency" not in done.stderr
    listed = {row["element"] for row in aluframe.json("results", "out.aluresult")}
    assert listed == {element["number"] for element in model["elements"]}


@pytest.mark.parametrize("path", EXAMPLES, ids=lambda path: path.stem)
def test_an_example_says_where_it_stands_and_where_its_forces_come_from(path):
    description = json.loads(path.read_text(encoding="utf-8"))["description"]
    assert "forces" in description.lower()


def test_there_are_examples_of_every_kind():
    shapes = {section["shape"] for path in EXAMPLES
              for section in json.loads(path.read_text(encoding="utf-8"))["sections"]}
    assert {"C", "H", "T", "B", "P", "2C"} <= shapes
