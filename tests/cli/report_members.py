"""Members of a model that names none, for the reports of the examples: columns and posts alone.

The rule of docs/members.md for columns, written down a second time: a column runs straight on past elements
that are released in bending or axial only, to the next support, joint, release of its own or other section.
"""

import math


class FoundColumns:
    def __init__(self, model):
        self.nodes = {node["number"]: [node[axis] for axis in "xyz"] for node in model["nodes"]}
        self.supported = {support["node"] for support in model.get("supports", [])}
        self.elements = {element["number"]: element for element in model["elements"]}
        self.at = {}
        for element in model["elements"]:
            for node in element["nodes"]:
                self.at.setdefault(node, []).append(element)

    def run_of(self, number):
        """Numbers of the elements that make one member with an element, itself included."""
        run = [number]
        for node in self.elements[number]["nodes"]:
            while (following := self._next(self.elements[run[-1]], node)) is not None:
                run.append(following["number"])
                node = next(end for end in following["nodes"] if end != node)
            run.reverse()
        return run

    def _next(self, element, node):
        """The element in which a column goes on past a node, or nothing."""
        if node in self.supported or not self._is_free_column(element, node):
            return None
        others = [other for other in self.at[node] if other is not element]
        ahead = [other for other in others if self._continues(element, other, node)]
        if len(ahead) != 1 or any(self._restrains(other, node) for other in others if other is not ahead[0]):
            return None
        return ahead[0]

    def _direction(self, element):
        start, end = (self.nodes[node] for node in element["nodes"])
        length = math.dist(start, end)
        return [(b - a) / length for a, b in zip(start, end)]

    def _is_free_column(self, element, node):
        """Near the vertical, nothing released at the node, no factors of its own."""
        return (abs(self._direction(element)[2]) > math.cos(math.radians(10))
                and element.get("kind") != "truss" and not self._released(element, node)
                and "length_factors" not in element.get("design", {}))

    def _continues(self, element, other, node):
        alike = all(element.get(key) == other.get(key)
                    for key in ("section", "material", "beta", "member_type"))
        ahead = all(math.isclose(abs(a), abs(b), abs_tol=1e-6)
                    for a, b in zip(self._direction(element), self._direction(other)))
        return alike and ahead and self._is_free_column(other, node)

    @staticmethod
    def _released(element, node):
        end = "start" if element["nodes"][0] == node else "end"
        return element.get("releases", {}).get(end, [])

    def _restrains(self, element, node):
        released = self._released(element, node)
        return element.get("kind") != "truss" and not {"My", "Mz"} & set(released)
