"""Effective thickness of slender plates and the effective sections of C, H and box."""

from .force_state import axial_compression_only
from .ieee import ZERO_TOLERANCE, div, maximum_of, minimum, sqrt
from .local_buckling import governing_element
from .material import proof_strength, weakly_hardening
from .section_kind import unsymmetric
from .welded_plates import plates_of

PI = 3.1415926535897323

#: (T6 group, rib flag 1) -> c1 plain, c1 welded, c2 plain, c2 welded
THICKNESS_COEFFICIENTS = {
    (True, True): (1.0, 0.9, 1.0, 0.9),
    (True, False): (0.96, 0.9, 1.0, 0.9),
    (False, True): (0.9, 0.8, 0.9, 0.7),
    (False, False): (0.9, 0.77, 0.9, 0.68),
}


def critical_stress(case, k, b, t):
    """Elastic critical stress of a plate."""
    slenderness = div(b, t)
    return div(k * case.E * (PI * PI),
               12.0 * (1.0 - case.nu * case.nu) * (slenderness * slenderness))


def thickness_coefficients(case):
    """(c1, c2)."""
    t6, rib, welded = weakly_hardening(case), case.rib == 1, case.welded == 1
    case.hit(f"rho.coefficients.{'t6' if t6 else 'other'}.{'rib' if rib else 'no_rib'}"
             f".{'welded' if welded else 'plain'}")
    row = THICKNESS_COEFFICIENTS[(t6, rib)]
    return (row[1], row[3]) if welded else (row[0], row[2])


def effective_thickness_factor(case):
    """rho, between 0 and 1; 1 when no plate governs."""
    element = governing_element(case)
    if element is None:
        return 1.0
    slenderness = sqrt(div(proof_strength(case), critical_stress(case, *element)))
    square = slenderness * slenderness
    c1, c2 = thickness_coefficients(case)
    rho = div(c1, slenderness) - div(0.22 * c2, square)
    if not unsymmetric(case) and case.rib == 1:
        case.hit("rho.cap.none")
    else:
        cap = div(1.0, square)
        case.hit("rho.cap.governs" if cap <= rho else "rho.cap.above")
        rho = minimum(cap, rho)
    if rho < ZERO_TOLERANCE:
        case.hit("rho.zero")
        return 0.0
    if rho - 1.0 > ZERO_TOLERANCE:
        case.hit("rho.one")
        return 1.0
    case.hit("rho.between")
    return rho


def force_case(case):
    """Which plates the reduction meets."""
    if axial_compression_only(case):
        return "axial"
    return "top" if case.My > ZERO_TOLERANCE else "bottom"


def effective(case, welded):
    """(A, W1, W2, Wz) of a slender C, H or box section."""
    rho = effective_thickness_factor(case)
    kind = force_case(case)
    case.hit(f"effective.{case.shape}.{'welded' if welded else 'plain'}.{kind}")
    inertia, area = _welded(case, rho, kind) if welded else _plain(case, rho, kind)
    Wz = div(case.Izz, maximum_of(*[abs(y) for y in case.y]))
    return area, div(inertia, abs(case.z1)), div(inertia, abs(case.z3)), Wz


def _cube(x):
    return x * x * x


def _plain(case, rho, kind):
    delta = 1.0 - rho
    B1, tf1, B2, tf2, tw = case.B1, case.tf1, case.B2, case.tf2, case.tw
    hw = case.H - tf1 - tf2
    top = abs(case.z1) - tf1 / 2.0
    bottom = abs(case.z3) - tf2 / 2.0
    if kind == "axial":
        webs = 2.0 if case.shape == "B" else 1.0
        inertia = (case.Iyy - B1 * _cube(delta * tf1) / 12.0 - B2 * _cube(delta * tf2) / 12.0
                   - delta * tf1 * B1 * (top * top) - delta * tf2 * B2 * (bottom * bottom)
                   - _cube(delta * tw) * hw / (12.0 / webs))
        area = case.A - delta * tf1 * B1 - delta * tf2 * B2 - webs * delta * tw * hw
        return inertia, area
    if kind == "top":
        lost = B1 * delta * tf1
        signed = case.z1 - tf1 / 2.0  # kept: z1 with its sign
        return case.Iyy - lost * (signed * signed), case.A - lost
    lost = B2 * delta * tf2
    return case.Iyy - lost * (bottom * bottom), case.A - lost


def _reduced_flange(plates, width, factor, thickness, distance):
    """Clear part with the reduced thickness; strips with the heat-affected one."""
    s, rho = plates.strip, plates.rho
    square = distance * distance
    return (width * factor * thickness * square + width * _cube(factor * thickness) / 12.0
            + s * rho * thickness * square + s * _cube(rho * thickness) / 12.0)


def _bottom_with_squared_strip(plates, factor):
    """kept: the bottom strip's own inertia takes the square of its thickness."""
    s, rho, t = plates.strip, plates.rho, plates.tf2
    square = plates.db * plates.db
    return (plates.bf2 * factor * t * square + plates.bf2 * _cube(factor * t) / 12.0
            + s * rho * t * square + s * ((rho * t) * (rho * t)) / 12.0)


def _welded(case, rho, kind):
    plates = plates_of(case)
    if kind == "bottom":
        return {"H": _welded_H_bottom, "C": _welded_C_bottom, "B": _welded_box_bottom}[case.shape](
            plates, case, rho)
    c1, c2, cw = (rho, rho, rho) if kind == "axial" else (rho, 1.0, 1.0)
    inertia = (_reduced_flange(plates, plates.bf1, c1, plates.tf1, plates.dt)
               + _reduced_flange(plates, plates.bf2, c2, plates.tf2, plates.db)
               + plates.web(cw) + plates.web_strips())
    return inertia, plates.area(c1, c2, cw)


def _welded_H_bottom(plates, case, rho):
    # kept: the bottom flange counts whole, and rho meets the top flange's own inertia only
    s, haz, tf1, tf2, B2 = plates.strip, plates.rho, plates.tf1, plates.tf2, case.B2
    square = plates.dt * plates.dt
    top = (plates.bf1 * tf1 * square + plates.bf1 * _cube(rho * tf1) / 12.0
           + s * haz * tf1 * square + s * _cube(haz * tf1) / 12.0)
    bottom = B2 * tf2 * (plates.db * plates.db) + B2 * _cube(tf2) / 12.0
    inertia = top + bottom + plates.web() + plates.web_strips()
    area = (plates.bf1 * tf1 + s * tf1 * haz + B2 * tf2 + 2.0 * plates.b * plates.tw * haz
            + plates.hw * plates.tw)
    return inertia, area


def _welded_C_bottom(plates, _case, rho):
    inertia = (_reduced_flange(plates, plates.bf1, 1.0, plates.tf1, plates.dt)
               + _bottom_with_squared_strip(plates, rho) + plates.web() + plates.web_strips())
    return inertia, plates.area(1.0, rho, 1.0)


def _welded_box_bottom(plates, _case, rho):
    inertia = (_reduced_flange(plates, plates.bf1, 1.0, plates.tf1, plates.dt)
               + _bottom_with_squared_strip(plates, rho) + plates.web() + plates.web_strips())
    # kept: one strip width and one web in this area
    strips = (plates.tf1 + plates.tf2) * plates.rho * (plates.b + plates.tw)
    area = (plates.bf1 * plates.tf1 + strips
            + rho * plates.bf1 * plates.tf2 + 2.0 * plates.b * plates.tw * plates.rho
            + plates.hw * plates.tw)
    return inertia, area
