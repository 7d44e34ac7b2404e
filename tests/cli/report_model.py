"""What a report must say of its model, worked out from the model file alone.

The rules are written down here a second time, plainly, for models in kN, m and mm. Where a model gives loads
in place of forces, these come from the analysis in tools/frame_analysis.py; that is of first order, so for
second order `program_forces` tells what `aluframe analyse` shows of each combination.
"""

import math

from report_members import FoundColumns
from report_reader import POSITIONS
from tool_runner import TOOLS  # noqa: F401 - makes the tools known

from frame_analysis import analyse_model
from frame_loads import has_loads

KILO = 1000.0  # kN to N, and m to mm

# f and fv of GB 50429-2007 in N/mm² for the alloys that the models use, thin parts.
STRENGTHS = {"6061-T6": (200, 115), "6063-T5": (90, 55), "5083-H112": (90, 55)}
WEAKLY_HARDENING = {"6061-T6", "6063-T6", "6063A-T6"}

# Limits of slenderness without limits of the element's own: (compression, tension).
SLENDERNESS_LIMITS = {"Column": (150, 400), "Beam": (200, 350), "Brace": (200, 400), "Truss": (150, 350)}

CASE_ENDINGS = {"response_spectrum": "(RS)", "eccentric_spectrum": "(ES)"}
EARTHQUAKES = {"response_spectrum", "eccentric_spectrum", "seismic_static"}


