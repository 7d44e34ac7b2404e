"""One straight element of a linear 3D frame: axes, stiffness, load between its ends, forces.

Units N and mm. Local axes: x from start to end, y parallel to the section's flanges, z up along the
web; docs/sign-convention.md has the picture. Twelve-entry vectors hold, for the start and then the
end, three forces and three moments acting ON the element, right-handed about x, y, z.

Beams have axial force, bending in two planes with shear flexibility (Timoshenko) and St-Venant
torsion; truss elements carry axial force only.
"""

import math
from dataclasses import dataclass, field

Vector = list[float]
Matrix = list[list[float]]

# A pivot this small against its own diagonal means that releases left nothing to hold the end.
RELEASE_TOLERANCE = 1e-9

# An axis that leaves the vertical by less than this part of its length is vertical.
VERTICAL = 1e-3


class FrameError(ValueError):
    """The frame or its loads cannot be analysed; the text says why, for the user."""


@dataclass(frozen=True)
class Bar:
    """An element between two places in the list of nodes."""

    number: int
    start: int
    end: int
    area: float
    it: float
    iyy: float
    izz: float
    e: float  # elastic modulus, N/mm²
    g: float  # shear modulus, N/mm²
    expansion: float  # 1/K
    mass: float  # kg/mm
    ay: float = 0.0  # area that a shear force along y deforms, mm²; 0: rigid in shear
    az: float = 0.0  # the same along z
    beta: float = 0.0  # degrees, right-handed about x
    reference: tuple[float, ...] | None = None  # global direction on whose side z lies
    truss: bool = False
    released: tuple[int, ...] = field(default=())  # places in the 12 end forces


@dataclass(frozen=True)
class SpanLoad:
    """Load between the ends: force per length along local x, y, z, and axial thermal strain."""

    q: tuple[float, float, float] = (0.0, 0.0, 0.0)
    strain: float = 0.0


def cross(a: Vector, b: Vector) -> Vector:
    return [a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]]


def length_between(start: Vector, end: Vector) -> float:
    return math.sqrt(sum((b - a) ** 2 for a, b in zip(start, end)))


def side_of_z(x: Vector, reference: tuple[float, ...] | None) -> Vector:
    """A direction whose part across the axis x is that of z before beta."""
    if reference is not None:
        return list(reference)
    if math.hypot(x[0], x[1]) >= VERTICAL:
        return [0.0, 0.0, 1.0]
    return cross(x, [0.0, 1.0, 0.0])  # vertical: y is global Y


def local_axes(start: Vector, end: Vector, bar: Bar) -> Matrix:
    """Unit vectors of x, y, z of an element between two points, as rows."""
    length = length_between(start, end)
    x = [(b - a) / length for a, b in zip(start, end)]
    y = cross(side_of_z(x, bar.reference), x)
    width = math.hypot(*y)
    if bar.reference is not None and width < VERTICAL * math.hypot(*bar.reference):
        raise FrameError(f"element {bar.number}: its orientation lies along its axis")
    y = [value / width for value in y]
    z = cross(x, y)
    c, s = math.cos(math.radians(bar.beta)), math.sin(math.radians(bar.beta))
    return [
        x,
        [c * b + s * d for b, d in zip(y, z)],
        [c * d - s * b for b, d in zip(y, z)],
    ]


def elastic_stiffness(bar: Bar, length: float) -> Matrix:
    """Stiffness in local axes without releases."""
    k = [[0.0] * 12 for _ in range(12)]
    add_spring(k, 0, bar.e * bar.area / length)
    if not bar.truss:
        add_spring(k, 3, bar.g * bar.it / length)
        ei_y, ei_z = bar.e * bar.iyy, bar.e * bar.izz
        add_bending(k, (1, 5, 7, 11), ei_z, length, shear_ratio(ei_z, bar.g * bar.ay, length), 1.0)
        add_bending(k, (2, 4, 8, 10), ei_y, length, shear_ratio(ei_y, bar.g * bar.az, length), -1.0)
    return k


def shear_ratio(ei: float, shear_stiffness: float, length: float) -> float:
    """Deflection by shear against that by bending, between clamped ends: 12·EI/(G·As·L²)."""
    return 12 * ei / (shear_stiffness * length**2) if shear_stiffness > 0.0 else 0.0


