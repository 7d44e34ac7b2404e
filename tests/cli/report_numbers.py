"""Printed numbers of a report, and what they can stand for.

A printed number has been rounded: it stands for an interval. Formulas are recomputed on intervals, so that
a comparison allows what rounding explains and nothing beyond it.
"""

import re
from dataclasses import dataclass

# Of a single-precision force, and of sums and products in double precision.
FORCE_PRECISION = 2e-7

FIXED = re.compile(r" *-?\d+\.(\d+)")
EXPONENT = re.compile(r" *-?\d\.(\d+)e([+-]\d\d)")
WHOLE = re.compile(r" *-?\d+")


class Interval:
    """All numbers from `low` to `high`."""

    def __init__(self, low, high=None):
        self.low, self.high = float(low), float(low if high is None else high)

    def __repr__(self):
        return f"[{self.low:.7g}, {self.high:.7g}]"

    def _over_corners(self, other, operation):
        corners = [operation(a, b) for a in (self.low, self.high) for b in (other.low, other.high)]
        return Interval(min(corners), max(corners))

    def __add__(self, other):
        other = interval(other)
        return Interval(self.low + other.low, self.high + other.high)

    def __neg__(self):
        return Interval(-self.high, -self.low)

    def __sub__(self, other):
        return self + -interval(other)

    def __mul__(self, other):
        return self._over_corners(interval(other), lambda a, b: a * b)

    def __truediv__(self, other):
        other = interval(other)
        assert not other.low <= 0 <= other.high, f"{self} / {other}: the divisor may be 0"
        return self._over_corners(other, lambda a, b: a / b)

    __radd__ = __add__
    __rmul__ = __mul__

    def __rsub__(self, other):
        return interval(other) - self

    def __rtruediv__(self, other):
        return interval(other) / self

    def __abs__(self):
        low, high = sorted((abs(self.low), abs(self.high)))
        return Interval(0 if self.low <= 0 <= self.high else low, high)

    def meets(self, other):
        other = interval(other)
        return self.low <= other.high and other.low <= self.high


def interval(value):
    return value if isinstance(value, Interval) else Interval(value)


def larger(a, b):
    return Interval(max(a.low, b.low), max(a.high, b.high))


class Printed(Interval):
    """A printed number: its text, its value, and the interval that it stands for."""

    def __init__(self, text, half, scale=1.0):
        self.text, self.value = text, float(text) * scale
        super().__init__(self.value - half * scale, self.value + half * scale)

    def __repr__(self):
        return self.text.strip()


def value_of(text, scale=1.0):
    """A value of a block: three decimals in ten characters. Fixed from 0.001 to below 1,000,000 and for 0,
    with an exponent otherwise. @raise AssertionError when it is not printed so"""
    padded = len(text) == 10 or not text.startswith(" ")
    assert padded and len(text) >= 10, f"{text!r} is not right-aligned in ten characters"
    if FIXED.fullmatch(text):
        magnitude = abs(float(text))
        assert magnitude == 0 or 0.001 <= magnitude <= 1e6, f"{text!r} needs an exponent"
        return Printed(text, 0.0005, scale)
    exponent = EXPONENT.fullmatch(text)
    assert exponent, f"{text!r} is not a number of a report"
    magnitude = abs(float(text))
    assert magnitude <= 0.001 or magnitude >= 1e6, f"{text!r} needs no exponent"
    return Printed(text, 0.0005 * 10.0 ** int(exponent[2]), scale)


def property_of(text, scale=1.0):
    """A section property: five decimals and an exponent, without blanks. @raise AssertionError"""
    exponent = re.fullmatch(r"\d\.\d{5}e([+-]\d\d)", text)
    assert exponent, f"{text!r} is not a section property"
    return Printed(text, 0.000005 * 10.0 ** int(exponent[1]), scale)


def whole_of(text, scale=1.0):
    """A whole number in ten characters that was cut, not rounded; below 1 one digit and an exponent.
    @raise AssertionError"""
    if WHOLE.fullmatch(text):
        assert len(text) == 10, f"{text!r} is not right-aligned in ten characters"
        return Printed(text, 1, scale)
    exponent = re.fullmatch(r" {5}\de([+-]\d\d)", text)
    assert exponent, f"{text!r} is not a whole number"
    return Printed(text, 0.5 * 10.0 ** int(exponent[1]), scale)


@dataclass
class Recomputed:
    """A formula's value: the one that its printed quantities give, and the printed one."""

    what: str
    expected: Interval
    printed: Interval

    def agrees(self):
        return self.expected.meets(self.printed)

    def __str__(self):
        return f"{self.what}: printed {self.printed}, recomputed {self.expected}"
