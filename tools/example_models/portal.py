"""Two portal frames of a workshop with a light crane on brackets inside the columns."""

from example_models.builder import Builder, Case

SPAN = 9.0  # m
BAY = 5.0  # between the frames
EAVES = 5.0
RIDGE = 5.8
BRACKET = 3.6  # height of the crane brackets
ARM = 0.50  # of the crane load from the column's axis
FRAMES = (0.0, BAY)

ROOF = 0.30  # sheeting and purlins, kN/m²
SNOW = 0.45  # kN/m²
WALL = 0.50  # cladding on the eaves beams, kN/m
WIND = 0.65 * 0.45  # pressure at roof height between other buildings, kN/m²
STOP = 2.2  # of the crane from the first frame, where it lifts
NEAR_WHEEL = {"A": 23.0, "B": 19.0}  # on the rail the trolley is close to, kN: it stops short of B
FAR_WHEEL = 7.0
SURGE = 0.10  # share of the wheel load, across the rails
GABLE = 7.0  # wind on the gable carried at each eaves, kN

WELDED = {"haz_width": 25}
# Held sideways by purlins, rails or cladding at half the length.
RAFTER = WELDED | {"length_factors": {"y": 1.2, "z": 0.35},
                   "moment_factors": {"y": {"loading": 1}, "z": {"value": 1.0}}}
ENDS_PINNED = {"start": ["My", "Mz"], "end": ["My", "Mz"]}


class Workshop:
    def __init__(self, b: Builder) -> None:
        self.b = b
        b.add_material("6061-T6")
        self.column = b.add_section(
            "Column H 240x130/160", "H", True, H=240, B1=130, tw=6, tf1=10, B2=160, tf2=12)
        self.rafter = b.add_section(
            "Rafter H 220x150/120", "H", True, H=220, B1=150, tw=6, tf1=12, B2=120, tf2=10)
        self.rail = b.add_section("Crane rail H 220x140", "H", H=220, B1=140, tw=8, tf1=12)
        self.bracket = b.add_section("Bracket T 180x120", "T", True, H=180, B=120, tw=8, tf=10)
        self.eaves = b.add_section("Eaves beam C 120x60", "C", H=120, B1=60, tw=5, tf1=8)
        self.brace = b.add_section("Wall brace T 140x140", "T", H=140, B=140, tw=9, tf=10)
        self.tie = b.add_section("Tie rod 22", "SR", D=22)
        self.columns = {(x, y): self._column(x, y) for y in FRAMES for x in (0.0, SPAN)}
        self.rafters = {(x, y): self._rafter(x, y) for y in FRAMES for x in (0.0, SPAN)}
        for y in FRAMES:
            self._tie(y)
        self.rails = {x: self._rail(x) for x in (ARM, SPAN - ARM)}
        self.eaves_beams = [self._wall(x) for x in (0.0, SPAN)]
        self._ridge()

    def _column(self, x: float, y: float) -> list[int]:
        """Wide flange inside, so the section is turned round on the far side. Pinned base."""
        b, beta = self.b, (0 if x == 0.0 else 180)
        base, arm, top = (b.node(x, y, z) for z in (0.0, BRACKET, EAVES))
        b.add_support(base, "Dx", "Dy", "Dz", "Rz")
        name = f"Column {'AB'[x > 0]}{'12'[y > 0]}"
        parts = [b.add_element(f"{name} {part}", ends, self.column, beta=beta, design=WELDED)
                 for part, ends in (("below", (base, arm)), ("above", (arm, top)))]
        b.add_member(name, parts, length_factors={"y": 1.3, "z": 0.7})
        tip = b.node(ARM if x == 0.0 else SPAN - ARM, y, BRACKET)
        b.add_element(f"Bracket {name[-2:]}", (arm, tip), self.bracket,
                      design=WELDED | {"length_factors": {"y": 2.0, "z": 2.0}})
        return parts

    def _rafter(self, x: float, y: float) -> int:
        b = self.b
        return b.add_element(
            f"Rafter {'AB'[x > 0]}{'12'[y > 0]}",
            (b.node(x, y, EAVES), b.node(SPAN / 2, y, RIDGE)), self.rafter, member_type="beam",
            design=RAFTER)

    def _tie(self, y: float) -> None:
        """A rod: it only pulls, so its slenderness is of no account."""
        b = self.b
        b.add_element(f"Tie {'12'[y > 0]}", (b.node(0, y, EAVES), b.node(SPAN, y, EAVES)), self.tie,
                      kind="truss",
                      design={"slenderness_limits": {"checked": False, "compression": 200,
                                                     "tension": 400}})

    def _rail(self, x: float) -> list[int]:
        b, name = self.b, f"Crane rail {'AB'[x > SPAN / 2]}"
        start, middle, end = (b.node(x, y, BRACKET) for y in (0.0, STOP, BAY))
        parts = [b.add_element(f"{name}1", (start, middle), self.rail,
                               releases={"start": ["My", "Mz"]}),
                 b.add_element(f"{name}2", (middle, end), self.rail,
                               releases={"end": ["My", "Mz"]})]
        b.add_member(name, parts)
        return parts

    def _wall(self, x: float) -> list[int]:
        """Eaves beam and the two braces from the bases to its middle."""
        b, side = self.b, "AB"[x > 0]
        start, middle, end = (b.node(x, y, EAVES) for y in (0.0, BAY / 2, BAY))
        held = {"stability_coefficients": {"y": 0.9, "z": 1.0},
                "moment_factors": {"y": {"loading": 1}, "z": {"loading": 1}},
                "length_factors": {"y": 0.5, "z": 0.5}}
        parts = [b.add_element(f"Eaves beam {side}{i}", ends, self.eaves, releases=released,
                               design=held)
                 for i, ends, released in (
                     (1, (start, middle), {"start": ["My", "Mz"]}),
                     (2, (middle, end), {"end": ["My", "Mz"]}))]
        b.add_member(f"Eaves beam {side}", parts)
        for i, y in enumerate(FRAMES):
            b.add_element(
                f"Brace {side}{i + 1}", (b.node(x, y, 0.0), middle), self.brace,
                releases=ENDS_PINNED, design={
                    "moment_factors": {"y": {"loading": 1}, "z": {"loading": 1}},
                    "slenderness_limits": {"compression": 220, "tension": 350}})
        return parts

    def _ridge(self) -> None:
        b = self.b
        b.add_element("Ridge beam", (b.node(SPAN / 2, 0.0, RIDGE), b.node(SPAN / 2, BAY, RIDGE)),
                      self.eaves, releases=ENDS_PINNED,
                      design={"length_factors": {"y": 1.0, "z": 0.5},
                              "moment_factors": {"y": {"loading": 1}, "z": {"loading": 1}}})

    def wheel_node(self, x: float) -> int:
        return self.b.node(x, STOP, BRACKET)


