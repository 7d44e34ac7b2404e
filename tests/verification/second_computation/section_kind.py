"""Whether the two fibres of a section differ."""

from .ieee import is_zero


def unsymmetric(case):
    """True for C and T, and for an H whose flanges differ in width or thickness."""
    if case.shape in ("C", "T"):
        case.hit(f"section.unsymmetric.{case.shape}")
        return True
    if case.shape != "H":
        case.hit("section.symmetric.other_shape")
        return False
    if not is_zero(case.tf1 - case.tf2):
        case.hit("section.unsymmetric.H.thickness")
        return True
    if not is_zero(case.B1 - case.B2):
        case.hit("section.unsymmetric.H.width")
        return True
    case.hit("section.symmetric.H")
    return False
