"""The calculation document says what its results leave out: elements, combinations, checks."""

import json

import pytest
from document_page import Page
from program import ROOT

NOT_ALL = "not every element was checked"


@pytest.fixture
def portal(aluframe):
    """The portal with its checks, of which one fails, as a model that can be changed."""
    aluframe.model = json.loads((ROOT / "examples/portal-bracket.json").read_text(encoding="utf-8"))
    aluframe.write(aluframe.model)
    return aluframe


def verdict(page):
    return page.split('<p class="verdict', 1)[1].split("</p>", 1)[0].split(">", 1)[1]


def test_elements_without_results_are_refused(portal):
    portal("check", "frame.json", "--elements", "1,2")
    done = portal("report", "frame.json", "--html", "frame.html", "--elements", "1-5", "--strict=safe", status=1)
    assert "--elements: there are no results of element 3-5; check it first" in done.stderr
    assert not (portal.folder / "frame.html").exists()
    page = portal("report", "frame.json", "--html", "-").stdout
    assert "elements 2 of 31" in page


def test_combinations_that_were_left_out_are_not_told_as_checked(portal):
    portal("check", "frame.json", "--combinations", "2,3")
    page = Page(portal("report", "frame.json", "--html", "-").stdout)
    heading, *rows = page.tables["Combinations"]
    place = heading.index("Checked")
    checked = {row[0]: row[place] for row in rows}
    assert {number for number, text in checked.items() if text == "yes"} == {"2", "3"}
    assert checked["4"] == "no, the check left it out"
    assert all("left it out" in checked[number] for number in ("5", "6"))  # envelopes, by their states


def test_an_element_without_a_check_stands_in_the_verdict(portal):
    """A shape that no check covers has no ratio, so no ratio over 1 either."""
    model = portal.model
    model["elements"] = [dict(element) for element in model["elements"]]
    section = max(entry["number"] for entry in model["sections"]) + 1
    model["sections"].append({"number": section, "shape": "UP", "properties": {
        "area": 1000e-6, "iyy": 1e-6, "izz": 1e-6, "it": 1e-6, "qyb": 1e-3, "qzb": 1e-3,
        "point_y": [-0.05, 0.05, 0.05, -0.05], "point_z": [0.05, 0.05, -0.05, -0.05]}})
    for element in model["elements"]:
        if element["number"] in (1, 3):
            element["section"] = section
    portal.write(model)
    done = portal("check", "frame.json", status=0)
    assert "element 1, 3: the checks do not cover the shape" in done.stdout
    page = portal("report", "frame.json", "--html", "-").stdout
    assert NOT_ALL in verdict(page)  # element 3 was the one that failed
    assert "Elements without any check: 2." in page


def test_safe_ratios_over_1_stand_in_the_verdict(portal):
    portal("check", "frame.json")
    page = portal("report", "frame.json", "--html", "-", "--elements", "19").stdout
    assert verdict(page) == "No check exceeds its limit, but safe ratios exceed 1."
    assert 'class="verdict over"' in page
