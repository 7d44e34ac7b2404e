"""Section constants by hand, from the dimensions that a report prints; plates without fillets, in mm."""

import math

from report_numbers import Interval, Recomputed


def _sizes(member):
    return {name: size.value for name, size in member.sizes.items()}


def is_symmetric(member):
    """Whether the checks take top and bottom of the section for alike."""
    get = _sizes(member)
    if member.shape == "H":
        return (get["B1"], get["tf1"]) == (get["B2"], get["tf2"])
    return member.shape not in ("C", "T")


def centroid_from_top(member):
    """Depth of the centroid of a C, a T or an H."""
    get = _sizes(member)
    if member.shape == "T":
        get.update(B1=get["B"], tf1=get["tf"], B2=0.0, tf2=0.0)
    web = get["H"] - get["tf1"] - get["tf2"]
    areas = (get["B1"] * get["tf1"], web * get["tw"], get["B2"] * get["tf2"])
    depths = (get["tf1"] / 2, get["tf1"] + web / 2, get["H"] - get["tf2"] / 2)
    return sum(a * z for a, z in zip(areas, depths)) / sum(areas)


def area(member):
    get, shape = _sizes(member), member.shape
    if shape == "SR":
        return math.pi / 4 * get["D"] ** 2
    if shape == "P":
        return math.pi / 4 * (get["D"] ** 2 - (get["D"] - 2 * get["tw"]) ** 2)
    if shape == "T":
        return get["B"] * get["tf"] + (get["H"] - get["tf"]) * get["tw"]
    if shape == "2C":
        return 2 * (2 * get["B"] * get["tf"] + (get["H"] - 2 * get["tf"]) * get["tw"])
    web = get["H"] - get["tf1"] - get["tf2"]
    if shape == "B":
        return get["B"] * (get["tf1"] + get["tf2"]) + 2 * web * get["tw"]
    return get["B1"] * get["tf1"] + get["B2"] * get["tf2"] + web * get["tw"]


def q_over_b(member):
    """First moments of area over the width that they act on, mm², by the check that they are for; none
    of shapes that need more than a line."""
    get = _sizes(member)
    if member.shape == "SR":  # D³/12 over the diameter
        return dict.fromkeys(("shear y", "shear z"), get["D"] ** 2 / 12)
    if member.shape == "P":  # 2/3·(R³ − r³) over two walls
        outer, inner = get["D"] / 2, get["D"] / 2 - get["tw"]
        return dict.fromkeys(("shear y", "shear z"), (outer**3 - inner**3) / 3 / get["tw"])
    if member.shape not in ("H", "B") or not is_symmetric(member) or get["tf1"] != get["tf2"]:
        return {}
    webs, width = (1, get["B1"]) if member.shape == "H" else (2, get["B"])
    half = get["H"] / 2 - get["tf1"]
    first = width * get["tf1"] * (half + get["tf1"] / 2) + webs * get["tw"] * half**2 / 2
    return {"shear z": first / (webs * get["tw"])}


def section_formulas(member):
    """The printed area and radii of gyration, by hand from what else is printed."""
    where, given = f"element {member.number}: ", member.properties
    yield Recomputed(where + "Area", Interval(area(member)), given["Area"])
    for axis in "yz":
        # The radii are scaled like areas, and have been read so.
        radius = given["i" + axis]
        yield Recomputed(where + "i" + axis, given["I" + axis * 2] / given["Area"], radius * radius)
