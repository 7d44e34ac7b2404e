#!/usr/bin/env python3
"""Safe ratios of check points, worked out beside the program from its documents alone.

Follows the table of docs/behaviour.md ("The second opinion") for all rules that a bare point can have. What
the table calls E(N, My, Mz) is asked of the plain checks; all else is a closed formula of docs/checks.md. A
rule is a function of the point and of the answers to its questions, and gives the safe ratio by item, or
nothing where the rule is not asked. Noise is no force anywhere. An answer that is not a number, as for moments
on a truss, is none.

    safe_ratios.py PROGRAM < points.jsonl

writes the safe ratios of every point, one line a point.
"""

import argparse
import json
import math
import sys

from check_points import (
    BEAM, COMBINED, NOISE, NO_FORCE, SHEAR_Y, SHEAR_Z, SLENDER_Y, SLENDER_Z, STABILITY, STRENGTH, Point, Ratios,
    answered, code_ratio, forces, has_bending, is_box_of_two_flanges, is_symmetric, is_weakly_hardening,
    is_welded_tee, k_stability, k_strength, modulus_about_z, number, parameters, plasticity_about_z, ratio,
    reduced, section,
)

# What the rules share


def design_strength(answers: dict) -> float:
    return number(answers["tension"]["items"][STRENGTH][1])


def design_strength_of(reply: dict) -> float:
    return number(reply["report"][2])


def is_noise(point: Point, answers: dict) -> tuple[bool, bool, bool]:
    """Whether N, My and Mz are what rounding leaves of 0."""
    s, f = section(point), NOISE * design_strength(answers)
    n, my, mz = map(abs, forces(point))
    return (n < f * s["dArea"], my <= f * s["dIyy"] / max(map(abs, s["dPtZ"])),
            mz <= f * s["dIzz"] / max(map(abs, s["dPtY"])))


def bent_without_axial_force(point: Point, answers: dict) -> set[str]:
    """The rules by which a member counts as in bending alone: none, "C1", "C2", or "alone" where it is."""
    n, my, _ = forces(point)
    if not has_bending(point):
        return set()
    if abs(n) <= NO_FORCE:
        return {"alone"}
    n_noise, my_noise, _ = is_noise(point, answers)
    if n_noise:
        return {"C2"}
    s = section(point)
    depth = max(s["dPtZ"]) if my > 0 else -min(s["dPtZ"])
    compressed = n / s["dArea"] < abs(my) * depth / s["dIyy"]
    return {"C1"} if n > 0 and not my_noise and compressed else set()


def has_slender_plate(answers: dict) -> bool:
    """Whether a plate is over its limit as in uniform compression."""
    return max(map(number, answers["tension"]["sectpara"][4:])) > 1


def asks_about_the_other_flange(point: Point, answers: dict) -> bool:
    """Whether W3 is asked: of a welded, slender H without positive My, but in compression alone."""
    is_asked = forces(point)[0] > NO_FORCE or has_bending(point)
    return "reduced" in answers and is_asked and has_slender_plate(answers)


def about_my(point: Point, answers: dict) -> tuple[Point, dict]:
    """What is asked about My ≤ 0: the same point, or under W3 the one with |My| > 0."""
    return (reduced(point), answers["reduced"]) if asks_about_the_other_flange(point, answers) else (point, answers)


def lateral_torsional(point: Point, answers: dict) -> float:
    """The ratio of lateral-torsional stability of |My|, the compressed flange being the one that buckles."""
    my = forces(point)[1]
    if my == 0:
        return 0.0
    own = ratio(answers["my"], STABILITY)
    if asks_about_the_other_flange(point, answers):
        other = ratio(answers["reduced"]["my"], STABILITY)
        return max(abs(own), other) if is_symmetric(point) else other
    if my > 0:
        return own
    return abs(own) if is_symmetric(point) or is_welded_tee(point) else ratio(answers["my turned"], STABILITY)


def euler_ratio_about(slenderness: float, point: Point) -> float:
    """|N|/N_E', N_E' = π²·E·A/(1.2·λ²)."""
    e = point["data"]["code"]["matl"]["nElast"]
    return abs(forces(point)[0]) * 1.2 * slenderness**2 / (math.pi**2 * e * section(point)["dArea"])


def slenderness(answers: dict) -> tuple[float, float]:
    items = answers["tension"]["items"]
    return number(items[SLENDER_Y][0]), number(items[SLENDER_Z][0])


# The rules


def f1(point: Point, answers: dict) -> Ratios:
    """Bending alone: the stresses of My and Mz meet at a corner."""
    n, my, mz = forces(point)
    if abs(n) > NO_FORCE or not is_symmetric(point) or abs(my) < NO_FORCE or mz < NO_FORCE:
        return {}
    return {STRENGTH: max(ratio(each["my"], STRENGTH) + ratio(each["mz"], STRENGTH)
                          for each in (answers, about_my(point, answers)[1]))}


