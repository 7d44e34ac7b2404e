"""Deflections under combinations for serviceability, from end to end: beams whose deflections are worked out by hand."""

import csv
import io
import re

import pytest
from loaded_beam import CANTILEVER, RIGID_IN_SHEAR, beam, leaning_column  # noqa: F401
from program import PIPE_I

EI = 70000.0 * 8e6  # N·mm²
SPAN = 4000.0
# 6 kN/m all along, and 8 kN in the middle, of a simple beam: 5·q·L⁴/(384·EI), P·L³/(48·EI).
UNIFORM, POINT = 5 * 6 * SPAN**4 / (384 * EI), 8000 * SPAN**3 / (48 * EI)
TIP = 1000 * SPAN**3 / (3 * EI)  # of a cantilever under 1 kN


def combination(number, *terms, **more):
    return {"number": number, "name": f"S{number}", "design": False, "serviceability": True,
            "terms": [{"case": case, "factor": factor} for case, factor in terms]} | more


@pytest.fixture
def sagging(aluframe, beam):  # noqa: F811
    """The beam with two combinations for serviceability, of which the first bends it further."""
    beam["sections"] = [RIGID_IN_SHEAR]
    beam["combinations"] += [combination(11, (1, 1.0), (2, 0.5)), combination(12, (1, 0.5), (2, 1.0))]
    aluframe.model = beam
    aluframe.write(beam)
    return aluframe


def near(value):
    return pytest.approx(value, rel=1e-9)


def rows_of(aluframe, **changes):
    aluframe.write(aluframe.model | changes)
    return aluframe.json("deflections", "frame.json")


def test_the_largest_deflection_of_all_combinations_is_shown_with_its_place(sagging):
    across, down = rows_of(sagging)
    assert (across["direction"], across["value_mm"], across["combination"]) == ("y", 0, None)
    assert (down["kind"], down["elements"], down["direction"], down["combination"]) == ("deflection", "1", "z", 11)
    assert down["value_mm"] == near(-UNIFORM - POINT / 2)
    assert down["from_start_mm"] == pytest.approx(SPAN / 2, abs=1e-3)
    assert down["span_share"] == near(SPAN / (UNIFORM + POINT / 2))
    assert (down["limit_mm"], down["ratio"]) == (None, None), "stated, not judged"


def test_only_combinations_that_are_asked_for(sagging):
    row = sagging.json("deflections", "frame.json", "--combinations", "12")[1]
    assert (row["combination"], row["value_mm"]) == (12, near(-UNIFORM / 2 - POINT))
    message = sagging("deflections", "frame.json", "--combinations", "1", status=1).stderr
    assert "--combinations" in message and "1" in message


def test_an_envelope_stands_for_its_states(sagging):
    either = {"number": 13, "name": "either", "kind": "envelope", "design": False, "serviceability": True,
              "terms": [{"case": 1, "factor": 2.0}, {"case": 2, "factor": -3.0}]}
    row = rows_of(sagging, combinations=[either])[1]
    assert (row["combination"], row["value_mm"]) == (13, near(-2 * UNIFORM))


@pytest.mark.parametrize("limit, allowed", [
    ({"span": 100}, 40.0), ({"absolute": 0.03}, 30.0), ({"span": 100, "absolute": 0.03}, 30.0),
    ({"span": 200, "absolute": 0.03}, 20.0)])
def test_both_limits_hold(sagging, limit, allowed):
    row = rows_of(sagging, deflection_limit=limit)[1]
    assert row["limit_mm"] == near(allowed)
    assert row["ratio"] == near((UNIFORM + POINT / 2) / allowed)


def test_a_cantilever_counts_with_twice_its_length(sagging):
    row = rows_of(sagging, supports=CANTILEVER, deflection_limit={"span": 100},
                  load_cases=[{"number": 1, "nodal": [{"nodes": [2], "Fz": -1}]},
                              {"number": 2, "nodal": [{"nodes": [2], "Fz": 1}]}],
                  combinations=[combination(1, (1, 1.0))])[1]
    assert row["cantilever"] and (row["first_node"], row["second_node"]) == (1, 2)
    assert (row["value_mm"], row["limit_mm"]) == (near(-TIP), near(2 * SPAN / 100))
    assert row["span_share"] == near(2 * SPAN / TIP)


def test_a_member_has_its_own_limit_or_none(sagging):
    for own, allowed in [({"span": 50}, 80.0), ({}, None), (None, 40.0)]:
        member = {"number": 5, "name": "rail", "elements": [1]}
        if own is not None:
            member["deflection_limit"] = own
        row = rows_of(sagging, members=[member], deflection_limit={"span": 100})[1]
        assert (row["member"], row["name"], row["limit_mm"]) == (5, "rail", allowed and near(allowed))


