"""Area and moments of inertia of the sections of a model file, by simple formulas.

Sections are taken as sharp-cornered rectangles: corner radii are neglected. y is parallel to the
flanges, z runs up the web; the product of inertia is neglected, so y and z are taken as principal
axes. Torsion is that of thin walls along their middle lines. Lengths are in the unit of the dimensions.
"""

import math
from dataclasses import dataclass


@dataclass(frozen=True)
class Properties:
    """What a frame analysis needs of a section."""

    area: float
    it: float  # St-Venant torsion constant
    iyy: float  # about y, the axis parallel to the flanges
    izz: float


@dataclass(frozen=True)
class Plate:
    """A rectangle of a section: size along y and z, and the coordinates of its centre."""

    width: float
    height: float
    y: float
    z: float

    @property
    def area(self) -> float:
        return self.width * self.height


def open_torsion(*walls: tuple[float, float]) -> float:
    """Σ l·t³/3 of thin walls, each the length of its middle line and its thickness."""
    return sum(length * thickness**3 / 3 for length, thickness in walls)


def of_plates(plates: list[Plate], it: float) -> Properties:
    """Sums rectangles about their common centroid."""
    area = sum(p.area for p in plates)
    y0 = sum(p.area * p.y for p in plates) / area
    z0 = sum(p.area * p.z for p in plates) / area
    iyy = sum(p.width * p.height**3 / 12 + p.area * (p.z - z0) ** 2 for p in plates)
    izz = sum(p.height * p.width**3 / 12 + p.area * (p.y - y0) ** 2 for p in plates)
    return Properties(area, it, iyy, izz)


def i_shape(d: dict[str, float]) -> Properties:
    tf2, b2 = d.get("tf2", d["tf1"]), d.get("B2", d["B1"])
    web = d["H"] - d["tf1"] - tf2
    return of_plates([
        Plate(d["B1"], d["tf1"], 0, d["H"] - d["tf1"] / 2),
        Plate(d["tw"], web, 0, tf2 + web / 2),
        Plate(b2, tf2, 0, tf2 / 2),
    ], open_torsion((d["B1"], d["tf1"]), (b2, tf2), (d["H"] - (d["tf1"] + tf2) / 2, d["tw"])))


def channel(d: dict[str, float]) -> Properties:
    tf2, b2 = d.get("tf2", d["tf1"]), d.get("B2", d["B1"])
    web, half = d["H"] - d["tf1"] - tf2, d["tw"] / 2
    return of_plates([
        Plate(d["B1"], d["tf1"], d["B1"] / 2, d["H"] - d["tf1"] / 2),
        Plate(d["tw"], web, half, tf2 + web / 2),
        Plate(b2, tf2, b2 / 2, tf2 / 2),
    ], open_torsion((d["B1"] - half, d["tf1"]), (b2 - half, tf2),
                    (d["H"] - (d["tf1"] + tf2) / 2, d["tw"])))


def tee(d: dict[str, float]) -> Properties:
    web = d["H"] - d["tf"]
    return of_plates([
        Plate(d["B"], d["tf"], 0, d["H"] - d["tf"] / 2),
        Plate(d["tw"], web, 0, web / 2),
    ], open_torsion((d["B"], d["tf"]), (d["H"] - d["tf"] / 2, d["tw"])))


def box(d: dict[str, float]) -> Properties:
    """Closed: Bredt's It = 4·A0² / Σ(s/t) over the centre lines."""
    tf1, tf2, tw = d["tf1"], d.get("tf2", d["tf1"]), d["tw"]
    c, web = d.get("C", d["B"] - tw), d["H"] - tf1 - tf2
    depth = d["H"] - (tf1 + tf2) / 2
    it = 4 * (c * depth) ** 2 / (2 * depth / tw + c / tf1 + c / tf2)
    return of_plates([
        Plate(d["B"], tf1, 0, d["H"] - tf1 / 2),
        Plate(tw, web, -c / 2, tf2 + web / 2),
        Plate(tw, web, c / 2, tf2 + web / 2),
        Plate(d["B"], tf2, 0, tf2 / 2),
    ], it)


def double_channel(d: dict[str, float]) -> Properties:
    """Two channels back to back, C apart."""
    tf, tw, gap, web = d["tf"], d["tw"], d.get("C", 0.0), d["H"] - 2 * d["tf"]
    plates = []
    for side in (-1, 1):
        flange_y, web_y = side * (gap + d["B"]) / 2, side * (gap + tw) / 2
        plates += [
            Plate(d["B"], tf, flange_y, d["H"] - tf / 2),
            Plate(tw, web, web_y, tf + web / 2),
            Plate(d["B"], tf, flange_y, tf / 2),
        ]
    flange = (d["B"] - tw / 2, tf)
    return of_plates(plates, 2 * open_torsion(flange, flange, (d["H"] - tf, tw)))


def round_shape(outer: float, inner: float) -> Properties:
    inertia = math.pi * (outer**4 - inner**4) / 64
    return Properties(math.pi * (outer**2 - inner**2) / 4, 2 * inertia, inertia, inertia)


SHAPES = {
    "C": channel,
    "H": i_shape,
    "T": tee,
    "B": box,
    "2C": double_channel,
    "P": lambda d: round_shape(d["D"], d["D"] - 2 * d["t"]),
    "SR": lambda d: round_shape(d["D"], 0.0),
}


def properties_of(section: dict) -> Properties:
    """Properties of a section of a model file; those that it gives itself override the formulas.

    Raises ValueError when the shape is unknown or a dimension or property is missing.
    """
    given = section.get("properties", {})
    shape = section["shape"]
    try:
        if shape == "UP":
            return Properties(given["area"], given.get("it", 0.0), given["iyy"], given["izz"])
        if shape not in SHAPES:
            raise ValueError(f"section {section['number']}: unknown shape {shape!r}")
        found = SHAPES[shape](section["dimensions"])
    except KeyError as missing:
        raise ValueError(f"section {section['number']}: {missing.args[0]} is missing") from None
    return Properties(*(given.get(name, getattr(found, name)) for name in found.__annotations__))
