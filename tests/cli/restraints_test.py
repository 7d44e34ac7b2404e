"""What holds members between their ends: what the checks get by it, and what people are told."""

import copy
import json
import re

import pytest

from program import ROOT

PAGE = (ROOT / "docs/verification/restraints.md").read_text(encoding="utf-8")
# The rafter of 6 m that is worked out by hand there: two elements, loads downwards (1) and upwards (2).
RAFTER = {"format": "aluframe-model", "version": 1} | json.loads(
    "{" + re.search(r"```json\n(.*?)```", PAGE, re.DOTALL).group(1) + "}")
PIECE_OF_1_5_M = 0.802712976594  # φb, by hand
WHOLE = 0.181975910982


def rafter(restraints, combinations=(1,), **changes):
    model = copy.deepcopy(RAFTER)
    model["combinations"] = [{"number": number, "terms": [{"case": number}]} for number in combinations]
    model["members"][0].pop("restraints")
    if restraints is not None:
        model["members"][0]["restraints"] = restraints
    return model | changes


def stability(aluframe, model, *options):
    """The worst stability ratio of each element."""
    aluframe.write(model)
    aluframe("check", "frame.json", *options)
    worst = {}
    for row in aluframe.json("results", "frame.json"):
        if row["item"] == "stability" and row["ratio"] is not None:
            worst[row["element"]] = max(worst.get(row["element"], 0.0), row["ratio"])
    return worst


def slenderness(aluframe, model, axis):
    aluframe.write(model)
    aluframe("check", "frame.json")
    return {row["element"]: row["demand"] for row in aluframe.json("results", "frame.json")
            if row["item"] == f"slenderness {axis}"}


def pieces(aluframe, model):
    aluframe.write(model)
    return aluframe.json("members", "frame.json", "--segments")


TOP = [{"holds": "top", "spacing": 1.5}]
BOTH = [{"holds": "both", "spacing": 1.5}]


def test_without_restraints_results_are_those_of_an_empty_list(aluframe):
    texts = []
    for restraints in (None, []):
        aluframe.write(rafter(restraints, (1, 2)))
        aluframe("check", "frame.json")
        texts.append([aluframe("results", "frame.json", "--format", kind).stdout for kind in ("table", "csv", "json")])
        assert not pieces(aluframe, rafter(restraints))
    assert texts[0] == texts[1]


def test_a_run_with_restraints_says_so_among_its_settings(aluframe):
    for restraints, count in ((None, 0), (TOP, 1)):
        aluframe.write(rafter(restraints))
        aluframe("check", "frame.json")
        aluframe("report", "frame.json", "--html", "page.html")
        told = (aluframe.folder / "page.html").read_text(encoding="utf-8")
        assert ("restraints of members" in told) == (count == 1)
        if count:
            assert "φb of elements: 2, length factors of elements: 0" in told


def test_purlins_count_where_the_top_is_compressed(aluframe):
    alone, with_uplift = stability(aluframe, rafter(TOP)), stability(aluframe, rafter(TOP, (1, 2)))
    assert alone[1] / with_uplift[1] == pytest.approx(WHOLE / PIECE_OF_1_5_M, rel=1e-6)
    assert stability(aluframe, rafter(None, (1, 2))) == with_uplift


def test_the_flange_in_tension_is_remarked_on(aluframe):
    aluframe.write(rafter(TOP, (1, 2)))
    aluframe("check", "frame.json")
    table = aluframe("results", "frame.json").stdout
    assert ("restraints, element 1-2: member 1: combination 2 does not compress the flange that is held, first at "
            "1.5 m from its start") in table
    aluframe.write(rafter(BOTH, (1, 2)))
    aluframe("check", "frame.json")
    assert "restraints, element" not in aluframe("results", "frame.json").stdout


def test_a_flange_at_a_held_end_is_not_remarked_on(aluframe):
    aluframe.write(rafter([{"holds": "top", "at": [0, 3, 6]}]))
    assert "restraints, element" not in aluframe("check", "frame.json").stdout


def test_all_combinations_decide_whatever_a_run_is_limited_to(aluframe):
    model = rafter(TOP, (1, 2))
    limited = stability(aluframe, model, "--combinations", "1")
    assert limited[1] == stability(aluframe, rafter(None, (1,)))[1]


