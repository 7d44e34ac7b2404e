"""The golden reports: of which model each is, and how it is made.

    ALUFRAME=build/dev/bin/aluframe tests/golden/golden_reports.py FOLDER

writes all of them anew into FOLDER, and ends with an error when one of them disagrees with its model.
"""

import json
import os
import subprocess
import sys
from dataclasses import dataclass
from pathlib import Path

HERE = Path(__file__).resolve().parent
ROOT = HERE.parents[1]
sys.path.insert(0, str(ROOT / "tests" / "cli"))
os.environ.setdefault("ALUFRAME", str(ROOT / "build" / "release" / "bin" / "aluframe"))

from report_checks import findings  # noqa: E402
from report_grammar import STORED  # noqa: E402
from report_model import ModelFacts  # noqa: E402
from report_reader import read_report  # noqa: E402
from typed_states import TypedStates  # noqa: E402


@dataclass(frozen=True)
class Golden:
    name: str
    model: Path
    patch: Path | None = None  # what is replaced in the model, top-level fields
    units: str = "N,mm"


# The examples are reported with both sides of their envelopes, and one by the states of them. The forces
# of the dome follow from a buckling mode that others lie close to: its last digits are those of the search.
EXTREMES = HERE / "extremes.patch.json"
EXAMPLES = [path for path in sorted((ROOT / "examples").glob("*.json")) if path.stem != "dome"]

GOLDEN = [Golden(path.stem, path, EXTREMES) for path in EXAMPLES] + [
    Golden("mullion-transom-states", ROOT / "examples" / "mullion-transom.json"),
    Golden("everything", HERE / "everything.json"),
    Golden("everything-metres", HERE / "everything.json", units="kN,m"),
    Golden("everything-seismic", HERE / "everything.json", HERE / "everything-seismic.patch.json"),
]


def model_of(golden):
    model = json.loads(golden.model.read_text(encoding="utf-8"))
    if golden.patch is not None:
        model.update(json.loads(golden.patch.read_text(encoding="utf-8")))
    return model


def run(*arguments):
    done = subprocess.run([os.environ["ALUFRAME"], *map(str, arguments)], capture_output=True,
                          text=True, check=False, env={**os.environ, "LC_ALL": "C.UTF-8"}, timeout=120)
    if done.returncode != 0:
        raise RuntimeError(f"{arguments}: status {done.returncode}\n{done.stderr}")
    return done.stdout


def write_report(golden, folder):
    """Checks and reports the model into the folder, as NAME.alu and NAME.txt. @return its results"""
    model = folder / f"{golden.name}.json"
    model.write_text(json.dumps(model_of(golden)), encoding="utf-8")
    run("check", model)
    run("report", model, "--units", golden.units, "--readable", model.with_suffix(".txt"))
    return json.loads(run("results", model, "--format", "json"))


def second_order_forces(model):
    """Forces of the combinations of a second-order model, five rows by element and combination."""
    forces = {}
    rows = json.loads(run("analyse", model, "--show", "forces", "--format", "json"))["forces"]
    for row in rows:
        forces.setdefault((row["element"], row["combination"]), []).append(
            [row[name] for name in ("N", "Fy", "Fz", "Mx", "My", "Mz")])
    return forces


def typed(model, results):
    """The model and its results with the states of its envelopes as combinations of their own."""
    states = TypedStates(model)
    number = {(row["combination"], row["combination_name"]): row["combination"] for row in results} | states.numbers
    return states.model, [
        {**row, "combination": number[row["combination"], row["combination_name"]]} for row in results]


def disagreements(golden, report, results):
    """What is wrong with a golden report, found without the program that wrote it; but the forces of
    second order are those that it shows of its analysis."""
    model = model_of(golden)
    second_order = model.get("analysis", {}).get("second_order", False)
    if model.get("envelopes") != "extremes":
        model, results = typed(model, results)
    facts = ModelFacts(model, second_order_forces(golden.model) if second_order else None)
    return findings(read_report(report, STORED, facts.shows_seismic_factor), facts, results)


def main(folder):
    wrong = []
    for golden in GOLDEN:
        results = write_report(golden, folder)
        report = (folder / f"{golden.name}.alu").read_text(encoding="utf-8")
        wrong += [f"{golden.name}: {text}" for text in disagreements(golden, report, results)]
    if wrong:
        sys.exit("\n".join(wrong))


if __name__ == "__main__":
    main(Path(sys.argv[1]))
