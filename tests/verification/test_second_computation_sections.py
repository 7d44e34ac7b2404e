"""The second computation's plates, sections, strength and slenderness against hand calculations.

Every expected number is a hand calculation, shown beside it; none comes from either program.
Tolerances: 1e-12 where the hand calculation is exact in a few operations, wider only where the
comment gives decimals.
"""

import pytest

from second_computation.checks import (_bending_strength, _combined_strength, shear_y,
                                       slenderness_items, strength)
from second_computation.coefficients import plasticity_factors
from second_computation.effective_section import critical_stress, effective_thickness_factor
from second_computation.force_state import state, strength_factor
from second_computation.local_buckling import governing_ratio, gradient_coefficient, limit_factor
from second_computation.section import section_parameters
from second_computation.slenderness import limit, slenderness
from second_computation.welded_plates import plates_of
from second_computation_cases import case_of, formed


# --- plates -----------------------------------------------------------------------------------

@pytest.mark.parametrize("rib, psi, k", [
    (0, 1.0, 0.578 / 1.34), (0, 0.0, 1.7), (0, -1.0, 23.8),        # 1.7 + 5 + 17.1
    (0, 5e-11, 1.7 - 2.5e-10),
    (1, 1.0, 4.0),                                                 # 8.2 / 2.05
    (1, 0.0, 8.2 / 1.05), (1, -1.0, 23.88),                        # 7.81 + 6.29 + 9.78
    (1, -2.0, 53.82)])                                             # 5.98 x 9
def test_buckling_coefficient_by_stress_ratio(rib, psi, k):
    assert gradient_coefficient(case_of(rib=rib), psi) == pytest.approx(k, rel=1e-12)


def test_limit_factor_counts_only_under_a_positive_moment():
    # a flange has psi = 1: k = 0.578 / 1.34 over 0.425, or 8.2 / 2.05 over 4
    assert limit_factor(case_of(My=-1.0), 1) == 1.0
    assert limit_factor(case_of(My=1.0), 1) == pytest.approx(0.578 / 1.34 / 0.425, rel=1e-12)
    assert limit_factor(case_of(My=1.0, rib=1), 1) == pytest.approx(1.0, rel=1e-12)


def test_plate_ratios_of_an_H():
    # flange (60 - 10) / 10 = 5 over 6, web (100 - 20) / 10 = 8 over 21.5; epsilon = 1
    case = case_of()
    assert governing_ratio(case) == pytest.approx(5.0 / 6.0, rel=1e-12)
    assert case.Rw == pytest.approx(8.0 / 21.5, rel=1e-12)


def test_effective_thickness_of_a_flange_by_hand():
    # k 0.431, b / t = 25 / 2.5 = 10: sigma = 0.431 x 70000 pi^2 / (10.92 x 100) = 272.6795
    # lambda = sqrt(240 / 272.6795) = 0.938165; rho = 0.96 / 0.938165 - 0.22 / 0.880154 = 0.77332
    case = case_of(My=1.0, tf1=2.5)
    assert critical_stress(case, 0.431, 25.0, 2.5) == pytest.approx(272.6795, abs=1e-4)
    assert effective_thickness_factor(case) == pytest.approx(0.77332, abs=1e-5)


def test_stocky_governing_flange_counts_as_nothing():
    # b / t = 25 / 50: lambda = 0.0469, 0.96 / 0.0469 - 0.22 / 0.0022 < 0
    assert effective_thickness_factor(case_of(My=1.0, tf1=50.0)) == 0.0



# --- sections ---------------------------------------------------------------------------------

def test_gross_moduli_of_a_symmetric_section():
    # 2.88e6 / 50 and 7.2e5 / 30
    case = case_of()
    assert section_parameters(case) == 1
    assert (case.Ae, case.W1, case.W2, case.Wz) == (2000.0, 57600.0, 57600.0, 24000.0)


def test_stress_point_at_the_centroid_forms_no_section():
    case = case_of()
    case.z1 = 5e-11
    assert section_parameters(case) == 0


def test_welded_H_by_hand():
    # b 10, rho 0.5: bf = 60 - 20 - 10 = 30, hw = 100 - 20 - 20 = 60, strip 30
    plates = plates_of(case_of(b_haz=10.0))
    # 30 10 + 30 20 0.5 + 30 10 + 2 10 10 0.5 + 60 10
    assert plates.area() == 1600.0
    # flange (30 + 15) 10 45^2 + 30 1000 / 12 + 30 125 / 12 = 914062.5, twice;
    # web 10 216000 / 12; strips 0.5 10 1000 / 6 and 0.5 10 10 (35^2 + 35^2)
    assert plates.inertia() == pytest.approx(2 * 914062.5 + 180000 + 5000 / 6 + 122500, rel=1e-12)



# --- forces and strength ----------------------------------------------------------------------

@pytest.mark.parametrize("N, My, expected", [
    (5e-11, 0.0, "none"), (1.0, 0.0, "tension"), (-1.0, 5e-11, "compression"),
    (-1e-10, 1.0, "bending"), (1.0, 1.0, "tension_bending"), (-1.0, -1.0, "compression_bending")])
def test_force_states(N, My, expected):
    assert state(case_of(N=N, My=My)) == expected


