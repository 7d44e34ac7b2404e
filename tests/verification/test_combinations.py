"""The combinations of docs/verification/combinations-*.md against the program: exactly those."""

import json
import math
import os
import re
import subprocess
from pathlib import Path

import pytest

PAGES = Path(__file__).resolve().parents[2] / "docs" / "verification"
BLOCK = re.compile(r"```json\n(.*?)```", re.DOTALL)
TABLE = re.compile(r"^## (\w+)\n(.*?)(?=^## |\Z)", re.DOTALL | re.MULTILINE)
ROW = re.compile(r"^\| ([^|]*?) *\| ?([^|]*?) *\|$", re.MULTILINE)
TERM = re.compile(r"([+-]?)((?:[\d.]+(?:·[\d.]+)?)?)([A-Za-z]\w*)")
# A cantilever, which every model needs, without loads of its own.
FRAME = {
    "format": "aluframe-model", "version": 1,
    "materials": [{"number": 1, "alloy": "6061-T6"}],
    "sections": [{"number": 1, "shape": "P", "dimensions": {"D": 100, "t": 5}}],
    "nodes": [{"number": 1, "x": 0, "y": 0, "z": 0}, {"number": 2, "x": 0, "y": 0, "z": 3}],
    "supports": [{"node": 1, "restrained": "all"}],
    "elements": [{"number": 1, "nodes": [1, 2], "section": 1, "material": 1}],
}
EXAMPLES = sorted(PAGES.glob("combinations-*.md"))
TYPES = [(page, name) for page in EXAMPLES for name, _ in TABLE.findall(page.read_text(encoding="utf-8"))]


def terms_of(text):
    """Case by case the factor as it is written, whatever the order: {"S": "+0.7·1.5"}."""
    assert "".join("".join(term) for term in TERM.findall(text)) == text, text
    return frozenset((case, (sign or "+") + factor) for sign, factor, case in TERM.findall(text))


def by_hand(page, name):
    text = dict(TABLE.findall(page.read_text(encoding="utf-8")))[name]
    sums = []
    for permanent, variable in ROW.findall(text):
        if permanent in ("permanent", "---"):
            continue
        joined = variable if variable[:1] in ("+", "-", "") else "+" + variable
        sums += [terms_of(each.strip() + joined) for each in permanent.split(",")]
    assert len(set(sums)) == len(sums), "a sum stands twice on the page"
    return set(sums)


def model_of(page):
    return FRAME | json.loads("{" + BLOCK.search(page.read_text(encoding="utf-8")).group(1) + "}")


def run(*arguments):
    done = subprocess.run([os.environ["ALUFRAME_PROGRAM"], *map(str, arguments)], capture_output=True, text=True,
                          check=False, timeout=60)
    assert done.returncode == 0, done.stderr
    return done.stdout


def made(page, folder):
    path = folder / "frame.json"
    path.write_text(json.dumps(model_of(page)), encoding="utf-8")
    return json.loads(run("combinations", path, "--format", "json"))


@pytest.mark.parametrize(("page", "name"), TYPES, ids=lambda value: getattr(value, "stem", value))
def test_exactly_the_combinations_worked_out_by_hand_are_made(page, name, tmp_path):
    word = name.replace("_", "-")
    found = [terms_of(row["combination"]) for row in made(page, tmp_path) if word in row["type"].split(", ")]
    assert len(set(found)) == len(found)
    assert set(found) == by_hand(page, name)


@pytest.mark.parametrize("page", EXAMPLES, ids=lambda page: page.stem)
def test_no_other_types_are_made(page, tmp_path):
    types = {name for row in made(page, tmp_path) for name in row["type"].split(", ")}
    assert types == {name.replace("_", "-") for other, name in TYPES if other == page}


@pytest.mark.parametrize("page", EXAMPLES, ids=lambda page: page.stem)
def test_written_factors_are_the_products_of_their_names(page, tmp_path):
    rows = made(page, tmp_path)
    path = tmp_path / "frame.json"
    run("combinations", path, "--write")
    model = json.loads(path.read_text(encoding="utf-8"))
    names = {case["number"]: case["name"] for case in model["load_cases"]}
    assert [each["name"] for each in model["combinations"]] == [row["combination"] for row in rows]
    for each in model["combinations"]:
        products = {case: float(factor[0] + "1") * math.prod(map(float, filter(None, factor[1:].split("·"))))
                    for case, factor in terms_of(each["name"])}
        written = {names[term["case"]]: term.get("factor", 1) for term in each["terms"]}
        assert written == pytest.approx(products, rel=1e-12)


def test_there_are_examples_and_they_are_in_the_index():
    assert len(EXAMPLES) >= 3
    index = (PAGES / "README.md").read_text(encoding="utf-8")
    assert all(f"]({page.name})" in index for page in EXAMPLES)
