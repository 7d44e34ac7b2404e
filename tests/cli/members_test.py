"""`aluframe members`: members that are found or named, and their effective length factors."""

import csv
import io

import pytest

# A portal on hinges, 3 m high and wide, held along Y at its corners; its columns are of two elements.
# Ky of the columns is 2.33 (S. P. Timoshenko, J. M. Gere, Theory of Elastic Stability, 2.4: u·tan u = 6).
HINGED = ["Dx", "Dy", "Dz", "Rz"]
PORTAL = {
    "format": "aluframe-model",
    "version": 1,
    "units": {"force": "kN", "length": "m"},
    "materials": [{"number": 1, "alloy": "6061-T6"}],
    "sections": [{"number": 1, "shape": "P", "dimensions": {"D": 100, "t": 5}}],
    "nodes": [
        {"number": number, "x": x, "y": 0, "z": z}
        for number, x, z in [(1, 0, 0), (2, 0, 1.5), (3, 0, 3), (4, 3, 3), (5, 3, 1.5), (6, 3, 0)]
    ],
    "supports": [
        {"node": 1, "restrained": HINGED}, {"node": 3, "restrained": ["Dy"]},
        {"node": 4, "restrained": ["Dy"]}, {"node": 6, "restrained": HINGED},
    ],
    "elements": [
        {"number": number, "nodes": [number, number + 1], "section": 1, "material": 1}
        for number in range(1, 6)
    ],
}
KY = 2.32787  # π / 1.349553, by bisection of u·tan u = 6


def rows(aluframe, *options, **changes):
    aluframe.write(PORTAL | changes)
    return aluframe.json("members", "frame.json", *options)


def test_members_are_found_and_listed_with_their_length(aluframe):
    listed = rows(aluframe)
    assert [row["elements"] for row in listed] == ["1-2", "4-5", "3"]
    assert [row["member"] for row in listed] == [1, 2, None]
    assert [row["origin"] for row in listed] == ["found", "found", "lone element"]
    assert [row["length_m"] for row in listed] == pytest.approx([3, 3, 3])


def test_columns_of_a_portal_sway_in_its_plane_only(aluframe):
    column = rows(aluframe)[0]
    assert (column["ky_source"], column["kz_source"]) == ("sway", "non-sway")
    assert column["ky"] == pytest.approx(KY, abs=1e-5)
    assert column["kz"] == pytest.approx(1)


def test_an_empty_list_of_members_keeps_elements_single(aluframe):
    assert [row["elements"] for row in rows(aluframe, members=[])] == list("12345")


def test_members_of_the_file_are_told_from_found_ones(aluframe):
    named = [{"number": 8, "name": "Left", "elements": [1, 2], "length_factors": {"y": 1.5, "z": 0.7}}]
    left = rows(aluframe, members=named)[0]
    assert (left["member"], left["name"], left["origin"]) == (8, "Left", "file")
    assert (left["ky"], left["kz"], left["ky_source"]) == (1.5, 0.7, "given (member)")


def test_factors_of_one_are_taken_when_the_model_asks(aluframe):
    column = rows(aluframe, frame={"length_factors": "one"})[0]
    assert (column["ky"], column["ky_source"]) == (1, "one")


def test_elements_of_members_with_factors_of_their_own_are_named(aluframe):
    elements = [dict(element) for element in PORTAL["elements"]]
    elements[1]["design"] = {"length_factors": {"y": 1, "z": 1}}
    listed = rows(aluframe, elements=elements, members=[{"number": 1, "elements": [1, 2]}])
    assert listed[0]["own_factors"] == "2"


def test_only_the_members_of_named_elements_are_shown(aluframe):
    assert [row["elements"] for row in rows(aluframe, "--elements", "3,5")] == ["4-5", "3"]


def test_an_element_that_is_not_there_is_an_error(aluframe):
    aluframe.write(PORTAL)
    message = aluframe("members", "frame.json", "--elements", "9", status=1).stderr
    assert message == "frame.json: --elements: there is no element 9\n"


def test_a_list_can_be_read_as_csv(aluframe):
    aluframe.write(PORTAL)
    text = aluframe("members", "frame.json", "--format", "csv").stdout
    assert [row["elements"] for row in csv.DictReader(io.StringIO(text))] == ["1-2", "4-5", "3"]


def test_validate_counts_found_members(aluframe):
    aluframe.write(PORTAL)
    assert " 2 members (2 found automatically)," in aluframe("validate", "frame.json").stdout
    aluframe.write(PORTAL | {"members": []})
    assert " 0 members, " in aluframe("validate", "frame.json").stdout


def test_an_unknown_source_of_factors_is_refused(aluframe):
    aluframe.write(PORTAL | {"frame": {"length_factors": "two"}})
    message = aluframe("validate", "frame.json", status=1).stderr
    assert "/frame/length_factors" in message and "computed, buckling, one" in message


# λ = Ky·L/i, with i = √(D² + d²)/4 of the pipe.
def test_checks_take_computed_factors(aluframe):
    cases = {"load_cases": [{"number": 1}], "combinations": [{"number": 1, "terms": [{"case": 1}]}],
             "forces": [{"element": 1, "case": 1, "values": [[-1, 0, 0, 0, 0, 0]] * 2}]}
    aluframe.write(PORTAL | cases)
    aluframe("check", "frame.json")
    slenderness = next(row for row in aluframe.json("results", "frame.json")
                       if (row["element"], row["item"]) == (1, "slenderness y"))
    assert slenderness["demand"] == pytest.approx(KY * 3000 / ((100**2 + 90**2) ** 0.5 / 4), rel=1e-5)
