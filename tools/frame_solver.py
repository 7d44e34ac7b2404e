"""Linear 3D frame analysis: assembles the equations, solves them, returns forces of the elements.

Units N, mm. Directions of a node: translations along global X, Y, Z, then rotations about them. A
direction that nothing holds or loads, such as the rotation of a node that only truss elements meet,
is left out; one that is loaded or moves freely is an error.
"""

import math
from dataclasses import dataclass, field

from frame_elements import (
    Bar,
    FrameError,
    Matrix,
    SpanLoad,
    Vector,
    condense,
    elastic_stiffness,
    fixed_end_forces,
    global_stiffness,
    length_between,
    local_axes,
    rotate,
    rotate_back,
    section_forces,
)

DIRECTIONS = ("Dx", "Dy", "Dz", "Rx", "Ry", "Rz")

# A pivot that elimination reduced by this factor is rounding noise: the frame is a mechanism.
MECHANISM_TOLERANCE = 1e-11


@dataclass
class Loads:
    """Loads of one case: by place of the node (six global components) and of the element."""

    nodal: dict[int, Vector] = field(default_factory=dict)
    span: dict[int, SpanLoad] = field(default_factory=dict)


@dataclass(frozen=True)
class Frame:
    names: list[int]  # numbers of the nodes, for messages
    points: list[Vector]
    fixed: set[tuple[int, int]]  # (place of node, direction) of the supports
    bars: list[Bar]


@dataclass(frozen=True)
class CaseResult:
    displacements: list[Vector]  # six global components a node
    forces: list[Matrix]  # five rows of six an element


@dataclass
class Element:
    """A bar with what is the same in all cases."""

    bar: Bar
    length: float
    axes: Matrix
    places: list[int]
    fixed_end: list[Vector]  # per case
    stiffness: Matrix


def analyse(frame: Frame, cases: list[Loads]) -> list[CaseResult]:
    """Element forces and node displacements of each case. Raises FrameError."""
    elements = [make_element(frame, place, cases) for place in range(len(frame.bars))]
    unknowns = number_unknowns(frame, elements)
    skyline = assemble(elements, unknowns)
    factorise(skyline, [describe(frame, place) for place in unknowns])
    return [solve_case(frame, elements, unknowns, skyline, i, c) for i, c in enumerate(cases)]


def make_element(frame: Frame, place: int, cases: list[Loads]) -> Element:
    bar = frame.bars[place]
    start, end = frame.points[bar.start], frame.points[bar.end]
    length = length_between(start, end)
    if length == 0.0:
        raise FrameError(f"element {bar.number}: its nodes lie at the same point")
    stiffness = elastic_stiffness(bar, length)
    spans = (case.span.get(place, SpanLoad()) for case in cases)
    fixed_end = [fixed_end_forces(bar, length, span) for span in spans]
    condense(bar, stiffness, fixed_end)
    places = [6 * node + i for node in (bar.start, bar.end) for i in range(6)]
    return Element(bar, length, local_axes(start, end, bar), places, fixed_end, stiffness)


