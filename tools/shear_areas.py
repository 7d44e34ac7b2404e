"""Areas that shear deforms, of the sections of a model file: V/(G·A) is the shear strain of the axis.

The usual approximations: along z the web between the middle lines of the flanges, along y 5/6 of the
flanges; half of a pipe, 9/10 of a solid round (Cowper, J. Appl. Mech. 33 (1966)). A section given by
its properties alone is rigid in shear, which is written as 0.
"""

import math

RECTANGLE = 5 / 6
SOLID_ROUND = 0.9
PIPE = 0.5

Dimensions = dict[str, float]


def i_or_channel(d: Dimensions) -> tuple[float, float]:
    tf2, b2 = d.get("tf2", d["tf1"]), d.get("B2", d["B1"])
    return (RECTANGLE * (d["B1"] * d["tf1"] + b2 * tf2),
            d["tw"] * (d["H"] - d["tf1"] / 2 - tf2 / 2))


def tee(d: Dimensions) -> tuple[float, float]:
    return RECTANGLE * d["B"] * d["tf"], RECTANGLE * d["H"] * d["tw"]


def box(d: Dimensions) -> tuple[float, float]:
    tf2, between_webs = d.get("tf2", d["tf1"]), d.get("C", d["B"] - d["tw"])
    return (between_webs * (d["tf1"] + tf2), 2 * d["tw"] * (d["H"] - d["tf1"] / 2 - tf2 / 2))


def double_channel(d: Dimensions) -> tuple[float, float]:
    return RECTANGLE * 4 * d["B"] * d["tf"], 2 * d["tw"] * (d["H"] - d["tf"])


def pipe(d: Dimensions) -> tuple[float, float]:
    half = PIPE * math.pi * d["t"] * (d["D"] - d["t"])
    return half, half


def solid_round(d: Dimensions) -> tuple[float, float]:
    part = SOLID_ROUND * math.pi * d["D"] ** 2 / 4
    return part, part


SHAPES = {"C": i_or_channel, "H": i_or_channel, "T": tee, "B": box, "2C": double_channel,
          "P": pipe, "SR": solid_round}


def shear_areas_of(section: dict) -> tuple[float, float]:
    """For shear forces along y and z, in the unit of the dimensions squared; (0, 0): rigid."""
    shape = SHAPES.get(section["shape"])
    return shape(section["dimensions"]) if shape else (0.0, 0.0)
