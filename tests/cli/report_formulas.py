"""Recomputes the printed formulas from the printed quantities.

Symbols as in GB 50429-2007; N and mm. A formula that a block does not show all quantities of is left out,
or bounded. Moduli come from the strength block, when it is about the same forces; that of the bottom fibre,
which no block prints, from the printed dimensions, when the section counts whole.
"""

from report_numbers import Recomputed, larger
from report_section import centroid_from_top, is_symmetric, q_over_b


class MemberFormulas:
    """The formulas of one element's blocks."""

    def __init__(self, member, facts):
        self.member, self.facts = member, facts
        self.strength = member.block("strength")
        self.area = member.properties["Area"]
        self.symmetric = is_symmetric(member)

    def all(self):
        for block in self.member.blocks:
            formula = getattr(self, "_" + f"{block.item} {block.variant}".replace(" ", "_"), None)
            if formula is None:
                continue
            factor = (1.0 if block.combination is None
                      else self.facts.force_factor(block.item, block.combination))
            for what, expected, printed in formula(block, factor):
                yield Recomputed(f"element {self.member.number}, {block.item}: {what}", expected, printed)

    def _same_forces(self, block):
        """Whether the strength block's moduli are also those of this block."""
        return (self.strength.variant != "axial" and self.strength.combination == block.combination
                and self.strength.position == block.position)

    def _bottom_plasticity(self):
        """γ of the bottom fibre: channels and tees of weakly hardening alloys have 1.05."""
        weak = self.facts.is_weakly_hardening(self.member.number)
        return 1.05 if weak and self.member.shape in ("C", "T") else 1.0

    def _bottom_modulus(self):
        """Of a section that counts whole; None when its printed top modulus is another one."""
        top = centroid_from_top(self.member)
        inertia = self.member.properties["Iyy"]
        if not (inertia / top).meets(self.strength.Weny):
            return None
        return inertia / (self.member.sizes["H"].value - top)

    # Strength

    def _strength_axial(self, b, k):
        yield "Rmax1", k * abs(b.N) / (b.f * b.Aen), b.R

    def _strength_bending(self, b, k):
        about_z = k * b.Mz / (b.Gammaz * b.f * b.Wenz)
        if self.symmetric:
            yield "Rmax1", abs(k * abs(b.My) / (b.Gammay * b.f * b.Weny) - about_z), b.R
            return
        # The top fibre, whose γ is 1 in every such shape, is a lower bound.
        top = abs(k * b.My / (b.f * b.Weny)) + abs(about_z)
        yield "Rmax1, at least that of the top fibre", larger(top, b.R), b.R

    def _strength_combined(self, b, k):
        about_z = b.Mz / (b.Gammaz * b.f * b.Wenz)
        if self.symmetric:
            about_y = abs(b.My) / (b.Gammay * b.f * b.Weny)
            yield "Rmax1", k * (abs(b.N) / (b.f * b.Aen) + about_y + abs(about_z)), b.R
            return
        bottom = self._bottom_modulus()
        if bottom is None:
            return
        normal = b.N / (b.f * b.Aen) + b.My / (self._bottom_plasticity() * b.f * bottom)
        yield "Rmax1", k * (abs(normal) + abs(about_z)), b.R

    # Shear

    def _shear_y_details(self, b, k):
        yield from self._shear(b, k, b.Fy, b.Izz)

    def _shear_z_details(self, b, k):
        yield from self._shear(b, k, b.Fz, b.Iyy)

    def _shear(self, b, k, force, inertia):
        q = q_over_b(self.member).get(b.item)
        if q is not None:
            yield "R1" if b.item == "shear y" else "R2", k * abs(force) * q / (inertia * b.fv), b.R

    # Stability about y

    def _stability_axial(self, b, k):
        yield "Rmax2", k * abs(b.N) / (b.Phi * self.strength.f * self.area), b.R

    def _stability_bending(self, b, k):
        if self._same_forces(b) and (self.symmetric or b.My.value > 0):
            yield "Rmax2", k * b.My / (b.Phi_b * self.strength.f * self.strength.Weny), b.R

    def _stability_symmetric(self, b, k):
        if not self._same_forces(b):
            return
        s = self.strength
        about_y = (b.Beta_my * abs(b.My)
                   / (s.Gammay * s.f * s.Weny * (1 - b.Eta1 * abs(b.N) / b.N_Ey)))
        about_z = b.Eta * abs(b.Mz) / (b.Phi_bz * s.f * s.Wenz)
        yield "Rmax21", k * (abs(b.N) / (b.Phi_y * s.f * self.area) + about_y + about_z), b.R

    def _top(self, b, k):
        s = self.strength
        about_y = b.Beta_my * b.My / (s.Gammay * s.f * s.Weny * (1 - b.Eta1 * abs(b.N) / b.N_Ey))
        return k * (abs(b.N) / (b.Phi_y * s.f * self.area) + about_y)

    def _stability_top_compressed(self, b, k):
        yield "Rmax21", larger(b.R211, b.R212), b.R
        if not self._same_forces(b):
            return
        yield "Rmax211", self._top(b, k), b.R211
        bottom = self._bottom_modulus()
        if bottom is None:
            return
        f = self.strength.f
        about_y = b.Beta_my * b.My / (
            self._bottom_plasticity() * f * bottom * (1 - b.Eta2 * abs(b.N) / b.N_Ey))
        yield "Rmax212", k * abs(abs(b.N) / (f * b.Ae) - about_y), b.R212

    def _stability_top_pulled(self, b, k):
        if self._same_forces(b):
            yield "Rmax21", self._top(b, k), b.R

    # Stability about z

    def _combined_stability_symmetric(self, b, k):
        if not self._same_forces(b):
            return
        s = self.strength
        about_y = b.Eta * abs(b.My) / (b.Phi_by * s.f * s.Weny)
        about_z = (b.Beta_mz * abs(b.Mz)
                   / (s.Gammaz * s.f * s.Wenz * (1 - b.Eta1 * abs(b.N) / b.N_Ez)))
        yield "Rmax22", k * (abs(b.N) / (b.Phi_z * s.f * self.area) + about_y + about_z), b.R

    def _combined_stability_top_compressed(self, b, k):
        if self._same_forces(b):
            s = self.strength
            normal = abs(b.N) / (b.Phi_z * s.f * self.area)
            yield "Rmax22", k * (normal + b.Eta * b.My / (b.Phi_b * s.f * s.Weny)), b.R

    _combined_stability_top_pulled = _combined_stability_top_compressed
