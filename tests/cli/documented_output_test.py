"""What README.md and the pages below docs show is what the program does.

Every fenced block is run: commands and the output shown beside them, models, tables, queries. After a change of
the program's output

    REFRESH_DOCS=1 /usr/bin/python3 -m pytest tests/cli/documented_output_test.py

with ALUFRAME set to the program writes the output of today into the pages; what is left out with "..." stays left
out, and values that change from run to run stay as they are.
"""

import json
import os
import sqlite3

import pytest
from program import ROOT
from document_coverage import FRAGMENTS, TEXTS
from document_matching import difference, refreshed, same_lines
from document_runs import folder_for, run_block
from documents import blocks_in, blocks_of, lines_of, pages

ALL_BLOCKS = [(page, number) for page in pages() for number in range(len(blocks_of(page)))]


@pytest.fixture(scope="session")
def runs_of(tmp_path_factory):
    """What came of the blocks of a page, in their order, for later ones go on with what earlier ones wrote."""
    done = {}

    def of(page):
        if page not in done:
            folder = folder_for(page, tmp_path_factory.mktemp("documented"))
            done[page] = [(block, outcome_of(block, folder)) for block in blocks_of(page)]
            if os.environ.get("REFRESH_DOCS"):
                done[page] = refresh(page, done[page])
        return done[page]

    return of


def outcome_of(block, folder):
    """The runs of a block, or the reason that there are none."""
    try:
        return run_block(block, folder)
    except (AssertionError, ValueError, OSError, sqlite3.Error) as fault:
        return fault


def refresh(page, outcomes):
    """Writes what was printed in place of what the page shows; from the end, so that places in front stay."""
    lines = lines_of(page)
    for block, runs in reversed(outcomes):
        for run in reversed([] if isinstance(runs, Exception) else runs):
            if run.first is not None and run.status == 0:
                start = block.start + run.first
                lines[start:start + len(run.shown)] = refreshed(run.shown, run.printed)
    (ROOT / page).write_text("\n".join(lines), encoding="utf-8")
    return [(block, runs if isinstance(runs, Exception) else with_shown(block, runs))
            for block, (_, runs) in zip(blocks_in(page, lines), outcomes)]


def with_shown(block, runs):
    return [run if run.first is None else run._replace(shown=refreshed(run.shown, run.printed)) for run in runs]


@pytest.mark.parametrize("page, number", ALL_BLOCKS, ids=[f"{page}-{number}" for page, number in ALL_BLOCKS])
def test_a_block_shows_what_the_program_does(runs_of, page, number):
    block, outcome = runs_of(page)[number]
    assert not isinstance(outcome, Exception), f"{block.place}: {outcome}"
    for run in outcome:
        assert run.status == 0, f"{block.place}: {run.command}\n" + "\n".join(run.printed)
        same = run.shown is None or same_lines(run.shown, run.printed)
        assert same, f"{block.place}: {run.command}\n{difference(run.shown, run.printed)}"


def test_the_check_point_of_its_page_stands_in_the_examples():
    shown = next(block for block in blocks_of("docs/points.md") if block.language == "json")
    stored = (ROOT / "examples/points.jsonl").read_text(encoding="utf-8").partition("\n")[0]
    assert json.loads(shown.text) == json.loads(stored)


# A rule for a block that is no more would hide that its page lost it.
@pytest.mark.parametrize("table", [FRAGMENTS, TEXTS], ids=["parts of models", "texts"])
def test_every_rule_has_its_block(table):
    blocks = [block for page in pages() for block in blocks_of(page)]
    assert [key for key in table if not any(
        block.page == key[0] and block.opens_with(key[1]) for block in blocks)] == []
