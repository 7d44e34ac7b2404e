"""Random check points of every shape, with section constants by hand formulas of sharp-cornered plates."""

import math
import random

C, H, T, B, P, DOUBLE_C, SR = range(7)
E = 70000
# Proof strengths up to 10 mm and above, of the order that the alloys have.
GRADES = {"6061-T6": (240, 240), "6061-T4": (110, 110), "6063-T5": (110, 110), "6063-T6": (180, 180),
          "6063A-T5": (160, 150), "6063A-T6": (190, 180), "5083-H112": (110, 110), "5083-O/F": (110, 110),
          "3003-H24": (145, 145), "3004-H34": (145, 145), "3004-H36": (160, 160), "own": (200, 180)}


def plates(*rectangles):
    """Area, centroid, Iyy and Izz of rectangles given by width, height, y and z of their centres."""
    area = sum(w * h for w, h, _, _ in rectangles)
    y0 = sum(w * h * y for w, h, y, _ in rectangles) / area
    z0 = sum(w * h * z for w, h, _, z in rectangles) / area
    iyy = sum(w * h**3 / 12 + w * h * (z - z0) ** 2 for w, h, _, z in rectangles)
    izz = sum(h * w**3 / 12 + w * h * (y - y0) ** 2 for w, h, y, _ in rectangles)
    return area, y0, z0, iyy, izz


def upper_moment(rectangles, z0):
    """First moment about z0 of what lies above it."""
    moment = 0.0
    for width, height, _, z in rectangles:
        low, high = max(z - height / 2, z0), z + height / 2
        if high > low:
            moment += width * (high - low) * ((high + low) / 2 - z0)
    return moment


def section(shape, size, rectangles, top, bottom, web, *, it, iw, shear_centre_z):
    """top and bottom: y of the left and right corner; web: the width that shear along z acts on."""
    area, y0, z0, iyy, izz = plates(*rectangles)
    height = size[0]
    flat = [(h, w, z, y) for w, h, y, z in rectangles]
    across = sum(h for w, h, _, _ in rectangles if w > h)
    return {
        "nShape": shape, "dSize": (size + [0.0] * 8)[:8], "dArea": area, "dIyy": iyy, "dIzz": izz,
        "dIxx": it, "dIw": iw or 1e-9 * izz * height**2, "dShearCtr": shear_centre_z - z0,
        "dQyb": upper_moment(rectangles, z0) / web, "dQzb": upper_moment(flat, y0) / across,
        "dPtY": [top[0] - y0, top[1] - y0, bottom[1] - y0, bottom[0] - y0],
        "dPtZ": [height - z0, height - z0, -z0, -z0],
    }


def thin(*walls):
    return sum(length * t**3 / 3 for length, t in walls)


def i_or_channel(rng, shape):
    h, tw, b1, tf1 = rng.uniform(60, 400), rng.uniform(2, 14), rng.uniform(30, 200), rng.uniform(2, 16)
    b2, tf2 = (b1, tf1) if rng.random() < 0.5 else (rng.uniform(0.5, 1.5) * b1, rng.uniform(0.6, 1.5) * tf1)
    side = (b1 / 2, tw / 2, b2 / 2) if shape == C else (0.0, 0.0, 0.0)
    web = h - tf1 - tf2
    parts = [(b1, tf1, side[0], h - tf1 / 2), (tw, web, side[1], tf2 + web / 2), (b2, tf2, side[2], tf2 / 2)]
    i1, i2, apart = tf1 * b1**3 / 12, tf2 * b2**3 / 12, h - (tf1 + tf2) / 2
    top, bottom = ((side[0] - b1 / 2, side[0] + b1 / 2), (side[2] - b2 / 2, side[2] + b2 / 2))
    it = thin((b1, tf1), (b2, tf2), (apart, tw))
    centre = tf2 / 2 + apart * i1 / (i1 + i2)
    return section(shape, [h, tw, b1, tf1, b2, tf2], parts, top, bottom, tw, it=it,
                   iw=i1 * i2 / (i1 + i2) * apart**2, shear_centre_z=centre)


def tee(rng):
    h, tw, b, tf = rng.uniform(40, 200), rng.uniform(3, 12), rng.uniform(40, 200), rng.uniform(3, 14)
    parts = [(b, tf, 0.0, h - tf / 2), (tw, h - tf, 0.0, (h - tf) / 2)]
    return section(T, [h, tw, b, tf], parts, (-b / 2, b / 2), (-tw / 2, tw / 2), tw,
                   it=thin((b, tf), (h - tf / 2, tw)), iw=0, shear_centre_z=h - tf / 2)


def box(rng):
    h, tw, b, tf1 = rng.uniform(50, 300), rng.uniform(2, 8), rng.uniform(40, 200), rng.uniform(2, 10)
    tf2 = tf1 if rng.random() < 0.6 else rng.uniform(0.5, 1.6) * tf1
    web, y = h - tf1 - tf2, (b - tw) / 2
    parts = [(b, tf1, 0.0, h - tf1 / 2), (b, tf2, 0.0, tf2 / 2),
             (tw, web, -y, tf2 + web / 2), (tw, web, y, tf2 + web / 2)]
    wide, apart = b - tw, h - (tf1 + tf2) / 2
    it = 4 * (wide * apart) ** 2 / (wide / tf1 + wide / tf2 + 2 * apart / tw)
    edges = (-b / 2, b / 2)
    return section(B, [h, tw, b, tf1, b - tw, tf2], parts, edges, edges, 2 * tw, it=it, iw=0,
                   shear_centre_z=plates(*parts)[2])


