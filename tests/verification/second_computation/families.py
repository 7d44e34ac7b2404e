"""Adversarial families of check points: a named function each, collected in FAMILIES."""

from . import families_plates, families_section, families_settings, families_state

FAMILIES = {}
for module in (families_section, families_plates, families_state, families_settings):
    FAMILIES.update(module.FAMILIES)
