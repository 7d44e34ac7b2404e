"""Where the elements of a model are on the screen, in the axonometric view, a little smaller than the window."""

import json
from math import cos, radians, sin

HALO = (0xE6, 0x00, 0x7E)  # of selected elements
# Turned by 25 degrees, looked down at by 25 degrees.
C, S = cos(radians(25)), sin(radians(25))
RIGHT, UP = (C, S, 0), (-S * S, C * S, C)


def spread(values):
    return min(values), max(values)


class ShownFrame:
    """Found from the pixels of the whole frame when it is selected."""

    def __init__(self, program, model):
        content = json.loads(model.read_text(encoding="utf-8"))
        flat = {}
        for node in content["nodes"]:
            place = node["x"], node["y"], node["z"]
            flat[node["number"]] = (sum(a * b for a, b in zip(RIGHT, place)),
                                    -sum(a * b for a, b in zip(UP, place)))
        view = program.find("filler", "^View of the frame$")
        self.area = view.area
        program.press("ctrl+1")
        program.click(self.area[0] + 5, self.area[1] + self.area[3] - 5)
        # A frame that its user has zoomed stays where it is when a legend appears.
        program.press("minus", "ctrl+a")
        program.sees(f"^{len(content['elements'])} elements selected$")
        halo = program.steady(lambda: program.screen.pixels(HALO, self.area))
        x, y = (spread([pixel[axis] for pixel in halo]) for axis in (0, 1))
        u, v = (spread([place[axis] for place in flat.values()]) for axis in (0, 1))
        # The line's own width is added alike to the width and the height of the frame.
        scale = ((x[1] - x[0]) - (y[1] - y[0])) / ((u[1] - u[0]) - (v[1] - v[0]))
        places = {number: ((x[0] + x[1] + scale * (2 * a - u[0] - u[1])) / 2,
                           (y[0] + y[1] + scale * (2 * b - v[0] - v[1])) / 2)
                  for number, (a, b) in flat.items()}
        self.elements = {element["number"]: tuple(places[node] for node in element["nodes"])
                         for element in content["elements"]}

    def point(self, element, share=0.5):
        """A pixel on an element, at a share of its length."""
        start, end = self.elements[element]
        return tuple(round(a + share * (b - a)) for a, b in zip(start, end))

    def in_band(self, left, top, right, bottom, whole):
        """Elements that lie in a band whole, or touch it."""
        def is_in(point):
            return left <= point[0] <= right and top <= point[1] <= bottom

        found = []
        for number in self.elements:
            points = [self.point(number, i / 500) for i in range(501)]
            if (all if whole else any)(map(is_in, points)):
                found.append(number)
        return found
