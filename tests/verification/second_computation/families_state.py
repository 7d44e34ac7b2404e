"""Families around forces, lengths, end conditions and the stability coefficients."""

import math

from .family_tools import axial, force, matl, para, registry, sect
from .random_points import assemble, ordinary
from .random_sections import i_section

FAMILIES, family = registry()

#: steps of phi_table_rows
TABLE_STEPS = 152


@family
def force_at_the_tolerance(rng):
    point = ordinary(rng)
    tiny = (0.0, 5e-11, -5e-11, 1e-10, -1e-10, 1.0000001e-10, -1.0000001e-10, 2e-10, -2e-10)
    return force(point, rng.choice(tiny), rng.choice(tiny), rng.choice(tiny))


@family
def cancelling_moments(rng):
    """A symmetric section where Mz takes away what My gives."""
    point = ordinary(rng, shape=rng.choice((1, 3, 4, 5, 6)), slender=False, welded=0)
    s = sect(point)
    s["dSize"][4:6] = s["dSize"][2:4] if s["nShape"] == 1 else s["dSize"][4:6]
    my = rng.uniform(1e4, 1e7)
    W1 = s["dIyy"] / max(abs(z) for z in s["dPtZ"])
    Wz = s["dIzz"] / max(abs(y) for y in s["dPtY"])
    return force(point, 0.0, my, my / W1 * Wz * rng.choice((1.0, 1.0 + 1e-9, 1.0 - 1e-6)))


@family
def phi_index_border(rng):
    """lambda_y sqrt(fy / 240) at a half: radius of gyration 40, fy 240."""
    point = ordinary(rng, shape=rng.choice((3, 4, 6, 2)), welded=0, slender=False)
    s = sect(point)
    s.update(dArea=1000.0, dIyy=1.6e6, dIzz=1.6e6)
    matl(point).update(dF02Thin=240.0, dF02Thick=240.0)
    n = rng.choice((0, 4, 5, 6, 7, 8, 9, 50, 99, 148, 149, 150, 151))
    part = rng.choice((0.5, 0.4, 0.6, 0.0, 0.4999999, 0.5000001))
    point["data"]["dMembLength"] = 40.0 * (n + part)
    para(point).update(dKy=1.0, dKz=rng.choice((1.0, 2.0)))
    return axial(rng, point)


def phi_table_rows(rng, step):
    """A pipe that reads row `index` by lambda_y and row 150 - index by lambda_z.

    TABLE_STEPS steps read all rows of both alloy classes.
    """
    index = step % 76
    point = axial(rng, ordinary(rng, shape=4, welded=0))
    point["data"]["nCheckFlag"] = [1] * 8
    sect(point).update(dArea=1000.0, dIyy=1.6e6, dIzz=1.6e6)
    matl(point).update(strGrade="6061-T6" if step < 76 else "6063-T5", dF02Thin=240.0,
                       dF02Thick=240.0)
    point["data"]["dMembLength"] = 40.0
    para(point).update(dKy=float(index), dKz=float(150 - index))
    return point


@family
def unequal_fibres(rng):
    """Fibre distances that differ in a beam of any open shape, so that beta_y counts."""
    point = ordinary(rng, shape=rng.choice((0, 1, 2, 5, 5)), welded=0)
    sect(point)["dPtZ"][2] *= rng.uniform(0.4, 1.6)
    point["data"].update(nMembType=2, dMembLength=rng.uniform(4000.0, 12000.0),
                         nEndCond=rng.choice(([[0, 1], [1, 0]], [[1, 1], [0, 0]])))
    para(point).update(bMidSupport=rng.choice((0, 1)), bUserPhi=0)
    return force(point, rng.choice((0.0, -1e4)), rng.choice((-1e6, 1e6)))


@family
def long_member(rng):
    point = ordinary(rng)
    point["data"]["dMembLength"] = rng.uniform(2e4, 1e7)
    return force(point, -1000.0)


@family
def short_member(rng):
    point = ordinary(rng)
    point["data"]["dMembLength"] = rng.uniform(1e-3, 100.0)
    return point


@family
def no_length(rng):
    point = ordinary(rng)
    point["data"]["dMembLength"] = 0.0
    return point


@family
def negative_length(rng):
    point = ordinary(rng)
    if rng.random() < 0.5:
        point["data"]["dMembLength"] = -rng.uniform(100.0, 9000.0)
    else:
        para(point)[rng.choice(("dKy", "dKz"))] = -rng.uniform(0.5, 2.0)
    return force(point, -abs(point["force"]["dForce"][0]) - 10.0)


@family
def infinite_slenderness(rng):
    """A welded section with no inertia in the record, long or turned round."""
    point = ordinary(rng, shape=rng.choice((0, 1, 2, 3, 5)), welded=1)
    sect(point)["dIyy"] = 0.0
    para(point)["dKy"] = rng.choice((1.0, -1.0))
    return axial(rng, point)


