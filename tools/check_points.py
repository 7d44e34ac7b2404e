"""Check points of `aluframe points`: what a script reads of them, and questions to the plain checks about them.

The fields are told in docs/points.md, the force states and sections in docs/checks.md. Independent of the
program: it is only asked.
"""

import json
import math
import subprocess

Point = dict
Ratios = dict[int, float]

STRENGTH, SHEAR_Y, SHEAR_Z, STABILITY, COMBINED, SLENDER_Y, SLENDER_Z = 0, 1, 2, 3, 4, 6, 7
C, H, T, B, P, DOUBLE_C, SR = range(7)
BEAM = 2
WEAKLY_HARDENING = {"6061-T6", "6063-T6", "6063A-T6"}
NO_FORCE = 1e-10  # N and N·mm: what the checks themselves take for none
NOISE = 1e-6  # of the stress f

# The point


def forces(point: Point) -> tuple[float, float, float]:
    """N, My, Mz."""
    values = point["force"]["dForce"]
    return values[0], values[4], values[5]


def section(point: Point) -> dict:
    return point["data"]["code"]["sect"]


def parameters(point: Point) -> dict:
    return point["data"]["code"]["para"]


def is_symmetric(point: Point) -> bool:
    s = section(point)
    if s["nShape"] != H:
        return s["nShape"] in (B, P, DOUBLE_C, SR)
    _, _, b1, tf1, b2, tf2, *_ = s["dSize"]
    return abs(b1 - b2) <= 1e-10 and abs(tf1 - tf2) <= 1e-10


def has_equal_flanges(point: Point) -> bool:
    s = section(point)
    _, _, b1, tf1, b2, tf2, *_ = s["dSize"]
    return tf1 == tf2 if s["nShape"] == B else s["nShape"] not in (C, H) or (b1, tf1) == (b2, tf2)


def is_box_of_two_flanges(point: Point) -> bool:
    return section(point)["nShape"] == B and not has_equal_flanges(point)


def is_welded_tee(point: Point) -> bool:
    return section(point)["nShape"] == T and bool(section(point)["bWelded"])


def is_welded_h_without_positive_my(point: Point) -> bool:
    return section(point)["nShape"] == H and bool(section(point)["bWelded"]) and forces(point)[1] <= 0


def is_weakly_hardening(point: Point) -> bool:
    return point["data"]["code"]["matl"]["strGrade"] in WEAKLY_HARDENING


def safety_factor(point: Point, seismic_name: str) -> float:
    """k: γ0, or the γRE of that name in seismic combinations where the settings say so."""
    p = parameters(point)
    if p.get("bSeismicGammaRE", 0) and point["force"].get("nSesiType", 0):
        return p[seismic_name]
    return p["dGamma0"]


def k_strength(point: Point) -> float:
    return safety_factor(point, "dGammaREStrength")


def k_stability(point: Point) -> float:
    return safety_factor(point, "dGammaREStability")


def modulus_about_z(point: Point) -> float:
    s = section(point)
    return s["dIzz"] / max(map(abs, s["dPtY"]))


def plasticity_about_z(point: Point) -> float:
    shape = section(point)["nShape"]
    if shape == SR:
        return 1.1 if is_weakly_hardening(point) else 1.05
    return 1.05 if shape in (H, T, DOUBLE_C) and is_weakly_hardening(point) else 1.0


def has_bending(point: Point) -> bool:
    _, my, mz = forces(point)
    return abs(my) >= NO_FORCE or abs(mz) >= NO_FORCE


# Questions to the plain checks


def with_forces(point: Point, n: float, my: float, mz: float) -> Point:
    old = point["force"]["dForce"]
    return {"data": point["data"], "force": point["force"] | {"dForce": [n, *old[1:4], my, mz]}}


