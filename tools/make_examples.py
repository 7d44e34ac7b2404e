#!/usr/bin/env python3
"""Writes the model files in examples/ from their compact descriptions in tools/example_models.

Their load cases carry loads, from which the program computes the forces; where a file stands for one
with the forces of another program, they are those of tools/frame_analysis.py. The same files come out
on every run.
"""

import argparse
import sys
from pathlib import Path

from example_models import EXAMPLES
from frame_analysis import forces_of, report_errors
from model_text import model_text

EXAMPLES_FOLDER = Path(__file__).resolve().parent.parent / "examples"


def with_forces_for_loads(model: dict) -> dict:
    """The model with the forces that follow from its loads, and without these."""
    cases = [{name: case[name] for name in ("number", "name", "kind")}
             for case in model["load_cases"]]
    return model | {"load_cases": cases, "forces": forces_of(model)}


def example_text(name: str) -> str:
    builder = EXAMPLES[name]()
    model = builder.model()
    return model_text(with_forces_for_loads(model) if builder.imported_forces else model)


def write_all(folder: Path) -> None:
    for name in EXAMPLES:
        (folder / name).write_text(example_text(name), encoding="utf-8")


def check_all(folder: Path) -> None:
    """Raises ValueError when a file differs from what would be written."""
    for name in EXAMPLES:
        if (folder / name).read_text(encoding="utf-8") != example_text(name):
            raise ValueError(f"{name} is not what tools/make_examples.py writes")


def main() -> int:
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--folder", type=Path, default=EXAMPLES_FOLDER, help="where the files lie")
    parser.add_argument("--check", action="store_true",
                        help="write nothing; fail when a file is missing or differs")
    arguments = parser.parse_args()
    action = check_all if arguments.check else write_all
    return report_errors("make_examples", lambda: action(arguments.folder))


if __name__ == "__main__":
    sys.exit(main())