@family
def zero_relative_slenderness(rng):
    """No design strength: lambda_b is zero."""
    point = ordinary(rng, shape=rng.choice((0, 1, 2, 5, 6)))
    matl(point).update(strStandard="another", dF02Thin=0.0, dF02Thick=240.0)
    sect(point)["dSize"][1] = rng.choice((12.0, 8.0))
    return force(point, rng.choice((0.0, -1000.0)), rng.choice((-1e6, 1e6)))


@family
def end_moments(rng):
    point = ordinary(rng)
    m = rng.uniform(1e3, 1e7)
    pairs = ((m, m), (m, -m), (-m, m), (0.0, 0.0), (m, 0.0), (0.0, m), (5e-11, -5e-11),
             (2e-10, 1e-10), (m, 0.5 * m), (-0.5 * m, m))
    (y1, y2), (z1, z2) = rng.choice(pairs), rng.choice(pairs)
    point["force"]["end"] = {"dMyI": y1, "dMyJ": y2, "dMzI": z1, "dMzJ": z2}
    para(point).update(nBetaMOpt=[1, 1], nBetaMOpt2=[rng.choice((0, 3)), rng.choice((0, 3))],
                       bSway=[0, 0])
    return force(point, -rng.uniform(1e3, 1e5), rng.choice((-1e6, 1e6)), rng.choice((0.0, 1e5)))


@family
def near_the_euler_force(rng):
    """|N| near the forces at which the growth of moments has no bound."""
    point = ordinary(rng, welded=0, slender=False)
    s = sect(point)
    area, inertia = s["dArea"], rng.choice((s["dIyy"], s["dIzz"]))
    k = para(point)["dKy"] if inertia == s["dIyy"] else para(point)["dKz"]
    slender2 = k * k * point["data"]["dMembLength"] ** 2 * area / inertia
    euler = math.pi ** 2 * matl(point)["nElast"] * area / slender2
    share = rng.choice((1.0, 1.0 / 1.2, 1.0 / 1.2 / 0.9, 1.0 / 1.2 / 0.75, 1.0 / 1.2 / 1.25))
    return force(point, -euler * share * rng.choice((1.0, 1.0 + 1e-7, 0.999, 1.01, 1.5)),
                 rng.choice((-1e6, 1e6)), rng.choice((-1e5, 0.0, 1e5)))


@family
def exactly_the_euler_type_force(rng):
    """N so chosen that 1 - eta2 N / N_Ey' of a tee is zero, or next to it."""
    point = ordinary(rng, shape=rng.choice((0, 2)), welded=0, slender=False)
    s = sect(point)
    iy = math.sqrt(s["dIyy"] / s["dArea"])
    slenderness = para(point)["dKy"] * point["data"]["dMembLength"] / iy
    force_y = 9.869604401088976 * matl(point)["nElast"] * s["dArea"] / (1.2 * slenderness ** 2)
    weak = matl(point)["strGrade"] in ("6061-T6", "6063-T6", "6063A-T6")
    s["dPtZ"][2] = s["dPtZ"][2] if rng.random() < 0.5 else 1e12 * math.copysign(1.0, s["dPtZ"][2])
    return force(point, -force_y / (1.15 if weak else 1.25), 1e6)


@family
def vanishing_stability_coefficient(rng):
    """A gross area so far above that of the plates that phi counts as zero."""
    b, t = 200.0, rng.uniform(2.0, 5.0)
    made = i_section(200.0, 3.0, b, t, b, t, 0.0, 0.0, 1)
    made["dArea"] *= rng.choice((1e12, 1e13))
    return axial(rng, assemble(rng, made))


@family
def pure_bending_member(rng):
    point = ordinary(rng)
    point["data"]["nMembType"] = rng.choice((1, 2, 2, 3, 5))
    return force(point, 0.0, rng.choice((-1.0, 1.0, 0.0)) * rng.uniform(1e5, 1e7))


@family
def axial_column(rng):
    return axial(rng, ordinary(rng))


@family
def compression_beam(rng):
    point = ordinary(rng)
    point["data"]["nMembType"] = 2
    return force(point, -rng.uniform(1e3, 1e5), rng.choice((-1e6, 1e6)), rng.choice((0.0, 1e5)))


@family
def free_ends(rng):
    point = ordinary(rng)
    point["data"]["nEndCond"] = rng.choice(([[2, 2], [0, 0]], [[0, 0], [2, 2]], [[2, 1], [1, 2]],
                                            [[0, 1], [1, 0]], [[1, 1], [0, 0]], [[0, 0], [1, 1]],
                                            [[2, 2], [2, 2]], [[3, -1], [0, 0]]))
    point["data"]["nMembType"] = rng.choice((1, 2, 3))
    return force(point, rng.choice((0.0, -1e4)), 1e6)


@family
def restrained_or_free_beam(rng):
    """Strong monosymmetry, so that the bracket of the critical moment may cancel."""
    made = i_section(300.0, 6.0, 40.0, 6.0, rng.choice((200.0, 40.0)), 20.0, 0.0, 0.0, 0)
    point = assemble(rng, made)
    sect(point)["dShearCtr"] *= rng.choice((1.0, -1.0, 10.0))
    point["data"]["nMembType"] = 2
    return force(point, rng.choice((0.0, -1e4)), rng.choice((-1e6, 1e6)))