def load_crane(case: Case, shop: Workshop, side: str) -> None:
    """Wheels on both rails, the trolley close to one; the surge pushes both towards that side."""
    rails = (ARM, SPAN - ARM)
    near, far = rails if side == "A" else rails[::-1]
    towards = -1.0 if side == "A" else 1.0
    for rail, wheel in ((near, NEAR_WHEEL[side]), (far, FAR_WHEEL)):
        case.nodal([shop.wheel_node(rail)], Fz=-wheel, Fx=towards * SURGE * wheel)


def load_roof(case: Case, shop: Workshop, load: float) -> None:
    """Vertical, kN/m² of plan; every frame carries a full bay of the longer building."""
    slope = (SPAN / 2) / ((SPAN / 2) ** 2 + (RIDGE - EAVES) ** 2) ** 0.5
    case.span(shop.rafters.values(), "Z", -load * BAY * slope)


def load_wind(case: Case, shop: Workshop) -> None:
    """Along +X: pressure on columns A, suction on columns B and on both roof slopes."""
    for (x, _), column in shop.columns.items():
        case.span(column, "X", WIND * BAY * (0.8 if x == 0.0 else 0.5))
    for (x, _), rafter in shop.rafters.items():
        case.span([rafter], "z", WIND * BAY * (0.6 if x == 0.0 else 0.5))


def add_combinations(b: Builder, cases: dict[str, Case]) -> None:
    dead, snow, wind, gable = cases["DL"], cases["SNOW"], cases["WIND X"], cases["WIND Y"]
    crane = b.combine("Crane either side", (1.5, cases["CRANE A"]), (1.5, cases["CRANE B"]),
                      kind="envelope", design=False)
    b.combine("1.3G+1.5S", (1.3, dead), (1.5, snow))
    b.combine("1.3G+1.5 crane A+0.7S", (1.3, dead), (1.5, cases["CRANE A"]), (1.05, snow))
    b.combine("1.3G+1.5 crane B+0.7S", (1.3, dead), (1.5, cases["CRANE B"]), (1.05, snow))
    b.combine("1.3G+1.5S+0.7 crane", (1.3, dead), (1.5, snow), (0.7, crane))
    b.combine("1.3G+1.5W+0.7 crane+0.7S", (1.3, dead), (1.5, wind), (0.7, crane), (1.05, snow))
    b.combine("1.0G+1.5W", (1.0, dead), (1.5, wind))
    b.combine("1.3G+1.5Wy+0.7S", (1.3, dead), (1.5, gable), (1.05, snow))
    b.combine("1.3G-1.5Wy+0.7S", (1.3, dead), (-1.5, gable), (1.05, snow))


def describe() -> Builder:
    b = Builder(
        "Workshop portal with crane brackets",
        "Two frames of a light workshop in Suzhou: columns and rafters of unequal H sections with "
        "a tie rod, tee brackets that carry the crane rails beside the columns, channels at eaves "
        "and ridge, tee braces in the walls. Bracket A1 comes out slightly over 1 on purpose. The file "
        "gives the forces of another analysis program (tools/frame_analysis.py) in place of loads.",
        {"code": "GB50429-2007", "rib": False, "safety_class": 2, "strength_ratio": 0.9},
        {"braced_a": False, "braced_b": True}, imported_forces=True)
    shop = Workshop(b)
    cases = {"DL": b.add_case("DL", self_weight=1.05)}
    load_roof(cases["DL"], shop, ROOF)
    for beam in shop.eaves_beams:
        cases["DL"].span(beam, "Z", -WALL)
    cases |= {name: b.add_case(name) for name in ("SNOW", "CRANE A", "CRANE B", "WIND X", "WIND Y")}
    load_roof(cases["SNOW"], shop, SNOW)
    load_crane(cases["CRANE A"], shop, "A")
    load_crane(cases["CRANE B"], shop, "B")
    load_wind(cases["WIND X"], shop)
    cases["WIND Y"].nodal([b.node(x, 0.0, EAVES) for x in (0.0, SPAN)], Fy=GABLE)
    add_combinations(b, cases)
    return b
