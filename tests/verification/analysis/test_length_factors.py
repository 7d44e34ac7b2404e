"""Effective length factors against the buckling loads of whole frames.

`aluframe members` solves the equations of the alignment charts; the analysis of second order knows
nothing of them and finds the load at which the stiffness of the whole frame is lost. Where the frame
buckles as the charts take it to (all columns alike and loaded alike), its columns then carry
pi² EI / (K L)², and the frame stands a little below that and falls a little above it.
"""

import json
import math
import os
import subprocess

import pytest

E, INERTIA, HEIGHT, SPAN = 70000.0, 1e6, 3000.0, 6000.0
# Shortening by axial force and the pieces that the analysis cuts columns into: below 0.1 %.
NEAR = 0.01
# A bar counts with its mean flexibility. Haunches stand where a swaying beam is bent most, and make it
# stiffer than that: G = 1.35 and 10 % more load here, on the safe side.
SAFE = 0.12
# The beam of a trestle tilts against the sway of its legs, which the charts leave out: safe as well.
LEANING = 0.5


def section(number: int, stiffness: float) -> dict:
    """Hardly shortens, and bends in the plane of the frame."""
    return {"number": number, "shape": "UP", "properties": {
        "area": 1e6, "it": 1e6, "iyy": stiffness * INERTIA, "izz": 1e9,
        "point_y": [-10, 10, 10, -10], "point_z": [10, 10, -10, -10]}}


def plane_frame(points: list, bars: list, held: dict, heads: list, **changes) -> dict:
    """Nodes (X, Z) from 1 on, in the plane X-Z; bars (start, end[, changes]); `held` directions in
    the plane by node; `heads` are the nodes that are loaded."""
    out_of_plane = ["Dy", "Rx", "Rz"]
    return {
        "format": "aluframe-model", "version": 1,
        "units": {"force": "N", "length": "mm", "section": "mm"},
        "materials": [{"number": 1, "grade": "", "f02_thin": 200, "fu": 250, "e": E}],
        "sections": [section(1, 1), section(2, 3)],
        "nodes": [{"number": i + 1, "x": x, "y": 0, "z": z} for i, (x, z) in enumerate(points)],
        "supports": [{"node": i + 1, "restrained": out_of_plane + held.get(i + 1, [])}
                     for i in range(len(points))],
        "elements": [{"number": i + 1, "nodes": list(bar[:2]), "section": 1, "material": 1}
                     | (bar[2] if len(bar) > 2 else {}) for i, bar in enumerate(bars)],
        "load_cases": [{"number": 1, "name": "P", "nodal": [{"nodes": heads, "Fz": -1.0}]}],
    } | changes


HINGE, CLAMP = ["Dx", "Dz"], ["Dx", "Dz", "Ry"]
PORTAL = [(0, 0), (0, HEIGHT), (SPAN, HEIGHT), (SPAN, 0)]
PORTAL_BARS = [(1, 2), (2, 3), (4, 3)]
# With a tenth of the span at both ends of the beam.
PIECES = PORTAL + [(SPAN / 10, HEIGHT), (SPAN * 0.9, HEIGHT)]


def in_pieces(**ends) -> list:
    return [(1, 2), (2, 5, ends), (5, 6), (6, 3, ends), (4, 3)]


FRAMES = {
    "a portal on hinges": (plane_frame(PORTAL, PORTAL_BARS, {1: HINGE, 4: HINGE}, [2, 3]), NEAR),
    "a clamped portal": (plane_frame(PORTAL, PORTAL_BARS, {1: CLAMP, 4: CLAMP}, [2, 3]), NEAR),
    "a portal that is held sideways": (
        plane_frame(PORTAL, PORTAL_BARS, {1: HINGE, 4: HINGE, 2: ["Dx"], 3: ["Dx"]}, [2, 3]), NEAR),
    "a portal with its beam in pieces": (
        plane_frame(PIECES, in_pieces(), {1: HINGE, 4: HINGE}, [2, 3], members=[]), NEAR),
    "a portal with haunches": (
        plane_frame(PIECES, in_pieces(section=2), {1: HINGE, 4: HINGE}, [2, 3]), SAFE),
    "a gable frame": (
        plane_frame([(0, 0), (0, HEIGHT), (SPAN / 2, HEIGHT + 1000), (SPAN, HEIGHT), (SPAN, 0)],
                    [(1, 2), (2, 3), (3, 4), (5, 4)], {1: HINGE, 5: HINGE}, [2, 4]), NEAR),
    "a trestle": (
        plane_frame([(0, 0), (640, HEIGHT), (SPAN - 640, HEIGHT), (SPAN, 0)], PORTAL_BARS,
                    {1: HINGE, 4: HINGE}, [2, 3]), LEANING),
    "two bays over a hinged column": (
        plane_frame([*PORTAL, (2 * SPAN, HEIGHT), (2 * SPAN, 0)],
                    [(1, 2), (2, 3), (4, 3, {"releases": {"end": ["My"]}}), (3, 5), (6, 5)],
                    {1: HINGE, 4: HINGE, 6: HINGE}, [2, 5]), NEAR),
    "a column with a beam to a roller": (
        plane_frame(PORTAL[:3], PORTAL_BARS[:2], {1: CLAMP, 3: ["Dz"]}, [2]), NEAR),
    "a mast in two pieces": (
        plane_frame([(0, 0), (0, HEIGHT), (0, 1.5 * HEIGHT)], [(1, 2), (2, 3)], {1: CLAMP}, [3],
                    members=[]), NEAR),
}


def run(command: str, model: dict, folder, *options: str) -> subprocess.CompletedProcess:
    file = folder / "model.json"
    file.write_text(json.dumps(model), encoding="utf-8")
    return subprocess.run([os.environ["ALUFRAME_PROGRAM"], command, file, *options],
                          capture_output=True, text=True, check=False)


def stands(model: dict, load: float, folder) -> bool:
    loaded = model | {"combinations": [
        {"number": 1, "name": "P", "terms": [{"case": 1, "factor": load}]}]}
    done = run("analyse", loaded, folder, "--second-order", "--combinations", "1")
    if done.returncode == 0:
        return True
    assert "buckles" in done.stderr
    return False


@pytest.mark.parametrize("name", FRAMES)
def test_a_column_buckles_under_the_load_of_its_length_factor(name, tmp_path):
    model, above = FRAMES[name]
    done = run("members", model, tmp_path, "--format", "json")
    assert done.returncode == 0, done.stderr
    column = next(row for row in json.loads(done.stdout) if row["elements"].split("-")[0] == "1")
    load = math.pi**2 * E * INERTIA / (column["ky"] * column["length_mm"]) ** 2
    print(f"{name}: K {column['ky']:.4f}, {load:.0f} N")
    assert stands(model, (1 - NEAR) * load, tmp_path)
    assert not stands(model, (1 + above) * load, tmp_path)
