"""The derivations of the calculation document: all of them, and every line gives its printed result by itself."""

import re
import shutil
import subprocess
import sys

import pytest
from derivation_markup import rows_of
from derivation_test import assert_row_holds, gives
from program import ROOT, Program

EXAMPLES = sorted(path.stem for path in (ROOT / "examples").glob("*.json"))
HEADING = re.compile(r"<h4>Elements? ([\d, -]+) \([a-z-]+\), ([a-z ]+), combination ")


@pytest.fixture(scope="module", params=[*EXAMPLES, "generated"])
def checked(request, tmp_path_factory):
    """The program in a folder with a checked model, and the rows of its results."""
    folder = tmp_path_factory.mktemp(request.param)
    if request.param == "generated":  # sections of several shapes in all force states
        subprocess.run([sys.executable, ROOT / "tools/generate_model.py", "--kind", "grid", "--elements", "60",
                        "--combinations", "4", "--output", folder / "frame.json"], check=True, capture_output=True)
    else:
        shutil.copy(ROOT / "examples" / f"{request.param}.json", folder / "frame.json")
    program = Program(folder)
    program("check", "frame.json")
    return program, program.json("results", "frame.json")


def document(program, detail):
    return program("report", "frame.json", "--html", "-", "--detail", detail).stdout


def numbers_in(ranges):
    for part in ranges.split(", "):
        first, _, last = part.partition("-")
        yield from range(int(first), int(last or first) + 1)


def derived_checks(page):
    """(element, item) of every derivation with its rows; an element of a group like those beside it."""
    headings = HEADING.findall(page)
    tables = rows_of(page)
    assert len(headings) == len(tables)
    return [((element, item), rows) for (elements, item), rows in zip(headings, tables)
            for element in numbers_in(elements)]


def test_all_checks_are_derived_and_every_line_gives_its_result(checked):
    program, results = checked
    stored = {(row["element"], row["item"]): row["ratio"] for row in results}
    page = document(program, "full")
    derived = derived_checks(page)
    assert sorted(check for check, _ in derived) == sorted(stored)
    lines = 0
    for check, rows in derived:
        by_name = {row.name: float(row.result) for row in rows}
        for row in rows:
            assert_row_holds(row, by_name)
            lines += row.formula is not None
        assert rows[0].symbol == "ratio"
        assert gives(stored[check] or 0.0, rows[0].result), check
    assert lines >= len(stored)


def test_the_governing_check_of_each_element_is_derived(checked):
    program, results = checked
    worst = {}
    for row in results:
        worst[row["element"]] = max(worst.get(row["element"], 0.0), row["ratio"] or 0.0)
    derived = derived_checks(document(program, "governing"))
    assert sorted(element for (element, _), _ in derived) == sorted(worst)
    for (element, _), rows in derived:
        assert gives(worst[element], rows[0].result), element


def test_a_summary_has_no_derivation(checked):
    program, _ = checked
    page = document(program, "summary")
    assert '<table class="derivation">' not in page and "Derivations" not in page
    assert "Governing ratios by element" in page


def test_how_far_to_derive_is_one_of_three(checked):
    program, _ = checked
    done = program("report", "frame.json", "--html", "-", "--detail", "most", status=1)
    assert "must be one of summary, governing, full" in done.stderr
    done = program("report", "frame.json", "--detail", "full", status=1)
    assert "--html" in done.stderr