def turned(point: Point) -> Point:
    """The same section upside down, under the same bending of it: My changes its sign.

    A tee has its flange on top; upside down it is an H whose top flange is the end of the web.
    """
    s = section(point)
    shape, size = s["nShape"], list(s["dSize"])
    if shape == T:
        height, tw, b, tf, *_ = size
        shape, size = H, [height, tw, b, tf, tw, tf, 0.0, 0.0]
    if shape in (C, H):
        size[2:6] = size[4:6] + size[2:4]
    elif shape == B:
        size[3], size[5] = size[5], size[3]
    over = s | {"nShape": shape, "dSize": size, "dShearCtr": -s["dShearCtr"], "dPtY": s["dPtY"][::-1],
                "dPtZ": [-z for z in s["dPtZ"][::-1]]}
    code = point["data"]["code"] | {"sect": over}
    n, my, mz = forces(point)
    return with_forces({"data": point["data"] | {"code": code}, "force": point["force"]}, n, -my, mz)


def reduced(point: Point) -> Point:
    """The same plates with positive My, for which the checks reduce the flange that My ≤ 0 compresses."""
    n, my, mz = forces(point)
    my = max(-my, 1e-6)
    return with_forces(point, n, my, mz) if is_symmetric(point) else turned(with_forces(point, n, -my, mz))


def without_limits(point: Point) -> Point:
    """The same point with the slenderness always given: a negative limit of tension leaves it out."""
    data = point["data"]
    code = data["code"] | {"para": parameters(point) | {"bUserLimit": 0, "dLimitTension": 0}}
    return {"data": data | {"code": code}, "force": point["force"]}


def questions(point: Point) -> dict[str, Point]:
    """What the rules ask about the point, by name."""
    n, my, mz = forces(point)
    asked = {
        "own": point,
        "tension": without_limits(with_forces(point, 1.0, 0.0, 0.0)),
    }
    if not has_bending(point) or n:
        asked["shear"] = with_forces(point, 0.0, 1.0, 0.0)
    if my and n > -section(point)["dArea"]:  # compression of 1 N/mm² is far more than noise
        asked["my"] = with_forces(point, 0.0, my, 0.0)
        if my < 0 and not is_symmetric(point):
            asked["my turned"] = turned(asked["my"])
    if mz > 0 and my and abs(n) <= NO_FORCE:
        asked["mz"] = with_forces(point, 0.0, 0.0, mz)
    if n < 0:
        asked["compression"] = with_forces(point, n, 0.0, 0.0)
        asked["compression turned"] = asked["compression"] if has_equal_flanges(point) else turned(
            asked["compression"])
    if n < 0 and has_bending(point):
        asked["turned"] = turned(point)
    if n < 0 and has_bending(point):
        asked["magnitude"] = with_forces(point, n, abs(my), mz)
    return asked


def number(value) -> float:
    return float(value)  # "inf", "-inf" and "nan" are texts


def ratio(answer: dict, item: int) -> float:
    """Demand over capacity, 0 for a check that did not run."""
    demand, capacity = map(number, answer["items"][item])
    return demand / capacity if capacity else 0.0


def code_ratio(answer: dict) -> float:
    """The largest ratio of the checks; not a number where one of them is not."""
    ratios = [ratio(answer, item) for item in range(8)]
    return math.nan if any(map(math.isnan, ratios)) else max(ratios)


def ask(program: str, points: list[Point]) -> list[dict]:
    """The plain checks' answers to points."""
    text = "\n".join(map(json.dumps, points)) + "\n"
    done = subprocess.run([program, "points"], input=text, capture_output=True, text=True, check=True)
    return [json.loads(line) for line in done.stdout.splitlines()]


def answered(program: str, points: list[Point]) -> list[dict]:
    """The answers to the questions about every point, by name; those about a welded H turned over, in "reduced"."""
    asked = [questions(point) for point in points]
    of_reduced = [questions(reduced(point)) if is_welded_h_without_positive_my(point) else {} for point in points]
    replies = iter(ask(program, [question for pair in zip(asked, of_reduced) for each in pair
                                 for question in each.values()]))
    return [{name: next(replies) for name in own}
            | ({"reduced": {name: next(replies) for name in other}} if other else {})
            for own, other in zip(asked, of_reduced)]
