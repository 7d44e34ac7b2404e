"""Strength, shear and slenderness groups; each gives its (demand, capacity)."""

from .coefficients import plasticity_factors
from .force_state import bending, state, strength_factor
from .ieee import div, is_zero, maximum, maximum_of
from .material import design_strength
from .record import BEAM
from .section_kind import unsymmetric
from .slenderness import limit, slenderness

NOT_CHECKED = (0.0, 0.0)

# slots of the report values
LIMIT, AEN, F, FV, GAMMA_Y, GAMMA_Z = 0, 1, 2, 3, 4, 5
QZB, QYB = 21, 22


def strength(case):
    kind = state(case)
    case.hit(f"strength.{kind}")
    if kind == "none":
        return NOT_CHECKED
    if kind in ("tension", "compression"):
        demand = _axial_strength(case)
    elif kind == "bending":
        demand = _bending_strength(case)
    else:
        demand = _combined_strength(case)
    f, _ = design_strength(case)
    case.report[F] = f
    return demand, f


def _axial_strength(case):
    k = strength_factor(case)
    Aen = case.Ae * case.net_area_ratio
    case.report[AEN] = Aen
    if is_zero(Aen):
        case.hit("strength.axial.zero_area")
        return 0.0
    case.hit("strength.axial.formed")
    return div(k * abs(case.N), Aen)


def _bottom_fibre(case, gamma_y2):
    """My / (gamma_y2 W2), or 0 when the denominator is zero."""
    modulus = gamma_y2 * case.W2
    if is_zero(modulus):
        case.hit("strength.bottom_modulus.zero")
        return 0.0
    case.hit("strength.bottom_modulus.formed")
    return div(case.My, modulus)


def _bending_strength(case):
    k = strength_factor(case)
    gamma_y1, gamma_y2, gamma_z = plasticity_factors(case)
    case.report[GAMMA_Z] = gamma_z
    case.report[GAMMA_Y] = gamma_y1
    if is_zero(gamma_y1 * case.W1) or is_zero(gamma_z * case.Wz):
        case.hit("strength.bending.zero_modulus")
        return 0.0
    b = div(k * case.Mz, gamma_z * case.Wz)
    if unsymmetric(case):
        a = div(k * case.My, gamma_y1 * case.W1)
        r1 = maximum(abs(a + b), abs(a - b))
        c = _bottom_fibre(case, gamma_y2)
        r2 = maximum(abs(k * c - b), abs(k * c + b))
        demand = maximum(r1, r2)
        if demand == r1:
            case.hit("strength.bending.unsymmetric.top")
        else:
            case.hit("strength.bending.unsymmetric.bottom")
            case.report[GAMMA_Y] = gamma_y2
        return demand
    case.hit("strength.bending.symmetric")
    # kept: Mz with its sign, so a positive one lowers the demand
    return abs(div(k * abs(case.My), gamma_y1 * case.W1) - b)


def _combined_strength(case):
    k = strength_factor(case)
    gamma_y1, gamma_y2, gamma_z = plasticity_factors(case)
    Aen = case.Ae * case.net_area_ratio
    case.report[AEN] = Aen
    case.report[GAMMA_Y] = gamma_y1
    case.report[GAMMA_Z] = gamma_z
    if is_zero(Aen):
        case.hit("strength.combined.zero_area")
        return 0.0
    if is_zero(gamma_y1 * case.W1) or is_zero(gamma_z * case.Wz):
        case.hit("strength.combined.zero_modulus")
        return 0.0
    if unsymmetric(case):
        case.hit("strength.combined.unsymmetric")
        # kept: only the bottom fibre governs
        c = _bottom_fibre(case, gamma_y2)
        mz = div(case.Mz, gamma_z * case.Wz)
        axial = div(case.N, Aen)
        return maximum_of(abs(k * (axial + c + mz)), abs(k * (axial + c - mz)), 0.0)
    case.hit("strength.combined.symmetric")
    return k * (div(abs(case.N), Aen) + div(abs(case.My), gamma_y1 * case.W1)
                + div(abs(case.Mz), gamma_z * case.Wz))


def _shear_checked(case, axis):
    if state(case) == "bending":
        case.hit(f"shear.{axis}.pure_bending")
        return True
    if not bending(case):
        case.hit(f"shear.{axis}.no_bending")
        return False
    if case.member_type == BEAM:
        case.hit(f"shear.{axis}.beam")
        return True
    case.hit(f"shear.{axis}.not_a_beam")
    return False


def shear_y(case):
    if not _shear_checked(case, "y"):
        return NOT_CHECKED
    _, fv = design_strength(case)
    case.report[FV] = fv
    case.report[QZB] = case.Qzb
    return div(strength_factor(case) * abs(case.Fy) * case.Qzb, case.Izz), fv


def shear_z(case):
    if not _shear_checked(case, "z"):
        return NOT_CHECKED
    _, fv = design_strength(case)
    case.report[FV] = fv
    case.report[QYB] = case.Qyb
    return div(strength_factor(case) * abs(case.Fz) * case.Qyb, case.Iyy), fv


def slenderness_items(case):
    """(item about y, item about z) or None when the group is switched off by its limit."""
    if case.limit_tension < 0.0:
        case.hit("slenderness.off")
        return None
    case.hit("slenderness.checked")
    lambda_y, lambda_z = slenderness(case)
    limiting = limit(case)
    case.report[LIMIT] = limiting
    return (lambda_y, limiting), (lambda_z, limiting)
