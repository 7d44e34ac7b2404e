"""Equivalent moment factors beta_my and beta_mz."""

from .effective_section import PI
from .ieee import div, is_zero


def end_ratio(case, axis):
    """M2 / M1 with M1 the larger end moment; 1 when both are zero."""
    first, second = case.end_moments[axis]
    if abs(first) > abs(second):
        case.hit(f"beta_m.{axis}.larger_end.first")
        larger, smaller = first, second
    else:
        case.hit(f"beta_m.{axis}.larger_end.second")
        larger, smaller = second, first
    if is_zero(larger):
        case.hit(f"beta_m.{axis}.no_end_moment")
        return 1.0
    return div(smaller, larger)


def euler_load(case, inertia, k):
    buckling_length = k * case.length
    return div(PI * PI * case.E * inertia, buckling_length * buckling_length)


def computed(case, axis, loading, N_E):
    """beta_m by loading type."""
    N = abs(case.N)
    if loading == 0:
        case.hit(f"beta_m.{axis}.loading.0")
        return 0.6 + 0.4 * end_ratio(case, axis)
    if loading == 1:
        case.hit(f"beta_m.{axis}.loading.1")
        return 1.0 - div(0.36 * N, N_E)
    if loading == 2:
        case.hit(f"beta_m.{axis}.loading.2")
        return 1.0 - div(0.18 * N, N_E)
    if loading == 3:
        case.hit(f"beta_m.{axis}.loading.3")
        return 1.0 - div(0.36 * (1.0 - end_ratio(case, axis)) * N, N_E)
    case.hit(f"beta_m.{axis}.loading.other")
    return 0.0


def _axis_factor(case, axis, index, N_E):
    if case.moment_auto[index] != 1:
        case.hit(f"beta_m.{axis}.user")
        return case.moment_user[index]
    if case.moment_mode != 0:
        case.hit(f"beta_m.{axis}.own_attribute")
        return computed(case, axis, case.moment_loading[index], N_E)
    if case.sway[index] != 0:
        case.hit(f"beta_m.{axis}.sway")
        return 1.0
    case.hit(f"beta_m.{axis}.computed")
    return computed(case, axis, case.moment_loading[index], N_E)


def equivalent_moment_factors(case):
    """(beta_my, beta_mz)."""
    return (_axis_factor(case, "y", 0, euler_load(case, case.Iyy, case.ky)),
            _axis_factor(case, "z", 1, euler_load(case, case.Izz, case.kz)))
