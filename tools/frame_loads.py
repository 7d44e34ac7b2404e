"""Reads the loads of a load case of a model file (docs/model-file.md) for tools/frame_analysis.py.

Self-weight, loads on nodes, uniform loads on whole elements, and changes of temperature of whole
elements. Every other load is refused, so that none is left out in silence.
"""

from collections.abc import Iterable
from typing import TypeVar

from frame_elements import Bar, FrameError, SpanLoad, length_between, local_axes
from frame_solver import Frame, Loads
from model_units import Units

STANDARD_GRAVITY = 9.80665
COMPONENTS = ("Fx", "Fy", "Fz", "Mx", "My", "Mz")
NO_LOADS = {"number", "name", "kind"}
FIELDS = {
    "nodal": {"nodes", *COMPONENTS},
    "span": {"elements", "direction", "projected", "value"},
    "temperature": {"elements", "change"},
}

Found = TypeVar("Found")


def has_loads(case: dict) -> bool:
    return not case.keys() <= NO_LOADS


def find(table: dict[int, Found], number: int, what: str) -> Found:
    if number not in table:
        raise FrameError(f"{what} {number} does not exist")
    return table[number]


def refuse_unknown(case: dict) -> None:
    where = f"load case {case['number']}"
    for name in case.keys() - NO_LOADS - {"self_weight"}:
        if name not in FIELDS:
            raise FrameError(f"{where}: loads of the kind {name!r} cannot be analysed here")
        for load in case[name]:
            for field in load.keys() - FIELDS[name]:
                raise FrameError(f"{where}: {field!r} of {name} loads cannot be analysed here")


def along_local(frame: Frame, bar: Bar, load: dict, value: float) -> list[float]:
    """Components of a span load along the local axes of the element, per length of it."""
    direction = load["direction"]
    if direction in ("x", "y", "z"):
        return [value if axis == direction else 0.0 for axis in "xyz"]
    if direction not in ("X", "Y", "Z"):
        raise FrameError(f"direction {direction!r} is none of X, Y, Z, x, y, z")
    start, end = frame.points[bar.start], frame.points[bar.end]
    if load.get("projected", False):
        value *= seen_along(start, end, "XYZ".index(direction))
    return [value * axis["XYZ".index(direction)] for axis in local_axes(start, end, bar)]


def seen_along(start: list[float], end: list[float], axis: int) -> float:
    """Length seen along a global axis, as a part of the true one."""
    across = [0.0 if i == axis else b - a for i, (a, b) in enumerate(zip(start, end))]
    return length_between([0.0] * 3, across) / length_between(start, end)


class SpanSums:
    """Adds up what acts on each element."""

    def __init__(self, frame: Frame) -> None:
        self.frame = frame
        self.places = {bar.number: place for place, bar in enumerate(frame.bars)}
        self.q = [[0.0, 0.0, 0.0] for _ in frame.bars]
        self.strain = [0.0] * len(frame.bars)

    def named(self, load: dict) -> Iterable[int]:
        """Places of the elements that a load names."""
        if load["elements"] == "all":
            return range(len(self.frame.bars))
        return [find(self.places, number, "element") for number in load["elements"]]

    def add(self, place: int, load: dict, value: float) -> None:
        part = along_local(self.frame, self.frame.bars[place], load, value)
        self.q[place] = [a + b for a, b in zip(self.q[place], part)]

    def result(self) -> dict[int, SpanLoad]:
        return {i: SpanLoad(tuple(q), s) for i, (q, s) in enumerate(zip(self.q, self.strain))}


def weight_factors(case: dict) -> dict[str, float]:
    """Of the weight along X, Y and Z; a mere number acts downwards."""
    given = case.get("self_weight", 0.0)
    return given if isinstance(given, dict) else {"Z": -given}


def span_loads(case: dict, frame: Frame, units: Units) -> dict[int, SpanLoad]:
    sums = SpanSums(frame)
    for direction, factor in weight_factors(case).items():
        for place, bar in enumerate(frame.bars):
            sums.add(place, {"direction": direction}, factor * bar.mass * STANDARD_GRAVITY)
    for load in case.get("span", []):
        for place in sums.named(load):
            sums.add(place, load, load["value"] * units.force / units.length)
    for load in case.get("temperature", []):
        for place in sums.named(load):
            sums.strain[place] += frame.bars[place].expansion * load["change"]
    return sums.result()


def nodal_loads(case: dict, frame: Frame, units: Units) -> dict[int, list[float]]:
    places = {number: place for place, number in enumerate(frame.names)}
    loads: dict[int, list[float]] = {}
    for load in case.get("nodal", []):
        for number in frame.names if load["nodes"] == "all" else load["nodes"]:
            sums = loads.setdefault(find(places, number, "node"), [0.0] * 6)
            for i, name in enumerate(COMPONENTS):
                sums[i] += load.get(name, 0.0) * (units.force if i < 3 else units.moment)
    return loads


def loads_of(case: dict, frame: Frame, units: Units) -> Loads:
    """The loads of a load case in N and mm. Raises FrameError."""
    refuse_unknown(case)
    return Loads(nodal_loads(case, frame, units), span_loads(case, frame, units))