def test_an_element_over_two_pieces_has_the_worse(aluframe):
    # Pieces of 1 m, 3 m and 2 m; the second one reaches into both elements.
    model = rafter([{"holds": "both", "at": [1, 4]}])
    of = {(row["from_m"], row["to_m"]): row["phi_b"] for row in pieces(aluframe, model)
          if row["kind"] == "bending, top compressed"}
    assert list(of) == [(0, 1), (1, 4), (4, 6)]
    worst = stability(aluframe, model)
    assert worst[1] == pytest.approx(worst[2])
    assert worst[1] == pytest.approx(stability(aluframe, rafter(None))[1] * WHOLE / of[1, 4], rel=1e-6)


def test_the_elements_own_coefficient_stays(aluframe):
    model = rafter(TOP)
    model["elements"][0]["design"] = {"stability_coefficients": {"y": 0.5, "z": 1}}
    found = stability(aluframe, model)
    assert found[1] / found[2] == pytest.approx(PIECE_OF_1_5_M / 0.5, rel=1e-6)
    remarks = [row["remark"] for row in pieces(aluframe, model) if row["elements"] == "1"]
    assert set(remarks) == {"the elements have coefficients of their own"}


def strut(restraints):
    model = rafter(restraints)
    model["forces"] = [{"element": number, "case": 1, "values": [[-10, 0, 0, 0, 0, 0]] * 5} for number in (1, 2)]
    del model["load_cases"][0]["span"]
    return model


# λz of 6 m, iz = √(2883960/3720) = 27.8434564039 mm.
WHOLE_LAMBDA = 6000 / 27.8434564039


@pytest.mark.parametrize("holds, factors", [("z", (1 / 3, 2 / 3)), ("both", (1 / 3, 2 / 3)), ("y", (1, 1)),
                                            ("top", (1, 1)), ("compressed", (1, 1)), ("twist", (1, 1))])
def test_buckling_about_z_is_shortened_by_what_holds_its_axis(aluframe, holds, factors):
    # At 2 m, so that the second element reaches from 2 m to 6 m in part.
    found = slenderness(aluframe, strut([{"holds": holds, "at": [2]}]), "z")
    expected = {1: 2 / 3, 2: 2 / 3} if factors != (1, 1) else {1: 1, 2: 1}
    assert found == pytest.approx({number: factor * WHOLE_LAMBDA for number, factor in expected.items()})


def test_each_element_has_the_length_of_its_pieces(aluframe):
    found = slenderness(aluframe, strut([{"holds": "z", "at": [1, 3]}]), "z")
    assert found == pytest.approx({1: WHOLE_LAMBDA * 2 / 6, 2: WHOLE_LAMBDA * 3 / 6})


def test_factors_of_the_model_stay(aluframe):
    model = strut([{"holds": "z", "at": [3]}])
    model["members"][0]["length_factors"] = {"y": 1, "z": 0.9}
    assert slenderness(aluframe, model, "z") == pytest.approx({1: 0.9 * WHOLE_LAMBDA, 2: 0.9 * WHOLE_LAMBDA})
    del model["members"][0]["length_factors"]
    model["elements"][0]["design"] = {"length_factors": {"y": 1, "z": 0.8}}
    assert slenderness(aluframe, model, "z") == pytest.approx({1: 0.8 * WHOLE_LAMBDA, 2: 0.5 * WHOLE_LAMBDA})


def test_the_list_names_elements_with_factors_by_restraints(aluframe):
    aluframe.write(strut([{"holds": "z", "at": [1]}]))
    row, = aluframe.json("members", "frame.json")
    assert (row["kz"], row["own_factors"]) == (1, "1-2")
    assert row["remark"] == "restraints part it: see --segments"


def test_explanations_name_the_restraints(aluframe):
    aluframe.write(rafter(BOTH))
    aluframe("check", "frame.json")
    steps = aluframe("explain", "frame.json", "--element", "1", "--item", "stability").stdout
    assert "φb = 0.802713: lateral-torsional stability coefficient; the restraints of the member" in steps
    aluframe.write(strut(BOTH))
    aluframe("check", "frame.json")
    steps = aluframe("explain", "frame.json", "--element", "1", "--item", "slenderness-z").stdout
    assert "Kz = 0.25: effective length factor about z; the restraints of the member" in steps
    steps = aluframe("explain", "frame.json", "--element", "1", "--item", "slenderness-y").stdout
    assert "Ky = 1: effective length factor about y; " in steps and "the restraints" not in steps


