"""Families around slender plates: ratios at their limit, governing plates, stress ratios."""

from .family_tools import axial, bend, force, matl, para, registry, sect
from .random_points import assemble, ordinary
from .random_sections import B, C, H, box, channel, i_section, random_section

FAMILIES, family = registry()


def _at_the_limit(rng, made):
    """fy 240 and the other alloys: the limits are 5 and 17; a stiff material, so that a plate at
    its limit is reduced."""
    point = assemble(rng, made)
    matl(point).update(strGrade="3003-H24", dF02Thin=240.0, nElast=210000)
    para(point)["bRib"] = 0
    if rng.random() < 0.5:
        return axial(rng, point)
    return force(point, None, rng.choice((0.0, -1e6)))


@family
def flange_ratio_just_at_one(rng):
    """Flanges whose ratio is 1, or above it by less or more than the tolerance."""
    b = 46.0 + rng.choice((0.0, 0.0, 0.0, 2e-9, 8e-9, 8e-9, -2e-9, 1e-13))
    build = rng.choice((i_section, channel))
    return _at_the_limit(rng, build(60.0, 6.0, b, 8.0, b, 8.0, 0.0, 0.0, 0))


@family
def web_ratio_just_at_one(rng):
    h = 20.0 + 17.0 * 8.0 + rng.choice((0.0, 0.0, 4e-9, 4e-8, 4e-8, -4e-9))
    return _at_the_limit(rng, i_section(h, 8.0, 40.0, 10.0, 40.0, 10.0, 0.0, 0.0, 0))


def _slender_flanges_of(shape, name):
    """Three families per shape: which flanges are slender in a member under compression."""

    def only_top(rng):
        return axial(rng, assemble(rng, _two_flanges(rng, shape, True, False)))

    def only_bottom(rng):
        return axial(rng, assemble(rng, _two_flanges(rng, shape, False, True)))

    def both(rng):
        factor = rng.choice((0.6, 0.9, 1.0, 1.2))
        return axial(rng, assemble(rng, _two_flanges(rng, shape, True, True, factor)))

    FAMILIES[f"only_top_flange_slender_{name}"] = only_top
    FAMILIES[f"only_bottom_flange_slender_{name}"] = only_bottom
    FAMILIES[f"both_flanges_slender_{name}"] = both


def _two_flanges(rng, shape, slender_top, slender_bottom, factor=1.0):
    """C, H or box with a stocky web; `factor` is the thickness of a thin bottom over a thin top."""
    b = rng.uniform(200.0, 300.0)
    thin, thick = b / rng.uniform(40.0, 90.0), b / rng.uniform(2.0, 3.5)
    t1 = thin if slender_top else thick
    t2 = thin * factor if slender_bottom else thick
    tw = 20.0
    h = t1 + t2 + rng.uniform(60.0, 120.0)
    welded = rng.choice((0, 1))
    if shape == C:
        return channel(h, tw, b, t1, b, t2, 0.0, 0.0, welded)
    if shape == H:
        return i_section(h, tw, b, t1, b, t2, 0.0, 0.0, welded)
    return box(h, tw, b, t1, b, t2, welded)


_slender_flanges_of(C, "channel")
_slender_flanges_of(H, "H")
_slender_flanges_of(B, "box")


@family
def slender_web_under_compression(rng):
    shape = rng.choice((H, B))
    h, b, t = rng.uniform(400.0, 900.0), 120.0, rng.uniform(15.0, 20.0)
    tw = rng.uniform(1.5, 4.0)
    welded = rng.choice((0, 1))
    if shape == H:
        return axial(rng, assemble(rng, i_section(h, tw, b, t, b, t, 0.0, 0.0, welded)))
    return axial(rng, assemble(rng, box(h, tw, b, t, b, t, welded)))


@family
def stocky_governing_flange(rng):
    """A slender web, and a governing flange so stocky that its factor falls to zero."""
    h, tw = rng.uniform(500.0, 900.0), 2.0
    t = 30.0
    b = tw + 2.0 * t * rng.uniform(0.3, 1.6)
    point = assemble(rng, i_section(h, tw, b, t, b, t, 0.0, 0.0, rng.choice((0, 1))))
    matl(point)["dF02Thin"] = rng.uniform(40.0, 120.0)
    return bend(rng, point, rng.choice((-1.0, 1.0)))


