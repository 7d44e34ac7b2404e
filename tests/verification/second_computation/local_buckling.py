"""Width-to-thickness ratios of plates and their limits."""

from .force_state import axial_compression_only
from .ieee import ZERO_TOLERANCE, div, is_zero, maximum_of, sqrt
from .material import proof_strength, weakly_hardening

FLANGE, WEB = 1, 0

#: limit factors by (shape, element): other grade plain, other welded, T6 plain, T6 welded
FACTORS = {
    ("C", FLANGE): (5.0, 4.0, 6.0, 5.0),
    ("H", FLANGE): (5.0, 4.0, 6.0, 5.0),
    ("H", WEB): (17.0, 15.0, 21.5, 17.0),
    ("B", FLANGE): (17.0, 15.0, 21.5, 17.0),
    ("B", WEB): (17.0, 15.0, 21.5, 17.0),
    ("P", FLANGE): (8400.0, 6000.0, 12000.0, 8400.0),
}


def stress_ratio(case, element):
    """psi: 1 in a flange; in the web from the edge stresses of N and My."""
    if element == FLANGE:
        case.hit("local.psi.flange")
        return 1.0
    An = case.net_area_ratio * case.A
    if is_zero(case.z1) or is_zero(case.z3) or is_zero(case.Iyy) or is_zero(An):
        case.hit("local.psi.web.zero_input")
        return 0.0
    uniform = div(-case.N, An)
    top = uniform + div(case.My * (case.z1 - case.tf1), case.Iyy)
    bottom = uniform - div(case.My * (abs(case.z3) - case.tf2), case.Iyy)
    if case.My > ZERO_TOLERANCE:
        side, numerator, denominator = "bottom_over_top", bottom, top
    else:
        side, numerator, denominator = "top_over_bottom", top, bottom
    if is_zero(denominator):
        case.hit(f"local.psi.web.{side}.zero_denominator")
        return 0.0
    case.hit(f"local.psi.web.{side}")
    return div(numerator, denominator)


def gradient_coefficient(case, psi):
    """k(psi)."""
    if case.rib != 1:
        if psi > ZERO_TOLERANCE:
            case.hit("local.k.outstand.positive")
            return div(0.578, psi + 0.34)
        case.hit("local.k.outstand.nonpositive")
        return 1.7 - 5.0 * psi + 17.1 * psi * psi
    if psi < -1.0:
        case.hit("local.k.internal.below_minus_one")
        return 5.98 * (1.0 - psi) * (1.0 - psi)
    if psi < -ZERO_TOLERANCE:
        case.hit("local.k.internal.negative")
        return 7.81 - 6.29 * psi + 9.78 * psi * psi
    case.hit("local.k.internal.otherwise")
    return div(8.2, psi + 1.05)


def limit_factor(case, element):
    """kappa: counts only under a positive My."""
    if case.My < ZERO_TOLERANCE:
        case.hit("local.kappa.one")
        return 1.0
    k = gradient_coefficient(case, stress_ratio(case, element))
    if case.rib == 1:
        case.hit("local.kappa.internal")
        return k / 4.0
    case.hit("local.kappa.outstand")
    return k / 0.425


def stiffener_factor(case):
    if case.rib == 1:
        case.hit("local.eta.rib")
        return case.rib_ratio
    case.hit("local.eta.one")
    return 1.0


def counts_as_welded(case):
    """Any nonzero flag for a channel or box of the other grades, else exactly 1."""
    if case.shape in ("C", "B") and not weakly_hardening(case):
        return case.welded != 0
    return case.welded == 1


def width_limit(case, element):
    """The largest width-to-thickness ratio of a plate that does not buckle early."""
    t6 = weakly_hardening(case)
    welded = counts_as_welded(case)
    factor = FACTORS[(case.shape, element)][2 * t6 + welded]
    part = "wall" if case.shape == "P" else "flange" if element == FLANGE else "web"
    case.hit(f"local.limit.{case.shape}.{part}.{'t6' if t6 else 'other'}"
             f".{'welded' if welded else 'plain'}")
    f02 = proof_strength(case)
    if case.shape == "P":
        return div(factor, f02)
    epsilon = sqrt(div(240.0, f02))
    e = epsilon * sqrt(stiffener_factor(case) * limit_factor(case, element))
    return factor * e


