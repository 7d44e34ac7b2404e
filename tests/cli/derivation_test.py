"""Derivations as HTML: their MathML gives what they print, in either language."""

import html.parser
import json
import math
import re
import shutil
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor

import pytest
from derivation_markup import rows_of, symbol_name, texts_of, worked_out
from explain_lines import unit_of_last_digit
from explain_lines import worked_out as worked_out_text
from program import ROOT, Program

# How many checks of each; the dome takes seconds to analyse, so one of it stands for all.
EXAMPLES = {"portal-bracket": None, "platform-roof": None, "mullion-transom": None, "footbridge": None, "dome": 1}
# Units, files, and symbols of forces, sections and directions in reasons.
NAMES = {"GB", "docs", "behaviour", "explain", "md", "mm", "Dx", "Dy", "Dz", "My", "Mz", "An", "Iyy", "Mcr", "Rmax", "RE"}
VOID = {"meta", "br"}


def generated(folder):
    """A building whose forces are given, of sections of several shapes."""
    subprocess.run([sys.executable, ROOT / "tools/generate_model.py", "--kind", "grid", "--elements", "40",
                    "--combinations", "6", "--output", folder / "frame.json"], check=True, capture_output=True)


@pytest.fixture(scope="module", params=[*EXAMPLES, "generated"])
def derived(request, tmp_path_factory):
    """A checked model, and the Chinese pages of its checks: the worst one of every item of every element."""
    folder = tmp_path_factory.mktemp(request.param)
    if request.param == "generated":
        generated(folder)
    else:
        shutil.copy(ROOT / "examples" / f"{request.param}.json", folder / "frame.json")
    program = Program(folder)
    program("check", "frame.json")
    rows = program.json("results", "frame.json")[:EXAMPLES.get(request.param)]

    def page(row):
        return row, program("--lang", "zh", "explain", "frame.json", "--element", row["element"], "--item",
                            row["item"].replace(" ", "-"), "--format", "html").stdout

    with ThreadPoolExecutor(2) as pool:
        return program, list(pool.map(page, rows))


def gives(found, result):
    """Whether a number is the printed one to its last digit."""
    printed = float(result)
    if not math.isfinite(printed):
        return str(found) == str(printed)
    return abs(found - printed) <= 0.5000001 * unit_of_last_digit(printed)


def assert_row_holds(row, results):
    where = f"{row.symbol} = {row.alttext} = {row.result}"
    if row.formula is None:
        assert row.result and row.words, where
    elif row.numbers is not None:
        assert gives(worked_out(row.numbers), row.result), where
        assert worked_out_text(row.alttext) == pytest.approx(worked_out(row.numbers), rel=1e-12), where
    else:  # another quantity under a new name, or numbers alone
        assert gives(worked_out(row.formula, results), row.result), where


def test_every_line_gives_its_result_by_its_markup(derived):
    _, pages = derived
    lines = 0
    for _, page in pages:
        [rows] = rows_of(page)
        results = {row.name: float(row.result) for row in rows}
        assert len(results) == len(rows), "a quantity comes twice"
        for row in rows:
            assert_row_holds(row, results)
            lines += row.formula is not None
    assert lines >= len(pages)


def test_a_page_ends_in_the_stored_ratio_and_its_verdict(derived):
    _, pages = derived
    for stored, page in pages:
        [rows] = rows_of(page)
        ratio = stored["ratio"] or 0.0
        assert (rows[0].symbol, gives(ratio, rows[0].result)) == ("ratio", True)
        verdict = re.search(r'<p class="verdict (.*?)">', page)[1]
        assert verdict == ("not-judged" if stored["ratio"] is None else "passes" if ratio <= 1 else "fails")


def test_formulas_give_the_values_of_the_steps(derived):
    """With all digits of the quantities that stand in them."""
    program, pages = derived
    worst = {}
    for stored, page in pages:
        if stored["ratio"] is not None and stored["ratio"] > worst.get(stored["item"], ({"ratio": -1}, ""))[0]["ratio"]:
            worst[stored["item"]] = (stored, page)
    assert worst
    for stored, page in worst.values():
        steps = program.json("--lang", "zh", "explain", "frame.json", "--element", stored["element"], "--item",
                             stored["item"].replace(" ", "-"))["steps"]
        [rows] = rows_of(page)
        assert [(row.symbol, row.result, row.unit) for row in rows] == [
            (step["symbol"], step["result"], step["unit"]) for step in steps]
        values = {row.name: step["value"] for row, step in zip(rows, steps)}
        for row, step in zip(rows, steps):
            if row.formula is not None:
                assert worked_out(row.formula, values) == pytest.approx(step["value"], rel=1e-9, abs=1e-9), step
                assert row.alttext in (None, step["numbers"])