def test_axial_strength_over_the_net_area():
    # 100 kN over 1000 mm2, in tension and in compression
    for N in (1e5, -1e5):
        assert strength(formed(N=N)) == (100.0, 200.0)


def test_zero_net_area_gives_a_demand_of_zero():
    assert strength(formed(N=1e5, net_area_ratio=0.0)) == (0.0, 200.0)
    assert strength(formed(N=1e5, My=1e5, net_area_ratio=0.0)) == (0.0, 200.0)


def test_positive_weak_moment_lowers_the_bending_demand():
    # My / W1 = 10, Mz / (1.05 Wz) = 2: 8 with it, 12 against it
    assert strength(formed(My=1e6, Mz=21000.0))[0] == pytest.approx(8.0, rel=1e-12)
    assert strength(formed(My=1e6, Mz=-21000.0))[0] == pytest.approx(12.0, rel=1e-12)


def test_unsymmetric_combined_strength_takes_the_bottom_fibre():
    # channel of a strong alloy: N / A 10, My / W2 5, Mz / Wz 3: |10 + 5 + 3|
    case = formed(shape="C", grade="6061-T4", N=1e4, My=1e6, Mz=3e4)
    assert strength(case)[0] == pytest.approx(18.0, rel=1e-12)
    case.W1 = 1.0
    assert strength(case)[0] == pytest.approx(18.0, rel=1e-12)


def test_zero_moduli_give_a_demand_of_zero():
    case = formed(My=1e6, N=1e5)
    case.W1 = 0.0
    assert _bending_strength(case) == 0.0
    assert _combined_strength(case) == 0.0
    # a bottom modulus of zero leaves Mz alone: 3e4 / 1e4 (channel, strong alloy), N / A = 100
    case = formed(shape="C", grade="6061-T4", My=0.0, Mz=3e4, N=1e5)
    case.W2 = 0.0
    assert _combined_strength(case) == pytest.approx(103.0, rel=1e-12)


def test_unknown_shape_has_the_plasticity_of_a_solid_round():
    assert plasticity_factors(case_of(shape="unknown")) == (1.1, 1.0, 1.1)
    assert plasticity_factors(case_of(shape="unknown", grade="")) == (1.05, 1.0, 1.05)


def test_seismic_factor_needs_the_combination_and_the_switch():
    assert strength_factor(case_of(gamma0=1.1, seismic_combination=1)) == 1.1
    assert strength_factor(case_of(gamma0=1.1, seismic_switch=1)) == 1.1
    assert strength_factor(case_of(seismic_combination=1, seismic_switch=1)) == 0.75


def test_shear_stress_and_who_is_checked():
    # 1000 x 72 / 7.2e5 = 0.1 for a beam; a column under compression has none
    case = formed(N=-1.0, My=1.0, Fy=-1000.0, Qzb=72.0, member_type=2)
    assert shear_y(case) == (pytest.approx(0.1, rel=1e-12), 115.0)
    case.member_type = 1
    assert shear_y(case) == (0.0, 0.0)



# --- slenderness ------------------------------------------------------------------------------

def test_flexural_slenderness():
    # iy = sqrt(3.2e6 / 2000) = 40, iz = sqrt(2e5 / 2000) = 10
    assert slenderness(case_of(Iyy=3.2e6, Izz=2e5, kz=0.5)) == (25.0, 50.0)


def test_flexural_torsional_slenderness_without_eccentricity_is_the_larger_one():
    # tee, i0^2 = 1600 + 100; It = 25.7 x 1.36e5: lambda_w = sqrt(1700 x 2000 / 1.36e5) = 5,
    # lambda_z = 100
    case = case_of(shape="T", Iyy=3.2e6, Izz=2e5, It=25.7 * 1.36e5, Iw=0.0, e0=0.0)
    assert slenderness(case)[1] == pytest.approx(100.0, rel=1e-12)


def test_both_codes_of_one_free_end_double_the_torsional_length():
    # It = 0: lambda_w = sqrt(1700 x 2000 lw^2 / Iw), 100 lw / 1000 with Iw = 3.4e8
    case = case_of(shape="T", Iyy=3.2e6, Izz=2e5, It=0.0, Iw=3.4e8, e0=0.0, kz=0.0)
    assert slenderness(case)[1] == pytest.approx(100.0, rel=1e-12)
    case.end_condition = [[0, 0], [2, 2]]
    assert slenderness(case)[1] == pytest.approx(200.0, rel=1e-12)
    case.end_condition = [[2, 0], [0, 2]]
    assert slenderness(case)[1] == pytest.approx(100.0, rel=1e-12)


@pytest.mark.parametrize("member, N, expected", [
    (5, -1.0, 150.0), (5, 1.0, 350.0), (3, 1.0, 400.0), (3, -1.0, 200.0), (2, 0.0, 0.0),
    (1, -1.0, 150.0), (1, 1.0, 400.0), (1, -1e-10, 400.0)])
def test_limiting_slenderness(member, N, expected):
    assert limit(case_of(member_type=member, N=N)) == expected


def test_negative_tension_limit_switches_the_group_off():
    assert slenderness_items(case_of(limit_tension=-1.0)) is None