def propped(restraints):
    """Uplift alone; a strut meets the middle, for which the checks halve the length."""
    model = rafter(restraints, (2,))
    model["nodes"].append({"number": 4, "x": 3, "y": 1, "z": 0})
    model["supports"].append({"node": 4, "restrained": "all"})
    model["elements"].append({"number": 3, "nodes": [2, 4], "section": 1, "material": 1, "kind": "truss"})
    model["load_cases"][1]["span"][0]["elements"] = [1, 2]
    return model


def summary(aluframe, model):
    aluframe.write(model)
    return aluframe.json("check", "frame.json")[0]


# My = 1·6²/8 = 4.5 kN·m on W1, over φb of 6 m and f, by hand.
UPLIFT = 4.5e6 / (37084000 / 120) / WHOLE / 200


def test_a_halved_length_that_the_restraints_do_not_give_is_in_the_safe_ratio(aluframe):
    code = summary(aluframe, propped(None))
    assert code["worst_ratio"] < 0.6 * UPLIFT and "S9" not in (code["safe_rules"] or "")
    held = summary(aluframe, propped([{"holds": "top", "spacing": 1.5}]))
    assert held["worst_ratio"] == pytest.approx(code["worst_ratio"], rel=1e-9)
    assert held["safe_ratio"] == pytest.approx(UPLIFT, rel=1e-6)
    assert "S9" in held["safe_rules"]
    # Restraints that brace as much as the checks have leave nothing to say.
    assert "S9" not in (summary(aluframe, propped([{"holds": "both", "spacing": 1.5}]))["safe_rules"] or "")


def test_a_member_that_is_held_about_an_axis_alone_stays_as_the_checks_have_it(aluframe):
    held, code = summary(aluframe, propped([{"holds": "z", "at": [2]}])), summary(aluframe, propped(None))
    assert [held["worst_ratio"], held["safe_ratio"]] == pytest.approx([code["worst_ratio"], code["safe_ratio"]], rel=1e-9)


def bent_strut(restraints, own_factor=None):
    """N = −100 kN, Mz from 2 to −2 kN·m along the member, which does not sway."""
    model = strut(restraints)
    model["frame"] = {"braced_a": True, "braced_b": True}
    for row, start in zip(model["forces"], (2, 0)):
        row["values"] = [[-100, 0, 0, 0, 0, start - 2 * i / 4] for i in range(5)]
    if own_factor is not None:
        for element in model["elements"]:
            element["design"] = {"moment_factors": {"y": {"value": own_factor}, "z": {"value": own_factor}}}
    return model


@pytest.mark.parametrize("at, factor", [([3], 0.6), ([1.5], 0.8)])  # 0.6 + 0.4·M2/M1 of pieces 2 to 0, 2 to 1 kN·m
def test_pieces_have_moment_factors_of_their_own_in_the_safe_ratio(aluframe, at, factor):
    held = [{"holds": "z", "at": at}]
    asked, own = summary(aluframe, bent_strut(held)), summary(aluframe, bent_strut(held, factor))
    assert asked["safe_ratio"] == pytest.approx(own["worst_ratio"], rel=1e-6) and "S12" in asked["safe_rules"]
    assert asked["worst_ratio"] < 0.9 * asked["safe_ratio"]
    # Without shorter lengths the end moments say all: 0.6 − 0.4.
    assert "S12" not in (summary(aluframe, bent_strut([{"holds": "y", "at": at}]))["safe_rules"] or "")


def test_a_free_end_is_not_braced(aluframe):
    model = rafter([{"holds": "both", "spacing": 1.5}])
    model["supports"] = [{"node": 1, "restrained": "all"}]
    found = {(row["from_m"], row["to_m"]): row for row in pieces(aluframe, model)
             if row["kind"] == "bending, bottom compressed"}
    assert found[4.5, 6]["phi_b"] is None
    assert found[4.5, 6]["remark"] == "an end is free: as the checks have the member"
    assert found[3, 4.5]["phi_b"] == pytest.approx(PIECE_OF_1_5_M, rel=1e-9)
    model["members"][0]["restraints"].append({"holds": "twist", "at": [6]})
    found = [row for row in pieces(aluframe, model) if row["from_m"] == 4.5 and row["phi_b"]]
    assert found and found[0]["phi_b"] == pytest.approx(PIECE_OF_1_5_M, rel=1e-9)


