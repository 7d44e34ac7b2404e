"""The second computation's arithmetic, material rules and comparison against hand calculations.

Every expected number is a hand calculation, shown beside it; none comes from either program.
Tolerances: 1e-12 where the hand calculation is exact in a few operations, wider only where the
comment gives decimals.
"""

import math

import pytest

from second_computation import branches
from second_computation.comparison import compare, relative_difference
from second_computation.engine import evaluate
from second_computation.generate_points import generate
from second_computation.ieee import div, maximum, minimum, round_half_away, sqrt
from second_computation.material import design_strength, governing_thickness, haz_factor
from second_computation.running_error import EPSILON, Tracked
from second_computation_cases import CODE, case_of


# --- arithmetic -------------------------------------------------------------------------------

@pytest.mark.parametrize("x, whole", [
    (150.4, 150), (150.5, 151), (0.5, 1), (0.49999999999999994, 0), (2.5, 3), (-0.5, -1),
    (-0.4, 0), (-2.5, -3)])
def test_halves_round_away_from_zero(x, whole):
    assert round_half_away(x) == whole


def test_division_by_zero_follows_the_signs():
    assert div(1.0, 0.0) == math.inf
    assert div(1.0, -0.0) == -math.inf
    assert div(-1.0, 0.0) == -math.inf
    assert math.isnan(div(0.0, 0.0))
    assert math.isnan(sqrt(-1.0))


def test_extremes_keep_a_nan_in_the_first_place_only():
    assert math.isnan(maximum(math.nan, 1.0)) and maximum(1.0, math.nan) == 1.0
    assert math.isnan(minimum(math.nan, 1.0)) and minimum(1.0, math.nan) == 1.0


def test_a_tracked_sum_knows_the_rounding_of_its_terms():
    # (1/3 - 1/3 (1 + 1e-13)) keeps the rounding of both terms, about 1/3 each
    third = Tracked(1.0) / 3.0
    difference = third - third * (1.0 + 1e-13)
    assert abs(difference) < 1e-13
    assert 0.9 < difference.noise < 1.2



# --- material ---------------------------------------------------------------------------------

@pytest.mark.parametrize("grade, tw, expected", [
    ("6063A-T6", 10.0, (160.0, 90.0)), ("6063A-T6", 10.5, (150.0, 85.0)),
    ("6063A-T5", 10.0, (135.0, 75.0)), ("3004-H36", 30.0, (160.0, 95.0))])
def test_strengths_come_from_the_table(grade, tw, expected):
    assert design_strength(case_of(grade=grade, tw=tw)) == expected


def test_unknown_grade_and_other_standard_fall_back_to_the_proof_strength():
    # 240 / 1.2 = 200, 200 / sqrt(3) = 115.470
    for case in (case_of(grade="6061-t6"), case_of(standard="another")):
        f, fv = design_strength(case)
        assert f == 200.0
        assert fv == pytest.approx(115.47005383792515, rel=1e-12)


def test_diameter_governs_a_solid_round_and_nothing_an_unknown_shape():
    assert governing_thickness(case_of(shape="SR", H=12.0, tw=5.0)) == 12.0
    case = case_of(shape="unknown")
    assert governing_thickness(case) == 0.0
    assert case.trail == ["material.thickness.unknown_shape"]


def test_haz_factor_needs_the_grade_and_the_standard():
    assert haz_factor(case_of(grade="6061-T4")) == 1.0
    assert haz_factor(case_of(grade="5083-H112")) == 0.8
    assert haz_factor(case_of(grade="5083-H112", standard="another")) == 1.0



# --- the comparison itself --------------------------------------------------------------------

def test_branch_names_are_unique():
    assert len(set(branches.ALL)) == len(branches.ALL)
    assert not set(branches.ALL) & set(branches.BEHIND_THE_ENTRY)


def test_generated_points_are_the_same_for_the_same_seed():
    assert list(generate(50, 7)) == list(generate(50, 7))
    assert list(generate(50, 7)) != list(generate(50, 8))


def test_relative_difference_of_values_without_a_number():
    assert relative_difference(math.nan, math.nan) == 0.0
    assert relative_difference(math.inf, -math.inf) == math.inf
    assert relative_difference(math.nan, 1.0) == math.inf
    assert relative_difference(0.0, 1e-300) == 1.0


def row_of(point):
    """An output row that holds exactly what the second computation gives."""
    return dict(evaluate(point), id=point["id"])


def test_comparison_finds_a_value_that_is_off_by_a_little():
    _, point = next(pair for pair in generate(100, 1) if evaluate(pair[1])["items"][0][0] > 0.0)
    row = row_of(point)
    assert not compare(point, evaluate(point), row).disagreements
    row["items"] = [list(item) for item in row["items"]]
    row["items"][0][0] *= 1.0 + 1e-10
    found = compare(point, evaluate(point), row).disagreements
    assert [name for name, _, _ in found] == ["strength demand"]


def test_comparison_forgives_only_the_rounding_of_cancelled_terms():
    # My / W1 and Mz / (1.05 Wz) are both 1e6 / 3 up to 1e-13: what is left is mostly rounding
    point = {"id": 0, "data": {"code": {
        "sect": {"nShape": 1, "dSize": [100.0, 10.0, 60.0, 10.0, 60.0, 10.0, 0.0, 0.0],
                 "dArea": 2000.0, "dIyy": 150.0, "dIzz": 90.0, "dIxx": 1.0, "dIw": 1.0,
                 "dPtY": [30.0] * 4, "dPtZ": [50.0, 50.0, -50.0, -50.0], "bWelded": 0},
        "matl": {"strStandard": CODE, "strGrade": "6061-T6", "nElast": 70000, "dPoisson": 0.3,
                 "dF02Thin": 240.0}}},
        "force": {"dForce": [0.0, 0.0, 0.0, 0.0, 1e6, 1.05e6 * (1.0 + 1e-13)]}}
    own = evaluate(point)
    demand = own["items"][0][0]
    assert 0.0 < demand < 1e-6
    for shift, forgiven in ((EPSILON * 1e6 / 3.0, True), (1e3 * EPSILON * 1e6 / 3.0, False)):
        row = row_of(point)
        row["items"] = [[demand + shift, 200.0]] + [list(item) for item in row["items"][1:]]
        outcome = compare(point, own, row)
        assert (not outcome.disagreements) == forgiven
        assert outcome.by_rounding == (1 if forgiven else 0)