def f2(point: Point, answers: dict) -> Ratios:
    """The top fibre of an unsymmetric section; its γy1 is 1 for every shape."""
    n, my, mz = forces(point)
    if abs(n) <= NO_FORCE or is_symmetric(point) or not has_bending(point):
        return {}
    own = answers["own"]
    aen, w1 = own["report"][1], own["sectpara"][1]
    stress = abs(n / aen - my / w1) + abs(mz) / (plasticity_about_z(point) * modulus_about_z(point))
    return {STRENGTH: k_strength(point) * stress / design_strength(answers)}


def c1(point: Point, answers: dict) -> Ratios:
    """Tension with bending: what the beam carries before the tension comes."""
    if "C1" not in bent_without_axial_force(point, answers):
        return {}
    return {STABILITY: lateral_torsional(point, answers)}


def c2(point: Point, answers: dict) -> Ratios:
    """Bending beside an N of noise; compression beside moments of noise is part of B1."""
    my_noise = is_noise(point, answers)[1]
    if my_noise or "C2" not in bent_without_axial_force(point, answers):
        return {}
    return {STABILITY: lateral_torsional(point, answers)}


def c3(point: Point, answers: dict) -> Ratios:
    """A negative My compresses the bottom flange."""
    my_noise = is_noise(point, answers)[1]
    if forces(point)[1] >= 0 or my_noise or not bent_without_axial_force(point, answers):
        return {}
    return {STABILITY: lateral_torsional(point, answers)}


def c4(point: Point, answers: dict) -> Ratios:
    """Bending about both axes: the stress of Mz beside the lateral-torsional one."""
    _, my_noise, mz_noise = is_noise(point, answers)
    if my_noise or mz_noise or not bent_without_axial_force(point, answers):
        return {}
    stress = abs(forces(point)[2]) / (plasticity_about_z(point) * modulus_about_z(point))
    return {STABILITY: lateral_torsional(point, answers)
            + k_stability(point) * stress / design_strength(answers)}


def c5(point: Point, answers: dict) -> Ratios:
    """Shear where the checks have none: no moment, or axial force in what is no beam."""
    is_beam = point["data"]["nMembType"] == BEAM
    if has_bending(point) and (is_beam or abs(forces(point)[0]) <= NO_FORCE):
        return {}
    s, fv = section(point), number(answers["shear"]["items"][SHEAR_Y][1])
    _, fy, fz, *_ = point["force"]["dForce"]
    k = k_strength(point)
    shear = {SHEAR_Y: k * abs(fy) * s["dQzb"] / s["dIzz"] / fv,
             SHEAR_Z: k * abs(fz) * s["dQyb"] / s["dIyy"] / fv}
    return {item: value for item, value in shear.items() if value}


def s2(point: Point, answers: dict) -> Ratios:
    """The Euler load is the most that compression may reach."""
    if forces(point)[0] >= -NO_FORCE:
        return {}
    used = max(euler_ratio_about(value, point) for value in slenderness(answers))
    return {STABILITY: max(1.0, k_stability(point)) * used}


def equivalent_moment_factor_z(point: Point) -> float:
    """βm about z, by how the member is loaded."""
    p, data, ends = parameters(point), point["data"], point["force"].get("end", {})
    if p["nBetaMOpt"][1] != 1:
        return p["dBetaM"][1]
    if not p["bUserBetaM"] and p["bSway"][1]:
        return 1.0
    small, large = sorted((ends.get("dMzI", 0.0), ends.get("dMzJ", 0.0)), key=abs)
    end_ratio = small / large if large else 1.0
    length = p["dKz"] * data["dMembLength"]
    euler = math.pi**2 * data["code"]["matl"]["nElast"] * section(point)["dIzz"] / length**2
    used = abs(forces(point)[0]) / euler
    return {0: 0.6 + 0.4 * end_ratio, 1: 1 - 0.36 * used, 2: 1 - 0.18 * used,
            3: 1 - 0.36 * (1 - end_ratio) * used}[p["nBetaMOpt2"][1]]


def more_by_the_bottom_fibre(point: Point, reply: dict) -> tuple[float, float]:
    """What compression with bending has more of My about y and z, as ratios, where W2 stands for W1.

    γy1 is 1 for boxes and tees. A larger term relieves nothing, also where the amplification is negative.
    """
    my, (_, w1, w2, *_) = abs(forces(point)[1]), map(number, reply["sectpara"])
    phi_b, beta_y, eta, eta1, euler_y = (number(reply["report"][place]) for place in (10, 12, 14, 15, 17))
    stress = k_stability(point) * my * (1 / w2 - 1 / w1) / design_strength_of(reply)
    return max(stress * beta_y / (1 - eta1 * abs(forces(point)[0]) / euler_y), 0.0), stress * eta / phi_b


def s14_of_my(point: Point, answers: dict) -> Ratios:
    """What S14 gives of |My|: the checks' own answer, upside down for My < 0.

    A welded tee cannot be turned. Its stem is compressed then: the compression side alone, with W2 for W1.
    """
    my = forces(point)[1]
    if my < 0 and is_welded_tee(point):
        reply = answers["magnitude"]
        about_y, about_z = more_by_the_bottom_fibre(point, reply)
        answer = {STABILITY: number(reply["report"][19]) / design_strength_of(reply) + about_y,
                  COMBINED: ratio(reply, COMBINED) + about_z}
    else:
        reply = answers["turned" if my < 0 else "own"]
        answer = {item: ratio(reply, item) for item in (STABILITY, COMBINED)}
    return {item: value + lower_axial_coefficient(point, answers, reply, item) for item, value in answer.items()}


