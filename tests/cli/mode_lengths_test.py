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
    # A mode far from the first bends the heavy column out of the plane, on hinges that the beam's torsion holds
    # a little: less than the chart has.
    assert (light["ky_source"], heavy["kz_source"]) == ("mode", "non-sway")
    assert 0.9 < heavy["kz_mode"] < heavy["kz"] == 1
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


# What is hidden by modes that come first, by several modes with one factor, or by short pieces.

TUBES = [{"number": 1, "profile": "P 130x4"}, {"number": 2, "profile": "P 130x5"},
         {"number": 3, "profile": "B 100x100x5x5"}, {"number": 4, "profile": "B 90x90x4x4"},
         {"number": 5, "profile": "P 30x2"}]


def mast(sections, heights, load, **changes):
    """A mast of pieces one above the other, clamped at its foot and free at its head."""
    nodes = [{"number": n, "x": 0, "y": 0, "z": z} for n, z in enumerate([0, *heights], 1)]
    return UNEVEN | {
        "sections": TUBES, "nodes": nodes, "supports": [{"node": 1, "restrained": "all"}],
        "elements": [{"number": n, "nodes": [n, n + 1], "section": section, "material": 1}
                     for n, section in enumerate(sections, 1)],
        "load_cases": [{"number": 1, "name": "P", "nodal": [{"nodes": [len(nodes)], "Fz": -load}]}],
    } | changes


@pytest.mark.parametrize("load", [44, 45, 46])
@pytest.mark.parametrize("ends", [[1, 2], [2, 1]])
def test_a_mast_that_buckles_both_ways_at_once_has_two_about_both_axes(aluframe, load, ends):
    model = mast([3], [2.1], load, frame={"length_factors": "buckling"})
    model["elements"][0]["nodes"] = ends
    aluframe.write(model)
    row, = aluframe.json("members", "frame.json")
    assert (row["ky"], row["kz"]) == pytest.approx((2, 2), rel=0.01)  # Euler; shear adds some


def test_pieces_of_a_mast_have_the_length_of_the_whole(aluframe):
    aluframe.write(mast([3, 3, 3], [0.7, 1.4, 2.1], 45, members=[], frame={"length_factors": "buckling"}))
    for row in aluframe.json("members", "frame.json"):
        assert (row["ky"], row["kz"]) == pytest.approx((6, 6), rel=0.02), row["elements"]


def test_the_base_of_a_stepped_mast_buckles_with_what_stands_on_it(aluframe):
    # κ = √(P/EI); the distance from the line of the load is cos(κ1·x) in the base of 1 m and sin(κ2·(3 m - x))
    # above, with one slope where they meet: tan(κ1·1)·tan(κ2·2) = κ2/κ1. EI goes as fourth powers of diameters.
    stiffness = [130**4 - 122**4, 130**4 - 120**4]
    ratio = math.sqrt(stiffness[0] / stiffness[1])  # κ2/κ1
    low, high = 0.1, math.pi / 4
    for _ in range(60):
        u = (low + high) / 2
        if math.tan(u) * math.tan(2 * ratio * u) < ratio:
            low = u
        else:
            high = u
    aluframe.write(mast([1, 2, 2], [1, 2, 3], 10, frame={"length_factors": "buckling"}))
    upper, base = aluframe.json("members", "frame.json")
    assert (base["elements"], upper["elements"]) == ("1", "2-3")
    assert (base["ky"], base["kz"]) == pytest.approx((math.pi / u, math.pi / u), rel=0.02)
    assert (upper["ky"], upper["kz"]) == pytest.approx((math.pi / (2 * ratio * u),) * 2, rel=0.02)


def mast_with_pendulum(struts):
    """A mast that a pendulum column leans on, and struts apart from it that buckle a little before."""
    nodes = [(1, 0, 0, 0), (2, 0, 0, 2.5), (3, 3, 0, 0), (4, 3, 0, 2.5)]
    model = mast([3], [2.5], 1)
    model["supports"] += [{"node": 2, "restrained": ["Dy"]}, {"node": 3, "restrained": ["Dx", "Dy", "Dz"]},
                          {"node": 4, "restrained": ["Dy"]}]
    model["elements"] += [{"number": 2, "nodes": [3, 4], "section": 4, "material": 1, "kind": "truss"},
                          {"number": 3, "nodes": [2, 4], "section": 3, "material": 1, "kind": "truss"}]
    loads = [{"nodes": [2], "Fz": -25}, {"nodes": [4], "Fz": -35}]
    for strut in range(struts):
        foot = 5 + 2 * strut
        nodes += [(foot, 0, 9 + strut, 0), (foot + 1, 0, 9 + strut, 1.4)]
        model["elements"].append({"number": 4 + strut, "nodes": [foot, foot + 1], "section": 5, "material": 1})
        model["supports"] += [{"node": foot, "restrained": ["Dx", "Dy", "Dz", "Rz"]},
                              {"node": foot + 1, "restrained": ["Dx", "Dy"]}]
        loads.append({"nodes": [foot + 1], "Fz": -5})
    return model | {"nodes": [{"number": n, "x": x, "y": y, "z": z} for n, x, y, z in nodes],
                    "load_cases": [{"number": 1, "name": "P", "nodal": loads}]}


