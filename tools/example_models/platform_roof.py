"""A slender frame of a platform roof that sways: its forces follow from second order."""

from example_models.builder import Builder, Case

SPAN = 6.0  # m
EAVES = 4.0
RIDGE = 4.6
BAY = 5.0  # between frames

ROOF = 0.35  # sheeting, purlins and lights, kN/m²
SNOW = 0.50  # kN/m² of plan
WIND = 0.30  # on the fascia and the columns' side, kN/m²
FASCIA = 0.8  # height of the fascia, m
LEAN = 1 / 200  # of the columns out of plumb, as a share of the vertical load across

# Sway is in the forces, so the columns buckle between their ends.
COLUMN = {"length_factors": {"y": 1.0, "z": 1.0}}
# Held sideways by purlins at a third of the slope.
RAFTER = {"length_factors": {"y": 1.0, "z": 0.35}}


class Frame:
    def __init__(self, b: Builder) -> None:
        b.add_material("6061-T6")
        column = b.add_section("Column H 180x130", "H", H=180, B1=130, tw=7, tf1=10)
        rafter = b.add_section("Rafter H 200x130", "H", H=200, B1=130, tw=6, tf1=10)
        feet = [b.node(x, 0.0, 0.0) for x in (0.0, SPAN)]
        self.eaves = [b.node(x, 0.0, EAVES) for x in (0.0, SPAN)]
        ridge = b.node(SPAN / 2, 0.0, RIDGE)
        for foot in feet:  # turns in the plane of the frame
            b.add_support(foot, "Dx", "Dy", "Dz", "Rz")
        for held in (*self.eaves, ridge):  # by the bracing of the roof
            b.add_support(held, "Dy")
        self.columns = [
            b.add_element(f"Column {name}", ends, column, design=COLUMN)
            for name, ends in zip("AB", zip(feet, self.eaves))]
        self.rafters = [
            b.add_element(f"Rafter {name}", (eaves, ridge), rafter, member_type="beam",
                          design=RAFTER)
            for name, eaves in zip("AB", self.eaves)]


def describe() -> Builder:
    b = Builder(
        "Platform roof on slender columns",
        "One frame of a station's platform roof in Harbin, open on all sides: nothing but its "
        "corners keeps it from swaying under snow and wind. The forces are computed from the loads "
        "in second order, each combination on its own.",
        {"code": "GB50429-2007", "rib": False, "safety_class": 2},
        {"braced_a": False, "braced_b": True}, {"second_order": True})
    frame = Frame(b)
    dead = b.add_case("DL", self_weight=1.0)
    dead.span(frame.rafters, "Z", -ROOF * BAY)
    snow, drift = b.add_case("SNOW"), b.add_case("SNOW HALF")
    snow.span(frame.rafters, "Z", -SNOW * BAY, projected=True)
    drift.span(frame.rafters[:1], "Z", -SNOW * BAY, projected=True)
    wind = b.add_case("WIND")
    wind.nodal(frame.eaves, Fx=WIND * FASCIA * BAY)
    wind.span(frame.columns[:1], "X", WIND * 0.3)
    lean = b.add_case("LEAN")
    lean.nodal(frame.eaves, Fx=LEAN * (ROOF + SNOW) * BAY * SPAN / 2)
    add_combinations(b, dead, snow, drift, wind, lean)
    return b


def add_combinations(b: Builder, dead: Case, snow: Case, drift: Case, wind: Case,
                     lean: Case) -> None:
    b.combine("1.3G+1.5S", (1.3, dead), (1.5, snow), (1.5, lean))
    b.combine("1.3G+1.5S+0.9W", (1.3, dead), (1.5, snow), (0.9, wind), (1.5, lean))
    b.combine("1.3G+1.5S half+0.9W", (1.3, dead), (1.5, drift), (0.9, wind), (1.5, lean))
    b.combine("1.3G+1.5W+1.05S", (1.3, dead), (1.5, wind), (1.05, snow), (1.5, lean))
    b.combine("1.0G+1.5W", (1.0, dead), (1.5, wind))
