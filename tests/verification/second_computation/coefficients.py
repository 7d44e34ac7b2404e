"""Axial stability coefficients, Euler-type forces, section and plasticity factors."""

import math

from .effective_section import PI
from .ieee import div, maximum_of, round_half_away, sqrt
from .material import haz_factor, hardening_name, proof_strength, weakly_hardening
from .phi_table import STRONGLY_HARDENING, TAIL, WEAKLY_HARDENING
from .section_kind import unsymmetric

PI_SQUARED = 9.869604401088976

#: shape -> gamma_y1, gamma_y2, gamma_z of a weakly hardening alloy
PLASTICITY_WEAK = {
    "C": (1.0, 1.05, 1.0), "H": (1.0, 1.0, 1.05), "2C": (1.0, 1.0, 1.05), "T": (1.0, 1.05, 1.05),
    "B": (1.0, 1.0, 1.0), "P": (1.0, 1.0, 1.0),
}


def plasticity_factors(case):
    """(gamma_y1, gamma_y2, gamma_z); an unknown shape counts as a solid round."""
    case.hit(f"plasticity.{case.shape}.{hardening_name(case)}")
    if case.shape in PLASTICITY_WEAK:
        return PLASTICITY_WEAK[case.shape] if weakly_hardening(case) else (1.0, 1.0, 1.0)
    return (1.1, 1.0, 1.1) if weakly_hardening(case) else (1.05, 1.0, 1.05)


def base_phi(case, slenderness):
    """Axial stability coefficient read from the table."""
    kind = hardening_name(case)
    index = slenderness * sqrt(div(proof_strength(case), 240.0))
    if math.isnan(index):
        case.hit("phi.nan")
        return math.nan
    if math.isinf(index):
        case.hit(f"phi.infinite.{'positive' if index > 0.0 else 'negative'}")
        return TAIL[kind] if index > 0.0 else 1.0
    n = round_half_away(index)
    if n < 0:
        case.hit("phi.negative_index")
        return 1.0
    if n > 150:
        case.hit(f"phi.tail.{kind}")
        return TAIL[kind]
    case.hit(f"phi.table.{kind}")
    return (WEAKLY_HARDENING if kind == "weak" else STRONGLY_HARDENING)[n]


def effective_area_factor(case):
    """X: the calculated area over the gross one for a slender C, H or box."""
    if case.shape not in ("C", "H", "B"):
        case.hit("X.other_shape")
        return 1.0
    if maximum_of(case.R1, case.R2, case.Rw) > 1.0:
        case.hit(f"X.slender.{case.shape}")
        return div(case.Ae, case.A)
    case.hit(f"X.stocky.{case.shape}")
    return 1.0


def haz_strength_factor(case):
    """Y of a symmetric section."""
    if case.welded == 1:
        case.hit("Y.welded")
        return haz_factor(case)
    case.hit("Y.plain")
    return 1.0


def eccentricity_factor(case, slenderness, X):
    """eta_e of an unsymmetric section."""
    case.hit(f"eta_e.{hardening_name(case)}")
    e = div(abs(case.z1 + case.z3), case.H)
    relative = slenderness / PI * sqrt(div(X * proof_strength(case), case.E))
    square = relative * relative
    c = 2.4 if weakly_hardening(case) else 3.2
    return 1.0 - div(c * (e * e) * square, (1.0 + square) * ((1.0 + relative) * (1.0 + relative)))


def axial_coefficients(case, lambda_y, lambda_z):
    """(phi_y, phi_z) as the checks use them."""
    X = effective_area_factor(case)
    phi_y = base_phi(case, lambda_y)
    phi_z = base_phi(case, lambda_z)
    if unsymmetric(case):
        return (X * eccentricity_factor(case, lambda_y, X) * phi_y,
                X * eccentricity_factor(case, lambda_z, X) * phi_z)
    Y = haz_strength_factor(case)
    return X * Y * phi_y, X * Y * phi_z


def euler_type_force(case, slenderness):
    """N_E' with the gross area."""
    return div(PI_SQUARED * case.E * case.A, 1.2 * (slenderness * slenderness))


def eta(case):
    if case.shape in ("B", "P"):
        case.hit("eta.closed")
        return 0.7
    case.hit("eta.open")
    return 1.0


def eta1(case):
    case.hit(f"eta1.{hardening_name(case)}")
    return 0.75 if weakly_hardening(case) else 0.9


def eta2(case):
    case.hit(f"eta2.{hardening_name(case)}")
    return 1.15 if weakly_hardening(case) else 1.25
