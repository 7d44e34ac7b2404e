"""Geometry of frames of any size for load tests: a reticulated dome and a braced building grid.

Both are generators of rods in an order that can be cut off anywhere: a dome grows ring by ring from
its crown, a building storey by storey from the ground, so the first N rods hang together.
"""

import math
from collections.abc import Callable, Iterator
from dataclasses import dataclass

RING_SPACING = 2.5  # of the dome along its arc, m
RISE_ANGLE = math.radians(50)  # from the crown to the edge of the dome
SECTORS = 6
BAY = 4.5  # of the building grid, m
STOREY = 3.6

Point = tuple[float, float, float]


@dataclass(frozen=True)
class Rod:
    role: str  # "column", "beam", "brace", "ring" or "rib"; decides section and kind
    ends: tuple[Point, Point]


def dome(count: int) -> Iterator[Rod]:
    """A Kiewitt dome with enough rings for `count` rods (n rings have 9·n² + 3·n)."""
    rings = 1
    while 9 * rings**2 + 3 * rings < count:
        rings += 1
    radius = rings * RING_SPACING / RISE_ANGLE

    def point(ring: int, place: int) -> Point:
        polar = RISE_ANGLE * ring / rings
        around = 2 * math.pi * place / max(SECTORS * ring, 1)
        flat = radius * math.sin(polar)
        height = radius * (math.cos(polar) - math.cos(RISE_ANGLE))
        return flat * math.cos(around), flat * math.sin(around), height

    for ring in range(1, rings + 1):
        yield from ribs(ring, point)
        around = SECTORS * ring
        for place in range(around):
            yield Rod("ring", (point(ring, place), point(ring, (place + 1) % around)))


def ribs(ring: int, point: Callable[[int, int], Point]) -> Iterator[Rod]:
    """From a ring to the next one inside: one rod at the corners of the sectors, two elsewhere."""
    for sector in range(SECTORS):
        for step in range(ring):
            outer = point(ring, sector * ring + step)
            for inner in (step - 1, step) if step else (0,):
                place = (sector * (ring - 1) + inner) % max(SECTORS * (ring - 1), 1)
                yield Rod("rib", (point(ring - 1, place), outer))


def grid(count: int) -> Iterator[Rod]:
    """A building on a square grid of columns, braced in its outer bays; as high as needed."""
    bays = max(1, math.ceil((count / 3) ** (1 / 3)))
    level = 0
    while True:
        yield from storey(bays, level)
        level += 1


def storey(bays: int, level: int) -> Iterator[Rod]:
    def point(i: int, j: int, up: int) -> Point:
        return i * BAY, j * BAY, (level + up) * STOREY

    lines = range(bays + 1)
    for i in lines:
        for j in lines:
            yield Rod("column", (point(i, j, 0), point(i, j, 1)))
    for i in range(bays):
        for j in lines:
            yield Rod("beam", (point(i, j, 1), point(i + 1, j, 1)))
            yield Rod("beam", (point(j, i, 1), point(j, i + 1, 1)))
    for i in range(bays):
        for side in (0, bays):
            yield Rod("brace", (point(i, side, 0), point(i + 1, side, 1)))
            yield Rod("brace", (point(side, i, 0), point(side, i + 1, 1)))


KINDS = {"dome": dome, "grid": grid}
