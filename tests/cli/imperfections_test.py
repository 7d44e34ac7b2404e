"""Imperfections of a model, from end to end: a strut bends by its bow, and what is told of it."""

import math

import pytest
from loaded_beam import beam  # noqa: F401
from program import PIPE_I

E, I, SPAN = 70000.0, PIPE_I, 4000.0
# Of the pipe 100 × 10, kN. Its shear flexibility lowers it by 0.6 %.
EULER = math.pi**2 * E * I / SPAN**2 / 1000
BOW = 1 / 300


@pytest.fixture
def strut(aluframe, beam):  # noqa: F811
    """A hinged strut along X at 0.6 of its Euler load, bowed about its y by a three-hundredth."""
    beam |= {"supports": [{"node": 1, "restrained": ["Dx", "Dy", "Dz", "Rx"]},
                          {"node": 2, "restrained": ["Dy", "Dz"]}],
             "load_cases": [{"number": 1, "name": "P", "nodal": [{"nodes": [2], "Fx": -0.6 * EULER}]}],
             "combinations": [{"number": 1, "name": "ULS", "terms": [{"case": 1}]}]}
    aluframe.model = beam
    write(aluframe, {"bow": {"y": BOW}})
    return aluframe


def write(aluframe, imperfections, **fields):
    analysis = {"second_order": True} | ({"imperfections": imperfections} if imperfections else {})
    aluframe.write(aluframe.model | {"analysis": analysis} | fields)


def middle_moment(strut):
    rows = strut.json("analyse", "frame.json", "--combinations", "1")["forces"]
    return next(row["My"] for row in rows if row["position"] == 2)


def test_a_bowed_strut_has_the_secant_moment(strut):
    # 8·EI·e/L²·(sec(k·L/2) − 1), k² = P/EI (Timoshenko and Gere, Theory of Elastic Stability, 1.11).
    expected = 8 * E * I * BOW / SPAN * (1 / math.cos(math.pi / 2 * math.sqrt(0.6)) - 1) / 1e6
    assert abs(middle_moment(strut)) == pytest.approx(expected, rel=0.02), "shear flexibility adds some per cent"
    write(strut, None)
    assert middle_moment(strut) == 0


def test_the_first_mode_of_a_strut_is_a_half_sine_of_the_given_size(strut):
    # P·a/(1 − P/Pe); kN and m. About both axes alike, so along a direction in between.
    write(strut, {"mode": {"amplitude": 0.012}})
    rows = strut.json("analyse", "frame.json", "--combinations", "1")["forces"]
    middle = next(row for row in rows if row["position"] == 2)
    expected = 0.6 * EULER * 0.012 / 0.4
    assert math.hypot(middle["My"], middle["Mz"]) == pytest.approx(expected, rel=0.02)


def worst_ratio(strut):
    row = strut.json("check", "frame.json")[0]
    return row["worst_ratio"] if "worst_ratio" in row else row["worst"]


def test_a_bowed_strut_is_worse_than_a_straight_one(strut):
    bowed = worst_ratio(strut)
    write(strut, None)
    assert bowed > 1.5 * worst_ratio(strut)


def test_what_it_is_out_of_true_by_is_told(strut):
    write(strut, {"sway": 0.005, "bow": 0.004, "mode": {"amplitude": 0.02}})
    words = ("second-order with sway 0.005 rad along X and Y, bow L/250 about y and z, "
             "first buckling mode to 0.02 m")
    assert words in strut("check", "frame.json").stdout
    assert f"forces: {words}" in strut("results", "frame.json").stdout
    assert words.replace("second-order", "second-order analysis") in strut("analyse", "frame.json").stdout
    write(strut, {"sway": {"x": 0.005}, "bow": {"y": 0.004, "z": 0.005}})
    assert "with sway 0.005 rad along X, bow L/250 about y and L/200 about z\n" in strut(
        "analyse", "frame.json").stdout


def test_results_are_of_another_state_when_imperfections_change(strut):
    strut("check", "frame.json")
    write(strut, {"bow": {"y": 0.003}})
    assert "another state" in strut("results", "frame.json").stderr


def test_the_option_for_second_order_does_not_bring_imperfections_about(strut):
    strut.write(strut.model | {"analysis": {"imperfections": {"bow": 0.003}}})
    error = strut("check", "frame.json", "--second-order", status=1).stderr
    assert "/analysis/imperfections: imperfections act in second order only" in error


def test_the_limit_of_buckling_is_one_with_imperfections(strut):
    # 1/0.6 lies below 10.
    assert "lie below" not in strut("check", "frame.json").stdout.replace("lies", "lie")
    write(strut, None)
    told = strut("check", "frame.json").stdout
    assert "combination 1 lies below the limit of 10" in told and 'give them ("imperfections")' in told
    write(strut, {"bow": {"y": BOW}}, frame={"buckling_limit": 4.2})
    told = strut("check", "frame.json").stdout
    assert "combination 1 lies below the limit of 4.2" in told and "what grows there is in the forces" in told


def test_a_truss_that_buckles_first_leaves_no_mode(strut):
    strut.model["elements"][0]["kind"] = "truss"
    write(strut, {"mode": {"amplitude": 0.01}})
    error = strut("check", "frame.json", status=1).stderr
    assert "/elements/0: combination 1: the first buckling mode cannot be an imperfection: element 1" in error


def test_large_displacements_and_imperfections_do_not_go_together(strut):
    for arguments in [("check", "frame.json", "--large-displacements"), ("buckling", "frame.json", "--limit-load")]:
        said = strut(*arguments, status=1).stderr
        assert said.startswith("frame.json: /analysis/imperfections: large displacements start from the nodes")
    strut.write(strut.model | {"analysis": {"second_order": "large", "imperfections": {"bow": BOW}}})
    assert "/analysis/imperfections: large displacements start" in strut("validate", "frame.json", status=1).stderr
