"""Compares a report with its model, its results and itself; every finding is a line of text."""

from report_formulas import MemberFormulas
from report_model import STRENGTHS
from report_numbers import FORCE_PRECISION, Interval
from report_section import is_symmetric, section_formulas

ORDER = ("strength", "shear y", "shear z", "stability", "combined stability", "slenderness")
FORCES = ("N", "Fy", "Fz", "Mx", "My", "Mz")


def governing_by_element(rows):
    """Governing checks of `aluframe results`, by element and by check; of the slendernesses that about z
    only when its ratio is larger."""
    elements = {}
    for row in rows:
        elements.setdefault(row["element"], {})[row["item"]] = row
    for checks in elements.values():
        y, z = checks.pop("slenderness y", None), checks.pop("slenderness z", None)
        if y or z:
            checks["slenderness"] = z if z and (z["ratio"] or 0) > (y["ratio"] or 0) else y
    return elements


def findings(report, facts, rows):
    """Everything that is wrong with a report. Empty when it agrees with its model and with the rows of
    `aluframe results`, and its formulas with their quantities."""
    found = []
    if report.rows != facts.header_rows():
        found.append(f"the combinations are {report.rows}, not {facts.header_rows()}")
    governing = governing_by_element(rows)
    numbers = [member.number for member in report.members]
    expected = [number for number in facts.elements if number in governing]
    if numbers != expected:
        found.append(f"the elements are {numbers}, not {expected}")
    for member in report.members:
        found += _member_findings(member, facts, governing.get(member.number, {}))
    return found


def _member_findings(member, facts, checks):
    yield from _description_findings(member, facts)
    for formula in [*section_formulas(member), *MemberFormulas(member, facts).all()]:
        if not formula.agrees():
            yield str(formula)
    items = [block.item for block in member.blocks]
    expected = [item for item in ORDER if item in checks]
    if items != expected:
        yield f"element {member.number}: blocks of {items}, not of {expected}"
        return
    for block in member.blocks:
        for problem in _block_problems(member, block, facts, checks[block.item]):
            yield f"element {member.number}, {block.item}: {problem}"


def _description_findings(member, facts):
    element = facts.elements.get(member.number)
    if element is None:
        yield f"element {member.number}: not in the model"
        return
    section = facts.sections[element["section"]]
    for what, expected, found in (
            ("type", facts.type(member.number), member.type),
            ("material", element["material"], member.material),
            ("section", element["section"], member.section),
            ("shape", section["shape"], member.shape)):
        if expected != found:
            yield f"element {member.number}: {what} {found}, not {expected}"
    names = {"P": {"tw": "t"}}.get(member.shape, {})
    for name, size in member.sizes.items():
        expected = section["dimensions"].get(names.get(name, name))
        if expected is not None and not size.meets(expected):
            yield f"element {member.number}: {name} {size}, not {expected}"


def _block_problems(member, block, facts, row):
    if block.item == "slenderness":
        yield from _slenderness_problems(member, block, facts, row)
        return
    if not block.R.meets(row["ratio"]):
        yield f"ratio {block.R}, stored {row['ratio']}"
    if (block.combination, block.position) != (row["combination"], row["position"]):
        yield (f"combination {block.combination} at {block.position}, "
               f"stored {row['combination']} at {row['position']}")
        return
    # A ratio of exactly 1 passes; one that prints as 1.000 does so on either side.
    if block.passes != (row["ratio"] - 1 < 1e-10):
        yield f"passes: {block.passes}, stored ratio {row['ratio']}"
    yield from _strength_problems(member, block, facts)
    yield from _force_problems(member, block, facts, row)
    factor = block.values.get("RE")
    if factor is not None and not factor.meets(facts.seismic_factor(block.item)):
        yield f"seismic factor {factor}, not {facts.seismic_factor(block.item)}"


def _strength_problems(member, block, facts):
    for name, expected in zip(("f", "fv"), STRENGTHS[facts.alloy(member.number)]):
        if name in block.values and not block.values[name].meets(expected):
            yield f"{name} {block.values[name]}, not {expected}"


def _force_problems(member, block, facts, row):
    """The forces are those of the combination, with their sign and without γ0."""
    side = -1 if row["side"] == "min" else 1
    values = facts.side_forces(member.number, row["combination"], side, row["position"])
    for name, value in zip(FORCES, values):
        if name not in block.values:
            continue
        # Terms of ten times the sum may have cancelled, each in single precision.
        slack = 10 * FORCE_PRECISION * abs(value)
        if not block.values[name].meets(Interval(value - slack, value + slack)):
            yield f"{name} {block.values[name]}, not {value}"


def _slenderness_problems(member, block, facts, row):
    if block.variant == "without axial force":
        return
    if not block.R.meets(row["demand"]):
        yield f"slenderness {block.R}, stored {row['demand']}"
    if not block.limit.meets(row["capacity"]):
        yield f"limit {block.limit}, stored {row['capacity']}"
    limit = facts.slenderness_limit(member.number, block.variant == "compressed")
    if not block.limit.meets(limit):
        yield f"limit {block.limit}, not {limit}"
    if block.passes != (row["demand"] - row["capacity"] < 1e-10):
        yield f"passes: {block.passes}, stored {row['demand']} of {row['capacity']}"
    axis = row["item"][-1]
    slenderness = (facts.length_factor(member.number, axis) * facts.length(member.number)
                   / member.properties["i" + axis])
    # About z an unsymmetric section may twist as well, which makes it more slender.
    twists = axis == "z" and not is_symmetric(member)
    if not block.R.meets(slenderness) and not (twists and block.R.high > slenderness.low):
        yield f"slenderness {block.R}, recomputed {slenderness}"
