"""The engine entry: section parameters, then the check groups in their fixed order."""

from .checks import shear_y, shear_z, slenderness_items, strength
from .record import Case
from .section import section_parameters
from .stability import combined_stability, stability

STRENGTH, SHEAR_Y, SHEAR_Z, STABILITY, COMBINED, SLENDER_Y, SLENDER_Z = 0, 1, 2, 3, 4, 6, 7

GROUPS = (
    (STRENGTH, "strength", strength),
    (SHEAR_Y, "shear_y", shear_y),
    (SHEAR_Z, "shear_z", shear_z),
    (STABILITY, "stability", stability),
    (COMBINED, "combined_stability", combined_stability),
)


def _slenderness_group(case, items):
    about_y, about_z = case.check_flag[SLENDER_Y] != 0, case.check_flag[SLENDER_Z] != 0
    which = ("both" if about_y and about_z else "y" if about_y else "z" if about_z else "neither")
    case.hit(f"switch.slenderness.{which}")
    if which == "neither":
        return
    values = slenderness_items(case)
    if values is None:
        return
    if about_y:
        items[SLENDER_Y] = values[0]
    if about_z:
        items[SLENDER_Z] = values[1]


def run(case):
    """Evaluates a case; returns the same keys as the program's output row."""
    items = [(0.0, 0.0)] * 8
    formed = section_parameters(case)
    if formed:
        for rank, name, group in GROUPS:
            on = case.check_flag[rank] != 0
            case.hit(f"switch.{name}.{'on' if on else 'off'}")
            if on:
                items[rank] = group(case)
        _slenderness_group(case, items)
    return {
        "ret": formed,
        "items": [list(item) for item in items],
        "sectpara": [case.Ae, case.W1, case.W2, case.Wz, case.R1, case.R2, case.Rw],
        "report": case.report,
    }


def evaluate(point, number=float):
    """Result of one check point, as plain doubles or as another number type."""
    return run(Case(point, number))


def evaluate_with_trail(point, number=float):
    """(result, branch trail)."""
    case = Case(point, number)
    return run(case), case.trail
