#!/usr/bin/env python3
"""Writes the model files in examples/ from their compact descriptions in tools/example_models.

The element forces are those of tools/frame_analysis.py. The same files come out on every run.
"""

import argparse
import sys
from pathlib import Path

from example_models import EXAMPLES
from frame_analysis import forces_of, report_errors
from model_text import model_text

EXAMPLES_FOLDER = Path(__file__).resolve().parent.parent / "examples"


def example_text(name: str) -> str:
    builder = EXAMPLES[name]()
    model = builder.model()
    return model_text(model | {"forces": forces_of(model, builder.loads())})


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