def test_a_beam_in_pieces_that_are_no_member_bends_as_one(sagging):
    """Each piece by itself would bend by a fraction of it, and pass its limit."""
    sagging.model["nodes"].append({"number": 3, "x": SPAN / 2000, "y": 0, "z": 3})
    first = sagging.model["elements"][0]
    pieces = [first | {"number": 1, "nodes": [1, 3]}, first | {"number": 2, "nodes": [3, 2]}]
    load = {"span": [{"elements": [1, 2], "direction": "Z", "value": -6}]}
    down = rows_of(sagging, elements=pieces, members=[], deflection_limit={"span": 200}, combinations=[combination(1, (1, 1.0))],
                   load_cases=[{"number": 1} | load])[1]
    assert (down["member"], down["elements"]) == (None, "1-2")
    assert (down["value_mm"], down["limit_mm"]) == (near(-UNIFORM), near(20))


def test_what_holds_a_beam_sideways_does_not_part_its_span_downwards(sagging):
    sagging.model["nodes"].append({"number": 3, "x": SPAN / 2000, "y": 0, "z": 3})
    first = sagging.model["elements"][0]
    pieces = [first | {"number": 1, "nodes": [1, 3]}, first | {"number": 2, "nodes": [3, 2]}]
    held = sagging.model["supports"] + [{"node": 3, "restrained": ["Dy"]}]
    load = {"span": [{"elements": [1, 2], "direction": "Z", "value": -6}]}
    rows = rows_of(sagging, elements=pieces, supports=held, deflection_limit={"span": 200},
                   combinations=[combination(1, (1, 1.0))], load_cases=[{"number": 1} | load])
    assert [(row["elements"], row["limit_mm"]) for row in rows if row["direction"] == "y"] == [("1", near(10)), ("2", near(10))]
    down, = [row for row in rows if row["direction"] == "z"]
    assert (down["elements"], down["value_mm"], down["limit_mm"]) == ("1-2", near(-UNIFORM), near(20))


@pytest.mark.parametrize("tip", [["Dy"], ["Dx"], ["Rx"], ["Dy", "Rx", "Rz"]])
def test_a_tip_that_is_not_held_up_is_that_of_a_cantilever(sagging, tip):
    rows = rows_of(sagging, supports=CANTILEVER + [{"node": 2, "restrained": tip}], deflection_limit={"span": 100},
                   load_cases=[{"number": 1, "nodal": [{"nodes": [2], "Fz": -1}]}],
                   combinations=[combination(1, (1, 1.0))])
    down, = [row for row in rows if row["direction"] == "z"]
    assert down["cantilever"] and (down["value_mm"], down["limit_mm"]) == (near(-TIP), near(2 * SPAN / 100))


def test_cantilevers_that_pass_by_carrying_one_another_are_remarked_on(pipe):
    """A beam between the tips of two equal cantilevers: each tip sinks as if it were alone."""
    first = pipe.model["elements"][0]
    pipe.model["nodes"] += [{"number": 3, "x": 0, "y": 1, "z": 3}, {"number": 4, "x": SPAN / 1000, "y": 1, "z": 3}]
    pipe.model["elements"] += [first | {"number": 2, "nodes": [3, 4]}, first | {"number": 3, "nodes": [2, 4]}]
    model = pipe.model | {
        "supports": [{"node": node, "restrained": "all"} for node in (1, 3)], "members": [],
        "load_cases": [{"number": 1, "nodal": [{"nodes": [2, 4], "Fz": -1}]}],
        "combinations": [combination(1, (1, 1.0), design=True)]}
    tip = 1000 * SPAN**3 / (3 * 70000 * PIPE_I)
    # From the line between its ends a cantilever bends by P·L³/(9·√3·E·I), 0.19 of the tip.
    for limit, is_told in ((0.3, True), (0.6, False)):
        pipe.write(model | {"deflection_limit": {"absolute": limit * tip / 1000}})
        told = pipe("check", "frame.json", "--strict").stdout
        assert ("but these ends move: element 1 by up to" in told) == is_told
    # An end that has a limit of its own is looked after.
    pipe.write(model | {"deflection_limit": {"absolute": 0.3 * tip / 1000},
                        "displacement_limits": [{"nodes": [2, 4], "direction": "Z", "absolute": 1.5 * tip / 1000}]})
    assert "but these ends move" not in pipe("check", "frame.json", "--strict").stdout


