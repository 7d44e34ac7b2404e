"""Beams whose ratio passes where a careful engineer's would not, each with its numbers by hand."""

import math

import pytest

# The box 140x60x5 of 6063-T5, mm: f = 90, and no plate is slender: web 26 of 27.5.
BOX_I = (60 * 140**3 - 50 * 130**3) / 12
BOX_W = BOX_I / 70
BOX_WZ = (140 * 60**3 - 130 * 50**3) / 12 / 30
# The pipe 100x10 of 6061-T6: f = 200.
PIPE_W = math.pi / 64 * (100**4 - 80**4) / 50

SIMPLE = [{"node": 1, "restrained": ["Dx", "Dy", "Dz", "Rx"]}, {"node": 2, "restrained": ["Dy", "Dz"]}]


def beam(section, span, alloy="6061-T6", **element):
    """A beam of two supports along X, without loads or forces."""
    return {
        "format": "aluframe-model", "version": 1, "title": "Beam",
        "units": {"force": "kN", "length": "m"},
        "materials": [{"number": 1, "alloy": alloy}], "sections": [{"number": 1, "profile": section}],
        "nodes": [{"number": 1, "x": 0, "y": 0, "z": 3}, {"number": 2, "x": span, "y": 0, "z": 3}],
        "supports": SIMPLE,
        "elements": [{"number": 1, "nodes": [1, 2], "section": 1, "material": 1, **element}],
        "load_cases": [{"number": 1, "name": "L"}],
        "combinations": [{"number": 1, "name": "ULS", "terms": [{"case": 1}]}],
    }


def with_forces(model, *rows):
    """The same forces N, Fy, Fz, Mx, My, Mz at all five positions, or five rows."""
    model["forces"] = [{"element": 1, "case": 1, "values": list(rows) if len(rows) > 1 else list(rows) * 5}]
    return model


def transom(beta):
    """3 m under wind along -Y and its own weight and glass along -Z: 0.662 and 0.421 of f in the middle."""
    model = beam("B 140x60x5x5", 3, "6063-T5", beta=beta)
    wind = 0.662 * 90 * BOX_W * 8 / 3000**2  # N/mm = kN/m
    weight = 0.421 * 90 * BOX_WZ * 8 / 3000**2
    model["load_cases"] = [
        {"number": 1, "name": "WL", "span": [{"elements": [1], "direction": "Y", "value": -wind}]},
        {"number": 2, "name": "DL", "span": [{"elements": [1], "direction": "Z", "value": -weight}]}]
    model["combinations"] = [{"number": 3, "name": "ULS", "terms": [{"case": 1}, {"case": 2}]}]
    return model


def h200(axial, moment=30):
    """H 200x100x8x10 of 4 m, pinned, under a constant moment (kNm) and an axial force (kN)."""
    model = with_forces(beam("H 200x100x8x10", 4), [axial, 0, 0, 0, moment, 0])
    # The torsion constant of thin walls, which the documents' example has.
    model["sections"][0]["properties"] = {"it": (2 * 100 * 10**3 + 180 * 8**3) / 3}
    return model


def point_load(at):
    """The pipe of 4 m under a load that gives 1.128 of f where it acts: M = P·a·b/L."""
    model = beam("P 100x10", 4)
    force = 1.128 * 200 * PIPE_W / (at * (1 - at) * 4000) / 1000
    model["load_cases"][0]["points"] = [{"elements": [1], "direction": "Z", "at": at, "force": -force}]
    return model


def twisted(torque, moment=8):
    """The pipe under a constant moment and torque, kNm."""
    return with_forces(beam("P 100x10", 4), [0, 0, 0, torque, moment, 0])


def torques(first):
    """H 200 of 4 m under 1 kN/m and torques of ±2 kNm at `first` and at 0.45 of its span."""
    model = beam("H 200x100x8x10", 4)
    model["sections"][0]["properties"] = {"it": (2 * 100 * 10**3 + 180 * 8**3) / 3}
    model["load_cases"][0] |= {
        "span": [{"elements": [1], "direction": "Z", "value": -1}],
        "points": [{"elements": [1], "direction": "x", "at": first, "moment": 2},
                   {"elements": [1], "direction": "x", "at": 0.45, "moment": -2}]}
    return model


@pytest.fixture
def hidden(aluframe):
    """A beam under a moment that hogs: 0.68 in the checks, 2.40 by the second opinion."""
    aluframe.write(h200(0, -30))
    return aluframe
