"""The second computation's stability rules against hand calculations from GB 50429-2007.

Every expected number is a hand calculation, shown beside it; none comes from either program.
Tolerances: 1e-12 where the hand calculation is exact in a few operations, wider only where the
comment gives decimals.
"""

import math

import pytest

from second_computation.coefficients import (axial_coefficients, base_phi, eccentricity_factor,
                                             euler_type_force)
from second_computation.critical_moment import (critical_moment, monosymmetry, moment_factors,
                                                phi_b_of)
from second_computation.moment_factors import equivalent_moment_factors, euler_load
from second_computation.stability import combined_stability, stability
from second_computation_cases import case_of, formed


# --- stability coefficients -------------------------------------------------------------------

@pytest.mark.parametrize("grade, index, phi", [
    ("6061-T6", 150.4, 0.119), ("6061-T6", 150.6, 0.119), ("6063-T5", 49.5, 0.615),
    ("6061-T6", 49.4999, 0.722), ("6061-T6", 49.5, 0.71), ("6063-T5", 1e300, 0.113),
    ("6063-T5", -3.0, 1.0), ("6063-T5", math.inf, 0.113)])
def test_axial_coefficient_reads_the_nearest_row(grade, index, phi):
    # fy = 240, so the index is lambda itself
    assert base_phi(case_of(grade=grade), index) == phi


def test_axial_coefficient_of_no_number_is_none():
    assert math.isnan(base_phi(case_of(), math.nan))


def test_welded_slender_symmetric_section_is_reduced_twice():
    # X = 1000 / 2000, Y = 0.5, phi(50) = 0.71
    case = formed(welded=1)
    case.R1 = 1.5
    assert axial_coefficients(case, 50.0, 50.0)[0] == pytest.approx(0.1775, rel=1e-12)


def test_eccentricity_factor_by_hand():
    # e = 20 / 100; fy = E: lambda_bar = 1 for lambda = pi: 1 - 2.4 x 0.04 / (2 x 4)
    case = case_of(z1=60.0, z3=-40.0, E=240.0)
    assert eccentricity_factor(case, 3.1415926535897323, 1.0) == pytest.approx(0.988, rel=1e-12)


def test_euler_loads():
    # pi^2 70000 2.88e6 / 1e6 = 1989.7 kN; with 1.2 and lambda^2 = A L^2 / I = 694.44: / 1.2
    case = case_of()
    assert euler_load(case, case.Iyy, 1.0) == pytest.approx(math.pi ** 2 * 201600.0, rel=1e-12)
    slender = math.sqrt(1e6 / 1440.0)
    assert euler_type_force(case, slender) == pytest.approx(math.pi ** 2 * 168000.0, rel=1e-12)


@pytest.mark.parametrize("loading, ends, expected", [
    (0, (1.0, 2.0), 0.8), (0, (-2.0, 1.0), 0.4), (0, (0.0, 0.0), 1.0), (0, (2.0, -2.0), 0.2),
    (1, (0.0, 0.0), 0.64), (2, (0.0, 0.0), 0.82), (3, (2.0, 0.0), 0.64), (3, (0.0, 0.0), 1.0),
    (3, (2.0, 1.0), 0.82), (4, (1.0, 2.0), 0.0)])
def test_equivalent_moment_factor_at_the_euler_load(loading, ends, expected):
    case = case_of(moment_loading=[loading, loading], moment_mode=1)
    case.end_moments = {"y": ends, "z": ends}
    case.N = -euler_load(case, case.Iyy, 1.0)
    assert equivalent_moment_factors(case)[0] == pytest.approx(expected, rel=1e-12)


def test_who_sets_the_equivalent_moment_factor():
    case = case_of(moment_auto=[0, 1], moment_user=[0.77, 0.5], sway=[1, 1])
    assert equivalent_moment_factors(case) == (0.77, 1.0)
    case.moment_mode, case.end_moments["z"] = 1, (1.0, 1.0)
    assert equivalent_moment_factors(case) == (0.77, 1.0)
    case.end_moments["z"] = (1.0, -1.0)
    assert equivalent_moment_factors(case)[1] == pytest.approx(0.2, rel=1e-12)


