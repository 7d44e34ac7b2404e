"""Plate layout of welded sections: clear widths, heat-affected strips, area and inertia.

b is the width of the zone on each side of a weld, rho the factor of its thickness. The clear part
of a plate may be reduced further by a factor c1 (top flange), c2 (bottom flange) or cw (web).
"""

from .ieee import maximum
from .material import haz_factor


def plates_of(case):
    return {"H": HPlates, "C": ChannelPlates, "B": BoxPlates, "2C": DoubleChannelPlates,
            "T": TeePlates}[case.shape](case)


class Plates:
    """Common parts; a subclass gives widths, strip width and the number of webs."""

    webs = 1.0
    strip_inertia_divisor = 6.0

    def __init__(self, case):
        self.case = case
        self.rho = haz_factor(case)
        self.b = case.b_haz
        self.tw = case.tw
        self.tf1 = case.tf1
        self.tf2 = case.tf2
        self.dt = abs(case.z1) - self.tf1 / 2.0
        self.layout(case)
        self.db = abs(case.z3) - self.tf2 / 2.0

    def clear(self, name, width):
        kind = "clamped" if width < 0.0 else "open"
        self.case.hit(f"haz.clear.{name}.{kind}")
        return maximum(width, 0.0)

    def flange(self, width, thickness, distance):
        s, rho = self.strip, self.rho
        return ((width + s * rho) * thickness * distance * distance
                + width * thickness * thickness * thickness / 12.0
                + s * (rho * thickness) * (rho * thickness) * (rho * thickness) / 12.0)

    def web(self, factor=1.0):
        return factor * self.tw * self.hw * self.hw * self.hw / (12.0 / self.webs)

    def web_strips(self):
        """Own inertia and transfer of the strips at both ends of the web or webs."""
        b, rho, tw = self.b, self.rho, self.tw
        top = abs(self.case.z1) - self.tf1 - b / 2.0
        bottom = abs(self.case.z3) - self.tf2 - b / 2.0
        own = rho * tw * b * b * b / self.strip_inertia_divisor
        return own + self.webs * (rho * tw * b * (top * top + bottom * bottom))

    def web_strip_area(self):
        return 2.0 * self.webs * self.b * self.tw * self.rho

    def inertia(self):
        return (self.flange(self.bf1, self.tf1, self.dt) + self.flange(self.bf2, self.tf2, self.db)
                + self.web() + self.web_strips())

    def area(self, c1=1.0, c2=1.0, cw=1.0):
        return (self.bf1 * c1 * self.tf1 + self.strip * (self.tf1 + self.tf2) * self.rho
                + self.bf2 * c2 * self.tf2 + self.web_strip_area()
                + self.webs * cw * self.hw * self.tw)


class HPlates(Plates):
    def layout(self, case):
        b, tw = self.b, self.tw
        self.bf1 = self.clear("H.top", case.B1 - 2.0 * b - tw)
        self.bf2 = self.clear("H.bottom", case.B2 - 2.0 * b - tw)
        self.hw = self.clear("H.web", case.H - self.tf1 - self.tf2 - 2.0 * b)
        self.strip = 2.0 * b + tw


class ChannelPlates(Plates):
    def layout(self, case):
        b, tw = self.b, self.tw
        self.bf1 = self.clear("C.top", case.B1 - b - tw)
        self.bf2 = self.clear("C.bottom", case.B2 - b - tw)
        self.hw = self.clear("C.web", case.H - self.tf1 - self.tf2 - 2.0 * b)
        self.strip = b + tw


class BoxPlates(Plates):
    webs = 2.0
    strip_inertia_divisor = 3.0

    def layout(self, case):
        b, tw = self.b, self.tw
        # kept: both flanges take the width of the top one
        self.bf1 = self.bf2 = self.clear("B.flange", case.B1 - 2.0 * b - 2.0 * tw)
        self.hw = self.clear("B.web", case.H - self.tf1 - self.tf2 - 2.0 * b)
        self.strip = 2.0 * (b + tw)

    def inertia(self):
        rho = self.rho
        thin = rho * self.tf2
        # kept: the bottom strip's own inertia takes half the strip width of the top one
        bottom = ((self.bf2 + self.strip * rho) * self.tf2 * self.db * self.db
                  + self.bf2 * self.tf2 * self.tf2 * self.tf2 / 12.0
                  + (self.b + self.tw) * thin * thin * thin / 12.0)
        return (self.flange(self.bf1, self.tf1, self.dt) + bottom + self.web()
                + self.web_strips())


class DoubleChannelPlates(Plates):
    webs = 2.0
    strip_inertia_divisor = 3.0

    def layout(self, case):
        b, tw = self.b, self.tw
        # kept: the top flange's thickness counts for both flanges
        self.tf2 = self.tf1
        self.bf1 = self.bf2 = self.clear("2C.flange", 2.0 * (case.B1 - b - tw))
        self.hw = self.clear("2C.web", case.H - 2.0 * self.tf1 - 2.0 * b)
        self.strip = 2.0 * (b + tw)


class TeePlates(Plates):
    strip_inertia_divisor = 12.0

    def layout(self, case):
        b, tw = self.b, self.tw
        self.bf1 = self.clear("T.flange", 2.0 * (case.B1 - b - tw))
        self.hw = self.clear("T.web", case.H - self.tf1 - 2.0 * b)
        self.strip = 2.0 * b + tw

    def web_strips(self):
        b, rho, tw = self.b, self.rho, self.tw
        top = abs(self.case.z1) - self.tf1 - b / 2.0
        return rho * tw * b * b * b / self.strip_inertia_divisor + rho * tw * b * (top * top)

    def inertia(self):
        return self.flange(self.bf1, self.tf1, self.dt) + self.web() + self.web_strips()

    def area(self):
        return (self.bf1 * self.tf1 + self.strip * self.tf1 * self.rho
                + self.b * self.tw * self.rho + self.hw * self.tw)
