"""A loaded beam for the tests of aluframe analyse, and other structures to put in its place."""

import copy

import pytest

SPAN = 4.0  # m
SIMPLE = [
    {"node": 1, "restrained": ["Dx", "Dy", "Dz", "Rx"]},
    {"node": 2, "restrained": ["Dy", "Dz"]},
]
CANTILEVER = [{"node": 1, "restrained": "all"}]
# Constants without a shape: rigid in shear.
RIGID_IN_SHEAR = {"number": 1, "shape": "UP", "properties": {
    "area": 2000, "it": 3e6, "iyy": 8e6, "izz": 8e6,
    "point_y": [-50, 50, 50, -50], "point_z": [100, 100, -100, -100]}}
# 6 kN/m on the 4 m, and 8 kN in the middle.
UNIFORM = {"span": [{"elements": [1], "direction": "Z", "value": -6}]}
POINT = {"points": [{"elements": [1], "direction": "Z", "at": 0.5, "force": -8}]}


def cases(*loads):
    return [{"number": number, "name": f"L{number}", **load} for number, load in enumerate(loads, 1)]


@pytest.fixture
def beam(pipe_beam):
    """The pipe 100 × 10 of 4 m on two supports, with loads in place of forces."""
    del pipe_beam["forces"]
    pipe_beam |= {"supports": SIMPLE, "load_cases": cases(UNIFORM, POINT), "combinations": [
        {"number": 1, "name": "ULS", "terms": [{"case": 1, "factor": 1.3}, {"case": 2, "factor": 1.5}]},
        {"number": 2, "name": "Both", "kind": "envelope", "terms": [{"case": 1}, {"case": 2}]}]}
    return copy.deepcopy(pipe_beam)  # tests change it in depth


def leaning_column(axial):
    """A cantilever column under an axial force and 1 kN along X at its top, rigid in shear."""
    return {
        "sections": [RIGID_IN_SHEAR], "supports": CANTILEVER,
        "nodes": [{"number": 1, "x": 0, "y": 0, "z": 0}, {"number": 2, "x": 0, "y": 0, "z": SPAN}],
        "load_cases": cases({"nodal": [{"nodes": [2], "Fx": 1, "Fz": -axial}]}), "combinations": []}
