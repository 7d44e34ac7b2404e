"""Doubles that carry a running bound of their rounding error.

A result that comes from a strong cancellation cannot be compared at a fixed relative tolerance:
two correct programs that add in another order differ there. A Tracked number knows how large the
rounding of all its terms can be (in units of EPSILON, to first order), and notes comparisons that
fall within that bound, because there the two programs may take different branches.
"""

import math

EPSILON = 2.0 ** -53

#: decisions of the running evaluation that rounding alone could turn
close_decisions = []


def _noise(x):
    return x.noise if isinstance(x, Tracked) else 0.0


class Tracked(float):
    """A double with `noise`: the bound of its rounding error, in units of EPSILON."""

    __slots__ = ("noise",)

    def __new__(cls, value, noise=0.0):
        self = super().__new__(cls, value)
        self.noise = noise
        return self

    def __neg__(self):
        return Tracked(-float(self), self.noise)

    def __abs__(self):
        return Tracked(abs(float(self)), self.noise)

    def __add__(self, other):
        result = float(self) + float(other)
        return Tracked(result, self.noise + _noise(other) + abs(result))

    __radd__ = __add__

    def __sub__(self, other):
        result = float(self) - float(other)
        return Tracked(result, self.noise + _noise(other) + abs(result))

    def __rsub__(self, other):
        return -(self - other)

    def __mul__(self, other):
        result = float(self) * float(other)
        spread = abs(float(self)) * _noise(other) + abs(float(other)) * self.noise
        second = self.noise * _noise(other) * EPSILON
        return Tracked(result, spread + second + abs(result))

    __rmul__ = __mul__

    def __truediv__(self, other):
        return _divide(float(self), self.noise, float(other), _noise(other))

    def __rtruediv__(self, other):
        return _divide(float(other), 0.0, float(self), self.noise)

    def sqrt(self):
        value = float(self)
        error = self.noise * EPSILON
        if value < 0.0:
            self.note_if_close(value, "sign under a root")
            return Tracked(math.nan, math.nan)
        root = math.sqrt(value)
        if value > error:
            spread = self.noise / (root + math.sqrt(value - error))
        else:
            spread = math.sqrt(error) / EPSILON
        return Tracked(root, spread + root)

    def note_if_close(self, margin, what):
        """Notes a decision whose margin is within the rounding of this number."""
        if abs(margin) <= 4.0 * EPSILON * self.noise:
            close_decisions.append(f"{what}: margin {float(margin):.3g}")

    def _compare(self, other):
        noise = self.noise + _noise(other)
        margin = float(self) - float(other)
        if margin != 0.0 and abs(margin) <= 4.0 * EPSILON * noise:
            close_decisions.append(f"comparison: {float(self)!r} with {float(other)!r}")

    def __lt__(self, other):
        self._compare(other)
        return float(self) < float(other)

    def __gt__(self, other):
        self._compare(other)
        return float(self) > float(other)

    def __le__(self, other):
        self._compare(other)
        return float(self) <= float(other)

    def __ge__(self, other):
        self._compare(other)
        return float(self) >= float(other)

    __eq__ = float.__eq__
    __hash__ = float.__hash__


def _divide(a, a_noise, b, b_noise):
    result = a / b
    certain = abs(b) - b_noise * EPSILON
    if certain <= 0.0:
        return Tracked(result, math.inf)
    return Tracked(result, (a_noise + abs(result) * b_noise) / certain + abs(result))
