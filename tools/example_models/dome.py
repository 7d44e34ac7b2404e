"""A reticulated dome of one layer: rings and ribs of tubes, shallow enough to snap through."""

import math

from example_models.builder import Builder, Case

RADIUS = 20.0  # of the edge in plan, m
RISE = 5.0
RINGS = 5
SECTORS = 6

ROOF = 0.20  # glass and frames, kN/m² of plan
SNOW = 0.45
IMPERFECTION = 300  # of the span, by which the dome may be out of its shape


def sphere_radius() -> float:
    return (RADIUS**2 + RISE**2) / (2 * RISE)


def point(ring: int, place: int) -> tuple[float, float, float]:
    """Kiewitt's net: ring k has k nodes in each sector, at equal angles of the sphere."""
    radius = sphere_radius()
    slope = math.asin(RADIUS / radius) * ring / RINGS
    turn = 2 * math.pi * place / (SECTORS * ring) if ring else 0.0
    across = radius * math.sin(slope)
    height = radius * (math.cos(slope) - math.cos(math.asin(RADIUS / radius)))
    return across * math.cos(turn), across * math.sin(turn), height


class Net:
    def __init__(self, b: Builder) -> None:
        b.add_material("6061-T6")
        inner = b.add_section("Tube 160x6", "P", D=160, t=6)
        edge = b.add_section("Edge tube 200x8", "P", D=200, t=8)
        self.rings = [[b.node(*point(ring, place)) for place in range(max(1, SECTORS * ring))]
                      for ring in range(RINGS + 1)]
        for node in self.rings[RINGS]:
            b.add_support(node, "Dx", "Dy", "Dz")
        for ring in range(1, RINGS + 1):
            self._add_ring(b, ring, edge if ring == RINGS else inner)
            self._add_web(b, ring, inner)

    def _add_ring(self, b: Builder, ring: int, section: int) -> None:
        nodes = self.rings[ring]
        for place, node in enumerate(nodes):
            after = nodes[(place + 1) % len(nodes)]
            b.add_element(f"Ring {ring}-{place + 1}", (node, after), section)

    def _add_web(self, b: Builder, ring: int, section: int) -> None:
        """From every node of the ring before to the two that face it, from those of ribs to three."""
        before, nodes = self.rings[ring - 1], self.rings[ring]
        if ring == 1:
            for place, node in enumerate(nodes):
                b.add_element(f"Rib 1-{place + 1}", (before[0], node), section)
            return
        for place, node in enumerate(before):
            sector, step = divmod(place, ring - 1)
            facing = sector * ring + step
            is_rib = step == 0
            ends = [facing, facing + 1] + ([facing - 1] if is_rib else [])
            for end in ends:
                name = "Rib" if is_rib and end == facing else "Web"
                b.add_element(f"{name} {ring}-{place + 1}-{end % len(nodes) + 1}",
                              (node, nodes[end % len(nodes)]), section)

    def plan_radius(self, ring: float) -> float:
        slope = math.asin(RADIUS / sphere_radius()) * ring / RINGS
        return sphere_radius() * math.sin(slope)

    def areas(self) -> dict[int, float]:
        """Of every node off the edge the plan area that it carries, m²."""
        areas = {}
        for ring, nodes in enumerate(self.rings[:-1]):
            outer = self.plan_radius(ring + 0.5)
            inner = self.plan_radius(ring - 0.5) if ring else 0.0
            for node in nodes:
                areas[node] = math.pi * (outer**2 - inner**2) / len(nodes)
        return areas

    def places(self) -> dict[int, float]:
        """x of every node off the edge, m."""
        return {node: point(ring, place)[0] for ring, nodes in enumerate(self.rings[:-1])
                for place, node in enumerate(nodes)}


def by_area(case: Case, areas: dict[int, float], nodes: list[int], pressure: float) -> None:
    """Puts a pressure on plan, kN/m², on nodes; those with the same area stand together."""
    groups: dict[float, list[int]] = {}
    for node in nodes:
        groups.setdefault(round(areas[node], 6), []).append(node)
    for area, members in groups.items():
        case.nodal(members, Fz=-pressure * area)


def describe() -> Builder:
    b = Builder(
        "Reticulated dome",
        "A glazed dome of 40 m with a rise of 5 m, one layer of tubes with rigid joints on a ring of "
        "supports. It buckles as a shell: effective lengths come from its buckling modes, and the "
        "forces from its loads in second order, out of its shape by the first mode.",
        {"code": "GB50429-2007", "rib": False, "safety_class": 2},
        {"length_factors": "buckling", "buckling_limit": 4.2},
        {"second_order": True,
         "imperfections": {"mode": {"amplitude": round(2 * RADIUS / IMPERFECTION, 4)}}})
    net = Net(b)
    areas, places = net.areas(), net.places()
    nodes = list(areas)
    dead = b.add_case("DL", self_weight=1.0)
    by_area(dead, areas, nodes, ROOF)
    snow, half = b.add_case("SNOW"), b.add_case("SNOW HALF")
    by_area(snow, areas, nodes, SNOW)
    by_area(half, areas, [node for node in nodes if places[node] > 1e-6], SNOW)
    by_area(half, areas, [node for node in nodes if abs(places[node]) <= 1e-6], SNOW / 2)
    b.combine("1.3G+1.5S", (1.3, dead), (1.5, snow))
    b.combine("1.3G+1.5S half", (1.3, dead), (1.5, half))
    return b
