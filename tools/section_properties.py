"""Area and moments of inertia of the sections of a model file, by simple formulas.

Sections are taken as sharp-cornered rectangles: corner radii are neglected. y is parallel to the
flanges, z runs up the web; the product of inertia is neglected, so y and z are taken as principal
axes. Open sections twist by their rectangles with free ends (Roark) and the junctions of webs and flanges (El
Darwish and Johnston); boxes by Bredt's formula. Lengths are in the unit of the dimensions.
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


def rectangle(length: float, thickness: float, ends: int) -> float:
    """Torsion constant of a rectangle with some of its two short sides free, the others joined."""
    b, t = max(length, thickness), min(length, thickness)
    return b * t**3 * (1 / 3 - ends * 0.105 * t / b * (1 - t**4 / (12 * b**4)))


def junction(t: float, w: float) -> float:
    """What a web w thick adds where it meets the middle of a flange t thick, w not above t."""
    alpha = max(0.0, -0.042 + 0.2204 * w / t - 0.0725 * (w / t) ** 2)
    return alpha * ((t**2 + w**2 / 4) / t) ** 4


def web_in_the_middle(depth: float, tw: float, flanges: list[tuple[float, float]],
                      free_ends: int) -> float:
    """H and T: a thicker web runs through the flange, and leaves of the junction what equal plates have
    beyond two crossing rectangles."""
    web, total = depth - sum(t for _, t in flanges), 0.0
    for width, t in flanges:
        total += rectangle(width, t, 2)
        if tw > t:
            total += junction(t, t) - (1 / 3 - 0.105) * t**4
            web, free_ends = web + t, free_ends + 1
        else:
            total += junction(t, tw)
    return total + rectangle(web, tw, free_ends)


def web_at_the_edge(depth: float, tw: float, flanges: list[tuple[float, float]]) -> float:
    """C: in each corner the thicker plate is whole, the other one starts at its middle line."""
    web, free_ends, total = depth - sum(t for _, t in flanges), 0, 0.0
    for width, t in flanges:
        if tw > t:
            total += rectangle(width - tw / 2, t, 1)
            web, free_ends = web + t, free_ends + 1
        else:
            total += rectangle(width, t, 2)
            web += t / 2
    return total + rectangle(web, tw, free_ends)


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
    ], web_in_the_middle(d["H"], d["tw"], [(d["B1"], d["tf1"]), (b2, tf2)], 0))


def channel(d: dict[str, float]) -> Properties:
    tf2, b2 = d.get("tf2", d["tf1"]), d.get("B2", d["B1"])
    web, half = d["H"] - d["tf1"] - tf2, d["tw"] / 2
    return of_plates([
        Plate(d["B1"], d["tf1"], d["B1"] / 2, d["H"] - d["tf1"] / 2),
        Plate(d["tw"], web, half, tf2 + web / 2),
        Plate(b2, tf2, b2 / 2, tf2 / 2),
    ], web_at_the_edge(d["H"], d["tw"], [(d["B1"], d["tf1"]), (b2, tf2)]))


def tee(d: dict[str, float]) -> Properties:
    web = d["H"] - d["tf"]
    return of_plates([
        Plate(d["B"], d["tf"], 0, d["H"] - d["tf"] / 2),
        Plate(d["tw"], web, 0, web / 2),
    ], web_in_the_middle(d["H"], d["tw"], [(d["B"], d["tf"])], 1))


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
    return of_plates(plates, 2 * web_at_the_edge(d["H"], tw, [(d["B"], tf), (d["B"], tf)]))


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
