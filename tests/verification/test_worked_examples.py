"""The hand calculations of docs/verification against the program.

Every check point of those pages is run, and every row of the results table that follows it compared. The
tables are worked out on the pages themselves, from the formulas printed there and apart from the program.
"""

import json
import math
import os
import re
import subprocess
from pathlib import Path
from typing import NamedTuple

import pytest

PAGES = Path(__file__).resolve().parents[2] / "docs" / "verification"

# The pages carry double precision and print 15 digits. What is left is rounding in another order of
# operations, which stays far below this.
RELATIVE_TOLERANCE = 1e-9
FEWEST_ROWS = 20

CHECK_POINT = re.compile(r"^```json\n(.*?)^```$", re.M | re.S)
RESULTS = re.compile(
    r"^#+ Results\b.*\n\n\| value \| name in the output \| result \|\n\|(?:---\|)+\n((?:\|.*\n)+)", re.M)
ROW = re.compile(r"^\| [^|]+ \| `([^`|]+)` \| ([^| ]+) \|$")
NAME = re.compile(r"ret|items\[[0-7]\]\.(?:demand|capacity)|sectpara\[[0-6]\]|report\[(?:\d|1\d|2[0-2])\]")


class Case(NamedTuple):
    """One check point of a page, and the text between it and the next one."""
    page: str
    number: int
    block: str
    text: str

    def point(self):
        lines = self.block.splitlines()
        assert len(lines) == 1, f"the check point has {len(lines)} lines, not one"
        return lines[0]

    def expected(self):
        """The results table as {name in the output: number}."""
        tables = RESULTS.findall(self.text)
        assert len(tables) == 1, f"{len(tables)} results tables follow the check point, not one"
        values = {}
        for line in tables[0].splitlines():
            row = ROW.match(line)
            assert row, f"not a row of a results table: {line}"
            name, number = row.groups()
            assert NAME.fullmatch(name), f"no name in the output: {name}"
            assert name not in values, f"twice in the table: {name}"
            values[name] = float(number)
        assert len(values) >= FEWEST_ROWS, f"{len(values)} rows, fewer than {FEWEST_ROWS}"
        return values


def cases_of(page):
    text = page.read_text(encoding="utf-8")
    blocks = list(CHECK_POINT.finditer(text))
    ends = [block.start() for block in blocks[1:]] + [len(text)]
    return [Case(page.name, number, block.group(1), text[block.end():end])
            for number, (block, end) in enumerate(zip(blocks, ends), 1)]


# Combinations, area loads and restraints are compared by tests of their own.
EXAMPLES = sorted(page for page in PAGES.glob("*.md")
                  if page.name not in ("README.md", "area-loads.md", "restraints.md") and not page.name.startswith("combinations-"))
CASES = [case for page in EXAMPLES for case in cases_of(page)]


def answer_of(point):
    """The program's answer to a check point as {name in the output: number}."""
    done = subprocess.run([os.environ["ALUFRAME_PROGRAM"], "points", "-"], input=point + "\n",
                          capture_output=True, text=True, check=False, timeout=60)
    assert done.returncode == 0, f"{done.returncode}\n{done.stdout}\n{done.stderr}"
    answer = json.loads(done.stdout)
    values = {"ret": float(answer["ret"])}
    for rank, (demand, capacity) in enumerate(answer["items"]):
        values[f"items[{rank}].demand"] = float(demand)
        values[f"items[{rank}].capacity"] = float(capacity)
    for kind in ("sectpara", "report"):
        values.update({f"{kind}[{slot}]": float(value) for slot, value in enumerate(answer[kind])})
    return values


def agrees(found, expected):
    if expected == 0:
        return found == 0
    return math.isclose(found, expected, rel_tol=RELATIVE_TOLERANCE, abs_tol=0)


def test_there_are_examples():
    assert CASES


@pytest.mark.parametrize("page", EXAMPLES, ids=lambda page: page.stem)
def test_a_page_has_a_check_point(page):
    assert cases_of(page)


@pytest.mark.parametrize("page", EXAMPLES, ids=lambda page: page.stem)
def test_a_page_is_in_the_index(page):
    assert f"]({page.name})" in (PAGES / "README.md").read_text(encoding="utf-8")


@pytest.mark.parametrize("case", CASES, ids=lambda case: f"{Path(case.page).stem}-{case.number}")
def test_the_program_gives_the_results_worked_out_by_hand(case):
    expected, found = case.expected(), answer_of(case.point())
    differing = [f"{name}: {found[name]!r}, by hand {value!r}"
                 for name, value in expected.items() if not agrees(found[name], value)]
    missing = [f"{name}: {value!r}, not in the table" for name, value in found.items()
               if name.startswith("items") and value != 0 and name not in expected]
    assert not differing + missing, "\n".join(differing + missing)
