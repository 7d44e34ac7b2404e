"""Deterministic check points: ordinary ones, families in turn, and all rows of the phi tables."""

import random

from .families import FAMILIES
from .families_state import TABLE_STEPS, phi_table_rows
from .random_points import ordinary

#: of eight points, four come from the families, one reads rows of the phi tables
CYCLE = 8


def generate(count, seed):
    """Yields (family name, point); the id of a point holds its random seed, its number and the family."""
    rng = random.Random(seed)
    names = list(FAMILIES)
    for number in range(count):
        if number % 2 == 1:
            family = names[(number // 2) % len(names)]
            point = FAMILIES[family](rng)
        elif number % CYCLE == 0:
            family = "phi_table_rows"
            point = phi_table_rows(rng, number // CYCLE % TABLE_STEPS)
        else:
            family, point = "ordinary", ordinary(rng)
        point["id"] = f"{seed}/{number}/{family}"
        yield family, point