def length_of_mast(aluframe, struts):
    aluframe.write(mast_with_pendulum(struts))
    aluframe("check", "frame.json")
    factors = [row["factor"] for row in aluframe.json("buckling", "frame.json", "--modes", "2")]
    told = [row["elements"] for row in aluframe.json("results", "frame.json", "--remarks")
            if row["kind"] == "length"]
    return aluframe.json("members", "frame.json", "--elements", "1")[0]["ky_mode"], factors, told


@pytest.mark.parametrize("struts", [1, 4])
def test_a_sway_that_comes_a_little_after_the_first_mode_is_told(aluframe, struts):
    alone, (sway, *_), told = length_of_mast(aluframe, 0)
    assert alone > 2.5 and told == ["1-2"]  # the mast by the chart, the pendulum by the 1 of a truss
    with_struts, (first, *_), told = length_of_mast(aluframe, struts)
    assert first < sway < 1.5 * first
    assert with_struts == pytest.approx(alone, rel=2e-3)
    assert told == ["1-2"]


def test_modes_that_were_passed_over_are_told(aluframe):
    # Thirty-one tubes that buckle both ways at once are 62 modes in front of the sway.
    length, _, told = length_of_mast(aluframe, 31)
    assert length is None and "" in told
    aluframe.write(mast_with_pendulum(31))
    texts = [remark["text"] for remark in length_remarks(aluframe)]
    assert any(text.startswith("combination 5: more buckling modes than were looked at") for text in texts)


def test_equal_frames_have_equal_factors(aluframe):
    one = mast_with_pendulum(0)
    many = one | {"nodes": [], "elements": [], "supports": [], "frame": {"length_factors": "buckling"}}
    loads = []
    copies = 12
    for copy in range(copies):
        many["nodes"] += [node | {"number": node["number"] + 4 * copy, "y": 7 * copy} for node in one["nodes"]]
        many["elements"] += [element | {"number": element["number"] + 3 * copy,
                                        "nodes": [n + 4 * copy for n in element["nodes"]]}
                             for element in one["elements"]]
        many["supports"] += [support | {"node": support["node"] + 4 * copy} for support in one["supports"]]
        loads += [load | {"nodes": [n + 4 * copy for n in load["nodes"]]}
                  for load in one["load_cases"][0]["nodal"]]
    many["load_cases"] = [one["load_cases"][0] | {"nodal": loads}]
    aluframe.write(many)
    masts = [row for row in aluframe.json("members", "frame.json") if int(row["elements"]) % 3 == 1]
    assert [row["ky_source"] for row in masts] == ["mode"] * copies
    assert [row["ky"] for row in masts] == pytest.approx([masts[0]["ky"]] * copies, rel=2e-3)


def test_factors_are_those_of_the_combination_that_has_the_larger_one_under_like_loads(aluframe):
    # Of both columns under one load each, K is that of the chart; with one of them loaded, less.
    cases = [{"number": 1, "name": "both", "nodal": [{"nodes": [3, 4], "Fz": -2}]},
             {"number": 2, "name": "one", "nodal": [{"nodes": [3], "Fz": -3.5}]}]
    terms = [[{"case": 1, "factor": 1}], [{"case": 2, "factor": 1}]]
    combinations = [{"number": n, "name": "C", "terms": t} for n, t in enumerate(terms, 1)]
    envelope = [*[combination | {"design": False} for combination in combinations],
                {"number": 3, "name": "E", "kind": "envelope",
                 "terms": [{"combination": 1, "factor": 1}, {"combination": 2, "factor": 1}]}]
    for written in (combinations, list(reversed(combinations)), envelope):
        row = members(aluframe, load_cases=cases, combinations=written, frame={"length_factors": "buckling"})[0]
        assert row["ky"] == pytest.approx(KY, rel=0.01)


def test_a_remark_on_trusses_has_a_remedy_for_them(aluframe):
    model = mast_with_pendulum(0)
    aluframe.write(model | {"frame": {"length_factors": "buckling"}})
    remark, = length_remarks(aluframe)
    assert "of element 2 is 1.000 (truss)" in remark["text"]
    assert remark["text"].endswith("trusses keep 1: hold their nodes, or give their factors")