@family
def stiffened_section(rng):
    """Rib flag set; every stress ratio of the web."""
    shape = rng.choice((H, B))
    point = assemble(rng, random_section(rng, shape, rng.choice((0, 1)), True))
    para(point).update(bRib=1, dRibRatio=rng.uniform(0.3, 1.5))
    return _stress_ratio_forces(rng, point)


@family
def unstiffened_stress_ratio(rng):
    point = assemble(rng, random_section(rng, rng.choice((H, B)), rng.choice((0, 1))))
    para(point)["bRib"] = rng.choice((0, 2))
    return _stress_ratio_forces(rng, point)


def _stress_ratio_forces(rng, point):
    s = sect(point)
    bending_stress = rng.uniform(10.0, 50.0)
    axial_stress = bending_stress * rng.choice((0.0, 0.3, 0.9, 1.0, 3.0, -0.3, -0.9, -3.0))
    return force(point, axial_stress * s["dArea"], bending_stress * s["dIyy"] / s["dPtZ"][0])


@family
def stress_ratio_without_denominator(rng):
    """The governing web edge carries no stress, or the net area is zero."""
    point = assemble(rng, i_section(200.0, 6.0, 100.0, 10.0, 100.0, 10.0, 0.0, 0.0, 0))
    s = sect(point)
    s.update(dArea=2048.0, dIyy=90.0 * 2.0 ** 20)
    s["dPtZ"] = [100.0, 100.0, -100.0, -100.0]
    para(point)["dCoef085"] = rng.choice((1.0, 1.0, 0.0))
    # top edge stress -N / A + My 90 / Iyy = -1 + 1
    force(point, 2048.0, 2.0 ** 20)
    if rng.random() < 0.3:
        s["dIyy"] = 0.0
    elif rng.random() < 0.4:
        force(point, 0.0, 1e-10)
    return point


@family
def moment_at_the_tolerance(rng):
    point = assemble(rng, random_section(rng, rng.choice((C, H, B)), rng.choice((0, 1))))
    if rng.random() < 0.3:
        return force(point, 0.0, -1e-10)
    force(point, rng.choice((0.0, -1.0, 1.0)) * 1e5, 1e-10)
    if rng.random() < 0.5:
        # an inertia so small that this moment changes the stresses along the web; with it beta_y
        # would be all rounding, so phi_b is given
        s = sect(point)
        s["dIyy"] = 1e-8
        para(point)["bUserPhi"] = 1
        force(point, rng.uniform(-1.0, 1.0) * s["dArea"])
    return point


def _slender_welded(rng, shape, sign):
    point = assemble(rng, random_section(rng, shape, 1, True))
    para(point)["dHazWidth"] = rng.choice((5.0, 10.0, 20.0))
    return bend(rng, point, sign)


@family
def slender_welded_H(rng):
    return _slender_welded(rng, H, rng.choice((-1.0, 1.0)))


@family
def slender_welded_channel(rng):
    return _slender_welded(rng, C, rng.choice((-1.0, 1.0)))


@family
def slender_welded_box(rng):
    return _slender_welded(rng, B, rng.choice((-1.0, 1.0)))


@family
def slender_plain(rng):
    point = assemble(rng, random_section(rng, rng.choice((C, H, B)), rng.choice((0, 0, 2)), True))
    return bend(rng, point, rng.choice((-1.0, 1.0)))


@family
def zero_rib_ratio(rng):
    """No limit is left (a zero ratio), or none that is a number (a negative one)."""
    point = ordinary(rng, shape=rng.choice((C, H, B)))
    para(point).update(bRib=1, dRibRatio=rng.choice((0.0, -1.0)))
    return point


@family
def flange_without_width(rng):
    """The governing flange has no clear width: its critical stress is infinite."""
    h, tw = rng.uniform(500.0, 900.0), 2.0
    made = i_section(h, tw, tw, 20.0, tw, 20.0, 0.0, 0.0, rng.choice((0, 1)))
    point = assemble(rng, made)
    para(point)["bRib"] = rng.choice((0, 1))
    return bend(rng, point, rng.choice((-1.0, 1.0)))