def add_spring(k: Matrix, place: int, stiffness: float) -> None:
    other = place + 6
    k[place][place] = k[other][other] = stiffness
    k[place][other] = k[other][place] = -stiffness


def add_bending(k: Matrix, places: tuple[int, ...], ei: float, length: float, phi: float,
                sign: float) -> None:
    """One bending plane with the shear ratio phi (Przemieniecki, Theory of Matrix Structural
    Analysis, ch. 5); `sign` is that of the slope dv/dx as a right-handed rotation."""
    soft = ei / (1 + phi)
    shear, mixed = 12 * soft / length**3, sign * 6 * soft / length**2
    near, far = (4 + phi) * soft / length, (2 - phi) * soft / length
    block = [
        [shear, mixed, -shear, mixed],
        [mixed, near, -mixed, far],
        [-shear, -mixed, shear, -mixed],
        [mixed, far, -mixed, near],
    ]
    for row, i in zip(block, places):
        for value, j in zip(row, places):
            k[i][j] = value


def fixed_end_forces(bar: Bar, length: float, load: SpanLoad) -> Vector:
    """End forces of the element with both ends fixed, under the load between them.

    Those of a uniform load do not depend on the shear flexibility: nothing turns its ends, and the
    load is symmetric.
    """
    thermal = bar.e * bar.area * load.strain
    forces = [thermal, 0.0, 0.0, 0.0, 0.0, 0.0, -thermal, 0.0, 0.0, 0.0, 0.0, 0.0]
    if bar.truss:
        return forces
    for axis, q in enumerate(load.q):
        forces[axis] -= q * length / 2
        forces[axis + 6] -= q * length / 2
    moment_y, moment_z = (load.q[2] * length**2 / 12, load.q[1] * length**2 / 12)
    forces[4], forces[10] = moment_y, -moment_y
    forces[5], forces[11] = -moment_z, moment_z
    return forces


def condense(bar: Bar, k: Matrix, vectors: list[Vector]) -> None:
    """Makes the released end forces vanish, in the stiffness and in all fixed-end forces.

    A release of what a truss element does not carry changes nothing.
    """
    diagonal = [k[i][i] for i in range(12)]
    for place in bar.released:
        if diagonal[place] == 0.0:
            continue
        if k[place][place] <= RELEASE_TOLERANCE * diagonal[place]:
            raise FrameError(f"element {bar.number}: its releases leave it without hold")
        row, share = k[place][:], [k[i][place] / k[place][place] for i in range(12)]
        for vector in vectors:
            force = vector[place]
            vector[:] = [value - part * force for value, part in zip(vector, share)]
        for i in range(12):
            k[i] = [value - share[i] * other for value, other in zip(k[i], row)]
            k[i][place] = 0.0
        k[place] = [0.0] * 12


def rotate(axes: Matrix, vector: Vector) -> Vector:
    """Global components of a 12-entry vector turned into local ones."""
    return [
        sum(a * v for a, v in zip(axes[i % 3], vector[i - i % 3 : i - i % 3 + 3]))
        for i in range(12)
    ]


def rotate_back(axes: Matrix, vector: Vector) -> Vector:
    """Local components of a 12-entry vector turned into global ones."""
    return rotate([list(column) for column in zip(*axes)], vector)


def global_stiffness(axes: Matrix, k: Matrix) -> Matrix:
    half = [rotate_back(axes, row) for row in k]
    return [list(row) for row in zip(*(rotate_back(axes, list(c)) for c in zip(*half)))]


def section_forces(bar: Bar, length: float, end_forces: Vector, load: SpanLoad) -> Matrix:
    """N, Fy, Fz, Mx, My, Mz at 0, 1/4, 1/2, 3/4 and 1 of the length.

    `end_forces` act on the element at its ends. The forces between follow from equilibrium with the
    load; a truss element's own load goes to its nodes, so it has one constant axial force.
    """
    n, fy, fz = -end_forces[0], end_forces[1], end_forces[2]
    mx, my, mz = -end_forces[3], end_forces[4], -end_forces[5]
    qx, qy, qz = (0.0, 0.0, 0.0) if bar.truss else load.q
    rows = []
    for x in (length * part / 4 for part in range(5)):
        rows.append([
            n - qx * x,
            fy + qy * x,
            fz + qz * x,
            mx,
            my + fz * x + qz * x**2 / 2,
            mz + fy * x + qy * x**2 / 2,
        ])
    return rows
