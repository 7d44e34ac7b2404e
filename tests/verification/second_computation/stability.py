"""Stability of members: items 3 (about y) and 4 (about z)."""

from .coefficients import (axial_coefficients, eta, eta1, eta2, euler_type_force,
                           plasticity_factors)
from .critical_moment import lateral_coefficients
from .force_state import stability_factor, state
from .ieee import ZERO_TOLERANCE, div, is_zero, maximum
from .material import design_strength
from .moment_factors import equivalent_moment_factors
from .section_kind import unsymmetric
from .slenderness import slenderness

NOT_CHECKED = (0.0, 0.0)

# slots of the report values
GAMMA_Z, PHI, PHI_Y, PHI_Z, PHI_B_BENDING, PHI_B, PHI_BZ = 5, 6, 7, 8, 9, 10, 11
BETA_MY, BETA_MZ, ETA, ETA1, ETA2, N_EY, N_EZ, RMAX211, RMAX212 = range(12, 21)


def stability(case):
    """Item 3."""
    kind = state(case)
    if kind == "compression":
        demand = _axial(case)
    elif kind == "bending":
        demand = _pure_bending(case)
    elif kind == "compression_bending":
        demand = _in_plane(case)
    else:
        case.hit(f"stability.none.{kind}")
        return NOT_CHECKED
    f, _ = design_strength(case)
    return demand, f


def _axial(case):
    k = stability_factor(case)
    phi_y, phi_z = axial_coefficients(case, *slenderness(case))
    if phi_y < phi_z:
        case.hit("stability.axial.phi_y_governs")
        phi = phi_y
    else:
        case.hit("stability.axial.phi_z_governs")
        phi = phi_z
    case.report[PHI], case.report[PHI_Y], case.report[PHI_Z] = phi, phi_y, phi_z
    if is_zero(phi):
        case.hit("stability.axial.zero_phi")
        return 0.0
    case.hit("stability.axial.formed")
    return div(k * abs(case.N), case.A * phi)


def _pure_bending(case):
    k = stability_factor(case)
    phi_b, _ = lateral_coefficients(case)
    case.report[PHI_B_BENDING] = phi_b
    if is_zero(phi_b * case.W1) or is_zero(phi_b * case.W2):
        case.hit("stability.bending.zero_denominator")
        return 0.0
    if case.My < -ZERO_TOLERANCE:
        case.hit("stability.bending.bottom")
        return div(k * case.My, phi_b * case.W2)
    case.hit("stability.bending.top")
    return div(k * case.My, phi_b * case.W1)


def _coefficients(case):
    """The coefficients that both combined checks use, kept for the report."""
    gammas = plasticity_factors(case)
    lambda_y, lambda_z = slenderness(case)
    phi_y, phi_z = axial_coefficients(case, lambda_y, lambda_z)
    phi_b, phi_bz = lateral_coefficients(case)
    beta_my, beta_mz = equivalent_moment_factors(case)
    report = case.report
    report[GAMMA_Z] = gammas[2]
    report[PHI_Y], report[PHI_Z] = phi_y, phi_z
    report[PHI_B], report[PHI_BZ] = phi_b, phi_bz
    report[BETA_MY], report[BETA_MZ] = beta_my, beta_mz
    report[ETA], report[ETA1] = eta(case), eta1(case)
    report[N_EZ] = euler_type_force(case, lambda_z)
    return gammas, lambda_y


def _in_plane(case):
    k = stability_factor(case)
    (gamma_y1, gamma_y2, _), lambda_y = _coefficients(case)
    report = case.report
    report[ETA2] = eta2(case)
    report[N_EY] = euler_type_force(case, lambda_y)
    compression = div(-case.N, report[PHI_Y] * case.A)
    growth = 1.0 - div(report[ETA1] * abs(case.N), report[N_EY])
    modulus = gamma_y1 * case.W1 * growth
    if not unsymmetric(case):
        case.hit("stability.in_plane.symmetric")
        return k * (compression + div(report[BETA_MY] * abs(case.My), modulus)
                    + div(report[ETA] * abs(case.Mz), report[PHI_BZ] * case.Wz))
    top = k * (compression + div(report[BETA_MY] * case.My, modulus))
    if not case.My > ZERO_TOLERANCE:
        case.hit("stability.in_plane.unsymmetric.my_not_positive")
        return top
    case.hit("stability.in_plane.unsymmetric.my_positive")
    bottom_modulus = gamma_y2 * case.W2 * (1.0 - div(report[ETA2] * abs(case.N), report[N_EY]))
    if is_zero(bottom_modulus):
        case.hit("stability.in_plane.bottom_modulus.zero")
        t = 0.0
    else:
        case.hit("stability.in_plane.bottom_modulus.formed")
        t = div(case.My, bottom_modulus)
    bottom = abs(k * (div(abs(case.N), case.Ae) - report[BETA_MY] * t))
    report[RMAX211], report[RMAX212] = top, bottom
    case.hit("stability.in_plane.governing.bottom" if top < bottom
             else "stability.in_plane.governing.top")
    return maximum(top, bottom)


def combined_stability(case):
    """Item 4."""
    kind = state(case)
    if kind != "compression_bending":
        case.hit(f"combined_stability.none.{kind}")
        return NOT_CHECKED
    k = stability_factor(case)
    (_, _, gamma_z), _ = _coefficients(case)
    report = case.report
    f, _ = design_strength(case)
    compression = div(-case.N, report[PHI_Z] * case.A)
    if unsymmetric(case):
        case.hit("combined_stability.unsymmetric")
        return k * (compression + div(report[ETA] * case.My, report[PHI_B] * case.W1)), f
    case.hit("combined_stability.symmetric")
    growth = 1.0 - div(report[ETA1] * abs(case.N), report[N_EZ])
    return k * (compression + div(report[BETA_MZ] * abs(case.Mz), gamma_z * case.Wz * growth)
                + div(report[ETA] * abs(case.My), report[PHI_B] * case.W1)), f