def number_unknowns(frame: Frame, elements: list[Element]) -> dict[int, int]:
    """Equation number of every direction that is free and has stiffness."""
    stiff = [0.0] * (6 * len(frame.points))
    for element in elements:
        k = global_stiffness(element.axes, element.stiffness)
        for i, place in enumerate(element.places):
            stiff[place] += k[i][i]
    # Against the stiffest of its kind, so that the rounding of a rotation is no stiffness.
    least = [1e-14 * max(stiff[0::6] + stiff[1::6] + stiff[2::6]), 1e-14 * max(
        stiff[3::6] + stiff[4::6] + stiff[5::6])]
    fixed = {6 * node + direction for node, direction in frame.fixed}
    free = [p for p in range(len(stiff)) if p not in fixed and stiff[p] > least[p % 6 // 3]]
    return {place: equation for equation, place in enumerate(free)}


def assemble(elements: list[Element], unknowns: dict[int, int]) -> list[Vector]:
    """Lower half of the stiffness, each row from its first entry to the diagonal."""
    first = list(range(len(unknowns)))
    rows = [[unknowns.get(place, -1) for place in e.places] for e in elements]
    for used in rows:
        lowest = min((u for u in used if u >= 0), default=0)
        for u in used:
            if u >= 0:
                first[u] = min(first[u], lowest)
    skyline = [[0.0] * (row - start + 1) for row, start in enumerate(first)]
    for element, used in zip(elements, rows):
        k = global_stiffness(element.axes, element.stiffness)
        for i, row in enumerate(used):
            for j, column in enumerate(used):
                if 0 <= column <= row:
                    skyline[row][column - first[row]] += k[i][j]
    return skyline


def factorise(skyline: list[Vector], names: list[str]) -> None:
    """Cholesky factor of a skyline matrix, in its place. `names` say which row is which."""
    for i, row in enumerate(skyline):
        first = i - len(row) + 1
        diagonal = row[-1]
        for j in range(first, i):
            other = skyline[j]
            from_j = j - len(other) + 1
            start = max(first, from_j)
            pairs = zip(row[start - first : j - first], other[start - from_j :])
            row[j - first] = (row[j - first] - sum(a * b for a, b in pairs)) / other[-1]
        pivot = diagonal - sum(a * a for a in row[:-1])
        if pivot <= MECHANISM_TOLERANCE * diagonal:
            raise FrameError(f"the frame is a mechanism: {names[i]} is free to move")
        row[-1] = math.sqrt(pivot)


def describe(frame: Frame, place: int) -> str:
    return f"node {frame.names[place // 6]} in direction {DIRECTIONS[place % 6]}"


def substitute(skyline: list[Vector], right: Vector) -> Vector:
    """Solves L·Lᵀ·x = right."""
    x = right[:]
    for i, row in enumerate(skyline):
        first = i - len(row) + 1
        x[i] = (x[i] - sum(a * b for a, b in zip(row, x[first:i]))) / row[-1]
    for i in range(len(x) - 1, -1, -1):
        row = skyline[i]
        first = i - len(row) + 1
        x[i] /= row[-1]
        for j in range(first, i):
            x[j] -= row[j - first] * x[i]
    return x


def load_vector(frame: Frame, elements: list[Element], index: int, case: Loads) -> Vector:
    loads = [0.0] * (6 * len(frame.points))
    for node, components in case.nodal.items():
        for direction, value in enumerate(components):
            loads[6 * node + direction] += value
    for place, element in enumerate(elements):
        forces = element.fixed_end[index]
        if element.bar.truss:
            forces = [f - q for f, q in zip(forces, lumped(element, case.span.get(place)))]
        for target, force in zip(element.places, rotate_back(element.axes, forces)):
            loads[target] -= force
    return loads


def lumped(element: Element, load: SpanLoad | None) -> Vector:
    """A truss element's span load as forces on its nodes, in local axes."""
    half = [q * element.length / 2 for q in load.q] if load else [0.0] * 3
    return [*half, 0.0, 0.0, 0.0, *half, 0.0, 0.0, 0.0]


def solve_case(frame: Frame, elements: list[Element], unknowns: dict[int, int],
               skyline: list[Vector], index: int, case: Loads) -> CaseResult:
    loads = load_vector(frame, elements, index, case)
    check_left_out(frame, unknowns, loads)
    solution = substitute(skyline, [loads[place] for place in unknowns])
    moved = [0.0] * len(loads)
    for place, equation in unknowns.items():
        moved[place] = solution[equation]
    forces = []
    for place, e in enumerate(elements):
        u = rotate(e.axes, [moved[p] for p in e.places])
        end_forces = [sum(a * b for a, b in zip(row, u)) + f
                      for row, f in zip(e.stiffness, e.fixed_end[index])]
        span = case.span.get(place, SpanLoad())
        forces.append(section_forces(e.bar, e.length, end_forces, span))
    return CaseResult([moved[i : i + 6] for i in range(0, len(moved), 6)], forces)


def check_left_out(frame: Frame, unknowns: dict[int, int], loads: Vector) -> None:
    """A load where there is neither stiffness nor support has nowhere to go."""
    fixed = {6 * node + direction for node, direction in frame.fixed}
    largest = max(map(abs, loads), default=0.0)
    for place, load in enumerate(loads):
        if place not in unknowns and place not in fixed and abs(load) > 1e-12 * largest:
            raise FrameError(f"{describe(frame, place)} is loaded, but nothing holds it there")
