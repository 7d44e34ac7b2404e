"""Slenderness about y and z (flexural-torsional about z for an unsymmetric section) and limits."""

from .force_state import compression
from .ieee import ZERO_TOLERANCE, div, sqrt
from .record import BRACE, COLUMN, TRUSS
from .section_kind import unsymmetric

FREE = 2


def torsional_length(case):
    """Length for torsional buckling: doubled when one end is free about both axes."""
    start, far = case.end_condition
    if far[0] == FREE and far[1] == FREE:
        case.hit("slenderness.torsional_length.far_end_free")
        return 2.0 * case.length
    if start[0] == FREE and start[1] == FREE:
        case.hit("slenderness.torsional_length.start_free")
        return 2.0 * case.length
    case.hit("slenderness.torsional_length.member")
    return case.length


def slenderness(case):
    """(lambda_y, z value): the z value is lambda_yz for an unsymmetric section."""
    iy = sqrt(div(case.Iyy, case.A))
    iz = sqrt(div(case.Izz, case.A))
    lambda_y = div(case.ky * case.length, iy)
    lambda_z = div(case.kz * case.length, iz)
    if not unsymmetric(case):
        case.hit("slenderness.z.flexural")
        return lambda_y, lambda_z
    case.hit("slenderness.z.flexural_torsional")
    i0 = sqrt(iy * iy + iz * iz + case.e0 * case.e0)
    lw = torsional_length(case)
    torsional = sqrt(div(i0 * i0 * case.A, case.It / 25.7 + div(case.Iw, lw * lw)))
    z2 = lambda_z * lambda_z
    w2 = torsional * torsional
    total = z2 + w2
    eccentricity = 1.0 - div(case.e0 * case.e0, i0 * i0)
    return lambda_y, sqrt((total + sqrt(total * total - 4.0 * eccentricity * z2 * w2)) / 2.0)


def limit(case):
    """The limiting slenderness."""
    if case.user_limit != 0:
        if compression(case):
            case.hit("slenderness.limit.user.compression")
            return case.limit_compression
        case.hit("slenderness.limit.user.tension")
        return case.limit_tension
    if abs(case.N) < ZERO_TOLERANCE:
        case.hit("slenderness.limit.no_axial_force")
        return 0.0
    kind = {COLUMN: "column", BRACE: "brace", TRUSS: "truss"}.get(case.member_type, "other")
    if compression(case):
        case.hit(f"slenderness.limit.{kind}.compression")
        return 150.0 if kind in ("column", "truss") else 200.0
    case.hit(f"slenderness.limit.{kind}.tension")
    return 400.0 if kind in ("column", "brace") else 350.0
