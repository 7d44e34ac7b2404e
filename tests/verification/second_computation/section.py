"""Section parameters A, W1, W2, Wz: choice of the method, gross and HAZ-reduced values."""

import math

from . import effective_section, local_buckling
from .ieee import div, is_zero, maximum_of
from .welded_plates import plates_of
from .section_kind import unsymmetric

EFFECTIVE_SHAPES = ("C", "H", "B")
NEVER_REDUCED = ("P", "SR")


def widest(values):
    return maximum_of(*[abs(x) for x in values])


def gross(case):
    """The values of the host's section table."""
    if unsymmetric(case):
        case.hit("section.gross.separate_moduli")
        W1 = div(case.Iyy, abs(case.z1))
        W2 = div(case.Iyy, abs(case.z3))
    else:
        case.hit("section.gross.common_modulus")
        W1 = W2 = div(case.Iyy, widest(case.z))
    return case.A, W1, W2, div(case.Izz, widest(case.y))


def haz_reduced(case):
    """A welded section without slender plates: strips beside the welds count with rho times t."""
    plates = plates_of(case)
    area = plates.area()
    inertia = plates.inertia()
    return (area, div(inertia, abs(case.z1)), div(inertia, abs(case.z3)),
            div(case.Izz, widest(case.y)))


def _by_method(case, R):
    shape = case.shape
    welded = case.welded == 1
    if shape == "unknown" or math.isnan(R):
        # a ratio that is no number belongs to neither side of 1
        case.hit(f"section.method.none.{'shape' if shape == 'unknown' else 'ratio'}")
        return 0.0, 0.0, 0.0, 0.0
    if shape in NEVER_REDUCED:
        case.hit(f"section.method.gross.{shape}.{'welded' if welded else 'plain'}")
        return gross(case)
    slender = R > 1.0
    if shape in EFFECTIVE_SHAPES and slender:
        case.hit(f"section.method.effective.{shape}.{'welded' if welded else 'plain'}")
        return effective_section.effective(case, welded)
    if welded:
        case.hit(f"section.method.haz.{shape}")
        return haz_reduced(case)
    case.hit(f"section.method.gross.{shape}.plain")
    return gross(case)


def section_parameters(case):
    """Fills A, W1, W2, Wz, R1, R2, Rw of the case; returns 1, or 0 when they cannot be formed."""
    R = local_buckling.governing_ratio(case)
    case.Ae = case.W1 = case.W2 = case.Wz = 0.0
    if is_zero(case.z1) or is_zero(case.z3):
        case.hit("section.fail.stress_point")
        return 0
    case.Ae, case.W1, case.W2, case.Wz = _by_method(case, R)
    if any(is_zero(x) for x in (case.Ae, case.W1, case.W2, case.Wz)):
        case.hit("section.fail.zero_property")
        return 0
    case.hit("section.formed")
    return 1
