"""Effective length factors that follow from buckling modes, and what is told of others."""

import math

import pytest
from members_test import KY, PORTAL

# The hinged portal under loads on its columns of 3 to 1. Both sway together, so at buckling they carry what
# they carry under equal loads, twice the load of one, within some per cent: 3/2 and 1/2 of that. K follows by
# the roots.
LOADS = [{"number": 1, "name": "P", "nodal": [{"nodes": [3], "Fz": -3}, {"nodes": [4], "Fz": -1}]}]
COMBINATIONS = [{"number": 5, "name": "P", "terms": [{"case": 1, "factor": 1}]}]
UNEVEN = PORTAL | {"load_cases": LOADS, "combinations": COMBINATIONS}
K_OF_LIGHT = KY * math.sqrt(2)
K_OF_HEAVY = KY * math.sqrt(2 / 3)


def members(aluframe, *options, **changes):
    aluframe.write(UNEVEN | changes)
    return aluframe.json("members", "frame.json", *options)


def length_remarks(aluframe, *options):
    aluframe("check", "frame.json", *options)
    return [row for row in aluframe.json("results", "frame.json", "--remarks") if row["kind"] == "length"]


def test_members_shows_what_a_mode_tells_beside_the_chart(aluframe):
    heavy, light, beam = members(aluframe)
    assert (heavy["ky"], light["ky"]) == pytest.approx((KY, KY), abs=1e-5)
    assert heavy["ky_mode"] == pytest.approx(K_OF_HEAVY, rel=0.02)
    assert light["ky_mode"] == pytest.approx(K_OF_LIGHT, rel=0.02)
    assert light["remark"] == "Ky: less than by the mode of combination 5"
    assert heavy["remark"] is None
    # The mode sways in the plane, and nothing presses the beam.
    assert heavy["kz_mode"] is None and beam["ky_mode"] is None


def test_a_check_names_factors_that_a_mode_shows_to_be_too_small(aluframe):
    aluframe.write(UNEVEN)
    remark, = length_remarks(aluframe)
    assert remark["elements"] == "4-5"
    assert "Ky of member 2 is 2.328 (sway), by the mode of combination 5" in remark["text"]


def test_factors_are_those_of_modes_when_the_model_asks(aluframe):
    frame = {"length_factors": "buckling"}
    heavy, light, _ = members(aluframe, frame=frame)
    assert (light["ky_source"], heavy["kz_source"]) == ("mode", "mode")
    # Another mode bends the heavy column out of the plane, on hinges that the beam's torsion holds a little.
    assert 0.9 < heavy["kz"] < 1.005
    assert light["ky"] == light["ky_mode"] == pytest.approx(K_OF_LIGHT, rel=0.02)
    assert heavy["ky"] == pytest.approx(K_OF_HEAVY, rel=0.02)
    assert length_remarks(aluframe) == []
    assert "1 computed, 2 by buckling modes" in aluframe("check", "frame.json").stdout


def test_factors_do_not_hang_on_what_a_run_is_limited_to(aluframe):
    other = {"number": 9, "name": "other", "terms": [{"case": 1, "factor": 0.1}]}
    frame = {"length_factors": "buckling"}
    aluframe.write(UNEVEN | {"frame": frame, "combinations": [*COMBINATIONS, other]})
    aluframe("check", "frame.json")
    whole = aluframe.json("results", "frame.json", "--element", "4", "--combinations", "9")
    aluframe("check", "frame.json", "--combinations", "9")
    assert aluframe.json("results", "frame.json", "--element", "4") == whole


def test_a_kinked_strut_has_the_length_of_a_straight_one(aluframe):
    # Hinged at both ends, 5 mm off its line at the middle: K = 1 over both elements (Euler).
    nodes = [{"number": n, "x": x, "y": 0, "z": z} for n, x, z in [(1, 0, 0), (2, 0.005, 2), (3, 0, 4)]]
    aluframe.write(UNEVEN | {
        "nodes": nodes, "elements": PORTAL["elements"][:2],
        "supports": [{"node": 1, "restrained": ["Dx", "Dy", "Dz", "Rz"]},
                     {"node": 3, "restrained": ["Dx", "Dy", "Rz"]}],
        "load_cases": [{"number": 1, "name": "P", "nodal": [{"nodes": [3], "Fz": -3}]}]})
    strut, = aluframe.json("members", "frame.json")
    # A tube buckles about either axis at the same load: the mode is about one, the chart gives the other.
    assert strut["elements"] == "1-2" and "mode" in (strut["ky_source"], strut["kz_source"])
    assert (strut["ky"], strut["kz"], strut["length_m"]) == pytest.approx((1, 1, 4), rel=5e-3)  # shear takes some
    assert "as its axis bends at node 2" in strut["remark"]


def test_a_run_without_modes_names_factors_of_charts_that_do_not_hold(aluframe):
    nodes = [dict(node) for node in PORTAL["nodes"]]
    nodes[3]["z"] = 4.5  # the beam slopes
    aluframe.write(UNEVEN | {"nodes": nodes, "frame": {"braced_a": True}})
    remark, = length_remarks(aluframe, "--no-buckling")
    assert "no buckling mode is known" in remark["text"] and "it is inclined" in remark["text"]
    assert remark["elements"] == "3"


def test_members_are_listed_without_modes_when_the_frame_cannot_be_analysed(aluframe):
    aluframe.write(UNEVEN | {"supports": [{"node": 1, "restrained": ["Dx", "Dy", "Dz"]}]})
    done = aluframe("members", "frame.json", "--format", "json")
    assert '"ky_mode":null' in done.stdout
    assert done.stderr.startswith("buckling modes are not known: frame.json: ")
