"""Section records with properties computed from their plates."""

import math

#: typical names of the shapes by code
C, H, T, B, P, DOUBLE_C, SR = range(7)


def _from_plates(plates):
    """(A, Iyy, Izz, zc, yc) of rectangles (y, z of the centre, width along y, height along z)."""
    area = sum(w * h for _, _, w, h in plates)
    yc = sum(y * w * h for y, _, w, h in plates) / area
    zc = sum(z * w * h for _, z, w, h in plates) / area
    iyy = sum(w * h * h * h / 12.0 + w * h * (z - zc) * (z - zc) for _, z, w, h in plates)
    izz = sum(h * w * w * w / 12.0 + w * h * (y - yc) * (y - yc) for y, _, w, h in plates)
    return area, iyy, izz, zc, yc


def _record(shape, size, plates, torsion, warping, shear_centre_from_bottom, tw, welded):
    area, iyy, izz, zc, yc = _from_plates(plates)
    depth = max(z + h / 2.0 for _, z, _, h in plates)
    left = min(y - w / 2.0 for y, _, w, _ in plates) - yc
    right = max(y + w / 2.0 for y, _, w, _ in plates) - yc
    top, bottom = depth - zc, -zc
    above = sum(w * h * abs(z - zc) for _, z, w, h in plates) / 2.0
    beside = sum(w * h * abs(y - yc) for y, _, w, h in plates) / 2.0
    return {
        "nShape": shape, "dSize": size + [0.0] * (8 - len(size)), "dArea": area, "dIw": warping,
        "dIxx": torsion, "dIyy": iyy, "dIzz": izz, "dQyb": above / tw, "dQzb": beside / tw,
        "dShearCtr": shear_centre_from_bottom - zc, "dPtY": [left, right, right, left],
        "dPtZ": [top, top, bottom, bottom], "bWelded": welded,
    }


def channel(h, tw, b1, tf1, b2, tf2, r1, r2, welded):
    hw = h - tf1 - tf2
    plates = [(tw / 2.0, tf2 + hw / 2.0, tw, hw), (b1 / 2.0, h - tf1 / 2.0, b1, tf1),
              (b2 / 2.0, tf2 / 2.0, b2, tf2)]
    torsion = (hw * tw ** 3 + b1 * tf1 ** 3 + b2 * tf2 ** 3) / 3.0
    warping = tf1 * b1 ** 3 * h * h / 12.0
    return _record(C, [h, tw, b1, tf1, b2, tf2, r1, r2], plates, torsion, warping,
                   h * 0.52, tw, welded)


def i_section(h, tw, b1, tf1, b2, tf2, r1, r2, welded):
    hw = h - tf1 - tf2
    plates = [(0.0, tf2 + hw / 2.0, tw, hw), (0.0, h - tf1 / 2.0, b1, tf1),
              (0.0, tf2 / 2.0, b2, tf2)]
    torsion = (hw * tw ** 3 + b1 * tf1 ** 3 + b2 * tf2 ** 3) / 3.0
    top, bottom = tf1 * b1 ** 3 / 12.0, tf2 * b2 ** 3 / 12.0
    between = h - (tf1 + tf2) / 2.0
    warping = top * bottom / (top + bottom) * between * between
    shear_centre = tf2 / 2.0 + between * top / (top + bottom)
    return _record(H, [h, tw, b1, tf1, b2, tf2, r1, r2], plates, torsion, warping,
                   shear_centre, tw, welded)


def tee(h, tw, b, tf, welded):
    plates = [(0.0, (h - tf) / 2.0, tw, h - tf), (0.0, h - tf / 2.0, b, tf)]
    torsion = ((h - tf) * tw ** 3 + b * tf ** 3) / 3.0
    warping = b ** 3 * tf ** 3 / 144.0 + (h - tf) ** 3 * tw ** 3 / 36.0
    return _record(T, [h, tw, b, tf], plates, torsion, warping, h - tf / 2.0, tw, welded)


