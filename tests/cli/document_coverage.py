"""What must be known of blocks in the documentation beside their language: where they belong, what they stand for,
and which commands are not run. A block that neither its language nor a table here covers fails the tests."""

import json
import re
from typing import NamedTuple

from program import ROOT

# Commands that the pages show and the tests do not run: what they begin with, and why.
NOT_RUN = {
    "./dev": "installs packages and builds; `desktop` opens a window",
    "sudo apt": "installs or removes packages",
    "cmake": "builds or installs the program under test",
    "/usr/bin/python3 -m pytest": "a test of its own, beside this one",
    "tests/verification/run_second_computation.py": "takes minutes; a test of its own runs fewer points",
}

# What a page takes as done before its first block, in the folder where its commands run.
BEFORE = {
    # A catalogue of the office in the folder of the model.
    "docs/sections.md": ["mkdir profiles && printf 'name,shape,D\\nRod 21,SR,21\\n' > profiles/office.csv"],
    "docs/explain.md": ["aluframe check examples/platform-roof.json"],  # "check the model first"
    "docs/result-file.md": ["aluframe check examples/portal-bracket.json"],  # "a check run stores its results"
    "docs/settings.md": ["aluframe check examples/portal-bracket.json"],  # results that get out of date
}

# Where pages lie whose `text` blocks are steps worked out by hand; tests/verification compares their results.
WORKED_EXAMPLES = "docs/verification/"

# Tables of comma-separated values by how they begin: under which name they are read, and by what.
CSV_FILES = {
    "element,case,position": ("forces.csv", "aluframe validate model.json --forces forces.csv"),
    "name,shape": ("mine.csv", "aluframe section --catalogue mine.csv --list"),
}

# The results that queries of the pages go to.
QUERIED = "examples/portal-bracket.aluresult"

# A portal without loads, for parts of model files that the pages show alone.
PORTAL = {
    "format": "aluframe-model",
    "version": 1,
    "materials": [{"number": 1, "alloy": "6061-T6"}],
    "sections": [{"number": 1, "shape": "P", "dimensions": {"D": 100, "t": 5}}],
    "nodes": [{"number": number, "x": x, "y": 0, "z": z}
              for number, x, z in [(1, 0, 0), (2, 0, 3), (3, 4, 3), (4, 4, 0)]],
    "supports": [{"node": 1, "restrained": "all"}, {"node": 4, "restrained": "all"}],
    "elements": [{"number": number, "nodes": [number, number + 1], "section": 1, "material": 1}
                 for number in (1, 2, 3)],
}


def in_the_portal(part):
    return PORTAL | part


def with_sections_of_the_portal(part):
    return {field: PORTAL[field] for field in ("format", "version", "materials", "sections")} | part


def on_an_element_of_the_portal(part):
    first, *others = PORTAL["elements"]
    return PORTAL | {"elements": [first | part, *others]}


def as_load_case_of_the_portal(part):
    """The elements that the load case names are those of a larger model; here the first one stands for them."""
    loads = [load | {"elements": [1]} for load in part["span"]]
    return PORTAL | {"load_cases": [part | {"span": loads}]}


# Load cases whose actions a rule combines.
ACTIONS = {"load_cases": [
    {"number": 1, "name": "G", "action": {"kind": "permanent"}},
    {"number": 2, "name": "L", "action": {"kind": "live", "category": "office"}},
]}


def with_actions_in_the_portal(part):
    return PORTAL | ACTIONS | part


# A combination under which limits of displacements hold.
IN_USE = {"load_cases": [{"number": 1}],
          "combinations": [{"number": 1, "serviceability": True, "terms": [{"case": 1}]}]}


def in_the_portal_in_use(part):
    return PORTAL | IN_USE | part


# "The model" of a page about combinations, which names none of the examples.
BEFORE["docs/combinations.md"] = [f"echo '{json.dumps(PORTAL | ACTIONS)}' > frame.json"]

