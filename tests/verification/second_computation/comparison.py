"""Comparison of a program's output row with the second computation.

A value agrees within RELATIVE of itself, a zero only with a zero, a non-finite value only with the
same one. Where terms cancel, 1e-12 of what is left can be less than the rounding of the terms; such
a value is computed again with running_error.Tracked and may differ by the rounding of its terms
(ROUNDINGS times, for two programs that order their operations differently), which is stricter than
RELATIVE of the largest term.
"""

import math

from .engine import evaluate
from .running_error import EPSILON, Tracked, close_decisions

RELATIVE = 1e-12
ROUNDINGS = 4.0

SECTION_NAMES = ("A", "W1", "W2", "Wz", "R1", "R2", "Rw")
ITEM_NAMES = ("strength", "shear y", "shear z", "stability", "combined stability", "unused",
              "slenderness y", "slenderness z")


def number(value):
    """A number of the output; non-finite ones are text there."""
    return float(value)


def values_of(row):
    """(name, value) of everything compared besides ret."""
    for name, (demand, capacity) in zip(ITEM_NAMES, row["items"]):
        yield name + " demand", demand
        yield name + " capacity", capacity
    for name, value in zip(SECTION_NAMES, row["sectpara"]):
        yield "section " + name, value
    for slot, value in enumerate(row["report"]):
        yield f"report {slot}", value


def same_kind(a, b):
    """True when both are finite, or the same non-finite value."""
    if math.isnan(a) or math.isnan(b):
        return math.isnan(a) and math.isnan(b)
    if math.isinf(a) or math.isinf(b):
        return a == b
    return True


def relative_difference(a, b):
    """|a - b| over the larger one; 0 for equal and for equally non-finite values."""
    if not same_kind(a, b):
        return math.inf
    if a == b or not math.isfinite(a):
        return 0.0
    larger = max(abs(a), abs(b))
    return abs(a / larger - b / larger)


class Outcome:
    """What the comparison of one point found."""

    def __init__(self):
        self.disagreements = []  # (name, program's value, own value)
        self.largest = {}        # name -> relative difference of agreeing values
        self.compared = 0
        self.by_rounding = 0     # values that agree only within the rounding of their terms
        self.close = []          # decisions that rounding alone could turn


def compare(point, own, row):
    """Outcome of one point; `own` is the result of evaluate, `row` the program's output row."""
    outcome = Outcome()
    if row.get("ret") != own["ret"]:
        outcome.disagreements.append(("ret", row.get("ret"), own["ret"]))
    tracked = None
    ours = dict(values_of(own))
    theirs = {name: number(value) for name, value in values_of(row)}
    if theirs.keys() != ours.keys():
        outcome.disagreements.append(("values in the row", len(theirs), len(ours)))
        return outcome
    for name, value in ours.items():
        outcome.compared += 1
        difference = relative_difference(theirs[name], value)
        if difference <= RELATIVE:
            outcome.largest[name] = difference
            continue
        if tracked is None:
            close_decisions.clear()
            tracked = dict(values_of(evaluate(point, Tracked)))
            outcome.close = list(close_decisions)
        noise = getattr(tracked[name], "noise", 0.0)
        if abs(theirs[name] - value) <= ROUNDINGS * EPSILON * noise < math.inf:
            outcome.by_rounding += 1
        else:
            outcome.disagreements.append((name, theirs[name], value))
    return outcome
