"""A covered footbridge: two trusses of double channels, the deck between their lower chords."""

from itertools import pairwise

from example_models.builder import Builder, Case

PANELS = 8
PANEL = 3.0  # m
HEIGHT = 2.7  # between the chords
WIDTH = 3.0  # between the trusses
SIDES = (0.0, WIDTH)

DECK = 0.60  # planks, ballast-free, kN/m²
ROOF = 0.30  # sheeting and lights, kN/m²
CROWD = 4.3  # pedestrians, kN/m²
WIND_LOWER = 0.6  # on the lower chord with the edge of the deck, kN/m
WIND_UPPER = 0.45  # on the upper chord with the edge of the roof, kN/m
SEISMIC = 0.12  # share of the permanent load, across the bridge
SUN = 15.0  # upper chords warmer than the rest, K

JOINT = {"y": 0.9, "z": 0.9}  # length factors between welded joints


class Bridge:
    def __init__(self, b: Builder) -> None:
        self.b = b
        b.add_material("6061-T6")
        self.chord = b.add_section("Chord 2C 180x70", "2C", True, H=180, B=70, tw=8, tf=10, C=100)
        self.box = b.add_section("Post 120x100", "B", True, H=120, B=100, tw=6, tf1=8)
        self.cross = b.add_section("Cross beam 220x110", "B", True, H=220, B=110, tw=6, tf1=10)
        self.end_post = b.add_section("End post 160x150", "B", True, H=160, B=150, tw=10, tf1=10)
        self.diagonal = b.add_section("Diagonal 90x6", "P", True, D=90, t=6)
        self.lower_brace = b.add_section("Bracing 100x5", "P", D=100, t=5)
        self.upper_brace = b.add_section("Bracing 90x4", "P", D=90, t=4)
        self.lower = [self._chord("Lower chord", y, 0.0, range(PANELS + 1)) for y in SIDES]
        self.upper = [self._chord("Upper chord", y, HEIGHT, range(1, PANELS)) for y in SIDES]
        self._trusses()
        self.cross_beams = [self._across("Cross beam", i, 0.0, self.cross)
                            for i in range(PANELS + 1)]
        self.struts = [self._across("Strut", i, HEIGHT, self.box) for i in range(1, PANELS)]
        self._bracing("Lower bracing", 0.0, self.lower_brace, range(PANELS + 1))
        self._bracing("Upper bracing", HEIGHT, self.upper_brace, range(1, PANELS))
        self._bearings()

    def at(self, i: int, y: float, z: float) -> int:
        return self.b.node(i * PANEL, y, z)

    def _chord(self, name: str, y: float, z: float, joints: range) -> list[int]:
        return [self.b.add_element(f"{name} {'L' if y else 'R'}{i + 1}", (
            self.at(i, y, z), self.at(j, y, z)), self.chord, design={"length_factors": JOINT})
            for i, j in pairwise(joints)]

    def _trusses(self) -> None:
        for y, side in zip(SIDES, "RL"):
            for i in range(1, PANELS):
                self.b.add_element(
                    f"Vertical {side}{i}", (self.at(i, y, 0.0), self.at(i, y, HEIGHT)), self.box,
                    design={"length_factors": JOINT})
            for i in range(1, PANELS - 1):
                self._diagonal(f"Diagonal {side}{i}", y, i)
            for name, foot, top in (("west", 0, 1), ("east", PANELS, PANELS - 1)):
                self.b.add_element(
                    f"End post {side} {name}", (self.at(foot, y, 0.0), self.at(top, y, HEIGHT)),
                    self.end_post, design={"length_factors": JOINT})

    def _diagonal(self, name: str, y: float, panel: int) -> None:
        """In tension under full load: down towards the middle of the span."""
        falls = panel < PANELS / 2
        ends = (self.at(panel, y, HEIGHT if falls else 0.0),
                self.at(panel + 1, y, 0.0 if falls else HEIGHT))
        self.b.add_element(name, ends, self.diagonal, kind="truss")

    def _across(self, name: str, i: int, z: float, section: int) -> int:
        return self.b.add_element(
            f"{name} {i}", (self.at(i, 0.0, z), self.at(i, WIDTH, z)), section,
            design={"length_factors": JOINT})

    def _bracing(self, name: str, z: float, section: int, joints: range) -> None:
        for i, j in pairwise(joints):
            near, far = SIDES if i % 2 == 0 else SIDES[::-1]
            self.b.add_element(
                f"{name} {i + 1}", (self.at(i, near, z), self.at(j, far, z)), section, kind="truss")

    def _bearings(self) -> None:
        """Fixed in the west, sliding along the bridge in the east; one side guides it across."""
        self.b.add_support(self.at(0, 0.0, 0.0), "Dx", "Dy", "Dz")
        self.b.add_support(self.at(0, WIDTH, 0.0), "Dx", "Dz")
        self.b.add_support(self.at(PANELS, 0.0, 0.0), "Dy", "Dz")
        self.b.add_support(self.at(PANELS, WIDTH, 0.0), "Dz")