def test_elements_may_run_against_their_member(aluframe):
    model = rafter([{"holds": "top", "at": [1, 2.5, 4]}], (1, 2))
    turned = copy.deepcopy(model)
    turned["elements"][0]["nodes"].reverse()
    assert pieces(aluframe, turned) == pieces(aluframe, model)
    assert stability(aluframe, turned) == pytest.approx(stability(aluframe, model), rel=1e-6)


def test_a_member_of_one_element_has_pieces(aluframe):
    model = rafter(TOP)
    model["nodes"] = [model["nodes"][0], model["nodes"][2]]
    model["elements"] = [model["elements"][0] | {"nodes": [1, 3]}]
    model["members"][0]["elements"] = [1]
    assert stability(aluframe, model)[1] == pytest.approx(stability(aluframe, rafter(TOP))[1], rel=1e-6)


def test_a_closed_section_is_told_to_need_no_length(aluframe):
    model = rafter(TOP)
    model["sections"] = [{"number": 1, "shape": "B", "dimensions": {"H": 150, "B": 60, "tw": 3, "tf1": 3}}]
    row, = pieces(aluframe, model)
    assert (row["kind"], row["remark"]) == ("bending", "φb of the section does not depend on lengths")
    assert stability(aluframe, model) == stability(aluframe, rafter(None) | {"sections": model["sections"]})


@pytest.mark.parametrize("restraint, message", [
    ({"holds": "top", "at": [6.5]}, "/members/0/restraints/0/at/0 (member 1): found 6.5, must be from 0 to 6, the length"),
    ({"holds": "top", "at": [1, 1]}, '/members/0/restraints/0/at/1 (member 1): found "top" at 1, where '),
    ({"holds": "wall", "at": [1]}, '/members/0/restraints/0/holds (member 1): found "wall", must be one of compressed, top, '),
])
def test_faults_are_told_with_their_place(aluframe, restraint, message):
    aluframe.write(rafter([restraint]))
    error = aluframe("validate", "frame.json", status=1).stderr
    assert message in error and error.count("\n") == 1


def test_flanges_that_a_pipe_lacks_are_told(aluframe):
    aluframe.write(rafter(TOP) | {"sections": [{"number": 1, "shape": "P", "dimensions": {"D": 100, "t": 5}}]})
    error = aluframe("check", "frame.json", status=1).stderr
    assert error == ('frame.json: line 1: /members/0/restraints/0/holds (member 1): found "top" at 1.5, where element 1 has a section P '
                     "without such a flange, must be one of y, z, twist\n")


def test_ends_that_only_a_support_keeps_from_moving_are_counted_as_an_assumption(aluframe):
    def told(model):
        aluframe.write(model)
        return aluframe("check", "frame.json").stdout

    model = rafter(TOP)
    assert "taken to hold the twist" not in told(model)
    model["supports"][1]["restrained"] = ["Dy", "Dz"]
    assert "φb of elements: 2, length factors of elements: 0, ends whose supports are taken to hold the twist: 1" in told(model)


def test_sections_that_are_turned_against_each_other_are_told(aluframe):
    model = rafter(TOP)
    model["elements"][1]["beta"] = 180
    row, = pieces(aluframe, model)
    assert (row["kind"], row["remark"]) == ("bending", "its sections are turned against each other: as the checks have it")


def test_what_holds_the_tip_of_a_cantilever_shortens_it(aluframe):
    model = strut([{"holds": "z", "at": [6]}])
    model["supports"] = [{"node": 1, "restrained": "all"}]
    row, = pieces(aluframe, model)
    assert (row["kind"], row["k"]) == ("buckling about z", 1)
    assert slenderness(aluframe, model, "z")[1] == pytest.approx(WHOLE_LAMBDA)


@pytest.mark.parametrize("release", ["Fy", "Mx"])
def test_an_end_that_slides_or_turns_is_free(aluframe, release):
    model = rafter([{"holds": "top", "at": [3]}])
    model["supports"][0]["restrained"] = "all"
    model["elements"][1]["releases"] = {"end": [release]}
    remarks = {row["remark"] for row in pieces(aluframe, model) if row["to_m"] == 6 and row["kind"].startswith("bending")}
    assert remarks == {"an end is free: as the checks have the member"}


PINNED = [["Dx", "Dy", "Dz", "Rx"], ["Dy", "Dz", "Rx"]]
CANTILEVER = ["all", []]


