"""Lateral-torsional stability: monosymmetry, elastic critical moment, phi_b and phi_bz."""

import math

from .coefficients import PI_SQUARED
from .ieee import div, is_zero, sqrt
from .material import design_strength, hardening_name, weakly_hardening
from .record import BEAM, BRACE, COLUMN
from .slenderness import torsional_length

SHEAR_MODULUS = 27000.0

#: (end restrained, mid-span support) -> beta1, beta2, beta3 of a beam
BEAM_FACTORS = {
    (False, False): (1.285, 1.562, 0.753),
    (False, True): (0.712, 0.652, 1.07),
    (True, False): (1.132, 0.459, 0.525),
    (True, True): (0.972, 0.304, 0.98),
}


def moment_factors(case):
    """(beta1, beta2, beta3) by member type, mid-span support and end restraint."""
    mid = case.mid_support == 1
    support = "mid" if mid else "no_mid"
    if case.member_type == BEAM:
        start, far = case.end_condition
        restrained = (far[0] != 0 and far[1] != 0) or (start[0] != 0 and start[1] != 0)
        case.hit(f"mcr.beam.{'restrained' if restrained else 'free'}.{support}")
        return BEAM_FACTORS[(restrained, mid)]
    if case.member_type in (COLUMN, BRACE):
        name = "column" if case.member_type == COLUMN else "brace"
        case.hit(f"mcr.{name}.{support}")
        return (3.149, 0.0, 0.0) if mid else (2.752, 0.0, 0.0)
    case.hit("mcr.other_member")
    return 0.0, 0.0, 0.0


def _cube(x):
    return x * x * x


def _fourth(x):
    return x * x * x * x


def monosymmetry(case):
    """beta_y of the section."""
    shape = case.shape
    case.hit(f"beta_y.{shape}")
    if shape not in ("C", "H", "T", "B", "2C"):
        return 0.0
    tw, B1, tf1, B2, tf2 = case.tw, case.B1, case.tf1, case.B2, case.tf2
    webs = 1.0
    bottom_thickness = tf2
    if shape == "T":
        B2 = tf2 = bottom_thickness = 0.0
    elif shape == "B":
        webs = 2.0
    elif shape == "2C":
        webs = 2.0
        B1 = B2 = 2.0 * case.B1 + case.B2
        tf2 = bottom_thickness = tf1
    a = case.z1 - tf1 / 2.0
    b = abs(case.z3) - bottom_thickness / 2.0
    I = case.Iyy
    if case.end_section == 1:
        case.hit("beta_y.end_section")
        shear_centre = case.e0
    else:
        case.hit("beta_y.inner_section")
        shear_centre = -case.e0
    return (div(_cube(B1) * tf1 * a - _cube(B2) * tf2 * b, 24.0 * I)
            - div(webs * tw * (_fourth(a) - _fourth(b)), 8.0 * I)
            - div(B1 * tf1 * _cube(a) - B2 * tf2 * _cube(b), 24.0 * I)
            - shear_centre)


def critical_moment(case):
    """Elastic critical moment Mcr."""
    if case.mid_support == 1:
        case.hit("mcr.length.half")
        lb = 0.5 * case.length
    else:
        case.hit("mcr.length.whole")
        lb = case.length
    lw = torsional_length(case)
    a = case.e0 - case.z1
    beta1, beta2, beta3 = moment_factors(case)
    shift = beta2 * a + beta3 * monosymmetry(case)
    torsion = 1.0 + div(SHEAR_MODULUS * case.It * (lw * lw), PI_SQUARED * case.E * case.Iw)
    root = sqrt(shift * shift + div(case.Iw, case.Izz) * torsion)
    return div(beta1 * PI_SQUARED * case.E * case.Izz, lb * lb) * (shift + root)


def phi_b_of(case, lambda_b):
    """phi_b from the relative slenderness."""
    kind = hardening_name(case)
    if weakly_hardening(case):
        alpha = 0.2 * (lambda_b - 0.36)
    else:
        alpha = 0.25 * (lambda_b - 0.3)
    if is_zero(lambda_b):
        if alpha + 1.0 < 1e-10:
            case.hit("phi_b.zero_slenderness.zero")
            return 0.0
        case.hit("phi_b.zero_slenderness.one")
        return 1.0
    square = lambda_b * lambda_b
    s = div(1.0 + alpha + square, 2.0 * square)
    phi_b = s - sqrt(s * s - div(1.0, square))
    if math.isnan(phi_b):
        case.hit("phi_b.not_a_number")
        return phi_b
    if phi_b > 1.0 + 1e-10:
        case.hit(f"phi_b.capped.{kind}")
        return 1.0
    case.hit(f"phi_b.formula.{kind}")
    return phi_b


def lateral_coefficients(case):
    """(phi_b, phi_bz)."""
    if case.user_phi != 0:
        case.hit("phi_b.user")
        return case.user_phi_b, case.user_phi_bz
    if case.shape in ("B", "P"):
        case.hit(f"phi_b.closed.{case.shape}")
        return 1.0, 1.0
    f, _ = design_strength(case)
    return phi_b_of(case, sqrt(div(case.W1 * f, critical_moment(case)))), 1.0
