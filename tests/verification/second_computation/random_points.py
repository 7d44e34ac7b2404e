"""Ordinary random check points: every shape, grade, force state, member type and setting."""

from .material import CODE_NAME
from .random_sections import random_section

GRADES = ("6061-T4", "6061-T6", "6063-T5", "6063-T6", "6063A-T5", "6063A-T6", "5083-O/F",
          "5083-H112", "3003-H24", "3004-H34", "3004-H36")
OTHER_GRADES = ("6061-t6", "7075-T6", "", "6063A-T6 ")
OTHER_STANDARDS = ("GB50429-07", "gb50429-07(a)", "", "EN1999")


def random_material(rng):
    thin = rng.uniform(40.0, 300.0)
    return {
        "strStandard": CODE_NAME if rng.random() < 0.9 else rng.choice(OTHER_STANDARDS),
        "strGrade": rng.choice(GRADES) if rng.random() < 0.93 else rng.choice(OTHER_GRADES),
        "nElast": rng.choice((70000, 70000, 68900, 72300)), "dPoisson": rng.choice((0.3, 0.33)),
        "dFu": thin * 1.3, "dF02Thin": thin, "dF02Thick": thin * rng.uniform(0.85, 1.0),
    }


def flag(rng, chance=0.5):
    """0 or 1, rarely 2."""
    if rng.random() < 0.04:
        return 2
    return 1 if rng.random() < chance else 0


def random_parameters(rng):
    return {
        "dGamma0": rng.choice((0.9, 1.0, 1.1)), "bSeismicGammaRE": flag(rng),
        "dGammaREStrength": rng.uniform(0.6, 1.0), "dGammaREStability": rng.uniform(0.6, 1.0),
        "dCoef085": rng.choice((0.85, 1.0, rng.uniform(0.5, 1.0))), "bRib": flag(rng, 0.4),
        "dRibRatio": rng.uniform(1.0, 2.0), "dHazWidth": rng.choice((20.0, 30.0, 35.0)),
        "dWeldCoef": 0.5, "bUserPhi": flag(rng, 0.08),
        "dUserPhi": [rng.uniform(0.2, 1.0), rng.uniform(0.2, 1.0)],
        "dLimitTension": rng.choice((300.0, 400.0, 250.0)),
        "dLimitCompr": rng.choice((200.0, 150.0, 120.0)), "bUserLimit": flag(rng, 0.25),
        "dKy": rng.choice((1.0, 2.0, 0.7, rng.uniform(0.5, 3.0))),
        "dKz": rng.choice((1.0, 2.0, 0.7, rng.uniform(0.5, 3.0))), "bMidSupport": flag(rng, 0.4),
        "bUserBetaM": flag(rng), "nBetaMOpt": [rng.choice((1, 1, 1, 0, 2)) for _ in range(2)],
        "dBetaM": [rng.uniform(0.4, 1.0), rng.uniform(0.4, 1.0)],
        "nBetaMOpt2": [rng.choice((0, 1, 2, 3, 4, -1)) for _ in range(2)],
        "bSway": [flag(rng), flag(rng)],
    }


def component(rng, scale, chance_zero=0.3):
    """A force component: none, below the zero tolerance, or of either sign."""
    draw = rng.random()
    if draw < chance_zero:
        return 0.0
    if draw < chance_zero + 0.08:
        return rng.choice((5e-11, -5e-11, 9.9e-11, -9.9e-11))
    if draw < chance_zero + 0.1:
        return rng.choice((1e-10, -1e-10, 1.1e-10, -1.1e-10))
    return rng.choice((-1.0, 1.0)) * scale * rng.uniform(0.05, 3.0)


def random_forces(rng, sect):
    axial = 40.0 * abs(sect["dArea"])
    my = 40.0 * abs(sect["dIyy"]) / max(abs(sect["dPtZ"][0]), 1.0)
    mz = 20.0 * abs(sect["dIzz"]) / max(abs(sect["dPtY"][0]), 1.0)
    six = [component(rng, axial, 0.2), component(rng, 0.1 * axial, 0.1),
           component(rng, 0.2 * axial, 0.1), component(rng, 0.1 * my), component(rng, my),
           component(rng, mz, 0.35)]
    ends = {name: component(rng, my if "My" in name else mz, 0.15)
            for name in ("dMyI", "dMyJ", "dMzI", "dMzJ")}
    return {"dForce": six, "nLComb": rng.randrange(1, 1000), "nPos": rng.randrange(5),
            "bEndSect": flag(rng), "nSesiType": flag(rng, 0.3), "end": ends}


def assemble(rng, sect, matl=None, para=None):
    """A point around a section."""
    return {
        "data": {
            "nCheckFlag": [1] * 8 if rng.random() < 0.8 else [flag(rng, 0.7) for _ in range(8)],
            "bWriteResult": 1, "bReport": 0, "nElem": rng.randrange(1, 10000),
            "code": {"sect": sect, "matl": matl or random_material(rng),
                     "para": para or random_parameters(rng)},
            "dMembLength": rng.uniform(300.0, 9000.0),
            "nMembType": rng.choice((1, 2, 3, 5, 1, 2, 3, 5, 0, 4, 7)),
            "nEndCond": [[rng.randrange(3), rng.randrange(3)] for _ in range(2)],
        },
        "force": random_forces(rng, sect),
    }


def ordinary(rng, shape=None, welded=None, slender=None):
    """One everyday point."""
    if shape is None:
        shape = rng.randrange(7)
    if welded is None:
        welded = flag(rng)
    return assemble(rng, random_section(rng, shape, welded, slender))
