"""Arithmetic that behaves like C doubles where Python would raise.

Every function also takes the numbers of running_error.Tracked, so the formulas are written once.
"""

import math

from .running_error import Tracked

ZERO_TOLERANCE = 1e-10


def is_zero(x):
    """The zero test of every guard; nan is not zero."""
    return abs(x) < ZERO_TOLERANCE


def div(a, b):
    """a / b; a zero denominator gives inf, -inf or nan by the signs."""
    if b == 0.0:
        if a == 0.0 or math.isnan(a):
            return math.nan
        return math.copysign(1.0, a) * math.copysign(1.0, b) * math.inf
    return a / b


def sqrt(x):
    """Square root; a negative number gives nan."""
    if isinstance(x, Tracked):
        return x.sqrt()
    if x < 0.0:
        return math.nan
    return math.sqrt(x)


def maximum(a, b):
    """The larger one; a nan in the first place stays, one in the second is dropped."""
    return b if a < b else a


def minimum(a, b):
    """The smaller one; a nan in the first place stays, one in the second is dropped."""
    return b if b < a else a


def maximum_of(*values):
    """The largest of several, compared from the left."""
    result = values[0]
    for value in values[1:]:
        result = maximum(result, value)
    return result


def round_half_away(x):
    """Nearest whole number, halves away from zero; x is finite."""
    size = math.fabs(x)
    whole = math.floor(size)
    if isinstance(x, Tracked):
        x.note_if_close(size - whole - 0.5, "rounding of an index")
    if size - whole >= 0.5:
        whole += 1
    return -whole if x < 0.0 else whole