def strips(count: int) -> list[float]:
    """Lengths of deck or roof that a line of cross members carries: half panels at the ends."""
    return [PANEL / 2 if i in (0, count - 1) else PANEL for i in range(count)]


def load_deck(case: Case, bridge: Bridge, load: float, beams: range) -> None:
    """Vertical load, kN/m², on the panels between the given cross beams."""
    for beam, strip in zip(beams, strips(len(beams))):
        case.span([bridge.cross_beams[beam]], "Z", -load * strip)


def load_roof(case: Case, bridge: Bridge, load: float) -> None:
    for strut, strip in zip(bridge.struts, strips(len(bridge.struts))):
        case.span([strut], "Z", -load * strip)


def load_across(case: Case, bridge: Bridge, lower: float, upper: float) -> None:
    """Along +Y on both chords of the windward truss, kN/m."""
    case.span(bridge.lower[0], "Y", lower)
    case.span(bridge.upper[0], "Y", upper)


def add_combinations(b: Builder, cases: dict[str, Case]) -> None:
    dead, crowd, half = cases["DL"], cases["CROWD"], cases["HALF"]
    wind, sun, quake = cases["WIND"], cases["SUN"], cases["EQ"]
    b.combine("1.3G+1.5Q", (1.3, dead), (1.5, crowd))
    b.combine("1.3G+1.5Q half", (1.3, dead), (1.5, half))
    people = b.combine("Crowd anywhere", (1.5, crowd), (1.5, half), kind="envelope", design=False)
    sway = b.combine("Wind either way", (1.5, wind), (-1.5, wind), kind="envelope", design=False)
    b.combine("1.3G+crowd+0.6 wind", (1.3, dead), (1.0, people), (0.6, sway))
    b.combine("1.3G+wind+0.7 crowd", (1.3, dead), (1.0, sway), (0.7, people))
    b.combine("1.0G+wind", (1.0, dead), (1.0, sway))
    b.combine("1.3G+1.5Q+0.9T", (1.3, dead), (1.5, crowd), (0.9, sun))
    b.combine("1.3(G+0.5Q)+1.4E", (1.3, dead), (0.65, crowd), (1.4, quake))
    b.combine("1.3(G+0.5Q)-1.4E", (1.3, dead), (0.65, crowd), (-1.4, quake))


def describe() -> Builder:
    b = Builder(
        "Covered footbridge of 24 m",
        "Footbridge between two station buildings in Hangzhou: two welded trusses of double "
        "channels, box posts and pipe diagonals, the deck on cross beams between the lower chords "
        "and a light roof on the upper ones. The forces are computed from the loads: a crowd on all or "
        "half of the deck, wind, earthquake, and the sun on the upper chords.",
        {"code": "GB50429-2007", "rib": True, "safety_class": 2, "strength_ratio": 0.9,
         "seismic": True})
    bridge = Bridge(b)
    cases = {"DL": b.add_case("DL", self_weight=1.1)}
    load_deck(cases["DL"], bridge, DECK, range(PANELS + 1))
    load_roof(cases["DL"], bridge, ROOF)
    cases |= {name: b.add_case(name) for name in ("CROWD", "HALF", "WIND", "SUN")}
    load_deck(cases["CROWD"], bridge, CROWD, range(PANELS + 1))
    load_deck(cases["HALF"], bridge, CROWD, range(PANELS // 2 + 1))
    load_across(cases["WIND"], bridge, WIND_LOWER, WIND_UPPER)
    cases["SUN"].temperature(bridge.upper[0] + bridge.upper[1], SUN)
    cases["EQ"] = b.add_case("EQ", kind="seismic_static")
    load_across(cases["EQ"], bridge, SEISMIC * (DECK + 0.5 * CROWD) * WIDTH, SEISMIC * ROOF * WIDTH)
    add_combinations(b, cases)
    return b