def test_limited_nodes_have_large_displacements_where_the_analysis_has_them(aluframe, beam):  # noqa: F811
    """The same node as `analyse` tells it, beyond what second order gives."""
    beam |= leaning_column(20)
    beam["analysis"] = {"second_order": "large"}
    beam["load_cases"][0]["nodal"][0]["Fx"] = 4
    beam["combinations"] = [combination(1, (1, 1.0), design=True)]
    beam["displacement_limits"] = [{"nodes": [2], "direction": "Z", "absolute": 1}]
    aluframe.write(beam)
    row = aluframe.json("deflections", "frame.json")[-1]
    moved, = [row for row in aluframe.json("analyse", "frame.json", "--combinations", "1")["displacements"] if row["node"] == 2]
    assert row["value_mm"] == pytest.approx(1000 * moved["Dz"], abs=1e-3) and abs(row["value_mm"]) > 1


def test_results_are_told_to_be_old_when_a_limit_changes(sagging):
    sagging.write(sagging.model | {"deflection_limit": {"span": 100}})
    sagging("check", "frame.json", status=2)  # no check covers its section
    sagging.write(sagging.model | {"deflection_limit": {"span": 300}})
    assert "these results are of another state of frame.json" in sagging("results", "frame.json", "--deflections").stderr


def test_drifts_and_displacements_of_nodes(aluframe, beam):  # noqa: F811
    beam |= leaning_column(0)
    beam["combinations"] = [combination(1, (1, 1.0)), combination(2, (1, -2.0))]
    beam["drift_limits"] = [{"name": "storey", "lower": 1, "upper": 2, "height": 100}]
    beam["displacement_limits"] = [{"nodes": [1, 2], "direction": "X", "absolute": 0.1}]
    aluframe.write(beam)
    drift, foot, top = aluframe.json("deflections", "frame.json")[-3:]
    assert (drift["kind"], drift["name"], drift["value_mm"]) == ("drift", "storey", near(2 * TIP))
    assert (drift["limit_mm"], drift["ratio"]) == (near(40), near(2 * TIP / 40))
    assert (foot["first_node"], foot["value_mm"], foot["combination"]) == (1, 0, None)
    assert (top["first_node"], top["value_mm"], top["combination"]) == (2, near(-2 * TIP), 2)
    assert top["ratio"] == near(2 * TIP / 100)


def test_in_second_order_a_compressed_column_is_displaced_further(aluframe, beam):  # noqa: F811
    """Timoshenko and Gere, Theory of Elastic Stability, 1.9: the tip of a beam-column, P·L³/(3·EI)·3(tan u − u)/u³."""
    from math import sqrt, tan
    axial = 60.0  # kN, of 86.4 that buckle it
    u = SPAN * sqrt(axial * 1000 / EI)
    beam |= leaning_column(axial)
    beam["combinations"] = [combination(1, (1, 1.0))]
    beam["displacement_limits"] = [{"nodes": [2], "direction": "X", "absolute": 1}]
    aluframe.write(beam)
    assert aluframe.json("deflections", "frame.json")[-1]["value_mm"] == near(TIP)
    beam["analysis"] = {"second_order": True}
    aluframe.write(beam)
    row = aluframe.json("deflections", "frame.json")[-1]
    assert row["value_mm"] == pytest.approx(TIP * 3 * (tan(u) - u) / u**3, rel=1e-5)


# What a check makes of it. The checks cover the pipe 100 × 10, whose shear adds 0.3 % to its deflection.

OF_PIPE = UNIFORM * 8e6 / PIPE_I


@pytest.fixture
def pipe(aluframe, beam):  # noqa: F811
    """The pipe, whose ratios are below 1 and whose deflection, under twice its load, is over L/100."""
    aluframe.model = beam | {"deflection_limit": {"span": 100}, "combinations": [
        {"number": 1, "terms": [{"case": 1, "factor": 0.5}]}, combination(2, (1, 2.0))]}
    aluframe.write(aluframe.model)
    return aluframe


def test_a_frame_that_bends_too_far_fails_whatever_its_ratios_are(pipe):
    done = pipe("check", "frame.json", "--strict", status=4)
    assert "  over 1        0 elements\n" in done.stdout
    line = re.search(r"\n  deflections   (\S+) \(element 1 moves (\S+) mm along z, limit 40 mm, combination 2\), "
                     r"1 over the limit\n", done.stdout)
    assert [float(line.group(1)), float(line.group(2))] == pytest.approx([2 * OF_PIPE / 40, 2 * OF_PIPE], rel=5e-3)
    assert re.search(r"\n    deflection, element 1: a limit of displacements is passed: element 1, \S+ mm along z, of 40 mm "
                     r"allowed under combination 2; stiffen, shorten or hold it\n", done.stdout)
    pipe("check", "frame.json")
    row = pipe.json("check", "frame.json")[0]
    assert (row["displacements_over_limit"], row["displacement"], row["displacement_combination"]) == (1, "element 1", 2)
    assert row["displacement_ratio"] == pytest.approx(2 * OF_PIPE / 40, rel=5e-3)
    pipe.write(pipe.model | {"deflection_limit": {"span": 10}})
    pipe("check", "frame.json", "--strict")


