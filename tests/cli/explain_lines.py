"""Reads the lines of an explanation and works them out, apart from the program.

A line has symbols, a formula, numbers and a result: "σ = k·|N| / A = 1·|-50000| / 2500 = 20 N/mm²". What may
stand in it: + - · / ² ³ ⁴ √() | | max() min() round(), the tables φ_weak() and φ_strong(), and π.
"""

import math
import re
from typing import NamedTuple

SYMBOL = r"[^\W\d²³⁴](?:(?![²³⁴])[\w\u0304])*'*"
TOKEN = re.compile(rf"\s*(?:(?P<number>\d+\.?\d*(?:e-?\d+)?|inf|nan)|(?P<symbol>{SYMBOL})|(?P<sign>[-+·/²³⁴√|(),]))")
POWERS = {"²": 2, "³": 3, "⁴": 4}


class Line(NamedTuple):
    symbol: str
    formula: str | None
    numbers: str | None
    result: str
    unit: str
    words: str


def column_coefficient(n, alpha, plateau):
    """φ of GB 50429-2007, appendix B, by the formula that its table is made from (E = 70000, f0.2 = 240)."""
    relative = n / math.pi * math.sqrt(240 / 70000)
    if relative <= plateau:
        return 1.0
    half = 1 + alpha * (relative - plateau) + relative**2
    return (half - math.sqrt(half**2 - 4 * relative**2)) / (2 * relative**2)


FUNCTIONS = {
    "max": max,
    "min": min,
    "round": lambda x: math.floor(x + 0.5),
    # The table has three decimals.
    "φ_weak": lambda n: round(column_coefficient(min(n, 150), 0.2, 0.15), 3),
    "φ_strong": lambda n: round(column_coefficient(min(n, 150), 0.35, 0.1), 3),
}


class Reader:
    """Works out a text by descending through its operators. Symbols are worth what `values` has."""

    def __init__(self, text, values=None):
        self.values = values or {}
        self.tokens, at = [], 0
        while at < len(text.rstrip()):
            found = TOKEN.match(text, at)
            assert found, f"cannot read {text[at:]!r} in {text!r}"
            self.tokens.append((found.lastgroup, found.group(found.lastgroup)))
            at = found.end()
        self.at = 0

    def value(self):
        result = self.sum()
        assert self.at == len(self.tokens), f"left over: {self.tokens[self.at:]}"
        return result

    def peek(self):
        return self.tokens[self.at][1] if self.at < len(self.tokens) else None

    def take(self, text=None):
        kind, found = self.tokens[self.at]
        assert text in (None, found), f"wanted {text!r}, found {found!r}"
        self.at += 1
        return kind, found

    def sum(self):
        result = self.product()
        while self.peek() in ("+", "-"):
            sign = self.take()[1]
            term = self.product()
            result = result + term if sign == "+" else result - term
        return result

    def product(self):
        """Nothing follows a quotient, so that nobody can read a / b·c in two ways."""
        result, is_quotient = self.power(), False
        while self.peek() in ("·", "/"):
            assert not is_quotient, "an operator behind a quotient"
            is_quotient = self.take()[1] == "/"
            factor = self.power()
            result = result / factor if is_quotient else result * factor
        return result

    def power(self):
        if self.peek() == "-":
            self.take()
            return -self.power()
        result = self.whole()
        while self.peek() in POWERS:
            result = result ** POWERS[self.take()[1]]
        return result

    def whole(self):
        kind, text = self.take()
        if kind == "number":
            return float(text)
        if kind == "symbol":
            return self.named(text)
        if text == "|":
            return abs(self.closed("|"))
        if text == "√":
            self.take("(")
            return math.sqrt(self.closed(")"))
        assert text == "(", f"found {text!r}"
        return self.closed(")")

    def closed(self, end):
        result = self.sum()
        self.take(end)
        return result

    def named(self, name):
        if name == "π":
            return math.pi
        if name not in FUNCTIONS:
            return self.values[name]
        self.take("(")
        arguments = [self.sum()]
        while self.peek() == ",":
            self.take()
            arguments.append(self.sum())
        self.take(")")
        return FUNCTIONS[name](*arguments)


def worked_out(text, values=None):
    return Reader(text, values).value()


def unit_of_last_digit(result):
    """Of six significant digits; the whole part of a number below 10 million is never cut."""
    if result == 0:
        return 1e-12
    digit = math.floor(math.log10(abs(result))) - 5
    return 10.0 ** (digit if abs(result) >= 1e7 else min(digit, 0))


def gives(numbers, result):
    """Whether the numbers give the result to the digits that it shows."""
    printed = float(result)
    found = worked_out(numbers)
    return abs(found - printed) <= 0.5000001 * unit_of_last_digit(printed)


def joined(text):
    """The lines, with an equals sign that stands in front of one put behind the line above."""
    lines = []
    for line in text.splitlines():
        if line.lstrip().startswith("= "):
            lines[-1] += " " + line.lstrip()
        else:
            lines.append(line)
    return lines


def lines_of(text):
    """The steps of an explanation printed as text."""
    steps = []
    for line in joined(text):
        found = re.match(rf" *({SYMBOL}) = (.*)", line)
        if not found:
            continue
        calculation, _, words = found[2].partition(": ")
        *sides, result = calculation.split(" = ")
        value, _, unit = result.partition(" ")
        formula = sides[0] if sides else None
        steps.append(Line(found[1], formula, sides[1] if len(sides) > 1 else None, value, unit, words))
    return steps
