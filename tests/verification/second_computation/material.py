"""Design strengths, hardening class and heat-affected-zone factor (GB 50429-2007), MPa."""

from .ieee import sqrt

CODE_NAME = "GB50429-07(A)"

#: grade, rows of (thickness range, f, fv); a thin row is for t <= 10
STRENGTHS = (
    ("6061-T4", (("any", 90.0, 55.0),)),
    ("6061-T6", (("any", 200.0, 115.0),)),
    ("6063-T5", (("any", 90.0, 55.0),)),
    ("6063-T6", (("any", 150.0, 85.0),)),
    ("6063A-T5", (("thin", 135.0, 75.0), ("thick", 125.0, 70.0))),
    ("6063A-T6", (("thin", 160.0, 90.0), ("thick", 150.0, 85.0))),
    ("5083-O/F", (("any", 90.0, 55.0),)),
    ("5083-H112", (("any", 90.0, 55.0),)),
    ("3003-H24", (("any", 100.0, 60.0),)),
    ("3004-H34", (("any", 145.0, 85.0),)),
    ("3004-H36", (("any", 160.0, 95.0),)),
)

WEAKLY_HARDENING = ("6061-T6", "6063-T6", "6063A-T6")

HAZ_FACTORS = {
    0.5: ("6061-T6", "6063-T5", "6063-T6", "6063A-T5", "6063A-T6"),
    0.8: ("5083-H112",),
    0.2: ("3003-H24", "3004-H34", "3004-H36"),
}


def governing_thickness(case):
    """The thickness that the strength table is read with."""
    if case.shape == "unknown":
        case.hit("material.thickness.unknown_shape")
        return 0.0
    if case.shape == "SR":
        case.hit("material.thickness.diameter")
        return case.H
    case.hit("material.thickness.second_dimension")
    return case.tw


def _fallback(case):
    f = case.fy_thin / 1.2
    return f, f / sqrt(3.0)


def design_strength(case):
    """(f, fv)."""
    if case.standard != CODE_NAME:
        case.hit("material.strength.other_standard")
        return _fallback(case)
    thickness = governing_thickness(case)
    for grade, rows in STRENGTHS:
        if case.grade != grade:
            continue
        for kind, f, fv in rows:
            fits = kind == "any" or (thickness <= 10.0) == (kind == "thin")
            if fits:
                case.hit(f"material.strength.{grade}.{kind}")
                return f, fv
    case.hit("material.strength.unknown_grade")
    return _fallback(case)


def weakly_hardening(case):
    return case.grade in WEAKLY_HARDENING


def hardening_name(case):
    return "weak" if weakly_hardening(case) else "strong"


def haz_factor(case):
    """The thickness factor of the strips that a weld heats."""
    if case.standard != CODE_NAME:
        case.hit("material.haz.other_standard")
        return 1.0
    for factor, grades in HAZ_FACTORS.items():
        if case.grade in grades:
            case.hit(f"material.haz.{factor}")
            return factor
    case.hit("material.haz.1.0")
    return 1.0


def proof_strength(case):
    """f0.2 of local buckling and fy of stability: chosen by the second dimension of any shape."""
    if case.tw > 10.0:
        case.hit("material.proof.thick")
        return case.fy_thick
    case.hit("material.proof.thin")
    return case.fy_thin