def double_channel(rng):
    h, tw, b, tf = rng.uniform(60, 300), rng.uniform(3, 10), rng.uniform(30, 120), rng.uniform(3, 12)
    gap = rng.choice([0.0, rng.uniform(4, 20)])
    parts = []
    for side in (-1, 1):
        parts += [(b, tf, side * (gap + b) / 2, h - tf / 2), (b, tf, side * (gap + b) / 2, tf / 2),
                  (tw, h - 2 * tf, side * (gap + tw) / 2, h / 2)]
    flange = tf * (2 * b) ** 3 / 12
    edges = (-gap / 2 - b, gap / 2 + b)
    return section(DOUBLE_C, [h, tw, b, tf, gap], parts, edges, edges, 2 * tw,
                   it=2 * thin((b, tf), (b, tf), (h - tf, tw)), iw=flange / 2 * (h - tf) ** 2, shear_centre_z=h / 2)


def ring(shape, outer, inner, size):
    area, i = math.pi / 4 * (outer**2 - inner**2), math.pi / 64 * (outer**4 - inner**4)
    q = (outer**3 - inner**3) / 12 / (outer - inner)
    r = outer / 2
    return {"nShape": shape, "dSize": size + [0.0] * 6, "dArea": area, "dIyy": i, "dIzz": i, "dIxx": 2 * i,
            "dIw": 1e-9 * i * outer**2, "dQyb": q, "dQzb": q, "dShearCtr": 0.0,
            "dPtY": [r, r, -r, -r], "dPtZ": [r, r, -r, -r]}


def random_section(rng):
    shape = rng.randrange(7)
    if shape in (C, H):
        return i_or_channel(rng, shape)
    if shape == P:
        d = rng.uniform(30, 250)
        t = rng.uniform(0.015, 0.15) * d
        return ring(P, d, d - 2 * t, [d, t])
    if shape == SR:
        d = rng.uniform(10, 100)
        return ring(SR, d, 0.0, [d, d])
    return {T: tee, B: box, DOUBLE_C: double_channel}[shape](rng)


def random_force(rng, full):
    """None, noise below or about 1e-6 of full, what ordinary members carry, or far too much."""
    kind = rng.random()
    if kind < 0.3:
        return 0.0
    decades = (-14, -5) if kind < 0.45 else (0.3, 1.5) if kind > 0.95 else (-2, 0.3)
    return rng.choice([-1, 1]) * 10 ** rng.uniform(*decades) * full


def random_parameters(rng):
    return {
        "dGamma0": rng.choice([0.9, 1.0, 1.1]), "bSeismicGammaRE": rng.randrange(2),
        "dGammaREStrength": rng.choice([0.75, 0.8]), "dGammaREStability": rng.choice([0.8, 0.75, 1.2]),
        "dCoef085": rng.choice([0.85, 0.85, 1.0, 0.7]), "bRib": rng.randrange(2),
        "dRibRatio": rng.choice([1.2, 1.0, 1.5]), "dHazWidth": rng.choice([10, 20, 30]),
        "bUserPhi": int(rng.random() < 0.15), "dUserPhi": [rng.uniform(0.3, 1), rng.uniform(0.3, 1)],
        "bUserLimit": int(rng.random() < 0.2), "dLimitTension": rng.choice([-1, 0, 250, 300]),
        "dLimitCompr": rng.choice([0, 100, 200]), "dKy": rng.uniform(0.5, 2), "dKz": rng.uniform(0.2, 2),
        "bMidSupport": rng.randrange(2), "nBetaMOpt": [rng.choice([1, 1, 2]) for _ in "yz"],
        "dBetaM": [rng.uniform(0.4, 1) for _ in "yz"], "nBetaMOpt2": [rng.randrange(4) for _ in "yz"],
        "bUserBetaM": rng.randrange(2), "bSway": [rng.randrange(2) for _ in "yz"],
    }


def random_forces(rng, sect, f):
    wy = sect["dIyy"] / max(map(abs, sect["dPtZ"]))
    wz = sect["dIzz"] / max(map(abs, sect["dPtY"]))
    n, my, mz = (random_force(rng, f * w) for w in (0.3 * sect["dArea"], wy, wz))
    fy, fz = (random_force(rng, 0.1 * f * sect["dArea"]) for _ in range(2))
    end = {name: rng.choice([0.0, rng.uniform(-1, 1) * f * w])
           for name, w in (("dMyI", wy), ("dMyJ", wy), ("dMzI", wz), ("dMzJ", wz))}
    return {"dForce": [n, fy, fz, random_force(rng, 0.01 * f * wy), my, mz], "end": end,
            "bEndSect": rng.randrange(2), "nSesiType": rng.randrange(2)}


def random_point(rng):
    sect = random_section(rng) | {"bWelded": int(rng.random() < 0.3)}
    grade = rng.choice(list(GRADES))
    thin_strength, thick_strength = GRADES[grade]
    standard = rng.choice(["GB50429-07(A)"] * 5 + ["other"]) if grade != "own" else "other"
    material = {"strStandard": standard, "strGrade": grade, "nElast": E, "dPoisson": 0.3,
                "dF02Thin": thin_strength, "dF02Thick": thick_strength}
    data = {"nMembType": rng.choice([1, 2, 3, 5]), "dMembLength": 10 ** rng.uniform(2.5, 4.2),
            "nEndCond": [[rng.randrange(3), rng.randrange(3)] for _ in range(2)],
            "code": {"sect": sect, "matl": material, "para": random_parameters(rng)}}
    return {"data": data, "force": random_forces(rng, sect, thin_strength / 1.3)}


def random_points(count, seed):
    rng = random.Random(seed)
    return [random_point(rng) | {"id": index} for index in range(count)]