def test_critical_moment_of_a_column_by_hand():
    # 2.752 pi^2 E Izz / L^2 sqrt(Iw / Izz (1 + G It L^2 / (pi^2 E Iw)))
    # pi^2 E = 690872.31; G It L^2 / (pi^2 E Iw) = 2.7e15 / 6.9087231e14 = 3.9081
    # pi^2 E Izz / L^2 = 497428.06; Iw / Izz 4.9081 = 6816.8, root 82.564
    # 2.752 x 497428.06 x 82.564 = 1.13023e8
    assert critical_moment(case_of()) == pytest.approx(1.13023e8, rel=1e-5)


@pytest.mark.parametrize("member, ends, mid, expected", [
    (2, [[0, 1], [1, 0]], 0, (1.285, 1.562, 0.753)),
    (2, [[1, 1], [0, 0]], 0, (1.132, 0.459, 0.525)),
    (2, [[0, 0], [2, 1]], 1, (0.972, 0.304, 0.98)),
    (2, [[0, 0], [0, 0]], 1, (0.712, 0.652, 1.07)),
    (3, [[0, 0], [0, 0]], 0, (2.752, 0.0, 0.0)), (1, [[0, 0], [0, 0]], 1, (3.149, 0.0, 0.0)),
    (5, [[0, 0], [0, 0]], 1, (0.0, 0.0, 0.0))])
def test_factors_of_the_critical_moment(member, ends, mid, expected):
    case = case_of(member_type=member, end_condition=ends, mid_support=mid)
    assert moment_factors(case) == expected


def test_monosymmetry_of_a_tee_by_hand():
    # tw 1, B 6, tf 2, z1 = 3, z3 = -1, Iyy = 1: a = 2, b = 1
    # 216 x 2 x 2 / 24 = 36; (16 - 1) / 8 = 1.875; 6 x 2 x 8 / 24 = 4; inner: + e0 = 0.5
    case = case_of(shape="T", tw=1.0, B1=6.0, tf1=2.0, z1=3.0, z3=-1.0, Iyy=1.0, e0=0.5)
    assert monosymmetry(case) == pytest.approx(36.0 - 1.875 - 4.0 + 0.5, rel=1e-12)
    case.end_section = 1
    assert monosymmetry(case) == pytest.approx(36.0 - 1.875 - 4.0 - 0.5, rel=1e-12)


def test_monosymmetry_of_box_double_channel_and_unknown_shapes():
    # box tw 1, B 6, tf1 2, C 2, tf2 2, z1 3, z3 -2, I 1: a 2, b 1;
    # (216 x 4 - 8 x 2) / 24 = 848 / 24; 2 x 15 / 8; (6 x 16 - 2 x 2) / 24 = 92 / 24
    plain = dict(tw=1.0, B1=6.0, tf1=2.0, B2=2.0, z1=3.0, Iyy=1.0, e0=0.0)
    box = case_of(shape="B", tf2=2.0, z3=-2.0, **plain)
    assert monosymmetry(box) == pytest.approx(848 / 24 - 3.75 - 92 / 24, rel=1e-12)
    # double channel: w = 14, the bottom thickness is the top one: a 2, b 1
    # (2744 x 4 - 2744 x 2) / 24; 2 x 15 / 8; (14 x 16 - 14 x 2) / 24
    double = case_of(shape="2C", tf2=0.0, z3=-2.0, **plain)
    assert monosymmetry(double) == pytest.approx(5488 / 24 - 3.75 - 196 / 24, rel=1e-12)
    for shape in ("P", "SR", "unknown"):
        assert monosymmetry(case_of(shape=shape)) == 0.0


