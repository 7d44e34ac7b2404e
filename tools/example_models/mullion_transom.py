"""A stick curtain wall of mullions over two storeys and transoms between them."""

from example_models.builder import Builder, Case

PITCH = 1.5  # between mullions, m
BAYS = 4
LEVELS = (0.0, 0.9, 3.6, 4.5, 7.2)  # of the transoms; 3.6 and 7.2 are floors

GLASS = 0.45  # weight of the insulating glass with its frame, kN/m²
PRESSURE = 1.0  # wind, kN/m²
SUCTION = 1.0
EDGE_SUCTION = 1.35  # on the bay at the corner of the building
EARTHQUAKE = 5.0 * 0.08 * GLASS  # dynamic factor 5, greatest influence coefficient 0.08

PINNED = {"start": ["Mx", "My", "Mz"], "end": ["My", "Mz"]}


class Wall:
    """Numbers of the elements by place: mullion line and storey part, transom bay and level."""

    def __init__(self, b: Builder) -> None:
        alloy = b.add_material("6063-T5")
        mullion = b.add_section("Mullion 150x65", "B", H=150, B=65, tw=3, tf1=4)
        transom = b.add_section("Transom 80x60", "B", H=80, B=60, tw=2, tf1=2.5)
        self.mullions = [self._mullion(b, line, mullion, alloy) for line in range(BAYS + 1)]
        # Turned so that the stresses of weight and wind add up where pure bending is checked.
        self.transoms = [
            [b.add_element(f"Transom {bay + 1}/{level + 1}", (
                b.node(bay * PITCH, 0, z), b.node((bay + 1) * PITCH, 0, z)),
                transom, alloy, beta=270, releases=PINNED)
             for level, z in enumerate(LEVELS)]
            for bay in range(BAYS)]

    @staticmethod
    def _mullion(b: Builder, line: int, section: int, alloy: int) -> list[int]:
        """Hung from the upper floor; floor and sleeve below hold it sideways and from turning."""
        nodes = [b.node(line * PITCH, 0, z) for z in LEVELS]
        for node in (nodes[0], nodes[2]):
            b.add_support(node, "Dx", "Dy", "Rz")
        b.add_support(nodes[-1], "Dx", "Dy", "Dz", "Rz")
        # No members and factors are given: a mullion is found to buckle from floor to floor.
        return [b.add_element(f"Mullion {line + 1}/{i + 1}", ends, section, alloy, beta=90)
                for i, ends in enumerate(zip(nodes, nodes[1:]))]


def shares(height: float) -> tuple[float, float]:
    """Widths of a pane that load a transom and a mullion, as uniform load of the same total.

    The pane is divided by lines at 45 degrees from its corners.
    """
    short = min(PITCH, height)
    on_transom = (PITCH - short / 2) * short / 2 if height < PITCH else PITCH**2 / 4
    on_mullion = (PITCH * height - 2 * on_transom) / 2
    return on_transom / PITCH, on_mullion / height


def load_panes(case: Case, wall: Wall, inward: list[float]) -> None:
    """Loads across the wall, kN/m² towards the building (+Y), one for each bay."""
    for bay, load in enumerate(inward):
        for part, (low, high) in enumerate(zip(LEVELS, LEVELS[1:])):
            transom, mullion = shares(high - low)
            case.span(wall.transoms[bay][part : part + 2], "Y", load * transom)
            sides = [wall.mullions[bay][part], wall.mullions[bay + 1][part]]
            case.span(sides, "Y", load * mullion)


def load_glass(case: Case, wall: Wall) -> None:
    """Each pane stands on the transom below it."""
    for part, (low, high) in enumerate(zip(LEVELS, LEVELS[1:])):
        case.span([bay[part] for bay in wall.transoms], "Z", -GLASS * (high - low))


def add_combinations(b: Builder, dead: Case, inward: Case, outward: Case, earthquake: Case) -> None:
    inwards = b.combine("1.3G+1.5Wp", (1.3, dead), (1.5, inward))
    outwards = b.combine("1.3G+1.5Ws", (1.3, dead), (1.5, outward))
    b.combine("1.0G+1.5Ws", (1.0, dead), (1.5, outward))
    mixed = b.combine("1.3G+1.5Wp+0.7E", (1.3, dead), (1.5, inward), (0.7, earthquake))
    wind = b.combine("Wind either way", (1.5, inward), (1.5, outward), kind="envelope",
                     design=False)
    quake = b.combine("Earthquake either way", (1.4, earthquake), (-1.4, earthquake),
                      kind="envelope", design=False)
    b.combine("1.3G+wind either way", (1.3, dead), (1.0, wind))
    b.combine("1.3G+earthquake either way+0.2 wind", (1.3, dead), (1.0, quake), (0.2, wind))
    b.combine("Extremes", (1.0, inwards), (1.0, outwards), (1.0, mixed), kind="envelope")
    for name, load in (("G+Wp in use", inward), ("G+Ws in use", outward)):
        b.combine(name, (1.0, dead), (1.0, load), design=False, serviceability=True)


def describe() -> Builder:
    b = Builder(
        "Curtain wall of mullions and transoms over two storeys",
        "Part of a stick curtain wall at the corner of an office building in Shanghai: mullions of "
        "two storeys hung from the upper floor, 1.5 m apart, insulating glass between. The forces are "
        "computed from the loads of the panes, shared out between transoms and mullions, and the "
        "members and their effective length factors found from the frame.",
        {"code": "GB50429-2007", "rib": True, "safety_class": 2, "seismic": True})
    wall = Wall(b)
    dead = b.add_case("DL", self_weight=1.0)
    load_glass(dead, wall)
    inward, outward = b.add_case("WIND+"), b.add_case("WIND-")
    load_panes(inward, wall, [PRESSURE] * BAYS)
    load_panes(outward, wall, [-EDGE_SUCTION] + [-SUCTION] * (BAYS - 1))
    earthquake = b.add_case("EQ", kind="seismic_static")
    load_panes(earthquake, wall, [EARTHQUAKE] * BAYS)
    add_combinations(b, dead, inward, outward, earthquake)
    b.deflection_limit = {"span": 180, "absolute": 0.02}
    return b