def test_results_keep_what_the_check_found(pipe):
    shown = pipe("deflections", "frame.json").stdout
    pipe("check", "frame.json")
    assert pipe("results", "frame.json", "--deflections").stdout == shown
    assert re.search(r"\nDeflections: \S+ \(element 1 moves \S+ mm along z, limit 40 mm, combination 2\), 1 over the "
                     r"limit\n", pipe("results", "frame.json").stdout)
    table = csv.DictReader(io.StringIO(pipe("results", "frame.json", "--deflections", "--format", "csv").stdout))
    assert float(list(table)[1]["value_mm"]) == pytest.approx(-2 * OF_PIPE, rel=5e-3)


def test_the_document_fails_a_frame_that_bends_too_far(pipe):
    pipe("check", "frame.json")
    pipe("report", "frame.json", "--html", "frame.html")
    page = (pipe.folder / "frame.html").read_text(encoding="utf-8")
    assert "No check exceeds its limit, but displacements exceed theirs." in page
    assert f"L/{int(SPAN / (2 * OF_PIPE * 1.003))}" in page


def test_without_a_combination_for_serviceability_nothing_is_said(pipe):
    del pipe.model["deflection_limit"]
    pipe.write(pipe.model | {"combinations": pipe.model["combinations"][:1]})
    assert "deflections" not in pipe("check", "frame.json").stdout
    assert "no combination for serviceability" in pipe("deflections", "frame.json", status=1).stderr
    assert "no combination for serviceability" in pipe("results", "frame.json", "--deflections", status=1).stderr


def test_given_forces_leave_them_unknown_and_that_fails_strict_safe(pipe):
    rows = [[-1, 0, 0, 0, moment, 0] for moment in (0, 0.1, 0.1, 0.1, 0)]
    pipe.write(pipe.model | {"forces": [{"element": 1, "case": 1, "values": rows}]})
    done = pipe("deflections", "frame.json", status=1)
    assert done.stderr == ("displacements under combination 2 are unknown: load case 1 has given forces, which do "
                           "not say how the frame carries them\n")
    assert "unknown" in done.stdout
    assert pipe.json("deflections", "frame.json", status=1)[1]["value_mm"] is None
    done = pipe("check", "frame.json", "--strict")
    assert "    unknown displacements: displacements under combination 2 are unknown" in done.stdout
    assert "  deflections   unknown\n" in done.stdout
    pipe("check", "frame.json", "--strict=safe", status=4)


def test_a_frame_that_cannot_be_analysed_is_unknown(sagging):
    sagging.write(sagging.model | {"supports": [{"node": 1, "restrained": ["Dx"]}]})
    done = sagging("deflections", "frame.json", status=1)
    assert done.stderr.startswith("displacements under combinations 11-12 are unknown: ")


LIMIT = {"deflection_limit": {"span": 200}}


@pytest.mark.parametrize("changes, message", [
    ({"deflection_limit": {}}, '/deflection_limit: missing field "span" or "absolute"'),
    ({"deflection_limit": {"span": 5}}, "/deflection_limit/span: found 5, must be between 10 and 10000"),
    ({"deflection_limit": {"absolute": 0}}, "/deflection_limit/absolute: found 0, must be positive"),
    ({"deflection_limit": {"length": 5}}, "/deflection_limit/length: unknown field, allowed are span, absolute"),
    (LIMIT | {"combinations": []}, "/deflection_limit: there is no combination for serviceability"),
    ({"drift_limits": [{"lower": 2, "upper": 1, "height": 300}]}, "/drift_limits/0/upper: node 1 does not lie above node 2"),
    ({"drift_limits": [{"lower": 1, "upper": 9, "height": 300}]}, "/drift_limits/0/upper: "),
    ({"displacement_limits": [{"nodes": [], "absolute": 1}]}, "/displacement_limits/0/nodes: found an empty list, must name a node at least"),
    ({"displacement_limits": [{"nodes": [1], "direction": "z", "absolute": 1}]},
     '/displacement_limits/0/direction: found "z"'),
    ({"displacement_limits": [{"nodes": [1, 1], "absolute": 1}]}, "/displacement_limits/0/nodes/1: "),
    ({"displacement_limits": [{"nodes": [77], "absolute": 1}]},
     "/displacement_limits/0/nodes/0: no element meets node 77, so that nothing displaces it"),
    ({"drift_limits": [{"lower": 1, "upper": 77, "height": 300}]}, "/drift_limits/0/upper: no element meets node 77"),
])
def test_what_makes_no_sense_is_refused_with_its_place(sagging, changes, message):
    sagging.model["nodes"].append({"number": 77, "x": 0, "y": 0, "z": 99})
    sagging.write(sagging.model | changes)
    error = sagging("validate", "frame.json", status=1).stderr
    assert error.count("\n") == 1 and message in error
