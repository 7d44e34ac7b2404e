"""What the families share: a registry, the parts of a point, and common force states."""


def registry():
    """(families by name, decorator that adds a function under its own name)."""
    families = {}

    def family(function):
        families[function.__name__] = function
        return function

    return families, family


def force(point, N=None, My=None, Mz=None):
    """Sets the force state of a point; None keeps a component."""
    six = point["force"]["dForce"]
    for index, value in ((0, N), (4, My), (5, Mz)):
        if value is not None:
            six[index] = value
    return point


def sect(point):
    return point["data"]["code"]["sect"]


def matl(point):
    return point["data"]["code"]["matl"]


def para(point):
    return point["data"]["code"]["para"]


def axial(rng, point):
    """Compression without bending."""
    size = sect(point)["dArea"] * rng.uniform(1.0, 60.0)
    return force(point, -abs(size), rng.choice((0.0, 5e-11)), rng.choice((0.0, -5e-11)))


def bend(rng, point, sign):
    """A clear My of the given sign, with any axial force."""
    return force(point, None, sign * rng.uniform(1e5, 5e7))