def s14(point: Point, answers: dict) -> Ratios:
    """Unsymmetric sections in compression: |My|, and Mz as chapter 8 has it."""
    n, my, mz = forces(point)
    mz_noise = is_noise(point, answers)[2]
    if n >= -NO_FORCE or is_symmetric(point) or not has_bending(point) or (my >= 0 and mz_noise):
        return {}
    point, answers = about_my(point, answers)
    answer = s14_of_my(point, answers)
    if mz_noise:
        return answer
    p, k = parameters(point), k_stability(point) / design_strength(answers)
    stress = abs(mz) / modulus_about_z(point)
    answer[STABILITY] += k * stress / (p["dUserPhi"][1] if p["bUserPhi"] else 1.0)
    eta1 = 0.75 if is_weakly_hardening(point) else 0.9
    rest = 1 - eta1 * euler_ratio_about(slenderness(answers)[1], point)
    if rest > 0:  # else the Euler load is exceeded, which S2 judges
        answer[COMBINED] += k * equivalent_moment_factor_z(point) * stress / (plasticity_about_z(point) * rest)
    return answer


def lower_axial_coefficient(point: Point, answers: dict, reply: dict, item: int) -> float:
    """k·|N|/(A·f)·(1/φ' − 1/φ): φ' of compression alone (B1), the smaller one of both ways up (B8)."""
    place = {STABILITY: 7, COMBINED: 8}[item] if has_bending(point) else 6
    alone = [answers[name]["report"][place] for name in ("compression", "compression turned")
             if answers[name]["ret"] and answers[name]["report"][place] > 0]
    own = reply["report"][place]
    if not alone or min(alone) >= own * (1 - 1e-12):
        return 0.0
    stress = k_stability(point) * abs(forces(point)[0]) / section(point)["dArea"] / design_strength(answers)
    return stress * (1 / min(alone) - 1 / own)


def b1(point: Point, answers: dict) -> Ratios:
    """φ of compression alone, in compression with bending (B1) and of the weaker way up (B8).

    Asked of the checks' own stability; S14 and F4 have it in their own answers.
    """
    if forces(point)[0] >= -NO_FORCE or s14(point, answers) or f4(point, answers):
        return {}
    point, answers = about_my(point, answers)
    own = answers["own"]
    more = {item: lower_axial_coefficient(point, answers, own, item) for item in (STABILITY, COMBINED)
            if own["items"][item][1]}
    return {item: ratio(own, item) + value for item, value in more.items() if value}


def f4(point: Point, answers: dict) -> Ratios:
    """A box with unequal flanges has another fibre: W2 for W1."""
    own = answers["own"]
    _, w1, w2, wz, *_ = map(number, own["sectpara"])
    if not is_box_of_two_flanges(point) or not w2 < w1 or not has_bending(point):
        return {}
    n, my, mz = map(abs, forces(point))
    axial = n / number(own["report"][1]) if n > NO_FORCE else 0.0
    answer = {STRENGTH: k_strength(point) * (axial + my / w2 + mz / wz) / design_strength(answers)}
    if forces(point)[0] < -NO_FORCE:
        about_y, about_z = more_by_the_bottom_fibre(point, own)
        for item, more in ((STABILITY, about_y), (COMBINED, about_z)):
            answer[item] = ratio(own, item) + more + lower_axial_coefficient(point, answers, own, item)
    return answer


def w3(point: Point, answers: dict) -> Ratios:
    """Strength, and stability of compression with bending, of the flange that the checks reduce."""
    if not asks_about_the_other_flange(point, answers):
        return {}
    reply = answers["reduced"]["own"]
    items = (STRENGTH, STABILITY, COMBINED) if forces(point)[0] < -NO_FORCE else (STRENGTH,)
    return {item: ratio(reply, item) for item in items if reply["ret"] and number(reply["items"][item][1])}


RULES = {"F1": f1, "F2": f2, "F4": f4, "C1": c1, "C2": c2, "C3": c3, "C4": c4, "C5": c5, "S2": s2, "S14": s14,
         "B1": b1, "W3": w3}


def safe_ratios(point: Point, answers: dict) -> dict[str, Ratios]:
    """The answers of every rule that is asked of the point, by rule and item."""
    if not answers["own"]["ret"]:
        return {}
    given = {name: {item: value for item, value in rule(point, answers).items() if not math.isnan(value)}
             for name, rule in RULES.items()}
    return {name: answer for name, answer in given.items() if answer}


def main() -> None:
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("program", help="the program's path, for what the plain checks are asked")
    points = [json.loads(line) for line in sys.stdin if line.strip()]
    for point, answers in zip(points, answered(parser.parse_args().program, points)):
        print(json.dumps({"id": point.get("id"), "code": code_ratio(answers["own"]),
                          "safe": safe_ratios(point, answers)}))


if __name__ == "__main__":
    main()