def test_lateral_coefficient():
    # lambda 1, weak: alpha 0.128, s = 2.128 / 2 = 1.064, root sqrt(0.132096) = 0.363450
    assert phi_b_of(case_of(), 1.0) == pytest.approx(1.064 - math.sqrt(0.132096), rel=1e-12)
    # strong: alpha 0.175, s = 1.0875
    assert phi_b_of(case_of(grade=""), 1.0) == pytest.approx(1.0875 - math.sqrt(0.18265625),
                                                             rel=1e-12)
    # a short member is capped, a zero slenderness gives 1, no critical moment gives no number
    assert phi_b_of(case_of(), 0.1) == 1.0
    assert phi_b_of(case_of(), 0.0) == 1.0
    assert math.isnan(phi_b_of(case_of(), math.inf))



# --- stability checks -------------------------------------------------------------------------

def test_axial_stability_takes_the_smaller_coefficient():
    # lambda_y 25: 0.927; lambda_z 50: 0.71; 71 kN / (2000 x 0.71)
    case = formed(N=-71e3, Iyy=3.2e6, Izz=2e5, kz=0.5)
    assert stability(case) == (pytest.approx(50.0, rel=1e-12), 200.0)
    assert case.report[6:9] == [0.71, 0.927, 0.71]


def test_negative_moment_gives_a_negative_demand_on_the_bottom_modulus():
    # user phi_b 0.5: -1e6 / (0.5 x 2e5), 1e6 / (0.5 x 1e5)
    assert stability(formed(My=-1e6, user_phi=1, user_phi_b=0.5))[0] == -10.0
    assert stability(formed(My=1e6, user_phi=1, user_phi_b=0.5))[0] == 20.0
    assert stability(formed(My=1e6, user_phi=1, user_phi_b=0.0))[0] == 0.0


def combined_case(**changes):
    """lambda_y 50 and lambda_z 50 (phi 0.71), beta_m 0.8, phi_b 0.5, phi_bz 0.4."""
    return formed(Iyy=8e5, Izz=8e5, N=-142e3, moment_auto=[0, 0], moment_user=[0.8, 0.8],
                  user_phi=1, user_phi_b=0.5, user_phi_bz=0.4, **changes)


def test_combined_stability_of_a_symmetric_section_by_hand():
    # N / (phi A) = 100; N_E' = pi^2 x 70000 x 2000 / 3000; growth g = 1 - 0.75 x 142000 / N_E'
    growth = 1.0 - 0.75 * 142e3 * 3000.0 / (math.pi ** 2 * 1.4e8)
    case = combined_case(My=-1e6, Mz=1e5)
    # y: 0.8 x 1e6 / (1e5 g) + 1e5 / (0.4 x 1e4)
    assert stability(case)[0] == pytest.approx(100.0 + 8.0 / growth + 25.0, rel=1e-12)
    # z: 0.8 x 1e5 / (1.05 x 1e4 g) + 1e6 / (0.5 x 1e5)
    assert combined_stability(case)[0] == pytest.approx(100.0 + 8.0 / 1.05 / growth + 20.0,
                                                        rel=1e-12)


def test_unsymmetric_section_has_no_weak_moment_in_either_check():
    case = combined_case(B2=70.0, It=1e12, Mz=1e5, My=0.0, z1=50.0, z3=-50.0)
    # z1 + z3 = 0: no eccentricity; lambda_yz = 50 by a torsional slenderness near 0: 100 twice
    assert stability(case)[0] == pytest.approx(100.0, rel=1e-12)
    assert combined_stability(case)[0] == pytest.approx(100.0, rel=1e-12)


def test_tension_fibre_of_an_unsymmetric_section_can_govern():
    # bottom fibre |142 - 0.8 x 1e9 / (2e5 x (1 - 1.15 N / N_E'))| exceeds the top with W1 large
    share = 142e3 * 3000.0 / (math.pi ** 2 * 1.4e8)
    case = combined_case(B2=70.0, It=1e12, My=1e9, z1=50.0, z3=-50.0)
    case.W1 = 1e9
    bottom = 0.8 * 1e9 / (2e5 * (1.0 - 1.15 * share)) - 142.0
    assert stability(case)[0] == pytest.approx(bottom, rel=1e-12)
    assert case.report[19] == pytest.approx(100.0 + 0.8 / (1.0 - 0.75 * share), rel=1e-12)
