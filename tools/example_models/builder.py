"""Builds a model file and its loads step by step, numbering everything on the way."""

from collections.abc import Iterable
from dataclasses import dataclass, field

from model_text import tidy

LOAD_DIGITS = 6  # that loads are written with


@dataclass(frozen=True)
class Source:
    """What a combination may take: a load case or another combination."""

    kind: str  # "case" or "combination"
    number: int


@dataclass
class Case:
    """A load case and its loads, in kN, m and K."""

    source: Source
    entry: dict  # of the model file, without its loads on spans
    # Sums of what acts on each element in each direction, per projected length or not.
    sums: dict[tuple[int, str, bool], float] = field(default_factory=dict)

    def span(self, elements: Iterable[int], direction: str, value: float,
             projected: bool = False) -> None:
        """Force per length of the elements, along global X, Y, Z or local x, y, z."""
        for element in elements:
            place = (element, direction, projected)
            self.sums[place] = self.sums.get(place, 0.0) + value

    def nodal(self, nodes: Iterable[int], **components: float) -> None:
        """Fx, Fy, Fz, Mx, My, Mz at each of the nodes, global."""
        self._add("nodal", {"nodes": list(nodes)} | {
            name: tidy(value, LOAD_DIGITS) for name, value in components.items()})

    def temperature(self, elements: Iterable[int], change: float) -> None:
        self._add("temperature", {"elements": list(elements), "change": change})

    def _add(self, kind: str, load: dict) -> None:
        self.entry.setdefault(kind, []).append(load)

    def model_entry(self) -> dict:
        """The load case of the model file; elements with the same load stand together."""
        groups: dict[tuple[str, bool, float], list[int]] = {}
        for (element, direction, projected), value in self.sums.items():
            groups.setdefault((direction, projected, tidy(value, LOAD_DIGITS)), []).append(element)
        spans = [{"elements": sorted(elements), "direction": direction}
                 | ({"projected": True} if projected else {}) | {"value": value}
                 for (direction, projected, value), elements in groups.items()]
        return self.entry | ({"span": spans} if spans else {})


@dataclass
class Builder:
    """kN and m; section dimensions in mm. Every `add_` returns the number it gave."""

    title: str
    description: str
    settings: dict
    frame: dict = field(default_factory=dict)
    analysis: dict = field(default_factory=dict)
    deflection_limit: dict = field(default_factory=dict)
    imported_forces: bool = False  # the file gives forces in place of loads
    cases: list[Case] = field(default_factory=list)
    lists: dict[str, list[dict]] = field(default_factory=lambda: {
        name: [] for name in ("materials", "sections", "nodes", "supports", "elements", "members",
                              "load_cases", "combinations")})
    _points: dict[tuple[float, float, float], int] = field(default_factory=dict)

    def _append(self, name: str, entry: dict) -> int:
        number = len(self.lists[name]) + 1
        self.lists[name].append({"number": number, **entry})
        return number

    def add_material(self, alloy: str) -> int:
        return self._append("materials", {"alloy": alloy})

    def add_section(self, name: str, shape: str, welded: bool = False, **dimensions: float) -> int:
        entry = {"name": name, "shape": shape, "dimensions": dimensions}
        return self._append("sections", entry | ({"welded": True} if welded else {}))

    def node(self, x: float, y: float, z: float) -> int:
        """The node at a point, made when it is first asked for."""
        point = (round(x, 6), round(y, 6), round(z, 6))
        if point not in self._points:
            self._points[point] = self._append("nodes", dict(zip("xyz", map(tidy, point))))
        return self._points[point]

    def add_support(self, node: int, *restrained: str) -> None:
        self.lists["supports"].append({"node": node, "restrained": list(restrained)})

    def add_element(self, name: str, nodes: tuple[int, int], section: int, material: int = 1,
                    **fields: object) -> int:
        """`fields`: beta, kind, releases, member_type, design, as in the model file."""
        entry = {"name": name, "nodes": list(nodes), "section": section, "material": material}
        return self._append("elements", entry | fields)

    def add_member(self, name: str, elements: list[int], **fields: object) -> int:
        return self._append("members", {"name": name, "elements": elements} | fields)

    def add_case(self, name: str, kind: str = "static", self_weight: float = 0.0) -> Case:
        entry = {"name": name, "kind": kind} | ({"self_weight": self_weight} if self_weight else {})
        number = self._append("load_cases", entry)
        self.cases.append(Case(Source("case", number), {"number": number, **entry}))
        return self.cases[-1]

    def combine(self, name: str, *terms: tuple[float, Case | Source], **fields: object) -> Source:
        """`terms` are factor and case or combination; `fields`: kind, seismic, design,
        serviceability."""
        entries = []
        for factor, of in terms:
            source = of.source if isinstance(of, Case) else of
            entries.append({source.kind: source.number, "factor": factor})
        number = self._append("combinations", {"name": name, **fields, "terms": entries})
        return Source("combination", number)

    def model(self) -> dict:
        """The model file with its loads, whether they are written into it or not."""
        head = {"format": "aluframe-model", "version": 1, "title": self.title,
                "description": self.description,
                "units": {"force": "kN", "length": "m", "section": "mm"},
                "settings": self.settings}
        if self.frame:
            head["frame"] = self.frame
        if self.analysis:
            head["analysis"] = self.analysis
        if self.deflection_limit:
            head["deflection_limit"] = self.deflection_limit
        lists = self.lists | {"load_cases": [case.model_entry() for case in self.cases]}
        return head | {name: entries for name, entries in lists.items() if entries}