class ModelFacts:
    def __init__(self, model, program_forces=None):
        """program_forces: five rows by element and combination, in kN and m; none of envelopes."""
        assert model["units"] == {"force": "kN", "length": "m", "section": "mm"}
        self.model = model
        self.settings = model.get("settings", {})
        self.elements = self._by_number("elements")
        self.nodes = self._by_number("nodes")
        self.sections = self._by_number("sections")
        self.materials = self._by_number("materials")
        self.cases = self._by_number("load_cases")
        self.combinations = self._by_number("combinations")
        self.program_forces = program_forces or {}
        self.forces = {} if program_forces else self._forces_under_loads()
        self.forces |= {(row["element"], row["case"]): row["values"] for row in model.get("forces", [])}

    def _forces_under_loads(self):
        if not any(map(has_loads, self.cases.values())):
            return {}
        frame, results = analyse_model(self.model)
        return {(bar.number, case): [[v / (KILO if i < 3 else KILO**2) for i, v in enumerate(row)]
                                     for row in result.forces[place]]
                for case, result in results.items() for place, bar in enumerate(frame.bars)}

    def _by_number(self, name):
        return {entry["number"]: entry for entry in self.model.get(name, [])}

    # The list of combinations

    def header_rows(self):
        """Lines of the list of combinations."""
        rows = [self._row(entry) for entry in self.combinations.values() if entry.get("design", True)]
        return "".join(rows)[:-1].split("\n")

    def _name(self, entry):
        return entry.get("name") or str(entry["number"])

    def _term_name(self, term):
        if "combination" in term:
            return self._name(self.combinations[term["combination"]]).rjust(14)
        case = self.cases[term["case"]]
        kind = case.get("kind", "static")
        if kind == "moving" and self.model.get("moving_load_code", 0) == 0:
            return " " * 14
        return (self._name(case) + CASE_ENDINGS.get(kind, "")).rjust(14)

    def _row(self, combination):
        kind = 1 if combination.get("kind") == "envelope" else 0
        text = f"   {self._name(combination):>7}{kind:3d} "
        shown, first = 0, True
        for place, term in enumerate(combination["terms"]):
            factor = term.get("factor", 1.0)
            if factor != 0:
                number = f"{factor:.3f}" if factor < 0 else f" {factor:.3f}"
                text += ("   " if first else " +") + f"{self._term_name(term)}({number})"
                shown, first = shown + 1, False
            if shown == 3 and place < len(combination["terms"]) - 1:
                text, shown = text + "\n" + " " * 15, 0
        return text + "\n"

    # An element

    def length(self, number):
        """Length of the member that an element is in, mm."""
        if "members" not in self.model:
            return sum(self._own_length(each) for each in FoundColumns(self.model).run_of(number))
        for member in self.model["members"]:
            if number in member["elements"]:
                return sum(self._own_length(each) for each in member["elements"])
        return self._own_length(number)

    def _own_length(self, number):
        start, end = (self.nodes[node] for node in self.elements[number]["nodes"])
        return KILO * math.dist(*([point[axis] for axis in "xyz"] for point in (start, end)))

    def type(self, number):
        element = self.elements[number]
        if "member_type" in element:
            return element["member_type"].capitalize()
        if element.get("kind") == "truss":
            return "Truss"
        start, end = (self.nodes[node] for node in element["nodes"])
        tilt = math.degrees(math.acos(KILO * abs(end["z"] - start["z"]) / self._own_length(number)))
        return "Column" if tilt <= 10 else "Beam" if tilt >= 80 else "Brace"

    def alloy(self, number):
        return self.materials[self.elements[number]["material"]]["alloy"]

    def is_weakly_hardening(self, number):
        return self.alloy(number) in WEAKLY_HARDENING

    def length_factor(self, number, axis):
        """Of the file, else 1: so much has a column whose storeys are alike and turn freely at the ends."""
        factors = self.elements[number].get("design", {}).get("length_factors")
        for member in self.model.get("members", []):
            if factors is None and number in member["elements"]:
                factors = member.get("length_factors")
        return (factors or {}).get(axis, 1.0)

    def slenderness_limit(self, number, compressed):
        own = self.elements[number].get("design", {}).get("slenderness_limits")
        if own is None:
            return SLENDERNESS_LIMITS[self.type(number)][0 if compressed else 1]
        return own.get("compression", 200) if compressed else own.get("tension", 300)

    # Forces and factors

    def side_forces(self, element, combination, side, position):
        """N, Fy, Fz, Mx, My, Mz in N and mm, of the largest (1) or smallest (-1) side, and the largest
        magnitude of a term."""
        entry = self.combinations[combination]
        if (element, combination) in self.program_forces:
            return self._at(position, self.program_forces[element, combination])
        terms = [self._term_forces(element, term, side, position) for term in entry["terms"]]
        if entry.get("kind") != "envelope":
            return [sum(column) for column in zip(*terms)]
        both = terms + [self._term_forces(element, term, -side, position) for term in entry["terms"]]
        return [max(column, key=lambda value: side * value) for column in zip(*both)]

    def _term_forces(self, element, term, side, position):
        factor = term.get("factor", 1.0)
        if "combination" in term:
            values = self.side_forces(
                element, term["combination"], side if factor >= 0 else -side, position)
        else:
            values = self._at(position, self.forces[element, term["case"]])
        return [factor * value for value in values]

    @staticmethod
    def _at(position, rows):
        """The row of a position, in N and mm."""
        row = rows[{"I": 0, "J": -1}.get(position, POSITIONS.index(position))]
        return [row[i] * KILO * (1 if i < 3 else KILO) for i in range(6)]

    def is_earthquake(self, combination):
        entry = self.combinations[combination]
        return entry.get("seismic", False) or any(
            self.is_earthquake(term["combination"]) if "combination" in term
            else self.cases[term["case"]].get("kind", "static") in EARTHQUAKES
            for term in entry["terms"])

    @property
    def shows_seismic_factor(self):
        return self.settings.get("seismic", False)

    def seismic_factor(self, item):
        """γRE that stands behind the forces of a check."""
        if item in ("stability", "combined stability"):
            return self.settings.get("gamma_re_stability", 0.8)
        return self.settings.get("gamma_re_strength", 0.75)

    def force_factor(self, item, combination):
        """γ0, or γRE in combinations with earthquake when the settings say so."""
        if self.shows_seismic_factor and self.is_earthquake(combination):
            return self.seismic_factor(item)
        return {1: 1.1, 2: 1.0, 3: 0.9}[self.settings.get("safety_class", 2)]