def _ratio(case, width, thickness, element):
    """Not formed (0) where the limit is 0."""
    limit = width_limit(case, element)
    if limit == 0.0:
        case.hit("local.ratio.no_limit")
        return 0.0
    return div(div(width, thickness), limit)


def governing_ratio(case):
    """R; keeps R1, R2 and Rw in the case."""
    case.R1 = case.R2 = case.Rw = 0.0
    H, tw, B1, tf1, B2, tf2, r1, r2 = (case.H, case.tw, case.B1, case.tf1, case.B2, case.tf2,
                                       case.r1, case.r2)
    if case.shape == "P":
        case.hit("local.ratio.P")
        return _ratio(case, H, tw, FLANGE)
    if case.shape == "H":
        case.R1 = _ratio(case, B1 - tw - 2.0 * r1 - 2.0 * r2, tf1, FLANGE)
        case.R2 = _ratio(case, B2 - tw - 2.0 * r1 - 2.0 * r2, tf2, FLANGE)
        case.Rw = _ratio(case, H - tf1 - tf2 - 2.0 * r1, tw, WEB)
    elif case.shape == "B":
        case.R1 = _ratio(case, B1 - 2.0 * tw, tf1, FLANGE)
        case.R2 = _ratio(case, B2 - 2.0 * tw, tf2, FLANGE)
        case.Rw = _ratio(case, H - tf1 - tf2, tw, WEB)
    elif case.shape == "C":
        case.R1 = _ratio(case, B1 - tw - r1 - r2, tf1, FLANGE)
        case.R2 = _ratio(case, B2 - tw - r1 - r2, tf2, FLANGE)
        case.hit("local.ratio.C")
        return maximum_of(case.R1, case.R2)
    else:
        case.hit("local.ratio.none")
        return 0.0
    case.hit(f"local.ratio.{case.shape}")
    return maximum_of(case.R1, case.R2, case.Rw)


def governing_element(case):
    """(k, b, t) of the plate that sets the reduction, or None when no plate governs."""
    if axial_compression_only(case):
        return _governing_axial(case)
    if case.My > ZERO_TOLERANCE:
        case.hit(f"local.governing.bending.top.{case.shape}")
        return _flange_alone(case, case.B1, case.tf1)
    case.hit(f"local.governing.bending.bottom.{case.shape}")
    return _flange_alone(case, case.B2, case.tf2)


def _flange_alone(case, width, thickness):
    if case.shape == "H":
        return 0.431, (width - case.tw - 2.0 * case.r1) / 2.0, thickness
    if case.shape == "C":
        return 0.431, width - case.tw - case.r1, thickness
    return 4.0, width - 2.0 * case.tw, thickness


def _governing_axial(case):
    bottom = case.R2 - 1.0 > ZERO_TOLERANCE
    top = case.R1 - 1.0 > ZERO_TOLERANCE
    if case.Rw - 1.0 > ZERO_TOLERANCE:
        case.hit(f"local.governing.axial.web.{case.shape}")
        return 4.0, case.H - case.tf1 - case.tf2 - 2.0 * case.r1, case.tw
    if bottom and top:
        k = 4.0 if case.shape == "B" else 0.431
        # kept: the thickness of one flange goes with the width of the other
        if case.R2 - case.R1 > ZERO_TOLERANCE:
            side, width, thickness = "bottom_worse", case.B1, case.tf2
        else:
            side, width, thickness = "top_worse_or_equal", case.B2, case.tf1
        case.hit(f"local.governing.axial.both_flanges.{case.shape}.{side}")
        if case.shape == "B":
            return k, width - 2.0 * case.tw, thickness
        return k, width - case.tw - case.r1, thickness
    if bottom:
        case.hit(f"local.governing.axial.bottom_only.{case.shape}")
        return _flange_alone(case, case.B2, case.tf2)
    case.hit(f"local.governing.axial.none.{case.shape}")
    return None
