"""Families around section records: thresholds, welds, degenerate dimensions and properties."""

from .family_tools import axial, matl, para, registry, sect
from .material import CODE_NAME
from .random_points import GRADES, ordinary
from .random_sections import B, C, H

FAMILIES, family = registry()


@family
def unknown_shape(rng):
    point = ordinary(rng)
    sect(point)["nShape"] = rng.choice((7, -1, 99))
    return point


@family
def web_thickness_ten(rng):
    """The border between thin and thick parts."""
    point = ordinary(rng)
    sect(point)["dSize"][1] = rng.choice((10.0, 10.0 + 2e-15, 10.5, 9.999999999))
    matl(point)["strGrade"] = rng.choice(GRADES + ("6063A-T5", "6063A-T6") * 4)
    return point


@family
def round_bar_diameter_ten(rng):
    point = ordinary(rng, shape=6)
    matl(point).update(strStandard=CODE_NAME, strGrade=rng.choice(("6063A-T5", "6063A-T6")))
    sect(point)["dSize"][0] = rng.choice((10.0, 10.0 + 2e-15, 12.0, 9.0))
    return point


@family
def wide_heat_affected_zone(rng):
    point = ordinary(rng, shape=rng.choice((0, 1, 2, 3, 5)), welded=1)
    para(point)["dHazWidth"] = rng.choice((150.0, 300.0, 1000.0, 0.0))
    return point


@family
def welds_that_heat_everything(rng):
    """No clear width is left, in any of the five welded layouts."""
    point = ordinary(rng, shape=rng.choice((0, 1, 2, 3, 5, 5)), welded=1)
    para(point)["dHazWidth"] = rng.uniform(500.0, 1000.0)
    return point


@family
def large_corner_allowance(rng):
    point = ordinary(rng, shape=rng.choice((C, H, B)))
    sect(point)["dSize"][6:8] = [rng.uniform(20.0, 200.0), rng.uniform(20.0, 200.0)]
    return point


@family
def slightly_unequal_flanges(rng):
    """Flange differences around the tolerance of the symmetry test."""
    point = ordinary(rng, shape=H)
    size = sect(point)["dSize"]
    size[4], size[5] = size[2], size[3]
    size[rng.choice((4, 5))] += rng.choice((5e-11, 2e-10, -2e-10, 0.1, -0.1))
    return point


@family
def zero_dimension(rng):
    point = ordinary(rng)
    for _ in range(rng.choice((1, 1, 2))):
        sect(point)["dSize"][rng.randrange(6)] = 0.0
    return point


@family
def zero_property(rng):
    point = ordinary(rng)
    sect(point)[rng.choice(("dArea", "dIyy", "dIzz", "dIxx", "dIw", "dQyb", "dQzb"))] = 0.0
    return point


@family
def zero_inertia_of_a_welded_section(rng):
    """The modulus is rebuilt from plates, so the checks run on with a zero inertia or area."""
    point = ordinary(rng, shape=rng.choice((0, 1, 2, 3, 5)), welded=1)
    sect(point)[rng.choice(("dIyy", "dIyy", "dArea"))] = 0.0
    return axial(rng, point) if rng.random() < 0.5 else point


@family
def stress_point_at_the_centroid(rng):
    point = ordinary(rng)
    sect(point)["dPtZ"][rng.choice((0, 2))] = rng.choice((0.0, 5e-11, -5e-11, 2e-10))
    return point


@family
def upside_down_stress_points(rng):
    """Stress points of the other sign and of one sign."""
    point = ordinary(rng)
    s = sect(point)
    s["dPtZ"] = [rng.choice((-1.0, 1.0)) * abs(z) for z in s["dPtZ"]]
    return point


@family
def nonpositive_section(rng):
    point = ordinary(rng)
    s = sect(point)
    name = rng.choice(("dArea", "dIyy", "dIzz", "dIxx", "dIw", "dShearCtr"))
    s[name] = -s[name]
    if rng.random() < 0.3:
        index = rng.randrange(6)
        s["dSize"][index] = -s["dSize"][index]
    return point