def beam(length, count, restraints, load=None, ends=PINNED, **changes):
    """The rafter's section over another length, in equal elements under an even load."""
    model = rafter(None)
    model["nodes"] = [{"number": i + 1, "x": length * i / count, "y": 0, "z": 0} for i in range(count + 1)]
    model["elements"] = [{"number": i, "nodes": [i, i + 1], "section": 1, "material": 1} for i in range(1, count + 1)]
    model["supports"] = [{"node": node, "restrained": held} for node, held in zip((1, count + 1), ends) if held]
    model["members"] = [{"number": 1, "elements": list(range(1, count + 1)), "restraints": restraints}]
    model["load_cases"] = [{"number": 1} | ({"span": [{"elements": "all", "direction": "Z", "value": load}]} if load else {}) | changes]
    return model


def hogging(restraints):
    return beam(8, 2, restraints, -6.4, nodal=[{"nodes": [1], "My": -54.4}, {"nodes": [3], "My": 54.4}])


def hidden_hogging(restraints):
    """The bottom flange is compressed at 3 m, between the positions at 0 and 6 m."""
    points = [{"elements": [1], "direction": "Z", "at": 1 / 8, "force": 16},
              {"elements": [1], "direction": "Z", "at": 1 / 3, "force": -16 * 29.06 / 45}]
    return beam(24, 1, restraints, points=points)


def two_members(_):
    """Two members of 6 m in one line, which nothing holds where they meet."""
    model = beam(12, 4, [], -1.27)
    model["members"] = [{"number": 1, "elements": [1, 2], "restraints": [{"holds": "top", "at": [3]}]},
                        {"number": 2, "elements": [3, 4], "restraints": [{"holds": "top", "at": [3]}]}]
    return model


# M/(φb·W·f) with φb of the elastic buckling load of the whole member, the load on its less favourable flange: by a
# calculation apart from this program (cubic elements for u and φ in Python, 64 of them, with the restraints as links).
@pytest.mark.parametrize("model, restraints, ratio", [
    (lambda held: beam(4, 4, held, -5, CANTILEVER), [{"holds": "bottom", "at": [1]}], 1.138),
    (lambda held: beam(6, 2, held, -2, CANTILEVER), [{"holds": "bottom", "spacing": 2}], 1.235),
    (hogging, [{"holds": "bottom", "spacing": 1}], 1.322),
    (hidden_hogging, [{"holds": "top", "spacing": 3}], 2.480),
    (two_members, None, 1.25),
], ids=["cantilever", "long cantilever", "hogging", "hidden hogging", "two members"])
def test_a_member_that_buckles_before_its_pieces_is_found(aluframe, model, restraints, ratio):
    assert summary(aluframe, model(restraints))["safe_ratio"] > 0.995 * ratio


def test_an_element_with_its_own_coefficient_leaves_the_rest_bounded(aluframe):
    model = beam(4, 4, [{"holds": "bottom", "at": [1]}], -5, CANTILEVER)
    bounded = summary(aluframe, model)["safe_ratio"]
    model["elements"][3]["design"] = {"stability_coefficients": {"y": 1, "z": 1}}
    assert summary(aluframe, model)["safe_ratio"] == pytest.approx(bounded, rel=1e-6)


@pytest.mark.parametrize("restraints", [[{"holds": "top", "at": [3]}], [{"holds": "both", "at": [3]}]])
def test_an_end_that_only_stands_on_something_is_free_sideways(aluframe, restraints):
    ends = ["all", ["Dz"]]
    for row in pieces(aluframe, beam(6, 2, restraints, -4, ends)):
        if row["kind"].startswith("bending") and row["to_m"] == 6:
            assert row["phi_b"] is None and row["remark"] == "an end is free: as the checks have the member"


def test_a_stub_at_the_end_of_a_member_holds_nothing(aluframe):
    model = beam(6, 2, [{"holds": "top", "at": [3]}], 2, CANTILEVER)
    model["nodes"].append({"number": 4, "x": 6, "y": 1, "z": 0})
    model["elements"].append({"number": 3, "nodes": [3, 4], "section": 1, "material": 1})
    remarks = {row["remark"] for row in pieces(aluframe, model) if row["to_m"] == 6}
    assert remarks == {"an end is free: as the checks have the member"}
    # What leads to a support does.
    model["supports"].append({"node": 4, "restrained": ["Dx", "Dy"]})
    assert "an end is free: as the checks have the member" not in {row["remark"] for row in pieces(aluframe, model)}
