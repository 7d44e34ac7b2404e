"""Writes model files (docs/model-file.md) as text: one entry of a list a line, and one load."""

import json
from collections.abc import Iterable, Iterator

# Lists whose entries stand on lines of their own; they may be generators, so that a model of any
# size is written without being held in memory.
LISTS = (
    "materials", "sections", "nodes", "supports", "elements", "members", "load_cases",
    "combinations", "forces",
)
# Lists within a load case whose entries stand on lines of their own.
LOADS = ("nodal", "span", "points", "temperature", "settlements")


def tidy(value: float, digits: int = 12) -> float | int:
    """The number with so many significant digits, whole ones without a fraction, never -0."""
    short = float(f"{value:.{digits}g}")
    return int(short) if short == int(short) else short


def entry_text(entry: object) -> str:
    return json.dumps(entry, ensure_ascii=False, allow_nan=False)


def load_case_text(case: dict) -> str:
    """A load case with its loads below it."""
    parts = [[entry_text({name: value for name, value in case.items() if name not in LOADS})[1:-1]]]
    for name in (name for name in LOADS if name in case):
        loads = [f"        {entry_text(load)}" for load in case[name]]
        parts.append([f"      {json.dumps(name)}: [", ",\n".join(loads) + " ]"])
    return "{" + ",\n".join("\n".join(part) for part in parts) + "}"


def list_lines(name: str, entries: Iterable[object]) -> Iterator[str]:
    yield f"  {json.dumps(name)}: ["
    previous = None
    text_of = load_case_text if name == "load_cases" else entry_text
    for entry in entries:
        if previous is not None:
            yield f"    {previous},"
        previous = text_of(entry)
    if previous is not None:
        yield f"    {previous}"
    yield "  ]"


def model_lines(model: dict) -> Iterator[str]:
    """Lines of the file in the order of the fields, each without its line end."""
    pending = "{"
    for place, (name, value) in enumerate(model.items()):
        if place:
            pending += ","
        yield pending
        lines = (
            list_lines(name, value) if name in LISTS
            else [f"  {json.dumps(name)}: {entry_text(value)}"]
        )
        pending = None
        for line in lines:
            if pending is not None:
                yield pending
            pending = line
    yield pending
    yield "}"


def model_text(model: dict) -> str:
    return "\n".join(model_lines(model)) + "\n"