def names_of(model, page):
    """What may stand in Latin letters: names of the model, and symbols."""
    named = " ".join(str(entry.get(key, "")) for table in ("sections", "materials", "combinations", "load_cases")
                     for entry in model.get(table, []) for key in ("name", "alloy", "grade", "shape"))
    [rows] = rows_of(page)
    symbols = {word for row in rows for word in re.findall(r"[A-Za-z]+", row.symbol)}
    return set(re.findall(r"[A-Za-z]+", named)) | symbols | NAMES


def test_a_chinese_page_has_no_english_word(derived):
    program, pages = derived
    model = json.loads((program.folder / "frame.json").read_text(encoding="utf-8"))
    for _, page in pages:
        assert '<html lang="zh-CN">' in page
        left = set(re.findall(r"[A-Za-z]{2,}", texts_of(page))) - names_of(model, page)
        # M2/M1, N/mm² and rules such as (F1) have one letter each; W1 and Rmax211 are symbols.
        assert left == set(), re.sub(r"\s+", " ", texts_of(page))


class Balance(html.parser.HTMLParser):
    """Whether every element ends where it should."""

    def __init__(self):
        super().__init__()
        self.open = []

    def handle_starttag(self, tag, attrs):
        assert len(dict(attrs)) == len(attrs), f"an attribute twice: {attrs}"
        if tag not in VOID:
            self.open.append(tag)

    def handle_endtag(self, tag):
        assert self.open and self.open.pop() == tag, tag


def test_a_page_is_whole_and_needs_no_other_file(derived):
    _, pages = derived
    for _, page in pages[:5]:
        balance = Balance()
        balance.feed(page)
        assert balance.open == []
        assert page.startswith("<!DOCTYPE html>\n<html")
        assert not re.search(r"<script|<link|src=|href=|url\(", page)


def test_what_can_be_wrong_with_a_line_is_found():
    """The reader is no yes-man: it takes brackets, signs and powers as they stand."""
    page = """<table class="derivation"><tbody><tr class="derived" data-symbol="tf2" data-result="7" data-unit="mm"><th>
        <div class="calculation"><math><msub><mi>t</mi><mi>f2</mi></msub><mo>=</mo><mi>a</mi></math>
        <math class="numbers" alttext="x"><mo>=</mo><mrow><mn>1</mn><mo>+</mo><mfrac><mn>6</mn><mn>2</mn></mfrac>
        <mo>·</mo><msup><mrow><mo>(</mo><mo>−</mo><mn>2</mn><mo>)</mo></mrow><mn>2</mn></msup></mrow><mo>−</mo><mn>6</mn>
        </math></div><div class="what">w</div></th><td></td></tr></tbody></table>"""
    [[row]] = rows_of(page)
    assert (row.name, worked_out(row.numbers)) == ("t_f2", 7.0)
    assert symbol_name(row.formula[0]) == "a"
    with pytest.raises(AssertionError):
        assert_row_holds(row._replace(result="8"), {})


def test_a_page_can_be_written_to_a_file(aluframe, pipe_beam):
    aluframe.write(pipe_beam)
    aluframe("check", "frame.json")
    arguments = ("explain", "frame.json", "--element", 1, "--format", "html")
    shown = aluframe(*arguments).stdout
    assert aluframe(*arguments, "--output", "check.html").stdout == ""
    assert (aluframe.folder / "check.html").read_text(encoding="utf-8") == shown
    assert "<h1>Element 1 (beam)" in shown


def test_names_of_the_user_are_text(aluframe, pipe_beam):
    pipe_beam["combinations"][0]["name"] = "<script>alert(1)</script>"
    pipe_beam["sections"][0]["name"] = "</table><b>&"
    aluframe.write(pipe_beam)
    aluframe("check", "frame.json")
    page = aluframe("explain", "frame.json", "--element", 1, "--combination", 1, "--format", "html").stdout
    assert "<script" not in page and "<b>" not in page
    assert "&lt;script&gt;alert(1)&lt;/script&gt;" in page
    rows_of(page)
