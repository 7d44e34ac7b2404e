"""Force states of a check position and the factor of the design forces."""

from .ieee import ZERO_TOLERANCE, is_zero


def tension(case):
    return case.N > ZERO_TOLERANCE


def compression(case):
    return case.N < -ZERO_TOLERANCE


def bending(case):
    return not is_zero(case.My) or not is_zero(case.Mz)


def axial_compression_only(case):
    return compression(case) and not bending(case)


def state(case):
    """The force state by which the groups choose their check."""
    if tension(case):
        return "tension_bending" if bending(case) else "tension"
    if compression(case):
        return "compression_bending" if bending(case) else "compression"
    return "bending" if bending(case) else "none"


def _force_factor(case, seismic_factor, kind):
    if case.seismic_combination == 0:
        case.hit(f"force_factor.{kind}.not_seismic")
        return case.gamma0
    if case.seismic_switch == 0:
        case.hit(f"force_factor.{kind}.switch_off")
        return case.gamma0
    case.hit(f"force_factor.{kind}.seismic")
    return seismic_factor


def strength_factor(case):
    return _force_factor(case, case.gamma_re_strength, "strength")


def stability_factor(case):
    return _force_factor(case, case.gamma_re_stability, "stability")