# "A portal": with the load cases that the page shows.
AREA_LOADS = re.search(r"```json\n(.*?)```", (ROOT / "docs/area-loads.md").read_text(encoding="utf-8"), re.DOTALL)
BEFORE["docs/area-loads.md"] = [
    f"echo '{json.dumps(PORTAL | json.loads('{' + AREA_LOADS.group(1) + '}'))}' > frame.json"]

# The rafter that is worked out by hand, with combinations, and with the restraints that the page on members shows.
RAFTER = json.loads("{" + re.search(
    r"```json\n(.*?)```", (ROOT / "docs/verification/restraints.md").read_text(encoding="utf-8"), re.DOTALL).group(1) + "}")
RAFTER |= {"format": "aluframe-model", "version": 1,
           "combinations": [{"number": number, "terms": [{"case": number}]} for number in (1, 2)]}
RESTRAINED = re.search(r"```json\n(\"members\".*?)```", (ROOT / "docs/members.md").read_text(encoding="utf-8"), re.DOTALL)
BEFORE["docs/members.md"] = [f"echo '{json.dumps(RAFTER | json.loads('{' + RESTRAINED.group(1) + '}'))}' > rafter.json"]


def in_the_rafter(part):
    return RAFTER | part


# JSON that is a part of a model: by page and beginning, what makes a whole model of it.
FRAGMENTS = {
    ("README.md", '{"number": 1, "name": "DL"'): as_load_case_of_the_portal,
    ("docs/analysis.md", '"analysis"'): in_the_portal,
    ("docs/area-loads.md", '"load_cases"'): in_the_portal,
    ("docs/combinations.md", '"load_cases"'): in_the_portal,
    ("docs/combinations.md", '"combinations"'): with_actions_in_the_portal,
    ("docs/members.md", '"members"'): in_the_rafter,
    ("docs/verification/restraints.md", '"units"'): in_the_rafter,
    ("docs/verification/area-loads.md", '"nodes"'): with_sections_of_the_portal,
    ("docs/verification/combinations-footbridge.md", '"load_cases"'): in_the_portal,
    ("docs/verification/combinations-hall.md", '"load_cases"'): in_the_portal,
    ("docs/verification/combinations-mullion.md", '"load_cases"'): in_the_portal,
    ("docs/deflections.md", '"deflection_limit"'): in_the_portal_in_use,
    ("docs/model-file.md", '"design"'): on_an_element_of_the_portal,
    ("docs/model-file.md", '"load_cases"'): in_the_portal,
    ("docs/model-file.md", '"supports"'): in_the_portal,
    ("docs/sections.md", '"catalogues"'): in_the_portal,
}


class Drawing(NamedTuple):
    """A picture in characters."""
    of: str


class Answer(NamedTuple):
    """What a command answers to an input, spaces and line breaks aside."""
    command: str
    given: str = ""


class Excerpt(NamedTuple):
    """Lines of a file that a block of the page writes, behind a line that begins so."""
    file: str
    after: str


TEXTS = {
    ("docs/model-file.md", "3.6 kN/m of snow"): Drawing("the loads of a portal"),
    ("docs/sign-convention.md", "z  top fibre"): Drawing("local axes"),
    ("docs/sign-convention.md", "q downwards"): Drawing("forces of a beam under uniform load"),
    ("docs/points.md", '{"id":"tie"'): Answer("aluframe points examples/points.jsonl | head -n 1"),
    ("docs/points.md", '{"id":"support"'): Answer(
        "aluframe points --second-opinion examples/points.jsonl | tail -n 1"),
    ("docs/points.md", '{"line":3'): Answer(
        "aluframe points 2>/dev/null || true", '\n\n{"data": {"code": {"sect": {"nShap": 1}}}}\n'),
    ("docs/report.md", "====="): Excerpt("columns.txt", "  MEMBER NO = 1,"),
}


def entry_for(block, table):
    return next((entry for (page, beginning), entry in table.items()
                 if page == block.page and block.opens_with(beginning)), None)


def reason_not_to_run(command):
    return next((reason for start, reason in NOT_RUN.items() if command.startswith(start)), None)