def box(h, tw, b, tf1, c, tf2, welded):
    hw = h - tf1 - tf2
    plates = [((b - tw) / 2.0, tf2 + hw / 2.0, tw, hw), ((tw - b) / 2.0, tf2 + hw / 2.0, tw, hw),
              (0.0, h - tf1 / 2.0, b, tf1), (0.0, tf2 / 2.0, c, tf2)]
    inner = (b - tw) * (h - (tf1 + tf2) / 2.0)
    torsion = 4.0 * inner * inner / (2.0 * h / tw + b / tf1 + c / tf2)
    return _record(B, [h, tw, b, tf1, c, tf2], plates, torsion, 1.0 + torsion, h / 2.0, tw, welded)


def double_channel(h, tw, b, tf, gap, welded):
    hw = h - 2.0 * tf
    y = gap / 2.0 + tw / 2.0
    flange = gap / 2.0 + b / 2.0
    plates = []
    for side in (-1.0, 1.0):
        plates += [(side * y, h / 2.0, tw, hw), (side * flange, h - tf / 2.0, b, tf),
                   (side * flange, tf / 2.0, b, tf)]
    torsion = 2.0 * (hw * tw ** 3 + 2.0 * b * tf ** 3) / 3.0
    warping = tf * (2.0 * b) ** 3 * h * h / 24.0
    return _record(DOUBLE_C, [h, tw, b, tf, gap], plates, torsion, warping, h / 2.0, tw, welded)


def _round(shape, size, diameter, hole, wall, welded):
    area = math.pi * (diameter ** 2 - hole ** 2) / 4.0
    inertia = math.pi * (diameter ** 4 - hole ** 4) / 64.0
    r = diameter / 2.0
    first = (diameter ** 3 - hole ** 3) / 12.0
    return {
        "nShape": shape, "dSize": size + [0.0] * (8 - len(size)), "dArea": area, "dIw": 1.0,
        "dIxx": 2.0 * inertia, "dIyy": inertia, "dIzz": inertia, "dQyb": first / wall,
        "dQzb": first / wall, "dShearCtr": 0.0, "dPtY": [-r, r, r, -r], "dPtZ": [r, r, -r, -r],
        "bWelded": welded,
    }


def pipe(d, wall, welded):
    return _round(P, [d, wall], d, d - 2.0 * wall, 2.0 * wall, welded)


def solid_round(d, welded):
    return _round(SR, [d, d], d, 0.0, d, welded)


def random_section(rng, shape, welded, slender=None):
    """A section of everyday proportions; `slender` makes plates thin (True) or stout (False)."""
    h = rng.uniform(60.0, 500.0)
    b = rng.uniform(40.0, 300.0)
    if slender is None:
        slender = rng.random() < 0.4
    ratio = rng.uniform(25.0, 90.0) if slender else rng.uniform(6.0, 14.0)
    t = min(max(b / ratio, 1.2), 0.3 * min(h, b))
    tw = min(max(h / (ratio * 1.6), 1.2), 0.3 * min(h, b))
    # a third of the asymmetric-capable shapes get unequal flanges
    b2, t2 = b, t
    if rng.random() < 0.35:
        b2 = b * rng.uniform(0.5, 1.5)
        t2 = t * rng.choice((1.0, rng.uniform(0.7, 1.3)))
    elif rng.random() < 0.1:
        t2 = t * rng.uniform(0.7, 1.3)
    r1, r2 = rng.choice(((0.0, 0.0), (t, t / 2.0), (0.1 * t, 0.3 * t)))
    if shape == C:
        return channel(h, tw, b, t, b2, t2, r1, r2, welded)
    if shape == H:
        return i_section(h, tw, b, t, b2, t2, r1, r2, welded)
    if shape == T:
        return tee(h, tw, b, t, welded)
    if shape == B:
        return box(h, tw, b, t, b2, t2, welded)
    if shape == P:
        return pipe(h, max(h / (ratio * 2.0), 1.5), welded)
    if shape == DOUBLE_C:
        return double_channel(h, tw, b, t, rng.uniform(0.0, 60.0), welded)
    return solid_round(rng.uniform(5.0, 90.0), welded)
