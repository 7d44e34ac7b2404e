"""Families around materials, design settings, switches and the range of doubles."""

from .family_tools import axial, force, matl, para, registry, sect
from .material import CODE_NAME
from .random_points import (GRADES, OTHER_GRADES, OTHER_STANDARDS, assemble, ordinary,
                            random_material, random_parameters)
from .random_sections import random_section

FAMILIES, family = registry()


@family
def every_grade(rng):
    point = ordinary(rng)
    matl(point).update(strStandard=CODE_NAME, strGrade=rng.choice(GRADES))
    sect(point)["dSize"][1] = rng.choice((8.0, 12.0))
    return point


@family
def unknown_grade(rng):
    point = ordinary(rng)
    matl(point).update(strStandard=CODE_NAME, strGrade=rng.choice(OTHER_GRADES))
    return point


@family
def other_standard(rng):
    point = ordinary(rng)
    matl(point)["strStandard"] = rng.choice(OTHER_STANDARDS)
    return point


@family
def strange_material(rng):
    point = assemble(rng, random_section(rng, rng.randrange(7), rng.choice((0, 1))),
                     random_material(rng), random_parameters(rng))
    change = rng.choice(({"nElast": 0}, {"nElast": -70000}, {"dPoisson": 1.0}, {"dPoisson": 2.0},
                         {"dF02Thin": 0.0}, {"dF02Thin": -100.0}, {"dF02Thick": 0.0},
                         {"nElast": 1}, {"nElast": 2147483647}))
    matl(point).update(change)
    return point


@family
def zero_factors(rng):
    point = ordinary(rng)
    para(point).update(rng.choice(({"dCoef085": 0.0}, {"dGamma0": 0.0},
                                   {"bUserPhi": 1, "dUserPhi": [0.0, 1.0]},
                                   {"bUserPhi": 1, "dUserPhi": [1.0, 0.0]},
                                   {"bUserPhi": 1, "dUserPhi": [-0.5, -0.5]},
                                   {"dKy": 0.0}, {"dKz": 0.0}, {"dHazWidth": 0.0},
                                   {"dHazWidth": -10.0}, {"dRibRatio": 0.0, "bRib": 1})))
    return point


@family
def no_net_area(rng):
    point = ordinary(rng)
    para(point)["dCoef085"] = rng.choice((0.0, 1e-16))
    return axial(rng, point) if rng.random() < 0.5 else force(point, -1e4, 1e6)


@family
def user_coefficient_of_zero(rng):
    point = ordinary(rng)
    para(point).update(bUserPhi=1, dUserPhi=[rng.choice((0.0, 1e-20, -0.0)), 1.0])
    return force(point, rng.choice((0.0, 0.0, -1e4)), rng.choice((-1e6, 1e6)))


@family
def user_coefficient_that_one_modulus_makes_zero(rng):
    point = ordinary(rng, shape=2, welded=0)
    s = sect(point)
    s["dPtZ"][0], s["dPtZ"][2] = rng.choice(((1.0, -100.0), (100.0, -1.0)))
    para(point).update(bUserPhi=1, dUserPhi=[1e-10 / (s["dIyy"] / 10.0), 1.0])
    return force(point, 0.0, rng.choice((-1e6, 1e6)))


@family
def user_stability_factors(rng):
    point = ordinary(rng)
    para(point).update(bUserPhi=rng.choice((1, 1, 2)), dUserPhi=[rng.uniform(0.1, 1.2), 0.9])
    return force(point, rng.choice((0.0, -1e4)), rng.choice((-1e6, 1e6)))


@family
def slenderness_settings(rng):
    point = ordinary(rng)
    para(point).update(bUserLimit=rng.choice((0, 1, 2)),
                       dLimitTension=rng.choice((-1.0, 0.0, 300.0, -1e-300)),
                       dLimitCompr=rng.choice((-1.0, 0.0, 200.0)))
    return point


@family
def switches(rng):
    point = ordinary(rng)
    point["data"]["nCheckFlag"] = [rng.choice((0, 0, 1, 2, -1)) for _ in range(8)]
    return point


@family
def odd_codes(rng):
    point = ordinary(rng)
    data, force_ = point["data"], point["force"]
    data["nMembType"] = rng.choice((-1, 0, 4, 6, 100))
    sect(point)["bWelded"] = rng.choice((-1, 2, 3))
    force_["bEndSect"] = rng.choice((-1, 2))
    force_["nSesiType"] = rng.choice((-1, 2, 3))
    para(point).update({name: rng.choice((-1, 2)) for name in
                        ("bSeismicGammaRE", "bRib", "bUserPhi", "bUserLimit", "bMidSupport",
                         "bUserBetaM")}, bSway=[rng.choice((-1, 2)) for _ in range(2)])
    return point


@family
def bare_record(rng):
    """Most fields left out."""
    point = ordinary(rng)
    data = point["data"]
    for holder, names in ((data, ("nCheckFlag", "nEndCond", "nMembType", "dMembLength")),
                          (sect(point), ("bWelded", "dIw", "dPtY", "dSize")),
                          (matl(point), ("strStandard", "nElast", "dPoisson")),
                          (para(point), ("dGamma0", "dKy", "dUserPhi", "nBetaMOpt", "dCoef085")),
                          (point["force"], ("end", "dForce", "bEndSect"))):
        for name in names:
            if rng.random() < 0.3:
                del holder[name]
    if rng.random() < 0.3:
        del data["code"][rng.choice(("para", "matl", "sect"))]
    return point


@family
def fields_left_out(rng):
    """Any field may be missing; few at a time, so that the others still make a member."""
    point = ordinary(rng)
    for record in (sect(point), matl(point), para(point), point["data"], point["force"],
                   point["force"]["end"]):
        for name in [name for name in record if name not in ("code", "end")]:
            if rng.random() < 0.12:
                del record[name]
    return point


def _numbers_of(record):
    return [name for name, value in record.items() if isinstance(value, float)]


def _extreme(rng, magnitude):
    point = ordinary(rng)
    sign = rng.choice((1.0, 1.0, -1.0))
    target = rng.choice((sect(point), matl(point), para(point), point["data"], None, None))
    if target is None:
        point["force"]["dForce"][rng.choice((0, 1, 2, 4, 5))] = sign * magnitude
    elif target is sect(point) and rng.random() < 0.5:
        target[rng.choice(("dPtY", "dPtZ"))][rng.randrange(4)] = sign * magnitude
    else:
        target[rng.choice(_numbers_of(target))] = sign * magnitude
    return point


@family
def huge_value(rng):
    return _extreme(rng, 1e150)


@family
def tiny_value(rng):
    return _extreme(rng, 1e-150)
